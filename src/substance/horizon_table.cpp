#include "substance/horizon_table.h"

#include <algorithm>

namespace orvel {

namespace {

Pesticide_Horizon Default_Horizon()
{
    Pesticide_Horizon horizon;
    horizon.Hor_Kd.fill(Default_Kd);
    horizon.Hor_FrExp.fill(Default_Exponent);
    for (auto& factors : horizon.Hor_Deg)
        factors.fill(Default_Factor);
    return horizon;
}

std::size_t Rows_For(int n)
{
    return static_cast<std::size_t>(std::clamp(n, 0, Most_Horizons)) + 2;
}

} // namespace

int Rows_Of_Table(const Pesticide_Document& document)
{
    return std::max(0, static_cast<int>(document.Horizons.size()) - 2);
}

void Reset_Horizon_Table(Pesticide_Document& document, int n)
{
    document.Horizons.assign(Rows_For(n), Default_Horizon());
}

void Grow_Horizon_Table(Pesticide_Document& document, int n)
{
    if (document.Horizons.size() < Rows_For(n))
        document.Horizons.resize(Rows_For(n), Default_Horizon());
}

} // namespace orvel
