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
// mode directory and nothing else, so that a second program sees the same batch.

std::filesystem::path Batch_File(const std::filesystem::path& mode_directory);
bool Batch_Pending(const std::filesystem::path& mode_directory);

// The caption of the run button: "Start Batch" while a batch is pending, else "Run".
std::string_view Run_Caption(const std::filesystem::path& mode_directory);

// The run directories of the pending batch (Run_Directory); empty if there is none or it is damaged.
std::vector<std::string> Read_Batch(const std::filesystem::path& mode_directory);

// Adds a run to the pending batch, or begins a new one with it. Throws File_Error; the batch is then unchanged.
void Add_To_Batch(const std::filesystem::path& mode_directory, std::string_view run_directory, std::string_view engine,
                  bool first);

// Removes runs from the pending batch, and the batch with its last run; runs that it does not name are ignored. Throws
// File_Error; the batch is then unchanged.
void Take_Out_Of_Batch(const std::filesystem::path& app_path, const std::filesystem::path& mode_directory,
                       const std::vector<std::filesystem::path>& runs);

// Held briefly while a pending batch of the installation is changed, by one program at a time. Waits for its turn;
// throws File_Error if that takes too long. Nothing if no run can be prepared anyway.
std::optional<Lock> Acquire_Batch_Lock(const std::filesystem::path& app_path);

} // namespace orvel
