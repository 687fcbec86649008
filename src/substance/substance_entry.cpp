#include "substance/substance_entry.h"

#include "core/text.h"
#include "substance/horizon_table.h"
#include "ui/number_field.h"

#include <algorithm>
#include <cmath>

namespace orvel {

namespace {

constexpr int Individual_Depths = 2;

// The typed number of horizons as stored in the document: the text itself if it is a whole number that the table can
// have.
Variant Horizons_Variant(const Substance_Entry& entry)
{
    const int n = Horizons_Typed(entry);
    return Val(entry.Text_nhor) == n ? Typed_Number(entry.Text_nhor) : Variant(n);
}

} // namespace

using Document = Pesticide_Document;

const std::array<Entry_Field<Substance_Entry, Document>, 8> Number_Fields_Of_Substance = {{
    {"Text_mol", "&Mol Mass [g/mol]:", &Substance_Entry::Text_mol, &Document::Molmass},
    {"text_uptkf", "Plant &uptake factor:", &Substance_Entry::text_uptkf, &Document::Plant_Uptake},
    {"Text_koc0", "&Koc Value [mL / g]", &Substance_Entry::Text_koc0, &Document::Koc, "", "Label_koc"},
    {"Text_koc1", "&Freundlich Exponent", &Substance_Entry::Text_koc1, &Document::Fr_Exp, "", "Label_koc_1"},
    {"Text_koc4", "&Limit for Freundlich [\u00B5g / L]", &Substance_Entry::Text_koc4, &Document::Freundl_Limit, "",
     "Label_koc_4"},
    {"Text_koc5", "&Annual Increase  [%]", &Substance_Entry::Text_koc5, &Document::Ann_Incr, "", "Label_koc_5"},
    {"text_kdoc", "E&quilibrium constant for DOC (L/kg)", &Substance_Entry::text_kdoc, &Document::K_doc, "",
     "Label_koc_6"},
    {"Text_KOC_MOI", "Increase of sorption when soil is air dried (-)", &Substance_Entry::Text_KOC_MOI,
     &Document::Koc_Change},
}};

Substance_Entry Load_Substance(const Pesticide_Document& document, int i)
{
    Substance_Entry entry{.Name = document.Substance_Name[i],
                          .Text_nhor = document.N_Horizons.Text(),
                          .Kd_Direct = document.Kd_Flag[i].Number() == 0,
                          .Depth_Mode = std::min<int>(document.Deg_Depth_Mode[i], Individual_Depths),
                          .Liquid_Only = document.Deg_Liquid_Only[i] != 0,
                          .Kf_Enabled = document.N_Horizons.Number() != 0};
    Load_Fields<Substance_Entry, Document>(Number_Fields_Of_Substance, document, static_cast<std::size_t>(i), entry);
    return entry;
}

void Choose_Depth_Mode(Substance_Entry& entry, int mode)
{
    entry.Depth_Mode = mode;
    entry.Kf_Enabled = mode == Individual_Depths;
    if (mode == Individual_Depths)
        return;
    entry.Text_nhor = "0";
    entry.Kd_Direct = false;
}

std::optional<Refusal> Leave_Number_Of_Horizons(Pesticide_Document& document, Substance_Entry& entry)
{
    const double n = Val(entry.Text_nhor);
    if (n > Most_Horizons)
        return Refusal{{"Data check", "Number of horizons must not exceed " + std::to_string(Most_Horizons)},
                       "Text_nhor"};
    if (n == 0) {
        entry.Kf_Enabled = false;
        entry.Kd_Direct = false;
    } else if (n > 0) {
        entry.Kf_Enabled = true;
        Reset_Horizon_Table(document, Horizons_Typed(entry));
    }
    return std::nullopt;
}

int Horizons_Typed(const Substance_Entry& entry)
{
    return static_cast<int>(std::clamp(std::nearbyint(Val(entry.Text_nhor)), 0.0, static_cast<double>(Most_Horizons)));
}

void Store_Substance(Pesticide_Document& document, int i, const Substance_Entry& entry)
{
    document.N_Horizons = Horizons_Variant(entry);
    Grow_Horizon_Table(document, Horizons_Typed(entry));
    document.Substance_Name[i] = entry.Name;
    Store_Fields<Substance_Entry, Document>(Number_Fields_Of_Substance, entry, static_cast<std::size_t>(i), document);
    document.Kd_Flag[i] = entry.Kd_Direct ? 0 : 1;
    document.Deg_Depth_Mode[i] = static_cast<std::uint8_t>(std::clamp(entry.Depth_Mode, 0, Individual_Depths));
    document.Deg_Liquid_Only[i] = entry.Liquid_Only ? 1 : 0;
}

std::optional<Message> Takes_Horizons_Away(const Pesticide_Document& document, const Substance_Entry& entry)
{
    constexpr std::size_t Active = 1;
    if (document.N_Horizons.Number() <= 0 || Horizons_Typed(entry) > 0 ||
        document.Deg_Depth_Mode[Active] != Individual_Depths)
        return std::nullopt;
    return Message{"Data check",
                   "The number of horizons is that of all substances, and the active substance has values for its "
                   "horizons. Do you want to take them away?",
                   Icon::Question,
                   {Button::Yes, Button::No},
                   Button::No};
}

void Accept_Metabolite(Pesticide_Edit edit, int i, const Substance_Entry& entry)
{
    edit.Changed = true;
    Store_Substance(edit.Document, i, entry);
}

} // namespace orvel
