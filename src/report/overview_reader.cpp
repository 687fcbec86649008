#include "report/overview_reader.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/text.h"
#include "output/run_files.h"
#include "output/run_outputs.h"
#include "report/run_results.h"
#include "tables/soil_concentrations.h"
#include "tables/table_text.h"

#include <algorithm>

namespace orvel {

namespace fs = std::filesystem;

namespace {

int Percent_Done(const fs::path& run)
{
    const auto years = static_cast<double>(Read_Run_Request(run).Years);
    return years > 0 ? static_cast<int>(100 * Years_Done(run, years) / years) : 0;
}

Cell_Kind Kind_Of(Verdict verdict)
{
    switch (verdict) {
    case Verdict::Running:
        return Cell_Kind::Running;
    case Verdict::Scheduled:
        return Cell_Kind::Scheduled;
    case Verdict::Failed:
        return Cell_Kind::Failed;
    case Verdict::Stopped:
        return Cell_Kind::Stopped;
    case Verdict::Incomplete:
        return Cell_Kind::Incomplete;
    default:
        return Cell_Kind::Reading;
    }
}

bool Has_Ended_Well(const Overview_Run& run)
{
    return run.Verdict == Verdict::Complete || run.Verdict == Verdict::Unrecorded;
}

void Tell_Unreadable(Overview_Run& run, const std::string& reason)
{
    run.Kind = Cell_Kind::Unreadable;
    run.Figures.clear();
    run.Pending = false;
    run.Reason = To_Code_Page(reason);
}

// What built tables lack.
void Take_Status(Overview_Run& run, const Table_Status& tables)
{
    run.Kind = tables.Unreadable         ? Cell_Kind::Unreadable
               : !tables.Gap.empty()     ? Cell_Kind::Incomplete
               : !tables.Failure.empty() ? Cell_Kind::No_Figure
               : tables.Run_Failed       ? Cell_Kind::Failed
                                         : Cell_Kind::Reading;
    run.Reason = tables.Failure.empty() ? tables.Gap : tables.Failure;
}

} // namespace

Overview_Reader::Overview_Reader(fs::path app_path, const Mode& mode, Soil_Choice soil)
    : The_Mode(mode),
      Soil(soil),
      Files(app_path),
      Sources(std::move(app_path))
{}

std::string Overview_Reader::Quantity() const
{
    if (The_Mode.Kind == Mode_Kind::Focus)
        return "80th percentile of the concentration in the percolate at 1 m soil depth";
    const int days = TWA_Window[Soil.Window];
    return (days == 0 ? "Maximum"
                      : "Maximum of the averages over " + std::to_string(days) + (days == 1 ? " day" : " days")) +
           std::string(" of the concentration in the top ") + std::to_string(Soil.Depth) + " cm of the soil";
}

Overview_Run Overview_Reader::Look(const Simulation& place)
{
    Overview_Run run{
        .Pesticide = place.Pesticide, .Crop = place.Crop, .Location = place.Location, .Directory = place.Directory};
    try {
        Take_State(run, Look_At_Run(place.Directory));
    } catch (const std::exception& error) {
        Tell_Unreadable(run, error.what());
    }
    return run;
}

void Overview_Reader::Take_State(Overview_Run& run, const Simulation& simulation)
{
    const Run_State& state = simulation.State;
    run.Verdict = state.Verdict;
    run.Kind = Kind_Of(state.Verdict);
    run.Reason = Explanation(simulation);
    if (state.Record) {
        run.Years = state.Record->Years_Found;
        run.Years_Expected = state.Record->Years_Expected;
    }
    if (state.Unreadable)
        run.Kind = Cell_Kind::Unreadable;
    else if (simulation.Echo_Failed)
        run.Kind = Cell_Kind::Failed;
    else if (state.Verdict == Verdict::Running)
        run.Percent = Percent_Done(run.Directory);
    else if (state.Record && state.Record->Verdict == Verdict::Complete && state.Verdict != Verdict::Complete)
        run.Kind = Cell_Kind::Changed; // its outputs are not those of the record
    else if (Has_Ended_Well(run))
        Take_Ended(run, simulation);
}

// Without a record nothing can be compared: the figures say so.
void Overview_Reader::Take_Ended(Overview_Run& run, const Simulation& simulation)
{
    const auto& record = simulation.State.Record;
    const Proof proof = record ? Files.By_Times(run.Directory, *record) : Proof::Unknown;
    if (record)
        run.Changed_Inputs = Sources.Of_Installation(run.Directory, *record);
    run.Checked = proof == Proof::Same;
    if (proof == Proof::Changed) {
        run.Kind = Cell_Kind::Changed;
        run.Pending = true; // which file it is
        return;
    }
    Take_Figures(run, false, {});
    run.Pending = run.Figures.empty() || (record && !run.Checked);
}

void Overview_Reader::Take_Figures(Overview_Run& run, bool build, const Progress& progress)
{
    if (The_Mode.Kind == Mode_Kind::Focus)
        Take_Leachate(run, build, progress);
    else
        Take_Soil(run, build, progress);
    if (!run.Figures.empty())
        run.Kind = Cell_Kind::Figure;
}

void Overview_Reader::Take_Leachate(Overview_Run& run, bool build, const Progress& progress)
{
    const auto tables = build ? Build_Or_Load(run.Directory, progress) : Load_Leachate(run.Directory);
    if (!tables)
        return;
    Take_Status(run, *tables);
    if (run.Kind != Cell_Kind::Reading)
        return;
    const Run_Results results = Results_Of(*tables);
    if (!results.Problem.empty()) {
        run.Kind = Cell_Kind::No_Figure;
        run.Reason = results.Problem;
    }
    run.Years = results.Years;
    run.Dry_Periods = results.Dry_Periods;
    for (const auto& result : results.Substances)
        run.Figures.push_back({result.Substance, result.P80.Conc, Conc_Text(result.P80.Conc), result.Above_Limit});
}

void Overview_Reader::Take_Soil(Overview_Run& run, bool build, const Progress& progress)
{
    const auto soil = build ? Build_Soil_Concentrations(run.Directory, Soil.Depth, progress)
                            : Load_Soil_Concentrations(run.Directory, Soil.Depth);
    if (!soil)
        return;
    Take_Status(run, *soil);
    if (run.Kind != Cell_Kind::Reading)
        return;
    run.Unit = Soil_Unit(soil->Pore_Water);
    for (std::size_t s = 0; s < soil->Maximum.size(); ++s) {
        const std::string text = Figure_Text(soil->Maximum[s][Soil.Window].Value);
        const auto name = s < soil->Substance_Name.size() ? soil->Substance_Name[s] : std::string();
        run.Figures.push_back({name, Val(text), text, false});
    }
    if (run.Figures.empty()) {
        run.Kind = Cell_Kind::No_Figure;
        run.Reason = soil->Not_Kept;
    }
}

void Overview_Reader::Compare(Overview_Run& run, const Run_Record& record)
{
    const std::string changed = Files.Changed(run.Directory, record);
    run.Checked = changed.empty();
    if (run.Checked)
        return;
    if (Files.Is_Unreadable())
        throw File_Error(To_Utf8(changed));
    run.Kind = Cell_Kind::Changed;
    run.Reason = changed;
    run.Figures.clear();
}

void Overview_Reader::Look_Closer(Overview_Run& run, const Progress& progress)
try {
    if (!run.Pending)
        return;
    run.Pending = false;
    const auto record = run.Verdict == Verdict::Complete ? Read_Run_Record(run.Directory) : std::nullopt;
    if (run.Figures.empty() && run.Kind != Cell_Kind::Changed)
        Take_Figures(run, true, progress);
    if (record && !run.Checked)
        Compare(run, *record);
    if (Status_Of_Run(run.Directory) == Run_Status::Running) { // begun anew while it was read
        Begin_Pass();
        run =
            Look({.Pesticide = run.Pesticide, .Crop = run.Crop, .Location = run.Location, .Directory = run.Directory});
    }
} catch (const Reading_Stopped&) {
    throw;
} catch (const std::exception& error) {
    Tell_Unreadable(run, error.what());
}

namespace {

std::vector<Simulation> Chosen_Places(const fs::path& directory, const Overview_Request& request)
{
    std::error_code error;
    if (!fs::is_directory(directory, error) && (!error || Is_Missing(error)))
        throw File_Error("The directory " + directory.string() + " does not exist.");
    auto places = Simulation_Places(directory);
    const auto choose = [&](std::string Simulation::*text, const std::string& wanted) {
        if (wanted.empty())
            return;
        std::erase_if(places, [&](const Simulation& place) { return !Same_Text(place.*text, wanted); });
        if (places.empty())
            throw File_Error("There are no simulations of " + To_Utf8(wanted) + " in " + directory.string() + ".");
    };
    choose(&Simulation::Pesticide, request.Pesticide);
    choose(&Simulation::Crop, request.Crop);
    return places;
}

Compared_Assessment Chosen_Of(Compared_Assessment compared, const Overview_Request& request)
{
    std::erase_if(compared.Runs, [&](const Overview_Run& run) {
        return (!request.Pesticide.empty() && !Same_Text(run.Pesticide, request.Pesticide)) ||
               (!request.Crop.empty() && !Same_Text(run.Crop, request.Crop));
    });
    return compared;
}

} // namespace

std::vector<Overview_Run> Gather_Runs(Overview_Reader& reader, const std::vector<Simulation>& places,
                                      const Progress& progress)
{
    std::vector<Overview_Run> runs;
    for (const auto& place : places) {
        bool stopped = false;
        const Progress tell = [&](const std::string& message, double share) {
            stopped = progress && !progress(message, (static_cast<double>(runs.size()) + share) /
                                                         static_cast<double>(places.size()));
            return !stopped;
        };
        auto run = reader.Look(place);
        reader.Look_Closer(run, tell);
        if (stopped)
            throw Reading_Stopped();
        runs.push_back(std::move(run));
    }
    return runs;
}

Overview Gather_Overview(const Program_State& program, const Mode& mode, const Overview_Request& request,
                         const Progress& progress)
{
    const auto places = Chosen_Places(Mode_Directory(program, mode), request);
    Overview_Reader reader(program.App_Path, mode, request.Soil);
    auto runs = Gather_Runs(reader, places, progress);
    if (request.Compared)
        Compare_With(runs, Chosen_Of(*request.Compared, request));
    auto overview = Arrange_Overview(mode.Kind, reader.Quantity(), std::move(runs), request.Codes);
    overview.Compared_With = request.Compared ? request.Compared->Name : std::string();
    return overview;
}

} // namespace orvel
