#pragma once

#include "engine/output/figures.h"
#include "engine/output/water_report.h"
#include "engine/solute/solute.h"
#include "engine/water/grid.h"

#include <string>
#include <vector>

namespace orvel::engine {

// The data behind one substance's block: the amounts of the span, how they close and the state at its end.
struct Solute_Block {
    const Solute_Column& Column;
    const Solute_Sums& Sums;
    const Solute_Closure& Closure;            // empty where only concentrations are written
    const std::vector<double>& Concentration; // [compartment * lanes + slot]
    const std::vector<double>& Upward;        // through 1 m, by slot
};

// A row of a balance: the number that it carries, and the compartments behind it.
struct Numbered_Row {
    int Number = 0; // of the document's compartment at its lower end, 1-based
    int First = 0, Last = 0;
};

// "chem.orv", "chem_A1.orv" ... "chem_D2.orv" by substance index.
std::string Solute_File_Name(int index);
std::string Solute_Label(int index); // "PESTICIDE", "METABOLITE A1" ...

// The balance file of one substance.
class Solute_Report {
public:
    Solute_Report(const std::filesystem::path& directory, const Grid& grid, int index, int slot, int step,
                  int concentration_step);
    void Put_Block(Span span, const Date& date, const Solute_Block& block);
    void Put_Concentrations(const Solute_Block& block);                         // below a block
    void Put_Dated_Concentrations(const Date& date, const Solute_Block& block); // when no block is due
    void Flush() { File.Flush(); }
    void Close();

private:
    void Put_Row(const Numbered_Row& group, const Solute_Block& block);
    void Put_Plant_Row(const Solute_Block& block);
    void Put_Totals(const Solute_Block& block);

    const Grid* Core;
    int Index;
    std::size_t Slot;
    std::vector<Numbered_Row> Groups, Concentration_Groups;
    Out_File File;
};

// Sum of one slot over all rows.
double Total_Of(const std::vector<double>& values, int lanes, int slot);

} // namespace orvel::engine
