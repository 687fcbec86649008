#include "scenario/saving.h"

#include "recording_user.h"

#include <gtest/gtest.h>

namespace orvel {

namespace {

struct Scenario_Saving : testing::Test {
    Scenario_Saving()
    {
        Reset_SZE(The_Session.Scenario);
        The_Session.Ask = std::ref(The_User);
    }
    void Horizons(std::initializer_list<Variant> thickness)
    {
        The_Session.Scenario.Horizons.clear();
        for (const auto& t : thickness)
            The_Session.Scenario.Horizons.push_back({.SZE_Hor_Thickness = t});
    }
    Session The_Session;
    Recording_User The_User;
};

const Refusal Not_Consistent{{"Data Check", "Core depth and horizon thickness are not consistent"}, "Text_cor"};

TEST_F(Scenario_Saving, Horizons_That_Add_Up_To_The_Core_Depth_Are_Saved)
{
    Horizons({30, "30", "40.0"});

    EXPECT_EQ(Prepare_Save(The_Session, "3"), std::nullopt);
    EXPECT_EQ(The_Session.Scenario.SZE_Horizons.Number(), 3);
}

TEST_F(Scenario_Saving, A_Hundredth_Of_A_Centimetre_Missing_Is_Refused)
{
    Horizons({30, 30, 39.99});

    EXPECT_EQ(Prepare_Save(The_Session, "3"), Not_Consistent);
}

TEST_F(Scenario_Saving, Only_As_Many_Horizons_As_The_Box_Says_Are_Added_Up)
{
    Horizons({30, 30, 40, 100});

    EXPECT_EQ(Prepare_Save(The_Session, "3"), std::nullopt);
    EXPECT_EQ(Prepare_Save(The_Session, "2"), Not_Consistent);
}

TEST_F(Scenario_Saving, More_Horizons_Than_The_Document_Holds_Are_Refused)
{
    Horizons({100});

    EXPECT_EQ(Prepare_Save(The_Session, "2"), Not_Consistent);
}

TEST_F(Scenario_Saving, Without_Horizons_Nothing_Is_Saved)
{
    const Refusal refusal{{"Data Check", "Insert soil horizon parameters"}, "Text_nhor"};

    EXPECT_EQ(Prepare_Save(The_Session, ""), refusal);
    EXPECT_EQ(Prepare_Save(The_Session, "0"), refusal);
    EXPECT_EQ(Prepare_Save(The_Session, "-1"), refusal);
}

TEST_F(Scenario_Saving, Macropores_End_Above_The_Last_Layer)
{
    Horizons({100});
    The_Session.Scenario.SZE_Layers = 20;
    The_Session.Scenario.SZE_Macro_Depth = 100;

    EXPECT_EQ(Prepare_Save(The_Session, "1"), std::nullopt);

    EXPECT_EQ(The_Session.Scenario.SZE_Macro_Depth, 95);
}

TEST_F(Scenario_Saving, Year_100_Is_Told_Before_It_Would_Be_Cut_In_The_File)
{
    Horizons({100});
    The_Session.Scenario.Rotation = {{.SZE_Har_Day = 1, .SZE_Har_Month = 9, .SZE_Har_Year = 99},
                                     {.SZE_Har_Day = 1, .SZE_Har_Month = 9, .SZE_Har_Year = 100}};

    const auto refusal = Prepare_Save(The_Session, "1");

    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->Control, "Command3");
    EXPECT_EQ(refusal->Text,
              (Message{"Data Check",
                       "Row 2 of the crop rotation: the scenario file has no room for \"Harvest 1.9.100\". Its days, "
                       "months and years have two digits, so year 99 is the last one."}));
    EXPECT_EQ(The_Session.Scenario.Rotation[1].SZE_Har_Year, 100);
}

TEST_F(Scenario_Saving, A_Tillage_Date_Counts_Only_If_The_Crop_Of_Its_Row_Is_Tilled)
{
    const std::vector<Rotation_Row> rows = {{.SZE_Til_Month = -1}};

    EXPECT_EQ(Check_Rotation_Digits(rows, {{.SZE_Rot_Tillage = 0}}), std::nullopt);
    EXPECT_EQ(Check_Rotation_Digits(rows, {{.SZE_Rot_Tillage = 0}, {.SZE_Rot_Tillage = 1}}), std::nullopt);
    EXPECT_TRUE(Check_Rotation_Digits(rows, {{.SZE_Rot_Tillage = 1}}));
}

TEST_F(Scenario_Saving, Dates_Of_Tillage_That_The_Layout_Does_Not_Write_Are_Told)
{
    Horizons({100});
    The_Session.Scenario.Crops = {{}, {.SZE_Rot_Tillage = 1}};
    The_Session.Scenario.SZE_Crop_Count = 2;
    The_Session.Scenario.Rotation = {{.SZE_Rot_Crop_Index = 2}};
    The_Session.Scenario.SZE_Rot_Count = 1; // the second crop lies behind the one that counts

    EXPECT_EQ(Prepare_Save(The_Session, "1"), std::nullopt);

    ASSERT_EQ(The_User.Messages.size(), 1U);
    EXPECT_EQ(The_User.Messages[0].Text, "A rotation of 1 row is saved with its dates of tillage and senescence only "
                                         "if the first crop of the data base is tilled. They will not be in the file.");
}

TEST_F(Scenario_Saving, Dates_Of_Tillage_That_Are_Written_Or_Not_Used_Are_Not_Told)
{
    Horizons({100});
    The_Session.Scenario.Crops = {{}, {.SZE_Rot_Tillage = 1}};
    The_Session.Scenario.SZE_Crop_Count = 2;
    The_Session.Scenario.Rotation = {{.SZE_Rot_Crop_Index = 2}, {.SZE_Rot_Crop_Index = 1}};
    The_Session.Scenario.SZE_Rot_Count = 2;
    EXPECT_EQ(Prepare_Save(The_Session, "1"), std::nullopt);

    The_Session.Scenario.Rotation = {{.SZE_Rot_Crop_Index = 1}};
    The_Session.Scenario.SZE_Rot_Count = 1;
    EXPECT_EQ(Prepare_Save(The_Session, "1"), std::nullopt);

    EXPECT_TRUE(The_User.Messages.empty());
}

TEST_F(Scenario_Saving, The_Horizon_Grid_Needs_A_Number_Of_Horizons)
{
    EXPECT_EQ(Check_Open_Horizons(""), (Refusal{{"Data check", "Insert number of horizons"}, "Text_nhor"}));
    EXPECT_EQ(Check_Open_Horizons("2"), std::nullopt);
}

TEST_F(Scenario_Saving, A_Form_Without_Changes_Closes_At_Once)
{
    EXPECT_TRUE(May_Close(The_Session, false));
    EXPECT_TRUE(The_User.Messages.empty());
}

TEST_F(Scenario_Saving, A_Form_With_Changes_Asks_And_Stays_By_Default)
{
    EXPECT_FALSE(May_Close(The_Session, true));
    EXPECT_EQ(The_User.Messages, std::vector{(Message{"Saving Input File",
                                                      "Parameters were changed. Do you want to exit without saving ?",
                                                      Icon::Question,
                                                      {Button::Yes, Button::No},
                                                      Button::No})});

    The_User.Answers = {Button::Yes};
    EXPECT_TRUE(May_Close(The_Session, true));
}

} // namespace

} // namespace orvel
