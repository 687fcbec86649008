#pragma once

#include "core/session.h"
#include "files/document_kind.h"

#include <filesystem>
#include <optional>
#include <string>

namespace orvel {

// Reads a document into the session as the open dialog does: PSM_File is the name, and a pesticide document's pathway
// is derived. False: it failed, and the user has been told.
bool Open_Document(Session& session, const std::filesystem::path& file);

// Puts a new document of a kind into the session; until it is saved, the mask serves as its name.
void New_Document(Session& session, Document_Kind kind);

// Opens a file and saves it under another name of the same kind without an edit; a climate file's numbers are rounded
// as in the grid, the notes of a pesticide file go with it. The user is told of a lost field, but the file is written.
// False: it failed, and the user has been told.
bool Convert_Document(Session& session, const std::filesystem::path& from, const std::filesystem::path& to);

// The document in a file as JSON; nothing if it failed, and the user has been told.
std::optional<std::string> Show_Document(Session& session, const std::filesystem::path& file);

} // namespace orvel
