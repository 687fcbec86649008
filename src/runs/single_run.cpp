#include "runs/single_run.h"

#include "core/files.h"
#include "core/numbers.h"
#include "core/system/lock.h"
#include "core/text.h"
#include "files/file_messages.h"
#include "jobs/engine_start.h"
#include "jobs/job_status.h"
#include "runs/run_control.h"

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view File_Check = "File check", Data_Check = "Data check";
constexpr double Last_Day = 31;

Refusal File_Refusal(std::string text, std::string control)
{
    return {{std::string(File_Check), std::move(text)}, std::move(control)};
}

// Skips a block of lines whose number stands at its head.
void Skip_Block(Line_Reader& lines)
{
    for (double count = Val(lines.Next()); count >= 1; --count)
        lines.Skip(1);
}

// Walks the scenario file; throws File_Error where it ends too early. What it holds does not matter.
void Walk_Scenario(std::string_view bytes)
{
    Line_Reader lines(bytes);
    lines.Skip(2);
    if (Val(lines.Next()) == 1)
        lines.Skip(1);
    Skip_Block(lines);
    Skip_Block(lines);
}

// The number of horizons of a pesticide file, or why the file forbids the run.
struct Pesticide_Head {
    double Horizons = 0;
    std::optional<Refusal> Fault;
};

Pesticide_Head Read_Pesticide_Head(const fs::path& directory, const std::string& name)
{
    const std::string bytes = Read_Whole(Found_Or_New(directory, Path_Of(name)));
    Line_Reader lines(bytes);
    lines.Skip(3);
    if (lines.Next() != "<NUMBER OF SOIL HORIZONS>")
        return {0, Refusal{{std::string(Readin_Check), name + " is not a valid ORVEL 3.20 PSM file"}, "File_psm"}};
    return {Val(lines.Next()), std::nullopt};
}

std::optional<Refusal> Check_Files(const Session& session, const fs::path& directory, const Single_Run_Entry& entry)
{
    std::string at_hand = entry.Pesticide;
    try {
        const Pesticide_Head head = Read_Pesticide_Head(directory, entry.Pesticide);
        if (head.Fault)
            return head.Fault;
        at_hand = entry.Scenario;
        Walk_Scenario(Read_Whole(Found_Or_New(directory, Path_Of(entry.Scenario))));
        if (head.Horizons > 0 && head.Horizons != session.Scenario.SZE_Horizons.Number())
            return Refusal{
                {std::string(Data_Check), "Number of horizons in PSM file and scenariofile should be the same"},
                "File_sce"};
    } catch (const File_Error& error) {
        return File_Refusal(at_hand + " not found\n" + Place_And_Reason(at_hand, error),
                            at_hand == entry.Pesticide ? "File_psm" : "File_sce");
    }
    return std::nullopt;
}

std::optional<Refusal> Check_Boxes(const Single_Run_Entry& entry)
{
    if (Val(entry.Start_Day) < 1)
        return File_Refusal("Insert value for starting day", "Combo_stad");
    if (Val(entry.End_Day) < 1)
        return File_Refusal("Insert value for ending day", "Combo_endd");
    if (Val(entry.Years) < 1)
        return File_Refusal("Insert value for simulation years", "Text_years");
    if (Trim(entry.Pesticide).empty())
        return File_Refusal("Select PSM file", "File_psm");
    if (Trim(entry.Scenario).empty())
        return File_Refusal("Select scenario file", "File_sce");
    if (entry.Start_Month_Index < 0)
        return File_Refusal("Select starting month", "Combo_stam");
    if (entry.End_Month_Index < 0)
        return File_Refusal("Select ending month", "Combo_endm");
    const bool ends_before =
        entry.End_Month_Index < entry.Start_Month_Index ||
        (entry.End_Month_Index == entry.Start_Month_Index && Val(entry.End_Day) < Val(entry.Start_Day));
    if (Val(entry.Years) == 1 && ends_before)
        return Refusal{{std::string(Data_Check), "Simulation time must be at least 1 day"}, "Text_years"};
    if (entry.Climates.empty())
        return File_Refusal("No climatic files available", "File_cli");
    return std::nullopt;
}

void Take_Over(Run_Settings& run, const Single_Run_Entry& entry)
{
    run.Run_PSM_File = entry.Pesticide;
    run.Run_Scenario_File = entry.Scenario;
    run.Run_Cli_Files = entry.Climates;
    run.Sim_Years = entry.Years;
    run.Start_Day = entry.Start_Day;
    run.End_Day = entry.End_Day;
    run.Start_Month = entry.Start_Month_Index + 1;
    run.End_Month = static_cast<std::int16_t>(entry.End_Month_Index + 1);
}

// What a box shows of a setting; one that was never set shows nothing.
std::string Box_Text(const Variant& setting)
{
    return setting == Variant() ? std::string() : std::string(Trim(setting.Text()));
}

bool Tell(const Session& session, std::string_view text)
{
    session.Ask({std::string(File_Check), std::string(text)});
    return false;
}

} // namespace

Single_Run_Entry Restore_Single_Run(Session& session, const fs::path& directory)
{
    Read_Single_Run(session, directory);
    const Run_Settings& run = session.Run;
    return {.Pesticide = Box_Text(run.Run_PSM_File),
            .Scenario = Box_Text(run.Run_Scenario_File),
            .Climates = run.Run_Cli_Files,
            .Start_Day = Box_Text(run.Start_Day),
            .End_Day = Box_Text(run.End_Day),
            .Years = Box_Text(run.Sim_Years),
            .Start_Month_Index = static_cast<int>(run.Start_Month.Number()) - 1,
            .End_Month_Index = run.End_Month - 1};
}

bool Has_Output(const fs::path& directory)
{
    return !List_Files(directory, "*.orv").empty();
}

std::optional<Refusal> Check_Single_Run(const Session& session, const fs::path& directory,
                                        const Single_Run_Entry& entry)
{
    if (auto refusal = Check_Files(session, directory, entry))
        return refusal;
    return Check_Boxes(entry);
}

std::optional<Refusal> Check_Day(const std::string& text, const std::string& control)
{
    if (const double day = Val(text); day < 1 || day > Last_Day)
        return Refusal{{std::string(Data_Check), "Value must be betwen 0 and 31"}, control};
    return std::nullopt;
}

std::optional<Refusal> Check_Years(const std::string& text)
{
    if (Val(text) < 1)
        return Refusal{{std::string(Data_Check), "Value must be greater than 0"}, "Text_years"};
    return std::nullopt;
}

bool Start_Single_Run(Session& session, const fs::path& directory, const Single_Run_Entry& entry)
{
    constexpr std::chrono::milliseconds Most(200);
    const auto lock = Lock::Take_Within(directory, Most);
    if (!lock || Is_Locked(Found_Or_New(directory, "echo.orv")))
        return Tell(session, Still_At_Work);
    Take_Over(session.Run, entry);
    try {
        Write_Whole(Found_Or_New(directory, "orvel.inp"), Format_Single_Run(session));
    } catch (const File_Error&) {
        return Tell(session, "Cannot write ORVEL.INP");
    }
    const fs::path engine = session.Program.App_Path / session.Program.Engine_Exe;
    std::error_code ignored;
    if (!fs::is_regular_file(engine, ignored))
        return Tell(session, "Orvel not found"); // before any output is deleted for a run that cannot be
    try {
        Program_Start start = Engine_Start(directory, engine);
        Delete_Output(directory);
        start.Kept_Descriptor = lock->Descriptor();
        start.Own_Session = true;
        Start_Program(start);
        return true;
    } catch (const File_Error&) {
        return Tell(session, "Orvel not found");
    } catch (const Run_Refused& refused) {
        return Tell(session, refused.what());
    }
}

Single_Run_State State_Of_Single_Run(const fs::path& directory, int years)
{
    Single_Run_State state;
    state.Running = Is_Locked(directory) || Is_Locked(Found_Or_New(directory, "echo.orv"));
    if (!state.Running)
        return state;
    state.Years_Done = static_cast<int>(Years_Done(directory, years));
    state.Text =
        "The engine is at work: " + std::to_string(state.Years_Done) + " of " + std::to_string(years) + " years.";
    return state;
}

} // namespace orvel
