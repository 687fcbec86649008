#pragma once

#include "runs/mode.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace orvel {

// The documents that the runs of a plan read: where they come from, and where they lie below the directory of the
// plan, which keeps one copy of each. Names are bytes of Windows-1252.

constexpr std::string_view Inputs_Name = "inputs";

// What stands before the name of an input in the orvel.inp of a run of a plan.
constexpr std::string_view Up_To_Inputs = "..\\..\\..\\inputs\\";

struct Plan_Input {
    std::filesystem::path File;
    std::string Kept; // below the inputs of the plan, parts separated by slashes
};

class Plan_Inputs {
public:
    // The documents as the user has them: those of the installation, and files as seen from the plan.
    static Plan_Inputs Of_User(const std::filesystem::path& app_path, const std::filesystem::path& plan);
    // The copies in the directory of a plan.
    static Plan_Inputs Of_Plan(const std::filesystem::path& directory);

    // Each throws File_Error if there is no such file.
    Plan_Input Pesticide(std::string_view name) const; // of the installation
    Plan_Input Of_Mode(const Mode& mode, std::string_view name) const;
    Plan_Input Named_File(std::string_view name) const;

private:
    bool Are_Kept = false; // the files lie where Kept tells
    std::filesystem::path Pesticides, Modes, Files;
};

} // namespace orvel
