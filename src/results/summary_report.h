#pragma once

#include "results/leachate_tables.h"
#include "results/progress.h"
#include "runs/mode.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The summary of one pesticide and crop over all locations: a table per substance of the 80th percentile rows of the period tables at 1 m.

constexpr std::size_t Most_Summary_Locations = 10;

struct Summary_Location {
    std::string Text; // of the list: "Hamburg (H)"
    std::filesystem::path Directory;
};

// What a report is asked for; texts as the lists and labels of the result browser show them, bytes of Windows-1252.
struct Summary_Request {
    std::string Model_Version, Date, Pesticide, Crop;
    std::vector<Summary_Location> Locations;
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
    std::string Model_Version, Date, Pesticide, Crop;
    std::vector<std::string> Location_Short; // one letter by location
    std::vector<Summary_Substance> Substances;
};

// The locations that were run for a pesticide (stem of its file) and a crop, with what a report on them says at its head: the engine's
// version and the first location's date. Throws File_Error if there is no such directory.
Summary_Request Request_Summary(const Session& session, const Mode& mode, std::string_view stem, std::string_view crop);

// Makes sure that the tables of all locations exist, then gathers their percentile rows. Nothing: the user has been told, or stopped it.
std::optional<Summary> Build_Summary(Session& session, const Summary_Request& request, const Progress& progress = {});

// The report as text, lines end in CR LF.
std::string Summary_Text(const Summary& report);

// Adds the percentile rows at 1 m of a location's period.orv to the report's substances.
void Gather_Percentiles(Summary& report, std::size_t location, std::string_view location_text, std::string_view period_bytes);
