#pragma once

#include "output/echo_file.h"
#include "output/plot_file.h"
#include "tables/table_status.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace orvel {

// The two files of a run directory that keep tables, so that they need not be built again. Only the builders of these
// tables read them.
struct Table_Cache {
    std::string_view First, Second; // names of the files
    struct Bytes {
        std::string First, Second;
    };

    // Nothing unless both files are there and can be read.
    std::optional<Bytes> Read(const std::filesystem::path& run_directory) const;

    // Writes both files whole, but not from a run that is at work, has failed or has no whole plot.orv; the status says
    // so. `echo` is that from before the tables were built: a run that was started since is at work now.
    void Write(const std::filesystem::path& run_directory, Echo echo, const Plot_Head& head, const Bytes& bytes,
               Table_Status& status) const;
};

// Why no table of a run may be kept, a sentence; empty if it may.
std::string Why_Not_Kept(const Echo& echo, const Plot_Head& head);

} // namespace orvel
