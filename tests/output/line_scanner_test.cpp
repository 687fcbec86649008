#include "output/line_scanner.h"

#include "engine_files.h"
#include "temporary_directory.h"

#include <gtest/gtest.h>

namespace orvel {

namespace {

std::vector<std::string> All_Lines(Line_Scanner scanner)
{
    std::vector<std::string> lines;
    while (scanner.Next())
        lines.emplace_back(scanner.Line());
    return lines;
}

} // namespace

TEST(Line_Scanner, Lines_End_In_Cr_Lf_Or_Lf_And_The_Last_One_May_Lack_Its_End)
{
    EXPECT_EQ(All_Lines(Line_Scanner::Of_Bytes("one\r\ntwo\n\r\n\nlast")),
              (std::vector<std::string>{"one", "two", "", "", "last"}));
}

TEST(Line_Scanner, An_Empty_File_Has_No_Line_And_Is_At_Its_End)
{
    auto scanner = Line_Scanner::Of_Bytes("");

    EXPECT_TRUE(scanner.At_End());
    EXPECT_FALSE(scanner.Next());
    EXPECT_FALSE(scanner.Find(Anchor("X")));
}

TEST(Line_Scanner, The_End_Is_Known_With_The_Last_Line_Whether_It_Is_Closed_Or_Not)
{
    for (const std::string_view bytes : {"one\r\ntwo\r\n", "one\ntwo"}) {
        for (std::size_t window = 1; window < 12; ++window) {
            auto scanner = Line_Scanner::Of_Bytes(bytes, window);

            ASSERT_TRUE(scanner.Next());
            EXPECT_FALSE(scanner.At_End()) << window;
            ASSERT_TRUE(scanner.Next());
            EXPECT_TRUE(scanner.At_End()) << window;
            EXPECT_EQ(scanner.Line(), "two") << window;
        }
    }
}

TEST(Line_Scanner, At_The_End_The_Last_Line_Stays_At_Hand)
{
    auto scanner = Line_Scanner::Of_Bytes("one\r\nlast\r\n", 3);
    while (scanner.Next()) {
    }

    EXPECT_EQ(scanner.Line(), "last");
}

TEST(Line_Scanner, An_Anchor_Stands_Anywhere_In_Its_Line_And_Its_Case_Counts)
{
    auto scanner = Line_Scanner::Of_Bytes("annual\r\nANNUA L\r\n  the ANNUAL one\r\nbehind ANNUAL\r\n");

    ASSERT_TRUE(scanner.Find(Anchor("ANNUAL")));
    EXPECT_EQ(scanner.Line(), "  the ANNUAL one");
    ASSERT_TRUE(scanner.Find(Anchor("ANNUAL")));
    EXPECT_EQ(scanner.Line(), "behind ANNUAL");
    EXPECT_FALSE(scanner.Find(Anchor("ANNUAL")));
    EXPECT_TRUE(scanner.At_End());
}

TEST(Line_Scanner, An_Anchor_That_A_Line_End_Breaks_Is_None)
{
    auto scanner = Line_Scanner::Of_Bytes("ANN\nUAL\n");

    EXPECT_FALSE(scanner.Find(Anchor("ANNUAL")));
}

TEST(Line_Scanner, Borders_Of_The_Window_Make_No_Difference)
{
    std::string bytes;
    for (int year = 1; year <= 5; ++year)
        bytes += Water_Block({.Kind = "DAILY", .Transpiration = {{1, "1.0"}}}) +
                 Water_Block("1.5", "2." + std::to_string(year));
    const Anchor block("ANNUAL"), recharge("RECHARGE BELOW CORE");
    const auto found = [&](std::size_t window) {
        std::vector<std::string> lines;
        auto scanner = Line_Scanner::Of_Bytes(bytes, window);
        while (scanner.Find(block) && scanner.Next() && scanner.Skip(2) && scanner.Find(recharge)) {
            lines.emplace_back(scanner.Line());
            lines.emplace_back(scanner.At_End() ? "end" : "more");
        }
        return lines;
    };
    const auto expected = found(bytes.size() + 1);
    ASSERT_EQ(expected.size(), 10U);
    EXPECT_EQ(expected[8], Line_At({{2, "RECHARGE BELOW CORE (CM)"}, {40, "       2.5"}}));

    for (std::size_t window = 1; window < 400; ++window) {
        EXPECT_EQ(found(window), expected) << window;
        EXPECT_EQ(All_Lines(Line_Scanner::Of_Bytes(bytes, window)), All_Lines(Line_Scanner::Of_Bytes(bytes))) << window;
    }
}

TEST(Line_Scanner, A_Line_Beyond_All_Bounds_Is_Cut_And_The_Next_One_Is_Whole)
{
    const std::string bytes =
        std::string(3 * Largest_Line + 17, 'x') + "\nANNUAL\n" + std::string(2 * Largest_Line, 'y');
    auto scanner = Line_Scanner::Of_Bytes(bytes);

    ASSERT_TRUE(scanner.Next());
    EXPECT_EQ(scanner.Line().size(), Largest_Line);
    EXPECT_FALSE(scanner.At_End());
    ASSERT_TRUE(scanner.Next());
    EXPECT_EQ(scanner.Line(), "ANNUAL");
    ASSERT_TRUE(scanner.Next());
    EXPECT_EQ(scanner.Line(), std::string(Largest_Line, 'y'));
    EXPECT_FALSE(scanner.Next());
}

TEST(Line_Scanner, An_Anchor_Is_Found_Behind_A_Line_Beyond_All_Bounds)
{
    const std::string bytes = std::string(3 * Largest_Line, 'x') + "\nthe ANNUAL line\n";
    auto scanner = Line_Scanner::Of_Bytes(bytes, 7);

    ASSERT_TRUE(scanner.Find(Anchor("ANNUAL")));
    EXPECT_EQ(scanner.Line(), "the ANNUAL line");
    EXPECT_FALSE(scanner.Find(Anchor("ANNUAL")));
}

TEST(Line_Scanner, A_File_Is_Read_As_Its_Bytes_Are)
{
    const Temporary_Directory directory;
    const std::string bytes = Water_Block("1", "2") + End_Of_Output();
    Write_File(directory / "Wasser.orv", bytes);

    EXPECT_EQ(All_Lines(Line_Scanner(directory / "Wasser.orv", 100)), All_Lines(Line_Scanner::Of_Bytes(bytes)));
}

TEST(Line_Scanner, A_Missing_File_And_A_Directory_Are_Told)
{
    const Temporary_Directory directory;

    EXPECT_THROW(Line_Scanner(directory / "none.orv"), File_Error);
    EXPECT_THROW(Line_Scanner{directory.Path()}, File_Error);
}

} // namespace orvel
