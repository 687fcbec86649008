#include "scenario/rotation_dates.h"

#include <algorithm>
#include <limits>
#include <ranges>

namespace orvel {

namespace {

constexpr int Last_Year = std::numeric_limits<std::int16_t>::max();

std::int16_t Part(int value)
{
    using Limits = std::numeric_limits<std::int16_t>;
    return static_cast<std::int16_t>(std::clamp<int>(value, Limits::min(), Limits::max()));
}

struct Fields {
    std::int16_t Rotation_Row::*Day, Rotation_Row::*Month, Rotation_Row::*Year;
};

// All stages except senescence, whose day and month are variants.
Fields Fields_Of(Crop_Stage stage)
{
    using Row = Rotation_Row;
    switch (stage) {
    case Crop_Stage::Emergence:
        return {&Row::SZE_Eme_Day, &Row::SZE_Eme_Month, &Row::SZE_Eme_Year};
    case Crop_Stage::Maturation:
        return {&Row::SZE_Mat_Day, &Row::SZE_Mat_Month, &Row::SZE_Mat_Year};
    case Crop_Stage::Harvest:
        return {&Row::SZE_Har_Day, &Row::SZE_Har_Month, &Row::SZE_Har_Year};
    default:
        return {&Row::SZE_Til_Day, &Row::SZE_Til_Month, &Row::SZE_Til_Year};
    }
}

int Whole(const Variant& value)
{
    using Limits = std::numeric_limits<std::int16_t>;
    return To_I16(std::clamp<double>(value.Number(), Limits::min(), Limits::max()));
}

bool Is_Two_Digits(int part)
{
    return part >= 0 && part <= 99;
}

} // namespace

Crop_Date Date_Of(const Rotation_Row& row, Crop_Stage stage)
{
    if (stage == Crop_Stage::Senescence)
        return {Whole(row.SZE_Sen_Day), Whole(row.SZE_Sen_Month), row.SZE_Sen_Year};
    const auto fields = Fields_Of(stage);
    return {row.*fields.Day, row.*fields.Month, row.*fields.Year};
}

void Set_Date(Rotation_Row& row, Crop_Stage stage, Crop_Date date)
{
    if (stage == Crop_Stage::Senescence) {
        row.SZE_Sen_Day = Part(date.Day);
        row.SZE_Sen_Month = Part(date.Month);
        row.SZE_Sen_Year = Part(date.Year);
        return;
    }
    const auto fields = Fields_Of(stage);
    row.*fields.Day = Part(date.Day);
    row.*fields.Month = Part(date.Month);
    row.*fields.Year = Part(date.Year);
}

double Date_Key(Crop_Date date)
{
    const std::array parts = {date.Year, date.Month, date.Day};
    if (std::ranges::min(parts) < 0) { // a sign ends the number
        std::string digits;
        for (const int part : parts)
            digits += Format_Pattern(part, "00");
        return Val(digits);
    }
    double key = 0;
    for (const int part : parts) {
        double size = 100;
        while (part >= size)
            size *= 10;
        key = key * size + part;
    }
    return key;
}

bool Fits_Two_Digits(Crop_Date date)
{
    return Is_Two_Digits(date.Day) && Is_Two_Digits(date.Month) && Is_Two_Digits(date.Year);
}

void Raise_To(Rotation_Row& row, Crop_Stage stage, Crop_Date not_before)
{
    Crop_Date date = Date_Of(row, stage);
    const double key = Date_Key(not_before);
    const auto too_early = [&](int year) { return Date_Key({date.Day, date.Month, year}) < key; };
    // A later year has a greater key, whatever month and day are.
    if (date.Year < Last_Year)
        date.Year = *std::ranges::partition_point(std::views::iota(date.Year, Last_Year), too_early);
    Set_Date(row, stage, date);
}

} // namespace orvel
