#include "engine/solute/solute.h"

#include "engine/solute/solute_state.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <numeric>

namespace orvel::engine {

Solute_Column::Solute_Column(const Solute_Setup& setup, const Solute_Kernel* kernel)
    : Self(std::make_unique<Solute_State>(setup, kernel ? *kernel : Best_Kernel()))
{}

Solute_Column::~Solute_Column() = default;
Solute_Column::Solute_Column(Solute_Column&&) noexcept = default;
Solute_Column& Solute_Column::operator=(Solute_Column&&) noexcept = default;

void Solute_Column::Step_Day(const Solute_Day& day, Solute_Sums& sums, const std::function<void(int hour)>& after_hour)
{
    Self->Step_Day(day, sums, after_hour);
}

int Solute_Column::Compartments() const
{
    return Self->Layout.N;
}

int Solute_Column::Slots() const
{
    return Self->Layout.Slots;
}

int Solute_Column::Lanes() const
{
    return Self->Layout.Lanes;
}

int Solute_Column::Slot_Of(int index) const
{
    for (int k = 0; k < Slots(); ++k) {
        if (Index_Of(k) == index)
            return k;
    }
    return -1;
}

int Solute_Column::Index_Of(int slot) const
{
    return Self->Setup.Substances[slot].Index;
}

double Solute_Column::Doc_Factor(int slot) const
{
    return Self->Storage.Doc_Factor(slot);
}

const double* Solute_Column::Mass() const
{
    return Self->M.data();
}

const double* Solute_Column::Slow_Mass() const
{
    return Self->W.data();
}

double Solute_Column::Plant_Mass() const
{
    return Self->Leaf.Well + Self->Leaf.Poor;
}

void Solute_Column::Concentrations(std::vector<double>& c) const
{
    Concentrations(c, 0, Self->Column.N - 1);
}

void Solute_Column::Concentrations(std::vector<double>& c, int first, int last) const
{
    Aligned_Row exact = Self->C, slope = Self->G;
    Kernel_Column column = Self->Column;
    column.C = exact.data();
    column.G = slope.data();
    Self->Kernel.Invert(column, first, last + 1, Self->Now);
    c.resize(exact.size());
    const auto from = static_cast<std::ptrdiff_t>(first) * Lanes(),
               to = static_cast<std::ptrdiff_t>(last + 1) * Lanes();
    std::copy(exact.begin() + from, exact.begin() + to, c.begin() + from);
}

Solute_Stores Solute_Column::Stores() const
{
    const auto& self = *Self;
    Solute_Stores stores;
    stores.Plant.assign(self.Layout.Slots, 0.0);
    stores.Soil.assign(self.Layout.Slots, 0.0);
    stores.Plant[0] = Plant_Mass();
    for (int i = 0; i < self.Layout.N; ++i) {
        for (int k = 0; k < self.Layout.Slots; ++k)
            stores.Soil[k] += self.M[self.Layout.At(i, k)] + self.W[self.Layout.At(i, k)];
    }
    return stores;
}

const Dissolved_Excess& Solute_Column::Above_Solubility() const
{
    return Self->Excess;
}

bool Solute_Column::Finite() const
{
    const auto finite = [](const auto& row) { // without a branch for each value
        return std::isfinite(
            std::transform_reduce(row.begin(), row.end(), 0.0, std::plus(), [](double x) { return 0 * x; }));
    };
    return finite(Self->M) && finite(Self->W) && std::isfinite(Plant_Mass());
}

Solute_Closure Solute_Column::Closure(const Solute_Sums& sums, const Solute_Stores& start) const
{
    const auto& layout = Self->Layout;
    const Solute_Stores now = Stores();
    Solute_Closure closure;
    closure.Moles_Found = sums.Sink_Moles;
    for (int k = 0; k < layout.Slots; ++k) {
        const auto total = [&](const std::vector<double>& rows) {
            double sum = 0;
            for (int i = 0; i < layout.N; ++i)
                sum += rows[layout.At(i, k)];
            return sum;
        };
        const double applied = total(sums.Applied) + sums.Plant_Applied[k];
        const double decayed = total(sums.Decay_Eq) + total(sums.Decay_Neq);
        const double left = total(sums.Uptake) + sums.Plant_Decay[k] + sums.Plant_Penetration[k] +
                            sums.Plant_Volatilised[k] + sums.Soil_Volatilised[k] + sums.Runoff[k] + sums.Sediment[k] +
                            sums.Flux[layout.At(layout.N, k)];
        const double change = now.Soil[k] + now.Plant[k] - start.Soil[k] - start.Plant[k];
        const double molmass = Self->Setup.Substances[k].Molmass > 0 ? Self->Setup.Substances[k].Molmass : 1;
        closure.In.push_back(applied + total(sums.Formed));
        closure.Out.push_back(left + decayed);
        closure.Change.push_back(change);
        closure.Error.push_back(closure.In.back() - closure.Out.back() - change);
        closure.Moles_Applied += applied / molmass;
        closure.Moles_Found += (change + left) / molmass;
    }
    return closure;
}

long long Solute_Column::Sub_Steps() const
{
    return Self->Steps;
}

} // namespace orvel::engine
