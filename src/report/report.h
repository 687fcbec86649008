#pragma once

#include "charts/chart.h"
#include "report/endpoints.h"
#include "report/overview.h"
#include "report/report_uses.h"
#include "report/run_results.h"
#include "report/summary_report.h"
#include "substance/guidance_check.h"

#include <ctime>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace orvel {

// Everything that a dossier says about a pesticide's simulations: who computed it out of what, the uses, the tables
// with their limit, the diagrams, and what is missing. One record, and a writer for each format. Texts are bytes of
// Windows-1252.

struct Checked_File {
    std::string Name, Sha256; // no digest: the file is missing
    bool operator==(const Checked_File&) const = default;
};

// A location's simulation.
struct Report_Run {
    std::string Location;            // "Hamburg (H)"
    std::string Problem;             // why it has no result, a sentence; empty: it has one
    std::string Date;                // of the simulation
    int Years = 0;                   // simulated, warm-up included
    int Dry_Periods = 0;             // evaluated ones without percolate at 1 m, which count as 0 in the percentile
    std::vector<std::string> Titles; // what the engine's output says of engine, scenario and pesticide
    Checked_File Pesticide, Scenario, Run_Control;
    std::vector<Report_Use> Uses;
    Checked_File Record; // run.json
};

struct Report_Result {
    std::size_t Run = 0; // place among the crop's runs
    Leachate_Row P80;    // as printed: mean concentration, sums of flux and percolate
    Selected_Period A, B;
    bool Above_Limit = false;
};

// The results of a substance at 1 m depth, one for each run that has any.
struct Report_Table {
    std::string Substance;
    std::vector<Report_Result> Results;
    Chart Diagram;
};

struct Report_Crop {
    std::string Name;
    std::vector<Report_Run> Runs;
    std::vector<Report_Table> Tables;
};

struct Report {
    std::string Title;
    std::string Program, Engine; // versions
    std::string Pesticide;       // stem of its file
    std::string Made;            // date
    Checked_File Engine_File;
    std::string Acceptance;   // of that engine in this installation
    orvel::Overview Overview; // of all runs: what a report begins with
    std::vector<Endpoint> Endpoints;
    std::vector<Guidance_Finding> Guidance; // what the rules find in the pesticide and its runs, with the answers
    std::string Guidance_Problem;           // why the check could not be done; else empty
    std::vector<Report_Crop> Crops;
    std::vector<std::string> Notes; // what a reader must know before relying on the figures, sentences
};

// Gathers the report of the summaries' simulations, one request a crop; tables that are missing are built and kept
// first. A simulation that failed, is at work or was never run has a problem in place of its results. Throws
// Reading_Stopped if the user stopped it.
Report Gather_Report(const Session& session, const std::vector<Summary_Request>& crops, std::time_t made,
                     const Progress& progress = {});

// The result of a crop's run in a table, or nullptr.
const Report_Result* Result_Of(const Report_Table& table, std::size_t run);

// What all formats of the report say.
constexpr std::string_view Report_Depth_Text =
    "80th percentile of the concentration in the percolate at 1 m soil depth";

} // namespace orvel
