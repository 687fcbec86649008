#include "engine/output/series.h"

#include "core/numbers.h"
#include "core/output_variables.h"
#include "core/text.h"
#include "engine/output/solute_report.h"
#include "engine/output/titles.h"

#include <algorithm>
#include <cmath>

namespace orvel::engine {

namespace {

constexpr double Gram = 1e-6;            // g per ug
constexpr double Least_Percolate = 1e-3; // cm/d, smaller percolate has no mean concentration

using namespace Variable;

// Titles come from the user: a control character would break the line.
std::string One_Line(std::string text)
{
    std::ranges::replace_if(
        text, [](unsigned char c) { return c < ' '; }, ' ');
    return text;
}

} // namespace

Series::Series(const std::filesystem::path& file, const Engine_Input& input)
    : Core(&input.Core),
      Fine(&input.Fine),
      File(file)
{
    const std::size_t first_profile = input.Control.Rows.size() - static_cast<std::size_t>(input.Control.Profile_Rows);
    for (std::size_t i = 0; i < input.Control.Rows.size(); ++i) {
        Plans.push_back(Plan(input.Control.Rows[i], i >= first_profile, input));
        With_Sums = With_Sums || Plans.back().Is_Amount;
        Note_Dissolved(Plans.back());
    }
}

void Series::Note_Dissolved(const Column_Plan& plan)
{
    if (plan.Variable != SPST && plan.Variable != SPSC)
        return;
    Compartment_Range inside = plan.Inside;
    if (plan.Is_Profile && !plan.Slice.empty()) {
        inside.First = Fine->Document[static_cast<std::size_t>(plan.Slice.front().first)].First;
        inside.Last = Fine->Document[static_cast<std::size_t>(plan.Slice.back().first)].Last;
    }
    if (!Dissolved)
        Dissolved = inside;
    Dissolved = {std::min(Dissolved->First, inside.First), std::max(Dissolved->Last, inside.Last)};
}

Series::Column_Plan Series::Plan(const Output_Row& row, bool profile, const Engine_Input& input) const
{
    Column_Plan plan;
    const auto found = std::ranges::find(input.Substances, row.Substance);
    if (found == input.Substances.end())
        return plan;
    const auto& variable = Output_Variable_Of(row.Variable);
    plan.Variable = row.Variable;
    plan.Is_Water = !variable.Has_Substance;
    plan.Is_Amount = variable.Has_Substance && variable.Kind != Quantity::State;
    plan.Scale = row.Scale;
    plan.Slot = static_cast<int>(found - input.Substances.begin());
    plan.Compartment = Core->Compartment_At(row.Depth);
    plan.Interface = Core->Interface_Nearest(row.Depth);
    plan.Inside = Fine->Document[static_cast<std::size_t>(plan.Compartment)];
    plan.Solute_Interface = Fine->Interface_Below(plan.Interface);
    plan.Is_Profile = profile && row.Depth >= 1;
    for (int i = 0; plan.Is_Profile && i < Core->Count(); ++i) {
        const double length =
            std::min(Core->Bottom[static_cast<std::size_t>(i)], row.Depth) - std::max(Core->Top(i), row.Depth - 1);
        if (length > 1e-9)
            plan.Slice.emplace_back(i, length);
    }
    return plan;
}

void Series::Put_Remarks(Findings& remarks) const
{
    for (const Column_Plan& plan : Plans) {
        const long days = std::lround(plan.Dry_Days);
        if (days == 0)
            continue;
        const double depth = plan.Interface == 0 ? 0 : Core->Bottom[static_cast<std::size_t>(plan.Interface - 1)];
        remarks.Tell(Note::Little_Water, "LEAC AT " + General_Text(std::round(depth * 100) / 100) + " CM IS 0 ON " +
                                             std::to_string(days) + " DAYS WITH LESS THAN 0.001 CM OF PERCOLATE");
    }
}

void Series::Put_Head(const Engine_Input& input, const Series_Moment& start)
{
    std::string& text = File.Buffer;
    const auto& rows = input.Control.Rows;
    const bool pore_water = input.Control.Profile_Rows > 0 && rows.back().Variable == SPSC;
    text += Engine_Title() + "\r\n\r\n" + One_Line(input.Scenario.SZE_Title) + "\r\n" +
            One_Line(input.Pesticide.PSM_Title) + "\r\n\r\n";
    text += pore_water ? "Soil concentrations: in soil Pore water (mg/L)\r\n"
                       : "Soil concentrations: total content (mg/kg)\r\n";
    Put_Integer(text, 12L * input.Control.Years, 6);
    Put_Integer(text, static_cast<long>(rows.size()), 6);
    Put_Integer(text, input.Control.Profile_Rows, 6);
    text += CrLf;
    std::size_t line = text.size();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        To_Column(text, line, 13 + Series_Width * static_cast<int>(i));
        text += One_Line(rows[i].Code);
    }
    text += CrLf;
    Put_Blanks(text, Series_Width);
    for (const Output_Row& row : rows)
        Put_Fixed(text, row.Depth, Series_Width, 1);
    text += CrLf;
    line = text.size();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        To_Column(text, line, 12 + Series_Width * static_cast<int>(i));
        Put_Left(text, One_Line(rows[i].Scale_Text), 6);
    }
    text += CrLf;
    Put_Line(input.Weather.First_Day, 1, start);
}

void Series::Begin_Day()
{
    for (Column_Plan& plan : Plans)
        plan.Before = 0;
}

void Series::Put_Line(int day, int hour, const Series_Moment& moment)
{
    if (Dissolved)
        moment.Column.Concentrations(Concentration, Dissolved->First, Dissolved->Last);
    std::string& text = File.Buffer;
    Put_Integer(text, day, 6);
    text += ' ';
    text += static_cast<char>('0' + hour / 10);
    text += static_cast<char>('0' + hour % 10);
    text += ' ';
    const std::size_t figures = text.size();
    text.resize(figures + Plans.size() * Series_Width, ' ');
    char* field = text.data() + figures;
    for (Column_Plan& plan : Plans) {
        Put_Series(field, plan.Scale * Value(plan, moment));
        field += Series_Width;
    }
    text += CrLf;
    File.Flush_When_Full();
}

double Series::Value(Column_Plan& plan, const Series_Moment& moment)
{
    if (plan.Variable == None)
        return 0;
    if (plan.Is_Water)
        return Water_Value(plan, moment);
    if (!plan.Is_Amount)
        return Gram * (plan.Is_Profile ? Profile(plan, moment) : State(plan, plan.Compartment, moment));
    const double amount = Amount(plan, moment);
    const double rate = moment.Share > 0 ? (amount - plan.Before) / moment.Share : 0;
    plan.Before = amount;
    if (plan.Variable != LEAC)
        return Gram * rate;
    const double percolate = moment.Share > 0 ? moment.Water.Percolate(plan.Interface) : 0;
    if (percolate >= Least_Percolate)
        return Gram * rate / percolate;
    plan.Dry_Days += moment.Share;
    return 0;
}

double Series::Water_Value(const Column_Plan& plan, const Series_Moment& moment) const
{
    const auto i = static_cast<std::size_t>(plan.Compartment);
    if (plan.Variable == THET)
        return moment.Theta[i];
    if (plan.Variable == TEMP)
        return moment.Temperature[i];
    if (moment.Share <= 0)
        return 0;
    switch (plan.Variable) {
    case PRSN:
        return moment.Rain;
    case TETD:
        return moment.Water.Evapotranspiration();
    case INFL:
        return moment.Water.Percolate(plan.Interface);
    case RUNF:
        return moment.Water.Runoff;
    default:
        return moment.Water.Soil_Loss;
    }
}

// Amount moved or changed since the start of the day, ug/cm2.
double Series::Amount(const Column_Plan& plan, const Series_Moment& moment) const
{
    const Solute_Sums& sums = moment.Sums;
    const int lanes = moment.Column.Lanes();
    const auto slot = static_cast<std::size_t>(plan.Slot);
    const auto here = [&](const std::vector<double>& values) {
        double sum = 0;
        for (int i = plan.Inside.First; i <= plan.Inside.Last; ++i)
            sum += values[static_cast<std::size_t>(i * lanes) + slot];
        return sum;
    };
    const auto total = [&](const std::vector<double>& values) { return Total_Of(values, lanes, plan.Slot); };
    switch (plan.Variable) {
    case TPAP:
        return total(sums.Applied) + total(sums.Formed) + sums.Plant_Applied[slot];
    case TDKF:
        return total(sums.Decay_Eq) + total(sums.Decay_Neq) + sums.Plant_Decay[slot];
    case TDKQ:
        return total(sums.Decay_Eq) + sums.Plant_Decay[slot];
    case TDKN:
        return total(sums.Decay_Neq);
    case TUPF:
        return total(sums.Uptake) + sums.Plant_Penetration[slot];
    case TVOX:
        return sums.Soil_Volatilised[slot] + sums.Plant_Volatilised[slot];
    case DKFX:
        return here(sums.Decay_Eq) + here(sums.Decay_Neq);
    case DKFQ:
        return here(sums.Decay_Eq);
    case DKFN:
        return here(sums.Decay_Neq);
    case RFLX:
        return sums.Runoff[slot];
    case EFLX:
        return sums.Sediment[slot];
    default:
        return sums.Flux[static_cast<std::size_t>(plan.Solute_Interface * lanes) + slot]; // PFLX, LEAC
    }
}

template <class Get> [[gnu::always_inline]] inline double Series::Mean(const Compartment_Range& inside, Get get) const
{
    if (inside.First == inside.Last)
        return get(static_cast<std::size_t>(inside.First));
    double sum = 0, length = 0;
    for (auto i = static_cast<std::size_t>(inside.First); i <= static_cast<std::size_t>(inside.Last); ++i) {
        sum += get(i) * Fine->Thickness[i];
        length += Fine->Thickness[i];
    }
    return sum / length;
}

// Contents in ug/cm3 or ug/g, concentrations in ug/cm3.
double Series::State(const Column_Plan& plan, int compartment, const Series_Moment& moment) const
{
    const auto lanes = static_cast<std::size_t>(moment.Column.Lanes()), slot = static_cast<std::size_t>(plan.Slot);
    const auto document = static_cast<std::size_t>(compartment);
    const Compartment_Range& inside = Fine->Document[document];
    const double density = Core->Density[document];
    const auto fast = [&](std::size_t i) { return moment.Column.Mass()[i * lanes + slot] / Fine->Thickness[i]; };
    const auto slow = [&](std::size_t i) { return moment.Column.Slow_Mass()[i * lanes + slot] / Fine->Thickness[i]; };
    const auto both = [&](std::size_t i) { return fast(i) + slow(i); };
    const auto dissolved = [&](std::size_t i) {
        return moment.Column.Doc_Factor(plan.Slot) * Concentration[i * lanes + slot];
    };
    switch (plan.Variable) {
    case TPST:
        return Mean(inside, both);
    case QPST:
        return Mean(inside, fast);
    case NPST:
        return Mean(inside, slow);
    case TPSC:
        return Mean(inside, both) / density;
    case QPSC:
        return Mean(inside, fast) / density;
    case NPSC:
        return Mean(inside, slow) / density;
    case SPST:
        return moment.Theta[document] * Mean(inside, dissolved);
    default:
        return Mean(inside, dissolved); // SPSC
    }
}

// Like State, but over a 1 cm slice, regardless of the compartments: contents by its soil, solution by its water.
double Series::Profile(const Column_Plan& plan, const Series_Moment& moment) const
{
    if (plan.Slice.size() == 1)
        return State(plan, plan.Slice.front().first, moment);
    double sum = 0, length = 0, soil = 0, water = 0;
    const bool by_soil = plan.Variable >= TPSC && plan.Variable <= NPSC;
    for (const auto& [compartment, within] : plan.Slice) {
        const auto i = static_cast<std::size_t>(compartment);
        const double weight = by_soil ? Core->Density[i] : plan.Variable == SPSC ? moment.Theta[i] : 1;
        sum += State(plan, compartment, moment) * weight * within;
        length += within;
        soil += Core->Density[i] * within;
        water += moment.Theta[i] * within;
    }
    const double by = by_soil ? soil : plan.Variable == SPSC ? water : length;
    return by > 0 ? sum / by : 0;
}

} // namespace orvel::engine
