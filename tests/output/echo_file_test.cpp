#include "output/echo_file.h"

#include "core/system/lock.h"
#include "engine_files.h"
#include "temporary_directory.h"

#include <gtest/gtest.h>

namespace orvel {

namespace {

Echo Scanned(const std::string& bytes)
{
    auto echo = Line_Scanner::Of_Bytes(bytes);
    return Scan_Echo(echo);
}

Echo_Layers Layers_Of(const std::string& bytes)
{
    return Scanned(bytes).Layers();
}

std::vector<std::string> Names_Of(const std::string& bytes)
{
    return Scanned(bytes).Substance_Names;
}

bool Has_Error(const std::string& bytes)
{
    return Scanned(bytes).Holds_Error;
}

struct Flags {
    bool Daily, Monthly;
    bool operator==(const Flags&) const = default;
};

Flags Flags_Of(const std::string& water, const std::string& pest)
{
    const auto layers = Layers_Of(Echo_File({.Frequency_Water = water, .Frequency_Pest = pest}));
    return {layers.Has_Daily_Output, layers.Has_Monthly_Output};
}

} // namespace

TEST(Echo_File, The_Layer_Counts_Are_Read_From_Their_Columns)
{
    const auto layers = Layers_Of(Echo_File({.Total = "213", .Top = "40"}));

    EXPECT_EQ(layers.Total_Compartments, 213);
    EXPECT_EQ(layers.Top_Layers, 40);
}

TEST(Echo_File, The_Layer_Count_Ends_With_Its_Ten_Columns)
{
    const std::string line = Line_At({{2, "Total number of layers in the top meter:"}, {53, "        40"}, {63, "17"}});

    EXPECT_EQ(Layers_Of("TOTAL COMPARTMENTS IN CORE\r\nWATR\r\nnext\r\n" + line + "\r\n").Top_Layers, 40);
}

TEST(Echo_File, Yearly_Output_In_Either_Line_Gives_Neither_Flag)
{
    EXPECT_EQ(Flags_Of("YEAR", "YEAR"), (Flags{false, false}));
    EXPECT_EQ(Flags_Of("YEAR", "DAY"), (Flags{false, false}));
    EXPECT_EQ(Flags_Of("MNTH", "YEAR"), (Flags{false, false}));
}

TEST(Echo_File, Monthly_Output_In_Either_Line_Gives_The_Monthly_Flag_Alone)
{
    EXPECT_EQ(Flags_Of("MNTH", "MNTH"), (Flags{false, true}));
    EXPECT_EQ(Flags_Of("DAY", "MNTH"), (Flags{false, true}));
}

TEST(Echo_File, Daily_Output_In_Both_Lines_Gives_Both_Flags)
{
    EXPECT_EQ(Flags_Of("DAY", "DAY"), (Flags{true, true}));
}

TEST(Echo_File, Daily_Output_In_Only_One_Line_Gives_Neither_Flag)
{
    EXPECT_EQ(Flags_Of("DAY", ""), (Flags{false, false}));
    EXPECT_EQ(Flags_Of("", "DAY"), (Flags{false, false}));
}

TEST(Echo_File, Without_The_Frequency_Words_Both_Flags_Stay_False)
{
    EXPECT_EQ(Flags_Of("", ""), (Flags{false, false}));
}

TEST(Echo_File, A_Missing_Text_Ends_The_Search_And_The_Columns_Are_Those_Of_The_Last_Line)
{
    const std::string last = Line_At({{1, "some other line"}, {53, "  12"}});

    const auto layers = Layers_Of("first\r\n" + last + "\r\n");

    EXPECT_EQ(layers.Total_Compartments, 12);
    EXPECT_EQ(layers.Top_Layers, 12);
}

TEST(Echo_File, A_Count_Outside_Of_An_I16_Is_An_Error)
{
    EXPECT_THROW(Layers_Of(Echo_File({.Total = "32768"})), File_Error);
}

TEST(Echo_File, An_Empty_File_Has_No_Layers_And_No_Names)
{
    EXPECT_EQ(Layers_Of("").Top_Layers, 0);
    EXPECT_TRUE(Names_Of("").empty());
}

TEST(Echo_File, Names_Stand_In_Their_Order_Less_The_Mark_Of_Three_Characters)
{
    EXPECT_EQ(Names_Of(Echo_File({.Names = {"Substance D", "Metabolite A1", "M*2"}})),
              (std::vector<std::string>{"Substance D", "Metabolite A1", "M*2"}));
}

TEST(Echo_File, A_Name_Ends_With_Its_Hundred_Columns_And_A_Short_One_Is_Empty)
{
    EXPECT_EQ(Names_Of("*** PARAMETERS OF " + std::string(200, 'x') + "\r\n*** PARAMETERS OF ab\r\n"),
              (std::vector<std::string>{std::string(97, 'x'), ""}));
}

TEST(Echo_File, At_Most_Ten_Names_Are_Read)
{
    EXPECT_EQ(Names_Of(Echo_File({.Names = std::vector<std::string>(12, "M")})).size(), 10U);
}

TEST(Echo_File, An_Error_Is_Told_In_Either_Spelling)
{
    EXPECT_FALSE(Has_Error(Echo_File()));
    EXPECT_TRUE(Has_Error(Echo_File({.Last = " *** ERROR 52: no such file"})));
    EXPECT_TRUE(Has_Error(Echo_File({.Last = " E R R O R  in the input"})));
    EXPECT_FALSE(Has_Error(Echo_File({.Last = " *** error 52"})));
}

TEST(Echo_File, The_File_Is_Found_In_Any_Case)
{
    const Temporary_Directory directory;
    Write_File(directory / "Echo.ORV", Echo_File({.Top = "25", .Last = "ERROR"}));

    const auto echo = Read_Echo(directory.Path());
    EXPECT_EQ(echo.Missing, "");
    EXPECT_EQ(echo.Layers().Top_Layers, 25);
    EXPECT_EQ(echo.Substance_Names, std::vector<std::string>{"Substance D"});
    EXPECT_TRUE(Simulation_Failed(directory.Path()));
}

TEST(Echo_File, A_Run_At_Work_Has_Not_Failed_Though_Its_Echo_Says_That_It_Did_Not_End)
{
    const Temporary_Directory directory;
    Write_File(directory / "echo.orv", Echo_File({.Last = " *** ERROR 99: RUN NOT COMPLETED"}));
    {
        const auto engine = Lock::Take(directory / "echo.orv");
        EXPECT_FALSE(Simulation_Failed(directory.Path()));
    }
    EXPECT_TRUE(Simulation_Failed(directory.Path()));
}

TEST(Echo_File, A_Missing_File_Is_An_Error)
{
    const Temporary_Directory directory;

    EXPECT_NE(Read_Echo(directory.Path()).Missing, "");
    EXPECT_THROW(Read_Echo(directory.Path()).Layers(), File_Error);
    EXPECT_FALSE(Simulation_Failed(directory.Path())); // it was not begun
}

TEST(Echo_File, A_Text_Of_The_Layers_Counts_Only_Behind_The_One_Before)
{
    const std::string top = Line_At({{2, "Total number of layers in the top meter:"}, {53, "        40"}});
    const std::string total = Line_At({{2, "TOTAL COMPARTMENTS IN CORE"}, {55, "80"}});
    const std::string last = Line_At({{1, "the end"}, {53, "         7"}});

    const auto layers = Layers_Of(top + "\r\n" + total + "\r\nWATR YEAR\r\nPEST YEAR\r\n" + last + "\r\n");

    EXPECT_EQ(layers.Total_Compartments, 80);
    EXPECT_EQ(layers.Top_Layers, 7); // the first line does not count: that of the end of the file does
}

TEST(Echo_File, Another_Look_Reads_The_Echo_Of_A_Run_That_Was_Started_Anew)
{
    const Temporary_Directory directory;
    Write_File(directory / "echo.orv", Echo_File());
    auto echo = Read_Echo(directory.Path());
    EXPECT_FALSE(echo.Failed());

    Write_File(directory / "echo.orv", Echo_File({.Last = " *** ERROR 52: no such file"}));
    std::filesystem::last_write_time(directory / "echo.orv", echo.Written + std::chrono::seconds(1));
    {
        const auto engine = Lock::Take(directory / "echo.orv");
        Look_Again(echo, directory.Path());
        EXPECT_TRUE(echo.At_Work);
        EXPECT_FALSE(echo.Failed());
    }
    Look_Again(echo, directory.Path());
    EXPECT_TRUE(echo.Failed());
}

} // namespace orvel
