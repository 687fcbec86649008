#include "scenario/rotation_dates.h"

#include <gtest/gtest.h>

namespace orvel {

using enum Crop_Stage;

TEST(Rotation_Dates, Compare_By_Year_Month_And_Day_With_Two_Digits_Each)
{
    EXPECT_EQ(Date_Key({5, 3, 12}), 120305);
    EXPECT_EQ(Date_Key({31, 12, 1}), 11231);
    EXPECT_EQ(Date_Key({0, 0, 0}), 0);
    EXPECT_LT(Date_Key({31, 12, 99}), Date_Key({1, 1, 100}));
}

TEST(Rotation_Dates, Compare_By_All_Digits_Of_A_Longer_Part_And_None_Behind_A_Sign)
{
    EXPECT_EQ(Date_Key({5, 300, 12}), 1230005);
    EXPECT_EQ(Date_Key({32767, 32767, 32767}), 327673276732767);
    EXPECT_EQ(Date_Key({-5, 3, 12}), 1203);
    EXPECT_EQ(Date_Key({5, 3, -1}), -10305);
}

TEST(Rotation_Dates, Rise_To_The_First_Year_That_Is_Not_Too_Early)
{
    for (const int year : {-200, -7, 0, 1, 98, 32767}) {
        for (const int month : {-2, 0, 3, 12, 250}) {
            for (const Crop_Date not_before : {Crop_Date{5, 3, -9}, {31, 12, 4}, {0, 400, 99}, {-1, 5, 30}}) {
                Rotation_Row row;
                Set_Date(row, Harvest, {20, month, year});
                Raise_To(row, Harvest, not_before);
                int first = year;
                while (Date_Key({20, month, first}) < Date_Key(not_before) && first < 32767)
                    ++first;
                EXPECT_EQ(Date_Of(row, Harvest), (Crop_Date{20, month, first}));
            }
        }
    }
}

} // namespace orvel
