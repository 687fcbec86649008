#pragma once

#include "core/session.h"
#include "files/lost_field.h"

#include <optional>
#include <string>

namespace orvel {

// A value too wide for its column breaks its line, and the file cannot be read back. Each function formats the
// document, parses the text and returns the first field that is lost. What the layout itself changes
// (digits beyond those printed, blanks around a text, fields that no line holds) is no loss. A document that cannot be
// formatted counts as broken.
std::optional<Lost_Field> Broken_By_Layout(const Pesticide_Document& document);
std::optional<Lost_Field> Broken_By_Layout(const Scenario_Document& document);
std::optional<Lost_Field> Broken_By_Layout(const Climate_Table& table);

// The message that names the lost field.
Message Broken_Line_Message(const Lost_Field& field);

// The same as a question whether to save nevertheless; No by default.
Message Broken_Line_Question(const Lost_Field& field);

// True if nothing is lost or the user wants the file nevertheless.
template <class Document> bool May_Save(Session& session, const Document& document)
{
    const auto field = Broken_By_Layout(document);
    return !field || session.Ask(Broken_Line_Question(*field)) == Button::Yes;
}

} // namespace orvel
