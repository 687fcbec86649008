#pragma once

#include "engine/solute/solute_records.h"

#include <functional>
#include <memory>

namespace orvel::engine {

struct Solute_Kernel;
struct Solute_State;

class Solute_Column {
public:
    // The setup must have passed Check_Solute_Setup. The column starts clean. Only tests choose a kernel (kernel.h):
    // all give the same bits.
    explicit Solute_Column(const Solute_Setup& setup, const Solute_Kernel* kernel = nullptr);
    ~Solute_Column();
    Solute_Column(Solute_Column&&) noexcept;
    Solute_Column& operator=(Solute_Column&&) noexcept;

    // Tillage, harvest, plant surface, extraction, then the day's segments. With day.Hourly, after_hour(1) to
    // after_hour(24) are called when the sums and the state have reached that hour; theta is then Theta_Start + hour /
    // 24 (Theta_End - Theta_Start).
    void Step_Day(const Solute_Day& day, Solute_Sums& sums, const std::function<void(int hour)>& after_hour = {});

    int Compartments() const;
    int Slots() const;
    int Lanes() const;
    int Slot_Of(int index) const; // -1: not in the run
    int Index_Of(int slot) const;
    double Doc_Factor(int slot) const; // 1 + b: the concentration including DOC is (1 + b) C

    const double* Mass() const;      // M, equilibrium domain, ug/cm2 [compartment * Lanes + slot]
    const double* Slow_Mass() const; // W, non-equilibrium domain, ug/cm2 like Mass
    double Plant_Mass() const;       // active substance on the plants, ug/cm2
    // C, ug/cm3, to full precision; does not change the state. Those before the first and behind the last compartment
    // are left as they were.
    void Concentrations(std::vector<double>& c) const;
    void Concentrations(std::vector<double>& c, int first, int last) const;
    Solute_Stores Stores() const;
    const Dissolved_Excess& Above_Solubility() const; // since the start
    bool Finite() const;                              // whether the state has neither NaN nor infinity

    // Mass balance of a span from its sums and the stores at its start and now.
    Solute_Closure Closure(const Solute_Sums& sums, const Solute_Stores& start) const;

    // Sub-steps since the start, for benchmarks.
    long long Sub_Steps() const;

private:
    std::unique_ptr<Solute_State> Self;
};

} // namespace orvel::engine
