#include "scenario/scenario_fields.h"
#include "scenario/scenario_view.h"

#include <gtest/gtest.h>

namespace orvel {

namespace {

struct Scenario_Fields : testing::Test {
    Scenario_Fields()
    {
        Reset_SZE(The_Session.Scenario);
        The_Session.Scenario.SZE_Layers = 20;
        The_Session.Scenario.SZE_Horizons = 3;
        The_Session.Scenario.Horizons.resize(3);
    }
    std::optional<Refusal> Leave(std::string_view control, std::string_view text)
    {
        return Leave_Field(The_Session, control, text);
    }

    Session The_Session;
};

Refusal Data_Check(const std::string& text, const std::string& control)
{
    return {{"Data Check", text}, control};
}

TEST_F(Scenario_Fields, A_Text_Left_Unchanged_Leaves_The_Document_As_It_Is)
{
    const auto before = The_Session.Scenario;

    for (const auto box : Scenario_Boxes())
        EXPECT_EQ(Leave(box, Field_Text(The_Session.Scenario, box)), std::nullopt) << box;

    EXPECT_EQ(The_Session.Scenario, before);
    EXPECT_FALSE(The_Session.Program.SZE_Changed);
}

TEST_F(Scenario_Fields, Every_Box_Stores_Its_Own_Field)
{
    for (const auto box : Scenario_Boxes()) {
        Leave(box, "7");
        EXPECT_EQ(Field_Text(The_Session.Scenario, box), "7") << box;
        Leave(box, "8");
    }

    const auto& document = The_Session.Scenario;
    EXPECT_EQ(document.SZE_Title, "8");
    EXPECT_EQ(document.SZE_Core_Depth, 8);
    EXPECT_EQ(document.SZE_Layers, 8);
    EXPECT_EQ(document.SZE_Horizons, Variant("8"));
    EXPECT_EQ(document.SZE_Latitude, 8);
    EXPECT_EQ(document.SZE_Snow_Factor, Variant("8"));
    EXPECT_EQ(document.SZE_ET_Depth, 8);
    EXPECT_EQ(document.SZE_Kc[0][0], 8);
    EXPECT_EQ(document.SZE_Kc[1][0], 8);
    EXPECT_EQ(document.SZE_Kc[2][0], 8);
    EXPECT_EQ(document.SZE_Runoff_Depth, 8);
    EXPECT_EQ(document.SZE_Macro_Depth, 8);
    EXPECT_EQ(document.SZE_DOC_Content, 8);
    EXPECT_EQ(document.SZE_Out_Every_Water, Variant("8"));
    EXPECT_EQ(document.SZE_Out_Every_Solute, Variant("8"));
    EXPECT_EQ(document.SZE_Out_Every_Conc, Variant("8"));
    EXPECT_TRUE(The_Session.Program.SZE_Changed);
}

TEST_F(Scenario_Fields, The_Uptake_Factor_Only_Marks_The_Document_Changed)
{
    const auto before = The_Session.Scenario;

    EXPECT_EQ(Leave("Text_peup", "0.5"), std::nullopt);

    EXPECT_EQ(The_Session.Scenario, before);
    EXPECT_TRUE(The_Session.Program.SZE_Changed);
}

TEST_F(Scenario_Fields, A_Core_Depth_Must_Be_Above_0)
{
    EXPECT_EQ(Leave("Text_cor", "0"), Data_Check("Value must be greater than 0", "Text_cor"));
    EXPECT_EQ(Leave("Text_cor", "deep"), Data_Check("Value must be greater than 0", "Text_cor"));
    EXPECT_EQ(Leave("Text_cor", "0.5"), std::nullopt);
}

TEST_F(Scenario_Fields, A_Text_That_Is_No_Number_Reads_As_Its_Numeric_Start)
{
    Leave("Text_cor", "80 cm");

    EXPECT_EQ(The_Session.Scenario.SZE_Core_Depth, 80);
}

TEST_F(Scenario_Fields, Four_Hundred_Layers_Are_Accepted_And_One_More_Refused)
{
    EXPECT_EQ(Leave("Text_num", "400"), std::nullopt);
    EXPECT_EQ(Leave("Text_num", "401"), Data_Check("Value must be smaller than 401", "Text_num"));
    EXPECT_EQ(Leave("Text_num", "1E9"), Data_Check("Value must be smaller than 401", "Text_num"));
}

TEST_F(Scenario_Fields, Two_Layers_With_Three_Horizons_Are_Refused_By_Both_Boxes)
{
    const auto refusal = Data_Check("Number of layers must be at least 3 (number of horizons)", "Text_num");

    EXPECT_EQ(Leave("Text_num", "2"), refusal);
    EXPECT_EQ(Leave("Text_nhor", "3"), refusal);
}

TEST_F(Scenario_Fields, A_Refused_Value_Is_Tested_Again_When_The_Box_Is_Left_Again)
{
    Leave("Text_num", "401");

    EXPECT_EQ(Leave("Text_num", "401"), Data_Check("Value must be smaller than 401", "Text_num"));
}

TEST_F(Scenario_Fields, A_Number_Of_Layers_Is_Whole)
{
    Leave("Text_num", "12.5");

    EXPECT_EQ(The_Session.Scenario.SZE_Layers, 13);
}

TEST_F(Scenario_Fields, Less_Than_One_Horizon_Is_Refused_With_A_Text_That_Names_1_As_Too_Small)
{
    EXPECT_EQ(Leave("Text_nhor", "0"), Data_Check("Value must be greater than 1", "Text_nhor"));
    EXPECT_EQ(Leave("Text_nhor", "1"), std::nullopt);
}

TEST_F(Scenario_Fields, More_Than_400_Horizons_Are_Refused_Before_Their_Layers_Are_Counted)
{
    EXPECT_EQ(Leave("Text_nhor", "401"), Data_Check("Value must be smaller than 401", "Text_nhor"));
    EXPECT_LE(The_Session.Scenario.Horizons.size(), 400U);
}

TEST_F(Scenario_Fields, A_Smaller_Number_Of_Horizons_Typed_By_Mistake_Loses_No_Horizon)
{
    The_Session.Scenario.Horizons[2].SZE_Hor_Thickness = 40;

    Leave("Text_nhor", "1");
    Leave("Text_nhor", "3");

    EXPECT_EQ(The_Session.Scenario.Horizons[2].SZE_Hor_Thickness, Variant(40));
}

TEST_F(Scenario_Fields, A_Greater_Number_Of_Horizons_Makes_Room_For_Them)
{
    Leave("Text_nhor", "5");

    EXPECT_EQ(The_Session.Scenario.Horizons.size(), 5U);
}

TEST_F(Scenario_Fields, An_Output_For_Every_0th_Layer_Is_Refused_With_A_Text_That_Names_0_As_Allowed)
{
    for (const auto* box : {"Text1_freq", "Text2_freq", "Text3_freq"}) {
        EXPECT_EQ(Leave(box, "0"), Data_Check("Value must be between 0 and 20", box));
        EXPECT_EQ(Leave(box, "21"), Data_Check("Value must be between 0 and 20", box));
        EXPECT_EQ(Leave(box, "20"), std::nullopt);
    }
}

TEST_F(Scenario_Fields, The_Thickness_Of_A_Layer_Has_Two_Decimals)
{
    Leave("Text_cor", "100");
    Leave("Text_num", "3");

    EXPECT_EQ(View_Of(The_Session.Scenario).Thickness, "33.33");
}

TEST_F(Scenario_Fields, Without_Layers_There_Is_No_Thickness)
{
    Leave("Text_num", "0");

    EXPECT_EQ(View_Of(The_Session.Scenario).Thickness, "");
}

} // namespace

} // namespace orvel
