#pragma once

#include "core/code_page.h"
#include "core/error.h"

#include <stdexcept>
#include <string>

namespace orvel {

// How building a run's tables ended. Sentences are bytes of Windows-1252.
struct Table_Status {
    std::string Failure;     // why the tables end early; empty if they are complete
    std::string Not_Kept;    // why complete tables are not stored in the run directory; empty if they are
    bool Kept = false;       // the stored files hold these tables now
    bool From_Cache = false; // the tables were read from those files
    bool Run_Failed = false; // the simulation failed, whatever its tables hold
    std::string Gap;         // why the run is not complete: what there is of it is shown, but never stored

    // What the user should know.
    const std::string& Note() const { return Failure.empty() ? Not_Kept : Failure; }
};

// Runs a builder's work. An error that ends it becomes the failure: a file that cannot be read, or a figure too large
// to be a finite number, which cannot be printed.
template <class Work> void Build_With(Table_Status& status, Work work)
try {
    work();
} catch (const File_Error& error) {
    status.Failure = To_Code_Page(error.what());
} catch (const std::domain_error& error) {
    status.Failure = error.what();
}

} // namespace orvel
