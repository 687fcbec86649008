#pragma once

#include "core/workbook.h"
#include "report/report.h"

#include <array>
#include <filesystem>
#include <string>
#include <string_view>

namespace orvel {

// The formats that a report is saved in, by the ending of the file.

struct Report_Format {
    std::string_view Ending, Name;       // ".html", "Page"
    std::string (*Write)(const Report&); // nullptr: see Is_Text and Is_Painted
    bool Is_Text = false;                // made by Report_Text, not of the gathered report
    bool Is_Painted = false;             // made by Write_Report: it takes a library that orvelctl does without
};
extern const std::array<Report_Format, 5> Report_Formats;

// Throws File_Error for another ending.
const Report_Format& Report_Format_Of(const std::filesystem::path& file);

std::string Report_Endings(); // ".txt, .csv, .html or .pdf"
std::string Report_Filters(); // of a file dialog: "Document (*.pdf);;Page (*.html);;...", the last format first

// The writers. All texts are UTF-8.

// A table for spreadsheets and programs: a line for each substance and location, all that is known of it behind it.
// Commas part the fields, the numbers have points, lines end in CR LF.
std::string Report_Csv(const Report& report);

// One page without anything outside of it: well-formed XHTML, diagrams as SVG, readable in light and dark and on paper.
std::string Report_Html(const Report& report);

// A sheet a part of the report; numbers are numbers.
Workbook Report_Book(const Report& report);

// The summary texts of all requests, one behind the other; lines end in CR LF. Throws File_Error for a location that
// was asked for and was not run: the text holds nothing but what was.
struct Report_Summaries {
    std::string Text;
    std::string Failure;            // why there is no text, a sentence; empty if there is one
    std::vector<std::string> Notes; // what else the user is told
};
Report_Summaries Report_Text(const std::vector<Summary_Request>& requests, const Progress& progress = {});

} // namespace orvel
