#include "report/report.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/locations.h"
#include "core/sha256.h"
#include "core/text.h"
#include "core/version.h"
#include "files/pesticide_file.h"
#include "jobs/job_status.h"
#include "jobs/run_tree.h"
#include "output/echo_file.h"
#include "output/run_files.h"
#include "output/run_outputs.h"
#include "output/run_state.h"
#include "report/overview_chart.h"
#include "report/overview_reader.h"
#include "runs/acceptance.h"
#include "runs/guidance_of_run.h"
#include "substance/pathway.h"
#include "tables/table_cache.h"

#include <algorithm>
#include <map>
#include <memory>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view Not_Regulatory = "not for regulatory use";

// A file of a directory, found in any case, with its digest; a missing one has none, and the report says so. Throws
// File_Error for one that cannot be read.
Checked_File Checked(const fs::path& directory, const fs::path& name)
{
    const auto file = Find_File(directory, name);
    if (!file)
        return {To_Code_Page(name.string()), {}};
    return {To_Code_Page(file->filename().string()), Sha256_Of_File(*file)};
}

Checked_File First_Checked(const fs::path& directory, std::string_view mask)
{
    const auto names = List_Files(directory, mask);
    return names.empty() ? Checked_File() : Checked(directory, names.front());
}

// The pesticide as it was simulated; nothing if its file is missing or is none.
std::unique_ptr<Pesticide_Document> Read_Pesticide(const fs::path& directory, const Checked_File& pesticide)
try {
    auto document = std::make_unique<Pesticide_Document>();
    Parse_PSM(Read_Whole(Found_Or_New(directory, Path_Of(pesticide.Name))), *document);
    return document;
} catch (const File_Error& error) {
    Pass_On_If_Unreadable(error);
    return nullptr;
}

// Why a simulation can have no result, before its files are looked into.
std::string Problem_Of(const fs::path& directory)
{
    switch (Status_Of_Run(directory)) {
    case Run_Status::Scheduled:
        return "The simulation has not been run yet.";
    case Run_Status::Running:
        return "The simulation is still at work.";
    case Run_Status::Data_Available:
        break;
    }
    const Run_State state = State_Of_Run(directory);
    if (state.Unreadable) // whether the run has a result is not known
        throw File_Error(state.Reason);
    const Echo echo = Read_Echo(directory);
    if (echo.Engine_Stopped)
        return "The simulation failed: the engine was ended before it had finished.";
    if (echo.Failed())
        return "The simulation failed: the engine reports an error.";
    if (state.Record && state.Verdict == Verdict::Incomplete &&
        state.Record->Years_Found < state.Record->Years_Expected)
        return "The simulation is incomplete: " + Years_Text(state.Record->Years_Found, state.Record->Years_Expected) +
               ".";
    if (state.Verdict == Verdict::Unrecorded)
        return Gap_Of(directory);
    return state.Is_Finished() ? "" : "The simulation is not complete: " + state.Reason;
}

// The pesticide as it was simulated first, with the notes of the installation.
struct Simulated_Pesticide {
    std::unique_ptr<Pesticide_Document> Document;
    Document_Notes Notes;
};

// `pesticide` becomes that of the run, if there is none yet.
Report_Run Run_Of(const Summary_Location& location, const std::string& stem, Simulated_Pesticide& pesticide)
{
    Report_Run run{.Location = location.Text,
                   .Problem = Problem_Of(location.Directory),
                   .Date = Date_Of_Simulation(location.Directory)};
    run.Pesticide = Checked(location.Directory, Path_Of(stem + ".psm"));
    run.Scenario = First_Checked(location.Directory, "*.sze");
    run.Run_Control = Checked(location.Directory, "orvel.inp");
    if (auto document = Read_Pesticide(location.Directory, run.Pesticide)) {
        run.Uses = Uses_Of(*document, location.Text);
        if (!pesticide.Document)
            pesticide.Document = std::move(document);
    }
    run.Record = Checked(location.Directory, Path_Of(Run_Record_Name));
    return run;
}

// Fills the part of one crop.
class Crop_Builder {
public:
    Crop_Builder(const Summary_Request& request, Report_Crop& crop, Simulated_Pesticide& pesticide)
        : Request(request),
          Crop(crop),
          Pesticide(pesticide)
    {
        Crop.Name = request.Crop;
    }

    void Build(const Progress& progress)
    {
        for (const auto& location : Request.Locations) {
            Crop.Runs.push_back(Run_Of(location, Request.Pesticide, Pesticide));
            if (Crop.Runs.back().Problem.empty())
                Add_Results(location, progress);
        }
        for (const auto& missing : Request.Missing)
            Crop.Runs.push_back({.Location = missing, .Problem = "The location was not simulated."});
        for (std::size_t s = 0; s < Crop.Tables.size(); ++s)
            Crop.Tables[s].Diagram = Location_Chart(Crop.Tables[s].Substance, With_All_Runs(Values[s]),
                                                    Conc_Values::Periods, "\xB5g/L", true);
    }

private:
    // A place in the picture for every location, also for those without a result.
    std::vector<Location_Values> With_All_Runs(const std::map<std::size_t, Location_Values>& known) const
    {
        std::vector<Location_Values> all;
        for (std::size_t i = 0; i < Request.Locations.size(); ++i) {
            const auto found = known.find(i);
            all.push_back(found == known.end() ? Location_Values{.Location = Request.Locations[i].Text}
                                               : found->second);
        }
        return all;
    }

    void Add_Results(const Summary_Location& location, const Progress& progress)
    {
        bool stopped = false;
        const auto tables = Build_Or_Load(
            location.Directory,
            [&](const std::string& message, double share) {
                stopped = progress && !progress(message, (static_cast<double>(Crop.Runs.size()) - 1 + share) /
                                                             static_cast<double>(Request.Locations.size()));
                return !stopped;
            },
            Period_Index);
        if (stopped)
            throw Reading_Stopped();
        if (tables.Unreadable) // whether the run has a result is not known
            throw File_Error(To_Utf8(tables.Failure));
        Period_Index = tables.Period_Index;
        Report_Run& run = Crop.Runs.back();
        run.Problem = tables.Failure.empty() ? tables.Gap : tables.Failure;
        if (run.Problem.empty())
            run.Problem = Take(tables, location.Text, run);
    }

    // Adds the results of a run; gives its problem if its tables do not fit.
    std::string Take(const Leachate_Tables& tables, std::string_view location, Report_Run& run)
    {
        auto results = Results_Of(tables);
        if (!results.Problem.empty())
            return results.Problem;
        if (Crop.Tables.empty())
            Name_Substances(results);
        if (!std::ranges::equal(results.Substances, Crop.Tables, {}, &Run_Result::Substance, &Report_Table::Substance))
            return "The simulation has other substances than that of the first location.";
        run.Years = results.Years;
        run.Titles = tables.Titles;
        run.Dry_Periods = results.Dry_Periods;
        for (std::size_t s = 0; s < results.Substances.size(); ++s) {
            Values[s][Crop.Runs.size() - 1] = Values_Of(std::string(location), tables, s);
            auto& result = results.Substances[s];
            Crop.Tables[s].Results.push_back(
                {Crop.Runs.size() - 1, result.P80, std::move(result.A), std::move(result.B), result.Above_Limit});
        }
        return {};
    }

    void Name_Substances(const Run_Results& results)
    {
        for (const auto& result : results.Substances)
            Crop.Tables.push_back({result.Substance, {}, {}});
        Values.resize(results.Substances.size());
    }

    const Summary_Request& Request;
    Report_Crop& Crop;
    Simulated_Pesticide& Pesticide;
    std::vector<std::map<std::size_t, Location_Values>> Values; // by substance and run
    int Period_Index = 0;
};

std::string List_Of(const std::vector<std::string>& names)
{
    std::string text;
    for (const auto& name : names)
        text += (text.empty() ? "" : "; ") + name;
    return text;
}

// Adds a note on locations, by their crops: "BEGINNING: Hamburg (H); Porto (O)." `places` gives those of the crop at a
// place among the crops.
template <class Places> void Note_Places(Report& report, std::string_view beginning, Places places)
{
    std::string note;
    for (std::size_t i = 0; i < report.Crops.size(); ++i) {
        const std::string names = places(i);
        if (!names.empty())
            note += (note.empty() ? "" : "; ") + (report.Crops.size() > 1 ? report.Crops[i].Name + ": " : "") + names;
    }
    if (!note.empty())
        report.Notes.push_back(std::string(beginning) + ": " + note + ".");
}

// Adds a note on all runs for which a condition holds.
template <class Condition> void Note_Runs(Report& report, std::string_view beginning, Condition holds)
{
    Note_Places(report, beginning, [&](std::size_t crop) {
        std::vector<std::string> names;
        for (const auto& run : report.Crops[crop].Runs) {
            if (holds(run))
                names.push_back(run.Location);
        }
        return names.size() > 1 && names.size() == report.Crops[crop].Runs.size() ? "all locations" : List_Of(names);
    });
}

// A note for each kind of problem, with all runs that have it.
void Note_Problems(Report& report)
{
    std::vector<std::string> problems;
    for (const auto& crop : report.Crops) {
        for (const auto& run : crop.Runs) {
            if (!run.Problem.empty() && std::ranges::find(problems, run.Problem) == problems.end())
                problems.push_back(run.Problem);
        }
    }
    for (const auto& problem : problems)
        Note_Runs(report, problem.substr(0, problem.size() - 1),
                  [&](const Report_Run& run) { return run.Problem == problem; });
}

// The checksum is that of the installed engine. Whether it is the one that computed a run tells its record, else its
// time: a run older than the engine's file was made by another one.
void Note_Engine(const Session& session, const std::vector<Summary_Request>& crops, Report& report)
{
    std::error_code missing;
    const auto engine_time =
        fs::last_write_time(Found_Or_New(session.Program.App_Path, Path_Of(session.Program.Engine_Exe)), missing);
    const bool no_engine = session.Program.Engine_Exe.empty() || missing || report.Engine_File.Sha256.empty();
    if (no_engine) {
        report.Notes.push_back("The engine is not in the installation any more: its checksum cannot be given.");
        return;
    }
    bool newer = false, other = false;
    for (const auto& crop : crops) {
        for (const auto& location : crop.Locations) {
            const auto record = Read_Good_Record(location.Directory);
            const auto echo_time = fs::last_write_time(Found_Or_New(location.Directory, "echo.orv"), missing);
            newer = newer || (!record && !missing && engine_time > echo_time);
            other = other || (record && record->Engine.Sha256 != report.Engine_File.Sha256);
        }
    }
    if (other)
        report.Notes.push_back("The engine of the installation is not the one that computed some of the simulations: "
                               "its checksum is not theirs.");
    if (newer)
        report.Notes.push_back("The engine's file is newer than some of the simulations: its checksum need not be that "
                               "of the engine that computed them.");
}

void Note_Dry_Periods(Report& report)
{
    Note_Places(report, "Periods without percolate, which count as 0 in the percentile", [&](std::size_t crop) {
        std::vector<std::string> names;
        for (const auto& run : report.Crops[crop].Runs) {
            if (run.Dry_Periods > 0)
                names.push_back(run.Location + " " + std::to_string(run.Dry_Periods));
        }
        return List_Of(names);
    });
}

void Note_Inputs(const Session& session, Report& report)
{
    const auto present = Checked(session.Program.App_Path, Path_Of(report.Pesticide + ".psm"));
    Note_Runs(report, "The pesticide file of the installation differs from the one that was simulated",
              [&](const Report_Run& run) {
                  return !present.Sha256.empty() && !run.Pesticide.Sha256.empty() &&
                         run.Pesticide.Sha256 != present.Sha256;
              });
    Note_Runs(report, "The pesticide file that was simulated is missing",
              [](const Report_Run& run) { return !run.Pesticide.Name.empty() && run.Pesticide.Sha256.empty(); });
    Note_Runs(report, "No year was evaluated, since the six years of warm-up do not count", [](const Report_Run& run) {
        return run.Problem.empty() && run.Years <= static_cast<int>(Warm_Up_Years);
    });
    Note_Runs(report, "Data of these simulations are marked \"" + std::string(Not_Regulatory) + "\"",
              [](const Report_Run& run) {
                  return std::ranges::any_of(
                      run.Titles, [](const std::string& title) { return Contains(Lower(title), Not_Regulatory); });
              });
}

// What the rules find in the pesticide and in all its runs. Rules and notes that cannot be read are told: a report
// without them is not one without findings.
void Add_Guidance(const Session& session, const Mode& mode, const std::vector<Summary_Request>& crops,
                  Simulated_Pesticide& pesticide, Report& report)
try {
    if (!pesticide.Document) {
        report.Guidance_Problem =
            "The guidance check could not be done: no pesticide file that was simulated can be read.";
        return;
    }
    Update_Pathway(*pesticide.Document);
    report.Endpoints = Endpoints_Of(*pesticide.Document);
    const std::string name = report.Pesticide + ".psm";
    pesticide.Notes = Read_Notes(session.Program.App_Path / Path_Of(name));
    report.Endpoints = Endpoints_Of(*pesticide.Document, pesticide.Notes);
    for (const auto& crop : crops) {
        std::vector<std::string> locations;
        for (const auto& location : crop.Locations)
            locations.push_back(location.Text);
        for (auto& finding : Check_Runs(session.Program, mode, {*pesticide.Document, pesticide.Notes, name},
                                        Crop_Named(crop.Crop), locations)) {
            if (std::ranges::none_of(report.Guidance, [&](const Guidance_Finding& known) {
                    return known.Rule == finding.Rule && Value_Text(known) == Value_Text(finding);
                }))
                report.Guidance.push_back(std::move(finding));
        }
    }
} catch (const File_Error& error) {
    report.Guidance_Problem = "The guidance check could not be done. " + To_Code_Page(error.what());
    report.Notes.push_back(report.Guidance_Problem);
}

// The table that a report begins with, of the same runs. All are looked at closely: their tables have just been built.
Overview Overview_Of(const Session& session, const Mode& mode, const std::vector<Summary_Request>& crops,
                     const Progress& progress)
{
    Overview_Reader reader(session.Program.App_Path, mode);
    std::vector<Overview_Run> runs;
    for (const auto& crop : crops) {
        for (const auto& location : crop.Locations) {
            auto run = reader.Look({.Pesticide = crop.Pesticide,
                                    .Crop = crop.Crop,
                                    .Location = location.Text,
                                    .Directory = location.Directory});
            reader.Look_Closer(run, progress);
            runs.push_back(std::move(run));
        }
    }
    return Arrange_Overview(mode.Kind, reader.Quantity(), std::move(runs));
}

} // namespace

Report Gather_Report(const Session& session, const std::vector<Summary_Request>& crops, std::time_t made,
                     const Progress& progress)
{
    const auto& mode = Mode_Of(crops.empty() ? Mode_Kind::Focus : crops.front().Mode);
    Report report{
        .Title = std::string(mode.Report_Title), .Program = std::string(Program_Text), .Made = Date_Text(made)};
    Simulated_Pesticide pesticide;
    for (std::size_t i = 0; i < crops.size(); ++i) {
        report.Engine = crops[i].Model_Version;
        report.Pesticide = crops[i].Pesticide;
        Crop_Builder(crops[i], report.Crops.emplace_back(), pesticide)
            .Build([&](const std::string& message, double share) {
                return !progress ||
                       progress(message, (static_cast<double>(i) + share) / static_cast<double>(crops.size()));
            });
    }
    report.Overview = Overview_Of(session, mode, crops, progress);
    if (!session.Program.Engine_Exe.empty())
        report.Engine_File = Checked(session.Program.App_Path, Path_Of(session.Program.Engine_Exe));
    if (!report.Engine_File.Sha256.empty())
        report.Acceptance = Acceptance_Text(session.Program.App_Path, report.Engine_File.Sha256);
    if (mode.Kind != Mode_Kind::Focus)
        report.Notes.push_back(
            "The tables of each crop are those of the percolate of these scenarios; concentrations in soil are in the "
            "overview and in the tables of each simulation.");
    Add_Guidance(session, mode, crops, pesticide, report);
    Note_Problems(report);
    Note_Places(report, "Further locations of the crop, not simulated",
                [&](std::size_t crop) { return List_Of(crops[crop].Absent); });
    Note_Dry_Periods(report);
    Note_Engine(session, crops, report);
    Note_Inputs(session, report);
    return report;
}

const Report_Result* Result_Of(const Report_Table& table, std::size_t run)
{
    const auto found = std::ranges::find(table.Results, run, &Report_Result::Run);
    return found == table.Results.end() ? nullptr : &*found;
}

} // namespace orvel
