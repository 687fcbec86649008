#pragma once

namespace orvel::engine {

// Elementary functions that give the same bits with every C library and on every processor (the library's own may take
// other paths on processors with fused multiplication). Relative error below 1e-14, for Steady_Power times the size of
// its logarithm.

double Steady_Exp(double x);             // cut to -708..709
double Steady_Log(double x);             // of a positive normal number
double Steady_Power(double x, double y); // of a positive x; 0 for x <= 0 and y > 0
double Steady_Lost(double x);            // 1 - e^-x for x >= 0, to the last digits for a small x too

} // namespace orvel::engine
