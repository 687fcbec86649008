#include "substance/rate_correction.h"

#include "core/numbers.h"

namespace orvel {

namespace {

constexpr Correction_Enabled Locked = {false, false, false, false};

} // namespace

Correction Recognise_Correction(const Correction_Texts& texts)
{
    const double exponent = Val(texts.Moisture_Exp);
    if (Val(texts.Temperature) == 20 && Val(texts.Q10) == 2.58 && Val(texts.Moisture_Rel) == 100 && exponent == 0.7)
        return Correction::Recommended;
    if (Val(texts.Q10) == 1.0 && exponent == 0 && Val(texts.Neq) == 0)
        return Correction::None;
    return Correction::Individual;
}

Correction_Enabled Enabled_On_Activation(const Correction_Texts& texts)
{
    if (Recognise_Correction(texts) != Correction::Individual)
        return Locked;
    return {.Moisture_Abs = !texts.By_Relative_Moisture, .Moisture_Rel = texts.By_Relative_Moisture};
}

Correction_Enabled Choose_Correction(Correction_Texts& texts, Correction preset)
{
    if (preset == Correction::Individual)
        return {};
    const bool recommended = preset == Correction::Recommended;
    texts = {.Temperature = "20",
             .Q10 = recommended ? "2.58" : "1.0",
             .Moisture_Abs = "0",
             .Moisture_Rel = "100",
             .Moisture_Exp = recommended ? "0.7" : "0.0",
             .Neq = "0.0",
             .By_Relative_Moisture = true};
    return Locked;
}

Correction_Enabled Choose_Moisture(Correction_Texts& texts, bool relative, Correction preset)
{
    texts.By_Relative_Moisture = relative;
    if (preset != Correction::Individual)
        return Locked;
    return {.Moisture_Abs = !relative, .Moisture_Rel = relative};
}

void Leave_Absolute_Moisture(Correction_Texts& texts)
{
    if (Val(texts.Moisture_Abs) > 0)
        texts.Moisture_Rel = "0";
}

void Leave_Relative_Moisture(Correction_Texts& texts)
{
    if (Val(texts.Moisture_Rel) > 0)
        texts.Moisture_Abs = "0";
}

} // namespace orvel
