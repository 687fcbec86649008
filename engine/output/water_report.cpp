#include "engine/output/water_report.h"

#include "core/text.h"
#include "engine/output/titles.h"

#include <algorithm>

namespace orvel::engine {

namespace {

void Accumulate(std::vector<double>& sum, const std::vector<double>& more)
{
    for (std::size_t i = 0; i < sum.size(); ++i)
        sum[i] += more[i];
}

// The line of values below a heading: three columns of `%9.4f` at 43, 61 and 79.
void Put_Three(std::string& text, double one, double two, double three)
{
    const std::size_t start = text.size();
    text += " SUM OF THE PERIOD";
    int column = 43;
    for (const double value : {one, two, three}) {
        To_Column(text, start, column);
        Put_Fixed(text, value, 9, 4);
        column += 18;
    }
    text += CrLf;
}

void Put_Water_Total(std::string& text, std::string_view label, double value)
{
    Put_Left(text, label, 39);
    Put_Fixed(text, value, 10, 5);
    text += CrLf;
}

} // namespace

void Put_Block_Title(std::string& text, Span span, std::string_view what, const Date& date)
{
    text += span == Span::Year ? " *** ANNUAL " : span == Span::Month ? " *** MONTHLY " : " *** DAILY ";
    text += what;
    text += "YEAR";
    Put_Integer(text, date.Year, 4);
    if (span != Span::Year) {
        text += " MONTH";
        Put_Integer(text, date.Month, 3);
    }
    if (span == Span::Day) {
        text += " DAY";
        Put_Integer(text, date.Day, 3);
    }
    text += CrLf;
}

std::vector<Row_Group> Row_Groups(int compartments, int top_layers, int step)
{
    std::vector<Row_Group> groups;
    int first = 0;
    for (int number = 1; number <= compartments; ++number) {
        if (number % std::max(step, 1) == 0 || number == top_layers || number == compartments) {
            groups.push_back({first, number - 1});
            first = number;
        }
    }
    return groups;
}

void Water_Sums::Begin(const Water_Column& water)
{
    const std::size_t n = water.Theta().size();
    Rain = Snowfall = Melt = Irrigation = Canopy_Loss = Runoff = Soil_Loss = Bypass = 0;
    Days = 0;
    Evapotranspiration.assign(n, 0.0);
    Temperature.assign(n, 0.0);
    Percolate.assign(n + 1, 0.0);
    Theta_Start = water.Theta();
    Storage_Start = water.Storage();
    Snow_Start = water.Snow();
}

void Water_Sums::Add(const Water_Day& day, const std::vector<double>& temperature)
{
    Rain += day.Rain;
    Snowfall += day.Snowfall;
    Melt += day.Melt;
    Irrigation += day.Irrigation;
    Canopy_Loss += day.Canopy_Loss;
    Runoff += day.Runoff;
    Soil_Loss += day.Soil_Loss;
    Bypass += day.Bypass;
    ++Days;
    for (std::size_t i = 0; i < Evapotranspiration.size(); ++i) {
        Evapotranspiration[i] += day.Evaporation[i] + day.Transpiration[i];
        Temperature[i] += temperature[i];
    }
    Accumulate(Percolate, day.Flux);
    for (int i = 0; i <= day.Bypass_Outlet; ++i)
        Percolate[static_cast<std::size_t>(i)] += day.Bypass;
    if (day.Bypass_Outlet >= 0)
        Percolate[static_cast<std::size_t>(day.Bypass_Outlet + 1)] += day.Bypass_Below;
}

void Water_Sums::Add(const Water_Sums& later)
{
    Rain += later.Rain;
    Snowfall += later.Snowfall;
    Melt += later.Melt;
    Irrigation += later.Irrigation;
    Canopy_Loss += later.Canopy_Loss;
    Runoff += later.Runoff;
    Soil_Loss += later.Soil_Loss;
    Bypass += later.Bypass;
    Days += later.Days;
    Accumulate(Evapotranspiration, later.Evapotranspiration);
    Accumulate(Temperature, later.Temperature);
    Accumulate(Percolate, later.Percolate);
}

double Water_Sums::Closure(const Water_Column& water) const
{
    double losses = Canopy_Loss + Runoff + Percolate.back();
    for (const double value : Evapotranspiration)
        losses += value;
    return Rain + Snowfall + Irrigation - losses - (water.Storage() - Storage_Start);
}

Water_Report::Water_Report(const std::filesystem::path& file, const Grid& grid, int step)
    : Core(&grid),
      Groups(Row_Groups(grid.Count(), grid.Top_Layers, step)),
      File(file)
{
    File.Buffer += " " + File_Title("WATER BALANCE") + "\r\n ALL AMOUNTS IN CM UNLESS OTHERWISE STATED\r\n\r\n";
}

void Water_Report::Put_Surface(const Water_Sums& sums, const Water_Column& water)
{
    std::string& text = File.Buffer;
    text += " WATER SUPPLY                         PRECIPITATION       IRRIGATION       CANOPY LOSS\r\n"
            "                                              (CM)              (CM)              (CM)\r\n";
    Put_Three(text, sums.Rain, sums.Irrigation, sums.Canopy_Loss);
    text += "\r\n SNOW                                       SNOWPACK          SNOWFALL        STORED SNOW\r\n"
            "                                         MELT WATER (CM)        (CM)              (CM)\r\n";
    Put_Three(text, sums.Melt, sums.Snowfall, water.Snow());
    text += "\r\n SURFACE                                                     RUNOFF             SOIL LOSS\r\n"
            "                                                               (CM)               (T)\r\n";
    const std::size_t start = text.size();
    text += " SUM OF THE PERIOD";
    To_Column(text, start, 60);
    Put_Fixed(text, sums.Runoff, 9, 4);
    To_Column(text, start, 79);
    Put_Fixed(text, sums.Soil_Loss, 9, 4);
    text += CrLf;
}

void Water_Report::Put_Compartments(const Water_Sums& sums, const Water_Column& water)
{
    std::string& text = File.Buffer;
    text +=
        "\r\n HORIZON   COMPARTMENT TO    INITIAL    FINAL    WATER     TRANSPIRATION    PERCOLATE    SOIL TEMP.\r\n"
        "                     BOTTOM  STORAGE   STORAGE CONTENT    + EVAPORATION        BELOW      (MEAN)\r\n"
        "                     (CM)      (CM)      (CM)     (-)               (CM)        (CM)       (C)\r\n\r\n";
    for (const Row_Group& group : Groups) {
        double initial = 0, final_storage = 0, taken = 0, heat = 0, length = 0;
        for (int k = group.First; k <= group.Last; ++k) {
            const auto i = static_cast<std::size_t>(k);
            const double dz = Core->Thickness[i];
            initial += sums.Theta_Start[i] * dz;
            final_storage += water.Theta()[i] * dz;
            taken += sums.Evapotranspiration[i];
            heat += sums.Temperature[i] * dz;
            length += dz;
        }
        const auto last = static_cast<std::size_t>(group.Last);
        const std::size_t start = text.size();
        Put_Integer(text, Core->Horizon[last], 5);
        To_Column(text, start, 13);
        Put_Integer(text, group.Last + 1, 3);
        To_Column(text, start, 18);
        Put_Fixed(text, Core->Bottom[last], 8, 2);
        To_Column(text, start, 27);
        Put_Fixed(text, initial, 9, 4);
        To_Column(text, start, 37);
        Put_Fixed(text, final_storage, 9, 4);
        To_Column(text, start, 47);
        Put_Fixed(text, final_storage / length, 8, 4);
        To_Column(text, start, 61);
        Put_Fixed(text, taken, 12, 5);
        To_Column(text, start, 74);
        Put_Fixed(text, sums.Percolate[last + 1], 12, 5);
        To_Column(text, start, 89);
        Put_Fixed(text, sums.Days > 0 ? heat / length / sums.Days : 0, 8, 2);
        text += CrLf;
    }
}

void Water_Report::Put_Block(Span span, const Date& date, const Water_Sums& sums, const Water_Column& water)
{
    std::string& text = File.Buffer;
    Put_Block_Title(text, span, "WATER BALANCE ***     ", date);
    text += CrLf;
    Put_Surface(sums, water);
    Put_Compartments(sums, water);
    text += "\r\n SUMMARY FLUXES\r\n";
    Put_Water_Total(text, " RECHARGE BELOW CORE (CM)", sums.Percolate.back());
    Put_Water_Total(text, " BYPASS IN LARGE PORES (CM)", sums.Bypass);
    Put_Water_Total(text, " WATER ON THE SURFACE (CM)", water.Pond());
    Put_Water_Total(text, " CHANGE OF STORAGE (CM)",
                    water.Storage() - water.Snow() - (sums.Storage_Start - sums.Snow_Start));
    Put_Left(text, " BALANCE CHECK (CM)", 39);
    Put_Exponent(text, sums.Closure(water), 10, 2);
    text += "\r\n\r\n";
    File.Flush_When_Full();
}

void Water_Report::Close()
{
    File.Buffer += End_Of_Output;
    File.Close();
}

} // namespace orvel::engine
