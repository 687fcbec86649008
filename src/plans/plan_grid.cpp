#include "plans/plan_grid.h"

#include "core/code_page.h"
#include "core/error.h"
#include "core/numbers.h"
#include "core/text.h"
#include "output/run_record.h"
#include "plans/plan_charts.h"
#include "plans/plan_directory.h"

#include <algorithm>

namespace orvel {

namespace {

const Result_Row* Result_Of(const Plan_View& view, std::size_t row, const std::string& substance)
{
    if (!view.Runs[row])
        return nullptr;
    const auto& rows = view.Runs[row]->Rows;
    const auto found = std::ranges::find(rows, substance, &Result_Row::Substance);
    return found == rows.end() ? nullptr : &*found;
}

// The unit of the figures of a substance, if all have the same.
std::string Common_Unit(const Plan_View& view, const std::string& substance)
{
    std::string unit;
    for (std::size_t row = 0; row < view.Runs.size(); ++row) {
        const auto* result = Result_Of(view, row, substance);
        if (result && !unit.empty() && unit != result->Unit)
            return {};
        unit = result ? result->Unit : unit;
    }
    return unit;
}

// A cell of a table of lines must not break it.
std::string On_One_Line(std::string text)
{
    for (char& c : text) {
        if (c == '\t' || c == '\n' || c == '\r')
            c = ' ';
    }
    return text;
}

std::string Html_Text(const std::string& utf8)
{
    return Replace_All(Replace_All(Replace_All(utf8, "&", "&amp;"), "<", "&lt;"), ">", "&gt;");
}

} // namespace

Plan_Grid Grid_Of(const Plan_View& view, std::optional<Verdict> state)
{
    Plan_Grid grid;
    for (const auto& column : view.Rows->Columns)
        grid.Heads.push_back(column.Name);
    grid.State_Column = grid.Heads.size();
    grid.Heads.emplace_back("state");
    grid.Substances = Substances_Of(view);
    for (const auto& substance : grid.Substances) {
        const std::string unit = Common_Unit(view, substance);
        grid.Heads.push_back(To_Utf8(substance + (unit.empty() ? "" : " [" + unit + "]")));
    }
    for (std::size_t row = 0; row < view.Runs.size(); ++row) {
        if (!state || view.Verdict_Of(row) == *state)
            grid.Rows.push_back(row);
    }
    return grid;
}

std::string Cell_Text(const Plan_View& view, const Plan_Grid& grid, std::size_t row, std::size_t column)
{
    if (column < grid.State_Column)
        return view.Rows->Cells[row][column];
    if (column == grid.State_Column)
        return std::string(Verdict_Text(view.Verdict_Of(row)));
    const auto* result = Result_Of(view, row, grid.Substances[column - grid.State_Column - 1]);
    if (!result || !result->Found)
        return {};
    const bool has_unit = grid.Heads[column].ends_with(']');
    return General_Text(result->Found->Percentile) + (has_unit ? "" : " " + To_Utf8(result->Unit));
}

std::string Grid_Lines(const Plan_View& view, const Plan_Grid& grid)
{
    std::string text;
    for (std::size_t column = 0; column < grid.Heads.size(); ++column)
        text += (column > 0 ? "\t" : "") + On_One_Line(grid.Heads[column]);
    for (const auto row : grid.Rows) {
        text += "\n";
        for (std::size_t column = 0; column < grid.Heads.size(); ++column)
            text += (column > 0 ? "\t" : "") + On_One_Line(Cell_Text(view, grid, row, column));
    }
    return text + "\n";
}

std::string Grid_Page(const Plan_View& view, const Plan_Grid& grid)
{
    const auto line = [&](const char* tag, auto text_of) {
        std::string html = "<tr>";
        for (std::size_t column = 0; column < grid.Heads.size(); ++column) {
            const std::string right = grid.Is_Figure(column) ? " align=\"right\"" : "";
            html += std::string("<") + tag + right + ">" + Html_Text(text_of(column)) + "</" + tag + ">";
        }
        return html + "</tr>\n";
    };
    std::string page = "<h3>" + Html_Text(view.Place.Plan.filename().string()) + "</h3>\n<p>" +
                       Html_Text(Status_Text(view.Status)) + "</p>\n<table border=\"1\" cellspacing=\"0\" " +
                       "cellpadding=\"3\">\n" + line("th", [&](std::size_t column) { return grid.Heads[column]; });
    const std::size_t shown = std::min(grid.Rows.size(), Most_Rows_Printed);
    for (std::size_t i = 0; i < shown; ++i)
        page += line("td", [&](std::size_t column) { return Cell_Text(view, grid, grid.Rows[i], column); });
    page += "</table>\n";
    if (shown < grid.Rows.size())
        page += "<p>" + std::to_string(grid.Rows.size() - shown) + " more rows are not printed.</p>\n";
    return page;
}

std::string Reason_Of_Row(const Plan_View& view, std::size_t row)
try {
    if (!view.Runs[row] || view.Runs[row]->Verdict == Verdict::Complete)
        return {};
    const auto record = Read_Run_Record(Directory_Of_Row(view.Place.Directory, row + 1));
    return record ? To_Utf8(record->Reason) : std::string();
} catch (const File_Error& error) {
    return error.what();
}

} // namespace orvel
