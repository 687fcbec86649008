#include "scenario/scenario_fields.h"

#include "core/text.h"
#include "ui/number_field.h"

#include <algorithm>
#include <array>

namespace orvel {

namespace {

using Document = Scenario_Document;
constexpr std::string_view Data_Check = "Data Check";

constexpr std::string_view Title_Box = "Text_tit", Depth_Box = "Text_cor", Layers_Box = "Text_num",
                           Scenario_Horizons_Box = "Text_nhor";

struct Scenario_Number_Box {
    std::string_view Control;
    double Document::*Field;
};
constexpr std::array Scenario_Number_Boxes = {
    Scenario_Number_Box{Depth_Box, &Document::SZE_Core_Depth},
    Scenario_Number_Box{"Text_geo", &Document::SZE_Latitude},
    Scenario_Number_Box{"Text_et_depth", &Document::SZE_ET_Depth},
    Scenario_Number_Box{"schnelle_Prozesse_Tiefe_0", &Document::SZE_Runoff_Depth},
    Scenario_Number_Box{"schnelle_Prozesse_Tiefe_1", &Document::SZE_Macro_Depth},
    Scenario_Number_Box{"s_DOC", &Document::SZE_DOC_Content},
};

constexpr std::array<std::string_view, 3> Kc_Boxes = {"Text_et_fac_0", "Text_et_fac_1", "Text_et_fac_2"};

struct Scenario_Mixed_Box {
    std::string_view Control;
    Variant Document::*Field;
};
constexpr std::array Scenario_Mixed_Boxes = {
    Scenario_Mixed_Box{Scenario_Horizons_Box, &Document::SZE_Horizons},
    Scenario_Mixed_Box{"Text_sfac", &Document::SZE_Snow_Factor},
    Scenario_Mixed_Box{"Text1_freq", &Document::SZE_Out_Every_Water},
    Scenario_Mixed_Box{"Text2_freq", &Document::SZE_Out_Every_Solute},
    Scenario_Mixed_Box{"Text3_freq", &Document::SZE_Out_Every_Conc},
};

Refusal Refuse(std::string text, std::string_view control)
{
    return {{std::string(Data_Check), std::move(text)}, std::string(control)};
}

std::string Too_Few_Layers(double horizons)
{
    return "Number of layers must be at least " + General_Text(horizons) + " (number of horizons)";
}

constexpr const char* Too_Many = "Value must be smaller than 401";

std::optional<Refusal> Check_Horizons(const Document& document)
{
    const double horizons = document.SZE_Horizons.Number();
    if (horizons < 1)
        return Refuse("Value must be greater than 1", Scenario_Horizons_Box); // required text; the limit is 1
    if (horizons > Most_Horizons)
        return Refuse(Too_Many, Scenario_Horizons_Box);
    if (horizons > document.SZE_Layers)
        return Refuse(Too_Few_Layers(horizons), Layers_Box);
    return std::nullopt;
}

std::optional<Refusal> Check_Layers(const Document& document)
{
    if (document.SZE_Layers < document.SZE_Horizons.Number())
        return Refuse(Too_Few_Layers(document.SZE_Horizons.Number()), Layers_Box);
    if (document.SZE_Layers > Most_Layers)
        return Refuse(Too_Many, Layers_Box);
    return std::nullopt;
}

std::optional<Refusal> Check(const Document& document, std::string_view control)
{
    if (control == Depth_Box && !(document.SZE_Core_Depth > 0))
        return Refuse("Value must be greater than 0", control);
    if (control == Scenario_Horizons_Box)
        return Check_Horizons(document);
    if (control == Layers_Box)
        return Check_Layers(document);
    if (!control.ends_with("_freq"))
        return std::nullopt;
    const double every = Val(Field_Text(document, control));
    if (every < 1 || every > document.SZE_Layers)
        return Refuse("Value must be between 0 and " + General_Text(document.SZE_Layers),
                      control); // the text names 0, but it is refused
    return std::nullopt;
}

// Grows the horizons to their number; a smaller number keeps the surplus until the horizon grid is accepted.
void Make_Room(Document& document)
{
    const double horizons = std::min<double>(document.SZE_Horizons.Number(), Most_Horizons);
    if (horizons > static_cast<double>(document.Horizons.size()))
        document.Horizons.resize(static_cast<std::size_t>(horizons));
}

template <class Boxes> auto Find_Box(const Boxes& boxes, std::string_view control)
{
    return std::ranges::find_if(boxes, [&](const auto& box) { return box.Control == control; });
}

void Store(Document& document, std::string_view control, std::string_view text)
{
    if (control == Title_Box)
        document.SZE_Title = Trim(text);
    if (control == Layers_Box)
        document.SZE_Layers = Typed_Integer(Format_Pattern(Val(text), "0"));
    if (const auto kc = std::ranges::find(Kc_Boxes, control); kc != Kc_Boxes.end())
        document.SZE_Kc[static_cast<std::size_t>(kc - Kc_Boxes.begin())][0] = Val(text);
    if (const auto box = Find_Box(Scenario_Number_Boxes, control); box != Scenario_Number_Boxes.end())
        document.*box->Field = Val(text);
    if (const auto box = Find_Box(Scenario_Mixed_Boxes, control); box != Scenario_Mixed_Boxes.end())
        document.*box->Field = Typed_Number(text);
    if (control == Scenario_Horizons_Box)
        Make_Room(document);
}

} // namespace

std::vector<std::string_view> Scenario_Boxes()
{
    std::vector<std::string_view> names = {Title_Box, Layers_Box};
    names.insert(names.end(), Kc_Boxes.begin(), Kc_Boxes.end());
    for (const auto& box : Scenario_Number_Boxes)
        names.push_back(box.Control);
    for (const auto& box : Scenario_Mixed_Boxes)
        names.push_back(box.Control);
    return names;
}

std::string Field_Text(const Scenario_Document& document, std::string_view control)
{
    if (control == Title_Box)
        return std::string(Trim(document.SZE_Title));
    if (control == Layers_Box)
        return General_Text(document.SZE_Layers);
    if (const auto kc = std::ranges::find(Kc_Boxes, control); kc != Kc_Boxes.end())
        return General_Text(document.SZE_Kc[static_cast<std::size_t>(kc - Kc_Boxes.begin())][0]);
    if (const auto box = Find_Box(Scenario_Number_Boxes, control); box != Scenario_Number_Boxes.end())
        return General_Text(document.*box->Field);
    if (const auto box = Find_Box(Scenario_Mixed_Boxes, control); box != Scenario_Mixed_Boxes.end())
        return (document.*box->Field).Text();
    return {};
}

std::optional<Refusal> Leave_Field(Scenario_Edit edit, std::string_view control, std::string_view text)
{
    if (control != Title_Box) {
        if (auto refusal = Check_Size(text, std::string(control)))
            return refusal;
    }
    if (Trim(text) != Field_Text(edit.Document, control)) {
        edit.Changed = true;
        Store(edit.Document, control, text);
    }
    return Check(edit.Document, control);
}

} // namespace orvel
