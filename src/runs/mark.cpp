#include "core/code_page.h"
#include "core/files.h"
#include "core/numbers.h"
#include "core/system/lock.h"
#include "jobs/job.h"
#include "runs/batch.h"
#include "runs/run_directory.h"

#include <algorithm>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view Starting = "Starting ORVEL Simulations";
constexpr std::string_view Already_Selected_Text = "You already selected this combination in your batch job!";
constexpr std::string_view Already_Performed_Text =
    "You already performed a ORVEL-Simulation using this combination.If you continue the previous simulation will be "
    "removed!";
constexpr int Batch_Stage = 8;

void Tell(const Session& session, std::string_view text)
{
    session.Ask({std::string(Starting), std::string(text)});
}

void Tell_Stage(const Session& session, int stage, const std::string& text)
{
    Tell(session,
         "An error occured when preparing this simulation (errorcode " + General_Text(stage) + ").\r\n" + text);
}

bool Write_Run_Control(const Session& session, const Mode& mode, const std::string& text)
try {
    Write_Whole(Found_Or_New(Mode_Directory(session, mode), "orvel.inp"), text);
    return true;
} catch (const File_Error&) {
    session.Ask({"File check", "Cannot write ORVEL.INP"});
    return false;
}

// A run that a job at work has still to do: its engine's copy is there.
bool Is_Waiting_In_Job(const fs::path& directory, const fs::path& place, const std::string& engine)
try {
    if (!Is_Locked(directory) || !Find_File(place, Path_Of(engine)))
        return false;
    const auto runs = Resolve_Runs(directory, Parse_Job(Read_Whole(Found_Or_New(directory, "orveljob.bat"))));
    return std::ranges::find(runs, place) != runs.end();
} catch (const File_Error&) {
    return false;
}

void Add_To_Batch(Session& session, const Mode& mode, const std::string& run)
try {
    const fs::path batch = Found_Or_New(Mode_Directory(session, mode), "batch.bat");
    const bool first = session.Run.Job_Dir.empty();
    const std::string before = first ? "" : Read_Whole(batch);
    Write_Whole(batch, before + Format_Job_Run(run, session.Program.Engine_Exe, first));
    session.Run.Job_Dir.push_back(run);
} catch (const File_Error& error) {
    throw Stage_Error(Batch_Stage, To_Code_Page(error.what()));
}

void Prepare(Session& session, const Mode& mode, const Run_Choice& choice, const std::string& run)
{
    const fs::path directory = Mode_Directory(session, mode);
    const fs::path place = Run_Path(directory, run);
    if (Is_Waiting_In_Job(directory, place, session.Program.Engine_Exe))
        Refuse_Old_Output(place);
    New_Run_Directory made(place, Sources_Of_Run(session, mode, choice));
    made.Put_In_Place();
    Add_To_Batch(session, mode, run);
    made.Keep();
}

// Whether the user wants the results of an earlier run replaced, if there are any.
bool May_Replace(const Session& session, const fs::path& place)
{
    if (!Find_File(place, "echo.orv"))
        return true;
    return session.Ask({std::string(Starting),
                        std::string(Already_Performed_Text),
                        Icon::Warning,
                        {Button::Ok, Button::Cancel},
                        Button::Cancel}) == Button::Ok;
}

bool Has_Place_In_Batch(const Session& session)
{
    if (session.Run.Job_Dir.size() < static_cast<std::size_t>(Last_Job))
        return true;
    Tell(session, "A batch holds at most 500 combinations. Please start it before you select further ones.");
    return false;
}

Mark_Result Mark_In_Turn(Session& session, const Mode& mode, const Run_Choice& choice)
{
    if (!Write_Run_Control(session, mode, Format_Run(session, mode, choice)))
        return Mark_Result::Failed;
    Load_Batch(session, mode);
    const std::string run =
        Run_Directory(choice.Pesticide, Crops[static_cast<std::size_t>(choice.Crop)].Text, choice.Location);
    if (std::ranges::find(session.Run.Job_Dir, run) != session.Run.Job_Dir.end()) {
        Tell(session, Already_Selected_Text);
        return Mark_Result::Already_Selected;
    }
    if (!Has_Place_In_Batch(session))
        return Mark_Result::Failed;
    if (!May_Replace(session, Run_Path(Mode_Directory(session, mode), run)))
        return Mark_Result::Cancelled;
    Prepare(session, mode, choice, run);
    return Mark_Result::Marked;
}

} // namespace

Mark_Result Mark_For_Batch(Session& session, const Mode& mode, const Run_Choice& choice)
{
    if (choice.Pesticide.empty() || choice.Location.empty() || Crop_Stem(mode, choice.Crop).empty()) {
        Tell(session, "Please select a pesticide file, a crop and a location.");
        return Mark_Result::Failed;
    }
    if (!Fits_A_Line(choice.Pesticide)) {
        Tell(session, "A simulation cannot take the name of this pesticide file.");
        return Mark_Result::Failed;
    }
    try {
        const auto turn = Acquire_Batch_Lock(session);
        return Mark_In_Turn(session, mode, choice);
    } catch (const Stage_Error& error) {
        Tell_Stage(session, error.Stage, error.what());
    } catch (const File_Error& error) {
        Tell(session, error.what());
    }
    return Mark_Result::Failed;
}

void Take_Out_Of_Batch(Session& session, const Mode& mode, const std::vector<fs::path>& run_directories)
{
    if (!Batch_Pending(session, mode))
        return;
    const auto turn = Acquire_Batch_Lock(session);
    const fs::path directory = Mode_Directory(session, mode), batch = Found_Or_New(directory, "batch.bat");
    const auto jobs = Parse_Job(Read_Whole(batch));
    const auto places = Resolve_Runs(directory, jobs);
    std::string kept;
    for (std::size_t i = 0; i < jobs.size(); ++i) {
        if (std::ranges::find(run_directories, places[i]) == run_directories.end())
            kept += Format_Job_Run(jobs[i].Directory, jobs[i].Engine, kept.empty());
    }
    if (kept.empty() && !fs::remove(batch))
        throw File_Error("The pending batch " + batch.string() + " cannot be removed.");
    if (!kept.empty())
        Write_Whole(batch, kept);
    Load_Batch(session, mode);
}

Mark_All_Result Mark_All(Session& session, const Mode& mode, const Run_Choice& choice,
                         const std::function<void(int, int)>& progress)
{
    Mark_All_Result result;
    const auto locations = Locations_Of_Crop(session, mode, choice.Crop);
    for (std::size_t i = 0; i < locations.size(); ++i) {
        if (progress)
            progress(static_cast<int>(i), static_cast<int>(locations.size()));
        const Selection selected = Evaluate_Selection(session, mode, choice.Pesticide, choice.Crop, locations[i]);
        if (!selected.Usable)
            break; // the pesticide file cannot be read, and the user knows
        if (!selected.Buttons_Enabled()) {
            ++result.Passed_Over;
            continue;
        }
        Run_Choice one = choice;
        one.Location = locations[i];
        one.Tillage_Visible = selected.Tillage_Visible;
        const bool marked = Mark_For_Batch(session, mode, one) == Mark_Result::Marked;
        ++(marked ? result.Marked : result.Failed);
        if (!marked && session.Run.Job_Dir.size() >= static_cast<std::size_t>(Last_Job))
            break;
    }
    return result;
}

} // namespace orvel
