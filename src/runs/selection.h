#pragma once

#include "runs/run_control.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// Why a combination cannot be marked. The last one that applies is shown.
enum class Selection_Fault {
    None,
    Old_Format,
    No_Crop_Defined,
    No_Location,
    Irregular,
    Other_Crop,
    Other_Horizons,
    No_Scenario
};

// What a run form shows for its selected pesticide file, crop and location. Texts are bytes of Windows-1252.
struct Selection {
    Run_Choice Choice; // without the options

    bool Usable = false; // all three are selected and the pesticide file could be read
    Selection_Fault Fault = Selection_Fault::None;
    std::string Warnung; // the text of the fault, or what is missing
    std::string App_Modus, app_Date;

    bool Buttons_Enabled() const { return Usable && Fault == Selection_Fault::None; }
    bool Old_Format() const { return Fault == Selection_Fault::Old_Format; }    // the timer leaves the form alone
    bool May_Run_Anyway() const { return Fault == Selection_Fault::Irregular; } // key R asks for the years and runs it
};

// The pesticide files of the installation directory, as the list shows them. Names that the code page or a run cannot
// hold are left out.
std::vector<std::string> Pesticide_List(const std::filesystem::path& app_path);

// Deletes a pesticide file of the installation directory after asking. False: the user kept it, or it could not be
// deleted and the user has been told.
bool Delete_Pesticide(const std::filesystem::path& app_path, const Ask_Function& ask, std::string_view pesticide);

// Everything that follows from a click on one of the three lists, by the pesticide and the scenario file. The user has
// been told of a file that cannot be read.
Selection Evaluate_Selection(const Program_State& program, const Ask_Function& ask, const Mode& mode,
                             std::string_view pesticide, const Crop* crop, std::string_view location);

// What a scenario file says of the runs that use it.
struct Scenario_Facts {
    std::optional<double> Horizons; // nothing if they are not known
    bool Tills = false;             // the first crop row has the tillage flag set
    bool Has_Crop = false;
};
Scenario_Facts Facts_Of_Scenario(std::string_view bytes); // throws File_Error for a file that cannot be understood

// The same by documents that need not lie in files: completes the choice and finds its fault.
void Judge_Selection(Selection& selected, const Mode& mode, const Pesticide_Document& document,
                     const Scenario_Facts& scenario);

// The application block of a location's list entry in a pesticide document, -1 for none.
int Block_Of_Location(const Pesticide_Document& document, std::string_view location);

// Whether the first crop row of a scenario file has the tillage flag set. A missing file has no tillage.
bool Scenario_Tills(const std::filesystem::path& scenario);

// The list index after a click on entry `index`: the first separator is skipped in the direction of movement.
int Step_Over_Separator(int index, int crop_step);
// The new Crop_Step after a click on crop `index`; on the separator it stays.
int Crop_Step_After(int index, int crop_step);
// The location to select in a new list: the one selected before if it is offered, else the first, -1 for an empty list.
int Location_To_Select(const std::vector<std::string>& locations, std::string_view before);

} // namespace orvel
