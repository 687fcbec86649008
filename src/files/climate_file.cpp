#include "files/climate_file.h"

#include "core/error.h"
#include "core/text.h"

#include <algorithm>

namespace orvel {

namespace {

constexpr std::size_t Date_First = 2;
constexpr std::size_t Date_Width = 2;
constexpr std::size_t Hour_First = 78;
constexpr std::string_view Blanks_Before_Hour = "      ";

std::string Date_Part(std::string_view text)
{
    std::string part(text.substr(0, Date_Width));
    part.resize(Date_Width, ' ');
    return part;
}

Climate_Row Parse_Row(std::string_view line)
{
    Climate_Row row;
    row.Cli_Day = Date_Part(Columns(line, Date_First));
    row.Cli_Month = Date_Part(Columns(line, Date_First + Date_Width));
    row.Cli_Year = Date_Part(Columns(line, Date_First + 2 * Date_Width));
    for (const auto& column : Climate_Columns) {
        const auto number = Columns(line, column.First, Climate_Number_Width);
        row.*column.Number = Trim(number).empty() ? std::nullopt : std::optional(Val(number));
    }
    if (line.size() > Hour_First)
        row.Cli_Hour = Columns(line, Hour_First);
    return row;
}

void List_Misreads(std::string_view line, int number, Misreads& found)
{
    for (const auto& column : Climate_Columns) {
        const auto word = Trim(Columns(line, column.First, Climate_Number_Width));
        if (!word.empty() && !Is_One_Number(word))
            found.push_back({{number, Column_Of(word, line)}, std::string(word), std::string(column.Name)});
    }
    const auto date = Columns(line, Date_First, 3 * Date_Width), hour = Trim(Columns(line, Hour_First));
    if (!std::ranges::all_of(date, [](char c) { return c == ' ' || (c >= '0' && c <= '9'); }))
        found.push_back({{number, Column_Of(date, line)}, std::string(date), "Date"});
    if (!hour.empty() && !Is_One_Number(hour))
        found.push_back({{number, Column_Of(hour, line)}, std::string(hour), "Hour"});
}

} // namespace

bool Is_Left_Out(const Climate_Row& row)
{
    const auto day = Trim(row.Cli_Day);
    return day.empty() || day == "0" || day == "00";
}

Climate_Table Parse_CLI(std::string_view bytes, Misreads* misreads)
{
    Line_Reader lines(bytes);
    Climate_Table table;
    table.Cli_Title = lines.Next();
    while (!lines.At_End()) {
        const auto line = lines.Next();
        if (table.Rows.size() < Most_Climate_Rows) {
            table.Rows.push_back(Parse_Row(line));
            if (misreads && !Is_Left_Out(table.Rows.back()))
                List_Misreads(line, lines.Line_Number(), *misreads);
        } else if (!line.empty()) // the empty line at the end takes no row
            throw File_Error("The file has more than " + std::to_string(Most_Climate_Rows) + " days.",
                             lines.Line_Number());
    }
    return table;
}

bool Ends_In_A_Cut_Line(std::string_view bytes)
{
    const auto lines = Split_Lines(bytes);
    return !bytes.ends_with('\n') && lines.size() > 2 && lines.back().size() < Trim(lines[1]).size();
}

std::string Seems_Cut(std::string_view bytes, const Climate_Table& table)
{
    if (Ends_In_A_Cut_Line(bytes))
        return "The last line is shorter than the others: the file seems to have been cut.";
    const auto last = std::find_if_not(table.Rows.rbegin(), table.Rows.rend(), Is_Left_Out);
    const auto first = std::ranges::find_if_not(table.Rows, Is_Left_Out);
    const auto is_day = [](const Climate_Row& row, double day, double month) {
        return Val(row.Cli_Day) == day && Val(row.Cli_Month) == month;
    };
    const bool some = first != table.Rows.end() && &*first != &*last;
    if (!some || !is_day(*first, 1, 1) || is_day(*last, 31, 12))
        return {};
    return "The file begins on 1 January and ends on " + std::string(Trim(last->Cli_Day)) + "." +
           std::string(Trim(last->Cli_Month)) + ".: it seems to have been cut.";
}

std::string Format_CLI(const Climate_Table& table)
{
    std::string text = table.Cli_Title;
    text += CrLf;
    for (const auto& row : table.Rows) {
        if (Is_Left_Out(row))
            continue;
        text += ' ';
        text += Date_Part(row.Cli_Day) + Date_Part(row.Cli_Month) + Date_Part(row.Cli_Year);
        for (const auto& column : Climate_Columns)
            text += Number_Text('G', Number_Of(row, column), Climate_Number_Width);
        text += Blanks_Before_Hour;
        text += row.Cli_Hour;
        text += CrLf;
    }
    text += CrLf;
    return text;
}

std::string Cell_Text(const Climate_Row& row, const Climate_Column& column)
{
    return Format_Pattern(Number_Of(row, column), column.Shown_With);
}

void Round_As_Shown(Climate_Table& table)
{
    for (auto& row : table.Rows) {
        for (const auto& column : Climate_Columns)
            row.*column.Number = Val(Cell_Text(row, column));
    }
}

} // namespace orvel
