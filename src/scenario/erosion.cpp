#include "scenario/erosion.h"

namespace orvel {

namespace {

constexpr std::array<Variant Scenario_Document::*, 4> Mixed_Factors = {
    &Scenario_Document::SZE_Eros_K, &Scenario_Document::SZE_Eros_2, &Scenario_Document::SZE_Eros_3,
    &Scenario_Document::SZE_Eros_4};

std::string Text_Of(double factor)
{
    return factor == 0 ? "" : General_Text(factor);
}

} // namespace

Erosion_Texts Show_Erosion(const Scenario_Document& document)
{
    Erosion_Texts texts;
    for (std::size_t i = 0; i < Mixed_Factors.size(); ++i)
        texts[i] = Text_Of((document.*Mixed_Factors[i]).Number());
    texts.back() = Text_Of(document.SZE_Eros_5);
    return texts;
}

void Take_Over_Erosion(Scenario_Edit edit, const Erosion_Texts& texts)
{
    edit.Changed = true;
    for (std::size_t i = 0; i < Mixed_Factors.size(); ++i)
        edit.Document.*Mixed_Factors[i] = Val(texts[i]);
    edit.Document.SZE_Eros_5 = Val(texts.back());
}

} // namespace orvel
