#pragma once

#include "programs/command_line.h"

namespace orvel {

// The command series of orvelctl.
void Add_Series_Command(CLI::App& app, Command& command);

} // namespace orvel
