#pragma once

#include "core/session.h"

#include <filesystem>
#include <string_view>

namespace orvel {

enum class Mode_Kind { Focus, Efsa, Efsa_T4 };
enum class Header_Tail { None, Kept_Number, Scaling };

// What differs between the three regulatory run forms; they share everything else.
struct Mode {
    Mode_Kind Kind;
    std::string_view Name;          // on the command line: focus, efsa, efsa_t4
    std::string_view Form, Caption; // object name and title of the run form
    std::string_view Directory;     // below the installation directory
    // The scenario file whose first line holds the scenario version. The form opens only if it exists.
    std::string_view Version_Source;
    std::string_view Individual_Stem; // scenario stem of "Individual crop"
    std::string_view Probe_File;      // while it is missing, a form shows a job as running
    std::string_view Missing_Text;    // message if Version_Source is missing
    std::string_view Horizons_Text;   // message if pesticide and scenario file differ in their number of horizons
    std::string_view Last_Copy;       // copied last into a run directory; empty: the scenario file
    int Last_Copy_Stage;              // stage number of a failure of that copy
    Header_Tail Tail;                 // what follows the version in the first line of orvel.inp
    bool Locations_From_Files;        // locations are those with a scenario file; else the soil zones and a fixed table
    bool Letter_Codes;                // locations of one letter have scenario files
    bool Asks_Irregular_Years;        // an irregular pattern runs for the years that the user chooses; else 6
    bool Relative_Any_Location;       // relative application dates fit every location
    bool Profile_Rows;                // orvel.inp asks for the profile of the top 20 cm
    bool Blank_Tillage;               // the list of tillage depths begins with a blank entry
    int Tillage_Index;                // default list index of the tillage depth
    std::string_view Report_Title;    // names the protection goal
};

const Mode& Mode_Of(Mode_Kind kind);
const Mode* Mode_Named(std::string_view name); // nullptr for an unknown name

std::filesystem::path Mode_Directory(const Program_State& program, const Mode& mode);

} // namespace orvel
