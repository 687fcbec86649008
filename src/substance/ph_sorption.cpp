#include "substance/ph_sorption.h"

#include "core/pesticide_constants.h"
#include "core/text.h"

namespace orvel {

namespace {

// A value that there is not is blank, not -99.
std::string Text_If_Any(const Variant& value)
{
    return value.Number() == No_Value ? std::string() : value.Text();
}

double Typed_If_Any(std::string_view text)
{
    return Trim(text).empty() ? No_Value : Val(text);
}

} // namespace

PH_Entry Load_PH(const Pesticide_Document& document, int i, const std::string& text_koc0)
{
    return {.s_KOC = text_koc0,
            .s_pH = Text_If_Any(document.Sorp_pH[i]),
            .s_KOC2 = Text_If_Any(document.Koc2[i]),
            .s_pH2 = Text_If_Any(document.Sorp_pH2[i]),
            .s_pKa = document.Sorp_pKa[i].Text(),
            .s_Dataset = document.Sorp_pH2[i].Number() == No_Value};
}

PH_View View_Of_PH(const PH_Entry& entry)
{
    const double pka = Val(entry.s_pKa);
    const bool dissociates = pka != No_Dissociation && pka != 0;
    return {.First_pH = dissociates, .Second_Pair = dissociates && !entry.s_Dataset};
}

void Accept_PH(Pesticide_Document& document, int i, const PH_Entry& entry, std::string& text_koc0)
{
    document.Koc[i] = Val(entry.s_KOC);
    document.Koc2[i] = Typed_If_Any(entry.s_KOC2);
    document.Sorp_pH[i] = Typed_If_Any(entry.s_pH);
    document.Sorp_pH2[i] = entry.s_Dataset ? No_Value : Typed_If_Any(entry.s_pH2);
    document.Sorp_pKa[i] = Val(entry.s_pKa);
    text_koc0 = document.Koc[i].Text();
}

bool Shows_PH_Note(const Pesticide_Document& document, int i)
{
    return document.Sorp_pKa[i].Number() < No_Dissociation;
}

} // namespace orvel
