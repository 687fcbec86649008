#pragma once

#include "core/session.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// The text boxes of the scenario editor, by the names of their controls. Text_peup has no field here, the factor
// belongs to the substance: it shows nothing, and an edit only marks the document changed.

constexpr int Most_Layers = 400; // the layer arrays of the engine hold no more compartments

// The names of all boxes, for loading them in one loop.
std::vector<std::string_view> Scenario_Boxes();

// The text that a box shows for the document.
std::string Field_Text(const Scenario_Document& document, std::string_view control);

// What leaving a box does: a text other than the one shown marks the document changed and is stored, and the value is
// tested. A refused value stays in the document and in the box.
std::optional<Refusal> Leave_Field(Scenario_Edit edit, std::string_view control, std::string_view text);

} // namespace orvel
