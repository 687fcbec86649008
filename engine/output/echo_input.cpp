// The part of echo.orv that repeats the input.
#include "core/text.h"
#include "engine/output/echo.h"
#include "engine/output/figures.h"
#include "engine/water/water.h"

#include <array>

namespace orvel::engine {

namespace {

constexpr std::array<std::string_view, 4> Evapotranspiration_Methods = {"FROM CLIMATE FILE", "HAMON",
                                                                        "FROM CLIMATE FILE, ELSE HAMON", "HAUDE"};

constexpr int Number_Width = 12;

class Printer {
public:
    Printer(std::string& text, const Engine_Input& input) : Out(text), Input(input) {}

    void Print()
    {
        Print_Control();
        Print_Scenario();
        Print_Horizons();
        Print_Crops();
        Print_Counts();
        Print_Volatilisation();
        for (std::size_t i = 0; i < Input.Solute.Substances.size(); ++i)
            Print_Substance(Input.Solute.Substances[i]);
        Print_Applications();
    }

private:
    void Line(std::string_view label, std::string_view value)
    {
        Out += ' ';
        Put_Left(Out, label, 45);
        Out += ' ';
        Out += value;
        Out += CrLf;
    }
    void Line(std::string_view label, double value) { Line(label, General_Text(value)); }
    void User(std::string_view label, std::string_view value) { Line(label, Sanitize(value)); }

    // A row of numbers, each in 12 columns.
    template <class... T> void Row(T... values)
    {
        (Put_Number(values), ...);
        Out += CrLf;
    }
    void Put_Number(double value)
    {
        std::string text = General_Text(value);
        if (static_cast<int>(text.size()) >= Number_Width) {
            std::string short_text;
            Put_Exponent(short_text, value, 1, 5);
            text = General_Text(Val(short_text)); // six significant digits
        }
        Put_Blanks(Out, Number_Width - static_cast<int>(text.size()));
        Out += text;
    }

    static std::string Day_Text(int day, int month) { return std::to_string(day) + "." + std::to_string(month) + "."; }

    void Print_Control()
    {
        const Run_Control& control = Input.Control;
        Out += " RUN CONTROL\r\n";
        Line("YEARS", control.Years);
        Line("PERIOD", Day_Text(control.Start_Day, control.Start_Month) + " OF YEAR 1 TO " +
                           Day_Text(control.End_Day, control.End_Month) + " OF YEAR " + std::to_string(control.Years));
        Line("SOIL MODE", control.Soil_Mode ? "ON" : "OFF");
        if (control.Soil_Mode)
            Line("TEMPERATURE SHIFT (C)", control.Temperature_Shift);
        User("SCENARIO FILE", control.Scenario_File);
        User("PESTICIDE FILE", control.Pesticide_File);
        User("LOCATION CODE", Input.Location_Code.empty() ? "none" : Input.Location_Code);
        Line("TILLAGE DEPTH (CM)", control.Tillage_Depth);
        for (std::size_t y = 0; y < control.Climate_Files.size(); ++y)
            User("CLIMATE OF YEAR " + std::to_string(y + 1),
                 control.Climate_Files[y] + "   " + Input.Weather.Titles[y]);
        Out += "\r\n OUTPUT COLUMNS: CODE, DEPTH (CM), SCALE, SUBSTANCE\r\n";
        for (const Output_Row& row : control.Rows) {
            Out += "  " + Sanitize(row.Code);
            Row(row.Depth, row.Scale, row.Substance);
        }
        Out += CrLf;
    }

    void Print_Scenario()
    {
        const Scenario_Document& s = Input.Scenario;
        Out += " SCENARIO\r\n";
        User("TITLE", s.SZE_Title);
        Line("LATITUDE (DEG)", s.SZE_Latitude);
        Line("EVAPOTRANSPIRATION", Evapotranspiration_Methods[static_cast<std::size_t>(s.SZE_ET_Method)]);
        Line("KC NO CROP, MID, LATE SEASON",
             General_Text(s.SZE_Kc[0][0]) + ", " + General_Text(s.SZE_Kc[1][0]) + ", " + General_Text(s.SZE_Kc[2][0]));
        Line("EVAPORATION DEPTH (CM)", s.SZE_ET_Depth);
        Line("SNOW FACTOR (CM/(C D))", s.SZE_Snow_Factor.Number());
        Line("DRAINAGE", static_cast<int>(s.SZE_Water_Flag.Number()) % 2 == 1 ? "EXPONENTIALLY RESTRICTED" : "FREE");
        Line("RUNOFF", Runoff_Is_On(s) ? "ON, DEPTH (CM) " + General_Text(Input.Solute.Runoff_Depth) : "OFF");
        Line("EROSION", s.SZE_Erosion == 1 ? "ON" : "OFF");
        if (s.SZE_Erosion == 1)
            Line("K, LS, P, AREA (HA), DURATION (H)",
                 General_Text(s.SZE_Eros_K.Number()) + ", " + General_Text(s.SZE_Eros_2.Number()) + ", " +
                     General_Text(s.SZE_Eros_3.Number()) + ", " + General_Text(s.SZE_Eros_4.Number()) + ", " +
                     General_Text(s.SZE_Eros_5));
        Line("MACROPORES", s.SZE_Macropore == 1 ? "ON" : "OFF");
        if (s.SZE_Macropore == 1)
            Line("DEPTH (CM), THRESHOLD (CM), FRACTION", General_Text(s.SZE_Macro_Depth) + ", " +
                                                             General_Text(s.SZE_Macro_Threshold) + ", " +
                                                             General_Text(s.SZE_Macro_Fraction));
        Line("DOC IN SOIL WATER (MG/L)", Input.Solute.Doc);
        Line("DISPERSION", s.SZE_Dispersion_Flag == 1 ? "LENGTH (CM)" : "COEFFICIENT (CM2/D)");
        Line("FURTHER FLAGS (WITHOUT EFFECT)", General_Text(s.SZE_First_Crop) + ", " + General_Text(s.SZE_Line2_Flag) +
                                                   ", " + Sanitize(s.SZE_Field_4216.Text()) + ", " +
                                                   Sanitize(s.SZE_Bottom_Line.Text()) + ", " +
                                                   std::to_string(Input.Pesticide.App_Rel_Flag));
        Out += CrLf;
    }

    void Print_Horizons()
    {
        Out += " COMPARTMENTS WHERE A HORIZON BEGINS\r\n"
               "          NO   BOTTOM CM   RHO G/CM3          FC          WP    POROSITY        OC %          PH      "
               "SAND %      CLAY %  DISPERSION"
               "    DRAINAGE  DEG.FACTOR\r\n";
        const Grid& g = Input.Core;
        for (std::size_t i = 0; i < g.Thickness.size(); ++i) {
            if (i == 0 || g.Horizon[i] != g.Horizon[i - 1])
                Row(g.Horizon[i], g.Bottom[i], g.Density[i], g.Field_Capacity[i], g.Wilting_Point[i], g.Porosity[i],
                    g.Organic_Carbon[i], g.pH[i], g.Sand[i], g.Clay[i], g.Dispersion[i], g.Drainage[i],
                    g.Biodegradation[i]);
        }
        Out += CrLf;
    }

    std::string Date_Text(int day) const
    {
        const Date date = Input.Weather.Dates.Date_Of(day);
        return Day_Text(date.Day, date.Month) + std::to_string(date.Year);
    }

    void Print_Crops()
    {
        Out += " CROP ROWS: NUMBER, STORAGE CM, ROOTS CM, COVER %, AFTER HARVEST, CN 1-3, C 1-3, KG/M2, RR 1-4, IRR, "
               "PER, TIL, KC\r\n";
        for (const Crop_Row& c : Input.Scenario.Crops)
            Row(c.SZE_Rot_Crop_No, c.SZE_Rot_Text2.Number(), c.SZE_Rot_Text1.Number(), c.SZE_Rot_Interception.Number(),
                c.SZE_Rot_Residue, c.SZE_Rot_CN1, c.SZE_Rot_CN2, c.SZE_Rot_CN3, c.SZE_Rot_USLE1.Number(),
                c.SZE_Rot_USLE2.Number(), c.SZE_Rot_USLE3.Number(), c.SZE_Rot_Dry_Mass, c.SZE_Rot_RR_Photo,
                c.SZE_Rot_RR_Pen, c.SZE_Rot_RR_Vol, c.SZE_Rot_RR_Wash, c.SZE_Rot_Irrigated, c.SZE_Rot_Perennial,
                c.SZE_Rot_Tillage, c.SZE_Rot_Kc_Mid, c.SZE_Rot_Kc_Late);
        Out += "\r\n ROTATION: EMERGENCE, MATURATION, SENESCENCE, HARVEST, CROP ROW, TILLAGE\r\n";
        for (const Crop_Period& p : Input.Rotation) {
            if (p.Emergence > Input.Weather.Last_Day)
                break;
            for (const int day : {p.Emergence, p.Maturation, p.Senescence, p.Harvest})
                Out += "  " + Date_Text(day);
            Out += "  " + std::to_string(p.Row + 1) + (p.Tillage == No_Day ? "" : "  " + Date_Text(p.Tillage)) + "\r\n";
        }
        Out += CrLf;
    }

    void Frequency_Line(std::string_view tag, const Variant& frequency, const Variant& step)
    {
        Out += " OUTPUT    ";
        Put_Left(Out, tag, 8);
        Put_Left(Out, Frequency_Word(Frequency_Of(frequency)), 8);
        Out += "LAYER STEP";
        Put_Integer(Out, static_cast<long>(step.Number()), 6);
        Out += CrLf;
    }

    // Programs search for these lines: their order and columns matter.
    void Print_Counts()
    {
        Put_Left(Out, " TOTAL COMPARTMENTS IN CORE", 54);
        Out += std::to_string(Input.Core.Count()) + "\r\n\r\n";
        const Scenario_Document& s = Input.Scenario;
        Frequency_Line("WATR", s.SZE_Freq_Water, s.SZE_Out_Every_Water);
        Frequency_Line("PEST", s.SZE_Freq_Solute, s.SZE_Out_Every_Solute);
        Frequency_Line("CONC", s.SZE_Freq_Conc, s.SZE_Out_Every_Conc);
        Put_Left(Out, " Total number of layers in the top meter:", 52);
        Put_Integer(Out, Input.Core.Top_Layers, 10);
        Out += "\r\n\r\n";
    }

    void Print_Volatilisation()
    {
        const Solute_Volatilisation& v = Input.Solute.Volatilisation;
        User("PESTICIDE TITLE", Input.Pesticide.PSM_Title);
        Line("HENRY CONSTANT", v.Henry_Calculated ? "FROM VAPOUR PRESSURE AND SOLUBILITY" : "GIVEN");
        Out += " TEMPERATURE C, HENRY PA M3/MOL, VAPOUR PRESSURE PA, SOLUBILITY MG/L\r\n";
        for (std::size_t k = 0; k < 2; ++k)
            Row(v.Temperature[k], v.Henry[k], v.Vapour_Pressure[k], v.Solubility[k]);
        Line("ENTHALPY OF VAPORISATION (J/MOL)", v.Enthalpy);
        Line("DIFFUSION IN AIR (CM2/S)", v.Diffusion_Air);
        Line("BOUNDARY LAYER (CM)", v.Boundary_Layer);
        Line("APPLICATION METHOD", Input.Pesticide.App_Method.Number());
        const Solute_Plant& p = Input.Solute.Plant;
        if (Input.Pesticide.App_Method.Number() > 1) {
            Out += " PLANT SURFACE: DECAY, WASH-OFF, PENETRATION, PHOTODEGRADATION, REFERENCE W/M2, LAMINAR LAYER CM, "
                   "FILTRATION\r\n";
            Row(p.Decay, p.Washoff, p.Penetration, p.Photodegradation, p.Reference_Radiation, p.Laminar_Layer,
                Input.Pesticide.Plant_Filtration);
        }
        Out += CrLf;
    }

    void Print_Substance(const Solute_Substance& s)
    {
        const auto i = static_cast<std::size_t>(s.Index);
        Out += "*** PARAMETERS OF " + Sanitize(Input.Pesticide.Substance_Name[i]).substr(0, 80) + "***\r\n";
        Line("MOLAR MASS (G/MOL)", s.Molmass);
        Line("SORPTION", s.Kd_From_Koc ? "FROM KOC" : "FROM KD BY HORIZON");
        Out += " KOC, PH, KOC2, PH2, PKA, 1/N, LIMIT UG/L, INCREASE %/A, K DOC, CHANGE, F NEQ, K DES, UPTAKE\r\n";
        Row(s.Koc, s.pH, s.Koc2, s.pH2, s.pKa, s.Freundlich_Exponent, s.Freundlich_Limit, s.Annual_Increase, s.K_Doc,
            s.Koc_Change, s.F_Neq, s.K_Des, s.Plant_Uptake);
        Out += s.Liquid_Only ? " TRANSFORMATION IN THE LIQUID PHASE ONLY, " : " TRANSFORMATION IN THE WHOLE SOIL, ";
        Out += "DEPTH MODE " + std::to_string(s.Depth_Mode) +
               "\r\n TARGET, RATE 1/D, C, Q10, VOL%, % FC, EXPONENT, NEQ, PHOTOLYSIS 1/D, REFERENCE W/M2\r\n";
        for (int j = 1; j <= Rows_Of_Substance(s.Index); ++j) {
            const Solute_Arrow& a = s.Arrows[static_cast<std::size_t>(j)];
            Row(a.Target, a.Rate, a.Temperature, a.Q10, a.Moist_Abs, a.Moist_Rel, a.Moist_Exp, a.Neq, a.Photo_Rate,
                a.Photo_Reference);
        }
        if (!s.Horizon_Kd.empty())
            Out += " HORIZON, KD, 1/N, FACTORS OF THE ROWS\r\n";
        for (std::size_t h = 0; h < s.Horizon_Kd.size(); ++h) {
            Put_Number(static_cast<double>(h + 1));
            Put_Number(s.Horizon_Kd[h]);
            Put_Number(s.Horizon_Exponent[h]);
            for (int j = 1; j <= Rows_Of_Substance(s.Index); ++j)
                Put_Number(s.Arrows[static_cast<std::size_t>(j)].Horizon_Factor[h]);
            Out += CrLf;
        }
        Out += CrLf;
    }

    void Print_Applications()
    {
        Line("APPLICATION BLOCK", Input.Application_Block);
        Out += " APPLICATIONS: DATE, HOUR, KG/HA, DEPTH CM, SHARE ON PLANTS, POORLY EXPOSED\r\n";
        for (const Planned_Application& a : Input.Applications) {
            Out += "  " + Day_Text(a.On.Day, a.On.Month) + std::to_string(a.On.Year);
            Row(a.Hour, a.Rate, a.Depth, a.Plant_Share, a.Poorly_Exposed);
        }
        Out += CrLf;
    }

    std::string& Out;
    const Engine_Input& Input;
};

} // namespace

void Put_Input(std::string& text, const Engine_Input& input)
{
    Printer(text, input).Print();
}

} // namespace orvel::engine
