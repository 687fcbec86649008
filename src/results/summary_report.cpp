#include "results/summary_report.h"

#include "charts/table_lines.h"
#include "core/code_page.h"
#include "core/files.h"
#include "core/names.h"
#include "core/text.h"
#include "results/echo_file.h"
#include "results/leachate_text.h"
#include "runs/job_status.h"
#include "runs/shown_path.h"

#include <algorithm>
#include <sys/stat.h>

namespace fs = std::filesystem;

namespace {

constexpr std::string_view Directory_End = ".run";
constexpr std::string_view Bottom_Title = "percolate at the bottom of the simulated soil core";
constexpr std::string_view Percentile_Mark = "80 Perc";
constexpr std::size_t Figures_First = 10; // of a percentile row, 1-based
constexpr std::size_t Figures_Width = 100;
constexpr std::size_t Conc_First = 42;
constexpr std::size_t Name_Width = 17;
constexpr std::size_t Most_Padding = 10;
constexpr std::size_t Rule_Length = 82;

const Message Output_Problem = {"File check", "Problem with output files. Probably, one of the simulations failed!"};

// The directory of the next level: its name encodes the text.
fs::path Level(const fs::path& above, std::string_view text)
{
    const auto found = Find_File(above, Path_Of(Name_Encode(std::string(text).append(Directory_End))));
    if (!found || !fs::is_directory(*found))
        throw File_Error("There are no simulations of " + To_Utf8(text) + " in " + above.string() + ".");
    return *found;
}

std::string Date_Of(const fs::path& file)
{
    struct stat about {};
    return ::stat(file.c_str(), &about) == 0 ? Date_Text(about.st_mtime) : "";
}

std::string Short_Name(std::string_view text)
{
    const auto bracket = text.find('(');
    return bracket == std::string_view::npos ? "" : std::string(text.substr(bracket + 1, 1));
}

// A short name gets ten blanks at most, so the columns of names below seven characters do not line up.
std::string Padded(std::string name)
{
    if (name.size() < Name_Width)
        name.append(std::min(Most_Padding, Name_Width - name.size()), ' ');
    return name;
}

Summary_Row Row_Of(std::size_t location, std::string_view location_text, std::string_view line)
{
    Summary_Row row{.Location = location};
    row.Name = location_text.substr(0, location_text.find(')') + 1); // npos + 1 is 0: no name
    row.Figures = Dos_To_Ansi(Columns(line, Figures_First, Figures_Width));
    const auto result = Parse_Percentile(line);
    row.P80 = result.P80;
    row.P80.Conc = Val(Columns(line, Conc_First, Figures_Width));
    row.A = result.A;
    row.B = result.B;
    return row;
}

Summary Collect(const Summary_Request& request)
{
    if (request.Locations.empty() || request.Locations.size() > Most_Summary_Locations)
        throw File_Error("A report takes one to ten locations.");
    Summary report{request.Model_Version, request.Date, request.Pesticide, request.Crop, {}, {}};
    for (const auto& name : Read_Substance_Names(request.Locations.front().Directory))
        report.Substances.push_back({"Results for " + name, {}, 0});
    for (std::size_t i = 0; i < request.Locations.size(); ++i) {
        const auto& location = request.Locations[i];
        report.Location_Short.push_back(Short_Name(location.Text));
        Gather_Percentiles(report, i, location.Text, Read_Whole(Found_Or_New(location.Directory, "period.orv")));
    }
    return report;
}

} // namespace

Summary_Request Request_Summary(const Session& session, const Mode& mode, std::string_view stem, std::string_view crop)
{
    const auto directory = Level(Level(Mode_Directory(session, mode), stem), crop);
    Summary_Request request{session.Program.Aktuelle_ORVEL_Version, {}, std::string(stem), std::string(crop), {}};
    for (const auto& name : List_Directories(directory, "*" + std::string(Directory_End))) {
        const auto text = Shown(name);
        request.Locations.push_back({Name_Decode(text.substr(0, text.size() - Directory_End.size())), directory / name});
    }
    if (!request.Locations.empty())
        request.Date = Date_Of(Found_Or_New(request.Locations.front().Directory, "echo.orv"));
    return request;
}

std::optional<Summary> Build_Summary(Session& session, const Summary_Request& request, const Progress& progress)
{
    bool stopped = false;
    int period_index = 0;
    for (std::size_t i = 0; i < request.Locations.size() && !stopped; ++i) {
        const auto tell = [&](const std::string& message, double share) {
            const auto done = (static_cast<double>(i) + share) / static_cast<double>(request.Locations.size());
            stopped = progress && !progress(message, done);
            return !stopped;
        };
        period_index = Build_Or_Load(request.Locations[i].Directory, tell, period_index).Period_Index;
    }
    if (stopped)
        return std::nullopt;
    try {
        return Collect(request);
    } catch (const File_Error&) {
        session.Ask(Output_Problem);
        return std::nullopt;
    }
}

std::string Summary_Text(const Summary& report)
{
    const std::string rule(Rule_Length, '-');
    std::string text = "FOCUS Summary Output File\r\n\r\nModel Version:          \t" + report.Model_Version + "\r\nDate of this simulation:\t" + report.Date +
                       "\r\nPesticide input file:   \t" + report.Pesticide + "\r\nSimulated crop:         \t" + report.Crop + "\r\n\r\n\r\n";
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

void Gather_Percentiles(Summary& report, std::size_t location, std::string_view location_text, std::string_view period_bytes)
{
    std::size_t s = 0;
    for (Line_Reader lines(period_bytes); !lines.At_End() && s < report.Substances.size();) {
        const auto line = lines.Next();
        if (Contains(line, Bottom_Title))
            return;
        if (!Contains(line, Percentile_Mark))
            continue;
        auto& substance = report.Substances[s++];
        substance.Rows.push_back(Row_Of(location, location_text, line));
        substance.Location_Max = std::max(substance.Location_Max, substance.Rows.back().P80.Conc);
    }
}
