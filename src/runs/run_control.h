#pragma once

#include "runs/crops.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// The run control file orvel.inp: the only channel from the shell to the engine, in four variants.

// What the user chose on a regulatory run form. Texts are bytes of Windows-1252.
struct Run_Choice {
    std::string Pesticide; // file name
    int Crop = -1;
    std::string Location; // list entry
    std::string Tillage;  // text of L_tildepth
    bool Tillage_Visible = false;
    int Irregular_Years = 26;  // the years asked for an irregular pattern
    double Kept_Number = 0;    // behind "SOIL", from the template
    std::string Scaling = "0"; // text of the list Scaling
};

// Whether a file name with an ending of four characters can stand in a line of orvel.inp and of a job: a stem, no
// control character, no backslash.
bool Fits_A_Line(std::string_view name);

// The single run: period, files and climate list of the run settings and the output slots. A list of climate files that
// is shorter than the run repeats its last entry; an empty one gives empty lines.
std::string Format_Single_Run(const Session& session);

// A regulatory run: App_Pattern, the output slots and the metabolites present come from the session. Sets Till_Depth.
std::string Format_Run(Session& session, const Mode& mode, const Run_Choice& choice);

// The years that a regulatory run simulates.
int Years_Of_Run(const Session& session, const Mode& mode, const Run_Choice& choice);

// What a run form restores from its last orvel.inp. A text that ends early leaves the rest as it stands here.
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

// The same from the mode directory; a missing or unreadable file gives an empty template and is not told.
Run_Template Read_Template(const Session& session, const Mode& mode);

// The list index of L_tildepth that a template restores, -1 for none.
int Tillage_List_Index(const Mode& mode, int till_depth);
// The entries of L_tildepth and of Scaling.
std::vector<std::string> Tillage_List(const Mode& mode);
std::vector<std::string> Scaling_List();
constexpr int Scaling_Index = 50;

// Restores period, files, climate list and output slots of a single run. A text that ends early leaves the rest as it
// was.
void Parse_Single_Run(Session& session, std::string_view bytes);
bool Read_Single_Run(Session& session,
                     const std::filesystem::path& directory); // false: no readable orvel.inp there, which is not told

// The day and month on which the run control file of a directory ends its run; nothing where it names none. The day may
// be one that the month lacks.
struct Run_End {
    int Day = 0, Month = 0;
};
std::optional<Run_End> Read_Run_End(const std::filesystem::path& directory);

} // namespace orvel
