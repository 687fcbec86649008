#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace orvel::engine {

// What a reader that goes by anchors and columns finds in the balance files: written for tests, apart from the engine
// and from the rules.

struct Water_Year {
    double Precipitation = 0, Irrigation = 0, Canopy_Loss = 0, Melt = 0, Snowfall = 0, Runoff = 0;
    double Evapotranspiration = 0; // sum over the compartments
    double Percolate = 0;          // below 1 m
    double Recharge = 0, Change = 0, Check = 0;
    std::vector<double> Storage; // at the end, by row
};

struct Solute_Year {
    double Gained = 0;  // applied or formed, sum over the rows
    double Leached = 0; // below 1 m
    double Uptake = 0, Decay = 0, Volatilised = 0, Runoff = 0, Sediment = 0, Leached_Core = 0, Stored = 0, Check = 0;
    double Bypass = 0, Upward = 0;
    std::vector<double> Stores; // both domains by row, the plant row first
};

// The annual (or monthly) blocks in turn. `top_layers` is the compartment at 1 m.
std::vector<Water_Year> Water_Blocks(const std::string& text, const std::string& title, int top_layers);
std::vector<Solute_Year> Solute_Blocks(const std::string& text, const std::string& title, int top_layers);

// plot.orv: head lines, and the value of each line by column.
struct Plot_Line {
    int Day = 0, Hour = 0;
    std::vector<double> Values;
};
struct Plot_File {
    std::vector<std::string> Head; // eleven lines
    std::vector<Plot_Line> Lines;
};
Plot_File Read_Plot(const std::string& text);

// The closure table of the echo: water (cm), substances and moles (relative) of the worst year.
struct Echo_Closure {
    int Years = 0;
    double Water = 0, Solute = 0, Moles = 0;
};
Echo_Closure Worst_Closure(const std::string& echo);
int Top_Layers(const std::string& echo);

} // namespace orvel::engine
