#include "report/report_meaning.h"

#include "core/shell_line.h"
#include "core/version.h"
#include "report/run_results.h"

#include <algorithm>
#include <map>

namespace orvel {

namespace {

constexpr std::string_view Sentence_Of_Percentile = "Each figure is the 80th percentile of the concentration in the "
                                                    "percolate at 1 m soil depth: of 20 periods, the mean "
                                                    "of the fourth and the fifth highest concentration. A period is "
                                                    "one year; where the pesticide is applied every second "
                                                    "or third year it is two or three years, so that 40 or 60 years "
                                                    "are simulated. The concentration of a period is the "
                                                    "mass of the substance that passes 1 m divided by the water that "
                                                    "passes it. The first six years are a warm-up and do "
                                                    "not count.";

std::string Count_Of(std::size_t count, const std::string& one, const std::string& many)
{
    return std::to_string(count) + " " + (count == 1 ? one : many);
}

std::string What_Was_Computed(const Report& report)
{
    std::size_t runs = 0, results = 0;
    std::map<std::string, std::size_t> locations;
    for (const auto& crop : report.Crops) {
        for (const auto& run : crop.Runs) {
            ++runs;
            results += run.Problem.empty() ? 1 : 0;
            ++locations[run.Location];
        }
    }
    return Count_Of(runs, "simulation", "simulations") + " of the pesticide file " + report.Pesticide +
           ".psm: " + Count_Of(report.Crops.size(), "crop", "crops") + ", " +
           Count_Of(locations.size(), "location", "locations") + ". " +
           (results == runs ? std::string(runs == 1 ? "It has a result." : "All have a result.")
                            : std::to_string(results) + " of them have a result; the others say why not.") +
           " Substances and applications are listed under \"Endpoints\" and \"Uses\".";
}

std::string Engine_Sentence(const Report& report)
{
    const std::string digest = report.Engine_File.Sha256.empty() ? "" : ", SHA-256 " + report.Engine_File.Sha256;
    return "Computed by the engine " + report.Engine +
           (report.Engine_File.Name.empty() ? "" : " (" + report.Engine_File.Name + digest + ")") +
           ", a model of water and substances in a soil column, and evaluated by " + report.Program + ".";
}

std::string Guidance_Sentence(const Report& report)
{
    if (!report.Guidance_Problem.empty())
        return report.Guidance_Problem;
    if (report.Guidance.empty())
        return "The guidance check found nothing.";
    const auto open = std::ranges::count_if(report.Guidance, &Guidance_Finding::Is_Open);
    return "The guidance check has " + Count_Of(report.Guidance.size(), "finding", "findings") + ", " +
           std::to_string(open) + " without an answer.";
}

std::string Inputs_Sentence(const Report& report)
{
    const auto sources = std::ranges::count_if(report.Endpoints, [](const Endpoint& e) { return !e.Source.empty(); });
    return "The documents that were simulated stand with their digests under \"Files and checksums\"; the digests "
           "under "
           "\"Records\" vouch for every input and output of each simulation. " +
           (sources == 0 ? std::string("No source is noted for the endpoints. ")
                         : "The endpoints have their sources beside them. ") +
           Guidance_Sentence(report);
}

} // namespace

std::string Meaning_Of_A_Figure(const Report& report)
{
    if (report.Overview.Has_Limit)
        return std::string(Sentence_Of_Percentile);
    return "The overview has for each figure: " + report.Overview.Quantity +
           ". The tables of the crops are those of the percolate. " + std::string(Sentence_Of_Percentile);
}

std::string Limit_Meaning(const Report& report)
{
    const std::string limit = "The limit of " + Limit_Text() + " is that for a pesticide or a relevant metabolite in ",
                      drinking_water = "drinking water (Directive (EU) 2020/2184, Annex I, Part B)";
    if (!report.Overview.Has_Limit)
        return limit + drinking_water +
               "; it holds for the tables of the percolate alone, not for concentrations in soil.";
    return limit + "groundwater (Directive 2006/118/EC, Annex I) and in " + drinking_water +
           ". Figures above it are bold and marked in words.";
}

std::string Acceptance_Sentence(const Report& report)
{
    if (report.Acceptance.empty())
        return "The engine is not in the installation: whether it is accepted is not known.";
    if (!report.Acceptance.starts_with("accepted"))
        return "The engine is " + report.Acceptance +
               ": it was not tried in this installation on the reference substances, or did not pass (orvelctl "
               "accept).";
    return "The engine is " + report.Acceptance +
           ": tried in this installation, it gave the figures of the reference substances within their tolerance.";
}

std::string Verification_Sentence()
{
    return "The engine that is shipped with the program was verified with " + std::to_string(Verified_Figures) +
           " figures in " + std::to_string(Verified_Cases) +
           " cases: exact solutions, hand calculations and a second model of the column. Each agrees within the "
           "tolerance "
           "that stands beside it in the program's page \"Verification of the engine\". Measurements in the field and "
           "figures of other programs were not compared: how well the model describes a soil is not told by this "
           "report. "
           "The digits printed are more than the model knows.";
}

// The archive holds everything that a simulation read, so that the second part needs nothing else.
std::string Reproduce_Line(const Report& report)
{
    const std::string archive = report.Pesticide + ".zip";
    std::vector<std::string> words = {"orvelctl",    "archive",
                                      "--mode",      std::string(Mode_Of(report.Overview.Mode).Name),
                                      "--pesticide", report.Pesticide};
    if (report.Crops.size() == 1)
        words.insert(words.end(), {"--crop", report.Crops.front().Name});
    words.insert(words.end(), {"--to", archive, "&&", "orvelctl", "reproduce", archive});
    std::string line;
    for (const auto& word : words)
        line += (line.empty() ? "" : " ") + (word == "&&" ? word : Shell_Word(word));
    return line;
}

std::vector<Report_Fact> Meaning_Of(const Report& report)
{
    return {{"What was computed", What_Was_Computed(report)},
            {"What a figure means", Meaning_Of_A_Figure(report)},
            {"The limit", Limit_Meaning(report)},
            {"The engine", Engine_Sentence(report)},
            {"Accepted?", Acceptance_Sentence(report)},
            {"How sure it is", Verification_Sentence()},
            {"The inputs", Inputs_Sentence(report)},
            {"To make it again",
             "In the directory of the installation; it runs every simulation again from an archive of its inputs and "
             "compares all figures, and changes nothing that is there:"},
            {"The command", Reproduce_Line(report)}};
}

} // namespace orvel
