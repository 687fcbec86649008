#include "report/painting/report_files.h"

#include "core/files.h"
#include "report/report_formats.h"

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

void Write_Report(const Report& report, const std::filesystem::path& file)
{
    const auto& format = Report_Format_Of(file);
    if (format.Ending == ".xlsx")
        return Write_Whole(file, Format_Xlsx(Report_Book(report)));
    Write_Whole(file, format.Is_Painted ? Pdf_Bytes(report, file) : format.Write(report));
}

bool Save_Report(const Session& session, const std::vector<Summary_Request>& requests,
                 const std::filesystem::path& file)
{
    if (!Report_Format_Of(file).Is_Text) {
        Write_Report(Gather_Report(session, requests, std::time(nullptr)), file);
        return true;
    }
    const auto summaries = Report_Text(requests);
    if (summaries.Failure.empty())
        Write_Whole(file, summaries.Text);
    else
        session.Ask({"File check", summaries.Failure});
    return summaries.Failure.empty();
}

} // namespace orvel
