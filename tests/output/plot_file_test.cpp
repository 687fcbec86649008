#include "output/plot_file.h"

#include "engine_files.h"
#include "temporary_directory.h"

#include <gtest/gtest.h>

namespace orvel {

namespace {

Plot_Head Head_Of(const std::string& bytes)
{
    auto plot = Line_Scanner::Of_Bytes(bytes);
    return Scan_Plot_Head(plot);
}

} // namespace

TEST(Plot_File, Titles_Are_Lines_1_3_4_And_6_Without_Blanks_At_Their_Ends)
{
    const auto head = Head_Of(Plot_Head_Of(2, 0, " in soil Pore water "));

    EXPECT_EQ(head.Titles, (std::array<std::string, 4>{"Engine", "Scenario", "Pesticide", "in soil Pore water"}));
    EXPECT_TRUE(head.Whole);
}

TEST(Plot_File, Counts_And_Columns_Are_Read_From_Their_Places)
{
    const auto head = Head_Of(Plot_Head_Of(44, 40));

    EXPECT_EQ(head.Months, 312);
    EXPECT_EQ(head.N_Columns, 44);
    EXPECT_EQ(head.N_Profile, 40);
    ASSERT_EQ(head.Columns.size(), 44U);
    EXPECT_EQ(head.Columns[0].Plot_Code, "PFLX");
    EXPECT_EQ(head.Columns[43].Plot_Code, "TPSC");
    EXPECT_EQ(head.Columns[43].Plot_Depth, 44);
    EXPECT_EQ(head.Columns[43].Plot_Scale, "1.0E05");
}

TEST(Plot_File, All_Columns_Of_A_Run_With_Two_Hundred_Are_Held)
{
    EXPECT_EQ(Head_Of(Plot_Head_Of(200, 180)).Columns.size(), 200U);
}

TEST(Plot_File, A_Count_That_The_Head_Does_Not_Keep_Sizes_Nothing)
{
    const auto head = Head_Of(Lines({"", "", "", "", "", "", "    12 30000     0", "            PFLX", "", "", ""}));

    EXPECT_EQ(head.N_Columns, 30000);
    EXPECT_EQ(head.Columns.size(), 1U);
}

TEST(Plot_File, A_Head_That_Ends_Early_Is_Not_Whole)
{
    const auto head = Head_Of("Engine\r\n\r\nScenario\r\n");

    EXPECT_FALSE(head.Whole);
    EXPECT_EQ(head.Titles, (std::array<std::string, 4>{"Engine", "Scenario", "", ""}));
}

TEST(Plot_File, A_Count_Out_Of_Bounds_Is_An_Error)
{
    EXPECT_THROW(Head_Of(Lines({"", "", "", "", "", "", "    12 99999     0"})), File_Error);
    EXPECT_THROW(Head_Of(Lines({"", "", "", "", "", "", "    12    -5     0"})), File_Error);
}

TEST(Plot_File, A_Run_Without_The_File_Has_An_Empty_Head)
{
    const Temporary_Directory directory;
    EXPECT_FALSE(Read_Plot_Head(directory.Path()).Whole);

    Write_File(directory / "PLOT.orv", Plot_Head_Of(1, 0));
    EXPECT_TRUE(Read_Plot_Head(directory.Path()).Whole);
}

} // namespace orvel
