#pragma once

#include "core/session.h"
#include "files/misread.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace orvel {

// A pesticide file is a tagged text of fixed line order: head, applications, the active substance, then a section for
// each metabolite.

// What is told of a pesticide file beside its document. Unused: values of the first volatilisation line that hold for
// both and differ in the second, which is taken.
struct Pesticide_Notes : File_Notes {
    // Where the transformation rates stand, by substance and row; a line of 0 where there is none.
    Per_Substance<std::array<Place, Degradation_Rows + 1>> Rates{};
};

// Resets the document and fills it as it goes. Throws File_Error (short file, foreign file, a count outside its range);
// what was read until then stays in the document. The pathway (Met_Present and the arrows) is not derived here.
void Parse_PSM(std::string_view bytes, Pesticide_Document& document, Pesticide_Notes* notes = nullptr);

// The file's bytes. Changes the document where the layout says so: Henry_Flag falls to 0 without a solubility, and a
// substance whose Sorp_pKa is 20 gets -99 for its second Koc and both pH values.
std::string Format_PSM(Pesticide_Document& document);

// Reads into the session and sets PSM_Read_OK; false: it failed, and the user has been told.
bool Read_PSM(Session& session, const std::filesystem::path& file);
// Reads a document that is only looked at; false: it failed, and the user has been told.
bool Read_PSM(Pesticide_Document& document, const std::filesystem::path& file, const Ask_Function& ask);

// Writes the session's document whole; false: it failed, and the user has been told.
bool Write_PSM(Session& session, const std::filesystem::path& file);

} // namespace orvel
