#include "scenario/macropores.h"

#include <algorithm>

namespace orvel {

namespace {

constexpr double Default_Threshold = 100;
constexpr double Whole_Excess = 1;

} // namespace

Macropore_Texts Show_Macropores(const Scenario_Document& document)
{
    return {General_Text(document.SZE_Macro_Threshold), General_Text(document.SZE_Macro_Fraction),
            General_Text(document.SZE_Macro_Depth)};
}

Macropore_Texts Default_Macropores()
{
    return {"100.0", "0.0", "0.0"};
}

void Take_Over_Macropores(Session& session, const Macropore_Texts& texts)
{
    auto& document = session.Scenario;
    document.SZE_Macro_Threshold = Val(texts[0]);
    document.SZE_Macro_Fraction = std::min(Val(texts[1]), Whole_Excess);
    document.SZE_Macro_Depth = Val(texts[2]);
    session.Program.PSM_Changed = true;
    if (document.SZE_Macro_Threshold < 0)
        document.SZE_Macro_Threshold = Default_Threshold;
    Limit_Macropore_Depth(document);
    session.Program.SZE_Changed = true;
}

void Limit_Macropore_Depth(Scenario_Document& document)
{
    if (document.SZE_Layers <= 0)
        return;
    const double last_layer = document.SZE_Core_Depth / document.SZE_Layers;
    document.SZE_Macro_Depth = std::min(document.SZE_Macro_Depth, document.SZE_Core_Depth - last_layer);
}

} // namespace orvel
