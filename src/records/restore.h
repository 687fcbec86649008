#pragma once

#include "core/progress.h"
#include "records/archive_manifest.h"
#include "records/verify.h"

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

class Archive_Reader;

// Lays out an archive of an assessment again.

struct Restored_Run {
    std::filesystem::path Directory;
    Verified_Run Verified;
};

struct Restored_Assessment {
    std::size_t Written = 0, Kept = 0; // files; kept: the same file was there
    std::vector<Restored_Run> Runs;

    bool Is_Ok() const; // all runs are as their records say
};

// A line a run (Verified_Line), in UTF-8.
std::string Restored_Lines(const Restored_Assessment& restored);
constexpr std::string_view Not_All_Ok_Text =
    "All files were laid out, but not all simulations are complete and as their records say.";

// Lays an archive out in a directory: one that is new or empty, or an installation. A file that is there with the same
// bytes is kept, one with others is never replaced: the archive is then refused as a whole. The whole archive is
// verified before anything is written, and the runs when all is; the records come last, so that nothing counts as a
// result before all of it is there. The engine is laid out without the right to run it. Throws File_Error; what was
// laid out is then taken away again, and after a kill the next try completes it. Reading_Stopped if the user stopped
// it.
Restored_Assessment Restore(const std::filesystem::path& archive, const std::filesystem::path& directory,
                            const Progress& progress = {});

// The part of it that lays out: in a directory that was checked, those files of the manifest for which `is_wanted`
// holds. Returns what was written.
std::vector<std::filesystem::path> Lay_Out_Files(Archive_Reader& archive, const std::filesystem::path& directory,
                                                 const std::function<bool(const Recorded_File&)>& is_wanted,
                                                 const Progress& progress = {});

} // namespace orvel
