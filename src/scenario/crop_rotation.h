#pragma once

#include "core/session.h"
#include "scenario/crop_data.h"
#include "scenario/rotation_dates.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace orvel {

// The working copy of the rotation form, kept from loading until OK or Cancel.
struct Rotation_Work {
    std::vector<Crop_Data> Data_Base; // List_dat
    std::vector<Crop_Row> Crops; // properties of the same crops, as confirmed; SZE_Rot_Tillage is the flag DB_Tillage
    std::vector<Rotation_Row> Rows; // List_rot; SZE_Rot_Crop_Index is Rot_Crop, the 1-based index in the database
    bool operator==(const Rotation_Work&) const = default;
};

constexpr std::string_view Crop_Data_File = "input.dat";

// Reads the crop database from a directory. A missing or unreadable file is reported and gives an empty database.
std::vector<Crop_Data> Read_Crop_Data(const Session& session, const std::filesystem::path& directory);

// A crop row of the scenario stands for the database crop with its number, and its properties replace the defaults; a
// number missing from the database stays in the row.
Rotation_Work Load_Rotation(const Scenario_Document& document, std::vector<Crop_Data> data_base);

// The entry in List_rot.
std::string Rotation_Name(const Rotation_Work& work, std::size_t row);

// Whether the row's crop is tilled before emergence; only then are its tillage controls filled and enabled.
bool Is_Tilled(const Rotation_Work& work, std::size_t row);

// What is odd about the dates of a row, a line each: "Emergence: February has no day 30."
std::string Rotation_Date_Hints(const Rotation_Work& work, std::size_t row);

// Adds a crop (0-based) with its default dates: at the end, or before a row. Returns the new row, to be selected.
std::size_t Rot_Append(Rotation_Work& work, std::size_t crop);
std::size_t Rot_Insert(Rotation_Work& work, std::size_t row, std::size_t crop);

// Removes a row and closes the gap. Returns the row to select, nothing for an empty list.
std::optional<std::size_t> Rot_Remove(Rotation_Work& work, std::size_t row);

// Moves the rows from `row` on back by whole years, so that a removal leaves no empty years. All five dates move. The
// tillage date decides, or the emergence of a crop that is not tilled, whose tillage date stays as it is; for the first
// row it returns to its year in the database, so that no rotation begins before the scenario.
void Rot_Close_Gap(Rotation_Work& work, std::size_t row);

// Rolls dates forward: through tillage, emergence, maturation, senescence and harvest, and on to the next row, every
// date before its predecessor is advanced by as many years as needed. For k below 3 all rows are checked, otherwise
// those from row count - k on. A following row's tillage or emergence of all zeros is ignored.
void Check_Rotation_Dates(Rotation_Work& work, int k);

// Date controls of the selected row; without one nothing is stored. `item` is the list index of a month box.
void Set_Day(Rotation_Work& work, std::optional<std::size_t> row, Crop_Stage stage, std::string_view text);
void Set_Month(Rotation_Work& work, std::optional<std::size_t> row, Crop_Stage stage, int item);
void Set_Year(Rotation_Work& work, std::optional<std::size_t> row, Crop_Stage stage, std::string_view text);

// "OK": the objection to the rotation, if any. Without a database the crop table would be lost, a crop missing from it
// has no properties to write, and a date beyond two digits would be cut in the file.
std::optional<Refusal> Check_Rotation(const Rotation_Work& work);

// "OK": stores the rotation and the whole crop table in the scenario document.
void Take_Over_Rotation(Scenario_Edit edit, const Rotation_Work& work);

} // namespace orvel
