#pragma once

#include "core/session.h"

namespace orvel {

// Clicks on an option, check box or switch of the scenario editor. Each marks the scenario document as changed.

// 0 compartments by soil depth, 1 constant; the same numbers in the file and in Button_Delxflg.
void Choose_Compartments(Scenario_Edit edit, int option);

// 0 dispersion coefficient, 1 dispersion length.
void Choose_Dispersion(Scenario_Edit edit, int option);

// 0 direct input, 1 and 2 pedotransfer functions.
void Choose_Hydraulics(Scenario_Edit edit, int option);

// 0 potential evaporation data, 1 Hamon, 2 both, 3 Haude.
void Choose_Evapotranspiration(Scenario_Edit edit, int item);

// The water flow flag is the drainage option, plus 2 with macropore flow.
void Choose_Drainage(Scenario_Edit edit, int option);
int Drainage_Option(const Scenario_Document& document);
bool Has_Macropore_Flow(const Scenario_Document& document);

enum class Fast_Process { Runoff, Macropore_Flow };
void Switch_Process(Scenario_Edit edit, Fast_Process process, bool on);

// Erosion switches runoff on in the document; clearing it leaves runoff unchanged.
void Switch_Erosion(Scenario_Edit edit, bool on);

void Switch_DOC(Scenario_Edit edit, bool on);

enum class Output_Of { Water, Solute, Concentration };

// "Daily", "Monthly" or "Yearly"; "Monthly" for a word unknown to the file format.
std::string_view Frequency_Caption(const Scenario_Document& document, Output_Of output);

// Monthly becomes yearly, yearly daily, daily monthly.
void Switch_Frequency(Scenario_Edit edit, Output_Of output);

} // namespace orvel
