#pragma once

#include "engine/solute/kernel.h"
#include "engine/solute/transport.h"

#include <cmath>
#include <string>
#include <vector>

namespace orvel::engine {

// A uniform column of four equal slots for the kernel alone: steady water, an inlet concentration, coefficients by
// hand.
struct Steady_Column {
    static constexpr int Lanes = 4;
    int N;
    double Theta, Rho, K, Exponent, Q, Lambda, Dz;
    const Solute_Kernel& Kernel;
    std::vector<double> M, W, C, G, Thickness, Rho_K, N_Exponent, Limit, Limit_Power, Psi, Flux, Conductance, Weight,
        One, Zero, Inlet, Limitless;
    std::vector<double> Scratch[4], Moved, Volatilised;
    Kernel_Column Column;

    Steady_Column(const Solute_Kernel& kernel, int n, double dz, double theta, double rho, double k, double exponent,
                  double q, double lambda, double diffusion = 0)
        : N(n),
          Theta(theta),
          Rho(rho),
          K(k),
          Exponent(exponent),
          Q(q),
          Lambda(lambda),
          Dz(dz),
          Kernel(kernel)
    {
        const std::size_t size = static_cast<std::size_t>(n) * Lanes;
        const bool linear = exponent == 1 || k == 0;
        M.assign(size, 0.0);
        W = C = M;
        G.assign(size, dz * (theta + rho * k));
        Thickness.assign(n, dz);
        Rho_K.assign(size, rho * k);
        N_Exponent.assign(size, exponent);
        Limit.assign(size, linear ? 1e200 : 1e-5);
        Limit_Power.assign(size, linear ? 1 : std::pow(1e-5, exponent - 1));
        Psi.assign(size, theta);
        Flux.assign(n + 1, q);
        Conductance.assign(size + Lanes, (lambda * q + diffusion) / dz);
        for (int s = 0; s < Lanes; ++s)
            Conductance[s] = Conductance[size + s] = 0;
        Weight.assign(n, 0.5);
        Weight.back() = 0;
        One.assign(Lanes, 1.0);
        Zero.assign(Lanes, 0.0);
        Inlet = Zero;
        Limitless.assign(Lanes, 1e300);
        for (auto& scratch : Scratch)
            scratch.assign(size + Lanes, 0.0);
        Moved.assign(size + Lanes, 0.0);
        Volatilised = Zero;
        Column = {n,
                  Lanes,
                  0,
                  M.data(),
                  W.data(),
                  C.data(),
                  G.data(),
                  Thickness.data(),
                  Rho_K.data(),
                  N_Exponent.data(),
                  Limit.data(),
                  Limit_Power.data(),
                  Psi.data(),
                  Psi.data(),
                  Flux.data(),
                  Conductance.data(),
                  Weight.data(),
                  One.data(),
                  Zero.data(),
                  Inlet.data(),
                  Scratch[0].data(),
                  Scratch[1].data(),
                  Scratch[2].data(),
                  Scratch[3].data()};
        Column.Escape_Limit = Limitless.data();
    }
    Steady_Column(const Steady_Column&) = delete;

    void Set_Inlet(double concentration) { Inlet.assign(Lanes, concentration); }
    void Put(int compartment, double mass)
    {
        for (int s = 0; s < Lanes; ++s)
            M[static_cast<std::size_t>(compartment) * Lanes + s] = mass;
        Kernel.Invert(Column, 0, N, 0);
    }
    // The transport of `days`, in sub-steps of length h.
    void Run(double days, double h)
    {
        const long steps = std::lround(days / h);
        for (long k = 0; k < steps; ++k)
            Kernel.Transport(Column, 0, 0, h, false, {Moved.data(), Volatilised.data()});
    }
    double Concentration(int compartment) const { return C[static_cast<std::size_t>(compartment) * Lanes]; }
    double Mass(int compartment) const { return M[static_cast<std::size_t>(compartment) * Lanes]; }
    double Through(int interface) const { return Moved[static_cast<std::size_t>(interface) * Lanes]; }
    double Total() const
    {
        double sum = 0;
        for (int i = 0; i < N; ++i)
            sum += Mass(i);
        return sum;
    }
};

} // namespace orvel::engine
