#pragma once

#include "core/session.h"
#include "scenario/crop_data.h"

#include <array>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// The demonstration data, as held by the plain files of installation/.

// Part of every file's title.
constexpr std::string_view Title_Warning = "demonstration data, not for regulatory use";

// A location or soil zone.
struct Demo_Site {
    std::string Code, Name;         // the name without its code, bytes of Windows-1252
    double Latitude = 0;            // degrees
    double Mean_Temp = 0, Rain = 0; // degC; mm/a
    bool Irrigated = false;
    std::string Climate_As, Dates_As; // codes of the locations whose months and crop dates are used
    std::vector<Scenario_Horizon> Horizons;

    bool Is_Zone() const { return Code.size() > 1; }
};

// The climate of a location, January to December.
struct Monthly_Climate {
    std::array<double, 12> Temp{}, Rain{};    // degC; mm
    double Wet_Day_Rain = 0;                  // mean rain of a wet day, mm
    double January_Range = 0, July_Range = 0; // Tmax - Tmin, degC
};

struct Day_Of_Year {
    int Day = 0, Month = 0;
    auto operator<=>(const Day_Of_Year& other) const
    {
        return std::pair(Month, Day) <=> std::pair(other.Month, other.Day);
    }
    bool operator==(const Day_Of_Year&) const = default;
};

struct Demo_Cropping {
    std::string Site; // code
    Day_Of_Year Emergence, Maturation, Senescence, Harvest;
};

struct Demo_Crop {
    Crop_Data Data;
    std::string Stem;                     // "_apples"
    bool Irrigated = false;               // where the location is
    std::vector<Demo_Cropping> Croppings; // one for each location that offers the crop
};

struct Demo_Tables {
    std::vector<Demo_Site> Sites; // the nine locations, then the six soil zones
    std::map<std::string, Monthly_Climate> Climates;
    std::vector<Demo_Crop> Crops; // as in the crop database
};

Demo_Tables Load_Demo_Tables();

// The lines of a table without comments (#) and empty lines, cut at blanks.
std::vector<std::vector<std::string>> Table_Rows(std::string_view text);

// "15.04" as day and month. Throws std::logic_error for anything else.
Day_Of_Year Parse_Day_Of_Year(std::string_view text);

} // namespace orvel
