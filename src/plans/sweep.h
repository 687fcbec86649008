#pragma once

#include "core/session.h"
#include "runs/mode.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// Plans that vary one run: every combination of a shift of all its applications and of factors on fields. Texts are
// bytes of Windows-1252.

struct Sweep_Factor {
    std::string Field; // psm.NAME or sze.NAME, as in the first row of a plan
    std::vector<double> Factors;
};

struct Sweep_Order {
    const orvel::Mode* Mode = nullptr;
    std::string Pesticide, Crop, Location; // file name, texts of the list entries
    std::vector<int> Shifts;               // days; none: the applications stay where they are
    std::vector<Sweep_Factor> Factors;
};

// The labels of a sweep: the days of its shift, and a factor, before the name of its field.
constexpr std::string_view Shift_Label = "#shift", Factor_Label = "#factor ";

constexpr std::size_t Most_Sweep_Rows = 10000000;

// "-14:14:7" is -14, -7, 0, 7 and 14; "5" is 5 alone. "psm.Koc[1]=0.5,1,2". Both throw File_Error for any other text.
std::vector<int> Parse_Shifts(std::string_view text);
Sweep_Factor Parse_Factor(std::string_view text);

// The day of the month, the month and the year of an application that is moved by days, in years of 365 days. Throws
// File_Error if it is no date, or leaves the years of the simulation at their begin.
Application Shifted(Application application, int days);

// The fields of the documents of a run that a factor changes, as a factor names them: those with a number other than 0.
// Throws File_Error for a document or location that is not there.
std::vector<std::string> Fields_To_Vary(const Program_State& program, const Sweep_Order& order);

// Passes the plan on as comma-separated values, UTF-8, piece by piece: its ids are 1, 2 and so on, the last factor
// varies fastest. Throws File_Error for a field, document or location that is not there.
void Print_Sweep(const Program_State& program, const Sweep_Order& order,
                 const std::function<void(std::string_view)>& print);

} // namespace orvel
