#pragma once

#include "core/session.h"
#include "substance/documents.h"

#include <filesystem>

class QString;
class QWidget;

// Lets the user choose where a document is saved, and writes it there; an existing file is asked about. The session's file name is then that of the file,
// and its flag of changes is cleared. False: nothing was written.
bool Save_As(Session& session, Document_Kind kind, const QString& caption, const std::filesystem::path& directory, QWidget* parent);
