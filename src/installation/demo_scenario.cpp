#include "installation/demo_scenario.h"

#include "installation/demo_weather.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <string_view>

namespace orvel {

namespace {

constexpr double Top_Metre = 100;            // cm
constexpr double Leaching_Compartment = 2.5; // cm
constexpr double Content_Compartment = 1;    // cm
constexpr int Tillage_Days_Before_Emergence = 5;
constexpr double Bare_Crop_Factor = 0.5; // Haude's factors: 0.11 of bare soil to 0.20 to 0.29 of a meadow
constexpr std::int16_t Curve_Number_Fallow = 78, Curve_Number_Crop = 70, Curve_Number_Residue = 74;

// Which scenarios serve as examples of features that most do not have.
bool Has_Erosion(const Demo_Site& site, const Demo_Crop& crop)
{
    return site.Code == "N" && crop.Stem == "_maize";
}

bool Has_Tillage(const Demo_Site& site, const Demo_Crop& crop)
{
    return (site.Code == "H" || site.Code == "C") && crop.Stem == "_potato";
}

const Demo_Cropping& Cropping_At(const Demo_Site& site, const Demo_Crop& crop)
{
    const auto found = std::ranges::find(crop.Croppings, site.Dates_As, &Demo_Cropping::Site);
    return found == crop.Croppings.end() ? crop.Croppings.at(0) : *found;
}

Day_Of_Year Days_Earlier(Day_Of_Year date, int days)
{
    for (; days > 0; --days) {
        if (--date.Day > 0)
            continue;
        date.Month = date.Month == 1 ? 12 : date.Month - 1;
        date.Day = Days_In_Month(date.Month, 1);
    }
    return date;
}

std::int16_t I16(int value)
{
    return static_cast<std::int16_t>(value);
}

// Dates in the year of harvest; those later in the calendar than the harvest belong to the previous year, which is 0
// for the first.
Rotation_Row Cropping_Of_Year(const Demo_Cropping& cropping, int year)
{
    const Day_Of_Year tillage = Days_Earlier(cropping.Emergence, Tillage_Days_Before_Emergence);
    const auto year_of = [&](const Day_Of_Year& date) { return I16(date > cropping.Harvest ? year - 1 : year); };
    Rotation_Row row;
    row.SZE_Eme_Day = I16(cropping.Emergence.Day);
    row.SZE_Eme_Month = I16(cropping.Emergence.Month);
    row.SZE_Eme_Year = year_of(cropping.Emergence);
    row.SZE_Mat_Day = I16(cropping.Maturation.Day);
    row.SZE_Mat_Month = I16(cropping.Maturation.Month);
    row.SZE_Mat_Year = I16(year);
    row.SZE_Har_Day = I16(cropping.Harvest.Day);
    row.SZE_Har_Month = I16(cropping.Harvest.Month);
    row.SZE_Har_Year = I16(year);
    row.SZE_Rot_Crop_Index = 1;
    row.SZE_Sen_Day = cropping.Senescence.Day;
    row.SZE_Sen_Month = cropping.Senescence.Month;
    row.SZE_Sen_Year = I16(year);
    row.SZE_Til_Day = I16(tillage.Day);
    row.SZE_Til_Month = I16(tillage.Month);
    row.SZE_Til_Year = year_of(tillage);
    return row;
}

Crop_Row Demo_Crop_Row(const Demo_Site& site, const Demo_Crop& crop)
{
    Crop_Row row = crop.Data.Defaults;
    row.SZE_Rot_CN1 = Curve_Number_Fallow;
    row.SZE_Rot_CN2 = Curve_Number_Crop;
    row.SZE_Rot_CN3 = Curve_Number_Residue;
    row.SZE_Rot_USLE1 = row.SZE_Rot_USLE2 = row.SZE_Rot_USLE3 = 1;
    row.SZE_Rot_Irrigated = site.Irrigated && crop.Irrigated ? 1 : 0;
    row.SZE_Rot_Tillage = Has_Tillage(site, crop) ? 1 : 0;
    return row;
}

// The share of a day that a metre of soil gives up of the water above field capacity, were its drainage restricted:
// saturated conductivities of about 100, 20 and 10 cm/d (order of Carsel & Parrish 1988).
double Drainage_Of(double clay)
{
    return clay < 10 ? 5 : clay < 20 ? 2 : 1;
}

void Set_Soil(Scenario_Document& document, const Demo_Site& site, Demo_Purpose purpose)
{
    for (const auto& horizon : site.Horizons) {
        if (purpose == Demo_Purpose::Soil_Content && document.SZE_Core_Depth >= Top_Metre)
            break;
        document.SZE_Core_Depth += horizon.SZE_Hor_Thickness.Number();
        document.Horizons.push_back(horizon);
        document.Horizons.back().SZE_Hor_Drainage = Drainage_Of(horizon.SZE_Hor_Clay);
        // A file with field capacity and wilting point has no field for the texture.
        document.Horizons.back().SZE_Hor_Sand = 0;
        document.Horizons.back().SZE_Hor_Clay = 0;
    }
    const double compartment = purpose == Demo_Purpose::Leaching ? Leaching_Compartment : Content_Compartment;
    document.SZE_Layers = To_I16(document.SZE_Core_Depth / compartment);
    document.SZE_Horizons = document.Horizons.size();
    document.SZE_Dispersion_Flag = 1;
    document.SZE_Delxflg = 1;
}

void Set_Erosion(Scenario_Document& document)
{
    document.SZE_Erosion = 1;
    document.SZE_Eros_K = 0.35;
    document.SZE_Eros_2 = 0.6;
    document.SZE_Eros_3 = 1;
    document.SZE_Eros_4 = 1;
    document.SZE_Eros_5 = 6;
    document.SZE_Runoff_Depth = 2;
    document.Crops[0].SZE_Rot_USLE1 = 0.9;
    document.Crops[0].SZE_Rot_USLE2 = 0.4;
    document.Crops[0].SZE_Rot_USLE3 = 0.6;
}

} // namespace

Scenario_Document Demo_Scenario_Document(const Demo_Site& site, const Demo_Crop& crop, Demo_Purpose purpose)
{
    Scenario_Document document;
    Reset_SZE(document);
    // Characters 4 and 5 are the scenario version, which the start form shows.
    document.SZE_Title = "DEM 1 " + site.Name + " - " + crop.Data.DB_Crop_Name + " - " + std::string(Title_Warning);
    document.SZE_Kc[0][0] = Bare_Crop_Factor;
    document.SZE_ET_Method = 0;
    document.SZE_ET_Depth = 10;
    document.SZE_First_Crop = crop.Data.Defaults.SZE_Rot_Crop_No;
    document.Crops = {Demo_Crop_Row(site, crop)};
    document.SZE_Crop_Count = 1;
    for (int year = 1; year <= Demo_Years; ++year)
        document.Rotation.push_back(Cropping_Of_Year(Cropping_At(site, crop), year));
    document.SZE_Rot_Count = Demo_Years;
    document.SZE_Core_Depth = 0;
    document.Horizons.clear();
    Set_Soil(document, site, purpose);
    document.SZE_Freq_Water = document.SZE_Freq_Solute = document.SZE_Freq_Conc = "YEAR";
    document.SZE_Latitude = site.Latitude;
    if (Has_Erosion(site, crop))
        Set_Erosion(document);
    return document;
}

std::vector<Demo_Scenario> Location_Scenarios(const Demo_Tables& tables, Demo_Purpose purpose)
{
    std::vector<Demo_Scenario> scenarios;
    for (const auto& crop : tables.Crops) {
        for (const auto& cropping : crop.Croppings) {
            const auto& site = *std::ranges::find(tables.Sites, cropping.Site, &Demo_Site::Code);
            scenarios.push_back({site.Code + crop.Stem + ".sze", Demo_Scenario_Document(site, crop, purpose)});
        }
    }
    return scenarios;
}

std::vector<Demo_Scenario> Zone_Scenarios(const Demo_Tables& tables)
{
    std::vector<Demo_Scenario> scenarios;
    std::set<std::string> names;
    for (const auto& crop : tables.Crops) {
        for (const auto& site : tables.Sites) {
            const std::string name = site.Code + crop.Stem + ".sze";
            if (site.Is_Zone() && names.insert(name).second)
                scenarios.push_back({name, Demo_Scenario_Document(site, crop, Demo_Purpose::Soil_Content)});
        }
    }
    return scenarios;
}

} // namespace orvel
