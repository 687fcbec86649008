#include "substance/application_grid.h"

#include "application_session.h"

namespace orvel {

namespace {

constexpr auto Soil = Application_Method::Soil;
constexpr int Key_3 = 51, Key_1 = 49, Key_Point_Code = 190, Key_Minus_Code = 189, Key_Back = 8;

Application_Row Row(const char* day, const char* month, const char* year, const char* rate = "0.5",
                    const char* fraction = "0")
{
    return {"", day, month, year, "0", rate, "2", fraction};
}

Grid_Refusal No_Value(const char* text, int row, int column)
{
    return {{"Application Value Check", text}, row, column};
}

using Single_Applications = Application_Session;

} // namespace

TEST_F(Single_Applications, Have_The_Depth_Of_A_Soil_Application_And_The_Interception_Of_Any_Other_In_Column_6)
{
    EXPECT_EQ(Application_Grid_Headers(Soil),
              (std::array<std::string_view, 8>{"App. Number", "Day", "Month", "Year", "hour", "App. Rate [kg/ha]",
                                               "App. Depth [cm]", "Frac. Poorly Exposed[-]"}));
    EXPECT_EQ(Application_Grid_Headers(Application_Method::Linear)[6], "Interception [%]");
}

TEST_F(Single_Applications, Are_Loaded_As_Far_As_They_Are_Stored)
{
    Document.App_Count[1] = 2;
    Document.Applications[1][2] = {3, 4, 5, 0.25, 6, 70, 0.5, 9};

    const auto grid = Load_Application_Grid(The_Session.Pesticide, The_Session.Editor, "3", Soil);
    ASSERT_EQ(grid.size(), 3U);
    EXPECT_EQ(grid[1], (Application_Row{"Application 2", "3", "4", "5", "9", "0.25", "6", "0.5"}));
    EXPECT_EQ(grid[2], (Application_Row{"Application 3", "", "", "", "", "", "", ""}));

    EXPECT_EQ(Load_Application_Grid(The_Session.Pesticide, The_Session.Editor, "1", Soil).size(), 1U);
    EXPECT_EQ(Load_Application_Grid(The_Session.Pesticide, The_Session.Editor, "2", Application_Method::Manually)[1][6],
              "70");
    EXPECT_EQ(Load_Application_Grid(The_Session.Pesticide, The_Session.Editor, "1E9", Soil).size(), 521U);
    EXPECT_TRUE(Load_Application_Grid(The_Session.Pesticide, The_Session.Editor, "abc", Soil).empty());
}

TEST_F(Single_Applications, Take_No_Key_That_Makes_A_Day_Month_Or_Year_Too_Large)
{
    EXPECT_EQ(Application_Cell_After_Key("3", 1, Key_1), "31");
    EXPECT_EQ(Application_Cell_After_Key("3", 1, Key_3), "3");
    EXPECT_EQ(Application_Cell_After_Key("1", 2, Key_1), "11");
    EXPECT_EQ(Application_Cell_After_Key("1", 2, Key_3), "1");
    EXPECT_EQ(Application_Cell_After_Key("999", 3, Key_3), "9993");
    EXPECT_EQ(Application_Cell_After_Key("9999", 3, Key_3), "9999");
    EXPECT_EQ(Application_Cell_After_Key("2", 4, Key_3), "23");
    EXPECT_EQ(Application_Cell_After_Key("3", 4, Key_3), "3");
}

TEST_F(Single_Applications, Take_Numbers_With_Point_And_Minus_Behind_The_Date_Only)
{
    EXPECT_EQ(Application_Cell_After_Key("3", 5, Key_Point_Code), "3.");
    EXPECT_EQ(Application_Cell_After_Key("", 6, Key_Minus_Code), "-");
    EXPECT_EQ(Application_Cell_After_Key("3", 1, Key_Point_Code), "3");
    EXPECT_EQ(Application_Cell_After_Key("", 3, Key_Minus_Code), "");
    EXPECT_EQ(Application_Cell_After_Key("3", 5, Key_Back), "3");
    EXPECT_TRUE(Application_Cell_Takes(5, "1.5E-3"));
    EXPECT_FALSE(Application_Cell_Takes(5, "1,5"));
    EXPECT_FALSE(Application_Cell_Takes(5, "1-2"));
    EXPECT_FALSE(Application_Cell_Takes(5, "E"));
    EXPECT_FALSE(Application_Cell_Takes(1, "32"));
    EXPECT_TRUE(Application_Cell_Takes(1, ""));
}

TEST_F(Single_Applications, Lose_A_Whole_Cell_By_The_Delete_Key)
{
    EXPECT_EQ(Application_Cell_After_Key("1.25", 5, 46), "");
    EXPECT_EQ(Application_Cell_After_Key("31", 1, 46), "");
}

TEST_F(Single_Applications, Take_The_Fraction_Of_The_First_For_All)
{
    Application_Grid grid = {Row("1", "5", "1", "1", "0.25"), Row("1", "5", "2"), Row("1", "5", "3", "1", "0.5")};

    Same_Fractions(grid);

    for (const auto& row : grid)
        EXPECT_EQ(row[7], "0.25");
    Application_Grid empty;
    Same_Fractions(empty);
    EXPECT_TRUE(empty.empty());
}

TEST_F(Single_Applications, Need_A_Day_Month_Year_And_Rate)
{
    EXPECT_EQ(Check_Application_Grid({Row("1", "5", "1"), Row("", "5", "2")}),
              No_Value("Application 2 - Day -  has no value.", 1, 1));
    EXPECT_EQ(Check_Application_Grid({Row("1", "0", "1")}), No_Value("Application 1 - Month -  has no value.", 0, 2));
    EXPECT_EQ(Check_Application_Grid({Row("1", "5", "")}), No_Value("Application 1 - Year -  has no value.", 0, 3));
    EXPECT_EQ(Check_Application_Grid({Row("1", "5", "1", "0")}),
              No_Value("Application 1 - App. rate -  has no value.", 0, 5));
    EXPECT_EQ(Check_Application_Grid({Row("1", "5", "1", "abc")}),
              No_Value("Application 1 - App. rate -  has no value.", 0, 5));
    EXPECT_EQ(Check_Application_Grid({Row("1", "5", "1")}), std::nullopt); // the hour may be 0
}

TEST_F(Single_Applications, Lie_Behind_One_Another)
{
    const auto wrong = [](const char* text) { return Grid_Refusal{{"Application Date Check", text}, 1, 1}; };
    const auto* pair = "Application dates must be in chronological order.\r\n     Check Application 1 and 2.";

    EXPECT_EQ(Check_Application_Grid({Row("1", "5", "2"), Row("2", "6", "1")}), wrong(pair));
    EXPECT_EQ(Check_Application_Grid({Row("1", "6", "1"), Row("2", "5", "1")}), wrong(pair));
    EXPECT_EQ(Check_Application_Grid({Row("2", "5", "1"), Row("1", "5", "1")}), wrong(pair));
    EXPECT_EQ(Check_Application_Grid({Row("9", "9", "1"), Row("1", "1", "2"), Row("2", "1", "2"), Row("1", "2", "2")}),
              std::nullopt);
}

TEST_F(Single_Applications, On_The_Same_Day_Fail_The_Date_Check)
{
    const auto refusal = Accept_Application_Grid(The_Session, {Row("1", "5", "1"), Row("1", "5", "1")}, Soil);

    ASSERT_TRUE(refusal.has_value());
    EXPECT_EQ(refusal->Text.Title, "Application Date Check");
    EXPECT_EQ(Document.App_Count[1], Variant(26));
}

TEST_F(Single_Applications, Of_26_Equal_Years_Become_Every_Year_Unless_A_Fraction_Is_Above_Zero)
{
    Application_Grid grid;
    for (int year = 1; year <= 26; ++year)
        grid.push_back(Row("1", "5", std::to_string(year).c_str()));

    EXPECT_EQ(Accept_Application_Grid(The_Session, grid, Soil), std::nullopt);
    EXPECT_EQ(The_Session.Editor.App_Pattern, 1);

    grid[7][7] = "0.1";
    EXPECT_EQ(Accept_Application_Grid(The_Session, grid, Soil), std::nullopt);
    EXPECT_EQ(The_Session.Editor.App_Pattern, 0);
}

TEST_F(Single_Applications, Are_Stored_Row_By_Row)
{
    Document.Applications[1][1].App_Depth = 8;
    const Application_Grid grid = {{"", "3", "4", "5", "9", "0.25", "60", "0.5"},
                                   {"", "4", "4", "5", "10", "0.75", "70", ""}};

    EXPECT_EQ(Accept_Application_Grid(The_Session, grid, Application_Method::Manually), std::nullopt);

    EXPECT_EQ(Document.App_Count[1], Variant(2));
    EXPECT_TRUE(The_Session.Program.PSM_Changed);
    EXPECT_EQ(At(1), (Application{3, 4, 5, 0.25, 8, 60, 0.5, 9}));
    EXPECT_EQ(At(2).App_Frpex, 70);
    EXPECT_EQ(At(2).App_Time, 0);
    EXPECT_EQ(At(2).App_Crop_Flag, 10);
}

} // namespace orvel
