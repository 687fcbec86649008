#include "engine_process.h"

#include "core/files.h"
#include "core/text.h"

#include <array>
#include <cstdio>
#include <sys/wait.h>

namespace orvel::engine {

Engine_Result Run_Engine(const std::filesystem::path& directory, const std::string& arguments)
{
    const std::string command = "cd '" + directory.string() + "' && exec '" ORVEL_ENGINE "' " + arguments + " 2>&1";
    Engine_Result result;
    FILE* const pipe = ::popen(command.c_str(), "r");
    std::array<char, 4096> buffer{};
    for (std::size_t got = 0; (got = std::fread(buffer.data(), 1, buffer.size(), pipe)) > 0;)
        result.Output.append(buffer.data(), got);
    const int status = ::pclose(pipe);
    result.Exit_Code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return result;
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
