#include "core/output_variables.h"

#include <gtest/gtest.h>

namespace orvel {

TEST(Output_Variables, Have_Codes_Of_Four_And_Scales_Of_Eight_Characters)
{
    for (const auto& variable : Output_Variables) {
        EXPECT_EQ(variable.Out_Code.size(), 4U);
        EXPECT_EQ(variable.Out_Scale.size(), 8U);
    }
}

TEST(Output_Variables, Are_Scaled_By_Their_Kind)
{
    for (const int number : {0, 1, 7})
        EXPECT_EQ(Output_Variables[static_cast<std::size_t>(number)].Out_Scale, "    1.0 ");
    for (const int number : {8, 13, 17, 22})
        EXPECT_EQ(Output_Variables[static_cast<std::size_t>(number)].Out_Scale, " 1.0E05 ");
    for (const int number : {14, 15, 16, 24, 28})
        EXPECT_EQ(Output_Variables[static_cast<std::size_t>(number)].Out_Scale, " 1.0E06 ");
    EXPECT_EQ(Output_Variables[23].Out_Scale, " 1.0E09 ");
}

TEST(Output_Variables, Keep_Their_Names_Letter_For_Letter)
{
    EXPECT_EQ(Output_Variables[4].Out_Label, "Runoff ");
    EXPECT_EQ(Output_Variables[18].Out_Label, "Degradation in equilbrium domain");
    EXPECT_EQ(Output_Variables[7].Out_Unit[0], "(\xB0"
                                               "C)");
}

TEST(Output_Variables, Have_The_Numbers_That_Their_Codes_Name)
{
    EXPECT_EQ(Output_Variables[Variable::PRSN].Out_Code, "PRSN");
    EXPECT_EQ(Output_Variables[Variable::TPAP].Out_Code, "TPAP");
    EXPECT_EQ(Output_Variables[Variable::LEAC].Out_Code, "LEAC");
    EXPECT_EQ(Output_Variables[Variable::TPSC].Out_Code, "TPSC");
    EXPECT_EQ(Output_Variables[Variable::SPSC].Out_Code, "SPSC");
}

TEST(Output_Variables, From_8_On_Belong_To_A_Substance_And_23_Is_The_Concentration_Of_A_Flow)
{
    for (int number = 0; number <= Last_Output_Variable; ++number) {
        EXPECT_EQ(Output_Variable_Of(number).Has_Substance, number >= 8) << number;
        EXPECT_EQ(Output_Variable_Of(number).Kind == Quantity::Flow_Concentration, number == 23) << number;
    }
}

TEST(Output_Variables, A_Number_Beyond_The_Table_Counts_As_Its_Nearest)
{
    EXPECT_EQ(Output_Variable_Of(-1).Out_Code, "    ");
    EXPECT_EQ(Output_Variable_Of(29).Out_Code, "SPSC");
}

TEST(Output_Variable_Number, Finds_A_Code_And_Gives_Zero_For_An_Unknown_One)
{
    EXPECT_EQ(Output_Variable_Number("PRSN"), 1);
    EXPECT_EQ(Output_Variable_Number("SPSC"), 28);
    EXPECT_EQ(Output_Variable_Number("    "), 0);
    EXPECT_EQ(Output_Variable_Number("prsn"), 0);
}

} // namespace orvel
