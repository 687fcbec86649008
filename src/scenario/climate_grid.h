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

// The grid of the climate editor: a save writes the texts of its cells. Texts of untouched cells are created on demand,
// so that a file of thousands of days opens at once.
class Climate_Grid {
public:
    static constexpr std::size_t Text_Columns = 4; // day, month, year, hour
    static constexpr std::size_t Columns = Text_Columns + Climate_Columns.size();

    // Rows without a day are hidden.
    explicit Climate_Grid(const Climate_Table& table);

    std::size_t Rows() const { return Shown.Rows.size(); }
    std::string Cell(std::size_t row, std::size_t column) const;
    void Set_Cell(std::size_t row, std::size_t column, std::string_view text);

    bool Is_Edited(std::size_t row, std::size_t column) const { return Edited.contains({row, column}); }

    // Empty rows behind the last one; those that get no day are left out of the table.
    void Append_Rows(std::size_t count);
    void Remove_Rows(std::size_t count); // the last ones

    // The cells of a row for the day after the last one, with its hour; 1 January of year 01 in an empty grid.
    std::vector<std::string> Next_Day() const;

    const std::string& Title() const { return Shown.Cli_Title; }
    void Set_Title(std::string_view title) { Shown.Cli_Title = title; }

    // The numbers of a column (0 rainfall ... 6 radiation) as the grid shows them, for the chart.
    std::vector<double> Values(std::size_t column) const;

    // The dates of the rows: "31.12.81".
    std::vector<std::string> Dates() const;

    // The table to save: dates are the first two characters of their cells, with a leading zero for a single digit; a
    // number is the leading number of its cell.
    Climate_Table Table() const;

private:
    using Place = std::pair<std::size_t, std::size_t>;
    Climate_Table Shown;
    std::map<Place, std::string> Edited;
};

// The two-line heading of a column.
std::string Climate_Heading(std::size_t column);

// "Save": copies the grid's rows to the session, which the writer saves.
void Take_Over_Climate(Session& session, const Climate_Grid& grid);

} // namespace orvel
