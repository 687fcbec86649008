#pragma once

#include "report/report.h"

#include <filesystem>
#include <string>

namespace orvel {

// The report in each form that needs no painter. All are UTF-8.

// A table for spreadsheets and programs: a line for each substance and location, all that is known of it behind it.
// Commas part the fields, the numbers have points, lines end in CR LF.
std::string Report_Csv(const Report& report);

// One page without anything outside of it: well-formed XHTML, diagrams as SVG, readable in light and dark and on paper.
std::string Report_Html(const Report& report);

// The summary texts of all requests, one behind the other; lines end in CR LF. Nothing: the user has been told, or
// stopped it. Throws File_Error for a location that was asked for and was not run: the text holds nothing but what was.
std::optional<std::string> Report_Text(Session& session, const std::vector<Summary_Request>& requests,
                                       const Progress& progress = {});

// The form that a file's ending names: .csv or .html. Throws File_Error for another ending.
std::string Report_In_Form(const Report& report, const std::filesystem::path& file);

} // namespace orvel
