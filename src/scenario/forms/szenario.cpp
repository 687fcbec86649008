#include "scenario/forms/szenario.h"

#include "core/files.h"
#include "files/forms/form_saving.h"
#include "scenario/forms/form_eros.h"
#include "scenario/forms/form_rot.h"
#include "scenario/forms/form_soil_hor.h"
#include "scenario/forms/macro.h"
#include "scenario/saving.h"
#include "scenario/scenario_fields.h"
#include "scenario/scenario_view.h"
#include "ui/forms/byte_edit.h"
#include "ui/forms/leave_guard.h"
#include "ui/forms/undo_history.h"
#include "ui/forms/widgets.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>

namespace orvel {

namespace {

void Show_All(const std::vector<QWidget*>& widgets, bool visible)
{
    for (auto* widget : widgets)
        widget->setVisible(visible);
}

} // namespace

Szenario::Szenario(Session& session, std::filesystem::path directory, QWidget* parent)
    : QDialog(parent),
      The_Session(session),
      Directory(std::move(directory)),
      On_Disk(Directory / Path_Of(session.Program.PSM_File))
{
    setObjectName("Szenario");
    setWindowTitle("Scenariofile");
    Guard = new Leave_Guard(*this, [this](QWidget& box) { Leave(box.objectName()); });
    Lay_Out();
    The_Session.Program.SZE_Changed = false;
    Load();
    History = Keep_History(
        *this, [this] { return The_Session.Scenario; },
        [this](const Scenario_Document& document) {
            The_Session.Scenario = document;
            The_Session.Program.SZE_Changed = true;
            Load();
        });
    for (auto* button : {History->Redo_Button(), History->Undo_Button()})
        Button_Row->insertWidget(0, button);
}

void Szenario::Show_Unsaved()
{
    The_Session.Program.SZE_Changed = true;
    Load();
    History->Look("Unsaved changes");
}

void Szenario::Load()
{
    for (const auto name : Scenario_Boxes())
        Boxes.at(Shown(name))->setText(Shown(Field_Text(The_Session.Scenario, name)));
    Show_View();
}

void Szenario::Show_View()
{
    const auto view = View_Of(The_Session.Scenario);
    Button_Delxflg->button(view.Compartments)->setChecked(true);
    Show_All(Layer_Widgets, view.Layers_Visible);
    Label2->setText(Shown(view.Thickness));
    Dispersion->button(view.Dispersion)->setChecked(true);
    Hydraulic_Options->button(view.Hydraulics)->setChecked(true);
    Wasserfluss->button(view.Drainage)->setChecked(true);
    for (std::size_t x = 0; x < view.Processes.size(); ++x) {
        const bool greyed = view.Processes[x] == Box::Greyed;
        schnelle_Prozesse[x]->setTristate(greyed);
        schnelle_Prozesse[x]->setCheckState(greyed                          ? Qt::PartiallyChecked
                                            : view.Processes[x] == Box::Set ? Qt::Checked
                                                                            : Qt::Unchecked);
        schnelle_Prozesse[x]->setEnabled(!greyed);
        Show_All(Depth_Widgets[x], view.Process_Depth_Visible[x]);
    }
    Command_macro->setVisible(view.Macropore_Button_Visible);
    Check_er->setChecked(view.Erosion);
    Command_er->setVisible(view.Erosion);
    doc_check->setChecked(view.DOC);
    Show_All(DOC_Widgets, view.DOC);
    Combo_et->setCurrentIndex(view.Evapotranspiration);
    Show_All(Kc_Widgets, view.Kc_Visible);
    for (std::size_t i = 0; i < view.Frequencies.size(); ++i)
        Frequencies[i]->setText(Shown(view.Frequencies[i]));
}

// Stores the text of a box; false if it was refused.
bool Szenario::Leave(const QString& name)
{
    const std::string control = Bytes_Of(name);
    auto* box = Boxes.at(name);
    const auto refusal = Leave_Field(The_Session, control, box->Typed());
    Show_View();
    if (refusal) {
        Guard->Refuse(The_Session.Ask, *refusal);
        return false;
    }
    box->setText(Shown(Field_Text(The_Session.Scenario, control)));
    return true;
}

// Stores the box that has the focus: a button triggered by its mnemonic does not take it away.
bool Szenario::Leave_Current()
{
    const auto* box = qobject_cast<Byte_Edit*>(focusWidget());
    return !box || !Boxes.contains(box->objectName()) || Leave(box->objectName());
}

void Szenario::Take_Over_Entries(Session& session) const
{
    const auto* box = qobject_cast<Byte_Edit*>(focusWidget());
    if (!box || !Boxes.contains(box->objectName()))
        return;
    auto before = session.Scenario;
    if (Leave_Field(session, Bytes_Of(box->objectName()), box->Typed()))
        session.Scenario = std::move(before);
}

void Szenario::Horizons()
{
    if (!Leave_Current())
        return;
    if (const auto refusal = Check_Open_Horizons(Boxes.at("Text_nhor")->Typed()))
        return Guard->Refuse(The_Session.Ask, *refusal);
    form_soil_hor form(The_Session, this);
    if (form.exec() != Accepted)
        return;
    Load();
    const auto new_depth = form.New_Depth();
    if (!new_depth)
        return;
    auto* depth = Boxes.at("Text_cor");
    depth->setText(Shown(General_Text(*new_depth)));
    Leave("Text_cor"); // the core depth follows
    depth->setFocus();
}

void Szenario::Macropores()
{
    if (Leave_Current() && Macro(The_Session, this).exec() == Accepted)
        Load();
}

void Szenario::Erosion_Parameters()
{
    if (Leave_Current())
        Form_eros(The_Session, this).exec();
}

void Szenario::Rotation()
{
    if (Leave_Current())
        Form_rot(The_Session, The_Session.Program.App_Path, this).exec();
}

void Szenario::Save()
{
    if (!Leave_Current())
        return;
    if (const auto refusal = Prepare_Save(The_Session, Boxes.at("Text_nhor")->Typed()))
        return Guard->Refuse(The_Session.Ask, *refusal);
    Form_Saving dialog(The_Session, Document_Kind::Scenario, Directory, this, &On_Disk);
    dialog.setWindowTitle(Shown(Scenario_Save_Caption));
    if (dialog.exec() == Accepted)
        QDialog::done(Accepted);
}

void Szenario::done(int result)
{
    if (const auto* box = qobject_cast<Byte_Edit*>(focusWidget()); box && Boxes.contains(box->objectName()))
        Leave_Field(The_Session, Bytes_Of(box->objectName()),
                    box->Typed()); // a refused value does not keep the user in the form
    if (!May_Close(The_Session, The_Session.Program.SZE_Changed))
        return;
    QDialog::done(result);
}

} // namespace orvel
