#include "ui/date_hint.h"

#include <gtest/gtest.h>

namespace orvel {

TEST(Date_Hint_Rule, Tells_Of_A_Day_That_No_Year_Has)
{
    EXPECT_EQ(Date_Hint(30, 2), "February has no day 30.");
    EXPECT_EQ(Date_Hint(31, 11), "November has no day 31.");
    EXPECT_EQ(Date_Hint(29, 2), std::nullopt);
    EXPECT_EQ(Date_Hint(31, 12), std::nullopt);
    EXPECT_EQ(Date_Hint(31, 0), std::nullopt);
    EXPECT_EQ(Date_Hint(31, 13), std::nullopt);
}

} // namespace orvel
