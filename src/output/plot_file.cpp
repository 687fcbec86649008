#include "output/plot_file.h"

#include "core/files.h"
#include "core/numbers.h"
#include "core/text.h"
#include "output/quick_val.h"

#include <algorithm>

namespace orvel {

namespace {

constexpr std::array<std::size_t, 4> Title_Lines = {1, 3, 4, 6};
constexpr std::size_t Count_Line = 7;
constexpr std::size_t Count_Width = 6;
constexpr std::size_t Columns_First = 7;
constexpr std::size_t Profile_First = 13;
constexpr std::size_t Code_First = 13;
constexpr std::size_t Code_Width = 4;
constexpr std::size_t Scale_First = 12;
constexpr std::size_t Scale_Width = 6;
constexpr std::size_t Day_First = 1, Day_Width = 6, Hour_First = 7, Hour_Width = 3;
constexpr double Last_Day = 1e6;

using Lines = std::array<std::string, Plot_Head_Lines + 1>; // from 1

int Whole(std::string_view text)
{
    return static_cast<int>(std::clamp(Quick_Val(text), 0.0, Last_Day));
}

int Count(std::string_view line, std::size_t first)
{
    const int count = To_I16(Val(Columns(line, first, Count_Width)));
    if (count < 0)
        throw File_Error("A count in the head of plot.orv is below 0.");
    return count;
}

std::vector<Plot_Column> Columns_Of(const Lines& lines, int count)
{
    std::vector<Plot_Column> columns;
    std::string_view depths = lines[9];
    for (std::size_t i = 0; i < static_cast<std::size_t>(count) && Code_First + Plot_Value_Width * i <= lines[8].size();
         ++i) {
        auto& column = columns.emplace_back();
        column.Plot_Code = Columns(lines[8], Code_First + Plot_Value_Width * i, Code_Width);
        column.Plot_Depth = Val(Next_Token(depths));
        column.Plot_Scale = Columns(lines[10], Scale_First + Plot_Value_Width * i, Scale_Width);
    }
    return columns;
}

} // namespace

Plot_Moment Moment_Of(std::string_view line)
{
    return {Whole(Columns(line, Day_First, Day_Width)), Whole(Columns(line, Hour_First, Hour_Width))};
}

Plot_Head Scan_Plot_Head(Line_Scanner& plot)
{
    Lines lines;
    std::size_t read = 0;
    while (read < Plot_Head_Lines && plot.Next())
        lines[++read] = plot.Line();
    Plot_Head head;
    head.Whole = read == Plot_Head_Lines;
    std::ranges::transform(Title_Lines, head.Titles.begin(),
                           [&](std::size_t line) { return std::string(Trim(lines[line])); });
    head.Months = Count(lines[Count_Line], 1);
    head.N_Columns = Count(lines[Count_Line], Columns_First);
    head.N_Profile = Count(lines[Count_Line], Profile_First);
    head.Columns = Columns_Of(lines, head.N_Columns);
    return head;
}

Plot_Head Read_Plot_Head(const std::filesystem::path& run_directory)
{
    const auto file = Find_File(run_directory, "plot.orv");
    if (!file)
        return {};
    Line_Scanner plot(*file, 4U << 10U);
    return Scan_Plot_Head(plot);
}

} // namespace orvel
