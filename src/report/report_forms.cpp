#include "report/report_forms.h"

#include "core/code_page.h"
#include "core/error.h"
#include "core/text.h"

namespace orvel {

std::optional<std::string> Report_Text(Session& session, const std::vector<Summary_Request>& requests,
                                       const Progress& progress)
{
    std::string text;
    for (const auto& request : requests) {
        if (!request.Missing.empty())
            throw File_Error("There is no simulation of " + To_Utf8(request.Crop) + " at " +
                             To_Utf8(request.Missing.front()) + ".");
        const auto summary = Build_Summary(session, request, progress);
        if (!summary)
            return std::nullopt;
        text += Summary_Text(*summary);
    }
    return To_Utf8(text);
}

std::string Report_In_Form(const Report& report, const std::filesystem::path& file)
{
    const std::string ending = Lower(file.extension().string());
    if (ending == ".csv")
        return Report_Csv(report);
    if (ending == ".html")
        return Report_Html(report);
    throw File_Error("A report is saved as .txt, .csv, .html or .pdf, not as " + file.filename().string() + ".");
}

} // namespace orvel
