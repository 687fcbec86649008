#include "jobs/run_commands.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/json.h"
#include "core/numbers.h"
#include "core/shell_line.h"
#include "core/text.h"
#include "jobs/input_changes.h"
#include "jobs/job_log.h"
#include "jobs/start_batch.h"
#include "output/run_outputs.h"
#include "runs/batch.h"
#include "runs/guidance_of_run.h"
#include "runs/output_selection.h"
#include "runs/selection.h"
#include "runs/start_up.h"

#include <algorithm>
#include <chrono>
#include <thread>

namespace orvel {

namespace {

bool Refuse(const Ask_Function& ask, std::string_view text)
{
    Tell(ask, Starting, text);
    return false;
}

// The entry of a list that equals a text regardless of case; empty if there is none.
std::string Entry_Of(const std::vector<std::string>& entries, std::string_view text)
{
    const auto exact = std::ranges::find(entries, text);
    const auto found = exact != entries.end() ? exact : std::ranges::find_if(entries, [&](const std::string& entry) {
        return Same_Text(entry, text);
    });
    return found == entries.end() ? std::string() : *found;
}

// The entries of the run form's three lists that a request names; no location if it asks for all.
struct List_Entries {
    std::string Pesticide;
    const orvel::Crop* Crop = nullptr;
    std::string Location;
};

std::optional<List_Entries> Choose_Entries(const Session& session, const Mode& mode, const Mark_Request& request)
{
    List_Entries chosen{.Pesticide = Entry_Of(Pesticide_List(session.Program.App_Path), request.Pesticide),
                        .Crop = Crop_Named(request.Crop),
                        .Location = {}};
    std::string fault;
    if (chosen.Pesticide.empty()) {
        fault = "There is no pesticide file '" + request.Pesticide + "' in the installation directory.";
    } else if (chosen.Crop == nullptr) {
        fault = "There is no crop '" + request.Crop + "'.";
    } else if (!request.All) {
        const auto offered = Locations_Of_Crop(session.Program, mode, chosen.Crop);
        chosen.Location = Entry_Of(offered, request.Location);
        if (chosen.Location.empty())
            fault = No_Location_Text(mode, request.Crop, request.Location, offered);
    }
    if (fault.empty())
        return chosen;
    Tell(session.Ask, Starting, fault);
    return std::nullopt;
}

Output_Selection Output_Of(const Mark_Request& request, const Run_Template& last)
{
    if (!request.Output)
        return last.Has_Rows ? last.Output : Start_Output();
    return *request.Output == Output_Option::Minimum ? Minimum_Output() : Recommended_Output();
}

std::optional<Run_Options> Choose_Options(const Session& session, const Mode& mode, const Mark_Request& request)
{
    const Run_Template last = Read_Template(session.Program, mode);
    const auto depths = Tillage_List(mode);
    Run_Options options{.Output = Output_Of(request, last),
                        .Tillage = request.Tillage ? Entry_Of(depths, General_Text(*request.Tillage))
                                                   : depths[static_cast<std::size_t>(mode.Tillage_Index)],
                        .Kept_Number = last.Kept_Number};
    if (request.Scaling)
        options.Scaling = Entry_Of(Scaling_List(), General_Text(*request.Scaling));
    if (!options.Tillage.empty() && !options.Scaling.empty())
        return options;
    Tell(session.Ask, Starting,
         options.Tillage.empty() ? "The tillage depth must be between 1 and 40 cm."
                                 : "The scaling of temperatures must be between -5 and 5 in tenths.");
    return std::nullopt;
}

// Tells what the guidance finds in the runs just marked; they stay marked.
void Tell_Guidance(const Session& session, const Mode& mode, const std::vector<Run_Choice>& marked)
{
    if (const auto text = Guidance_After_Marking(session.Program, mode, marked); !text.empty())
        Tell(session.Ask, Guidance_Title, text);
}

bool Mark_One(const Session& session, const Mode& mode, const List_Entries& chosen, const Run_Options& options)
{
    Selection selected =
        Evaluate_Selection(session.Program, session.Ask, mode, chosen.Pesticide, chosen.Crop, chosen.Location);
    if (!selected.Buttons_Enabled())
        return selected.Warnung.empty() ? false : Refuse(session.Ask, selected.Warnung);
    selected.Choice.Options = options;
    if (Mark_For_Batch(session.Program, session.Ask, mode, selected.Choice) != Mark_Result::Marked)
        return false;
    Tell_Guidance(session, mode, {selected.Choice});
    return true;
}

bool Mark_Every(const Session& session, const Mode& mode, const List_Entries& chosen, const Run_Options& options)
{
    const auto result = Mark_All(session.Program, session.Ask, mode, chosen.Pesticide, chosen.Crop, options);
    if (result.Marked == 0 && result.Failed == 0)
        return Refuse(session.Ask, "No location of this crop has application data in the pesticide file.");
    Tell_Guidance(session, mode, result.Choices);
    return result.Failed == 0;
}

// The years asked for and found: by the record while it is true, else by the engine's files.
std::pair<int, int> Years_Of(const Simulation& simulation)
{
    const Run_State& state = simulation.State;
    const bool changed =
        state.Record && state.Record->Verdict == Verdict::Complete && state.Verdict == Verdict::Incomplete;
    if (state.Record && !changed)
        return {state.Record->Years_Expected, state.Record->Years_Found};
    const Run_Request request = Read_Run_Request(simulation.Directory);
    if (state.Verdict == Verdict::Running)
        return {request.Years, static_cast<int>(Years_Done(simulation.Directory, request.Years))};
    if (state.Verdict == Verdict::Scheduled)
        return {request.Years, 0};
    return {request.Years, Find_Outputs(simulation.Directory, request).Years_Found};
}

void Put_Simulation(Json_Writer& json, const Simulation& simulation, Input_Changes& changes)
{
    const auto [expected, found] = Years_Of(simulation);
    json.Object([&] {
        json.Member("pesticide", simulation.Pesticide);
        json.Member("crop", simulation.Crop);
        json.Member("location", simulation.Location);
        json.Member("directory", Path_Text(simulation.Directory));
        json.Member("date", Date_Text(simulation.Date));
        json.Member("status", Status_Text(simulation.Status));
        json.Member("verdict", Verdict_Text(simulation.State.Verdict));
        json.Member("years_expected", expected);
        json.Member("years_found", found);
        json.Key("exit");
        if (simulation.State.Record && simulation.State.Record->Exit)
            json.Value(*simulation.State.Record->Exit);
        else
            json.Null();
        json.Key("changed_inputs");
        json.Array([&] {
            for (const auto& name : changes.Of(simulation))
                json.Value(name);
        });
    });
}

// Waits for the job to end and returns its exit code.
int Wait_For_Job(const std::filesystem::path& mode_directory, int process, const Progress_Report& report)
{
    using Clock = std::chrono::steady_clock;
    constexpr std::chrono::milliseconds Pause(50);
    auto next = Clock::now();
    while (true) {
        const auto code = Job_Exit_Code(process);
        if (code || Clock::now() >= next) {
            report.Tell(Progress_Text(Progress_Of_Job(mode_directory)));
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
    if (!Mode_Available(session.Program, session.Ask, mode))
        return std::nullopt;
    Find_Engine(session.Program);
    const auto chosen = Choose_Entries(session, mode, request);
    if (!chosen)
        return std::nullopt;
    const auto options = Choose_Options(session, mode, request);
    if (!options)
        return std::nullopt;
    const auto directory = Mode_Directory(session.Program, mode);
    const std::size_t before = Read_Batch(directory).size();
    const bool marked =
        request.All ? Mark_Every(session, mode, *chosen, *options) : Mark_One(session, mode, *chosen, *options);
    if (!marked)
        return std::nullopt;
    const auto pending = Read_Batch(directory);
    std::vector<std::string> runs;
    for (std::size_t i = before; i < pending.size(); ++i)
        runs.push_back(std::string(mode.Directory) + "/" + Replace_All(pending[i], "\\", "/"));
    return runs;
}

bool Start(const Session& session, const Mode& mode, const Job_Order& order, const Progress_Report& report)
{
    const Started_Job job = Start_Batch(session.Program, session.Ask, mode, order);
    if (job.Result != Start_Result::Started)
        return job.Result == Start_Result::Nothing_Pending && order.Selection != Job_Selection::Fresh;
    const auto directory = Mode_Directory(session.Program, mode);
    if (!report.Tell || Wait_For_Job(directory, job.Process, report) == 0)
        return true;
    return Refuse(session.Ask,
                  "Not every simulation has finished. " + Path_Text(directory / Job_Log_Name) + " tells which.");
}

bool Stop(const Session& session, const Mode& mode, bool wait)
{
    constexpr std::chrono::milliseconds Pause(50);
    if (!Stop_Job(session.Program, session.Ask, mode))
        return false;
    while (wait && Is_Job_At_Work(session.Program, mode)) {
        End_Orphans(Mode_Directory(session.Program, mode)); // the job may have been killed meanwhile
        std::this_thread::sleep_for(Pause);
    }
    return true;
}

std::string Simulation_Lines(const std::vector<Simulation>& simulations)
{
    std::string lines;
    for (const auto& simulation : simulations) {
        lines += simulation.Pesticide + "\t" + simulation.Crop + "\t" + simulation.Location + "\t" +
                 Date_Text(simulation.Date) + "\t" + std::string(Status_Text(simulation.Status));
        const auto verdict = simulation.State.Verdict;
        if (verdict != Verdict::Complete && verdict != Verdict::Running && verdict != Verdict::Scheduled)
            lines += "\t" + Result_Text(simulation);
        lines += "\n";
    }
    return lines;
}

std::string Simulation_Json(const std::vector<Simulation>& simulations, Input_Changes& changes)
{
    Json_Writer json;
    json.Array([&] {
        for (const auto& simulation : simulations)
            Put_Simulation(json, simulation, changes);
    });
    return json.Written();
}

std::vector<std::string> Run_Command_Lines(const Program_State& program, const Mode& mode, const Run_Choice& choice)
{
    std::vector<std::string> one = {"mark",
                                    "--mode",
                                    std::string(mode.Name),
                                    "--pesticide",
                                    To_Utf8(choice.Pesticide),
                                    "--crop",
                                    choice.Crop ? To_Utf8(choice.Crop->Text) : std::string()};
    auto all = one;
    one.insert(one.end(), {"--location", To_Utf8(choice.Location)});
    all.emplace_back("--all");
    const auto add = [&](const std::string& option, std::string_view value) {
        for (auto* line : {&one, &all})
            line->insert(line->end(), {option, std::string(value)});
    };
    const Output_Option output = Option_Of_Output(choice.Options.Output);
    if (output != Output_Option::User_Specific)
        add("--output", output == Output_Option::Minimum ? "minimum" : "recommended");
    if (choice.Tillage_Visible && !Trim(choice.Options.Tillage).empty())
        add("--tillage", Trim(choice.Options.Tillage));
    if (!choice.Options.Scaling.empty())
        add("--scaling", choice.Options.Scaling);
    const auto& place = program.App_Path;
    return {Orvelctl_Line(place, one), Orvelctl_Line(place, all),
            Orvelctl_Line(place, {"start", "--mode", std::string(mode.Name), "--wait"})};
}

} // namespace orvel
