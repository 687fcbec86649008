#pragma once

#include "core/session.h"
#include "files/climate_file.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace orvel {

// The grid of the climate editor: the texts of its cells are what a save writes. Texts of untouched cells are made when
// they are asked for, so that a file of thousands of days shows at once.
class Climate_Grid {
public:
    static constexpr std::size_t Text_Columns = 4; // day, month, year, hour
    static constexpr std::size_t Columns = Text_Columns + Climate_Columns.size();

    // A row without a day is not shown.
    explicit Climate_Grid(const Climate_Table& table);

    std::size_t Rows() const { return Shown.Rows.size(); }
    std::string Cell(std::size_t row, std::size_t column) const;
    void Set_Cell(std::size_t row, std::size_t column, std::string_view text);

    const std::string& Title() const { return Shown.Cli_Title; }
    void Set_Title(std::string_view title) { Shown.Cli_Title = title; }

    // The numbers of a number column (0 rainfall ... 6 radiation) as the grid shows them, for the chart.
    std::vector<double> Values(std::size_t column) const;

    // What is saved: dates are the first two characters of their cells, a single digit with a zero before it; a number
    // is what its cell begins with.
    Climate_Table Table() const;

private:
    using Place = std::pair<std::size_t, std::size_t>;
    Climate_Table Shown;
    std::map<Place, std::string> Edited;
};

// The heading of a column in two lines.
std::string Climate_Heading(std::size_t column);

// "Save": hands the grid's rows to the session, from where they are written.
void Take_Over_Climate(Session& session, const Climate_Grid& grid);

} // namespace orvel
