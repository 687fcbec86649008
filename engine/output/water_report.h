#pragma once

#include "engine/output/figures.h"
#include "engine/water/water.h"

#include <string>
#include <vector>

namespace orvel::engine {

// How often blocks are written. The annual block is always written.
enum class Frequency { Year, Month, Day };

// The span that a block covers.
enum class Span { Day, Month, Year };

constexpr bool Is_Due(Frequency frequency, Span span)
{
    return span == Span::Year || (span == Span::Month && frequency != Frequency::Year) || frequency == Frequency::Day;
}

// Appends "*** ANNUAL <what> ***" with the date and line end, in the columns that readers expect.
void Put_Block_Title(std::string& text, Span span, std::string_view what, const Date& date);

// Compartments First to Last (0-based) that share a row: groups end at multiples of `step`, at 1 m and at the bottom.
struct Row_Group {
    int First = 0, Last = 0;
    bool operator==(const Row_Group&) const = default;
};
std::vector<Row_Group> Row_Groups(int compartments, int top_layers, int step);

// Water amounts of a span, cm.
struct Water_Sums {
    double Rain = 0, Snowfall = 0, Melt = 0, Irrigation = 0, Canopy_Loss = 0, Runoff = 0, Soil_Loss = 0, Bypass = 0;
    int Days = 0;
    std::vector<double> Evapotranspiration, Temperature; // by compartment; Temperature is summed over the days
    std::vector<double> Percolate;                       // by interface
    std::vector<double> Theta_Start;
    double Storage_Start = 0, Snow_Start = 0;

    void Begin(const Water_Column& water);
    void Add(const Water_Day& day, const std::vector<double>& temperature);
    void Add(const Water_Sums& later);
    double Closure(const Water_Column& water) const; // supply - losses - change of storage, cm
};

// The water balance file, Wasser.orv.
class Water_Report {
public:
    Water_Report(const std::filesystem::path& file, const Grid& grid, int step);
    void Put_Block(Span span, const Date& date, const Water_Sums& sums, const Water_Column& water);
    void Flush() { File.Flush(); }
    void Close();

private:
    void Put_Surface(const Water_Sums& sums, const Water_Column& water);
    void Put_Compartments(const Water_Sums& sums, const Water_Column& water);

    const Grid* Core;
    std::vector<Row_Group> Groups;
    Out_File File;
};

// The closing line of a report: a reader needs text after the last block.
constexpr std::string_view End_Of_Output = "\r\n *** END OF OUTPUT ***\r\n";

} // namespace orvel::engine
