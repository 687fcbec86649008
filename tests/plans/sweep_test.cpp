#include "plans/sweep.h"

#include "core/error.h"

#include <gtest/gtest.h>

namespace orvel {

namespace {

std::string Date(const Application& application)
{
    return std::to_string(application.App_Day) + "." + std::to_string(application.App_Month) + "." +
           std::to_string(application.App_Year);
}

Application On(int day, int month, int year)
{
    return {.App_Day = static_cast<std::int16_t>(day),
            .App_Month = static_cast<std::int16_t>(month),
            .App_Year = static_cast<std::int16_t>(year)};
}

} // namespace

TEST(Sweep_Test, An_Application_Moves_Over_Months_And_Years_Of_365_Days)
{
    EXPECT_EQ(Date(Shifted(On(1, 11, 3), -14)), "18.10.3");
    EXPECT_EQ(Date(Shifted(On(28, 2, 4), 1)), "1.3.4");
    EXPECT_EQ(Date(Shifted(On(25, 12, 4), 14)), "8.1.5");
    EXPECT_EQ(Date(Shifted(On(3, 1, 5), -7)), "27.12.4");
    EXPECT_EQ(Date(Shifted(On(29, 2, 4), 0)), "28.2.4");
    EXPECT_EQ(Date(Shifted(On(31, 12, 2), 0)), "31.12.2");
}

TEST(Sweep_Test, An_Application_Does_Not_Leave_The_First_Year_Backwards)
{
    EXPECT_THROW(Shifted(On(3, 1, 1), -7), File_Error);
    EXPECT_THROW(Shifted(On(0, 0, 1), 7), File_Error);
}

TEST(Sweep_Test, Shifts_Are_A_Range_Or_One_Number)
{
    EXPECT_EQ(Parse_Shifts("-14:14:7"), (std::vector{-14, -7, 0, 7, 14}));
    EXPECT_EQ(Parse_Shifts("0:10:4"), (std::vector{0, 4, 8}));
    EXPECT_EQ(Parse_Shifts("5"), std::vector{5});
    for (const char* wrong : {"", "1:2", "1:2:0", "2:1:1", "a:b:c", "1:2:3:4", "0:1000:1", "1:2:x"})
        EXPECT_THROW(Parse_Shifts(wrong), File_Error) << wrong;
}

TEST(Sweep_Test, A_Factor_Names_Its_Field_And_Its_Numbers)
{
    const auto factor = Parse_Factor("psm.Koc[1]=0.5,1,2");
    EXPECT_EQ(factor.Field, "psm.Koc[1]");
    EXPECT_EQ(factor.Factors, (std::vector{0.5, 1.0, 2.0}));
    for (const char* wrong : {"", "psm.Koc[1]", "psm.Koc[1]=", "psm.Koc[1]=a", "=1", "psm.Koc[1]=inf"})
        EXPECT_THROW(Parse_Factor(wrong), File_Error) << wrong;
}

} // namespace orvel
