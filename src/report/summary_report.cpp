#include "report/summary_report.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/locations.h"
#include "core/run_name.h"
#include "core/text.h"
#include "jobs/run_tree.h"
#include "output/run_files.h"
#include "runs/crops.h"

#include <algorithm>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t Name_Width = 17;
constexpr std::size_t Most_Padding = 10;
constexpr std::size_t Rule_Length = 82;

constexpr std::string_view Output_Problem = "Problem with output files. Probably, one of the simulations failed!";

// The directory of the next level: its name encodes the text.
fs::path Level(const fs::path& above, std::string_view text)
{
    fs::path level = Found_Or_New(above, Path_Of(Encode_Level(text)));
    std::error_code error;
    const bool is_there = fs::is_directory(level, error);
    if (error && !Is_Missing(error))
        throw File_Error("Cannot read the directory " + level.string() + ": " + error.message() + ".");
    if (!is_there)
        throw File_Error("There are no simulations of " + To_Utf8(text) + " in " + above.string() + ".");
    return level;
}

// A short name gets ten blanks at most, so the columns of names below seven characters do not line up.
std::string Padded(std::string name)
{
    if (name.size() < Name_Width)
        name.append(std::min(Most_Padding, Name_Width - name.size()), ' ');
    return name;
}

} // namespace

std::string Short_Name(std::string_view text)
{
    return std::string(Bracket_Text(text));
}

Summary_Request Request_Summary(const Session& session, const Mode& mode, std::string_view stem, std::string_view crop)
{
    const auto directory = Level(Level(Mode_Directory(session.Program, mode), stem), crop);
    Summary_Request request{
        session.Program.Aktuelle_ORVEL_Version, {}, std::string(stem), std::string(crop), {}, {}, {}, mode.Kind};
    for (const auto& name : List_Run_Levels(directory))
        request.Locations.push_back({Decode_Level(To_Code_Page(name)), directory / name});
    if (!request.Locations.empty())
        request.Date = Date_Of_Simulation(request.Locations.front().Directory);
    request.Absent = Absent_Locations(session, mode, crop, request.Locations);
    return request;
}

std::vector<std::string> Crops_Of_Runs(const Session& session, const Mode& mode, std::string_view stem)
{
    std::vector<std::string> crops;
    for (const auto& entry : Run_Entries(Level(Mode_Directory(session.Program, mode), stem)))
        crops.push_back(entry.Name);
    if (crops.empty())
        throw File_Error("There are no simulations of " + To_Utf8(stem) + ".");
    return crops;
}

void Choose_Locations(Summary_Request& request, const std::vector<std::string>& codes)
{
    if (codes.empty())
        return;
    const auto has_code = [](std::string_view code) {
        return [code](const Summary_Location& location) { return Same_Text(Bracket_Text(location.Text), code); };
    };
    Summary_Request chosen = request;
    chosen.Locations.clear();
    chosen.Absent.clear();
    for (const auto& code : codes) {
        const auto found = std::ranges::find_if(request.Locations, has_code(code));
        if (found != request.Locations.end())
            chosen.Locations.push_back(*found);
        else
            chosen.Missing.push_back(Location_Name(code).empty() ? code : Location_Name(code));
    }
    if (!chosen.Locations.empty())
        chosen.Date = Date_Of_Simulation(chosen.Locations.front().Directory);
    request = std::move(chosen);
}

std::vector<Summary_Request> Request_Summaries(const Session& session, const Mode& mode, std::string_view stem,
                                               std::string_view crop, const std::vector<std::string>& codes)
{
    const auto crops = crop == All_Crops ? Crops_Of_Runs(session, mode, stem) : std::vector{std::string(crop)};
    std::vector<Summary_Request> requests;
    for (const auto& name : crops) {
        requests.push_back(Request_Summary(session, mode, stem, name));
        Choose_Locations(requests.back(), codes);
    }
    return requests;
}

std::vector<std::string> Codes_In(std::string_view list)
{
    std::vector<std::string> codes;
    while (!list.empty()) {
        const auto comma = std::min(list.find(','), list.size());
        if (const auto code = Trim(list.substr(0, comma)); !code.empty())
            codes.emplace_back(code);
        list.remove_prefix(std::min(comma + 1, list.size()));
    }
    return codes;
}

std::vector<std::string> Absent_Locations(const Session& session, const Mode& mode, std::string_view crop,
                                          const std::vector<Summary_Location>& run)
{
    std::vector<std::string> absent;
    for (const auto& text : Locations_Of_Crop(session.Program, mode, Crop_Named(crop))) {
        if (std::ranges::find(run, text, &Summary_Location::Text) == run.end())
            absent.push_back(text);
    }
    return absent;
}

Summary Build_Summary(const Summary_Request& request, const Progress& progress)
{
    Summary summary{.Model_Version = request.Model_Version,
                    .Date = request.Date,
                    .Pesticide = request.Pesticide,
                    .Crop = request.Crop};
    const auto count = request.Locations.size();
    bool complete = count > 0 && count <= Most_Summary_Locations;
    std::string failed; // the locations, and why
    int period_index = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const auto& location = request.Locations[i];
        bool stopped = false;
        const auto tables = Build_Or_Load(
            location.Directory,
            [&](const std::string& message, double share) {
                stopped = progress && !progress(message, (static_cast<double>(i) + share) / static_cast<double>(count));
                return !stopped;
            },
            period_index);
        if (stopped)
            return {.Failure = Reading_Stopped().what()};
        period_index = tables.Period_Index;
        const bool kept = (tables.Kept || tables.Unwritten) && (i > 0 || tables.Has_Echo);
        complete = complete && kept;
        if (kept && !tables.Kept)
            summary.Notes.push_back(location.Text + ": " + tables.Not_Kept);
        if (!kept)
            failed += "\n" + location.Text + (tables.Kept ? "" : ": " + tables.Note());
        if (i == 0) {
            for (const auto& name : tables.Result_Name)
                summary.Substances.push_back({name, {}, 0});
        }
        summary.Location_Short.push_back(Short_Name(location.Text));
        Add_Percentiles(summary, i, location.Text, tables);
    }
    return complete ? summary : Summary{.Failure = std::string(Output_Problem) + failed};
}

std::string Summary_Text(const Summary& report)
{
    const std::string rule(Rule_Length, '-');
    std::string text = "FOCUS Summary Output File\r\n\r\nModel Version:          \t" + report.Model_Version +
                       "\r\nDate of this simulation:\t" + report.Date + "\r\nPesticide input file:   \t" +
                       report.Pesticide + "\r\nSimulated crop:         \t" + report.Crop + "\r\n\r\n\r\n";
    for (const auto& substance : report.Substances) {
        text.append(substance.Result_Name).append(CrLf).append(rule).append(CrLf);
        text += " Location        \tSelected\tFlux\t    Percolate\tConc.\r\n";
        text += std::string(Name_Width, ' ') + "\tPeriod  \t(g/ha)\t       (L/m\xB2)\t(\xB5g/L)  \r\n" + rule + "\r\n";
        for (const auto& row : substance.Rows)
            text += Padded(row.Name) + "\t" + row.Figures + "\r\n";
        text += "\r\n\r\n";
    }
    return text;
}

void Add_Percentiles(Summary& summary, std::size_t location, std::string_view location_text,
                     const Leachate_Tables& tables)
{
    auto substance = summary.Substances.begin();
    for (const auto& table : tables.Period[static_cast<std::size_t>(Depth::One_Metre)]) {
        if (substance == summary.Substances.end())
            return;
        if (table.P80_Text.empty())
            continue;
        const auto name = location_text.substr(0, location_text.find(')') + 1); // npos + 1 is 0: no name
        const auto& [total, p80, a, b] = table.Result;
        substance->Rows.push_back({location, std::string(name), Dos_To_Ansi(table.P80_Text), p80, a, b});
        substance->Location_Max = std::max(substance->Location_Max, p80.Conc);
        ++substance;
    }
}

} // namespace orvel
