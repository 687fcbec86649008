// The overview as a workbook: results, inputs and records.
#include "core/code_page.h"
#include "core/error.h"
#include "report/overview_formats.h"
#include "report/run_results.h"

namespace orvel {

namespace {

constexpr double Overview_Text_Width = 22, Figure_Width = 14;
constexpr std::uint32_t State_Ink = 0x5A6270;

// Texts of the system's bytes become Unicode at this edge.
Sheet_Cell Text_Cell(std::string_view text, Cell_Style style = {})
{
    return {.Text = To_Utf8(text), .Number = std::nullopt, .Style = std::move(style)};
}

std::vector<Sheet_Cell> Head_Row(const std::vector<std::string>& heads)
{
    std::vector<Sheet_Cell> row;
    for (const auto& head : heads)
        row.push_back(Text_Cell(head, {.Head = true}));
    return row;
}

// The number as the tables print it, with its class and its mark in the number's format: it stays a number.
std::string Number_Format(const Shown_Cell& cell)
{
    const std::string figure = cell.Text.substr(0, cell.Text.find(" ("));
    const bool has_exponent = figure.find('E') != std::string::npos;
    const auto point = figure.find('.');
    const std::size_t decimals = point == std::string::npos ? 0 : figure.size() - point - 1;
    const std::string digits = has_exponent   ? "0.00E+00"
                               : decimals > 0 ? "0." + std::string(decimals, '0')
                                              : std::string("0");
    const std::string sign = cell.Is_Ratio ? std::string() : "\"" + std::string(Class_Signs[cell.Class]) + "\" ";
    return sign + digits + (cell.Mark.empty() ? "" : "\" (" + To_Utf8(cell.Mark) + ")\"");
}

Sheet_Cell Result_Cell(const Shown_Cell& cell)
{
    if (!cell.Value)
        return Text_Cell(cell.Text, cell.Is_State ? Cell_Style{.Ink = State_Ink, .Italic = true} : Cell_Style());
    if (cell.Is_Ratio)
        return {.Text = {}, .Number = cell.Value, .Style = {.Number_Format = Number_Format(cell)}};
    return {.Text = {},
            .Number = cell.Value,
            .Style = {.Fill = Class_Fills[cell.Class],
                      .Ink = Class_Inks[cell.Class],
                      .Bold = cell.Above_Limit,
                      .Number_Format = Number_Format(cell)}};
}

// The runs of an overview with their records, each once.
template <class Line> void Add_Lines(const Overview& overview, Sheet& sheet, Line add)
{
    for (const auto& run : overview.Runs) {
        if (run.Kind == Cell_Kind::Absent)
            continue;
        try {
            if (const auto record = Read_Run_Record(run.Directory))
                add(run, *record);
            else
                sheet.Rows.push_back({Text_Cell(run.Pesticide), Text_Cell(run.Crop), Text_Cell(run.Location),
                                      Text_Cell(Verdict_Word(run))});
        } catch (const File_Error& error) {
            sheet.Rows.push_back(
                {Text_Cell(run.Pesticide), Text_Cell(run.Crop), Text_Cell(run.Location), {.Text = error.what()}});
        }
    }
}

Sheet_Cell Number_Cell(double number)
{
    return {.Text = {}, .Number = number};
}

Sheet Inputs_Sheet(const Overview& overview)
{
    Sheet sheet{.Name = "Inputs", .Frozen_Rows = 1, .Frozen_Columns = 3};
    sheet.Widths = {Overview_Text_Width, Overview_Text_Width, Overview_Text_Width,
                    Overview_Text_Width, Figure_Width,        Digest_Width};
    sheet.Rows.push_back(Head_Row({"Pesticide file", "Crop", "Location", "Input", "Bytes", "SHA-256"}));
    Add_Lines(overview, sheet, [&](const Overview_Run& run, const Run_Record& record) {
        for (const auto& input : record.Inputs)
            sheet.Rows.push_back({Text_Cell(run.Pesticide), Text_Cell(run.Crop), Text_Cell(run.Location),
                                  Text_Cell(input.Name), Number_Cell(static_cast<double>(input.Size)),
                                  Text_Cell(input.Sha256)});
    });
    return sheet;
}

Sheet Records_Sheet(const Overview& overview)
{
    Sheet sheet{.Name = "Records", .Frozen_Rows = 1, .Frozen_Columns = 3};
    sheet.Widths = {Overview_Text_Width, Overview_Text_Width, Overview_Text_Width, Figure_Width,
                    Figure_Width,        Figure_Width,        Overview_Text_Width, Overview_Text_Width,
                    Overview_Text_Width, Overview_Text_Width, Digest_Width,        Overview_Text_Width};
    sheet.Rows.push_back(Head_Row({"Pesticide file", "Crop", "Location", "Verdict", "Years asked for", "Years found",
                                   "Begin", "End", "Program", "Engine", "SHA-256 of the engine", "Reason"}));
    Add_Lines(overview, sheet, [&](const Overview_Run& run, const Run_Record& record) {
        sheet.Rows.push_back({Text_Cell(run.Pesticide), Text_Cell(run.Crop), Text_Cell(run.Location),
                              Text_Cell(Verdict_Word(run)), Number_Cell(record.Years_Expected),
                              Number_Cell(record.Years_Found),
                              Text_Cell(record.Start == 0 ? "" : Utc_Text(record.Start)),
                              Text_Cell(record.End == 0 ? "" : Utc_Text(record.End)),
                              Text_Cell(record.Program + " " + record.Program_Version),
                              Text_Cell(record.Engine.Name + " " + record.Engine_Version),
                              Text_Cell(record.Engine.Sha256), Text_Cell(run.Reason)});
    });
    return sheet;
}

} // namespace

Sheet Overview_Sheet(const Overview& overview, const std::vector<double>& bounds)
{
    const Shown_Table table = Spread_Table_Of(overview, overview.Has_Limit ? bounds : std::vector<double>());
    Sheet sheet{.Name = "Results", .Frozen_Rows = 1, .Frozen_Columns = 3};
    sheet.Rows.push_back(Head_Row(table.Heads));
    for (std::size_t i = 0; i < table.Heads.size(); ++i)
        sheet.Widths.push_back(i >= table.First_Location && i <= table.First_Location + table.Locations
                                   ? Figure_Width
                                   : Overview_Text_Width);
    for (const auto& row : table.Rows) {
        auto& cells = sheet.Rows.emplace_back();
        for (const auto& cell : row)
            cells.push_back(Result_Cell(cell));
    }
    sheet.Rows.emplace_back();
    for (const auto& sentence : Sentences_Of(overview))
        sheet.Rows.push_back({Text_Cell(sentence)});
    if (overview.Has_Limit) {
        const auto texts = Class_Texts(bounds);
        for (std::size_t i = 0; i < texts.size(); ++i) {
            const auto place = Class_Place(i, bounds.size());
            sheet.Rows.push_back(
                {{.Text = std::string(Class_Signs[place]) + " " + To_Utf8(texts[i] + " " + std::string(Leachate_Unit)),
                  .Number = std::nullopt,
                  .Style = {.Fill = Class_Fills[place], .Ink = Class_Inks[place]}}});
        }
    }
    return sheet;
}

Workbook Overview_Book(const Overview& overview, const std::vector<double>& bounds)
{
    return {.Title = "Overview",
            .Author = "ORVELSUITE",
            .Sheets = {Overview_Sheet(overview, bounds), Inputs_Sheet(overview), Records_Sheet(overview)}};
}

} // namespace orvel
