#pragma once

#include "core/session.h"
#include "files/document_notes.h"

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// What rules of guidance compare: the fields of a document by their names, and quantities that follow from them.

// A quantity beside the fields: its name with "[*]" for each index, and what it is.
struct Guidance_Quantity {
    std::string_view Name, Meaning;
    bool Needs_A_Run = false; // crop, location and interval are known only there
};
extern const std::vector<Guidance_Quantity> Guidance_Quantities;

struct Guidance_Fact {
    std::string Name, Value;
    std::string Field; // of the document, where the fact can be changed; empty: nowhere in it
    std::string Shown; // what a user is told beside the value
};

// The facts of a document, in its order. Only substances that the scheme forms have any.
class Guidance_Facts {
public:
    void Add(Guidance_Fact fact);
    void Add(std::string name, double value, std::string field = {}, std::string shown = {});

    const std::vector<Guidance_Fact>& All() const { return Facts; }
    const Guidance_Fact* Find(std::string_view name) const; // nullptr without it

private:
    std::vector<Guidance_Fact> Facts;
    std::map<std::string, std::size_t, std::less<>> Places;
};

// The document's pathway has been derived.
Guidance_Facts Facts_Of(const Pesticide_Document& document);

// "Source(Koc[1])" is 1 where the notes give a source for the field, "Arithmetic(Koc[1])" where they speak of an
// arithmetic mean, else 0. Nothing for another name.
std::optional<Guidance_Fact> Fact_Of_Notes(const Document_Notes& notes, std::string_view name);

// Why no rule can compare this, a sentence; empty if one can.
std::string Why_Not_Comparable(std::string_view pattern);

// Whether a name is a field of a scenario, or a quantity of a run.
bool Needs_A_Run(std::string_view pattern);

// "a[*].b[*]" is "a[", "].b[", "]".
std::vector<std::string_view> Split_At_Wildcards(std::string_view pattern);

// The number that a text is from end to end, but for blanks.
std::optional<double> Number_In(std::string_view text);

// The substance of a field, 0 for one that is not of a substance.
int Substance_Of_Field(std::string_view field);

// Whether a field is of no substance, of the active one, or of one that the scheme forms.
bool Is_Of_Used_Substance(const Pesticide_Document& document, std::string_view field);

// A pesticide document with its pathway. Throws File_Error with the file's name.
std::unique_ptr<Pesticide_Document> Read_Whole_Pesticide(const std::filesystem::path& file);

// One use of the document by either kind of date.
struct Guidance_Use {
    std::size_t Location = 0, Number = 0; // index of the location's block, 0 for relative dates; place in it, from 1
    int Year = 0;
    std::string Prefix; // of its fields: "Applications[1][2].App_"
    double Rate = 0, Depth = 0, Interception = 0;
};
std::vector<Guidance_Use> Uses_In(const Pesticide_Document& document);

// "Interception[1][2]"
std::string Fact_Name(std::string_view quantity, std::size_t first);
std::string Fact_Name(std::string_view quantity, std::size_t first, std::size_t second);

} // namespace orvel
