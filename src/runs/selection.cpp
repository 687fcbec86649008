#include "runs/selection.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/locations.h"
#include "core/text.h"
#include "files/document_notes.h"
#include "files/pesticide_file.h"
#include "files/scenario_file.h"
#include "substance/application_pattern.h"

#include <algorithm>
#include <array>
#include <memory>
#include <optional>

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

// The count of crop rows follows the erosion flag, or the line of erosion factors if that flag is 1. False for a text
// that ends before it.
bool Has_Crop_Row(std::string_view bytes)
try {
    Line_Reader lines(bytes);
    lines.Skip(2);
    if (Val(lines.Next()) == 1)
        lines.Skip(1);
    return Val(lines.Next()) != 0;
} catch (const File_Error&) {
    return false;
}

// Whether the first crop row has the tillage flag set; false for a text that ends before it.
bool Tills(std::string_view bytes)
try {
    constexpr int Tillage_Field = 19;
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

// The bytes of a scenario file; none if it cannot be understood as one, or is missing.
std::string Scenario_Bytes(const fs::path& scenario)
try {
    return Read_Whole(scenario);
} catch (const File_Error& error) {
    Pass_On_If_Unreadable(error);
    return {};
}

std::string Fault_Text(Selection_Fault fault, const Mode& mode, const Run_Choice& choice)
{
    switch (fault) {
    case Selection_Fault::Old_Format:
        return std::string(Old_Format_Text);
    case Selection_Fault::No_Crop_Defined:
        return std::string(No_Crop_Text);
    case Selection_Fault::No_Location:
        return No_Pattern_Text(Plain_Location(choice.Location));
    case Selection_Fault::Irregular:
        return std::string(Irregular_Text);
    case Selection_Fault::Other_Crop:
        return No_Pattern_Text(choice.Crop->Text);
    case Selection_Fault::Other_Horizons:
        return std::string(mode.Horizons_Text);
    case Selection_Fault::No_Scenario:
        return "There is no scenario file for " + std::string(choice.Crop->Text) + " at " + choice.Location +
               " in the directory " + std::string(mode.Directory) + ".";
    case Selection_Fault::None:
        break;
    }
    return {};
}

// Why nothing can be run with what the lists offer.
std::string Missing_Text(const Mode& mode, std::string_view pesticide, const Crop* crop)
{
    if (pesticide.empty())
        return "There is no pesticide file in the installation directory.";
    return crop == nullptr ? std::string()
                           : "There is no scenario file for " + std::string(crop->Text) + " in the directory " +
                                 std::string(mode.Directory) + ".";
}

// What is wrong with the applications at the location, whose block is -1 if the document has none. Relative ones may
// be irregular.
Selection_Fault Fault_Of_Applications(const Run_Choice& choice, int block, bool relative, bool has_crop)
{
    if (relative)
        return choice.Crop->Individual && !has_crop ? Selection_Fault::No_Crop_Defined : Selection_Fault::None;
    if (block < 0)
        return Selection_Fault::No_Location;
    return choice.Pattern == 0 ? Selection_Fault::Irregular : Selection_Fault::None;
}

std::string First_Application(const Pesticide_Document& document, int block)
{
    if (document.App_Mode == App_Mode_Relative) {
        const auto& first = document.Relative[1];
        const auto stage = static_cast<std::size_t>(std::clamp<int>(first.Abs9_Month, 0, Crop_Event_Label.size() - 1));
        return General_Text(first.Abs9_Rate) + " kg/ha " + General_Text(first.Abs9_Day) + " days after " +
               std::string(Crop_Event_Label[stage]);
    }
    const auto& first = document.Applications[static_cast<std::size_t>(block)][1];
    const bool month = first.App_Month >= 1 && first.App_Month <= 12;
    return General_Text(first.App_Rate) + " kg/ha on " +
           std::string(month ? Month_Name[static_cast<std::size_t>(first.App_Month)] : "") + " " +
           General_Text(first.App_Day);
}

// The number of horizons of a scenario file; nothing if there is no file, or if it cannot be read and the user has been
// told.
std::optional<double> Horizons_Of(const fs::path& scenario, const Ask_Function& ask)
{
    std::error_code ignored;
    Scenario_Document document;
    if (!fs::exists(scenario, ignored) || !Read_SZE(document, scenario, ask))
        return std::nullopt;
    return document.SZE_Horizons.Number();
}

} // namespace

std::vector<std::string> Pesticide_List(const fs::path& app_path)
{
    std::vector<std::string> names;
    for (const auto& file : List_Files(app_path, "*.psm")) {
        const auto name = Name_Of(file);
        if (name && Fits_A_Line(*name))
            names.push_back(*name);
    }
    return names;
}

bool Delete_Pesticide(const fs::path& app_path, const Ask_Function& ask, std::string_view pesticide)
{
    constexpr std::string_view Title = "Deleting pesticide input files";
    const std::string question = "Are you sure that you want to delete the file '" + std::string(pesticide) + "'!";
    if (ask({std::string(Title), question, Icon::Warning, {Button::Ok, Button::Cancel}, Button::Cancel}) != Button::Ok)
        return false;
    const fs::path file = Found_Or_New(app_path, Path_Of(pesticide));
    std::error_code error;
    if (!Is_Read_Only(file) && fs::remove(file, error)) {
        fs::remove(Notes_File(file), error); // they would be taken for those of the next file of this name
        return true;
    }
    Tell(ask, Title, "The file " + Path_Text(file) + " could not be deleted.");
    return false;
}

Selection Evaluate_Selection(const Program_State& program, const Ask_Function& ask, const Mode& mode,
                             std::string_view pesticide, const Crop* crop, std::string_view location)
{
    Selection selected{.Choice = Choose_Run(mode, pesticide, crop, location)};
    Run_Choice& choice = selected.Choice;
    if (crop == nullptr || location.empty() || pesticide.empty())
        selected.Warnung = Missing_Text(mode, pesticide, crop);
    if (crop == nullptr || location.empty())
        return selected;
    const fs::path scenario = Found_Or_New(Mode_Directory(program, mode), choice.Scenario);
    Scenario_Facts facts{.Horizons = Horizons_Of(scenario, ask)};
    const std::string bytes = Scenario_Bytes(scenario);
    facts.Tills = choice.Tillage_Visible = Tills(bytes);
    facts.Has_Crop = Has_Crop_Row(bytes);
    const auto document = std::make_unique<Pesticide_Document>();
    if (pesticide.empty())
        return selected;
    if (!Read_PSM(*document, Found_Or_New(program.App_Path, Path_Of(pesticide)), ask)) {
        selected.Warnung = std::string(pesticide) + " cannot be read.";
        return selected;
    }
    Judge_Selection(selected, mode, *document, facts);
    std::error_code ignored;
    const bool by_table = !mode.Locations_From_Files; // which offers locations without a file, too
    if (by_table && !selected.Old_Format() && !fs::exists(scenario, ignored)) {
        selected.Fault = Selection_Fault::No_Scenario;
        selected.Warnung = Fault_Text(selected.Fault, mode, choice);
    }
    return selected;
}

Scenario_Facts Facts_Of_Scenario(std::string_view bytes)
{
    Scenario_Document document;
    Reset_SZE(document);
    Parse_SZE(bytes, document);
    return {.Horizons = document.SZE_Horizons.Number(), .Tills = Tills(bytes), .Has_Crop = Has_Crop_Row(bytes)};
}

void Judge_Selection(Selection& selected, const Mode& mode, const Pesticide_Document& document,
                     const Scenario_Facts& scenario)
{
    Run_Choice& choice = selected.Choice;
    selected.Usable = true;
    choice.Tillage_Visible = scenario.Tills;
    choice.Met_Present = document.Met_Present;
    if (document.PSM_Legacy_Volat) {
        selected.Fault = Selection_Fault::Old_Format;
        selected.Warnung = Fault_Text(selected.Fault, mode, choice);
        return;
    }
    const bool relative = mode.Relative_Any_Location && document.App_Mode == App_Mode_Relative;
    const int block = relative ? 0 : Block_Of_Location(document, choice.Location);
    choice.Pattern = block < 0 ? 0 : Pattern_Of_Location(document, block).Pattern;

    selected.Fault = Fault_Of_Applications(choice, block, relative, scenario.Has_Crop);
    if (!Crop_Fits(document.App_Rel_Flag, *choice.Crop))
        selected.Fault = Selection_Fault::Other_Crop;
    const double horizons = document.N_Horizons.Number();
    if (scenario.Horizons && horizons > 0 && horizons != *scenario.Horizons)
        selected.Fault = Selection_Fault::Other_Horizons;
    selected.Warnung = Fault_Text(selected.Fault, mode, choice);

    if (choice.Pattern != 0 || selected.Fault == Selection_Fault::None)
        selected.App_Modus = Pattern_Text[static_cast<std::size_t>(choice.Pattern)];
    if (choice.Pattern != 0)
        selected.app_Date = First_Application(document, block);
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

bool Scenario_Tills(const fs::path& scenario)
{
    return Tills(Scenario_Bytes(scenario));
}

int Step_Over_Separator(int index, int crop_step)
{
    return index == First_Separator() ? crop_step + First_Separator() + 1 : index;
}

int Crop_Step_After(int index, int crop_step)
{
    if (index < First_Separator())
        return 0;
    return index > First_Separator() ? -2 : crop_step;
}

int Location_To_Select(const std::vector<std::string>& locations, std::string_view before)
{
    if (locations.empty())
        return -1;
    const auto found = std::ranges::find(locations, before);
    return found == locations.end() ? 0 : static_cast<int>(found - locations.begin());
}

} // namespace orvel
