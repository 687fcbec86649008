#pragma once

#include "core/csv_reader.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace orvel {

// How the columns begin whose cells replace a field of the pesticide file or of the scenario.
constexpr std::string_view Pesticide_Field_Begin = "psm.", Scenario_Field_Begin = "sze.";

// A plan is a table of runs, one a row (core/csv_reader.h). Texts are UTF-8, as they stand in the file.

enum class Plan_Column_Kind {
    Id,
    Mode,
    Pesticide,
    Crop,
    Location,
    Scenario,
    Climate,
    Years,
    Pesticide_Field, // to replace: psm.NAME
    Scenario_Field,  // sze.NAME
    Label,           // #NAME, whatever the user wants to see beside the results
};

struct Plan_Column {
    Plan_Column_Kind Kind;
    std::string Name;  // as the first row has it
    std::string Field; // of a replaced field: its name in the document, bytes of Windows-1252
};

// How the runs of a plan are named: by the entries of the run form, or by files.
enum class Plan_Kind { Modes, Files };

struct Plan_Columns {
    std::vector<Plan_Column> All;
    Plan_Kind Kind = Plan_Kind::Modes;

    bool Replaces(Plan_Column_Kind kind) const;
};

struct Plan_Row {
    std::size_t Number = 0;         // among the rows of the plan, 1-based
    int Line = 0;                   // in the file
    std::vector<std::string> Cells; // one a column, without surrounding blanks
};

// Reads a plan from its first row to its last. Rows without any text are passed over.
class Plan_Reader {
public:
    // Reads the first row. Throws File_Error with line and column for a column that is unknown, doubled or missing.
    explicit Plan_Reader(Csv_Reader::Source source);

    const Plan_Columns& Columns() const { return Found; }

    // False at the end. Throws File_Error with line and column for a row that has too few or too many cells, or an
    // empty cell where none may be; the next call goes on behind it. A column is a column of the table.
    bool Next(Plan_Row& row);

    // The cell of a row by the kind of its column.
    const std::string& Cell(const Plan_Row& row, Plan_Column_Kind kind) const;
    int Column_Of(Plan_Column_Kind kind) const; // 1-based, for messages

private:
    Csv_Reader Rows;
    Plan_Columns Found;
    std::size_t Count = 0;
};

// The ids of a plan, each once. Of long ids no more is kept than tells them apart.
class Plan_Ids {
public:
    bool Add(std::string_view id); // false: it was there before

private:
    std::unordered_set<std::string> Seen;
};

} // namespace orvel
