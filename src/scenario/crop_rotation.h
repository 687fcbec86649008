#pragma once

#include "core/session.h"
#include "scenario/crop_data.h"
#include "scenario/rotation_dates.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace orvel {

// The working copy of the rotation form, held from its Load to OK or Cancel.
struct Rotation_Work {
    std::vector<Crop_Data> Data_Base; // List_dat
    std::vector<Crop_Row>
        Crops; // the properties of the same crops, as confirmed; SZE_Rot_Tillage is the flag DB_Tillage
    std::vector<Rotation_Row> Rows; // List_rot; SZE_Rot_Crop_Index is Rot_Crop, the 1-based place in the data base
};

constexpr std::string_view Crop_Data_File = "input.dat";

// The crop data base of a directory. A file that is missing, cut short or no crop data base is told, and gives an empty
// one.
std::vector<Crop_Data> Read_Crop_Data(const Session& session, const std::filesystem::path& directory);

// Load. A crop row of the scenario stands for the data base crop of its number, and its properties replace the
// defaults; a number that the data base lacks stays in the row.
Rotation_Work Load_Rotation(const Scenario_Document& document, std::vector<Crop_Data> data_base);

// The line of List_rot.
std::string Rotation_Name(const Rotation_Work& work, std::size_t row);

// Whether the row's crop is tilled before emergence; only then are its tillage controls filled and enabled.
bool Is_Tilled(const Rotation_Work& work, std::size_t row);

// Adds a crop (0-based) with its default dates: at the end, or before a row, which moves on. The result is the new row,
// to be selected.
std::size_t Rot_Append(Rotation_Work& work, std::size_t crop);
std::size_t Rot_Insert(Rotation_Work& work, std::size_t row, std::size_t crop);

// Removes a row and closes the gap. The result is the row to be selected, nothing for an empty list.
std::optional<std::size_t> Rot_Remove(Rotation_Work& work, std::size_t row);

// Pulls the rows from `row` on back by whole years, so that a removal leaves no empty ones. Years of tillage,
// emergence, maturation and harvest move; senescence stays as it is. Whether or not the crop is tilled, its tillage
// date decides; that of a first row goes back to its year in the data base, so that no rotation begins before the
// scenario does.
void Rot_Close_Gap(Rotation_Work& work, std::size_t row);

// The roll-forward: along tillage, emergence, maturation, senescence, harvest, and on to the next row, every date that
// lies before the one ahead of it gets as many years as it needs. For k below 3 all rows count, else those from row
// count - k on. A next row's tillage or emergence of all zeros is left alone.
void Check_Rotation_Dates(Rotation_Work& work, int k);

// Date controls, `row` as selected; without a selected row nothing is stored. `item` is the list index of a month box.
void Set_Day(Rotation_Work& work, std::optional<std::size_t> row, Crop_Stage stage, std::string_view text);
void Set_Month(Rotation_Work& work, std::optional<std::size_t> row, Crop_Stage stage, int item);
void Set_Year(Rotation_Work& work, std::optional<std::size_t> row, Crop_Stage stage, std::string_view text);

// "OK": what stands against it. Without a data base the crop table would be lost, a crop that it lacks has no
// properties to be written, and a date that two digits cannot hold would be cut in the file.
std::optional<Refusal> Check_Rotation(const Rotation_Work& work);

// "OK": the rotation and the whole crop table go into the scenario document.
void Take_Over_Rotation(Scenario_Edit edit, const Rotation_Work& work);

} // namespace orvel
