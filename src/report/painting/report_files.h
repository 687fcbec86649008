#pragma once

#include "report/report.h"

#include <filesystem>
#include <QByteArray>

namespace orvel {

// The report as a document on A4 pages with their numbers: PDF/A, its text can be searched and copied. Empty if it
// could not be made.
QByteArray Report_Pdf(const Report& report);

// Gathers the report and writes it whole as .txt, .csv, .html or .pdf, by the ending. False: the user has been told.
// Throws File_Error for another ending or a failure; then the old file is as it was.
bool Save_Report(Session& session, const std::vector<Summary_Request>& requests, const std::filesystem::path& file);

} // namespace orvel
