#include "records/verify.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/text.h"
#include "output/run_outputs.h"
#include "output/run_state.h"

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
    std::string changed = Files.Changed(directory, *state.Record);
    const bool unreadable = Files.Is_Unreadable();
    if (changed.empty() && Read_Run_Request(directory).Years != state.Record->Years_Expected)
        changed = "The record tells another number of years than orvel.inp.";
    return {changed.empty() ? Check::Ok : Check::Changed, changed, unreadable};
}

} // namespace orvel
