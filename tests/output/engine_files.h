#pragma once

#include <filesystem>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace orvel {

// Lays out engine files with given texts in given columns, so that a test names what a reader must find.

// A line with texts at 1-based columns, without its end.
std::string Line_At(std::initializer_list<std::pair<std::size_t, std::string_view>> texts);

// Lines joined, each closed by CR LF.
std::string Lines(const std::vector<std::string>& lines);

struct Water_Year {
    std::string Kind = "ANNUAL";
    std::string Precipitation = "0.0000", Irrigation = "0.0000", Loss = "0.0000";
    std::string Snow; // empty: the block has no snow lines
    std::string Runoff = "0.0000";
    std::vector<std::pair<int, std::string>> Transpiration; // compartment and value; the rows of the table
    std::vector<std::string> Percolate;                     // of the same rows
    std::string Recharge = "0.00000";
};
std::string Water_Block(const Water_Year& year);

// A year whose table has the rows of compartments 1 and 40; compartment 40 is that at 1 m.
std::string Water_Block(std::string_view percolate_metre, std::string_view recharge);

struct Chem_Year {
    std::string Kind = "ANNUAL";
    std::vector<std::pair<int, std::string>> Application; // compartment and value; the rows of the table
    std::vector<std::string> Leached;                     // of the same rows
    std::string Uptake = "0.00000E+00", Decay = "0.00000E+00";
    std::string Volatilization; // empty: a metabolite's file has no such line
    bool Macropore_First = false;
    std::string Runoff = "0.00000E+00", Bottom = "0.00000E+00";
};
std::string Chem_Block(const Chem_Year& year);
std::string Chem_Block(std::string_view leached_metre, std::string_view leached_bottom);

// What follows the last block.
std::string End_Of_Output();

struct Echo_Text {
    std::string Frequency_Water = "YEAR", Frequency_Pest = "YEAR";
    std::string Total = "80", Top = "40";
    std::vector<std::string> Names = {"Substance D"};
    std::string Last = " *** SIMULATION COMPLETED ***";
};
std::string Echo_File(const Echo_Text& echo = {});

// The head of plot.orv, with the texts "Engine", "Scenario", "Pesticide" and `line_6` as its titles.
std::string Plot_Head_Of(int columns, int profile,
                         std::string_view line_6 = "Soil concentrations: total content (mg/kg)");

// A data line; values are put right-aligned in columns of ten.
std::string Plot_Line(int day, int hour, const std::vector<std::string>& values);

void Write_File(const std::filesystem::path& file, std::string_view bytes);
std::string Read_File(const std::filesystem::path& file);

} // namespace orvel
