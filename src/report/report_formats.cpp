#include "report/report_formats.h"

#include "core/code_page.h"
#include "core/error.h"
#include "core/text.h"

#include <algorithm>

namespace orvel {

const std::array<Report_Format, 5> Report_Formats = {{
    {.Ending = ".txt", .Name = "Text", .Write = nullptr, .Is_Text = true},
    {.Ending = ".csv", .Name = "Table", .Write = Report_Csv},
    {.Ending = ".xlsx", .Name = "Workbook", .Write = nullptr, .Is_Painted = true},
    {.Ending = ".html", .Name = "Page", .Write = Report_Html},
    {.Ending = ".pdf", .Name = "Document", .Write = nullptr, .Is_Painted = true},
}};

const Report_Format& Report_Format_Of(const std::filesystem::path& file)
{
    const auto* const format =
        std::ranges::find(Report_Formats, Lower(file.extension().string()), &Report_Format::Ending);
    if (format == Report_Formats.end())
        throw File_Error("A report is saved as " + Report_Endings() + ", not as " + file.filename().string() + ".");
    return *format;
}

std::string Report_Endings()
{
    std::string endings;
    for (const auto& format : Report_Formats) {
        const bool last = &format == &Report_Formats.back();
        endings.append(endings.empty() ? "" : last ? " or " : ", ").append(format.Ending);
    }
    return endings;
}

std::string Report_Filters()
{
    std::string filters;
    for (const auto& format : Report_Formats) {
        const std::string filter = std::string(format.Name) + " (*" + std::string(format.Ending) + ")";
        filters = filters.empty() ? filter : filter + ";;" + filters;
    }
    return filters;
}

Report_Summaries Report_Text(const std::vector<Summary_Request>& requests, const Progress& progress)
{
    std::string text;
    std::vector<std::string> notes;
    for (const auto& request : requests) {
        if (!request.Missing.empty())
            throw File_Error("There is no simulation of " + To_Utf8(request.Crop) + " at " +
                             To_Utf8(request.Missing.front()) + ".");
        const auto summary = Build_Summary(request, progress);
        if (!summary.Failure.empty())
            return {.Text = {}, .Failure = summary.Failure};
        text += Summary_Text(summary);
        notes.insert(notes.end(), summary.Notes.begin(), summary.Notes.end());
    }
    return {.Text = To_Utf8(text), .Failure = {}, .Notes = notes};
}

} // namespace orvel
