#pragma once

#include "core/session.h"
#include "core/workbook.h"
#include "files/document_notes.h"

#include <filesystem>
#include <string>
#include <vector>

namespace orvel {

// Every value of a pesticide document with its unit and its source, for the check by a second pair of eyes and for
// entry in another model. Texts are bytes of Windows-1252.

struct Sheet_Row {
    std::string Parameter; // its name; applications that are alike share a row: "Applications[1][1 to 26].App_Rate"
    std::string Field;     // that of the first of them
    std::string Substance, Value, Unit;
    Field_Note Note;
};

// The values that a document has, in its order: those of substances that the scheme forms. The pathway has been
// derived.
std::vector<Sheet_Row> Sheet_Of(const Pesticide_Document& document, const Document_Notes& notes);

// The sheet of a file with the notes beside it. Throws File_Error.
std::vector<Sheet_Row> Read_Sheet(const std::filesystem::path& file);

// As comma-separated values in UTF-8; as a file of them, with a byte order mark; and as a workbook.
std::string Sheet_Lines(const std::vector<Sheet_Row>& rows);
std::string Sheet_Csv(const std::vector<Sheet_Row>& rows);
Workbook Sheet_Book(const std::vector<Sheet_Row>& rows, const std::string& name);

} // namespace orvel
