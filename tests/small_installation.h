#pragma once

#include "core/files.h"
#include "core/locations.h"
#include "files/pesticide_file.h"
#include "files/scenario_file.h"
#include "temporary_directory.h"

#include <fstream>
#include <memory>
#include <string>

namespace orvel {

// An installation directory with an engine that does nothing, a few scenario files and one pesticide file.
class Small_Installation {
public:
    Small_Installation()
    {
        for (const char* name : {"focus", "EFSA", "EFSA_T4"})
            std::filesystem::create_directories(Place / name);
        Write_Whole(Place / "orvel401.exe", "#!/bin/sh\nexit 0\n");
        std::filesystem::permissions(Place / "orvel401.exe", std::filesystem::perms::owner_all);
        Write_Whole(Place / "Haude.dat", "monthly factors\r\n");
        Write_Whole(Place / "focus/Focuscheck.dat", "checked\r\n");
        for (const char* name : {"c_apples.sze", "H_maize.sze", "C_maize.sze", "S_maize.sze", "H_wcerea.sze",
                                 "S_wcerea.sze", "H_beans.sze"})
            Put_Scenario(name);
        Put_Pesticide("test.psm", {"H", "C"});
    }

    const std::filesystem::path& Path() const { return Place.Path(); }
    std::filesystem::path operator/(const std::filesystem::path& name) const { return Place / name; }

    // A scenario of one crop; with tillage its crop row has the flag set.
    void Put_Scenario(const std::string& name, bool tillage = false, int crops = 1)
    {
        Scenario_Document document;
        Reset_SZE(document);
        document.SZE_Title = "DEM 3 " + name;
        document.SZE_Crop_Count = static_cast<std::int16_t>(crops);
        document.Crops.assign(static_cast<std::size_t>(crops),
                              {.SZE_Rot_Crop_No = 1, .SZE_Rot_Tillage = static_cast<std::int16_t>(tillage)});
        document.SZE_Rot_Count = 1;
        document.Rotation.assign(1, {.SZE_Eme_Day = 1, .SZE_Eme_Month = 5, .SZE_Eme_Year = 1, .SZE_Rot_Crop_Index = 1});
        Write_Whole(Place / "focus" / name, Format_SZE(document));
    }

    // A pesticide file with 1 kg/ha on 1 November of every year at the locations of these codes.
    void Put_Pesticide(const std::string& name, const std::vector<std::string>& codes, int applications = 26)
    {
        auto document = std::make_unique<Pesticide_Document>();
        Reset_PSM(*document);
        document->PSM_Title = "Demonstration";
        document->App_Mode = 0;
        document->App_Loc_Count = static_cast<std::int16_t>(codes.size() + 1);
        document->App_Count[0] = 0;
        for (std::size_t location = 1; location <= codes.size(); ++location) {
            document->App_Location[location] = Location_Name(codes[location - 1]);
            document->App_Count[location] = applications;
            for (int a = 1; a <= applications; ++a)
                document->Applications[location][static_cast<std::size_t>(a)] = {1, 11, static_cast<std::int16_t>(a),
                                                                                 1.0};
        }
        Write_Whole(Place / name, Format_PSM(*document));
    }

private:
    Temporary_Directory Place;
};

} // namespace orvel
