#pragma once

#include "runs/single_run.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace orvel {

// Starting a single run and watching its progress.

constexpr std::string_view Still_At_Work =
    "An engine is still at work in this directory. Please wait until it has finished.";

// Applies the entry, writes orvel.inp and starts the job runner for the engine in the directory, without waiting: it
// deletes old output, holds the directory's lock while the engine works, and writes the run's record. False: nothing
// was started, and the user has been told; a run already at work there is left alone. `runner` as in Start_Batch.
bool Start_Single_Run(Session& session, const std::filesystem::path& directory, const Single_Run_Entry& entry,
                      const std::filesystem::path& runner = {});

// Asks the run at work in a directory to end. False: there is none, or it cannot be asked, and the user has been told.
bool Stop_Single_Run(const Ask_Function& ask, const std::filesystem::path& directory);

// Years done of years to do and whether the engine is at work in a directory.
struct Single_Run_State {
    bool Running = false;
    int Years_Done = 0;
    std::string Text; // one line for the user
};
Single_Run_State State_Of_Single_Run(const std::filesystem::path& directory, int years);

} // namespace orvel
