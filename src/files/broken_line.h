#pragma once

#include "core/session.h"

#include <optional>
#include <string>

namespace orvel {

// A value too wide for its column breaks its line, and the file cannot be read back. Each function prints the document,
// reads the text again and gives the name of the first field that is lost; nothing where all comes back but for what
// the layout itself changes (digits beyond those printed, blanks around a text, what no line holds). A document that
// cannot be printed at all counts as broken.
std::optional<std::string> Broken_By_Layout(const Pesticide_Document& document);
std::optional<std::string> Broken_By_Layout(const Scenario_Document& document);
std::optional<std::string> Broken_By_Layout(const Climate_Table& table);

// Tells the user which field is lost.
Message Broken_Line_Told(const std::string& field);

// The same, with the question whether to save all the same; No by default.
Message Broken_Line_Question(const std::string& field);

// True where nothing is lost or the user wants the file all the same.
template <class Document> bool May_Save(Session& session, const Document& document)
{
    const auto field = Broken_By_Layout(document);
    return !field || session.Ask(Broken_Line_Question(*field)) == Button::Yes;
}

} // namespace orvel
