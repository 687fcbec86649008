#pragma once

#include "programs/command_line.h"

namespace orvel {

// The command single of orvelctl.
void Add_Single_Command(CLI::App& app, Command& command);

} // namespace orvel
