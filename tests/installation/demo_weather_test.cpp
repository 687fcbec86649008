#include "installation/demo_weather.h"

#include "core/text.h"
#include "files/climate_file.h"
#include "installation/weather_random.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace orvel {

namespace {

const Demo_Tables Tables = Load_Demo_Tables();

const Demo_Site& Site(std::string_view code)
{
    return *std::ranges::find(Tables.Sites, code, &Demo_Site::Code);
}

std::vector<Weather_Day> Weather(std::string_view code, int years)
{
    return Demo_Weather(Site(code), Tables.Climates.at(Site(code).Climate_As), years);
}

// Figures of an independent computation of the same method with the same seeds, over 66 years.
struct Figures {
    std::string_view Code;
    double Rain, Wet_Days, Largest_Rain, Temp, Evaporation, Humidity, Lowest, Highest;
};

constexpr Figures Expected[] = {
    {"C", 656, 130, 67, 11.31, 827, 59, -11, 33},   {"H", 786, 170, 52, 8.99, 636, 66, -15, 33},
    {"J", 645, 151, 48, 4.04, 550, 58, -21, 31},    {"K", 907, 155, 71, 8.61, 752, 59, -16, 35},
    {"N", 1058, 175, 70, 10.18, 635, 68, -10, 28},  {"P", 891, 97, 150, 13.18, 974, 57, -13, 39},
    {"O", 1130, 126, 105, 14.78, 961, 59, -5, 36},  {"S", 487, 62, 88, 17.85, 1413, 44, -7, 45},
    {"T", 488, 66, 99, 16.18, 1224, 52, -8, 43},    {"T_N", 647, 153, 66, 5.64, 602, 58, -22, 31},
    {"T_C", 621, 107, 80, 7.36, 698, 58, -17, 32},  {"T_S", 671, 135, 56, 10.20, 807, 59, -12, 34},
    {"P_N", 595, 132, 58, 7.98, 611, 64, -17, 31},  {"P_C", 597, 104, 65, 9.30, 785, 58, -16, 34},
    {"P_S", 508, 66, 108, 15.46, 1306, 44, -9, 43},
};

void PrintTo(const Figures& figures, std::ostream* out)
{
    *out << figures.Code;
}

class Weather_Figures : public testing::TestWithParam<Figures> {};

double Mean(const std::vector<Weather_Day>& days, double Weather_Day::*value, double divisor)
{
    double sum = 0;
    for (const auto& day : days)
        sum += day.*value;
    return sum / divisor;
}

TEST_P(Weather_Figures, Sixty_Six_Years_Have_The_Rain_Temperatures_And_Evaporation_Of_The_Independent_Computation)
{
    const Figures& expected = GetParam();
    const auto days = Weather(expected.Code, 66);
    const auto minimum = [](const Weather_Day& day) { return day.Temp_Mean - day.Temp_Diff / 2; };
    const auto maximum = [](const Weather_Day& day) { return day.Temp_Mean + day.Temp_Diff / 2; };
    const auto wet = std::ranges::count_if(days, [](const Weather_Day& day) { return day.Rain > 0; });
    const auto size = static_cast<double>(days.size());

    EXPECT_EQ(days.size(), 24106U);
    EXPECT_NEAR(Mean(days, &Weather_Day::Rain, 66), expected.Rain, 0.5001);
    EXPECT_NEAR(static_cast<double>(wet) / 66, expected.Wet_Days, 0.5001);
    EXPECT_NEAR(std::ranges::max(days, {}, &Weather_Day::Rain).Rain, expected.Largest_Rain, 0.5001);
    EXPECT_NEAR(Mean(days, &Weather_Day::Temp_Mean, size), expected.Temp, 0.005001);
    EXPECT_NEAR(Mean(days, &Weather_Day::Evaporation, 66), expected.Evaporation, 0.5001);
    EXPECT_NEAR(Mean(days, &Weather_Day::Humidity, size), expected.Humidity, 0.5001);
    EXPECT_NEAR(minimum(std::ranges::min(days, {}, minimum)), expected.Lowest, 0.5001);
    EXPECT_NEAR(maximum(std::ranges::max(days, {}, maximum)), expected.Highest, 0.5001);
}

INSTANTIATE_TEST_SUITE_P(All_Sites, Weather_Figures, testing::ValuesIn(Expected),
                         [](const auto& one) { return std::string(one.param.Code); });

TEST(Weather_Random_Numbers, Hamburg_Begins_With_The_Published_Number)
{
    EXPECT_EQ(Weather_Random("H").Next(), 0xc377c84a0c627bbbU);
}

TEST(Weather_Random_Numbers, Uniform_Numbers_Take_The_Top_53_Bits_And_Never_Reach_0_Or_1)
{
    Weather_Random random("H");
    const double expected = (static_cast<double>(0xc377c84a0c627bbbU >> 11U) + 0.5) / 9007199254740992.0;

    EXPECT_EQ(random.Uniform(), expected);
    for (int i = 0; i < 10000; ++i) {
        const double u = random.Uniform();
        ASSERT_GT(u, 0);
        ASSERT_LT(u, 1);
    }
}

TEST(Weather_Random_Numbers, A_Pair_Of_Normal_Numbers_Comes_From_One_Pair_Of_Uniform_Ones_Cosine_First)
{
    Weather_Random uniform("C");
    Weather_Random normal("C");
    const double radius = std::sqrt(-2 * std::log(uniform.Uniform()));
    const double angle = 2 * 3.14159265358979323846 * uniform.Uniform();

    EXPECT_DOUBLE_EQ(normal.Normal(), radius * std::cos(angle));
    EXPECT_DOUBLE_EQ(normal.Normal(), radius * std::sin(angle));
    EXPECT_EQ(normal.Next(), uniform.Next());
}

TEST(Weather_Random_Numbers, Gamma_Numbers_Have_Mean_And_Variance_Of_Their_Shape)
{
    constexpr int count = 200000;
    for (const double shape : {0.5, 1.0, 2.8}) {
        Weather_Random random("K");
        double sum = 0;
        double squares = 0;
        for (int i = 0; i < count; ++i) {
            const double x = random.Gamma(shape);
            sum += x;
            squares += x * x;
        }
        const double mean = sum / count;
        EXPECT_NEAR(mean, shape, 0.02 * shape);
        EXPECT_NEAR(squares / count - mean * mean, shape, 0.04 * shape);
    }
}

TEST(Weather_Files, Hamburg_Begins_With_These_Rows)
{
    const auto files = Format_Weather(Site("H"), Weather("H", 1));

    ASSERT_EQ(files.size(), 1U);
    EXPECT_TRUE(
        files[0].starts_with("DEM Hamburg year 1, generated weather, demonstration data, not for regulatory use\r\n"
                             " 0101010.000     0.029     5.3       2.1       7.5       58.9      2477      \r\n"
                             " 0201010.000     0.025     5.0       2.9       5.1       69.9      2063      \r\n"
                             " 0301010.000     0.029     7.8       5.6       5.4       69.2      2139      \r\n"))
        << files[0].substr(0, 400);
}

TEST(Weather_Files, The_First_Year_Of_Hamburg_Has_The_Known_Sums)
{
    const auto days = Weather("H", 1);

    EXPECT_NEAR(Mean(days, &Weather_Day::Rain, 10), 94.44, 0.005001);
    EXPECT_NEAR(Mean(days, &Weather_Day::Evaporation, 10), 63.22, 0.005001);
    EXPECT_NEAR(Mean(days, &Weather_Day::Temp_Mean, 365), 9.34, 0.005001);
}

TEST(Weather_Files, Years_Come_Out_The_Same_However_Many_Follow_Them)
{
    const auto two = Weather("P_S", 2);
    const auto five = Weather("P_S", 5);

    EXPECT_TRUE(std::equal(two.begin(), two.end(), five.begin()));
}

TEST(Weather_Files, Every_Fourth_Year_Has_A_29_February)
{
    const auto files = Format_Weather(Site("T_N"), Weather("T_N", 5));

    ASSERT_EQ(files.size(), 5U);
    for (std::size_t year = 1; year <= 5; ++year) {
        EXPECT_EQ(Split_Lines(files[year - 1]).size(), year == 4 ? 367U : 366U);
        EXPECT_EQ(Contains(files[year - 1], "\n 2902"), year == 4);
    }
}

TEST(Weather_Files, Titles_Keep_The_Accents_Of_The_Names)
{
    EXPECT_TRUE(Format_Weather(Site("K"), Weather("K", 1))[0].starts_with(
        "DEM Kremsm\xFCnster year 1, generated weather, demonstration data, not for regulatory use\r\n"));
}

TEST(Weather_Files, Rows_Are_Read_Back_With_The_Numbers_That_Were_Printed)
{
    const auto days = Weather("J", 1);

    const auto table = Parse_CLI(Format_Weather(Site("J"), days)[0]);

    ASSERT_EQ(table.Rows.size(), days.size());
    for (std::size_t i = 0; i < days.size(); ++i) {
        ASSERT_EQ(Val(table.Rows[i].Cli_Day), days[i].Day);
        ASSERT_EQ(Val(table.Rows[i].Cli_Month), days[i].Month);
        ASSERT_EQ(table.Rows[i].Cli_Year, "01");
        ASSERT_NEAR(table.Rows[i].Cli_Rain.value(), days[i].Rain / 10, 0.00050001);
        ASSERT_NEAR(table.Rows[i].Cli_Evap.value(), days[i].Evaporation / 10, 0.00050001);
        ASSERT_NEAR(table.Rows[i].Cli_Temp_14.value(), days[i].Temp_14, 0.050001);
        ASSERT_NEAR(table.Rows[i].Cli_Temp_Mean.value(), days[i].Temp_Mean, 0.050001);
        ASSERT_NEAR(table.Rows[i].Cli_Temp_Diff.value(), days[i].Temp_Diff, 0.050001);
        ASSERT_NEAR(table.Rows[i].Cli_Rel_Hum.value(), days[i].Humidity, 0.050001);
        ASSERT_NEAR(table.Rows[i].Cli_Radiation.value(), 1000 * days[i].Radiation, 0.50001);
    }
}

TEST(Calendar, Counts_Every_Day_Of_66_Years_With_Its_Leap_Days)
{
    const std::string text = Format_Calendar(66);
    const auto lines = Split_Lines(text);

    ASSERT_EQ(lines.size(), 24106U);
    EXPECT_EQ(lines.front(), "1 1 1 1");
    EXPECT_EQ(lines[31], "32 1 2 1");
    EXPECT_EQ(lines[1095 + 59], "1155 29 2 4");
    EXPECT_EQ(lines.back(), "24106 31 12 66");
}

} // namespace

} // namespace orvel
