#pragma once

#include "files/misread.h"

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace orvel::engine {

// Exit codes of the engine.
constexpr int Exit_Complete = 0;
constexpr int Exit_Refused = 1; // input refused
constexpr int Exit_Failed = 2;  // numerical or internal failure
constexpr int Exit_No_File = 3; // a file cannot be opened, locked or written

// Why a run is refused or ends early; the value is the number of the ERROR line. docs/engine.md explains each.
enum class Fault {
    Run_Control_Unreadable = 11,
    Run_Control_Value = 12,
    Output_Row = 13,
    Scenario_Missing = 21,
    Pesticide_Missing = 22,
    Climate_Missing = 23,
    Scenario_Unreadable = 31,
    Compartments = 32,
    Horizon_Thickness = 33,
    Soil_Property = 34,
    Water_Content = 35,
    Crop = 36,
    Scenario_Value = 37,
    Pesticide_Unreadable = 41,
    Application_Date = 42,
    Crop_Event_Missing = 43,
    Application_Value = 44,
    Sorption = 45,
    Volatility = 46,
    Horizon_Tables = 47,
    Rate = 48,
    Climate_Unreadable = 51,
    Climate_Value = 52,
    Climate_Gap = 53,
    Haude_Unreadable = 54,
    Closure_Violated = 91,
    Not_A_Number = 92,
    Disk_Failure = 93,
    Internal_Failure = 94,
    Not_Completed = 99, // in the echo from the start until the run ends
};

// A failure that ends the run: number and text of its ERROR line, and the exit code.
struct Engine_Failure : std::runtime_error {
    Engine_Failure(Fault fault, const std::string& text, int exit_code = Exit_Failed)
        : std::runtime_error(text),
          Number(static_cast<int>(fault)),
          Exit_Code(exit_code)
    {}
    int Number, Exit_Code;
};

// Remarks on input that is accepted; the value is the number of the NOTE line.
enum class Note {
    Location_Block = 1,
    Column_Of_Zeros = 2,
    Depth_Clamped = 3,
    Application_Skipped = 4,
    Application_Day = 5,
    Application_Event_Moved = 6,
    Dispersion_Small = 8,
    Irrigation_Assumed = 9,
    Haude_Factors = 10,
    Crop_Ended_Early = 11,
    Rotation_Repeated = 12,
    Value_Clamped = 13,
    Substance_Missing = 14,
    Depth_Moved = 15,
    Little_Water = 16,
    Negative_Mean = 17,
    Profile_Saturated = 18,
    Above_Solubility = 19,
    Nothing_Applied = 20,
    Core_Below_A_Metre = 21,
    Value_Unused = 22,
    Much_Rain = 23,
};

// The ERROR and NOTE lines of a run; only the first Most_Errors and Most_Notes are kept.
struct Findings {
    struct Entry {
        int Number;
        std::string Text;
        bool operator==(const Entry&) const = default;
    };
    static constexpr std::size_t Most_Errors = 50;
    static constexpr std::size_t Most_Notes = 200;

    void Error(Fault fault, std::string text);
    void Tell(Note note, std::string text); // a repeat of the last note is dropped
    // One error for each word of a file that is no number, with its place.
    void Tell_Misreads(Fault fault, std::string_view file, const Misreads& words);
    bool Failed() const { return !Errors.empty(); }

    std::vector<Entry> Errors, Notes;
};

} // namespace orvel::engine
