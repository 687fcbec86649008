#pragma once

#include <filesystem>
#include <fstream>
#include <map>
#include <string>

namespace orvel {

// The outputs of an engine that has done its work: the texts that tell how far it came, and no more.
inline std::map<std::string, std::string> Complete_Output(int years)
{
    std::map<std::string, std::string> files;
    files["echo.orv"] = " ECHO\r\n TOTAL COMPARTMENTS IN CORE                           80\r\n"
                        " Total number of layers in the top meter:                   40\r\n"
                        "*** PARAMETERS OF substance***\r\n";
    for (int year = 1; year <= years; ++year) {
        const std::string number = std::to_string(year) + "\r\n";
        files["Wasser.orv"] += " *** ANNUAL WATER BALANCE ***     YEAR " + number +
                               " RECHARGE BELOW CORE (CM)                 1.00000\r\n CHANGE OF STORAGE\r\n";
        files["chem.orv"] += " *** ANNUAL PESTICIDE BALANCE ***   YEAR " + number +
                             " PESTICIDE LEACHED BELOW CORE            1.00000E-05\r\n STORED\r\n";
    }
    std::string& plot = files["plot.orv"];
    plot = "a\r\n\r\nb\r\nc\r\n\r\nd\r\n     1     1     0\r\n            PFLX\r\n 1.0\r\n           1.0E05\r\n\r\n";
    for (int day = 1; day <= 365 * years; ++day) {
        std::string number = std::to_string(day);
        plot += std::string(6 - number.size(), ' ') + number + " 24         1.0\r\n";
    }
    return files;
}

// Writes them into a directory, which is made if need be.
inline void Put_Complete_Output(const std::filesystem::path& directory, int years)
{
    std::filesystem::create_directories(directory);
    for (const auto& [name, bytes] : Complete_Output(years))
        std::ofstream(directory / name, std::ios::binary) << bytes;
}

} // namespace orvel
