#pragma once

#include "core/session.h"

#include <array>
#include <string>
#include <string_view>

namespace orvel {

enum class Box { Clear, Set, Greyed };

// What the scenario editor shows besides its text boxes: visibility, states of options and boxes, captions. Every
// handler ends by applying it.
struct Scenario_View {
    int Compartments = 0;                        // the selected Button_Delxflg
    bool Layers_Visible = false;                 // Text_num, Label2 and their labels: with constant compartments
    std::string Thickness;                       // Label2
    int Dispersion = 0;                          // the selected Dispersion
    int Hydraulics = 0;                          // 0 Option1_th, 1 Option2_th, 2 Option3_th
    int Drainage = 0;                            // the selected Wasserfluss
    std::array<Box, 2> Processes{};              // schnelle_Prozesse: runoff (greyed with erosion), macropore flow
    std::array<bool, 2> Process_Depth_Visible{}; // schnelle_Prozesse_Tiefe and L_Schneller_Prozess
    bool Macropore_Button_Visible = false;       // Command_macro
    bool Erosion = false;                        // Check_er; Command_er is visible with it
    bool DOC = false;                            // doc_check; s_DOC and its labels are visible with it
    int Evapotranspiration = 0;                  // Combo_et
    bool Kc_Visible = false;                     // Kc factors, minimum depth and their labels: hidden for Haude
    std::array<std::string_view, 3> Frequencies; // Label_wat, Label_chem, Label_conc
};

Scenario_View View_Of(const Scenario_Document& document);

// The list of Combo_et.
constexpr std::array<std::string_view, 4> Evapotranspiration_Methods = {
    "Pot. evaporation data", "Hamon equation", "Pot. evaporation data/Hamon", "Haude equation"};

// The thickness of a layer in cm with two decimals; empty without layers.
std::string Thickness_Text(const Scenario_Document& document);

} // namespace orvel
