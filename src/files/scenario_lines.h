#pragma once

#include "core/session.h"
#include "files/lines.h"

#include <algorithm>
#include <string_view>

namespace orvel {

// The lines of a scenario file, each stated once for reading, printing and listing. Tabs are 1-based columns.

// The marker words at the end of the second line.
constexpr std::string_view Marker_Of_Extended_Rows = "ORVEL40"; // in all markers of extended crop rows
constexpr std::string_view Marker_Extended = "ORVEL401";
constexpr std::string_view Marker_Tillage = "ORVEL400TILLAGE";
constexpr std::string_view Marker_Derived_Tillage =
    "ORVEL400"; // read only; every marker that contains it has extended crop rows and two more dates

constexpr std::string_view Daily_Output = " DAY";

template <class Line, class Document> void Evapotranspiration_Line(Line& line, Document& document)
{
    line.Field(document.SZE_Kc[0][0], "Kc without crop")
        .Spc(2)
        .Field(document.SZE_Snow_Factor, "Snow melt factor")
        .Spc(2);
    line.Field(document.SZE_ET_Method, "Evapotranspiration method")
        .Spc(2)
        .Field(document.SZE_ET_Depth, "Depth for evapotranspiration")
        .Spc(2);
    line.Field(document.SZE_First_Crop, "First crop number")
        .Spc(2)
        .Field(document.SZE_Line2_Flag, "Sixth field of the second line")
        .Spc(2);
    line.Field(document.SZE_Kc[1][0], "Kc mid season").Spc(2).Field(document.SZE_Kc[2][0], "Kc late season").Spc(2);
}

// Only with erosion.
template <class Line, class Document> void Erosion_Line(Line& line, Document& document)
{
    line.Field(document.SZE_Eros_K, "Erosion factor 1").Spc(2).Field(document.SZE_Eros_2, "Erosion factor 2").Spc(2);
    line.Field(document.SZE_Eros_3, "Erosion factor 3").Spc(2).Field(document.SZE_Eros_4, "Erosion factor 4").Spc(2);
    line.Field(document.SZE_Eros_5, "Erosion factor 5");
}

// The older form has these fields alone.
template <class Line, class Crop> void Crop_Line(Line& line, Crop& crop)
{
    line.Field(crop.SZE_Rot_Crop_No, "Crop number").Spc(2).Field(crop.SZE_Rot_Text2, "Interception storage").Spc(2);
    line.Field(crop.SZE_Rot_Text1, "Root depth").Spc(2).Field(crop.SZE_Rot_Interception, "Crop interception").Spc(2);
    line.Field(crop.SZE_Rot_Residue, "Condition after harvest")
        .Spc(2)
        .Field(crop.SZE_Rot_CN1, "Curve number fallow")
        .Spc(2);
    line.Field(crop.SZE_Rot_CN2, "Curve number cropping")
        .Spc(2)
        .Field(crop.SZE_Rot_CN3, "Curve number residues")
        .Spc(2);
    line.Field(crop.SZE_Rot_USLE1, "USLE factor fallow")
        .Spc(2)
        .Field(crop.SZE_Rot_USLE2, "USLE factor cropping")
        .Spc(2);
    line.Field(crop.SZE_Rot_USLE3, "USLE factor residues").Spc(2).Field(crop.SZE_Rot_Dry_Mass, "Dry mass");
}

template <class Line, class Crop> void Crop_Extension(Line& line, Crop& crop)
{
    line.Spc(2)
        .Field(crop.SZE_Rot_RR_Photo, "Relative rate photodegradation")
        .Spc(2)
        .Field(crop.SZE_Rot_RR_Pen, "Relative rate penetration")
        .Spc(2);
    line.Field(crop.SZE_Rot_RR_Vol, "Relative rate volatilisation")
        .Spc(2)
        .Field(crop.SZE_Rot_RR_Wash, "Relative rate wash-off")
        .Spc(2);
    line.Field(crop.SZE_Rot_Irrigated, "Irrigated").Spc(2).Field(crop.SZE_Rot_Perennial, "Perennial").Spc(2);
    line.Field(crop.SZE_Rot_Tillage, "Tillage")
        .Spc(2)
        .Field(crop.SZE_Rot_Kc_Mid, "Kc mid season")
        .Spc(2)
        .Field(crop.SZE_Rot_Kc_Late, "Kc late season");
}

// Written with the date of tillage where a crop has tillage. Read by position, since a date is one word DDMMYY.
template <class Line> void Rotation_Line(Line& line, const Rotation_Row& row, bool tillage)
{
    constexpr std::string_view digits = "00";
    line.Spc(2).Pattern(row.SZE_Eme_Day, digits, "Emergence day").Pattern(row.SZE_Eme_Month, digits, "Emergence month");
    line.Pattern(row.SZE_Eme_Year, digits, "Emergence year").Spc(2);
    line.Pattern(row.SZE_Mat_Day, digits, "Maturation day").Pattern(row.SZE_Mat_Month, digits, "Maturation month");
    line.Pattern(row.SZE_Mat_Year, digits, "Maturation year").Spc(2);
    line.Pattern(row.SZE_Har_Day, digits, "Harvest day").Pattern(row.SZE_Har_Month, digits, "Harvest month");
    line.Pattern(row.SZE_Har_Year, digits, "Harvest year")
        .Spc(6)
        .Pattern(row.SZE_Rot_Crop_Index, digits, "Crop")
        .Spc(2);
    line.Pattern(row.SZE_Sen_Day, digits, "Senescence day").Pattern(row.SZE_Sen_Month, digits, "Senescence month");
    line.Pattern(row.SZE_Sen_Year, digits, "Senescence year");
    if (!tillage)
        return;
    line.Spc(2).Pattern(row.SZE_Til_Day, digits, "Tillage day").Pattern(row.SZE_Til_Month, digits, "Tillage month");
    line.Pattern(row.SZE_Til_Year, digits, "Tillage year");
}

// Required: only as many crop rows count as there are rotation rows.
inline bool Has_Tillage(const Scenario_Document& document)
{
    const int rows = std::min<int>(document.SZE_Rot_Count, document.SZE_Crop_Count);
    int sum = 0;
    for (std::size_t c = 0; c < document.Crops.size() && static_cast<int>(c) < rows; ++c)
        sum += document.Crops[c].SZE_Rot_Tillage;
    return sum > 0;
}

template <class Line, class Document> void Soil_Line(Line& line, Document& document)
{
    line.Field(document.SZE_Core_Depth, "Core depth")
        .Tab(8)
        .Whole(document.SZE_Dispersion_Flag, "Dispersion flag")
        .Tab(16);
    line.Field(document.SZE_Layers, "Number of compartments")
        .Tab(24)
        .Field(document.SZE_Field_4216, "Fourth field of the soil line")
        .Tab(32);
    line.Field(document.SZE_Hydraulic_Flag, "Hydraulic flag").Tab(40).Field(document.SZE_Water_Flag, "Water flow flag");
}

template <class Line, class Document> void Horizon_Head_Line(Line& line, Document& document)
{
    line.Field(document.SZE_Horizons, "Number of soil horizons")
        .Zone()
        .Field(document.SZE_Delxflg, "Compartment size flag");
}

// The number is read and dropped.
template <class Line, class Horizon> void Horizon_Line_One(Line& line, Horizon& horizon, std::size_t number)
{
    line.Tab(4)
        .Tag(Print_Form(static_cast<double>(number)))
        .Tab(8)
        .Field(horizon.SZE_Hor_Thickness, "Thickness")
        .Tab(16)
        .Field(horizon.SZE_Hor_Bulk_Density, "Bulk density")
        .Tab(24);
    line.Field(horizon.SZE_Hor_Dispersion, "Dispersion")
        .Tab(32)
        .Field(horizon.SZE_Hor_Soil_Water, "Initial soil water")
        .Tab(40);
    line.Value_Of(horizon.SZE_Hor_Drainage, "Drainage");
}

// With hydraulic flag 0 the line begins with field capacity and wilting point, else with sand and clay.
template <class Line, class Horizon> void Horizon_Line_Two(Line& line, Horizon& horizon, bool direct)
{
    if (direct)
        line.Tab(8).Field(horizon.SZE_Hor_FC, "Field capacity").Tab(16).Field(horizon.SZE_Hor_WP, "Wilting point");
    else
        line.Tab(8).Field(horizon.SZE_Hor_Sand, "Sand").Tab(16).Field(horizon.SZE_Hor_Clay, "Clay");
    line.Tab(24).Field(horizon.SZE_Hor_OC, "Organic carbon").Tab(32).Field(horizon.SZE_Hor_pH, "pH").Tab(40);
    line.Field(horizon.SZE_Hor_Biodeg, "Biodegradation factor");
}

template <class Line, class Document> void Bottom_Line(Line& line, Document& document)
{
    line.Field(document.SZE_Bottom_Line, "Bottom line");
}

template <class Line, class Document> void Output_Line(Line& line, Document& document)
{
    line.Tag("    WATR").Tab(13).Text_Field(document.SZE_Freq_Water, "Output frequency of hydrology").Tab(21);
    line.Pattern(document.SZE_Out_Every_Water, "0000", "Output layers of hydrology").Tab(25);
    line.Tag("    PEST").Tab(37).Text_Field(document.SZE_Freq_Solute, "Output frequency of solute mass").Tab(45);
    line.Pattern(document.SZE_Out_Every_Solute, "0000", "Output layers of solute mass").Tab(49);
    line.Tag("    CONC").Tab(61).Text_Field(document.SZE_Freq_Conc, "Output frequency of concentration").Tab(69);
    line.Pattern(document.SZE_Out_Every_Conc, "0000", "Output layers of concentration");
}

template <class Line, class Document> void Macropore_Line(Line& line, Document& document)
{
    line.Tab(7)
        .Field(document.SZE_Macropore, "Macropore flag")
        .Tab(16)
        .Field(document.SZE_Macro_Depth, "Macropore depth")
        .Tab(24);
    line.Field(document.SZE_DOC_Content, "DOC content").Tab(32).Field(document.SZE_DOC_Flag, "DOC flag").Tab(40);
    line.Field(document.SZE_Runoff_Depth, "Runoff depth")
        .Spc(3)
        .Field(document.SZE_Macro_Threshold, "Macropore threshold")
        .Spc(3);
    line.Field(document.SZE_Macro_Fraction, "Macropore fraction");
}

template <class Line, class Document> void Latitude_Line(Line& line, Document& document)
{
    line.Tab(3).Field(document.SZE_Latitude, "Latitude");
}

} // namespace orvel
