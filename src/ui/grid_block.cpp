#include "ui/grid_block.h"

#include "core/text.h"
#include "ui/grid_keys.h"
#include "ui/number_field.h"

#include <algorithm>

namespace orvel {

namespace {

bool Is_Number(int, std::string_view text)
{
    return !Reading_Hint(text);
}

std::vector<std::string> Split_Cells(std::string_view line)
{
    std::vector<std::string> cells;
    while (true) {
        const auto end = line.find('\t');
        cells.emplace_back(Trim(line.substr(0, end)));
        if (end == std::string_view::npos)
            return cells;
        line.remove_prefix(end + 1);
    }
}

// The text that results from typing these characters as keys; the text itself if one of them is not accepted.
std::string Typed_In(const std::string& text, int column, const Grid_Rule& rule)
{
    std::string cell;
    for (const char typed : text) {
        auto longer = rule.Cell_After_Key(cell, column, Key_Code(typed));
        if (longer.size() != cell.size() + 1)
            return text;
        cell = std::move(longer);
    }
    return cell;
}

std::optional<std::string> Pasted_Cell(const std::string& text, const Number_Column& column, int number,
                                       const Grid_Rule& rule)
{
    if (!column.Editable)
        return text;
    if (!column.Choices.empty()) {
        const auto choice = std::find_if(column.Choices.begin(), column.Choices.end(),
                                         [&](const auto& one) { return Same_Text(one, text); });
        return choice == column.Choices.end() ? std::nullopt : std::optional(*choice);
    }
    auto cell = Typed_In(text, number, rule);
    return cell.empty() || rule.Takes(number, cell) ? std::optional(std::move(cell)) : std::nullopt;
}

Pasted_Block Refuse(const std::string& why)
{
    return {{}, Message{"Data Check", why + " Nothing was pasted."}};
}

} // namespace

const Grid_Rule Number_Grid_Rule = {
    [](std::string cell, int, int code) { return After_Key(std::move(cell), Number_Grid_Key(code)); }, Is_Number};
const Grid_Rule Climate_Grid_Rule = {
    [](std::string cell, int, int code) { return After_Key(std::move(cell), Climate_Grid_Key(code)); }, Is_Number};

std::string Heading_Lines(std::string_view heading)
{
    const auto text = Trim(heading);
    std::string lines;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != ' ') {
            lines += text[i];
            continue;
        }
        const auto next = text.find_first_not_of(' ', i);
        const bool ends = next > i + 1 || text[next] == '(' || text[next] == '[';
        lines += ends ? '\n' : ' ';
        i = next - 1;
    }
    return lines;
}

std::optional<std::string> Cell_Hint(std::string_view text, const Number_Column& column)
{
    if (!column.Editable || !column.Choices.empty() || Trim(text).empty())
        return std::nullopt;
    if (auto hint = Reading_Hint(text))
        return hint;
    const auto refusal = Check_Size(text, {});
    return refusal ? std::optional(refusal->Text.Text) : std::nullopt;
}

Message Unread_Cell(std::string_view row, const Number_Column& column, std::string_view text)
{
    std::string heading = Heading_Lines(column.Heading);
    std::ranges::replace(heading, '\n', ' ');
    return {"Data Check", std::string(Trim(row)) + ", " + heading + ": \"" + std::string(Trim(text)) +
                              "\" cannot be read as a number."};
}

std::string Print_Block(const Grid_Block& block)
{
    std::string text;
    for (const auto& row : block) {
        for (std::size_t c = 0; c < row.size(); ++c)
            text += (c > 0 ? "\t" : "") + row[c];
        text += '\n';
    }
    return text;
}

Pasted_Block Read_Block(std::string_view text, std::size_t rows, const std::vector<Number_Column>& columns,
                        std::size_t first_column, const Grid_Rule& rule)
{
    Pasted_Block block;
    for (const auto line : Split_Lines(text)) {
        auto cells = Split_Cells(line);
        if (block.Cells.size() == rows || first_column + cells.size() > columns.size())
            return Refuse("The block does not fit into the grid from this cell on.");
        for (std::size_t c = 0; c < cells.size(); ++c) {
            const auto cell =
                Pasted_Cell(cells[c], columns[first_column + c], static_cast<int>(first_column + c), rule);
            if (!cell)
                return Refuse("\"" + cells[c] + "\" cannot stand in this column.");
            cells[c] = *cell;
        }
        block.Cells.push_back(std::move(cells));
    }
    return block;
}

} // namespace orvel
