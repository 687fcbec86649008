#pragma once

#include "runs/mode.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// The crops of the run forms' list and the locations that each has in a mode.

struct Crop {
    std::string_view Text;      // list entry
    int Number = 0;             // in pesticide files (App_Rel_Flag); 0: none
    std::string_view Stem = {}; // follows the location code in a scenario's file name; empty for a separator
    bool Irrigated = false;
    std::string_view Tier_2 = {}, Tier_4 = {}; // letters behind the soil zones in the two soil modes; irrigated where
                                               // a + follows
    std::string_view Only_At = {};             // letters of the locations at which a stem of two crops means this one
    bool Individual = false;                   // the user's own crop, with a stem that depends on the mode
};

// By list index, including both separators.
extern const std::span<const Crop> Crops;

// List index of the separator that a selection skips.
int First_Separator();

// A crop by its list index or by its text, ignoring case. nullptr for a separator or no crop.
const Crop* Crop_At(int index);
const Crop* Crop_Named(std::string_view text);

// The stem of a crop's scenario files; that of the individual crop depends on the mode.
std::string_view Crop_Stem(const Mode& mode, const Crop& crop);

// Whether the crop number of a pesticide file (App_Rel_Flag) fits a crop; 0 and below fit every crop.
bool Crop_Fits(int number, const Crop& crop);

// The list entry of a location code: "Sevilla (S), irrigated". Empty for an unknown code.
std::string Location_Text(std::string_view code, bool irrigated);

// The code of a list entry as the files of a mode use it; empty if the mode has none for it.
std::string Code_Of_Location(const Mode& mode, std::string_view text);

// The entries of the location list for a crop, in order; none for nullptr.
std::vector<std::string> Locations_Of_Crop(const Program_State& program, const Mode& mode, const Crop* crop);

// That a crop has no such location: both as they were given, and what it has instead, as far as it is alike.
std::string No_Location_Text(const Mode& mode, std::string_view crop, std::string_view location,
                             const std::vector<std::string>& offered);

// The list index of the crop that a scenario name of orvel.inp belongs to: `part` is what follows code and underscore,
// such as "APPLES.SZE".
std::optional<int> Crop_Of_Part(const Mode& mode, std::string_view code, std::string_view part);

} // namespace orvel
