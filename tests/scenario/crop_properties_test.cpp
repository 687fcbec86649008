#include "scenario/crop_properties.h"

#include "recording_user.h"
#include "scenario/crop_rotation.h"

#include <gtest/gtest.h>

#include <set>

namespace orvel {

namespace {

struct Crop_Properties : testing::Test {
    Crop_Properties()
    {
        The_Session.Ask = std::ref(The_User);
        Work.Data_Base = {{"Maize", {.SZE_Rot_Text1 = 80, .SZE_Rot_Residue = 3, .SZE_Rot_Kc_Mid = 1.2}, {}, 0},
                          {"Potatoes", {.SZE_Rot_Text1 = 60, .SZE_Rot_Tillage = 0}, {}, 0}};
        for (const auto& crop : Work.Data_Base)
            Work.Crops.push_back(Crop_Defaults(crop));
        for (const std::int16_t crop : std::initializer_list<std::int16_t>{2, 1, 2})
            Work.Rows.push_back({.SZE_Rot_Crop_Index = crop});
    }
    Session The_Session;
    Recording_User The_User;
    Rotation_Work Work;
};

TEST_F(Crop_Properties, A_Crop_That_Occurs_Twice_Is_Listed_Once_In_The_Order_Of_The_Rotation)
{
    const auto editor = Edit_Crops(Work);

    ASSERT_EQ(editor.Crops.size(), 2U);
    EXPECT_EQ(editor.Crops[0].Name, "Potatoes");
    EXPECT_EQ(editor.Crops[1].Name, "Maize");
    EXPECT_FALSE(editor.Tillage_Modified);
}

TEST_F(Crop_Properties, One_Set_Of_Properties_Serves_Both_Rows)
{
    auto editor = Edit_Crops(Work);
    Set_Crop_Text(editor.Crops[0].Properties, "Text1", "55");

    EXPECT_TRUE(Confirm_Crops(The_Session, editor, Work));

    EXPECT_EQ(Work.Crops[1].SZE_Rot_Text1, Variant("55"));
    EXPECT_EQ(Work.Rows.size(), 3U);
    EXPECT_TRUE(The_User.Messages.empty());
    EXPECT_EQ(Edit_Crops(Work).Crops[0].Properties.SZE_Rot_Text1, Variant("55"));
}

TEST_F(Crop_Properties, Every_Box_Edits_A_Field_Of_Its_Own)
{
    Crop_Row crop;
    int number = 0;
    for (const auto box : Crop_Boxes())
        Set_Crop_Text(crop, box, std::to_string(++number));

    std::set<std::string> shown;
    for (const auto box : Crop_Boxes())
        shown.insert(Crop_Text(crop, box));
    EXPECT_EQ(shown.size(), 16U);

    Set_Crop_Text(crop, "Text2", "0.15");
    Set_Crop_Text(crop, "Text3", "90");
    Set_Crop_Text(crop, "Text4", "1.4");
    Set_Crop_Text(crop, "text_rrppex", "0.3");
    Set_Crop_Text(crop, "text_rrrpex", "0.4");
    Set_Crop_Text(crop, "Text_KC2", "0.6");
    Set_Crop_Text(crop, "Text_cn2", "71");
    EXPECT_EQ(crop.SZE_Rot_Text2, Variant("0.15"));
    EXPECT_EQ(crop.SZE_Rot_Interception, Variant("90"));
    EXPECT_EQ(crop.SZE_Rot_Dry_Mass, 1.4);
    EXPECT_EQ(crop.SZE_Rot_RR_Photo, 0.3);
    EXPECT_EQ(crop.SZE_Rot_RR_Pen, 0.4);
    EXPECT_EQ(crop.SZE_Rot_Kc_Late, 0.6);
    EXPECT_EQ(crop.SZE_Rot_CN2, 71);
}

TEST_F(Crop_Properties, Default_Values_Come_From_The_Data_Base_And_The_Fixed_Numbers_And_Keep_The_Tillage_Flag)
{
    auto editor = Edit_Crops(Work);
    auto& maize = editor.Crops[1];
    maize.Properties = {.SZE_Rot_Text1 = 1, .SZE_Rot_CN1 = 1, .SZE_Rot_USLE1 = 0.5, .SZE_Rot_Tillage = 1};

    Reset_Crop(maize, Work);

    EXPECT_EQ(maize.Properties.SZE_Rot_Text1, Variant(80));
    EXPECT_EQ(maize.Properties.SZE_Rot_Residue, 3);
    EXPECT_EQ(maize.Properties.SZE_Rot_Kc_Mid, 1.2);
    EXPECT_EQ(maize.Properties.SZE_Rot_CN1, 78);
    EXPECT_EQ(maize.Properties.SZE_Rot_CN2, 70);
    EXPECT_EQ(maize.Properties.SZE_Rot_CN3, 74);
    EXPECT_EQ(maize.Properties.SZE_Rot_USLE1, Variant(1));
    EXPECT_EQ(maize.Properties.SZE_Rot_USLE3, Variant(1));
    EXPECT_EQ(maize.Properties.SZE_Rot_Tillage, 1);
}

TEST_F(Crop_Properties, Default_Values_Of_A_Tilled_Crop_Do_Not_Force_The_Question)
{
    Work.Crops[1].SZE_Rot_Tillage = 1;
    auto editor = Edit_Crops(Work);
    Reset_Crop(editor.Crops[0], Work);

    EXPECT_TRUE(Confirm_Crops(The_Session, editor, Work));

    EXPECT_TRUE(The_User.Messages.empty());
    EXPECT_EQ(Work.Crops[1].SZE_Rot_Tillage, 1);
}

TEST_F(Crop_Properties, A_Modified_Tillage_Flag_Removes_The_Rotation_If_The_User_Agrees)
{
    auto editor = Edit_Crops(Work);
    Choose_Tillage(editor, 0, 1);
    The_User.Answers = {Button::Yes};

    EXPECT_TRUE(Confirm_Crops(The_Session, editor, Work));

    ASSERT_EQ(The_User.Messages.size(), 1U);
    EXPECT_EQ(The_User.Messages[0].Text,
              "You modified the tillage flag. The crop rotation will be removed. Do you agree?");
    EXPECT_EQ(The_User.Messages[0].Buttons, (std::vector{Button::Yes, Button::No}));
    EXPECT_TRUE(Work.Rows.empty());
    EXPECT_EQ(Work.Crops[1].SZE_Rot_Tillage, 1);
}

TEST_F(Crop_Properties, A_User_Who_Does_Not_Agree_Keeps_Rotation_And_Properties_And_The_Form_Stays)
{
    auto editor = Edit_Crops(Work);
    Choose_Tillage(editor, 0, 1);
    Set_Crop_Text(editor.Crops[0].Properties, "Text1", "55");
    The_User.Answers = {Button::No};

    EXPECT_FALSE(Confirm_Crops(The_Session, editor, Work));

    EXPECT_EQ(Work.Rows.size(), 3U);
    EXPECT_EQ(Work.Crops[1].SZE_Rot_Tillage, 0);
    EXPECT_EQ(Work.Crops[1].SZE_Rot_Text1, Variant(60));
}

TEST_F(Crop_Properties, Before_They_Are_Confirmed_All_But_The_Tillage_Flag_Are_Kept)
{
    auto editor = Edit_Crops(Work);
    Set_Crop_Text(editor.Crops[0].Properties, "Text1", "55");
    Choose_Tillage(editor, 0, 1);

    const auto entered = With_Properties(Work, editor);

    EXPECT_EQ(entered.Crops[1].SZE_Rot_Text1, Variant("55"));
    EXPECT_EQ(entered.Crops[1].SZE_Rot_Tillage, 0);
    EXPECT_EQ(entered.Rows, Work.Rows);
}

TEST_F(Crop_Properties, The_Same_Tillage_Flag_Set_Again_Counts_As_Modified)
{
    auto editor = Edit_Crops(Work);

    Choose_Tillage(editor, 0, 0);

    EXPECT_TRUE(editor.Tillage_Modified);
}

TEST_F(Crop_Properties, Options_And_The_Condition_After_Harvest_Store_Their_Index)
{
    Crop_Row crop;

    Choose_Condition(crop, 2);
    Choose_Irrigated(crop, 0);
    Choose_Perennial(crop, 1);

    EXPECT_EQ(crop.SZE_Rot_Residue, 3); // "Residues"
    EXPECT_EQ(crop.SZE_Rot_Irrigated, 0);
    EXPECT_EQ(crop.SZE_Rot_Perennial, 1);
}

TEST_F(Crop_Properties, A_Value_Beyond_Its_Limit_Is_Warned_Of_And_The_Limit_Itself_Passes)
{
    for (const auto* box : {"Text_KC1", "Text_KC2"}) {
        EXPECT_EQ(Check_Crop_Text(box, "-0.1"),
                  (Refusal{{"DATA CHECK", "Minimum value for this parameter is 0.0"}, box}));
        EXPECT_EQ(Check_Crop_Text(box, "0"), std::nullopt);
    }
    for (const auto* box : {"text_rrppex", "text_rrrpex", "text_rrvpex", "text_rrwpex"}) {
        EXPECT_EQ(Check_Crop_Text(box, "1.1"),
                  (Refusal{{"DATA CHECK", "Maximum value for this parameter is 1.0"}, box}));
        EXPECT_EQ(Check_Crop_Text(box, "1"), std::nullopt);
    }
    EXPECT_EQ(Check_Crop_Text("Text3", "101"), (Refusal{{"DATA CHECK", "Value must not exceed 100%"}, "Text3"}));
    EXPECT_EQ(Check_Crop_Text("Text3", "100"), std::nullopt);
    EXPECT_EQ(Check_Crop_Text("Text1", "-5"), std::nullopt);
    EXPECT_EQ(Check_Crop_Text("Text1", "1e308"),
              (Refusal{{"Data check", "\"1e308\" is too large a number."}, "Text1"}));
}

} // namespace

} // namespace orvel
