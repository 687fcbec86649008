#include "files/field_units.h"

#include <algorithm>
#include <array>

namespace orvel {

namespace {

struct Field_Unit {
    std::string_view Field, Unit;
};

// In the order of the documents.
constexpr std::array Units = {
    Field_Unit{"App_Rate", "kg/ha"},
    Field_Unit{"App_Depth", "cm"},
    Field_Unit{"App_Frpex", "%"},
    Field_Unit{"App_Crop_Flag", "h"},
    Field_Unit{"Abs9_Day", "d"},
    Field_Unit{"Abs9_Rate", "kg/ha"},
    Field_Unit{"Abs9_Depth", "cm"},
    Field_Unit{"Abs9_Frpex", "%"},
    Field_Unit{"Plant_Decay", "1/d"},
    Field_Unit{"Plant_Washoff", "1/cm"},
    Field_Unit{"Plant_Filtration", "m2/kg"},
    Field_Unit{"Plant_Penetration", "1/d"},
    Field_Unit{"Plant_Photodeg", "1/d"},
    Field_Unit{"Plant_Ref_Rad", "W/m2"},
    Field_Unit{"Plant_Laminar", "cm"},
    Field_Unit{"Henry", "Pa m3/mol"},
    Field_Unit{"Solubility", "mg/L"},
    Field_Unit{"Vap_Press", "Pa"},
    Field_Unit{"Volat_Temp", "degC"},
    Field_Unit{"Diff_Air", "cm2/s"},
    Field_Unit{"Depth_Volat", "cm"},
    Field_Unit{"Hv", "J/mol"},
    Field_Unit{"Deg_Rate", "1/d"},
    Field_Unit{"Deg_Temp", "degC"},
    Field_Unit{"Deg_Moist_Abs", "vol.%"},
    Field_Unit{"Deg_Moist_Rel", "% of field capacity"},
    Field_Unit{"Photo_Rate", "1/d"},
    Field_Unit{"Photo_I_Ref", "W/m2"},
    Field_Unit{"Molmass", "g/mol"},
    Field_Unit{"Koc", "L/kg"},
    Field_Unit{"Koc2", "L/kg"},
    Field_Unit{"Freundl_Limit", "ug/L"},
    Field_Unit{"Ann_Incr", "%/a"},
    Field_Unit{"K_doc", "L/kg"},
    Field_Unit{"K_des", "1/d"},
    Field_Unit{"Hor_Kd", "L/kg"},
    Field_Unit{"SZE_Snow_Factor", "cm/(degC d)"},
    Field_Unit{"SZE_ET_Depth", "cm"},
    Field_Unit{"SZE_Eros_4", "ha"},
    Field_Unit{"SZE_Eros_5", "h"},
    Field_Unit{"SZE_Rot_Text2", "cm"},
    Field_Unit{"SZE_Rot_Text1", "cm"},
    Field_Unit{"SZE_Rot_Interception", "%"},
    Field_Unit{"SZE_Rot_Dry_Mass", "kg/m2"},
    Field_Unit{"SZE_Core_Depth", "cm"},
    Field_Unit{"SZE_Hor_Thickness", "cm"},
    Field_Unit{"SZE_Hor_Bulk_Density", "g/cm3"},
    Field_Unit{"SZE_Hor_Dispersion", "cm or cm2/d"},
    Field_Unit{"SZE_Hor_Drainage", "1/d"},
    Field_Unit{"SZE_Hor_OC", "%"},
    Field_Unit{"SZE_Hor_Sand", "%"},
    Field_Unit{"SZE_Hor_Clay", "%"},
    Field_Unit{"SZE_Macro_Depth", "cm"},
    Field_Unit{"SZE_DOC_Content", "mg/L"},
    Field_Unit{"SZE_Runoff_Depth", "cm"},
    Field_Unit{"SZE_Macro_Threshold", "cm"},
    Field_Unit{"SZE_Latitude", "degrees"},
    Field_Unit{"Cli_Rain", "cm"},
    Field_Unit{"Cli_Evap", "cm"},
    Field_Unit{"Cli_Temp_14", "degC"},
    Field_Unit{"Cli_Temp_Mean", "degC"},
    Field_Unit{"Cli_Temp_Diff", "degC"},
    Field_Unit{"Cli_Rel_Hum", "%"},
    Field_Unit{"Cli_Radiation", "kJ/m2"},
};

} // namespace

std::string_view Unit_Of_Field(std::string_view field)
{
    field.remove_prefix(field.rfind('.') + 1); // npos + 1 is 0
    field = field.substr(0, field.find('['));
    const auto* const found = std::ranges::find(Units, field, &Field_Unit::Field);
    return found == Units.end() ? std::string_view() : found->Unit;
}

} // namespace orvel
