#include "output/echo_file.h"

#include "core/files.h"
#include "core/numbers.h"
#include "core/system/lock.h"
#include "core/text.h"

namespace orvel {

namespace {

constexpr Anchor Total_Anchor("TOTAL COMPARTMENTS IN CORE");
constexpr Anchor Frequency_Anchor("WATR");
constexpr Anchor Top_Anchor(" Total number of layers in the top meter:");
constexpr Anchor Substance_Anchor("*** PARAMETERS OF ");
constexpr Anchor Error_Anchor("ERROR");
constexpr Anchor Spaced_Error_Anchor("E R R O R");
constexpr Anchor Stopped_Anchor("ERROR 99");

struct Echo_Columns {
    std::size_t First, Width;
};
constexpr Echo_Columns Echo_Total_Span = {55, 20}, Top_Span = {53, 10}, Name_Span = {19, 100};
constexpr std::size_t Name_Mark = 3; // characters behind the name

std::string In(std::string_view line, Echo_Columns span)
{
    return std::string(Columns(line, span.First, span.Width));
}

// Takes the lines of an echo one by one. Each text of the layers is searched behind that of the one before.
class Echo_Reader {
public:
    explicit Echo_Reader(Echo& echo) : Read(echo) {}

    void Take(std::string_view line)
    {
        Take_Layers(line);
        if (Substance_Anchor.In(line) && Read.Substance_Names.size() < Most_Result_Names) {
            auto name = Columns(line, Name_Span.First, Name_Span.Width);
            name.remove_suffix(std::min(Name_Mark, name.size()));
            Read.Substance_Names.emplace_back(name);
        }
        if (Error_Anchor.In(line) || Spaced_Error_Anchor.In(line)) {
            Read.Holds_Error = true;
            Read.Engine_Stopped = Read.Engine_Stopped || Stopped_Anchor.In(line);
        }
    }

    // What was not found is looked for in the last line.
    void End(std::string_view last)
    {
        while (Next != Wanted::Nothing)
            Keep(last);
    }

private:
    enum class Wanted { Total, Water_Frequency, Solute_Frequency, Top, Nothing };

    void Take_Layers(std::string_view line)
    {
        if (Next == Wanted::Nothing || (Next == Wanted::Total && !Total_Anchor.In(line)) ||
            (Next == Wanted::Water_Frequency && !Frequency_Anchor.In(line)) ||
            (Next == Wanted::Top && !Top_Anchor.In(line)))
            return;
        Keep(line);
    }

    void Keep(std::string_view line)
    {
        switch (Next) {
        case Wanted::Total:
            Read.Total = In(line, Echo_Total_Span);
            break;
        case Wanted::Water_Frequency:
            Read.Water_Frequency = line;
            break;
        case Wanted::Solute_Frequency:
            Read.Solute_Frequency = line;
            break;
        default:
            Read.Top = In(line, Top_Span);
        }
        Next = static_cast<Wanted>(static_cast<int>(Next) + 1);
    }

    Echo& Read;
    Wanted Next = Wanted::Total;
};

} // namespace

Echo Scan_Echo(Line_Scanner& echo)
{
    Echo read;
    Echo_Reader reader(read);
    while (echo.Next())
        reader.Take(echo.Line());
    reader.End(echo.Line());
    return read;
}

Echo Read_Echo(const std::filesystem::path& run_directory)
{
    const bool at_work = Is_At_Work(run_directory); // first: the engine may end while its echo is read
    Echo echo;
    try {
        const auto file = Found_Or_New(run_directory, "echo.orv");
        std::error_code missing;
        const auto written = std::filesystem::last_write_time(file, missing);
        Line_Scanner scanner(file);
        echo = Scan_Echo(scanner);
        echo.Written = written;
    } catch (const File_Error& error) {
        Pass_On_If_Unreadable(error);
        echo = {};
        echo.Missing = error.what();
    }
    echo.At_Work = at_work;
    return echo;
}

void Look_Again(Echo& echo, const std::filesystem::path& run_directory)
{
    std::error_code missing;
    const auto written = std::filesystem::last_write_time(Found_Or_New(run_directory, "echo.orv"), missing);
    echo.At_Work = Is_At_Work(run_directory);
    if (missing || written != echo.Written)
        echo = Read_Echo(run_directory);
}

Echo_Layers Echo::Layers() const
{
    if (!Missing.empty())
        throw File_Error(Missing);
    Echo_Layers layers;
    layers.Total_Compartments = To_I16(Val(Total));
    layers.Top_Layers = To_I16(Val(Top));
    const auto either = [&](std::string_view word) {
        return Contains(Water_Frequency, word) || Contains(Solute_Frequency, word);
    };
    const bool daily = Contains(Water_Frequency, "DAY") && Contains(Solute_Frequency, "DAY");
    if (either("YEAR"))
        return layers;
    layers.Has_Monthly_Output = either("MNTH") || daily;
    layers.Has_Daily_Output = !either("MNTH") && daily;
    return layers;
}

bool Simulation_Failed(const std::filesystem::path& run_directory)
{
    return Read_Echo(run_directory).Failed();
}

bool Is_At_Work(const std::filesystem::path& run_directory)
{
    return Is_Locked(run_directory) || Is_Locked(Found_Or_New(run_directory, "echo.orv"));
}

} // namespace orvel
