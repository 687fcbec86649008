#pragma once

#include "output/run_record.h"
#include "tables/leachate_records.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// result.csv in the directory of a run of a plan: its rows of the results, one a substance. It is written last, when
// everything else of the run is on the disk: a run that has none is not done.

constexpr std::string_view Result_Name = "result.csv";

// The columns of a result, as the first row of the results names them.
constexpr std::string_view Result_Columns = "substance,percentile,unit,years,flux,percolate,verdict,seconds";

struct Result_Row {
    std::string Substance; // bytes of Windows-1252; empty for a run without figures
    std::string Unit;      // of the percentile, bytes of Windows-1252
    struct Figures {
        // The 80th percentile of the concentration in the leachate at 1 m, or the highest concentration in the top
        // centimetre of the soil: the unit tells.
        double Percentile = 0;
        std::optional<double> Flux, Percolate; // of the leachate of the years that it is the mean of, g/ha and L/m2
    };
    std::optional<Figures> Found;
    int Years = 0; // complete years that the run has left
};

struct Plan_Result {
    std::vector<Result_Row> Rows; // at least one
    orvel::Verdict Verdict = orvel::Verdict::Scheduled;
    std::optional<long long> Seconds; // that the engine took
};

// What the figures of a run are of: its leachate, or, in the soil modes, the soil if its output has it.
enum class Result_Kind { Leachate, Soil };

// The result of a run that has ended, by its record and, if it is complete, its tables; those are built and kept.
// Throws File_Error if they cannot be read or written.
Plan_Result Result_Of_Run(const std::filesystem::path& run_directory, const Run_Record& record, Result_Kind kind);

// The result of a complete run by its tables of the leachate; nothing if they hold no figures.
std::optional<Plan_Result> Result_Of_Leachate(const Leachate_Tables& tables, const Run_Record& record);

// The lines of the file, each without its end: UTF-8, columns as above.
std::string Format_Result(const Plan_Result& result);

// A line of the file, as far as a reader of many looks at it.
struct Result_Line {
    std::string_view Figures; // the columns before the verdict, without the comma behind them
    std::string_view Verdict, Seconds;
};
// Nothing for a text that is no whole result. The lines are parts of the text.
std::optional<std::vector<Result_Line>> Parse_Result(std::string_view text);
std::optional<std::vector<Result_Line>> Parse_Result(std::string&& text) = delete; // which would be gone

// The cells of its figures, or none for a text that is no such line; and what they are, nothing for a line without any.
constexpr std::size_t Figure_Columns = 6;
std::vector<std::string> Figure_Cells(std::string_view figures);
std::optional<Result_Row> Parse_Figures(std::string_view figures);

// The bytes of the file; empty if the run has none. Throws File_Error if it cannot be read.
std::string Read_Result(const std::filesystem::path& run_directory);

} // namespace orvel
