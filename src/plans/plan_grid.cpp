#include "plans/plan_grid.h"

#include "core/code_page.h"
#include "core/error.h"
#include "core/numbers.h"
#include "core/text.h"
#include "output/run_record.h"
#include "plans/plan_directory.h"

#include <algorithm>

namespace orvel {

namespace {

const Result_Row* Result_Of(const Plan_View& view, std::size_t row, const std::string& substance)
{
    const auto results = view.Results_Of(row);
    const auto found = std::ranges::find(results, substance, &Result_Row::Substance);
    return found == results.end() ? nullptr : &*found;
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
    const auto add_cells = [&](auto is_wanted) {
        for (std::size_t i = 0; i < view.Rows->Columns.size(); ++i) {
            if (is_wanted(view.Rows->Columns[i].Kind))
                grid.Columns.push_back({.Head = view.Rows->Columns[i].Name, .Place = i});
        }
    };
    const auto tells_apart = [](Plan_Column_Kind kind) {
        return kind == Plan_Column_Kind::Id || kind == Plan_Column_Kind::Label;
    };
    add_cells(tells_apart);
    grid.Columns.push_back({.Head = "state", .Kind = Plan_Grid_Column::Holds::State});
    for (const auto& [substance, unit] : view.Substances) {
        grid.Columns.push_back({.Head = To_Utf8(substance + (unit.empty() ? "" : " [" + unit + "]")),
                                .Kind = Plan_Grid_Column::Holds::Figure,
                                .Substance = substance,
                                .Unit = unit});
    }
    add_cells([&](Plan_Column_Kind kind) { return !tells_apart(kind); });
    for (std::size_t row = 0; row < view.Runs.size(); ++row) {
        if (!state || view.Verdict_Of(row) == *state)
            grid.Rows.push_back(row);
    }
    return grid;
}

std::string Cell_Text(const Plan_View& view, const Plan_Grid_Column& column, std::size_t row)
{
    if (column.Kind == Plan_Grid_Column::Holds::Cell)
        return view.Rows->Cells[row][column.Place];
    if (column.Kind == Plan_Grid_Column::Holds::State)
        return std::string(Verdict_Text(view.Verdict_Of(row)));
    const auto* result = Result_Of(view, row, column.Substance);
    if (!result || !result->Found)
        return {};
    return General_Text(result->Found->Percentile) + (column.Unit.empty() ? " " + To_Utf8(result->Unit) : "");
}

std::string Grid_Lines(const Plan_View& view, const Plan_Grid& grid)
{
    const auto line = [&](auto text_of) {
        std::string text;
        for (const auto& column : grid.Columns)
            text += (text.empty() ? "" : "\t") + On_One_Line(text_of(column));
        return text + "\n";
    };
    std::string text = line([](const Plan_Grid_Column& column) { return column.Head; });
    for (const auto row : grid.Rows)
        text += line([&](const Plan_Grid_Column& column) { return Cell_Text(view, column, row); });
    return text;
}

std::string Grid_Page(const Plan_View& view, const Plan_Grid& grid)
{
    const auto line = [&](const std::string& tag, auto text_of) {
        std::string html = "<tr>";
        for (const auto& column : grid.Columns) {
            const std::string right = column.Kind == Plan_Grid_Column::Holds::Figure ? " align=\"right\"" : "";
            html.append("<" + tag + right + ">").append(Html_Text(text_of(column))).append("</" + tag + ">");
        }
        return html + "</tr>\n";
    };
    std::string page = "<h3>" + Html_Text(view.Place.Plan.filename().string()) + "</h3>\n<p>" +
                       Html_Text(Status_Text(view.Status)) +
                       "</p>\n<table border=\"1\" cellspacing=\"0\" cellpadding=\"3\">\n" +
                       line("th", [](const Plan_Grid_Column& column) { return column.Head; });
    const std::size_t shown = std::min(grid.Rows.size(), Most_Rows_Printed);
    for (std::size_t i = 0; i < shown; ++i)
        page += line("td", [&](const Plan_Grid_Column& column) { return Cell_Text(view, column, grid.Rows[i]); });
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
