#pragma once

#include "core/session.h"

#include <filesystem>
#include <optional>
#include <string>

// What the open dialog and the save dialog do with a file, by its ending.
enum class Document_Kind { Pesticide, Scenario, Climate };

// The kind that the ending says (.psm, .sze, .cli in any case), or nothing.
std::optional<Document_Kind> Kind_Of(const std::filesystem::path& file);

// Reads a document into the session as the open dialog does: PSM_File is the name, and a pesticide document's pathway is derived.
// False: it failed, and the user has been told.
bool Open_Document(Session& session, const std::filesystem::path& file);

// Writes the session's document of the kind that the ending says. Asks nothing: Broken_Field comes before.
// False: it failed, and the user has been told.
bool Save_Document(Session& session, const std::filesystem::path& file);

// The name of the first field that a save would lose, or nothing.
std::optional<std::string> Broken_Field(const Session& session, Document_Kind kind);

// Opens a file and saves it under another name of the same kind, with no edit in between: a climate file's numbers go the way through the grid.
// A field that is lost is told and the file written all the same. False: it failed, and the user has been told.
bool Convert_Document(Session& session, const std::filesystem::path& from, const std::filesystem::path& to);

// The document in a file as JSON; nothing: it failed, and the user has been told.
std::optional<std::string> Show_Document(Session& session, const std::filesystem::path& file);
