#pragma once

#include "programs/command_line.h"

namespace orvel {

// What can be proven about finished runs: verify, compare.
void Add_Record_Commands(CLI::App& app, Command& command);

} // namespace orvel
