#pragma once

#include "core/session.h"

#include <string>

namespace orvel {

// Sorption of a dissociating substance: its pKa and one or two pairs of Koc and pH. A pKa of 20 means no dissociation,
// a second pH of -99 means there is only one pair. Texts are as typed.

struct PH_Entry {
    std::string s_KOC, s_pH;   // L/kg, the first pair
    std::string s_KOC2, s_pH2; // the second pair; blank if there is none
    std::string s_pKa;
    bool s_Dataset = false; // "KOC only at a single pH known", not stored
    bool operator==(const PH_Entry&) const = default;
};

struct PH_View {
    bool First_pH = false;    // s_pH, Label3 and s_Dataset
    bool Second_Pair = false; // s_KOC2, s_pH2, Label2 and Label4
    bool operator==(const PH_View&) const = default;
};

// What the form shows for substance i; text_koc0 is the Koc text of the substance form.
PH_Entry Load_PH(const Pesticide_Document& document, int i, const std::string& text_koc0);

// What is visible: no pH for a pKa of 20 or 0, and no second pair with a single pH.
PH_View View_Of_PH(const PH_Entry& entry);

// Stores all five numbers, with -99 as the second pH for a single pH, and writes the Koc back to text_koc0.
void Accept_PH(Pesticide_Document& document, int i, const PH_Entry& entry, std::string& text_koc0);

// Whether the substance form shows "pH dependent Sorption considered!": for every pKa below 20, even 0.
bool Shows_PH_Note(const Pesticide_Document& document, int i);

} // namespace orvel
