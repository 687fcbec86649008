#include "scenario/scenario_options.h"

#include "core/text.h"

#include <algorithm>

namespace orvel {

namespace {

constexpr int Macropore_Part = 2; // of the water flow flag

struct Frequency {
    std::string_view Word, Caption;
};

// Each is followed by the one that a click switches to. The daily word has a leading blank in the file.
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

Scenario_Document& Changed(Session& session)
{
    session.Program.SZE_Changed = true;
    return session.Scenario;
}

} // namespace

void Choose_Compartments(Session& session, int option)
{
    Changed(session).SZE_Delxflg = static_cast<std::int16_t>(option);
}

void Choose_Dispersion(Session& session, int option)
{
    Changed(session).SZE_Dispersion_Flag = static_cast<std::int16_t>(option);
}

void Choose_Hydraulics(Session& session, int option)
{
    Changed(session).SZE_Hydraulic_Flag = option;
}

void Choose_Evapotranspiration(Session& session, int item)
{
    Changed(session).SZE_ET_Method = static_cast<std::int16_t>(item);
}

void Choose_Drainage(Session& session, int option)
{
    const bool macropores = Has_Macropore_Flow(session.Scenario);
    Changed(session).SZE_Water_Flag = option + (macropores ? Macropore_Part : 0);
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

void Switch_Process(Session& session, Fast_Process process, bool on)
{
    auto& document = Changed(session);
    if (process == Fast_Process::Runoff) {
        document.SZE_Runoff = on;
        return;
    }
    const int option = Drainage_Option(document);
    document.SZE_Macropore = on;
    document.SZE_Water_Flag = option + (on ? Macropore_Part : 0);
}

void Switch_Erosion(Session& session, bool on)
{
    auto& document = Changed(session);
    document.SZE_Erosion = on;
    if (on)
        document.SZE_Runoff = 1;
}

void Switch_DOC(Session& session, bool on)
{
    Changed(session).SZE_DOC_Flag = on;
}

std::string_view Frequency_Caption(const Scenario_Document& document, Output_Of output)
{
    return Frequencies[Frequency_Index(document, output)].Caption;
}

void Switch_Frequency(Session& session, Output_Of output)
{
    const auto next = (Frequency_Index(session.Scenario, output) + 1) % Frequencies.size();
    Changed(session).*Frequency_Fields[static_cast<std::size_t>(output)] = Variant::Verbatim(Frequencies[next].Word);
}

} // namespace orvel
