// The report as an HTML page.
#include "charts/chart_svg.h"
#include "core/xml.h"
#include "report/report_formats.h"
#include "report/report_sections.h"

namespace orvel {

namespace {

// Marks are told by words too, since colours may be lost in print.
constexpr std::string_view Style = R"(
:root { color-scheme: light dark; --ink: #1c1f23; --ground: #ffffff; --soft: #f3f5f7; --rule: #c9ced6; --above: #b3261e; --warn: #fff4d6; }
@media (prefers-color-scheme: dark) {
  :root { --ink: #e6e8eb; --ground: #16181b; --soft: #22262b; --rule: #454b54; --above: #ff8a7a; --warn: #3a3218; }
}
body { margin: 2rem auto; max-width: 60rem; padding: 0 1rem; color: var(--ink); background: var(--ground);
       font: 16px/1.45 system-ui, "Segoe UI", "DejaVu Sans", sans-serif; }
h1 { font-size: 1.7rem; } h2 { font-size: 1.35rem; margin-top: 2.2rem; border-bottom: 1px solid var(--rule); } h3 { font-size: 1.1rem; margin-top: 1.6rem; }
.wide { overflow-x: auto; }
table { width: 100%; border-collapse: collapse; font-size: 0.9rem; font-variant-numeric: tabular-nums; }
th, td { padding: 0.3rem 0.7rem; border-bottom: 1px solid var(--rule); text-align: left; vertical-align: top; }
thead th { background: var(--soft); } td.number, th.number { text-align: right; white-space: nowrap; }
tr.above td { color: var(--above); font-weight: 600; } td.problem { font-style: italic; }
.digest { font-family: ui-monospace, "DejaVu Sans Mono", monospace; font-size: 0.8em; word-break: break-all; }
ul.notes { background: var(--warn); padding: 0.8rem 1rem 0.8rem 2.2rem; border-radius: 0.3rem; }
figure { margin: 1.2rem 0; } figure svg { width: 100%; max-width: 47rem; height: auto; } figcaption { font-weight: 600; }
@media print {
  :root { --ink: #000000; --ground: #ffffff; --soft: #eeeeee; --rule: #888888; --above: #8c1d18; --warn: #ffffff; }
  @page { size: A4; margin: 18mm; }
  body { margin: 0; padding: 0; max-width: none; font-size: 10pt; }
  table { font-size: 8.5pt; } th, td { padding: 1mm 1.5mm; } .wide { overflow: visible; }
  tr, figure, ul.notes { break-inside: avoid; } h2, h3 { break-after: avoid; } thead { display: table-header-group; }
}
)";

std::string Element(std::string_view name, std::string_view attributes, std::string_view inner)
{
    const std::string tag(name);
    return "<" + tag + std::string(attributes) + ">" + std::string(inner) + "</" + tag + ">";
}

bool Has_Heads(const Report_Grid& grid)
{
    return !grid.Columns.front().Head.empty();
}

std::string Cell_Of(const Report_Grid& grid, const Report_Line& line, std::size_t i)
{
    const Report_Column& column = grid.Columns[i];
    if (line.Cells.size() < grid.Columns.size() && i + 1 == line.Cells.size())
        return Element("td", " class=\"problem\" colspan=\"" + std::to_string(grid.Columns.size() - i) + "\"",
                       Xml_Text(line.Cells[i]));
    if (!Has_Heads(grid) && i == 0)
        return Element("th", " scope=\"row\"", Xml_Text(line.Cells[i]));
    const std::string_view kind = column.Is_Number           ? " class=\"number\""
                                  : column.Head == "SHA-256" ? " class=\"digest\""
                                                             : "";
    return Element("td", kind, Xml_Text(line.Cells[i]));
}

std::string Table_Of(const Report_Grid& grid)
{
    std::string heads, rows;
    for (const auto& column : grid.Columns)
        heads += Element("th", column.Is_Number ? " scope=\"col\" class=\"number\"" : " scope=\"col\"",
                         Xml_Text(column.Head));
    for (const auto& line : grid.Lines) {
        std::string cells;
        for (std::size_t i = 0; i < line.Cells.size(); ++i)
            cells += Cell_Of(grid, line, i);
        rows += Element("tr", line.Marked ? " class=\"above\"" : "", cells) + "\n";
    }
    const std::string head = Has_Heads(grid) ? Element("thead", "", Element("tr", "", heads)) + "\n" : "";
    return "<div class=\"wide\"><table>\n" + head + Element("tbody", "", "\n" + rows) + "\n</table></div>\n";
}

std::string Sentences_Of(const Report_Section& section)
{
    std::string text;
    for (const auto& sentence : section.Sentences)
        text += Element(section.Is_Warning ? "li" : "p", "", Xml_Text(sentence)) + "\n";
    return section.Is_Warning ? Element("ul", " class=\"notes\"", "\n" + text) + "\n" : text;
}

std::string Html_Of(const Report_Section& section)
{
    std::string text =
        Element("h" + std::to_string(section.Level), "", Xml_Text(section.Heading)) + "\n" + Sentences_Of(section);
    if (!section.Grid.Lines.empty())
        text += Table_Of(section.Grid);
    if (section.Diagram != nullptr)
        text += Element("figure", "",
                        "\n" + Chart_Svg(*section.Diagram) +
                            Element("figcaption", "", Xml_Text(section.Diagram->Title)) + "\n") +
                "\n";
    return Element("section", "", "\n" + text) + "\n";
}

} // namespace

std::string Report_Html(const Report& report)
{
    std::string body;
    for (const auto& section : Sections_Of(report))
        body += Html_Of(section);
    const std::string title = Xml_Text(report.Title + ": " + report.Pesticide);
    return "<!DOCTYPE html>\n<html xmlns=\"http://www.w3.org/1999/xhtml\" lang=\"en\" xml:lang=\"en\">\n<head>\n<meta "
           "charset=\"utf-8\"/>\n"
           "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\"/>\n<title>" +
           title + "</title>\n<style>" + std::string(Style) + "</style>\n</head>\n<body>\n" +
           Element("main", "", "\n" + body) + "\n</body>\n</html>\n";
}

} // namespace orvel
