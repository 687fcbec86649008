#pragma once

#include "programs/command_line.h"

namespace orvel {

// The command report of orvelctl.
void Add_Report_Command(CLI::App& app, Command& command);

} // namespace orvel
