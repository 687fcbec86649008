#pragma once

#include "core/progress.h"
#include "runs/mode.h"
#include "tables/leachate_tables.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

constexpr std::string_view All_Crops = "all"; // in place of a crop's name

// The summary of one pesticide and crop over all locations: a table per substance of the 80th percentile rows of the
// period tables at 1 m.

constexpr std::size_t Most_Summary_Locations = 10;

struct Summary_Location {
    std::string Text; // of the list: "Hamburg (H)"
    std::filesystem::path Directory;
};

// What a report is to hold; texts as the lists and labels of the result browser show them, bytes of Windows-1252.
struct Summary_Request {
    std::string Model_Version, Date, Pesticide, Crop;
    std::vector<Summary_Location> Locations;
    std::vector<std::string> Absent;  // texts of locations that the crop has beside them, without a simulation
    std::vector<std::string> Missing; // texts of locations that were asked for, without a simulation
    Mode_Kind Mode = Mode_Kind::Focus;
};

struct Summary_Row {
    std::size_t Location = 0; // place among the locations
    std::string Name;         // location up to its first ")", empty without one
    std::string Figures;      // of the percentile row, from its "(" on
    Leachate_Row P80;         // as printed: sums of flux and percolate, mean concentration
    int A = 0, B = 0;         // the selected periods
};

struct Summary_Substance {
    std::string Result_Name; // "Results for ..."
    std::vector<Summary_Row> Rows;
    double Location_Max = 0; // highest concentration, ug/L
};

struct Summary {
    std::string Failure;            // why there is none, a sentence; empty if there is one
    std::vector<std::string> Notes; // locations whose tables could not be stored, and why
    std::string Model_Version, Date, Pesticide, Crop;
    std::vector<std::string> Location_Short; // one letter by location
    std::vector<Summary_Substance> Substances;
};

// The locations that were run for a pesticide (stem of its file) and a crop, with what a report on them says at its
// head: the engine's version and the first location's date. Throws File_Error if there is no such directory.
Summary_Request Request_Summary(const Session& session, const Mode& mode, std::string_view stem, std::string_view crop);

// The crops that were run for a pesticide. Throws File_Error if there are none.
std::vector<std::string> Crops_Of_Runs(const Session& session, const Mode& mode, std::string_view stem);

// Keeps the locations of these codes ("H", "T_N") alone; those without a simulation are missing then. Without any code
// nothing changes.
void Choose_Locations(Summary_Request& request, const std::vector<std::string>& codes);

// The locations of a crop that were not run.
std::vector<std::string> Absent_Locations(const Session& session, const Mode& mode, std::string_view crop,
                                          const std::vector<Summary_Location>& run);

// The requests for one crop, or for all that were run ("all"), limited to locations of these codes.
std::vector<Summary_Request> Request_Summaries(const Session& session, const Mode& mode, std::string_view stem,
                                               std::string_view crop, const std::vector<std::string>& codes);

// The codes in a list that commas part: "C,H,K".
std::vector<std::string> Codes_In(std::string_view list);

// The summary of all locations; tables that are missing are built and kept first. There is none if a location's tables
// are not complete and kept, or if the user stopped it.
Summary Build_Summary(const Summary_Request& request, const Progress& progress = {});

// The report as text, lines end in CR LF.
std::string Summary_Text(const Summary& report);

// The letter of a location's text that a diagram shows; empty without a bracket.
std::string Short_Name(std::string_view text);

// Adds the percentile rows at 1 m of a location's period tables to the summary's substances.
void Add_Percentiles(Summary& summary, std::size_t location, std::string_view location_text,
                     const Leachate_Tables& tables);

} // namespace orvel
