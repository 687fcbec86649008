#pragma once

#include "core/session.h"
#include "ui/entry_fields.h"

#include <array>
#include <optional>
#include <string>

namespace orvel {

// What the forms of the active substance and of a metabolite share, as typed. Numbers are read with a decimal point; a
// text that is none is 0.
struct Substance_Entry {
    std::string Name;         // Text_AS, metcom
    std::string Text_mol;     // g/mol
    std::string text_uptkf;   // plant uptake factor
    std::string Text_koc0;    // Koc, mL/g
    std::string Text_koc1;    // Freundlich exponent
    std::string Text_koc4;    // limit for Freundlich, ug/L
    std::string Text_koc5;    // annual increase, %
    std::string text_kdoc;    // L/kg
    std::string Text_KOC_MOI; // increase of sorption when the soil is air dried
    std::string Text_nhor;    // number of horizons, shared by all substances
    bool Kd_Direct = false;   // Option_koc1; else Option_koc2
    int Depth_Mode = 0;       // tiefenabhaengig: 0 standard, 1 constant with depth, 2 individual
    bool Liquid_Only = false; // Check_Hydrolysis
    bool Kf_Enabled = false;  // whether Option_koc1 and Option_koc2 can be chosen
    bool operator==(const Substance_Entry&) const = default;
};

// The number boxes but for Text_nhor, in the order of the forms: what the substance is, and from First_Sorption_Field
// on its sorption.
extern const std::array<Entry_Field<Substance_Entry, Pesticide_Document>, 8> Number_Fields_Of_Substance;
constexpr std::size_t First_Sorption_Field = 2;

Substance_Entry Load_Substance(const Pesticide_Document& document, int i);

// A click on tiefenabhaengig: all but "Individual" sets the number of horizons to 0 and the Kf to calculated.
void Choose_Depth_Mode(Substance_Entry& entry, int mode);

// After Text_nhor was typed in and left: 0 sets the Kf to calculated, a number above 0 resets the table of depth
// dependent values of all substances, even for the number it had. Refused above Most_Horizons; nothing is reset then.
std::optional<Refusal> Leave_Number_Of_Horizons(Pesticide_Document& document, Substance_Entry& entry);

// The rows that the grid of depth dependent values opens with.
int Horizons_Typed(const Substance_Entry& entry);

// Stores the entry; the table grows for its number of horizons, which is cut to 0 to Most_Horizons.
void Store_Substance(Pesticide_Document& document, int i, const Substance_Entry& entry);

// "Done" of a metabolite: nothing is refused, a molar mass of 0 neither.
void Accept_Metabolite(Pesticide_Edit edit, int i, const Substance_Entry& entry);

} // namespace orvel
