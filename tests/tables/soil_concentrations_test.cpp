#include "output/soil_averages.h"

#include "tables/soil_concentrations.h"

#include "core/system/lock.h"
#include "leachate_run.h"

#include <gtest/gtest.h>

namespace orvel {

namespace fs = std::filesystem;

namespace {

// A line of one series value and the profile of one substance: `first` in the first layer, `others` in the 19 below.
std::string Profile_Line(int day, int hour, const std::string& first, const std::string& others = "0.0")
{
    std::vector<std::string> values = {"999.9", first};
    values.resize(21, others);
    return Plot_Line(day, hour, values);
}

const std::string Head = Plot_Head_Of(21, 20);
const std::string Warm_Up = Profile_Line(2189, 24, "500.0", "500.0") + Profile_Line(2190, 1, "500.0", "500.0") +
                            Profile_Line(2190, 24, "500.0", "500.0");

Soil_Averages Scan(const std::string& lines, int depth, const std::string& head = Head)
{
    auto plot = Line_Scanner::Of_Bytes(head + lines);
    const auto plot_head = Scan_Plot_Head(plot);
    return Scan_Soil_Profile(plot, plot_head, depth, [](int) {}).at(0);
}

class Soil_Concentrations_Test : public testing::Test {
protected:
    void Write_Plot(const std::string& bytes) { Write_File(Run / "plot.orv", bytes); }

    Leachate_Run Run{{.Names = {"Active Substance D"}}};
};

} // namespace

TEST(Soil_Averages, The_Six_Warm_Up_Years_Are_Not_Evaluated)
{
    const auto maxima = Scan(Warm_Up + Profile_Line(2191, 24, "2.0"), 1).Maxima();

    EXPECT_EQ(maxima[0].Value, 2);
    EXPECT_EQ(maxima[0].Begin, 2191);
}

TEST(Soil_Averages, Without_The_Line_That_Closes_The_Warm_Up_Nothing_Is_Evaluated)
{
    const auto averages =
        Scan(Profile_Line(2189, 24, "5.0") + Profile_Line(2190, 23, "5.0") + Profile_Line(2191, 24, "5.0"), 1);

    EXPECT_EQ(averages.Days(), 0);
    EXPECT_EQ(averages.Maxima()[0].Value, 0);
    EXPECT_EQ(averages.Maxima()[0].Begin, 0);
}

TEST(Soil_Averages, With_Depth_1_Only_The_First_Profile_Column_Counts)
{
    EXPECT_EQ(Scan(Warm_Up + Profile_Line(2191, 24, "2.0", "7.0"), 1).Maxima()[0].Value, 2);
}

TEST(Soil_Averages, The_Second_Layer_Has_No_Special_Case)
{
    EXPECT_EQ(Scan(Warm_Up + Profile_Line(2191, 24, "2.0", "7.0"), 2).Maxima()[0].Value, 4.5);
}

TEST(Soil_Averages, A_Depth_Above_20_Sums_20_Values_And_Divides_By_Its_Own_Number)
{
    EXPECT_EQ(Scan(Warm_Up + Profile_Line(2191, 24, "2.0", "2.0"), 20).Maxima()[0].Value, 2);
    EXPECT_EQ(Scan(Warm_Up + Profile_Line(2191, 24, "2.0", "2.0"), 40).Maxima()[0].Value, 1);
}

TEST(Soil_Averages, The_Actual_Maximum_Counts_Every_Hour_And_The_Averages_Only_Hour_24)
{
    const auto maxima =
        Scan(Warm_Up + Profile_Line(2191, 12, "8.0") + Profile_Line(2191, 24, "2.0") + Profile_Line(2192, 24, "3.0"), 1)
            .Maxima();

    EXPECT_EQ(maxima[0].Value, 8);
    EXPECT_EQ(maxima[0].Begin, 2191);
    EXPECT_EQ(maxima[1].Value, 3); // one day
    EXPECT_EQ(maxima[1].Begin, 2192);
    EXPECT_EQ(maxima[2].Value, 2.5); // two days
    EXPECT_EQ(maxima[2].Begin, 2191);
}

TEST(Soil_Averages, A_Window_May_Begin_In_The_Warm_Up_Whose_Days_Count_As_Zeros)
{
    const auto maxima = Scan(Warm_Up + Profile_Line(2191, 24, "4.0") + Profile_Line(2192, 24, "4.0"), 1).Maxima();

    EXPECT_EQ(maxima[3].Value, 2); // four days, two of them before
    EXPECT_EQ(maxima[3].Begin, 2189);
    EXPECT_EQ(maxima[10].Value, 0.08);
    EXPECT_EQ(maxima[10].Begin, 2093);
}

TEST(Soil_Averages, Of_Equal_Averages_The_Earlier_Start_Stays)
{
    const auto maxima =
        Scan(Warm_Up + Profile_Line(2191, 24, "4.0") + Profile_Line(2192, 24, "1.0") + Profile_Line(2193, 24, "4.0"), 1)
            .Maxima();

    EXPECT_EQ(maxima[0].Begin, 2191);
    EXPECT_EQ(maxima[1].Begin, 2191);
}

TEST(Soil_Averages, A_Window_Longer_Than_All_Days_Has_0_And_An_Undefined_Begin_Of_0)
{
    const auto maxima = Soil_Averages().Maxima();

    EXPECT_EQ(maxima[10].Value, 0);
    EXPECT_EQ(maxima[10].Begin, 0);
}

TEST(Soil_Averages, Each_Substance_Has_Its_20_Columns)
{
    std::vector<std::string> values(42, "1.0"); // two series, then two substances
    for (std::size_t j = 22; j < 42; ++j)
        values[j] = "3.0";
    auto plot = Line_Scanner::Of_Bytes(Plot_Head_Of(42, 40) + Plot_Line(2190, 24, {}) + Plot_Line(2191, 24, values));
    const auto head = Scan_Plot_Head(plot);

    const auto averages = Scan_Soil_Profile(plot, head, 20, [](int) {});

    ASSERT_EQ(averages.size(), 2U);
    EXPECT_EQ(averages[0].Maxima()[0].Value, 1);
    EXPECT_EQ(averages[1].Maxima()[0].Value, 3);
}

TEST(Soil_Averages, A_Line_That_Ends_Early_Has_Zeros)
{
    EXPECT_EQ(Scan(Warm_Up + Plot_Line(2191, 24, {"9.0", "4.0"}), 2).Maxima()[0].Value, 2);
}

TEST(Soil_Averages, More_Profile_Columns_Than_Nine_Substances_Or_Than_Columns_Are_Refused)
{
    EXPECT_THROW(Scan("", 1, Plot_Head_Of(210, 200)), File_Error);
    EXPECT_THROW(Scan("", 1, Plot_Head_Of(10, 20)), File_Error);
}

TEST(Soil_Averages, Day_25000_Is_The_Last)
{
    Soil_Averages averages;
    for (int day = 2191; day <= 25000; ++day)
        averages.Add(1, true);

    EXPECT_THROW(averages.Add(1, true), File_Error);
    EXPECT_EQ(averages.Maxima()[10].Begin, 2191);
}

TEST(Simulation_Date, Walks_Years_Of_365_Days_And_Every_Fourth_Of_366)
{
    EXPECT_EQ(Simulation_Date(1), "1 January 1");
    EXPECT_EQ(Simulation_Date(31), "31 January 1");
    EXPECT_EQ(Simulation_Date(32), "1 February 1");
    EXPECT_EQ(Simulation_Date(364), "30 December 1");
    EXPECT_EQ(Simulation_Date(1095 + 60), "29 February 4");
    EXPECT_EQ(Simulation_Date(1095 + 61), "1 March 4");
    EXPECT_EQ(Simulation_Date(730 + 60), "1 March 3");
    EXPECT_EQ(Simulation_Date(1461 + 1), "1 January 5");
    EXPECT_EQ(Simulation_Date(2191), "0 January 7"); // 1461 + 365 + 365, the last day of year 6
}

TEST(Simulation_Date, Shows_The_Last_Day_Of_A_Year_As_Day_0_Of_The_Next)
{
    EXPECT_EQ(Simulation_Date(365), "0 January 2");
    EXPECT_EQ(Simulation_Date(1461), "0 January 5");
}

TEST(Simulation_Date, Shows_An_Undefined_Begin_As_Day_0)
{
    EXPECT_EQ(Simulation_Date(0), "0 January 1");
}

TEST(Simulation_Date, Ends_With_December_Of_Year_66)
{
    EXPECT_TRUE(Simulation_Date(25000).ends_with(" December 66"));
}

TEST_F(Soil_Concentrations_Test, File_And_Text_Are_Laid_Out_To_The_Byte)
{
    Write_Plot(Head + Warm_Up + Profile_Line(2191, 24, "4.0") + Profile_Line(2192, 24, "4.0"));

    const auto soil = Build_Soil_Concentrations(Run.Path(), 1);

    // The windows end with day 2192; those of more than two days begin in the warm-up. The last evaluated day is day
    // 2193 less the window.
    const std::vector<std::array<std::string, 3>> rows = {
        {"            ", "4.0000000   ", "2191        "}, {"1           ", "4.0000000   ", "2191        "},
        {"2           ", "4.0000000   ", "2191        "}, {"4           ", "2.0000000   ", "2189        "},
        {"7           ", "1.1428571   ", "2186        "}, {"14          ", "0.5714286   ", "2179        "},
        {"21          ", "0.3809524   ", "2172        "}, {"28          ", "0.2857143   ", "2165        "},
        {"42          ", "0.1904762   ", "2151        "}, {"56          ", "0.1428571   ", "2137        "},
        {"100         ", "0.0800000   ", "2093        "}};
    // Day 2191 is the 365th of year 6 and so day 0 of year 7; day 2189 is the 29th of December.
    const std::vector<std::string> dates = {"0 January 7",   "0 January 7",   "0 January 7",   "29 December 6",
                                            "26 December 6", "19 December 6", "12 December 6", "5 December 6",
                                            "21 November 6", "7 November 6",  "24 September 6"};
    std::string file = "Engine\r\nScenario\r\nPesticide\r\nSoil concentrations: total content (mg/kg)\r\n";
    std::string text = "          Engine\r\n          Scenario\r\n          Pesticide\r\n          Soil "
                       "concentrations: total content (mg/kg)\r\n";
    const std::string heads =
        "\r\n\r\n        Substance: \tActive Substanc\r\n\r\n\t        TWA(d)\tPEC(mg/kg)\tBegin TWA(d)\r\n";
    file += heads;
    text += heads;
    for (std::size_t w = 0; w < rows.size(); ++w) {
        file += rows[w][0] + "\t" + rows[w][1] + "\t" + rows[w][2] + "\r\n";
        text += rows[w][0] + "\t" + rows[w][1] + "\t" + dates[w] + "\r\n";
    }
    EXPECT_EQ(Read_File(Run / "PECsoil_1.orv"), file);
    EXPECT_EQ(soil.Text, text);
    EXPECT_TRUE(soil.Kept);
    ASSERT_EQ(soil.Maximum.size(), 1U);
    EXPECT_EQ(soil.Maximum[0][2].Value, 4);
}

TEST_F(Soil_Concentrations_Test, A_Begin_Of_0_Prints_As_Blanks_In_The_File_And_As_Day_0_In_The_Text)
{
    Write_Plot(Head);

    const auto soil = Build_Soil_Concentrations(Run.Path(), 5);

    EXPECT_EQ(Lines_With(Read_File(Run / "PECsoil_5.orv"), "100 "),
              std::vector<std::string>{"100         \t0.00E+00    \t            "});
    EXPECT_EQ(Lines_With(soil.Text, "100 "), std::vector<std::string>{"100         \t0.00E+00    \t0 January 1"});
}

TEST_F(Soil_Concentrations_Test, Pore_Water_Changes_The_Head_Alone)
{
    Write_Plot(Plot_Head_Of(21, 20, "Soil concentrations: in soil Pore water (mg/L)") + Warm_Up +
               Profile_Line(2191, 24, "4.0"));

    const auto soil = Build_Soil_Concentrations(Run.Path(), 1);

    EXPECT_EQ(Lines_With(soil.Text, "PEC("), std::vector<std::string>{"\t        TWA(d)\tPEC(mg/L)\tBegin TWA(d)"});
    EXPECT_EQ(soil.Maximum[0][0].Value, 4);
}

TEST_F(Soil_Concentrations_Test, The_Table_Is_Built_Anew_Each_Time)
{
    Write_Plot(Head);
    Write_File(Run / "PECsoil_2.orv", "old");

    Build_Soil_Concentrations(Run.Path(), 2);

    EXPECT_NE(Read_File(Run / "PECsoil_2.orv"), "old");
}

TEST_F(Soil_Concentrations_Test, No_File_Is_Written_From_A_Run_Whose_Lock_Is_Held)
{
    Write_Plot(Head + Warm_Up);
    const auto lock = Lock::Take(Run / "echo.orv");

    const auto soil = Build_Soil_Concentrations(Run.Path(), 1);

    EXPECT_EQ(soil.Failure, "");
    EXPECT_EQ(soil.Maximum.size(), 1U);
    EXPECT_FALSE(soil.Kept);
    EXPECT_NE(soil.Not_Kept, "");
    EXPECT_FALSE(fs::exists(Run / "PECsoil_1.orv"));
}

TEST_F(Soil_Concentrations_Test, A_Run_Without_A_Soil_Profile_Says_Why_Its_Table_Is_Empty)
{
    Write_Plot(Plot_Head_Of(1, 0) + Warm_Up);

    const auto soil = Build_Soil_Concentrations(Run.Path(), 5);

    EXPECT_EQ(soil.Not_Kept, "The output of the run has no profile of the soil: there is nothing to evaluate.");
    EXPECT_EQ(soil.Failure, "");
    EXPECT_FALSE(fs::exists(Run / "PECsoil_5.orv"));
}

TEST_F(Soil_Concentrations_Test, A_Depth_Of_0_A_Missing_And_A_Broken_File_Are_Told)
{
    EXPECT_EQ(Build_Soil_Concentrations(Run.Path(), 0).Failure, "The depth must be at least one layer.");
    Write_Plot(Plot_Head_Of(210, 200));
    EXPECT_NE(Build_Soil_Concentrations(Run.Path(), 1).Failure, "");
    fs::remove(Run / "plot.orv");
    EXPECT_NE(Build_Soil_Concentrations(Run.Path(), 1).Failure, "");
    EXPECT_FALSE(fs::exists(Run / "PECsoil_1.orv"));
}

TEST_F(Soil_Concentrations_Test, A_Year_Of_Days_Is_Told_And_The_User_May_Stop)
{
    std::string bytes = Head + Warm_Up;
    for (int day = 2191; day < 2191 + 365; ++day)
        bytes += Profile_Line(day, 24, "1.0");
    Write_Plot(bytes);
    std::vector<std::string> told;

    const auto soil = Build_Soil_Concentrations(Run.Path(), 1, [&](const std::string& message, double) {
        told.push_back(message);
        return false;
    });

    EXPECT_EQ(told, std::vector<std::string>{"Please wait! Reading file plot, day 2555."});
    EXPECT_EQ(soil.Failure, "The reading was stopped.");
    EXPECT_FALSE(fs::exists(Run / "PECsoil_1.orv"));
}

} // namespace orvel
