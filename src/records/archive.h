#pragma once

#include "core/progress.h"
#include "core/session.h"
#include "runs/mode.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// Archives an assessment: the simulations of a pesticide and a crop with inputs, records, outputs, engine and report in
// one zip file, with a manifest (archive_manifest.h). Stored tables are left out: they are built again.

struct Archived_Assessment {
    std::size_t Runs = 0, Files = 0;
    std::uint64_t Bytes = 0;        // of the files
    std::vector<std::string> Notes; // what is not as its record says, or missing: sentences, bytes of Windows-1252
};

// Writes the archive whole; the same simulations give the same bytes. `stem` and `crop` are entries of the lists, bytes
// of Windows-1252; without a crop all are taken. What is changed, incomplete or missing is archived with its state said
// in the manifest and the notes. Throws File_Error, and writes nothing, if there is no such simulation, one is at work,
// a file cannot be read or changes meanwhile, or the archive cannot be written; Zip_Stopped, Reading_Stopped. The
// session's engine has been found (Find_Engine).
Archived_Assessment Make_Archive(const Session& session, const Mode& mode, std::string_view stem, std::string_view crop,
                                 const std::filesystem::path& target, const Progress& progress = {});

// What the user is told of an archive: how much it holds, and what is not as it should be.
Message Archive_Message(const Archived_Assessment& archived);

// The name proposed for an archive: "demo_D Maize.zip".
std::string Archive_File_Name(std::string_view stem, std::string_view crop);

} // namespace orvel
