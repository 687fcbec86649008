#include "jobs/run_recording.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/named_input.h"
#include "core/system/processors.h"
#include "core/text.h"
#include "core/version.h"
#include "jobs/engine_start.h"
#include "output/run_outputs.h"

#include <algorithm>
#include <set>

namespace orvel {

namespace fs = std::filesystem;

namespace {

Recorded_File Recorded(std::string name, const File_Digest& digest)
{
    return {.Name = std::move(name), .Size = digest.Size, .Sha256 = digest.Sha256};
}

std::string Name_In_Record(const fs::path& path)
{
    return Name_Of(path.generic_string()).value_or(Path_Text(path));
}

// How a run ended that did not end well by itself; empty if it did.
struct Ending {
    orvel::Verdict Verdict = orvel::Verdict::Complete;
    std::string Reason;
};

Ending Ending_Of(const Run_Record& record, const Run_Interruption& interruption)
{
    if (interruption.Too_Long)
        return {Verdict::Failed, "It took longer than " + std::to_string(record.Limit.value_or(0)) + " s."};
    if (interruption.Stopped && record.Exit != 0)
        return {Verdict::Stopped, "It was stopped."};
    if (record.Signal)
        return {Verdict::Failed, "The engine was ended by signal " + std::to_string(*record.Signal) + "."};
    if (record.Exit != 0)
        return {Verdict::Failed, "The engine ended with exit code " + std::to_string(record.Exit.value_or(0)) + "."};
    return {};
}

} // namespace

std::vector<fs::path> Inputs_Of_Run(const fs::path& run_directory)
{
    const Run_Request request = Read_Run_Request(run_directory);
    std::vector<fs::path> inputs;
    Named_Inputs named(run_directory);
    std::set<std::string> known;
    const auto add = [&](std::string_view name) {
        if (name.empty())
            return; // an orvel.inp that ends early is for the engine to refuse
        const auto found = named.Find(name);
        std::error_code ignored;
        if (!found)
            throw Run_Refused("The input " + To_Utf8(name) + " is missing.");
        if (!fs::is_regular_file(*found, ignored))
            throw Run_Refused("The input " + To_Utf8(name) + " is not an ordinary file.");
        if (known.insert(found->string()).second)
            inputs.push_back(*found);
    };
    add(Control_Name);
    add(request.Scenario);
    add(request.Pesticide);
    for (std::size_t year = 0; year < request.Climates.size(); ++year) {
        if (year == 0 || request.Climates[year] != request.Climates[year - 1])
            add(request.Climates[year]);
    }
    if (Find_File(run_directory, Haude_Name))
        add(Haude_Name);
    return inputs;
}

std::string Input_Name(const fs::path& run_directory, const fs::path& input)
{
    const fs::path relative = input.lexically_relative(run_directory);
    return Name_In_Record(relative.empty() ? input : relative);
}

Run_Record New_Record()
{
    return {.Program = std::string(Program_Name),
            .Program_Version = std::string(Program_Version),
            .Processor = Processor_Features()};
}

Run_Record Run_Recorder::Begin(const fs::path& run_directory, const fs::path& engine, std::optional<int> limit)
{
    Run_Record record = New_Record();
    record.Directory = Recorded_Directory(run_directory);
    for (const auto& input : Inputs_Of_Run(run_directory))
        record.Inputs.push_back(
            Recorded(Input_Name(run_directory, input), input.parent_path() == run_directory
                                                           ? Digest_Of_File(input) // no other run has it
                                                           : Shared.Of(input)));
    record.Engine = Recorded(Name_In_Record(engine.filename()), Shared.Of(engine));
    record.Years_Expected = Read_Run_Request(run_directory).Years;
    record.Limit = limit;
    record.Start = std::time(nullptr);
    return record;
}

bool Run_Recorder::Has_Leap_Day_Once(const fs::path& climate)
{
    const auto identity = Identity_Of(climate);
    if (!identity)
        return false;
    const auto known = Leap_Days.find(*identity);
    if (known != Leap_Days.end())
        return known->second;
    return Leap_Days.emplace(*identity, Has_Leap_Day(climate)).first->second;
}

// `fault` takes the first reason why the outputs are not those of a complete run.
void Run_Recorder::Take_Outputs(const fs::path& run_directory, Run_Record& record, std::string& fault)
{
    const Run_Outputs outputs = Find_Outputs(run_directory, Read_Run_Request(run_directory),
                                             [this](const fs::path& climate) { return Has_Leap_Day_Once(climate); });
    for (const auto& output : outputs.Files)
        record.Outputs.push_back(
            {Recorded(Name_In_Record(output.File.filename()), Digest_Of_File(output.File)), output.Years});
    record.Engine_Version = outputs.Engine_Version;
    record.Years_Found = outputs.Years_Found;
    fault = outputs.Missing;
    if (outputs.Holds_Error && record.Verdict != Verdict::Stopped) {
        record.Verdict = Verdict::Failed;
        if (record.Reason.empty())
            record.Reason = "The engine's echo holds an error.";
    }
}

void Run_Recorder::Complete(const fs::path& run_directory, Run_Record& record, const Program_End& end,
                            const Run_Interruption& interruption)
{
    (end.Signal != 0 ? record.Signal : record.Exit) = end.Signal != 0 ? end.Signal : end.Exit_Code;
    const Ending ending = Ending_Of(record, interruption);
    record.Verdict = ending.Verdict;
    record.Reason = ending.Reason;
    try {
        std::string fault;
        Take_Outputs(run_directory, record, fault);
        if (record.Verdict == Verdict::Complete && !fault.empty()) {
            record.Verdict = Verdict::Incomplete;
            record.Reason = To_Code_Page(fault);
        }
    } catch (const File_Error& error) {
        record.Verdict = Verdict::Failed;
        record.Reason = To_Code_Page(error.what());
    }
}

void Run_Recorder::Write(const fs::path& run_directory, const Run_Record& record)
{
    Write_Whole(run_directory / Run_Record_Name, Format_Run_Record(record));
}

void Run_Recorder::Refuse(const fs::path& run_directory, Run_Record record, const std::string& reason)
{
    record.Directory = Recorded_Directory(run_directory);
    record.Verdict = Verdict::Failed;
    record.Reason = To_Code_Page(reason);
    Write(run_directory, record);
}

} // namespace orvel
