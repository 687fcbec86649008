#pragma once

#include <string>

namespace orvel {

// The conditions under which a rate was measured, and the presets over them. Texts as typed; the choice of a preset is
// not stored but recognised from the values.

enum class Correction { Recommended, None, Individual }; // the index of Korrektur

struct Correction_Texts {
    std::string Temperature = "20"; // of the study, degrees Celsius
    std::string Q10 = "2.58";
    std::string Moisture_Abs = "0";   // of the study, Vol %
    std::string Moisture_Rel = "100"; // of the study, % of field capacity
    std::string Moisture_Exp = "0.7";
    std::string Neq = "0.0";          // relative degradation at non-equilibrium sites
    bool By_Relative_Moisture = true; // Option4; else Option5
    bool operator==(const Correction_Texts&) const = default;
};

// What can be typed or chosen. The field of the non-equilibrium sites always can.
struct Correction_Enabled {
    bool Conditions = true; // temperature, Q10, moisture exponent
    bool Moisture_Abs = true, Moisture_Rel = true;
    bool Moisture_Options = true;
    bool operator==(const Correction_Enabled&) const = default;
};

// The preset that the values stand for. The non-equilibrium sites count for "No correction" only.
Correction Recognise_Correction(const Correction_Texts& texts);

// When the form shows: a preset locks all, an individual correction locks the moisture field that is not in use.
Correction_Enabled Enabled_On_Activation(const Correction_Texts& texts);

// A click on a preset puts its values; an individual correction keeps what is there and opens all fields, both
// moistures too.
Correction_Enabled Choose_Correction(Correction_Texts& texts, Correction preset);

// A click on one of the two moisture options: opens its field and locks the other, with an individual correction only.
Correction_Enabled Choose_Moisture(Correction_Texts& texts, bool relative, Correction preset);

// At most one of the two moistures is not 0: a value above 0 in the field that was left clears the other.
void Leave_Absolute_Moisture(Correction_Texts& texts);
void Leave_Relative_Moisture(Correction_Texts& texts);

} // namespace orvel
