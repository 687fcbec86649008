// Prepares the run directory of a combination and adds it to the pending batch, or leaves everything as it was.
#include "runs/mark.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/numbers.h"
#include "core/run_name.h"
#include "core/system/lock.h"
#include "core/text.h"
#include "output/run_outputs.h"
#include "runs/batch.h"
#include "runs/bin.h"
#include "runs/guidance_of_run.h"
#include "runs/job_file.h"
#include "runs/run_directory.h"
#include "runs/run_place.h"
#include "runs/selection.h"

#include <algorithm>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view Already_Selected_Text = "You already selected this combination in your batch job!";
constexpr std::string_view Already_Performed_Text =
    "You already performed a ORVEL-Simulation using this combination.If you continue the previous simulation will be "
    "removed!";
constexpr std::string_view Full_Text =
    "A batch holds at most 500 combinations. Please start it before you select further ones.";
constexpr int Batch_Stage = 8;

void Tell_Stage(const Ask_Function& ask, const Stage_Error& error)
{
    Tell(ask, Starting,
         "An error occured when preparing this simulation (errorcode " + General_Text(error.Stage) + ").\r\n" +
             error.what());
}

bool Write_Run_Control(const Ask_Function& ask, const fs::path& mode_directory, const std::string& text)
try {
    Write_Whole(Found_Or_New(mode_directory, "orvel.inp"), text);
    return true;
} catch (const File_Error&) {
    Tell(ask, "File check", "Cannot write ORVEL.INP");
    return false;
}

// Whether a running job has yet to do this run: its copy of the engine is still there.
bool Is_Waiting_In_Job(const fs::path& mode_directory, const fs::path& place, const std::string& engine)
try {
    if (!Is_Locked(mode_directory) || !Find_File(place, Path_Of(engine)))
        return false;
    const auto runs = Read_Job_Runs(mode_directory);
    return std::ranges::find(runs, place) != runs.end();
} catch (const File_Error& error) {
    Pass_On_If_Unreadable(error);
    return false;
}

// Whether earlier results may be replaced: asks the user if there are any.
bool May_Replace(const Ask_Function& ask, const fs::path& place)
{
    if (!Find_File(place, "echo.orv"))
        return true;
    return ask({std::string(Starting),
                std::string(Already_Performed_Text),
                Icon::Warning,
                {Button::Ok, Button::Cancel},
                Button::Cancel}) == Button::Ok;
}

// Whether two run directories are one: where the system looks at no case, names that differ in it alone are.
bool Is_Same_Run(const fs::path& mode_directory, const std::string& one, const std::string& other)
{
    std::error_code ignored;
    return one == other || (Same_Text(one, other) &&
                            fs::equivalent(Run_Path(mode_directory, one), Run_Path(mode_directory, other), ignored));
}

enum class Batch_Line { Present, First, Next };

// Makes the run directory and adds its lines to the batch, both or neither. Throws Stage_Error.
void Prepare(const fs::path& mode_directory, const std::string& run, const Run_Sources& sources, Batch_Line line)
{
    const fs::path place = Run_Path(mode_directory, run);
    Check_No_Link(mode_directory, place);
    if (Is_Waiting_In_Job(mode_directory, place, sources.Engine_Name))
        Refuse_Old_Output(place);
    New_Run_Directory made(place, sources);
    made.Put_In_Place();
    try {
        if (line != Batch_Line::Present)
            Add_To_Batch(mode_directory, run, sources.Engine_Name, line == Batch_Line::First);
    } catch (const File_Error& error) {
        throw Stage_Error(Batch_Stage, To_Code_Page(error.what()));
    }
    made.Keep();
}

// Two pesticide files may share a directory's name, or its line in a job: neither may take the place of the other.
void Check_Own_Directory(const fs::path& mode_directory, const std::string& run, const std::string& pesticide)
{
    Check_Names(Run_Path({}, run));
    if (const auto other = Indistinct_Directory(mode_directory, run))
        throw File_Error("A job could not tell this simulation from the one in " + other->string() +
                         ": please rename the pesticide file.");
    const std::string before = Read_Run_Request(Run_Path(mode_directory, run)).Pesticide;
    if (!before.empty() && !Same_Text(before, pesticide))
        throw File_Error("The directory of this simulation holds one of another pesticide file, " + To_Utf8(before) +
                         ": please rename the pesticide file, or delete that simulation.");
}

// A damaged batch is not lost when a new one begins. A read-only one stays; writing it is then refused.
void Put_Damaged_Batch_Aside(const fs::path& mode_directory)
{
    std::error_code ignored;
    const fs::path batch = Batch_File(mode_directory);
    if (fs::is_regular_file(batch, ignored) && !Is_Read_Only(batch))
        Move_To_Bin(mode_directory, batch);
}

Mark_Result Mark_In_Turn(const Program_State& program, const Ask_Function& ask, const Mode& mode,
                         const Run_Choice& choice)
{
    const fs::path directory = Mode_Directory(program, mode);
    if (!Write_Run_Control(ask, directory, Format_Run(program, mode, choice)))
        return Mark_Result::Failed;
    const auto pending = Read_Batch(directory);
    const std::string run = Run_Directory(choice.Pesticide, choice.Crop->Text, choice.Location);
    std::error_code ignored;
    const bool is_marked =
        std::ranges::any_of(pending, [&](const auto& marked) { return Is_Same_Run(directory, marked, run); });
    if (is_marked && fs::is_directory(Run_Path(directory, run), ignored)) {
        Tell(ask, Starting, Already_Selected_Text);
        return Mark_Result::Already_Selected;
    }
    if (!is_marked && pending.size() >= static_cast<std::size_t>(Last_Job)) {
        Tell(ask, Starting, Full_Text);
        return Mark_Result::Failed;
    }
    Check_Own_Directory(directory, run, choice.Pesticide);
    if (const auto reason = Refused_By_Guidance(program, mode, choice); !reason.empty()) {
        Tell(ask, Starting, reason);
        return Mark_Result::Failed;
    }
    if (!May_Replace(ask, Run_Path(directory, run)))
        return Mark_Result::Cancelled;
    if (pending.empty())
        Put_Damaged_Batch_Aside(directory);
    const auto line = is_marked         ? Batch_Line::Present // only its directory was lost
                      : pending.empty() ? Batch_Line::First
                                        : Batch_Line::Next;
    Prepare(directory, run, Sources_Of_Run(program, mode, choice), line);
    return Mark_Result::Marked;
}

} // namespace

Mark_Result Mark_For_Batch(const Program_State& program, const Ask_Function& ask, const Mode& mode,
                           const Run_Choice& choice)
{
    if (choice.Pesticide.empty() || choice.Location.empty() || choice.Crop == nullptr) {
        Tell(ask, Starting, "Please select a pesticide file, a crop and a location.");
        return Mark_Result::Failed;
    }
    if (!Fits_A_Line(choice.Pesticide) || Trim(choice.Pesticide) != choice.Pesticide) { // readers of orvel.inp trim it
        Tell(ask, Starting, "A simulation cannot take the name of this pesticide file.");
        return Mark_Result::Failed;
    }
    try {
        const auto turn = Acquire_Batch_Lock(program.App_Path);
        return Mark_In_Turn(program, ask, mode, choice);
    } catch (const Stage_Error& error) {
        Tell_Stage(ask, error);
    } catch (const File_Error& error) {
        Tell(ask, Starting, To_Code_Page(error.what()));
    }
    return Mark_Result::Failed;
}

std::string Marked_Text(const Mark_All_Result& result)
{
    std::string text =
        std::to_string(result.Marked) + (result.Marked == 1 ? " combination marked" : " combinations marked");
    if (result.Passed_Over > 0)
        text += ", " + std::to_string(result.Passed_Over) + " without valid application data";
    if (result.No_Scenario > 0)
        text += ", " + std::to_string(result.No_Scenario) + " without a scenario file";
    if (result.Failed > 0)
        text += ", " + std::to_string(result.Failed) + " not marked";
    return text;
}

Mark_All_Result Mark_All(const Program_State& program, const Ask_Function& ask, const Mode& mode,
                         std::string_view pesticide, const Crop* crop, const Run_Options& options,
                         const std::function<void(int, int)>& progress)
{
    Mark_All_Result result;
    const auto locations = Locations_Of_Crop(program, mode, crop);
    for (std::size_t i = 0; i < locations.size(); ++i) {
        if (progress)
            progress(static_cast<int>(i), static_cast<int>(locations.size()));
        Selection selected = Evaluate_Selection(program, ask, mode, pesticide, crop, locations[i]);
        if (!selected.Usable)
            break; // the pesticide file cannot be read, and the user has been told
        if (!selected.Buttons_Enabled()) {
            ++(selected.Fault == Selection_Fault::No_Scenario ? result.No_Scenario : result.Passed_Over);
            continue;
        }
        selected.Choice.Options = options;
        const bool marked = Mark_For_Batch(program, ask, mode, selected.Choice) == Mark_Result::Marked;
        ++(marked ? result.Marked : result.Failed);
        if (marked)
            result.Choices.push_back(selected.Choice);
        if (!marked && Read_Batch(Mode_Directory(program, mode)).size() >= static_cast<std::size_t>(Last_Job))
            break;
    }
    return result;
}

} // namespace orvel
