#pragma once

#include "core/sha256.h"
#include "output/run_record.h"

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <tuple>

namespace orvel {

// What is known of the files of a recorded run without reading them.
enum class Proof {
    Same,    // nobody has touched any of them since the record was written
    Changed, // one is missing, has another size, or was added
    Unknown, // they were copied, renamed or written to: their bytes must be read
};

// Whether the files that a complete record names are still those that were recorded: the engine of the installation,
// the inputs and the outputs. Runs are checked one after another, and a file that keeps its identity is read once.
class Record_Check {
public:
    // `app_path`: the installation, for the engine of a run that does not lie within one.
    explicit Record_Check(std::filesystem::path app_path) : App_Path(std::move(app_path)) {}

    // The system notes when a file was last changed in any way, and no program can set that time back. Files that were
    // last changed before the record was written, and no later than the run ended, are those that it holds the digests
    // of. A copy of a run has later times, and its proof is unknown.
    Proof By_Times(const std::filesystem::path& run_directory, const Run_Record& record);

    // A pass over the runs begins: files that runs share, such as climates, are looked at once in it.
    void Begin_Pass() { Shared.clear(); }

    // By digests. A sentence on the first file that has changed; empty if none has. A file that cannot be read has
    // changed, and the sentence tells why.
    std::string Changed(const std::filesystem::path& run_directory, const Run_Record& record);
    // Whether a file that was looked at last by Changed is there and cannot be read.
    bool Is_Unreadable() const { return Unreadable; }

private:
    std::filesystem::path Engine_Of(const std::filesystem::path& run_directory, const Run_Record& record) const;
    std::string Changed_File(const std::filesystem::path& file, const Recorded_File& recorded);
    std::optional<File_Identity> Identity_Of_Input(const std::filesystem::path& run_directory, const std::string& name,
                                                   const std::optional<File_Identity>& mode);

    std::filesystem::path App_Path;
    bool Unreadable = false;
    File_Digests Digests;
    // Of files in the directory of a mode, by that directory's device and number and the name of the input.
    std::map<std::tuple<std::uint64_t, std::uint64_t, std::string>, std::optional<File_Identity>> Shared;
};

} // namespace orvel
