#include "programs/orvelctl_results.h"

#include "core/code_page.h"
#include "core/text.h"
#include "output/echo_file.h"
#include "tables/balance_tables.h"
#include "tables/leachate_tables.h"
#include "tables/soil_concentrations.h"
#include "ui/shown_file.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

namespace orvel {

namespace {

// Prints the text that a window would show, and what the user is to know of it. Tables that end early, and all that a
// failed simulation left, are an error.
int Print_Tables(const Table_Status& status, std::string_view text)
{
    Clear_Progress();
    std::cout << To_Utf8(Replace_All(std::string(text), CrLf, "\n")) << std::flush;
    const bool failed_run = status.Failure.empty() && status.Run_Failed;
    if (failed_run)
        Tell("File check", Simulation_Failed_Text);
    else if (!status.Note().empty())
        Tell("File check", status.Note());
    const bool told = status.Note() == status.Gap && !failed_run;
    if (!status.Gap.empty() && !told)
        Tell("File check", status.Gap);
    return status.Failure.empty() && status.Gap.empty() && !failed_run && std::cout ? Done : Refused;
}

void Check_Directory(const std::string& directory)
{
    std::error_code ignored;
    if (!std::filesystem::is_directory(directory, ignored))
        throw File_Error("The directory " + directory + " does not exist.");
}

int Do_Tables(const std::string& directory)
{
    Check_Directory(directory);
    const auto tables = Build_Or_Load(directory, Shown_Progress());
    return Print_Tables(tables, tables.Year_Text + tables.Period_Text);
}

int Do_Balance(const std::string& directory, bool monthly)
{
    Check_Directory(directory);
    const auto tables =
        Build_Or_Load_Balance(directory, monthly ? Balance_View::Monthly : Balance_View::Annual, Shown_Progress());
    return Print_Tables(tables, tables.Water_Text + tables.Pesticide_Text);
}

int Do_Pecsoil(const std::string& directory, int depth)
{
    Check_Directory(directory);
    const auto soil = Build_Soil_Concentrations(directory, depth, Shown_Progress());
    return Print_Tables(soil, soil.Text);
}

int Do_Echo(const Session& session, const std::string& directory)
{
    Check_Directory(directory);
    const auto echo = Shown_Echo(session, directory); // tells why there is none
    if (!echo)
        return Refused;
    std::cout << To_Utf8(Replace_All(*echo, CrLf, "\n")) << std::flush;
    return std::cout ? Done : Refused;
}

void Add_Run_Directory(CLI::App* command, std::string& directory)
{
    command->add_option("RUNDIR", directory, "The run directory")->required();
}

void Add_Tables(CLI::App& app, Command& command)
{
    auto* tables =
        app.add_subcommand("tables", "Print a run's average concentrations in leachate, by year and by period");
    const auto directory = std::make_shared<std::string>();
    Add_Run_Directory(tables, *directory);
    tables->callback([=, &command] { command = [=](Session&) { return Do_Tables(*directory); }; });
}

void Add_Balance(CLI::App& app, Command& command)
{
    auto* balance = app.add_subcommand("balance", "Print a run's water balance and pesticide balances");
    const auto directory = std::make_shared<std::string>();
    const auto monthly = std::make_shared<bool>(false);
    Add_Run_Directory(balance, *directory);
    balance->add_flag("--monthly", *monthly, "By month, not by year");
    balance->callback([=, &command] { command = [=](Session&) { return Do_Balance(*directory, *monthly); }; });
}

void Add_Pecsoil(CLI::App& app, Command& command)
{
    auto* pecsoil =
        app.add_subcommand("pecsoil", "Print a run's concentrations in soil, actual and averaged over time");
    const auto directory = std::make_shared<std::string>();
    const auto depth = std::make_shared<int>(0);
    Add_Run_Directory(pecsoil, *directory);
    pecsoil->add_option("--depth", *depth, "Depth in layers")
        ->required()
        ->check(CLI::Range(1, 1000))
        ->option_text("LAYERS");
    pecsoil->callback([=, &command] { command = [=](Session&) { return Do_Pecsoil(*directory, *depth); }; });
}

void Add_Echo(CLI::App& app, Command& command)
{
    auto* echo = app.add_subcommand("echo", "Print the engine's echo of a run's input");
    const auto directory = std::make_shared<std::string>();
    Add_Run_Directory(echo, *directory);
    echo->callback([=, &command] { command = [=](const Session& session) { return Do_Echo(session, *directory); }; });
}

} // namespace

void Add_Result_Commands(CLI::App& app, Command& command)
{
    Add_Tables(app, command);
    Add_Balance(app, command);
    Add_Pecsoil(app, command);
    Add_Echo(app, command);
}

} // namespace orvel
