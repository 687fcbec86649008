#pragma once

#include "core/system/lock.h"
#include "runs/run_control.h"
#include "runs/selection.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// The pending batch of a mode is its file batch.bat; Job_Dir mirrors it. A started batch is a job (job.h).

// The caption of the run button: "Start Batch" while a batch is pending, else "Run".
std::string_view Run_Caption(const Session& session, const Mode& mode);

// Fills Job_Dir from the pending batch of the mode; without one it is empty. To be called when a run form opens.
void Load_Batch(Session& session, const Mode& mode);
bool Batch_Pending(const Session& session, const Mode& mode);

// The run directory of a combination below the mode directory, its three levels parted by backslashes.
std::string Run_Directory(std::string_view pesticide, std::string_view crop, std::string_view location);

// The path of such a directory.
std::filesystem::path Run_Path(const std::filesystem::path& mode_directory, std::string_view run_directory);

// A program's turn to change the pending batches of an installation: one at a time, and for moments only. Waits for it;
// throws File_Error if it does not come. Nothing where no run can be prepared anyway.
std::optional<Lock> Acquire_Batch_Lock(const Session& session);

enum class Mark_Result { Marked, Already_Selected, Cancelled, Failed };

// Mark for Batch. Whatever is not Marked has been told, and the batch is as it was; results of an earlier run are only
// removed when the new run directory is complete.
Mark_Result Mark_For_Batch(Session& session, const Mode& mode, const Run_Choice& choice);

struct Mark_All_Result {
    int Marked = 0;      // combinations
    int Passed_Over = 0; // without valid application data
    int Failed = 0;      // refused by the user or by the system, told one by one
};

// Mark all for Batch: all locations of the choice's pesticide file and crop. Ends at the first refusal that would
// repeat itself (a full batch). `progress` is called before each location with its index and the number of locations.
Mark_All_Result Mark_All(Session& session, const Mode& mode, const Run_Choice& choice,
                         const std::function<void(int, int)>& progress = {});

enum class Start_Result { Started, Already_Running, Nothing_Pending, Failed };

struct Started_Job {
    Start_Result Result = Start_Result::Failed;
    int Process = 0; // for Job_Exit_Code
};

// Makes the pending batch the job file and starts the job, which outlives this program. `jobs` runs at a time, 0: one
// per processor. Whatever is not Started has been told. `runner` is the job runner; without one it is the program
// orveljob beside the running one.
Started_Job Start_Batch(Session& session, const Mode& mode, int jobs = 0, const std::filesystem::path& runner = {});

// Run: starts the pending batch; where none is pending, the choice alone is marked before.
Started_Job Run_Batch(Session& session, const Mode& mode, const Run_Choice& choice, int jobs = 0,
                      const std::filesystem::path& runner = {});

// Whether a job of this program has ended, and how; does not wait. Nothing while it runs.
std::optional<int> Job_Exit_Code(int process);

// Deletes a pesticide file of the installation directory after asking. False: kept, or it could not be deleted and the
// user has been told.
bool Delete_Pesticide(Session& session, std::string_view pesticide);

// Takes runs out of the pending batch, which goes with its last one; those that it does not name make no difference.
// Throws File_Error; then the batch is as it was.
void Take_Out_Of_Batch(Session& session, const Mode& mode, const std::vector<std::filesystem::path>& run_directories);

// The notice under the run button.
extern const std::string_view Run_Button_Notice;

} // namespace orvel
