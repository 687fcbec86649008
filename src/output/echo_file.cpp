#include "output/echo_file.h"

#include "core/files.h"
#include "core/numbers.h"
#include "core/text.h"
#include "jobs/job_status.h"

namespace orvel {

namespace {

constexpr Anchor Total_Anchor("TOTAL COMPARTMENTS IN CORE");
constexpr Anchor Frequency_Anchor("WATR");
constexpr Anchor Top_Anchor(" Total number of layers in the top meter:");
constexpr Anchor Substance_Anchor("*** PARAMETERS OF ");
constexpr Anchor Error_Anchor("ERROR");
constexpr Anchor Spaced_Error_Anchor("E R R O R");

constexpr std::size_t Total_First = 55;
constexpr std::size_t Total_Width = 20;
constexpr std::size_t Top_First = 53;
constexpr std::size_t Top_Width = 10;
constexpr std::size_t Name_First = 19;
constexpr std::size_t Name_Width = 100;
constexpr std::size_t Name_Mark = 3; // characters behind the name

// Reads on to a line with the anchor; at the end of the file the last line stays at hand.
void Search(Line_Scanner& echo, const Anchor& anchor)
{
    while (echo.Next() && !anchor.In(echo.Line())) {
    }
}

int Count(std::string_view line, std::size_t first, std::size_t width)
{
    return To_I16(Val(Columns(line, first, width)));
}

Line_Scanner Echo_Of(const std::filesystem::path& run_directory)
{
    return Line_Scanner(Found_Or_New(run_directory, "echo.orv"));
}

} // namespace

Echo_Layers Scan_Echo_Layers(Line_Scanner& echo)
{
    Echo_Layers layers;
    Search(echo, Total_Anchor);
    layers.Total_Compartments = Count(echo.Line(), Total_First, Total_Width);
    Search(echo, Frequency_Anchor);
    const std::string first(echo.Line());
    echo.Next();
    const std::string second(echo.Line());
    Search(echo, Top_Anchor);
    layers.Top_Layers = Count(echo.Line(), Top_First, Top_Width);

    const auto either = [&](std::string_view word) { return Contains(first, word) || Contains(second, word); };
    const bool daily = Contains(first, "DAY") && Contains(second, "DAY");
    if (either("YEAR"))
        return layers;
    layers.Has_Monthly_Output = either("MNTH") || daily;
    layers.Has_Daily_Output = !either("MNTH") && daily;
    return layers;
}

Echo_Layers Read_Echo_Layers(const std::filesystem::path& run_directory)
{
    auto echo = Echo_Of(run_directory);
    return Scan_Echo_Layers(echo);
}

std::vector<std::string> Scan_Substance_Names(Line_Scanner& echo)
{
    std::vector<std::string> names;
    while (names.size() < Most_Result_Names && echo.Find(Substance_Anchor)) {
        auto name = Columns(echo.Line(), Name_First, Name_Width);
        name.remove_suffix(std::min(Name_Mark, name.size()));
        names.emplace_back(name);
    }
    return names;
}

std::vector<std::string> Read_Substance_Names(const std::filesystem::path& run_directory)
{
    auto echo = Echo_Of(run_directory);
    return Scan_Substance_Names(echo);
}

bool Scan_For_Error(Line_Scanner& echo)
{
    while (echo.Next()) {
        if (Error_Anchor.In(echo.Line()) || Spaced_Error_Anchor.In(echo.Line()))
            return true;
    }
    return false;
}

bool Simulation_Failed(const std::filesystem::path& run_directory)
try {
    if (Status_Of_Run(run_directory) == Run_Status::Running)
        return false; // until it ends, an engine says that it did not
    auto echo = Echo_Of(run_directory);
    return Scan_For_Error(echo);
} catch (const File_Error&) {
    return false;
}

} // namespace orvel
