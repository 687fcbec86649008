#include "engine/input/run_control.h"

#include "core/error.h"
#include "core/locations.h"
#include "core/numbers.h"
#include "core/output_variables.h"
#include "core/session.h"
#include "core/text.h"

#include <algorithm>

namespace orvel::engine {

namespace {

constexpr int Count_Digits = 8;
constexpr int Most_Columns = 5000;
constexpr double Deepest = 100000; // cm
constexpr std::size_t Scale_Width = 6;

bool Is_Digit(char c)
{
    return c >= '0' && c <= '9';
}

std::size_t Leading_Digits(std::string_view text)
{
    const auto end = std::ranges::find_if_not(text, Is_Digit);
    return static_cast<std::size_t>(end - text.begin());
}

int Whole(std::string_view text)
{
    return Whole_Part(text, -1, 1'000'000);
}

// Lists the part of a line as misread unless it is one number.
void Require_Number(std::string_view line, std::string_view part, int line_number, std::string_view field,
                    Findings& findings)
{
    const auto word = Trim(part);
    if (!Is_One_Number(word))
        findings.Tell_Misreads(Fault::Output_Row, "ORVEL.INP",
                               {{{line_number, Column_Of(part, line)}, std::string(word), std::string(field)}});
}

int Days_Of_Month(int month)
{
    constexpr int days[] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return days[month - 1];
}

bool Is_Date(int day, int month)
{
    return month >= 1 && month <= 12 && day >= 1 && day <= Days_Of_Month(month);
}

void Read_Header(std::string_view line, Run_Control& control, Findings& findings)
{
    std::string_view rest = line;
    Misreads misreads;
    const auto next = [&](std::string_view field) {
        const auto word = Trim(Next_Token(rest));
        if (!Is_Digits(word))
            misreads.push_back({{1, Column_Of(word, line)}, std::string(word), std::string(field)});
        return Whole(word);
    };
    control.Years = next("YEARS");
    control.Start_Day = next("START DAY");
    control.Start_Month = next("START MONTH");
    control.End_Day = next("END DAY");
    control.End_Month = next("END MONTH");
    if (const auto soil = line.find("SOIL"); soil != std::string_view::npos) {
        control.Soil_Mode = true;
        const auto shift = Trim(line.substr(soil + 4));
        if (!shift.empty() && !Is_One_Number(shift))
            misreads.push_back({{1, Column_Of(shift, line)}, std::string(shift), "TEMPERATURE SHIFT"});
        control.Temperature_Shift = Val(shift);
        if (!(std::abs(control.Temperature_Shift) <= 20))
            findings.Error(Fault::Run_Control_Value, "TEMPERATURE SHIFT OF ORVEL.INP NOT WITHIN -20 TO 20 DEGREES");
    }
    findings.Tell_Misreads(Fault::Run_Control_Value, "ORVEL.INP", misreads);
    if (control.Years < 1 || control.Years > Most_Years)
        findings.Error(Fault::Run_Control_Value, "NUMBER OF YEARS NOT 1 TO 66");
    if (!Is_Date(control.Start_Day, control.Start_Month))
        findings.Error(Fault::Run_Control_Value, "START DATE IS NO DATE");
    if (!Is_Date(control.End_Day, control.End_Month))
        findings.Error(Fault::Run_Control_Value, "END DATE IS NO DATE");
    if (control.Years == 1 && 100 * control.End_Month + control.End_Day < 100 * control.Start_Month + control.Start_Day)
        findings.Error(Fault::Run_Control_Value, "END DATE BEFORE START DATE");
}

Output_Row Read_Row(std::string_view line, int number, int line_number, Findings& findings)
{
    Output_Row row;
    row.Code = std::string(Columns(line, 5, 4));
    row.Code.resize(4, ' ');
    row.Variable = Output_Variable_Number(row.Code);
    const auto depth = Columns(line, 17, 8), scale = Columns(line, 25, 8), substance = Columns(line, 33, 8);
    row.Depth = Val(depth);
    row.Scale = Val(scale);
    row.Scale_Text = std::string(Trim(scale).substr(0, Scale_Width));
    row.Substance = Whole(substance);
    Require_Number(line, depth, line_number, "DEPTH", findings);
    Require_Number(line, scale, line_number, "SCALE", findings);
    Require_Number(line, substance, line_number, "SUBSTANCE", findings);
    if (!(row.Depth >= 0 && row.Depth <= Deepest) || !(std::abs(row.Scale) <= 1e15)) {
        findings.Error(Fault::Output_Row,
                       "SCALE OR DEPTH IN OUTPUT ROW " + std::to_string(number) + " OF ORVEL.INP IS NO USABLE NUMBER");
        row.Depth = row.Scale = 0;
    }
    if (row.Variable == 0 && !Trim(row.Code).empty())
        findings.Tell(Note::Column_Of_Zeros,
                      "UNKNOWN CODE IN OUTPUT ROW " + std::to_string(number) + ": COLUMN OF ZEROS");
    if (Trim(row.Code).empty())
        findings.Tell(Note::Column_Of_Zeros, "NO CODE IN OUTPUT ROW " + std::to_string(number) + ": COLUMN OF ZEROS");
    return row;
}

void Read_Lines(Line_Reader& lines, Run_Control& control, Findings& findings)
{
    Read_Header(lines.Next(), control, findings);
    if (findings.Failed())
        return;
    control.Scenario_File = std::string(Trim(lines.Next()));
    control.Pesticide_File = std::string(Trim(lines.Next()));
    for (int y = 0; y < control.Years; ++y)
        control.Climate_Files.emplace_back(Trim(lines.Next()));
    const auto count_line = lines.Next();
    const auto is_part = [](char c) { return Is_Digit(c) || c == ' ' || c == '.'; };
    if (!Is_Digits(Columns(count_line, 1, Count_Digits)) || !std::ranges::all_of(count_line, is_part))
        return findings.Tell_Misreads(
            Fault::Run_Control_Unreadable, "ORVEL.INP",
            {{{lines.Line_Number(), 1}, std::string(Trim(count_line)), "NUMBER OF ROWS, TILLAGE DEPTH, PROFILE ROWS"}});
    const Count_Line count = Read_Count_Line(count_line);
    control.Tillage_Depth = count.Tillage_Depth;
    control.Profile_Rows = count.Profile_Rows;
    if (count.Rows < 0 || count.Profile_Rows < 0 || count.Rows > Most_Columns || count.Profile_Rows > Most_Columns)
        return findings.Error(Fault::Run_Control_Unreadable, "COUNT LINE OF ORVEL.INP ASKS FOR TOO MANY ROWS");
    if (!(control.Tillage_Depth >= 0 && control.Tillage_Depth <= Deepest))
        return findings.Error(Fault::Run_Control_Unreadable,
                              "TILLAGE DEPTH IN THE COUNT LINE OF ORVEL.INP OUT OF RANGE");
    for (int i = 1; i <= count.Rows + count.Profile_Rows; ++i) {
        const auto line = lines.Next();
        control.Rows.push_back(Read_Row(line, i, lines.Line_Number(), findings));
    }
}

} // namespace

Count_Line Read_Count_Line(std::string_view line)
{
    Count_Line count;
    count.Rows = Whole(Columns(line, 1, Count_Digits));
    const auto rest = Columns(line, Count_Digits + 1);
    const auto point = rest.find('.');
    if (point == std::string_view::npos) {
        const auto digits = Trim(rest);
        if (Leading_Digits(digits) >= Count_Digits)
            count.Profile_Rows = Whole(digits.substr(0, Count_Digits));
        return count;
    }
    const auto behind = rest.substr(point + 1);
    const bool with_profile = Leading_Digits(behind) > Count_Digits;
    count.Tillage_Depth = Val(rest.substr(0, point + (with_profile ? 2 : 1 + Leading_Digits(behind))));
    if (with_profile)
        count.Profile_Rows = Whole(behind.substr(1, Count_Digits));
    return count;
}

std::string_view Bare_Name(std::string_view name)
{
    const auto slash = name.find_last_of("\\/");
    return slash == std::string_view::npos ? name : name.substr(slash + 1);
}

std::string Location_Code_Of(std::string_view scenario_file)
{
    const std::string name = Upper(Bare_Name(scenario_file));
    std::string_view best;
    for (const auto& location : Locations) {
        if (location.Code.size() > best.size() && name.starts_with(std::string(location.Code) + "_"))
            best = location.Code;
    }
    return std::string(best);
}

Run_Control Read_Run_Control(std::string_view bytes, Findings& findings)
{
    Run_Control control;
    Line_Reader lines(bytes);
    try {
        Read_Lines(lines, control, findings);
    } catch (const File_Error&) {
        findings.Error(Fault::Run_Control_Unreadable,
                       "ORVEL.INP IS TOO SHORT, IT ENDS BEHIND LINE " + std::to_string(lines.Line_Number()));
    }
    return control;
}

} // namespace orvel::engine
