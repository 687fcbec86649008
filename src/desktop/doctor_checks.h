#pragma once

#include "core/session.h"
#include "desktop/finding.h"

#include <cstdint>
#include <filesystem>

namespace orvel {

// The parts of Examine. Each gives one finding or more, and may throw File_Error or std::filesystem::filesystem_error.

using Findings = std::vector<Finding>;

Findings Examine_Directories(const Program_State& program); // that they are there, rights, links to others
Findings Examine_Locks(const Program_State& program);
Findings Examine_Space(const Program_State& program);
Findings Examine_Engine(const Program_State& program); // found, its kind, whether it starts, accepted
Findings Examine_Programs(const Program_State& program);
Findings Examine_Names(const Program_State& program); // of files, and whether they keep their bytes
Findings Examine_Computer(const Program_State& program);
Findings Examine_Caches(const Program_State& program);
Findings Examine_Templates(const Program_State& program);      // what the installation was laid out with
Findings Examine_Documents(const Program_State& program);      // whether they can be read
Findings Examine_Unsaved_Copies(const Program_State& program); // whether this user can keep them

// How much free space is enough, and which locale, "" for none.
Finding Judge_Space(const std::string& directory, std::uintmax_t available);
Finding Judge_Locale(const std::string& name);

// The directory of the installation and those of its modes that are there.
std::vector<std::filesystem::path> Directories_Of(const Program_State& program);

// "H_01.cli, H_02.cli, H_03.cli and 4 others"
std::string Some_Of(const std::vector<std::string>& names);

} // namespace orvel
