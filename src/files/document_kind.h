#pragma once

#include "core/session.h"
#include "files/document_differences.h"
#include "files/lost_field.h"

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace orvel {

enum class Document_Kind { Pesticide, Scenario, Climate };

// What the program knows of a kind of document. What needs the editors' rules is bound in documents/.
struct Document_Type {
    Document_Kind Kind;
    std::string_view Ending; // selects the kind
    std::string_view Mask;   // of its files, and the name of a new document
    bool Program_State::*Changed;
    bool (*Read)(Session& session, const std::filesystem::path& file);
    bool (*Write)(Session& session, const std::filesystem::path& file);
    std::optional<Lost_Field> (*Broken_Field)(const Session& session); // the first field that a save would lose
    std::string (*Json)(const Session& session);
    std::string (*Format)(
        const Session& session); // the bytes of the file; what writing changes in the document is left out
    std::vector<Difference> (*Differences)(const Session& first, const Session& second);
};

// In the order of Document_Kind.
extern const std::array<Document_Type, 3> Document_Types;

const Document_Type& Type_Of(Document_Kind kind);

// The kind that the ending says (in any case), or nothing.
std::optional<Document_Kind> Kind_Of(const std::filesystem::path& file);

// A file's name as the user is shown it, and the message for an unknown extension.
std::string Shown_Name(const std::filesystem::path& file);
std::string Unknown_Ending(const std::filesystem::path& file);

// Writes the session's document of the kind that the ending says. Asks nothing: Broken_Field comes before.
// False: it failed, and the user has been told.
bool Save_Document(Session& session, const std::filesystem::path& file);

} // namespace orvel
