#pragma once

#include "output/echo_file.h"
#include "output/plot_file.h"
#include "tables/table_status.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace orvel {

// The two files of a run directory that store tables, so that they need not be built again. Only the builders of these
// tables read them.
struct Table_Cache {
    std::string_view First, Second; // names of the files
    struct Bytes {
        std::string First, Second;
    };

    // Nothing unless both files exist and can be read.
    std::optional<Bytes> Read(const std::filesystem::path& run_directory) const;

    // Writes both files whole, unless the run is at work, has failed or has no complete plot.orv; the status then says
    // so. `echo` was read before the tables were built, so a run started since then is noticed as being at work.
    void Write(const std::filesystem::path& run_directory, Echo echo, const Plot_Head& head, const Bytes& bytes,
               Table_Status& status) const;
};

// What a run lacks to be complete, a sentence: by its record or, without one, by the years of its balances. Empty if it
// is complete, at work or not known to lack anything.
std::string Gap_Of(const std::filesystem::path& run_directory);

// A sentence that says why no table of a run may be kept; empty if it may.
std::string Why_Not_Kept(const Echo& echo, const Plot_Head& head);

} // namespace orvel
