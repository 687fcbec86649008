#pragma once

#include "core/session.h"
#include "documents/documents.h"
#include "documents/left_copies.h"

#include <filesystem>

class QWidget;

namespace orvel {

// Shows the editor of the session's document of this kind; `directory` is where it is saved by default.
void Edit_Document(Session& session, Document_Kind kind, const std::filesystem::path& directory, QWidget* parent);

// Reads a file and shows its editor; if it cannot be read, the user is told and no editor opens.
void Open_And_Edit(Session& session, const std::filesystem::path& file, QWidget* parent);

// Shows a copy that was left: its document, which offers it; or the copy itself as a document that has to be saved.
void Edit_Left_Copy(Session& session, const Left_Copy& copy, QWidget* parent);

} // namespace orvel
