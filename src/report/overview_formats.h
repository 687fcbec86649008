#pragma once

#include "core/workbook.h"
#include "report/overview.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace orvel {

// The overview as a table, and written in every format. The table is laid out once, so that no two formats differ.

struct Shown_Cell {
    std::string Text; // bytes of Windows-1252
    std::optional<double> Value;
    std::size_t Class = 0; // of the value
    bool Above_Limit = false;
    bool Is_State = false;          // of a simulation that has no figure
    bool Is_Ratio = false;          // which has no class
    std::string Mark;               // behind the figure
    std::vector<Shown_Cell> Beside; // of a location that is compared: the other figure and the ratio
};

struct Shown_Table {
    std::vector<std::string> Heads;
    std::vector<std::vector<Shown_Cell>> Rows;
    std::vector<bool> Is_Metabolite;
    std::size_t First_Location = 0, Locations = 0; // columns
};
// Without bounds all figures are of one class.
Shown_Table Shown_Table_Of(const Overview& overview, const std::vector<double>& bounds);
// The same with what stands beside figures in columns of its own, for what reads a table cell by cell.
Shown_Table Spread_Table_Of(const Overview& overview, const std::vector<double>& bounds);

// Signs of the classes in UTF-8, from empty to full, so that a class is told without its colour.
extern const std::array<std::string_view, Most_Classes> Class_Signs;
// Their colours, 0xRRGGBB: from light to dark, which any colour vision tells apart, with ink that can be read on them.
extern const std::array<std::uint32_t, Most_Classes> Class_Fills, Class_Inks;
std::string Class_Colours(std::size_t place); // "background:#ffffff;color:#1c1f23"
// The place of a class among the five, for fewer classes too.
std::size_t Class_Place(std::size_t class_of, std::size_t bounds);
// "below 0.001", "0.1 to 1", "10 and more"; bytes of Windows-1252.
std::vector<std::string> Class_Texts(const std::vector<double>& bounds);

std::string Overview_Lines(const Overview& overview);                                   // tabs, LF, UTF-8
std::string Overview_Csv(const Overview& overview);                                     // CR LF, UTF-8 with its mark
std::string Overview_Json(const Overview& overview);                                    // UTF-8
std::string Overview_Html(const Overview& overview, const std::vector<double>& bounds); // a page that stands alone
std::string Overview_Fragment(const Overview& overview,
                              const std::vector<double>& bounds); // the table alone, for a clipboard
Sheet Overview_Sheet(const Overview& overview, const std::vector<double>& bounds);
// Sheets for results, inputs and records; the records are read again.
Workbook Overview_Book(const Overview& overview, const std::vector<double>& bounds);

constexpr std::string_view Overview_Endings = ".csv, .xlsx or .html";
constexpr std::string_view Overview_Filters = "Page (*.html);;Workbook (*.xlsx);;Table (*.csv)";

// Writes the overview whole in the format that the file's ending names, but for .xlsx (orvelpaint does). Throws
// File_Error for another ending.
void Write_Overview(const Overview& overview, const std::vector<double>& bounds, const std::filesystem::path& file);
bool Is_Overview_Book(const std::filesystem::path& file); // ends in .xlsx; throws File_Error for an unknown ending

} // namespace orvel
