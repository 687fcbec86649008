#include "runs/selection.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/locations.h"
#include "core/text.h"
#include "files/pesticide_file.h"
#include "files/scenario_file.h"
#include "runs/run_control.h"
#include "substance/application_pattern.h"

#include <algorithm>
#include <array>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view Old_Format_Text =
    "ORVEL 3 PSM-Format! Please convert to the new format by doubleclicking followed by saving.";
constexpr std::string_view Irregular_Text = "No regular application pattern defined for this location!";
constexpr std::string_view No_Crop_Text =
    "Relative application pattern not possible!\r\nNo crop defined in your individal crop file.";
constexpr std::array<std::string_view, 4> Pattern_Text = {"Irregular", "Every year", "Every other year",
                                                          "Every 3rd year"};

std::string No_Pattern_Text(std::string_view what)
{
    return "No application pattern for " + std::string(what) + " defined in the selected pesticide file";
}

// A location's name as pesticide files give it: up to its code in brackets.
std::string_view Plain_Location(std::string_view text)
{
    const auto close = text.find(')');
    return close == std::string_view::npos ? text : text.substr(0, close + 1);
}

fs::path Scenario_File(const Session& session, const Mode& mode, const Selection& selected)
{
    return Found_Or_New(Mode_Directory(session, mode), Scenario_Name(mode, selected.Crop, selected.Location));
}

bool Read_Pesticide(Session& session, const Selection& selected)
{
    const fs::path file = Found_Or_New(session.Program.App_Path, Path_Of(selected.Pesticide));
    session.Program.PSM_File = Path_Text(file);
    session.Editor.App_Current_Location = 0;
    return Read_PSM(session, file);
}

// The count of crop rows stands behind the erosion flag, or behind the line of erosion factors if that flag is 1.
bool Defines_A_Crop(const fs::path& scenario)
try {
    const std::string bytes = Read_Whole(scenario);
    Line_Reader lines(bytes);
    lines.Skip(2);
    if (Val(lines.Next()) == 1)
        lines.Skip(1);
    return Val(lines.Next()) != 0;
} catch (const File_Error&) {
    return false;
}

std::string Relative_Warning(Session& session, const Mode& mode, const Selection& selected)
{
    Check_Pattern(session.Pesticide, session.Editor, 0);
    const bool possible = selected.Crop != Individual_Crop || Defines_A_Crop(Scenario_File(session, mode, selected));
    return std::string(possible ? std::string_view() : No_Crop_Text);
}

std::string Location_Warning(Session& session, const Selection& selected)
{
    session.Editor.App_Pattern = 0;
    const int block = Block_Of_Location(session.Pesticide, selected.Location);
    if (block < 0)
        return No_Pattern_Text(Plain_Location(selected.Location));
    session.Editor.App_Current_Location = static_cast<std::int16_t>(block);
    Check_Pattern(session.Pesticide, session.Editor, block);
    return std::string(session.Editor.App_Pattern == 0 ? Irregular_Text : std::string_view());
}

// The tests that stand behind those of the applications; the last one that fails is shown.
void Test_Crop_And_Horizons(const Session& session, const Mode& mode, bool scenario_read, Selection& selected)
{
    if (!Crop_Fits(session.Pesticide.App_Rel_Flag, selected.Crop))
        selected.Warnung = No_Pattern_Text(Crops[static_cast<std::size_t>(selected.Crop)].Text);
    const double horizons = session.Pesticide.N_Horizons.Number();
    if (scenario_read && horizons > 0 && horizons != session.Scenario.SZE_Horizons.Number())
        selected.Warnung = mode.Horizons_Text;
}

std::string First_Application(const Session& session)
{
    const auto& document = session.Pesticide;
    if (session.Editor.App_Pattern == 0)
        return {};
    if (document.App_Mode == App_Mode_Relative) {
        const auto& first = document.Relative[1];
        const auto stage = static_cast<std::size_t>(std::clamp<int>(first.Abs9_Month, 0, Crop_Event_Label.size() - 1));
        return General_Text(first.Abs9_Rate) + " kg/ha " + General_Text(first.Abs9_Day) + " days after " +
               std::string(Crop_Event_Label[stage]);
    }
    const auto& first = document.Applications[static_cast<std::size_t>(session.Editor.App_Current_Location)][1];
    const bool month = first.App_Month >= 1 && first.App_Month <= 12;
    return General_Text(first.App_Rate) + " kg/ha on " +
           std::string(month ? Month_Name[static_cast<std::size_t>(first.App_Month)] : "") + " " +
           General_Text(first.App_Day);
}

void Describe_Pattern(const Session& session, Selection& selected)
{
    const auto pattern = session.Editor.App_Pattern;
    if (pattern != 0 || selected.Warnung.empty())
        selected.App_Modus = Pattern_Text[pattern];
    selected.app_Date = First_Application(session);
}

} // namespace

std::vector<std::string> Pesticide_List(const Session& session)
{
    std::vector<std::string> names;
    for (const auto& file : List_Files(session.Program.App_Path, "*.psm")) {
        const auto name = Name_Of(file);
        if (name && Fits_A_Line(*name))
            names.push_back(*name);
    }
    return names;
}

Selection Evaluate_Selection(Session& session, const Mode& mode, std::string_view pesticide, int crop,
                             std::string_view location)
{
    Selection selected{.Pesticide = std::string(pesticide), .Crop = crop, .Location = std::string(location)};
    if (Crop_Stem(mode, crop).empty() || location.empty())
        return selected;
    const fs::path scenario = Scenario_File(session, mode, selected);
    std::error_code ignored;
    session.Program.PSM_File = Path_Text(scenario); // named if the scenario file cannot be read
    const bool scenario_read = fs::exists(scenario, ignored) && Read_SZE(session, scenario);
    selected.Tillage_Visible = Has_Tillage(scenario);
    if (pesticide.empty() || !Read_Pesticide(session, selected))
        return selected;
    selected.Usable = true;
    if (session.Pesticide.PSM_Legacy_Volat) {
        selected.Warnung = Old_Format_Text;
        selected.Old_Format = true;
        return selected;
    }
    const bool relative = mode.Relative_Any_Location && session.Pesticide.App_Mode == App_Mode_Relative;
    selected.Warnung = relative ? Relative_Warning(session, mode, selected) : Location_Warning(session, selected);
    Test_Crop_And_Horizons(session, mode, scenario_read, selected);
    selected.May_Run_Anyway = selected.Warnung == Irregular_Text;
    Describe_Pattern(session, selected);
    return selected;
}

int Block_Of_Location(const Pesticide_Document& document, std::string_view location)
{
    const auto name = Plain_Location(location);
    const int blocks = std::clamp<int>(document.App_Loc_Count, 0, Last_Location + 1);
    for (int block = 0; block < blocks; ++block) {
        if (!name.empty() && document.App_Location[static_cast<std::size_t>(block)] == name)
            return block;
    }
    return -1;
}

bool Crop_Fits(int number, int crop)
{
    if (number <= 0)
        return true;
    if (number == 1)
        return crop == 0;
    if (number <= 4)
        return crop == number;
    if (number <= 9)
        return crop - 1 == number;
    return number <= 23 && crop - 2 == number;
}

bool Has_Tillage(const fs::path& scenario)
try {
    constexpr int Tillage_Field = 19;
    const std::string bytes = Read_Whole(scenario);
    Line_Reader lines(bytes);
    lines.Skip(4);
    std::string_view row = lines.Next();
    std::string_view field;
    for (int i = 0; i < Tillage_Field; ++i)
        field = Trim(Next_Token(row));
    return field == "1";
} catch (const File_Error&) {
    return false;
}

int Step_Over_Separator(int index, int crop_step)
{
    return index == First_Separator ? crop_step + First_Separator + 1 : index;
}

int Crop_Step_After(int index, int crop_step)
{
    if (index < First_Separator)
        return 0;
    return index > First_Separator ? -2 : crop_step;
}

int Location_To_Select(const std::vector<std::string>& locations, std::string_view before)
{
    if (locations.empty())
        return -1;
    const auto found = std::ranges::find(locations, before);
    return found == locations.end() ? 0 : static_cast<int>(found - locations.begin());
}

} // namespace orvel
