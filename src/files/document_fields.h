#pragma once

#include "core/session.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <vector>

namespace orvel {

// The fields of the three documents and of their rows, each named once. JSON, comparison and whatever else goes through
// a document field by field visits these tables. A test counts that no field of a record is missing.

// The elements of an array that are in use: `First` to `End` - 1.
struct Elements {
    std::size_t First = 0, End = std::numeric_limits<std::size_t>::max();
    bool Is_In_Use = true;         // the array as a whole
    std::string_view Counted_As{}; // JSON's member with their number, where no field holds it
};

// Elements `first` to `last`; none where the last is below 0.
constexpr Elements Up_To(double last, std::size_t first = 0)
{
    constexpr double most = 1e9;
    return {first, last < 0 ? 0 : static_cast<std::size_t>(std::min(last, most)) + 1};
}

template <class Record, class Value> struct Record_Field {
    using Rule = Elements (*)(const Record&);
    using Inner_Rule = Elements (*)(const Record&, std::size_t element);

    constexpr Record_Field(
        std::string_view name, Value Record::*member,
        std::type_identity_t<Rule> used = [](const Record&) { return Elements(); },
        std::type_identity_t<Inner_Rule> used_within = [](const Record&, std::size_t) { return Elements(); })
        : Name(name),
          Member(member),
          Used(used),
          Used_Within(used_within)
    {}

    std::string_view Name; // the key in JSON
    Value Record::*Member;
    Rule Used;              // of an array
    Inner_Rule Used_Within; // of an array's element that is an array itself
};

// The fields of a record in the order in which they are shown.
template <class Record> inline constexpr std::tuple<> Fields_Of{};

template <class T> constexpr bool Is_Record = std::tuple_size_v<std::remove_cvref_t<decltype(Fields_Of<T>)>> > 0;

template <class T> constexpr bool Is_Array = false;
template <class T, std::size_t n> constexpr bool Is_Array<std::array<T, n>> = true;
template <class T> constexpr bool Is_Array<std::vector<T>> = true;

// Calls visitor(field, value) for every field of a document or row.
template <class Record, class Visitor> void Visit(Record& record, Visitor&& visitor)
{
    std::apply([&](const auto&... field) { (visitor(field, record.*field.Member), ...); },
               Fields_Of<std::remove_const_t<Record>>);
}

template <> inline constexpr auto Fields_Of<Application> = std::tuple{
    Record_Field{"App_Day", &Application::App_Day},     Record_Field{"App_Month", &Application::App_Month},
    Record_Field{"App_Year", &Application::App_Year},   Record_Field{"App_Rate", &Application::App_Rate},
    Record_Field{"App_Depth", &Application::App_Depth}, Record_Field{"App_Frpex", &Application::App_Frpex},
    Record_Field{"App_Time", &Application::App_Time},   Record_Field{"App_Crop_Flag", &Application::App_Crop_Flag},
};

template <> inline constexpr auto Fields_Of<Relative_Application> = std::tuple{
    Record_Field{"Abs9_Day", &Relative_Application::Abs9_Day},
    Record_Field{"Abs9_Month", &Relative_Application::Abs9_Month},
    Record_Field{"Abs9_Year", &Relative_Application::Abs9_Year},
    Record_Field{"Abs9_Rate", &Relative_Application::Abs9_Rate},
    Record_Field{"Abs9_Depth", &Relative_Application::Abs9_Depth},
    Record_Field{"Abs9_Frpex", &Relative_Application::Abs9_Frpex},
};

template <> inline constexpr auto Fields_Of<Degradation_Row> = std::tuple{
    Record_Field{"Deg_Rate", &Degradation_Row::Deg_Rate},
    Record_Field{"Deg_Temp", &Degradation_Row::Deg_Temp},
    Record_Field{"Deg_Q10", &Degradation_Row::Deg_Q10},
    Record_Field{"Deg_Moist_Abs", &Degradation_Row::Deg_Moist_Abs},
    Record_Field{"Deg_Moist_Rel", &Degradation_Row::Deg_Moist_Rel},
    Record_Field{"Deg_Moist_Exp", &Degradation_Row::Deg_Moist_Exp},
    Record_Field{"Deg_Neq", &Degradation_Row::Deg_Neq},
};

template <> inline constexpr auto Fields_Of<Pesticide_Horizon> = std::tuple{
    Record_Field{"Hor_Kd", &Pesticide_Horizon::Hor_Kd},
    Record_Field{"Hor_FrExp", &Pesticide_Horizon::Hor_FrExp},
    Record_Field{"Hor_Deg", &Pesticide_Horizon::Hor_Deg},
};

// As many applications of a location as its count says; index 0 is not in use.
inline Elements Applications_Of(const Pesticide_Document& document, std::size_t location)
{
    return Up_To(std::max(document.App_Count[location].Number(), 0.0), 1);
}

// The table of relative applications is as long as that of the location with the most.
inline Elements Relative_Applications(const Pesticide_Document& document)
{
    double most = 0;
    for (int location = 0; location < std::min<int>(document.App_Loc_Count, Last_Location + 1); ++location)
        most = std::max(most, document.App_Count[static_cast<std::size_t>(location)].Number());
    Elements rows = Up_To(most, 1);
    rows.Is_In_Use = document.App_Mode == App_Mode_Relative;
    return rows;
}

template <> inline constexpr auto Fields_Of<Pesticide_Document> = std::tuple{
    Record_Field{"PSM_Title", &Pesticide_Document::PSM_Title},
    Record_Field{"Substance_Name", &Pesticide_Document::Substance_Name},
    Record_Field{"Met_Present", &Pesticide_Document::Met_Present},
    Record_Field{"Bound_Active", &Pesticide_Document::Bound_Active},
    Record_Field{"Trans_Active", &Pesticide_Document::Trans_Active},
    Record_Field{"App_Loc_Count", &Pesticide_Document::App_Loc_Count},
    Record_Field{"App_Rel_Flag", &Pesticide_Document::App_Rel_Flag},
    Record_Field{"App_Mode", &Pesticide_Document::App_Mode},
    Record_Field{"App_Count", &Pesticide_Document::App_Count},
    Record_Field{"App_Location", &Pesticide_Document::App_Location},
    Record_Field{"Applications", &Pesticide_Document::Applications,
                 [](const Pesticide_Document& document) { return Up_To(document.App_Loc_Count - 1); }, Applications_Of},
    Record_Field{"Relative", &Pesticide_Document::Relative, Relative_Applications},
    Record_Field{"App_Method", &Pesticide_Document::App_Method},
    Record_Field{"Plant_Decay", &Pesticide_Document::Plant_Decay},
    Record_Field{"Plant_Washoff", &Pesticide_Document::Plant_Washoff},
    Record_Field{"Plant_Filtration", &Pesticide_Document::Plant_Filtration},
    Record_Field{"Plant_Penetration", &Pesticide_Document::Plant_Penetration},
    Record_Field{"Plant_Photodeg", &Pesticide_Document::Plant_Photodeg},
    Record_Field{"Plant_Ref_Rad", &Pesticide_Document::Plant_Ref_Rad},
    Record_Field{"Plant_Laminar", &Pesticide_Document::Plant_Laminar},
    Record_Field{"Henry_Flag", &Pesticide_Document::Henry_Flag},
    Record_Field{"Henry", &Pesticide_Document::Henry},
    Record_Field{"Solubility", &Pesticide_Document::Solubility},
    Record_Field{"Vap_Press", &Pesticide_Document::Vap_Press},
    Record_Field{"Volat_Temp", &Pesticide_Document::Volat_Temp},
    Record_Field{"Diff_Air", &Pesticide_Document::Diff_Air},
    Record_Field{"Depth_Volat", &Pesticide_Document::Depth_Volat},
    Record_Field{"Hv", &Pesticide_Document::Hv},
    Record_Field{"PSM_Legacy_Volat", &Pesticide_Document::PSM_Legacy_Volat},
    Record_Field{
        "Degradation", &Pesticide_Document::Degradation, [](const Pesticide_Document&) { return Elements{.First = 1}; },
        [](const Pesticide_Document&, std::size_t i) { return Up_To(Rows_Of_Substance(static_cast<int>(i)), 1); }},
    Record_Field{"Photo_Rate", &Pesticide_Document::Photo_Rate},
    Record_Field{"Photo_I_Ref", &Pesticide_Document::Photo_I_Ref},
    Record_Field{"Deg_Depth_Mode", &Pesticide_Document::Deg_Depth_Mode},
    Record_Field{"Deg_Liquid_Only", &Pesticide_Document::Deg_Liquid_Only},
    Record_Field{"Molmass", &Pesticide_Document::Molmass},
    Record_Field{"Koc", &Pesticide_Document::Koc},
    Record_Field{"Koc2", &Pesticide_Document::Koc2},
    Record_Field{"Fr_Exp", &Pesticide_Document::Fr_Exp},
    Record_Field{"Sorp_pH", &Pesticide_Document::Sorp_pH},
    Record_Field{"Sorp_pH2", &Pesticide_Document::Sorp_pH2},
    Record_Field{"Sorp_pKa", &Pesticide_Document::Sorp_pKa},
    Record_Field{"Freundl_Limit", &Pesticide_Document::Freundl_Limit},
    Record_Field{"Kd_Flag", &Pesticide_Document::Kd_Flag},
    Record_Field{"Plant_Uptake", &Pesticide_Document::Plant_Uptake},
    Record_Field{"Ann_Incr", &Pesticide_Document::Ann_Incr},
    Record_Field{"K_doc", &Pesticide_Document::K_doc},
    Record_Field{"Koc_Change", &Pesticide_Document::Koc_Change},
    Record_Field{"F_neq", &Pesticide_Document::F_neq},
    Record_Field{"K_des", &Pesticide_Document::K_des},
    Record_Field{"N_Horizons", &Pesticide_Document::N_Horizons},
    Record_Field{"Horizons", &Pesticide_Document::Horizons,
                 [](const Pesticide_Document& document) { return Up_To(document.N_Horizons.Number(), 1); }},
};

template <> inline constexpr auto Fields_Of<Crop_Row> = std::tuple{
    Record_Field{"SZE_Rot_Crop_No", &Crop_Row::SZE_Rot_Crop_No},
    Record_Field{"SZE_Rot_Text2", &Crop_Row::SZE_Rot_Text2},
    Record_Field{"SZE_Rot_Text1", &Crop_Row::SZE_Rot_Text1},
    Record_Field{"SZE_Rot_Interception", &Crop_Row::SZE_Rot_Interception},
    Record_Field{"SZE_Rot_Residue", &Crop_Row::SZE_Rot_Residue},
    Record_Field{"SZE_Rot_CN1", &Crop_Row::SZE_Rot_CN1},
    Record_Field{"SZE_Rot_CN2", &Crop_Row::SZE_Rot_CN2},
    Record_Field{"SZE_Rot_CN3", &Crop_Row::SZE_Rot_CN3},
    Record_Field{"SZE_Rot_USLE1", &Crop_Row::SZE_Rot_USLE1},
    Record_Field{"SZE_Rot_USLE2", &Crop_Row::SZE_Rot_USLE2},
    Record_Field{"SZE_Rot_USLE3", &Crop_Row::SZE_Rot_USLE3},
    Record_Field{"SZE_Rot_Dry_Mass", &Crop_Row::SZE_Rot_Dry_Mass},
    Record_Field{"SZE_Rot_RR_Photo", &Crop_Row::SZE_Rot_RR_Photo},
    Record_Field{"SZE_Rot_RR_Pen", &Crop_Row::SZE_Rot_RR_Pen},
    Record_Field{"SZE_Rot_RR_Vol", &Crop_Row::SZE_Rot_RR_Vol},
    Record_Field{"SZE_Rot_RR_Wash", &Crop_Row::SZE_Rot_RR_Wash},
    Record_Field{"SZE_Rot_Irrigated", &Crop_Row::SZE_Rot_Irrigated},
    Record_Field{"SZE_Rot_Perennial", &Crop_Row::SZE_Rot_Perennial},
    Record_Field{"SZE_Rot_Tillage", &Crop_Row::SZE_Rot_Tillage},
    Record_Field{"SZE_Rot_Kc_Mid", &Crop_Row::SZE_Rot_Kc_Mid},
    Record_Field{"SZE_Rot_Kc_Late", &Crop_Row::SZE_Rot_Kc_Late},
};

template <> inline constexpr auto Fields_Of<Rotation_Row> = std::tuple{
    Record_Field{"SZE_Eme_Day", &Rotation_Row::SZE_Eme_Day},
    Record_Field{"SZE_Eme_Month", &Rotation_Row::SZE_Eme_Month},
    Record_Field{"SZE_Eme_Year", &Rotation_Row::SZE_Eme_Year},
    Record_Field{"SZE_Mat_Day", &Rotation_Row::SZE_Mat_Day},
    Record_Field{"SZE_Mat_Month", &Rotation_Row::SZE_Mat_Month},
    Record_Field{"SZE_Mat_Year", &Rotation_Row::SZE_Mat_Year},
    Record_Field{"SZE_Har_Day", &Rotation_Row::SZE_Har_Day},
    Record_Field{"SZE_Har_Month", &Rotation_Row::SZE_Har_Month},
    Record_Field{"SZE_Har_Year", &Rotation_Row::SZE_Har_Year},
    Record_Field{"SZE_Rot_Crop_Index", &Rotation_Row::SZE_Rot_Crop_Index},
    Record_Field{"SZE_Sen_Day", &Rotation_Row::SZE_Sen_Day},
    Record_Field{"SZE_Sen_Month", &Rotation_Row::SZE_Sen_Month},
    Record_Field{"SZE_Sen_Year", &Rotation_Row::SZE_Sen_Year},
    Record_Field{"SZE_Til_Day", &Rotation_Row::SZE_Til_Day},
    Record_Field{"SZE_Til_Month", &Rotation_Row::SZE_Til_Month},
    Record_Field{"SZE_Til_Year", &Rotation_Row::SZE_Til_Year},
    Record_Field{"SZE_Sen_In_File", &Rotation_Row::SZE_Sen_In_File},
};

template <> inline constexpr auto Fields_Of<Scenario_Horizon> = std::tuple{
    Record_Field{"SZE_Hor_Thickness", &Scenario_Horizon::SZE_Hor_Thickness},
    Record_Field{"SZE_Hor_Bulk_Density", &Scenario_Horizon::SZE_Hor_Bulk_Density},
    Record_Field{"SZE_Hor_Dispersion", &Scenario_Horizon::SZE_Hor_Dispersion},
    Record_Field{"SZE_Hor_Soil_Water", &Scenario_Horizon::SZE_Hor_Soil_Water},
    Record_Field{"SZE_Hor_Drainage", &Scenario_Horizon::SZE_Hor_Drainage},
    Record_Field{"SZE_Hor_FC", &Scenario_Horizon::SZE_Hor_FC},
    Record_Field{"SZE_Hor_WP", &Scenario_Horizon::SZE_Hor_WP},
    Record_Field{"SZE_Hor_OC", &Scenario_Horizon::SZE_Hor_OC},
    Record_Field{"SZE_Hor_pH", &Scenario_Horizon::SZE_Hor_pH},
    Record_Field{"SZE_Hor_Sand", &Scenario_Horizon::SZE_Hor_Sand},
    Record_Field{"SZE_Hor_Clay", &Scenario_Horizon::SZE_Hor_Clay},
    Record_Field{"SZE_Hor_Biodeg", &Scenario_Horizon::SZE_Hor_Biodeg},
};

// Of the crop factors only the first of a stage is in the file.
template <> inline constexpr auto Fields_Of<Scenario_Document> = std::tuple{
    Record_Field{"SZE_Title", &Scenario_Document::SZE_Title},
    Record_Field{"SZE_Kc", &Scenario_Document::SZE_Kc, [](const Scenario_Document&) { return Elements(); },
                 [](const Scenario_Document&, std::size_t) { return Up_To(0); }},
    Record_Field{"SZE_Snow_Factor", &Scenario_Document::SZE_Snow_Factor},
    Record_Field{"SZE_ET_Method", &Scenario_Document::SZE_ET_Method},
    Record_Field{"SZE_ET_Depth", &Scenario_Document::SZE_ET_Depth},
    Record_Field{"SZE_First_Crop", &Scenario_Document::SZE_First_Crop},
    Record_Field{"SZE_Line2_Flag", &Scenario_Document::SZE_Line2_Flag},
    Record_Field{"SZE_Erosion", &Scenario_Document::SZE_Erosion},
    Record_Field{"SZE_Eros_K", &Scenario_Document::SZE_Eros_K},
    Record_Field{"SZE_Eros_2", &Scenario_Document::SZE_Eros_2},
    Record_Field{"SZE_Eros_3", &Scenario_Document::SZE_Eros_3},
    Record_Field{"SZE_Eros_4", &Scenario_Document::SZE_Eros_4},
    Record_Field{"SZE_Eros_5", &Scenario_Document::SZE_Eros_5},
    Record_Field{"SZE_Crop_Count", &Scenario_Document::SZE_Crop_Count},
    Record_Field{"Crops", &Scenario_Document::Crops,
                 [](const Scenario_Document& document) { return Up_To(document.SZE_Crop_Count - 1); }},
    Record_Field{"SZE_Rot_Count", &Scenario_Document::SZE_Rot_Count},
    Record_Field{"Rotation", &Scenario_Document::Rotation,
                 [](const Scenario_Document& document) { return Up_To(document.SZE_Rot_Count - 1); }},
    Record_Field{"SZE_Core_Depth", &Scenario_Document::SZE_Core_Depth},
    Record_Field{"SZE_Dispersion_Flag", &Scenario_Document::SZE_Dispersion_Flag},
    Record_Field{"SZE_Layers", &Scenario_Document::SZE_Layers},
    Record_Field{"SZE_Field_4216", &Scenario_Document::SZE_Field_4216},
    Record_Field{"SZE_Hydraulic_Flag", &Scenario_Document::SZE_Hydraulic_Flag},
    Record_Field{"SZE_Water_Flag", &Scenario_Document::SZE_Water_Flag},
    Record_Field{"SZE_Horizons", &Scenario_Document::SZE_Horizons},
    Record_Field{"SZE_Delxflg", &Scenario_Document::SZE_Delxflg},
    Record_Field{"Horizons", &Scenario_Document::Horizons,
                 [](const Scenario_Document& document) { return Up_To(document.SZE_Horizons.Number() - 1); }},
    Record_Field{"SZE_Bottom_Line", &Scenario_Document::SZE_Bottom_Line},
    Record_Field{"SZE_Freq_Water", &Scenario_Document::SZE_Freq_Water},
    Record_Field{"SZE_Freq_Solute", &Scenario_Document::SZE_Freq_Solute},
    Record_Field{"SZE_Freq_Conc", &Scenario_Document::SZE_Freq_Conc},
    Record_Field{"SZE_Out_Every_Water", &Scenario_Document::SZE_Out_Every_Water},
    Record_Field{"SZE_Out_Every_Solute", &Scenario_Document::SZE_Out_Every_Solute},
    Record_Field{"SZE_Out_Every_Conc", &Scenario_Document::SZE_Out_Every_Conc},
    Record_Field{"SZE_Macropore", &Scenario_Document::SZE_Macropore},
    Record_Field{"SZE_Macro_Depth", &Scenario_Document::SZE_Macro_Depth},
    Record_Field{"SZE_DOC_Content", &Scenario_Document::SZE_DOC_Content},
    Record_Field{"SZE_DOC_Flag", &Scenario_Document::SZE_DOC_Flag},
    Record_Field{"SZE_Runoff_Depth", &Scenario_Document::SZE_Runoff_Depth},
    Record_Field{"SZE_Macro_Threshold", &Scenario_Document::SZE_Macro_Threshold},
    Record_Field{"SZE_Macro_Fraction", &Scenario_Document::SZE_Macro_Fraction},
    Record_Field{"SZE_Latitude", &Scenario_Document::SZE_Latitude},
    Record_Field{"SZE_Runoff", &Scenario_Document::SZE_Runoff},
    Record_Field{"SZE_Legacy_Crops", &Scenario_Document::SZE_Legacy_Crops},
};

template <> inline constexpr auto Fields_Of<Climate_Row> = std::tuple{
    Record_Field{"Cli_Day", &Climate_Row::Cli_Day},
    Record_Field{"Cli_Month", &Climate_Row::Cli_Month},
    Record_Field{"Cli_Year", &Climate_Row::Cli_Year},
    Record_Field{"Cli_Rain", &Climate_Row::Cli_Rain},
    Record_Field{"Cli_Evap", &Climate_Row::Cli_Evap},
    Record_Field{"Cli_Temp_14", &Climate_Row::Cli_Temp_14},
    Record_Field{"Cli_Temp_Mean", &Climate_Row::Cli_Temp_Mean},
    Record_Field{"Cli_Temp_Diff", &Climate_Row::Cli_Temp_Diff},
    Record_Field{"Cli_Rel_Hum", &Climate_Row::Cli_Rel_Hum},
    Record_Field{"Cli_Radiation", &Climate_Row::Cli_Radiation},
    Record_Field{"Cli_Hour", &Climate_Row::Cli_Hour},
};

template <> inline constexpr auto Fields_Of<Climate_Table> = std::tuple{
    Record_Field{"Cli_Title", &Climate_Table::Cli_Title},
    Record_Field{"Rows", &Climate_Table::Rows, [](const Climate_Table&) { return Elements{.Counted_As = "Cli_Rows"}; }},
};

} // namespace orvel
