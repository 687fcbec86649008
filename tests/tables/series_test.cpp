#include "tables/series.h"

#include "core/error.h"
#include "temporary_directory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

namespace orvel {

namespace {

struct Series_Reader : testing::Test {
    void Write(const std::filesystem::path& name, std::string_view bytes)
    {
        std::filesystem::create_directories((Directory / name).parent_path());
        std::ofstream(Directory / name, std::ios::binary) << bytes;
    }
    Temporary_Directory Directory;
};

// Eleven lines of head, the last of them the initial state.
std::string Head()
{
    std::string head;
    for (int line = 1; line <= 10; ++line)
        head += "head\r\n";
    return head + "     1 01       99.0      99.0\r\n";
}

TEST_F(Series_Reader, Value_I_Stands_In_Ten_Columns_From_10_I_Plus_1_On)
{
    Write("plot.orv", Head() + "     1 24       0.31-1.234E-07\r\n 24106 24     1.0E05      12.5\r\n");

    const auto second = Read_Plot_Column(Directory / "plot.orv", 2);
    const auto first = Read_Plot_Column(Directory / "plot.orv", 1);

    ASSERT_EQ(second.size(), 2U); // the initial state belongs to the head
    EXPECT_EQ(second[0].Day, 1);
    EXPECT_EQ(second[0].Hour, 24);
    EXPECT_EQ(second[0].Value, -1.234e-7);
    EXPECT_EQ(second[1].Day, 24106);
    EXPECT_EQ(second[1].Value, 12.5);
    EXPECT_EQ(first[0].Value, 0.31);
    EXPECT_EQ(first[1].Value, 100000);
}

TEST_F(Series_Reader, A_Line_That_Ends_Before_The_Column_Has_0_There)
{
    Write("plot.orv", Head() + "     1 24       0.31\n\n");

    const auto values = Read_Plot_Column(Directory / "plot.orv", 150);

    ASSERT_EQ(values.size(), 1U);
    EXPECT_EQ(values[0].Value, 0);
}

TEST_F(Series_Reader, Lines_Across_The_Borders_Of_The_Window_Are_Read_Whole)
{
    std::string lines = Head();
    for (int day = 1; day <= 40000; ++day) {
        const std::string number = std::to_string(day);
        lines += std::string(6 - number.size(), ' ') + number + " 24" + std::string(11 - number.size(), ' ') + number +
                 "\r\n";
    }
    ASSERT_GT(lines.size(), 600000U);
    Write("plot.orv", lines.substr(0, lines.size() - 2)); // the last line lacks its end

    const auto values = Read_Plot_Column(Directory / "plot.orv", 1);

    ASSERT_EQ(values.size(), 40000U);
    for (int i = 0; i < 40000; ++i) {
        ASSERT_EQ(values[static_cast<std::size_t>(i)].Day, i + 1);
        ASSERT_EQ(values[static_cast<std::size_t>(i)].Value, i + 1);
    }
}

TEST_F(Series_Reader, A_Line_Without_A_Day_Number_Is_Passed_Over_However_Long_It_Is)
{
    Write("plot.orv", Head() + "     1 24       0.31\n" + std::string(2000000, 'x') + "\n     2 24       0.31\n");

    EXPECT_EQ(Read_Plot_Column(Directory / "plot.orv", 1).size(), 2U);
}

TEST_F(Series_Reader, A_Reading_That_Is_Stopped_Gives_What_It_Has)
{
    std::string lines = Head();
    for (int i = 0; i < 40000; ++i)
        lines += "     1 24       0.31\r\n";
    Write("plot.orv", lines);
    std::vector<double> shares;

    const auto all = Read_Plot_Column(Directory / "plot.orv", 1, [&](const std::string&, double share) {
        shares.push_back(share);
        return true;
    });
    const auto part = Read_Plot_Column(Directory / "plot.orv", 1, [](const std::string&, double) { return false; });

    EXPECT_EQ(all.size(), 40000U);
    EXPECT_TRUE(std::ranges::is_sorted(shares));
    EXPECT_GT(shares.size(), 1U);
    EXPECT_LE(shares.back(), 1);
    EXPECT_GT(part.size(), 0U);
    EXPECT_LT(part.size(), all.size());
}

TEST_F(Series_Reader, A_File_That_Cannot_Be_Read_Is_An_Error)
{
    EXPECT_THROW(Read_Plot_Column(Directory / "plot.orv", 1), File_Error);
}

TEST_F(Series_Reader, A_Calendar_Has_Four_Free_Fields_A_Line)
{
    const auto calendar = Parse_Calendar("1 1 1 1\r\n 2  2\t1 1 \r\nnot a day\r\n3 3 1 1");

    ASSERT_EQ(calendar.size(), 3U);
    EXPECT_EQ(calendar[1].Number, 2);
    EXPECT_EQ(calendar[1].Day, 2);
    EXPECT_EQ(calendar[2].Month, 1);
    EXPECT_EQ(calendar[2].Year, 1);
}

TEST_F(Series_Reader, A_Missing_Calendar_Or_Series_Gives_An_Empty_Diagram)
{
    const Daily_Request request{1, false, {1, 1}, {12, 1}};
    EXPECT_TRUE(Read_Daily_Series(Directory / "datum.dat", Directory.Path(), 1, request).Points.empty());

    Write("plot.orv", Head() + "     1 24       0.31\r\n");
    EXPECT_TRUE(Read_Daily_Series(Directory / "datum.dat", Directory.Path(), 1, request).Points.empty());

    Write("datum.dat", "1 1 1 1\r\n");
    EXPECT_EQ(Read_Daily_Series(Directory / "datum.dat", Directory.Path(), 1, request).Points,
              (std::vector<Chart_Point>{{1, 0.31}}));
}

} // namespace

} // namespace orvel
