#include "report/painting/report_files.h"

#include "core/files.h"
#include "core/text.h"
#include "report/report_forms.h"

namespace orvel {

namespace {

std::string Pdf_Bytes(const Report& report, const std::filesystem::path& file)
{
    const QByteArray bytes = Report_Pdf(report);
    if (bytes.isEmpty())
        throw File_Error("The report " + file.filename().string() + " could not be made.");
    return bytes.toStdString();
}

} // namespace

bool Save_Report(Session& session, const std::vector<Summary_Request>& requests, const std::filesystem::path& file)
{
    const std::string ending = Lower(file.extension().string());
    if (ending == ".txt") {
        const auto text = Report_Text(session, requests);
        if (text)
            Write_Whole(file, *text);
        return text.has_value();
    }
    const auto report = Gather_Report(session, requests, std::time(nullptr));
    Write_Whole(file, ending == ".pdf" ? Pdf_Bytes(*report, file) : Report_In_Form(*report, file));
    return true;
}

} // namespace orvel
