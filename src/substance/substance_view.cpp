#include "substance/substance_view.h"

#include "substance/kinetic_sorption.h"
#include "substance/ph_sorption.h"

namespace orvel {

namespace {

constexpr int Individual = 2;

} // namespace

Sorption_View View_Of_Sorption(const Substance_Entry& entry)
{
    const bool has_horizons = Val(entry.Text_nhor) > 0;
    return {.Koc_Visible = !entry.Kd_Direct,
            .Horizons_Visible = entry.Depth_Mode == Individual || has_horizons,
            .Command_hor_Visible = has_horizons,
            .Kf_Enabled = entry.Kf_Enabled};
}

Volatilisation_View View_Of_Volatilisation(const Active_Entry& entry)
{
    const bool foliar = entry.App_Flag != Application_Method::Soil;
    return {.Henry_Visible = entry.Henry_Direct,
            .Vap_Press_Visible = !entry.Henry_Direct || foliar,
            .Solubility_Visible = !entry.Henry_Direct,
            .Command1_Visible = foliar};
}

Sorption_Notes Notes_Of(const Pesticide_Document& document, int i)
{
    return {.label_pH = Shows_PH_Note(document, i),
            .Label_kinSorp = Shows_Kinetic_Note(document, i),
            .Label_Sorption = document.Koc_Change[i] != 1};
}

std::string_view Command4_Caption(bool all_shown)
{
    return all_shown ? "Show major input parameters" : "Show all input parameters";
}

std::string_view Metabolite_Caption(int i)
{
    return Default_Substance_Name.at(static_cast<std::size_t>(i));
}

} // namespace orvel
