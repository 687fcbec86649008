#include "files/document_json.h"
#include "files/json_rows.h"

#include <algorithm>

namespace orvel {

namespace {

void Write(Json_Writer& out, const Application& row)
{
    out.Object([&] {
        out.Member("App_Day", row.App_Day);
        out.Member("App_Month", row.App_Month);
        out.Member("App_Year", row.App_Year);
        out.Member("App_Rate", row.App_Rate);
        out.Member("App_Depth", row.App_Depth);
        out.Member("App_Frpex", row.App_Frpex);
        out.Member("App_Time", row.App_Time);
        out.Member("App_Crop_Flag", row.App_Crop_Flag);
    });
}

void Write(Json_Writer& out, const Relative_Application& row)
{
    out.Object([&] {
        out.Member("Abs9_Day", row.Abs9_Day);
        out.Member("Abs9_Month", row.Abs9_Month);
        out.Member("Abs9_Year", row.Abs9_Year);
        out.Member("Abs9_Rate", row.Abs9_Rate);
        out.Member("Abs9_Depth", row.Abs9_Depth);
        out.Member("Abs9_Frpex", row.Abs9_Frpex);
    });
}

void Write(Json_Writer& out, const Degradation_Row& row)
{
    out.Object([&] {
        out.Member("Deg_Rate", row.Deg_Rate);
        out.Member("Deg_Temp", row.Deg_Temp);
        out.Member("Deg_Q10", row.Deg_Q10);
        out.Member("Deg_Moist_Abs", row.Deg_Moist_Abs);
        out.Member("Deg_Moist_Rel", row.Deg_Moist_Rel);
        out.Member("Deg_Moist_Exp", row.Deg_Moist_Exp);
        out.Member("Deg_Neq", row.Deg_Neq);
    });
}

void Write(Json_Writer& out, const Pesticide_Horizon& horizon)
{
    out.Object([&] {
        out.Member("Hor_Kd", horizon.Hor_Kd);
        out.Member("Hor_FrExp", horizon.Hor_FrExp);
        out.Member("Hor_Deg", horizon.Hor_Deg);
    });
}

void Write_Applications(Json_Writer& out, const Pesticide_Document& d)
{
    out.Member("App_Loc_Count", d.App_Loc_Count);
    out.Member("App_Rel_Flag", d.App_Rel_Flag);
    out.Member("App_Mode", d.App_Mode);
    out.Member("App_Count", d.App_Count);
    out.Member("App_Location", d.App_Location);
    double longest = 0;
    out.Key("Applications");
    out.Array([&] {
        for (std::size_t location = 0; location < d.Applications.size() && static_cast<int>(location) < d.App_Loc_Count;
             ++location) {
            const double count = d.App_Count[location].Number();
            longest = std::max(longest, count);
            out.Array([&] {
                out.Null();
                for (std::size_t a = 1; a <= Last_Application && static_cast<double>(a) <= count; ++a)
                    Write(out, d.Applications[location][a]);
            });
        }
    });
    if (d.App_Mode == App_Mode_Relative)
        Rows_In_Use(out, "Relative", d.Relative, 1, longest, [&](const auto& row) { Write(out, row); });
    out.Member("App_Method", d.App_Method);
    out.Member("Plant_Decay", d.Plant_Decay);
    out.Member("Plant_Washoff", d.Plant_Washoff);
    out.Member("Plant_Filtration", d.Plant_Filtration);
    out.Member("Plant_Penetration", d.Plant_Penetration);
    out.Member("Plant_Photodeg", d.Plant_Photodeg);
    out.Member("Plant_Ref_Rad", d.Plant_Ref_Rad);
    out.Member("Plant_Laminar", d.Plant_Laminar);
}

void Write_Volatilisation_And_Degradation(Json_Writer& out, const Pesticide_Document& d)
{
    out.Member("Henry_Flag", d.Henry_Flag);
    out.Member("Henry", d.Henry);
    out.Member("Solubility", d.Solubility);
    out.Member("Vap_Press", d.Vap_Press);
    out.Member("Volat_Temp", d.Volat_Temp);
    out.Member("Diff_Air", d.Diff_Air);
    out.Member("Depth_Volat", d.Depth_Volat);
    out.Member("Hv", d.Hv);
    out.Member("PSM_Legacy_Volat", d.PSM_Legacy_Volat);
    out.Key("Degradation");
    out.Array([&] {
        out.Null();
        for (int i = 1; i <= Substances; ++i) {
            out.Array([&] {
                out.Null();
                for (std::size_t j = 1; j <= static_cast<std::size_t>(Rows_Of_Substance(i)); ++j)
                    Write(out, d.Degradation[static_cast<std::size_t>(i)][j]);
            });
        }
    });
    out.Member("Photo_Rate", d.Photo_Rate);
    out.Member("Photo_I_Ref", d.Photo_I_Ref);
    out.Member("Deg_Depth_Mode", d.Deg_Depth_Mode);
    out.Member("Deg_Liquid_Only", d.Deg_Liquid_Only);
}

void Write_Sorption(Json_Writer& out, const Pesticide_Document& d)
{
    out.Member("Molmass", d.Molmass);
    out.Member("Koc", d.Koc);
    out.Member("Koc2", d.Koc2);
    out.Member("Fr_Exp", d.Fr_Exp);
    out.Member("Sorp_pH", d.Sorp_pH);
    out.Member("Sorp_pH2", d.Sorp_pH2);
    out.Member("Sorp_pKa", d.Sorp_pKa);
    out.Member("Freundl_Limit", d.Freundl_Limit);
    out.Member("Kd_Flag", d.Kd_Flag);
    out.Member("Plant_Uptake", d.Plant_Uptake);
    out.Member("Ann_Incr", d.Ann_Incr);
    out.Member("K_doc", d.K_doc);
    out.Member("Koc_Change", d.Koc_Change);
    out.Member("F_neq", d.F_neq);
    out.Member("K_des", d.K_des);
    out.Member("N_Horizons", d.N_Horizons);
    Rows_In_Use(out, "Horizons", d.Horizons, 1, d.N_Horizons.Number(), [&](const auto& row) { Write(out, row); });
}

} // namespace

std::string Json_Of(const Pesticide_Document& document)
{
    Json_Writer out;
    out.Object([&] {
        out.Member("PSM_Title", document.PSM_Title);
        out.Member("Substance_Name", document.Substance_Name);
        out.Member("Met_Present", document.Met_Present);
        out.Member("Bound_Active", document.Bound_Active);
        out.Member("Trans_Active", document.Trans_Active);
        Write_Applications(out, document);
        Write_Volatilisation_And_Degradation(out, document);
        Write_Sorption(out, document);
    });
    return out.Written();
}

} // namespace orvel
