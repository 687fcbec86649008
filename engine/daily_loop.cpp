#include "engine/daily_loop.h"

#include "core/numbers.h"
#include "engine/solute/kernel.h"

#include <algorithm>
#include <chrono>
#include <cmath>

namespace orvel::engine {

namespace {

constexpr double Water_Tolerance = 1e-10; // cm a day
constexpr double Solute_Tolerance = 1e-9; // of the cumulative input
constexpr double Least_Input = 1e-6 * Ug_Cm2_Per_Kg_Ha;

// Removes the balance files of an earlier run, which would show metabolites that this run does not have.
void Remove_Stale(const std::filesystem::path& directory, const std::vector<int>& substances)
{
    for (int index = 1; index <= Substances; ++index) {
        std::error_code ignored;
        if (std::ranges::find(substances, index) == substances.end())
            std::filesystem::remove(directory / Solute_File_Name(index), ignored);
    }
}

// An amount to four decimals.
std::string Amount_Text(double amount)
{
    return General_Text(std::round(amount * 1e4) / 1e4);
}

// Smaller amounts print as 0 in their columns.
using Clock = std::chrono::steady_clock;
constexpr std::chrono::seconds Between_Flushes(1); // who looks at a run at work sees the years that it has finished
constexpr double Least_Printed_Percolate = 0.5e-5; // cm
constexpr double Least_Printed_Mass = 1e-30 * Ug_Cm2_Per_Kg_Ha;

int Step_Of(const Variant& value)
{
    return static_cast<int>(value.Number());
}

} // namespace

Daily_Loop::Daily_Loop(const Engine_Input& input, const std::filesystem::path& directory, const Solute_Kernel* kernel)
    : Input(input),
      Water(input.Scenario, input.Core, input.Haude),
      Heat(input.Core, input.Weather.First_Year_Mean + input.Control.Temperature_Shift,
           (kernel ? *kernel : Best_Kernel()).Exps),
      Column(input.Solute, kernel),
      Water_File(directory / "Wasser.orv", input.Core, Step_Of(input.Scenario.SZE_Out_Every_Water)),
      Plot(directory / "plot.orv", input),
      Water_Frequency(Frequency_Of(input.Scenario.SZE_Freq_Water)),
      Solute_Frequency(Frequency_Of(input.Scenario.SZE_Freq_Solute)),
      State_Frequency(Frequency_Of(input.Scenario.SZE_Freq_Conc))
{
    const auto at_least = [this](Frequency frequency) {
        return Water_Frequency == frequency || Solute_Frequency == frequency || State_Frequency == frequency;
    };
    Daily = at_least(Frequency::Day) || Plot.Needs_Sums();
    Monthly = at_least(Frequency::Day) || at_least(Frequency::Month);
    Remove_Stale(directory, input.Substances);
    for (int slot = 0; slot < Column.Slots(); ++slot)
        Solute_Files.emplace_back(directory, input.Fine, Column.Index_Of(slot), slot,
                                  Step_Of(input.Scenario.SZE_Out_Every_Solute),
                                  Step_Of(input.Scenario.SZE_Out_Every_Conc));
    for (Span_Sums* sums : {&Day_Sums, &Month_Sums, &Year_Sums})
        sums->Solute = Solute_Sums(Column.Compartments(), Column.Lanes());
    Negative_Years.resize(static_cast<std::size_t>(Column.Slots()));
    Run_Sums = Solute_Sums(Column.Compartments(), Column.Lanes());
    Run_Start = Column.Stores();
}

Daily_Loop::Span_Sums& Daily_Loop::Finest()
{
    return Daily ? Day_Sums : Monthly ? Month_Sums : Year_Sums;
}

// Spins up the soil temperature over the first climate year: mean start temperature, soil at field capacity.
void Daily_Loop::Warm_Up_Soil()
{
    const auto& days = Input.Weather.Days;
    const std::size_t count = std::min<std::size_t>(days.size(), 366);
    for (std::size_t i = 0; i < count; ++i)
        Heat.Step_Day(Input.Core.Field_Capacity, days[i].Temperature, 0);
}

void Daily_Loop::Begin(Span_Sums& sums)
{
    sums.Water.Begin(Water);
    sums.Solute.Clear();
    sums.Start = Column.Stores();
    sums.Upward.assign(static_cast<std::size_t>(Column.Slots()), 0.0);
}

// Hands water and temperature to the compartments of the substances: within one of the document's they are even, and
// the flux runs linearly from its upper to its lower boundary.
void Daily_Loop::Divide(const Water_Day& water, Solute_Day& solute) const
{
    const Grid &core = Input.Core, &fine = Input.Fine;
    if (fine.Surface == 0) {
        solute.Theta_Start = water.Theta_Start;
        solute.Theta_End = water.Theta_End;
        solute.Flux = water.Flux;
        solute.Transpiration = water.Transpiration;
        solute.Temperature.assign(Heat.Temperature().begin(), Heat.Temperature().begin() + core.Count());
        return;
    }
    const auto count = static_cast<std::size_t>(fine.Count());
    for (auto* row : {&solute.Theta_Start, &solute.Theta_End, &solute.Transpiration, &solute.Temperature})
        row->resize(count);
    solute.Flux.resize(count + 1);
    solute.Flux[0] = water.Flux[0];
    for (std::size_t k = 0; k < fine.Document.size(); ++k) {
        const auto [first, last] = fine.Document[k];
        const double top = core.Top(static_cast<int>(k));
        for (auto i = static_cast<std::size_t>(first); i <= static_cast<std::size_t>(last); ++i) {
            const bool whole = first == last;
            solute.Theta_Start[i] = water.Theta_Start[k];
            solute.Theta_End[i] = water.Theta_End[k];
            solute.Temperature[i] = Heat.Temperature()[k];
            solute.Transpiration[i] =
                whole ? water.Transpiration[k] : water.Transpiration[k] * fine.Thickness[i] / core.Thickness[k];
            const double share = (fine.Bottom[i] - top) / core.Thickness[k];
            solute.Flux[i + 1] = whole ? water.Flux[k + 1] : std::lerp(water.Flux[k], water.Flux[k + 1], share);
        }
    }
}

Solute_Day Daily_Loop::Hand_Over(int day, const Climate_Day& climate, const Crop_State& crop) const
{
    const Water_Day& water = Water.Today();
    Solute_Day solute;
    Divide(water, solute);
    solute.Air_Temperature = climate.Temperature;
    solute.Radiation = climate.Radiation;
    solute.Cover = crop.Cover;
    solute.Runoff = water.Runoff;
    solute.Bypass = water.Bypass;
    solute.Bypass_Outlet = water.Bypass_Outlet < 0 ? -1 : Input.Fine.Interface_Below(water.Bypass_Outlet + 1) - 1;
    solute.Bypass_Below = water.Bypass > 0 ? water.Bypass_Below / water.Bypass : 0;
    solute.Sediment = water.Sediment;
    solute.Plant_Water = water.Rain + water.Irrigation;
    if (crop.Row) {
        solute.Poor_Photo = crop.Row->SZE_Rot_RR_Photo;
        solute.Poor_Penetration = crop.Row->SZE_Rot_RR_Pen;
        solute.Poor_Volatilisation = crop.Row->SZE_Rot_RR_Vol;
        solute.Poor_Washoff = crop.Row->SZE_Rot_RR_Wash;
    }
    solute.Tillage_Depth = crop.Tillage_Today ? Input.Control.Tillage_Depth : 0;
    solute.Harvest = crop.Harvest_Today;
    for (std::size_t a = Next_Application; a < Input.Applications.size() && Input.Applications[a].Day == day; ++a) {
        const Planned_Application& from = Input.Applications[a];
        solute.Applications.push_back(
            {from.Hour, from.Rate * Ug_Cm2_Per_Kg_Ha, from.Depth, from.Plant_Share, from.Poorly_Exposed});
    }
    solute.Hourly = Input.Control.Soil_Mode && !solute.Applications.empty();
    return solute;
}

void Daily_Loop::Put_Day_Line(int day, int hour, const Climate_Day& climate)
{
    const Water_Day& water = Water.Today();
    const bool whole = hour == 24;
    if (!whole) {
        Theta_Now.resize(water.Theta_End.size());
        for (std::size_t i = 0; i < Theta_Now.size(); ++i)
            Theta_Now[i] = water.Theta_Start[i] + hour / 24.0 * (water.Theta_End[i] - water.Theta_Start[i]);
    }
    const bool hourly = Input.Control.Soil_Mode && Next_Application < Input.Applications.size() &&
                        Input.Applications[Next_Application].Day == day;
    Plot.Put_Line(day, hour,
                  {water, whole ? water.Theta_End : Theta_Now, Heat.Temperature(), Column, Finest().Solute,
                   climate.Rain, hourly ? 1.0 / 24 : 1.0});
}

void Daily_Loop::Step_Solute(int day, const Climate_Day& climate, const Solute_Day& solute_day)
{
    if (Daily)
        Plot.Begin_Day();
    Span_Sums& finest = Finest();
    const double* at_metre = finest.Solute.Flux.data() + At_Metre() * Column.Lanes();
    const std::vector<double> before(at_metre, at_metre + Column.Slots());
    if (solute_day.Hourly) {
        Column.Step_Day(solute_day, finest.Solute, [&](int hour) { Put_Day_Line(day, hour, climate); });
    } else {
        Column.Step_Day(solute_day, finest.Solute);
        Put_Day_Line(day, 24, climate);
    }
    for (std::size_t slot = 0; slot < before.size(); ++slot)
        finest.Upward[slot] += std::max(before[slot] - at_metre[slot], 0.0);
    while (Next_Application < Input.Applications.size() && Input.Applications[Next_Application].Day == day)
        ++Next_Application;
}

void Daily_Loop::Step_Day(int day)
{
    const Climate_Day& climate = Input.Weather.On(day);
    const Crop_State crop = Crop_On(Input.Scenario, Input.Rotation, day);
    const Water_Day& water = Water.Step_Day(climate, Input.Weather.Dates.Day_Of_Year(day), crop, Heat.Temperature());
    if (!(std::fabs(water.Closure) < Water_Tolerance))
        throw Engine_Failure(Fault::Closure_Violated, "WATER BALANCE NOT CLOSED ON DAY " + std::to_string(day));
    Heat.Step_Day(water.Theta_End, climate.Temperature, Water.Snow());
    Step_Solute(day, climate, Hand_Over(day, climate, crop));
    if (!Column.Finite())
        throw Engine_Failure(Fault::Not_A_Number, "A SUBSTANCE'S STATE IS NOT A NUMBER ON DAY " + std::to_string(day));
    Finest().Water.Add(water, Heat.Temperature());
}

// Writes the blocks that are due at the end of the span and adds its amounts to the next longer one.
void Daily_Loop::End_Span(Span span, const Date& date, Span_Sums& sums)
{
    if (Is_Due(Water_Frequency, span))
        Water_File.Put_Block(span, date, sums.Water, Water);
    const bool balance = Is_Due(Solute_Frequency, span), state = Is_Due(State_Frequency, span);
    if (balance || state)
        Column.Concentrations(Concentration);
    const Solute_Closure closure = balance ? Column.Closure(sums.Solute, sums.Start) : Solute_Closure();
    const Solute_Block block{Column, sums.Solute, closure, Concentration, sums.Upward};
    for (Solute_Report& report : Solute_Files) {
        if (balance)
            report.Put_Block(span, date, block);
        if (state && balance)
            report.Put_Concentrations(block);
        else if (state)
            report.Put_Dated_Concentrations(date, block);
    }
}

void Daily_Loop::Check_Closure(int year)
{
    Run_Sums.Add(Year_Sums.Solute);
    const Solute_Closure closure = Column.Closure(Run_Sums, Run_Start);
    Year_Closure closed{year, Year_Sums.Water.Closure(Water), 0, 0};
    for (std::size_t slot = 0; slot < static_cast<std::size_t>(Column.Slots()); ++slot)
        closed.Solute =
            std::max(closed.Solute, std::fabs(closure.Error[slot]) / std::max(closure.In[slot], Least_Input));
    const double moles = closure.Moles_Applied;
    closed.Moles = moles > 0 ? std::fabs(closure.Moles_Found - moles) / moles : 0;
    Closed.push_back(closed);
    if (!(closed.Solute <= Solute_Tolerance) || !(closed.Moles <= Solute_Tolerance))
        throw Engine_Failure(Fault::Closure_Violated,
                             "MASS BALANCE NOT CLOSED AT THE END OF YEAR " + std::to_string(year));
}

void Daily_Loop::Span_Sums::Add(const Span_Sums& later)
{
    Water.Add(later.Water);
    Solute.Add(later.Solute);
    for (std::size_t slot = 0; slot < Upward.size(); ++slot)
        Upward[slot] += later.Upward[slot];
}

void Daily_Loop::Note_Year(int year)
{
    const auto metre = static_cast<std::size_t>(At_Metre());
    if (Year_Sums.Water.Percolate[static_cast<std::size_t>(Input.Core.Top_Layers)] < Least_Printed_Percolate)
        Dry_At_Metre.push_back(year);
    if (Year_Sums.Water.Percolate.back() < Least_Printed_Percolate)
        Dry_At_Bottom.push_back(year);
    for (std::size_t slot = 0; slot < Negative_Years.size(); ++slot) {
        if (Year_Sums.Solute.Flux[metre * static_cast<std::size_t>(Column.Lanes()) + slot] < -Least_Printed_Mass)
            Negative_Years[slot].push_back(year);
    }
}

Findings Daily_Loop::Remarks() const
{
    Findings remarks;
    Plot.Put_Remarks(remarks);
    for (std::size_t slot = 0; slot < Negative_Years.size(); ++slot) {
        if (!Negative_Years[slot].empty())
            remarks.Tell(Note::Negative_Mean,
                         "MORE OF " + Solute_Label(Column.Index_Of(static_cast<int>(slot))) +
                             " DIFFUSED UP THROUGH 1 M THAN THE WATER CARRIED DOWN, THE MEAN IS NEGATIVE: YEAR" +
                             Years_Text(Negative_Years[slot]));
    }
    const Dissolved_Excess& excess = Column.Above_Solubility();
    if (excess.Days > 0)
        remarks.Tell(Note::Above_Solubility,
                     "THE DISSOLVED CONCENTRATION OF THE ACTIVE SUBSTANCE WAS ABOVE ITS SOLUBILITY ON " +
                         std::to_string(excess.Days) + " DAYS: AT MOST " + Amount_Text(excess.Most) + " MG/L AT " +
                         Amount_Text(Input.Fine.Depth_Of(excess.Compartment)) + " CM, WHERE " +
                         Amount_Text(excess.Solubility) + " MG/L DISSOLVE. THE SOLUTION IS NOT CUT, ITS VAPOUR IS");
    const auto& full = Water.Saturated();
    if (full.Days > 0)
        remarks.Tell(Note::Profile_Saturated,
                     "THE PROFILE WAS SATURATED ON " + std::to_string(full.Days) +
                         " DAYS: " + Amount_Text(full.Held_Back) + " CM FOUND NO ROOM AND " +
                         (Water.Ponds()
                              ? "WAITED ON THE SURFACE, " + Amount_Text(full.Deepest) + " CM AT MOST AT A TIME"
                              : std::string("RAN OFF")));
    return remarks;
}

void Daily_Loop::Run(const std::function<void(int year, int percent)>& progress)
{
    const Climate& weather = Input.Weather;
    Warm_Up_Soil();
    Theta_Now = Water.Theta();
    Plot.Put_Head(Input, {Water.Today(), Theta_Now, Heat.Temperature(), Column, Finest().Solute, 0, 0});
    for (Span_Sums* sums : {&Day_Sums, &Month_Sums, &Year_Sums})
        Begin(*sums);
    auto flushed = Clock::now();
    for (int day = weather.First_Day; day <= weather.Last_Day; ++day) {
        const Date date = weather.Dates.Date_Of(day);
        if (Daily)
            Begin(Day_Sums);
        Step_Day(day);
        const bool last = day == weather.Last_Day;
        const bool month_ends = last || date.Day == weather.Dates.Days_In(date.Year, date.Month);
        const bool year_ends = last || (month_ends && date.Month == 12);
        if (Daily) {
            End_Span(Span::Day, date, Day_Sums);
            Span_Sums& longer = Monthly ? Month_Sums : Year_Sums;
            longer.Add(Day_Sums);
        }
        if (month_ends && Monthly) {
            End_Span(Span::Month, date, Month_Sums);
            Year_Sums.Add(Month_Sums);
            Begin(Month_Sums);
        }
        if (month_ends && !year_ends)
            progress(date.Year, 100 * date.Month / 12);
        if (!year_ends)
            continue;
        End_Span(Span::Year, date, Year_Sums);
        Check_Closure(date.Year);
        Note_Year(date.Year);
        Begin(Year_Sums);
        if (const auto now = Clock::now(); now - flushed >= Between_Flushes) {
            flushed = now;
            Water_File.Flush();
            Plot.Flush();
            for (Solute_Report& report : Solute_Files)
                report.Flush();
        }
        progress(date.Year, 100);
    }
    Water_File.Close();
    Plot.Close();
    for (Solute_Report& report : Solute_Files)
        report.Close();
}

} // namespace orvel::engine
