#pragma once

#include "core/session.h"
#include "files/lines.h"

#include <array>
#include <string_view>

namespace orvel {

// The lines of a pesticide file, each stated once for reading, printing and listing. Tabs are 1-based columns.

constexpr std::string_view Target_A1 = "Met A1", Target_B1 = "Met B1", Target_C1 = "Met C1", Target_D1 = "Met D1";
constexpr std::string_view Target_A2 = "Met A2", Target_B2 = "Met B2", Target_C2 = "Met C2", Target_D2 = "Met D2",
                           Target_Sink = "BR/CO2";

// Where each degradation row of a substance leads: [substance][row].
constexpr Per_Substance<std::array<std::string_view, Degradation_Rows + 1>> Target_Label = {{
    {},
    {"", Target_A1, Target_B1, Target_C1, Target_D1, Target_Sink},
    {"", Target_B1, Target_A2, Target_B2, Target_Sink},
    {"", Target_C1, Target_B2, Target_C2, Target_Sink},
    {"", Target_D1, Target_C2, Target_D2, Target_Sink},
    {"", Target_Sink, Target_D2, Target_Sink, Target_Sink},
    {"", Target_B2, Target_Sink},
    {"", Target_C2, Target_Sink},
    {"", Target_D2, Target_Sink},
    {"", Target_Sink, Target_Sink},
}};

// The names of the metabolites' sections, all of one width.
constexpr std::size_t Section_Name_Width = 13;
constexpr Per_Substance<std::string_view> Section_Name = {"",
                                                          "",
                                                          "METABOLITE A1",
                                                          "METABOLITE B1",
                                                          "METABOLITE C1",
                                                          "METABOLITE D1",
                                                          "METABOLITE A2",
                                                          "METABOLITE B2",
                                                          "METABOLITE C2",
                                                          "METABOLITE D2"};

// Lines and words that the reader recognises.
constexpr std::string_view Photodegradation_Tag = "<PHOTODEGRADATION>";
constexpr std::string_view End_Tag = "<END PSM>";
constexpr std::string_view Second_Point_Mark = "Temperature";
constexpr std::string_view Depth_Mode_Mark = "degradation according to degradation factors";

constexpr int Photodegradation_Pairs = 5;
constexpr int Individual_Depth_Modes = 3; // a depth mode of 3 or more says that degradation is in the liquid phase only

// Foliar methods: 2 linear, 3 exponential, 4 manually.
constexpr double Soil_Method = 1;
constexpr double Exponential_Method = 3;

template <class Line, class Document> void Horizon_Count_Line(Line& line, Document& document)
{
    line.Field(document.N_Horizons, "Number of soil horizons");
}

constexpr int Location_Code_Tab = 13;

template <class Line, class Application> void Application_Line(Line& line, Application& application)
{
    line.Pattern(application.App_Day, "00", "Day").Tab(5).Pattern(application.App_Month, "00", "Month").Tab(9);
    line.Pattern(application.App_Year, "00", "Year")
        .Spc(2)
        .Field(application.App_Rate, "Rate")
        .Spc(2)
        .Field(application.App_Depth, "Depth");
    line.Spc(2).Field(application.App_Frpex, "Interception");
}

template <class Line, class Application> void Relative_Line(Line& line, Application& application)
{
    line.Pattern(application.Abs9_Day, "00", "Days")
        .Spc(2)
        .Pattern(application.Abs9_Month, "00", "Reference point")
        .Spc(2);
    line.Pattern(application.Abs9_Year, "00", "Year")
        .Spc(2)
        .Field(application.Abs9_Rate, "Rate")
        .Spc(2)
        .Field(application.Abs9_Depth, "Depth");
    line.Spc(2).Field(application.Abs9_Frpex, "Interception");
}

// The end of both kinds of application line.
template <class Line, class Application> void Application_Tail(Line& line, Application& application)
{
    line.Spc(2).Field(application.App_Time, "Fraction poorly exposed").Spc(2).Field(application.App_Crop_Flag, "Hour");
    line.Text("  <day month year app_rate app_depth frpex time>");
}

template <class Line, class Document> void Method_Line(Line& line, Document& document)
{
    line.Field(document.App_Method, "Application method")
        .Spc(3)
        .Text("<pesticide appl. flag: 1=soil 2 =linear 3=exp. foliar 4=manually");
}

// Only with a foliar method.
template <class Line, class Document> void Plant_Line(Line& line, Document& document)
{
    const bool exponential = document.App_Method.Number() == Exponential_Method;
    line.Field(document.Plant_Decay, "Plant decay rate").Spc(2).Field(document.Plant_Washoff, "Washoff parameter");
    if (exponential)
        line.Spc(3).Field(document.Plant_Filtration, "Filtration parameter").Spc(2);
    line.Field(document.Plant_Penetration, "Penetration")
        .Spc(2)
        .Field(document.Plant_Photodeg, "Photodegradation on plants")
        .Spc(2);
    line.Field(document.Plant_Ref_Rad, "Reference radiation")
        .Spc(2)
        .Field(document.Plant_Laminar, "Laminar layer")
        .Spc(2);
    if (exponential)
        line.Text("  <plant decay rate;washoff parameter;filtration parameter;penetration;photdegradation;reference "
                  "radiation;laminar layer>");
    else
        line.Zone().Text(
            "<plant decay rate;washoff parameter;penetration;photdegradation;reference radiation;laminar layer>");
}

template <class Line, class Document> void Flags_Line(Line& line, Document& document)
{
    line.Field(document.Henry_Flag, "Henry flag").Spc(1).Field(document.Kd_Flag[1], "Kd flag");
    line.Text("  <henry(0=direct 1=calc.)  kd_flag(0=direct 1=calc.)>");
}

constexpr std::string_view Volatilisation_Header =
    "<henry       solub.      molmass     vap.press   diff air    depth volat.  Hv        Temperature>";

// The older form has these fields alone.
template <class Line, class Document> void Volatilisation_Line(Line& line, Document& document, std::size_t k)
{
    line.Scientific(document.Henry[k], "Henry constant").Spc(2).Field(document.Solubility[k], "Solubility").Spc(2);
    line.Field(document.Molmass[1], "Molar mass").Spc(2).Scientific(document.Vap_Press[k], "Vapour pressure").Spc(2);
    line.Field(document.Diff_Air, "Diffusion coefficient in air")
        .Spc(2)
        .Field(document.Depth_Volat, "Volatilisation depth");
}

template <class Line, class Document> void Volatilisation_Temperature(Line& line, Document& document, std::size_t k)
{
    line.Spc(2).Field(document.Hv, "Enthalpy of vaporisation").Spc(2).Field(document.Volat_Temp[k], "Temperature");
}

template <class Line, class Row> void Degradation_Line(Line& line, Row& row, std::string_view target)
{
    line.Scientific(row.Deg_Rate, "Degradation rate")
        .Tab(13)
        .Field(row.Deg_Temp, "Reference temperature")
        .Tab(25)
        .Field(row.Deg_Q10, "Q10")
        .Tab(37);
    line.Field(row.Deg_Moist_Abs, "Absolute moisture").Tab(49).Field(row.Deg_Moist_Rel, "Relative moisture").Tab(61);
    line.Field(row.Deg_Moist_Exp, "Moisture exponent")
        .Tab(71)
        .Field(row.Deg_Neq, "Degradation at non-equilibrium sites")
        .Tab(81);
    line.Text("<").Text(target).Text(">");
}

template <class Line, class Document> void Photodegradation_Line(Line& line, Document& document)
{
    for (std::size_t i = 1; i <= Photodegradation_Pairs; ++i)
        line.Field(document.Photo_Rate[i], "Photodegradation rate")
            .Text(" ")
            .Field(document.Photo_I_Ref[i], "Photodegradation reference radiation");
}

template <class Line, class Document> void Sorption_Line(Line& line, Document& document, std::size_t i)
{
    line.Field(document.Koc[i], "Koc")
        .Tab(13)
        .Field(document.Fr_Exp[i], "Freundlich exponent")
        .Tab(25)
        .Field(document.Sorp_pH[i], "pH")
        .Tab(37);
    line.Field(document.Sorp_pKa[i], "pKa").Tab(49).Field(document.Freundl_Limit[i], "Freundlich limit").Tab(66);
    line.Field(document.Ann_Incr[i], "Annual increase").Tab(73).Field(document.K_doc[i], "K_doc").Spc(3);
    line.Field(document.Koc_Change[i], "% change")
        .Spc(3)
        .Field(document.Koc2[i], "Second Koc")
        .Spc(3)
        .Field(document.Sorp_pH2[i], "Second pH")
        .Spc(3);
    line.Field(document.F_neq[i], "f_neq").Spc(3).Field(document.K_des[i], "k_des");
}

// Columns of the factors 2 and on, and of the label behind them.
constexpr std::array<int, 4> Factor_Tab = {34, 43, 52, 61};
constexpr int Horizon_Label_Tab_Active = 69, Horizon_Label_Tab_First = 60, Horizon_Label_Tab_Second = 44;

constexpr int Horizon_Label_Tab(int i)
{
    return i == 1 ? Horizon_Label_Tab_Active : i < 6 ? Horizon_Label_Tab_First : Horizon_Label_Tab_Second;
}

template <class Line, class Horizon> void Horizon_Line(Line& line, Horizon& horizon, int i)
{
    const auto s = static_cast<std::size_t>(i);
    line.Field(horizon.Hor_Kd[s], "Kd").Tab(13).Field(horizon.Hor_FrExp[s], "Freundlich exponent").Tab(25);
    line.Field(horizon.Hor_Deg[s][1], "Transformation factor 1");
    constexpr std::array<std::string_view, 4> names = {"Transformation factor 2", "Transformation factor 3",
                                                       "Transformation factor 4", "Transformation factor 5"};
    for (std::size_t k = 2; k <= static_cast<std::size_t>(Rows_Of_Substance(i)); ++k)
        line.Tab(Factor_Tab[k - 2]).Field(horizon.Hor_Deg[s][k], names[k - 2]);
    line.Tab(Horizon_Label_Tab(i));
}

// Lines of a metabolite's section with one value.
template <class Line, class Document> void Metabolite_Flags_Line(Line& line, Document& document, std::size_t i)
{
    line.Field(document.Kd_Flag[i], "Kd flag").Text("  <kd_flag(0=direct 1=calc.)>");
}

template <class Line, class Document> void Molmass_Line(Line& line, Document& document, std::size_t i)
{
    line.Field(document.Molmass[i], "Molar mass");
}

// The text of the active substance has no closing bracket.
template <class Line, class Document> void Uptake_Line(Line& line, Document& document, std::size_t i)
{
    line.Field(document.Plant_Uptake[i], "Plant uptake factor")
        .Spc(5)
        .Text(i == 1 ? "<plant uptake factor" : "<plant uptake factor>");
}

} // namespace orvel
