#include "records/verify.h"

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

Verified_Run Verifier::Verify(const fs::path& run_directory)
{
    const fs::path run = fs::absolute(run_directory).lexically_normal();
    const fs::path directory = run.has_filename() ? run : run.parent_path();
    const Run_State state = State_Of_Run(directory);
    if (state.Unreadable)
        return {Check::Changed, state.Reason};
    // Outputs are looked at below, also those whose size alone tells that they have changed.
    const bool recorded_complete = state.Record && state.Record->Verdict == Verdict::Complete;
    if (!recorded_complete) {
        const bool plain = state.Verdict == Verdict::Running || state.Verdict == Verdict::Scheduled;
        return {Check_Of(state.Verdict),
                plain ? "The run is " + std::string(Verdict_Text(state.Verdict)) + "." : state.Reason};
    }
    std::string changed = Files.Changed(directory, *state.Record);
    return {changed.empty() ? Check::Ok : Check::Changed, changed};
}

} // namespace orvel
