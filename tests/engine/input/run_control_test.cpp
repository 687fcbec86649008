#include "engine/input/run_control.h"

#include <gtest/gtest.h>

namespace orvel::engine {

namespace {

constexpr std::string_view Soil_Control = "002 01 01 31 12 Version 5          SOIL 1.5 \r\n"
                                          "..\\..\\..\\T_N_maize.sze\r\n"
                                          "test.psm\r\n"
                                          "a.cli\r\n"
                                          "b.cli\r\n"
                                          "00000001    5.000000001\r\n"
                                          "    LEAC    TSER  100.0  1.0E09 00000002\r\n"
                                          "    TPSC    TSER  020.0  1.0E06 00000001\r\n";

} // namespace

TEST(Run_Control, Reads_All_Parts)
{
    Findings findings;
    const Run_Control control = Read_Run_Control(Soil_Control, findings);

    EXPECT_FALSE(findings.Failed());
    EXPECT_EQ(control.Years, 2);
    EXPECT_EQ(control.End_Month, 12);
    EXPECT_TRUE(control.Soil_Mode);
    EXPECT_EQ(control.Temperature_Shift, 1.5);
    EXPECT_EQ(control.Scenario_File, "..\\..\\..\\T_N_maize.sze");
    EXPECT_EQ(control.Climate_Files, (std::vector<std::string>{"a.cli", "b.cli"}));
    EXPECT_EQ(control.Tillage_Depth, 5);
    EXPECT_EQ(control.Profile_Rows, 1);
    ASSERT_EQ(control.Rows.size(), 2U);
    EXPECT_EQ(control.Rows[0], (Output_Row{23, "LEAC", 100, 1e9, "1.0E09", 2}));
    EXPECT_EQ(control.Rows[1], (Output_Row{25, "TPSC", 20, 1e6, "1.0E06", 1}));
}

TEST(Run_Control, The_Count_Line_Has_Four_Forms)
{
    EXPECT_EQ(Read_Count_Line("00000015 00."), (Count_Line{15, 0, 0}));
    EXPECT_EQ(Read_Count_Line("00000015 20."), (Count_Line{15, 0, 20}));
    EXPECT_EQ(Read_Count_Line("00000015    5.000000040"), (Count_Line{15, 40, 5}));
    EXPECT_EQ(Read_Count_Line("0000001500000040"), (Count_Line{15, 40, 0}));
    EXPECT_EQ(Read_Count_Line("00000015"), (Count_Line{15, 0, 0}));
    EXPECT_EQ(Read_Count_Line("00000003   12.5"), (Count_Line{3, 0, 12.5}));
}

TEST(Run_Control, The_Longest_Location_Code_Counts)
{
    EXPECT_EQ(Location_Code_Of("..\\..\\..\\T_N_maize.sze"), "T_N");
    EXPECT_EQ(Location_Code_Of("t_maize.sze"), "T");
    EXPECT_EQ(Location_Code_Of("H_maize.sze"), "H");
    EXPECT_EQ(Location_Code_Of("maize.sze"), "");
    EXPECT_EQ(Location_Code_Of("X_maize.sze"), "");
}

TEST(Run_Control, A_Short_File_And_Wrong_Numbers_Are_Told)
{
    for (const auto& [text, number] : std::vector<std::pair<std::string, int>>{
             {"", 11},
             {"003 01 01 31 12\r\nx.sze\r\n", 11},
             {"067 01 01 31 12\r\n", 12},
             {"000 01 01 31 12\r\n", 12},
             {"001 31 02 31 12\r\n", 12},
             {"001 01 06 31 05\r\n", 12},
             {"001 01 01 31 12\r\na\r\nb\r\nc\r\n00000001\r\n    PRSN    TSER  xxx.0     1.0 00000001\r\n", 13}}) {
        Findings findings;
        Read_Run_Control(text, findings);
        ASSERT_TRUE(findings.Failed()) << text;
        EXPECT_EQ(findings.Errors[0].Number, number) << text;
    }
}

TEST(Run_Control, An_Unknown_Code_Is_A_Column_Of_Zeros_With_A_Note)
{
    Findings findings;
    const auto control = Read_Run_Control("001 01 01 31 12\r\na\r\nb\r\nc\r\n00000002\r\n            TSER  000.0     "
                                          "1.0 00000001\r\n    XXXX    TSER  000.0     1.0 00000001\r\n",
                                          findings);

    EXPECT_FALSE(findings.Failed());
    EXPECT_EQ(findings.Notes.size(), 2U);
    EXPECT_EQ(control.Rows[1].Variable, 0);
}

} // namespace orvel::engine
