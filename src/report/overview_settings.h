#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace orvel {

// What the user has set for the overview, kept with the installation in the file overview.json. Texts are bytes of
// Windows-1252.

struct Location_Choice {
    std::string Name;               // of an authority, or whatever the user calls it
    std::vector<std::string> Codes; // the locations that it counts
    bool operator==(const Location_Choice&) const = default;
};

struct Overview_Settings {
    std::vector<double> Bounds = {0.001, 0.1, 1, 10}; // of the classes, ug/L, rising
    std::vector<Location_Choice> Choices;
    std::string Chosen; // the name of a choice; empty: all locations
    bool operator==(const Overview_Settings&) const = default;
};

constexpr std::string_view Overview_Settings_Name = "overview.json";

// The defaults without such a file. Throws File_Error for one that is damaged or cannot be read.
Overview_Settings Read_Overview_Settings(const std::filesystem::path& app_path);
void Write_Overview_Settings(const std::filesystem::path& app_path, const Overview_Settings& settings);

// The codes of the chosen locations; none: all.
std::vector<std::string> Chosen_Codes(const Overview_Settings& settings);

// The bounds in a text such as "0.001; 0.1; 1; 10". Throws File_Error, a sentence, for a text that is none: up to four
// positive numbers, each larger than the one before.
std::vector<double> Parse_Bounds(std::string_view text);
std::string Bounds_Text(const std::vector<double>& bounds);

} // namespace orvel
