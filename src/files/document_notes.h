#pragma once

#include "core/json_reader.h"
#include "files/document_differences.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace orvel {

// What is known of a document's values, kept beside it in NAME.notes.json so that the document keeps its bytes: where a
// field's value comes from, and why a value that the guidance questions was kept. Texts are bytes of Windows-1252.

struct Field_Note {
    std::string Source, Comment, Checked_By, Date;
    Json_Value::Object Others{}; // members of other programs, kept as they are

    bool Is_Empty() const;
    bool Says_The_Same(const Field_Note& other) const;
};

// Why a finding of a rule was accepted. It holds for the value that it was given for.
struct Guidance_Answer {
    std::string Rule, Field, Value, Text, By, Date;
    Json_Value::Object Others{};
};

struct Document_Notes {
    std::vector<std::pair<std::string, Field_Note>> Fields; // by name, each once, in the order of the file
    std::vector<Guidance_Answer> Answers;                   // each rule and field once
    Json_Value::Object Others{};

    bool Is_Empty() const { return Fields.empty() && Answers.empty() && Others.empty(); }
};

// The note of a field, nullptr without one.
const Field_Note* Note_Of(const Document_Notes& notes, std::string_view field);
// Puts a note in place of the field's old one; an empty one takes it away.
void Set_Note(Document_Notes& notes, std::string_view field, Field_Note note);

const Guidance_Answer* Answer_Of(const Document_Notes& notes, std::string_view rule, std::string_view field);
void Set_Answer(Document_Notes& notes, Guidance_Answer answer); // an empty text takes it away

// Somebody else's notes with what one user changed from `before` to `after`.
Document_Notes With_Changes(Document_Notes others, const Document_Notes& before, const Document_Notes& after);

// What two documents' notes say differently: "Koc[1], source", "Koc[1], comment", "answer to P1.1 for Plant_Uptake[1]".
std::vector<Difference> Differences(const Document_Notes& first, const Document_Notes& second);

// The bytes of a notes file, and the notes in them. Throws File_Error with line and column.
std::string Format_Notes(const Document_Notes& notes);
Document_Notes Parse_Notes(std::string_view bytes);

// The notes beside a document: "demo_D.psm" has "demo_D.notes.json". A missing file has none; one that cannot be read
// or understood throws File_Error with its name.
std::filesystem::path Notes_File(const std::filesystem::path& document);
Document_Notes Read_Notes(const std::filesystem::path& document);

// Copies the notes of a document beside another one, in place of what is there. Throws File_Error.
void Copy_Notes(const std::filesystem::path& from, const std::filesystem::path& to);

// Writes the notes whole beside a document; notes that say nothing leave no file there. Throws File_Error.
void Write_Notes(const std::filesystem::path& document, const Document_Notes& notes);

} // namespace orvel
