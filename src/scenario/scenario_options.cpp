#include "scenario/scenario_options.h"

#include "core/text.h"

#include <algorithm>

namespace orvel {

namespace {

constexpr int Macropore_Part = 2; // in the water flow flag

struct Frequency {
    std::string_view Word, Caption;
};

// In cyclic order: a click switches to the next. The daily word has a leading blank in the file.
constexpr std::array<Frequency, 3> Frequencies = {{{"MNTH", "Monthly"}, {"YEAR", "Yearly"}, {" DAY", "Daily"}}};

constexpr std::array<Variant Scenario_Document::*, 3> Frequency_Fields = {
    &Scenario_Document::SZE_Freq_Water, &Scenario_Document::SZE_Freq_Solute, &Scenario_Document::SZE_Freq_Conc};

std::size_t Frequency_Index(const Scenario_Document& document, Output_Of output)
{
    const std::string text = (document.*Frequency_Fields[static_cast<std::size_t>(output)]).Text();
    const auto found =
        std::ranges::find_if(Frequencies, [&](const Frequency& f) { return Trim(f.Word) == Trim(text); });
    return found == Frequencies.end() ? 0 : static_cast<std::size_t>(found - Frequencies.begin());
}

Scenario_Document& Changed(Scenario_Edit edit)
{
    edit.Changed = true;
    return edit.Document;
}

} // namespace

void Choose_Compartments(Scenario_Edit edit, int option)
{
    Changed(edit).SZE_Delxflg = static_cast<std::int16_t>(option);
}

void Choose_Dispersion(Scenario_Edit edit, int option)
{
    Changed(edit).SZE_Dispersion_Flag = static_cast<std::int16_t>(option);
}

void Choose_Hydraulics(Scenario_Edit edit, int option)
{
    Changed(edit).SZE_Hydraulic_Flag = option;
}

void Choose_Evapotranspiration(Scenario_Edit edit, int item)
{
    Changed(edit).SZE_ET_Method = static_cast<std::int16_t>(item);
}

void Choose_Drainage(Scenario_Edit edit, int option)
{
    const bool macropores = Has_Macropore_Flow(edit.Document);
    Changed(edit).SZE_Water_Flag = option + (macropores ? Macropore_Part : 0);
}

bool Has_Macropore_Flow(const Scenario_Document& document)
{
    return document.SZE_Water_Flag.Number() >= Macropore_Part;
}

int Drainage_Option(const Scenario_Document& document)
{
    const double flag = document.SZE_Water_Flag.Number() - (Has_Macropore_Flow(document) ? Macropore_Part : 0);
    return flag >= 1 ? 1 : 0;
}

void Switch_Process(Scenario_Edit edit, Fast_Process process, bool on)
{
    auto& document = Changed(edit);
    if (process == Fast_Process::Runoff) {
        document.SZE_Runoff = on;
        return;
    }
    const int option = Drainage_Option(document);
    document.SZE_Macropore = on;
    document.SZE_Water_Flag = option + (on ? Macropore_Part : 0);
}

void Switch_Erosion(Scenario_Edit edit, bool on)
{
    auto& document = Changed(edit);
    document.SZE_Erosion = on;
    if (on)
        document.SZE_Runoff = 1;
}

void Switch_DOC(Scenario_Edit edit, bool on)
{
    Changed(edit).SZE_DOC_Flag = on;
}

std::string_view Frequency_Caption(const Scenario_Document& document, Output_Of output)
{
    return Frequencies[Frequency_Index(document, output)].Caption;
}

void Switch_Frequency(Scenario_Edit edit, Output_Of output)
{
    const auto next = (Frequency_Index(edit.Document, output) + 1) % Frequencies.size();
    Changed(edit).*Frequency_Fields[static_cast<std::size_t>(output)] = Variant::Verbatim(Frequencies[next].Word);
}

} // namespace orvel
