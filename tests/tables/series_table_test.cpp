#include "tables/series_table.h"

#include "core/error.h"
#include "core/files.h"
#include "core/text.h"
#include "output/engine_files.h"
#include "tables/series.h"
#include "temporary_directory.h"

#include <array>
#include <chrono>
#include <gtest/gtest.h>

namespace orvel {

namespace fs = std::filesystem;

namespace {

// A precipitation, a leaching output and a soil moisture; behind them, where wanted, the columns of a soil profile.
std::string Head(int months, int profile = 0)
{
    std::string codes = "            PRSN      PFLX      THET", depths = "                 0.0     100.0      30.0",
                scales = "           1.0       1.0E05    1.0   ";
    for (int i = 0; i < profile; ++i) {
        codes += "      TPSC";
        depths += "       1.0";
        scales += "    1.0E06";
    }
    const auto count = [](int value) { return Line_At({{7 - std::to_string(value).size(), std::to_string(value)}}); };
    return Lines({"Engine", "", "Scenario", "Pesticide", "", "total content (mg/kg)",
                  count(months) + count(3 + profile) + count(profile), codes, depths, scales}) +
           Plot_Line(1, 1, {"0.0", "0.0", "0.3"});
}

std::string Calendar(int years)
{
    constexpr std::array<int, 12> Days = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    std::string text;
    int number = 0;
    for (int year = 1; year <= years; ++year) {
        for (std::size_t month = 0; month < Days.size(); ++month) {
            for (int day = 1; day <= Days[month]; ++day)
                text += std::to_string(++number) + " " + std::to_string(day) + " " + std::to_string(month + 1) + " " +
                        std::to_string(year) + "\r\n";
        }
    }
    return text;
}

// The lines of some days with one value each for the three columns.
std::string Days(int from, int to, const std::vector<std::string>& values)
{
    std::string text;
    for (int day = from; day <= to; ++day)
        text += Plot_Line(day, 24, values);
    return text;
}

// Two years of 365 days: 0.5 cm of rain a day, in the second year 0.25.
std::string Two_Years()
{
    return Head(24) + Days(1, 365, {"0.5", "0.001", "0.2"}) + Days(366, 730, {"0.25", "0.0", "0.4"});
}

class Series_Table_Test : public testing::Test {
protected:
    Series_Table_Test() { Write_File(Place / "datum.dat", Calendar(2)); }

    std::string Table(Utility period)
    {
        return Series_Table(period, Place.Path(), Parse_Calendar(Read_Whole(Place / "datum.dat")));
    }

    std::string Table_Of(const std::string& plot, Utility period = Utility::Year)
    {
        Write_File(Place / "plot.orv", plot);
        return Table(period);
    }

    // Why there is no table; the old one has to stand.
    std::string Refusal_Of(const std::string& plot)
    {
        Write_File(Place / "plot.orv", plot);
        Write_File(Place / "year.orv", "old table");
        std::string told;
        try {
            Make_Utility_Table(Utility::Year, Place.Path(), Place.Path());
        } catch (const File_Error& error) {
            told = error.what();
        }
        EXPECT_EQ(Read_Whole(Place / "year.orv"), "old table");
        EXPECT_EQ(List_Files(Place.Path(), "*").size(), 3U);
        return told;
    }

    // The rows between the rules, each as its cells.
    static std::vector<std::vector<std::string>> Rows(const std::string& table)
    {
        std::vector<std::vector<std::string>> rows;
        int rules = 0;
        for (const auto line : Split_Lines(table)) {
            if (Contains(line, "-----"))
                ++rules;
            else if (rules == 1) {
                auto& row = rows.emplace_back();
                for (std::size_t at = 1; at <= line.size();) {
                    const auto end = std::min(line.find('\t', at), line.size());
                    row.emplace_back(Trim(line.substr(at, end - at)));
                    at = end + 1;
                }
            }
        }
        EXPECT_EQ(rules, 2);
        return rows;
    }

    Temporary_Directory Place;
};

using Cells = std::vector<std::vector<std::string>>;

} // namespace

TEST_F(Series_Table_Test, A_Year_Has_The_Amounts_Of_Its_Flows_And_The_Means_Of_Its_States)
{
    EXPECT_EQ(Rows(Table_Of(Two_Years())), (Cells{{"1", "365", "182.500", "0.3650000", "0.2000000"},
                                                  {"2", "365", "91.2500", "0.00E+00", "0.4000000"}}));
}

TEST_F(Series_Table_Test, The_Table_Names_The_Run_And_Its_Columns_With_The_Units_Of_Amounts)
{
    const std::string table = Table_Of(Two_Years());

    EXPECT_TRUE(
        table.starts_with("Engine\r\nScenario\r\nPesticide\r\ntotal content (mg/kg)\r\n\r\n\tSeries by year\r\n"));
    EXPECT_TRUE(Contains(table, "\t1       \tPrecipitation (cm), amount\r\n"));
    EXPECT_TRUE(Contains(table, "\t2       \tLeaching output at 100 cm for unknown (kg/ha), amount\r\n"));
    EXPECT_TRUE(Contains(table, "\t3       \tSoil moisture at 30 cm (m\xB3/m\xB3), mean of the days\r\n"));
    EXPECT_TRUE(Contains(table, "\t  Year  \tDays    \tPRSN        \tPFLX        \tTHET        \r\n"));
}

TEST_F(Series_Table_Test, A_Month_Is_A_Row_Of_Its_Own)
{
    const auto rows = Rows(Table_Of(Two_Years(), Utility::Month));

    ASSERT_EQ(rows.size(), 24U);
    EXPECT_EQ(rows[1], (std::vector<std::string>{"1", "2", "28", "14.0000", "0.0280000", "0.2000000"}));
    EXPECT_EQ(rows[12], (std::vector<std::string>{"2", "1", "31", "7.7500000", "0.00E+00", "0.4000000"}));
}

TEST_F(Series_Table_Test, A_Day_With_Lines_By_The_Hour_Is_Their_Average)
{
    std::string plot = Head(12) + Days(1, 2, {"0.5", "0.0", "0.2"});
    for (int hour = 1; hour <= 24; ++hour)
        plot += Plot_Line(3, hour, {hour <= 12 ? "2.4" : "0.0", "0.0", hour <= 6 ? "0.4" : "0.2"});
    const auto rows = Rows(Table_Of(plot, Utility::Day));

    ASSERT_EQ(rows.size(), 3U);
    EXPECT_EQ(rows[0], (std::vector<std::string>{"1", "1", "1", "0.5000000", "0.00E+00", "0.2000000"}));
    EXPECT_EQ(rows[2], (std::vector<std::string>{"1", "1", "3", "1.2000000", "0.00E+00", "0.2500000"}));
}

TEST_F(Series_Table_Test, A_Run_From_March_To_March_Has_The_Days_Of_Each_Year_Beside_Them)
{
    const auto rows = Rows(Table_Of(Head(24) + Days(60, 400, {"0.1", "0.0", "0.2"})));

    EXPECT_EQ(rows, (Cells{{"1", "306", "30.6000", "0.00E+00", "0.2000000"},
                           {"2", "35", "3.5000000", "0.00E+00", "0.2000000"}}));
}

TEST_F(Series_Table_Test, The_Columns_Of_The_Soil_Profile_Are_Left_Out)
{
    std::vector<std::string> values = {"0.5", "0.0", "0.2"};
    values.resize(23, "7.0");
    const std::string table = Table_Of(Head(12, 20) + Days(1, 1, values));

    EXPECT_EQ(Rows(table), (Cells{{"1", "1", "0.5000000", "0.00E+00", "0.2000000"}}));
    EXPECT_FALSE(Contains(table, "TPSC"));
}

TEST_F(Series_Table_Test, The_Copy_Is_Read_Unless_It_Is_A_Head_Alone_Or_Older_Than_The_Series)
{
    Write_File(Place / "plot.orv", Head(12) + Days(1, 1, {"1.0", "0.0", "0.2"}));
    EXPECT_EQ(Series_File(Place.Path()), Place / "plot.orv");

    Write_File(Place / "grw.orv", Lines({"Engine", "", "Scenario", "Pesticide", "", "line 6", "    12     3     0"}));
    EXPECT_EQ(Series_File(Place.Path()), Place / "plot.orv");

    Write_File(Place / "grw.orv", Head(12) + Days(1, 1, {"2.0", "0.0", "0.2"}));
    EXPECT_EQ(Series_File(Place.Path()), Place / "grw.orv");
    EXPECT_EQ(Rows(Table(Utility::Year))[0][2], "2.0000000");

    fs::last_write_time(Place / "plot.orv", fs::last_write_time(Place / "grw.orv") + std::chrono::seconds(2));
    EXPECT_EQ(Series_File(Place.Path()), Place / "plot.orv");

    fs::remove(Place / "plot.orv");
    EXPECT_EQ(Series_File(Place.Path()), Place / "grw.orv");
}

TEST_F(Series_Table_Test, Empty_And_Headless_Series_Are_Refused)
{
    EXPECT_EQ(Refusal_Of(""), "The file plot.orv is empty or ends within its head.");
    EXPECT_EQ(Refusal_Of(Head(12).substr(0, 180)), "The file plot.orv is empty or ends within its head.");
    EXPECT_EQ(Refusal_Of(Head(12)), "The file plot.orv has no day behind its head.");
}

TEST_F(Series_Table_Test, Series_That_End_Early_Are_Refused_Wherever_They_Are_Cut)
{
    const std::string plot = Two_Years();

    EXPECT_EQ(Refusal_Of(plot.substr(0, plot.size() - 4)),
              "The file plot.orv is damaged in line 741: it has not the 3 values of the head.");
    EXPECT_EQ(Refusal_Of(Head(24) + Days(1, 365, {"0.5", "0.0", "0.2"})),
              "The file plot.orv ends on 31.12.1, which is not the end of its run of 2 years.");
    EXPECT_EQ(Refusal_Of(Head(12) + Plot_Line(1, 1, {"0.0", "0.0", "0.2"})), "The file plot.orv ends within day 1.");
}

TEST_F(Series_Table_Test, The_Run_Control_Tells_The_Last_Day)
{
    Write_File(Place / "orvel.inp", Lines({"002 01 01 31 12", "a.sze", "a.psm", "a.cli", "a.cli", "00000000"}));
    const std::string plot = Two_Years();

    EXPECT_EQ(Rows(Table_Of(plot)).size(), 2U);
    EXPECT_THROW(Table_Of(plot.substr(0, plot.size() - Days(730, 730, {"0.25", "0.0", "0.4"}).size())), File_Error);
}

TEST_F(Series_Table_Test, An_End_On_The_31st_Of_A_Shorter_Month_Is_Its_Last_Day)
{
    Write_File(Place / "orvel.inp", Lines({"001 01 01 31 04", "a.sze", "a.psm", "a.cli", "00000000"}));

    EXPECT_EQ(Rows(Table_Of(Head(12) + Days(1, 120, {"1.0", "0.0", "0.2"}))).size(), 1U);
    EXPECT_THROW(Table_Of(Head(12) + Days(1, 119, {"1.0", "0.0", "0.2"})), File_Error);
}

TEST_F(Series_Table_Test, Damaged_Lines_Are_Refused_With_Their_Number)
{
    const std::string first = Head(12) + Days(1, 1, {"0.5", "0.0", "0.2"});

    EXPECT_EQ(Refusal_Of(first + Plot_Line(2, 24, {"0.5", "0.x", "0.2"})),
              "The file plot.orv is damaged in line 13: value 2 is no number.");
    EXPECT_EQ(Refusal_Of(first + Plot_Line(2, 24, {"0.5", "nan", "0.2"})),
              "The file plot.orv is damaged in line 13: value 2 is no number.");
    EXPECT_EQ(Refusal_Of(first + Plot_Line(2, 24, {"0.5", "0.0"})),
              "The file plot.orv is damaged in line 13: it has not the 3 values of the head.");
    EXPECT_EQ(Refusal_Of(first + Plot_Line(2, 24, {"0.5", "0.0", "0.1", "9.9"})),
              "The file plot.orv is damaged in line 13: it has not the 3 values of the head.");
    EXPECT_EQ(Refusal_Of(first + Plot_Line(3, 24, {"0.5", "0.0", "0.1"})),
              "The file plot.orv jumps from day 1 to day 3 in line 13.");
    EXPECT_EQ(Refusal_Of(first + Plot_Line(1, 24, {"0.5", "0.0", "0.1"})),
              "The file plot.orv jumps from day 1 to day 1 in line 13.");
    EXPECT_EQ(Refusal_Of(first + "\r\n"), "The file plot.orv jumps from day 1 to day 0 in line 13.");
    EXPECT_EQ(Refusal_Of(first + Plot_Line(2, 30, {"0.5", "0.0", "0.1"})),
              "The file plot.orv is damaged in line 13: its hours do not follow each other.");
}

TEST_F(Series_Table_Test, Days_That_The_Calendar_Does_Not_Have_Are_Refused)
{
    EXPECT_EQ(Refusal_Of(Head(36) + Days(729, 731, {"0.5", "0.0", "0.2"})),
              "The file plot.orv has day 731 in line 14, which the calendar datum.dat does not have.");
}

TEST_F(Series_Table_Test, A_Head_Whose_Counts_Do_Not_Fit_Is_Refused)
{
    const std::string head = Lines({"", "", "", "", "", "", "    12     1     5", "            PRSN",
                                    "                 0.0", "           1.0", ""});

    EXPECT_EQ(Refusal_Of(head), "The file plot.orv has a damaged head: more columns of the soil profile than columns.");
}

TEST_F(Series_Table_Test, A_Table_Goes_By_The_Calendar_Of_The_Directory_Else_By_That_Of_The_Programs)
{
    const Temporary_Directory run;
    Write_File(run / "plot.orv", Two_Years());
    const auto told = [&](const fs::path& programs) -> std::string {
        try {
            Make_Utility_Table(Utility::Month, run.Path(), programs);
        } catch (const File_Error& error) {
            return error.what();
        }
        return {};
    };

    EXPECT_EQ(told(run.Path()), "The calendar datum.dat is missing, so that the days of the series have no dates.");
    EXPECT_FALSE(fs::exists(run / "month.orv"));
    EXPECT_EQ(told(Place.Path()), "");
    EXPECT_EQ(Rows(Read_Whole(run / "month.orv")).size(), 24U);
}

TEST_F(Series_Table_Test, The_Directory_Of_A_Batch_Keeps_Its_Own_Table)
{
    const fs::path run = Place / "Hamburg_-_(H).run";
    fs::create_directories(run);
    Write_File(run / "plot.orv", Two_Years());

    EXPECT_THROW(Make_Utility_Table(Utility::Year, run, Place.Path()), File_Error);
    EXPECT_FALSE(fs::exists(run / "year.orv"));
}

} // namespace orvel
