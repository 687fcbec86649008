#pragma once

#include "core/session.h"
#include "programs/console.h"

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

// An argument in bytes of Windows-1252. Throws CLI::ValidationError for a character that the code page lacks.
std::string Bytes_Of(const std::string& argument);
void Check_Letters(const std::vector<std::string>& arguments); // throws the same

// The option --mode, which a command needs.
void Add_Mode(CLI::App* command, std::string& mode);

// Runs orvelpaint with these arguments, so that orvelctl loads no GUI library; orvelpaint reports errors itself.
int Paint(const std::vector<std::string>& arguments);

} // namespace orvel
