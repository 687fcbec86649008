#include "records/compare.h"

#include "core/error.h"
#include "core/files.h"
#include "files/field_units.h"
#include "output/engine_files.h"
#include "runs/run_fixture.h"
#include "tables/leachate_run.h"

namespace orvel {

namespace fs = std::filesystem;

namespace {

Run_Figure Figure(const std::string& location, const std::string& substance, double value)
{
    return {{"focus", "demo", "Maize", location}, substance, value, ""};
}

} // namespace

TEST(Compare_Results, Figures_Of_The_Same_Run_And_Substance_Have_A_Ratio)
{
    const auto compared = Compare_Results({Figure("H", "parent", 2), Figure("H", "A1", 0)},
                                          {Figure("H", "A1", 0), Figure("H", "parent", 3)});

    ASSERT_EQ(compared.size(), 2U);
    EXPECT_EQ(compared[0].Ratio, 1.5);
    EXPECT_FALSE(compared[0].Is_Same(0.49));
    EXPECT_TRUE(compared[0].Is_Same(0.5));
    EXPECT_EQ(compared[1].Ratio, 1.0);
    EXPECT_TRUE(compared[1].Is_Same(0));
}

TEST(Compare_Results, A_Figure_That_One_Side_Lacks_Differs_At_Any_Tolerance_And_Says_Why)
{
    const Run_Figure failed{{"focus", "demo", "Maize", "K"}, "", std::nullopt, "The simulation failed."};

    const auto compared =
        Compare_Results({Figure("H", "parent", 2), Figure("K", "parent", 1)}, {failed, Figure("N", "parent", 1)});

    ASSERT_EQ(compared.size(), 3U);
    EXPECT_EQ(compared[0].Second_State, "There is no such simulation.");
    EXPECT_EQ(compared[1].Second_State, "The simulation failed.");
    EXPECT_EQ(compared[2].First_State, "There is no such simulation.");
    for (const auto& row : compared)
        EXPECT_FALSE(row.Is_Same(1e9));
}

TEST(Compare_Results, No_Ratio_Can_Be_Given_To_Nothing)
{
    const auto compared = Compare_Results({Figure("H", "parent", 0)}, {Figure("H", "parent", 1)});

    EXPECT_FALSE(compared[0].Ratio);
    EXPECT_FALSE(compared[0].Is_Same(1e9));
}

TEST(Field_Units, A_Field_Has_Its_Unit_Wherever_It_Stands)
{
    EXPECT_EQ(Unit_Of_Field("Applications[1][3].App_Rate"), "kg/ha");
    EXPECT_EQ(Unit_Of_Field("Koc[1]"), "L/kg");
    EXPECT_EQ(Unit_Of_Field("Rows[5].Cli_Rain"), "cm");
    EXPECT_EQ(Unit_Of_Field("PSM_Title"), "");
}

class Compare_Test : public Run_Test {
protected:
    void Two_Pesticides()
    {
        Pesticide("a.psm", [](auto& document) { document.Koc[1] = 100; });
        Pesticide("b.psm", [](auto& document) {
            document.Koc[1] = 120;
            document.Applications[1][2].App_Rate = 0.8;
        });
    }

    // A run that an engine has completed, its annual fluxes at 1 m given in g/ha.
    fs::path Run(const std::string& root, const std::vector<int>& fluxes)
    {
        Leachate_Run run;
        run.Write_Water(fluxes.size());
        run.Write_Chem(".orv", fluxes, fluxes);
        const fs::path place = Home / root / "focus" / "a.run" / "Maize.run" / "Hamburg_-_(H).run";
        fs::create_directories(place.parent_path());
        fs::copy(run.Path(), place, fs::copy_options::recursive);
        Put_Control(place, "026 01 01 31 12");
        return place;
    }

    static void Put_Control(const fs::path& run, const std::string& head)
    {
        std::string control = head + "\r\nH.sze\r\na.psm\r\n";
        for (int year = 1; year <= 26; ++year)
            control += "c.cli\r\n";
        Put(run / "orvel.inp", control + "00000000 00.\r\n"); // no series
        Put(run / "c.cli", "climate\r\n");
    }
};

TEST_F(Compare_Test, Fields_That_Differ_Have_Name_Unit_And_Both_Values)
{
    Two_Pesticides();

    const auto comparison = Compare(Home / "a.psm", Home / "b.psm", 0);

    const std::vector<Compared_Field> expected = {{"a.psm", "Applications[1][2].App_Rate", "kg/ha", "0.75", "0.8"},
                                                  {"a.psm", "Koc[1]", "L/kg", "100", "120"}};
    EXPECT_EQ(comparison.Fields, expected);
    EXPECT_FALSE(comparison.Is_Same());
    EXPECT_EQ(Comparison_Lines(comparison), "field\ta.psm\tApplications[1][2].App_Rate\tkg/ha\t0.75\t0.8\n"
                                            "field\ta.psm\tKoc[1]\tL/kg\t100\t120\n");
}

TEST_F(Compare_Test, Numbers_Within_The_Tolerance_Are_The_Same)
{
    Two_Pesticides();

    EXPECT_EQ(Compare(Home / "a.psm", Home / "b.psm", 0.1).Fields.size(), 1U);
    EXPECT_TRUE(Compare(Home / "a.psm", Home / "b.psm", 0.2).Is_Same());
}

TEST_F(Compare_Test, Two_Of_Different_Kinds_And_What_Is_None_Are_Refused_With_A_Sentence)
{
    Pesticide("a.psm");
    Scenario(Home / "s.sze");
    const auto told = [&](const fs::path& other) -> std::string {
        try {
            Compare(Home / "a.psm", other, 0);
            return {};
        } catch (const File_Error& error) {
            return error.what();
        }
    };

    EXPECT_EQ(told(Home / "s.sze"), (Home / "a.psm").string() + " is a pesticide document and " +
                                        (Home / "s.sze").string() +
                                        " is a scenario document: only two of a kind can be compared.");
    EXPECT_NE(told(Home.Path()).find(" is an installation: only two"), std::string::npos);
    EXPECT_NE(told(Home / "Haude.dat").find("is no document"), std::string::npos);
    EXPECT_EQ(told(Home / "none.psm"), "Cannot read " + (Home / "none.psm").string() + ": No such file or directory.");
}

TEST_F(Compare_Test, A_Document_That_Cannot_Be_Read_Is_Told_With_Its_Place)
{
    Pesticide("a.psm");
    Put(Home / "b.psm", "no document\r\n");

    EXPECT_THROW(Compare(Home / "a.psm", Home / "b.psm", 0), File_Error);
}

TEST_F(Compare_Test, Runs_Are_Compared_By_Their_Settings_Documents_And_Figures)
{
    const auto one = Run("one", Rising(26)), other = Run("two", std::vector<int>(26, 40));
    Two_Pesticides();
    fs::copy(Home / "a.psm", one / "a.psm");
    fs::copy(Home / "b.psm", other / "a.psm");
    Scenario(one / "H.sze");
    fs::copy(one / "H.sze", other / "H.sze");
    Put_Control(other, "026 01 02 31 12");

    const auto comparison = Compare(one, other, 0);

    EXPECT_EQ(comparison.Fields[0], (Compared_Field{"orvel.inp", "line 1", "", "026 01 01 31 12", "026 01 02 31 12"}));
    EXPECT_EQ(comparison.Fields[1].Field, "Applications[1][2].App_Rate");
    ASSERT_EQ(comparison.Results.size(), 1U);
    // The 80th percentile of the fluxes 7 to 26 g/ha is the mean of the 16th and the 17th. 1 g/ha in 100 L/m2 is 1
    // ug/L.
    EXPECT_NEAR(comparison.Results[0].First.value(), 22.5, 0.0005);
    EXPECT_NEAR(comparison.Results[0].Second.value(), 40, 0.0005);
    EXPECT_NEAR(comparison.Results[0].Ratio.value(), 40 / 22.5, 0.001);
    EXPECT_TRUE(Compare(one, one, 0).Is_Same());
}

TEST_F(Compare_Test, Installations_Are_Compared_By_Their_Documents_And_Runs)
{
    Run("one", Rising(26));
    Run("two", Rising(26));
    EXPECT_TRUE(Compare(Home / "one", Home / "two", 0).Is_Same());

    Two_Pesticides();
    fs::copy(Home / "a.psm", Home / "one" / "a.psm");
    fs::copy(Home / "b.psm", Home / "two" / "a.psm");
    fs::copy(Home / "b.psm", Home / "two" / "b.psm");
    const auto comparison = Compare(Home / "one", Home / "two", 0);

    EXPECT_EQ(comparison.Fields.size(), 2U);
    EXPECT_EQ(comparison.Notes, std::vector<std::string>{"b.psm is only in the second one."});
    EXPECT_TRUE(comparison.Results[0].Is_Same(0));
    EXPECT_NE(Comparison_Json(comparison).find("\"location\": \"Hamburg (H)\""), std::string::npos);
}

} // namespace orvel
