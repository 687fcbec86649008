#include "tables/series.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/numbers.h"
#include "core/text.h"
#include "output/plot_file.h"
#include "output/quick_val.h"
#include "output/table_lines.h"

#include <algorithm>

namespace orvel {

namespace {

constexpr double Last_Day = 1e6;
constexpr int Lines_Between_Progress = 1 << 14;

Plot_Value Value_Of(std::string_view line, std::size_t first)
{
    const auto [day, hour] = Moment_Of(line);
    return {day, hour, Quick_Val(Columns(line, first, Plot_Value_Width))};
}

} // namespace

std::vector<Plot_Value> Read_Plot_Column(const std::filesystem::path& file, int column, const Progress& progress)
{
    const auto first = Plot_Series_First + Plot_Value_Width * static_cast<std::size_t>(std::max(column, 1) - 1);
    std::vector<Plot_Value> values;
    Line_Scanner plot(file);
    std::error_code unknown;
    const auto size = static_cast<double>(std::max<std::uintmax_t>(std::filesystem::file_size(file, unknown), 1));
    if (!plot.Skip(Plot_Head_Lines))
        return values;
    for (int line = 1; plot.Next(); ++line) {
        if (line == 1)
            values.reserve(static_cast<std::size_t>(size / static_cast<double>(plot.Line().size() + CrLf.size())) + 1);
        if (const auto value = Value_Of(plot.Line(), first); value.Day > 0)
            values.push_back(value);
        if (progress && line % Lines_Between_Progress == 0 &&
            !progress("Please wait! Reading file plot.orv", static_cast<double>(plot.Bytes_Read()) / size))
            return values;
    }
    return values;
}

std::vector<Run_Day> Parse_Calendar(std::string_view bytes)
{
    std::vector<Run_Day> days;
    for (Line_Reader lines(bytes); !lines.At_End();) {
        const auto numbers = Line_Numbers(lines.Next());
        const auto whole = [&](std::size_t i) { return static_cast<int>(std::clamp(numbers[i], 0.0, Last_Day)); };
        if (numbers.size() >= 4)
            days.push_back({whole(0), whole(1), whole(2), whole(3)});
    }
    return days;
}

Daily_Series Read_Daily_Series(const std::filesystem::path& calendar, const std::filesystem::path& run_directory,
                               int column, const Daily_Request& request, const Progress& progress)
try {
    const auto days = Parse_Calendar(Read_Whole(calendar));
    return Make_Daily_Series(Read_Plot_Column(Found_Or_New(run_directory, "plot.orv"), column, progress), days,
                             request);
} catch (const File_Error& error) {
    Pass_On_If_Unreadable(error);
    auto nothing = Make_Daily_Series({}, {}, request);
    nothing.Nothing = To_Code_Page(error.what());
    return nothing;
}

} // namespace orvel
