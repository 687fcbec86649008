#include "jobs/forms/focus.h"

#include "core/files.h"
#include "core/text.h"
#include "documents/forms/edit_document.h"
#include "jobs/job_status.h"
#include "jobs/run_commands.h"
#include "jobs/start_batch.h"
#include "runs/batch.h"
#include "runs/forms/ausgabe_festlegen.h"
#include "runs/forms/dialog.h"
#include "runs/guidance_of_run.h"
#include "runs/output_selection.h"
#include "ui/forms/command_box.h"
#include "ui/forms/widgets.h"

#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>

namespace orvel {

namespace {

constexpr int Tick_Interval = 300;      // ms
constexpr int Interval_At_Start = 5000; // ms; time for a job to take its lock
constexpr int Progress_Interval = 1000; // ms

void Select_Text(QListWidget& list, std::string_view text)
{
    for (int row = 0; row < list.count(); ++row) {
        if (Same_Text(Bytes_Of(list.item(row)->text()), text)) {
            list.setCurrentRow(row);
            return;
        }
    }
}

std::string Text_Of(const QListWidget& list)
{
    return list.currentItem() ? Bytes_Of(list.currentItem()->text()) : std::string();
}

} // namespace

FOCUS::FOCUS(Session& session, const Mode& mode, Run_Windows windows, QWidget* parent)
    : QDialog(parent),
      The_Session(session),
      The_Mode(mode),
      Windows(std::move(windows))
{
    setObjectName(Shown(mode.Form));
    setWindowTitle(Shown(mode.Caption));
    Lay_Out();
    connect(&Timer1, &QTimer::timeout, this, &FOCUS::Tick);
    connect(&Progress_Timer, &QTimer::timeout, this, &FOCUS::Show_Progress);
    Activate();
    Timer1.start(Tick_Interval);
    Tick();
}

void FOCUS::Activate()
{
    const Hourglass waiting;
    List_Pesticides();
    const Run_Template saved = Read_Template(The_Session.Program, The_Mode);
    Restore(saved);
    if (First_Open && saved.Has_Rows)
        The_Session.Output = saved.Output;
    First_Open = false;
    Show_Output_Option();
    Evaluate();
}

void FOCUS::List_Pesticides()
{
    const QSignalBlocker quiet(Pesticide);
    Pesticide->clear();
    for (const std::string& name : Pesticide_List(The_Session.Program.App_Path))
        Pesticide->addItem(Shown(name));
    Select_Text(*Pesticide, Selected.Choice.Pesticide);
}

// Selects the combination of the last run control file.
void FOCUS::Restore(const Run_Template& saved)
{
    const QSignalBlocker quiet_pesticide(Pesticide), quiet_crop(Crop_List);
    Kept_Number = saved.Kept_Number;
    if (!saved.Pesticide.empty())
        Select_Text(*Pesticide, saved.Pesticide);
    if (!Pesticide->currentItem())
        Pesticide->setCurrentRow(0);
    const int tillage = saved.Has_Count_Line ? Tillage_List_Index(The_Mode, saved.Till_Depth) : -1;
    L_tildepth->setCurrentIndex(tillage >= 0 ? tillage : The_Mode.Tillage_Index);
    const auto crop = Crop_Of_Part(The_Mode, saved.Code, saved.Crop_Part);
    Crop_List->setCurrentRow(crop ? *crop : std::max(0, Crop_List->currentRow()));
    Fill_Locations(saved.Code);
}

// Lists the crop's locations and selects the one with this code, or else the one that was selected before.
void FOCUS::Fill_Locations(std::string_view code)
{
    const QSignalBlocker quiet(Location_List);
    const std::string before = Text_Of(*Location_List);
    const auto locations = Locations_Of_Crop(The_Session.Program, The_Mode, Crop_At(Crop_List->currentRow()));
    Location_List->clear();
    for (const std::string& location : locations)
        Location_List->addItem(Shown(location));
    Location_List->setCurrentRow(Location_To_Select(locations, before));
    for (std::size_t i = 0; !code.empty() && i < locations.size(); ++i) {
        if (Same_Text(Code_Of_Location(The_Mode, locations[i]), code))
            Location_List->setCurrentRow(static_cast<int>(i));
    }
}

void FOCUS::Crop_Click()
{
    {
        const QSignalBlocker quiet(Crop_List);
        Crop_List->setCurrentRow(Step_Over_Separator(Crop_List->currentRow(), Crop_Step));
    }
    Crop_Step = Crop_Step_After(Crop_List->currentRow(), Crop_Step);
    Hinweis->hide();
    Fill_Locations({});
    Evaluate();
}

void FOCUS::Evaluate()
{
    Clear_Marked();
    const Hourglass waiting;
    Selected = Evaluate_Selection(The_Session.Program, The_Session.Ask, The_Mode, Text_Of(*Pesticide),
                                  Crop_At(Crop_List->currentRow()), Text_Of(*Location_List));
    Show_Selection();
}

void FOCUS::Show_Selection()
{
    Warnung->setText(Shown(Selected.Warnung));
    Warning_Box->setVisible(!Selected.Warnung.empty());
    App_Modus->setText(Shown(Selected.App_Modus));
    app_Date->setText(Shown(Selected.app_Date));
    Frame4->setVisible(Selected.Choice.Tillage_Visible);
    Show_Job(Job_Running(The_Session.Program, The_Mode));
    Show_Start_Notice();
}

void FOCUS::Show_Start_Notice()
{
    Start_Text->setText(Selected.Buttons_Enabled() ? Shown(Start_Notice(The_Session.Program, The_Mode, Selected.Choice))
                                                   : QString());
}

void FOCUS::Stop()
{
    Stop_Job(The_Session.Program, The_Session.Ask, The_Mode);
}

void FOCUS::Show_Output_Option()
{
    Ausgabe[static_cast<std::size_t>(Option_Of_Output(The_Session.Output))]->setChecked(true);
}

void FOCUS::Ausgabe_Click(int option)
{
    if (option == static_cast<int>(Output_Option::Minimum))
        The_Session.Output = Minimum_Output();
    else if (option == static_cast<int>(Output_Option::Recommended))
        The_Session.Output = Recommended_Output();
    else
        Ausgabe_festlegen(The_Session.Output, this).exec();
    Show_Output_Option();
}

Run_Choice FOCUS::Choice() const
{
    Run_Choice choice = Selected.Choice;
    choice.Options = {.Output = The_Session.Output,
                      .Tillage = Bytes_Of(L_tildepth->currentText()),
                      .Irregular_Years = Irregular_Years,
                      .Kept_Number = Kept_Number,
                      .Scaling = Scaling ? Bytes_Of(Scaling->currentText()) : std::string()};
    return choice;
}

std::filesystem::path FOCUS::Directory() const
{
    return Mode_Directory(The_Session.Program, The_Mode);
}

void FOCUS::Mark()
{
    const Hourglass waiting;
    const auto choice = Choice();
    const bool marked = Mark_For_Batch(The_Session.Program, The_Session.Ask, The_Mode, choice) == Mark_Result::Marked;
    Show_Selection();
    Show_Marked({.Marked = marked ? 1 : 0, .Choices = {choice}});
}

void FOCUS::Mark_All_Locations()
{
    Timer1.stop();
    Progress_Timer.stop();
    setEnabled(false);
    Job_Box->show();
    Job_Text->setText("Preparing the runs ...");
    const auto show_progress = [this](int location, int locations) {
        Job_Bar->setRange(0, locations);
        Job_Bar->setValue(location);
        QApplication::processEvents();
    };
    const Run_Choice choice = Choice();
    const auto result = Mark_All(The_Session.Program, The_Session.Ask, The_Mode, choice.Pesticide, choice.Crop,
                                 choice.Options, show_progress);
    setEnabled(true);
    Timer1.start(Tick_Interval);
    Evaluate();
    Show_Marked(result);
}

// What the guidance says against the runs is behind a button: it does not hold up the marking.
void FOCUS::Show_Marked(const Mark_All_Result& result)
{
    Guidance_Text = result.Marked == 0 ? "" : Guidance_After_Marking(The_Session.Program, The_Mode, result.Choices);
    Guidance->setVisible(!Guidance_Text.empty());
    Marked->setText(Shown(Marked_Text(result) + (Guidance_Text.empty() ? "" : "; see the guidance")));
    Tells_Of_Batch = result.Marked > 0;
}

void FOCUS::Clear_Marked()
{
    Marked->clear();
    Guidance->hide();
    Tells_Of_Batch = false;
}

void FOCUS::Show_Guidance()
{
    The_Session.Ask({std::string(Guidance_Title), Guidance_Text, Icon::Information});
}

void FOCUS::Run()
{
    Timer1.stop();
    const auto job = Run_Batch(The_Session.Program, The_Session.Ask, The_Mode, Choice());
    const bool started = job.Result == Start_Result::Started;
    Show_Job(started);
    Show_Start_Notice();
    Timer1.start(started ? Interval_At_Start : Tick_Interval);
}

// The only way to run an irregular pattern: the user enters the number of years.
void FOCUS::Run_Anyway()
{
    Timer1.stop();
    Dialog years(this);
    if (years.exec() == Accepted) {
        Irregular_Years = years.Years();
        return Run();
    }
    Timer1.start(Tick_Interval);
}

void FOCUS::Tick()
{
    if (Timer1.interval() == Interval_At_Start)
        return Timer1.start(Tick_Interval);
    if (!Selected.Old_Format())
        Show_Job(Job_Running(The_Session.Program, The_Mode));
}

void FOCUS::Show_Job(bool running)
{
    if (Tells_Of_Batch && !Batch_Pending(Directory())) { // it was started, here or elsewhere
        Clear_Marked();
        Show_Start_Notice();
    }
    const bool usable = Selected.Buttons_Enabled();
    s_run->setText("&" + Shown(Run_Caption(Directory())));
    s_run->setEnabled(usable && !running);
    Batchdatei->setEnabled(usable);
    Multi_batch->setEnabled(usable);
    Hinweis->setVisible(running && The_Session.Program.Online_Help);
    Job_Box->setVisible(running);
    Start_Text->setVisible(!running);
    if (!running)
        return Progress_Timer.stop();
    if (!Progress_Timer.isActive()) {
        Progress_Timer.start(Progress_Interval);
        Show_Progress();
    }
}

void FOCUS::Show_Progress()
{
    const Job_Progress progress = Progress_Of_Job(Directory());
    Job_Bar->setRange(0, std::max(1, static_cast<int>(progress.Years)));
    Job_Bar->setValue(static_cast<int>(progress.Years_Done));
    Job_Text->setText(Shown(Progress_Text(progress)));
}

void FOCUS::Evaluation()
{
    Timer1.stop();
    const std::string& pesticide = Selected.Choice.Pesticide;
    The_Session.Run.Last_Simulation = {pesticide.substr(0, pesticide.rfind('.')), Text_Of(*Crop_List),
                                       Text_Of(*Location_List)};
    Windows.Open_Evaluation(The_Mode, this);
    Timer1.start(Tick_Interval);
    Activate();
}

void FOCUS::Command()
{
    Show_Command(this, Run_Command_Lines(The_Session.Program, The_Mode, Choice()));
}

void FOCUS::Edit_Pesticide()
{
    if (!Selected.Choice.Pesticide.empty())
        Edit(The_Session.Program.App_Path / Path_Of(Selected.Choice.Pesticide));
}

void FOCUS::Edit_Scenario()
{
    if (!Selected.Choice.Location.empty())
        Edit(Found_Or_New(Directory(), Selected.Choice.Scenario));
}

void FOCUS::Edit(const std::filesystem::path& document)
{
    Timer1.stop();
    Open_And_Edit(The_Session, document, this);
    Timer1.start(Tick_Interval);
    Activate();
}

void FOCUS::Delete_Selected()
{
    const std::string& pesticide = Selected.Choice.Pesticide;
    if (!pesticide.empty() && Delete_Pesticide(The_Session.Program.App_Path, The_Session.Ask, pesticide))
        Activate();
}

// Keys that work in every list and in the form itself; false for any other key.
bool FOCUS::Key(int key)
{
    if (key == Qt::Key_Delete)
        Delete_Selected();
    else if (key == Qt::Key_R && Selected.May_Run_Anyway())
        Run_Anyway();
    else
        return false;
    return true;
}

bool FOCUS::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QDialog::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (watched == Pesticide && (key == Qt::Key_Return || key == Qt::Key_Enter)) {
        Edit_Pesticide();
        return true;
    }
    return Key(key) || QDialog::eventFilter(watched, event);
}

void FOCUS::keyPressEvent(QKeyEvent* event)
{
    if (!Key(event->key()))
        QDialog::keyPressEvent(event);
}

} // namespace orvel
