#include "programs/orvelctl_single.h"

#include "files/scenario_file.h"
#include "jobs/single_run_archive.h"
#include "jobs/single_run_start.h"
#include "output/echo_file.h"
#include "output/run_outputs.h"
#include "output/run_state.h"
#include "runs/start_up.h"

#include "core/files.h"
#include "core/named_input.h"
#include "core/text.h"

#include <chrono>
#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>
#include <thread>

namespace orvel {

namespace {

struct Single_Options {
    std::string Pesticide, Scenario, From = "01.01", To = "31.12";
    std::vector<std::string> Climates;
    int Years = 1;
    bool Wait = false;
};

// "DD.MM" as the text of the day and the list index of the month, -1 if there is none.
void Take_Date(const std::string& text, std::string& day, int& month_index)
{
    const auto point = text.find('.');
    day = text.substr(0, point);
    const double month = point == std::string::npos ? 0 : Val(std::string_view(text).substr(point + 1));
    month_index = month >= 1 && month <= 12 ? static_cast<int>(month) - 1 : -1;
}

Single_Run_Entry Entry_Of(const Single_Options& options)
{
    Single_Run_Entry entry{.Pesticide = Bytes_Of(options.Pesticide),
                           .Scenario = Bytes_Of(options.Scenario),
                           .Years = std::to_string(options.Years)};
    for (const std::string& climate : options.Climates)
        entry.Climates.push_back(Bytes_Of(climate));
    Take_Date(options.From, entry.Start_Day, entry.Start_Month_Index);
    Take_Date(options.To, entry.End_Day, entry.End_Month_Index);
    return entry;
}

int Wait_For_End(const std::filesystem::path& directory, int years)
{
    constexpr std::chrono::milliseconds Pause(200);
    std::string printed;
    for (auto state = State_Of_Single_Run(directory, years); state.Running;
         state = State_Of_Single_Run(directory, years)) {
        if (state.Text != printed)
            std::cerr << (printed = state.Text) << '\n';
        std::this_thread::sleep_for(Pause);
    }
    const Run_State ended = State_Of_Run(directory);
    if (ended.Verdict == Verdict::Complete)
        return Done;
    const bool begun = Find_File(directory, "echo.orv").has_value();
    Tell("File check", !begun                         ? "The engine left no echo of its input."
                       : Simulation_Failed(directory) ? std::string(Simulation_Failed_Text)
                                                      : ended.Reason);
    return Refused;
}

// Runs in the current directory with the installation's engine. Earlier output is moved to an archive first.
int Do_Single(Session& session, const Single_Options& options)
{
    const auto directory = std::filesystem::current_path();
    const Single_Run_Entry entry = Entry_Of(options);
    Find_Engine(session.Program);
    if (Find_File(directory, Path_Of(entry.Scenario)) &&
        !Read_SZE(session, Found_Or_New(directory, Path_Of(entry.Scenario))))
        return Refused;
    if (const auto refusal = Check_Single_Run(directory, entry, session.Scenario.SZE_Horizons.Number())) {
        session.Ask(refusal->Text);
        return Refused;
    }
    std::vector<std::string> inputs = entry.Climates;
    inputs.insert(inputs.begin(), {entry.Pesticide, entry.Scenario});
    for (const std::string& input : inputs) { // before any output is moved
        if (!Named_Input(directory, input)) {
            Tell("File check", "The input " + input + " is missing.");
            return Refused;
        }
    }
    if (Has_Output(directory) && Find_File(directory, "orvel.inp")) {
        const std::string archive = Free_Archive_Name(directory);
        if (!Archive_Run(session.Ask, directory, archive))
            return Refused;
        std::cerr << "Earlier output is in " << archive << ".\n";
    }
    if (!Start_Single_Run(session, directory, entry))
        return Refused;
    return options.Wait ? Wait_For_End(directory, options.Years) : Done;
}

} // namespace

void Add_Single_Command(CLI::App& app, Command& command)
{
    auto* single = app.add_subcommand("single", "Run one simulation in the current directory");
    const auto options = std::make_shared<Single_Options>();
    single->add_option("--pesticide", options->Pesticide, "Pesticide file in the current directory")
        ->required()
        ->option_text("FILE");
    single->add_option("--scenario", options->Scenario, "Scenario file")->required()->option_text("FILE");
    single->add_option("--climate", options->Climates, "One file a year; the last one stands for the years beyond")
        ->required()
        ->delimiter(',')
        ->option_text("FILE[,FILE...]");
    single->add_option("--years", options->Years, "Simulated years")
        ->required()
        ->check(CLI::Range(1, Most_Years))
        ->option_text("N");
    single->add_option("--from", options->From, "First day")->option_text("DD.MM");
    single->add_option("--to", options->To, "Last day")->option_text("DD.MM");
    single->add_flag("--wait", options->Wait, "Show progress and return when the run has ended");
    single->callback([=, &command] { command = [=](Session& session) { return Do_Single(session, *options); }; });
}

} // namespace orvel
