#pragma once

#include "core/session.h"
#include "files/document_notes.h"

#include <filesystem>
#include <QWidget>
#include <string>

namespace orvel {

// The notes of the document under edit, which the scheme holds and all forms opened from it show at their fields.
class Edited_Notes {
public:
    // Reads the notes beside the file; what cannot be read is told, and then stays as it is.
    Edited_Notes(const Session& session, const std::filesystem::path& file);

    Document_Notes Notes;

    bool Is_Changed() const { return !Differences(Saved, Notes).empty(); }
    // Notes of others, written meanwhile beside the same document, are kept. False: it failed, and the user has been
    // told.
    bool Save(const std::filesystem::path& document);

private:
    const Session& The_Session;
    Document_Notes Saved;
    std::filesystem::path File; // the document whose notes these are
    bool Unreadable = false;    // they are left alone
};

// Gives the boxes of a form, by its name, the notes of the scheme that it was opened from; nothing without one.
void Show_Sources(QWidget& form, int substance, int row = 0);

// Opens the window of a field's note. True: it was changed.
bool Edit_Source(Document_Notes& notes, const Pesticide_Document& document, const std::string& field, QWidget* parent);

// What the mark at a field says of its note, empty without one.
QString Tip_Of(const Document_Notes& notes, const std::string& field);

} // namespace orvel
