#pragma once

#include "substance/ph_sorption.h"
#include "ui/forms/entries_under_edit.h"

#include <QDialog>
#include <vector>

class QCheckBox;
class QGridLayout;

namespace orvel {

class Number_Edit;

// Sorption of a dissociating substance: its pKa and its Koc at one or two pH values.
class KOC_PH : public QDialog, public Entries_Under_Edit {
    Q_OBJECT

public:
    // Substance i, 1 to 9; text_koc0 is the Koc text of the substance form.
    KOC_PH(Session& session, int i, std::string text_koc0, QWidget* parent = nullptr);

    void Take_Over_Entries(Session& session) const override;

    // The Koc text after the form was accepted.
    const std::string& Text_koc0() const { return The_Koc; }

private:
    void Lay_Out();
    Number_Edit* Field(QGridLayout& grid, int row, int column, const QString& name, const QString& label,
                       const QString& label_name);
    PH_Entry Entry() const;
    void Show_Entry(const PH_Entry& entry);
    void Show_View();
    void Done();

    Session& The_Session;
    int Substance;
    std::string The_Koc;
    const PH_Entry At_First;
    Number_Edit *s_pKa = nullptr, *s_KOC = nullptr, *s_pH = nullptr, *s_KOC2 = nullptr, *s_pH2 = nullptr;
    QCheckBox* s_Dataset = nullptr;
    std::vector<QWidget*> First_pH, Second_Pair;
};

} // namespace orvel
