#include "tables/leachate_periods.h"

#include "core/text.h"
#include "tables/leachate_percentile.h"

#include <algorithm>

namespace orvel {

namespace {

constexpr std::size_t Column_Heads = 4; // place of the line among a table's head lines
constexpr std::size_t Heads_Behind_First = 11;
constexpr std::size_t Heads_Width = 100;

void Print_Period_Table(Table_Text& text, const std::vector<std::string>& head, const Leachate_Table& table)
{
    for (std::size_t i = 0; i < Column_Heads; ++i)
        text.Line(head[i]);
    const std::string heads = "\t" + std::string(Columns(head[Column_Heads], Heads_Behind_First, Heads_Width));
    text.Line("\t     Period " + heads, "\t Period " + heads);
    text.Line("\t         \t     (g/ha)\t    (L/m\xB2)\t     (\xB5g/L)  ");
    text.Line(Leachate_Dashes);
    for (std::size_t p = 0; p < table.Rows.size(); ++p)
        Print_Leachate_Row(text, p + 1, table.Rows[p]);
    Print_Leachate_Result(text, table.Result, Percentile_Label);
}

} // namespace

Leachate_Table Periods_Of(const Leachate_Table& years, int period_index)
{
    const auto years_a_period = static_cast<std::size_t>(period_index) + 1;
    Leachate_Table table;
    for (std::size_t p = 0; p < Leachate_Periods; ++p) {
        auto& row = table.Rows.emplace_back();
        const auto first = Warm_Up_Years + p * years_a_period;
        for (auto y = first; y < std::min(first + years_a_period, years.Rows.size()); ++y) {
            row.Flux += years.Rows[y].Flux;
            row.Percolate += years.Rows[y].Percolate;
        }
        row.Conc = Leachate_Conc(row.Flux, row.Percolate);
    }
    table.Result = Evaluate_Leachate(table.Rows, 0);
    return table;
}

Period_Tables Build_Periods(std::string_view year_bytes, int period_index)
{
    const auto printed = Parse_Leachate(year_bytes);
    Period_Tables periods;
    for (const auto& title : printed.Titles)
        periods.Text.Line(title, "          " + title);
    for (const auto& years : printed.Tables) {
        auto table = Periods_Of(years.Table, period_index);
        Print_Period_Table(periods.Text, years.Head, table);
        periods.Set[static_cast<std::size_t>(years.At)].push_back(std::move(table));
    }
    return periods;
}

} // namespace orvel
