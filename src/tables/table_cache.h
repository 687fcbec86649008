#pragma once

#include "output/echo_file.h"
#include "output/plot_file.h"
#include "tables/table_status.h"

#include <filesystem>
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

    // Takes the tables from the files if they hold what the builder writes: `load` is given their bytes and returns
    // whether it took them. Else `build` makes the tables; the status says why.
    template <class Load, class Build>
    void Load_Or_Build(const std::filesystem::path& run_directory, Table_Status& status, Load load, Build build) const
    {
        Bytes bytes;
        status.Found = status.Gap.empty() ? Read(run_directory, status, bytes) : Stored::Missing;
        if (status.Found == Stored::Good && !Takes(load, bytes))
            status.Found = Stored::Damaged;
        if (status.Found == Stored::Good) {
            status.From_Cache = status.Kept = true;
            return;
        }
        Build_With(status, build);
        if (!status.Failure.empty() && status.Found == Stored::Damaged)
            status.Failure = "The stored table is damaged. " + status.Failure;
    }

    // Writes both files whole, unless the run is at work, has failed or has no complete plot.orv; the status then says
    // so. `echo` was read before the tables were built, so a run started since then is noticed as being at work.
    void Write(const std::filesystem::path& run_directory, Echo echo, const Plot_Head& head, const Bytes& bytes,
               Table_Status& status) const;

private:
    // A figure whose sums no number holds was not written by the builder.
    template <class Load> static bool Takes(Load& load, const Bytes& bytes)
    try {
        return load(bytes);
    } catch (const std::domain_error&) {
        return false;
    }

    Stored Read(const std::filesystem::path& run_directory, Table_Status& status, Bytes& bytes) const;
};

// What a run lacks to be complete, a sentence: by its record or, without one, by its files. Empty if it is complete, at
// work or not known to lack anything. Throws File_Error if the record cannot be read.
std::string Gap_Of(const std::filesystem::path& run_directory);

// A sentence that says why no table of a run may be kept; empty if it may.
std::string Why_Not_Kept(const Echo& echo, const Plot_Head& head);

// When the engine's output was last changed; the least time without any.
std::filesystem::file_time_type Output_Changed(const std::filesystem::path& run_directory);

// Whether the engine has changed its output since the tables were built.
bool Is_Older(const Table_Status& tables, const std::filesystem::path& run_directory);
constexpr std::string_view Older_Text =
    "The simulation was run again after this table was made: it shows the run before.";

} // namespace orvel
