#pragma once

#include "core/session.h"
#include "files/watched_file.h"
#include "scenario/scenario_options.h"
#include "ui/forms/entries_under_edit.h"

#include <array>
#include <filesystem>
#include <map>
#include <QDialog>

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QFormLayout;
class QGroupBox;
class QHBoxLayout;
class QLabel;
class QPushButton;

namespace orvel {

class Byte_Edit;
class Leave_Guard;
class Undo_Keys;

// The editor of the session's scenario document. A change is stored when its field is left or its option chosen.
class Szenario : public QDialog, public Entries_Under_Edit {
    Q_OBJECT

public:
    // `directory` is that of the open file.
    Szenario(Session& session, std::filesystem::path directory, QWidget* parent = nullptr);

    void done(int result) override;
    void Take_Over_Entries(Session& session) const override; // of the box under edit

    // The session's document is now one with changes that were not saved before.
    void Show_Unsaved();

private:
    void Lay_Out();
    QGroupBox* Soil();
    QGroupBox* Compartments();
    QGroupBox* Hydraulics();
    QGroupBox* Evapotranspiration();
    QGroupBox* Processes();
    QGroupBox* Output();
    QHBoxLayout* Buttons();
    Byte_Edit* Register(Byte_Edit* box, const QString& purpose);
    Byte_Edit* Number_Box(const QString& name, const QString& purpose, const QString& unit = {});
    void Add_Row(QFormLayout& rows, const QString& caption, const QString& name, const QString& unit = {});
    QButtonGroup* Options(QFormLayout& rows, const QStringList& names, const QStringList& captions,
                          void (*choose)(Scenario_Edit, int));
    QPushButton* Command(const QString& name, const QString& caption, void (Szenario::*handler)());

    void Load();
    void Show_View();
    bool Leave(const QString& name);
    bool Leave_Current();
    void Horizons();
    void Macropores();
    void Erosion_Parameters();
    void Rotation();
    void Save();

    Session& The_Session;
    std::filesystem::path Directory;
    Watched_File On_Disk;
    std::map<QString, Byte_Edit*> Boxes;
    std::vector<QWidget*> Layer_Widgets, Kc_Widgets, DOC_Widgets;
    std::array<std::vector<QWidget*>, 2> Depth_Widgets;
    QButtonGroup *Button_Delxflg = nullptr, *Dispersion = nullptr, *Hydraulic_Options = nullptr, *Wasserfluss = nullptr;
    std::array<QCheckBox*, 2> schnelle_Prozesse{};
    QCheckBox *doc_check = nullptr, *Check_er = nullptr;
    QComboBox* Combo_et = nullptr;
    QLabel* Label2 = nullptr;
    std::array<QPushButton*, 3> Frequencies{}; // Label_wat, Label_chem, Label_conc
    QPushButton *Command_macro = nullptr, *Command_er = nullptr;
    QHBoxLayout* Button_Row = nullptr;
    Undo_Keys* History = nullptr;
    Leave_Guard* Guard = nullptr;
};

} // namespace orvel
