#pragma once

#include "core/session.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// The two lists of locations of the substance form: leaching locations and soil zones, which are recognised by the "_"
// in their names. An entry's index is the number of its application block; entry 0 is " User specific". One of the two
// is visible.
struct Location_Lists {
    std::vector<std::string> Standort, Standort_EFSA;
    bool EFSA_Visible = false;

    const std::vector<std::string>& Visible() const { return EFSA_Visible ? Standort_EFSA : Standort; }
    std::vector<std::string>& Visible() { return EFSA_Visible ? Standort_EFSA : Standort; }
    bool operator==(const Location_Lists&) const = default;
};

constexpr std::string_view User_Specific = " User specific";

bool Is_Soil_Zone(std::string_view name);

// Fills both lists from the document's names; the kind of the last name decides which is visible. If a document mixes
// both kinds or leaves a name out, its blocks are reordered to match the visible list, with the others after it, so
// that every entry shows its own applications.
Location_Lists Load_Location_Lists(Pesticide_Edit edit);

// The entry to select: the location under edit; nothing if the list is too short.
std::optional<int> Selected_Location(const Editor_State& editor, const Location_Lists& lists);

// The names of the visible list become those of blocks 1 to 9; other names are cleared.
void Store_Location_Names(Pesticide_Document& document, const Location_Lists& lists);

// "Done" of a choice of leaching locations or soil zones: updates that list and its blocks, and makes the list visible
// if it grew. Returns the entry of the visible list to select: the last one if it changed, else the location under
// edit.
int Take_Chosen_Locations(Pesticide_Edit edit, Location_Lists& lists, bool efsa,
                          const std::vector<std::string>& offered, const std::vector<std::string>& selected);

} // namespace orvel
