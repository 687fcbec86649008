#pragma once

#include "core/session.h"
#include "engine/input/calendar.h"
#include "engine/input/findings.h"

#include <limits>
#include <vector>

namespace orvel::engine {

// The stage that selects the curve number and the soil cover factor.
enum class Stage { Fallow = 1, Cropping = 2, Residues = 3 };

constexpr int No_Day = std::numeric_limits<int>::min();

// A crop on the field, by day numbers. It stands from the day of emergence to the day before harvest.
struct Crop_Period {
    int Emergence = 0, Maturation = 0, Senescence = 0, Harvest = 0;
    int Tillage = No_Day;
    int Row = 0; // index into the scenario's crop rows
    bool operator==(const Crop_Period&) const = default;
};

// The crops of the whole simulation in the order of their emergence. A rotation that ends before the simulation is
// repeated. A crop still standing when the next one emerges ends there. Faults go to the findings (error 36).
std::vector<Crop_Period> Build_Rotation(const Scenario_Document& scenario, const Calendar& dates, int last_day,
                                        Findings& findings);

// The crop on one day.
struct Crop_State {
    bool Present = false;
    const Crop_Row* Row = nullptr; // of the crop that stands or left the residues; null without any crop row
    Stage Field = Stage::Fallow;
    double Growth = 0;      // 0 to 1
    double Cover = 0;       // 0 to 1
    double Dry_Mass = 0;    // kg/m2
    double Root_Depth = 0;  // cm, 0 without a crop
    double Crop_Factor = 1; // Kc
    int Days_Since_Emergence = 0;
    bool Irrigated = false; // from emergence to senescence of an irrigated crop
    bool Harvest_Today = false, Tillage_Today = false;

    double Curve_Number() const; // 0 without any crop row
    double Cover_Factor() const; // C of the soil loss equation, 1 without any crop row
};

Crop_State Crop_On(const Scenario_Document& scenario, const std::vector<Crop_Period>& rotation, int day);

// Relative growth: rises linearly from 0 at emergence to 1 at maturation, then falls linearly to 0.5 at harvest.
double Growth_Of(const Crop_Period& period, int day);

} // namespace orvel::engine
