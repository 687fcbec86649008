#include "core/output_variables.h"

namespace orvel {

namespace {

constexpr std::string_view One = "    1.0 ";
constexpr std::string_view Per_Hectare = " 1.0E05 "; // g/cm2 to kg/ha
constexpr std::string_view Micro = " 1.0E06 ";
constexpr std::string_view Nano = " 1.0E09 "; // g/cm3 to ug/L

constexpr std::array<std::string_view, 2> Centimetres{"(cm/d)", "(cm)"};
constexpr std::array<std::string_view, 2> Kilograms{"(kg/ha/d)", "(kg/ha)"};
constexpr std::array<std::string_view, 2> Same(std::string_view unit)
{
    return {unit, unit};
}

} // namespace

const std::array<Output_Variable, Last_Output_Variable + 1> Output_Variables = {{
    {"    ", "", {"", ""}, One},
    {"PRSN", "Precipitation", Centimetres, One},
    {"TETD", "Actual evapotranspiration", Centimetres, One},
    {"INFL", "Percolate", Centimetres, One},
    {"RUNF", "Runoff ", Centimetres, One},
    {"ESLS", "Soil loss", {"(t/d)", "(t)"}, One},
    {"THET", "Soil moisture ", Same("(m\xB3/m\xB3)"), One},
    {"TEMP", "Soil temperatures",
     Same("(\xB0"
          "C)"),
     One},
    {"TPAP", "Total application/formation", Kilograms, Per_Hectare},
    {"TDKF", "Total degradation", Kilograms, Per_Hectare},
    {"TDKQ", "Total degradation in eq. domain", Kilograms, Per_Hectare},
    {"TDKN", "Total degradation in non-eq. domain", Kilograms, Per_Hectare},
    {"TUPF", "Uptake by plants", Kilograms, Per_Hectare},
    {"TVOX", "Volatilisation", Kilograms, Per_Hectare},
    {"TPST", "Total concentration in soil", Same("(\xB5g/cm\xB3)"), Micro},
    {"QPST", "Concentration in eq. domain", Same("(\xB5g/cm\xB3)"), Micro},
    {"NPST", "Concentration in non-eq. domain", Same("(\xB5g/cm\xB3)"), Micro},
    {"DKFX", "Degradation", Kilograms, Per_Hectare},
    {"DKFQ", "Degradation in equilbrium domain", Kilograms, Per_Hectare},
    {"DKFN", "Degradation in non-equilbrium domain", Kilograms, Per_Hectare},
    {"PFLX", "Leaching output", Kilograms, Per_Hectare},
    {"RFLX", "Runoff flux", Kilograms, Per_Hectare},
    {"EFLX", "Erosion flux", Kilograms, Per_Hectare},
    {"LEAC", "Percolate concentration", Same("(\xB5g/L)"), Nano},
    {"SPST", "Dissolved substance in soil", Same("(mg/L soil)"), Micro},
    {"TPSC", "Total content in soil", Same("(mg/kg)"), Micro},
    {"QPSC", "Content in eq. domain", Same("(mg/kg)"), Micro},
    {"NPSC", "Content in non-eq. domain", Same("(mg/kg)"), Micro},
    {"SPSC", "Dissolved concentration in soil water", Same("(mg/L)"), Micro},
}};

int Output_Variable_Number(std::string_view code)
{
    for (int number = 1; number <= Last_Output_Variable; ++number) {
        if (Output_Variables[static_cast<std::size_t>(number)].Out_Code == code)
            return number;
    }
    return 0;
}

} // namespace orvel
