#pragma once

namespace orvel::engine {

// Elementary functions that give the same bits with every C library and on every processor (the library may take
// another path on processors with fused multiply-add). Relative error below 1e-14; for Steady_Power multiplied by the
// magnitude of the logarithm of its result.

double Steady_Exp(double x);                               // argument clamped to -708..709
void Steady_Exps(const double* x, int count, double* out); // of `count` (a multiple of 4) numbers, the same bits
double Steady_Log(double x);                               // of a positive normal number
double Steady_Power(double x, double y);                   // of a positive x; 0 for x <= 0 and y > 0
double Steady_Lost(double x);                              // 1 - e^-x for x >= 0, without cancellation for small x

} // namespace orvel::engine
