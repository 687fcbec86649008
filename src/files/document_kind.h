#pragma once

#include "core/session.h"

#include <filesystem>
#include <optional>
#include <string>

namespace orvel {

// What the open dialog and the save dialog do with a file, by its ending.
enum class Document_Kind { Pesticide, Scenario, Climate };

// The kind that the ending says (.psm, .sze, .cli in any case), or nothing.
std::optional<Document_Kind> Kind_Of(const std::filesystem::path& file);

// A file's name as the user is shown it, and what is told of one that is no document by its ending.
std::string Shown_Name(const std::filesystem::path& file);
std::string No_Document(const std::filesystem::path& file);

// Writes the session's document of the kind that the ending says. Asks nothing: Broken_Field comes before.
// False: it failed, and the user has been told.
bool Save_Document(Session& session, const std::filesystem::path& file);

// The name of the first field that a save would lose, or nothing.
std::optional<std::string> Broken_Field(const Session& session, Document_Kind kind);

} // namespace orvel
