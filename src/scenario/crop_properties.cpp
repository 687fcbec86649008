#include "scenario/crop_properties.h"

#include "scenario/crop_rotation.h"
#include "ui/number_field.h"

#include <algorithm>

namespace orvel {

namespace {

struct Mixed_Box {
    std::string_view Control;
    Variant Crop_Row::*Field;
};
constexpr std::array Mixed_Boxes = {
    Mixed_Box{"Text1", &Crop_Row::SZE_Rot_Text1},        Mixed_Box{"Text2", &Crop_Row::SZE_Rot_Text2},
    Mixed_Box{"Text3", &Crop_Row::SZE_Rot_Interception}, Mixed_Box{"Text_uslec1", &Crop_Row::SZE_Rot_USLE1},
    Mixed_Box{"Text_uslec2", &Crop_Row::SZE_Rot_USLE2},  Mixed_Box{"Text_uslec3", &Crop_Row::SZE_Rot_USLE3},
};

struct Number_Box {
    std::string_view Control;
    double Crop_Row::*Field;
};
constexpr std::array Number_Boxes = {
    Number_Box{"Text4", &Crop_Row::SZE_Rot_Dry_Mass},      Number_Box{"text_rrppex", &Crop_Row::SZE_Rot_RR_Photo},
    Number_Box{"text_rrrpex", &Crop_Row::SZE_Rot_RR_Pen},  Number_Box{"text_rrvpex", &Crop_Row::SZE_Rot_RR_Vol},
    Number_Box{"text_rrwpex", &Crop_Row::SZE_Rot_RR_Wash}, Number_Box{"Text_KC1", &Crop_Row::SZE_Rot_Kc_Mid},
    Number_Box{"Text_KC2", &Crop_Row::SZE_Rot_Kc_Late},
};

struct Whole_Box {
    std::string_view Control;
    std::int16_t Crop_Row::*Field;
};
constexpr std::array Whole_Boxes = {
    Whole_Box{"Text_cn1", &Crop_Row::SZE_Rot_CN1},
    Whole_Box{"Text_cn2", &Crop_Row::SZE_Rot_CN2},
    Whole_Box{"Text_cn3", &Crop_Row::SZE_Rot_CN3},
};

template <class Boxes> auto Find(const Boxes& boxes, std::string_view control)
{
    return std::ranges::find_if(boxes, [&](const auto& box) { return box.Control == control; });
}

} // namespace

Crop_Editor Edit_Crops(const Rotation_Work& work)
{
    Crop_Editor editor;
    for (const auto& row : work.Rows) {
        const auto number = row.SZE_Rot_Crop_Index;
        if (number < 1 || static_cast<std::size_t>(number) > work.Crops.size())
            continue;
        const auto crop = static_cast<std::size_t>(number) - 1;
        if (std::ranges::none_of(editor.Crops, [&](const Edited_Crop& listed) { return listed.Crop == crop; }))
            editor.Crops.push_back({work.Data_Base[crop].DB_Crop_Name, crop, work.Crops[crop]});
    }
    return editor;
}

void Reset_Crop(Edited_Crop& edited, const Rotation_Work& work)
{
    const auto tillage = edited.Properties.SZE_Rot_Tillage;
    edited.Properties = Crop_Defaults(work.Data_Base[edited.Crop]);
    edited.Properties.SZE_Rot_Tillage = tillage;
}

std::vector<std::string_view> Crop_Boxes()
{
    std::vector<std::string_view> names;
    for (const auto& box : Mixed_Boxes)
        names.push_back(box.Control);
    for (const auto& box : Number_Boxes)
        names.push_back(box.Control);
    for (const auto& box : Whole_Boxes)
        names.push_back(box.Control);
    return names;
}

std::string Crop_Text(const Crop_Row& crop, std::string_view control)
{
    if (const auto box = Find(Mixed_Boxes, control); box != Mixed_Boxes.end())
        return (crop.*box->Field).Text();
    if (const auto box = Find(Number_Boxes, control); box != Number_Boxes.end())
        return General_Text(crop.*box->Field);
    if (const auto box = Find(Whole_Boxes, control); box != Whole_Boxes.end())
        return General_Text(crop.*box->Field);
    return {};
}

void Set_Crop_Text(Crop_Row& crop, std::string_view control, std::string_view text)
{
    if (const auto box = Find(Mixed_Boxes, control); box != Mixed_Boxes.end())
        crop.*box->Field = Typed_Number(text);
    if (const auto box = Find(Number_Boxes, control); box != Number_Boxes.end())
        crop.*box->Field = Val(text);
    if (const auto box = Find(Whole_Boxes, control); box != Whole_Boxes.end())
        crop.*box->Field = Typed_Integer(text);
}

std::optional<Refusal> Check_Crop_Text(std::string_view control, std::string_view text)
{
    const auto refuse = [&](const char* why) { return Refusal{{"DATA CHECK", why}, std::string(control)}; };
    const double value = Val(text);
    if (control.starts_with("Text_KC") && value < 0)
        return refuse("Minimum value for this parameter is 0.0");
    if (control.starts_with("text_rr") && value > 1)
        return refuse("Maximum value for this parameter is 1.0");
    if (control == "Text3" && value > 100)
        return refuse("Value must not exceed 100%");
    return Check_Size(text, std::string(control));
}

void Choose_Condition(Crop_Row& crop, int item)
{
    crop.SZE_Rot_Residue = static_cast<std::int16_t>(item + 1);
}

void Choose_Irrigated(Crop_Row& crop, int option)
{
    crop.SZE_Rot_Irrigated = static_cast<std::int16_t>(option);
}

void Choose_Perennial(Crop_Row& crop, int option)
{
    crop.SZE_Rot_Perennial = static_cast<std::int16_t>(option);
}

void Choose_Tillage(Crop_Editor& editor, std::size_t crop, int option)
{
    editor.Crops[crop].Properties.SZE_Rot_Tillage = static_cast<std::int16_t>(option);
    editor.Tillage_Modified = true;
}

Rotation_Work With_Properties(Rotation_Work work, const Crop_Editor& editor)
{
    for (const auto& edited : editor.Crops) {
        auto& crop = work.Crops[edited.Crop];
        const auto tillage = crop.SZE_Rot_Tillage;
        crop = edited.Properties;
        crop.SZE_Rot_Tillage = tillage;
    }
    return work;
}

bool Confirm_Crops(const Session& session, const Crop_Editor& editor, Rotation_Work& work)
{
    const Message question{"Different Crops in Simulation",
                           "You modified the tillage flag. The crop rotation will be removed. Do you agree?",
                           Icon::Question,
                           {Button::Yes, Button::No},
                           Button::Yes};
    if (editor.Tillage_Modified && session.Ask(question) != Button::Yes)
        return false;
    if (editor.Tillage_Modified)
        work.Rows.clear();
    for (const auto& edited : editor.Crops)
        work.Crops[edited.Crop] = edited.Properties;
    return true;
}

} // namespace orvel
