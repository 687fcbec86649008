#include "engine/solute/solute_state.h"

#include "engine/math/flush_to_zero.h"
#include "engine/solute/transport.h"

#include <algorithm>
#include <cmath>

namespace orvel::engine {

namespace {

constexpr int Deepest_Halving = 12;
constexpr double Days_In_Year = 365.25;
constexpr double Surface_Step = 1; // cm

double Hour_Of(const Solute_Application& application)
{
    return application.Hour >= 0 && application.Hour <= 24 ? application.Hour : 0;
}

double Time_Of(const Solute_Application& application)
{
    return Hour_Of(application) / 24;
}

// Times of the day that bound the segments: 0, the hours of applications, every hour if the day is hourly, and 1. What
// happens in a thin layer at the surface is fast at first: there steps grow with the time since an application. Where
// runoff and bypass take from rain that washes the plants, the deposit reaches the soil in parts.
std::vector<double> Boundaries(const Solute_Day& day, bool surface, bool washing)
{
    constexpr int Hours_After[] = {1, 2, 3, 5, 8, 12, 18};
    constexpr int Wash_Hours = 4;
    std::vector<double> times{0, 1};
    for (const auto& application : day.Applications) {
        times.push_back(Time_Of(application));
        for (const int later : Hours_After) {
            if (const double time = (Hour_Of(application) + later) / 24; surface && time < 1)
                times.push_back(time);
        }
    }
    for (int hour = Wash_Hours; washing && hour < 24; hour += Wash_Hours)
        times.push_back(hour / 24.0);
    for (int hour = 1; day.Hourly && hour < 24; ++hour)
        times.push_back(hour / 24.0);
    std::sort(times.begin(), times.end());
    times.erase(std::unique(times.begin(), times.end()), times.end());
    return times;
}

} // namespace

Solute_State::Solute_State(const Solute_Setup& setup, const Solute_Kernel& kernel)
    : Setup(setup),
      Kernel(kernel),
      Layout(static_cast<int>(setup.Thickness.size()), static_cast<int>(setup.Substances.size())),
      Storage(Setup, Layout),
      Fate(Setup, Layout),
      Step_Thickness(setup.Thickness),
      Extraction(Setup, Layout),
      M(Layout.Rows(0)),
      W(Layout.Rows(0)),
      C(Layout.Rows(0)),
      G(Layout.Rows(1)),
      Age(Layout.Rows(0)),
      Day_In(Layout.Rows(0)),
      Day_New(Layout.Rows(0)),
      Sweep_C(Layout.Rows(0, 1)),
      Sweep_D(Layout.Rows(0, 1)),
      Step_Flux(Layout.Rows(0, 1)),
      Step_M(Layout.Rows(0, 1))
{
    for (const auto& substance : setup.Substances)
        Ageing = Ageing || substance.Annual_Increase > 0;
    // The surface layer's advection is implicit, and does not bound the step for stability: a centimetre keeps it
    // sharp.
    for (int i = 0; i < setup.Surface; ++i)
        Step_Thickness[i] = std::max(Step_Thickness[i], Surface_Step);
    if (const auto& of = setup.Volatilisation; of.Solubility[0] > 0)
        Least_Solubility = std::min(Solubility_In_Water(of, -50), Solubility_In_Water(of, 60));
    Column.N = Layout.N;
    Column.Lanes = Layout.Lanes;
    Column.Surface = Setup.Surface;
    Column.M = M.data();
    Column.W = W.data();
    Column.C = C.data();
    Column.G = G.data();
    Column.Sweep_C = Sweep_C.data();
    Column.Sweep_D = Sweep_D.data();
    Column.Step_Flux = Step_Flux.data();
    Column.Step_M = Step_M.data();
    Column.Taking = Extraction.Taking();
    Storage.Show(Column);
}

void Solute_State::Step_Day(const Solute_Day& day, Solute_Sums& sums, const std::function<void(int hour)>& after_hour)
{
    const Flush_To_Zero no_denormals;
    if (Ageing)
        Note_Inflow(sums, -1);
    if (day.Tillage_Depth > 0)
        Till(day.Tillage_Depth, sums);
    if (day.Harvest)
        Drop_Plants(sums);
    const bool moved = Storage.Prepare(Kernel, day, Age) || day.Tillage_Depth > 0;
    Fate.Prepare(Kernel, day, Storage.Theta_Mean());
    Extraction.Prepare(day);
    Column.Flux = day.Flux.data();
    Column.Taken_Rows = Extraction.Rows();
    Seek(0, moved ? Layout.N : 1, 0);

    // An application meets the rain that falls after it, from hour 0 on all of the day's.
    const bool deposit = Leaf.Well > 0 || Leaf.Poor > 0 || !day.Applications.empty();
    const bool washing = deposit && day.Plant_Water > 0 && Extraction.Rows() > 0;
    const std::vector<double> times = Boundaries(day, Setup.Surface > 0, washing);
    bool above = false;
    for (std::size_t k = 0; k < times.size(); ++k) {
        const double t = times[k];
        if (k > 0)
            Run_Segment(times[k - 1], t, day, sums);
        for (const auto& application : day.Applications) {
            if (Time_Of(application) != t)
                continue;
            const int reached = Apply(application, t, sums);
            above = Watch_Solubility(day, reached) || above;
        }
        if (day.Hourly && k > 0)
            Tell_Hour(t, sums, after_hour);
        if (k + 1 == times.size())
            break;
        Act_On_Plants(day, t, times[k + 1] - t, sums);
    }
    above = Watch_Solubility(day, Layout.N) || above;
    Excess.Days += above;
    if (Ageing) {
        Note_Inflow(sums, 1);
        Grow_Older();
    }
}

// Calls after_hour where the time of day is a whole hour.
void Solute_State::Tell_Hour(double t, Solute_Sums& sums, const std::function<void(int hour)>& after_hour)
{
    const double hour = std::round(t * 24);
    if (hour / 24 != t)
        return;
    if (Ageing)
        Note_Inflow(sums, 1);
    if (after_hour)
        after_hour(static_cast<int>(hour));
    if (Ageing)
        Note_Inflow(sums, -1);
}

void Solute_State::Seek(int first, int last, double t)
{
    Kernel.Invert(Column, first, last, t);
    Now = t;
}

void Solute_State::Run_Segment(double start, double end, const Solute_Day& day, Solute_Sums& sums)
{
    const double length = end - start;
    const int by_flux = Sub_Step_Count(length, Layout.N, day.Flux.data(), Step_Thickness.data(), day.Theta_Start.data(),
                                       day.Theta_End.data());
    const int count = std::max(by_flux, Extraction.Sub_Steps(length));
    const double h = length / count;
    // Symmetric splitting of each sub-step: fate, slow sites, transport, slow sites, fate; adjacent half steps of fate
    // are merged.
    React(start, h / 2, sums);
    for (int step = 1; step <= count; ++step) {
        const double before = start + (step - 1) * h, after = start + step * h;
        Exchange(before, h / 2);
        Storage.Limit_Vapour(C.data(), day.Temperature);
        if (Extraction.Rows() > 0)
            Extraction.Open(Column, before);
        for (int block = 0; block < Layout.Lanes / 4; ++block)
            Transport(block, before, h, 0, sums);
        if (Extraction.Rows() > 0)
            Carry_Off(day, after, h, sums);
        Exchange(after, h / 2);
        React(after, step < count ? h : h / 2, sums);
    }
    Steps += count;
    Now = end;
}

void Solute_State::Transport(int block, double t, double h, int depth, Solute_Sums& sums)
{
    const Kernel_Moved moved{sums.Flux.data(), sums.Soil_Volatilised.data(), Extraction.Taken()};
    if (Kernel.Transport(Column, block, t, h, depth < Deepest_Halving, moved))
        return;
    Transport(block, t, h / 2, depth + 1, sums);
    Transport(block, t + h / 2, h / 2, depth + 1, sums);
}

void Solute_State::React(double t, double h, Solute_Sums& sums)
{
    const Kernel_Fate_Sums into{sums.Formed.data(), sums.Decay_Eq.data(), sums.Decay_Neq.data(), sums.Uptake.data(),
                                &sums.Sink_Moles};
    const int parts = Fate.Parts(h);
    const Kernel_Fate& fate = Fate.Of_Step(Kernel, h / parts);
    for (int part = 0; part < parts; ++part)
        Kernel.React(Column, fate, t, h / parts, into);
}

void Solute_State::Exchange(double t, double h)
{
    if (Fate.Today().Two_Site)
        Kernel.Exchange(Column, Fate.Today(), t, h);
}

bool Solute_State::Watch_Solubility(const Solute_Day& day, int compartments)
{
    bool suspect =
        false; // nearly always there is none: a pass without branches, then the coldest and warmest soil tell
    for (int i = 0; i < compartments; ++i)
        suspect |= C[Layout.At(i, 0)] > Least_Solubility;
    if (!suspect)
        return false;
    double most = 0;
    for (int i = 0; i < compartments; ++i)
        most = std::max(most, C[Layout.At(i, 0)]);
    const auto dissolves = [&](double t) { return Solubility_In_Water(Setup.Volatilisation, t); };
    const auto [coldest, warmest] = std::minmax_element(day.Temperature.begin(), day.Temperature.end());
    if (most <= std::min(dissolves(*coldest), dissolves(*warmest)))
        return false;
    bool found = false;
    for (int i = 0; i < compartments; ++i) {
        const double c = C[Layout.At(i, 0)], limit = dissolves(day.Temperature[i]);
        if (c <= limit)
            continue;
        found = true;
        if (c > Excess.Most)
            Excess = {Excess.Days, c, limit, i};
    }
    return found;
}

void Solute_State::Note_Inflow(const Solute_Sums& sums, double sign)
{
    for (std::size_t at = 0; at < Day_In.size(); ++at) {
        Day_In[at] += sign * sums.Flux[at];
        Day_New[at] += sign * (sums.Applied[at] + sums.Formed[at]);
    }
}

// Bottom to top, so that the age above is still that of the previous day.
void Solute_State::Grow_Older()
{
    for (int i = Layout.N - 1; i >= 0; --i) {
        for (int k = 0; k < Layout.Slots; ++k) {
            const auto at = Layout.At(i, k);
            const double in = std::max(Day_In[at], 0.0), fresh = std::max(Day_New[at], 0.0);
            const double above = i > 0 ? Age[Layout.At(i - 1, k)] : 0;
            const double whole = std::max(M[at], in);
            const double old = std::max(M[at] - in - fresh, 0.0);
            Age[at] = whole > 0 ? (Age[at] * old + above * in) / whole + 1 / Days_In_Year : 0;
        }
    }
    std::fill(Day_In.begin(), Day_In.end(), 0.0);
    std::fill(Day_New.begin(), Day_New.end(), 0.0);
}

} // namespace orvel::engine
