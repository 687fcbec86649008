#pragma once

#include "core/session.h"

#include <array>
#include <string>
#include <string_view>

namespace orvel {

// The five dates of a rotation row. Years are counted from the start of the scenario.

enum class Crop_Stage { Emergence, Maturation, Harvest, Senescence, Tillage };

// The stages in the order of their controls: the label, and the suffix of the control names (Combo1_eme day, Combo2_eme
// month, Text_eme year).
struct Crop_Stage_Controls {
    Crop_Stage Stage;
    std::string_view Label, Suffix;
};
constexpr std::array<Crop_Stage_Controls, 5> Crop_Stages = {{
    {Crop_Stage::Emergence, "Emergence", "eme"},
    {Crop_Stage::Maturation, "Maturity", "mat"},
    {Crop_Stage::Harvest, "Harvest", "har"},
    {Crop_Stage::Senescence, "Senescence", "sen"},
    {Crop_Stage::Tillage, "Tillage", "til"},
}};

struct Crop_Date {
    int Day = 0, Month = 0, Year = 0;
    bool operator==(const Crop_Date&) const = default;
};

Crop_Date Date_Of(const Rotation_Row& row, Crop_Stage stage);
void Set_Date(Rotation_Row& row, Crop_Stage stage, Crop_Date date); // parts are clamped to int16

// The date as a number for comparison: year, month and day joined, two digits each or as many as they have.
double Date_Key(Crop_Date date);

// Whether all parts fit the two digits of the scenario file.
bool Fits_Two_Digits(Crop_Date date);

// Adds years until the date is not before the other one; equal dates are accepted.
void Raise_To(Rotation_Row& row, Crop_Stage stage, Crop_Date not_before);

} // namespace orvel
