#include "runs/start_up.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/numbers.h"
#include "core/text.h"
#include "core/version.h"
#include "runs/batch.h"
#include "runs/bin.h"
#include "runs/output_selection.h"
#include "runs/run_directory.h"
#include "ui/help_texts.h"

#include <cmath>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr int First_Suite = 396; // engine 4.01 goes with suite 5

const Mode& Focus()
{
    return Mode_Of(Mode_Kind::Focus);
}

bool Write_Test(const fs::path& directory)
try {
    const fs::path file = Found_Or_New(directory, "worvel2.tmp");
    std::error_code ignored;
    fs::remove(file, ignored);
    Write_Whole(file, "This is ORVEL\r\n");
    return true;
} catch (const File_Error&) {
    return false;
}

fs::path Probe_Of(const Program_State& program)
{
    return Found_Or_New(Mode_Directory(program, Focus()), Focus().Probe_File);
}

void Write_Launcher(const Program_State& program)
try {
    const std::string engine = "ORVEL" + General_Text(program.Engine_Version * 100) + ".exe";
    Write_Whole(Found_Or_New(program.App_Path, "orvel.bat"), engine + "\r\nexit\r\n");
} catch (const File_Error&) {
    // Start-up goes on: only a single run needs the launcher, and it reports a missing one.
}

void End_All_Interrupted_Marks(const Program_State& program)
try {
    const auto turn = Acquire_Batch_Lock(program.App_Path);
    for (const auto kind : {Mode_Kind::Focus, Mode_Kind::Efsa, Mode_Kind::Efsa_T4})
        End_Interrupted_Marks(Mode_Directory(program, Mode_Of(kind)));
} catch (const File_Error&) {
    // Another program is marking; the next mark or start ends them.
}

bool Is_Individual(std::string_view name)
{
    return Contains(Lower(name), "indiv");
}

// The files that become read-only, in the order of the walk.
std::vector<fs::path> Files_To_Protect(const fs::path& directory)
{
    std::vector<fs::path> files;
    for (const auto& name : List_Files(directory, "*.sze")) {
        if (!Is_Individual(name))
            files.push_back(directory / name);
    }
    for (const auto& name : List_Files(directory, "*.cli"))
        files.push_back(directory / name);
    return files;
}

} // namespace

void Find_Engine(Program_State& program)
{
    program.Engine_Exe.clear();
    for (const auto& engine : List_Files(program.App_Path, "orvel*.exe")) {
        if (program.Engine_Exe.empty())
            program.Engine_Exe = Name_Of(engine).value_or("");
    }
    program.Engine_Version = Val(Columns(program.Engine_Exe, 6, 3)) / 100;
    program.Aktuelle_ORVEL_Version = "ORVEL " + General_Text(program.Engine_Version);
    const double suite = std::floor(program.Engine_Version * 100 - First_Suite + 0.5);
    program.Aktuelle_ORVELSUITE_Version = "ORVELSUITE " + General_Text(suite) + "." +
                                          General_Text(program.Suite_Minor) + "." + Scenario_Version(program, Focus());
}

bool Start_Up(Session& session)
{
    auto& program = session.Program;
    if (!Write_Test(program.App_Path))
        return false;
    program.Suite_Minor = Program_Version_Minor;
    Find_Engine(program);
    Write_Launcher(program);
    End_All_Interrupted_Marks(program);
    program.Online_Help = false;
    Load_Help_Texts(session);
    session.Editor.App_Loc_Index = 1;
    session.Output = Start_Output();
    return true;
}

std::optional<Dropped_Batch> Drop_Pending_Batch(const Program_State& program)
try {
    const fs::path directory = Mode_Directory(program, Focus());
    if (!Batch_Pending(directory) || Is_Locked(directory))
        return std::nullopt;
    const auto alone = Lock::Take(Probe_Of(program));
    const auto turn = alone ? Acquire_Batch_Lock(program.App_Path) : std::nullopt;
    if (!alone || !Batch_Pending(directory))
        return std::nullopt;
    const auto runs = Read_Batch(directory).size();
    return Dropped_Batch{runs, Move_To_Bin(directory, Batch_File(directory))};
} catch (const File_Error&) {
    return std::nullopt; // then it stays, for the next start
}

std::string Dropped_Text(const Dropped_Batch& dropped)
{
    return (dropped.Runs == 1 ? "1 simulation that was" : std::to_string(dropped.Runs) + " simulations that were") +
           " marked but not started went to the bin when the program opened, from which the batch can be put back.";
}

bool Put_Back_Batch(const Program_State& program, const Ask_Function& ask, const Dropped_Batch& dropped)
try {
    const fs::path directory = Mode_Directory(program, Focus());
    const auto turn = Acquire_Batch_Lock(program.App_Path);
    if (Batch_Pending(directory))
        throw File_Error("Other simulations have been marked meanwhile. Please start them first, then put these back.");
    std::error_code error;
    fs::rename(dropped.File, Batch_File(directory), error);
    if (error)
        throw File_Error("Cannot put back " + dropped.File.string() + ": " + error.message() + ".");
    return true;
} catch (const File_Error& error) {
    Tell(ask, "Put back simulations", To_Code_Page(error.what()));
    return false;
}

std::optional<Lock> Sign_Of_Shell(const Program_State& program)
{
    return Lock::Take_Shared(Probe_Of(program));
}

void Check_Decimal_Separator(const Ask_Function& ask, std::string_view printed)
{
    if (!Contains(printed, ","))
        return;
    Tell(ask, "System check",
         "ORVEL SUITE noticed that the 'komma' is used for decimal numbers in your system (see "
         "your regional settings).\r\n"
         "As long as you do not select the 'point' as decimal separator you are not able to "
         "create valid input data files.");
}

std::string Suite_Label_Hint()
{
    return std::string(Program_Text) + ": the last number of the label is that of the scenario data";
}

std::string Scenario_Version(const Program_State& program, const Mode& mode)
try {
    const std::string bytes = Read_Whole(Found_Or_New(Mode_Directory(program, mode), mode.Version_Source));
    return std::string(Trim(Columns(Columns(Line_Reader(bytes).Next(), 4), 1, 2)));
} catch (const File_Error& error) {
    Pass_On_If_Unreadable(error);
    return {};
}

bool Mode_Available(const Program_State& program, const Ask_Function& ask, const Mode& mode)
{
    if (mode.Missing_Text.empty() || Find_File(Mode_Directory(program, mode), mode.Version_Source))
        return true;
    ask({"Data error!", std::string(mode.Missing_Text), Icon::Stop});
    return false;
}

bool Files_Protected(const Program_State& program)
{
    return Is_Read_Only(Found_Or_New(Mode_Directory(program, Focus()), Focus().Version_Source));
}

bool Protect_Files(const Program_State& program, const Ask_Function& ask, const std::function<void(int, int)>& progress)
try {
    const auto files = Files_To_Protect(Mode_Directory(program, Focus()));
    for (std::size_t i = 0; i < files.size(); ++i) {
        if (progress)
            progress(static_cast<int>(i), static_cast<int>(files.size()));
        Set_Read_Only(files[i], true);
    }
    return true;
} catch (const File_Error& error) {
    Tell(ask, "File check", To_Code_Page(error.what()));
    return false;
}

} // namespace orvel
