#include "scenario/crop_rotation.h"

#include "core/error.h"
#include "core/files.h"
#include "files/file_messages.h"
#include "scenario/saving.h"
#include "ui/date_hint.h"
#include "ui/number_field.h"

#include <algorithm>

namespace orvel {

namespace {

constexpr const char* File_Check = "File check";
constexpr const char* No_Data_Base = "Cannot open INPUT.DAT";
constexpr int Rows_Checked_Always = 3; // for fewer, all rows are checked

const Crop_Row* Crop_Of(const Rotation_Work& work, std::size_t row)
{
    const int number = work.Rows[row].SZE_Rot_Crop_Index;
    return number >= 1 && static_cast<std::size_t>(number) <= work.Crops.size()
               ? &work.Crops[static_cast<std::size_t>(number) - 1]
               : nullptr;
}

Rotation_Row New_Row(const Rotation_Work& work, std::size_t crop)
{
    Rotation_Row row = work.Data_Base[crop].Default_Dates;
    row.SZE_Rot_Crop_Index = static_cast<std::int16_t>(crop + 1);
    return row;
}

// The date that begins a row: an untilled crop begins with its emergence.
Crop_Stage First_Stage(const Rotation_Work& work, std::size_t row)
{
    return Is_Tilled(work, row) ? Crop_Stage::Tillage : Crop_Stage::Emergence;
}

// The year in which the row's crop begins in the database: a rotation starts there, whether years count from 0 or 1.
int First_Year(const Rotation_Work& work, std::size_t row)
{
    const auto* crop = Crop_Of(work, row);
    if (!crop)
        return 0;
    const auto& defaults = work.Data_Base[static_cast<std::size_t>(crop - work.Crops.data())].Default_Dates;
    return Date_Of(defaults, First_Stage(work, row)).Year;
}

// Moves all dates of a row back, except a tillage that its crop does not have.
void Move_Back(Rotation_Work& work, std::size_t row, int years)
{
    for (const auto& [stage, label, suffix] : Crop_Stages) {
        if (stage == Crop_Stage::Tillage && !Is_Tilled(work, row))
            continue;
        auto date = Date_Of(work.Rows[row], stage);
        date.Year -= years;
        Set_Date(work.Rows[row], stage, date);
    }
}

Rotation_Row* Selected(Rotation_Work& work, std::optional<std::size_t> row)
{
    return row && *row < work.Rows.size() ? &work.Rows[*row] : nullptr;
}

} // namespace

std::vector<Crop_Data> Read_Crop_Data(const Session& session, const std::filesystem::path& directory)
{
    const auto file = Find_File(directory, Crop_Data_File);
    if (!file) {
        session.Ask({File_Check, No_Data_Base});
        return {};
    }
    try {
        return Parse_Crop_Data(Read_Whole(*file));
    } catch (const File_Error& error) {
        session.Ask({File_Check, "Cannot read INPUT.DAT.\n" + Place_And_Reason(Crop_Data_File, error)});
        return {};
    }
}

Rotation_Work Load_Rotation(const Scenario_Document& document, std::vector<Crop_Data> data_base)
{
    Rotation_Work work{std::move(data_base), {}, document.Rotation};
    for (const auto& crop : work.Data_Base)
        work.Crops.push_back(Crop_Defaults(crop));
    for (const auto& row : document.Crops) {
        const auto number = row.SZE_Rot_Crop_No;
        if (number >= 1 && static_cast<std::size_t>(number) <= work.Crops.size())
            work.Crops[static_cast<std::size_t>(number) - 1] = row;
    }
    for (auto& row : work.Rows) {
        const auto index = row.SZE_Rot_Crop_Index;
        if (index >= 1 && static_cast<std::size_t>(index) <= document.Crops.size())
            row.SZE_Rot_Crop_Index = document.Crops[static_cast<std::size_t>(index) - 1].SZE_Rot_Crop_No;
    }
    return work;
}

std::string Rotation_Name(const Rotation_Work& work, std::size_t row)
{
    const int number = work.Rows[row].SZE_Rot_Crop_Index;
    return Crop_Of(work, row) ? work.Data_Base[static_cast<std::size_t>(number) - 1].DB_Crop_Name
                              : "Crop " + std::to_string(number);
}

bool Is_Tilled(const Rotation_Work& work, std::size_t row)
{
    const auto* crop = Crop_Of(work, row);
    return crop && crop->SZE_Rot_Tillage == 1;
}

std::string Rotation_Date_Hints(const Rotation_Work& work, std::size_t row)
{
    std::string hints;
    for (const auto& [stage, label, suffix] : Crop_Stages) {
        const auto date = Date_Of(work.Rows[row], stage);
        const auto hint = Date_Hint(date.Day, date.Month);
        if (hint && (stage != Crop_Stage::Tillage || Is_Tilled(work, row)))
            hints += (hints.empty() ? "" : "\n") + std::string(label) + ": " + *hint;
    }
    return hints;
}

std::size_t Rot_Append(Rotation_Work& work, std::size_t crop)
{
    return Rot_Insert(work, work.Rows.size(), crop);
}

std::size_t Rot_Insert(Rotation_Work& work, std::size_t row, std::size_t crop)
{
    work.Rows.insert(work.Rows.begin() + static_cast<std::ptrdiff_t>(row), New_Row(work, crop));
    Check_Rotation_Dates(work, static_cast<int>(work.Rows.size()));
    return row;
}

std::optional<std::size_t> Rot_Remove(Rotation_Work& work, std::size_t row)
{
    work.Rows.erase(work.Rows.begin() + static_cast<std::ptrdiff_t>(row));
    Rot_Close_Gap(work, row);
    if (work.Rows.empty())
        return std::nullopt;
    return std::min(row, work.Rows.size() - 1);
}

void Rot_Close_Gap(Rotation_Work& work, std::size_t row)
{
    if (row >= work.Rows.size())
        return;
    const auto begin = Date_Of(work.Rows[row], First_Stage(work, row));
    int shift = begin.Year - First_Year(work, row);
    if (row > 0) {
        const auto harvest = Date_Of(work.Rows[row - 1], Crop_Stage::Harvest);
        const bool too_late = Date_Key(harvest) > Date_Key({begin.Day, begin.Month, harvest.Year});
        shift = begin.Year - harvest.Year - (too_late ? 1 : 0);
    }
    for (auto r = row; shift > 0 && r < work.Rows.size(); ++r)
        Move_Back(work, r, shift);
}

void Check_Rotation_Dates(Rotation_Work& work, int k)
{
    const int count = static_cast<int>(work.Rows.size());
    const int start = k < Rows_Checked_Always ? 0 : std::max(0, count - k);
    for (auto i = static_cast<std::size_t>(start); i < work.Rows.size(); ++i) {
        auto& row = work.Rows[i];
        if (Is_Tilled(work, i))
            Raise_To(row, Crop_Stage::Emergence, Date_Of(row, Crop_Stage::Tillage));
        Raise_To(row, Crop_Stage::Maturation, Date_Of(row, Crop_Stage::Emergence));
        Raise_To(row, Crop_Stage::Senescence, Date_Of(row, Crop_Stage::Maturation));
        Raise_To(row, Crop_Stage::Harvest, Date_Of(row, Crop_Stage::Senescence));
        if (i + 1 == work.Rows.size())
            return;
        auto& next = work.Rows[i + 1];
        const auto first = First_Stage(work, i + 1);
        if (Date_Key(Date_Of(next, first)) != 0)
            Raise_To(next, first, Date_Of(row, Crop_Stage::Harvest));
    }
}

void Set_Day(Rotation_Work& work, std::optional<std::size_t> row, Crop_Stage stage, std::string_view text)
{
    if (auto* selected = Selected(work, row)) {
        auto date = Date_Of(*selected, stage);
        date.Day = Typed_Integer(text);
        Set_Date(*selected, stage, date);
    }
}

void Set_Month(Rotation_Work& work, std::optional<std::size_t> row, Crop_Stage stage, int item)
{
    if (auto* selected = Selected(work, row)) {
        auto date = Date_Of(*selected, stage);
        date.Month = item + 1;
        Set_Date(*selected, stage, date);
    }
}

void Set_Year(Rotation_Work& work, std::optional<std::size_t> row, Crop_Stage stage, std::string_view text)
{
    if (auto* selected = Selected(work, row)) {
        auto date = Date_Of(*selected, stage);
        date.Year = Typed_Integer(text);
        Set_Date(*selected, stage, date);
    }
}

std::optional<Refusal> Check_Rotation(const Rotation_Work& work)
{
    if (work.Data_Base.empty())
        return Refusal{{File_Check, No_Data_Base}, "List_dat"};
    for (std::size_t r = 0; r < work.Rows.size(); ++r) {
        if (!Crop_Of(work, r))
            return Refusal{{File_Check, "The crop data base does not hold crop " +
                                            std::to_string(work.Rows[r].SZE_Rot_Crop_Index) + " of row " +
                                            std::to_string(r + 1) + "."},
                           "List_rot"};
    }
    auto refusal = Check_Rotation_Digits(work.Rows, work.Crops);
    if (refusal)
        refusal->Control = "List_rot";
    return refusal;
}

void Take_Over_Rotation(Scenario_Edit edit, const Rotation_Work& work)
{
    edit.Changed = true;
    auto& document = edit.Document;
    document.Rotation = work.Rows;
    document.SZE_Rot_Count = static_cast<std::int16_t>(work.Rows.size());
    document.Crops = work.Crops;
    document.SZE_Crop_Count = static_cast<std::int16_t>(work.Crops.size());
    for (std::size_t c = 0; c < document.Crops.size(); ++c)
        document.Crops[c].SZE_Rot_Crop_No = static_cast<std::int16_t>(c + 1);
}

} // namespace orvel
