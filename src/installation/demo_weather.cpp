#include "installation/demo_weather.h"

#include "core/text.h"
#include "files/climate_file.h"
#include "installation/weather_random.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>

namespace orvel {

namespace {

constexpr std::array<int, 12> Month_Days = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
constexpr std::array<double, 12> Temp_Deviation = {3.6, 3.5, 3.2, 2.8, 2.8, 2.6, 2.3, 2.3, 2.4, 2.8, 3.2, 3.6}; // degC
constexpr int Year_Days = 365;
constexpr double Persistence = 0.72; // day-to-day autocorrelation of the temperature's deviation
constexpr double Largest_Rain = 150; // mm/d
constexpr double Two_Pi = 2 * std::numbers::pi;

// The probabilities and amounts of rain in a month.
struct Rain_Month {
    double Wet_After_Dry = 0, Wet_After_Wet = 0;
    double Shape = 0, Scale = 0; // of the gamma distribution; mm
};

Rain_Month Rain_Of_Month(double rain, int days, double wet_day_rain)
{
    const double wet_share = std::clamp(rain / days / wet_day_rain, 0.02, 0.8);
    const double amount = rain / days / wet_share;
    const double after_dry = 0.75 * wet_share;
    const double scale = std::max(1.83 * amount - 2.16, 0.35 * amount);
    return {after_dry, 0.25 + after_dry, amount / scale, scale};
}

// A month's value at day J of the year, linear between the middles of the months.
double Between_Months(const std::array<double, 12>& values, int j)
{
    double start = 0;
    for (std::size_t m = 0; m < 12; ++m) {
        const double middle = start + Month_Days[m] / 2.0;
        const std::size_t before = (m + 11) % 12;
        const double gap = (Month_Days[before] + Month_Days[m]) / 2.0;
        if (j < middle)
            return values[m] + (values[before] - values[m]) * (middle - j) / gap;
        start += Month_Days[m];
    }
    const double gap = (Month_Days[11] + Month_Days[0]) / 2.0;
    return values[11] + (values[0] - values[11]) * (j - (Year_Days - Month_Days[11] / 2.0)) / gap;
}

// Extraterrestrial radiation in MJ/m2 (FAO Irrigation and Drainage Paper 56, equation 21).
double Extraterrestrial_Radiation(double latitude, int j)
{
    constexpr double solar_constant = 0.0820; // MJ/(m2 min)
    const double phi = latitude * std::numbers::pi / 180;
    const double declination = 0.409 * std::sin(Two_Pi * j / Year_Days - 1.39);
    const double distance = 1 + 0.033 * std::cos(Two_Pi * j / Year_Days);
    const double sunset = std::acos(std::clamp(-std::tan(phi) * std::tan(declination), -1.0, 1.0));
    return 24 * 60 / std::numbers::pi * solar_constant * distance *
           (sunset * std::sin(phi) * std::sin(declination) + std::cos(phi) * std::cos(declination) * std::sin(sunset));
}

// Saturation vapour pressure in hPa (Murray 1967, J. Appl. Meteorol. 6:203).
double Saturation_Pressure(double temp)
{
    return 6.108 * std::exp(17.27 * temp / (temp + 237.3));
}

// Draws a site's days in order; changing the order of the draws would change the data.
class Generator {
public:
    Generator(const Demo_Site& site, const Monthly_Climate& climate) : Random(site.Code), Site(site), Climate(climate)
    {
        const double sum = std::accumulate(climate.Rain.begin(), climate.Rain.end(), 0.0);
        for (std::size_t m = 0; m < 12; ++m) {
            const double rain = site.Is_Zone() ? climate.Rain[m] * site.Rain / sum : climate.Rain[m];
            Rain[m] = Rain_Of_Month(rain, Month_Days[m], climate.Wet_Day_Rain);
            Shift -= climate.Temp[m] * Month_Days[m] / Year_Days;
        }
        Shift += site.Mean_Temp;
    }

    Weather_Day Draw(int day, int month, int year, int j)
    {
        Weather_Day weather{.Day = day, .Month = month, .Year = year};
        weather.Rain = Draw_Rain(Rain[static_cast<std::size_t>(month - 1)]);
        Deviation = Persistence * Deviation + std::sqrt(1 - Persistence * Persistence) * Random.Normal();
        weather.Temp_Mean = Between_Months(Climate.Temp, j) + Shift + Between_Months(Temp_Deviation, j) * Deviation;
        const double season = (1 - std::cos(Two_Pi * (j - 15) / Year_Days)) / 2;
        const double range = Climate.January_Range + (Climate.July_Range - Climate.January_Range) * season;
        weather.Temp_Diff = std::max(1.0, range * (Wet ? 0.8 : 1.1) * (1 + 0.2 * Random.Normal()));
        Derive(weather, Extraterrestrial_Radiation(Site.Latitude, j));
        return weather;
    }

private:
    double Draw_Rain(const Rain_Month& month)
    {
        Wet = Random.Uniform() < (Wet ? month.Wet_After_Wet : month.Wet_After_Dry);
        return Wet ? std::min(month.Scale * Random.Gamma(month.Shape), Largest_Rain) : 0;
    }

    void Derive(Weather_Day& weather, double radiation) const
    {
        const double root = std::sqrt(weather.Temp_Diff);
        weather.Radiation = std::min(0.75, 0.16 * root) * radiation;
        weather.Evaporation = std::max(0.0, 0.0023 * 0.408 * radiation * (weather.Temp_Mean + 17.8) * root);
        weather.Temp_14 = weather.Temp_Mean + 0.42 * weather.Temp_Diff;
        const double dew = weather.Temp_Mean - weather.Temp_Diff / 2 - (Wet ? 0 : 0.06 * weather.Temp_Diff);
        weather.Humidity =
            std::clamp(100 * Saturation_Pressure(dew) / Saturation_Pressure(weather.Temp_14), 20.0, 100.0);
    }

    Weather_Random Random;
    const Demo_Site& Site;
    const Monthly_Climate& Climate;
    std::array<Rain_Month, 12> Rain;
    double Shift = 0, Deviation = 0;
    bool Wet = false;
};

std::string Two_Digits(int number)
{
    return Format_Pattern(number, "00");
}

std::string Format_Day(const Weather_Day& day)
{
    std::string line = " " + Two_Digits(day.Day) + Two_Digits(day.Month) + Two_Digits(day.Year);
    const Climate_Row row{.Cli_Rain = day.Rain / 10,
                          .Cli_Evap = day.Evaporation / 10,
                          .Cli_Temp_14 = day.Temp_14,
                          .Cli_Temp_Mean = day.Temp_Mean,
                          .Cli_Temp_Diff = day.Temp_Diff,
                          .Cli_Rel_Hum = day.Humidity,
                          .Cli_Radiation = 1000 * day.Radiation};
    constexpr std::array<std::string_view, Climate_Columns.size()> patterns = {"0.000", "0.000", "0.0", "0.0",
                                                                               "0.0",   "0.0",   "0"};
    for (std::size_t i = 0; i < patterns.size(); ++i) {
        line.resize(Climate_Columns[i].First - 1, ' ');
        line += Format_Pattern(Number_Of(row, Climate_Columns[i]), patterns[i]);
    }
    line.resize(Climate_Columns.back().First - 1 + Climate_Number_Width, ' ');
    return line.append(CrLf);
}

} // namespace

int Days_In_Month(int month, int year)
{
    return Month_Days.at(static_cast<std::size_t>(month - 1)) + (month == 2 && year % 4 == 0 ? 1 : 0);
}

std::vector<Weather_Day> Demo_Weather(const Demo_Site& site, const Monthly_Climate& climate, int years)
{
    Generator generator(site, climate);
    std::vector<Weather_Day> days;
    for (int year = 1; year <= years; ++year) {
        int day_of_year = 0;
        for (int month = 1; month <= 12; ++month) {
            for (int day = 1; day <= Days_In_Month(month, year); ++day)
                days.push_back(generator.Draw(day, month, year, std::min(++day_of_year, Year_Days)));
        }
    }
    return days;
}

std::vector<std::string> Format_Weather(const Demo_Site& site, const std::vector<Weather_Day>& days)
{
    std::vector<std::string> files;
    for (const auto& day : days) {
        if (static_cast<std::size_t>(day.Year) > files.size())
            files.push_back("DEM " + site.Name + " year " + General_Text(day.Year) + ", generated weather, " +
                            std::string(Title_Warning) + "\r\n");
        files.back() += Format_Day(day);
    }
    return files;
}

std::string Format_Calendar(int years)
{
    std::string text;
    int number = 0;
    for (int year = 1; year <= years; ++year) {
        for (int month = 1; month <= 12; ++month) {
            for (int day = 1; day <= Days_In_Month(month, year); ++day)
                text += General_Text(++number) + " " + General_Text(day) + " " + General_Text(month) + " " +
                        General_Text(year) + "\r\n";
        }
    }
    return text;
}

} // namespace orvel
