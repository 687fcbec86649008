// The program without windows, for scripts, servers and tests: each command calls the rules and prints.
#include "core/error.h"
#include "core/system/arguments.h"
#include "core/system/program_path.h"
#include "core/system/signals.h"
#include "core/system/standard_channels.h"
#include "documents/documents.h"
#include "installation/lay_out.h"
#include "programs/orvelctl_doctor.h"
#include "programs/orvelctl_guidance.h"
#include "programs/orvelctl_overview.h"
#include "programs/orvelctl_plan.h"
#include "programs/orvelctl_records.h"
#include "programs/orvelctl_report.h"
#include "programs/orvelctl_results.h"
#include "programs/orvelctl_runs.h"
#include "programs/orvelctl_series.h"
#include "programs/orvelctl_single.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

namespace orvel {

namespace {

// Prints the message that the desktop program would show and answers with its default button.
Button Ask_On_Standard_Error(const Message& message)
{
    Tell(message.Title, message.Text);
    return message.Default;
}

int Run(const Command& command, const std::filesystem::path& directory, bool lays_out)
try {
    const auto session = std::make_unique<Session>();
    session->Program.App_Path = std::filesystem::absolute(directory).lexically_normal();
    session->Ask = Ask_On_Standard_Error;
    std::error_code error;
    if (std::filesystem::is_regular_file(session->Program.App_Path, error))
        throw File_Error(session->Program.App_Path.string() + " is a file, not the directory of an installation.");
    if (!std::filesystem::is_directory(session->Program.App_Path, error))
        throw File_Error(
            "The directory " + session->Program.App_Path.string() +
            (error && !Is_Missing(error) ? " cannot be read: " + error.message() + "." : " does not exist."));
    if (!lays_out)
        Refuse_Unfinished(session->Program.App_Path);
    return command(*session);
} catch (const File_Error& error) {
    std::cerr << "File check: " << error.what() << '\n';
    return Refused;
}

void Add_Init(CLI::App& app, Command& command)
{
    auto* init = app.add_subcommand("init", "Makes DIR an installation directory");
    const auto directory = std::make_shared<std::string>();
    init->add_option("DIR", *directory, "A directory that is empty or does not exist yet")->required();
    init->callback([=, &command] {
        command = [directory](Session&) {
            Lay_Out_Installation(*directory, Parts_Beside(Own_Path()));
            return Done;
        };
    });
}

void Add_Convert(CLI::App& app, Command& command)
{
    auto* convert =
        app.add_subcommand("convert", "Opens a document (.psm, .sze, .cli) and saves it, with no edit in between");
    const auto from = std::make_shared<std::string>(), to = std::make_shared<std::string>();
    convert->add_option("IN", *from, "The document to open")->required();
    convert->add_option("OUT", *to, "The file to save it to, with the same ending")->required();
    convert->callback([=, &command] {
        command = [=](Session& session) { return Convert_Document(session, *from, *to) ? Done : Refused; };
    });
}

void Add_Show(CLI::App& app, Command& command)
{
    auto* show = app.add_subcommand("show", "Prints a document (.psm, .sze, .cli) as JSON");
    const auto file = std::make_shared<std::string>();
    show->add_option("FILE", *file, "The document")->required();
    show->callback([=, &command] {
        command = [=](Session& session) {
            const auto text = Show_Document(session, *file);
            std::cout << text.value_or("") << std::flush;
            return text && std::cout ? Done : Refused;
        };
    });
}

} // namespace

} // namespace orvel

namespace orvel {

namespace {

int Do_Command_Line(int argc, char** argv)
{
    CLI::App app("ORVELSUITE without windows");
    app.allow_windows_style_options(false); // "/a/b" is a path on every system
    std::string directory = ".";
    Command command;
    app.add_option("-C", directory, "The installation directory")->option_text("DIR");
    app.require_subcommand(1);
    Add_Init(app, command);
    Add_Convert(app, command);
    Add_Show(app, command);
    Add_Guidance_Commands(app, command);
    Add_Run_Commands(app, command);
    Add_Record_Commands(app, command);
    Add_Result_Commands(app, command);
    Add_Report_Command(app, command);
    Add_Overview_Command(app, command);
    Add_Series_Command(app, command);
    Add_Single_Command(app, command);
    Add_Plan_Commands(app, command);
    Add_Doctor_Command(app, command);
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp& help) {
        return app.exit(help);
    } catch (const CLI::ParseError& error) {
        std::cerr << error.what() << "\n\n" << app.help();
        return Wrong_Command_Line;
    }
    return command ? Run(command, directory, app.got_subcommand("init")) : Wrong_Command_Line;
}

} // namespace

} // namespace orvel

int main(int argc, char** argv)
try {
    orvel::Open_Standard_Channels();
    orvel::Report_Failed_Writes();
    argv = orvel::Utf8_Arguments(argc, argv);
    const int code = orvel::Do_Command_Line(argc, argv);
    if (std::cout.flush())
        return code;
    std::cerr << "File check: Cannot write to standard output.\n";
    return orvel::Refused;
} catch (const std::filesystem::filesystem_error& error) {
    std::cerr << "File check: Cannot read " << error.path1().string() << ": " << error.code().message() << ".\n";
    return orvel::Refused;
} catch (const std::exception& error) {
    std::cerr << "File check: " << error.what() << '\n';
    return orvel::Refused;
}
