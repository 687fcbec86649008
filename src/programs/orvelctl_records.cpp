#include "programs/orvelctl_records.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/system/signals.h"
#include "core/writable.h"
#include "jobs/job_status.h"
#include "records/accept.h"
#include "records/archive.h"
#include "records/compare.h"
#include "records/reproduce.h"
#include "records/restore.h"
#include "records/verify.h"
#include "runs/start_up.h"

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
        std::cout << Verified_Line(verified, run);
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

struct Archive_Arguments {
    std::string Mode, Stem, Crop, File; // as they stand on the command line, in UTF-8
};

int Do_Archive(Session& session, const Archive_Arguments& arguments)
{
    Find_Engine(session.Program);
    const auto archived = Make_Archive(session, *Mode_Named(arguments.Mode), Bytes_Of(arguments.Stem),
                                       Bytes_Of(arguments.Crop), arguments.File, Shown_Progress());
    Clear_Progress();
    for (const auto& note : archived.Notes)
        Tell("Archive", note);
    return archived.Notes.empty() ? Done : Refused;
}

void Add_Archive(CLI::App& app, Command& command)
{
    auto* archive = app.add_subcommand(
        "archive", "Put the simulations of a pesticide into one file: inputs, records, outputs, engine and report");
    const auto arguments = std::make_shared<Archive_Arguments>();
    Add_Mode(archive, arguments->Mode);
    archive->add_option("--pesticide", arguments->Stem, "Name of the pesticide file without its ending")
        ->required()
        ->option_text("STEM");
    archive->add_option("--crop", arguments->Crop, "A crop, all if not given")->option_text("TEXT");
    archive->add_option("--to", arguments->File, "The archive to write")->required()->option_text("F.zip");
    archive->callback([=, &command] {
        Check_Letters({arguments->Stem, arguments->Crop});
        command = [=](Session& session) { return Do_Archive(session, *arguments); };
    });
}

// A line a run, as verify prints it.
int Do_Restore(const std::string& archive, const std::string& directory)
{
    const auto restored = Restore(archive, directory, Shown_Progress());
    Clear_Progress();
    std::cout << Restored_Lines(restored);
    if (restored.Is_Ok())
        return std::cout.flush() ? Done : Refused;
    Tell("Restore", Not_All_Ok_Text);
    return Refused;
}

void Add_Restore(CLI::App& app, Command& command)
{
    auto* restore = app.add_subcommand("restore", "Lay out an archive again, replacing nothing, and verify its runs");
    const auto archive = std::make_shared<std::string>(), directory = std::make_shared<std::string>();
    restore->add_option("F.zip", *archive, "The archive")->required();
    restore->add_option("DIR", *directory, "A new or empty directory, or an installation")->required();
    restore->callback([=, &command] { command = [=](Session&) { return Do_Restore(*archive, *directory); }; });
}

int Do_Compare(const std::string& first, const std::string& second, double tolerance, bool json)
{
    const Comparison comparison = Compare(first, second, tolerance, Shown_Progress());
    Clear_Progress();
    std::cout << (json ? Comparison_Json(comparison) : To_Utf8(Comparison_Lines(comparison)));
    if (comparison.Is_Same())
        return std::cout.flush() ? Done : Refused;
    Tell("Compare", "They differ.");
    return Refused;
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
        app.add_subcommand("compare", "What differs between two documents, run directories, archives or installations");
    const auto first = std::make_shared<std::string>(), second = std::make_shared<std::string>();
    const auto tolerance = std::make_shared<double>(0);
    const auto json = std::make_shared<bool>(false);
    compare->add_option("A", *first, "A document, run directory, archive or installation")->required();
    compare->add_option("B", *second, "Another one of its kind")->required();
    Add_Tolerance(compare, *tolerance);
    compare->add_flag("--json", *json, "Print fields and figures as JSON");
    compare->callback(
        [=, &command] { command = [=](Session&) { return Do_Compare(*first, *second, *tolerance, *json); }; });
}

struct Reproduce_Arguments {
    std::string File, Engine;
    double Tolerance = 0;
    bool Json = false;
};

int Do_Reproduce(const Session& session, const Reproduce_Arguments& arguments)
{
    Notice_When_Stopped(); // engines and temporary files do not stay behind
    const auto reproduction = Reproduce({.Archive = arguments.File,
                                         .Engine = arguments.Engine,
                                         .App_Path = session.Program.App_Path,
                                         .Tolerance = arguments.Tolerance},
                                        Shown_Progress());
    Clear_Progress();
    std::cout << (arguments.Json ? Reproduction_Json(reproduction) : To_Utf8(Reproduction_Lines(reproduction)));
    if (reproduction.Is_Same())
        return std::cout.flush() ? Done : Refused;
    Tell("Reproduce", "Not all simulations came out as they were archived.");
    return Refused;
}

void Add_Reproduce(CLI::App& app, Command& command)
{
    auto* reproduce =
        app.add_subcommand("reproduce", "Run the inputs of an archive again and compare outputs and percentiles");
    const auto arguments = std::make_shared<Reproduce_Arguments>();
    reproduce->add_option("F.zip", arguments->File, "The archive")->required();
    reproduce
        ->add_option("--engine", arguments->Engine,
                     "The engine to run, that of the installation if not given; the one of the archive is never run")
        ->option_text("FILE");
    Add_Tolerance(reproduce, arguments->Tolerance);
    reproduce->add_flag("--json", arguments->Json, "Print runs and figures as JSON");
    reproduce->callback(
        [=, &command] { command = [=](const Session& session) { return Do_Reproduce(session, *arguments); }; });
}

struct Accept_Arguments {
    std::string Engine, Expected, Save;
};

// What came out is saved also if it is not what was expected.
int Do_Accept(const Session& session, const Accept_Arguments& arguments)
{
    Notice_When_Stopped(); // engines and temporary files do not stay behind
    const auto& app_path = session.Program.App_Path;
    if (!arguments.Save.empty())
        Check_Writable(arguments.Save); // the runs take minutes
    const Trial trial = Try_Engine({.App_Path = app_path, .Engine = arguments.Engine, .Expected = arguments.Expected},
                                   Shown_Progress());
    Clear_Progress();
    std::cout << Trial_Text(trial);
    if (!arguments.Save.empty())
        Write_Whole(arguments.Save, Format_Expected(trial.Obtained));
    Note_Trial(app_path, trial);
    if (trial.Is_Accepted())
        return std::cout.flush() ? Done : Refused;
    Tell("Acceptance", "The engine is not accepted.");
    return Refused;
}

void Add_Accept(CLI::App& app, Command& command)
{
    auto* accept = app.add_subcommand(
        "accept", "Run the reference substances and compare with what is expected; the installation keeps the result");
    const auto arguments = std::make_shared<Accept_Arguments>();
    accept->add_option("--engine", arguments->Engine, "The engine to try, that of the installation if not given")
        ->option_text("FILE");
    accept
        ->add_option("--expected", arguments->Expected,
                     "What is expected of which simulations, expected.csv of the installation if not given")
        ->option_text("F.csv");
    accept->add_option("--save", arguments->Save, "Write what came out, as a table of what to expect")
        ->option_text("F.csv");
    accept->callback(
        [=, &command] { command = [=](const Session& session) { return Do_Accept(session, *arguments); }; });
}

} // namespace

void Add_Record_Commands(CLI::App& app, Command& command)
{
    Add_Verify(app, command);
    Add_Archive(app, command);
    Add_Restore(app, command);
    Add_Reproduce(app, command);
    Add_Compare(app, command);
    Add_Accept(app, command);
}

} // namespace orvel
