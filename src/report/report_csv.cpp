// The report as a table of comma-separated values.
#include "core/code_page.h"
#include "core/csv.h"
#include "core/numbers.h"
#include "core/text.h"
#include "report/report_formats.h"
#include "report/report_meaning.h"
#include "report/run_results.h"
#include "tables/table_text.h"

namespace orvel {

namespace {

std::string Uses_Text(const std::vector<Report_Use>& uses)
{
    std::string text;
    for (const auto& use : uses)
        text += (text.empty() ? "" : "; ") + use.Rate + ", " + use.Date + ", " + use.Years + ", " + use.Place;
    return text;
}

// "P1.1 Plant_Uptake[1] = 0.5: kept because ...; D1 ...: open", and why there may be more.
std::string Guidance_Text(const Report& report)
{
    std::string text = report.Guidance_Problem;
    for (const auto& finding : report.Guidance) {
        const std::string answer = Answer_Text(finding);
        text += (text.empty() ? "" : "; ") + finding.Rule + " " + Value_Text(finding) +
                (answer.empty() ? "" : ": " + answer);
    }
    return text;
}

// The figures of a result; empty fields without one.
std::vector<std::string> Figures(const Report_Result* result)
{
    if (result == nullptr)
        return std::vector<std::string>(10);
    const auto period = [](const Selected_Period& selected) {
        return selected.Number == 0 ? "" : std::to_string(selected.Number);
    };
    return {Conc_Text(result->P80.Conc),
            result->Above_Limit ? "yes" : "no",
            period(result->A),
            result->A.Years,
            Conc_Text(result->A.Conc),
            period(result->B),
            result->B.Years,
            Conc_Text(result->B.Conc),
            Figure_Text(result->P80.Flux),
            Figure_Text(result->P80.Percolate)};
}

} // namespace

std::string Report_Csv(const Report& report)
{
    std::string csv = Csv_Line({"Crop",
                                "Substance",
                                "Location",
                                "80th percentile (\xB5g/L)",
                                "Above " + Limit_Text(),
                                "Period A",
                                "Years of A",
                                "Concentration of A (\xB5g/L)",
                                "Period B",
                                "Years of B",
                                "Concentration of B (\xB5g/L)",
                                "Flux (g/ha)",
                                "Percolate (L/m\xB2)",
                                "Problem",
                                "Uses",
                                "Simulated on",
                                "Years",
                                "Pesticide file",
                                "SHA-256 of the pesticide file",
                                "Engine",
                                "SHA-256 of the engine",
                                "Program",
                                "Guidance check",
                                "What the percentile is",
                                "Limit",
                                "Acceptance of the engine",
                                "Verification of the engine",
                                "Command that makes it again"});
    const std::string guidance = Guidance_Text(report);
    for (const auto& crop : report.Crops) {
        // Without any result the runs still tell their problems.
        const std::vector<Report_Table> none(1);
        for (const auto& table : crop.Tables.empty() ? none : crop.Tables) {
            for (std::size_t r = 0; r < crop.Runs.size(); ++r) {
                const auto& run = crop.Runs[r];
                std::vector<std::string> fields = {crop.Name, table.Substance, run.Location};
                for (const auto& figure : Figures(Result_Of(table, r)))
                    fields.push_back(figure);
                for (const auto& field :
                     {run.Problem, Uses_Text(run.Uses), run.Date, run.Years > 0 ? std::to_string(run.Years) : "",
                      run.Pesticide.Name, run.Pesticide.Sha256, report.Engine_File.Name, report.Engine_File.Sha256,
                      report.Program, guidance, Meaning_Of_A_Figure(report), Limit_Meaning(report),
                      Acceptance_Sentence(report), Verification_Sentence(), Reproduce_Line(report)})
                    fields.push_back(field);
                csv += Csv_Line(fields);
            }
        }
    }
    return std::string(Byte_Order_Mark) + To_Utf8(csv);
}

} // namespace orvel
