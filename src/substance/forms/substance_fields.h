#pragma once

#include "substance/substance_view.h"
#include "ui/forms/entry_boxes.h"

#include <array>
#include <QDialog>

class QCheckBox;
class QFormLayout;
class QGroupBox;
class QLabel;
class QPushButton;
class QRadioButton;

namespace orvel {

class Byte_Edit;
class Leave_Guard;

// The controls shared by the forms of the active substance and of a metabolite, in three groups for the form to
// arrange: substance properties, sorption and depth dependence. The buttons among them open their own forms.
class Substance_Fields : public QObject {
    Q_OBJECT

public:
    Substance_Fields(Session& session, int i, QDialog& form); // substance i, 1 to 9

    QGroupBox* General() const { return General_Group; }
    QFormLayout* General_Rows() const { return Rows_Of_General; }
    QGroupBox* Sorption() const { return Sorption_Group; }
    QGroupBox* Depth() const { return Depth_Group; }

    // The entry, after accepting a number of horizons still being typed; nothing if that was refused.
    std::optional<Substance_Entry> Entered();
    Substance_Entry Entry() const;
    void Show_Entry(const Substance_Entry& entry);
    void Show_Notes(); // of what the forms behind the buttons have stored

    // The fields that the form of the active substance hides at first: Text_koc4, Text_koc5 and text_kdoc.
    void Show_Minor(bool visible);

private:
    void Lay_Out_General();
    void Lay_Out_Sorption();
    void Lay_Out_Depth();
    void Show_View();
    void Choose_Depth(int mode);
    bool Leave_Horizons();
    void Edit_PH();
    void Edit_Kinetics();
    void Edit_Horizons();

    Session& The_Session;
    int Substance;
    QDialog& Form;
    bool Kf_Enabled = false;
    QGroupBox *General_Group = nullptr, *Sorption_Group = nullptr, *Depth_Group = nullptr;
    QFormLayout *Rows_Of_General = nullptr, *Rows_Of_Sorption = nullptr, *Rows_Of_Depth = nullptr;
    Leave_Guard* Guard = nullptr;
    Byte_Edit* Name = nullptr;
    Entry_Boxes Boxes;
    Number_Edit* Text_nhor = nullptr;
    QRadioButton *Option_koc1 = nullptr, *Option_koc2 = nullptr;
    std::array<QRadioButton*, 3> tiefenabhaengig{};
    QCheckBox* Check_Hydrolysis = nullptr;
    QPushButton* Command_hor = nullptr;
    QLabel *label_pH = nullptr, *Label_kinSorp = nullptr, *Label_Sorption = nullptr;
};

} // namespace orvel
