#include "report/report_sections.h"

#include "core/numbers.h"
#include "report/report_chart.h"
#include "tables/table_text.h"

#include <algorithm>

namespace orvel {

namespace {

std::string Period_Text(const Selected_Period& period)
{
    return period.Number == 0 ? "none" : std::to_string(period.Number) + " (" + period.Years + ")";
}

Report_Grid Facts_Of(const Report& report)
{
    std::string crops;
    for (const auto& crop : report.Crops)
        crops += (crops.empty() ? "" : "; ") + crop.Name;
    return {{{""}, {""}},
            {{{"Pesticide file", report.Pesticide + ".psm"}},
             {{report.Crops.size() > 1 ? "Crops" : "Crop", crops}},
             {{"Program", report.Program}},
             {{"Engine", report.Engine}},
             {{"Report made on", report.Made}}}};
}

// The highest concentration of a substance and where it stands.
Report_Line Overview_Line(const Report_Crop& crop, const Report_Table& table)
{
    const auto highest =
        std::ranges::max_element(table.Results, {}, [](const Report_Result& result) { return result.P80.Conc; });
    const auto above = std::ranges::count_if(table.Results, &Report_Result::Above_Limit);
    const std::string of = std::to_string(above) + " of " + std::to_string(table.Results.size());
    if (highest == table.Results.end())
        return {{crop.Name, table.Substance, "", "", of}};
    if (highest->P80.Conc == 0)
        return {{crop.Name, table.Substance, "-", "-", of}};
    return {{crop.Name, table.Substance, Conc_Text(highest->P80.Conc), crop.Runs[highest->Run].Location, of},
            above > 0};
}

Report_Section Overview(const Report& report)
{
    Report_Section section{
        .Level = 2, .Heading = "Overview", .Sentences = {std::string(Report_Depth_Text) + ", limit 0.1 \xB5g/L."}};
    section.Grid.Columns = {
        {"Crop"}, {"Substance"}, {"Highest (\xB5g/L)", true}, {"Location"}, {"Locations above the limit", true}};
    for (const auto& crop : report.Crops) {
        for (const auto& table : crop.Tables)
            section.Grid.Lines.push_back(Overview_Line(crop, table));
    }
    return section;
}

Report_Section Uses(const Report_Crop& crop)
{
    Report_Section section{.Level = 3, .Heading = "Uses"};
    section.Grid.Columns = {{"Location"}, {"Rate", true}, {"Date"}, {"Years of the simulation"}, {"Place"}};
    for (const auto& run : crop.Runs) {
        std::string location = run.Location;
        if (run.Uses.empty() && !run.Date.empty())
            section.Grid.Lines.push_back({{location, "The pesticide file states no application for this location."}});
        for (const auto& use : run.Uses) {
            section.Grid.Lines.push_back({{location, use.Rate, use.Date, use.Years, use.Place}});
            location.clear();
        }
    }
    return section;
}

Report_Line Result_Line(const Report_Run& run, const Report_Result& result)
{
    return {{run.Location, Conc_Text(result.P80.Conc), result.Above_Limit ? "exceeded" : "kept", Period_Text(result.A),
             Conc_Text(result.A.Conc), Period_Text(result.B), Conc_Text(result.B.Conc), Figure_Text(result.P80.Flux),
             Figure_Text(result.P80.Percolate)},
            result.Above_Limit};
}

Report_Section Results(const Report_Crop& crop, const Report_Table& table)
{
    Report_Section section{.Level = 3, .Heading = "Results for " + table.Substance, .Diagram = &table.Diagram};
    section.Sentences = {std::string(Report_Depth_Text) +
                         ": the mean concentration of two periods A and B, named with the years of the simulation in "
                         "brackets. Flux and percolate are the "
                         "sums of both."};
    section.Grid.Columns = {{"Location"},          {"Percentile (\xB5g/L)", true}, {"Limit 0.1 \xB5g/L"},
                            {"Period A (years)"},  {"A (\xB5g/L)", true},          {"Period B (years)"},
                            {"B (\xB5g/L)", true}, {"Flux (g/ha)", true},          {"Percolate (L/m\xB2)", true}};
    for (std::size_t run = 0; run < crop.Runs.size(); ++run) {
        if (const auto* result = Result_Of(table, run))
            section.Grid.Lines.push_back(Result_Line(crop.Runs[run], *result));
        else
            section.Grid.Lines.push_back({{crop.Runs[run].Location, crop.Runs[run].Problem}});
    }
    return section;
}

Report_Section Simulations(const Report_Crop& crop)
{
    constexpr std::size_t Scenario_Title = 1;
    Report_Section section{.Level = 3, .Heading = "Simulations"};
    section.Grid.Columns = {{"Location"}, {"Simulated on"}, {"Years", true}, {"Scenario"}};
    for (const auto& run : crop.Runs) {
        const std::string scenario = run.Titles.size() > Scenario_Title ? run.Titles[Scenario_Title] : "";
        section.Grid.Lines.push_back(run.Problem.empty()
                                         ? Report_Line{{run.Location, run.Date, std::to_string(run.Years), scenario}}
                                         : Report_Line{{run.Location, run.Problem}});
    }
    return section;
}

// Adds a file to the table; one that many simulations share stands once.
void Add_File(Report_Grid& grid, const Checked_File& file, const std::string& used_for)
{
    if (file.Name.empty())
        return;
    const std::string digest = file.Sha256.empty() ? "could not be read" : file.Sha256;
    for (auto& line : grid.Lines) {
        if (line.Cells[0] == file.Name && line.Cells[2] == digest) {
            line.Cells[1] += "; " + used_for;
            return;
        }
    }
    grid.Lines.push_back({{file.Name, used_for, digest}});
}

// Whether all simulations, two at least, have the same file.
bool Is_Shared(const Report& report, Checked_File Report_Run::*file)
{
    std::vector<Checked_File> files;
    for (const auto& crop : report.Crops) {
        for (const auto& run : crop.Runs)
            files.push_back(run.*file);
    }
    return files.size() > 1 &&
           std::ranges::all_of(files, [&](const Checked_File& other) { return other == files.front(); });
}

Report_Section Files(const Report& report)
{
    Report_Section section{.Level = 2, .Heading = "Files and checksums"};
    section.Grid.Columns = {{"File"}, {"Used for"}, {"SHA-256"}};
    Add_File(section.Grid, report.Engine_File, "engine");
    const auto add_all = [&](Checked_File Report_Run::*file) {
        const bool is_shared = Is_Shared(report, file);
        for (const auto& crop : report.Crops) {
            for (const auto& run : crop.Runs) {
                if (is_shared)
                    return Add_File(section.Grid, run.*file, "all simulations");
                Add_File(section.Grid, run.*file, (report.Crops.size() > 1 ? crop.Name + ": " : "") + run.Location);
            }
        }
    };
    add_all(&Report_Run::Pesticide);
    add_all(&Report_Run::Scenario);
    add_all(&Report_Run::Run_Control);
    return section;
}

} // namespace

std::vector<Report_Section> Sections_Of(const Report& report)
{
    std::vector<Report_Section> sections = {{.Level = 1, .Heading = report.Title, .Grid = Facts_Of(report)}};
    if (!report.Notes.empty())
        sections.push_back({.Level = 2, .Heading = "Notes", .Sentences = report.Notes, .Is_Warning = true});
    sections.push_back(Overview(report));
    for (const auto& crop : report.Crops) {
        sections.push_back({.Level = 2, .Heading = crop.Name});
        sections.push_back(Uses(crop));
        for (const auto& table : crop.Tables)
            sections.push_back(Results(crop, table));
        sections.push_back(Simulations(crop));
    }
    sections.push_back(Files(report));
    return sections;
}

} // namespace orvel
