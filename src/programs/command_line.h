#pragma once

#include "core/progress.h"
#include "core/session.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace CLI {
class App;
}

namespace orvel {

// What the commands of orvelctl share. A command is understood first and done afterwards, with a session.

constexpr int Done = 0;
constexpr int Refused = 1;
constexpr int Wrong_Command_Line = 2;

// What the chosen command does once the command line is understood; gives the exit code.
using Command = std::function<int(Session&)>;

// Prints a message, bytes of Windows-1252, on standard error.
void Tell(std::string_view title, std::string_view text);

// An argument in bytes of Windows-1252. Throws CLI::ValidationError for a character that the code page lacks.
std::string Bytes_Of(const std::string& argument);

// The option --mode, which a command needs.
void Add_Mode(CLI::App* command, std::string& mode);

// Progress on standard error, if that is a terminal, and removing it again.
Progress Shown_Progress();
void Clear_Progress();

// Runs orvelpaint with these arguments, so that orvelctl loads no GUI library; orvelpaint reports errors itself.
int Paint(const std::vector<std::string>& arguments);

} // namespace orvel
