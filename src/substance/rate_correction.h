#pragma once

#include <string>

namespace orvel {

// The conditions under which a rate was measured, and their presets. Texts are as typed; the choice of a preset is not
// stored but recognised from the values.

enum class Correction { Recommended, None, Individual }; // the index of Korrektur

struct Correction_Texts {
    std::string Temperature = "20"; // of the study, degrees Celsius
    std::string Q10 = "2.58";
    std::string Moisture_Abs = "0";   // of the study, vol %
    std::string Moisture_Rel = "100"; // of the study, % of field capacity
    std::string Moisture_Exp = "0.7";
    std::string Neq = "0.0";          // relative degradation at non-equilibrium sites
    bool By_Relative_Moisture = true; // Option4; else Option5
    bool operator==(const Correction_Texts&) const = default;
};

// Which controls are enabled. The field for the non-equilibrium sites always is.
struct Correction_Enabled {
    bool Conditions = true; // temperature, Q10, moisture exponent
    bool Moisture_Abs = true, Moisture_Rel = true;
    bool Moisture_Options = true;
    bool operator==(const Correction_Enabled&) const = default;
};

// The preset that matches the values. The non-equilibrium sites matter only for "No correction".
Correction Recognise_Correction(const Correction_Texts& texts);

// On showing the form: a preset locks all fields, an individual correction locks the unused moisture field.
Correction_Enabled Enabled_On_Activation(const Correction_Texts& texts);

// A click on a preset sets its values; an individual correction keeps the values and unlocks all fields, including both
// moistures.
Correction_Enabled Choose_Correction(Correction_Texts& texts, Correction preset);

// A click on a moisture option: unlocks its field and locks the other; only with an individual correction.
Correction_Enabled Choose_Moisture(Correction_Texts& texts, bool relative, Correction preset);

// At most one of the two moistures is non-zero: a value above 0 in the field just left clears the other.
void Leave_Absolute_Moisture(Correction_Texts& texts);
void Leave_Relative_Moisture(Correction_Texts& texts);

} // namespace orvel
