#include "programs/command_line.h"

#include "core/code_page.h"
#include "core/system/program_path.h"
#include "core/system/spawn.h"
#include "core/system/terminal.h"

#include <CLI/CLI.hpp>
#include <iostream>

namespace orvel {

void Tell(std::string_view title, std::string_view text)
{
    std::cerr << To_Utf8(title) << ": " << To_Utf8(text) << '\n';
}

std::string Bytes_Of(const std::string& argument)
{
    const auto bytes = From_Utf8(argument);
    if (!bytes)
        throw CLI::ValidationError("'" + argument + "' holds a character that no file of this system can hold.");
    return *bytes;
}

void Add_Mode(CLI::App* command, std::string& mode)
{
    command->add_option("--mode", mode)
        ->required()
        ->check(CLI::IsMember({"focus", "efsa", "efsa_t4"}))
        ->option_text("focus|efsa|efsa_t4");
}

Progress Shown_Progress()
{
    if (!Error_Is_Terminal())
        return {};
    return [](const std::string& message, double) {
        std::cerr << '\r' << message << "\033[K" << std::flush;
        return true;
    };
}

void Clear_Progress()
{
    if (Error_Is_Terminal())
        std::cerr << "\r\033[K" << std::flush;
}

int Paint(const std::vector<std::string>& arguments)
{
    const int process = Start_Program({.Program = Program_Beside("orvelpaint"),
                                       .Arguments = arguments,
                                       .Directory = std::filesystem::current_path()});
    const Program_End end = Wait_For_Program(process);
    return end.Signal == 0 && end.Exit_Code == 0 ? Done : Refused;
}

} // namespace orvel
