#include "installation/demo_tables.h"

#include "core/locations.h"
#include "core/text.h"
#include "installation/embedded_files.h"

#include <algorithm>
#include <stdexcept>

namespace orvel {

namespace {

using Row = std::vector<std::string>;

constexpr double Dispersion_Length = 5; // cm
constexpr double Drainage = 0.1;
constexpr double OM_Per_OC = 1.724;
constexpr double Zone_WP_Per_FC = 0.4;

// An inconsistent table is a programming error, since the tables are compiled in.
void Expect(bool holds, std::string_view what)
{
    if (!holds)
        throw std::logic_error("The demonstration data are damaged: " + std::string(what));
}

double Number(const Row& row, std::size_t i)
{
    Expect(i < row.size(), "a row of " + row.at(0) + " is too short");
    return Val(row[i]);
}

double Rounded(double value, std::string_view pattern)
{
    return Val(Format_Pattern(value, pattern));
}

std::vector<Demo_Site> Load_Sites()
{
    std::vector<Demo_Site> sites;
    for (const Row& row : Table_Rows(Embedded_File("sites.txt"))) {
        Expect(row.size() == 7, "sites");
        const std::string name = Location_Name(row[0]);
        sites.push_back({.Code = row[0],
                         .Name = name.substr(0, name.find(" (")),
                         .Latitude = Number(row, 1),
                         .Mean_Temp = Number(row, 2),
                         .Rain = Number(row, 3),
                         .Irrigated = row[4] == "1",
                         .Climate_As = row[5],
                         .Dates_As = row[6]});
    }
    return sites;
}

std::vector<Scenario_Horizon> Location_Horizons(std::string_view code)
{
    std::vector<Scenario_Horizon> horizons;
    for (const Row& row : Table_Rows(Embedded_File("horizons.txt"))) {
        if (row[0] != code)
            continue;
        horizons.push_back({.SZE_Hor_Thickness = Number(row, 1),
                            .SZE_Hor_Bulk_Density = Number(row, 7),
                            .SZE_Hor_Dispersion = Dispersion_Length,
                            .SZE_Hor_Soil_Water = Number(row, 8),
                            .SZE_Hor_Drainage = Drainage,
                            .SZE_Hor_FC = Number(row, 8),
                            .SZE_Hor_WP = Number(row, 9),
                            .SZE_Hor_OC = Number(row, 6),
                            .SZE_Hor_pH = Number(row, 2),
                            .SZE_Hor_Sand = Number(row, 3),
                            .SZE_Hor_Clay = Number(row, 5),
                            .SZE_Hor_Biodeg = Number(row, 10)});
    }
    return horizons;
}

// Three horizons down to 1 m, derived from the data of the top layer.
std::vector<Scenario_Horizon> Zone_Horizons(std::string_view code)
{
    struct Step {
        double Thickness, OC_Share, Added_Density, Factor;
    };
    std::vector<Scenario_Horizon> horizons;
    for (const Row& row : Table_Rows(Embedded_File("zones.txt"))) {
        if (row[0] != code)
            continue;
        const double fc = Number(row, 2);
        const double oc = 100 * Number(row, 1) / OM_Per_OC;
        for (const Step step : {Step{30, 1, 0, 1}, {30, 0.5, 0.1, 0.5}, {40, 0.3, 0.15, 0.3}})
            horizons.push_back({.SZE_Hor_Thickness = step.Thickness,
                                .SZE_Hor_Bulk_Density = Rounded(Number(row, 3) + step.Added_Density, "0.000"),
                                .SZE_Hor_Dispersion = Dispersion_Length,
                                .SZE_Hor_Soil_Water = fc,
                                .SZE_Hor_Drainage = Drainage,
                                .SZE_Hor_FC = fc,
                                .SZE_Hor_WP = Rounded(Zone_WP_Per_FC * fc, "0.0000"),
                                .SZE_Hor_OC = Rounded(oc * step.OC_Share, "0.00"),
                                .SZE_Hor_pH = Number(row, 4),
                                .SZE_Hor_Clay = Number(row, 5),
                                .SZE_Hor_Biodeg = step.Factor});
    }
    return horizons;
}

std::map<std::string, Monthly_Climate> Load_Climates()
{
    std::map<std::string, Monthly_Climate> climates;
    for (const Row& row : Table_Rows(Embedded_File("monthly_climate.txt"))) {
        auto& climate = climates[row[0]];
        if (row.at(1) == "day") {
            climate.Wet_Day_Rain = Number(row, 2);
            climate.January_Range = Number(row, 3);
            climate.July_Range = Number(row, 4);
            continue;
        }
        Expect(row.size() == 14, "monthly climate");
        auto& months = row[1] == "T" ? climate.Temp : climate.Rain;
        for (std::size_t m = 0; m < 12; ++m)
            months[m] = Number(row, m + 2);
    }
    return climates;
}

// "  H K  15.04 01.07 01.10 30.10": the same dates at each of the codes.
void Add_Croppings(Demo_Crop& crop, const Row& row)
{
    Expect(row.size() > 4, "dates of " + crop.Stem);
    const auto date = [&row](std::size_t from_end) { return Parse_Day_Of_Year(row[row.size() - from_end]); };
    for (std::size_t i = 0; i + 4 < row.size(); ++i)
        crop.Croppings.push_back({row[i], date(4), date(3), date(2), date(1)});
}

// A crop's line begins with its name, as wide as in the crop database; lines that begin with a blank hold its dates.
std::vector<Demo_Crop> Load_Crops()
{
    constexpr std::size_t name_width = 14;
    const auto data_base = Parse_Crop_Data(Embedded_File("input.dat"));
    std::vector<Demo_Crop> crops;
    for (const auto line : Split_Lines(Embedded_File("crop_dates.txt"))) {
        if (line.empty() || line[0] == '#')
            continue;
        if (line[0] == ' ') {
            Add_Croppings(crops.at(crops.size() - 1), Table_Rows(line).at(0));
            continue;
        }
        const auto name = Trim(line.substr(0, name_width));
        const Row rest = Table_Rows(line.substr(name_width)).at(0);
        Expect(crops.size() < data_base.size() && data_base[crops.size()].DB_Crop_Name == name, name);
        crops.push_back({.Data = data_base[crops.size()], .Stem = rest.at(0), .Irrigated = rest.at(1) == "1"});
    }
    return crops;
}

} // namespace

std::vector<std::vector<std::string>> Table_Rows(std::string_view text)
{
    std::vector<Row> rows;
    for (auto line : Split_Lines(text)) {
        line = Trim(line);
        if (line.empty() || line[0] == '#')
            continue;
        auto& row = rows.emplace_back();
        for (; !Trim(line).empty(); line = Trim(line))
            row.emplace_back(Trim(Next_Token(line)));
    }
    return rows;
}

Day_Of_Year Parse_Day_Of_Year(std::string_view text)
{
    Expect(text.size() == 5 && text[2] == '.', text);
    const Day_Of_Year date{static_cast<int>(Val(text.substr(0, 2))), static_cast<int>(Val(text.substr(3)))};
    Expect(date.Month >= 1 && date.Month <= 12 && date.Day >= 1 && date.Day <= 31, text);
    return date;
}

Demo_Tables Load_Demo_Tables()
{
    Demo_Tables tables{Load_Sites(), Load_Climates(), Load_Crops()};
    for (auto& site : tables.Sites) {
        site.Horizons = site.Is_Zone() ? Zone_Horizons(site.Code) : Location_Horizons(site.Code);
        Expect(!site.Horizons.empty() && tables.Climates.contains(site.Climate_As), site.Code);
    }
    return tables;
}

} // namespace orvel
