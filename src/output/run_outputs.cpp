#include "output/run_outputs.h"

#include "core/files.h"
#include "core/named_input.h"
#include "core/numbers.h"
#include "core/session.h"
#include "core/text.h"
#include "output/echo_file.h"
#include "output/line_scanner.h"
#include "output/plot_file.h"

#include <algorithm>
#include <array>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr std::array<int, 13> Before_Month = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334, 365};
constexpr int February = 2, December = 12, Days_Of_Year = 365, Last_Of_December = 31;

// The bundled engine closes its files by a line of their own, so that a cut one is known whatever was lost.
constexpr Anchor Bundled_Head("ORVEL ENGINE ");
constexpr std::string_view Closing_Line = " *** END OF OUTPUT ***";
constexpr std::string_view Completed_Line = " *** SIMULATION COMPLETED ***";

int Days_In(int month, bool leap)
{
    const auto m = static_cast<std::size_t>(month);
    return Before_Month[m] - Before_Month[m - 1] + (month == February && leap ? 1 : 0);
}

// The running number of the last day of each year of a run, day 1 being 1 January of the first; as the engine counts, a
// year has a 29 February if its climate file has one.
std::vector<int> Ends_Of_Years(const fs::path& run, const Run_Request& request, const Leap_Day_Function& has_leap_day)
{
    std::vector<int> ends;
    int before = 0;
    Named_Inputs named(run);
    for (int year = 1; year <= request.Years; ++year) {
        const auto at = static_cast<std::size_t>(year - 1);
        const auto climate = at < request.Climates.size() ? named.Find(request.Climates[at]) : std::nullopt;
        const bool leap = climate && has_leap_day(*climate);
        const bool last = year == request.Years;
        const int month = last ? request.End_Month : December;
        const int day = std::min(last ? request.End_Day : Last_Of_December, Days_In(month, leap));
        ends.push_back(before + Before_Month[static_cast<std::size_t>(month - 1)] + day +
                       (leap && month > February ? 1 : 0));
        before += Days_Of_Year + (leap ? 1 : 0);
    }
    return ends;
}

// Whether a file of the bundled engine lacks its closing line.
bool Lacks_Closing_Line(const fs::path& file)
{
    constexpr std::size_t Enough = 64;
    const std::string end = Read_Tail(file, Enough);
    return Bundled_Head.In(Read_Head(file, Enough)) && !end.ends_with(std::string(Closing_Line) + std::string(CrLf));
}

// The years of plot.orv: whole lines in order of their days, up to each year's last.
int Years_Of_Series(const fs::path& file, const std::vector<int>& ends)
{
    Line_Scanner lines(file);
    const Plot_Head head = Scan_Plot_Head(lines);
    if (!head.Whole)
        return 0;
    const std::size_t width = Plot_Series_First - 1 + Plot_Value_Width * static_cast<std::size_t>(head.N_Columns);
    Plot_Moment at;
    int last_day = 0;
    while (lines.Next()) {
        const auto line = lines.Line();
        const Plot_Moment next = Moment_Of(line);
        const bool follows = next.Day == at.Day ? next.Hour > at.Hour : at.Day == 0 || next.Day == at.Day + 1;
        if (line.size() < width || !follows)
            break;
        at = next;
        if (at.Hour == Closing_Hour)
            last_day = at.Day;
    }
    return static_cast<int>(std::ranges::count_if(ends, [&](int end) { return end <= last_day; }));
}

// The texts of the echo that tell how the run ended.
struct Echo_End {
    bool Whole = false, Holds_Error = false;
    std::string Engine_Version;
    std::size_t Substances = 0;
};

Echo_End Read_Echo_End(const fs::path& file)
{
    constexpr Anchor Error("ERROR"), Spaced_Error("E R R O R"), Layers(" Total number of layers in the top meter:"),
        Substance("*** PARAMETERS OF ");
    constexpr std::string_view Before_Version = "ORVEL ENGINE ";
    Echo_End echo;
    Line_Scanner lines(file);
    bool first = true, bundled = false, has_layers = false, completed = false;
    while (lines.Next()) {
        const auto line = lines.Line();
        if (first && Bundled_Head.In(line)) {
            bundled = true;
            auto rest = line.substr(line.find(Before_Version) + Before_Version.size());
            echo.Engine_Version = Trim(rest.substr(0, rest.find(' ')));
        }
        first = false;
        echo.Holds_Error = echo.Holds_Error || Error.In(line) || Spaced_Error.In(line);
        has_layers = has_layers || Layers.In(line);
        if (Substance.In(line))
            ++echo.Substances;
        completed = line == Completed_Line;
    }
    echo.Whole = has_layers && (completed || !bundled);
    return echo;
}

// Looks through the outputs of a run and keeps the first reason why it is not complete.
class Output_Finder {
public:
    Output_Finder(const fs::path& run_directory, const Run_Request& request, const Leap_Day_Function& has_leap_day)
        : Run(run_directory),
          Request(request),
          Has_Leap(has_leap_day)
    {
        Found.Years_Expected = Found.Years_Found = request.Years;
    }

    Run_Outputs Find()
    {
        if (Request.Years == 0)
            Miss("orvel.inp does not tell how many years were asked for.");
        for (const auto& name : List_Files(Run, "*.orv")) {
            if (Is_Engine_Output(name))
                Look_At(name);
        }
        for (const char* name : {"echo.orv", "Wasser.orv", "chem.orv", "plot.orv"})
            Require(name);
        if (Balances < Substances)
            Lack("The balance of " + std::to_string(Substances - Balances) + " of " + std::to_string(Substances) +
                 " substances is missing.");
        return std::move(Found);
    }

private:
    void Miss(const std::string& reason)
    {
        if (Found.Missing.empty())
            Found.Missing = reason;
    }

    // Something without which no year is whole.
    void Lack(const std::string& reason)
    {
        Miss(reason);
        Found.Years_Found = 0;
    }

    void Look_At(const std::string& name)
    {
        const fs::path file = Run / name;
        std::error_code ignored;
        if (fs::symlink_status(file, ignored).type() != fs::file_type::regular)
            return Miss("The output " + name + " is not an ordinary file.");
        Found.Files.push_back({file, std::nullopt});
        if (Same_Text(name, "echo.orv"))
            Look_At_Echo(file);
        else if (Same_Text(name, "Wasser.orv"))
            Add_Years(Years_In_Balance(file));
        else if (Matches(name, "chem.orv") || Matches(name, "chem_??.orv"))
            Look_At_Balance(file);
        else if (Same_Text(name, "plot.orv") && Request.Series)
            Add_Years(Years_Of_Series(file, Ends_Of_Years(Run, Request, Has_Leap)));
    }

    void Look_At_Echo(const fs::path& file)
    {
        const Echo_End echo = Read_Echo_End(file);
        Found.Holds_Error = echo.Holds_Error;
        Found.Engine_Version = echo.Engine_Version;
        Substances = echo.Substances;
        if (!echo.Whole && !echo.Holds_Error)
            Miss("The output echo.orv ends early.");
    }

    void Look_At_Balance(const fs::path& file)
    {
        ++Balances;
        Add_Years(Years_In_Balance(file));
    }

    // Of the file that was found last.
    void Add_Years(int years)
    {
        Found_Output& output = Found.Files.back();
        output.Years = years;
        Found.Years_Found = std::min(Found.Years_Found, years);
        if (years < Request.Years)
            Miss("The output " + output.File.filename().string() + " holds " + Years_Text(years, Request.Years) + ".");
    }

    void Require(std::string_view name)
    {
        const bool needed = name != "plot.orv" || Request.Series;
        const bool there = std::ranges::any_of(
            Found.Files, [&](const Found_Output& output) { return Same_Text(output.File.filename().string(), name); });
        if (needed && !there)
            Lack("The output " + std::string(name) + " is missing.");
    }

    const fs::path& Run;
    const Run_Request& Request;
    const Leap_Day_Function& Has_Leap;
    Run_Outputs Found;
    std::size_t Balances = 0, Substances = 0;
};

int Day_Or_Month(std::string_view& header, int most, int otherwise)
{
    const double number = Val(Next_Token(header));
    return number >= 1 && number <= most ? static_cast<int>(number) : otherwise;
}

} // namespace

int Years_In_Balance(const fs::path& file)
{
    constexpr Anchor Annual("ANNUAL"), Bottom("BELOW CORE");
    Line_Scanner lines(file);
    int years = 0;
    while (lines.Find(Annual) && lines.Find(Bottom) && !lines.At_End())
        ++years;
    return Lacks_Closing_Line(file) ? std::max(0, years - 1) : years;
}

bool Ends_Early(const fs::path& echo)
{
    constexpr std::size_t Enough = 64;
    const std::string head = Read_Head(echo, Enough);
    return head.empty() || (Bundled_Head.In(head) &&
                            !Read_Tail(echo, Enough).ends_with(std::string(Completed_Line) + std::string(CrLf)));
}

Run_Request Parse_Run_Request(std::string_view control)
{
    Run_Request request;
    Line_Reader lines(control);
    try {
        std::string_view header = lines.Next();
        request.Years = Whole_Part(Next_Token(header), 0, Most_Years);
        request.Start_Day = Day_Or_Month(header, Last_Of_December, 1);
        request.Start_Month = Day_Or_Month(header, December, 1);
        request.End_Day = Day_Or_Month(header, Last_Of_December, Last_Of_December);
        request.End_Month = Day_Or_Month(header, December, December);
        request.Scenario = Trim(lines.Next());
        request.Pesticide = Trim(lines.Next());
        for (int year = 0; year < request.Years; ++year)
            request.Climates.emplace_back(Trim(lines.Next()));
        request.Series = Val(Columns(lines.Next(), 1, 8)) > 0;
    } catch (const File_Error&) {
        // A text that ends early asks for what it holds; the engine refuses it.
    }
    return request;
}

Run_Request Read_Run_Request(const fs::path& run_directory)
{
    const auto control = Find_File(run_directory, "orvel.inp");
    return control ? Parse_Run_Request(Read_Whole(*control)) : Run_Request();
}

bool Has_Leap_Day(const fs::path& climate)
{
    Line_Scanner lines(climate);
    while (lines.Next()) {
        if (Val(Columns(lines.Line(), 4, 2)) == February && Val(Columns(lines.Line(), 2, 2)) == Days_In(February, true))
            return true;
    }
    return false;
}

Run_Outputs Find_Outputs(const fs::path& run_directory, const Run_Request& request,
                         const Leap_Day_Function& has_leap_day)
{
    return Output_Finder(run_directory, request, has_leap_day).Find();
}

bool Is_Engine_Output(std::string_view name)
{
    constexpr std::array<std::string_view, 6> Tables = {"year.orv",     "period.orv",     "MBalance.orv",
                                                        "PBalance.orv", "MBalance_M.orv", "PBalance_M.orv"};
    return Matches(name, "*.orv") && !Matches(name, "PECsoil_*.orv") && !Same_Text(name, Progress_Name) &&
           std::ranges::none_of(Tables, [&](std::string_view table) { return Same_Text(name, table); });
}

bool Has_Engine_Output(const fs::path& run_directory)
{
    return std::ranges::any_of(List_Files(run_directory, "*.orv"), Is_Engine_Output);
}

std::string Years_Text(int found, int expected)
{
    return std::to_string(found) + " of " + std::to_string(expected) + " year" + (expected == 1 ? "" : "s");
}

} // namespace orvel
