#pragma once

#include "engine/output/figures.h"
#include "engine/water/water.h"

#include <string>
#include <vector>

namespace orvel::engine {

// How often a kind of block is written. A year's block is always written.
enum class Frequency { Year, Month, Day };

// The spans that a block can stand for.
enum class Span { Day, Month, Year };

// Whether a block of a span is due.
constexpr bool Is_Due(Frequency frequency, Span span)
{
    return span == Span::Year || (span == Span::Month && frequency != Frequency::Year) || frequency == Frequency::Day;
}

// "*** ANNUAL <what> ***" with its date and the line's end, the words in the columns that readers look for.
void Put_Block_Title(std::string& text, Span span, std::string_view what, const Date& date);

// Compartments first to last (0-based) that share a row: groups end at multiples of `step`, at 1 m and at the bottom.
struct Row_Group {
    int First = 0, Last = 0;
    bool operator==(const Row_Group&) const = default;
};
std::vector<Row_Group> Row_Groups(int compartments, int top_layers, int step);

// Water amounts of a span.
struct Water_Sums {
    double Rain = 0, Snowfall = 0, Melt = 0, Irrigation = 0, Canopy_Loss = 0, Runoff = 0, Soil_Loss = 0, Bypass = 0;
    int Days = 0;
    std::vector<double> Evapotranspiration, Temperature; // by compartment; the temperature is a sum of days
    std::vector<double> Percolate;                       // by interface
    std::vector<double> Theta_Start;
    double Storage_Start = 0, Snow_Start = 0;

    void Begin(const Water_Column& water);
    void Add(const Water_Day& day, const std::vector<double>& temperature);
    void Add(const Water_Sums& later);
    double Closure(const Water_Column& water) const; // supply - losses - change of storage, cm
};

// Wasser.orv.
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

// The last line of a report: something must follow the last block.
constexpr std::string_view End_Of_Output = "\r\n *** END OF OUTPUT ***\r\n";

} // namespace orvel::engine
