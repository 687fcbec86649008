#pragma once

#include "core/session.h"
#include "core/system/lock.h"
#include "files/document_kind.h"
#include "files/document_notes.h"

#include <filesystem>
#include <optional>
#include <string>

namespace orvel {

// Where this user's copies are; empty for a user without a home.
std::filesystem::path Place_Of_Unsaved_Copies();

// A copy of a document under edit and of its notes, kept apart from the original as long as its changes are not saved.
// It outlives the program's end, and is offered when the document is edited again.
class Unsaved_Copy {
public:
    // `place` holds the user's copies; `file` is what the document was opened from, or the directory and mask of a new
    // one. An empty place keeps nothing.
    Unsaved_Copy(std::filesystem::path place, Document_Kind kind, std::filesystem::path file);

    // The copy that an editor left which no longer lives; nothing if there is none, or if it is what the session holds.
    // Throws File_Error if the copies cannot be searched.
    std::optional<Message> Offer(const Session& session, const Document_Notes& notes = {});
    // Takes the copy that was offered for the session's document; it stays until the editor ends. False: it could not
    // be read, and the user was told.
    bool Take(Session& session, Document_Notes& notes);
    // The same of a copy that was not offered, since its document is gone. False also if another program has taken it.
    bool Take_Left(Session& session, Document_Notes& notes, const std::filesystem::path& copy);
    void Drop_Offered();
    void Leave_Offered(); // for the next time

    // The editor lives from now on, and its document is as in the file.
    void Begin(const Session& session, const Document_Notes& notes = {});
    // Writes the session's document and the notes if they were changed since the last call. A document that no file can
    // hold, and a directory that cannot be written, keep the copy of before: whether it is up to date.
    bool Keep(const Session& session, const Document_Notes& notes = {});
    const std::string& Trouble() const { return Why_Not; } // why the last copy could not be written; else empty
    bool Has_Copy() const { return Alive.has_value(); }
    // The document was saved, or its changes were given up.
    void End();

private:
    void Write(const std::string& document, const Document_Notes& notes);

    std::filesystem::path Place, Own, Offered;
    Document_Kind Kind;
    std::filesystem::path File;
    std::string Why_Not;
    std::string Key;                  // the beginning of the names of this document's copies
    std::string Stored;               // the bytes of file or copy, whichever is newer
    std::optional<Lock> Alive, Asked; // nobody else is offered what this user is asked about
};

constexpr const char* Origin_File = "document"; // beside a copy: the path of what was under edit

} // namespace orvel
