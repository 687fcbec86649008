#pragma once

#include "core/session.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// The text boxes of the scenario editor, by control name. Text_peup has no field here, since the factor belongs to the
// substance: it shows nothing, and an edit only marks the document as changed.

constexpr int Most_Layers = 400; // the engine has no room for more compartments

std::vector<std::string_view> Scenario_Boxes();

// The text of a box for the document.
std::string Field_Text(const Scenario_Document& document, std::string_view control);

// On leaving a box: a changed text is stored and marks the document as changed, and the value is checked. A refused
// value stays in the document and in the box.
std::optional<Refusal> Leave_Field(Scenario_Edit edit, std::string_view control, std::string_view text);

} // namespace orvel
