// Checks the scenario and the run control before a run.
#include "core/pesticide_constants.h"
#include "engine/setup/input.h"
#include "engine/water/surface_water.h"
#include "engine/water/water.h"

#include <cmath>

namespace orvel::engine {

namespace {

constexpr int Most_Compartments = 400;
constexpr double Least_Core = 5; // cm: less is a depth in metres

class Scenario_Check {
public:
    Scenario_Check(const Scenario_Document& scenario, const Run_Control& control, Findings& findings)
        : Scenario(scenario),
          Control(control),
          The_Findings(findings)
    {}

    void Check()
    {
        Check_Core();
        for (std::size_t h = 0; h < Scenario.Horizons.size(); ++h)
            Check_Horizon(Scenario.Horizons[h], " IN HORIZON " + std::to_string(h + 1));
        for (std::size_t c = 0; c < Scenario.Crops.size(); ++c)
            Check_Crop(Scenario.Crops[c], " IN CROP ROW " + std::to_string(c + 1));
        Check_Surface();
        Check_Output();
    }

private:
    void Require(bool good, Fault fault, const std::string& text)
    {
        if (!good)
            The_Findings.Error(fault, text);
    }

    void Check_Core()
    {
        const auto horizons = static_cast<int>(Scenario.Horizons.size());
        Require(Within(Scenario.SZE_Core_Depth, Least_Core, 100000), Fault::Compartments,
                "CORE DEPTH NOT WITHIN 5 TO 100000 CM");
        Require(horizons >= 1, Fault::Scenario_Unreadable, "NO SOIL HORIZON");
        if (Scenario.SZE_Delxflg != 0) {
            Require(Within(Scenario.SZE_Layers, 1, Most_Compartments), Fault::Compartments,
                    "NUMBER OF COMPARTMENTS NOT 1 TO 400");
            Require(horizons <= Scenario.SZE_Layers, Fault::Compartments, "MORE HORIZONS THAN COMPARTMENTS");
        } else {
            Require(horizons <= Most_Compartments, Fault::Compartments, "MORE THAN 400 HORIZONS");
        }
        double sum = 0;
        for (const auto& horizon : Scenario.Horizons)
            sum += horizon.SZE_Hor_Thickness.Number();
        Require(std::fabs(sum - Scenario.SZE_Core_Depth) <= 0.01, Fault::Horizon_Thickness,
                "SUM OF HORIZON THICKNESS DIFFERS FROM CORE DEPTH");
        Require(Within(Scenario.SZE_Latitude, -90, 90), Fault::Scenario_Value, "LATITUDE NOT WITHIN -90 TO 90 DEGREES");
        Require(Within(Scenario.SZE_ET_Method, 0, 3), Fault::Scenario_Value, "EVAPOTRANSPIRATION METHOD NOT 0 TO 3");
        Require(Within(Scenario.SZE_ET_Depth, 0, 10000), Fault::Scenario_Value,
                "EVAPORATION DEPTH NOT WITHIN 0 TO 10000 CM");
        Require(Within(Scenario.SZE_Snow_Factor.Number(), 0, 100), Fault::Scenario_Value,
                "SNOW FACTOR NOT WITHIN 0 TO 100");
        Require(Within(Scenario.SZE_Hydraulic_Flag.Number(), 0, 2), Fault::Scenario_Value, "HYDRAULIC FLAG NOT 0 TO 2");
        Require(Within(Scenario.SZE_Water_Flag.Number(), 0, 1000), Fault::Scenario_Value,
                "WATER FLAG NOT WITHIN 0 TO 1000");
        for (const auto& stage : Scenario.SZE_Kc)
            Require(Within(stage[0], 0, 10), Fault::Scenario_Value, "CROP FACTOR OF LINE 2 NOT WITHIN 0 TO 10");
        Require(Control.Tillage_Depth <= Scenario.SZE_Core_Depth, Fault::Scenario_Value,
                "TILLAGE DEPTH BELOW THE CORE");
    }

    void Check_Horizon(const Scenario_Horizon& horizon, const std::string& where)
    {
        const double density = horizon.SZE_Hor_Bulk_Density.Number(), carbon = horizon.SZE_Hor_OC.Number();
        const double sand = horizon.SZE_Hor_Sand.Number(), clay = horizon.SZE_Hor_Clay;
        const double capacity = horizon.SZE_Hor_FC.Number(), wilting = horizon.SZE_Hor_WP.Number();
        Require(Within(horizon.SZE_Hor_Thickness.Number(), 1e-3, 100000), Fault::Horizon_Thickness,
                "THICKNESS NOT WITHIN 0.001 TO 100000 CM" + where);
        Require(Within(density, 0.05, 2.6), Fault::Soil_Property, "BULK DENSITY NOT WITHIN 0.05 TO 2.6" + where);
        Require(Within(carbon, 0, 60), Fault::Soil_Property, "ORGANIC CARBON NOT WITHIN 0 TO 60 %" + where);
        if (Scenario.SZE_Hydraulic_Flag.Number() == 0)
            Require(wilting > 0 && wilting < capacity && capacity < 1, Fault::Water_Content,
                    "NOT 0 < WILTING POINT < FIELD CAPACITY < 1" + where);
        else
            Require(Within(sand, 0, 100) && Within(clay, 0, 100) && sand + clay <= 100.5, Fault::Soil_Property,
                    "SAND AND CLAY NOT WITHIN 0 TO 100 %" + where);
        Require(Within(horizon.SZE_Hor_Soil_Water.Number(), 0, 1), Fault::Water_Content,
                "SOIL WATER NOT WITHIN 0 TO 1" + where);
        Require(Within(horizon.SZE_Hor_Dispersion.Number(), 0, 10000), Fault::Scenario_Value,
                "DISPERSION NOT WITHIN 0 TO 10000" + where);
        Require(Within(horizon.SZE_Hor_Drainage.Number(), 0, 1e6), Fault::Scenario_Value,
                "DRAINAGE PARAMETER NOT WITHIN 0 TO 1E6" + where);
        Require(Within(horizon.SZE_Hor_Biodeg, 0, 1000), Fault::Scenario_Value,
                "DEGRADATION FACTOR NOT WITHIN 0 TO 1000" + where);
        Require(Within(horizon.SZE_Hor_pH.Number(), No_Value, 14), Fault::Scenario_Value,
                "PH NOT WITHIN -99 TO 14" + where);
    }

    void Check_Crop(const Crop_Row& crop, const std::string& where)
    {
        if (Runoff_Is_On(Scenario)) {
            for (const std::int16_t number : {crop.SZE_Rot_CN1, crop.SZE_Rot_CN2, crop.SZE_Rot_CN3})
                Require(Within(number, 1, 100), Fault::Crop, "CURVE NUMBER NOT WITHIN 1 TO 100" + where);
        }
        for (const Variant& factor : {crop.SZE_Rot_USLE1, crop.SZE_Rot_USLE2, crop.SZE_Rot_USLE3})
            Require(Within(factor.Number(), 0, 100), Fault::Scenario_Value,
                    "COVER FACTOR OF THE SOIL LOSS EQUATION NOT WITHIN 0 TO 100" + where);
        Require(Within(crop.SZE_Rot_Residue, 0, 3), Fault::Crop, "CONDITION AFTER HARVEST NOT 1 TO 3" + where);
        Require(Within(crop.SZE_Rot_Interception.Number(), 0, 100), Fault::Crop,
                "CROP INTERCEPTION NOT WITHIN 0 TO 100 %" + where);
        Require(Within(crop.SZE_Rot_Text1.Number(), 0, 10000), Fault::Crop,
                "ROOT DEPTH NOT WITHIN 0 TO 10000 CM" + where);
        Require(Within(crop.SZE_Rot_Text2.Number(), 0, 10), Fault::Crop,
                "INTERCEPTION STORAGE NOT WITHIN 0 TO 10 CM" + where);
        Require(Within(crop.SZE_Rot_Dry_Mass, 0, 1000), Fault::Crop, "DRY MASS NOT WITHIN 0 TO 1000" + where);
        Require(Within(crop.SZE_Rot_Kc_Mid, 0, 10) && Within(crop.SZE_Rot_Kc_Late, 0, 10), Fault::Crop,
                "CROP FACTOR NOT WITHIN 0 TO 10" + where);
        for (const double rate :
             {crop.SZE_Rot_RR_Photo, crop.SZE_Rot_RR_Pen, crop.SZE_Rot_RR_Vol, crop.SZE_Rot_RR_Wash})
            Require(Within(rate, 0, 1000), Fault::Crop,
                    "RELATIVE RATE OF POORLY EXPOSED DEPOSITS NOT WITHIN 0 TO 1000" + where);
    }

    void Check_Surface()
    {
        if (Scenario.SZE_Erosion == 1) {
            Require(Within(Scenario.SZE_Eros_K.Number(), 0, 100) && Within(Scenario.SZE_Eros_2.Number(), 0, 1000) &&
                        Within(Scenario.SZE_Eros_3.Number(), 0, 100),
                    Fault::Scenario_Value, "EROSION FACTOR NOT WITHIN 0 TO 100, OR 0 TO 1000 FOR THE SLOPE");
            Require(Within(Scenario.SZE_Eros_4.Number(), 1e-6, 1e6), Fault::Scenario_Value,
                    "AREA OF THE EROSION LINE NOT WITHIN 1E-6 TO 1E6");
            Require(Within(Scenario.SZE_Eros_5, 0, 24 * 366), Fault::Scenario_Value,
                    "STORM DURATION NOT WITHIN 0 TO 8784 HOURS");
        }
        if (Scenario.SZE_Macropore == 1) {
            Require(Within(Scenario.SZE_Macro_Depth, 0, Scenario.SZE_Core_Depth), Fault::Scenario_Value,
                    "MACROPORE DEPTH NOT WITHIN THE CORE");
            Require(Within(Scenario.SZE_Macro_Threshold, 0, 1e6), Fault::Scenario_Value,
                    "MACROPORE THRESHOLD NOT WITHIN 0 TO 1E6 CM");
            Require(Within(Scenario.SZE_Macro_Fraction, 0, 1), Fault::Scenario_Value,
                    "MACROPORE FRACTION NOT WITHIN 0 TO 1");
        }
        Require(Within(Scenario.SZE_Runoff_Depth, 0, Scenario.SZE_Core_Depth), Fault::Scenario_Value,
                "RUNOFF DEPTH NOT WITHIN THE CORE");
        if (Scenario.SZE_DOC_Flag != 0)
            Require(Within(Scenario.SZE_DOC_Content, 0, 1e6), Fault::Scenario_Value, "DOC CONTENT NOT WITHIN 0 TO 1E6");
    }

    void Check_Output()
    {
        for (const Variant& step :
             {Scenario.SZE_Out_Every_Water, Scenario.SZE_Out_Every_Solute, Scenario.SZE_Out_Every_Conc})
            Require(Within(step.Number(), 0, 10000), Fault::Scenario_Unreadable,
                    "OUTPUT STEP OF LAYERS NOT WITHIN 0 TO 10000");
    }

    const Scenario_Document& Scenario;
    const Run_Control& Control;
    Findings& The_Findings;
};

} // namespace

void Check_Scenario(const Scenario_Document& scenario, const Run_Control& control, Findings& findings)
{
    Scenario_Check(scenario, control, findings).Check();
}

} // namespace orvel::engine
