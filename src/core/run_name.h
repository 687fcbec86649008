#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// The name of a run directory: three levels below the directory of a mode, for pesticide file, crop and location. This
// unit alone knows how they are spelled. Texts are bytes of Windows-1252.

constexpr int Run_Levels = 3;

// One level: "Winter cereals" is "Winter_-_cereals.run". A blank is "_-_", a comma "--"; a text that itself contains
// "--" is not decoded to the same text.
std::string Encode_Level(std::string_view text);
std::string Decode_Level(std::string_view directory); // `directory` must satisfy Is_Run_Level
bool Is_Run_Level(std::string_view directory);

// The names of the run levels directly below `parent`, sorted.
std::vector<std::string> List_Run_Levels(const std::filesystem::path& parent);

// The run directory of a combination below the mode directory, its levels separated by backslashes as in a job file.
// `pesticide` is the name of its file.
std::string Run_Directory(std::string_view pesticide, std::string_view crop, std::string_view location);

// The levels of such a directory, and whether they are those of a run: three, none of which leads elsewhere.
std::vector<std::string_view> Split_Directory(std::string_view run_directory);
bool Is_Run_Directory(std::string_view run_directory);

// The path of such a directory, and back.
std::filesystem::path Run_Path(const std::filesystem::path& mode_directory, std::string_view run_directory);
std::string Run_Directory_Of(const std::filesystem::path& mode_directory, const std::filesystem::path& run);

// The bin of a mode holds runs at MODE/bin/NNNN/<run directory>.
constexpr std::string_view Bin_Name = "bin";

// Where a run directory lies among those of its mode; for one in the bin the place that it was taken from.
std::filesystem::path Place_In_Mode(const std::filesystem::path& run_directory);

// An input as a run's record names it. One in the bin still means the files of its mode and its installation.
std::filesystem::path Input_File(const std::filesystem::path& run_directory, const std::filesystem::path& name);

// A run directory as a user names it: "demo_D, Winter cereals, Hamburg (H)"; any other directory by its own name.
std::string Run_Title(const std::filesystem::path& directory);

// The name proposed for a picture of a run: "demo_D, Maize, Hamburg (H) - Percolate at 100 cm.png", without what no
// file name may have.
std::string Picture_Name(std::string_view run, std::string_view title);

} // namespace orvel
