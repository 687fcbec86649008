#include "records/comparison.h"

#include "core/code_page.h"
#include "core/json.h"
#include "core/numbers.h"
#include "core/text.h"

#include <algorithm>

namespace orvel {

namespace {

// A field of a line: without tabs and ends of lines, which part fields.
std::string Cell(std::string_view text)
{
    std::string cell(text);
    for (char& letter : cell) {
        if (letter == '\t' || letter == '\r' || letter == '\n')
            letter = ' ';
    }
    return cell;
}

std::string Value_Or_State(const std::optional<double>& value, const std::string& state)
{
    return value ? General_Text(*value) : state;
}

std::string Number_Or_Nothing(const std::optional<double>& value)
{
    return value ? General_Text(*value) : "";
}

void Put(Json_Writer& json, std::string_view name, const std::optional<double>& value)
{
    json.Key(name);
    if (value)
        json.Value(*value);
    else
        json.Null();
}

void Put(Json_Writer& json, const Compared_Result& result, double tolerance)
{
    json.Member("mode", result.Key.Mode);
    json.Member("pesticide", result.Key.Pesticide);
    json.Member("crop", result.Key.Crop);
    json.Member("location", result.Key.Location);
    json.Member("substance", result.Substance);
    json.Member("unit", Result_Unit);
    Put(json, "a", result.First);
    Put(json, "b", result.Second);
    json.Member("state_a", result.First_State);
    json.Member("state_b", result.Second_State);
    Put(json, "ratio", result.Ratio);
    json.Member("same", result.Is_Same(tolerance));
}

} // namespace

bool Comparison::Is_Same() const
{
    return Fields.empty() && Notes.empty() &&
           std::ranges::all_of(Results, [this](const Compared_Result& result) { return result.Is_Same(Tolerance); });
}

std::string Line_Of_Cells(const std::vector<std::string>& cells)
{
    std::string line;
    for (const auto& cell : cells)
        line += (line.empty() ? "" : "\t") + Cell(cell);
    return line + "\n";
}

std::string Result_Lines(const std::vector<Compared_Result>& results, double tolerance)
{
    std::string lines;
    for (const auto& result : results) {
        const auto& [mode, pesticide, crop, location] = result.Key;
        if (!result.Is_Same(tolerance))
            lines +=
                Line_Of_Cells({"figure", mode, pesticide, crop, location, result.Substance, std::string(Result_Unit),
                               Value_Or_State(result.First, result.First_State),
                               Value_Or_State(result.Second, result.Second_State), Number_Or_Nothing(result.Ratio)});
    }
    return lines;
}

std::string Note_Lines(const std::vector<std::string>& notes)
{
    std::string lines;
    for (const auto& note : notes)
        lines += Line_Of_Cells({"note", note});
    return lines;
}

void Put_Results(Json_Writer& json, const std::vector<Compared_Result>& results, double tolerance)
{
    json.Key("figures");
    json.Array([&] {
        for (const auto& result : results)
            json.Object([&] { Put(json, result, tolerance); });
    });
}

void Put_Notes(Json_Writer& json, const std::vector<std::string>& notes)
{
    json.Key("notes");
    json.Array([&] {
        for (const auto& note : notes)
            json.Value(note);
    });
}

std::string Comparison_Lines(const Comparison& comparison)
{
    std::string lines;
    for (const auto& [document, field, unit, first, second] : comparison.Fields)
        lines += Line_Of_Cells({"field", document, field, unit, first, second});
    return lines + Result_Lines(comparison.Results, comparison.Tolerance) + Note_Lines(comparison.Notes);
}

std::string Comparison_Json(const Comparison& comparison)
{
    Json_Writer json;
    json.Object([&] {
        json.Member("same", comparison.Is_Same());
        json.Member("tolerance", comparison.Tolerance);
        json.Key("fields");
        json.Array([&] {
            for (const auto& [document, field, unit, first, second] : comparison.Fields) {
                json.Object([&] {
                    json.Member("document", document);
                    json.Member("field", field);
                    json.Member("unit", unit);
                    json.Member("a", first);
                    json.Member("b", second);
                });
            }
        });
        Put_Results(json, comparison.Results, comparison.Tolerance);
        Put_Notes(json, comparison.Notes);
    });
    return json.Written();
}

} // namespace orvel
