#pragma once

#include "engine/input/findings.h"

#include <string>
#include <string_view>
#include <vector>

namespace orvel::engine {

// One column of plot.orv.
struct Output_Row {
    int Variable = 0; // number in Output_Variables, 0 for none
    std::string Code; // as in the file, four characters
    double Depth = 0; // cm
    double Scale = 1;
    std::string Scale_Text; // at most six characters
    int Substance = 1;      // 1 to 9
    bool operator==(const Output_Row&) const = default;
};

// The contents of orvel.inp.
struct Run_Control {
    int Years = 0;
    int Start_Day = 1, Start_Month = 1, End_Day = 31, End_Month = 12;
    bool Soil_Mode = false;
    double Temperature_Shift = 0; // degC, soil mode
    std::string Scenario_File, Pesticide_File;
    std::vector<std::string> Climate_Files; // one a year
    double Tillage_Depth = 0;               // cm
    std::vector<Output_Row> Rows;           // output rows first, then the profile rows
    int Profile_Rows = 0;
};

// Reads the run control file; faults go to the findings (errors 11, 12, 13).
Run_Control Read_Run_Control(std::string_view bytes, Findings& findings);

// The fields of a count line after its first eight columns.
struct Count_Line {
    int Rows = 0, Profile_Rows = 0;
    double Tillage_Depth = 0;
    bool operator==(const Count_Line&) const = default;
};
Count_Line Read_Count_Line(std::string_view line);

// The longest known location code that starts the file name and is followed by "_"; empty if there is none.
std::string Location_Code_Of(std::string_view scenario_file);

// The file name after the last slash or backslash.
std::string_view Bare_Name(std::string_view name);

} // namespace orvel::engine
