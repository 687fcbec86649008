#include "substance/calendar_day.h"

#include <gtest/gtest.h>

namespace orvel {

TEST(Calendar_Day, Counts_Days_Without_Leap_Years)
{
    EXPECT_EQ(Day_Of_Year(1, 1), 1);
    EXPECT_EQ(Day_Of_Year(1, 3), 60);
    EXPECT_EQ(Day_Of_Year(15, 8), 227);
    EXPECT_EQ(Day_Of_Year(31, 12), 365);
}

TEST(Calendar_Day, In_A_Month_That_Is_None_Is_The_Day_Itself)
{
    EXPECT_EQ(Day_Of_Year(1, 13), 1);
    EXPECT_EQ(Day_Of_Year(7, 0), 7);
}

TEST(Calendar_Day, Finds_The_Date_Of_A_Day_Of_Year_And_Wraps_Behind_December)
{
    EXPECT_EQ(Datum_Im_Jahr(1), (Calendar_Day{1, 1}));
    EXPECT_EQ(Datum_Im_Jahr(59), (Calendar_Day{28, 2}));
    EXPECT_EQ(Datum_Im_Jahr(60), (Calendar_Day{1, 3}));
    EXPECT_EQ(Datum_Im_Jahr(365), (Calendar_Day{31, 12}));
    EXPECT_EQ(Datum_Im_Jahr(366), (Calendar_Day{1, 1}));
    EXPECT_EQ(Datum_Im_Jahr(730), (Calendar_Day{31, 12}));
}

} // namespace orvel
