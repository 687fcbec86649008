#pragma once

#include "core/session.h"

#include <string>
#include <vector>

namespace orvel {

// A field of a document in use, by the name that JSON shows, and its value as it is printed.
struct Field_Value {
    std::string Field, Value;
    bool operator==(const Field_Value&) const = default;
};

// All fields in use, in the order of the document.
std::vector<Field_Value> Values_In_Use(const Pesticide_Document& document);
std::vector<Field_Value> Values_In_Use(const Scenario_Document& document);

// A field in which two documents differ: its name with the indices of the session ("Koc[1]", "Crops[0].SZE_Rot_CN1"),
// and both values as they are printed. A value is empty where a document has no such element, and where a column of a
// climate file is blank.
struct Difference {
    std::string Field, First, Second;
    bool operator==(const Difference&) const = default;
};

// All fields in use that differ, in the order of the document; those that only the second one has stand at the end. A
// number and the text that was typed for it are the same.
std::vector<Difference> Differences(const Pesticide_Document& first, const Pesticide_Document& second);
std::vector<Difference> Differences(const Scenario_Document& first, const Scenario_Document& second);
std::vector<Difference> Differences(const Climate_Table& first, const Climate_Table& second);

} // namespace orvel
