#pragma once

#include "programs/command_line.h"

namespace orvel {

// The commands tables, balance, pecsoil and echo of orvelctl.
void Add_Result_Commands(CLI::App& app, Command& command);

} // namespace orvel
