#include "output/balance_rows.h"

#include "core/numbers.h"
#include "core/text.h"
#include "output/quick_val.h"
#include "output/yearly_values.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace orvel {

namespace {

constexpr double To_Litres = 10;  // cm to L/m2
constexpr double To_Grams = 1000; // kg/ha to g/ha

constexpr Anchor Month_Anchor("MONTHLY");

constexpr Anchor Rain_Anchor("PRECIPITATION");
constexpr Anchor Snow_Anchor("SNOWPACK");
constexpr Anchor Runoff_Anchor("RUNOFF");
constexpr Anchor Water_Table_Anchor("TRANSPIRATION");
constexpr Anchor Water_Table_End("SUMMARY FLUXES");
constexpr Anchor Recharge_Anchor("RECHARGE BELOW CORE");

constexpr Anchor Chem_Table_Anchor("RIZON PARTMENT");
constexpr Anchor Chem_Table_End("* DECAY FOR COMPARTMENT 1");
constexpr Anchor Uptake_Anchor("TOTAL PLANT UPTAKE OF");
constexpr Anchor Decay_Anchor("TOTAL DECAY OF ");
constexpr Anchor Volatilization_Anchor("TOTAL VOLATILIZATION");
constexpr Anchor Macropore_Anchor("MACROPORE");
constexpr Anchor Total_Runoff_Anchor("TOTAL RUNOFF");
constexpr Anchor Leached_Anchor("LEACHED BELOW CORE");

struct Balance_Columns {
    std::size_t First, Width;
};
constexpr Balance_Columns Rain_Span = {43, 9};
constexpr Balance_Columns Irrigation_Span = {61, 9};
constexpr Balance_Columns Loss_Span = {79, 9};
constexpr Balance_Columns Snow_Span = {40, 15};
constexpr Balance_Columns Runoff_Span = {60, 10};
constexpr Balance_Columns Transpiration_Span = {58, 16};
constexpr Balance_Columns Recharge_Span = {40, 10};
constexpr Balance_Columns Application_Span = {19, 12};
constexpr Balance_Columns Total_Span = {40, 12};

constexpr int Value_Below = 2;      // lines from an anchor to its values
constexpr int Water_Rows_Below = 3; // lines from the anchor to the first row
constexpr int Chem_Rows_Below = 2;

const Anchor& Block_Anchor(Balance_View view)
{
    return view == Balance_View::Annual ? Annual_Anchor : Month_Anchor;
}

// The sum of decimal figures as a decimal figure: what their binary forms add behind the last digit would turn a half
// to the wrong side when it is printed.
double Decimal_Sum(std::initializer_list<double> figures)
{
    constexpr int digits = 12;
    double sum = 0, largest = 0;
    for (const double figure : figures) {
        sum += figure;
        largest = std::max(largest, std::fabs(figure));
    }
    if (!(largest > 0) || !std::isfinite(sum))
        return sum;
    const double scale = Power_Of_Ten(digits - std::floor(std::log10(largest)));
    return std::isfinite(sum * scale) ? std::round(sum * scale) / scale : sum;
}

double Number(const Line_Scanner& file, Balance_Columns span)
{
    return Quick_Val(Columns(file.Line(), span.First, span.Width));
}

// The value on the line of an anchor, 0 where the file ends before.
double Value_At(Line_Scanner& file, const Anchor& anchor, Balance_Columns span)
{
    return file.Find(anchor) ? Number(file, span) : 0;
}

// The sum of a table's column: it begins `below` lines further down and ends before the line with `end`.
double Sum_Of_Rows(Line_Scanner& file, int below, const Anchor& end, Balance_Columns span)
{
    double sum = 0;
    if (!file.Skip(below - 1))
        return sum;
    while (file.Next() && !end.In(file.Line()))
        sum += Number(file, span);
    return sum;
}

// To the next line that holds either text.
bool Find_Either(Line_Scanner& file, const Anchor& one, const Anchor& other)
{
    while (file.Next()) {
        if (one.In(file.Line()) || other.In(file.Line()))
            return true;
    }
    return false;
}

double Value_Below_Line(Line_Scanner& file, Balance_Columns span)
{
    return file.Skip(Value_Below) ? Number(file, span) : 0;
}

// The line at hand is that of the precipitation.
Water_Balance_Row Water_Block(Line_Scanner& wasser)
{
    Water_Balance_Row row;
    double loss = 0;
    if (wasser.Skip(Value_Below)) {
        row.Precipitation = Number(wasser, Rain_Span) * To_Litres;
        row.Irrigation = Number(wasser, Irrigation_Span) * To_Litres;
        loss = Number(wasser, Loss_Span) * To_Litres;
    }
    bool runoff = Find_Either(wasser, Runoff_Anchor, Snow_Anchor);
    if (runoff && !Runoff_Anchor.In(wasser.Line())) {
        row.Precipitation += Value_Below_Line(wasser, Snow_Span) * To_Litres;
        runoff = wasser.Find(Runoff_Anchor);
    }
    if (runoff)
        row.Runoff = Value_Below_Line(wasser, Runoff_Span) * To_Litres;
    const double transpiration =
        wasser.Find(Water_Table_Anchor)
            ? Sum_Of_Rows(wasser, Water_Rows_Below, Water_Table_End, Transpiration_Span) * To_Litres
            : 0;
    row.Evapotranspiration = Decimal_Sum({transpiration, loss});
    row.Percolate = Value_At(wasser, Recharge_Anchor, Recharge_Span) * To_Litres;
    row.Diff_Storage =
        Decimal_Sum({row.Precipitation, row.Irrigation, -loss, -transpiration, -row.Percolate, -row.Runoff});
    return row;
}

// The line at hand is the block's title.
Pesticide_Balance_Row Pesticide_Block(Line_Scanner& chem, bool active_substance)
{
    Pesticide_Balance_Row row;
    if (chem.Find(Chem_Table_Anchor))
        row.Application = Sum_Of_Rows(chem, Chem_Rows_Below, Chem_Table_End, Application_Span) * To_Grams;
    row.Plant_Uptake = Value_At(chem, Uptake_Anchor, Total_Span) * To_Grams;
    row.Degradation = Value_At(chem, Decay_Anchor, Total_Span) * To_Grams;
    if (active_substance)
        row.Volatilisation = Value_At(chem, Volatilization_Anchor, Total_Span) * To_Grams;
    // A macropore line in front of the runoff line leaves the runoff at 0.
    if (Find_Either(chem, Macropore_Anchor, Total_Runoff_Anchor) && !Macropore_Anchor.In(chem.Line()))
        row.Runoff = Number(chem, Total_Span) * To_Grams;
    row.Percolate = Value_At(chem, Leached_Anchor, Total_Span) * To_Grams;
    row.Diff_Storage = Decimal_Sum(
        {row.Application, -row.Volatilisation, -row.Plant_Uptake, -row.Percolate, -row.Runoff, -row.Degradation});
    return row;
}

} // namespace

void Scan_Water_Balance(Line_Scanner& wasser, Balance_View view,
                        const std::function<void(const Water_Balance_Row&)>& row)
{
    while (wasser.Find(Block_Anchor(view)) && wasser.Find(Rain_Anchor) && !wasser.At_End())
        row(Water_Block(wasser));
}

void Scan_Pesticide_Balance(Line_Scanner& chem, Balance_View view, bool active_substance,
                            const std::function<void(const Pesticide_Balance_Row&)>& row)
{
    while (chem.Find(Block_Anchor(view)) && !chem.At_End())
        row(Pesticide_Block(chem, active_substance));
}

} // namespace orvel
