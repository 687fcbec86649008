#include "substance/field_controls.h"

#include "core/text.h"
#include "files/document_fields.h"
#include "substance/plant_surface.h"
#include "substance/substance_entry.h"

#include <array>

namespace orvel {

namespace {

// Boxes that are no rows of a field table. In the field "#" is the substance and "@" the row of the arrow.
struct Box {
    std::string_view Form, Control, Field;
};
constexpr std::array<Box, 33> Boxes = {{
    {"Form_AS", "Text_AS", "Substance_Name[#]"},
    {"Form_AS", "S_Temperatur_0", "Volat_Temp[0]"},
    {"Form_AS", "S_Temperatur_1", "Volat_Temp[1]"},
    {"Form_AS", "Text_vol0_0", "Henry[0]"},
    {"Form_AS", "Text_vol0_1", "Henry[1]"},
    {"Form_AS", "Text_vol1_0", "Vap_Press[0]"},
    {"Form_AS", "Text_vol1_1", "Vap_Press[1]"},
    {"Form_AS", "Text_vol2_0", "Solubility[0]"},
    {"Form_AS", "Text_vol2_1", "Solubility[1]"},
    {"Form_AS", "Text_vol3", "Diff_Air"},
    {"Form_AS", "Text_vol4", "Depth_Volat"},
    {"Form_MET", "metcom", "Substance_Name[#]"},
    {"deg_dat", "Text1", "Degradation[#][@].Deg_Rate"},
    {"deg_dat", "Text2", "Degradation[#][@].Deg_Rate"},
    {"deg_dat", "Text3", "Degradation[#][@].Deg_Rate"},
    {"deg_dat", "Text4", "Degradation[#][@].Deg_Temp"},
    {"deg_dat", "Text5", "Degradation[#][@].Deg_Moist_Abs"},
    {"deg_dat", "Text6", "Degradation[#][@].Deg_Moist_Rel"},
    {"deg_dat", "Text7", "Degradation[#][@].Deg_Moist_Exp"},
    {"deg_dat", "Text8", "Degradation[#][@].Deg_Q10"},
    {"deg_dat", "Text9", "Degradation[#][@].Deg_Neq"},
    {"deg_dat", "Text10", "Photo_Rate[@]"},
    {"deg_dat", "Text11", "Photo_Rate[@]"},
    {"deg_dat", "Text12", "Photo_Rate[@]"},
    {"deg_dat", "Text13", "Photo_I_Ref[@]"},
    {"kin_Sorption", "s_f_neq", "F_neq[#]"},
    {"kin_Sorption", "s_kdes", "K_des[#]"},
    {"KOC_PH", "s_pKa", "Sorp_pKa[#]"},
    {"KOC_PH", "s_KOC", "Koc[#]"},
    {"KOC_PH", "s_pH", "Sorp_pH[#]"},
    {"KOC_PH", "s_KOC2", "Koc2[#]"},
    {"KOC_PH", "s_pH2", "Sorp_pH2[#]"},
    {"Form_AS", "Text_comment", "PSM_Title"},
}};

// The name of the field behind a row of a field table, with its index.
template <class Entry>
std::string Field_Of(const Entry_Field<Entry, Pesticide_Document>& row, const std::string& substance)
{
    std::string name;
    std::visit(
        [&](auto place) {
            using Place = decltype(place);
            std::apply(
                [&](const auto&... field) {
                    const auto compare = [&](const auto& one) {
                        if constexpr (std::is_same_v<Place, std::remove_const_t<decltype(one.Member)>>) {
                            if (one.Member == place)
                                name = std::string(one.Name);
                        }
                    };
                    (compare(field), ...);
                },
                Fields_Of<Pesticide_Document>);
            if constexpr (requires(const Pesticide_Document& document) { (document.*place)[std::size_t{}]; })
                name += "[" + substance + "]";
        },
        row.Where);
    return name;
}

} // namespace

std::vector<Control_Field> Fields_Of_Form(std::string_view form, int substance, int row)
{
    const std::string index = std::to_string(substance);
    std::vector<Control_Field> fields;
    if (form == "Form_AS" || form == "Form_MET") {
        for (const auto& entry : Number_Fields_Of_Substance)
            fields.push_back({std::string(entry.Control), Field_Of(entry, index)});
    }
    if (form == "Plant_App") {
        for (const auto& entry : Plant_Fields)
            fields.push_back({std::string(entry.Control), Field_Of(entry, index)});
    }
    for (const auto& box : Boxes) {
        if (box.Form == form)
            fields.push_back({std::string(box.Control),
                              Replace_All(Replace_All(std::string(box.Field), "#", index), "@", std::to_string(row))});
    }
    return fields;
}

} // namespace orvel
