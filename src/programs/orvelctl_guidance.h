#pragma once

#include "programs/command_line.h"

namespace orvel {

// check and sheet: a pesticide document with the notes beside it.
void Add_Guidance_Commands(CLI::App& app, Command& command);

} // namespace orvel
