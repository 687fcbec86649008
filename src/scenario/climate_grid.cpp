#include "scenario/climate_grid.h"

#include "core/text.h"

#include <chrono>

namespace orvel {

namespace {

constexpr std::size_t Hour_Column = 3;
constexpr std::array<std::string_view, Climate_Grid::Text_Columns> Text_Headings = {"Day", "Mon", "Year", "hour"};
constexpr std::array<std::string Climate_Row::*, Climate_Grid::Text_Columns> Texts = {
    &Climate_Row::Cli_Day, &Climate_Row::Cli_Month, &Climate_Row::Cli_Year, &Climate_Row::Cli_Hour};

std::string Two_Characters(const std::string& cell)
{
    if (cell.size() == 1)
        return "0" + cell;
    return cell.empty() ? "  " : cell.substr(0, 2);
}

void Store(Climate_Row& row, std::size_t column, const std::string& cell)
{
    if (column >= Climate_Grid::Text_Columns)
        row.*Climate_Columns[column - Climate_Grid::Text_Columns].Number = Val(cell);
    else
        row.*Texts[column] = column == Hour_Column ? cell : Two_Characters(cell);
}

} // namespace

Climate_Grid::Climate_Grid(const Climate_Table& table)
{
    Shown.Cli_Title = table.Cli_Title;
    for (const auto& row : table.Rows) {
        if (!Trim(row.Cli_Day).empty())
            Shown.Rows.push_back(row);
    }
}

std::string Climate_Grid::Cell(std::size_t row, std::size_t column) const
{
    if (const auto edited = Edited.find({row, column}); edited != Edited.end())
        return edited->second;
    const auto& shown = Shown.Rows[row];
    if (column >= Text_Columns && Trim(shown.Cli_Day).empty()) // a new row
        return {};
    return column < Text_Columns ? shown.*Texts[column] : Cell_Text(shown, Climate_Columns[column - Text_Columns]);
}

void Climate_Grid::Set_Cell(std::size_t row, std::size_t column, std::string_view text)
{
    Edited[{row, column}] = text;
}

void Climate_Grid::Append_Rows(std::size_t count)
{
    Shown.Rows.resize(Shown.Rows.size() + count);
}

void Climate_Grid::Remove_Rows(std::size_t count)
{
    Shown.Rows.resize(Shown.Rows.size() - count);
    Edited.erase(Edited.lower_bound({Shown.Rows.size(), 0}), Edited.end());
}

std::vector<std::string> Climate_Grid::Next_Day() const
{
    Climate_Row row{.Cli_Day = "01", .Cli_Month = "01", .Cli_Year = "01"};
    if (Rows() > 0) {
        const auto last = Rows() - 1;
        const auto part = [&](std::size_t column) {
            return static_cast<unsigned>(Whole_Part(Cell(last, column), 0, 99));
        };
        using namespace std::chrono;
        const sys_days day = year(2000 + static_cast<int>(part(2))) / month(part(1)) / part(0);
        const year_month_day next = day + days(1);
        row.Cli_Day = Format_Pattern(static_cast<unsigned>(next.day()), "00");
        row.Cli_Month = Format_Pattern(static_cast<unsigned>(next.month()), "00");
        row.Cli_Year = Format_Pattern(static_cast<int>(next.year()) % 100, "00");
        row.Cli_Hour = Cell(last, Hour_Column);
    }
    std::vector<std::string> cells;
    for (const auto text : Texts)
        cells.push_back(row.*text);
    for (const auto& column : Climate_Columns)
        cells.push_back(Cell_Text(row, column));
    return cells;
}

std::vector<double> Climate_Grid::Values(std::size_t column) const
{
    std::vector<double> values;
    for (std::size_t row = 0; row < Rows(); ++row)
        values.push_back(Val(Cell(row, Text_Columns + column)));
    return values;
}

std::vector<std::string> Climate_Grid::Dates() const
{
    std::vector<std::string> dates;
    for (std::size_t row = 0; row < Rows(); ++row)
        dates.push_back(Two_Characters(Cell(row, 0)) + "." + Two_Characters(Cell(row, 1)) + "." +
                        Two_Characters(Cell(row, 2)));
    return dates;
}

Climate_Table Climate_Grid::Table() const
{
    Climate_Table table = Shown;
    Round_As_Shown(table);
    for (const auto& [place, cell] : Edited)
        Store(table.Rows[place.first], place.second, cell);
    return table;
}

std::string Climate_Heading(std::size_t column)
{
    if (column < Climate_Grid::Text_Columns)
        return std::string(Text_Headings[column]);
    const auto& heading = Climate_Columns[column - Climate_Grid::Text_Columns];
    return std::string(heading.Heading) + "\n" + std::string(heading.Heading_Below);
}

void Take_Over_Climate(Session& session, const Climate_Grid& grid)
{
    session.Climate = grid.Table();
}

} // namespace orvel
