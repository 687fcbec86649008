#include "records/expected_figures.h"

#include "core/code_page.h"
#include "core/csv.h"
#include "core/csv_reader.h"
#include "core/error.h"
#include "core/numbers.h"
#include "core/text.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace orvel {

namespace {

enum Column { Pesticide, Crop, Location, Substance, Percentile, Unit, Tolerance };
constexpr std::array<std::string_view, 7> Columns_Of_Table = {"pesticide",  "crop", "location", "substance",
                                                              "percentile", "unit", "tolerance"};
constexpr std::string_view Mode_Name = "focus";

std::string Text(const Csv_Row& row, Column column)
{
    const auto bytes = From_Utf8(Trim(row.Fields[column]));
    if (!bytes || bytes->empty())
        throw File_Error("The " + std::string(Columns_Of_Table[column]) +
                             (bytes ? " is missing." : " holds a character that no file of this system can hold."),
                         row.Line, column + 1);
    return *bytes;
}

double Number(const Csv_Row& row, Column column)
{
    const std::string text = Text(row, column);
    const bool plain = text.find_first_not_of("0123456789.eE+-") == std::string::npos;
    const double value = Val(text);
    if (!plain || text.find_first_of("0123456789") == std::string::npos || value < 0 || !std::isfinite(value))
        throw File_Error("'" + To_Utf8(text) + "' is no number from 0 on.", row.Line, column + 1);
    return value;
}

Expected_Figure Figure_Of(const Csv_Row& row)
{
    if (row.Fields.size() != Columns_Of_Table.size())
        throw File_Error("The row has " + std::to_string(row.Fields.size()) + " fields, not " +
                             std::to_string(Columns_Of_Table.size()) + ".",
                         row.Line);
    if (Text(row, Unit) != Result_Unit)
        throw File_Error("The unit must be " + To_Utf8(Result_Unit) + ".", row.Line, Unit + 1);
    return {.Key = {std::string(Mode_Name), Text(row, Pesticide), Text(row, Crop), Text(row, Location)},
            .Substance = Text(row, Substance),
            .Value = Number(row, Percentile),
            .Tolerance = Number(row, Tolerance)};
}

} // namespace

std::vector<Expected_Figure> Parse_Expected(std::string_view text)
{
    Csv_Reader reader(Source_Of(text));
    Csv_Row row;
    if (!reader.Next(row) || !std::ranges::equal(row.Fields, Columns_Of_Table))
        throw File_Error("It is no table of expected figures: its columns are not pesticide, crop, location, "
                         "substance, percentile, unit, tolerance.",
                         1);
    std::vector<Expected_Figure> figures;
    while (reader.Next(row)) {
        const bool is_blank = std::ranges::all_of(row.Fields, [](const auto& field) { return Trim(field).empty(); });
        if (!is_blank)
            figures.push_back(Figure_Of(row));
    }
    if (figures.empty())
        throw File_Error("It has no rows.");
    return figures;
}

std::string Format_Expected(const std::vector<Expected_Figure>& figures)
{
    std::string text;
    for (const auto column : Columns_Of_Table)
        text += (text.empty() ? "" : ",") + std::string(column);
    text += "\n";
    for (const auto& figure : figures) {
        for (const auto& cell : {figure.Key.Pesticide, figure.Key.Crop, figure.Key.Location, figure.Substance})
            text += Csv_Field(To_Utf8(cell)) + ",";
        text += General_Text(figure.Value) + "," + To_Utf8(Result_Unit) + "," + General_Text(figure.Tolerance) + "\n";
    }
    return text;
}

bool Is_As_Expected(const Expected_Figure& expected, double obtained)
{
    constexpr double Rounding = 1e-9; // of the numbers' own
    return std::abs(obtained - expected.Value) <= std::max(expected.Tolerance * expected.Value, Last_Place) + Rounding;
}

} // namespace orvel
