#include "programs/orvelctl_runs.h"

#include "core/code_page.h"
#include "core/system/terminal.h"
#include "jobs/input_changes.h"
#include "jobs/run_commands.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <iostream>
#include <memory>

namespace orvel {

namespace {

struct Mark_Options {
    std::string Mode, Pesticide, Crop, Location, Output;
    bool All = false, Replace = false;
    int Tillage = 0;
    double Scaling = 0;
};

// Prints messages; with --replace the question about an earlier run is answered with OK.
Ask_Function Answering(bool replace)
{
    return [replace](const Message& message) {
        if (replace && message.Buttons.size() > 1)
            return Button::Ok;
        Tell(message.Title, message.Text);
        return message.Default;
    };
}

int Do_Mark(Session& session, const Mark_Request& request, bool replace)
{
    session.Ask = Answering(replace);
    const auto runs = Mark(session, request);
    if (!runs)
        return Refused;
    for (const auto& run : *runs)
        std::cout << To_Utf8(run) << '\n';
    return std::cout.flush() ? Done : Refused;
}

void Add_Mark(CLI::App& app, Command& command)
{
    auto* mark = app.add_subcommand("mark", "Mark a combination, or all locations of a crop, for the batch");
    const auto options = std::make_shared<Mark_Options>();
    Add_Mode(mark, options->Mode);
    mark->add_option("--pesticide", options->Pesticide, "Pesticide file of the installation")
        ->required()
        ->option_text("NAME.psm");
    mark->add_option("--crop", options->Crop, "Text of the entry in the list of crops")
        ->required()
        ->option_text("TEXT");
    auto* location = mark->add_option("--location", options->Location, "Text of the entry in the list of locations")
                         ->option_text("TEXT");
    auto* all = mark->add_flag("--all", options->All, "All locations that the crop offers")->excludes(location);
    mark->add_option("--output", options->Output, "Time series, as in the last run if not given")
        ->check(CLI::IsMember({"minimum", "recommended"}))
        ->option_text("minimum|recommended");
    auto* tillage = mark->add_option("--tillage", options->Tillage, "Tillage depth, 1 to 40")->option_text("CM");
    auto* scaling =
        mark->add_option("--scaling", options->Scaling, "Added to the temperatures, -5 to 5")->option_text("VALUE");
    mark->add_flag("--replace", options->Replace, "Replace the results of an earlier run");
    mark->callback([=, &command] {
        if (location->count() + all->count() == 0)
            throw CLI::RequiredError("--location or --all");
        Mark_Request request{.Kind = Mode_Named(options->Mode)->Kind,
                             .Pesticide = Bytes_Of(options->Pesticide),
                             .Crop = Bytes_Of(options->Crop),
                             .Location = Bytes_Of(options->Location),
                             .All = options->All};
        if (!options->Output.empty())
            request.Output = options->Output == "minimum" ? Output_Option::Minimum : Output_Option::Recommended;
        if (tillage->count() > 0)
            request.Tillage = options->Tillage;
        if (scaling->count() > 0)
            request.Scaling = options->Scaling;
        command = [=](Session& session) { return Do_Mark(session, request, options->Replace); };
    });
}

int Do_Start(Session& session, const Mode& mode, const Job_Order& order, bool wait)
{
    if (!wait)
        return Start(session, mode, order) ? Done : Refused;
    // A terminal gets one line that is updated, a log a line from time to time.
    const bool terminal = Error_Is_Terminal();
    const Progress_Report report{.Tell =
                                     [terminal](const std::string& text) {
                                         std::cerr << (terminal ? "\r" : "") << text << (terminal ? "\033[K" : "\n");
                                     },
                                 .Interval = terminal ? std::chrono::milliseconds(300) : std::chrono::seconds(5)};
    if (terminal)
        session.Ask = [ask = session.Ask](const Message& message) {
            std::cerr << '\n';
            return ask(message);
        };
    const bool all_well = Start(session, mode, order, report);
    if (terminal && all_well)
        std::cerr << '\n';
    return all_well ? Done : Refused;
}

struct Start_Options {
    std::string Mode;
    Job_Order Order;
    int Limit = 0;
    bool Wait = false, Resume = false, Failed = false;
};

void Add_Start(CLI::App& app, Command& command)
{
    constexpr int Longest_Limit = 100'000'000; // seconds
    auto* start = app.add_subcommand("start", "Start the job of the pending batch, or runs of the last job again");
    const auto options = std::make_shared<Start_Options>();
    Add_Mode(start, options->Mode);
    start->add_option("--jobs", options->Order.Jobs, "Runs at a time, one per processor if not given")
        ->check(CLI::Range(1, 4096))
        ->option_text("N");
    auto* limit = start->add_option("--limit", options->Limit, "End a run that takes longer; it counts as failed")
                      ->check(CLI::Range(1, Longest_Limit))
                      ->option_text("SECONDS");
    start->add_flag("--wait", options->Wait, "Show progress and return when the job has ended");
    auto* resume = start->add_flag("--resume", options->Resume,
                                   "Run what the last job did not begin, or was cut off or stopped in");
    start->add_flag("--failed", options->Failed, "Run what failed or is incomplete in the last job")->excludes(resume);
    start->callback([=, &command] {
        Job_Order order = options->Order;
        if (limit->count() > 0)
            order.Limit = options->Limit;
        order.Selection = options->Resume   ? Job_Selection::Resume
                          : options->Failed ? Job_Selection::Failed
                                            : Job_Selection::Fresh;
        command = [=](Session& session) { return Do_Start(session, *Mode_Named(options->Mode), order, options->Wait); };
    });
}

void Add_Stop(CLI::App& app, Command& command)
{
    auto* stop = app.add_subcommand("stop", "End the job: running engines are ended, no further run starts");
    const auto mode = std::make_shared<std::string>();
    const auto wait = std::make_shared<bool>(false);
    Add_Mode(stop, *mode);
    stop->add_flag("--wait", *wait, "Return when the job has ended");
    stop->callback([=, &command] {
        command = [=](Session& session) { return Stop(session, *Mode_Named(*mode), *wait) ? Done : Refused; };
    });
}

int Do_Status(const Session& session, const Mode& mode, bool json)
{
    std::error_code error;
    if (!std::filesystem::is_directory(Mode_Directory(session.Program, mode), error) && (!error || Is_Missing(error)))
        throw File_Error("The directory " + Mode_Directory(session.Program, mode).string() + " does not exist.");
    const auto simulations = Simulation_List(Mode_Directory(session.Program, mode));
    Input_Changes changes(session.Program.App_Path);
    std::cout << (json ? Simulation_Json(simulations, changes) : To_Utf8(Simulation_Lines(simulations)));
    for (const auto& reason : changes.Unreadable())
        session.Ask({"File check", reason});
    bool readable = changes.Unreadable().empty();
    for (const auto& simulation : simulations) {
        if (simulation.State.Unreadable)
            session.Ask({"File check", simulation.State.Reason});
        readable = readable && !simulation.State.Unreadable;
    }
    return std::cout.flush() && readable ? Done : Refused;
}

void Add_Status(CLI::App& app, Command& command)
{
    auto* status = app.add_subcommand("status", "List the simulations of a mode");
    const auto mode = std::make_shared<std::string>();
    const auto json = std::make_shared<bool>(false);
    Add_Mode(status, *mode);
    status->add_flag("--json", *json, "Print the list as JSON");
    status->callback(
        [=, &command] { command = [=](Session& session) { return Do_Status(session, *Mode_Named(*mode), *json); }; });
}

} // namespace

void Add_Run_Commands(CLI::App& app, Command& command)
{
    Add_Mark(app, command);
    Add_Start(app, command);
    Add_Stop(app, command);
    Add_Status(app, command);
}

} // namespace orvel
