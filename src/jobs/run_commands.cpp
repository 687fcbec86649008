#include "jobs/run_commands.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/json.h"
#include "core/numbers.h"
#include "core/text.h"
#include "jobs/job_log.h"
#include "runs/output_selection.h"
#include "runs/start_up.h"

#include <algorithm>
#include <chrono>
#include <thread>

namespace orvel {

namespace {

constexpr std::string_view Starting = "Starting ORVEL Simulations";

bool Refuse(const Session& session, std::string text)
{
    session.Ask({std::string(Starting), std::move(text)});
    return false;
}

// The entry of a list that equals a text, letter case apart; empty if there is none.
std::string Entry_Of(const std::vector<std::string>& entries, std::string_view text)
{
    const auto exact = std::ranges::find(entries, text);
    const auto found = exact != entries.end() ? exact : std::ranges::find_if(entries, [&](const std::string& entry) {
        return Same_Text(entry, text);
    });
    return found == entries.end() ? std::string() : *found;
}

bool Choose_Lists(const Session& session, const Mode& mode, const Mark_Request& request, Run_Choice& choice)
{
    choice.Pesticide = Entry_Of(Pesticide_List(session), request.Pesticide);
    if (choice.Pesticide.empty())
        return Refuse(session, "There is no pesticide file '" + request.Pesticide + "' in the installation directory.");
    const auto crop = Crop_Index(request.Crop);
    if (!crop)
        return Refuse(session, "There is no crop '" + request.Crop + "'.");
    choice.Crop = *crop;
    if (request.All)
        return true;
    choice.Location = Entry_Of(Locations_Of_Crop(session, mode, *crop), request.Location);
    return !choice.Location.empty() ||
           Refuse(session, "The crop '" + request.Crop + "' has no location '" + request.Location + "'.");
}

bool Choose_Values(Session& session, const Mode& mode, const Mark_Request& request, Run_Choice& choice)
{
    const Run_Template last = Read_Template(session, mode);
    choice.Kept_Number = last.Kept_Number;
    session.Output = last.Has_Rows ? last.Output : Start_Output();
    if (request.Output)
        session.Output = *request.Output == Output_Option::Minimum ? Minimum_Output() : Recommended_Output();
    const auto depths = Tillage_List(mode);
    choice.Tillage = request.Tillage ? Entry_Of(depths, General_Text(*request.Tillage))
                                     : depths[static_cast<std::size_t>(mode.Tillage_Index)];
    if (choice.Tillage.empty())
        return Refuse(session, "The tillage depth must be between 1 and 40 cm.");
    if (request.Scaling)
        choice.Scaling = Entry_Of(Scaling_List(), General_Text(*request.Scaling));
    return !choice.Scaling.empty() ||
           Refuse(session, "The scaling of temperatures must be between -5 and 5 in tenths.");
}

bool Mark_One(Session& session, const Mode& mode, Run_Choice& choice)
{
    const Selection selected = Evaluate_Selection(session, mode, choice.Pesticide, choice.Crop, choice.Location);
    if (!selected.Buttons_Enabled())
        return selected.Warnung.empty() ? false : Refuse(session, selected.Warnung);
    choice.Tillage_Visible = selected.Tillage_Visible;
    return Mark_For_Batch(session, mode, choice) == Mark_Result::Marked;
}

bool Mark_Every(Session& session, const Mode& mode, const Run_Choice& choice)
{
    const auto result = Mark_All(session, mode, choice);
    if (result.Marked == 0 && result.Failed == 0)
        return Refuse(session, "No location of this crop has application data in the pesticide file.");
    return result.Failed == 0;
}

// Waits for the end of the job; its exit code.
int Wait_For_Job(const Session& session, const Mode& mode, int process, const Progress_Report& report)
{
    using Clock = std::chrono::steady_clock;
    constexpr std::chrono::milliseconds Pause(50);
    auto next = Clock::now();
    while (true) {
        const auto code = Job_Exit_Code(process);
        if (code || Clock::now() >= next) {
            report.Tell(Progress_Text(Progress_Of_Job(session, mode)));
            next = Clock::now() + report.Interval;
        }
        if (code)
            return *code;
        std::this_thread::sleep_for(Pause);
    }
}

} // namespace

std::optional<std::vector<std::string>> Mark(Session& session, const Mark_Request& request)
{
    const Mode& mode = Mode_Of(request.Kind);
    Run_Choice choice;
    if (!Mode_Available(session, mode))
        return std::nullopt;
    Find_Engine(session);
    if (!Choose_Lists(session, mode, request, choice) || !Choose_Values(session, mode, request, choice))
        return std::nullopt;
    Load_Batch(session, mode);
    const std::size_t before = session.Run.Job_Dir.size();
    const bool marked = request.All ? Mark_Every(session, mode, choice) : Mark_One(session, mode, choice);
    if (!marked)
        return std::nullopt;
    std::vector<std::string> runs;
    for (std::size_t i = before; i < session.Run.Job_Dir.size(); ++i)
        runs.push_back(std::string(mode.Directory) + "/" + Replace_All(session.Run.Job_Dir[i], "\\", "/"));
    return runs;
}

bool Start(Session& session, const Mode& mode, int jobs, const Progress_Report& report)
{
    const Started_Job job = Start_Batch(session, mode, jobs);
    if (job.Result != Start_Result::Started)
        return false;
    if (!report.Tell || Wait_For_Job(session, mode, job.Process, report) == 0)
        return true;
    const auto directory = Mode_Directory(session, mode);
    return Refuse(session,
                  "Not every simulation has finished. " + Path_Text(directory / Job_Log_Name) + " tells which.");
}

std::string Simulation_Lines(const std::vector<Simulation>& simulations)
{
    std::string lines;
    for (const auto& simulation : simulations) {
        lines += simulation.Pesticide + "\t" + simulation.Crop + "\t" + simulation.Location + "\t" +
                 Date_Text(simulation.Date) + "\t" + std::string(Status_Text(simulation.Status));
        if (simulation.Result == Run_Result::Error || simulation.Result == Run_Result::Killed)
            lines += "\t" + std::string(Result_Text(simulation.Result));
        lines += "\n";
    }
    return lines;
}

std::string Simulation_Json(const std::vector<Simulation>& simulations)
{
    Json_Writer json;
    json.Array([&] {
        for (const auto& simulation : simulations) {
            json.Object([&] {
                json.Member("pesticide", simulation.Pesticide);
                json.Member("crop", simulation.Crop);
                json.Member("location", simulation.Location);
                json.Member("date", Date_Text(simulation.Date));
                json.Member("status", Status_Text(simulation.Status));
                json.Member("result", Result_Text(simulation.Result));
                json.Member("directory", Path_Text(simulation.Directory));
            });
        }
    });
    return json.Written();
}

} // namespace orvel
