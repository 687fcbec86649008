#pragma once

#include "engine/solute/day_fate.h"
#include "engine/solute/day_storage.h"
#include "engine/solute/extraction.h"
#include "engine/solute/plant_surface.h"
#include "engine/solute/sorption.h"

#include <functional>

namespace orvel::engine {

// The state that a column keeps from day to day, and the steps of a day.
struct Solute_State {
    Solute_State(const Solute_Setup& setup, const Solute_Kernel& kernel);
    Solute_State(const Solute_State&) = delete;
    Solute_State& operator=(const Solute_State&) = delete;

    void Step_Day(const Solute_Day& day, Solute_Sums& sums, const std::function<void(int hour)>& after_hour);

    // Events at the start of the day
    void Till(double depth, Solute_Sums& sums);
    void Drop_Plants(Solute_Sums& sums); // moves the plant deposit to the first compartment

    // Rain and wind at the beginning of a segment of the day, which lasts from t for `length` days and has that share
    // of the day's water
    void Act_On_Plants(const Solute_Day& day, double t, double length, Solute_Sums& sums);
    // The bypass takes mass from a source, which lies above interface `from`
    void Into_Bypass(int slot, int from, double mass, const Solute_Day& day, Solute_Sums& sums);
    void Pass(int slot, int from, int outlet, double mass, Solute_Sums& sums);
    void Arrive(int slot, double mass, const Solute_Day& day);
    void Carry_Off(const Solute_Day& day, double t, double h, Solute_Sums& sums);
    void Seek_Outlets(const Solute_Day& day, double t);

    // The day itself
    void Tell_Hour(double t, Solute_Sums& sums, const std::function<void(int hour)>& after_hour);
    void Run_Segment(double start, double end, const Solute_Day& day, Solute_Sums& sums);
    void Transport(int block, double t, double h, int depth, Solute_Sums& sums);
    void React(double t, double h, Solute_Sums& sums);
    void Exchange(double t, double h);
    int Apply(const Solute_Application& application, double t, Solute_Sums& sums);
    void Seek(int first, int last, double t); // recomputes concentrations after a change of mass

    // Notes concentrations above the solubility; true if there are any
    bool Watch_Solubility(const Solute_Day& day, int compartments);

    // Residence time
    void Note_Inflow(const Solute_Sums& sums, double sign);
    void Grow_Older();

    Solute_Setup Setup;
    const Solute_Kernel& Kernel;
    Solute_Layout Layout;
    Day_Storage Storage;
    Day_Fate Fate;
    std::vector<double> Step_Thickness; // that the water of a sub-step must not cross, cm
    Day_Extraction Extraction;

    Aligned_Row M, W, C, G;
    Aligned_Row Age; // mean residence time, years
    Leaf_Pools Leaf;
    double Now = 0; // time of day, 0 to 1, that C belongs to
    long long Steps = 0;
    Dissolved_Excess Excess;
    double Least_Solubility = No_Saturation; // mg/L, at any temperature of a soil

    bool Ageing = false;
    Aligned_Row Day_In, Day_New; // of the day: inflow through the upper interface; applied and formed
    Aligned_Row Sweep_C, Sweep_D, Step_Flux, Step_M;
    Kernel_Column Column; // a view of all this
};

} // namespace orvel::engine
