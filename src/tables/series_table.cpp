#include "tables/series_table.h"

#include "core/files.h"
#include "core/numbers.h"
#include "core/output_variables.h"
#include "core/text.h"
#include "output/parameter_list.h"
#include "output/series_days.h"
#include "runs/run_control.h"
#include "tables/series.h"

#include <array>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr int Cell_Width = 12, Number_Width = 4;
constexpr std::size_t Rule_Width = 60;
constexpr std::array<std::string_view, 3> Period_Names = {"year", "month", "day"};

using Items = std::vector<Parameter_Item>;

std::string Left(std::string_view text, std::size_t width)
{
    std::string cell(text);
    cell.resize(std::max(width, cell.size()), ' ');
    return cell;
}

std::string Cell(std::string_view text)
{
    return std::string(Tab_Char) + Left(text, Cell_Width);
}

std::string Count_Cell(int number)
{
    return std::string(Tab_Char) + Left(Number_Text('I', number, Number_Width), 2 * Number_Width);
}

bool Is_Flow(const Parameter_Item& item)
{
    return Output_Variable_Of(item.Variable).Is_Flow();
}

std::string_view Unit_Of(const Parameter_Item& item)
{
    return Output_Variable_Of(item.Variable).Out_Unit[Is_Flow(item) ? 1 : 0];
}

// The headings of the date columns and, for years and months, of the number of days.
std::vector<std::string_view> Date_Heads(Utility period)
{
    switch (period) {
    case Utility::Year:
        return {"  Year", "Days"};
    case Utility::Month:
        return {"  Year", "Month", "Days"};
    default:
        return {"  Year", "Month", "Day"};
    }
}

void Put_Line(std::string& text, std::string_view line)
{
    text.append(line).append(CrLf);
}

void Put_Legend(std::string& text, Utility period, const Items& items)
{
    Put_Line(text, "");
    Put_Line(text, "\tSeries by " + std::string(Period_Names[static_cast<std::size_t>(period)]));
    Put_Line(text, "");
    for (std::size_t i = 0; i < items.size(); ++i) {
        const std::string name = Replace_All(std::string(Trim(items[i].Text)), "  ", " ");
        Put_Line(text, Count_Cell(static_cast<int>(i) + 1) + "\t" + name + " " + std::string(Unit_Of(items[i])) +
                           (Is_Flow(items[i]) ? ", amount" : ", mean of the days"));
    }
}

void Put_Heads(std::string& text, Utility period, const Items& items)
{
    const auto dates = Date_Heads(period);
    std::string numbers, codes, units;
    for (const auto head : dates) {
        numbers += std::string(Tab_Char) + Left("", 2 * Number_Width);
        codes += std::string(Tab_Char) + Left(head, 2 * Number_Width);
        units += std::string(Tab_Char) + Left("", 2 * Number_Width);
    }
    for (std::size_t i = 0; i < items.size(); ++i) {
        numbers += Cell(std::to_string(i + 1));
        codes += Cell(Output_Variable_Of(items[i].Variable).Out_Code);
        units += Cell(Unit_Of(items[i]));
    }
    Put_Line(text, "");
    Put_Line(text, numbers);
    Put_Line(text, codes);
    Put_Line(text, units);
}

std::string Series_Rule()
{
    return std::string(Tab_Char) + std::string(Rule_Width, '-');
}

bool Is_Same_Period(Utility period, const Run_Day& a, const Run_Day& b)
{
    return a.Year == b.Year && (period == Utility::Year || a.Month == b.Month) &&
           (period != Utility::Day || a.Day == b.Day);
}

// Collects rows from days that arrive one by one.
class Rows {
public:
    Rows(Utility period, const Items& items, std::string& text)
        : Kind(period),
          Columns(items),
          Text(text),
          Sums(items.size())
    {}

    void Add(const Run_Day& day, std::span<const double> values)
    {
        if (Days > 0 && !Is_Same_Period(Kind, First, day))
            Close();
        if (Days++ == 0)
            First = day;
        for (std::size_t i = 0; i < Columns.size(); ++i)
            Sums[i] += values[static_cast<std::size_t>(Columns[i].Column) - 1];
    }

    void Close()
    {
        Text += Count_Cell(First.Year);
        if (Kind != Utility::Year)
            Text += Count_Cell(First.Month);
        Text += Count_Cell(Kind == Utility::Day ? First.Day : Days);
        for (std::size_t i = 0; i < Columns.size(); ++i)
            Text.append(Tab_Char).append(Number_Text('F', Is_Flow(Columns[i]) ? Sums[i] : Sums[i] / Days, Cell_Width));
        Text.append(CrLf);
        Days = 0;
        Sums.assign(Sums.size(), 0);
    }

private:
    Utility Kind;
    const Items& Columns;
    std::string& Text;
    Run_Day First;
    int Days = 0;
    std::vector<double> Sums;
};

bool Has_Rows(const fs::path& file)
{
    Line_Scanner plot(file, 4U << 10U);
    return Scan_Plot_Head(plot).Whole;
}

fs::path Calendar_Of(const fs::path& directory, const fs::path& programs)
{
    constexpr std::string_view Name = "datum.dat";
    if (const auto own = Find_File(directory, Name))
        return *own;
    if (const auto beside = Find_File(programs, Name))
        return *beside;
    throw File_Error("The calendar datum.dat is missing, so that the days of the series have no dates.");
}

} // namespace

fs::path Series_File(const fs::path& directory)
{
    const auto plot = Find_File(directory, "plot.orv"), copy = Find_File(directory, Series_Copy);
    if (!plot && !copy)
        throw File_Error("The file plot.orv is missing.");
    if (!plot || (copy && Has_Rows(*copy) && fs::last_write_time(*copy) >= fs::last_write_time(*plot)))
        return *copy;
    return *plot;
}

std::string Series_Table(Utility period, const fs::path& directory, std::span<const Run_Day> calendar)
{
    Series_Days days(Series_File(directory), calendar);
    const auto& head = days.Head();
    auto items = Parameters_Of_Head(head, directory);
    std::erase_if(items, [&](const auto& item) { return item.Column > head.N_Columns - head.N_Profile; });
    if (items.empty())
        throw File_Error("The series have no columns, so that there is no table to make.");

    std::string text;
    for (const auto& title : head.Titles)
        Put_Line(text, title);
    Put_Legend(text, period, items);
    Put_Heads(text, period, items);
    Put_Line(text, Series_Rule());
    Rows rows(period, items, text);
    while (days.Next())
        rows.Add(days.Date(), days.Values());
    const auto end = Read_Run_End(directory);
    days.Expect_Last_Day(end ? std::optional(Run_Day{.Day = end->Day, .Month = end->Month}) : std::nullopt);
    rows.Close();
    Put_Line(text, Series_Rule());
    return text;
}

void Make_Utility_Table(Utility period, const fs::path& directory, const fs::path& programs)
{
    if (Is_Of_A_Batch(directory))
        throw File_Error(
            "These tables are those of a single run: a simulation of a batch keeps another table under the same name.");
    const auto calendar = Parse_Calendar(Read_Whole(Calendar_Of(directory, programs)));
    const std::string table = Series_Table(period, directory, calendar);
    Write_Whole(Found_Or_New(directory, Names_Of(period).Output), table);
}

} // namespace orvel
