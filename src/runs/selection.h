#pragma once

#include "runs/crops.h"

#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// What a form shows for its selected pesticide file, crop and location. Texts are bytes of Windows-1252.
struct Selection {
    std::string Pesticide; // file name in the installation directory
    int Crop = -1;
    std::string Location; // list entry, empty for none

    std::string Warnung; // empty: hidden
    std::string App_Modus, app_Date;
    bool Tillage_Visible = false;
    bool Usable = false;         // all three are selected and the pesticide file could be read
    bool Old_Format = false;     // the timer leaves the form as it is
    bool May_Run_Anyway = false; // key R asks for the years and runs
    bool Buttons_Enabled() const { return Usable && Warnung.empty(); }
};

// The pesticide files of the installation directory, as the list shows them. Names that the code page or a run cannot
// hold are left out.
std::vector<std::string> Pesticide_List(const Session& session);

// Everything that a click on one of the three lists decides. Reads the pesticide file and the scenario file into the
// session, finds the application block (App_Current_Location) and its pattern (App_Pattern).
Selection Evaluate_Selection(Session& session, const Mode& mode, std::string_view pesticide, int crop,
                             std::string_view location);

// Whether the crop number of a pesticide file (App_Rel_Flag) fits a crop of the list; 0 and below fit every crop.
bool Crop_Fits(int number, int crop);

// The application block of a location's list entry in a pesticide document, -1 for none.
int Block_Of_Location(const Pesticide_Document& document, std::string_view location);

// Whether the first crop row of a scenario file has the tillage flag set. A missing file has no tillage.
bool Has_Tillage(const std::filesystem::path& scenario);

// The list index behind a click on entry `index`: the first separator is stepped over in the direction of travel.
int Step_Over_Separator(int index, int crop_step);
// The new Crop_Step behind a click on crop `index`; `crop_step` where the index says nothing.
int Crop_Step_After(int index, int crop_step);
// The location to select in a new list: the one selected before if it is offered, else the first, -1 for an empty list.
int Location_To_Select(const std::vector<std::string>& locations, std::string_view before);

} // namespace orvel
