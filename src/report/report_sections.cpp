#include "report/report_sections.h"

#include "core/locations.h"
#include "report/overview_formats.h"
#include "report/overview_settings.h"
#include "report/report_meaning.h"
#include "report/run_results.h"
#include "tables/table_text.h"

#include <algorithm>
#include <utility>

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
    Report_Grid facts{{{""}, {""}},
                      {{{"Pesticide file", report.Pesticide + ".psm"}},
                       {{report.Crops.size() > 1 ? "Crops" : "Crop", crops}},
                       {{"Program", report.Program}},
                       {{"Engine", report.Engine}},
                       {{"Report made on", report.Made}}}};
    if (!report.Acceptance.empty())
        facts.Lines.push_back({{"The engine is", report.Acceptance}});
    return facts;
}

// The code of a location, which heads its column: all nine fit on a page.
std::string Short_Heading(const std::string& location)
{
    const std::string code = Bracket_Text(location);
    return code.empty() ? location : code;
}

Report_Line Overview_Line(const Overview& overview, const Overview_Row& row)
{
    const std::vector<double> bounds = Overview_Settings().Bounds;
    Report_Line line;
    const auto add = [&](const std::string& text, Cell_Mark mark = {}) {
        line.Cells.push_back(text);
        line.Marks.push_back(mark);
    };
    add(row.Crop);
    add((row.Is_Metabolite ? "- " : "") + row.Substance + (overview.Has_Limit ? "" : " (" + row.Unit + ")"));
    const auto mark_of = [&](const Overview_Figure& figure) {
        const auto place = Class_Place(Class_Of(figure.Value, bounds), bounds.size());
        return overview.Has_Limit ? Cell_Mark{static_cast<int>(place), figure.Above_Limit} : Cell_Mark();
    };
    for (std::size_t column = 0; column < overview.Columns.size(); ++column) {
        const auto* figure = Figure_At(overview, row, column);
        add(Cell_Text(overview, row, column), figure == nullptr ? Cell_Mark() : mark_of(*figure));
    }
    add(Highest_Text(overview, row),
        row.Highest < 0 ? Cell_Mark() : mark_of(*Figure_At(overview, row, static_cast<std::size_t>(row.Highest))));
    if (overview.Has_Limit)
        add(Above_Text(row));
    return line;
}

std::string Classes_Text(const std::vector<double>& bounds)
{
    std::string text;
    for (const auto& name : Class_Texts(bounds))
        text += (text.empty() ? "" : "; ") + name;
    return text;
}

Report_Section Overview_Section(const Overview& overview)
{
    Report_Section section{.Level = 2, .Heading = "Overview"};
    std::string codes;
    section.Grid.Columns = {{"Crop"}, {"Substance"}};
    for (const auto& location : overview.Columns) {
        section.Grid.Columns.push_back({Short_Heading(location), true});
        codes += (codes.empty() ? "" : "; ") + location;
    }
    section.Grid.Columns.push_back({"Highest", true});
    if (overview.Has_Limit)
        section.Grid.Columns.push_back({"Above " + Limit_Number()});
    section.Sentences = {overview.Quantity + (overview.Has_Limit
                                                  ? ", " + std::string(Leachate_Unit) +
                                                        "; figures above the limit of " + Limit_Text() + " are bold."
                                                  : std::string(".")),
                         "Locations: " + codes + "."};
    if (overview.Has_Limit)
        section.Sentences.push_back("The higher the class of a figure, the darker its ground: " +
                                    Classes_Text(Overview_Settings().Bounds) + ".");
    for (const auto& row : overview.Rows)
        section.Grid.Lines.push_back(Overview_Line(overview, row));
    return section;
}

// One table for all crops; what several locations share stands once.
Report_Section Uses(const Report& report)
{
    Report_Section section{.Level = 2, .Heading = "Uses"};
    section.Grid.Columns = {{"Crop"}, {"Locations"}, {"Rate", true}, {"Date"}, {"Years of the simulation"}, {"Place"}};
    for (const auto& crop : report.Crops) {
        std::vector<Report_Line> lines;
        const auto add = [&](const std::string& location, std::vector<std::string> use) {
            const auto known = std::ranges::find_if(lines, [&](const Report_Line& line) {
                return std::equal(use.begin(), use.end(), line.Cells.begin() + 2, line.Cells.end());
            });
            if (known != lines.end()) {
                known->Cells[1] += "; " + location;
                return;
            }
            use.insert(use.begin(), {crop.Name, location});
            lines.push_back({std::move(use)});
        };
        for (const auto& run : crop.Runs) {
            if (run.Uses.empty() && !run.Date.empty())
                add(run.Location, {"The pesticide file states no application for this location."});
            for (const auto& use : run.Uses)
                add(run.Location, {use.Rate, use.Date, use.Years, use.Place});
        }
        section.Grid.Lines.insert(section.Grid.Lines.end(), lines.begin(), lines.end());
    }
    return section;
}

Report_Section Endpoints(const Report& report)
{
    Report_Section section{.Level = 2, .Heading = "Endpoints"};
    section.Grid.Columns = {{"Substance"},          {"DT50 in soil"},    {"Koc (L/kg)", true}, {"1/n", true},
                            {"Formation fraction"}, {"Vapour pressure"}, {"Solubility"}};
    const bool has_sources =
        std::ranges::any_of(report.Endpoints, [](const Endpoint& endpoint) { return !endpoint.Source.empty(); });
    if (has_sources)
        section.Grid.Columns.push_back({"Source"});
    for (const auto& endpoint : report.Endpoints) {
        section.Grid.Lines.push_back({{endpoint.Substance, endpoint.DT50, endpoint.Koc, endpoint.Exponent,
                                       endpoint.Formation, endpoint.Vapour_Pressure, endpoint.Solubility}});
        if (has_sources)
            section.Grid.Lines.back().Cells.push_back(endpoint.Source);
    }
    return section;
}

// What the guidance says against the inputs, and why it was kept.
Report_Section Guidance_Section(const Report& report)
{
    Report_Section section{.Level = 2, .Heading = std::string(Guidance_Title)};
    section.Grid.Columns = {{"Rule"}, {"Severity"}, {"Value"}, {"Finding"}, {"Source of the rule"}, {"Answer"}};
    for (const auto& finding : report.Guidance)
        section.Grid.Lines.push_back({{finding.Rule, std::string(Severity_Text(finding.Severity)), Value_Text(finding),
                                       finding.Text, Source_Text(finding), Answer_Text(finding)}});
    return section;
}

// For a reader who has never seen the program.
Report_Section How_To_Read(const Report& report)
{
    Report_Section section{.Level = 2, .Heading = "How to read this report"};
    section.Grid.Columns = {{""}, {""}};
    for (const auto& fact : Meaning_Of(report))
        section.Grid.Lines.push_back({{fact.Topic, fact.Sentences}});
    return section;
}

// A diagram in which there is something to see.
const Chart* Diagram_Of(const Report_Table& table)
{
    const bool any = std::ranges::any_of(table.Diagram.Boxes, [](const Chart_Box& box) { return box.Y > 0; });
    return any ? &table.Diagram : nullptr;
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
    Report_Section section{.Level = 3, .Heading = "Results for " + table.Substance, .Diagram = Diagram_Of(table)};
    section.Sentences = {std::string(Report_Depth_Text) +
                         ": the mean concentration of two periods A and B, named with the years of the simulation in "
                         "brackets. Flux and percolate are the "
                         "sums of both."};
    section.Grid.Columns = {{"Location"},          {"Percentile (\xB5g/L)", true}, {"Limit " + Limit_Text()},
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

// One table for all crops.
Report_Section Simulations(const Report& report)
{
    constexpr std::size_t Scenario_Title = 1;
    Report_Section section{.Level = 2, .Heading = "Simulations"};
    section.Grid.Columns = {{"Crop"}, {"Location"}, {"Simulated on"}, {"Years", true}, {"Scenario"}};
    for (const auto& crop : report.Crops) {
        for (const auto& run : crop.Runs) {
            const std::string scenario = run.Titles.size() > Scenario_Title ? run.Titles[Scenario_Title] : "";
            section.Grid.Lines.push_back(run.Problem.empty() ? Report_Line{{crop.Name, run.Location, run.Date,
                                                                            std::to_string(run.Years), scenario}}
                                                             : Report_Line{{crop.Name, run.Location, run.Problem}});
        }
    }
    return section;
}

// The digest of a run's record vouches for those of all its inputs and outputs, which the record holds.
Report_Section Records(const Report& report)
{
    Report_Section section{.Level = 2, .Heading = "Records"};
    section.Grid.Columns = {{"Crop"}, {"Location"}, {"Record"}, {"SHA-256"}};
    for (const auto& crop : report.Crops) {
        for (const auto& run : crop.Runs) {
            if (!run.Record.Sha256.empty())
                section.Grid.Lines.push_back({{crop.Name, run.Location, run.Record.Name, run.Record.Sha256}});
        }
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
    if (!report.Overview.Rows.empty())
        sections.push_back(Overview_Section(report.Overview));
    if (!report.Notes.empty())
        sections.push_back({.Level = 2, .Heading = "Notes", .Sentences = report.Notes, .Is_Warning = true});
    sections.push_back(How_To_Read(report));
    for (const auto& crop : report.Crops) {
        sections.push_back({.Level = 2, .Heading = crop.Name, .Begins_Page = true});
        for (const auto& table : crop.Tables) {
            sections.push_back(Results(crop, table));
            if (&table != &crop.Tables.front())
                sections.back().Sentences.clear(); // said above the first one
        }
    }
    sections.push_back(Uses(report));
    sections.back().Begins_Page = true;
    if (!report.Endpoints.empty())
        sections.push_back(Endpoints(report));
    if (!report.Guidance.empty())
        sections.push_back(Guidance_Section(report));
    sections.push_back(Simulations(report));
    sections.push_back(Files(report));
    if (auto records = Records(report); !records.Grid.Lines.empty())
        sections.push_back(std::move(records));
    return sections;
}

} // namespace orvel
