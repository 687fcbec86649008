#pragma once

#include "core/session.h"

#include <string>
#include <string_view>

namespace orvel {

// A scenario document as a user would have made it, and its file written out by the layout: erosion, two crops of which
// the second has tillage, two rotation rows, two horizons with values for a pedotransfer function.

inline Scenario_Document Example_Scenario()
{
    Scenario_Document d;
    Reset_SZE(d);
    d.SZE_Title = " Demo soil ";
    d.SZE_ET_Depth = 15.5;
    d.SZE_Erosion = 1;
    d.SZE_Eros_K = 0.35;
    d.SZE_Crop_Count = 2;
    d.Crops = {{.SZE_Rot_Crop_No = 3,
                .SZE_Rot_Text2 = 0.2,
                .SZE_Rot_Text1 = 110,
                .SZE_Rot_Interception = 90,
                .SZE_Rot_Residue = 1,
                .SZE_Rot_CN1 = 77,
                .SZE_Rot_CN2 = 69,
                .SZE_Rot_CN3 = 72,
                .SZE_Rot_USLE1 = 0.9,
                .SZE_Rot_USLE2 = 0.2,
                .SZE_Rot_USLE3 = 0.9,
                .SZE_Rot_Dry_Mass = 1.75},
               {.SZE_Rot_Crop_No = 7,
                .SZE_Rot_Text2 = 0,
                .SZE_Rot_Text1 = 60,
                .SZE_Rot_Interception = 80,
                .SZE_Rot_USLE1 = 1,
                .SZE_Rot_USLE2 = 1,
                .SZE_Rot_USLE3 = 1,
                .SZE_Rot_RR_Photo = 0.1,
                .SZE_Rot_RR_Pen = 0.3,
                .SZE_Rot_RR_Vol = 0.4,
                .SZE_Rot_RR_Wash = 0.5,
                .SZE_Rot_Irrigated = 0,
                .SZE_Rot_Perennial = 1,
                .SZE_Rot_Tillage = 1,
                .SZE_Rot_Kc_Mid = 1.05,
                .SZE_Rot_Kc_Late = 0.75}};
    d.SZE_Rot_Count = 2;
    d.Rotation = {{12, 4, 1, 3, 6, 1, 9, 8, 1, 1, 20, 7, 1, 11, 4, 1},
                  {1, 10, 1, 15, 5, 2, 1, 8, 2, 2, 2, 7, 2, 15, 9, 1}};
    d.SZE_Layers = 40;
    d.SZE_Dispersion_Flag = 1;
    d.SZE_Field_4216 = 0;
    d.SZE_Hydraulic_Flag = 1;
    d.SZE_Water_Flag = 2;
    d.SZE_Runoff = 1;
    d.SZE_Horizons = 2;
    d.SZE_Delxflg = 1;
    d.Horizons.assign(2, {.SZE_Hor_Thickness = 30,
                          .SZE_Hor_Bulk_Density = 1.35,
                          .SZE_Hor_Dispersion = 5,
                          .SZE_Hor_Soil_Water = 0.3,
                          .SZE_Hor_Drainage = 0.1,
                          .SZE_Hor_FC = 0,
                          .SZE_Hor_WP = 0,
                          .SZE_Hor_OC = 1.5,
                          .SZE_Hor_pH = 6.4,
                          .SZE_Hor_Sand = 68.3,
                          .SZE_Hor_Clay = 7.2,
                          .SZE_Hor_Biodeg = 1});
    d.Horizons[1].SZE_Hor_Biodeg = 0.5;
    d.SZE_Freq_Water = " ";
    d.SZE_Out_Every_Conc = 10;
    d.SZE_Macropore = 1;
    d.SZE_Macro_Depth = 55;
    d.SZE_DOC_Content = 20;
    d.SZE_Latitude = 52.5;
    return d;
}

// clang-format off
constexpr std::string_view Scenario_Head =
    " Demo soil \r\n";

constexpr std::string_view Scenario_Line_2 =
    " 1    0.46    3    15.5    3    1    1    1   ";

constexpr std::string_view Scenario_Crops =
    " 1 \r\n"
    " 0.35    1    1    1    1 \r\n"
    " 2 \r\n"
    " 3    0.2    110    90    1    77    69    72    0.9    0.2    0.9    1.75    0.2    0.2    0.2    0.2    1    0    0    1    1 \r\n"
    " 7    0    60    80    0    0    0    0    1    1    1    0    0.1    0.3    0.4    0.5    0    1    1    1.05    0.75 \r\n";

constexpr std::string_view Scenario_Rotation =
    "    2 \r\n"
    "  120401  030601  090801      01  200701  110401\r\n"
    "  011001  150502  010802      02  020702  150901\r\n";

constexpr std::string_view Scenario_Soil =
    " 100    1       40      0       1       2 \r\n"
    " 2             1 \r\n"
    "    1   30      1.35    5       0.3     0.1 \r\n"
    "        68.3    7.2     1.5     6.4     1 \r\n"
    "    2   30      1.35    5       0.3     0.1 \r\n"
    "        68.3    7.2     1.5     6.4     0.5 \r\n"
    " 1 \r\n";

constexpr std::string_view Scenario_Output =
    "    WATR     DAY    0001    PEST    MNTH    0001    CONC    MNTH    0010\r\n"
    "       1        55      20      0       0     100     0 \r\n"
    "   52.5 \r\n";
// clang-format on

inline std::string Scenario_File(std::string_view marker = "ORVEL400TILLAGE",
                                 std::string_view rotation = Scenario_Rotation)
{
    std::string text(Scenario_Head);
    text += Scenario_Line_2;
    text += marker;
    text += "\r\n";
    text += Scenario_Crops;
    text += rotation;
    text += Scenario_Soil;
    text += Scenario_Output;
    return text;
}

} // namespace orvel
