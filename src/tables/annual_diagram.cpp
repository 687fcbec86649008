#include "tables/annual_diagram.h"

#include "charts/scale.h"
#include "core/code_page.h"
#include "core/numbers.h"
#include "core/text.h"
#include "output/table_lines.h"

#include <algorithm>

namespace orvel {

namespace {

constexpr std::size_t Head_Lines = 4;
constexpr std::size_t Table_Lines = 30, Rows_First = 7, Percentile_Line = 29; // from a table's begin
constexpr std::size_t Title_Line = 2;
constexpr std::size_t Concentration_Column = 3;
constexpr double Half_Width = 0.2;

constexpr std::string_view Title_Begin = "Results for ", Title_End = " in the percolate at ";

std::string Name_In(std::string_view title)
{
    title = Trim_Tabs(title);
    if (title.starts_with(Title_Begin))
        title.remove_prefix(Title_Begin.size());
    return std::string(title.substr(0, title.rfind(Title_End)));
}

std::string_view Behind(std::string_view text, char mark)
{
    const auto at = text.find(mark);
    return at == std::string_view::npos ? std::string_view() : text.substr(at + 1);
}

int Whole(std::string_view text)
{
    const double number = Val(text);
    return number >= 1 && number <= Periods ? static_cast<int>(number) : 0;
}

} // namespace

std::vector<std::string> Period_Substances(std::string_view bytes)
{
    const auto lines = Split_Lines(bytes);
    const auto tables = lines.size() < Head_Lines ? 0 : (lines.size() - Head_Lines) / Table_Lines;
    std::vector<std::string> names;
    for (std::size_t i = 0; i < tables / Annual_Depths.size(); ++i)
        names.push_back(Name_In(lines[Head_Lines + i * Table_Lines + Title_Line]));
    return names;
}

std::optional<Period_Table> Read_Period_Table(std::string_view bytes, std::size_t depth, std::size_t substance)
{
    const auto lines = Split_Lines(bytes);
    const auto substances = Period_Substances(bytes).size();
    if (substance >= substances || depth >= Annual_Depths.size())
        return std::nullopt;
    const auto first = Head_Lines + Table_Lines * (depth * substances + substance);
    Period_Table table;
    for (std::size_t i = 0; i < Head_Lines; ++i)
        table.Head.push_back(Dos_To_Ansi(lines[i]));
    for (std::size_t p = 0; p < Periods; ++p) {
        const auto row = Line_Numbers(lines[first + Rows_First + p]);
        table.Concentrations.push_back(row.size() > Concentration_Column ? row[Concentration_Column] : 0);
    }
    const auto percentile = lines[first + Percentile_Line];
    const auto pair = Behind(percentile, '(');
    table.Period_A = Whole(pair);
    table.Period_B = Whole(Behind(pair, '/'));
    table.Percentile = Val(Line_Cells(percentile).back());
    return table;
}

Chart Annual_Diagram(const Period_Table& table, std::size_t depth, std::string_view substance)
{
    Chart chart;
    chart.Title = "Average " + std::string(substance) + " concentration in leachate " +
                  (depth == 0 ? "(1m depth)" : "(soil bottom)") + " [\xB5g/L]";
    chart.Legend = table.Head;
    double high = 0;
    for (int p = 1; p <= Periods; ++p) {
        const double concentration = table.Concentrations[static_cast<std::size_t>(p) - 1];
        const bool marked = p == table.Period_A || p == table.Period_B;
        chart.Boxes.push_back(
            {marked ? Colour::Marked : Colour::Series, p - Half_Width, p + Half_Width, concentration});
        chart.X.Ticks.push_back({static_cast<double>(p), Tick_Rank::Big, std::to_string(p)});
        high = std::max(high, concentration);
    }
    chart.Lines.push_back({Colour::Marked, {{0, table.Percentile}, {Periods, table.Percentile}}});
    chart.X.Title = "Period";
    chart.X.High = Periods;
    chart.Y = Value_Axis(0, high);
    chart.Frame = Frame_Around(chart.X, chart.Y);
    return chart;
}

} // namespace orvel
