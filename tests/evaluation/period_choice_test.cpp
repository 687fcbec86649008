#include "evaluation/period_choice.h"

#include <gtest/gtest.h>

namespace orvel {

void PrintTo(const Period& period, std::ostream* to)
{
    *to << period.From.Month << "." << period.From.Year << " - " << period.To.Month << "." << period.To.Year;
}

TEST(Period_Choice, Years_Are_Counted_By_The_Months_Of_The_Plot_File)
{
    const auto years = [](int months) { return Years_Of_Plot({.Months = months}); };

    EXPECT_EQ(years(0), 0);
    EXPECT_EQ(years(12), 1);
    EXPECT_EQ(years(13), 1); // the count may be one month more than the simulation has
    EXPECT_EQ(years(14), 2);
    EXPECT_EQ(years(312), 26);
    EXPECT_EQ(years(313), 26);
    EXPECT_EQ(years(792), 66);
}

TEST(Period_Choice, A_Period_In_Order_Stays_As_It_Is)
{
    const Period one_month{{5, 3}, {5, 3}}, all{{1, 1}, {12, 26}};

    EXPECT_EQ(Uncrossed(one_month, Period_End::Begin, 26), one_month);
    EXPECT_EQ(Uncrossed(all, Period_End::End, 26), all);
}

TEST(Period_Choice, A_Begin_Behind_The_End_Takes_The_End_To_The_Month_Behind_It)
{
    EXPECT_EQ(Uncrossed({{7, 4}, {5, 4}}, Period_End::Begin, 26), (Period{{7, 4}, {8, 4}}));
    EXPECT_EQ(Uncrossed({{1, 9}, {12, 8}}, Period_End::Begin, 26), (Period{{1, 9}, {2, 9}}));
    EXPECT_EQ(Uncrossed({{12, 9}, {1, 2}}, Period_End::Begin, 26), (Period{{12, 9}, {1, 10}}));
}

TEST(Period_Choice, A_Begin_In_The_Last_Month_Leaves_The_End_There)
{
    EXPECT_EQ(Uncrossed({{12, 26}, {11, 26}}, Period_End::Begin, 26), (Period{{12, 26}, {12, 26}}));
}

TEST(Period_Choice, An_End_Before_The_Begin_Takes_The_Begin_With_It)
{
    EXPECT_EQ(Uncrossed({{7, 4}, {5, 4}}, Period_End::End, 26), (Period{{5, 4}, {5, 4}}));
    EXPECT_EQ(Uncrossed({{1, 9}, {12, 1}}, Period_End::End, 26), (Period{{12, 1}, {12, 1}}));
}

TEST(Period_Choice, Is_Never_Left_Crossed)
{
    const auto number = [](const Run_Month& month) { return 12 * month.Year + month.Month; };
    for (int from = 12; from < 48; ++from) {
        for (int to = 12; to < 48; ++to) {
            const Period chosen{{from % 12 + 1, from / 12}, {to % 12 + 1, to / 12}};
            for (const auto end : {Period_End::Begin, Period_End::End}) {
                const Period period = Uncrossed(chosen, end, 3);
                EXPECT_LE(number(period.From), number(period.To));
                EXPECT_LE(period.To.Year, 3);
            }
        }
    }
}

} // namespace orvel
