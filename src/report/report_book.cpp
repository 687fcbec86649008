// The report as a workbook: its sections, a sheet for each kind.
#include "core/code_page.h"
#include "core/numbers.h"
#include "core/text.h"
#include "report/overview_formats.h"
#include "report/overview_settings.h"
#include "report/report_formats.h"
#include "report/report_sections.h"

#include <algorithm>
#include <charconv>

namespace orvel {

namespace {

constexpr double Text_Width = 24;
constexpr std::uint32_t Above_Ink = 0x8C1D18;

// A whole text that is a number, as the tables print it.
std::optional<double> Number_In(std::string_view text)
{
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool whole = error == std::errc() && end == text.data() + text.size() && !text.empty();
    return whole ? std::optional(number) : std::nullopt;
}

std::string Decimals_Of(std::string_view text)
{
    if (text.find('E') != std::string_view::npos)
        return "0.00E+00";
    const auto point = text.find('.');
    return point == std::string_view::npos ? "0" : "0." + std::string(text.size() - point - 1, '0');
}

Sheet_Cell Cell_Of(const Report_Section& section, const Report_Line& line, std::size_t i)
{
    const bool is_number = i < section.Grid.Columns.size() && section.Grid.Columns[i].Is_Number;
    const auto number = is_number ? Number_In(line.Cells[i]) : std::nullopt;
    Sheet_Cell cell{.Text = number ? std::string() : To_Utf8(line.Cells[i]), .Number = number};
    if (number)
        cell.Style.Number_Format = Decimals_Of(line.Cells[i]);
    if (line.Marked) {
        cell.Style.Bold = true;
        cell.Style.Ink = Above_Ink;
    }
    return cell;
}

void Add_Section(Sheet& sheet, const Report_Section& section)
{
    sheet.Rows.push_back({{.Text = To_Utf8(section.Heading), .Number = std::nullopt, .Style = {.Bold = true}}});
    for (const auto& sentence : section.Sentences)
        sheet.Rows.push_back({{.Text = To_Utf8(sentence)}});
    const auto& grid = section.Grid;
    if (!grid.Lines.empty() && !grid.Columns.front().Head.empty()) {
        auto& heads = sheet.Rows.emplace_back();
        for (const auto& column : grid.Columns)
            heads.push_back({.Text = To_Utf8(column.Head), .Number = std::nullopt, .Style = {.Head = true}});
    }
    for (std::size_t i = 0; i < grid.Columns.size(); ++i) {
        const double width = grid.Columns[i].Head == "SHA-256" ? Digest_Width : Text_Width;
        if (i < sheet.Widths.size())
            sheet.Widths[i] = std::max(sheet.Widths[i], width);
        else
            sheet.Widths.push_back(width);
    }
    for (const auto& line : grid.Lines) {
        auto& row = sheet.Rows.emplace_back();
        for (std::size_t i = 0; i < line.Cells.size(); ++i)
            row.push_back(Cell_Of(section, line, i));
    }
    sheet.Rows.emplace_back();
}

// The sheet that a section of the second level begins; a crop is one.
std::string Sheet_Name(const std::string& heading)
{
    constexpr std::size_t Longest = 31;
    std::string name = heading.substr(0, Longest);
    std::ranges::replace_if(
        name, [](char c) { return std::string_view("[]:*?/\\").find(c) != std::string_view::npos; }, ' ');
    return To_Utf8(name);
}

} // namespace

Workbook Report_Book(const Report& report)
{
    Workbook book{.Title = To_Utf8(report.Title + ": " + report.Pesticide), .Author = "ORVELSUITE"};
    if (!report.Overview.Rows.empty())
        book.Sheets.push_back(Overview_Sheet(report.Overview, Overview_Settings().Bounds));
    for (const auto& section : Sections_Of(report)) {
        if (section.Heading == "Overview") // it has the first sheet
            continue;
        if (section.Level < 3) {
            std::string name = Sheet_Name(section.Level == 1 ? std::string("Report") : section.Heading);
            const auto same =
                std::ranges::count_if(book.Sheets, [&](const Sheet& sheet) { return Same_Text(sheet.Name, name); });
            if (same > 0)
                name = name.substr(0, 28) + " " + std::to_string(same + 1);
            book.Sheets.push_back({.Name = name});
        }
        Add_Section(book.Sheets.back(), section);
    }
    return book;
}

} // namespace orvel
