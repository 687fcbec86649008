#include "core/files.h"
#include "core/system/lock.h"
#include "core/text.h"
#include "leachate_run.h"
#include "tables/leachate_tables.h"
#include "tables/table_cache.h"

#include <gtest/gtest.h>

namespace orvel {

namespace fs = std::filesystem;

namespace {

class Leachate_Cache : public testing::Test {
protected:
    Leachate_Cache()
    {
        Run.Write_Water(8);
        Run.Write_Chem(".orv", Rising(8), Rising(8));
    }

    bool Has_Cache() const { return fs::exists(Run / "year.orv") || fs::exists(Run / "period.orv"); }

    Leachate_Run Run;
};

} // namespace

TEST_F(Leachate_Cache, Names_Of_The_Stored_Files_Are_Found_In_Any_Case)
{
    Build_Or_Load(Run.Path());
    fs::rename(Run / "year.orv", Run / "Year.ORV");

    EXPECT_TRUE(Build_Or_Load(Run.Path()).From_Cache);
}

TEST_F(Leachate_Cache, Stored_Tables_Are_Taken_Without_The_Output_That_They_Were_Made_Of)
{
    Build_Or_Load(Run.Path());
    for (const char* name : {"Wasser.orv", "chem.orv", "plot.orv"})
        fs::remove(Run / name);

    const auto tables = Build_Or_Load(Run.Path());

    EXPECT_TRUE(tables.From_Cache);
    EXPECT_EQ(tables.Note(), "");
    EXPECT_EQ(tables.Year[0][0].Rows.size(), 8U);
}

TEST_F(Leachate_Cache, A_Damaged_File_Is_Told_And_Both_Are_Built_Anew)
{
    const auto built = Build_Or_Load(Run.Path());
    const std::string year = Read_File(Run / "year.orv"), period = Read_File(Run / "period.orv");
    const auto swapped = [](std::string text, const std::string& what, const std::string& by) {
        text.replace(text.find(what), what.size(), by);
        return text;
    };
    const std::string seventh = "\t7       \t7.0000000   \t100.000     \t7.000\r\n";
    const std::vector<std::pair<std::string, std::string>> damages = {
        {"", period}, // nothing but the name is left
        {year, ""},
        {"", ""},
        {year.substr(0, year.size() / 2), period},                     // cut within a table
        {year.substr(0, year.find("\tResults for", 100) - 6), period}, // cut behind a table
        {year, period.substr(0, period.size() - 2)},                   // without its last end of line
        {swapped(year, seventh, ""), period},                          // a row is missing
        {swapped(year, "\t7.0000000", "\t7.1000000"), period},         // another figure
        {year, swapped(period, "\t7.0000000", "\t7.1000000")},
        {swapped(year, "\t15.0000", "\t25.0000"), period},        // a total that is not the sum
        {swapped(year, "(8/7)", "(9/7)"), period},                // a year that is not there
        {swapped(year, "Engine", "engine"), period},              // tables of two different runs
        {Replace_All(year, "\t7.0000000", "\t1.7E+308"), period}, // no number holds the sum
        {std::string(1 << 16, '\0'), std::string(1 << 16, '\0')},
        {"a year table\r\n", "a period table\r\n"},
    };

    for (const auto& [bad_year, bad_period] : damages) {
        SCOPED_TRACE(bad_year.substr(0, 40) + "..." + std::to_string(&bad_year - &damages[0].first));
        Write_File(Run / "year.orv", bad_year);
        Write_File(Run / "period.orv", bad_period);

        const auto tables = Build_Or_Load(Run.Path());

        EXPECT_FALSE(tables.From_Cache);
        EXPECT_EQ(tables.Note(), "The stored table was damaged: it has been built anew.");
        EXPECT_EQ(tables.Year_Text, built.Year_Text);
        EXPECT_EQ(Read_File(Run / "year.orv"), year);
        EXPECT_EQ(Read_File(Run / "period.orv"), period);
    }
    EXPECT_EQ(Build_Or_Load(Run.Path()).Note(), "");
}

TEST_F(Leachate_Cache, A_Damaged_File_Without_The_Output_Is_A_Failure_And_Stays_As_It_Is)
{
    Build_Or_Load(Run.Path());
    Write_File(Run / "year.orv", "");
    fs::remove(Run / "Wasser.orv");

    const auto tables = Build_Or_Load(Run.Path());

    EXPECT_TRUE(tables.Failure.starts_with("The stored table is damaged. ")) << tables.Failure;
    EXPECT_NE(tables.Failure.find("Wasser.orv"), std::string::npos) << tables.Failure;
    EXPECT_EQ(Read_File(Run / "year.orv"), "");
}

TEST_F(Leachate_Cache, A_Table_Older_Than_The_Output_Is_Told_And_Built_Anew)
{
    for (const char* name : {"echo.orv", "plot.orv", "Wasser.orv", "chem.orv", "chem_C2.orv"}) {
        SCOPED_TRACE(name);
        Run.Write_Chem("_C2.orv", Rising(8), Rising(8));
        Build_Or_Load(Run.Path());
        const auto stored = fs::last_write_time(Run / "year.orv");
        fs::last_write_time(Run / name, stored + std::chrono::milliseconds(1));

        const auto tables = Build_Or_Load(Run.Path());

        EXPECT_FALSE(tables.From_Cache);
        EXPECT_EQ(tables.Note(), "The stored table was older than its run: it has been built anew.");
        for (const auto& entry : fs::directory_iterator(Run.Path()))
            fs::last_write_time(entry.path(), stored);
        EXPECT_TRUE(Build_Or_Load(Run.Path()).From_Cache);
        fs::remove(Run / "year.orv");
    }
}

TEST_F(Leachate_Cache, A_Table_Tells_When_The_Run_Behind_It_Has_Changed)
{
    const auto tables = Build_Or_Load(Run.Path());
    EXPECT_FALSE(Is_Older(tables, Run.Path()));

    fs::last_write_time(Run / "chem.orv", fs::last_write_time(Run / "chem.orv") + std::chrono::seconds(1));
    EXPECT_TRUE(Is_Older(tables, Run.Path()));
}

TEST_F(Leachate_Cache, A_Stored_File_That_Cannot_Be_Read_Is_Told_And_Not_Overwritten)
{
    Build_Or_Load(Run.Path());
    fs::remove(Run / "year.orv");
    fs::create_directory(Run / "year.orv");

    const auto tables = Build_Or_Load(Run.Path());

    EXPECT_EQ(tables.Failure, "");
    EXPECT_FALSE(tables.Kept);
    EXPECT_NE(tables.Not_Kept.find("year.orv"), std::string::npos) << tables.Not_Kept;
    EXPECT_EQ(tables.Year[0][0].Rows.size(), 8U);
    EXPECT_TRUE(fs::is_directory(Run / "year.orv"));
}

TEST_F(Leachate_Cache, Figures_Whose_Last_Digit_Is_Rounded_Up_Are_No_Damage)
{
    std::string chem;
    for (int y = 0; y < 8; ++y)
        chem += Chem_Block("9.999999996E-3", "9.9999996E-02"); // 10.0000000 g/ha and 100.0000 g/ha
    Write_File(Run / "chem.orv", chem + End_Of_Output());

    EXPECT_FALSE(Build_Or_Load(Run.Path()).From_Cache);
    EXPECT_TRUE(Build_Or_Load(Run.Path()).From_Cache);
}

TEST_F(Leachate_Cache, A_Run_Of_Another_Number_Of_Years_Keeps_The_Length_Of_Its_Periods)
{
    Run.Write_Water(12);
    Run.Write_Chem(".orv", Rising(12), Rising(12));
    Build_Or_Load(Run.Path(), {}, 2);

    EXPECT_EQ(Build_Or_Load(Run.Path(), {}, 1).Period_Index, 2);
}

TEST_F(Leachate_Cache, The_Window_From_The_Cache_Has_No_Blanks_Before_The_Titles_The_80_At_1_M_And_The_Wide_Period_Head)
{
    const auto built = Build_Or_Load(Run.Path());
    const auto loaded = Build_Or_Load(Run.Path());

    EXPECT_TRUE(built.Year_Text.starts_with("          Engine\r\n"));
    EXPECT_TRUE(loaded.Year_Text.starts_with("Engine\r\n"));
    EXPECT_EQ(Lines_With(built.Year_Text, "80 Perc.(").size(), 1U);
    EXPECT_EQ(Lines_With(loaded.Year_Text, "80 Perc.(").size(), 2U);
    EXPECT_EQ(Lines_With(built.Period_Text, "\t Period \t").size(), 2U);
    EXPECT_EQ(Lines_With(loaded.Period_Text, "\t     Period \t").size(), 2U);
    EXPECT_EQ(loaded.Year_Text, Read_File(Run / "year.orv"));
    EXPECT_EQ(loaded.Period_Text, Read_File(Run / "period.orv"));
}

TEST_F(Leachate_Cache, Umlauts_Of_The_Older_Form_Are_Mapped_In_Texts_From_The_Cache_Alone)
{
    std::string plot = Plot_Head_Of(1, 0);
    plot.replace(plot.find("Scenario"), 8, "Kremsm\x81nster");
    Write_File(Run / "plot.orv", plot);

    EXPECT_EQ(Lines_With(Build_Or_Load(Run.Path()).Year_Text, "Kremsm\x81nster").size(), 1U);
    EXPECT_EQ(Lines_With(Build_Or_Load(Run.Path()).Year_Text, "Kremsm\xFCnster").size(), 1U);
    EXPECT_EQ(Lines_With(Read_File(Run / "year.orv"), "Kremsm\x81nster").size(), 1U);
}

TEST_F(Leachate_Cache, The_Figures_From_The_Cache_Are_Those_Of_The_Build)
{
    const auto built = Build_Or_Load(Run.Path());
    const auto loaded = Build_Or_Load(Run.Path());

    for (const std::size_t depth : {0, 1}) {
        ASSERT_EQ(loaded.Year[depth].size(), 1U);
        EXPECT_EQ(loaded.Year[depth][0].Rows, built.Year[depth][0].Rows);
        EXPECT_EQ(loaded.Year[depth][0].Result, built.Year[depth][0].Result);
        EXPECT_EQ(loaded.Period[depth][0].Rows, built.Period[depth][0].Rows);
        EXPECT_EQ(loaded.Period[depth][0].Result, built.Period[depth][0].Result);
    }
    EXPECT_EQ(loaded.Result_Name, std::vector<std::string>{"Results for Substance D"});
}

TEST_F(Leachate_Cache, A_Missing_File_Of_The_Two_Causes_A_Full_Rebuild)
{
    for (const std::string name : {"year.orv", "period.orv"}) {
        Build_Or_Load(Run.Path());
        const std::string bytes = Read_File(Run / name);
        fs::remove(Run / name);

        EXPECT_FALSE(Build_Or_Load(Run.Path()).From_Cache);
        EXPECT_EQ(Read_File(Run / name), bytes);
    }
}

TEST_F(Leachate_Cache, No_Cache_Is_Written_From_A_Run_Whose_Lock_Is_Held)
{
    for (const auto& path : {Run.Path(), Run / "echo.orv"}) {
        const auto lock = Lock::Take(path);
        ASSERT_TRUE(lock);

        const auto tables = Build_Or_Load(Run.Path());

        EXPECT_EQ(tables.Failure, "");
        EXPECT_EQ(tables.Not_Kept, "The simulation is still at work.");
        EXPECT_FALSE(tables.Kept);
        EXPECT_FALSE(Has_Cache());
        EXPECT_EQ(Lines_With(tables.Period_Text, "Perc.").size(), 2U);
    }
}

TEST_F(Leachate_Cache, No_Cache_Is_Written_From_A_Run_Whose_Lock_Is_Taken_While_It_Is_Read)
{
    std::optional<Lock> lock;

    Build_Or_Load(Run.Path(), [&](const std::string&, double) {
        if (!lock)
            lock = Lock::Take(Run.Path());
        return true;
    });

    EXPECT_TRUE(lock);
    EXPECT_FALSE(Has_Cache());
}

TEST_F(Leachate_Cache, A_Failed_Run_Is_Shown_But_Not_Cached)
{
    Write_File(Run / "echo.orv", Echo_File({.Last = " *** ERROR 99: RUN NOT COMPLETED"}));

    const auto tables = Build_Or_Load(Run.Path());

    EXPECT_EQ(tables.Not_Kept, "The simulation failed: its echo file, echo.orv, tells why.");
    EXPECT_EQ(Lines_With(tables.Year_Text, "Perc.").size(), 2U);
    EXPECT_FALSE(Has_Cache());
}

TEST_F(Leachate_Cache, A_Run_Without_A_Record_Whose_Echo_Was_Cut_Is_Told_And_Not_Cached)
{
    const std::string echo = " ORVEL ENGINE 4.01\r\n" + Echo_File({}) + " *** SIMULATION COMPLETED ***\r\n";
    Write_File(Run / "echo.orv", echo);
    EXPECT_EQ(Build_Or_Load(Run.Path()).Gap, "");

    for (const std::size_t kept : {std::size_t{0}, std::size_t{100}, echo.size() - 3}) {
        fs::remove(Run / "year.orv");
        fs::remove(Run / "period.orv");
        Write_File(Run / "echo.orv", echo.substr(0, kept));
        const auto tables = Build_Or_Load(Run.Path());
        EXPECT_EQ(tables.Gap, "The simulation is incomplete: the output echo.orv ends early.") << kept;
        EXPECT_FALSE(Has_Cache());
    }
}

TEST_F(Leachate_Cache, A_Run_Without_Plot_File_Is_Shown_But_Not_Cached)
{
    fs::remove(Run / "plot.orv");

    const auto tables = Build_Or_Load(Run.Path());

    EXPECT_EQ(tables.Not_Kept, "The run has no complete plot.orv.");
    EXPECT_TRUE(tables.Year_Text.starts_with(
        "          \r\n          \r\n          \r\n          \r\n \r\n \r\n\tResults for Substance D"));
    EXPECT_EQ(Lines_With(tables.Year_Text, "Perc.").size(), 2U);
    EXPECT_FALSE(Has_Cache());
}

TEST_F(Leachate_Cache, A_Run_Whose_Plot_File_Ends_In_Its_Head_Is_Shown_But_Not_Cached)
{
    Write_File(Run / "plot.orv", "Engine\r\n\r\nScenario\r\n");

    EXPECT_TRUE(Build_Or_Load(Run.Path()).Year_Text.starts_with("          Engine\r\n          Scenario\r\n"));
    EXPECT_FALSE(Has_Cache());
}

TEST_F(Leachate_Cache, A_Cache_That_Cannot_Be_Written_Leaves_The_Old_File_And_Shows_The_Table)
{
    Write_File(Run / "year.orv", "old");
    Set_Read_Only(Run / "year.orv", true);

    const auto tables = Build_Or_Load(Run.Path());

    EXPECT_FALSE(tables.Kept);
    EXPECT_NE(tables.Not_Kept, "");
    EXPECT_EQ(tables.Failure, "");
    EXPECT_EQ(Lines_With(tables.Period_Text, "Perc.").size(), 2U);
    EXPECT_EQ(Read_File(Run / "year.orv"), "old");
    Set_Read_Only(Run / "year.orv", false);
}

TEST_F(Leachate_Cache, Nothing_But_The_Two_Caches_Is_Left_In_The_Run_Directory)
{
    Build_Or_Load(Run.Path());

    EXPECT_EQ(List_Files(Run.Path(), "*"),
              (std::vector<std::string>{"chem.orv", "echo.orv", "period.orv", "plot.orv", "Wasser.orv", "year.orv"}));
}

} // namespace orvel
