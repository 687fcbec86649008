#pragma once

#include "runs/mode.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

struct Crop {
    std::string_view Text; // list entry
    std::string_view Stem; // behind the location code in a scenario's file name; empty for a separator
    bool Irrigated = false;
    std::string_view Tier_2, Tier_4; // letters behind the soil zones in the two soil modes; irrigated where a + follows
};

constexpr int Crop_Entries = 28;
constexpr int First_Separator = 5;
constexpr int Second_Separator = 26;
constexpr int Individual_Crop = 27;

// The crops by their list index, both separators included.
extern const std::array<Crop, Crop_Entries> Crops;

// The index of a list entry's text, letter case apart; nothing for an unknown text or a separator.
std::optional<int> Crop_Index(std::string_view text);

// The stem of a crop in a mode: the individual crop has one of its own in each.
std::string_view Crop_Stem(const Mode& mode, int crop);

// The list entry of a location code: "Sevilla (S), irrigated". Empty for an unknown code.
std::string Location_Text(std::string_view code, bool irrigated);

// The code of a list entry as the files of a mode use it; empty where the mode has none for it.
std::string Code_Of_Location(const Mode& mode, std::string_view text);

// The entries of the location list for a crop, in order. An index outside the list and a separator give none.
std::vector<std::string> Locations_Of_Crop(const Session& session, const Mode& mode, int crop);

// The crop that a scenario name of orvel.inp belongs to: what stands behind code and underscore, as "APPLES.SZE". -1 if
// none.
int Crop_Of_Part(const Mode& mode, std::string_view code, std::string_view part);

// The scenario's file name: code and stem.
std::string Scenario_Name(const Mode& mode, int crop, std::string_view location);

} // namespace orvel
