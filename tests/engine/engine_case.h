#pragma once

#include "core/session.h"
#include "engine/input/run_control.h"

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace orvel::engine {

// A run of the engine as a test sees it: documents that it may change, files, the executable, what it left behind.
struct Engine_Case {
    Pesticide_Document Pesticide;
    Scenario_Document Scenario;
    std::vector<std::string> Climates; // bytes of the files, one a year
    int Years = 0;
    std::string Scenario_Name = "H_maize.sze";
    std::string Header_Tail; // behind the dates of the first line
    std::string Start = "01 01", End = "31 12";
    std::string Count_Tail;       // behind the eight digits of the count line
    std::vector<Output_Row> Rows; // output rows, then the profile rows
    int Profile_Rows = 0;

    std::string Control() const;                      // orvel.inp
    std::map<std::string, std::string> Files() const; // by name
};

// A demonstration case: site code, crop file stem ("_maize"), pesticide file ("demo_D.psm"), years.
Engine_Case Demo_Case(std::string_view site, std::string_view stem, std::string_view pesticide, int years);

// A row of orvel.inp.
Output_Row Row_Of(std::string_view code, double depth, int substance = 1);

void Write_Files(const std::map<std::string, std::string>& files, const std::filesystem::path& directory);

} // namespace orvel::engine
