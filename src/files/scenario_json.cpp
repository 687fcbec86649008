#include "files/document_json.h"
#include "files/json_rows.h"

namespace orvel {

namespace {

void Write(Json_Writer& out, const Crop_Row& crop)
{
    out.Object([&] {
        out.Member("SZE_Rot_Crop_No", crop.SZE_Rot_Crop_No);
        out.Member("SZE_Rot_Text2", crop.SZE_Rot_Text2);
        out.Member("SZE_Rot_Text1", crop.SZE_Rot_Text1);
        out.Member("SZE_Rot_Interception", crop.SZE_Rot_Interception);
        out.Member("SZE_Rot_Residue", crop.SZE_Rot_Residue);
        out.Member("SZE_Rot_CN1", crop.SZE_Rot_CN1);
        out.Member("SZE_Rot_CN2", crop.SZE_Rot_CN2);
        out.Member("SZE_Rot_CN3", crop.SZE_Rot_CN3);
        out.Member("SZE_Rot_USLE1", crop.SZE_Rot_USLE1);
        out.Member("SZE_Rot_USLE2", crop.SZE_Rot_USLE2);
        out.Member("SZE_Rot_USLE3", crop.SZE_Rot_USLE3);
        out.Member("SZE_Rot_Dry_Mass", crop.SZE_Rot_Dry_Mass);
        out.Member("SZE_Rot_RR_Photo", crop.SZE_Rot_RR_Photo);
        out.Member("SZE_Rot_RR_Pen", crop.SZE_Rot_RR_Pen);
        out.Member("SZE_Rot_RR_Vol", crop.SZE_Rot_RR_Vol);
        out.Member("SZE_Rot_RR_Wash", crop.SZE_Rot_RR_Wash);
        out.Member("SZE_Rot_Irrigated", crop.SZE_Rot_Irrigated);
        out.Member("SZE_Rot_Perennial", crop.SZE_Rot_Perennial);
        out.Member("SZE_Rot_Tillage", crop.SZE_Rot_Tillage);
        out.Member("SZE_Rot_Kc_Mid", crop.SZE_Rot_Kc_Mid);
        out.Member("SZE_Rot_Kc_Late", crop.SZE_Rot_Kc_Late);
    });
}

void Write(Json_Writer& out, const Rotation_Row& row)
{
    out.Object([&] {
        out.Member("SZE_Eme_Day", row.SZE_Eme_Day);
        out.Member("SZE_Eme_Month", row.SZE_Eme_Month);
        out.Member("SZE_Eme_Year", row.SZE_Eme_Year);
        out.Member("SZE_Mat_Day", row.SZE_Mat_Day);
        out.Member("SZE_Mat_Month", row.SZE_Mat_Month);
        out.Member("SZE_Mat_Year", row.SZE_Mat_Year);
        out.Member("SZE_Har_Day", row.SZE_Har_Day);
        out.Member("SZE_Har_Month", row.SZE_Har_Month);
        out.Member("SZE_Har_Year", row.SZE_Har_Year);
        out.Member("SZE_Rot_Crop_Index", row.SZE_Rot_Crop_Index);
        out.Member("SZE_Sen_Day", row.SZE_Sen_Day);
        out.Member("SZE_Sen_Month", row.SZE_Sen_Month);
        out.Member("SZE_Sen_Year", row.SZE_Sen_Year);
        out.Member("SZE_Til_Day", row.SZE_Til_Day);
        out.Member("SZE_Til_Month", row.SZE_Til_Month);
        out.Member("SZE_Til_Year", row.SZE_Til_Year);
    });
}

void Write(Json_Writer& out, const Scenario_Horizon& horizon)
{
    out.Object([&] {
        out.Member("SZE_Hor_Thickness", horizon.SZE_Hor_Thickness);
        out.Member("SZE_Hor_Bulk_Density", horizon.SZE_Hor_Bulk_Density);
        out.Member("SZE_Hor_Dispersion", horizon.SZE_Hor_Dispersion);
        out.Member("SZE_Hor_Soil_Water", horizon.SZE_Hor_Soil_Water);
        out.Member("SZE_Hor_Drainage", horizon.SZE_Hor_Drainage);
        out.Member("SZE_Hor_FC", horizon.SZE_Hor_FC);
        out.Member("SZE_Hor_WP", horizon.SZE_Hor_WP);
        out.Member("SZE_Hor_OC", horizon.SZE_Hor_OC);
        out.Member("SZE_Hor_pH", horizon.SZE_Hor_pH);
        out.Member("SZE_Hor_Sand", horizon.SZE_Hor_Sand);
        out.Member("SZE_Hor_Clay", horizon.SZE_Hor_Clay);
        out.Member("SZE_Hor_Biodeg", horizon.SZE_Hor_Biodeg);
    });
}

// Only the first value of a stage is in the file.
void Write_Evapotranspiration(Json_Writer& out, const Scenario_Document& d)
{
    out.Key("SZE_Kc");
    out.Array([&] {
        for (const auto& stage : d.SZE_Kc)
            out.Value(std::array{stage[0]});
    });
    out.Member("SZE_Snow_Factor", d.SZE_Snow_Factor);
    out.Member("SZE_ET_Method", d.SZE_ET_Method);
    out.Member("SZE_ET_Depth", d.SZE_ET_Depth);
    out.Member("SZE_First_Crop", d.SZE_First_Crop);
    out.Member("SZE_Line2_Flag", d.SZE_Line2_Flag);
    out.Member("SZE_Erosion", d.SZE_Erosion);
    out.Member("SZE_Eros_K", d.SZE_Eros_K);
    out.Member("SZE_Eros_2", d.SZE_Eros_2);
    out.Member("SZE_Eros_3", d.SZE_Eros_3);
    out.Member("SZE_Eros_4", d.SZE_Eros_4);
    out.Member("SZE_Eros_5", d.SZE_Eros_5);
}

void Write_Soil_And_Output(Json_Writer& out, const Scenario_Document& d)
{
    out.Member("SZE_Core_Depth", d.SZE_Core_Depth);
    out.Member("SZE_Dispersion_Flag", d.SZE_Dispersion_Flag);
    out.Member("SZE_Layers", d.SZE_Layers);
    out.Member("SZE_Field_4216", d.SZE_Field_4216);
    out.Member("SZE_Hydraulic_Flag", d.SZE_Hydraulic_Flag);
    out.Member("SZE_Water_Flag", d.SZE_Water_Flag);
    out.Member("SZE_Horizons", d.SZE_Horizons);
    out.Member("SZE_Delxflg", d.SZE_Delxflg);
    Rows_In_Use(out, "Horizons", d.Horizons, 0, d.SZE_Horizons.Number() - 1, [&](const auto& row) { Write(out, row); });
    out.Member("SZE_Bottom_Line", d.SZE_Bottom_Line);
    out.Member("SZE_Freq_Water", d.SZE_Freq_Water);
    out.Member("SZE_Freq_Solute", d.SZE_Freq_Solute);
    out.Member("SZE_Freq_Conc", d.SZE_Freq_Conc);
    out.Member("SZE_Out_Every_Water", d.SZE_Out_Every_Water);
    out.Member("SZE_Out_Every_Solute", d.SZE_Out_Every_Solute);
    out.Member("SZE_Out_Every_Conc", d.SZE_Out_Every_Conc);
    out.Member("SZE_Macropore", d.SZE_Macropore);
    out.Member("SZE_Macro_Depth", d.SZE_Macro_Depth);
    out.Member("SZE_DOC_Content", d.SZE_DOC_Content);
    out.Member("SZE_DOC_Flag", d.SZE_DOC_Flag);
    out.Member("SZE_Runoff_Depth", d.SZE_Runoff_Depth);
    out.Member("SZE_Macro_Threshold", d.SZE_Macro_Threshold);
    out.Member("SZE_Macro_Fraction", d.SZE_Macro_Fraction);
    out.Member("SZE_Latitude", d.SZE_Latitude);
    out.Member("SZE_Runoff", d.SZE_Runoff);
}

} // namespace

std::string Json_Of(const Scenario_Document& document)
{
    Json_Writer out;
    out.Object([&] {
        out.Member("SZE_Title", document.SZE_Title);
        Write_Evapotranspiration(out, document);
        out.Member("SZE_Crop_Count", document.SZE_Crop_Count);
        Rows_In_Use(out, "Crops", document.Crops, 0, document.SZE_Crop_Count - 1,
                    [&](const auto& row) { Write(out, row); });
        out.Member("SZE_Rot_Count", document.SZE_Rot_Count);
        Rows_In_Use(out, "Rotation", document.Rotation, 0, document.SZE_Rot_Count - 1,
                    [&](const auto& row) { Write(out, row); });
        Write_Soil_And_Output(out, document);
    });
    return out.Written();
}

} // namespace orvel
