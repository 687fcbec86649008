#pragma once

#include "programs/command_line.h"

namespace orvel {

// The commands tables, balance, pecsoil of orvelctl.
void Add_Result_Commands(CLI::App& app, Command& command);

} // namespace orvel
