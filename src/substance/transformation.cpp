#include "substance/transformation.h"

#include "substance/pathway.h"
#include "ui/number_field.h"

namespace orvel {

namespace {

constexpr std::string_view Default_Temperature = "20";

} // namespace

Transformation_Entry Load_Transformation(const Pesticide_Document& document, int t)
{
    const auto& arrow = Arrow_Of(t);
    const auto& row = document.Degradation[arrow.Source][arrow.Row];
    const bool no_temperature = row.Deg_Temp.Number() == 0;
    return {.Soil = Texts_Of_Rate(row.Deg_Rate.Text()),
            .Photolysis = Texts_Of_Rate(General_Text(document.Photo_Rate[arrow.Row])),
            .Reference_Radiation = General_Text(document.Photo_I_Ref[arrow.Row]),
            .Correction = {.Temperature = no_temperature ? std::string(Default_Temperature) : row.Deg_Temp.Text(),
                           .Q10 = row.Deg_Q10.Text(),
                           .Moisture_Abs = row.Deg_Moist_Abs.Text(),
                           .Moisture_Rel = row.Deg_Moist_Rel.Text(),
                           .Moisture_Exp = row.Deg_Moist_Exp.Text(),
                           .Neq = General_Text(row.Deg_Neq),
                           .By_Relative_Moisture = row.Deg_Moist_Rel.Number() != 0}};
}

void Accept_Transformation(Pesticide_Edit edit, const Transformation_Entry& entry)
{
    auto& document = edit.Document;
    const auto& arrow = Arrow_Of(edit.Editor.Transformation_Index);
    document.Degradation[arrow.Source][arrow.Row] = {.Deg_Rate = Typed_Number(entry.Soil.Rate),
                                                     .Deg_Temp = Typed_Number(entry.Correction.Temperature),
                                                     .Deg_Q10 = Typed_Number(entry.Correction.Q10),
                                                     .Deg_Moist_Abs = Typed_Number(entry.Correction.Moisture_Abs),
                                                     .Deg_Moist_Rel = Typed_Number(entry.Correction.Moisture_Rel),
                                                     .Deg_Moist_Exp = Typed_Number(entry.Correction.Moisture_Exp),
                                                     .Deg_Neq = Val(entry.Correction.Neq)};
    document.Photo_Rate[arrow.Row] = Val(entry.Photolysis.Rate);
    document.Photo_I_Ref[arrow.Row] = Val(entry.Reference_Radiation);
    edit.Changed = true;
    Update_Pathway(document);
}

void Store_Half_Typed(Pesticide_Edit edit, Transformation_Entry entry)
{
    const int t = edit.Editor.Transformation_Index;
    const auto before = Load_Transformation(edit.Document, t);
    const auto& active = edit.Document.Trans_Active[static_cast<std::size_t>(t)];
    const bool was_active = active;
    Accept_Transformation(edit, entry);
    if (!was_active || active)
        return;
    entry.Soil = before.Soil;
    entry.Photolysis = before.Photolysis;
    Accept_Transformation(edit, entry);
}

} // namespace orvel
