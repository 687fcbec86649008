#include "plans/start_plan.h"

#include "core/files.h"
#include "core/system/program_path.h"
#include "core/system/spawn.h"

#include <algorithm>

namespace orvel {

namespace fs = std::filesystem;

namespace {

std::string Faults_Text(const Plan_Faults& faults)
{
    constexpr std::size_t Most_Lines = 15;
    std::string text = faults.what();
    const auto shown = std::min(faults.First.size(), Most_Lines);
    for (std::size_t i = 0; i < shown; ++i)
        text += "\n" + std::string(faults.First[i].what());
    if (faults.Count > shown)
        text += "\n" + std::to_string(faults.Count - shown) + " more rows are wrong.";
    return text;
}

} // namespace

std::vector<std::string> Words_To_Run(const Plan_Order& order)
{
    std::vector<std::string> words = {"plan", "run", order.Plan.string(), "--to", order.Directory.string()};
    const auto add = [&](const char* option, const std::string& value) { words.insert(words.end(), {option, value}); };
    add("--keep", std::string(Keep_Name(order.Keep)));
    if (order.Part.Of > 1)
        add("--part", std::to_string(order.Part.Number) + "/" + std::to_string(order.Part.Of));
    if (order.Jobs > 0)
        add("--jobs", std::to_string(order.Jobs));
    if (order.Limit)
        add("--limit", std::to_string(*order.Limit));
    return words;
}

std::vector<std::string> Words_To_Submit(const Plan_Order& order, const Slurm_Order& slurm)
{
    Plan_Order whole = order;
    whole.Part = {}; // its parts are the tasks
    auto words = Words_To_Run(whole);
    words.insert(words.end(), {"--slurm", "--tasks", std::to_string(slurm.Tasks)});
    if (slurm.Minutes)
        words.insert(words.end(), {"--time", std::to_string(*slurm.Minutes)});
    return words;
}

std::vector<std::string> Words_To_Go_On(const Program_State& program, const Plan_Order& order)
{
    Plan_Order copied = order;
    copied.Plan = order.Directory / Plan_Copy_Name;
    std::vector<std::string> words = {"-C", program.App_Path.string()};
    for (auto& word : Words_To_Run(copied))
        words.push_back(std::move(word));
    words.emplace_back("--wait");
    return words;
}

void Start_Plan(const Program_State& program, const Plan_Order& order, const Held_Plan& held, const fs::path& orvelctl)
{
    auto words = Words_To_Go_On(program, order);
    words.insert(words.end(), {"--held", std::to_string(Kept_As(held.Held.Descriptor()))});
    Start_Program({.Program = orvelctl,
                   .Arguments = words,
                   .Directory = order.Directory,
                   .Output = Plan_Journal_Name,
                   .Kept_Descriptor = held.Held.Descriptor(),
                   .Own_Session = true});
}

void Begin_Plan(const Program_State& program, const Plan_Order& order, const Progress& progress)
try {
    const Held_Plan held = Hold_Plan(program, order.Plan, order.Directory, order.Part, {}, progress);
    Start_Plan(program, order, held, Program_Beside("orvelctl"));
} catch (const Plan_Faults& faults) {
    throw File_Error(Faults_Text(faults));
}

Slurm_Job Submit_Plan(const Program_State& program, const Plan_Order& order, const Slurm_Order& slurm,
                      const fs::path& orvelctl, const Progress& progress)
{
    Prepare_Plan(program, order.Plan, order.Directory, progress);
    Plan_Order task = order;
    task.Part = {};
    task.Jobs = std::max(order.Jobs, 1); // a task may be given one of many processors that it sees
    auto command = Words_To_Go_On(program, task);
    command.insert(command.begin(), orvelctl.string());
    Slurm_Order asked = slurm;
    asked.Jobs = task.Jobs;
    return Submit(order.Directory, asked, command);
}

Slurm_Job Begin_On_Cluster(const Program_State& program, const Plan_Order& order, const Slurm_Order& slurm,
                           const Progress& progress)
try {
    return Submit_Plan(program, order, slurm, Program_Beside("orvelctl"), progress);
} catch (const Plan_Faults& faults) {
    throw File_Error(Faults_Text(faults));
}

void Stop_Plan(const fs::path& directory)
{
    if (At_Work_Since(directory))
        Write_Whole(directory / Plan_Stop_Name, "");
}

} // namespace orvel
