#include "output/soil_averages.h"

#include "core/numbers.h"
#include "core/session.h"
#include "core/text.h"
#include "output/quick_val.h"

#include <cstdint>

namespace orvel {

namespace {

constexpr int Last_Warm_Up_Day = First_Evaluated_Day - 1;
constexpr int Days_A_Year = 365;
constexpr int Years_To_Leap = 4;

// To the line that closes the warm-up; false where the file has none.
bool Pass_Warm_Up(Line_Scanner& plot)
{
    while (plot.Next()) {
        const auto moment = Moment_Of(plot.Line());
        if (moment.Hour == Closing_Hour && moment.Day == Last_Warm_Up_Day)
            return true;
    }
    return false;
}

// The sum of the first `layers` values of a profile whose first stands at the 0-based place `first`.
double Sum_Of_Layers(std::string_view line, std::size_t first, int layers)
{
    double sum = 0;
    for (int j = 0; j < layers && first < line.size(); ++j, first += Plot_Value_Width)
        sum += Quick_Val(line.substr(first, Plot_Value_Width));
    return sum;
}

int Substances_Of(const Plot_Head& head)
{
    const int substances = head.N_Profile / Profile_Layers;
    if (substances > Substances || head.N_Profile > head.N_Columns)
        throw File_Error("plot.orv tells of " + std::to_string(head.N_Profile) + " profile columns: at most " +
                         std::to_string(Substances * Profile_Layers) +
                         " can be evaluated, and no more than there are columns.");
    return substances;
}

} // namespace

void Soil_Averages::Add(double mean, bool closes_day)
{
    const int day = First_Evaluated_Day + Days();
    if (mean > Actual.Value)
        Actual = {mean, day};
    if (!closes_day)
        return;
    if (day > Last_Evaluated_Day)
        throw File_Error("A simulation of more than " + std::to_string(Last_Evaluated_Day) +
                         " days cannot be evaluated.");
    Sums.push_back(Sums.back() + mean);
}

std::array<TWA_Maximum, TWA_Window.size()> Soil_Averages::Maxima() const
{
    std::array<TWA_Maximum, TWA_Window.size()> maxima;
    maxima[0] = Actual;
    const int next = First_Evaluated_Day + Days();
    for (std::size_t w = 1; w < TWA_Window.size(); ++w) {
        for (int d = 0; d <= next - TWA_Window[w]; ++d) {
            const double average = (Sum_To(d + TWA_Window[w]) - Sum_To(d)) / TWA_Window[w];
            if (average > maxima[w].Value)
                maxima[w] = {average, d};
        }
    }
    return maxima;
}

std::vector<Soil_Averages> Scan_Soil_Profile(Line_Scanner& plot, const Plot_Head& head, int depth,
                                             const std::function<void(int)>& year)
{
    std::vector<Soil_Averages> averages(static_cast<std::size_t>(Substances_Of(head)));
    const auto profile =
        Plot_Series_First - 1 + Plot_Value_Width * static_cast<std::size_t>(head.N_Columns - head.N_Profile);
    const int layers = std::min(depth, Profile_Layers);
    if (averages.empty() || !Pass_Warm_Up(plot))
        return averages;
    for (int days = 0; plot.Next();) {
        const auto line = plot.Line();
        const bool closes_day = Moment_Of(line).Hour == Closing_Hour;
        auto first = profile;
        for (auto& substance : averages) {
            substance.Add(Sum_Of_Layers(line, first, layers) / depth, closes_day);
            first += Plot_Value_Width * Profile_Layers;
        }
        if (closes_day && ++days % Days_A_Year == 0)
            year(days);
    }
    return averages;
}

std::string Simulation_Date(int day)
{
    std::array<int, 13> month_days = {0, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    int year = 1;
    int year_start = 0;
    const auto next_start = [&] { return year_start + Days_A_Year + (year % Years_To_Leap == 0 ? 1 : 0); };
    while (year < Most_Years && next_start() <= day) {
        year_start = next_start();
        ++year;
    }
    if (year % Years_To_Leap == 0)
        month_days[2] = 29;
    int left = day - year_start;
    std::size_t month = 1;
    while (month < 12 && left > month_days[month])
        left -= month_days[month++];
    return General_Text(left) + " " + std::string(Month_Name[month]) + " " + General_Text(year);
}

} // namespace orvel
