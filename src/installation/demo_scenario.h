#pragma once

#include "installation/demo_tables.h"

#include <optional>
#include <string>
#include <vector>

namespace orvel {

constexpr int Demo_Years = 66;

// What a scenario is laid out for: leaching from the whole core in compartments of 2.5 cm, or the content of the top
// metre in 1 cm.
enum class Demo_Purpose { Leaching, Soil_Content };

// A scenario file of the installation.
struct Demo_Scenario {
    std::string Name; // "C_apples.sze"
    Scenario_Document Document;
};

// The scenario of a crop at a site. If the site has no dates of its own for the crop, those of the crop's first
// location are used.
Scenario_Document Demo_Scenario_Document(const Demo_Site& site, const Demo_Crop& crop, Demo_Purpose purpose);

// All combinations of the nine locations with the crops that they offer.
std::vector<Demo_Scenario> Location_Scenarios(const Demo_Tables& tables, Demo_Purpose purpose);

// Every crop at every soil zone. The two crops that share a file stem have one file: that of the first.
std::vector<Demo_Scenario> Zone_Scenarios(const Demo_Tables& tables);

} // namespace orvel
