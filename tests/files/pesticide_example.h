#pragma once

#include "core/session.h"

#include <memory>
#include <string_view>

namespace orvel {

// A pesticide document as a user would have made it, and its file written out by the layout. One soil horizon, one
// application at the first location, A1 formed from the active substance.

inline std::unique_ptr<Pesticide_Document> Example_Document()
{
    auto document = std::make_unique<Pesticide_Document>();
    auto& d = *document;
    Reset_PSM(d);
    d.PSM_Title = "Demo compound";
    d.Substance_Name[1] = "Alpha";
    d.N_Horizons = 1;
    d.Horizons.assign(3, {});
    d.Horizons[1].Hor_Kd[1] = 1.5;
    d.Horizons[1].Hor_FrExp[1] = 0.9;
    d.Horizons[1].Hor_Deg[1] = {0, 1, 0.5, 0.3, 0.2, 0.1};
    d.Horizons[1].Hor_Kd[2] = 2;
    d.Horizons[1].Hor_FrExp[2] = 0.8;
    d.Horizons[1].Hor_Deg[2] = {0, 1, 0.5, 0.3, 0.2, 0};
    d.App_Loc_Count = 2;
    d.App_Count[0] = 0;
    d.App_Count[1] = 1;
    d.App_Location[1] = "Hamburg (H)";
    d.Applications[1][1] = {.App_Day = 5,
                            .App_Month = 11,
                            .App_Year = 1,
                            .App_Rate = 0.75,
                            .App_Depth = 2,
                            .App_Frpex = 90,
                            .App_Time = 0.25,
                            .App_Crop_Flag = 12};
    d.Henry_Flag = 1;
    d.Molmass[1] = 300;
    d.Henry = {0, 0};
    d.Solubility = {100, 200};
    d.Vap_Press = {0.00001, 4e-05};
    d.Degradation[1][1].Deg_Rate = 0.0231049;
    d.Degradation[1][5].Deg_Rate = 0.01;
    d.Deg_Depth_Mode[1] = 2;
    d.Deg_Liquid_Only[1] = 1;
    d.Koc[1] = 120.5;
    d.Met_Present[2] = true;
    d.Substance_Name[2] = "Beta";
    d.Molmass[2] = 250;
    d.Degradation[2][4].Deg_Rate = 0.005;
    d.Sorp_pKa[2] = 4.5;
    d.Koc2[2] = 60;
    d.Sorp_pH2[2] = 9;
    return document;
}

// clang-format off
constexpr std::string_view Example_Head =
    "<COMMENT>\r\n"
    "Demo compound     <Alpha>\r\n"
    "<END COMMENT>\r\n"
    "<NUMBER OF SOIL HORIZONS>\r\n"
    " 1 \r\n"
    "<END NUMBER OF SOIL HORIZONS>\r\n"
    "<APPLICATION>\r\n";

constexpr std::string_view Example_Applications =
    " 2    0    1    <number of locations absolute app/relative app>\r\n"
    "000            <number of application location>\r\n"
    "001         H   <number of application location>\r\n"
    "05  11  01   0.75    2    90    0.25    12   <day month year app_rate app_depth frpex time>\r\n";

constexpr std::string_view Example_Method =
    " 1    <pesticide appl. flag: 1=soil 2 =linear 3=exp. foliar 4=manually\r\n"
    "<END APPLICATION>\r\n";

constexpr std::string_view Example_Volatilisation =
    "<FLAGS>\r\n"
    " 1   1   <henry(0=direct 1=calc.)  kd_flag(0=direct 1=calc.)>\r\n"
    "<END FLAGS>\r\n"
    "<VOLATILIZATION>\r\n"
    "<henry       solub.      molmass     vap.press   diff air    depth volat.  Hv        Temperature>\r\n"
    "0.00E+00     100    300   1.00E-05     0.05    0.1    98400    20 \r\n"
    "0.00E+00     200    300   4.00E-05     0.05    0.1    98400    30 \r\n"
    "<END VOLATILIZATION>\r\n";

constexpr std::string_view Example_Degradation =
    "<PLANT UPTAKE>\r\n"
    " 0.5      <plant uptake factor\r\n"
    "<END PLANT UPTAKE>\r\n"
    "<DEGRADATION>\r\n"
    "<degrate    degtemp     q10         moist-abs   moist-rel   moist-exp   rel deg neq sites\r\n"
    "0.0231049    20          2.58        0           100         0.7       0        <Met A1>\r\n"
    "0.00E+00     20          2.58        0           100         0.7       0        <Met B1>\r\n"
    "0.00E+00     20          2.58        0           100         0.7       0        <Met C1>\r\n"
    "0.00E+00     20          2.58        0           100         0.7       0        <Met D1>\r\n"
    "0.0100000    20          2.58        0           100         0.7       0        <BR/CO2>\r\n"
    " 5                 <0 = degradation according to degradation factors, 1 = constant with depth,2 individual,3 = degradation according to "
    "degradation factors, 4 = constant with depth,5 individual, >2 deg in liquid phase only)\r\n"
    "<PHOTODEGRADATION>\r\n"
    "<rate 1/n>  <I_Ref W/m\xB2>\r\n"
    " 0   500  0   500  0   500  0   500  0   500 \r\n"
    "<END DEGRADATION>\r\n";

constexpr std::string_view Example_Sorption =
    "<ADSORPTION>\r\n"
    "<Koc-value    Fr.exp.Koc  pH          pKa     limit for Freundl.  ann.incr.> <k_doc> <% change> KOC2      pH2 f_neq       kdes>\r\n"
    " 120.5       0.9        -99          20          0.01             0      0     1    -99    -99     0     0 \r\n"
    "<END ADSORPTION>\r\n"
    "<DEPTH DEPENDENT SORPTION AND TRANSFORMATION VALUES>\r\n"
    "<Kd          Fr.exp.     Met A1   Met B1   Met C1   Met D1   BR/CO2 >\r\n"
    " 1.5         0.9         1        0.5      0.3      0.2      0.1    <horizon 1 >\r\n"
    "<END DEPTH DEPENDENT>\r\n";

constexpr std::string_view Example_A1 =
    "###############################################\r\n"
    "<COMMENT>\r\n"
    "METABOLITE A1     Beta\r\n"
    "<END COMMENT>\r\n"
    "<FLAGS>\r\n"
    " 1   <kd_flag(0=direct 1=calc.)>\r\n"
    "<END FLAGS>\r\n"
    "<MOLMASS>\r\n"
    " 250 \r\n"
    "<END MOLMASS>\r\n"
    "<PLANT UPTAKE>\r\n"
    " 0.5      <plant uptake factor>\r\n"
    "<END PLANT UPTAKE>\r\n"
    "<DEGRADATION>\r\n"
    "<degrate    degtemp     q10         moist-abs   moist-rel   moist-exp  <rel deg in neq sites>\r\n"
    "0.00E+00     20          2.58        0           100         0.7       0        <Met B1>\r\n"
    "0.00E+00     20          2.58        0           100         0.7       0        <Met A2>\r\n"
    "0.00E+00     20          2.58        0           100         0.7       0        <Met B2>\r\n"
    "0.0050000    20          2.58        0           100         0.7       0        <BR/CO2>\r\n"
    " 0                 <0 = degradation according to degradation factors, 1 = constant with depth,2 individual,3 = degradation according to "
    "degradation factors, 4 = constant with depth,5 individual, >2 deg in liquid phase only)\r\n"
    "<END DEGRADATION>\r\n"
    "<ADSORPTION>\r\n"
    "<Koc-value    Fr.exp.Koc  pH          pKa     limit for Freundl.  ann.incr.> <k_doc> <% change> KOC2      pH2    f_neq       kdes>\r\n"
    " 0.7         0.9         7           4.5         0.01             0      0     1     60     9     0     0 \r\n"
    "<END ADSORPTION>\r\n"
    "<DEPTH DEPENDENT SORPTION AND TRANSFORMATION VALUES>\r\n"
    "<Kd          Fr.exp.     Met B1   Met A2   Met B2   BR/CO2 >\r\n"
    " 2           0.8         1        0.5      0.3      0.2    <horizon 1 >\r\n"
    "<END DEPTH DEPENDENT>\r\n";

constexpr std::string_view Example_End = "<END PSM>\r\n";
// clang-format on

inline std::string Example_File()
{
    std::string text;
    for (const auto part : {Example_Head, Example_Applications, Example_Method, Example_Volatilisation,
                            Example_Degradation, Example_Sorption, Example_A1, Example_End})
        text += part;
    return text;
}

} // namespace orvel
