#pragma once

#include "core/code_page.h"
#include "core/error.h"

#include <filesystem>
#include <stdexcept>
#include <string>

namespace orvel {

// What was found of a table's stored files.
enum class Stored { Missing, Good, Damaged, Older, Unreadable };

// How building a run's tables ended. Sentences are bytes of Windows-1252.
struct Table_Status {
    std::string Failure;     // why the tables end early; empty if they are complete
    std::string Not_Kept;    // why complete tables are not stored in the run directory; empty if they are
    bool Kept = false;       // the stored files hold these tables now
    bool Unwritten = false;  // they are not stored only because the files cannot be read or written
    bool From_Cache = false; // the tables were read from those files
    bool Run_Failed = false; // the simulation failed, whatever its tables hold
    bool Unreadable = false; // the failure is that of a file that is there and cannot be read
    std::string Gap;         // why the run is not complete: what there is of it is shown, but never stored

    Stored Found = Stored::Missing;
    std::filesystem::file_time_type Run_Changed = {}; // when the output was last changed; the least time without any

    // What the user should know, sentences; empty if there is nothing to say.
    std::string Note() const;
};

// Runs a builder's work. An error that ends it becomes the failure: a file that cannot be read, or a figure too large
// to be a finite number, which cannot be printed.
template <class Work> void Build_With(Table_Status& status, Work work)
try {
    work();
} catch (const File_Error& error) {
    status.Failure = To_Code_Page(error.what());
    status.Unreadable = error.Code && !Is_Missing(error.Code);
} catch (const std::domain_error& error) {
    status.Failure = error.what();
}

} // namespace orvel
