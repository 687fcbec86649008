#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace orvel {

// A file that orvel.inp names, as an engine finds it: `\` and `/` separate directories, case is ignored in every part.
// The path begins with the run directory, unless the name is absolute. Nothing if it is not there. Throws File_Error
// for a directory that cannot be searched.
std::optional<std::filesystem::path> Named_Input(const std::filesystem::path& run_directory, std::string_view name);

// The same for many names of one run: the directories that they share are looked for once.
class Named_Inputs {
public:
    explicit Named_Inputs(std::filesystem::path run_directory) : Run_Directory(std::move(run_directory)) {}
    std::optional<std::filesystem::path> Find(std::string_view name);

private:
    std::filesystem::path Run_Directory;
    std::map<std::string, std::optional<std::filesystem::path>> Places; // by what a name has before its last part
};

} // namespace orvel
