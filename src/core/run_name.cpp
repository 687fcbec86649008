#include "core/run_name.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/text.h"

#include <algorithm>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view Ending = ".run";
constexpr std::string_view Mask = "*.run";
constexpr char Level_End = '\\';

std::string Without_Extension(std::string_view file)
{
    constexpr std::size_t Extension = 4;
    return std::string(file.substr(0, file.size() - std::min(file.size(), Extension)));
}

// Whether a job may change into this level: it must not lead out of the mode directory.
bool Is_Clean_Level(std::string_view level)
{
    const bool clean =
        std::ranges::none_of(level, [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '/'; });
    return clean && level.size() > Ending.size() && Is_Run_Level(level);
}

} // namespace

std::string Encode_Level(std::string_view text)
{
    return Replace_All(Replace_All(std::string(text), " ", "_-_"), ",", "--") + std::string(Ending);
}

std::string Decode_Level(std::string_view directory)
{
    const auto text = directory.substr(0, directory.size() - std::min(directory.size(), Ending.size()));
    return Replace_All(Replace_All(std::string(text), "_-_", " "), "--", ",");
}

bool Is_Run_Level(std::string_view directory)
{
    return Matches(directory, Mask);
}

std::vector<std::string> List_Run_Levels(const fs::path& parent)
{
    return List_Directories(parent, Mask);
}

std::string Run_Directory(std::string_view pesticide, std::string_view crop, std::string_view location)
{
    return Encode_Level(Without_Extension(pesticide)) + Level_End + Encode_Level(crop) + Level_End +
           Encode_Level(location);
}

std::vector<std::string_view> Split_Directory(std::string_view run_directory)
{
    std::vector<std::string_view> levels;
    while (true) {
        const auto end = run_directory.find(Level_End);
        levels.push_back(run_directory.substr(0, end));
        if (end == std::string_view::npos)
            return levels;
        run_directory.remove_prefix(end + 1);
    }
}

bool Is_Run_Directory(std::string_view run_directory)
{
    const auto levels = Split_Directory(run_directory);
    return levels.size() == Run_Levels && std::ranges::all_of(levels, Is_Clean_Level);
}

fs::path Run_Path(const fs::path& mode_directory, std::string_view run_directory)
{
    return mode_directory / Path_Of(Replace_All(std::string(run_directory), "\\", "/"));
}

std::string Run_Directory_Of(const fs::path& mode_directory, const fs::path& run)
{
    return Replace_All(Path_Text(run.lexically_relative(mode_directory)), "/", "\\");
}

fs::path Place_In_Mode(const fs::path& run_directory)
{
    constexpr std::string_view Digits = "0123456789";
    fs::path levels, at = run_directory;
    for (int level = 0; level < Run_Levels; ++level) {
        levels = levels.empty() ? at.filename() : at.filename() / levels;
        at = at.parent_path();
    }
    const std::string generation = at.filename().string();
    const bool in_bin = !generation.empty() && generation.find_first_not_of(Digits) == std::string::npos &&
                        at.parent_path().filename() == Bin_Name;
    return in_bin ? at.parent_path().parent_path() / levels : run_directory;
}

fs::path Input_File(const fs::path& run_directory, const fs::path& name)
{
    const bool of_mode = !name.empty() && *name.begin() == "..";
    const fs::path place = of_mode ? Place_In_Mode(run_directory) : run_directory;
    return place == run_directory ? run_directory / name : (place / name).lexically_normal(); // it may have gone
}

std::string Run_Title(const fs::path& directory)
{
    std::string title;
    fs::path at = directory.has_filename() ? directory : directory.parent_path();
    for (int level = 0; level < Run_Levels && Is_Run_Level(Path_Text(at.filename())); ++level) {
        title = Decode_Level(Path_Text(at.filename())) + (title.empty() ? "" : ", " + title);
        at = at.parent_path();
    }
    return title.empty() ? Path_Text(at.filename()) : title;
}

std::string Picture_Name(std::string_view run, std::string_view title)
{
    std::string name = std::string(run) + (run.empty() ? "" : " - ") + std::string(Trim(title));
    std::erase_if(name, [](char c) { return std::string_view("/\\:*?\"<>|[]").find(c) != std::string_view::npos; });
    return name + ".png";
}

} // namespace orvel
