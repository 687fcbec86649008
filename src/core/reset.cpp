// The default values of documents; the functions are declared with the records in session.h.
#include "core/pesticide_constants.h"
#include "core/session.h"

namespace orvel {

namespace {

constexpr int Default_Applications = 26;

Degradation_Row Default_Degradation()
{
    return {.Deg_Rate = 0,
            .Deg_Temp = 20,
            .Deg_Q10 = 2.58,
            .Deg_Moist_Abs = 0,
            .Deg_Moist_Rel = 100,
            .Deg_Moist_Exp = 0.7,
            .Deg_Neq = 0};
}

void Reset_Substance(Pesticide_Document& document, int i)
{
    const auto s = static_cast<std::size_t>(i);
    const bool active = i == 1;
    document.Substance_Name[s] = Default_Substance_Name[s];
    document.Met_Present[s] = active;
    document.Kd_Flag[s] = 1;
    document.Molmass[s] = active ? 0 : 1;
    document.Plant_Uptake[s] = 0.5;
    document.Koc[s] = active ? 0 : 0.7;
    document.Koc2[s] = No_Value;
    document.Fr_Exp[s] = 0.9;
    document.Sorp_pH[s] = active ? 0 : 7;
    document.Sorp_pH2[s] = No_Value;
    document.Sorp_pKa[s] = No_Dissociation;
    document.Freundl_Limit[s] = 0.01;
    document.Ann_Incr[s] = 0;
    document.K_doc[s] = 0;
    document.Koc_Change[s] = 1;
    for (int j = 1; j <= Rows_Of_Substance(i); ++j)
        document.Degradation[s][static_cast<std::size_t>(j)] = Default_Degradation();
    for (auto& horizon : document.Horizons) {
        horizon.Hor_Kd[s] = 0;
        horizon.Hor_FrExp[s] = 0.9;
        for (int k = 1; k <= Rows_Of_Substance(i); ++k)
            horizon.Hor_Deg[s][static_cast<std::size_t>(k)] = 1;
    }
}

} // namespace

void Reset_PSM(Pesticide_Document& document)
{
    document.App_Rel_Flag = 1;
    document.App_Mode = 1;
    document.Plant_Ref_Rad = 500;
    document.App_Location.fill({});
    document.Deg_Depth_Mode.fill(0);
    document.PSM_Title = "Insert Title";
    document.N_Horizons = 0;
    document.Horizons.assign(2, {});
    document.App_Count.fill(Default_Applications);
    document.App_Method = 1;
    document.Plant_Decay = 0.0693;
    document.Plant_Penetration = 0.0693;
    document.Plant_Washoff = 0.5;
    document.Plant_Filtration = 0;
    document.Henry_Flag = 0;
    document.Henry.fill(0);
    document.Solubility.fill(0);
    document.Vap_Press.fill(0);
    document.Volat_Temp = {20, 30};
    document.Diff_Air = 0.05;
    document.Photo_I_Ref.fill(500);
    document.Photo_Rate.fill(0);
    document.Depth_Volat = 0.1;
    document.Hv = Default_Enthalpy;
    document.Plant_Laminar = 0.03;
    for (int i = 1; i <= Substances; ++i)
        Reset_Substance(document, i);
    for (auto& location : document.Applications) {
        for (int a = 1; a <= Default_Applications; ++a) {
            auto& application = location[static_cast<std::size_t>(a)];
            application.App_Year = static_cast<std::int16_t>(a);
            application.App_Month = 1;
            application.App_Day = 1;
            application.App_Rate = 0;
            application.App_Depth = 0;
            application.App_Time = 0;
        }
    }
    document.App_Loc_Count = 9;
}

void Reset_SZE(Scenario_Document& document)
{
    document = {};
    document.SZE_Title = "Insert Title";
    document.SZE_Macro_Threshold = 100;
    for (auto& stage : document.SZE_Kc)
        stage.fill(1);
    document.SZE_Snow_Factor = 0.46;
    document.SZE_ET_Method = 3;
    document.SZE_First_Crop = 1;
    document.SZE_Line2_Flag = 1;
    document.SZE_Eros_K = document.SZE_Eros_2 = document.SZE_Eros_3 = document.SZE_Eros_4 = 1;
    document.SZE_Eros_5 = 1;
    document.SZE_Core_Depth = 100;
    document.SZE_Layers = 10;
    document.SZE_Horizons = 1;
    document.Horizons.assign(1, {.SZE_Hor_Bulk_Density = 1.5, .SZE_Hor_Drainage = 0.1});
    document.SZE_Bottom_Line = 1;
    document.SZE_Freq_Water = document.SZE_Freq_Solute = document.SZE_Freq_Conc = "MNTH";
    document.SZE_Out_Every_Water = document.SZE_Out_Every_Solute = document.SZE_Out_Every_Conc = 1;
    document.SZE_Latitude = 50;
}

void Clear_Climate(Climate_Table& table, int rows)
{
    table.Cli_Title.clear();
    table.Rows.assign(static_cast<std::size_t>(rows),
                      {.Cli_Day = "00", .Cli_Month = "00", .Cli_Year = "00", .Cli_Rel_Hum = 100});
}

} // namespace orvel
