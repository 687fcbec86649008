#include "plans/plan_table.h"

#include "core/code_page.h"
#include "core/error.h"
#include "core/sha256.h"
#include "core/text.h"
#include "files/document_values.h"

#include <algorithm>
#include <array>
#include <span>

namespace orvel {

namespace {

using Kind = Plan_Column_Kind;

struct Named_Column {
    std::string_view Name;
    Plan_Column_Kind Kind;
};
constexpr std::array<Named_Column, 8> Named_Columns = {{{"id", Kind::Id},
                                                        {"mode", Kind::Mode},
                                                        {"pesticide", Kind::Pesticide},
                                                        {"crop", Kind::Crop},
                                                        {"location", Kind::Location},
                                                        {"scenario", Kind::Scenario},
                                                        {"climate", Kind::Climate},
                                                        {"years", Kind::Years}}};
constexpr std::array Columns_Of_Modes = {Kind::Id, Kind::Mode, Kind::Pesticide, Kind::Crop, Kind::Location};
constexpr std::array Columns_Of_Files = {Kind::Id, Kind::Pesticide, Kind::Scenario, Kind::Climate, Kind::Years};
constexpr std::size_t Longest_Name = 200;

std::string_view Name_Of_Kind(Kind kind)
{
    return std::ranges::find(Named_Columns, kind, &Named_Column::Kind)->Name;
}

std::string_view Without_Blanks(std::string_view text)
{
    constexpr std::string_view Blanks = " \t\r\n";
    const auto first = text.find_first_not_of(Blanks);
    return first == std::string_view::npos ? "" : text.substr(first, text.find_last_not_of(Blanks) - first + 1);
}

// A column that names a field to replace. Throws File_Error for a field that no document has.
Plan_Column Field_Column(const std::string& name, Kind kind, int line, int column)
{
    const auto field = From_Utf8(std::string_view(name).substr(Pesticide_Field_Begin.size()));
    if (!field)
        throw File_Error("There is no field " + name + ".", line, column);
    const std::string reason =
        kind == Kind::Pesticide_Field ? Why_Not_A_Pesticide_Field(*field) : Why_Not_A_Scenario_Field(*field);
    if (!reason.empty())
        throw File_Error(reason, line, column);
    return {kind, name, *field};
}

Plan_Column Column_Named(const std::string& name, int line, int column)
{
    if (name.starts_with(Pesticide_Field_Begin))
        return Field_Column(name, Kind::Pesticide_Field, line, column);
    if (name.starts_with(Scenario_Field_Begin))
        return Field_Column(name, Kind::Scenario_Field, line, column);
    if (name.starts_with('#'))
        return {Kind::Label, name, ""};
    const auto* const known = std::ranges::find(Named_Columns, name, &Named_Column::Name);
    if (known == Named_Columns.end())
        throw File_Error(name.empty() ? "The column has no name."
                                      : "There is no column '" + name.substr(0, Longest_Name) +
                                            "': a label begins with #, a field to replace with psm. or sze.",
                         line, column);
    return {known->Kind, name, ""};
}

bool Has(const Plan_Columns& columns, Kind kind)
{
    return std::ranges::find(columns.All, kind, &Plan_Column::Kind) != columns.All.end();
}

// Finds out how the runs are named, and what is missing or too much for that.
void Complete(Plan_Columns& columns, int line)
{
    columns.Kind = Has(columns, Kind::Mode) ? Plan_Kind::Modes : Plan_Kind::Files;
    const std::span<const Kind> needed = columns.Kind == Plan_Kind::Modes ? std::span<const Kind>(Columns_Of_Modes)
                                                                          : std::span<const Kind>(Columns_Of_Files);
    for (const Kind kind : needed) {
        if (!Has(columns, kind))
            throw File_Error("The column '" + std::string(Name_Of_Kind(kind)) +
                                 "' is missing: a plan has id, and mode, pesticide, crop, location or pesticide, "
                                 "scenario, climate, years.",
                             line);
    }
    for (std::size_t i = 0; i < columns.All.size(); ++i) {
        const auto& column = columns.All[i];
        if (column.Kind < Kind::Pesticide_Field && std::ranges::find(needed, column.Kind) == needed.end())
            throw File_Error("The column '" + column.Name + "' does not go with '" +
                                 std::string(columns.Kind == Plan_Kind::Modes ? "mode" : "scenario") + "'.",
                             line, static_cast<int>(i) + 1);
    }
}

bool Is_Blank(const Csv_Row& row)
{
    return std::ranges::all_of(row.Fields, [](const std::string& field) { return Without_Blanks(field).empty(); });
}

} // namespace

bool Plan_Columns::Replaces(Plan_Column_Kind kind) const
{
    return Has(*this, kind);
}

Plan_Reader::Plan_Reader(Csv_Reader::Source source) : Rows(std::move(source))
{
    Csv_Row row;
    do {
        if (!Rows.Next(row))
            throw File_Error("The plan is empty.");
    } while (Is_Blank(row));
    while (row.Fields.size() > 1 && Without_Blanks(row.Fields.back()).empty())
        row.Fields.pop_back(); // a spreadsheet's empty columns
    std::unordered_set<std::string> names;
    for (std::size_t i = 0; i < row.Fields.size(); ++i) {
        const std::string name(Without_Blanks(row.Fields[i]));
        const int at = static_cast<int>(i) + 1;
        if (!names.insert(name).second)
            throw File_Error("The column '" + name + "' is there twice.", row.Line, at);
        Found.All.push_back(Column_Named(name, row.Line, at));
    }
    Complete(Found, row.Line);
}

bool Plan_Reader::Next(Plan_Row& row)
{
    Csv_Row read;
    do {
        if (!Rows.Next(read))
            return false;
    } while (Is_Blank(read));
    row.Number = ++Count;
    row.Line = read.Line;
    row.Cells.clear();
    const std::size_t columns = Found.All.size();
    if (read.Fields.size() < columns)
        throw File_Error("The row ends before the column '" + Found.All[read.Fields.size()].Name + "'.", read.Line,
                         static_cast<int>(read.Fields.size()) + 1);
    for (std::size_t i = 0; i < read.Fields.size(); ++i) {
        const auto cell = Without_Blanks(read.Fields[i]);
        const int at = static_cast<int>(i) + 1;
        if (i >= columns && !cell.empty())
            throw File_Error("There is no column for '" + std::string(cell.substr(0, Longest_Name)) + "'.", read.Line,
                             at);
        if (i < columns && cell.empty() && Found.All[i].Kind != Kind::Label)
            throw File_Error("The cell of '" + Found.All[i].Name + "' is empty.", read.Line, at);
        if (i < columns)
            row.Cells.emplace_back(cell);
    }
    return true;
}

const std::string& Plan_Reader::Cell(const Plan_Row& row, Plan_Column_Kind kind) const
{
    return row.Cells[static_cast<std::size_t>(Column_Of(kind)) - 1];
}

int Plan_Reader::Column_Of(Plan_Column_Kind kind) const
{
    const auto found = std::ranges::find(Found.All, kind, &Plan_Column::Kind);
    return static_cast<int>(found - Found.All.begin()) + 1;
}

bool Plan_Ids::Add(std::string_view id)
{
    constexpr std::size_t Longest_Kept = 64;
    return Seen.insert(id.size() < Longest_Kept ? std::string(id) : Sha256(id)).second;
}

} // namespace orvel
