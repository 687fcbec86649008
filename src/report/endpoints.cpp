#include "report/endpoints.h"

#include "core/numbers.h"
#include "core/text.h"
#include "substance/half_lives.h"
#include "substance/pathway.h"

#include <algorithm>

namespace orvel {

namespace {

constexpr int Active_Substance = 1;

std::size_t At(int i)
{
    return static_cast<std::size_t>(i);
}

// A substance's loss is split over its arrows in proportion to their rates: the sum is that of the substance.
double Rate_Of(const Pesticide_Document& document, int i)
{
    double rate = 0;
    for (int row = 1; row <= Rows_Of_Substance(i); ++row)
        rate += document.Degradation[At(i)][At(row)].Deg_Rate.Number();
    return rate;
}

// The reference conditions of the first arrow that has a rate.
std::string Conditions_Of(const Pesticide_Document& document, int i)
{
    for (int row = 1; row <= Rows_Of_Substance(i); ++row) {
        const auto& arrow = document.Degradation[At(i)][At(row)];
        if (arrow.Deg_Rate.Number() <= 0)
            continue;
        std::string text = " at " + General_Text(arrow.Deg_Temp.Number()) + " \xB0" + "C";
        if (arrow.Deg_Moist_Rel.Number() > 0)
            text += ", moisture " + General_Text(arrow.Deg_Moist_Rel.Number()) + " % of field capacity";
        else if (arrow.Deg_Moist_Abs.Number() > 0)
            text += ", moisture " + General_Text(arrow.Deg_Moist_Abs.Number()) + " %";
        return text + ", Q10 " + General_Text(arrow.Deg_Q10.Number());
    }
    return {};
}

std::string DT50_Of(const Pesticide_Document& document, int i)
{
    const double rate = Rate_Of(document, i);
    return rate <= 0 ? "no degradation" : Texts_Of_Rate(General_Text(rate)).DT50 + " d" + Conditions_Of(document, i);
}

std::string Koc_Of(const Pesticide_Document& document, int i)
{
    if (document.Kd_Flag[At(i)].Number() == 0)
        return "Kf by horizon";
    const double koc = document.Koc[At(i)].Number(), other = document.Koc2[At(i)].Number();
    const bool by_ph = document.Sorp_pH[At(i)].Number() != document.Sorp_pH2[At(i)].Number() && other > 0;
    return General_Text(koc) + (by_ph ? " to " + General_Text(other) + " by pH" : std::string());
}

// The share of each substance's loss that forms this one.
std::string Formation_Of(const Pesticide_Document& document, int i)
{
    std::string text;
    for (int t = 1; t <= Last_Transformation; ++t) {
        const Arrow& arrow = Arrow_Of(t);
        const double rate = arrow.Target == i && !arrow.Label.empty()
                                ? document.Degradation[At(arrow.Source)][At(arrow.Row)].Deg_Rate.Number()
                                : 0;
        if (rate <= 0)
            continue;
        constexpr int Decimals = 3;
        text += (text.empty() ? "" : "; ") + Fixed_Text(rate / Rate_Of(document, arrow.Source), Decimals) + " from " +
                document.Substance_Name[At(arrow.Source)];
    }
    return text;
}

std::string With_Temperature(const Pesticide_Document& document, double value, const std::string& unit)
{
    return General_Text(value) + unit + " at " + General_Text(document.Volat_Temp[0]) + " \xB0" + "C";
}

// The sources of what the row shows; one that several values share stands once behind all of them.
class Sources {
public:
    explicit Sources(const Document_Notes& notes) : Notes(notes) {}

    void Add(const std::string& what, const std::string& field)
    {
        const Field_Note* note = Note_Of(Notes, field);
        if (note == nullptr || note->Source.empty())
            return;
        const auto known = std::ranges::find(All, note->Source, &std::pair<std::string, std::string>::first);
        if (known == All.end())
            All.emplace_back(note->Source, what);
        else if (!Contains(known->second, what))
            known->second += ", " + what;
    }

    std::string Text() const
    {
        std::string text;
        for (const auto& [source, what] : All)
            text += (text.empty() ? "" : "; ") + what + ": " + source;
        return text;
    }

private:
    const Document_Notes& Notes;
    std::vector<std::pair<std::string, std::string>> All; // source, what it is of
};

std::string Sources_Of(const Document_Notes& notes, int i)
{
    const auto of = [i](std::string_view field) { return std::string(field) + "[" + std::to_string(i) + "]"; };
    Sources sources(notes);
    for (int row = 1; row <= Rows_Of_Substance(i); ++row)
        sources.Add("DT50", of("Degradation") + "[" + std::to_string(row) + "].Deg_Rate");
    sources.Add("Koc", of("Koc"));
    sources.Add("1/n", of("Fr_Exp"));
    for (int t = 1; t <= Last_Transformation; ++t) {
        const Arrow& arrow = Arrow_Of(t);
        if (arrow.Target == i && !arrow.Label.empty())
            sources.Add("formation", "Degradation[" + std::to_string(arrow.Source) + "][" + std::to_string(arrow.Row) +
                                         "].Deg_Rate");
    }
    if (i == Active_Substance) {
        sources.Add("Henry constant", "Henry[0]");
        sources.Add("vapour pressure", "Vap_Press[0]");
        sources.Add("solubility", "Solubility[0]");
    }
    return sources.Text();
}

} // namespace

std::vector<Endpoint> Endpoints_Of(const Pesticide_Document& document, const Document_Notes& notes)
{
    std::vector<Endpoint> endpoints;
    for (int i = Active_Substance; i <= Substances; ++i) {
        if (i != Active_Substance && !document.Met_Present[At(i)])
            continue;
        auto& endpoint = endpoints.emplace_back(Endpoint{.Substance = document.Substance_Name[At(i)],
                                                         .DT50 = DT50_Of(document, i),
                                                         .Koc = Koc_Of(document, i),
                                                         .Exponent = General_Text(document.Fr_Exp[At(i)].Number()),
                                                         .Formation = Formation_Of(document, i),
                                                         .Source = Sources_Of(notes, i)});
        if (i != Active_Substance)
            continue; // the file states volatilisation of the active substance alone
        endpoint.Vapour_Pressure = document.Henry_Flag.Number() == 0
                                       ? "Henry constant " + General_Text(document.Henry[0])
                                       : With_Temperature(document, document.Vap_Press[0], " Pa");
        if (document.Henry_Flag.Number() != 0)
            endpoint.Solubility = With_Temperature(document, document.Solubility[0], " mg/L");
    }
    return endpoints;
}

} // namespace orvel
