#include "programs/orvelctl_records.h"

#include "core/code_page.h"
#include "jobs/job_status.h"
#include "records/compare.h"
#include "records/verify.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

namespace orvel {

namespace {

// A line a run; whether all are as their records say.
int Do_Verify(const Session& session, const std::vector<std::filesystem::path>& runs)
{
    Verifier verifier(session.Program.App_Path);
    bool all_ok = true;
    for (const auto& run : runs) {
        const Verified_Run verified = verifier.Verify(run);
        all_ok = all_ok && verified.Result == Check::Ok;
        std::cout << Check_Text(verified.Result) << '\t' << run.string() << '\t' << To_Utf8(verified.Detail) << '\n';
    }
    return std::cout.flush() && all_ok ? Done : Refused;
}

void Add_Verify(CLI::App& app, Command& command)
{
    auto* verify =
        app.add_subcommand("verify", "Compare runs with their records: a line a run, VERDICT, directory, detail");
    const auto mode = std::make_shared<std::string>();
    const auto runs = std::make_shared<std::vector<std::string>>();
    auto* directories = verify->add_option("RUNDIR", *runs, "Run directories");
    auto* all = verify->add_option("--mode", *mode, "All runs of a mode")
                    ->check(CLI::IsMember({"focus", "efsa", "efsa_t4"}))
                    ->option_text("focus|efsa|efsa_t4")
                    ->excludes(directories);
    verify->callback([=, &command] {
        if (directories->count() + all->count() == 0)
            throw CLI::RequiredError("RUNDIR or --mode");
        command = [=](const Session& session) {
            std::vector<std::filesystem::path> paths(runs->begin(), runs->end());
            if (!mode->empty()) {
                for (const auto& simulation : Simulation_List(Mode_Directory(session.Program, *Mode_Named(*mode))))
                    paths.push_back(simulation.Directory);
            }
            return Do_Verify(session, paths);
        };
    });
}

int Do_Compare(const std::string& first, const std::string& second, double tolerance, bool json)
{
    const Comparison comparison = Compare(first, second, tolerance, Shown_Progress());
    Clear_Progress();
    std::cout << (json ? Comparison_Json(comparison) : To_Utf8(Comparison_Lines(comparison)));
    return std::cout.flush() && comparison.Is_Same() ? Done : Refused;
}

void Add_Tolerance(CLI::App* command, double& tolerance)
{
    command->add_option("--tolerance", tolerance, "Numbers are the same within this share of the first: 0.01")
        ->check(CLI::NonNegativeNumber)
        ->option_text("R");
}

void Add_Compare(CLI::App& app, Command& command)
{
    auto* compare =
        app.add_subcommand("compare", "What differs between two documents, run directories or installations");
    const auto first = std::make_shared<std::string>(), second = std::make_shared<std::string>();
    const auto tolerance = std::make_shared<double>(0);
    const auto json = std::make_shared<bool>(false);
    compare->add_option("A", *first, "A document, run directory or installation")->required();
    compare->add_option("B", *second, "Another one of its kind")->required();
    Add_Tolerance(compare, *tolerance);
    compare->add_flag("--json", *json, "Print fields and figures as JSON");
    compare->callback(
        [=, &command] { command = [=](Session&) { return Do_Compare(*first, *second, *tolerance, *json); }; });
}

} // namespace

void Add_Record_Commands(CLI::App& app, Command& command)
{
    Add_Verify(app, command);
    Add_Compare(app, command);
}

} // namespace orvel
