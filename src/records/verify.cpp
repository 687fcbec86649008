#include "records/verify.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/run_name.h"
#include "core/text.h"
#include "output/run_outputs.h"
#include "output/run_state.h"

#include <algorithm>
#include <array>

namespace orvel {

namespace fs = std::filesystem;

namespace {

Check Check_Of(Verdict verdict)
{
    switch (verdict) {
    case Verdict::Complete:
        return Check::Ok;
    case Verdict::Failed:
        return Check::Failed;
    case Verdict::Unrecorded:
        return Check::Unrecorded;
    default:
        return Check::Incomplete;
    }
}

// The first output of an engine that the record does not know; empty if there is none.
std::string Added_Output(const fs::path& run_directory, const Run_Record& record)
{
    for (const auto& name : List_Files(run_directory, "*.orv")) {
        const auto is_this = [&](const Recorded_Output& output) { return Path_Of(output.File.Name) == name; };
        if (Is_Engine_Output(name) && std::ranges::none_of(record.Outputs, is_this))
            return "The output " + To_Code_Page(name) + " was added.";
    }
    return {};
}

} // namespace

std::string_view Check_Text(Check check)
{
    constexpr std::array<std::string_view, 5> Texts = {"ok", "changed", "incomplete", "failed", "unrecorded"};
    return Texts[static_cast<std::size_t>(check)];
}

std::string Verified_Line(const Verified_Run& verified, const fs::path& run)
{
    return std::string(Check_Text(verified.Result)) + "\t" + run.string() + "\t" + To_Utf8(verified.Detail) + "\n";
}

// The engine of the installation that a run belongs to; a run of a mode lies four levels below it.
fs::path Verifier::Engine_Of(const fs::path& run_directory, const Run_Record& record) const
{
    const fs::path name = Path_Of(record.Engine.Name);
    fs::path installation = App_Path;
    if (Is_Run_Level(run_directory.filename().string())) {
        installation = run_directory;
        for (int level = 0; level <= Run_Levels; ++level)
            installation = installation.parent_path();
    }
    return Found_Or_New(installation, name);
}

std::string Verifier::Changed_File(const fs::path& file, const Recorded_File& recorded, bool shared)
try {
    const File_Digest digest = shared ? Digests.Of(file) : Digest_Of_File(file);
    return digest.Sha256 == recorded.Sha256 ? std::string() : recorded.Name + " has changed.";
} catch (const File_Error& error) {
    Unreadable = Unreadable || (error.Code && !Is_Missing(error.Code));
    return To_Code_Page(error.what());
}

std::string Verifier::Changed(const fs::path& run_directory, const Run_Record& record)
{
    std::string changed = Changed_File(Engine_Of(run_directory, record), record.Engine, true);
    for (auto input = record.Inputs.begin(); changed.empty() && input != record.Inputs.end(); ++input)
        changed = Changed_File(run_directory / Path_Of(input->Name), *input, true);
    for (auto output = record.Outputs.begin(); changed.empty() && output != record.Outputs.end(); ++output)
        changed = Changed_File(run_directory / Path_Of(output->File.Name), output->File, false);
    return changed.empty() ? Added_Output(run_directory, record) : changed;
}

Verified_Run Verifier::Verify(const fs::path& run_directory)
{
    const fs::path run = fs::absolute(run_directory).lexically_normal();
    const fs::path directory = run.has_filename() ? run : run.parent_path();
    const Run_State state = State_Of_Run(directory);
    if (state.Unreadable)
        return {Check::Changed, state.Reason, static_cast<bool>(state.Code)};
    if (!state.Record && !Find_File(directory, "orvel.inp") && !Has_Engine_Output(directory))
        return {Check::Unrecorded, "This is not the directory of a run."};
    // Outputs are looked at below, also those whose size alone tells that they have changed.
    const bool recorded_complete = state.Record && state.Record->Verdict == Verdict::Complete;
    if (!recorded_complete) {
        const bool plain = state.Verdict == Verdict::Running || state.Verdict == Verdict::Scheduled;
        return {Check_Of(state.Verdict),
                plain ? "The run is " + std::string(Verdict_Text(state.Verdict)) + "." : state.Reason};
    }
    if (!state.Record->Directory.empty() && !Same_Text(state.Record->Directory, Recorded_Directory(directory)))
        return {Check::Changed, state.Reason};
    Unreadable = false;
    std::string changed = Changed(directory, *state.Record);
    if (changed.empty() && Read_Run_Request(directory).Years != state.Record->Years_Expected)
        changed = "The record tells another number of years than orvel.inp.";
    return {changed.empty() ? Check::Ok : Check::Changed, changed, Unreadable};
}

} // namespace orvel
