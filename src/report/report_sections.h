#pragma once

#include "report/report.h"

#include <string>
#include <vector>

namespace orvel {

// The report in its order, as headings, sentences, tables and diagrams: what every form with a page shows, so that no
// two of them differ.

struct Report_Column {
    std::string Head;
    bool Is_Number = false; // right-aligned
};

// How a cell stands out beside its text.
struct Cell_Mark {
    int Class = -1; // of its figure (overview_formats.h); -1: none
    bool Bold = false;
};

struct Report_Line {
    std::vector<std::string>
        Cells;           // as many as the table has columns, or one that takes the place of all behind the first
    bool Marked = false; // above the limit
    std::vector<Cell_Mark> Marks = {}; // of the cells; empty: none has one
};

struct Report_Grid {
    std::vector<Report_Column> Columns; // without any head the first column names what the second holds
    std::vector<Report_Line> Lines;
};

struct Report_Section {
    int Level = 1; // of the heading: 1 the report, 2 its parts, 3 parts of these
    std::string Heading;
    std::vector<std::string> Sentences;
    Report_Grid Grid;
    const Chart* Diagram = nullptr; // of the report, which must live as long
    bool Is_Warning = false;
    bool Begins_Page = false; // on paper
};

std::vector<Report_Section> Sections_Of(const Report& report);

} // namespace orvel
