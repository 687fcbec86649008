#include "substance/application_pattern.h"

#include <gtest/gtest.h>
#include <memory>

namespace orvel {

namespace {

// A session whose first location has `count` applications, `per_year` of them before the dates repeat.
std::unique_ptr<Session> With_Applications(int count, int per_year = 1)
{
    auto session = std::make_unique<Session>();
    Reset_PSM(session->Pesticide);
    session->Pesticide.App_Mode = 0;
    session->Pesticide.App_Count[1] = count;
    for (int a = 1; a <= count; ++a) {
        session->Pesticide.Applications[1][static_cast<std::size_t>(a)] = {
            .App_Day = static_cast<std::int16_t>((a - 1) % per_year + 1),
            .App_Month = 5,
            .App_Year = static_cast<std::int16_t>(a),
            .App_Rate = 1};
    }
    return session;
}

int Pattern_Of(Session& session)
{
    Check_Pattern(session.Pesticide, session.Editor, 1);
    return session.Editor.App_Pattern;
}

} // namespace

TEST(Application_Pattern, Twenty_Six_Equal_Applications_Are_One_Every_Year)
{
    const auto session = With_Applications(26);

    EXPECT_EQ(Pattern_Of(*session), 1);
    EXPECT_EQ(session->Editor.App_Per_Year[1], 1);
    EXPECT_EQ(session->Editor.App_Cycles, 26);
}

TEST(Application_Pattern, A_Fraction_Poorly_Exposed_Makes_The_List_Irregular_Even_If_All_Share_It)
{
    const auto one = With_Applications(26);
    one->Pesticide.Applications[1][2].App_Time = 0.5;
    const auto all = With_Applications(26);
    for (auto& application : all->Pesticide.Applications[1])
        application.App_Time = 0.5;

    EXPECT_EQ(Pattern_Of(*one), 0);
    EXPECT_EQ(Pattern_Of(*all), 0);
}

TEST(Application_Pattern, Years_And_Interception_Are_Not_Compared)
{
    const auto session = With_Applications(23);
    session->Pesticide.Applications[1][5].App_Year = 77;
    session->Pesticide.Applications[1][6].App_Frpex = 50;

    EXPECT_EQ(Pattern_Of(*session), 2);
}

TEST(Application_Pattern, The_Count_Is_Divided_By_26_Then_23_Then_22)
{
    const std::pair<int, int> cases[] = {{22, 3}, {44, 3},  {66, 3},  {46, 2}, {52, 1},
                                         {25, 0}, {286, 1}, {506, 2}, {520, 1}};
    for (const auto& [count, pattern] : cases)
        EXPECT_EQ(Pattern_Of(*With_Applications(count, 1)), pattern) << count;
}

TEST(Application_Pattern, Fewer_Than_22_Applications_Are_Irregular_Without_A_Division)
{
    const auto session = With_Applications(21);
    session->Editor.App_Per_Year[1] = 9;

    EXPECT_EQ(Pattern_Of(*session), 0);
    EXPECT_EQ(session->Editor.App_Per_Year[1], 9);
}

TEST(Application_Pattern, Several_Applications_A_Year_Are_Compared_By_Position)
{
    const auto session = With_Applications(52, 2);
    EXPECT_EQ(Pattern_Of(*session), 1);
    EXPECT_EQ(session->Editor.App_Per_Year[1], 2);

    session->Pesticide.Applications[1][52].App_Rate = 2;
    EXPECT_EQ(Pattern_Of(*session), 0);
}

TEST(Application_Pattern, A_Difference_In_Day_Month_Or_Depth_Is_Irregular)
{
    for (const auto change : {0, 1, 2}) {
        const auto session = With_Applications(26);
        auto& application = session->Pesticide.Applications[1][13];
        application.App_Day = static_cast<std::int16_t>(change == 0 ? 9 : application.App_Day);
        application.App_Month = static_cast<std::int16_t>(change == 1 ? 9 : application.App_Month);
        application.App_Depth = change == 2 ? 9 : application.App_Depth;
        EXPECT_EQ(Pattern_Of(*session), 0) << change;
    }
}

TEST(Application_Pattern, The_Relative_Mode_Compares_The_Shared_List)
{
    const auto session = With_Applications(26);
    session->Pesticide.App_Mode = App_Mode_Relative;
    for (std::size_t a = 1; a <= 26; ++a) {
        session->Pesticide.Relative[a] = {.Abs9_Day = -7, .Abs9_Month = 2, .Abs9_Rate = 1};
        session->Pesticide.Applications[1][a].App_Day = static_cast<std::int16_t>(a);
    }
    EXPECT_EQ(Pattern_Of(*session), 1);

    session->Pesticide.Relative[20].Abs9_Day = -8;
    EXPECT_EQ(Pattern_Of(*session), 0);
}

TEST(Application_Pattern, A_Count_Beyond_The_List_Is_Cut_To_It)
{
    const auto session = With_Applications(26);
    session->Pesticide.App_Count[1] = 1e9;

    EXPECT_EQ(Pattern_Of(*session), 0); // 521 is no multiple
}

} // namespace orvel
