#include "desktop/doctor_checks.h"

#include "runs/mode.h"

#include <algorithm>

namespace orvel {

namespace fs = std::filesystem;

std::vector<fs::path> Directories_Of(const Program_State& program)
{
    std::vector<fs::path> directories = {program.App_Path};
    for (const auto kind : {Mode_Kind::Focus, Mode_Kind::Efsa, Mode_Kind::Efsa_T4}) {
        const fs::path directory = Mode_Directory(program, Mode_Of(kind));
        std::error_code ignored;
        if (fs::is_directory(directory, ignored))
            directories.push_back(directory);
    }
    return directories;
}

std::string Some_Of(const std::vector<std::string>& names)
{
    constexpr std::size_t Most = 3;
    std::string text;
    for (std::size_t i = 0; i < std::min(Most, names.size()); ++i)
        text += (i == 0 ? "" : ", ") + names[i];
    if (names.size() == Most + 1)
        return text + " and another";
    return names.size() > Most ? text + " and " + std::to_string(names.size() - Most) + " others" : text;
}

} // namespace orvel
