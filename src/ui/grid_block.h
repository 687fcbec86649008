#pragma once

#include "core/message.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// Blocks of cells copied between a grid and a spreadsheet: cells separated by tabs, rows by line ends. All texts are
// bytes of Windows-1252.

// A column of a grid. A cell of a column with choices is one of them.
struct Number_Column {
    std::string Heading;
    bool Editable = true;
    std::vector<std::string> Choices;
};

// What a grid does with keys and texts: the cell after a key, and whether a cell accepts a whole text that is pasted.
struct Grid_Rule {
    std::string (*Cell_After_Key)(std::string cell, int column, int key_code) = nullptr;
    bool (*Takes)(int column, std::string_view text) = nullptr;
};

// The rules of the number grids and of the climate grid. A pasted text must be a number from end to end: part of it
// would be another number.
extern const Grid_Rule Number_Grid_Rule, Climate_Grid_Rule;

// A text broken into heading lines: at wide gaps, and before a unit in brackets.
std::string Heading_Lines(std::string_view heading);

// What is wrong with the text of a cell that wants a number; nothing for an empty one and for a title or choice.
std::optional<std::string> Cell_Hint(std::string_view text, const Number_Column& column);

// That the text of a cell cannot be read as a number; `row` names its row.
Message Unread_Cell(std::string_view row, const Number_Column& column, std::string_view text);

using Grid_Block = std::vector<std::vector<std::string>>;

std::string Print_Block(const Grid_Block& block);

// A pasted block for `rows` rows and the columns from `first_column` on. A cell gets what typing its characters would
// give, so that a comma becomes a point where the comma key writes one. A block that does not fit, or has a text that
// its cell does not accept, is refused as a whole, with a message that says why. Texts over columns that are not
// editable are ignored.
struct Pasted_Block {
    Grid_Block Cells;
    std::optional<Message> Refused;
};
Pasted_Block Read_Block(std::string_view text, std::size_t rows, const std::vector<Number_Column>& columns,
                        std::size_t first_column, const Grid_Rule& rule);

} // namespace orvel
