// The overview as an HTML page, and as the fragment that a clipboard takes.
#include "core/numbers.h"
#include "core/xml.h"
#include "report/overview_formats.h"
#include "report/page_style.h"

namespace orvel {

namespace {

// A class is told by its sign as well as by its colour, and what is above the limit by bold figures.
constexpr std::string_view Overview_Style = R"(
body { max-width: none; }
.key { display: flex; flex-wrap: wrap; gap: 0.4rem 0.8rem; padding: 0; margin: 0.8rem 0; list-style: none; font-size: 0.85rem; }
.key li { padding: 0.1rem 0.6rem; border: 1px solid var(--rule); border-radius: 0.3rem; }
td.figure { text-align: right; white-space: nowrap; } td:nth-child(-n+3) { min-width: 6rem; overflow-wrap: anywhere; white-space: normal; }
td.figure .sign { margin-right: 0.2em; } td:last-child { min-width: 12rem; }
td.over { font-weight: 700; } td.state { font-style: italic; } td.metabolite { padding-left: 1.8rem; }
.mark { display: block; font-size: 0.8em; font-style: italic; font-weight: 400; }
.other { font-weight: 400; }
.c0, .c1, .c2, .c3, .c4 { print-color-adjust: exact; -webkit-print-color-adjust: exact; }
.wide { border: 1px solid var(--rule); border-radius: 0.3rem; }
.wide thead th { position: sticky; top: 0; white-space: normal; } tbody th { font-weight: 400; background: var(--ground); }
@media screen and (max-width: 45rem) {
  body { margin: 0.6rem; padding: 0; } h1 { font-size: 1.3rem; } .wide { border: 0; }
  thead { display: none; } table, tbody, tr, td { display: block; }
  tbody tr { margin-bottom: 1rem; border: 1px solid var(--rule); border-radius: 0.3rem; }
  td, td.figure { display: flex; flex-wrap: wrap; text-align: right !important; white-space: normal; padding: 0.35rem 0.6rem; }
  td::before { content: attr(data-head); flex: 1; text-align: left; font-weight: 400; padding-right: 1rem; }
  td:empty { display: none; }
}
@media print { @page { size: A4 landscape; margin: 12mm; } .wide { border: 0; } table { font-size: 7.5pt; } }
)";

std::string Hexadecimal(std::uint32_t colour)
{
    constexpr std::string_view Digits = "0123456789abcdef";
    std::string text = "#";
    for (int shift = 20; shift >= 0; shift -= 4)
        text += Digits[(colour >> static_cast<unsigned>(shift)) & 15U];
    return text;
}

// The figure of the other assessment, and the ratio.
std::string Beside_Of(const Shown_Cell& cell)
{
    if (cell.Beside.empty() || cell.Beside.front().Text.empty())
        return {};
    const std::string ratio = cell.Beside.back().Text;
    return Xml_Element("span", " class=\"other\"",
                       " | " + Xml_Text(cell.Beside.front().Text) +
                           (ratio.empty() ? "" : " | " + Xml_Text("\xD7" + ratio)));
}

// Colours stand at each cell as well: a clipboard takes no style sheet.
std::string Cell_Of(const Shown_Cell& cell, const std::string& head, bool is_metabolite)
{
    const std::string named = " data-head=\"" + Xml_Text(head) + "\"";
    const std::string beside = Beside_Of(cell);
    if (!cell.Value)
        return Xml_Element("td",
                           named + (cell.Is_State   ? " class=\"state\""
                                    : is_metabolite ? " class=\"metabolite\""
                                                    : ""),
                           Xml_Text(cell.Text) + beside);
    const std::string figure = cell.Text.substr(0, cell.Text.find(" ("));
    std::string inner = Xml_Element("span", " class=\"sign\"", Class_Signs[cell.Class]) + " ";
    inner += cell.Above_Limit ? Xml_Element("b", "", Xml_Text(figure)) : Xml_Text(figure);
    if (!cell.Mark.empty())
        inner += Xml_Element("span", " class=\"mark\"", "(" + Xml_Text(cell.Mark) + ")");
    inner += beside;
    return Xml_Element("td",
                       named + " class=\"figure c" + std::to_string(cell.Class) + (cell.Above_Limit ? " over" : "") +
                           "\" style=\"" + Class_Colours(cell.Class) + ";text-align:right\"",
                       inner);
}

std::string Table_Of(const Shown_Table& table)
{
    constexpr std::size_t Substance_Column = 2;
    std::string heads, rows;
    for (const auto& head : table.Heads)
        heads += Xml_Element("th", " scope=\"col\"", Xml_Text(head));
    for (std::size_t r = 0; r < table.Rows.size(); ++r) {
        std::string cells;
        for (std::size_t c = 0; c < table.Rows[r].size(); ++c)
            cells += Cell_Of(table.Rows[r][c], table.Heads[c], c == Substance_Column && table.Is_Metabolite[r]);
        rows += Xml_Element("tr", "", cells) + "\n";
    }
    return "<table>\n" + Xml_Element("thead", "", Xml_Element("tr", "", heads)) + "\n" +
           Xml_Element("tbody", "", "\n" + rows) + "\n</table>\n";
}

std::string Key_Of(const std::vector<double>& bounds)
{
    std::string items;
    const auto texts = Class_Texts(bounds);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const std::size_t place = Class_Place(i, bounds.size());
        items += Xml_Element("li", " class=\"c" + std::to_string(place) + "\" style=\"" + Class_Colours(place) + "\"",
                             std::string(Class_Signs[place]) + " " + Xml_Text(texts[i])) +
                 "\n";
    }
    return Xml_Element("ul", " class=\"key\"", "\n" + items) + "\n";
}

} // namespace

std::string Class_Colours(std::size_t place)
{
    return "background:" + Hexadecimal(Class_Fills[place]) + ";color:" + Hexadecimal(Class_Inks[place]);
}

std::string Overview_Fragment(const Overview& overview, const std::vector<double>& bounds)
{
    return Table_Of(Shown_Table_Of(overview, bounds));
}

std::string Overview_Html(const Overview& overview, const std::vector<double>& bounds)
{
    std::string sentences;
    for (const auto& sentence : Sentences_Of(overview))
        sentences += Xml_Element("p", "", Xml_Text(sentence)) + "\n";
    const std::string key = overview.Has_Limit ? Key_Of(bounds) : std::string();
    return Standing_Page("Overview", Overview_Style,
                         Xml_Element("h1", "", "Overview") + "\n" + sentences + key + "<div class=\"wide\">" +
                             Table_Of(Shown_Table_Of(overview, overview.Has_Limit ? bounds : std::vector<double>())) +
                             "</div>\n");
}

} // namespace orvel
