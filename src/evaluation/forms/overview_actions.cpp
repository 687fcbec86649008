// What the overview does with what is marked.
#include "core/code_page.h"
#include "core/files.h"
#include "core/shell_line.h"
#include "core/text.h"
#include "documents/forms/edit_document.h"
#include "evaluation/forms/overview_window.h"
#include "evaluation/forms/series_window.h"
#include "jobs/run_again.h"
#include "jobs/simulations.h"
#include "jobs/start_batch.h"
#include "records/verify.h"
#include "report/forms/report_saving.h"
#include "report/overview_formats.h"
#include "runs/selection.h"
#include "tables/forms/jahr_orv.h"
#include "tables/forms/mass_balance.h"
#include "tables/forms/pecsoil.h"
#include "tables/forms/text_viewer.h"
#include "ui/forms/command_box.h"
#include "ui/forms/text_output.h"
#include "ui/forms/widgets.h"
#include "ui/shown_file.h"

#include <algorithm>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QMimeData>
#include <QTreeView>

namespace orvel {

namespace fs = std::filesystem;

namespace {

bool Is_At_Rest(const Overview_Run& run)
{
    return run.Kind != Cell_Kind::Running;
}

bool Has_Output(const Overview_Run& run)
{
    return run.Kind != Cell_Kind::Scheduled;
}

} // namespace

void Overview_Window::Enable_Actions()
{
    const auto* row = Table_Model.Row_At(Table->currentIndex());
    const auto* run = Marked_Run();
    for (auto* action : {A_Leachate, A_Daily, A_Balance, A_Echo, A_Changed})
        action->setEnabled(run && Has_Output(*run));
    A_Scenario->setEnabled(run != nullptr);
    for (auto* action : {A_Again, A_Delete})
        action->setEnabled(run && Is_At_Rest(*run));
    for (auto* action : {A_Pesticide, A_Report})
        action->setEnabled(row != nullptr);
    A_Failed->setEnabled(Latest && std::ranges::any_of(Latest->Overview.Runs, [](const Overview_Run& other) {
                             return other.Kind == Cell_Kind::Failed || other.Kind == Cell_Kind::Incomplete;
                         }));
}

// Looks into the crop's run directories, so only when the menu opens.
void Overview_Window::Enable_Missing()
{
    const auto* row = Table_Model.Row_At(Table->currentIndex());
    A_Missing->setEnabled(row && Can_Run_Missing(The_Session.Program, The_Mode(), row->Pesticide, row->Crop));
}

const Overview_Run* Overview_Window::Marked_Run() const
{
    const auto* run = Table_Model.Run_At(Table->currentIndex());
    return run && run->Kind != Cell_Kind::Absent ? run : nullptr;
}

// The marked simulation as it is now.
Simulation Overview_Window::Marked_Simulation() const
{
    const auto* run = Marked_Run();
    if (!run)
        return {};
    return Look_At_Simulation({.Pesticide = run->Pesticide,
                               .Crop = run->Crop,
                               .Location = run->Location,
                               .Directory = run->Directory,
                               .State = {}});
}

void Overview_Window::Leachate()
{
    const fs::path run = Marked_Simulation().Directory;
    if (The_Mode().Kind == Mode_Kind::Focus)
        Jahr_ORV(The_Session, run, this).exec();
    else
        PECsoil(The_Session, run, Depth->currentIndex() + 1, this).exec();
}

void Overview_Window::Daily()
{
    Series_Window(The_Session, Marked_Simulation().Directory, this).exec();
}

void Overview_Window::Balance()
{
    Mass_Balance(The_Session, Marked_Simulation().Directory, this).exec();
}

void Overview_Window::Echo()
{
    Show_Echo(The_Session, Marked_Simulation().Directory, this);
}

// The file of the installation: what was simulated stays as it was.
void Overview_Window::Edit_Pesticide()
{
    if (const auto* row = Table_Model.Row_At(Table->currentIndex()))
        Open_And_Edit(The_Session, Found_Or_New(The_Session.Program.App_Path, Path_Of(row->Pesticide + ".psm")), this);
}

void Overview_Window::Edit_Scenario()
{
    const auto simulation = Marked_Simulation();
    const auto selected =
        Evaluate_Selection(The_Session.Program, The_Session.Ask, The_Mode(), simulation.Pesticide + ".psm",
                           Crop_Named(simulation.Crop), simulation.Location);
    if (!selected.Choice.Scenario.empty())
        Open_And_Edit(The_Session,
                      Found_Or_New(Mode_Directory(The_Session.Program, The_Mode()), selected.Choice.Scenario), this);
}

void Overview_Window::What_Changed()
{
    const auto simulation = Marked_Simulation();
    const Hourglass waiting;
    std::string text = simulation.Pesticide + ", " + simulation.Crop + ", " + simulation.Location + "\r\n";
    const auto verified = Verifier(The_Session.Program.App_Path).Verify(simulation.Directory);
    text += verified.Result == Check::Ok ? "Every file of the simulation is the one that was recorded."
                                         : std::string(Check_Text(verified.Result)) + ": " + verified.Detail;
    if (simulation.State.Record) {
        Input_Changes changes(The_Session.Program.App_Path);
        for (const auto& change : changes.Of_Installation(simulation.Directory, *simulation.State.Record))
            text += std::string(CrLf) + Change_Text(change);
    }
    The_Session.Ask({"What changed since", text, Icon::Information});
}

// Starts what was marked. While a job is at work it stays marked, and the user is told.
void Overview_Window::Start(bool any)
{
    if (any)
        Start_Batch(The_Session.Program, The_Session.Ask, The_Mode());
}

void Overview_Window::Run_Again()
{
    const auto simulation = Marked_Simulation();
    const Message question{"Run again",
                           "Do you want to run " + simulation.Pesticide + ", " + simulation.Crop + ", " +
                               simulation.Location + " again? Its present results go to the bin.",
                           Icon::Question,
                           {Button::Yes, Button::No},
                           Button::No};
    if (The_Session.Ask(question) == Button::Yes)
        Start(Mark_Run_Again(The_Session.Program, The_Session.Ask, The_Mode(), simulation));
}

void Overview_Window::Delete()
{
    if (A_Delete->isEnabled())
        Delete_Simulations(The_Session.Program, The_Session.Ask, The_Mode(), {Marked_Simulation()});
}

void Overview_Window::Run_Missing()
{
    const auto* row = Table_Model.Row_At(Table->currentIndex());
    if (!row)
        return;
    const Hourglass waiting;
    Start(Mark_Missing(The_Session.Program, The_Session.Ask, The_Mode(), row->Pesticide, row->Crop));
}

void Overview_Window::Run_Failed()
{
    const auto list = Simulation_List(Mode_Directory(The_Session.Program, The_Mode()));
    Start(Mark_Failed_Again(The_Session.Program, The_Session.Ask, The_Mode(), list) > 0);
}

void Overview_Window::Report()
{
    const auto* row = Table_Model.Row_At(Table->currentIndex());
    if (!row)
        return;
    try {
        Save_Report_As(*this, The_Session,
                       Request_Summaries(The_Session, The_Mode(), row->Pesticide, row->Crop, Chosen_Codes(Settings)));
    } catch (const File_Error& error) {
        The_Session.Ask({"Save report", To_Code_Page(error.what())});
    }
}

void Overview_Window::Copy()
{
    if (!Latest)
        return;
    const Overview shown = Table_Model.As_Shown();
    auto* both = new QMimeData;
    both->setText(QString::fromStdString(Overview_Lines(shown)));
    both->setHtml(QString::fromStdString(Overview_Fragment(shown, Settings.Bounds)));
    QApplication::clipboard()->setMimeData(both);
}

void Overview_Window::Save()
{
    if (!Latest)
        return;
    const Overview shown = Table_Model.As_Shown();
    const QString chosen = Chosen_File(*this, "Save_Overview", "Save overview", Shown(Overview_Filters), "Overview");
    if (chosen.isEmpty())
        return;
    try {
        const Hourglass waiting;
        const fs::path file = chosen.toStdString();
        if (Is_Overview_Book(file))
            Write_Whole(file, Format_Xlsx(Overview_Book(shown, Settings.Bounds)));
        else
            Write_Overview(shown, Settings.Bounds, file);
    } catch (const File_Error& error) {
        The_Session.Ask({"Save overview", To_Code_Page(error.what())});
    }
}

void Overview_Window::Print()
{
    if (!Latest)
        return;
    const Overview shown = Table_Model.As_Shown();
    QString page = "<h3>Overview</h3>";
    for (const auto& sentence : Sentences_Of(shown))
        page += "<p>" + Shown(sentence).toHtmlEscaped() + "</p>";
    Print_Page(*this, The_Session.Ask, "Overview",
               page + QString::fromStdString(Overview_Fragment(shown, Settings.Bounds)));
}

void Overview_Window::Command()
{
    std::vector<std::string> words = {"overview", "--mode", std::string(The_Mode().Name)};
    if (Crops->currentIndex() > 0)
        words.insert(words.end(), {"--crop", Crops->currentText().toStdString()});
    std::string codes;
    for (const auto& code : Chosen_Codes(Settings))
        codes += (codes.empty() ? "" : ",") + code;
    if (!codes.empty())
        words.insert(words.end(), {"--locations", codes});
    if (The_Mode().Kind != Mode_Kind::Focus)
        words.insert(words.end(), {"--depth", std::to_string(Depth->currentIndex() + 1), "--average",
                                   std::to_string(TWA_Window[static_cast<std::size_t>(Average->currentIndex())])});
    if (Compared)
        words.insert(words.end(), {"--compare", Compared_Path.string()});
    Show_Command(this, {Orvelctl_Line(The_Session.Program.App_Path, words)});
}

} // namespace orvel
