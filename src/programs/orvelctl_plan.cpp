#include "programs/orvelctl_plan.h"

#include "core/code_page.h"
#include "core/error.h"
#include "core/system/program_path.h"
#include "core/system/signals.h"
#include "core/system/terminal.h"
#include "core/text.h"
#include "core/write_from.h"
#include "plans/plan_results.h"
#include "plans/results_file.h"
#include "plans/slurm.h"
#include "plans/start_plan.h"
#include "plans/sweep.h"
#include "runs/start_up.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

namespace orvel {

namespace {

constexpr std::string_view Plan_Title = "Plan";

struct Run_Arguments {
    std::string Plan, Directory, Part, Keep = "tables";
    int Jobs = 0, Limit = 0, Held = -1, Patience = 0;
    bool Slurm = false, Wait = false;
    int Tasks = 0, Minutes = 0;
};

// "2/4"; nothing for any other text.
std::optional<Plan_Part> Part_Of(const std::string& text)
{
    constexpr std::size_t Most_Parts = 100000, Most_Digits = 6;
    const auto number = [](std::string_view digits) {
        const bool plain = !digits.empty() && digits.size() <= Most_Digits &&
                           digits.find_first_not_of("0123456789") == std::string_view::npos;
        return plain ? static_cast<std::size_t>(Val(digits)) : 0;
    };
    const auto slash = text.find('/');
    if (slash == std::string::npos)
        return std::nullopt;
    const Plan_Part part{number(std::string_view(text).substr(0, slash)),
                         number(std::string_view(text).substr(slash + 1))};
    const bool valid = part.Number >= 1 && part.Number <= part.Of && part.Of <= Most_Parts;
    return valid ? std::optional(part) : std::nullopt;
}

Plan_Order Order_Of(const Run_Arguments& arguments)
{
    Plan_Order order{.Plan = arguments.Plan,
                     .Directory = std::filesystem::absolute(arguments.Directory).lexically_normal(),
                     .Jobs = arguments.Jobs,
                     .Part = Part_Of(arguments.Part).value_or(Plan_Part()),
                     .Keep = *Keep_Named(arguments.Keep)};
    if (arguments.Limit > 0)
        order.Limit = arguments.Limit;
    if (!order.Directory.has_filename())
        order.Directory = order.Directory.parent_path();
    return order;
}

int Tell_Faults(const Plan_Faults& faults)
{
    for (const auto& fault : faults.First)
        Tell(Plan_Title, To_Code_Page(fault.what()));
    if (faults.Count > faults.First.size())
        Tell(Plan_Title, std::to_string(faults.Count - faults.First.size()) + " more rows are wrong.");
    return Refused;
}

// Shows how far the plan is: where a person can see it at each step, else once in a while.
class Shown_Plan {
public:
    void operator()(const Plan_Progress& now)
    {
        const bool is_terminal = Error_Is_Terminal();
        const auto time = Clock::now();
        if (now.Ended == Last_Ended || (!is_terminal && time < Next))
            return;
        Last_Ended = now.Ended;
        Next = time + std::chrono::seconds(5);
        std::cerr << (is_terminal ? "\r" : "") << now.Complete << " of " << now.Runs << " runs complete"
                  << Failed_Text(now) << Left_Text(now, time) << (is_terminal ? "\033[K" : "\n") << std::flush;
    }

private:
    using Clock = std::chrono::steady_clock;

    static std::string Failed_Text(const Plan_Progress& now)
    {
        return now.Failed > 0 ? ", " + std::to_string(now.Failed) + " failed" : "";
    }

    std::string Left_Text(const Plan_Progress& now, Clock::time_point time) const
    {
        const double minutes = std::chrono::duration<double, std::ratio<60>>(time - Begun).count();
        const auto left = static_cast<double>(now.Runs - std::min(now.Runs, now.Complete + now.Failed));
        return now.Ended == 0 || left == 0
                   ? ""
                   : ", " + Format_Pattern(minutes / static_cast<double>(now.Ended) * left, "0") + " min left";
    }

    Clock::time_point Begun = Clock::now(), Next;
    std::size_t Last_Ended = 0;
};

int Run_And_Wait(const Session& session, const Plan_Order& order, const Plan_Record& record)
{
    Notice_When_Stopped(); // engines do not stay behind
    const auto shown = std::make_shared<Shown_Plan>();
    const Plan_Progress done =
        Run_Plan(session.Program, order, record,
                 {.Progress = [shown](const Plan_Progress& now) { (*shown)(now); },
                  .Told = [](const std::string& sentence) { Tell(Plan_Title, To_Code_Page(sentence)); }});
    Clear_Progress();
    std::cerr << done.Complete << " of " << done.Runs << " runs are complete.\n";
    if (done.Complete == done.Runs)
        return Done;
    Tell(Plan_Title, done.Failed > 0 ? std::to_string(done.Failed) + " runs have failed."
                                     : "The plan was stopped. Run it again to go on.");
    return Refused;
}

// What a plan came to whose tasks have ended, by its directory.
int Tell_End(const std::filesystem::path& directory)
{
    const Plan_Status status = Status_Of_Plan(directory);
    std::cerr << Status_Text(status);
    if (status.Of(Verdict::Complete) == status.Runs)
        return Done;
    Tell(Plan_Title, "Not all runs are complete. What the tasks told is in slurm-1.log and so on; run the plan again "
                     "to go on.");
    return Refused;
}

int Run_By_Slurm(const Session& session, const Plan_Order& order, const Run_Arguments& arguments)
{
    Slurm_Order slurm{.Tasks = static_cast<std::size_t>(arguments.Tasks)};
    if (arguments.Minutes > 0)
        slurm.Minutes = arguments.Minutes;
    const Slurm_Job job = Submit_Plan(session.Program, order, slurm, Own_Path());
    std::cout << Job_Text(job, slurm.Tasks) << std::endl; // before the wait
    if (!arguments.Wait)
        return Done;
    Wait_For_Job(order.Directory, job);
    return Tell_End(order.Directory);
}

int Do_Run(Session& session, const Run_Arguments& arguments)
try {
    Find_Engine(session.Program);
    const Plan_Order order = Order_Of(arguments);
    if (arguments.Held >= 0) {
        const Lock held = Lock::Adopt(arguments.Held);
        const auto record = Read_Plan_Record(order.Directory);
        return record ? Run_And_Wait(session, order, *record) : Refused;
    }
    if (arguments.Slurm)
        return Run_By_Slurm(session, order, arguments);
    const Held_Plan held =
        Hold_Plan(session.Program, order.Plan, order.Directory, order.Part, std::chrono::seconds(arguments.Patience));
    if (arguments.Wait)
        return Run_And_Wait(session, order, held.Record);
    Start_Plan(session.Program, order, held, Own_Path()); // goes on without the terminal
    return Done;
} catch (const Plan_Faults& faults) {
    return Tell_Faults(faults);
} catch (const File_Error& error) {
    Tell(Plan_Title, To_Code_Page(error.what()));
    return Refused;
}

void Add_Run(CLI::App* plan, Command& command)
{
    auto* run = plan->add_subcommand("run", "Run what is not yet complete; again after any stop, kill or power cut");
    const auto arguments = std::make_shared<Run_Arguments>();
    run->add_option("PLAN.csv", arguments->Plan, "The plan: a row a run")->required();
    run->add_option("--to", arguments->Directory, "The directory of its runs, new, empty or of this plan")
        ->required()
        ->option_text("DIR");
    run->add_option("--jobs", arguments->Jobs, "Runs at a time, one a processor if not given")
        ->check(CLI::Range(1, 1000))
        ->option_text("N");
    auto* part = run->add_option("--part", arguments->Part, "Only part I of N; the parts share the directory")
                     ->check([](const std::string& text) {
                         return Part_Of(text) ? std::string() : "'" + text + "' is no part: 1/4 to 4/4 are four";
                     })
                     ->option_text("I/N");
    run->add_option("--keep", arguments->Keep,
                    "What stays of a run: its record and results, its tables too (if not given), or all files")
        ->check(CLI::IsMember({"records", "tables", "all"}))
        ->option_text("records|tables|all");
    run->add_option("--limit", arguments->Limit, "End a run that takes longer")
        ->check(CLI::Range(1, 100000000))
        ->option_text("SECONDS");
    run->add_option("--patience", arguments->Patience,
                    "Give a run at work on the same part so long to end, at once refused if not given")
        ->check(CLI::Range(1, 100000000))
        ->option_text("SECONDS");
    auto* slurm = run->add_flag("--slurm", arguments->Slurm, "Hand it to a Slurm cluster, as an array of N parts")
                      ->excludes(part);
    auto* tasks = run->add_option("--tasks", arguments->Tasks, "The parts of the plan on the cluster")
                      ->check(CLI::Range(1, Most_Slurm_Tasks))
                      ->option_text("N")
                      ->needs(slurm);
    slurm->needs(tasks);
    run->add_option("--time", arguments->Minutes, "What a task may take on the cluster, its default if not given")
        ->check(CLI::Range(1, 100000000))
        ->option_text("MINUTES")
        ->needs(slurm);
    run->add_flag("--wait", arguments->Wait, "Show progress and return when the plan has ended");
    run->add_option("--held", arguments->Held)->group(""); // of this program itself
    run->callback([=, &command] { command = [=](Session& session) { return Do_Run(session, *arguments); }; });
}

void Add_Status(CLI::App* plan, Command& command)
{
    auto* status = plan->add_subcommand("status", "How many runs are complete, failed or left, and the time left");
    const auto directory = std::make_shared<std::string>();
    const auto json = std::make_shared<bool>(false);
    status->add_option("DIR", *directory, "The directory of a plan")->required();
    status->add_flag("--json", *json, "Print it as JSON");
    status->callback([=, &command] {
        command = [=](Session&) {
            const Plan_Status found = Status_Of_Plan(*directory);
            std::cout << (*json ? Status_Json(found) : Status_Text(found));
            return Done;
        };
    });
}

// Prints to a file, which is written whole, or to standard output if none is named.
void Print_To(const std::string& file, const std::function<void(const Print_Text_To&)>& print)
{
    if (file.empty())
        print([](std::string_view text) { std::cout << text; });
    else
        Write_Whole_Printed(file, print);
}

int Do_Results(const std::string& directory, const std::string& file, bool with_seconds)
{
    if (!file.empty() && Is_Results_Book(file))
        return Paint({"plan", directory, with_seconds ? "1" : "0", file});
    Print_To(file, [&](const Print_Text_To& print) { Print_Results(directory, with_seconds, print); });
    return Done;
}

void Add_Results(CLI::App* plan, Command& command)
{
    auto* results = plan->add_subcommand("results", "One line a run and substance, in the order of the plan");
    const auto directory = std::make_shared<std::string>(), file = std::make_shared<std::string>();
    const auto seconds = std::make_shared<bool>(false);
    results->add_option("DIR", *directory, "The directory of a plan")->required();
    results->add_option("--to", *file, "Write them to a file (.csv or .xlsx)")->option_text("FILE");
    results->add_flag("--seconds", *seconds, "Fill the column of the seconds that each run took");
    results->callback([=, &command] { command = [=](Session&) { return Do_Results(*directory, *file, *seconds); }; });
}

struct Sweep_Arguments {
    std::string Mode, Pesticide, Crop, Location, Shift, File;
    std::vector<std::string> Factors;
};

int Do_Sweep(const Session& session, const Sweep_Arguments& arguments)
try {
    if (!arguments.File.empty() && !Lower(arguments.File).ends_with(".csv"))
        throw File_Error("A plan is written as .csv.");
    Sweep_Order order{.Mode = Mode_Named(arguments.Mode),
                      .Pesticide = Bytes_Of(arguments.Pesticide),
                      .Crop = Bytes_Of(arguments.Crop),
                      .Location = Bytes_Of(arguments.Location)};
    if (!arguments.Shift.empty())
        order.Shifts = Parse_Shifts(arguments.Shift);
    for (const auto& factor : arguments.Factors)
        order.Factors.push_back(Parse_Factor(Bytes_Of(factor)));
    Print_To(arguments.File, [&](const Print_Text_To& print) { Print_Sweep(session.Program, order, print); });
    return Done;
} catch (const File_Error& error) {
    Tell(Plan_Title, To_Code_Page(error.what()));
    return Refused;
}

void Add_Sweep(CLI::App* plan, Command& command)
{
    auto* sweep = plan->add_subcommand("sweep", "Write a plan: every combination of shifts and factors of one run");
    const auto arguments = std::make_shared<Sweep_Arguments>();
    Add_Mode(sweep, arguments->Mode);
    sweep->add_option("--pesticide", arguments->Pesticide, "Pesticide file of the installation")
        ->required()
        ->option_text("FILE");
    sweep->add_option("--crop", arguments->Crop, "Text of the list entry")->required()->option_text("TEXT");
    sweep->add_option("--location", arguments->Location, "Text of the list entry")->required()->option_text("TEXT");
    sweep->add_option("--shift", arguments->Shift, "Move all applications by days: -14:14:7 by -14, -7, 0, 7 and 14")
        ->option_text("FROM:TO:STEP");
    sweep
        ->add_option("--factor", arguments->Factors,
                     "Multiply a field: psm.Koc[1]=0.5,1,2; the keys are those that show prints")
        ->option_text("FIELD=FACTOR,...");
    sweep->add_option("--to", arguments->File, "Write the plan to a file (.csv)")->option_text("FILE");
    sweep->callback([=, &command] {
        Check_Letters({arguments->Pesticide, arguments->Crop, arguments->Location});
        Check_Letters(arguments->Factors);
        command = [=](const Session& session) { return Do_Sweep(session, *arguments); };
    });
}

} // namespace

void Add_Plan_Commands(CLI::App& app, Command& command)
{
    auto* plan = app.add_subcommand("plan", "Tables of many runs");
    plan->require_subcommand(1);
    Add_Run(plan, command);
    Add_Status(plan, command);
    Add_Results(plan, command);
    Add_Sweep(plan, command);
}

} // namespace orvel
