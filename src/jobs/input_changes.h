#pragma once

#include "core/error.h"
#include "core/sha256.h"
#include "jobs/job_status.h"

#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace orvel {

// An input of a run whose source in the installation is no longer the one that was simulated, or cannot be read.
struct Source_Change {
    std::string Input;  // its name in the record
    std::string Unread; // why it cannot be read, a sentence; empty: it is another one
};

// "X of the installation is no longer the one that was simulated.", or why that is not known.
std::string Change_Text(const Source_Change& change);

// Which inputs of recorded runs are no longer what they were when the engine read them. One is asked again and again
// for a list: a file that keeps its identity is read once.
class Input_Changes {
public:
    explicit Input_Changes(std::filesystem::path app_path) : App_Path(std::move(app_path)) {}

    // The names of the inputs, as the record has them, whose file as reached from the run directory, or whose source in
    // the installation, has another digest or cannot be read. Without a record nothing is known: none.
    std::vector<std::string> Of(const Simulation& simulation);

    // Those whose source in the installation alone is another one or cannot be read: the run's own files are not looked
    // at.
    std::vector<Source_Change> Of_Installation(const std::filesystem::path& run_directory, const Run_Record& record);

    // Sources may have come and gone: they are looked for again, and what could not be read is forgotten.
    void Begin_Pass();

    // A sentence on each file that was found and could not be read in this pass.
    const std::set<std::string>& Unreadable() const { return Unread; }

private:
    struct Source {
        bool Is_There = false; // in the installation
        std::string Sha256;    // empty: it cannot be read
        std::string Unread;    // why
    };
    const Source& Source_Of(const std::string& name);
    bool Differs(const std::filesystem::path& file, const Recorded_File& recorded);
    const Source* Differing_Source(const std::filesystem::path& run_directory, const Recorded_File& recorded);
    std::string Cannot_Be_Read(const File_Error& error);

    std::filesystem::path App_Path;
    File_Digests Digests;
    std::map<std::string, Source> Sources; // by the names of inputs, looked at once in a pass
    std::set<std::string> Unread;
};

} // namespace orvel
