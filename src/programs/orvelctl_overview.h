#pragma once

#include "programs/command_line.h"

namespace orvel {

void Add_Overview_Command(CLI::App& app, Command& command);

} // namespace orvel
