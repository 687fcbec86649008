#include "substance/location_lists.h"

#include "application_session.h"
#include "substance/location_choice.h"

namespace orvel {

namespace {

constexpr const char* North = "Total content - North (T_N)";
constexpr const char* Central = "Total content - Central (T_C)";

class Location_Lists_Of_A_Document : public Application_Session {
protected:
    // Blocks 1 and up with these names; block l has the rate l.
    void Named(std::initializer_list<const char*> names)
    {
        int l = 1;
        for (const auto* name : names) {
            Document.App_Location[l] = name;
            Document.Applications[l][1].App_Rate = l;
            Document.App_Count[l] = 26 + l;
            The_Session.Editor.App_Per_Year[l] = static_cast<std::int16_t>(l);
            ++l;
        }
    }

    double Rate(int l) const { return Document.Applications[l][1].App_Rate; }
};

} // namespace

TEST_F(Location_Lists_Of_A_Document, Begin_With_User_Specific_And_Show_The_Leaching_Locations_Of_A_New_One)
{
    EXPECT_EQ(Load_Location_Lists(The_Session), (Location_Lists{{" User specific"}, {" User specific"}, false}));
}

TEST_F(Location_Lists_Of_A_Document, Tell_Soil_Zones_By_Their_Underscore)
{
    Named({North, Central});

    EXPECT_EQ(Load_Location_Lists(The_Session),
              (Location_Lists{{" User specific"}, {" User specific", North, Central}, true}));
}

TEST_F(Location_Lists_Of_A_Document, That_Mixes_Both_Show_The_Kind_Of_The_Last_Name_And_Keep_Every_Block_With_Its_Entry)
{
    Named({"Hamburg (H)", North, "Sevilla (S)"});

    const auto lists = Load_Location_Lists(The_Session);

    EXPECT_EQ(lists,
              (Location_Lists{{" User specific", "Hamburg (H)", "Sevilla (S)"}, {" User specific", North}, false}));
    EXPECT_EQ(Rate(2), 3);
    EXPECT_EQ(Document.App_Count[2], Variant(29));
    EXPECT_EQ(The_Session.Editor.App_Per_Year[2], 3);
    EXPECT_EQ(Document.App_Location[2], "Sevilla (S)");
    EXPECT_EQ(Rate(3), 2); // the soil zone's block stands behind
    EXPECT_EQ(Document.App_Location[3], North);
}

TEST_F(Location_Lists_Of_A_Document, Leave_No_Gap_Where_A_Name_Is_Missing)
{
    Named({"Hamburg (H)", "", "Sevilla (S)"});

    EXPECT_EQ(Load_Location_Lists(The_Session).Standort,
              (std::vector<std::string>{" User specific", "Hamburg (H)", "Sevilla (S)"}));
    EXPECT_EQ(Rate(2), 3);
}

TEST_F(Location_Lists_Of_A_Document, Select_The_Location_Under_Edit_If_They_Are_Long_Enough)
{
    Named({"Hamburg (H)"});
    const auto lists = Load_Location_Lists(The_Session);

    EXPECT_EQ(Selected_Location(The_Session.Editor, lists), 1);
    The_Session.Editor.App_Current_Location = 2;
    EXPECT_EQ(Selected_Location(The_Session.Editor, lists), std::nullopt);
}

TEST_F(Location_Lists_Of_A_Document, Give_It_The_Names_Of_The_Visible_One)
{
    Named({"Hamburg (H)", "Sevilla (S)"});

    Store_Location_Names(Document, {{" User specific", "Hamburg (H)", "Sevilla (S)"}, {" User specific", North}, true});

    EXPECT_EQ(Document.App_Location[1], North);
    EXPECT_EQ(Document.App_Location[2], "");
}

TEST_F(Location_Lists_Of_A_Document, Lose_A_Location_With_Its_Block_And_Move_The_Later_Ones_Down)
{
    Named({"Hamburg (H)", "Porto (O)", "Sevilla (S)"});
    auto lists = Load_Location_Lists(The_Session);

    EXPECT_EQ(Take_Chosen_Locations(The_Session, lists, false, Offered_Locations(), {"Hamburg (H)", "Sevilla (S)"}), 2);

    EXPECT_EQ(lists.Standort, (std::vector<std::string>{" User specific", "Hamburg (H)", "Sevilla (S)"}));
    EXPECT_EQ(Rate(2), 3);
    EXPECT_EQ(Document.App_Count[2], Variant(29));
}

TEST_F(Location_Lists_Of_A_Document, Show_The_Kind_That_Grew)
{
    Named({"Hamburg (H)"});
    auto lists = Load_Location_Lists(The_Session);

    EXPECT_EQ(Take_Chosen_Locations(The_Session, lists, true, Offered_Soil_Locations("Tobacco"), {North}), 1);

    EXPECT_TRUE(lists.EFSA_Visible);
    EXPECT_EQ(lists.Standort_EFSA, (std::vector<std::string>{" User specific", North}));
    EXPECT_EQ(The_Session.Editor.App_Per_Year[1], 1);
}

TEST_F(Location_Lists_Of_A_Document, Stay_As_They_Are_When_Nothing_Is_Chosen_Anew)
{
    Named({"Hamburg (H)", "Sevilla (S)"});
    auto lists = Load_Location_Lists(The_Session);
    const auto before = lists;

    EXPECT_EQ(Take_Chosen_Locations(The_Session, lists, true, Offered_Soil_Locations("Tobacco"), {}), 1);
    EXPECT_EQ(lists, before);
    EXPECT_EQ(Take_Chosen_Locations(The_Session, lists, false, Offered_Locations(), {"Hamburg (H)", "Sevilla (S)"}), 1);
    EXPECT_EQ(lists, before);
}

TEST_F(Location_Lists_Of_A_Document, Lose_An_Entry_Of_The_Hidden_One_Without_Moving_A_Block)
{
    Named({North, "Hamburg (H)", "Sevilla (S)"});
    auto lists = Load_Location_Lists(The_Session);

    EXPECT_EQ(Take_Chosen_Locations(The_Session, lists, true, Offered_Soil_Locations("Tobacco"), {}), 1);

    EXPECT_EQ(lists.Standort_EFSA.size(), 1U);
    EXPECT_FALSE(lists.EFSA_Visible);
    EXPECT_EQ(Rate(1), 2); // Hamburg, first of the visible list since the load
    EXPECT_EQ(Rate(2), 3);
}

} // namespace orvel
