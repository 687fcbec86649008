#pragma once

#include "substance/active_substance.h"

#include <string_view>

namespace orvel {

// What is visible and enabled in the substance forms, derived from the entry alone; the form applies all of it after
// every click.

// Sorption and depth dependence, in both forms.
struct Sorption_View {
    bool Koc_Visible = true; // Label_koc, Text_koc0, and the exponent: with a direct Kf both are given per horizon
    bool Horizons_Visible = false; // Label1_4, Text_nhor
    bool Command_hor_Visible = false;
    bool Kf_Enabled = false; // Option_koc1, Option_koc2
    bool operator==(const Sorption_View&) const = default;
};
Sorption_View View_Of_Sorption(const Substance_Entry& entry);

// Volatilisation and the button to the plant surface, in the form of the active substance. Depth and interception by
// the kind of application are in Application_View.
struct Volatilisation_View {
    bool Henry_Visible = false;      // Label_vol_0, Text_vol0
    bool Vap_Press_Visible = false;  // Label_vol_1, Text_vol1: not for a direct Henry constant of a soil application
    bool Solubility_Visible = false; // Label_vol_2, Text_vol2
    bool Command1_Visible = false;   // "Pesticide Fate on the Crop"
    bool operator==(const Volatilisation_View&) const = default;
};
Volatilisation_View View_Of_Volatilisation(const Active_Entry& entry);

// The notes of both forms, from the document. Only the metabolite form has "Moisture dependent Sorption considered!".
struct Sorption_Notes {
    bool label_pH = false, Label_kinSorp = false, Label_Sorption = false;
    bool operator==(const Sorption_Notes&) const = default;
};
Sorption_Notes Notes_Of(const Pesticide_Document& document, int i);

// Command4 shows and hides Label_vol_3, Label_vol_4, Label_koc_4 to Label_koc_6, Text_vol3, Text_vol4, Text_koc4 and
// Text_koc5; its caption names what a click would show.
std::string_view Command4_Caption(bool all_shown);

// The caption of a metabolite's form.
std::string_view Metabolite_Caption(int i);

} // namespace orvel
