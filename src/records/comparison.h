#pragma once

#include "core/json.h"
#include "records/results.h"

#include <string>
#include <vector>

namespace orvel {

// What differs between two documents, run directories or assessments. Texts are bytes of Windows-1252.

struct Compared_Field {
    std::string Document; // "demo_D.psm"; below the directories that are compared
    std::string Field, Unit, First, Second;
    bool operator==(const Compared_Field&) const = default;
};

struct Comparison {
    std::vector<Compared_Field> Fields;   // that differ by more than the tolerance
    std::vector<Compared_Result> Results; // all, the same ones too
    std::vector<std::string> Notes;       // what else differs: files that only one side has, sentences
    double Tolerance = 0;

    bool Is_Same() const;
};

// The parts of what is printed.
std::string Line_Of_Cells(const std::vector<std::string>& cells); // parted by tabs
std::string Result_Lines(const std::vector<Compared_Result>& results, double tolerance);
std::string Note_Lines(const std::vector<std::string>& notes);
void Put_Results(Json_Writer& json, const std::vector<Compared_Result>& results, double tolerance);
void Put_Notes(Json_Writer& json, const std::vector<std::string>& notes);

// The differences, a line each, parted by tabs: "field", document, name, unit and both values; "figure", mode,
// pesticide, crop, location, substance, unit, both values or states, ratio; "note", sentence.
std::string Comparison_Lines(const Comparison& comparison);
std::string Comparison_Json(const Comparison& comparison); // UTF-8; the figures that are the same too

} // namespace orvel
