#include "engine/input/climate.h"

#include "core/text.h"
#include "files/climate_file.h"

#include <cmath>
#include <gtest/gtest.h>

namespace orvel::engine {

namespace {

constexpr double Latitude = 50;

// A line with the given fields, ten characters each from column 8 on.
std::string Line(std::string_view date, const std::vector<std::string>& fields, std::string_view hour = {})
{
    std::string line = " " + std::string(date);
    for (std::size_t k = 0; k < 7; ++k) {
        std::string field = k < fields.size() ? fields[k] : "";
        field.resize(10, ' ');
        line += field;
    }
    return line + std::string(hour) + "\r\n";
}

std::vector<Climate_Day> Days_Of(const std::string& lines, Findings& findings)
{
    std::string title;
    return Read_Climate_Days("Title\r\n" + lines, "test.cli", Latitude, title, findings);
}

std::string Whole_Year(bool leap)
{
    std::string text;
    const Calendar dates(std::vector<bool>{leap});
    for (int day = 1; day <= dates.Days_In(1); ++day) {
        const Date date = dates.Date_Of(day);
        const auto two = [](int n) { return (n < 10 ? "0" : "") + std::to_string(n); };
        text += Line(two(date.Day) + two(date.Month) + "01",
                     {"0.1", "0.2", "11", std::to_string(day % 30), "5", "60", "9000"});
    }
    return text;
}

Run_Control Years_Of(int years)
{
    Run_Control control;
    control.Years = years;
    control.Climate_Files.assign(static_cast<std::size_t>(years), "a.cli");
    return control;
}

} // namespace

TEST(Climate_Days, A_Row_Is_Read_As_It_Stands)
{
    Findings findings;
    const auto days = Days_Of(Line("050101", {"0.31", "0.05", "8.5", "6", "4", "70", "2500"}), findings);

    ASSERT_EQ(days.size(), 1U);
    EXPECT_EQ(days[0].Day, 5);
    EXPECT_EQ(days[0].Month, 1);
    EXPECT_EQ(days[0].Rain, 0.31);
    EXPECT_EQ(days[0].Evaporation, 0.05);
    EXPECT_EQ(days[0].Temperature_14, 8.5);
    EXPECT_EQ(days[0].Temperature, 6);
    EXPECT_EQ(days[0].Humidity, 70);
    EXPECT_EQ(days[0].Radiation, 2500);
    EXPECT_FALSE(findings.Failed());
}

TEST(Climate_Days, Blank_Fields_Are_Filled_From_The_Others)
{
    Findings findings;
    const auto days = Days_Of(Line("150101", {"0.0", "", "", "6", "4", "", ""}), findings);

    ASSERT_EQ(days.size(), 1U);
    EXPECT_LT(days[0].Evaporation, 0); // missing
    EXPECT_DOUBLE_EQ(days[0].Temperature_14, 6 + 0.42 * 4);
    EXPECT_EQ(days[0].Humidity, 70);
    EXPECT_NEAR(days[0].Radiation, 0.16 * 2 * Extraterrestrial_Radiation(Latitude, 15) * 1000, 1e-9);
}

// FAO-56, example 8: 3 September at 20 degrees south.
TEST(Climate_Days, Radiation_Above_The_Atmosphere)
{
    EXPECT_NEAR(Extraterrestrial_Radiation(-20, 246), 32.2, 0.05);
    EXPECT_EQ(Extraterrestrial_Radiation(85, 355), 0); // polar night
    EXPECT_NEAR(Declination(246), 0.120, 5e-4);
}

TEST(Climate_Days, Rows_Of_One_Date_With_Different_Hours_Are_One_Day)
{
    Findings findings;
    const auto days = Days_Of(Line("010101", {"0.1", "0.1", "5", "4", "2", "80", "100"}, "      06") +
                                  Line("010101", {"0.3", "0.2", "9", "8", "4", "50", "900"}, "      15") +
                                  Line("020101", {"0.0", "0.0", "5", "4", "2", "80", "100"}, "      06"),
                              findings);

    ASSERT_EQ(days.size(), 2U);
    EXPECT_DOUBLE_EQ(days[0].Rain, 0.4);
    EXPECT_DOUBLE_EQ(days[0].Evaporation, 0.1 + 0.2);
    EXPECT_DOUBLE_EQ(days[0].Radiation, 1000);
    EXPECT_DOUBLE_EQ(days[0].Temperature, 6);
    EXPECT_DOUBLE_EQ(days[0].Difference, 3);
    EXPECT_EQ(days[0].Temperature_14, 9); // of the row nearest to 14 h
    EXPECT_EQ(days[0].Humidity, 50);
}

TEST(Climate_Days, Values_Out_Of_Range_Are_Error_52_With_Their_Line)
{
    for (const auto& fields : std::vector<std::vector<std::string>>{{"-0.1", "", "", "5"},
                                                                    {"101", "", "", "5"},
                                                                    {"0", "", "", "61"},
                                                                    {"0", "", "", "-61"},
                                                                    {"0", "", "", "5", "", "101"}}) {
        Findings findings;
        Days_Of(Line("010101", {"0", "", "", "5"}) + Line("020101", fields), findings);
        ASSERT_EQ(findings.Errors.size(), 1U);
        EXPECT_EQ(findings.Errors[0].Number, 52);
        EXPECT_TRUE(Contains(findings.Errors[0].Text, "LINE 3 OF test.cli")) << findings.Errors[0].Text;
    }
}

TEST(Climate_Days, A_Row_That_Is_No_Day_Is_Error_51_And_An_Empty_Last_Line_Is_Nothing)
{
    Findings good, bad;
    EXPECT_EQ(Days_Of(Line("010101", {"0", "", "", "5"}) + "\r\n", good).size(), 1U);
    Days_Of(Line("3102xx", {"0", "", "", "5"}), bad);

    EXPECT_FALSE(good.Failed());
    ASSERT_TRUE(bad.Failed());
    EXPECT_EQ(bad.Errors[0].Number, 51);
}

TEST(Climate_Days, Years_Are_Put_Together_With_Their_Own_29_February)
{
    Findings findings;
    const auto plain = Days_Of(Whole_Year(false), findings), leap = Days_Of(Whole_Year(true), findings);
    const Climate climate = Assemble_Climate(Years_Of(3), {&plain, &leap, &plain}, findings);

    EXPECT_FALSE(findings.Failed());
    EXPECT_EQ(climate.First_Day, 1);
    EXPECT_EQ(climate.Last_Day, 365 + 366 + 365);
    EXPECT_EQ(climate.Days.size(), 365U + 366 + 365);
    EXPECT_EQ(climate.Dates.Date_Of(365 + 60), (Date{2, 2, 29}));
    EXPECT_EQ(climate.On(365 + 60).Day, 29);
}

TEST(Climate_Days, A_Period_Within_The_Years_Is_Cut_Out)
{
    Findings findings;
    const auto plain = Days_Of(Whole_Year(false), findings);
    Run_Control control = Years_Of(2);
    control.Start_Day = 15, control.Start_Month = 3, control.End_Day = 30, control.End_Month = 6;
    const Climate climate = Assemble_Climate(control, {&plain, &plain}, findings);

    EXPECT_EQ(climate.First_Day, 31 + 28 + 15);
    EXPECT_EQ(climate.Last_Day, 365 + 181);
    EXPECT_EQ(climate.On(climate.First_Day).Month, 3);
    EXPECT_EQ(climate.On(climate.Last_Day).Day, 30);
}

TEST(Climate_Days, A_Missing_Day_And_A_Day_Twice_Are_Error_53)
{
    Findings findings;
    auto lines = Split_Lines(Whole_Year(false));
    const auto days = Days_Of(Whole_Year(false), findings);
    auto missing = days, twice = days;
    missing.erase(missing.begin() + 100);
    twice.insert(twice.begin() + 100, twice[100]);
    for (const auto* year : {&missing, &twice}) {
        Findings told;
        Assemble_Climate(Years_Of(1), {year}, told);
        ASSERT_TRUE(told.Failed());
        EXPECT_EQ(told.Errors[0].Number, 53);
    }
}

TEST(Haude_Factors, Rows_Are_Found_By_Crop_Number_With_Built_In_Ones_For_The_Rest)
{
    Findings findings;
    const Haude_Table table = Read_Haude(
        "comment\r\n0 .1 .1 .1 .1 .1 .1 .1 .1 .1 .1 .1 .1\r\n14 1 2 3 4 5 6 7 8 9 10 11 12 maize\r\n", findings);

    EXPECT_EQ(table.size(), 2U);
    EXPECT_EQ(Haude_Row(table, 14)[3], 4);
    EXPECT_EQ(Haude_Row(table, 14)[11], 10); // cut to a sensible range
    EXPECT_EQ(Haude_Row(table, 0)[5], 0.1);
    EXPECT_EQ(Haude_Row(table, 7)[3], 0.29); // grass
    EXPECT_EQ(Haude_Row({}, 0)[0], 0.11);    // bare soil
}

TEST(Calendar_Of_The_Run, Numbers_And_Dates_Are_Each_Others_Reverse)
{
    const Calendar dates(std::vector<bool>{false, true, false});

    for (int number = -800; number <= 2000; ++number)
        ASSERT_EQ(dates.Number(dates.Date_Of(number)), number);
    EXPECT_EQ(dates.Number({1, 1, 1}), 1);
    EXPECT_EQ(dates.Number({0, 12, 31}), 0);
    EXPECT_EQ(dates.Number({2, 3, 1}), 365 + 61);
    EXPECT_EQ(dates.Number({1, 2, 29}), 59); // moved to the 28th
    EXPECT_EQ(dates.Day_Of_Year(365 + 366), 366);
    EXPECT_EQ(dates.Days_In(2, 2), 29);
    EXPECT_TRUE(dates.Is_Leap(2));
    EXPECT_FALSE(dates.Is_Leap(4));
    EXPECT_EQ(Days_Of_Month(2), 28);
}

} // namespace orvel::engine
