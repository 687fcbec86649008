#pragma once

#include "core/session.h"

#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// A crop of the crop database, the plain text file input.dat.
struct Crop_Data {
    std::string DB_Crop_Name;
    Crop_Row Defaults; // SZE_Rot_Crop_No is the place in the file, from 1; curve numbers and USLE factors are not in
                       // the file
    Rotation_Row Default_Dates;  // SZE_Rot_Crop_Index is the same as SZE_Rot_Crop_No
    std::int16_t DB_Tillage = 0; // 1: tilled before emergence
    bool operator==(const Crop_Data&) const = default;
};

// The crops in file order. Throws File_Error for a file with fewer lines than it declares, or more than Most_Crops.
constexpr int Most_Crops = 1000;
std::vector<Crop_Data> Parse_Crop_Data(std::string_view bytes);

// The default properties of a crop: its database line plus fixed curve numbers and USLE factors.
Crop_Row Crop_Defaults(const Crop_Data& crop);

} // namespace orvel
