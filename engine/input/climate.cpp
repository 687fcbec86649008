#include "engine/input/climate.h"

#include "core/error.h"
#include "core/numbers.h"
#include "core/text.h"
#include "engine/math/steady_angles.h"
#include "engine/math/steady_math.h"
#include "files/climate_file.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

namespace orvel::engine {

namespace {

constexpr double Missing_Humidity = 70;
constexpr double Temperature_14_Share = 0.42; // of the daily difference above the mean
constexpr double Midday = 14;

// A row of the file; blank fields are empty.
struct Row {
    int Month = 0, Day = 0, Year = 0;
    double Hour = 0;
    int Line = 0;
    double Rain = 0, Temperature = 0;
    std::optional<double> Evaporation, Temperature_14, Difference, Humidity, Radiation;
};

struct Reader {
    std::string Name;
    Findings& The_Findings;

    void Error(Fault fault, int line, const std::string& text)
    {
        The_Findings.Error(fault, text + " IN LINE " + std::to_string(line) + " OF " + Name);
    }

    void Check(const Row& row)
    {
        const auto within = [](double value, double low, double high) { return value >= low && value <= high; };
        if (!within(row.Temperature, -60, 60) || (row.Temperature_14 && !within(*row.Temperature_14, -60, 60)))
            Error(Fault::Climate_Value, row.Line, "TEMPERATURE NOT WITHIN -60 TO 60 DEGREES");
        if (!within(row.Rain, 0, 100))
            Error(Fault::Climate_Value, row.Line, "RAIN NOT WITHIN 0 TO 100 CM");
        if (row.Humidity && !within(*row.Humidity, 0, 100))
            Error(Fault::Climate_Value, row.Line, "HUMIDITY NOT WITHIN 0 TO 100 %");
        if (row.Evaporation && !(*row.Evaporation <= 100))
            Error(Fault::Climate_Value, row.Line, "EVAPORATION ABOVE 100 CM");
        if (row.Difference && !within(*row.Difference, -1e-9, 80))
            Error(Fault::Climate_Value, row.Line, "DAILY TEMPERATURE DIFFERENCE NOT WITHIN 0 TO 80 DEGREES");
        if (row.Radiation && !within(*row.Radiation, 0, 100000))
            Error(Fault::Climate_Value, row.Line, "RADIATION NOT WITHIN 0 TO 100000 KJ/M2");
    }
};

std::vector<Row> Read_Rows(const Climate_Table& table, Reader& reader)
{
    std::vector<Row> rows;
    rows.reserve(table.Rows.size());
    int number = 1; // line number of the title
    for (const Climate_Row& from : table.Rows) {
        ++number;
        if (Is_Left_Out(from))
            continue;
        Row row;
        row.Line = number;
        row.Day = static_cast<int>(Val(from.Cli_Day));
        row.Month = static_cast<int>(Val(from.Cli_Month));
        row.Year = static_cast<int>(Val(from.Cli_Year));
        const bool date = Is_Digits(from.Cli_Day) && Is_Digits(from.Cli_Month) && row.Month >= 1 && row.Month <= 12 &&
                          row.Day <= Days_Of_Month(row.Month) + (row.Month == 2 ? 1 : 0);
        if (!date || !from.Cli_Temp_Mean || !from.Cli_Rain) {
            reader.Error(Fault::Climate_Unreadable, number, date ? "RAIN OR TEMPERATURE MISSING" : "NO DATE");
            continue;
        }
        row.Hour = Val(from.Cli_Hour);
        row.Rain = *from.Cli_Rain;
        row.Temperature = *from.Cli_Temp_Mean;
        row.Evaporation = from.Cli_Evap;
        row.Temperature_14 = from.Cli_Temp_14;
        row.Difference = from.Cli_Temp_Diff;
        row.Humidity = from.Cli_Rel_Hum;
        row.Radiation = from.Cli_Radiation;
        reader.Check(row);
        rows.push_back(row);
    }
    return rows;
}

template <class Get>
std::optional<double> Sum_Of(const std::vector<Row>& rows, std::size_t first, std::size_t last, Get get)
{
    std::optional<double> sum;
    for (std::size_t i = first; i < last; ++i) {
        if (const auto value = get(rows[i]))
            sum = sum.value_or(0) + *value;
    }
    return sum;
}

// Merges rows [first, last), which all have the same date.
Climate_Day Merge(const std::vector<Row>& rows, std::size_t first, std::size_t last, double latitude)
{
    const auto count = static_cast<double>(last - first);
    const Row* midday = &rows[first];
    Climate_Day day;
    day.Month = midday->Month;
    day.Day = midday->Day;
    for (std::size_t i = first; i < last; ++i) {
        day.Rain += rows[i].Rain;
        day.Temperature += rows[i].Temperature / count;
        if (std::fabs(rows[i].Hour - Midday) < std::fabs(midday->Hour - Midday))
            midday = &rows[i];
    }
    const auto difference = Sum_Of(rows, first, last, [](const Row& r) { return r.Difference; });
    day.Evaporation = Sum_Of(rows, first, last, [](const Row& r) { return r.Evaporation; }).value_or(-1);
    day.Difference = std::max(0.0, difference.value_or(0) / count);
    day.Temperature_14 = midday->Temperature_14.value_or(day.Temperature + Temperature_14_Share * day.Difference);
    day.Humidity = midday->Humidity.value_or(Missing_Humidity);
    day.Radiation = Sum_Of(rows, first, last, [](const Row& r) { return r.Radiation; }).value_or(0);
    if (day.Radiation <= 0) {
        // Missing radiation, Hargreaves & Samani 1982, J. Irrig. Drain. 108:225.
        const int day_of_year =
            Calendar(std::vector<bool>{day.Month == 2 && day.Day == 29}).Number({1, day.Month, day.Day});
        day.Radiation = 0.16 * std::sqrt(day.Difference) * Extraterrestrial_Radiation(latitude, day_of_year) * 1000;
    }
    return day;
}

bool Has_29_February(const std::vector<Climate_Day>& days)
{
    return std::ranges::any_of(days, [](const Climate_Day& day) { return day.Month == 2 && day.Day == 29; });
}

} // namespace

std::vector<Climate_Day> Read_Climate_Days(std::string_view bytes, std::string_view name, double latitude,
                                           std::string& title, Findings& findings)
{
    Reader reader{std::string(name), findings};
    Climate_Table table;
    Misreads misreads;
    try {
        table = Parse_CLI(bytes, &misreads);
    } catch (const File_Error& error) {
        findings.Error(Fault::Climate_Unreadable,
                       "CLIMATE FILE " + std::string(name) + " NOT READABLE: " + error.what());
        return {};
    }
    title = table.Cli_Title;
    findings.Tell_Misreads(Fault::Climate_Unreadable, name, misreads);
    const std::vector<Row> rows = Read_Rows(table, reader);
    std::vector<Climate_Day> days;
    for (std::size_t first = 0; first < rows.size();) {
        const Row& row = rows[first];
        std::size_t last = first + 1;
        while (last < rows.size() && rows[last].Day == row.Day && rows[last].Month == row.Month &&
               rows[last].Year == row.Year && rows[last].Hour != rows[last - 1].Hour)
            ++last;
        days.push_back(Merge(rows, first, last, latitude));
        first = last;
    }
    return days;
}

Climate Assemble_Climate(const Run_Control& control, const std::vector<const std::vector<Climate_Day>*>& years,
                         Findings& findings)
{
    Climate climate;
    std::vector<bool> leap;
    leap.reserve(years.size());
    for (const auto* days : years)
        leap.push_back(Has_29_February(*days));
    climate.Dates = Calendar(leap);
    climate.First_Day = climate.Dates.Number({1, control.Start_Month, control.Start_Day});
    climate.Last_Day = climate.Dates.Number({control.Years, control.End_Month, control.End_Day});
    int next = climate.First_Day;
    for (int y = 1; y <= control.Years; ++y) {
        const auto& days = *years[static_cast<std::size_t>(y - 1)];
        const int year_end = std::min(climate.Last_Day, climate.Dates.Number({y, 12, 31}));
        for (const Climate_Day& day : days) {
            const int number = climate.Dates.Number({y, day.Month, day.Day});
            if (number < climate.First_Day || next > year_end)
                continue;
            if (number != next)
                break;
            climate.Days.push_back(day);
            ++next;
        }
        if (next <= year_end) {
            const Date date = climate.Dates.Date_Of(next);
            findings.Error(Fault::Climate_Gap, "DAY " + std::to_string(date.Day) + "." + std::to_string(date.Month) +
                                                   " MISSING OR OUT OF ORDER IN CLIMATE YEAR " + std::to_string(y) +
                                                   " (" + control.Climate_Files[static_cast<std::size_t>(y - 1)] + ")");
            next = year_end + 1;
        }
    }
    double sum = 0;
    for (const Climate_Day& day : *years.front())
        sum += day.Temperature;
    climate.First_Year_Mean = years.front()->empty() ? 0 : sum / static_cast<double>(years.front()->size());
    return climate;
}

double Saturation_Pressure(double temperature)
{
    return 6.108 * Steady_Exp(17.27 * temperature / (temperature + 237.3));
}

double Declination(int day_of_year)
{
    return 0.409 * Steady_Sine(2 * std::numbers::pi * day_of_year / 365 - 1.39);
}

namespace {

// Hour angle of sunset, rad (FAO-56 eq. 25), clamped for polar day and night.
double Sunset_Angle(double latitude_rad, double declination)
{
    const double across = std::max(Steady_Cosine(latitude_rad) * Steady_Cosine(declination), 1e-12);
    return Steady_Arc_Cosine(-Steady_Sine(latitude_rad) * Steady_Sine(declination) / across);
}

} // namespace

double Day_Length(double latitude, int day_of_year)
{
    return 24 / std::numbers::pi * Sunset_Angle(latitude * std::numbers::pi / 180, Declination(day_of_year));
}

double Extraterrestrial_Radiation(double latitude, int day_of_year)
{
    constexpr double solar_constant = 0.0820; // MJ/(m2 min)
    const double phi = latitude * std::numbers::pi / 180, delta = Declination(day_of_year);
    const double distance = 1 + 0.033 * Steady_Cosine(2 * std::numbers::pi * day_of_year / 365);
    const double sunset = Sunset_Angle(phi, delta);
    const double geometry = sunset * Steady_Sine(phi) * Steady_Sine(delta) +
                            Steady_Cosine(phi) * Steady_Cosine(delta) * Steady_Sine(sunset);
    return std::max(0.0, 24 * 60 / std::numbers::pi * solar_constant * distance * geometry);
}

double Hamon_Evapotranspiration(double temperature, double day_length)
{
    const double half_days = day_length / 12;
    const double vapour_density = 216.7 * Saturation_Pressure(temperature) / (temperature + 273.3); // g/m3
    return 1.397 * half_days * half_days * vapour_density / 100;
}

double Haude_Evapotranspiration(double factor, double temperature_14, double humidity)
{
    constexpr double largest = 0.7;
    return std::min(largest, 0.1 * factor * Saturation_Pressure(temperature_14) * (1 - humidity / 100));
}

Haude_Table Read_Haude(std::string_view bytes, Findings& findings)
{
    Haude_Table table;
    Misreads misreads;
    const auto lines = Split_Lines(bytes);
    for (std::size_t n = 1; n < lines.size(); ++n) {
        std::string_view rest = lines[n];
        if (Trim(rest).empty())
            continue;
        const auto next = [&] {
            const auto word = Trim(Next_Token(rest));
            if (!Is_One_Number(word))
                misreads.push_back({{static_cast<int>(n) + 1, Column_Of(word, lines[n])}, std::string(word), {}});
            return Val(word);
        };
        const double number = next();
        std::array<double, 12> factors{};
        for (double& factor : factors)
            factor = std::clamp(next(), 0.0, 10.0);
        if (number >= 0 && number < 10000)
            table[static_cast<int>(number)] = factors;
    }
    findings.Tell_Misreads(Fault::Haude_Unreadable, "HAUDE.DAT", misreads);
    return table;
}

const std::array<double, 12>& Haude_Row(const Haude_Table& table, int crop_number)
{
    // Meadow: Haeckel, Meteorologie, 4th ed. 1999. Bare soil: the winter values of maize there.
    static constexpr std::array<double, 12> grass = {0.20, 0.20, 0.25, 0.29, 0.29, 0.28,
                                                     0.26, 0.25, 0.23, 0.22, 0.20, 0.20};
    static constexpr std::array<double, 12> bare = {0.11, 0.11, 0.11, 0.11, 0.11, 0.11,
                                                    0.11, 0.11, 0.11, 0.11, 0.11, 0.11};
    const auto found = table.find(crop_number);
    if (found != table.end())
        return found->second;
    return crop_number == 0 ? bare : grass;
}

} // namespace orvel::engine
