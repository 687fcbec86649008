#pragma once

#include "output/engine_files.h"
#include "temporary_directory.h"

#include <string>
#include <vector>

namespace orvel {

// A run directory of the engine, for the leachate tables.
class Leachate_Run {
public:
    explicit Leachate_Run(const Echo_Text& echo = {}); // with echo.orv and plot.orv

    // Writes Wasser.orv and chem<suffix>.orv. At 1 m the percolate of each year is 100 L/m2, at the core bottom 50
    // L/m2; the fluxes are those given, g/ha.
    void Write_Water(std::size_t years);
    void Write_Chem(const std::string& suffix, const std::vector<int>& metre, const std::vector<int>& bottom);

    const std::filesystem::path& Path() const { return Directory.Path(); }
    std::filesystem::path operator/(const std::string& name) const { return Directory / name; }

private:
    Temporary_Directory Directory;
};

// The fluxes 1, 2, 3 ... g/ha.
std::vector<int> Rising(int years);

// All lines of a text that hold a part.
std::vector<std::string> Lines_With(const std::string& text, const std::string& part);

} // namespace orvel
