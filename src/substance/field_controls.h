#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// Which field of the document stands behind each box of the substance forms.

struct Control_Field {
    std::string Control, Field;
    bool operator==(const Control_Field&) const = default;
};

// The boxes of a form by its name; `substance` is that of the form, `row` that of the arrow in its table.
std::vector<Control_Field> Fields_Of_Form(std::string_view form, int substance, int row = 0);

} // namespace orvel
