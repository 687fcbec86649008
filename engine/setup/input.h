#pragma once

#include "core/session.h"
#include "engine/input/climate.h"
#include "engine/input/crop.h"
#include "engine/input/findings.h"
#include "engine/input/run_control.h"
#include "engine/solute/applications.h"
#include "engine/solute/solute_records.h"
#include "engine/water/grid.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel::engine {

// Returns the bytes of a file by its name in orvel.inp, nothing if it cannot be read.
using File_Source = std::function<std::optional<std::string>(std::string_view name)>;

// The complete, checked input of a run.
struct Engine_Input {
    Run_Control Control;
    Scenario_Document Scenario;
    Pesticide_Document Pesticide;
    Climate Weather;
    Haude_Table Haude;
    Grid Core; // of the document
    Grid Fine; // of the substances: the same, or with a surface layer
    std::vector<Crop_Period> Rotation;
    std::vector<Planned_Application> Applications;
    std::string Location_Code;
    int Application_Block = 0;
    std::vector<int> Substances; // indices of the simulated substances, ascending
    Solute_Setup Solute;
};

// Reads every file that orvel.inp names. If the findings contain errors, the input may be incomplete and must not be
// run.
Engine_Input Read_Input(const File_Source& source, Findings& findings);

// Check one document against the ranges that the engine relies on (errors 32 to 37 and 41 to 48).
void Check_Scenario(const Scenario_Document& scenario, const Run_Control& control, Findings& findings);
void Check_Pesticide(const Pesticide_Document& pesticide, const Scenario_Document& scenario, Findings& findings);

// Whether a process acts on what lies at the surface: runoff, erosion, macropores, volatilisation, photolysis. The
// column then has a surface layer.
bool Acts_At_The_Surface(const Scenario_Document& scenario, const Pesticide_Document& pesticide);

// The kernel's setup from checked documents.
Solute_Setup Build_Solute_Setup(const Pesticide_Document& pesticide, const Scenario_Document& scenario,
                                const Grid& grid, const std::vector<int>& substances);

// False for NaN.
constexpr bool Within(double value, double low, double high)
{
    return value >= low && value <= high;
}

} // namespace orvel::engine
