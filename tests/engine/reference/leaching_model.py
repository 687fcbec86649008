#!/usr/bin/env python3
"""A second model of a whole run, written apart from the engine: other numerics, no shared code, nothing but the standard library.

  leaching_model.py DIRECTORY KOC EXPONENT RATE

reads orvel.inp, the scenario and the climate files of a run directory and simulates an active substance with Freundlich sorption
(from KOC, reference 1 mg/L) and first-order decay (RATE at 20 degrees, Q10 2.58, field capacity, exponent 0.7), applied at
1 kg/ha on 1 November of each year into the first compartment. It prints a line a year: percolate below 1 m (cm),
evapotranspiration (cm), leached below 1 m, decayed and stored at the end (kg/ha).

What differs from the engine: restricted drainage by small explicit steps through the day; heat by Crank and Nicolson in eight steps
a day, on even nodes below the core; transport by Crank and Nicolson with central differences, iterated on the isotherm.
"""
import math
import sys
from pathlib import Path

WATER_DIFFUSION = 0.43  # cm2/d
LIMIT = 1e-5  # mg/L, linear sorption below


class Scenario:
    def __init__(self, text):
        lines = text.split("\r\n")
        numbers = lambda i: [float(word) for word in lines[i].split()]
        words = lines[1].split()
        self.kc_bare, self.snow_factor, self.et_depth = float(words[0]), float(words[1]), float(words[3])
        assert numbers(2) == [0], "no erosion"
        assert numbers(3) == [1], "one crop"
        crop = numbers(4)
        self.store, self.roots, self.interception = crop[1], crop[2], crop[3] / 100
        self.perennial, self.kc_mid, self.kc_late = crop[17] == 1, crop[19], crop[20]
        count = int(numbers(5)[0])
        self.rotation = []
        for line in lines[6:6 + count]:
            dates = line.split()
            order = [dates[0], dates[1], dates[4], dates[2]]  # emergence, maturation, senescence, harvest
            self.rotation.append([(int(d[4:]), int(d[2:4]), int(d[:2])) for d in order])
        head = numbers(6 + count)
        self.depth, self.layers, self.restricted = head[0], int(head[2]), int(head[5]) % 2 == 1
        self.dz = self.depth / self.layers
        horizons, at = int(numbers(7 + count)[0]), 8 + count
        self.cells = []  # the horizons meet the compartments
        for h in range(horizons):
            _, thickness, density, dispersion, _, drainage = numbers(at + 2 * h)
            capacity, wilting, carbon, _, factor = numbers(at + 2 * h + 1)
            self.cells += [(density, dispersion, drainage, capacity, wilting, carbon, factor)] * round(thickness / self.dz)
        assert len(self.cells) == self.layers


def read_climate(path):
    days = []
    for line in path.read_text("cp1252").split("\n")[1:]:
        if line[1:3].strip():
            field = lambda first: float(line[first - 1:first + 9])
            days.append(((int(line[3:5]), int(line[1:3])), field(8), field(18), field(38)))  # date, rain, evaporation, mean
    return days


def solve(lower, diagonal, upper, right):
    """Tridiagonal elimination; overwrites its arguments."""
    n = len(diagonal)
    for i in range(1, n):
        share = lower[i] / diagonal[i - 1]
        diagonal[i] -= share * upper[i - 1]
        right[i] -= share * right[i - 1]
    right[-1] /= diagonal[-1]
    for i in range(n - 2, -1, -1):
        right[i] = (right[i] - upper[i] * right[i + 1]) / diagonal[i]
    return right


class Heat:
    """Conduction after Campbell (1985) to 10 m."""

    def __init__(self, scenario, start):
        self.s = scenario
        below = (1000 - scenario.depth) / 20
        self.size = [scenario.dz / 100] * scenario.layers + [0.2] * round(below)
        self.t = [start] * len(self.size)

    def step(self, theta, air, snow):
        s, n = self.s, len(self.size)
        conduct, capacity = [], []
        for i in range(n):
            k = min(i, s.layers - 1)
            density, water = s.cells[k][0], theta[k] if i < s.layers else s.cells[-1][3]
            a, b, c, d = 0.65 - 0.78 * density + 0.6 * density ** 2, 1.06 * density, 1 + 2.6 / math.sqrt(0.2), 0.03 + 0.1 * density ** 2
            conduct.append(a + b * water - (a - d) * math.exp(-(c * water) ** 4))
            capacity.append((2.4e6 * density / 2.65 + 4.18e6 * water) * self.size[i])
        g = [1 / (0.5 * self.size[0] / conduct[0] + 4 * snow / 100 / 0.2)]
        g += [1 / (0.5 * self.size[i] / conduct[i] + 0.5 * self.size[i + 1] / conduct[i + 1]) for i in range(n - 1)] + [0]
        steps = 8
        h = 86400 / steps
        for _ in range(steps):
            t = [air] + self.t + [self.t[-1]]
            right = [capacity[i] / h * t[i + 1] + 0.5 * (g[i] * (t[i] - t[i + 1]) + g[i + 1] * (t[i + 2] - t[i + 1]))
                     for i in range(n)]
            right[0] += 0.5 * g[0] * air
            self.t = solve([-0.5 * g[i] for i in range(n)],
                           [capacity[i] / h + 0.5 * (g[i] + g[i + 1]) for i in range(n)],
                           [-0.5 * g[i + 1] for i in range(n)], right)


class Water:
    def __init__(self, scenario):
        self.s = scenario
        self.theta = [cell[3] for cell in scenario.cells]
        self.snow = self.canopy = 0.0

    def shares(self, depth):
        """Linear shares of a demand, 0 at the depth."""
        dz, part = self.s.dz, []
        for i in range(self.s.layers):
            top, bottom = min(i * dz, depth), min((i + 1) * dz, depth)
            part.append((bottom - top) * (1 - (top + bottom) / (2 * depth)))
        total = sum(part)
        return [p / total for p in part]

    def step(self, rain, evaporation, air, crop):
        """Returns fluxes by interface, uptake by compartment and the evapotranspiration of a day."""
        s, theta, dz = self.s, self.theta, self.s.dz
        snowfall = rain if air <= 0 else 0
        rain -= snowfall
        self.snow += snowfall
        melt = min(self.snow, s.snow_factor * max(air, 0))
        self.snow -= melt
        demand = crop["kc"] * evaporation
        kept = min(self.canopy + crop["cover"] * rain, s.store * crop["growth"])
        through = rain - (kept - self.canopy)
        wet = min(demand, kept)
        self.canopy = kept - wet
        demand -= wet
        flux = self.drain_slowly(through + melt) if s.restricted else self.drain(through + melt)
        # Evaporation of the bare share, FAO-56 eq. 74, over the upper centimetres
        cells, n = s.cells, round(s.et_depth / dz)
        total = sum((cells[i][3] - 0.5 * cells[i][4]) * dz for i in range(n))
        gone = sum(max(cells[i][3] - theta[i], 0) * dz for i in range(n))
        factor = 1 if gone <= 0.4 * total else max(0, (total - gone) / (0.6 * total))
        lost = 0.0
        for i, share in enumerate(self.shares(s.et_depth)[:n]):
            taken = min(demand * (1 - crop["cover"]) * factor * share, max(theta[i] - 0.5 * cells[i][4], 0) * dz)
            theta[i] -= taken / dz
            lost += taken
        # Transpiration, and what is not met once more from where there is no stress
        want = demand * crop["cover"]
        uptake = [0.0] * s.layers
        if want > 0:
            share = self.shares(max(crop["roots"], s.et_depth))
            stress = [min(1, max(0, (theta[i] - cells[i][4]) / (0.5 * (cells[i][3] - cells[i][4])))) for i in range(s.layers)]
            room = [max(theta[i] - cells[i][4], 0) * dz for i in range(s.layers)]
            uptake = [min(want * share[i] * stress[i], room[i]) for i in range(s.layers)]
            free = sum(share[i] for i in range(s.layers) if stress[i] == 1)
            rest = want - sum(uptake)
            for i in range(s.layers):
                if stress[i] == 1 and rest > 0 and share[i] > 0:
                    uptake[i] = min(uptake[i] + rest * share[i] / free, room[i])
                theta[i] -= uptake[i] / dz
        return flux, wet + lost + sum(uptake)

    def drain(self, q):
        flux = [q]
        for i, cell in enumerate(self.s.cells):
            water = self.theta[i] + q / self.s.dz
            q = max(water - cell[3], 0) * self.s.dz
            self.theta[i] = water - q / self.s.dz
            flux.append(q)
        return flux

    def drain_slowly(self, q):
        """Explicit small steps of dtheta/dt = -dq/dz, q = 100 cm AD (theta - capacity)."""
        s, flux = self.s, [0.0] * (self.s.layers + 1)
        speed = [100 * cell[2] for cell in s.cells]
        steps = max(1, math.ceil(max(speed) / s.dz / 0.5))
        for _ in range(steps):
            above = q / steps
            flux[0] += above
            for i, cell in enumerate(s.cells):
                excess = self.theta[i] - cell[3]
                below = speed[i] * excess / steps if excess > 0 else 0
                self.theta[i] += (above - below) / s.dz
                flux[i + 1] += below
                above = below
        return flux


class Substance:
    def __init__(self, scenario, koc, exponent):
        self.s = scenario
        self.k = [cell[0] * koc * cell[5] / 100 for cell in scenario.cells]
        self.n = exponent
        self.c = [0.0] * scenario.layers
        self.mass = [0.0] * scenario.layers  # ug/cm3

    def content(self, i, c, theta):
        sorbed = c ** self.n if c > LIMIT else c * LIMIT ** (self.n - 1)
        return theta * c + self.k[i] * sorbed

    def slope(self, i, c, theta):
        return theta + self.k[i] * (self.n * c ** (self.n - 1) if c > LIMIT else LIMIT ** (self.n - 1))

    def find(self, i, theta):
        """The concentration of a content, by Newton from the last one."""
        wanted, c = self.mass[i], max(self.c[i], 0.0)
        for _ in range(60):
            error = wanted - self.content(i, c, theta)
            if abs(error) <= 1e-10 * abs(wanted) + 1e-22:
                break
            c = max(c + error / self.slope(i, c, theta), 0.0)
        return c

    def move(self, theta_start, theta_end, flux, at):
        """A day of transport; returns what passes interface `at`, ug/cm2."""
        s, dz, count = self.s, self.s.dz, self.s.layers
        theta = [0.5 * (a + b) for a, b in zip(theta_start, theta_end)]
        phi = [max(1 - cell[0] / 2.65, cell[3] + 0.01) for cell in s.cells]
        spread = [0.0]
        for i in range(1, count):
            diffusion = 0.5 * WATER_DIFFUSION * sum(theta[k] ** (10 / 3) / phi[k] ** 2 for k in (i - 1, i))
            spread.append((0.5 * (s.cells[i - 1][1] + s.cells[i][1]) * flux[i] + diffusion) / dz)
        steps = max(1, math.ceil(2 * max(flux[i + 1] / (dz * theta[i]) for i in range(count))))
        h, passed = 1 / steps, 0.0
        # Flux at interface i: down[i] * C above - up[i] * C below
        down = [0.0] + [0.5 * flux[i] + spread[i] for i in range(1, count)] + [flux[count]]
        up = [0.0] + [spread[i] - 0.5 * flux[i] for i in range(1, count)] + [0.0]
        for step in range(steps):
            now = [a + (b - a) * step / steps for a, b in zip(theta_start, theta_end)]
            then = [a + (b - a) * (step + 1) / steps for a, b in zip(theta_start, theta_end)]
            old = [self.find(i, now[i]) for i in range(count)]
            net = [down[i] * (old[i - 1] if i else 0) - up[i] * old[i] -
                   down[i + 1] * old[i] + up[i + 1] * (old[i + 1] if i + 1 < count else 0) for i in range(count)]
            new = old[:]
            for _ in range(4):
                slope = [self.slope(i, max(new[i], 0), then[i]) for i in range(count)]
                right = [self.mass[i] + 0.5 * h / dz * net[i] - self.content(i, max(new[i], 0), then[i]) + slope[i] * new[i]
                         for i in range(count)]
                new = solve([-0.5 * h / dz * down[i] for i in range(count)],
                            [slope[i] + 0.5 * h / dz * (up[i] + down[i + 1]) for i in range(count)],
                            [-0.5 * h / dz * up[i + 1] for i in range(count)], right)
            mean = [0.5 * (a + b) for a, b in zip(old, new)]
            through = [down[i] * (mean[i - 1] if i else 0) - up[i] * (mean[i] if i < count else 0) for i in range(count + 1)]
            for i in range(count):
                self.mass[i] += h / dz * (through[i] - through[i + 1])
            self.c = [max(c, 0.0) for c in new]
            passed += h * through[at]
        return passed


def crop_on(scenario, periods, day):
    crop = {"kc": scenario.kc_bare, "cover": 0.0, "growth": 0.0, "roots": 0.0}
    for emergence, maturation, senescence, harvest in periods:
        if not emergence <= day < harvest:
            continue
        young = min(1.0, (day - emergence) / (maturation - emergence))
        old = max(0.0, (day - senescence) / (harvest - senescence)) if harvest > senescence else 0.0
        crop["growth"] = young if day < maturation else 1 - 0.5 * old
        crop["cover"] = crop["growth"] * scenario.interception
        crop["roots"] = scenario.roots if scenario.perennial else scenario.roots * young
        crop["kc"] = (scenario.kc_bare + (scenario.kc_mid - scenario.kc_bare) * young if day < maturation
                      else scenario.kc_mid + (scenario.kc_late - scenario.kc_mid) * old)
    return crop


def main():
    place = Path(sys.argv[1])
    koc, exponent, rate = (float(word) for word in sys.argv[2:5])
    control = (place / "orvel.inp").read_text("cp1252").split("\n")
    years = int(control[0].split()[0])
    scenario = Scenario((place / control[1].strip()).read_bytes().decode("cp1252"))
    weather = [read_climate(place / name.strip()) for name in control[3:3 + years]]
    number, day = {}, 0
    for year in range(1, years + 1):
        for row in weather[year - 1]:
            day += 1
            number[(year, *row[0])] = day
    for (_, month, date), first in [item for item in number.items() if item[0][0] == 1]:  # 365 days before and behind the run
        number.setdefault((0, month, date), first - 365)
        number.setdefault((years + 1, month, date), first + day)
    periods = [[number[date] for date in dates] for dates in scenario.rotation if all(date in number for date in dates)]

    water, substance = Water(scenario), Substance(scenario, koc, exponent)
    heat = Heat(scenario, sum(row[3] for row in weather[0]) / len(weather[0]))
    for row in weather[0]:
        heat.step(water.theta, row[3], 0)
    metre = round(100 / scenario.dz)
    for year in range(1, years + 1):
        percolate = taken = leached = decayed = 0.0
        for date, rain, evaporation, air in weather[year - 1]:
            day = number[(year, *date)]
            start = water.theta[:]
            flux, lost = water.step(rain, evaporation, air, crop_on(scenario, periods, day))
            heat.step(water.theta, air, water.snow)
            if date == (11, 1):
                substance.mass[0] += 10 / scenario.dz
            for half in (0, 1):  # decay of half a day before and after transport
                for i, cell in enumerate(scenario.cells):
                    t = heat.t[i]
                    wet = min(0.5 * (start[i] + water.theta[i]), cell[3]) / cell[3]
                    k = rate * cell[6] * wet ** 0.7 * (2.58 ** ((t - 20) / 10) if t >= 0 else 0)
                    gone = substance.mass[i] * (1 - math.exp(-0.5 * k))
                    substance.mass[i] -= gone
                    decayed += gone * scenario.dz
                if half == 0:
                    leached += substance.move(start, water.theta, flux, metre)
            percolate += flux[metre]
            taken += lost
        print(f"{year} {percolate:.6f} {taken:.6f} {leached / 10:.6e} {decayed / 10:.6e} {sum(substance.mass) * scenario.dz / 10:.6e}")


main()
