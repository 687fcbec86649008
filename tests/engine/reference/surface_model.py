#!/usr/bin/env python3
"""What runoff and bypass take from a mixing zone in one day of even rain, written apart from the engine: other numerics, no shared code.

  surface_model.py CELL THETA POROSITY DENSITY KD DISPERSION INFILTRATION RUNOFF RUNOFF_DEPTH BYPASS

1 kg/ha lies evenly in the first millimetre at hour 0. In the hours that follow, infiltration (cm), runoff and bypass (cm) act on it side
by side; a share 3/d exp(-3 z/d)/(1 - exp(-3)) of the water meets the soil at the depth z, with d the runoff depth, 1 cm for the bypass.
It prints what runoff and bypass have taken, kg/ha.

Cells of 0.05 cm to 30 cm, Crank and Nicolson with central differences in 1440 steps: none of the engine's compartments, none of its
steps. Water is steady. CELL is the thickness of the cells in hundredths of a centimetre.
"""
import math
import sys


def weights(n, dz, depth):
    if depth <= 0:
        return [0.0] * n
    at = lambda z: math.exp(-3 * min(z, depth) / depth)
    return [(at(i * dz) - at((i + 1) * dz)) / (1 - math.exp(-3)) for i in range(n)]


def taken(dz, theta, porosity, density, kd, dispersion, infiltration, runoff, runoff_depth, bypass, steps=1440):
    n, h = round(30 / dz), 1 / steps
    capacity = dz * (theta + density * kd)
    spread = (dispersion * infiltration + 0.43 * theta ** (10 / 3) / porosity ** 2) / dz
    by_runoff = [runoff * w for w in weights(n, dz, runoff_depth)]
    by_bypass = [bypass * w for w in weights(n, dz, 1.0)]
    # dc/dt = (lower c[i-1] - diagonal c[i] + upper c[i+1]) / capacity
    lower, upper, diagonal = [0.0] * n, [0.0] * n, [0.0] * n
    for i in range(n):
        last = i + 1 == n
        out = infiltration if last else infiltration / 2 + spread
        back = 0.0 if last else spread - infiltration / 2
        into = 0.0 if i == 0 else infiltration / 2 + spread
        against = 0.0 if i == 0 else spread - infiltration / 2
        lower[i], upper[i] = into, back
        diagonal[i] = out + against + by_runoff[i] + by_bypass[i]
    c = [10 * max(0.0, min((i + 1) * dz, 0.1) - i * dz) / 0.1 / capacity for i in range(n)]
    k = h / 2 / capacity
    surface = deep = 0.0
    for _ in range(steps):
        right = [c[i] + k * ((lower[i] * c[i - 1] if i else 0.0) - diagonal[i] * c[i] + (upper[i] * c[i + 1] if i + 1 < n else 0.0))
                 for i in range(n)]
        factor, value = [0.0] * n, [0.0] * n
        f = v = 0.0
        for i in range(n):
            pivot = 1 / (1 + k * diagonal[i] - (k * lower[i] * f if i else 0.0))
            v = (right[i] + (k * lower[i] * v if i else 0.0)) * pivot
            f = k * upper[i] * pivot
            factor[i], value[i] = f, v
        new = value[:]
        for i in range(n - 2, -1, -1):
            new[i] = value[i] + factor[i] * new[i + 1]
        mean = [(a + b) / 2 for a, b in zip(c, new)]
        surface += h * sum(w * m for w, m in zip(by_runoff, mean) if w)
        deep += h * sum(w * m for w, m in zip(by_bypass, mean) if w)
        c = new
    return surface / 10, deep / 10


if __name__ == "__main__":
    figures = [float(word) for word in sys.argv[1:]]
    print("%.9g %.9g" % taken(figures[0] / 100, *figures[1:]))
