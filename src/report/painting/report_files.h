#pragma once

#include "report/report.h"

#include <filesystem>
#include <QByteArray>

namespace orvel {

// The report as a document on A4 pages with their numbers: PDF/A, its text can be searched and copied. Empty if it
// could not be made.
QByteArray Report_Pdf(const Report& report);

// Writes a gathered report whole in the format that the file's ending names, but for .txt. Throws File_Error; then the
// old file is as it was.
void Write_Report(const Report& report, const std::filesystem::path& file);

// The same in all formats, gathering the report first. False: the user has been told why there is no text. Throws
// File_Error for another ending or a failure.
bool Save_Report(const Session& session, const std::vector<Summary_Request>& requests,
                 const std::filesystem::path& file);

} // namespace orvel
