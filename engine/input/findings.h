#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace orvel::engine {

// How the engine ends.
constexpr int Exit_Complete = 0;
constexpr int Exit_Refused = 1; // input refused
constexpr int Exit_Failed = 2;  // numerical or internal failure
constexpr int Exit_No_File = 3; // a file cannot be opened, locked or written

constexpr int Closure_Violated = 91;
constexpr int Not_A_Number = 92;
constexpr int Disk_Failure = 93;
constexpr int Internal_Failure = 94;

// A failure that ends the run: number and text of its line, and the exit code.
struct Engine_Failure : std::runtime_error {
    Engine_Failure(int number, const std::string& text, int exit_code = Exit_Failed)
        : std::runtime_error(text),
          Number(number),
          Exit_Code(exit_code)
    {}
    int Number, Exit_Code;
};

// What is told about the input without refusing it. The number is that of the line.
enum class Note {
    Location_Block = 1,
    Column_Of_Zeros = 2,
    Depth_Clamped = 3,
    Application_Skipped = 4,
    Application_Day = 5,
    Application_Event_Moved = 6,
    No_Runoff_Depth = 7,
    Dispersion_Small = 8,
    Irrigation_Assumed = 9,
    Haude_Factors = 10,
    Crop_Ended_Early = 11,
    Rotation_Repeated = 12,
    Value_Clamped = 13,
    Substance_Missing = 14,
};

// The ERROR and NOTE lines of a run. Of the errors the first 50 are kept.
struct Findings {
    struct Entry {
        int Number;
        std::string Text;
        bool operator==(const Entry&) const = default;
    };
    static constexpr std::size_t Most_Errors = 50;
    static constexpr std::size_t Most_Notes = 200;

    void Error(int number, std::string text)
    {
        if (Errors.size() < Most_Errors)
            Errors.push_back({number, std::move(text)});
    }
    void Tell(Note note, std::string text)
    {
        const Entry entry{static_cast<int>(note), std::move(text)};
        if (Notes.size() < Most_Notes && (Notes.empty() || Notes.back() != entry))
            Notes.push_back(entry);
    }
    bool Failed() const { return !Errors.empty(); }

    std::vector<Entry> Errors, Notes;
};

} // namespace orvel::engine
