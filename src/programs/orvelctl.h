#pragma once

#include "core/session.h"
#include "programs/console.h"

#include <CLI/CLI.hpp>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// The commands are understood first and done afterwards, with a session.

constexpr int Done = 0;
constexpr int Refused = 1;
constexpr int Wrong_Command_Line = 2;

// What the chosen command does once the command line is understood; gives the exit code.
using Command = std::function<int(Session&)>;

// A word of the command line in bytes of Windows-1252. Throws CLI::ValidationError for one that these lack.
std::string Bytes_Of(const std::string& word);

// The option --mode, which a command needs.
void Add_Mode(CLI::App* command, std::string& mode);

// Runs orvelpaint with these arguments, so that orvelctl loads no GUI library; orvelpaint reports errors itself.
int Paint(const std::vector<std::string>& arguments);

// tables, balance, pecsoil
void Add_Result_Commands(CLI::App& app, Command& command);

// report
void Add_Report_Command(CLI::App& app, Command& command);

// mark, start, status
void Add_Run_Commands(CLI::App& app, Command& command);

// single
void Add_Single_Command(CLI::App& app, Command& command);

// series
void Add_Series_Command(CLI::App& app, Command& command);

} // namespace orvel
