#pragma once

#include "programs/command_line.h"

namespace orvel {

// What can be proven about finished runs: verify, archive, restore, reproduce, compare.
void Add_Record_Commands(CLI::App& app, Command& command);

} // namespace orvel
