#include "engine/solute/day_fate.h"

#include "engine/math/steady_math.h"
#include "engine/solute/fate.h"

#include <algorithm>
#include <cmath>

namespace orvel::engine {

namespace {

constexpr double Largest_Loss = 0.7; // limit of k h in a part of a step
constexpr int Most_Parts = 24;

double Molar_Mass(const Solute_Substance& substance)
{
    return substance.Molmass > 0 ? substance.Molmass : 1; // any value works if nothing is converted
}

bool Has_Slow_Sites(const Solute_Substance& substance)
{
    return substance.F_Neq > 0 && substance.K_Des > 0;
}

} // namespace

Day_Fate::Day_Fate(const Solute_Setup& setup, const Solute_Layout& layout)
    : Setup(setup),
      Layout(layout),
      Slots(layout.Slots),
      Rate(layout.Rows(0)),
      Slow_Rate(layout.Rows(0)),
      Sink(layout.Rows(0)),
      Slow_Sink(layout.Rows(0)),
      Liquid(layout.One_Row(0)),
      Plant_Uptake(layout.One_Row(0)),
      F_Neq(layout.One_Row(0)),
      K_Des(layout.One_Row(0)),
      Field_Capacity(layout.Column(1)),
      Temperature(layout.Column(-1))
{
    double top = 0;
    for (int i = 0; i < layout.N; ++i) {
        Field_Capacity[i] = setup.Field_Capacity[i];
        Light.push_back(Photolysis_Share(top, top + setup.Thickness[i]));
        top += setup.Thickness[i];
    }
    bool slow_decay = false;
    for (int k = 0; k < layout.Slots; ++k) {
        const auto& substance = setup.Substances[k];
        Plant_Uptake[k] = substance.Plant_Uptake;
        Any_Uptake = Any_Uptake || substance.Plant_Uptake > 0;
        Liquid[k] = substance.Liquid_Only;
        View.Liquid_Only = View.Liquid_Only || substance.Liquid_Only;
        if (Has_Slow_Sites(substance)) {
            F_Neq[k] = substance.F_Neq;
            K_Des[k] = substance.K_Des;
            View.Two_Site = true;
        }
        Make_Ready(k);
        for (const auto& arrow : Slots[k].Arrows)
            slow_decay = slow_decay || arrow.Neq > 0;
    }
    Yield.assign(static_cast<std::size_t>(layout.N) * Link_Source.size() * 4, 0.0);
    Slow_Yield = Yield;
    for (int k = 0; k < layout.Slots; ++k) {
        if (Slots[k].Uniform)
            Prepare_Uniform(k);
    }
    for (auto& table : Tables) {
        table.Loss = table.Formed_Loss = layout.Rows(0);
        if (slow_decay)
            table.Slow_Loss = table.Unused = layout.Rows(0);
    }
    View.Links = static_cast<int>(Link_Source.size());
    View.Source = Link_Source.data();
    View.Block = Link_Block.data();
    View.Yield = Yield.data();
    View.Slow_Yield = Slow_Yield.data();
    View.Yield_Stride = 4 * View.Links;
    View.Sink = Sink.data();
    View.Slow_Sink = Slow_Sink.data();
    View.Sink_Stride = layout.Lanes;
    View.Rate = Rate.data();
    View.Liquid = Liquid.data();
    View.Plant_Uptake = Plant_Uptake.data();
    View.F_Neq = F_Neq.data();
    View.K_Des = K_Des.data();
}

int Day_Fate::Correction_Of(const Solute_Arrow& arrow)
{
    const auto same = [&](const Correction& c) {
        return c.Temperature == arrow.Temperature && c.Q10 == arrow.Q10 && c.Moist_Abs == arrow.Moist_Abs &&
               c.Moist_Rel == arrow.Moist_Rel && c.Moist_Exp == arrow.Moist_Exp;
    };
    const auto found = std::find_if(Corrections.begin(), Corrections.end(), same);
    if (found != Corrections.end())
        return static_cast<int>(found - Corrections.begin());
    Correction made{arrow.Temperature, arrow.Q10,        arrow.Moist_Abs, arrow.Moist_Rel,
                    arrow.Moist_Exp,   Layout.Column(1), Layout.Column(0)};
    for (int i = 0; i < Layout.N; ++i)
        made.Reference[i] = Reference_Moisture(arrow, Setup.Field_Capacity[i]);
    if (made.Reference[0] <= 0)
        made.Moist_Exp = 0; // no reference: no correction
    Corrections.push_back(std::move(made));
    return static_cast<int>(Corrections.size()) - 1;
}

void Day_Fate::Link_To(int source, int target, Ready_Arrow& arrow)
{
    const int block = target / 4;
    int link = 0;
    while (link < static_cast<int>(Link_Source.size()) && (Link_Source[link] != source || Link_Block[link] != block))
        ++link;
    if (link == static_cast<int>(Link_Source.size())) {
        Link_Source.push_back(source);
        Link_Block.push_back(block);
    }
    arrow.Link = link;
    arrow.Lane = target % 4;
}

void Day_Fate::Make_Ready(int slot)
{
    const auto& substance = Setup.Substances[slot];
    auto& ready = Slots[slot];
    for (int j = 1; j <= Arrows_Of_Substance; ++j) {
        const auto& given = substance.Arrows[j];
        const bool photolysis = slot == 0 && given.Photo_Rate > 0;
        if (given.Rate <= 0 && !photolysis)
            continue;
        Ready_Arrow arrow;
        arrow.Given = given;
        arrow.Correction = Correction_Of(given);
        arrow.Neq = Has_Slow_Sites(substance) ? given.Neq : 0;
        for (int i = 0; i < Layout.N; ++i)
            arrow.Rate.push_back(given.Rate > 0 ? given.Rate * Depth_Factor(Setup, substance, given, i) : 0);
        arrow.Yield = 1 / Molar_Mass(substance);
        for (int t = slot + 1; t < Layout.Slots; ++t) {
            if (Setup.Substances[t].Index != given.Target)
                continue;
            arrow.Yield *= Molar_Mass(Setup.Substances[t]);
            Link_To(slot, t, arrow);
        }
        // Arrows with the same correction and proportional depth factors keep their shares.
        ready.Uniform =
            ready.Uniform && !photolysis && (ready.Arrows.empty() || ready.Arrows[0].Correction == arrow.Correction);
        ready.Arrows.push_back(std::move(arrow));
    }
}

// Sets the yields and sinks of a compartment from the rates of the arrows of a slot.
void Day_Fate::Share_Out(int slot, int compartment, const double* rate, const double* slow_rate)
{
    const auto& arrows = Slots[slot].Arrows;
    double sum = 0, slow_sum = 0;
    for (std::size_t a = 0; a < arrows.size(); ++a) {
        sum += rate[a];
        slow_sum += slow_rate[a];
    }
    const double part = sum > 0 ? 1 / sum : 0, slow_part = slow_sum > 0 ? 1 / slow_sum : 0;
    const auto at = Layout.At(compartment, slot);
    Sink[at] = Slow_Sink[at] = 0;
    for (std::size_t a = 0; a < arrows.size(); ++a) {
        const double formed = arrows[a].Yield * rate[a] * part,
                     slow_formed = arrows[a].Yield * slow_rate[a] * slow_part;
        if (arrows[a].Link < 0) {
            Sink[at] += formed;
            Slow_Sink[at] += slow_formed;
            continue;
        }
        const auto where =
            (static_cast<std::size_t>(compartment) * Link_Source.size() + arrows[a].Link) * 4 + arrows[a].Lane;
        Yield[where] = formed;
        Slow_Yield[where] = slow_formed;
    }
}

void Day_Fate::Prepare_Uniform(int slot)
{
    auto& ready = Slots[slot];
    ready.Rate.assign(Layout.N, 0.0);
    ready.Slow_Rate.assign(Layout.N, 0.0);
    for (int i = 0; i < Layout.N; ++i) {
        double rate[Arrows_Of_Substance] = {}, slow[Arrows_Of_Substance] = {};
        for (std::size_t a = 0; a < ready.Arrows.size(); ++a) {
            rate[a] = ready.Arrows[a].Rate[i];
            slow[a] = rate[a] * ready.Arrows[a].Neq;
            ready.Rate[i] += rate[a];
            ready.Slow_Rate[i] += slow[a];
        }
        Share_Out(slot, i, rate, slow);
    }
}

void Day_Fate::Prepare_Each(int slot, const Solute_Day& day)
{
    const auto& arrows = Slots[slot].Arrows;
    for (int i = 0; i < Layout.N; ++i) {
        double rate[Arrows_Of_Substance] = {}, slow[Arrows_Of_Substance] = {}, sum = 0, slow_sum = 0;
        for (std::size_t a = 0; a < arrows.size(); ++a) {
            const double dark = arrows[a].Rate[i] * Corrections[arrows[a].Correction].Factor[i];
            slow[a] = dark * arrows[a].Neq;
            rate[a] = dark + (slot == 0 ? Photolysis_Rate(arrows[a].Given, day.Radiation, day.Cover) * Light[i] : 0);
            sum += rate[a];
            slow_sum += slow[a];
        }
        Rate[Layout.At(i, slot)] = sum;
        Slow_Rate[Layout.At(i, slot)] = slow_sum;
        Share_Out(slot, i, rate, slow);
    }
}

void Day_Fate::Prepare(const Solute_Kernel& kernel, const Solute_Day& day, const Aligned_Row& theta_mean)
{
    std::copy(day.Temperature.begin(), day.Temperature.end(), Temperature.begin());
    for (auto& c : Corrections) {
        kernel.Rate_Factors(Layout.Padded, Temperature.data(), c.Temperature, Steady_Log(c.Q10) / 10, theta_mean.data(),
                            Field_Capacity.data(), c.Reference.data(), c.Moist_Exp, c.Factor.data());
    }
    for (int k = 0; k < Layout.Slots; ++k) {
        const auto& ready = Slots[k];
        if (ready.Arrows.empty())
            continue;
        if (!ready.Uniform) {
            Prepare_Each(k, day);
            continue;
        }
        const double* factor = Corrections[ready.Arrows[0].Correction].Factor.data();
        for (int i = 0; i < Layout.N; ++i) {
            Rate[Layout.At(i, k)] = ready.Rate[i] * factor[i];
            Slow_Rate[Layout.At(i, k)] = ready.Slow_Rate[i] * factor[i];
        }
    }
    Fastest = Rate.empty() ? 0 : *std::max_element(Rate.begin(), Rate.end());
    for (auto& table : Tables)
        table.Step = 0;
    const bool drinking =
        Any_Uptake && std::any_of(day.Transpiration.begin(), day.Transpiration.end(), [](double t) { return t > 0; });
    View.Transpiration = drinking ? day.Transpiration.data() : nullptr;
    View.Theta_Start = day.Theta_Start.data();
    View.Theta_End = day.Theta_End.data();
}

int Day_Fate::Parts(double step) const
{
    return static_cast<int>(std::clamp(std::ceil(Fastest * step / Largest_Loss), 1.0, static_cast<double>(Most_Parts)));
}

const Kernel_Fate& Day_Fate::Of_Step(const Solute_Kernel& kernel, double step)
{
    auto found = std::find_if(Tables.begin(), Tables.end(), [&](const Loss_Table& t) { return t.Step == step; });
    if (found == Tables.end()) {
        found = Tables.begin() + static_cast<std::ptrdiff_t>(Next++ % Tables.size());
        found->Step = step;
        const int count = static_cast<int>(Rate.size());
        kernel.Decay_Factors(Rate.data(), count, step, found->Loss.data(), found->Formed_Loss.data());
        if (!found->Slow_Loss.empty())
            kernel.Decay_Factors(Slow_Rate.data(), count, step, found->Slow_Loss.data(), found->Unused.data());
    }
    View.Loss = found->Loss.data();
    View.Formed_Loss = found->Formed_Loss.data();
    View.Slow_Loss = found->Slow_Loss.empty() ? nullptr : found->Slow_Loss.data();
    return View;
}

} // namespace orvel::engine
