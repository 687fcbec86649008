#pragma once

#include "engine/math/aligned_row.h"
#include "engine/solute/kernel.h"
#include "engine/solute/solute_records.h"

#include <array>

namespace orvel::engine {

// Transformation rates of a column, updated daily, and their products.
class Day_Fate {
public:
    Day_Fate(const Solute_Setup& setup, const Solute_Layout& layout);

    void Prepare(const Solute_Kernel& kernel, const Solute_Day& day, const Aligned_Row& theta_mean);

    // Number of equal parts (at most 24) to split a step into, so that no substance loses more than half of its mass in
    // one.
    int Parts(double step) const;

    // The kernel's data for steps of a given length. The tables of the two most recent lengths are kept for the day.
    const Kernel_Fate& Of_Step(const Solute_Kernel& kernel, double step);

    const Kernel_Fate& Today() const { return View; } // the loss tables are not set

private:
    // Arrows with the same correction share one evaluation per day.
    struct Correction {
        double Temperature, Q10, Moist_Abs, Moist_Rel, Moist_Exp;
        Aligned_Row Reference, Factor;
    };
    struct Ready_Arrow {
        int Correction = 0;
        int Link = -1, Lane = 0;  // where its yield is stored; -1: a sink
        double Yield = 0;         // ug formed, or umol into the sink, per ug lost
        std::vector<double> Rate; // 1/d with the depth factor, by compartment
        double Neq = 0;
        Solute_Arrow Given;
    };
    struct Ready_Slot {
        std::vector<Ready_Arrow> Arrows;
        std::vector<double> Rate, Slow_Rate; // sums over the arrows, if the shares are constant
        bool Uniform = true;                 // the shares of the arrows never change
    };
    struct Loss_Table {
        double Step = 0; // 0: empty
        Aligned_Row Loss, Formed_Loss, Slow_Loss, Unused;
    };

    void Make_Ready(int slot);
    int Correction_Of(const Solute_Arrow& arrow);
    void Link_To(int source, int target, Ready_Arrow& arrow);
    void Share_Out(int slot, int compartment, const double* rate, const double* slow_rate);
    void Prepare_Uniform(int slot);
    void Prepare_Each(int slot, const Solute_Day& day);

    const Solute_Setup& Setup;
    Solute_Layout Layout;
    std::vector<Ready_Slot> Slots;
    std::vector<Correction> Corrections;
    std::vector<double> Light; // photolysis share by compartment
    std::vector<int> Link_Source, Link_Block;
    Aligned_Row Rate, Slow_Rate, Yield, Slow_Yield, Sink, Slow_Sink, Liquid, Plant_Uptake, F_Neq, K_Des, Field_Capacity,
        Temperature;
    std::array<Loss_Table, 2> Tables;
    std::size_t Next = 0;
    double Fastest = 0; // largest rate of the day, 1/d
    bool Any_Uptake = false;
    Kernel_Fate View;
};

} // namespace orvel::engine
