#pragma once

#include <string>

namespace orvel {

// The key rules of the grids whose cells are edited by keys, as functions from a key to an action. Key codes are those
// of the grids' rules: 48 to 57 the digits, 96 to 105 those of the number pad, 69 E, 190 and 110 point, 188 comma, 189
// and 109 minus, 187 and 107 plus.

constexpr int Key_Backspace = 8;
constexpr int Key_Delete = 46;

// The key code of a typed character: digits, E in either case, point, comma, minus, plus and slash; 0 for any other.
int Key_Code(char typed);

struct Key_Action {
    enum class Kind { None, Append, Drop_Last };
    Kind Does = Kind::None;
    char Character = 0;
    bool operator==(const Key_Action&) const = default;
};

// The grids of numbers (horizons, depth dependence, applications): digits, minus, E, point (the comma key too); Delete
// removes the last character.
Key_Action Number_Grid_Key(int code);

// The climate grid: codes 47 to 57, E, point (the comma key too), plus and minus; Backspace removes the last character.
Key_Action Climate_Grid_Key(int code);

// The text of a cell after an action; removing the last character of an empty cell leaves it empty.
std::string After_Key(std::string cell, Key_Action action);

} // namespace orvel
