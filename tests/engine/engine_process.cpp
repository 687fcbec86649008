#include "engine_process.h"

#include "core/files.h"
#include "core/system/spawn.h"
#include "core/text.h"
#include "temporary_directory.h"

#include <iterator>
#include <sstream>

namespace orvel::engine {

Engine_Result Run_Engine(const std::filesystem::path& directory, const std::string& arguments)
{
    const Temporary_Directory place;
    Program_Start start{.Program = ORVEL_ENGINE, .Directory = directory, .Output = place / "output"};
    std::istringstream words(arguments);
    start.Arguments.assign(std::istream_iterator<std::string>(words), {});
    const Program_End end = Wait_For_Program(Start_Program(start));
    return {.Exit_Code = end.Signal == 0 ? end.Exit_Code : -1, .Output = Read_Whole(place / "output")};
}

Engine_Result Run_Case(const Engine_Case& run, const std::filesystem::path& directory)
{
    Write_Files(run.Files(), directory);
    return Run_Engine(directory);
}

std::string File_Of(const std::filesystem::path& directory, std::string_view name)
{
    return Read_Whole(directory / name, std::size_t{1} << 30U);
}

std::string Last_Line(std::string_view text)
{
    const auto lines = Split_Lines(text);
    return lines.empty() ? std::string() : std::string(lines.back());
}

} // namespace orvel::engine
