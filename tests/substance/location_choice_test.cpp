#include "substance/location_choice.h"

#include <gtest/gtest.h>

namespace orvel {

namespace {

struct Location_Choice : testing::Test {
    Location_Choice()
    {
        Reset_PSM(The_Session.Pesticide);
        List = {" User specific", "Hamburg (H)", "Piacenza (P)", "Porto (O)"};
        for (std::size_t l = 1; l <= 3; ++l) {
            const auto number = static_cast<std::int16_t>(l);
            The_Session.Editor.App_Per_Year[l] = number;
            The_Session.Pesticide.App_Count[l] = 26 * number;
            The_Session.Pesticide.Applications[l][1] = {number,       number,        number,        0.1 * number,
                                                        2.0 * number, 10.0 * number, 0.01 * number, number};
        }
    }
    std::optional<std::size_t> Choose(const std::vector<std::string>& selected)
    {
        return Choose_Locations(The_Session, List, Offered_Locations(), selected);
    }

    Session The_Session;
    std::vector<std::string> List;
};

TEST_F(Location_Choice, Nine_Leaching_Locations_Are_Offered)
{
    EXPECT_EQ(Offered_Locations(),
              (std::vector<std::string>{"Ch\xE2teaudun (C)", "Hamburg (H)", "Jokioinen (J)", "Kremsm\xFCnster (K)",
                                        "Okehampton (N)", "Piacenza (P)", "Porto (O)", "Sevilla (S)", "Thiva (T)"}));
}

TEST_F(Location_Choice, Six_Soil_Locations_Are_Offered_For_Every_Crop)
{
    for (const auto crop : Soil_Crops) {
        const auto offered = Offered_Soil_Locations(crop);
        ASSERT_EQ(offered.size(), 6U);
        EXPECT_EQ(offered.front(), "Total content - North (T_N)");
        EXPECT_EQ(offered.back(), "Porewater concentration - South (P_S)");
        for (const auto& name : offered)
            EXPECT_NE(name.find('_'), std::string::npos); // what tells them from leaching locations
    }
    EXPECT_TRUE(Offered_Soil_Locations("").empty());
}

TEST_F(Location_Choice, Deleting_The_Second_Of_Three_Locations_Moves_The_Third_To_Index_2)
{
    EXPECT_EQ(Choose({"Hamburg (H)", "Porto (O)"}), 2U);

    EXPECT_EQ(List, (std::vector<std::string>{" User specific", "Hamburg (H)", "Porto (O)"}));
    EXPECT_EQ(The_Session.Editor.App_Per_Year[2], 3);
    EXPECT_EQ(The_Session.Pesticide.App_Count[2], Variant(78));
    EXPECT_EQ(The_Session.Pesticide.Applications[2][1], (Application{3, 3, 3, 0.1 * 3, 6, 30, 0.01 * 3, 3}));
    EXPECT_EQ(The_Session.Pesticide.Applications[1][1].App_Day, 1);
    EXPECT_TRUE(The_Session.Program.PSM_Changed);
}

TEST_F(Location_Choice, A_Later_Location_Does_Not_Meet_The_Applications_Of_A_Removed_One)
{
    Choose({"Hamburg (H)", "Piacenza (P)"});
    EXPECT_EQ(Choose({"Hamburg (H)", "Piacenza (P)", "Thiva (T)"}), 3U);

    EXPECT_EQ(List.back(), "Thiva (T)");
    EXPECT_EQ(The_Session.Editor.App_Per_Year[3], 1);
    EXPECT_EQ(The_Session.Pesticide.App_Count[3], Variant(26));
    EXPECT_EQ(The_Session.Pesticide.Applications[3][1].App_Rate, 0);
}

TEST_F(Location_Choice, New_Locations_Are_Appended_With_One_Application_A_Year_And_The_Last_Is_Selected)
{
    The_Session.Editor.App_Per_Year[4] = 7;

    EXPECT_EQ(Choose({"Ch\xE2teaudun (C)", "Hamburg (H)", "Piacenza (P)", "Porto (O)", "Sevilla (S)"}), 5U);

    EXPECT_EQ(List[4], "Ch\xE2teaudun (C)");
    EXPECT_EQ(List[5], "Sevilla (S)");
    EXPECT_EQ(The_Session.Editor.App_Per_Year[4], 1);
}

TEST_F(Location_Choice, Add_All_And_Delete_All_Reach_Both_Ends)
{
    EXPECT_EQ(Choose(Offered_Locations()), 9U);
    EXPECT_EQ(List.size(), 10U);

    EXPECT_EQ(Choose({}), 0U);
    EXPECT_EQ(List, std::vector<std::string>{" User specific"});
}

TEST_F(Location_Choice, An_Unchanged_Choice_Changes_Nothing)
{
    const auto before = The_Session.Pesticide;

    EXPECT_EQ(Choose({"Hamburg (H)", "Piacenza (P)", "Porto (O)"}), std::nullopt);

    EXPECT_EQ(The_Session.Pesticide, before);
    EXPECT_FALSE(The_Session.Program.PSM_Changed);
}

TEST_F(Location_Choice, A_Location_That_Is_Not_Offered_Stays)
{
    List[2] = "Elsewhere (X)";

    Choose({"Hamburg (H)", "Porto (O)"});

    EXPECT_EQ(List, (std::vector<std::string>{" User specific", "Hamburg (H)", "Elsewhere (X)", "Porto (O)"}));
}

TEST_F(Location_Choice, No_More_Than_Nine_Locations_Are_Listed)
{
    List = {" User specific", "a", "b", "c", "d", "e", "f", "g", "h"};

    Choose({"Hamburg (H)", "Porto (O)"});

    EXPECT_EQ(List.size(), 10U);
}

} // namespace

} // namespace orvel
