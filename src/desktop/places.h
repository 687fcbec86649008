#pragma once

#include "core/message.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace orvel {

// Where the desktop program works: installations are workspaces, apart from the program's own files, and any number of
// them can be open, each in a program of its own.

// Whether the directory is an installation; nothing is written.
bool Is_Installation(const std::filesystem::path& directory);

// What the desktop program was asked to open.
struct Start_Request {
    std::filesystem::path Installation; // empty: none is known yet
    std::filesystem::path Document;     // whose editor opens; empty: none
};

// From the argument, a directory or a document, and the directory that the program was started in. A document belongs
// to the installation that it lies in, else to that of the start; without one of its own a start goes to the
// installation used last. Throws File_Error with a sentence for what is neither a directory nor a document.
Start_Request Request_Of(const std::optional<std::filesystem::path>& argument, const std::filesystem::path& current,
                         const std::vector<std::filesystem::path>& recent);

// The installations that were used, the last one first; those that are there no more are left out.
std::vector<std::filesystem::path> Recent_Installations(const std::filesystem::path& state);
// A list that cannot be written is not worth a word: it is only a convenience.
void Remember_Installation(const std::filesystem::path& state, const std::filesystem::path& installation);

// Lays out an installation, as Lay_Out_Installation does, with the scenarios and climates of another one in place of
// the demonstration's, if one is given. Throws File_Error; nothing stays of a directory that was begun.
void Make_Installation(const std::filesystem::path& directory, const std::vector<std::filesystem::path>& parts,
                       const std::filesystem::path& scenarios_of);

// The installation in a directory that the user chose, as a whole path: one that is there, or a new one, in a directory
// with other files below it. `scenarios_of`: see Make_Installation. Nothing: it failed, and the user has been told.
std::optional<std::filesystem::path> Installation_In(const std::filesystem::path& chosen,
                                                     const std::vector<std::filesystem::path>& parts,
                                                     const Ask_Function& ask,
                                                     const std::filesystem::path& scenarios_of = {});

} // namespace orvel
