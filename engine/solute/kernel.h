#pragma once

namespace orvel::engine {

// The inner loops of the solute column over plain arrays, compiled once for every processor and once for those with
// AVX2. Both give the same bits. Arrays by compartment or interface are rows of `Lanes` numbers, [row * Lanes + slot];
// arrays of one number a row say so.

struct Kernel_Column {
    int N = 0;       // compartments
    int Lanes = 0;   // a multiple of 4
    int Surface = 0; // compartments at the top whose advection is implicit upwind, since they are thin; below N

    double* M = nullptr; // mass, equilibrium domain
    double* W = nullptr; // mass, non-equilibrium domain
    double* C = nullptr; // concentration in solution
    double* G = nullptr; // capacity dM/dC; the secant M/C for an exponent above 1

    const double* Thickness = nullptr;     // dz, one number a row
    const double* Rho_K = nullptr;         // rho K of the day
    const double* Exponent = nullptr;      // n
    const double* Limit = nullptr;         // concentration below which sorption is linear; huge if it always is
    const double* Limit_Power = nullptr;   // Limit^(n - 1)
    const double* Psi_Start = nullptr;     // solution and vapour per concentration at the start of the day
    const double* Psi_End = nullptr;       // at its end; linear in between
    const double* Flux = nullptr;          // q, cm/d by interface, one number a row
    const double* Conductance = nullptr;   // Gd, cm/d by interface; 0 at the surface and at the bottom
    const double* Upwind_Weight = nullptr; // dz_i / (dz_i + dz_i+1), one number a row; 0 for the last
    const double* Doc = nullptr;           // 1 + b, one row
    const double* Escape = nullptr;        // gv Kaw, cm/d: volatilisation from compartment 0, one row
    const double* Inflow = nullptr;        // concentration of the inflowing water, one row

    // Scratch: Lanes * (N + 1) each
    double* Sweep_C = nullptr;
    double* Sweep_D = nullptr;
    double* Step_Flux = nullptr;
    double* Step_M = nullptr;

    const double* Escape_Limit = nullptr; // concentration in compartment 0 above which the air is saturated, one row
    const double* Taking = nullptr;       // cm/d: solution that runoff, sediment and bypass take from a compartment
    int Taken_Rows = 0;                   // compartments at the top that Taking has an amount for
};

// Mass moved in one transport sub-step. Values are added.
struct Kernel_Moved {
    double* Flux = nullptr;        // by interface
    double* Volatilised = nullptr; // one row
    double* Taken = nullptr;       // by compartment, to Taken_Rows
};

struct Kernel_Fate {
    // Loss and formation over one step of length h, made by Decay_Factors
    const double* Loss = nullptr;        // 1 - e^(-kh)
    const double* Formed_Loss = nullptr; // share of mass formed during the step that is lost within it
    const double* Slow_Loss = nullptr;   // of the non-equilibrium domain; null if nothing decays there

    // Formation: link l leads from slot Source[l] to the four slots from Block[l] * 4; its yields (ug formed per ug
    // lost) are at Yield[compartment * Yield_Stride + 4 l]. Links are ordered by source.
    int Links = 0;
    const int* Source = nullptr;
    const int* Block = nullptr;
    const double* Yield = nullptr;
    const double* Slow_Yield = nullptr;
    int Yield_Stride = 0;         // 0: the same for all compartments
    const double* Sink = nullptr; // umol into sinks per ug lost, [compartment * Sink_Stride + slot]
    const double* Slow_Sink = nullptr;
    int Sink_Stride = 0;

    bool Liquid_Only = false;            // any; then Loss comes from Rate, by the share in solution
    const double* Rate = nullptr;        // k, 1/d
    const double* Liquid = nullptr;      // 1 for slots that decay only in solution, one row
    const double* Theta_Start = nullptr; // one number a row
    const double* Theta_End = nullptr;

    const double* Transpiration = nullptr; // cm/d, one number a row; null if nothing is taken up today
    const double* Plant_Uptake = nullptr;  // one row

    bool Two_Site = false;         // any
    const double* F_Neq = nullptr; // one row
    const double* K_Des = nullptr; // one row
};

// Amounts of one step of fate. Values are added.
struct Kernel_Fate_Sums {
    double* Formed = nullptr;
    double* Decay_Eq = nullptr;
    double* Decay_Neq = nullptr;
    double* Uptake = nullptr;
    double* Sink_Moles = nullptr; // one number
};

struct Solute_Kernel {
    const char* Name;

    // Computes C and G from M for compartments [first, last); t is the time of day, 0 to 1. C is the initial guess.
    void (*Invert)(const Kernel_Column& column, int first, int last, double t);

    // One transport sub-step of length h from time t, for the four slots from 4 * block. With may_refuse, returns false
    // and changes nothing if a mass would fall below -1e-12 of the largest one.
    bool (*Transport)(const Kernel_Column& column, int block, double t, double h, bool may_refuse,
                      const Kernel_Moved& moved);

    // Computes loss and formed loss for `count` (a multiple of 4) rates over a step of length h.
    void (*Decay_Factors)(const double* rate, int count, double h, double* loss, double* formed_loss);

    // One step of length h of decay, formation and uptake at time t.
    void (*React)(const Kernel_Column& column, const Kernel_Fate& fate, double t, double h,
                  const Kernel_Fate_Sums& sums);

    // One step of length h of the exchange with the slow sites at time t.
    void (*Exchange)(const Kernel_Column& column, const Kernel_Fate& fate, double t, double h);

    // out = exp(a (T - T0)) (min(theta, cap) / reference)^b for `count` (a multiple of 4) values, 0 where T is below 0
    // degC; cap may be null.
    void (*Rate_Factors)(int count, const double* temperature, double t0, double a, const double* theta,
                         const double* cap, const double* reference, double b, double* out);

    // out = e^x for `count` (a multiple of 4) values: Steady_Exps.
    void (*Exps)(const double* x, int count, double* out);

    // out = x^e for `count` (a multiple of 4) values, 0 where x <= 0.
    void (*Powers)(int count, const double* x, double e, double* out);
};

const Solute_Kernel& Baseline_Kernel();
const Solute_Kernel* Avx2_Kernel(); // null if not built or not supported by the processor
const Solute_Kernel& Best_Kernel();

} // namespace orvel::engine
