#pragma once

#include "core/error.h"

#include <ctime>
#include <filesystem>
#include <string_view>

namespace orvel {

// How much the bins of an installation keep besides the last generations: what the user sets, in its file bin.json.
struct Bin_Rule {
    int Megabytes = 0; // of a mode's bin; 0: any number
    int Days = 0;      // since a run was put there; 0: any number
    bool operator==(const Bin_Rule&) const = default;
};

constexpr std::string_view Bin_Rule_Name = "bin.json";
constexpr int Most_Megabytes = 1'000'000, Most_Days = 3'650;

// No limit without such a file. Throws File_Error for one that is damaged or cannot be read.
Bin_Rule Read_Bin_Rule(const std::filesystem::path& app_path);
void Write_Bin_Rule(const std::filesystem::path& app_path, const Bin_Rule& rule);

// Deletes the runs that a mode's bin no longer keeps by the rule of its installation, the oldest first. The one that
// was put there last always stays. Throws File_Error for a rule that cannot be read; nothing is deleted then. What
// cannot be deleted is tried again next time.
void Empty_Bin(const std::filesystem::path& mode_directory, std::time_t now = std::time(nullptr));

} // namespace orvel
