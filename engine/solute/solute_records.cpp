#include "engine/solute/solute_records.h"

#include <algorithm>

namespace orvel::engine {

namespace {

constexpr std::vector<double> Solute_Sums::*Rows[] = {
    &Solute_Sums::Applied,           &Solute_Sums::Formed,           &Solute_Sums::Decay_Eq,
    &Solute_Sums::Decay_Neq,         &Solute_Sums::Uptake,           &Solute_Sums::Flux,
    &Solute_Sums::Plant_Applied,     &Solute_Sums::Plant_Decay,      &Solute_Sums::Plant_Penetration,
    &Solute_Sums::Plant_Volatilised, &Solute_Sums::Soil_Volatilised, &Solute_Sums::Runoff,
    &Solute_Sums::Sediment,          &Solute_Sums::Bypass,
};

} // namespace

Solute_Sums::Solute_Sums(int compartments, int lanes)
{
    for (const auto rows : Rows)
        (this->*rows).assign(static_cast<std::size_t>(lanes), 0.0);
    for (const auto rows : {&Solute_Sums::Applied, &Solute_Sums::Formed, &Solute_Sums::Decay_Eq,
                            &Solute_Sums::Decay_Neq, &Solute_Sums::Uptake})
        (this->*rows).assign(static_cast<std::size_t>(compartments) * lanes, 0.0);
    Flux.assign(static_cast<std::size_t>(compartments + 1) * lanes, 0.0);
}

void Solute_Sums::Clear()
{
    for (const auto rows : Rows)
        std::fill((this->*rows).begin(), (this->*rows).end(), 0.0);
    Sink_Moles = 0;
}

void Solute_Sums::Add(const Solute_Sums& other)
{
    for (const auto rows : Rows) {
        auto& mine = this->*rows;
        const auto& its = other.*rows;
        for (std::size_t i = 0; i < mine.size(); ++i)
            mine[i] += its[i];
    }
    Sink_Moles += other.Sink_Moles;
}

} // namespace orvel::engine
