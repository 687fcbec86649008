#include "records/reproduce.h"

#include "core/code_page.h"
#include "core/error.h"
#include "core/files.h"
#include "core/sha256.h"
#include "core/system/processors.h"
#include "core/text.h"
#include "jobs/engines.h"
#include "jobs/job.h"
#include "output/run_files.h"
#include "output/run_outputs.h"
#include "records/archive_reader.h"
#include "records/unpacked_archive.h"
#include "runs/run_place.h"

#include <algorithm>
#include <map>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr double Share_Of_Layout = 0.1; // of the work

// What an engine left, or what lies beside its files and is not read by it.
bool Is_Input(const Recorded_File& file)
{
    const fs::path name = Path_Of(file.Name).filename();
    return !Matches(name.string(), "*.orv") && name != Run_Record_Name && !Matches(name.string(), "*.exe") &&
           !Matches(name.string(), "*.html");
}

void Check_Engine(const fs::path& engine)
{
    std::error_code error;
    if (!fs::is_regular_file(engine, error))
        throw File_Error("The engine " + engine.string() +
                         " is missing. The one of the archive is not run; another can be named.");
    constexpr auto May_Run = fs::perms::owner_exec | fs::perms::group_exec | fs::perms::others_exec;
    const bool may_run = (fs::status(engine, error).permissions() & May_Run) != fs::perms::none;
    if (!may_run && Read_Head(engine, 2) != "MZ") // a Windows program needs no such right
        throw File_Error("The engine " + engine.string() +
                         " has no right to be run, as one that was laid out of an archive. Another can be named.");
    Check_Not_Open_To_All(engine.parent_path());
    Check_Not_Open_To_All(engine);
}

// The engine that the first record of the archive names, in the installation.
fs::path Installed_Engine(const Archive_Manifest& manifest, const fs::path& archived, const fs::path& app_path)
{
    for (const auto& run : manifest.Runs) {
        if (const auto record = Read_Run_Record(archived / Path_Of(run.Directory)))
            return Found_Or_New(app_path, Path_Of(record->Engine.Name));
    }
    throw File_Error("No simulation of the archive has a record: there is nothing to compare with.");
}

std::vector<std::string> Words_Of(std::string_view text)
{
    std::vector<std::string> words;
    for (auto word = Trim(Next_Token(text)); !word.empty(); word = Trim(Next_Token(text)))
        words.emplace_back(word);
    return words;
}

// The words of one text that the other lacks.
std::string Words_Only_In(std::string_view one, std::string_view other)
{
    const auto known = Words_Of(other);
    std::string only;
    for (const auto& word : Words_Of(one)) {
        if (std::ranges::find(known, word) == known.end())
            only += (only.empty() ? "" : " ") + word;
    }
    return only;
}

// Runs simulations again, one per processor at a time.
class Again {
public:
    Again(const Archive_Manifest& manifest, const fs::path& place, const fs::path& engine, const Progress& progress)
        : Manifest(manifest),
          Place(place),
          Engine(engine),
          Report(progress),
          Work(place / Stop_Name, [this](std::size_t run, const Run_Record& record, const std::string& error) {
              ++Done;
              Records[run] = record;
              if (!error.empty() || record.Verdict != Verdict::Complete)
                  Faults[run] = error.empty() ? record.Reason : To_Code_Page(error);
          })
    {}

    void Run_All()
    {
        for (std::size_t run = 0; run < Manifest.Runs.size(); ++run) {
            while (Work.At_Work() >= static_cast<std::size_t>(Processors()))
                Wait();
            if (!Work.Stopped())
                Begin(run);
        }
        while (Work.At_Work() > 0)
            Wait();
        if (Work.Stopped())
            throw Reading_Stopped();
    }

    std::map<std::size_t, Run_Record> Records; // by place among the manifest's runs
    std::map<std::size_t, std::string> Faults;

private:
    void Begin(std::size_t run)
    try {
        Work.Begin(run, Place / Path_Of(Manifest.Runs[run].Directory), Engine);
    } catch (const std::runtime_error& refused) { // Run_Refused and File_Error
        ++Done;
        Faults[run] = To_Code_Page(refused.what());
    }

    void Wait()
    {
        const double runs = static_cast<double>(Manifest.Runs.size());
        const std::string text = std::to_string(Done) + " of " + std::to_string(Manifest.Runs.size()) + " runs";
        const double share = Share_Of_Layout + (1 - Share_Of_Layout) * static_cast<double>(Done) / runs;
        if (Report && !Report(text, share))
            Write_Whole(Place / Stop_Name, "");
        Work.Wait();
    }

    const Archive_Manifest& Manifest;
    fs::path Place, Engine;
    const Progress& Report;
    std::size_t Done = 0;
    Engines Work;
};

// The outputs that are not the same in both records.
std::vector<std::string> Differing_Outputs(const Run_Record& archived, const Run_Record& again)
{
    std::map<std::string, std::string> digests;
    for (const auto& output : again.Outputs)
        digests.emplace(output.File.Name, output.File.Sha256);
    std::vector<std::string> differing;
    for (const auto& output : archived.Outputs) {
        const auto found = digests.find(output.File.Name);
        if (found == digests.end() || found->second != output.File.Sha256)
            differing.push_back(output.File.Name);
        if (found != digests.end())
            digests.erase(found);
    }
    for (const auto& [name, digest] : digests)
        differing.push_back(name);
    return differing;
}

// Each sentence once, whatever the number of runs that it is true of.
void Add_Note(Reproduction& reproduction, std::string note)
{
    if (std::ranges::find(reproduction.Notes, note) == reproduction.Notes.end())
        reproduction.Notes.push_back(std::move(note));
}

// Why outputs may differ: the engine, or what the processor offers to it.
void Explain(const Run_Record& archived, const Run_Record& again, Reproduction& reproduction)
{
    if (archived.Engine.Sha256 != again.Engine.Sha256)
        Add_Note(reproduction, "The engine " + again.Engine.Name + " is not the one of the archive: " +
                                   archived.Engine.Name + " with the digest " + archived.Engine.Sha256 + ".");
    const std::string there = Words_Only_In(archived.Processor, again.Processor),
                      here = Words_Only_In(again.Processor, archived.Processor);
    if (!there.empty())
        Add_Note(reproduction,
                 "The processor of this computer lacks " + there + ", which that of the archived simulations has.");
    if (!here.empty())
        Add_Note(reproduction,
                 "The processor of the archived simulations lacks " + here + ", which that of this computer has.");
    const bool all_same = there.empty() && here.empty() && archived.Engine.Sha256 == again.Engine.Sha256;
    if (all_same)
        Add_Note(reproduction, "Engine and features of the processor are those of the archived simulations.");
}

Reproduced_Run Compare_Run(const Archived_Run& run, const fs::path& archived, const Again& again, std::size_t number,
                           Reproduction& reproduction)
{
    Reproduced_Run reproduced{.Directory = run.Directory};
    const auto record = Read_Run_Record(archived / Path_Of(run.Directory));
    const auto fault = again.Faults.find(number);
    const auto made = again.Records.find(number);
    if (!record || record->Verdict != Verdict::Complete) {
        reproduced.Fault = "The archived simulation is not complete.";
        return reproduced;
    }
    if (fault != again.Faults.end() || made == again.Records.end()) {
        reproduced.Fault = fault == again.Faults.end() ? "The simulation was not run." : fault->second;
        return reproduced;
    }
    reproduced.Differing = Differing_Outputs(*record, made->second);
    if (!reproduced.Differing.empty())
        Explain(*record, made->second, reproduction);
    return reproduced;
}

// The runs that could be compared, as they lie in a directory.
std::vector<Found_Run> Compared_Runs(const Archive_Manifest& manifest, const Reproduction& reproduction,
                                     const fs::path& place)
{
    std::vector<Found_Run> runs;
    for (std::size_t i = 0; i < manifest.Runs.size(); ++i) {
        const auto& run = manifest.Runs[i];
        if (reproduction.Runs[i].Fault.empty())
            runs.push_back({{manifest.Mode, run.Pesticide, run.Crop, run.Location}, place / Path_Of(run.Directory)});
    }
    return runs;
}

} // namespace

bool Reproduction::Has_Same_Bytes() const
{
    return std::ranges::all_of(Runs,
                               [](const Reproduced_Run& run) { return run.Fault.empty() && run.Differing.empty(); });
}

bool Reproduction::Is_Same() const
{
    if (Tolerance == 0)
        return Has_Same_Bytes();
    return std::ranges::all_of(Runs, [](const Reproduced_Run& run) { return run.Fault.empty(); }) &&
           std::ranges::all_of(Results, [this](const Compared_Result& result) { return result.Is_Same(Tolerance); });
}

Reproduction Reproduce(const Reproduction_Order& order, const Progress& progress)
{
    Archive_Reader archive(order.Archive);
    const Archive_Manifest& manifest = archive.Manifest();
    const Progress laying_out = [&](const std::string& message, double share) {
        return !progress || progress(message, Share_Of_Layout * share);
    };
    const Unpacked_Archive archived(
        archive, [](const Recorded_File&) { return true; }, laying_out);
    const Unpacked_Archive fresh(archive, Is_Input, laying_out);
    const fs::path engine =
        fs::absolute(order.Engine.empty() ? Installed_Engine(manifest, archived.Path(), order.App_Path) : order.Engine);
    Check_Engine(engine);
    Again again(manifest, fresh.Path(), engine, progress);
    again.Run_All();

    Reproduction reproduction{.Tolerance = order.Tolerance};
    for (std::size_t i = 0; i < manifest.Runs.size(); ++i)
        reproduction.Runs.push_back(Compare_Run(manifest.Runs[i], archived.Path(), again, i, reproduction));
    reproduction.Results = Compare_Results(Figures_Of(Compared_Runs(manifest, reproduction, archived.Path())),
                                           Figures_Of(Compared_Runs(manifest, reproduction, fresh.Path())));
    return reproduction;
}

} // namespace orvel
