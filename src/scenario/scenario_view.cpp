#include "scenario/scenario_view.h"

#include "scenario/scenario_options.h"

#include <algorithm>

namespace orvel {

namespace {

constexpr int Haude = 3;

Box State_Of(bool set)
{
    return set ? Box::Set : Box::Clear;
}

int Item(double number, int last)
{
    return number >= last ? last : number >= 1 ? static_cast<int>(number) : 0;
}

} // namespace

Scenario_View View_Of(const Scenario_Document& document)
{
    Scenario_View view;
    view.Compartments = document.SZE_Delxflg == 1 ? 1 : 0;
    view.Layers_Visible = view.Compartments == 1;
    view.Thickness = Thickness_Text(document);
    view.Dispersion = document.SZE_Dispersion_Flag == 1 ? 1 : 0;
    view.Hydraulics = Item(document.SZE_Hydraulic_Flag.Number(), 2);
    view.Drainage = Drainage_Option(document);
    view.Erosion = document.SZE_Erosion == 1;
    view.Processes = {view.Erosion ? Box::Greyed : State_Of(document.SZE_Runoff != 0),
                      State_Of(Has_Macropore_Flow(document))};
    for (std::size_t x = 0; x < view.Processes.size(); ++x)
        view.Process_Depth_Visible[x] = view.Processes[x] != Box::Clear;
    view.Macropore_Button_Visible = Has_Macropore_Flow(document);
    view.DOC = document.SZE_DOC_Flag != 0;
    view.Evapotranspiration = Item(document.SZE_ET_Method, Haude);
    view.Kc_Visible = document.SZE_ET_Method < Haude;
    view.Frequencies = {Frequency_Caption(document, Output_Of::Water), Frequency_Caption(document, Output_Of::Solute),
                        Frequency_Caption(document, Output_Of::Concentration)};
    return view;
}

std::string Thickness_Text(const Scenario_Document& document)
{
    return document.SZE_Layers > 0 ? Format_Pattern(document.SZE_Core_Depth / document.SZE_Layers, "0.00") : "";
}

} // namespace orvel
