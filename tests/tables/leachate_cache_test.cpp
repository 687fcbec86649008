#include "core/files.h"
#include "core/system/lock.h"
#include "leachate_run.h"
#include "tables/leachate_tables.h"

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

TEST_F(Leachate_Cache, Both_Files_Are_Shown_As_They_Stand_And_No_Value_Is_Computed)
{
    Write_File(Run / "Year.ORV", "a year table\r\nin two lines\r\n");
    Write_File(Run / "period.orv", "a period table");

    const auto tables = Build_Or_Load(Run.Path());

    EXPECT_TRUE(tables.From_Cache);
    EXPECT_EQ(tables.Year_Text, "a year table\r\nin two lines\r\n");
    EXPECT_EQ(tables.Period_Text, "a period table\r\n");
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
