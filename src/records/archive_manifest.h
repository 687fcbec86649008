#pragma once

#include "output/run_record.h"

#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// archive.json: what an archive of an assessment holds. Texts are bytes of Windows-1252.

constexpr std::string_view Manifest_Name = "archive.json";
constexpr std::string_view Archived_Files = "files/"; // before the names of all other entries

struct Archived_Run {
    std::string Directory;                 // below the installation: "focus/demo_D.run/Maize.run/Hamburg_-_(H).run"
    std::string Pesticide, Crop, Location; // as the lists show them
    std::string Check, Detail;             // what verifying it gave when it was archived
    std::vector<std::string> Missing;      // inputs that are not in the archive
    bool operator==(const Archived_Run&) const = default;
};

struct Archive_Manifest {
    std::string Program, Program_Version; // that made the archive
    std::string Mode, Pesticide, Crop;    // what was asked for; no crop: all
    std::string Report;                   // its name among the files
    std::vector<Archived_Run> Runs;
    std::vector<Recorded_File> Files; // by their path below the installation, sorted
    bool operator==(const Archive_Manifest&) const = default;
};

// Throws File_Error, with the place if the text is not JSON, for anything that is no manifest of this schema.
Archive_Manifest Parse_Manifest(std::string_view text);
std::string Format_Manifest(const Archive_Manifest& manifest); // UTF-8, LF, the same bytes for the same manifest

// Whether a name in an archive stays below the directory that it is laid out in, on any system: parts of ordinary
// characters, parted by "/", none of them "." or "..".
bool Is_Safe_Name(std::string_view name);

} // namespace orvel
