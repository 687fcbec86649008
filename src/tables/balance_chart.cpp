#include "tables/balance_chart.h"

#include "charts/scale.h"
#include "core/code_page.h"
#include "core/text.h"
#include "tables/balance_text.h"

#include <algorithm>

namespace orvel {

namespace {

constexpr double Year_Width = 0.94; // of a year's slot; the rest separates it from the next
constexpr std::size_t Most_Labels = 26;

Colour Term_Colour(std::size_t term)
{
    return static_cast<Colour>(static_cast<std::size_t>(Colour::Term_1) + term);
}

// Terms that are zero in every year take no room.
template <class Row, std::size_t Count>
std::array<bool, Count> Terms_Drawn(const std::vector<Row>& rows, const std::array<Balance_Column<Row>, Count>& columns)
{
    std::array<bool, Count> drawn{};
    for (std::size_t t = 0; t < Count; ++t)
        drawn[t] = std::ranges::any_of(rows, [&](const Row& row) { return row.*columns[t].Figure != 0; });
    return drawn;
}

// A year's boxes are drawn side by side around the middle of its slot.
template <class Row, std::size_t Count>
void Draw_Year(Chart& chart, const Row& row, const std::array<Balance_Column<Row>, Count>& columns,
               const std::array<bool, Count>& drawn, const std::string& year, double middle)
{
    const auto terms = std::max<std::ptrdiff_t>(1, std::ranges::count(drawn, true));
    const double width = Year_Width / static_cast<double>(terms);
    double left = middle - Year_Width / 2;
    for (std::size_t t = 0; t < Count; ++t) {
        const double right = drawn[t] ? left + width : left;
        chart.Boxes.push_back(
            {Term_Colour(t), left, right, row.*columns[t].Figure, "Year " + year + ", " + chart.Key[t].Text});
        left = right;
    }
}

template <class Row, std::size_t Count>
Chart Balance_Chart(const std::vector<Row>& rows, const std::array<Balance_Column<Row>, Count>& columns,
                    const std::vector<std::string>& titles, std::string title, std::string unit)
{
    Chart chart;
    chart.Title = std::move(title);
    chart.Unit = std::move(unit);
    if (rows.empty())
        chart.Nothing = "The run has no balance of a whole year.";
    for (const auto& line : titles)
        chart.Legend.push_back(Dos_To_Ansi(line));
    for (std::size_t t = 0; t < Count; ++t)
        chart.Key.push_back({Term_Colour(t), std::string(Trim(columns[t].Head))});
    double low = 0, high = 0;
    const auto drawn = Terms_Drawn(rows, columns);
    const auto every = (rows.size() + Most_Labels - 1) / Most_Labels;
    for (std::size_t r = 0; r < rows.size(); ++r) {
        const auto year = std::to_string(r + 1);
        const double middle = static_cast<double>(r) + 0.5;
        Draw_Year(chart, rows[r], columns, drawn, year, middle);
        for (const auto& column : columns) {
            low = std::min(low, rows[r].*column.Figure);
            high = std::max(high, rows[r].*column.Figure);
        }
        chart.X.Ticks.push_back({middle, Tick_Rank::Big, r % every == 0 ? year : ""});
    }
    chart.X.Title = "Year ";
    chart.X.High = static_cast<double>(std::max<std::size_t>(rows.size(), 1));
    chart.Y = Plain_Value_Axis(low, high);
    chart.Frame = Frame_Around(chart.X, chart.Y);
    return chart;
}

} // namespace

Chart Water_Balance_Chart(const Balance_Tables& tables)
{
    return Balance_Chart(tables.Water, Water_Columns, tables.Titles, "Annual Water Balance (mm)", "mm");
}

Chart Substance_Balance_Chart(const Balance_Tables& tables, std::size_t substance)
{
    auto columns = Pesticide_Columns;
    if (substance > 0)
        columns.front().Head = Formation_Head;
    return Balance_Chart(tables.Pesticide[substance], columns, tables.Titles,
                         "Annual " + tables.Substance_Name[substance] + " Balance (g/ha)", "g/ha");
}

} // namespace orvel
