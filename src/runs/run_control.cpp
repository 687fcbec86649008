#include "runs/run_control.h"

#include "core/files.h"
#include "core/output_variables.h"
#include "core/text.h"
#include "substance/application_pattern.h"

#include <algorithm>
#include <cmath>

namespace orvel {

namespace {

constexpr std::string_view Whole_Years = " 01 01 31 12";
constexpr std::string_view Soil = "          SOIL";
constexpr std::string_view Series = "    TSER";
constexpr int Profile_Depth = 20; // cm, in steps of 1

std::string Line(std::string_view text)
{
    return std::string(text) + std::string(CrLf);
}

std::string Output_Row(int variable, int depth, int substance)
{
    const auto& entry = Output_Variable_Of(variable);
    return Line("    " + std::string(entry.Out_Code) + std::string(Series) + Format_Pattern(depth, "  000") + ".0 " +
                std::string(entry.Out_Scale) + Format_Pattern(substance, "00000000"));
}

int Count_Of_Slots(const Output_Selection& output)
{
    return static_cast<int>(std::ranges::count_if(output, [](const Output_Slot& slot) { return slot.Out_Var > 0; }));
}

// Prints as many slots, from the first on, as are in use: a gap gives a row without a code, and the last slot is lost.
std::string Output_Rows(const Output_Selection& output)
{
    std::string rows;
    for (int i = 0; i < Count_Of_Slots(output); ++i) {
        const auto& slot = output[static_cast<std::size_t>(i)];
        rows += Output_Row(slot.Out_Var, slot.Out_Depth, slot.Out_Depth2 + 1);
    }
    return rows;
}

std::string Profile_Rows(const Run_Choice& choice)
{
    const int variable = Contains(choice.Code, "P_") ? Variable::SPSC : Variable::TPSC;
    std::string rows;
    for (int substance = 1; substance <= Substances; ++substance) {
        if (!choice.Met_Present[static_cast<std::size_t>(substance)])
            continue;
        for (int depth = 1; depth <= Profile_Depth; ++depth)
            rows += Output_Row(variable, depth, substance);
    }
    return rows;
}

std::string Header(const Program_State& program, const Mode& mode, const Run_Choice& choice)
{
    std::string header = Format_Pattern(Years_To_Run(mode, choice), "000") + std::string(Whole_Years) + " Version " +
                         General_Text(program.Suite_Minor);
    if (mode.Tail == Header_Tail::Kept_Number)
        header += std::string(Soil) + Print_Form(choice.Options.Kept_Number);
    if (mode.Tail == Header_Tail::Scaling)
        header += std::string(Soil) + choice.Options.Scaling;
    return header;
}

std::string Count_Line(const Mode& mode, const Run_Choice& choice)
{
    const Run_Options& options = choice.Options;
    const std::string count = Format_Pattern(Count_Of_Slots(options.Output), "00000000");
    if (!mode.Profile_Rows) {
        const double till_depth = choice.Tillage_Visible ? std::clamp(Val(options.Tillage), 0.0, 255.0) : 0;
        return count + " " + Format_Pattern(std::trunc(till_depth), "00") + ".";
    }
    const auto& present = choice.Met_Present;
    const auto metabolites = std::count(present.begin() + 2, present.end(), true);
    const std::string depth = options.Tillage.empty() ? "" : Format_Pattern(Val(options.Tillage), "    0.0");
    return count + depth + Format_Pattern(static_cast<double>(Profile_Depth * (1 + metabolites)), "00000000");
}

Output_Slot Parse_Row(std::string_view row)
{
    constexpr double Deepest = 999; // three digits of its column
    const auto small = [](double value, double most) {
        return static_cast<std::int16_t>(std::clamp(value, 0.0, most));
    };
    return {.Out_Var = static_cast<std::int16_t>(Output_Variable_Number(Columns(row, 5, 4))),
            .Out_Depth = small(Val(Columns(row, 17, 8)), Deepest),
            .Out_Depth2 = small(Val(Columns(row, 33, 8)) - 1, 9999)};
}

void Parse_Rows(Line_Reader& lines, double count, Output_Selection& output)
{
    output = {};
    for (std::size_t i = 0; i < output.size() && static_cast<double>(i) < count; ++i)
        output[i] = Parse_Row(lines.Next());
}

int Parse_Years(std::string_view text)
{
    constexpr int Most_Printed = 999; // three digits of the first line
    return Whole_Part(text, 0, Most_Printed);
}

// The second line after "..\..\..\": a code of one or three characters, an underscore and the crop part.
void Parse_Scenario(const Mode& mode, std::string_view line, Run_Template& restored)
{
    constexpr std::size_t Code_Column = 10;
    constexpr std::size_t Part_Width = 100;
    const bool zone = mode.Kind == Mode_Kind::Efsa || (mode.Kind == Mode_Kind::Efsa_T4 && Columns(line, 13, 1) == "_");
    const std::size_t width = zone ? 3 : 1;
    restored.Code = Upper(Columns(line, Code_Column, width));
    restored.Crop_Part = Upper(Columns(line, Code_Column + width + 1, Part_Width));
}

void Parse_Into(const Mode& mode, std::string_view bytes, Run_Template& restored)
{
    Line_Reader lines(bytes);
    const auto header = lines.Next();
    restored.Years = Parse_Years(Columns(header, 1, 3));
    if (mode.Tail == Header_Tail::Kept_Number)
        restored.Kept_Number = Val(Columns(header, 40, 100));
    Parse_Scenario(mode, lines.Next(), restored);
    restored.Pesticide = Trim(lines.Next());
    lines.Skip(restored.Years);
    const auto count_line = lines.Next();
    const auto depth = mode.Profile_Rows ? Columns(count_line, 10, 10) : Columns(count_line, 10, 2);
    restored.Till_Depth = Whole_Part(depth, 0, 255);
    restored.Has_Count_Line = true;
    restored.Has_Rows = true;
    Parse_Rows(lines, Val(Columns(count_line, 1, 8)), restored.Output);
}

void Parse_Single_Into(Single_Run_Control& restored, std::string_view bytes)
{
    auto& run = restored.Settings;
    Line_Reader lines(bytes);
    std::string_view header = lines.Next();
    run.Sim_Years = Val(Next_Token(header));
    run.Start_Day = Val(Next_Token(header));
    run.Start_Month = Val(Next_Token(header));
    run.End_Day = Val(Next_Token(header));
    run.End_Month = static_cast<std::int16_t>(std::clamp(Val(Next_Token(header)), 0.0, 99.0));
    run.Run_Scenario_File = Trim(lines.Next());
    run.Run_PSM_File = Trim(lines.Next());
    run.Run_Cli_Files.clear();
    for (double year = 0; year < run.Sim_Years.Number(); ++year)
        run.Run_Cli_Files.emplace_back(Trim(lines.Next()));
    const double rows = Val(lines.Next());
    Parse_Rows(lines, rows, restored.Output);
}

} // namespace

bool Fits_A_Line(std::string_view name)
{
    constexpr std::size_t Ending = 4;
    return name.size() > Ending &&
           std::ranges::none_of(name, [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\\'; });
}

Run_Choice Choose_Run(const Mode& mode, std::string_view pesticide, const Crop* crop, std::string_view location)
{
    Run_Choice choice{.Pesticide = std::string(pesticide), .Crop = crop, .Location = std::string(location)};
    choice.Code = Code_Of_Location(mode, location);
    if (crop != nullptr)
        choice.Scenario = choice.Code + std::string(Crop_Stem(mode, *crop));
    return choice;
}

int Years_To_Run(const Mode& mode, const Run_Choice& choice)
{
    if (choice.Pattern == 0 && mode.Asks_Irregular_Years)
        return choice.Options.Irregular_Years;
    return Years_Of_Pattern(choice.Pattern);
}

std::string Climate_Name(const Run_Choice& choice, int year)
{
    return choice.Code + "_" + Format_Pattern(year, "00") + ".cli";
}

std::string Format_Run(const Program_State& program, const Mode& mode, const Run_Choice& choice,
                       const Input_Places& places)
{
    std::string text = Line(Header(program, mode, choice)) + Line(places.Scenario + choice.Scenario) +
                       Line(places.Pesticide + choice.Pesticide);
    for (int year = 1; year <= Years_To_Run(mode, choice); ++year)
        text += Line(places.Climate + Climate_Name(choice, year));
    text += Line(Count_Line(mode, choice)) + Output_Rows(choice.Options.Output);
    return mode.Profile_Rows ? text + Profile_Rows(choice) : text;
}

Run_Template Parse_Template(const Mode& mode, std::string_view bytes)
{
    Run_Template restored;
    try {
        Parse_Into(mode, bytes, restored);
    } catch (const File_Error&) {
        // A template that ends early restores what it holds.
    }
    return restored;
}

Run_Template Read_Template(const Program_State& program, const Mode& mode)
try {
    return Parse_Template(mode, Read_Whole(Found_Or_New(Mode_Directory(program, mode), "orvel.inp")));
} catch (const File_Error& error) {
    Pass_On_If_Unreadable(error);
    return {};
}

int Tillage_List_Index(const Mode& mode, int till_depth)
{
    // The soil modes use the depth itself as the index; that is the entry of this depth only if the list begins with a
    // blank entry.
    const int index = mode.Profile_Rows ? till_depth : till_depth - 1;
    return index < static_cast<int>(Tillage_List(mode).size()) ? index : -1;
}

std::vector<std::string> Tillage_List(const Mode& mode)
{
    constexpr int Deepest = 40;
    std::vector<std::string> entries;
    if (mode.Blank_Tillage)
        entries.emplace_back();
    for (int depth = 1; depth <= Deepest; ++depth)
        entries.push_back(General_Text(depth));
    return entries;
}

std::vector<std::string> Scaling_List()
{
    std::vector<std::string> entries;
    for (int i = -50; i <= 50; ++i)
        entries.push_back(General_Text(i / 10.0));
    return entries;
}

std::string Format_Single_Run(const Single_Run_Settings& run, const Output_Selection& output)
{
    const int years = Parse_Years(run.Sim_Years.Text());
    std::string text = Format_Pattern(years, "000");
    for (const double part :
         {run.Start_Day.Number(), run.Start_Month.Number(), run.End_Day.Number(), static_cast<double>(run.End_Month)})
        text += " " + Format_Pattern(part, "00");
    text += Line("") + Line(run.Run_Scenario_File.Text()) + Line(run.Run_PSM_File.Text());
    for (std::size_t year = 0; year < static_cast<std::size_t>(years); ++year) {
        const auto& files = run.Run_Cli_Files;
        text += Line(files.empty() ? "" : files[std::min(year, files.size() - 1)]);
    }
    return text + Line(Format_Pattern(Count_Of_Slots(output), "00000000")) + Output_Rows(output);
}

Single_Run_Control Parse_Single_Run(std::string_view bytes, Single_Run_Control before)
{
    try {
        Parse_Single_Into(before, bytes);
    } catch (const File_Error&) {
        // A text that ends early restores what it holds.
    }
    return before;
}

std::optional<Single_Run_Control> Read_Single_Run(const std::filesystem::path& directory, Single_Run_Control before)
try {
    return Parse_Single_Run(Read_Whole(Found_Or_New(directory, "orvel.inp")), std::move(before));
} catch (const File_Error& error) {
    Pass_On_If_Unreadable(error);
    return std::nullopt;
}

std::optional<Run_End> Read_Run_End(const std::filesystem::path& directory)
try {
    const std::string bytes = Read_Whole(Found_Or_New(directory, "orvel.inp"));
    std::string_view header = Line_Reader(bytes).Next();
    for (int i = 0; i < 3; ++i)
        Next_Token(header); // the years, the start day and month
    const double day = Val(Next_Token(header)), month = Val(Next_Token(header));
    if (day < 1 || month < 1 || month >= 13)
        return std::nullopt;
    return Run_End{static_cast<int>(std::min(day, 31.0)), static_cast<int>(month)};
} catch (const File_Error& error) {
    Pass_On_If_Unreadable(error);
    return std::nullopt;
}

} // namespace orvel
