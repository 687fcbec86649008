#include "tables/leachate_text.h"

#include "core/numbers.h"
#include "core/text.h"
#include "output/quick_val.h"
#include "output/table_lines.h"

#include <array>

namespace orvel {

namespace {

constexpr int Number_Width = 4;
constexpr int Figure_Width = 12;
constexpr int Conc_Decimals = 3;
constexpr std::size_t Title_Count = 4;
constexpr std::size_t Title_Head = 4; // two blank lines, the title, a blank line

constexpr std::array<std::string_view, 2> Depth_Titles = {" in the percolate at 1 m soil depth",
                                                          " in the percolate at the bottom of the simulated soil core"};
constexpr std::array<std::string_view, 2> Flux_Heads = {" Flux", "  Flux"};

std::string Figures(const Leachate_Row& row)
{
    return "\t" + Number_Text('F', row.Flux, Figure_Width) + "\t" + Number_Text('F', row.Percolate, Figure_Width) +
           "\t" + Fixed_Text(row.Conc, Conc_Decimals);
}

// Flux, percolate and concentration from a cell on.
Leachate_Row Figures_From(const std::vector<std::string_view>& cells, std::size_t first)
{
    const auto number = [&](std::size_t cell) { return cell < cells.size() ? Quick_Val(cells[cell]) : 0; };
    return {number(first), number(first + 1), number(first + 2)};
}

bool Is_Rule(std::string_view line)
{
    return line.starts_with("\t---");
}

int To_Position(std::string_view text)
{
    const double value = Val(text);
    return value >= 0 && value < 1000 ? static_cast<int>(value) : 0;
}

// Reads a table's lines behind its column heads, to the percentile row.
void Read_Rows(Line_Reader& lines, Leachate_Table& table)
{
    while (!lines.At_End()) {
        const auto line = lines.Next();
        const auto cells = Line_Cells(line);
        if (cells.size() < 2 || Is_Rule(line))
            continue;
        if (cells[1].starts_with("Total")) {
            table.Result.Total = Figures_From(cells, 2);
        } else if (cells[1].starts_with("80 Perc")) {
            const auto total = table.Result.Total;
            table.Result = Parse_Percentile(line);
            table.Result.Total = total;
            return;
        } else if (!cells[1].empty()) { // the unit line begins with blanks
            table.Rows.push_back(Figures_From(cells, 2));
        }
    }
}

} // namespace

void Print_Year_Head(Table_Text& text, Depth depth, std::string_view result_name, std::string_view label)
{
    const auto at = static_cast<std::size_t>(depth);
    text.Line(" ");
    text.Line(" ");
    text.Line("\t" + std::string(result_name).append(Depth_Titles[at]));
    text.Line(" ");
    text.Line("\t  Year  \t" + std::string(label).append(Flux_Heads[at]) + "\t   Percolate\tPesticide Conc.");
    text.Line("\t         \t     (g/ha)\t     (L/m\xB2)\t     (\xB5g/L)  ");
}

void Print_Year_Row(Table_Text& text, std::size_t year, const Leachate_Row& row)
{
    Print_Leachate_Row(text, year, row);
    if (year == Warm_Up_Years)
        text.Line(Leachate_Dashes);
}

void Print_Leachate_Row(Table_Text& text, std::size_t number, const Leachate_Row& row)
{
    text.Line("\t" + Number_Text('I', static_cast<double>(number), Number_Width) + "    " + Figures(row));
}

void Print_Leachate_Result(Table_Text& text, const Leachate_Result& result, std::string_view screen_label)
{
    const std::string behind = General_Text(result.A) + "/" + General_Text(result.B) + ")" + Figures(result.P80);
    text.Line(Leachate_Dashes);
    text.Line("\tTotal    " + Figures(result.Total));
    text.Line("\t" + std::string(Percentile_Label) + behind, "\t" + std::string(screen_label) + behind);
}

Printed_Tables Parse_Leachate(std::string_view bytes)
{
    Printed_Tables printed;
    Line_Reader lines(bytes);
    while (!lines.At_End() && printed.Titles.size() < Title_Count)
        printed.Titles.emplace_back(Trim(lines.Next()));
    while (!lines.At_End()) {
        Printed_Table table;
        while (!lines.At_End() && table.Head.size() <= Title_Head)
            table.Head.emplace_back(lines.Next());
        if (table.Head.size() <= Title_Head)
            break;
        table.At = Contains(table.Head[2], Depth_Titles[1]) ? Depth::Core_Bottom : Depth::One_Metre;
        Read_Rows(lines, table.Table);
        printed.Tables.push_back(std::move(table));
    }
    return printed;
}

Leachate_Result Parse_Percentile(std::string_view line)
{
    const auto cells = Line_Cells(line);
    Leachate_Result result;
    if (cells.size() < 2)
        return result;
    result.P80 = Figures_From(cells, 2);
    const auto label = cells[1];
    const auto open = label.find('('), slash = label.find('/');
    if (open != std::string_view::npos && slash != std::string_view::npos) {
        result.A = To_Position(label.substr(open + 1));
        result.B = To_Position(label.substr(slash + 1));
    }
    return result;
}

Leachate_Set Set_Of(const Printed_Tables& printed)
{
    Leachate_Set set;
    for (const auto& table : printed.Tables)
        set[static_cast<std::size_t>(table.At)].push_back(table.Table);
    return set;
}

} // namespace orvel
