// The overview as a table, as text and as JSON.
#include "report/overview_formats.h"
#include "report/run_results.h"

#include "core/code_page.h"
#include "core/csv.h"
#include "core/files.h"
#include "core/json.h"
#include "core/numbers.h"
#include "core/text.h"

#include <algorithm>

namespace orvel {

const std::array<std::string_view, Most_Classes> Class_Signs = {"\u25CB", "\u25D4", "\u25D1", "\u25D5", "\u25CF"};
const std::array<std::uint32_t, Most_Classes> Class_Fills = {0xFFFFFF, 0xFFF3C4, 0xFEC44F, 0xD95F0E, 0x7F2704};
const std::array<std::uint32_t, Most_Classes> Class_Inks = {0x1C1F23, 0x1C1F23, 0x1C1F23, 0x000000, 0xFFFFFF};

namespace {

Shown_Cell Plain(std::string text)
{
    return {.Text = std::move(text)};
}

Shown_Cell Figure_Or_State(std::string text, const Overview_Figure* figure, const std::string& mark,
                           const std::vector<double>& bounds)
{
    Shown_Cell cell{.Text = std::move(text)};
    if (figure == nullptr) {
        cell.Is_State = !cell.Text.empty();
        return cell;
    }
    cell.Value = figure->Value;
    cell.Class = Class_Place(Class_Of(figure->Value, bounds), bounds.size());
    cell.Above_Limit = figure->Above_Limit;
    cell.Mark = mark;
    return cell;
}

Shown_Cell Figure_Cell(const Overview& overview, const Overview_Row& row, std::size_t column,
                       const std::vector<double>& bounds)
{
    const Overview_Run* run = Run_At(overview, row, column);
    return Figure_Or_State(Cell_Text(overview, row, column), Figure_At(overview, row, column),
                           run == nullptr ? std::string() : Mark_Text(*run), bounds);
}

// What stands beside a figure that is compared.
std::vector<Shown_Cell> Cells_Beside(const Overview& overview, const Overview_Row& row, std::size_t column,
                                     const std::vector<double>& bounds)
{
    const Overview_Run* run = Run_At(overview, row, column);
    const auto ratio = Ratio_At(overview, row, column);
    return {Figure_Or_State(Other_Text(overview, row, column), Other_At(overview, row, column),
                            run == nullptr ? std::string() : run->Other_State, bounds),
            {.Text = Ratio_Text(ratio), .Value = ratio, .Is_Ratio = true}};
}

Shown_Cell Location_Cell(const Overview& overview, const Overview_Row& row, std::size_t column,
                         const std::vector<double>& bounds)
{
    auto cell = Figure_Cell(overview, row, column, bounds);
    if (!overview.Compared_With.empty())
        cell.Beside = Cells_Beside(overview, row, column, bounds);
    return cell;
}

Shown_Cell Highest_Cell(const Overview& overview, const Overview_Row& row, const std::vector<double>& bounds)
{
    if (row.Highest < 0)
        return {};
    auto cell = Figure_Cell(overview, row, static_cast<std::size_t>(row.Highest), bounds);
    cell.Text = Highest_Text(overview, row);
    cell.Mark.clear();
    return cell;
}

// What belongs beside the figures of a row.
std::string Notes_Of(const Overview& overview, const Overview_Row& row)
{
    std::string notes;
    for (std::size_t column = 0; column < row.Cells.size(); ++column) {
        const Overview_Run* run = Run_At(overview, row, column);
        if (run == nullptr || run->Dry_Periods == 0 || Figure_At(overview, row, column) == nullptr)
            continue;
        notes += (notes.empty() ? "Periods without percolate: " : "; ") + overview.Columns[column] + " " +
                 std::to_string(run->Dry_Periods);
    }
    return notes;
}

std::vector<std::string> Texts_Of(const std::vector<Shown_Cell>& cells)
{
    std::vector<std::string> texts;
    for (const auto& cell : cells)
        texts.push_back(cell.Text);
    return texts;
}

// A text without what would end its field or its line.
std::string Tabbed(std::string text)
{
    std::ranges::replace_if(
        text, [](char c) { return c == '\t' || c == '\n' || c == '\r'; }, ' ');
    return text;
}

} // namespace

Shown_Table Shown_Table_Of(const Overview& overview, const std::vector<double>& bounds)
{
    const std::string unit = " (\xB5g/L)";
    Shown_Table table{.Heads = {"Pesticide file", "Crop", "Substance"}};
    if (!overview.Has_Limit)
        table.Heads.emplace_back("Unit");
    table.First_Location = table.Heads.size();
    table.Locations = overview.Columns.size();
    table.Heads.insert(table.Heads.end(), overview.Columns.begin(), overview.Columns.end());
    table.Heads.push_back("Highest" + (overview.Has_Limit ? unit : std::string()));
    table.Heads.emplace_back("Highest at");
    if (overview.Has_Limit)
        table.Heads.push_back("Above " + Limit_Text());
    table.Heads.emplace_back("Notes");
    for (const auto& row : overview.Rows) {
        auto& cells = table.Rows.emplace_back();
        table.Is_Metabolite.push_back(row.Is_Metabolite);
        for (const auto* text : {&row.Pesticide, &row.Crop, &row.Substance})
            cells.push_back(Plain(*text));
        if (!overview.Has_Limit)
            cells.push_back(Plain(row.Unit));
        for (std::size_t column = 0; column < row.Cells.size(); ++column)
            cells.push_back(Location_Cell(overview, row, column, bounds));
        cells.push_back(Highest_Cell(overview, row, bounds));
        cells.push_back(Plain(row.Highest < 0 ? "" : overview.Columns[static_cast<std::size_t>(row.Highest)]));
        if (overview.Has_Limit)
            cells.push_back(Plain(Above_Text(row)));
        cells.push_back(Plain(Notes_Of(overview, row)));
    }
    return table;
}

Shown_Table Spread_Table_Of(const Overview& overview, const std::vector<double>& bounds)
{
    Shown_Table table = Shown_Table_Of(overview, bounds);
    if (overview.Compared_With.empty())
        return table;
    std::vector<std::string> heads;
    for (std::size_t i = 0; i < table.Heads.size(); ++i) {
        heads.push_back(table.Heads[i]);
        if (i >= table.First_Location && i < table.First_Location + table.Locations)
            heads.insert(heads.end(), {table.Heads[i] + ", the other one", table.Heads[i] + ", ratio"});
    }
    table.Heads = std::move(heads);
    table.Locations *= 3;
    for (auto& row : table.Rows) {
        std::vector<Shown_Cell> spread;
        for (auto& cell : row) {
            auto beside = std::move(cell.Beside);
            cell.Beside.clear();
            spread.push_back(std::move(cell));
            std::ranges::move(beside, std::back_inserter(spread));
        }
        row = std::move(spread);
    }
    return table;
}

std::size_t Class_Place(std::size_t class_of, std::size_t bounds)
{
    return bounds == 0 ? 0 : class_of * (Most_Classes - 1) / bounds;
}

std::vector<std::string> Class_Texts(const std::vector<double>& bounds)
{
    std::vector<std::string> texts;
    for (std::size_t i = 0; i <= bounds.size() && !bounds.empty(); ++i)
        texts.push_back(i == 0               ? "below " + General_Text(bounds[0])
                        : i == bounds.size() ? General_Text(bounds.back()) + " and more"
                                             : General_Text(bounds[i - 1]) + " to " + General_Text(bounds[i]));
    return texts;
}

std::string Overview_Lines(const Overview& overview)
{
    const Shown_Table table = Spread_Table_Of(overview, {});
    std::string lines;
    const auto add = [&](const std::vector<std::string>& fields) {
        for (std::size_t i = 0; i < fields.size(); ++i)
            lines += (i == 0 ? "" : "\t") + Tabbed(fields[i]);
        lines += '\n';
    };
    add(table.Heads);
    for (const auto& row : table.Rows)
        add(Texts_Of(row));
    return To_Utf8(lines);
}

std::string Overview_Csv(const Overview& overview)
{
    const Shown_Table table = Spread_Table_Of(overview, {});
    std::string csv = Csv_Line(table.Heads);
    for (const auto& row : table.Rows)
        csv += Csv_Line(Texts_Of(row));
    return std::string(Byte_Order_Mark) + To_Utf8(csv);
}

std::string Overview_Json(const Overview& overview)
{
    Json_Writer json;
    json.Array([&] {
        for (const auto& row : overview.Rows) {
            for (std::size_t column = 0; column < row.Cells.size(); ++column) {
                const Overview_Run* run = Run_At(overview, row, column);
                if (run == nullptr)
                    continue;
                const Overview_Figure* figure = Figure_At(overview, row, column);
                const auto put = [&](std::string_view name, const std::optional<double>& value) {
                    json.Key(name);
                    if (value)
                        json.Value(*value);
                    else
                        json.Null();
                };
                const Overview_Figure* other = Other_At(overview, row, column);
                json.Object([&] {
                    json.Member("pesticide", row.Pesticide);
                    json.Member("crop", row.Crop);
                    json.Member("substance", row.Substance);
                    json.Member("location", run->Location);
                    put("value", figure != nullptr ? std::optional(figure->Value) : std::nullopt);
                    json.Member("unit", run->Unit);
                    json.Member("years", run->Years);
                    json.Member("verdict", Verdict_Word(*run));
                    json.Member("directory", To_Code_Page(run->Directory.string()));
                    json.Member("state", figure != nullptr ? Mark_Text(*run) : State_Text(*run));
                    json.Member("dry_periods", run->Dry_Periods);
                    if (overview.Compared_With.empty())
                        return;
                    put("other_value", other != nullptr ? std::optional(other->Value) : std::nullopt);
                    json.Member("other_state", other != nullptr ? run->Other_State : Other_Text(overview, row, column));
                    put("ratio", Ratio_At(overview, row, column));
                });
            }
        }
    });
    return json.Written();
}

bool Is_Overview_Book(const std::filesystem::path& file)
{
    const std::string ending = Lower(file.extension().string());
    if (ending != ".csv" && ending != ".xlsx" && ending != ".html")
        throw File_Error("An overview is saved as " + std::string(Overview_Endings) + ", not as " +
                         file.filename().string() + ".");
    return ending == ".xlsx";
}

void Write_Overview(const Overview& overview, const std::vector<double>& bounds, const std::filesystem::path& file)
{
    const bool is_csv = Lower(file.extension().string()) == ".csv";
    Write_Whole(file, is_csv ? Overview_Csv(overview) : Overview_Html(overview, bounds));
}

} // namespace orvel
