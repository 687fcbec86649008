#include "substance/volatilisation.h"

#include <cmath>

namespace orvel {

Volatilisation Load_Volatilisation(const Pesticide_Document& document)
{
    return {document.Volat_Temp, document.Henry, document.Vap_Press, document.Solubility};
}

void Store_Volatilisation(Pesticide_Document& document, const Volatilisation& pairs)
{
    document.Volat_Temp = pairs.Volat_Temp;
    document.Henry = pairs.Henry;
    document.Vap_Press = pairs.Vap_Press;
    document.Solubility = pairs.Solubility;
}

void Calculate_Henry(Volatilisation& pairs, double molmass, bool henry_direct)
{
    for (std::size_t i = 0; i < pairs.Henry.size(); ++i) {
        if (henry_direct || pairs.Solubility[i] <= 0 || pairs.Henry[i] != 0)
            continue;
        const double henry = molmass * pairs.Vap_Press[i] / pairs.Solubility[i];
        pairs.Henry[i] = std::isfinite(henry) ? henry : 0;
    }
}

bool Needs_Direct_Henry(const Volatilisation& pairs)
{
    return pairs.Solubility[0] == 0 || pairs.Solubility[1] == 0;
}

void Fill_Second_Point(Volatilisation& pairs, bool henry_direct)
{
    const auto& known = henry_direct ? pairs.Henry : pairs.Solubility;
    const bool missing = known[0] > 0 && known[1] == 0;
    if (missing && henry_direct) {
        pairs.Henry[1] = 2 * pairs.Henry[0];
    } else if (missing) {
        pairs.Vap_Press[1] = 4 * pairs.Vap_Press[0];
        pairs.Solubility[1] = 2 * pairs.Solubility[0];
    }
    if (missing || pairs.Volat_Temp[1] == pairs.Volat_Temp[0])
        pairs.Volat_Temp[1] = pairs.Volat_Temp[0] + 10;
}

std::string Scientific_Text(double value)
{
    return Format_Pattern(value, "0.00E+00");
}

} // namespace orvel
