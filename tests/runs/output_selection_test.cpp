#include "runs/output_selection.h"

#include <gtest/gtest.h>

namespace orvel {

TEST(Output_Selection, The_Start_Values_Are_Not_The_Recommended_Table_And_Show_As_User_Specific)
{
    const auto start = Start_Output();

    EXPECT_EQ(start[11], (Output_Slot{20, 100, 0}));
    EXPECT_EQ(start[13], (Output_Slot{23, 100, 0}));
    EXPECT_EQ(start[14], Output_Slot{});
    EXPECT_EQ(Option_Of_Output(start), Output_Option::User_Specific);
}

TEST(Output_Selection, The_Recommended_Table_Has_Fifteen_Slots_And_Is_Recognised)
{
    const auto recommended = Recommended_Output();

    EXPECT_EQ(recommended[11], (Output_Slot{14, 5, 0}));
    EXPECT_EQ(recommended[12], (Output_Slot{20, 100, 0}));
    EXPECT_EQ(recommended[14], (Output_Slot{23, 100, 0}));
    EXPECT_EQ(recommended[15], Output_Slot{});
    EXPECT_EQ(Option_Of_Output(recommended), Output_Option::Recommended);
}

TEST(Output_Selection, Only_The_Depths_That_Matter_Decide_About_The_Recommended_Table)
{
    auto other_depth_at_surface = Recommended_Output();
    other_depth_at_surface[0].Out_Depth = 7;
    auto other_depth_of_flux = Recommended_Output();
    other_depth_of_flux[12].Out_Depth = 99;
    auto one_slot_more = Recommended_Output();
    one_slot_more[19].Out_Var = 1;

    EXPECT_EQ(Option_Of_Output(other_depth_at_surface), Output_Option::Recommended);
    EXPECT_EQ(Option_Of_Output(other_depth_of_flux), Output_Option::User_Specific);
    EXPECT_EQ(Option_Of_Output(one_slot_more), Output_Option::User_Specific);
}

TEST(Output_Selection, Leachate_At_One_Metre_In_The_First_Slot_Shows_As_Minimum_Whatever_Follows)
{
    auto more = Minimum_Output();
    more[3] = {.Out_Var = 6, .Out_Depth = 30};
    auto other_depth = Minimum_Output();
    other_depth[0].Out_Depth = 99;

    EXPECT_EQ(Option_Of_Output(Minimum_Output()), Output_Option::Minimum);
    EXPECT_EQ(Option_Of_Output(more), Output_Option::Minimum);
    EXPECT_EQ(Option_Of_Output(other_depth), Output_Option::User_Specific);
}

TEST(Output_Selection, A_Row_Shows_Its_Substance_For_Substance_Quantities_And_Its_Depth_Where_There_Is_One)
{
    EXPECT_FALSE(Substance_Visible(0));
    EXPECT_FALSE(Substance_Visible(7));
    EXPECT_TRUE(Substance_Visible(8));
    EXPECT_TRUE(Substance_Visible(28));
    for (const int without : {0, 1, 2, 4, 5, 8, 9, 10, 11, 12, 13, 21, 22})
        EXPECT_FALSE(Depth_Visible(without)) << without;
    for (const int with : {3, 6, 7, 14, 15, 16, 17, 18, 19, 20, 23, 24, 25, 26, 27, 28})
        EXPECT_TRUE(Depth_Visible(with)) << with;
}

} // namespace orvel
