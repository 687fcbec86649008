#include "jobs/engine_start.h"

#include "core/files.h"
#include "core/system/program_path.h"
#include "output/run_outputs.h"
#include "output/run_record.h"

#include <algorithm>

namespace orvel {

namespace fs = std::filesystem;

namespace {

bool Is_Windows_Program(const fs::path& file)
{
    return Read_Head(file, 2) == "MZ";
}

} // namespace

Program_Start Engine_Start(const fs::path& directory, const fs::path& engine)
{
    std::error_code ignored;
    if (!fs::exists(engine, ignored))
        throw Run_Refused(
            "The engine " + engine.filename().string() + " is missing in " +
            (engine.parent_path() == directory ? "the run directory." : engine.parent_path().string() + "."));
    Program_Start start{.Program = engine, .Arguments = {}, .Directory = directory, .Output = Progress_Name};
    const bool for_windows = Is_Windows_Program(engine);
    if (Runs_Windows_Programs() && !for_windows)
        throw Run_Refused("The engine " + engine.filename().string() + " is no Windows program.");
    if (Runs_Windows_Programs() || !for_windows)
        return start;
    start.Program = Program_In_Path("wine");
    if (start.Program.empty())
        throw Run_Refused("The engine " + engine.filename().string() +
                          " is a Windows program, and wine, which could run it, is not installed.");
    start.Arguments = {engine.string()};
    return start;
}

void Delete_Output(const fs::path& directory)
{
    // The record first: what remains without one is not taken for finished.
    std::vector<std::string> names = {std::string(Run_Record_Name)};
    std::ranges::move(List_Files(directory, "*.orv"), std::back_inserter(names));
    for (const auto& name : names) {
        std::error_code error;
        fs::remove(directory / name, error);
        if (error)
            throw Run_Refused("The old output file " + name + " cannot be deleted: " + error.message() + ".");
    }
}

} // namespace orvel
