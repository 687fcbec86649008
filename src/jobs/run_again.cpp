#include "jobs/run_again.h"

#include "core/code_page.h"
#include "core/error.h"
#include "core/files.h"
#include "core/numbers.h"
#include "core/run_name.h"
#include "core/text.h"
#include "runs/batch.h"
#include "runs/job_file.h"
#include "runs/mark.h"
#include "runs/output_selection.h"
#include "runs/selection.h"

#include <algorithm>
#include <iterator>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view Soil_Mark = "SOIL";

// Answers a question that can be confirmed or cancelled by confirming it: the user has agreed once. All other messages
// still reach the user.
Ask_Function Agreeing(const Ask_Function& ask)
{
    return [&ask](const Message& message) {
        return message.Buttons == std::vector{Button::Ok, Button::Cancel} ? Button::Ok : ask(message);
    };
}

std::string Read_Control(const fs::path& run)
try {
    return Read_Whole(Found_Or_New(run, "orvel.inp"));
} catch (const File_Error& error) {
    Pass_On_If_Unreadable(error);
    return {};
}

// `entry` if the list has it, else `other`.
std::string Entry_Or(const std::vector<std::string>& entries, const std::string& entry, const std::string& other)
{
    return std::ranges::find(entries, entry) != entries.end() ? entry : other;
}

// The scaling follows "SOIL" in the first line.
std::string Scaling_Of(std::string_view control)
{
    const auto header = control.substr(0, control.find('\r'));
    const auto mark = header.find(Soil_Mark);
    const std::string text(mark == std::string_view::npos ? "" : Trim(header.substr(mark + Soil_Mark.size())));
    return Entry_Or(Scaling_List(), text, "0");
}

std::string Tillage_Of(const Mode& mode, const Run_Template& control)
{
    const auto depths = Tillage_List(mode);
    return Entry_Or(depths, General_Text(control.Till_Depth), depths[static_cast<std::size_t>(mode.Tillage_Index)]);
}

// The options that a run was prepared with.
Run_Options Options_Of(const Mode& mode, const Run_Template& control, std::string_view bytes)
{
    Run_Options options;
    options.Output = control.Has_Rows ? control.Output : Recommended_Output();
    options.Tillage = Tillage_Of(mode, control);
    options.Irregular_Years = control.Years > 0 ? control.Years : options.Irregular_Years;
    options.Kept_Number = control.Kept_Number;
    options.Scaling = Scaling_Of(bytes);
    return options;
}

bool Mark_Again(const Program_State& program, const Ask_Function& ask, const Mode& mode, const Simulation& simulation)
{
    const std::string bytes = Read_Control(simulation.Directory);
    const Run_Template control = Parse_Template(mode, bytes);
    const std::string pesticide = control.Pesticide.empty() ? simulation.Pesticide + ".psm" : control.Pesticide;
    Selection selected =
        Evaluate_Selection(program, ask, mode, pesticide, Crop_Named(simulation.Crop), simulation.Location);
    if (!selected.Buttons_Enabled() && !selected.May_Run_Anyway()) {
        const std::string why =
            selected.Warnung.empty() ? "Its pesticide file or its scenario is missing." : selected.Warnung;
        Tell(ask, Starting,
             "The simulation in\r\n" + Path_Text(simulation.Directory) + "\r\ncannot be marked again. " + why);
        return false;
    }
    selected.Choice.Options = Options_Of(mode, control, bytes);
    return Mark_For_Batch(program, ask, mode, selected.Choice) == Mark_Result::Marked;
}

std::vector<Simulation> Failed_And_Not_Marked(const fs::path& mode_directory,
                                              const std::vector<Simulation>& simulations)
{
    const auto pending = Read_Batch(mode_directory);
    std::vector<Simulation> failed;
    for (const Simulation& simulation : simulations) {
        const auto marked = [&](const std::string& run) {
            return Run_Path(mode_directory, run) == simulation.Directory;
        };
        if (Has_Failed(simulation) && std::ranges::none_of(pending, marked))
            failed.push_back(simulation);
    }
    return failed;
}

} // namespace

bool Has_Failed(const Simulation& simulation)
{
    switch (simulation.State.Verdict) {
    case Verdict::Failed:
    case Verdict::Incomplete:
        return !simulation.State.Unreadable;
    case Verdict::Unrecorded:
        return simulation.Echo_Failed;
    default:
        return false;
    }
}

int Mark_Failed_Again(const Program_State& program, const Ask_Function& ask, const Mode& mode,
                      const std::vector<Simulation>& simulations)
{
    const auto failed = Failed_And_Not_Marked(Mode_Directory(program, mode), simulations);
    if (failed.empty()) {
        ask({std::string(Starting), "There is no failed simulation that is not marked for the batch already.",
             Icon::Information});
        return 0;
    }
    const std::string question =
        "Do you want to mark " +
        (failed.size() == 1 ? "the failed simulation" : std::to_string(failed.size()) + " failed simulations") +
        " for the batch again? What they wrote so far will be removed.";
    if (ask({std::string(Starting), question, Icon::Question, {Button::Yes, Button::No}, Button::No}) != Button::Yes)
        return 0;
    return static_cast<int>(std::ranges::count_if(
        failed, [&](const Simulation& simulation) { return Mark_Again(program, Agreeing(ask), mode, simulation); }));
}

bool Mark_Run_Again(const Program_State& program, const Ask_Function& ask, const Mode& mode,
                    const Simulation& simulation)
{
    return Mark_Again(program, Agreeing(ask), mode, simulation);
}

namespace {

bool Is_Unfinished(const Simulation& simulation)
{
    const Run_State& state = simulation.State;
    return state.Verdict == Verdict::Stopped || state.Verdict == Verdict::Scheduled || state.Cut_Off;
}

// The options of the first simulation, or the recommended ones.
Run_Options Options_Like(const Mode& mode, const std::vector<Simulation>& simulations)
{
    const std::string bytes = simulations.empty() ? std::string() : Read_Control(simulations.front().Directory);
    return Options_Of(mode, Parse_Template(mode, bytes), bytes);
}

// The simulations of a pesticide and a crop.
std::vector<Simulation> Simulations_Of(const fs::path& mode_directory, std::string_view pesticide,
                                       std::string_view crop)
{
    auto simulations = Simulation_Places(mode_directory);
    std::erase_if(simulations, [&](const Simulation& simulation) {
        return simulation.Pesticide != pesticide || simulation.Crop != crop;
    });
    for (auto& simulation : simulations)
        simulation = Look_At_Simulation(std::move(simulation));
    return simulations;
}

// The runs that are marked, and those that a job at work has in its file.
std::vector<fs::path> Expected_Runs(const Program_State& program, const Mode& mode)
{
    const fs::path directory = Mode_Directory(program, mode);
    std::vector<fs::path> runs;
    if (Is_Job_At_Work(program, mode))
        runs = Read_Job_Runs(directory);
    for (const auto& name : Read_Batch(directory))
        runs.push_back(Run_Path(directory, name));
    return runs;
}

} // namespace

Missing_Runs Find_Missing(const Program_State& program, const Ask_Function& ask, const Mode& mode,
                          std::string_view pesticide, std::string_view crop)
{
    const fs::path directory = Mode_Directory(program, mode);
    const auto simulations = Simulations_Of(directory, pesticide, crop);
    const auto expected = Expected_Runs(program, mode);
    Missing_Runs missing;
    std::ranges::copy_if(simulations, std::back_inserter(missing.Unfinished), [&](const Simulation& simulation) {
        return Is_Unfinished(simulation) && std::ranges::find(expected, simulation.Directory) == expected.end();
    });
    const std::string file = std::string(pesticide) + ".psm";
    const Crop* const grown = Crop_Named(crop);
    for (const auto& location : Locations_Of_Crop(program, mode, grown)) {
        std::error_code ignored;
        if (fs::exists(Run_Path(directory, Run_Directory(file, crop, location)), ignored))
            continue;
        Selection selected = Evaluate_Selection(program, ask, mode, file, grown, location);
        if (!selected.Buttons_Enabled())
            continue;
        selected.Choice.Options = Options_Like(mode, simulations);
        missing.Unprepared.push_back(std::move(selected.Choice));
    }
    return missing;
}

bool Can_Run_Missing(const Program_State& program, const Mode& mode, std::string_view pesticide, std::string_view crop)
try {
    const auto say_nothing = [](const Message& message) { return message.Default; };
    return Batch_Pending(Mode_Directory(program, mode)) ||
           Find_Missing(program, say_nothing, mode, pesticide, crop).Any();
} catch (const File_Error&) {
    return true;
}

bool Mark_Missing(const Program_State& program, const Ask_Function& ask, const Mode& mode, std::string_view pesticide,
                  std::string_view crop)
{
    const auto missing = Find_Missing(program, ask, mode, pesticide, crop);
    const auto unfinished = std::ranges::count_if(missing.Unfinished, [&](const Simulation& simulation) {
        return Mark_Again(program, Agreeing(ask), mode, simulation);
    });
    const auto unprepared = std::ranges::count_if(missing.Unprepared, [&](const Run_Choice& choice) {
        return Mark_For_Batch(program, Agreeing(ask), mode, choice) == Mark_Result::Marked;
    });
    if (unfinished + unprepared > 0 || Batch_Pending(Mode_Directory(program, mode)))
        return true;
    ask({"Run what is missing", "No location of this crop is missing.", Icon::Information});
    return false;
}

} // namespace orvel
