#pragma once

namespace orvel::engine {

// Trigonometric functions, angles in rad, that give the same bits with every C library and on every processor. Absolute
// error below 1e-14.

double Steady_Sine(double x);
double Steady_Cosine(double x);
double Steady_Arc_Cosine(double x); // argument clamped to -1..1; result 0 to pi

} // namespace orvel::engine
