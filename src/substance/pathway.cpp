#include "substance/pathway.h"

#include <array>

namespace orvel {

namespace {

constexpr int A1 = 2, B1 = 3, C1 = 4, D1 = 5, A2 = 6, B2 = 7, C2 = 8, D2 = 9;
constexpr int Sink = 0;
constexpr int Arrows_Of_The_Active_Substance = 5;

// Indexed by arrow number; 0 is unused.
constexpr std::array<Arrow, Last_Transformation + 1> Arrows = {{
    {},
    {1, 1, A1, "AS to MET A1"},
    {1, 2, B1, "AS to MET B1"},
    {1, 3, C1, "AS to MET C1"},
    {1, 4, D1, "AS to MET D1"},
    {1, 5, Sink, "AS to CO2/BR"},
    {A1, 1, B1, "MET A1 to MET B1"},
    {A1, 2, A2, "MET A1 to MET A2"},
    {A1, 3, B2, "MET A1 to MET B2"},
    {A1, 4, Sink, "MET A1 to CO2/BR"},
    {B1, 1, C1, "MET B1 to MET C1"},
    {B1, 2, B2, "MET B1 to MET B2"},
    {B1, 3, C2, "MET B1 to MET C2"},
    {B1, 4, Sink, "MET B1 to CO2/BR"},
    {C1, 1, D1, "MET C1 to MET D1"},
    {C1, 2, C2, "MET C1 to MET C2"},
    {C1, 3, D2, "MET C1 to MET D2"},
    {C1, 4, Sink, "MET C1 to CO2/BR"},
    {D1, 1, Sink, ""},
    {D1, 2, D2, "MET D1 to MET D2"},
    {D1, 3, Sink, ""},
    {D1, 4, Sink, "MET D1 to CO2/BR"},
    {A2, 1, B2, "MET A2 to MET B2"},
    {A2, 2, Sink, "MET A2 to CO2/BR"},
    {B2, 1, C2, "MET B2 to MET C2"},
    {B2, 2, Sink, "MET B2 to CO2/BR"},
    {C2, 1, D2, "MET C2 to MET D2"},
    {C2, 2, Sink, "MET C2 to CO2/BR"},
    {D2, 1, Sink, ""},
    {D2, 2, Sink, "MET D2 to CO2/BR"},
}};

bool Has_Rate(const Pesticide_Document& document, std::size_t t)
{
    const auto& arrow = Arrows[t];
    const auto& row = document.Degradation[static_cast<std::size_t>(arrow.Source)][static_cast<std::size_t>(arrow.Row)];
    // For the active substance, photodegradation alone keeps an arrow.
    return row.Deg_Rate.Number() != 0 || (t <= Arrows_Of_The_Active_Substance && document.Photo_Rate[t] != 0);
}

} // namespace

const Arrow& Arrow_Of(int t)
{
    return Arrows.at(static_cast<std::size_t>(t));
}

void Update_Pathway(Pesticide_Document& document)
{
    // Arrows are ordered by source, and every substance is formed by earlier ones: one pass suffices.
    document.Met_Present.fill(false);
    document.Met_Present[1] = true;
    document.Trans_Active.fill(false);
    document.Bound_Active.fill(false);
    for (std::size_t t = 1; t <= Last_Transformation; ++t) {
        const auto source = static_cast<std::size_t>(Arrows[t].Source);
        const auto target = static_cast<std::size_t>(Arrows[t].Target);
        const bool active = document.Met_Present[source] && Has_Rate(document, t);
        document.Trans_Active[t] = active;
        if (active && target != Sink)
            document.Met_Present[target] = true;
        if (Arrows[t].Row == Rows_Of_Substance(Arrows[t].Source))
            document.Bound_Active[source] = active;
    }
}

} // namespace orvel
