#include "run_fixture.h"
#include "runs/selection.h"

namespace orvel {

class Selection_Test : public Run_Test {
protected:
    Selection_Test()
    {
        for (const auto* name : {"H_maize.sze", "H_apples.sze", "H_wcerea.sze", "C_maize.sze"})
            Scenario(Home / "focus" / name);
    }
    Selection Selected(const Crop* crop = Maize, std::string_view location = "Hamburg (H)", const Mode& mode = Focus())
    {
        return Evaluate_Selection(The_Session.Program, The_Session.Ask, mode, "test.psm", crop, location);
    }
};

TEST_F(Selection_Test, A_Regular_Pattern_At_The_Location_Enables_The_Buttons_And_Shows_The_First_Application)
{
    Pesticide("test.psm");

    const auto selected = Selected();

    EXPECT_EQ(selected.Warnung, "");
    EXPECT_TRUE(selected.Buttons_Enabled());
    EXPECT_EQ(selected.App_Modus, "Every year");
    EXPECT_EQ(selected.app_Date, "0.75 kg/ha on November 5");
    EXPECT_EQ(selected.Choice.Pattern, 1);
}

TEST_F(Selection_Test, A_Location_Without_A_Block_Is_Told_By_Its_Name_Without_The_Irrigation)
{
    Pesticide("test.psm");

    const auto selected = Selected(Maize, "Ch\xE2teaudun (C), irrigated");

    EXPECT_EQ(selected.Warnung, "No application pattern for Ch\xE2teaudun (C) defined in the selected pesticide file");
    EXPECT_FALSE(selected.Buttons_Enabled());
    EXPECT_FALSE(selected.May_Run_Anyway());
    EXPECT_EQ(selected.App_Modus, "");
    EXPECT_EQ(selected.app_Date, "");
}

TEST_F(Selection_Test, An_Irregular_Pattern_May_Run_Only_On_Demand)
{
    Pesticide("test.psm", [](auto& document) { document.Applications[1][3].App_Rate = 2; });

    const auto selected = Selected();

    EXPECT_EQ(selected.Warnung, "No regular application pattern defined for this location!");
    EXPECT_FALSE(selected.Buttons_Enabled());
    EXPECT_TRUE(selected.May_Run_Anyway());
    EXPECT_EQ(selected.App_Modus, "");
}

TEST_F(Selection_Test, A_File_In_The_Old_Format_Is_Refused_Before_Any_Other_Test)
{
    Pesticide("test.psm");
    std::string bytes = Read_Whole(Home / "test.psm");
    const auto at = bytes.find("Temperature");
    bytes.replace(at, 11, "Something  ");
    const auto first = bytes.find("\r\n", at) + 2;
    bytes.erase(first, bytes.find("\r\n", first) + 2 - first);
    Put(Home / "test.psm", bytes);

    const auto selected = Selected();

    EXPECT_EQ(selected.Warnung,
              "ORVEL 3 PSM-Format! Please convert to the new format by doubleclicking followed by saving.");
    EXPECT_TRUE(selected.Old_Format());
    EXPECT_FALSE(selected.Buttons_Enabled());
}

TEST_F(Selection_Test, A_Crop_Number_In_The_Pesticide_File_Fits_Its_Crop_Only)
{
    Pesticide("test.psm");
    std::string bytes = Read_Whole(Home / "test.psm");
    const std::string count_line = " 2    0    0    <number";
    ASSERT_NE(bytes.find(count_line), std::string::npos);
    bytes.replace(bytes.find(count_line), count_line.size(), " 2    1    0    <number");
    Put(Home / "test.psm", bytes);

    EXPECT_EQ(Selected(Apples).Warnung, "");
    EXPECT_EQ(Selected(Maize).Warnung, "No application pattern for Maize defined in the selected pesticide file");
}

TEST_F(Selection_Test, A_Different_Number_Of_Horizons_Is_Told_In_The_Words_Of_The_Mode)
{
    Pesticide("test.psm", [](auto& document) {
        document.N_Horizons = 2;
        document.Horizons.assign(4, {});
        document.App_Location[1] = "Total content - North (T_N)";
    });
    Scenario(Home / "EFSA" / "T_N_maize.sze");

    EXPECT_EQ(Selected(Maize, "Total content - North (T_N)", Tier_2()).Warnung,
              "Number of horizons in PSM file do not match!");
    Pesticide("test.psm", [](auto& document) {
        document.N_Horizons = 2;
        document.Horizons.assign(4, {});
    });
    EXPECT_EQ(Selected().Warnung, "Number of horizons in PSM file does not match!");
    EXPECT_FALSE(Selected().Buttons_Enabled());
}

TEST_F(Selection_Test, Relative_Dates_Fit_Every_Location_Of_A_Focus_Crop)
{
    Pesticide("test.psm", [](auto& document) {
        document.App_Mode = App_Mode_Relative;
        document.App_Loc_Count = 1;
        document.App_Count[0] = 46;
        for (std::size_t a = 1; a <= 46; ++a)
            document.Relative[a] = {
                .Abs9_Day = static_cast<std::int16_t>(a % 2 == 1 ? -7 : 3), .Abs9_Month = 1, .Abs9_Rate = 0.5};
    });

    const auto selected = Selected(Maize, "Ch\xE2teaudun (C), irrigated");

    EXPECT_TRUE(selected.Buttons_Enabled());
    EXPECT_EQ(selected.App_Modus, "Every other year");
    EXPECT_EQ(selected.app_Date, "0.5 kg/ha -7 days after 1st maturation in the year");
}

TEST_F(Selection_Test, Relative_Dates_Need_A_Crop_In_The_Individual_Crop_File)
{
    Pesticide("test.psm", [](auto& document) {
        document.App_Mode = App_Mode_Relative;
        document.App_Loc_Count = 1;
        document.App_Count[0] = 26;
    });
    const auto without_crop = [](auto& document) { document.SZE_Crop_Count = document.SZE_Rot_Count = 0; };
    Scenario(Home / "focus" / "H_indiv.sze", without_crop);

    const auto selected = Selected(Individual_Crop);

    EXPECT_EQ(selected.Warnung,
              "Relative application pattern not possible!\r\nNo crop defined in your individal crop file.");
    EXPECT_FALSE(selected.Buttons_Enabled());
    Scenario(Home / "focus" / "H_indiv.sze", [&](auto& document) {
        without_crop(document);
        document.SZE_Erosion = 1; // one line more before the count of crops
    });
    EXPECT_FALSE(Selected(Individual_Crop).Buttons_Enabled());
    Scenario(Home / "focus" / "H_indiv.sze");
    EXPECT_TRUE(Selected(Individual_Crop).Buttons_Enabled());
}

TEST_F(Selection_Test, The_Soil_Modes_Compare_The_Location_Of_Relative_Dates_Too)
{
    Pesticide("test.psm", [](auto& document) {
        document.App_Mode = App_Mode_Relative;
        document.App_Loc_Count = 1;
        document.App_Count[0] = 26;
    });
    Scenario(Home / "EFSA" / "T_N_maize.sze");

    EXPECT_EQ(Selected(Maize, "Total content - North (T_N)", Tier_2()).Warnung,
              "No application pattern for Total content - North (T_N) defined in the selected pesticide file");
}

TEST_F(Selection_Test, A_Soil_Mode_Refuses_A_Location_That_Its_Table_Offers_Without_A_Scenario_File)
{
    Pesticide("test.psm");
    Scenario(Home / "EFSA_T4" / "H_wcerea.sze");

    const auto tier_2 = Selected(Winter_Cereals, "Hamburg (H)", Tier_2());
    EXPECT_EQ(tier_2.Warnung, "There is no scenario file for Winter cereals at Hamburg (H) in the directory EFSA.");
    EXPECT_FALSE(tier_2.Buttons_Enabled());
    EXPECT_FALSE(tier_2.May_Run_Anyway());
    EXPECT_TRUE(Selected(Winter_Cereals, "Hamburg (H)", Tier_4()).Buttons_Enabled());

    Scenario(Home / "EFSA" / "_wcerea.sze"); // what a location without a code runs
    EXPECT_TRUE(Selected(Winter_Cereals, "Hamburg (H)", Tier_2()).Buttons_Enabled());
}

TEST_F(Selection_Test, Tillage_Shows_Where_The_First_Crop_Row_Has_The_Flag)
{
    Pesticide("test.psm");
    EXPECT_FALSE(Selected().Choice.Tillage_Visible);

    Scenario(Home / "focus" / "H_maize.sze", [](auto& document) { document.Crops[0].SZE_Rot_Tillage = 1; });
    EXPECT_TRUE(Selected().Choice.Tillage_Visible);

    Put(Home / "focus" / "H_maize.sze",
        "t\r\n2\r\n0\r\n1\r\n  1 2  3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18   1  \r\n");
    EXPECT_TRUE(Scenario_Tills(Home / "focus" / "H_maize.sze"));
    Put(Home / "focus" / "H_maize.sze", "t\r\n2\r\n0\r\n1\r\n1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 1\r\n");
    EXPECT_FALSE(Scenario_Tills(Home / "focus" / "H_maize.sze"));
    EXPECT_FALSE(Scenario_Tills(Home / "focus" / "missing.sze"));
}

TEST_F(Selection_Test, Without_A_Location_Nothing_Is_Read_And_Nothing_Can_Run)
{
    const auto selected = Selected(Maize, "");

    EXPECT_FALSE(selected.Buttons_Enabled());
    EXPECT_EQ(selected.Warnung, "There is no scenario file for Maize in the directory focus.");
    EXPECT_TRUE(The_User.Messages.empty());
    EXPECT_FALSE(Selected(Crop_At(First_Separator())).Buttons_Enabled());
}

TEST_F(Selection_Test, A_Pesticide_File_That_Cannot_Be_Read_Is_Told_And_Cannot_Run)
{
    Put(Home / "test.psm", "no pesticide file");

    EXPECT_FALSE(Selected().Buttons_Enabled());
    ASSERT_EQ(The_User.Messages.size(), 1u);
    EXPECT_EQ(The_User.Messages[0].Title, "Readin check");
}

TEST_F(Selection_Test, The_First_Separator_Is_Stepped_Over_In_The_Direction_Of_Travel)
{
    EXPECT_EQ(Step_Over_Separator(First_Separator(), Crop_Step_After(4, 0)), 6);
    EXPECT_EQ(Step_Over_Separator(First_Separator(), Crop_Step_After(6, 0)), 4);
    EXPECT_EQ(Step_Over_Separator(26, -2), 26);
    EXPECT_EQ(Step_Over_Separator(14, 0), 14);
}

TEST_F(Selection_Test, A_Location_Is_Kept_Only_If_The_New_List_Offers_The_Same_Text)
{
    EXPECT_EQ(Location_To_Select({"Hamburg (H)", "Sevilla (S), irrigated"}, "Sevilla (S), irrigated"), 1);
    EXPECT_EQ(Location_To_Select({"Hamburg (H)", "Sevilla (S), no irrigation"}, "Sevilla (S), irrigated"), 0);
    EXPECT_EQ(Location_To_Select({}, "Hamburg (H)"), -1);
}

TEST_F(Selection_Test, The_List_Of_Pesticide_Files_Leaves_Out_Names_That_No_Run_Can_Take)
{
    Put(Home / "b.psm", "");
    Put(Home / "A.PSM", "");
    Put(Home / Path_Of("\xE4 file,1;&.psm"), "");
    Put(Home / "\u4E2D.psm", "");
    Put(Home / "two\nlines.psm", "");

    EXPECT_EQ(Pesticide_List(Home.Path()), (std::vector<std::string>{"A.PSM", "b.psm", "\xE4 file,1;&.psm"}));
}

TEST_F(Selection_Test, A_Pesticide_File_Is_Deleted_Only_With_OK)
{
    Pesticide("test.psm");

    EXPECT_FALSE(Delete_Pesticide(Home.Path(), The_Session.Ask, "test.psm"));
    EXPECT_TRUE(std::filesystem::exists(Home / "test.psm"));
    EXPECT_EQ(The_User.Messages.at(0).Text, "Are you sure that you want to delete the file 'test.psm'!");
    EXPECT_EQ(The_User.Messages.at(0).Title, "Deleting pesticide input files");

    The_User.Answers = {Button::Ok};
    EXPECT_TRUE(Delete_Pesticide(Home.Path(), The_Session.Ask, "test.psm"));
    EXPECT_FALSE(std::filesystem::exists(Home / "test.psm"));
}

} // namespace orvel
