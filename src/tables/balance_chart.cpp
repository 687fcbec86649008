#include "tables/balance_chart.h"

#include "charts/scale.h"
#include "core/code_page.h"
#include "core/numbers.h"
#include "core/text.h"
#include "output/table_lines.h"

#include <algorithm>

namespace orvel {

namespace {

constexpr std::size_t Head_Lines = 4; // texts of the run, not to be searched
constexpr std::string_view Title_Begin = "Annual ", Balance = " Balance (", Year_Head = "Year";
constexpr std::size_t Most_Terms = 7;
constexpr double Year_Width = 0.8; // of a year's place, the rest parts it from the next
constexpr std::size_t Most_Labels = 26;

bool Is_Row(std::string_view line)
{
    return !line.empty() && line[0] >= '0' && line[0] <= '9';
}

Balance_Row Row_Of(const std::vector<double>& numbers)
{
    return {static_cast<int>(std::clamp(numbers[0], 0.0, 1e6)), {numbers.begin() + 1, numbers.end()}};
}

Colour Term_Colour(std::size_t term)
{
    return static_cast<Colour>(static_cast<std::size_t>(Colour::Term_1) + term);
}

// A year's boxes stand side by side around the middle of its place.
void Draw_Year(Chart& chart, const Balance_Row& row, const std::vector<std::string>& names, double middle)
{
    const auto terms = static_cast<double>(row.Terms.size());
    for (std::size_t t = 0; t < row.Terms.size(); ++t) {
        const double left = middle - Year_Width / 2 + Year_Width * static_cast<double>(t) / terms;
        chart.Boxes.push_back({Term_Colour(t), left, left + Year_Width / terms, row.Terms[t],
                               std::to_string(row.Year) + ", " + names[t]});
    }
}

Chart Balance_Chart(const Balance_Table& table, std::string title)
{
    Chart chart;
    chart.Title = std::move(title);
    chart.Legend = table.Head;
    for (std::size_t t = 0; t < table.Terms.size(); ++t)
        chart.Key.push_back({Term_Colour(t), table.Terms[t]});
    double low = 0, high = 0;
    const auto every = (table.Rows.size() + Most_Labels - 1) / Most_Labels;
    for (std::size_t r = 0; r < table.Rows.size(); ++r) {
        const auto& row = table.Rows[r];
        const double middle = static_cast<double>(r) + 0.5;
        Draw_Year(chart, row, table.Terms, middle);
        for (const double term : row.Terms) {
            low = std::min(low, term);
            high = std::max(high, term);
        }
        chart.X.Ticks.push_back({middle, Tick_Rank::Big, r % every == 0 ? std::to_string(row.Year) : ""});
    }
    chart.X.Title = "Year ";
    chart.X.High = static_cast<double>(std::max<std::size_t>(table.Rows.size(), 1));
    chart.Y = Value_Axis(low, high);
    chart.Frame = Frame_Around(chart.X, chart.Y);
    return chart;
}

} // namespace

std::vector<Balance_Table> Read_Balances(std::string_view bytes)
{
    const auto lines = Split_Lines(bytes);
    std::vector<std::string> head;
    for (std::size_t i = 0; i < std::min(Head_Lines, lines.size()); ++i)
        head.push_back(Dos_To_Ansi(lines[i]));
    std::vector<Balance_Table> tables;
    for (std::size_t i = Head_Lines; i < lines.size(); ++i) {
        const auto line = Trim_Tabs(lines[i]);
        if (line.starts_with(Title_Begin) && Contains(line, Balance)) {
            const auto label = line.substr(Title_Begin.size(), line.rfind(Balance) - Title_Begin.size());
            tables.push_back({std::string(Trim(label)), {}, {}, head});
        } else if (!tables.empty() && line.starts_with(Year_Head)) {
            const auto heads = Line_Cells(line);
            for (std::size_t c = 1; c < heads.size() && c <= Most_Terms; ++c)
                tables.back().Terms.emplace_back(heads[c]);
        } else if (!tables.empty() && Is_Row(line)) {
            const auto numbers = Line_Numbers(line);
            if (numbers.size() == tables.back().Terms.size() + 1)
                tables.back().Rows.push_back(Row_Of(numbers));
        }
    }
    return tables;
}

Chart Water_Balance_Chart(const Balance_Table& table)
{
    return Balance_Chart(table, "Annual Water Balance (mm)");
}

Chart Substance_Balance_Chart(const Balance_Table& table, std::string_view substance)
{
    return Balance_Chart(table, "Annual " + std::string(substance) + " Balance (g/ha)");
}

} // namespace orvel
