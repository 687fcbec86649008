#include "runs/single_run.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/numbers.h"
#include "core/text.h"
#include "files/file_messages.h"
#include "runs/mode.h"
#include "runs/run_control.h"
#include "ui/date_hint.h"

#include <algorithm>
#include <tuple>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view File_Check = "File check", Data_Check = "Data check";
constexpr double Last_Day = 31;

Refusal File_Refusal(std::string text, std::string control)
{
    return {{std::string(File_Check), std::move(text)}, std::move(control)};
}

// Skips a block of lines that begins with their number.
void Skip_Block(Line_Reader& lines)
{
    for (double count = Val(lines.Next()); count >= 1; --count)
        lines.Skip(1);
}

// Walks through the lines of a scenario file, whatever they hold; throws File_Error if it ends too early.
void Walk_Scenario(std::string_view bytes)
{
    Line_Reader lines(bytes);
    lines.Skip(2);
    if (Val(lines.Next()) == 1)
        lines.Skip(1);
    Skip_Block(lines);
    Skip_Block(lines);
}

// The number of horizons of a pesticide file, or why the file forbids the run.
struct Pesticide_Head {
    double Horizons = 0;
    std::optional<Refusal> Fault;
};

Pesticide_Head Read_Pesticide_Head(const fs::path& directory, const std::string& name)
{
    const std::string bytes = Read_Whole(Found_Or_New(directory, Path_Of(name)));
    Line_Reader lines(bytes);
    lines.Skip(3);
    if (lines.Next() != "<NUMBER OF SOIL HORIZONS>")
        return {0, Refusal{{std::string(Readin_Check), name + " is not a valid ORVEL 3.20 PSM file"}, "File_psm"}};
    return {Val(lines.Next()), std::nullopt};
}

std::optional<Refusal> Check_Files(const fs::path& directory, const Single_Run_Entry& entry, double scenario_horizons)
{
    std::string at_hand = entry.Pesticide;
    try {
        const Pesticide_Head head = Read_Pesticide_Head(directory, entry.Pesticide);
        if (head.Fault)
            return head.Fault;
        at_hand = entry.Scenario;
        Walk_Scenario(Read_Whole(Found_Or_New(directory, Path_Of(entry.Scenario))));
        if (head.Horizons > 0 && head.Horizons != scenario_horizons)
            return Refusal{
                {std::string(Data_Check), "Number of horizons in PSM file and scenariofile should be the same"},
                "File_sce"};
    } catch (const File_Error& error) {
        return File_Refusal(at_hand + " not found\n" + Place_And_Reason(at_hand, error),
                            at_hand == entry.Pesticide ? "File_psm" : "File_sce");
    }
    return std::nullopt;
}

std::optional<Refusal> Check_Boxes(const Single_Run_Entry& entry)
{
    if (Val(entry.Start_Day) < 1)
        return File_Refusal("Insert value for starting day", "Combo_stad");
    if (Val(entry.End_Day) < 1)
        return File_Refusal("Insert value for ending day", "Combo_endd");
    if (Val(entry.Years) < 1)
        return File_Refusal("Insert value for simulation years", "Text_years");
    for (const auto& [day, control] : {std::pair(&entry.Start_Day, "Combo_stad"), {&entry.End_Day, "Combo_endd"}}) {
        if (auto refusal = Check_Day(*day, control))
            return refusal;
    }
    if (auto refusal = Check_Years(entry.Years))
        return refusal;
    if (Trim(entry.Pesticide).empty())
        return File_Refusal("Select PSM file", "File_psm");
    if (Trim(entry.Scenario).empty())
        return File_Refusal("Select scenario file", "File_sce");
    if (entry.Start_Month_Index < 0)
        return File_Refusal("Select starting month", "Combo_stam");
    if (entry.End_Month_Index < 0)
        return File_Refusal("Select ending month", "Combo_endm");
    const bool ends_before =
        entry.End_Month_Index < entry.Start_Month_Index ||
        (entry.End_Month_Index == entry.Start_Month_Index && Val(entry.End_Day) < Val(entry.Start_Day));
    if (Val(entry.Years) == 1 && ends_before)
        return Refusal{{std::string(Data_Check), "Simulation time must be at least 1 day"}, "Text_years"};
    if (entry.Climates.empty())
        return File_Refusal("No climatic files available", "File_cli");
    return std::nullopt;
}

// The index of a month in its list, -1 if it is none.
int Month_Index(double month)
{
    return month >= 1 && month < 13 ? static_cast<int>(month) - 1 : -1;
}

// The text that a box shows for a setting; empty if it was never set.
std::string Box_Text(const Variant& setting)
{
    return setting == Variant() ? std::string() : std::string(Trim(setting.Text()));
}

} // namespace

Single_Run_Entry Entry_Of_Settings(const Single_Run_Settings& run)
{
    return {.Pesticide = Box_Text(run.Run_PSM_File),
            .Scenario = Box_Text(run.Run_Scenario_File),
            .Climates = run.Run_Cli_Files,
            .Start_Day = Box_Text(run.Start_Day),
            .End_Day = Box_Text(run.End_Day),
            .Years = Box_Text(run.Sim_Years),
            .Start_Month_Index = Month_Index(run.Start_Month.Number()),
            .End_Month_Index = Month_Index(run.End_Month)};
}

Single_Run_Settings Settings_Of_Entry(const Single_Run_Entry& entry)
{
    return {.Run_Scenario_File = entry.Scenario,
            .Run_PSM_File = entry.Pesticide,
            .Run_Cli_Files = entry.Climates,
            .Sim_Years = entry.Years,
            .Start_Day = entry.Start_Day,
            .Start_Month = entry.Start_Month_Index + 1,
            .End_Day = entry.End_Day,
            .End_Month = static_cast<std::int16_t>(entry.End_Month_Index + 1)};
}

void Restore_Single_Run(const fs::path& directory, Single_Run_Settings& run, Output_Selection& output)
{
    if (auto restored = Read_Single_Run(directory, {run, output})) {
        run = std::move(restored->Settings);
        output = restored->Output;
    }
}

std::optional<Refusal> Check_Single_Run(const fs::path& directory, const Single_Run_Entry& entry,
                                        double scenario_horizons)
{
    if (auto refusal = Check_Files(directory, entry, scenario_horizons))
        return refusal;
    return Check_Boxes(entry);
}

std::optional<Refusal> Check_Day(const std::string& text, const std::string& control)
{
    if (const double day = Val(text); day < 1 || day > Last_Day)
        return Refusal{{std::string(Data_Check), "Value must be betwen 0 and 31"}, control};
    return std::nullopt;
}

std::optional<Refusal> Check_Years(const std::string& text)
{
    if (Val(text) < 1)
        return Refusal{{std::string(Data_Check), "Value must be greater than 0"}, "Text_years"};
    if (Val(text) > Most_Years)
        return Refusal{{std::string(Data_Check), "Value must be smaller than " + std::to_string(Most_Years + 1)},
                       "Text_years"};
    return std::nullopt;
}

std::string Period_Hints(const Single_Run_Entry& entry)
{
    std::string hints;
    for (const auto& [caption, day, month] : {std::tuple("Start", &entry.Start_Day, entry.Start_Month_Index),
                                              {"End", &entry.End_Day, entry.End_Month_Index}}) {
        const double number = Val(*day);
        const auto hint =
            number >= 1 && number <= Last_Day ? Date_Hint(static_cast<int>(number), month + 1) : std::nullopt;
        if (hint)
            hints += (hints.empty() ? "" : "\n") + std::string(caption) + ": " + *hint;
    }
    return hints;
}

std::string Missing_Files_Text(const Program_State& program, const fs::path& directory)
{
    std::string kinds;
    for (const auto& [mask, kind] : {std::pair("*.psm", "pesticide"), {"*.sze", "scenario"}, {"*.cli", "climate"}}) {
        if (List_Files(directory, mask).empty())
            kinds += std::string(kinds.empty() ? "" : " and no ") + kind;
    }
    if (kinds.empty())
        return {};
    const fs::path scenarios = Mode_Directory(program, Mode_Of(Mode_Kind::Focus));
    return "This directory has no " + kinds + " files." +
           (directory == scenarios
                ? ""
                : " Scenarios and climates of the installation lie in " + Path_Text(scenarios) + ".");
}

std::vector<std::string> Single_Run_Words(const Single_Run_Entry& entry)
{
    std::string climates;
    for (const auto& climate : entry.Climates)
        climates += (climates.empty() ? "" : ",") + climate;
    const auto date = [](const std::string& day, int month) { return day + "." + std::to_string(month + 1); };
    std::vector<std::string> words = {"single",    "--pesticide", entry.Pesticide, "--scenario", entry.Scenario,
                                      "--climate", climates,      "--years",       entry.Years};
    if (entry.Start_Month_Index >= 0)
        words.insert(words.end(), {"--from", date(entry.Start_Day, entry.Start_Month_Index)});
    if (entry.End_Month_Index >= 0)
        words.insert(words.end(), {"--to", date(entry.End_Day, entry.End_Month_Index)});
    words.emplace_back("--wait");
    std::ranges::transform(words, words.begin(), [](const std::string& word) { return To_Utf8(word); });
    return words;
}

} // namespace orvel
