#pragma once

#include "runs/crops.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// The run control file orvel.inp, the engine's only instructions: one variant for each mode and one for the single run.

// The settings of a regulatory run form apart from its three lists. Texts are bytes of Windows-1252.
struct Run_Options {
    Output_Selection Output{};
    std::string Tillage;       // text of L_tildepth
    int Irregular_Years = 26;  // the years chosen for an irregular pattern
    double Kept_Number = 0;    // follows "SOIL"; from the template
    std::string Scaling = "0"; // text of the list Scaling
};

// A regulatory run: the choice and what follows from it, determined once. Texts are bytes of Windows-1252.
struct Run_Choice {
    std::string Pesticide;             // file name in the installation directory
    const orvel::Crop* Crop = nullptr; // none, or a separator
    std::string Location;              // list entry
    std::string Code;                  // of the location in file names; empty if the mode has none
    std::string Scenario;              // file name

    // Of the pesticide and the scenario file (Evaluate_Selection)
    int Pattern = 0; // of the applications at the location: 0 irregular, 1 every year, 2 every other, 3 every third
    Per_Substance<bool> Met_Present{};
    bool Tillage_Visible = false; // the scenario has tillage

    Run_Options Options;
};

// The run chosen by the entries of the three lists; everything else keeps its default.
Run_Choice Choose_Run(const Mode& mode, std::string_view pesticide, const Crop* crop, std::string_view location);

// Whether a file name with a four-character extension can be used in a line of orvel.inp and of a job: it has a stem,
// no control character and no backslash.
bool Fits_A_Line(std::string_view name);

// Where the documents of a run lie as seen from its directory: what stands before their names in orvel.inp.
struct Input_Places {
    std::string Scenario = "..\\..\\..\\", Climate = Scenario, Pesticide;
};

// The bytes of the run control file of a regulatory run.
std::string Format_Run(const Program_State& program, const Mode& mode, const Run_Choice& choice,
                       const Input_Places& places = {});

// The years that a regulatory run simulates, and the name of the climate file of each, from 1.
int Years_To_Run(const Mode& mode, const Run_Choice& choice);
std::string Climate_Name(const Run_Choice& choice, int year);

// What a run form restores from its last orvel.inp. A text that ends early leaves the rest at these defaults.
struct Run_Template {
    int Years = 0;
    double Kept_Number = 0;
    std::string Code, Crop_Part; // upper case
    std::string Pesticide;       // trimmed
    int Till_Depth = 0;
    bool Has_Count_Line = false; // Till_Depth was read
    bool Has_Rows = false;       // Output was read
    Output_Selection Output{};
};
Run_Template Parse_Template(const Mode& mode, std::string_view bytes);

// The template in the mode directory; a missing or unreadable file gives an empty one and no message.
Run_Template Read_Template(const Program_State& program, const Mode& mode);

// The list index of L_tildepth that a template's depth (cm) restores, -1 for none.
int Tillage_List_Index(const Mode& mode, int till_depth);
// The entries of L_tildepth and of Scaling.
std::vector<std::string> Tillage_List(const Mode& mode);
std::vector<std::string> Scaling_List();
constexpr int Scaling_Index = 50;

// What the run control file of a single run holds.
struct Single_Run_Control {
    Single_Run_Settings Settings;
    Output_Selection Output{};
};

// The bytes of the file. A list of climate files shorter than the run repeats its last entry; an empty one gives empty
// lines.
std::string Format_Single_Run(const Single_Run_Settings& run, const Output_Selection& output);

// A text that ends early leaves the rest as it was `before`.
Single_Run_Control Parse_Single_Run(std::string_view bytes, Single_Run_Control before = {});

// The same from a directory; nothing, and no message, without a readable orvel.inp.
std::optional<Single_Run_Control> Read_Single_Run(const std::filesystem::path& directory,
                                                  Single_Run_Control before = {});

// The day and month on which the run control file of a directory ends its run; nothing if it names none. The day may
// not exist in the month.
struct Run_End {
    int Day = 0, Month = 0;
};
std::optional<Run_End> Read_Run_End(const std::filesystem::path& directory);

} // namespace orvel
