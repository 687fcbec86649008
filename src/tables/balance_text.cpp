#include "tables/balance_text.h"

#include "core/numbers.h"
#include "core/text.h"
#include "output/table_lines.h"

#include <algorithm>

namespace orvel {

namespace {

constexpr int Balance_Width = 9;
constexpr int Last_Pesticide_Width = 10;
constexpr std::size_t Rule_Length = 117;
constexpr std::string_view Balance = " Balance (";

// What differs between the views: the beginning of the tables' titles, and the heading of the first column.
struct View_Words {
    std::string_view Title, Water_Head, Pesticide_Head;
};
constexpr View_Words Annual_Words = {"\tAnnual ", "\tYear  ", "\tYear  "};
constexpr View_Words Monthly_Words = {"\tMonthly ", "\tMonth  ", "\tMonth"};

const View_Words& Words_Of(Balance_View view)
{
    return view == Balance_View::Annual ? Annual_Words : Monthly_Words;
}

void Print_Title(Table_Text& text, Balance_View view, const std::string& title)
{
    text.Line("");
    text.Line("");
    text.Line(std::string(Words_Of(view).Title) + title);
    text.Line("");
}

template <class Row, std::size_t Count> Row Print_Figures(Table_Text& text, std::size_t number, Row row,
                                                          const std::array<Balance_Column<Row>, Count>& columns,
                                                          int last_width)
{
    std::string line(Tab_Char);
    line.append(Number_Text('I', static_cast<double>(number), Year_Column_Width)).append("    ");
    for (const auto& column : columns) {
        auto& figure = row.*column.Figure;
        const bool last = &column == &columns.back();
        line.append(Tab_Char).append(Number_Text('F', figure, last ? last_width : Balance_Width));
        figure = As_Printed(figure);
    }
    text.Line(line);
    return row;
}

bool Is_Row(std::string_view line)
{
    return !line.empty() && line[0] >= '0' && line[0] <= '9';
}

// Walks over the tables of a text: `table` is called with the label of each, `row` with the numbers of each of its
// rows.
template <class On_Table, class On_Row>
void Parse_Tables(std::string_view bytes, Balance_View view, On_Table table, On_Row row)
{
    const auto title = Words_Of(view).Title.substr(1);
    const auto lines = Split_Lines(bytes);
    bool any = false;
    for (std::size_t i = Title_Count; i < lines.size(); ++i) {
        const auto line = Trim_Tabs(lines[i]);
        if (line.starts_with(title) && Contains(line, Balance)) {
            table(Trim(line.substr(title.size(), line.rfind(Balance) - title.size())));
            any = true;
        } else if (any && Is_Row(line)) {
            row(Line_Numbers(line));
        }
    }
}

template <class Row, std::size_t Count> void Add_Row(const std::vector<double>& numbers,
                                                     const std::array<Balance_Column<Row>, Count>& columns,
                                                     std::vector<Row>& rows)
{
    if (numbers.size() != Count + 1)
        return;
    auto& row = rows.emplace_back();
    for (std::size_t c = 0; c < Count; ++c)
        row.*columns[c].Figure = numbers[c + 1];
}

} // namespace

void Print_Water_Head(Table_Text& text, Balance_View view)
{
    Print_Title(text, view, "Water Balance (L/m\xB2)");
    std::string heads(Words_Of(view).Water_Head);
    for (const auto& column : Water_Columns)
        heads.append(Tab_Char).append(column.Head);
    text.Line(heads);
}

void Print_Pesticide_Head(Table_Text& text, Balance_View view, std::string_view label, bool active_substance)
{
    Print_Title(text, view, std::string(label) + std::string(Balance) + "g/ha)");
    std::string heads(Words_Of(view).Pesticide_Head);
    for (const auto& column : Pesticide_Columns) {
        const bool formation = &column == &Pesticide_Columns.front() && !active_substance;
        heads.append(Tab_Char).append(formation ? Formation_Head : column.Head);
    }
    text.Line(heads);
    text.Line("\t" + std::string(Rule_Length, '-'));
}

Water_Balance_Row Print_Row(Table_Text& text, std::size_t number, Water_Balance_Row row)
{
    return Print_Figures(text, number, row, Water_Columns, Balance_Width);
}

Pesticide_Balance_Row Print_Row(Table_Text& text, std::size_t number, Pesticide_Balance_Row row)
{
    return Print_Figures(text, number, row, Pesticide_Columns, Last_Pesticide_Width);
}

void Parse_Water(std::string_view bytes, Balance_View view, Balance_Tables& tables)
{
    Line_Reader lines(bytes);
    while (!lines.At_End() && tables.Titles.size() < Title_Count)
        tables.Titles.emplace_back(Trim(lines.Next()));
    Parse_Tables(
        bytes, view, [](std::string_view) {},
        [&](const std::vector<double>& numbers) { Add_Row(numbers, Water_Columns, tables.Water); });
}

bool Are_Balance_Files(std::string_view water, std::string_view pesticides, Balance_View view,
                       const Balance_Tables& tables)
{
    if (tables.Titles.size() < Title_Count || tables.Pesticide.empty() || !Why_Not_Whole(tables, view).empty())
        return false;
    Table_Text first, second;
    first.Head(tables.Titles);
    second.Head(tables.Titles);
    Print_Water_Head(first, view);
    for (std::size_t row = 0; row < tables.Water.size(); ++row)
        Print_Row(first, row + 1, tables.Water[row]);
    for (std::size_t s = 0; s < tables.Pesticide.size(); ++s) {
        const bool active_substance = s == 0;
        Print_Pesticide_Head(second, view, (active_substance ? "" : " ") + tables.Substance_Name[s], active_substance);
        for (std::size_t row = 0; row < tables.Pesticide[s].size(); ++row)
            Print_Row(second, row + 1, tables.Pesticide[s][row]);
    }
    return Holds_Text(water, first.File) && Holds_Text(pesticides, second.File);
}

std::string Why_Not_Whole(const Balance_Tables& tables, Balance_View view)
{
    if (tables.Water.empty() && view == Balance_View::Annual) // a run without monthly output has no months
        return "The output of the run has the balance of no year.";
    const std::string unit = view == Balance_View::Annual ? "year" : "month";
    const bool same =
        std::ranges::all_of(tables.Pesticide, [&](const auto& rows) { return rows.size() == tables.Water.size(); });
    return same ? "" : "The balances of water and substances do not have the same number of " + unit + "s.";
}

void Parse_Pesticides(std::string_view bytes, Balance_View view, Balance_Tables& tables)
{
    Parse_Tables(
        bytes, view,
        [&](std::string_view label) {
            tables.Pesticide.emplace_back();
            tables.Substance_Name.emplace_back(label);
        },
        [&](const std::vector<double>& numbers) { Add_Row(numbers, Pesticide_Columns, tables.Pesticide.back()); });
}

} // namespace orvel
