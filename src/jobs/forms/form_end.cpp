#include "jobs/forms/form_end.h"

#include "core/files.h"
#include "core/shell_line.h"
#include "documents/forms/edit_document.h"
#include "jobs/single_run_archive.h"
#include "jobs/single_run_start.h"
#include "runs/forms/ausgabe_festlegen.h"
#include "runs/output_selection.h"
#include "ui/forms/command_box.h"
#include "ui/forms/leave_guard.h"
#include "ui/forms/number_edit.h"
#include "ui/forms/path_label.h"
#include "ui/forms/widgets.h"
#include "ui/number_field.h"

#include <QComboBox>
#include <QEvent>
#include <QFileDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>

namespace orvel {

namespace {

constexpr int State_Interval = 500; // ms

// Lists the files of a directory; the one of the name given is selected.
void Fill(QListWidget& list, const std::filesystem::path& directory, std::string_view mask, const QString& selected)
{
    const QSignalBlocker quiet(list);
    list.clear();
    for (const std::string& name : List_Files(directory, mask)) {
        if (const auto bytes = Name_Of(name))
            list.addItem(Shown(*bytes));
    }
    const auto found = list.findItems(selected, Qt::MatchExactly);
    if (!found.isEmpty())
        list.setCurrentItem(found[0]);
}

} // namespace

form_end::form_end(Session& session, Run_Windows windows, QWidget* parent)
    : QDialog(parent),
      The_Session(session),
      Windows(std::move(windows)),
      Directory(session.Program.App_Path)
{
    setObjectName("form_end");
    setWindowTitle("Parameters for Simulation");
    Guard = new Leave_Guard(*this, [this](QWidget& box) { Leave(box); });
    Guard->Let_Pass({"Command4", "Command5", "Command6", "Command7"}); // "Start" checks all, the others need nothing
    Lay_Out();
    Restore_Single_Run(Directory, The_Session.Run.Single, The_Session.Output);
    Load(Entry_Of_Settings(The_Session.Run.Single));
    Refresh_Files();
    File_psm->setFocus();
    connect(&Timer1, &QTimer::timeout, this, &form_end::Show_State);
    Timer1.start(State_Interval);
    Show_State();
}

void form_end::Refresh_Files()
{
    Dir1->Show(Directory);
    const QString climate = File_cli->currentItem() ? File_cli->currentItem()->text() : QString();
    Fill(*File_psm, Directory, "*.psm", Label2[0]->text());
    Fill(*File_sce, Directory, "*.sze", Label2[1]->text());
    Fill(*File_cli, Directory, "*.cli", climate);
    if (File_cli->currentRow() < 0)
        File_cli->setCurrentRow(0);
    const std::string missing = Missing_Files_Text(The_Session.Program, Directory);
    Missing->setText(Shown(missing));
    Missing->setVisible(!missing.empty());
}

void form_end::Load(const Single_Run_Entry& entry)
{
    Label2[0]->setText(Shown(entry.Pesticide));
    Label2[1]->setText(Shown(entry.Scenario));
    List_cli->clear();
    for (const std::string& climate : entry.Climates)
        List_cli->addItem(Shown(climate));
    Combo_stad->setEditText(Shown(entry.Start_Day));
    Combo_endd->setEditText(Shown(entry.End_Day));
    Combo_stam->setCurrentIndex(entry.Start_Month_Index);
    Combo_endm->setCurrentIndex(entry.End_Month_Index);
    Text_years->setText(Shown(entry.Years));
    Ausgabe[static_cast<std::size_t>(Option_Of_Output(The_Session.Output))]->setChecked(true);
    Show_Date_Hint();
}

Single_Run_Entry form_end::Entry() const
{
    Single_Run_Entry entry{.Pesticide = Bytes_Of(Label2[0]->text()),
                           .Scenario = Bytes_Of(Label2[1]->text()),
                           .Start_Day = Bytes_Of(Combo_stad->currentText()),
                           .End_Day = Bytes_Of(Combo_endd->currentText()),
                           .Years = Bytes_Of(Text_years->text()),
                           .Start_Month_Index = Combo_stam->currentIndex(),
                           .End_Month_Index = Combo_endm->currentIndex()};
    for (int row = 0; row < List_cli->count(); ++row)
        entry.Climates.push_back(Bytes_Of(List_cli->item(row)->text()));
    return entry;
}

void form_end::Choose_Directory()
{
    const QString chosen = QFileDialog::getExistingDirectory(this, "Directory of the run", Dir1->Path());
    if (chosen.isEmpty())
        return;
    Directory = chosen.toStdString();
    Refresh_Files();
    Close_Archive();
}

bool form_end::Has_Climate_File()
{
    if (File_cli->currentItem())
        return true;
    The_Session.Ask({"File check", "No climatic files available"});
    return false;
}

void form_end::Insert_Climate()
{
    if (Has_Climate_File())
        List_cli->insertItem(std::max(0, List_cli->currentRow()), File_cli->currentItem()->text());
}

void form_end::Append_Climate()
{
    if (!Has_Climate_File())
        return;
    const int row = List_cli->count() == 0 ? 0 : std::max(0, List_cli->currentRow());
    List_cli->insertItem(row, File_cli->currentItem()->text());
    if (List_cli->count() == 1)
        List_cli->setCurrentRow(0);
}

void form_end::Remove_Climate()
{
    const int row = List_cli->currentRow();
    if (row < 0)
        return;
    delete List_cli->takeItem(row);
    List_cli->setCurrentRow(std::min(row, List_cli->count() - 1));
}

void form_end::Ausgabe_Click(int option)
{
    if (option == static_cast<int>(Output_Option::Minimum))
        The_Session.Output = Minimum_Output();
    else if (option == static_cast<int>(Output_Option::Recommended))
        The_Session.Output = Recommended_Output();
    else
        Ausgabe_festlegen(The_Session.Output, this).exec(); // "User Specific" stays selected, whatever was entered
}

void form_end::Command()
{
    const auto directory = std::filesystem::current_path();
    Show_Command(this,
                 {Directory_Line(directory), Orvelctl_Line(The_Session.Program.App_Path, Single_Run_Words(Entry()))});
}

void form_end::Start()
{
    if (State_Of_Single_Run(Directory, 0).Running) {
        The_Session.Ask({"File check", std::string(Still_At_Work)});
        return;
    }
    const Message question{
        "File check",
        "There are already output files in the current directory. Do you want to move them into an archive?",
        Icon::Question,
        {Button::Yes, Button::No},
        Button::Yes};
    if (Has_Output(Directory) && The_Session.Ask(question) == Button::Yes)
        return Open_Archive();
    const Single_Run_Entry entry = Entry();
    if (const auto refusal = Check_Single_Run(Directory, entry, The_Session.Scenario.SZE_Horizons.Number()))
        return Guard->Refuse(The_Session.Ask, *refusal);
    Start_Single_Run(The_Session, Directory, entry);
    Show_State();
}

void form_end::Open_Archive()
{
    Text1->setText(Shown(Free_Archive_Name(Directory)));
    Text1->setEnabled(true);
    Command8->setEnabled(true);
    Frame1->show();
    Text1->setFocus();
}

void form_end::Close_Archive()
{
    Text1->setEnabled(false);
    Command8->setEnabled(false);
    Frame1->hide();
}

void form_end::Move_To_Archive()
{
    const Hourglass waiting;
    const bool has_output = Has_Output(Directory);
    Archive_Run(The_Session.Ask, Directory, Bytes_Of(Text1->text()));
    if (has_output)
        Close_Archive();
}

// Opens a file of the directory in its editor; a blank name does nothing.
void form_end::Edit(const QString& name)
{
    if (!name.trimmed().isEmpty())
        Open_And_Edit(The_Session, Found_Or_New(Directory, Path_Of(Bytes_Of(name))), this);
}

void form_end::Leave(const QWidget& box)
{
    const auto* day = qobject_cast<const QComboBox*>(&box);
    const auto refusal = day ? Check_Day(Bytes_Of(day->currentText()), Bytes_Of(day->objectName()))
                             : Check_Years(Bytes_Of(Text_years->text()));
    if (refusal)
        Guard->Refuse(The_Session.Ask, *refusal);
}

bool form_end::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonDblClick) {
        if (const auto* label = qobject_cast<QLabel*>(watched))
            Edit(label->text());
    }
    return QDialog::eventFilter(watched, event);
}

// Other windows and programs may have changed the directory meanwhile.
bool form_end::event(QEvent* event)
{
    if (event->type() == QEvent::WindowActivate)
        Refresh_Files();
    return QDialog::event(event);
}

void form_end::Show_Date_Hint()
{
    const std::string hints = Period_Hints(Entry());
    Datum_Hinweis->setText(Shown(hints));
    Datum_Hinweis->setVisible(!hints.empty());
}

void form_end::Stop()
{
    Stop_Single_Run(The_Session.Ask, Directory);
}

void form_end::Show_State()
{
    const int years = Typed_Integer(Bytes_Of(Text_years->text()));
    const Single_Run_State state = State_Of_Single_Run(Directory, years);
    Run_Bar->setVisible(state.Running);
    Anhalten->setVisible(state.Running);
    Run_Bar->setRange(0, std::max(1, years));
    Run_Bar->setValue(state.Years_Done);
    Run_Text->setText(Shown(state.Text));
}

} // namespace orvel
