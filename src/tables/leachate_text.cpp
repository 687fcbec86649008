#include "tables/leachate_text.h"

#include "core/numbers.h"
#include "core/text.h"
#include "output/quick_val.h"
#include "output/table_lines.h"
#include "tables/leachate_periods.h"

#include <array>
#include <cmath>

namespace orvel {

namespace {

constexpr int Figure_Width = 12;
constexpr int Conc_Decimals = 3;
constexpr std::size_t P80_Width = 100; // the most columns of a percentile row that a report repeats
constexpr int Period_Lengths = 3;
constexpr std::size_t Title_Line = 2, Heads_Line = 4; // within a table, after two blank lines and after one more

constexpr std::string_view Rule = "\t------------------------------------------------------------";
constexpr std::string_view Total_Label = "Total    ";
constexpr std::string_view Percentile_Label = "80 Perc.(", Short_Percentile_Label = "Perc.(";
constexpr std::string_view Gap = "    "; // after a row's number
constexpr std::string_view Title_End = " in the percolate at ";
constexpr std::array<std::string_view, 2> Depth_Titles = {" in the percolate at 1 m soil depth",
                                                          " in the percolate at the bottom of the simulated soil core"};
constexpr std::array<std::string_view, 2> Flux_Heads = {" Flux", "  Flux"};

// What differs between the two kinds of table: among others the headings of the first column, in the file and on the
// screen.
struct Table_Words {
    std::string_view File_Head, Screen_Head, Units;
};
constexpr Table_Words Year_Words = {"\t  Year  \t", "\t  Year  \t",
                                    "\t         \t     (g/ha)\t     (L/m\xB2)\t     (\xB5g/L)  "};
constexpr Table_Words Period_Words = {"\t     Period \t", "\t Period \t",
                                      "\t         \t     (g/ha)\t    (L/m\xB2)\t     (\xB5g/L)  "};

std::string Figures(const Leachate_Row& row)
{
    std::string text;
    for (const double figure : {row.Flux, row.Percolate})
        text.append(Tab_Char).append(Number_Text('F', figure, Figure_Width));
    return text.append(Tab_Char).append(Fixed_Text(row.Conc, Conc_Decimals));
}

Leachate_Row Rounded(const Leachate_Row& row)
{
    return {As_Printed(row.Flux), As_Printed(row.Percolate), Val(Fixed_Text(row.Conc, Conc_Decimals))};
}

void Print_Head(Table_Text& text, const Table_Words& words, Depth depth, const Leachate_Table& table)
{
    const auto at = static_cast<std::size_t>(depth);
    text.Line(" ");
    text.Line(" ");
    text.Line("\t" + table.Result_Name + std::string(Depth_Titles[at]));
    text.Line(" ");
    const std::string heads = table.Label + std::string(Flux_Heads[at]) + "\t   Percolate\tPesticide Conc.";
    text.Line(std::string(words.File_Head) + heads, std::string(words.Screen_Head) + heads);
    text.Line(words.Units);
}

void Print_Row(Table_Text& text, std::size_t number, const Leachate_Row& row)
{
    std::string line(Tab_Char);
    text.Line(
        line.append(Number_Text('I', static_cast<double>(number), Year_Column_Width)).append(Gap).append(Figures(row)));
}

void Print_Labelled(Table_Text& text, std::string_view label, std::string_view screen_label, const std::string& figures)
{
    const std::string tab(Tab_Char);
    text.Line((tab + std::string(label)).append(figures), (tab + std::string(screen_label)).append(figures));
}

// Prints the rule, the total and the percentile, and rounds both results as printed.
void Print_Result(Table_Text& text, Leachate_Table& table, std::string_view screen_label)
{
    auto& result = table.Result;
    std::string behind = std::to_string(result.A);
    behind.append("/").append(std::to_string(result.B)).append(")").append(Figures(result.P80));
    table.P80_Text = Columns(std::string("(").append(behind), 1, P80_Width);
    text.Line(Rule);
    Print_Labelled(text, Total_Label, Total_Label, Figures(result.Total));
    Print_Labelled(text, Percentile_Label, screen_label, behind);
    result.Total = Rounded(result.Total);
    result.P80 = Rounded(result.P80);
}

// Flux, percolate and concentration from three cells, beginning with `first`.
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

void Read_Percentile(std::string_view line, const std::vector<std::string_view>& cells, Leachate_Table& table)
{
    const auto label = cells[1];
    const auto open = label.find('('), slash = label.find('/');
    table.Result.P80 = Figures_From(cells, 2);
    if (open != std::string_view::npos && slash != std::string_view::npos) {
        table.Result.A = To_Position(label.substr(open + 1));
        table.Result.B = To_Position(label.substr(slash + 1));
    }
    table.P80_Text = Columns(line, Percentile_Label.size() + 1, P80_Width);
}

// Reads a table's lines after its column headings, up to and including the percentile row.
void Read_Rows(Line_Reader& lines, Leachate_Table& table)
{
    while (!lines.At_End()) {
        const auto line = lines.Next();
        const auto cells = Line_Cells(line);
        if (cells.size() < 2 || Is_Rule(line))
            continue;
        if (cells[1].starts_with("Total"))
            table.Result.Total = Figures_From(cells, 2);
        else if (cells[1].starts_with("80 Perc"))
            return Read_Percentile(line, cells, table);
        else if (!cells[1].empty()) // the unit line begins with blanks
            table.Rows.push_back(Figures_From(cells, 2));
    }
}

void Read_Head(const std::array<std::string_view, Heads_Line + 1>& head, Depth depth, Leachate_Table& table)
{
    auto title = head[Title_Line];
    if (title.starts_with('\t'))
        title.remove_prefix(1);
    table.Result_Name = title.substr(0, title.rfind(Title_End));
    auto label = head[Heads_Line];
    for (int tab = 0; tab < 2; ++tab)
        label.remove_prefix(Contains(label, Tab_Char) ? label.find('\t') + 1 : label.size());
    label = label.substr(0, label.find('\t'));
    const auto flux = Flux_Heads[static_cast<std::size_t>(depth)];
    table.Label = label.substr(0, label.ends_with(flux) ? label.size() - flux.size() : label.size());
}

// Whether a sum of printed figures is another printed figure, which was rounded only at its end. The fewest digits are
// those of "1.23E-04".
bool Is_Sum(double printed, double sum, double magnitude)
{
    constexpr double Rounding = 0.01;
    return std::abs(printed - sum) <= Rounding * magnitude;
}

bool Is_Total(const Leachate_Table& table)
{
    Leachate_Row sum, magnitude;
    for (std::size_t y = Warm_Up_Years; y < table.Rows.size(); ++y) {
        sum.Flux += table.Rows[y].Flux;
        sum.Percolate += table.Rows[y].Percolate;
        magnitude.Flux += std::abs(table.Rows[y].Flux);
        magnitude.Percolate += std::abs(table.Rows[y].Percolate);
    }
    return Is_Sum(table.Result.Total.Flux, sum.Flux, magnitude.Flux) &&
           Is_Sum(table.Result.Total.Percolate, sum.Percolate, magnitude.Percolate);
}

bool Is_Percentile(const Leachate_Table& table)
{
    const auto& [total, p80, a, b] = table.Result;
    if (table.Rows.size() <= Warm_Up_Years)
        return a == 0 && b == 0;
    const auto is_year = [&](int year) { return year > Warm_Up_Years && year <= std::ssize(table.Rows); };
    if (!is_year(a) || !is_year(b))
        return false;
    const auto& one = table.Rows[static_cast<std::size_t>(a) - 1];
    const auto& other = table.Rows[static_cast<std::size_t>(b) - 1];
    return Is_Sum(p80.Flux, one.Flux + other.Flux, std::abs(one.Flux) + std::abs(other.Flux)) &&
           Is_Sum(p80.Percolate, one.Percolate + other.Percolate, std::abs(one.Percolate) + std::abs(other.Percolate));
}

} // namespace

Leachate_Table Print_Years(Table_Text& text, Depth depth, Leachate_Table years, bool whole)
{
    Print_Head(text, Year_Words, depth, years);
    for (std::size_t y = 1; y <= years.Rows.size(); ++y) {
        auto& row = years.Rows[y - 1];
        Print_Row(text, y, row);
        row = Rounded(row);
        if (y == Warm_Up_Years)
            text.Line(Rule);
    }
    // On the screen the percentile at 1 m lacks its "80 ".
    if (whole)
        Print_Result(text, years, depth == Depth::One_Metre ? Short_Percentile_Label : Percentile_Label);
    return years;
}

Leachate_Table Print_Periods(Table_Text& text, Depth depth, Leachate_Table periods)
{
    Print_Head(text, Period_Words, depth, periods);
    text.Line(Rule);
    for (std::size_t p = 1; p <= periods.Rows.size(); ++p) {
        auto& row = periods.Rows[p - 1];
        Print_Row(text, p, row);
        row = Rounded(row);
    }
    Print_Result(text, periods, Percentile_Label);
    return periods;
}

bool Is_Year_File(std::string_view bytes, const Cached_Leachate& years)
{
    if (years.Titles.size() < Title_Count || years.Set[0].empty() || years.Set[0].size() != years.Set[1].size())
        return false;
    Table_Text text;
    text.Head(years.Titles);
    for (const auto depth : Depths) {
        for (const auto& table : years.Set[static_cast<std::size_t>(depth)]) {
            if (!Is_Total(table) || !Is_Percentile(table))
                return false;
            Print_Years(text, depth, table);
        }
    }
    return Holds_Text(bytes, text.File);
}

std::optional<int> Index_Of_Period_File(std::string_view bytes, const Cached_Leachate& years, int likely)
{
    for (int i = 0; i < Period_Lengths; ++i) {
        const int index = (likely + i) % Period_Lengths;
        Table_Text text;
        text.Head(years.Titles);
        for (const auto depth : Depths) {
            for (const auto& table : years.Set[static_cast<std::size_t>(depth)])
                Print_Periods(text, depth, Periods_Of(table, index));
        }
        if (bytes == text.File)
            return index;
    }
    return std::nullopt;
}

Cached_Leachate Parse_Leachate(std::string_view bytes)
{
    Cached_Leachate cached;
    Line_Reader lines(bytes);
    while (!lines.At_End() && cached.Titles.size() < Title_Count)
        cached.Titles.emplace_back(Trim(lines.Next()));
    while (!lines.At_End()) {
        std::array<std::string_view, Heads_Line + 1> head;
        std::size_t read = 0;
        while (!lines.At_End() && read < head.size())
            head[read++] = lines.Next();
        if (read < head.size())
            break;
        const auto depth = Contains(head[Title_Line], Depth_Titles[1]) ? Depth::Core_Bottom : Depth::One_Metre;
        auto& table = cached.Set[static_cast<std::size_t>(depth)].emplace_back();
        Read_Head(head, depth, table);
        Read_Rows(lines, table);
    }
    return cached;
}

} // namespace orvel
