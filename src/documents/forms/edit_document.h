#pragma once

#include "core/session.h"
#include "documents/documents.h"

#include <filesystem>

class QWidget;

namespace orvel {

// Shows the editor of the session's document; the directory is where it is saved by default.
void Edit_Document(Session& session, Document_Kind kind, const std::filesystem::path& directory, QWidget* parent);

// Reads a file and shows its editor; a file that cannot be read is told and opens none.
void Open_And_Edit(Session& session, const std::filesystem::path& file, QWidget* parent);

} // namespace orvel
