#include "records/accept.h"

#include "core/code_page.h"
#include "core/error.h"
#include "core/files.h"
#include "core/numbers.h"
#include "core/run_name.h"
#include "core/sha256.h"
#include "core/system/processors.h"
#include "core/text.h"
#include "core/write_unflushed.h"
#include "installation/installation_files.h"
#include "jobs/engines.h"
#include "jobs/job.h"
#include "jobs/job_status.h"
#include "output/run_files.h"
#include "records/unpacked_archive.h"
#include "runs/output_selection.h"
#include "runs/run_directory.h"
#include "runs/run_place.h"
#include "runs/selection.h"
#include "runs/start_up.h"

#include <algorithm>
#include <ctime>
#include <map>
#include <set>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view Expected_Name = "expected.csv";

const Mode& Focus()
{
    return Mode_Of(Mode_Kind::Focus);
}

// What an engine is called that is tried, since a run takes its version out of the name.
std::string Name_Of_Engine(const fs::path& engine)
{
    const std::string name = engine.filename().string();
    return Matches(name, "orvel*.exe") ? name : "orvel401.exe";
}

// The demonstration data that simulations at these locations read, and the engine.
void Lay_Out_References(const fs::path& place, const fs::path& engine, const std::vector<Run_Key>& runs)
{
    std::set<std::string> codes;
    for (const auto& run : runs)
        codes.insert(Code_Of_Location(Focus(), run.Location) + "_");
    const std::string mode = std::string(Focus().Directory) + "/";
    Make_Installation_Files([&](const std::string& path, std::string_view bytes) {
        const bool is_of_mode = path.starts_with(mode);
        const std::string name = is_of_mode ? path.substr(mode.size()) : path;
        const bool is_wanted = is_of_mode
                                   ? !name.ends_with(".cli") || codes.contains(name.substr(0, name.find('_') + 1))
                                   : !Contains(path, "/");
        if (!is_wanted)
            return;
        std::error_code told_by_the_write;
        fs::create_directories((place / path).parent_path(), told_by_the_write);
        Write_Unflushed(place / path, bytes);
    });
    Copy_Whole(engine, place / Name_Of_Engine(engine));
}

// The simulations that the figures belong to, each once, in their order.
std::vector<Run_Key> Runs_Of(const std::vector<Expected_Figure>& figures)
{
    std::vector<Run_Key> runs;
    for (const auto& figure : figures) {
        if (std::ranges::find(runs, figure.Key) == runs.end())
            runs.push_back(figure.Key);
    }
    return runs;
}

// Makes the directory of a simulation as the run form does. Throws File_Error with the form's refusal.
fs::path Make_Run(const Program_State& program, const Run_Key& run)
{
    const Crop* const crop = Crop_Named(run.Crop);
    if (crop == nullptr)
        throw File_Error("There is no crop '" + To_Utf8(run.Crop) + "'.");
    std::string refusal;
    const Ask_Function keep = [&](const Message& message) {
        refusal = message.Text;
        return message.Default;
    };
    Selection selected = Evaluate_Selection(program, keep, Focus(), run.Pesticide, crop, run.Location);
    if (!selected.Buttons_Enabled())
        throw File_Error(To_Utf8(selected.Warnung.empty() ? refusal : selected.Warnung));
    selected.Choice.Options.Output = Minimum_Output();
    selected.Choice.Options.Tillage = Tillage_List(Focus())[static_cast<std::size_t>(Focus().Tillage_Index)];
    const fs::path mode = Mode_Directory(program, Focus());
    Write_Unflushed(mode / "orvel.inp", Format_Run(program, Focus(), selected.Choice));
    fs::path directory = Run_Path(mode, Run_Directory(run.Pesticide, run.Crop, run.Location));
    New_Run_Directory made(directory, Sources_Of_Run(program, Focus(), selected.Choice));
    made.Put_In_Place();
    made.Keep();
    return directory;
}

// Runs the simulations, one per processor at a time.
class References {
public:
    References(const Program_State& program, const std::vector<Run_Key>& runs, const Progress& progress)
        : Program(program),
          Runs(runs),
          Report(progress),
          Work(program.App_Path / Stop_Name,
               [this](std::size_t run, const Run_Record& record, const std::string& error) {
                   ++Done;
                   if (!error.empty() || record.Verdict != Verdict::Complete)
                       Faults[run] = error.empty() ? record.Reason : To_Code_Page(error);
               })
    {}

    // What came out: a figure a substance, or the reason why there is none.
    std::vector<Run_Figure> Run_All()
    {
        std::vector<fs::path> directories(Runs.size());
        for (std::size_t run = 0; run < Runs.size() && !Work.Stopped(); ++run) {
            while (Work.At_Work() >= static_cast<std::size_t>(Processors()))
                Wait();
            Begin(run, directories[run]);
        }
        while (Work.At_Work() > 0)
            Wait();
        if (Work.Stopped())
            throw Reading_Stopped();
        std::vector<Run_Figure> figures;
        for (std::size_t run = 0; run < Runs.size(); ++run) {
            if (Faults.contains(run))
                figures.push_back({Runs[run], "", std::nullopt, Faults[run]});
            else
                std::ranges::move(Figures_Of(Found_Run{Runs[run], directories[run]}), std::back_inserter(figures));
        }
        return figures;
    }

private:
    void Begin(std::size_t run, fs::path& directory)
    try {
        directory = Make_Run(Program, Runs[run]);
        Work.Begin(run, directory, Program.App_Path / Path_Of(Program.Engine_Exe));
    } catch (const std::runtime_error& refused) { // Run_Refused and File_Error
        ++Done;
        Faults[run] = To_Code_Page(refused.what());
    }

    void Wait()
    {
        const std::string text = std::to_string(Done) + " of " + std::to_string(Runs.size()) + " runs";
        if (Report && !Report(text, static_cast<double>(Done) / static_cast<double>(Runs.size())))
            Write_Unflushed(Program.App_Path / Stop_Name, "");
        Work.Wait();
    }

    const Program_State& Program;
    const std::vector<Run_Key>& Runs;
    const Progress& Report;
    std::size_t Done = 0;
    std::map<std::size_t, std::string> Faults;
    Engines Work;
};

fs::path Engine_To_Try(const Accept_Order& order)
{
    fs::path engine = order.Engine;
    if (engine.empty()) {
        Program_State program;
        program.App_Path = order.App_Path;
        Find_Engine(program);
        if (program.Engine_Exe.empty())
            throw File_Error("There is no engine (orvel*.exe) in the installation directory.");
        engine = Found_Or_New(order.App_Path, Path_Of(program.Engine_Exe));
    }
    engine = fs::absolute(engine);
    std::error_code error;
    if (!fs::is_regular_file(engine, error))
        throw File_Error("The engine " + engine.string() + " is missing.");
    Check_Not_Open_To_All(engine.parent_path());
    Check_Not_Open_To_All(engine);
    return engine;
}

std::vector<Expected_Figure> Read_Expected(const fs::path& file)
{
    const std::string text = Read_Whole(file);
    try {
        return Parse_Expected(text);
    } catch (const File_Error& error) {
        throw File_Error(Located(file.string(), error));
    }
}

std::vector<Tried_Figure> Judge(const std::vector<Expected_Figure>& expected, const std::vector<Run_Figure>& obtained)
{
    std::vector<Run_Figure> wanted;
    for (const auto& figure : expected)
        wanted.push_back({figure.Key, figure.Substance, figure.Value, ""});
    const auto compared = Compare_Results(wanted, obtained);
    std::vector<Tried_Figure> tried;
    for (std::size_t i = 0; i < expected.size(); ++i) {
        const auto& result = compared[i];
        tried.push_back({.Expected = expected[i],
                         .Obtained = result.Second,
                         .State = result.Second_State,
                         .Ratio = result.Ratio,
                         .Is_Good = result.Second && Is_As_Expected(expected[i], *result.Second)});
    }
    return tried;
}

std::vector<Expected_Figure> As_Expected(const std::vector<Run_Figure>& obtained,
                                         const std::vector<Expected_Figure>& expected)
{
    std::vector<Expected_Figure> figures;
    for (const auto& figure : obtained) {
        if (!figure.Value)
            continue;
        const auto like = std::ranges::find_if(expected, [&](const Expected_Figure& wanted) {
            return wanted.Key == figure.Key && wanted.Substance == figure.Substance;
        });
        figures.push_back({.Key = figure.Key,
                           .Substance = figure.Substance,
                           .Value = *figure.Value,
                           .Tolerance = like == expected.end() ? Usual_Tolerance : like->Tolerance});
    }
    return figures;
}

} // namespace

bool Trial::Is_Accepted() const
{
    return !Figures.empty() && std::ranges::all_of(Figures, &Tried_Figure::Is_Good);
}

Trial Try_Engine(const Accept_Order& order, const Progress& progress)
{
    const fs::path engine = Engine_To_Try(order);
    const fs::path file = order.Expected.empty() ? Found_Or_New(order.App_Path, Expected_Name) : order.Expected;
    const auto expected = Read_Expected(file);
    const auto runs = Runs_Of(expected);
    const Temporary_Place place;
    Lay_Out_References(place.Path(), engine, runs);
    Program_State program;
    program.App_Path = place.Path();
    Find_Engine(program);

    Trial trial{.What = {.Engine = Path_Text(engine.filename()),
                         .Engine_Sha256 = Sha256_Of_File(place.Path() / Path_Of(program.Engine_Exe)),
                         .Expected = Path_Text(file.filename()),
                         .Expected_Sha256 = Sha256_Of_File(file)}};
    const auto obtained = References(program, runs, progress).Run_All();
    trial.Figures = Judge(expected, obtained);
    trial.Obtained = As_Expected(obtained, expected);
    return trial;
}

void Note_Trial(const fs::path& app_path, const Trial& trial)
{
    if (!trial.Is_Accepted())
        return Withdraw_Acceptance(app_path, trial.What.Engine_Sha256);
    constexpr std::size_t Day = 10; // of "2026-05-31 14:05"
    Acceptance acceptance = trial.What;
    acceptance.Date = Date_Text(std::time(nullptr)).substr(0, Day);
    Keep_Acceptance(app_path, acceptance);
}

std::string Trial_Text(const Trial& trial)
{
    std::string text = "result\tpesticide\tcrop\tlocation\tsubstance\texpected\tobtained\tratio\ttolerance\n";
    std::size_t outside = 0;
    for (const auto& figure : trial.Figures) {
        outside += figure.Is_Good ? 0 : 1;
        text += figure.Is_Good ? "ok" : "outside";
        const auto& key = figure.Expected.Key;
        for (const auto& cell :
             {key.Pesticide, key.Crop, key.Location, figure.Expected.Substance, General_Text(figure.Expected.Value),
              figure.Obtained ? General_Text(*figure.Obtained) : figure.State,
              figure.Ratio ? Format_Pattern(*figure.Ratio, "0.0000") : "", General_Text(figure.Expected.Tolerance)})
            text += "\t" + cell;
        text += "\n";
    }
    const std::string all = std::to_string(trial.Figures.size());
    text += trial.Is_Accepted() ? "All " + all + " figures are as " + trial.What.Expected + " expects them.\n"
                                : std::to_string(outside) + " of " + all + " figures are not as " +
                                      trial.What.Expected + " expects them.\n";
    return To_Utf8(text);
}

} // namespace orvel
