#pragma once

#include "programs/command_line.h"

namespace orvel {

// plan: tables of many runs.
void Add_Plan_Commands(CLI::App& app, Command& command);

} // namespace orvel
