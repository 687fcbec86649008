#pragma once

#include "output/record_check.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace orvel {

// Whether finished runs are still what their records say.

enum class Check { Ok, Changed, Incomplete, Failed, Unrecorded };
std::string_view Check_Text(Check check); // "ok", "changed" ...

struct Verified_Run {
    Check Result = Check::Unrecorded;
    std::string Detail;      // what has changed, or why the run is not complete; bytes of Windows-1252
    bool Unreadable = false; // a file is there and cannot be read: whether it has changed is not known
};

// A line of a list, in UTF-8: the word, the directory, the detail, parted by tabs.
std::string Verified_Line(const Verified_Run& verified, const std::filesystem::path& run);

// Verifies one run after another; a file that they share is digested once.
class Verifier {
public:
    // `app_path`: the installation, for the engine of a run that does not lie within one.
    explicit Verifier(std::filesystem::path app_path) : Files(std::move(app_path)) {}

    // Digests the engine, the inputs and the outputs of a run with a complete record. A file that cannot be read has
    // changed, and the detail tells why.
    Verified_Run Verify(const std::filesystem::path& run_directory);

private:
    Record_Check Files;
};

} // namespace orvel
