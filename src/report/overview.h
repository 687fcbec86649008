#pragma once

#include "jobs/input_changes.h"
#include "output/run_record.h"
#include "runs/mode.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// A whole assessment at a glance: what every simulation of a mode came to, or how far it is. One record, which the
// window, the report and the command line show. Texts are bytes of Windows-1252.

// A substance's figure in one simulation: the 80th percentile at 1 m depth in ug/L, or a concentration in soil.
struct Overview_Figure {
    std::string Substance;
    double Value = 0;
    std::string Text; // as the tables print it
    bool Above_Limit = false;
};

// What a cell shows. Only the first has figures.
enum class Cell_Kind {
    Figure,
    Scheduled,
    Running,
    Failed,
    Stopped,
    Incomplete,
    Changed,   // its files are no longer those of its record
    Reading,   // its tables are still to be built
    No_Figure, // its output holds none
    Unreadable,
    Absent, // it is only in what the overview is compared with
};

struct Overview_Run {
    std::string Pesticide, Crop, Location; // as the lists show them
    std::filesystem::path Directory;
    Cell_Kind Kind = Cell_Kind::Scheduled;
    orvel::Verdict Verdict = orvel::Verdict::Scheduled;
    bool Checked = false; // every file is known to be the one that was recorded
    bool Pending = false; // a closer look would tell more
    std::string Reason;   // why there is no figure, a sentence; empty if there is nothing to tell
    int Percent = 0;      // of its years, of a run at work
    int Years = 0, Years_Expected = 0;
    int Dry_Periods = 0;                       // without percolate, which count as 0 in the percentile
    std::vector<Source_Change> Changed_Inputs; // of the installation
    std::string Unit;
    std::vector<Overview_Figure> Figures; // by substance, the active substance first
    // The same simulation in what the overview is compared with: its figures, and their mark or why there are none.
    std::vector<Overview_Figure> Others;
    std::string Other_State;
};

struct Overview_Cell {
    int Run = -1;    // place among the runs; -1: not simulated
    int Figure = -1; // place among the run's figures; -1: none
    int Other = -1;  // place among its others
};

struct Overview_Row {
    std::string Pesticide, Crop, Substance; // no substance: none of its simulations has a result yet
    bool Is_Metabolite = false;             // of the row above that is none
    std::string Unit;
    std::vector<Overview_Cell> Cells; // by column
    int Highest = -1;                 // column of the highest figure
    int Above = 0, Figures = 0, Simulations = 0;
};

struct Overview {
    Mode_Kind Mode = Mode_Kind::Focus;
    std::string Quantity; // what the figures are, a sentence without its end
    bool Has_Limit = true;
    std::string Compared_With;        // what it is compared with; empty: with nothing
    std::vector<std::string> Columns; // locations
    std::vector<Overview_Run> Runs;
    std::vector<Overview_Row> Rows;
};

// Lays the runs out as rows and columns. With codes of locations ("H", "T_N") these alone count and are shown.
Overview Arrange_Overview(Mode_Kind mode, std::string quantity, std::vector<Overview_Run> runs,
                          const std::vector<std::string>& codes = {});

// The code in a location's text, or the whole text without one.
std::string Column_Code(std::string_view location);

const Overview_Run* Run_At(const Overview& overview, const Overview_Row& row, std::size_t column); // nullptr: none
const Overview_Figure* Figure_At(const Overview& overview, const Overview_Row& row, std::size_t column);
const Overview_Figure* Other_At(const Overview& overview, const Overview_Row& row, std::size_t column);

// A state in a word or two: "running 41 %", "incomplete: 12 of 26 years". Empty for a figure.
std::string State_Text(const Overview_Run& run);

// What a reader must know before relying on a figure: "unrecorded", "not checked", "inputs changed since", "inputs
// unreadable". Empty if there is nothing.
std::string Mark_Text(const Overview_Run& run);

// The cell as every format shows it: the figure with its mark in brackets, or the state; empty where nothing was run.
std::string Cell_Text(const Overview& overview, const Overview_Row& row, std::size_t column);

// What an overview that is compared shows beside a cell: the same of the other assessment, and the ratio of its figure
// to that of this one. Empty in one that is not compared.
std::string Other_Text(const Overview& overview, const Overview_Row& row, std::size_t column);
std::optional<double> Ratio_At(const Overview& overview, const Overview_Row& row, std::size_t column);
std::string Ratio_Text(const std::optional<double>& ratio); // "1", "2.50"; 1 is exact
// "0.100 | 0.250 | ×2.50", and Cell_Text of one that is not compared
std::string Compared_Cell_Text(const Overview& overview, const Overview_Row& row, std::size_t column);

// The ratio of the second to the first; nothing if only the first is 0.
std::optional<double> Ratio_Of(double first, double second);

// Another assessment, an archive of one, or earlier results, to compare an overview with.
struct Compared_Assessment {
    std::string Name; // what it is, for its readers
    std::vector<Overview_Run> Runs;
};
// Sets beside each run what the same one came to elsewhere, and adds those that are only there.
void Compare_With(std::vector<Overview_Run>& runs, const Compared_Assessment& other);

std::string Highest_Text(const Overview& overview, const Overview_Row& row);
std::string Above_Text(const Overview_Row& row); // "3 of 9", "3 of 7; 2 without a figure"

// What a reader of the table must know: what the figures are, what stands out, what it is compared with.
std::vector<std::string> Sentences_Of(const Overview& overview);

// All that is known of a run, sentences: its reason, years, dry periods and changed inputs.
std::vector<std::string> Explanation_Of(const Overview_Run& run);

// The verdict as scripts get it: that of the record, or "changed"; empty for one that is not there.
std::string_view Verdict_Word(const Overview_Run& run);

// The class of a figure, 0 below the first bound.
std::size_t Class_Of(double value, const std::vector<double>& bounds);
constexpr std::size_t Most_Classes = 5;

} // namespace orvel
