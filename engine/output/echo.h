#pragma once

#include "core/system/file_handle.h"
#include "core/system/lock.h"
#include "engine/input/findings.h"
#include "engine/output/water_report.h"
#include "engine/setup/input.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace orvel::engine {

// echo.orv: the echo of the input, the findings and the outcome of the run. While the engine is working the file ends
// in the line of error 99, so that a killed run counts as failed. The file stays locked from start to end.
class Echo {
public:
    // Locks and empties the file and writes its head. Throws Engine_Failure (93, exit 3) if it is locked or cannot be
    // written.
    explicit Echo(const std::filesystem::path& directory);
    Echo(const Echo&) = delete;
    Echo& operator=(const Echo&) = delete;

    std::string Text; // append here, then Flush

    void Flush();                         // writes the text before the line of error 99
    void Finish(std::string_view ending); // writes the text, then the real ending in place of that line

private:
    File_Handle File;
    std::size_t Written = 0; // bytes before the line of error 99
    std::optional<Lock> Hold;
};

constexpr std::string_view Completed_Line = " *** SIMULATION COMPLETED ***\r\n";
constexpr std::string_view Checked_Line = " *** INPUT CHECKED, NOTHING SIMULATED ***\r\n";

// A user's text with the words that readers search for in lower case and without control characters.
std::string Sanitize(std::string_view text);

void Put_Input(std::string& text, const Engine_Input& input);
void Put_Notes(std::string& text, const Findings& findings);
void Put_Errors(std::string& text, const Findings& findings);
std::string Years_Text(const std::vector<int>& years); // " 3, 7, 12"
void Put_Dry_Years(std::string& text, std::string_view where, const std::vector<int>& years);
std::string Error_Line(int number, std::string_view text);

// The output frequency from the scenario's text: DAY or MNTH; anything else means YEAR.
Frequency Frequency_Of(const Variant& text);
std::string_view Frequency_Word(Frequency frequency);

} // namespace orvel::engine
