#pragma once

#include "output/line_scanner.h"
#include "output/run_records.h"

#include <array>
#include <cstddef>
#include <vector>

namespace orvel {

constexpr Anchor Annual_Anchor("ANNUAL"); // of a year's block of a balance file

// Where a balance file holds the yearly values of the leachate tables, columns 1-based.
struct Leachate_Layout {
    Anchor Table; // the compartment table, whose row of the compartment at 1 m holds a value
    std::size_t Layer_First, Layer_Width, Row_First, Row_Width;
    Anchor Bottom; // the line of the core bottom's value
    std::size_t Bottom_First, Bottom_Width;
    double Factor; // from the file's unit to the table's
};
extern const Leachate_Layout Water_Layout; // Wasser.orv: percolate, L/m2
extern const Leachate_Layout Chem_Layout;  // chem*.orv: leached mass, g/ha

// Reads the yearly values of both depths in one pass. Each depth searches for itself, as if it read the file alone: a
// text that is missing in one year's block is found in a later one. A year in whose reading the file ended is none.
class Yearly_Values {
public:
    Yearly_Values(Line_Scanner file, const Leachate_Layout& layout, int top_layers)
        : File(std::move(file)),
          Layout(layout),
          Top_Layers(top_layers)
    {}

    // Reads on until both depths have `years` years or the file has ended.
    void Read_To(std::size_t years);
    const std::vector<double>& At(Depth depth) const { return Values[static_cast<std::size_t>(depth)]; }
    std::uint64_t Bytes_Read() const { return File.Bytes_Read(); }

private:
    enum class Wanted { Block, Table, Value };
    void Look_For_Metre(std::string_view line);
    void Look_For_Bottom(std::string_view line);
    void Keep(Depth depth, std::string_view columns);

    Line_Scanner File;
    const Leachate_Layout& Layout;
    int Top_Layers;
    Wanted Metre = Wanted::Block, Bottom = Wanted::Block;
    std::array<std::vector<double>, 2> Values;
};

} // namespace orvel
