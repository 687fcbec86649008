#pragma once

#include "core/code_page.h"
#include "core/error.h"

#include <stdexcept>
#include <string>

namespace orvel {

// How the making of a run's tables ended. Sentences are bytes of Windows-1252.
struct Table_Status {
    std::string Failure;     // why the tables end early; empty if they are complete
    std::string Not_Kept;    // why complete tables are not kept in files of the run directory; empty if they are
    bool Kept = false;       // those files hold these tables now
    bool From_Cache = false; // they held them before
    bool Run_Failed = false; // the simulation did not end well, whatever its tables hold

    // What the user is to know.
    const std::string& Note() const { return Failure.empty() ? Not_Kept : Failure; }
};

// Does the work of a builder. What ends it becomes the failure: a file that cannot be read, or a figure that is so
// large that no number holds it and none can be printed.
template <class Work> void Build_With(Table_Status& status, Work work)
try {
    work();
} catch (const File_Error& error) {
    status.Failure = To_Code_Page(error.what());
} catch (const std::domain_error& error) {
    status.Failure = error.what();
}

} // namespace orvel
