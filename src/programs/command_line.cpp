#include "programs/command_line.h"

#include "core/code_page.h"
#include "core/error.h"
#include "core/system/program_path.h"
#include "core/system/spawn.h"

#include <CLI/CLI.hpp>

namespace orvel {

std::string Bytes_Of(const std::string& argument)
{
    const auto bytes = From_Utf8(argument);
    if (!bytes)
        throw CLI::ValidationError("'" + argument + "' holds a character that no file of this system can hold.");
    return *bytes;
}

void Check_Letters(const std::vector<std::string>& arguments)
{
    for (const auto& argument : arguments)
        Bytes_Of(argument);
}

void Add_Mode(CLI::App* command, std::string& mode)
{
    command->add_option("--mode", mode, "Regulatory mode")
        ->required()
        ->check(CLI::IsMember({"focus", "efsa", "efsa_t4"}))
        ->option_text("focus|efsa|efsa_t4");
}

int Paint(const std::vector<std::string>& arguments)
{
    const auto painter = Program_Beside("orvelpaint");
    if (!std::filesystem::exists(painter)) // a cluster's node has the command line alone
        throw File_Error("Pictures, PDF documents and workbooks are made by " + painter.string() +
                         ", which is missing. The package orvelsuite holds it.");
    const int process = Start_Program({.Program = painter,
                                       .Arguments = arguments,
                                       .Directory = std::filesystem::current_path(),
                                       .Keeps_Standard_Error = true});
    const Program_End end = Wait_For_Program(process);
    if (end.Signal != 0)
        throw File_Error("The picture or document was not made: orvelpaint was ended by signal " +
                         std::to_string(end.Signal) + ".");
    if (end.Exit_Code != 0 && end.Exit_Code != Refused)
        throw File_Error("The picture or document was not made: orvelpaint ended with " +
                         std::to_string(end.Exit_Code) + ".");
    return end.Exit_Code; // it has told why
}

} // namespace orvel
