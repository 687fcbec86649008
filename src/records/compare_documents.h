#pragma once

#include "files/document_kind.h"
#include "records/comparison.h"

#include <filesystem>
#include <string>

namespace orvel {

// Adds the fields in which two documents of a kind differ by more than the tolerance, and what differs in the notes
// beside pesticide files; `document` names them. Files with the same bytes are not read further. Throws File_Error with
// the name of the file that cannot be read.
void Compare_Documents(Document_Kind kind, const std::filesystem::path& first, const std::filesystem::path& second,
                       const std::string& document, Comparison& comparison);

// The same for the lines of two run control files, but those that name files.
void Compare_Controls(const std::filesystem::path& first, const std::filesystem::path& second,
                      const std::string& document, Comparison& comparison);

// Adds a field if the values differ by more than the tolerance.
void Compare_Values(const std::string& document, const std::string& field, const std::string& first,
                    const std::string& second, Comparison& comparison);

// Whether two files have the same bytes. Throws File_Error.
bool Have_Same_Bytes(const std::filesystem::path& first, const std::filesystem::path& second);

} // namespace orvel
