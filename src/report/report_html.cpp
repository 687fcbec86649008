// The report as an HTML page.
#include "charts/chart_svg.h"
#include "core/xml.h"
#include "report/overview_formats.h"
#include "report/page_style.h"
#include "report/report_formats.h"
#include "report/report_sections.h"

namespace orvel {

namespace {

bool Has_Heads(const Report_Grid& grid)
{
    return !grid.Columns.front().Head.empty();
}

std::string Cell_Of(const Report_Grid& grid, const Report_Line& line, std::size_t i)
{
    const Report_Column& column = grid.Columns[i];
    if (line.Cells.size() < grid.Columns.size() && i + 1 == line.Cells.size())
        return Xml_Element("td", " class=\"problem\" colspan=\"" + std::to_string(grid.Columns.size() - i) + "\"",
                           Xml_Text(line.Cells[i]));
    if (!Has_Heads(grid) && i == 0)
        return Xml_Element("th", " scope=\"row\"", Xml_Text(line.Cells[i]));
    if (i < line.Marks.size() && line.Marks[i].Class >= 0) {
        const auto place = static_cast<std::size_t>(line.Marks[i].Class);
        const std::string text = std::string(Class_Signs[place]) + " " + Xml_Text(line.Cells[i]);
        return Xml_Element("td", " class=\"number class\" style=\"" + Class_Colours(place) + "\"",
                           line.Marks[i].Bold ? Xml_Element("b", "", text) : text);
    }
    const std::string_view kind = column.Is_Number           ? " class=\"number\""
                                  : column.Head == "SHA-256" ? " class=\"digest\""
                                                             : "";
    return Xml_Element("td", kind, Xml_Text(line.Cells[i]));
}

std::string Table_Of(const Report_Grid& grid)
{
    std::string heads, rows;
    for (const auto& column : grid.Columns)
        heads += Xml_Element("th", column.Is_Number ? " scope=\"col\" class=\"number\"" : " scope=\"col\"",
                             Xml_Text(column.Head));
    for (const auto& line : grid.Lines) {
        std::string cells;
        for (std::size_t i = 0; i < line.Cells.size(); ++i)
            cells += Cell_Of(grid, line, i);
        rows += Xml_Element("tr", line.Marked ? " class=\"above\"" : "", cells) + "\n";
    }
    const std::string head = Has_Heads(grid) ? Xml_Element("thead", "", Xml_Element("tr", "", heads)) + "\n" : "";
    return "<div class=\"wide\"><table>\n" + head + Xml_Element("tbody", "", "\n" + rows) + "\n</table></div>\n";
}

std::string Sentences_Of(const Report_Section& section)
{
    std::string text;
    for (const auto& sentence : section.Sentences)
        text += Xml_Element(section.Is_Warning ? "li" : "p", "", Xml_Text(sentence)) + "\n";
    return section.Is_Warning ? Xml_Element("ul", " class=\"notes\"", "\n" + text) + "\n" : text;
}

std::string Html_Of(const Report_Section& section)
{
    std::string text =
        Xml_Element("h" + std::to_string(section.Level), "", Xml_Text(section.Heading)) + "\n" + Sentences_Of(section);
    if (!section.Grid.Lines.empty())
        text += Table_Of(section.Grid);
    if (section.Diagram != nullptr)
        text += Xml_Element("figure", "",
                            "\n" + Chart_Svg(*section.Diagram) +
                                Xml_Element("figcaption", "", Xml_Text(section.Diagram->Title)) + "\n") +
                "\n";
    return Xml_Element("section", "", "\n" + text) + "\n";
}

} // namespace

std::string Report_Html(const Report& report)
{
    std::string body;
    for (const auto& section : Sections_Of(report))
        body += Html_Of(section);
    return Standing_Page(Xml_Text(report.Title + ": " + report.Pesticide), {}, body);
}

} // namespace orvel
