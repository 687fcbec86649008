#pragma once

#include "programs/command_line.h"

namespace orvel {

// doctor.
void Add_Doctor_Command(CLI::App& app, Command& command);

} // namespace orvel
