#include "jobs/engine_start.h"

#include "core/files.h"
#include "core/system/program_path.h"
#include "jobs/job_status.h"

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
        throw Run_Refused("The engine " + engine.filename().string() + " is missing in the run directory.");
    Program_Start start{.Program = engine, .Arguments = {}, .Directory = directory, .Output = Progress_Name};
    if (!Is_Windows_Program(engine))
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
    for (const auto& name : List_Files(directory, "*.orv")) {
        std::error_code error;
        fs::remove(directory / name, error);
        if (error)
            throw Run_Refused("The old output file " + name + " cannot be deleted: " + error.message() + ".");
    }
}

} // namespace orvel
