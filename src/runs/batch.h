#pragma once

#include "core/system/lock.h"
#include "runs/mode.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// The pending batch of a mode: the combinations that are marked and not started yet. It is the file batch.bat in the
// mode directory and nothing else, so that a second program sees the same one.

std::filesystem::path Batch_File(const std::filesystem::path& mode_directory);
bool Batch_Pending(const std::filesystem::path& mode_directory);

// The caption of the run button: "Start Batch" while a batch is pending, else "Run".
std::string_view Run_Caption(const std::filesystem::path& mode_directory);

// The run directories of the pending batch (Run_Directory); none without one, nor from a damaged one.
std::vector<std::string> Read_Batch(const std::filesystem::path& mode_directory);

// Adds a run to the pending batch, or begins a new one with it. Throws File_Error; then the batch is as it was.
void Add_To_Batch(const std::filesystem::path& mode_directory, std::string_view run_directory, std::string_view engine,
                  bool first);

// Takes runs out of the pending batch, which goes with its last one; those that it does not name make no difference.
// Throws File_Error; then the batch is as it was.
void Take_Out_Of_Batch(const std::filesystem::path& app_path, const std::filesystem::path& mode_directory,
                       const std::vector<std::filesystem::path>& runs);

// Held while a pending batch of the installation is changed, by one program at a time and for moments only. Waits for
// its turn; throws File_Error if that does not come. No lock where nothing can be prepared anyway.
std::optional<Lock> Acquire_Batch_Lock(const std::filesystem::path& app_path);

} // namespace orvel
