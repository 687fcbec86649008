#include "core/output_variables.h"

#include <algorithm>

namespace orvel {

namespace {

constexpr std::string_view One = "    1.0 ";
constexpr std::string_view Per_Hectare = " 1.0E05 "; // g/cm2 to kg/ha
constexpr std::string_view Micro = " 1.0E06 ";
constexpr std::string_view Nano = " 1.0E09 "; // g/cm3 to ug/L

constexpr std::array<std::string_view, 2> Centimetres{"(cm/d)", "(cm)"};
constexpr std::array<std::string_view, 2> Kilograms{"(kg/ha/d)", "(kg/ha)"};
constexpr bool At_Depth = true, Of_Substance = true;
using enum Quantity;

constexpr std::array<std::string_view, 2> Same(std::string_view unit)
{
    return {unit, unit};
}

} // namespace

const std::array<Output_Variable, Last_Output_Variable + 1> Output_Variables = {{
    {"    ", "", {"", ""}, One, State},
    {"PRSN", "Precipitation", Centimetres, One, Flow},
    {"TETD", "Actual evapotranspiration", Centimetres, One, Flow},
    {"INFL", "Percolate", Centimetres, One, Flow, At_Depth},
    {"RUNF", "Runoff ", Centimetres, One, Flow},
    {"ESLS", "Soil loss", {"(t/d)", "(t)"}, One, Flow},
    {"THET", "Soil moisture ", Same("(m\xB3/m\xB3)"), One, State, At_Depth},
    {"TEMP", "Soil temperatures",
     Same("(\xB0"
          "C)"),
     One, State, At_Depth},
    {"TPAP", "Total application/formation", Kilograms, Per_Hectare, Flow, false, Of_Substance},
    {"TDKF", "Total degradation", Kilograms, Per_Hectare, Flow, false, Of_Substance},
    {"TDKQ", "Total degradation in eq. domain", Kilograms, Per_Hectare, Flow, false, Of_Substance},
    {"TDKN", "Total degradation in non-eq. domain", Kilograms, Per_Hectare, Flow, false, Of_Substance},
    {"TUPF", "Uptake by plants", Kilograms, Per_Hectare, Flow, false, Of_Substance},
    {"TVOX", "Volatilisation", Kilograms, Per_Hectare, Flow, false, Of_Substance},
    {"TPST", "Total concentration in soil", Same("(\xB5g/cm\xB3)"), Micro, State, At_Depth, Of_Substance},
    {"QPST", "Concentration in eq. domain", Same("(\xB5g/cm\xB3)"), Micro, State, At_Depth, Of_Substance},
    {"NPST", "Concentration in non-eq. domain", Same("(\xB5g/cm\xB3)"), Micro, State, At_Depth, Of_Substance},
    {"DKFX", "Degradation", Kilograms, Per_Hectare, Flow, At_Depth, Of_Substance},
    {"DKFQ", "Degradation in equilbrium domain", Kilograms, Per_Hectare, Flow, At_Depth, Of_Substance},
    {"DKFN", "Degradation in non-equilbrium domain", Kilograms, Per_Hectare, Flow, At_Depth, Of_Substance},
    {"PFLX", "Leaching output", Kilograms, Per_Hectare, Flow, At_Depth, Of_Substance},
    {"RFLX", "Runoff flux", Kilograms, Per_Hectare, Flow, false, Of_Substance},
    {"EFLX", "Erosion flux", Kilograms, Per_Hectare, Flow, false, Of_Substance},
    {"LEAC", "Percolate concentration", Same("(\xB5g/L)"), Nano, Flow_Concentration, At_Depth, Of_Substance},
    {"SPST", "Dissolved substance in soil", Same("(mg/L soil)"), Micro, State, At_Depth, Of_Substance},
    {"TPSC", "Total content in soil", Same("(mg/kg)"), Micro, State, At_Depth, Of_Substance},
    {"QPSC", "Content in eq. domain", Same("(mg/kg)"), Micro, State, At_Depth, Of_Substance},
    {"NPSC", "Content in non-eq. domain", Same("(mg/kg)"), Micro, State, At_Depth, Of_Substance},
    {"SPSC", "Dissolved concentration in soil water", Same("(mg/L)"), Micro, State, At_Depth, Of_Substance},
}};

const Output_Variable& Output_Variable_Of(int number)
{
    return Output_Variables[static_cast<std::size_t>(std::clamp(number, 0, Last_Output_Variable))];
}

int Output_Variable_Number(std::string_view code)
{
    for (int number = 1; number <= Last_Output_Variable; ++number) {
        if (Output_Variables[static_cast<std::size_t>(number)].Out_Code == code)
            return number;
    }
    return 0;
}

} // namespace orvel
