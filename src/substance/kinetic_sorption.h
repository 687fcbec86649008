#pragma once

#include "core/message.h"
#include "core/session.h"

#include <optional>
#include <string>

namespace orvel {

// Slow sorption at non-equilibrium sites in two notations: PEARL with f_ne (fraction of non-equilibrium to equilibrium
// sites) and kd (1/d), STRECK with f_eq (fraction of equilibrium to all sites) and alpha (1/d). Only the PEARL values
// are stored.
//   f_ne = (1 - f_eq) / f_eq, kd = alpha / (1 - f_eq); f_eq = 1 / (1 + f_ne), alpha = kd (1 - f_eq)
// (two-site models of Leistra et al., 2001, Alterra-rapport 013, and Streck et al., 1995, Water Resources Research 31)

enum class Kinetic_Model { PEARL, STRECK }; // the index of kin_Modell

// Texts as typed, in the notation of the model.
struct Kinetic_Entry {
    std::string s_f_neq, s_kdes;
    Kinetic_Model Model = Kinetic_Model::PEARL;
    bool operator==(const Kinetic_Entry&) const = default;
};

struct Kinetic_Captions {
    std::string_view Bezeichnung_Anteil, Bezeichnung_Sorptionsrate;
    bool operator==(const Kinetic_Captions&) const = default;
};

// The captions before the option first changes, and those of a model.
constexpr Kinetic_Captions Designed_Kinetic_Captions = {"Fraction  of non-eq sites to eq-sites",
                                                        "Desorption rate (1/d):"};
Kinetic_Captions Captions_Of(Kinetic_Model model);

// The form always opens in the PEARL notation.
Kinetic_Entry Load_Kinetic(const Pesticide_Document& document, int i);

// On leaving s_f_neq or s_kdes: refuses a fraction or rate below 0, and a STRECK fraction of 0.
std::optional<Refusal> Check_Kinetic_Fraction(const Kinetic_Entry& entry);
std::optional<Refusal> Check_Kinetic_Rate(const Kinetic_Entry& entry);

// Converts the entry to the given notation. A STRECK fraction of 1 leaves both texts unconverted, so that their meaning
// changes silently. Refuses what Check_Kinetic_* refuses.
std::optional<Refusal> Choose_Kinetic_Model(Kinetic_Entry& entry, Kinetic_Model model);

// Stores the PEARL values; for a STRECK fraction of 1 the stored rate is kept. Refuses what Check_Kinetic_* refuses,
// and a STRECK fraction above 1, whose PEARL fraction is negative.
std::optional<Refusal> Accept_Kinetic(Pesticide_Document& document, int i, const Kinetic_Entry& entry);

// Whether the substance form shows the note "kin. Sorption".
bool Shows_Kinetic_Note(const Pesticide_Document& document, int i);

} // namespace orvel
