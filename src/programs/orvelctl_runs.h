#pragma once

#include "programs/command_line.h"

namespace orvel {

// The commands mark, start, status of orvelctl.
void Add_Run_Commands(CLI::App& app, Command& command);

} // namespace orvel
