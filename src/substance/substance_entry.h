#pragma once

#include "core/session.h"
#include "ui/entry_fields.h"

#include <array>
#include <optional>
#include <string>

namespace orvel {

// What the forms of the active substance and of a metabolite share. Texts are as typed; numbers use a decimal point,
// and a text that is not a number counts as 0.
struct Substance_Entry {
    std::string Name;         // Text_AS, metcom
    std::string Text_mol;     // g/mol
    std::string text_uptkf;   // plant uptake factor
    std::string Text_koc0;    // Koc, mL/g
    std::string Text_koc1;    // Freundlich exponent
    std::string Text_koc4;    // limit for Freundlich, ug/L
    std::string Text_koc5;    // annual increase, %
    std::string text_kdoc;    // L/kg
    std::string Text_KOC_MOI; // factor of sorption in air-dry soil
    std::string Text_nhor;    // number of horizons, shared by all substances
    bool Kd_Direct = false;   // Option_koc1; else Option_koc2
    int Depth_Mode = 0;       // tiefenabhaengig: 0 standard, 1 constant with depth, 2 individual
    bool Liquid_Only = false; // Check_Hydrolysis
    bool Kf_Enabled = false;  // whether Option_koc1 and Option_koc2 are enabled
    bool operator==(const Substance_Entry&) const = default;
};

// The number boxes except Text_nhor, in the order of the forms: substance properties, and from First_Sorption_Field on
// its sorption.
extern const std::array<Entry_Field<Substance_Entry, Pesticide_Document>, 8> Number_Fields_Of_Substance;
constexpr std::size_t First_Sorption_Field = 2;

Substance_Entry Load_Substance(const Pesticide_Document& document, int i);

// A click on tiefenabhaengig: everything but "Individual" sets the number of horizons to 0 and Kf to calculated.
void Choose_Depth_Mode(Substance_Entry& entry, int mode);

// On leaving Text_nhor after typing: 0 sets Kf to calculated; a number above 0 resets the depth-dependent values of all
// substances, even if the number is unchanged. Refused above Most_Horizons, without a reset.
std::optional<Refusal> Leave_Number_Of_Horizons(Pesticide_Document& document, Substance_Entry& entry);

// The number of rows that the grid of depth-dependent values opens with.
int Horizons_Typed(const Substance_Entry& entry);

// Stores the entry and grows the table to its number of horizons, limited to 0 to Most_Horizons.
void Store_Substance(Pesticide_Document& document, int i, const Substance_Entry& entry);

// The question before a metabolite's "Done" takes the active substance's horizons away, which all substances share;
// nothing if it does not.
std::optional<Message> Takes_Horizons_Away(const Pesticide_Document& document, const Substance_Entry& entry);

// "Done" of a metabolite: refuses nothing, not even a molar mass of 0.
void Accept_Metabolite(Pesticide_Edit edit, int i, const Substance_Entry& entry);

} // namespace orvel
