#pragma once

#include "core/session.h"
#include "files/misread.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace orvel {

// A scenario file is positional: title, evapotranspiration, erosion, crops, rotation dates, soil horizons, output
// frequencies.

// Fills the document as it goes; the caller resets it first. Throws File_Error; what was read until then stays in the
// document. `notes`, where the caller asks for them: words that are no numbers, and as unused horizon numbers that are
// not 1, 2, 3 ..., for horizons are taken in the order of their lines.
void Parse_SZE(std::string_view bytes, Scenario_Document& document, File_Notes* notes = nullptr);

// The file's bytes. Changes the document where the layout says so: SZE_First_Crop follows the first crop row, and an
// empty output frequency becomes " DAY".
std::string Format_SZE(Scenario_Document& document);

// Resets the scenario document, reads into the session and sets PSM_Read_OK; false: it failed, and the user has been
// told.
bool Read_SZE(Session& session, const std::filesystem::path& file);
// Reads a document that is only looked at; false: it failed, and the user has been told.
bool Read_SZE(Scenario_Document& document, const std::filesystem::path& file, const Ask_Function& ask);
bool Write_SZE(Session& session, const std::filesystem::path& file);

} // namespace orvel
