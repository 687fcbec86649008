#include "run_fixture.h"
#include "runs/output_selection.h"
#include "runs/run_control.h"

namespace orvel {

using Run_Control_Test = Run_Test;

namespace {

std::string Years_Of_Climate(const std::string& code, int years)
{
    std::string lines;
    for (int year = 1; year <= years; ++year)
        lines += "..\\..\\..\\" + code + "_" + (year < 10 ? "0" : "") + std::to_string(year) + ".cli\r\n";
    return lines;
}

} // namespace

TEST_F(Run_Control_Test, A_Focus_Run_With_The_Minimum_Output_Is_Laid_Out_Line_By_Line)
{
    auto choice = Chosen(Focus(), Apples, "Ch\xE2teaudun (C), irrigated", "test.psm", {.Output = Minimum_Output()});
    choice.Pattern = 1;

    EXPECT_EQ(Format_Run(The_Session.Program, Focus(), choice), "026 01 01 31 12 Version 5\r\n"
                                                                "..\\..\\..\\C_apples.sze\r\n"
                                                                "test.psm\r\n" +
                                                                    Years_Of_Climate("C", 26) +
                                                                    "00000001 00.\r\n"
                                                                    "    LEAC    TSER  100.0  1.0E09 00000001\r\n");
}

TEST_F(Run_Control_Test, Applications_Every_Other_Year_Take_46_Climate_Files)
{
    auto choice = Chosen(Focus(), Apples, "Ch\xE2teaudun (C), irrigated");
    choice.Pattern = 2;

    const auto text = Format_Run(The_Session.Program, Focus(), choice);

    EXPECT_TRUE(text.starts_with("046 01 01 31 12 Version 5\r\n"));
    EXPECT_NE(text.find("t.psm\r\n" + Years_Of_Climate("C", 46) + "00000000 00.\r\n"), std::string::npos);
}

TEST_F(Run_Control_Test, An_Irregular_Pattern_Runs_The_Years_Asked_For_In_Focus_And_Six_In_The_Soil_Modes)
{
    auto choice = Chosen(Focus(), Maize, "Total content - North (T_N)");

    EXPECT_EQ(Years_To_Run(Focus(), choice), 26);
    choice.Options.Irregular_Years = 66;
    EXPECT_EQ(Years_To_Run(Focus(), choice), 66);
    EXPECT_EQ(Years_To_Run(Tier_2(), choice), 6);
    EXPECT_EQ(Years_To_Run(Tier_4(), choice), 6);
}

TEST_F(Run_Control_Test, The_Tillage_Depth_Stands_Before_A_Point_And_Is_Zero_While_Its_Frame_Is_Hidden)
{
    auto choice = Chosen(Focus(), Maize, "Hamburg (H)", "t.psm", {.Output = Minimum_Output(), .Tillage = "20"});

    choice.Tillage_Visible = true;
    EXPECT_NE(Format_Run(The_Session.Program, Focus(), choice).find("\r\n00000001 20.\r\n"), std::string::npos);

    choice.Tillage_Visible = false;
    EXPECT_NE(Format_Run(The_Session.Program, Focus(), choice).find("\r\n00000001 00.\r\n"), std::string::npos);
}

TEST_F(Run_Control_Test, A_Gap_In_The_Slots_Gives_A_Row_Without_A_Code_And_Loses_The_Last_Slot)
{
    auto choice = Chosen(Focus(), Maize, "Hamburg (H)");
    choice.Pattern = 1;
    auto& output = choice.Options.Output;
    output[0] = {.Out_Var = 1};
    output[1] = {.Out_Var = 6, .Out_Depth = 5};
    output[3] = {.Out_Var = 23, .Out_Depth = 100, .Out_Depth2 = 2};

    const auto text = Format_Run(The_Session.Program, Focus(), choice);

    EXPECT_TRUE(text.ends_with("00000003 00.\r\n"
                               "    PRSN    TSER  000.0     1.0 00000001\r\n"
                               "    THET    TSER  005.0     1.0 00000001\r\n"
                               "            TSER  000.0     1.0 00000001\r\n"))
        << text;
}

TEST_F(Run_Control_Test, The_Tier_2_Header_Ends_In_The_Kept_Number_As_A_Number_And_Tier_4_In_The_Text_Of_The_List)
{
    auto choice = Chosen(Tier_2(), Maize, "Total content - North (T_N)");
    choice.Pattern = 1;
    const auto first_line = [&](const Mode& mode) {
        const auto text = Format_Run(The_Session.Program, mode, choice);
        return text.substr(0, text.find("\r\n"));
    };

    EXPECT_EQ(first_line(Tier_2()), "026 01 01 31 12 Version 5          SOIL 0 ");
    EXPECT_EQ(first_line(Tier_4()), "026 01 01 31 12 Version 5          SOIL0");
    choice.Options.Kept_Number = -1.5;
    choice.Options.Scaling = "-0.3";
    EXPECT_EQ(first_line(Tier_2()), "026 01 01 31 12 Version 5          SOIL-1.5 ");
    EXPECT_EQ(first_line(Tier_4()), "026 01 01 31 12 Version 5          SOIL-0.3");
}

TEST_F(Run_Control_Test, The_Soil_Modes_Ask_For_The_Profile_Of_Each_Substance_Present)
{
    auto choice = Chosen(Tier_2(), Winter_Cereals, "Total content - North (T_N)", "t.psm",
                         {.Output = Minimum_Output(), .Tillage = "5"});
    choice.Pattern = 1;
    choice.Met_Present[1] = true;
    choice.Met_Present[4] = true;

    const auto text = Format_Run(The_Session.Program, Tier_2(), choice);

    EXPECT_NE(text.find("..\\..\\..\\T_N_wcerea.sze\r\nt.psm\r\n..\\..\\..\\T_N_01.cli\r\n"), std::string::npos);
    EXPECT_NE(text.find("\r\n00000001    5.000000040\r\n    LEAC    TSER  100.0  1.0E09 00000001\r\n"
                        "    TPSC    TSER  001.0  1.0E06 00000001\r\n"
                        "    TPSC    TSER  002.0  1.0E06 00000001\r\n"),
              std::string::npos);
    EXPECT_NE(text.find("    TPSC    TSER  020.0  1.0E06 00000001\r\n    TPSC    TSER  001.0  1.0E06 00000004\r\n"),
              std::string::npos);
    EXPECT_TRUE(text.ends_with("    TPSC    TSER  020.0  1.0E06 00000004\r\n"));
    EXPECT_EQ(std::ranges::count(text, '\n'), 3 + 26 + 1 + 1 + 40);
}

TEST_F(Run_Control_Test, Porewater_Zones_Ask_For_The_Dissolved_Concentration_And_Other_Codes_For_The_Content)
{
    const auto format = [this](std::string_view location) {
        auto choice = Chosen(Tier_4(), Maize, location);
        choice.Pattern = 1;
        choice.Met_Present[1] = true;
        return Format_Run(The_Session.Program, Tier_4(), choice);
    };

    EXPECT_NE(format("Porewater concentration - South (P_S)").find("    SPSC    TSER  001.0  1.0E06 00000001"),
              std::string::npos);
    EXPECT_NE(format("Piacenza (P), irrigated").find("    TPSC    TSER  001.0  1.0E06 00000001"), std::string::npos);
}

TEST_F(Run_Control_Test, A_Focus_Location_Has_Its_Letter_In_Tier_4_And_No_Code_In_Tier_2)
{
    const auto format = [this](const Mode& mode) {
        return Format_Run(The_Session.Program, mode, Chosen(mode, Maize, "Ch\xE2teaudun (C), irrigated"));
    };

    EXPECT_NE(format(Tier_4()).find("\r\n..\\..\\..\\C_maize.sze\r\n"), std::string::npos);
    EXPECT_NE(format(Tier_2()).find("\r\n..\\..\\..\\_maize.sze\r\n"), std::string::npos);
}

TEST_F(Run_Control_Test, A_Blank_Tillage_Depth_Leaves_The_Two_Counts_Side_By_Side)
{
    const auto choice = Chosen(Tier_4(), Maize, "Hamburg (H)", "t.psm", {.Output = Minimum_Output(), .Tillage = ""});

    EXPECT_NE(Format_Run(The_Session.Program, Tier_4(), choice).find("\r\n0000000100000020\r\n"), std::string::npos);
}

TEST_F(Run_Control_Test, A_Single_Run_Repeats_Its_Last_Climate_File)
{
    Single_Run_Settings run;
    run.Sim_Years = "3";
    run.Start_Day = 1;
    run.Start_Month = 1;
    run.End_Day = "31";
    run.End_Month = 12;
    run.Run_Scenario_File = "soil.sze";
    run.Run_PSM_File = "my file.psm";
    run.Run_Cli_Files = {"wet.cli"};

    EXPECT_EQ(Format_Single_Run(run, Minimum_Output()),
              "003 01 01 31 12\r\nsoil.sze\r\nmy file.psm\r\nwet.cli\r\nwet.cli\r\nwet.cli\r\n00000001\r\n"
              "    LEAC    TSER  100.0  1.0E09 00000001\r\n");
}

TEST_F(Run_Control_Test, A_Single_Run_Is_Restored_With_Its_Slots)
{
    const auto [run, output] =
        Parse_Single_Run("002 05 03 30 11\r\nsoil.sze\r\nmy file.psm\r\na.cli\r\nb.cli\r\n00000002\r\n"
                         "    THET    TSER  030.0     1.0 00000001\r\n"
                         "    NONE    TSER  007.0     1.0 00000003\r\n");

    EXPECT_EQ(run.Sim_Years.Number(), 2);
    EXPECT_EQ(run.Start_Day.Number(), 5);
    EXPECT_EQ(run.Start_Month.Number(), 3);
    EXPECT_EQ(run.End_Day.Number(), 30);
    EXPECT_EQ(run.End_Month, 11);
    EXPECT_EQ(run.Run_Scenario_File.Text(), "soil.sze");
    EXPECT_EQ(run.Run_PSM_File.Text(), "my file.psm");
    EXPECT_EQ(run.Run_Cli_Files, (std::vector<std::string>{"a.cli", "b.cli"}));
    EXPECT_EQ(output[0], (Output_Slot{6, 30, 0}));
    EXPECT_EQ(output[1], (Output_Slot{0, 7, 2})); // an unknown code is an empty slot
}

TEST_F(Run_Control_Test, A_Single_Run_That_Ends_Early_Leaves_The_Rest_As_It_Was)
{
    Single_Run_Control before;
    before.Settings.Sim_Years = 7;
    before.Settings.Run_PSM_File = "before.psm";
    before.Output = Minimum_Output();

    const auto restored = Parse_Single_Run("002 05 03 30 11\r\nsoil.sze\r\n", before);

    EXPECT_EQ(restored.Settings.Sim_Years.Number(), 2);
    EXPECT_EQ(restored.Settings.Run_Scenario_File.Text(), "soil.sze");
    EXPECT_EQ(restored.Settings.Run_PSM_File.Text(), "before.psm");
    EXPECT_EQ(restored.Output, Minimum_Output());
}

TEST_F(Run_Control_Test, A_Missing_File_Restores_No_Single_Run_And_Is_Not_Told)
{
    EXPECT_FALSE(Read_Single_Run(Home.Path()));
    EXPECT_TRUE(The_User.Messages.empty());
}

TEST_F(Run_Control_Test, A_Focus_Template_Gives_Back_What_Was_Written)
{
    auto choice =
        Chosen(Focus(), Apples, "Hamburg (H)", "My Test.psm", {.Output = Recommended_Output(), .Tillage = "7"});
    choice.Pattern = 2;
    choice.Tillage_Visible = true;
    Put(Home / "focus" / "orvel.inp", Format_Run(The_Session.Program, Focus(), choice));

    const auto restored = Read_Template(The_Session.Program, Focus());

    EXPECT_EQ(restored.Years, 46);
    EXPECT_EQ(restored.Code, "H");
    EXPECT_EQ(restored.Crop_Part, "APPLES.SZE");
    EXPECT_EQ(restored.Pesticide, "My Test.psm");
    EXPECT_EQ(restored.Till_Depth, 7);
    EXPECT_TRUE(restored.Has_Count_Line);
    EXPECT_EQ(restored.Output, Recommended_Output());
    EXPECT_EQ(Tillage_List(Focus()).at(static_cast<std::size_t>(Tillage_List_Index(Focus(), 7))), "7");
}

TEST_F(Run_Control_Test, A_Tier_2_Template_Keeps_The_Number_Behind_Soil_And_Restores_One_Depth_More_Than_It_Holds)
{
    auto choice = Chosen(Tier_2(), Maize, "Porewater concentration - Central (P_C)", "t.psm",
                         {.Tillage = "5", .Kept_Number = 2.5});
    choice.Pattern = 1;

    const auto restored = Parse_Template(Tier_2(), Format_Run(The_Session.Program, Tier_2(), choice));

    EXPECT_EQ(restored.Kept_Number, 2.5);
    EXPECT_EQ(restored.Code, "P_C");
    EXPECT_EQ(restored.Crop_Part, "MAIZE.SZE");
    EXPECT_EQ(restored.Till_Depth, 5);
    // The depth is taken as the list index, and this list begins at 1.
    EXPECT_EQ(Tillage_List(Tier_2()).at(static_cast<std::size_t>(Tillage_List_Index(Tier_2(), 5))), "6");
}

TEST_F(Run_Control_Test, A_Tier_4_Template_Restores_Soil_Zones_And_Letters)
{
    const auto restored = [this](std::string_view location) {
        auto choice = Chosen(Tier_4(), Individual_Crop, location, "t.psm", {.Tillage = "5"});
        choice.Pattern = 1;
        return Parse_Template(Tier_4(), Format_Run(The_Session.Program, Tier_4(), choice));
    };

    EXPECT_EQ(restored("Total content - South (T_S)").Code, "T_S");
    EXPECT_EQ(restored("Total content - South (T_S)").Crop_Part, "INDIVT4.SZE");
    EXPECT_EQ(Tillage_List(Tier_4()).at(static_cast<std::size_t>(Tillage_List_Index(Tier_4(), 5))), "5");
    EXPECT_EQ(restored("Hamburg (H)").Code, "H");
    EXPECT_EQ(restored("Hamburg (H)").Crop_Part, "INDIVT4.SZE");
}

TEST_F(Run_Control_Test, A_Template_That_Ends_Early_Restores_What_It_Holds)
{
    const auto restored = Parse_Template(
        Focus(), "026 01 01 31 12 Version 5\n..\\..\\..\\h_Maize.sze\n test.psm \n..\\..\\..\\H_01.cli\n");

    EXPECT_EQ(restored.Code, "H");
    EXPECT_EQ(restored.Crop_Part, "MAIZE.SZE");
    EXPECT_EQ(restored.Pesticide, "test.psm");
    EXPECT_FALSE(restored.Has_Count_Line);
    EXPECT_EQ(Parse_Template(Focus(), "").Years, 0);
    EXPECT_EQ(Read_Template(The_Session.Program, Tier_2()).Code, "");
}

TEST_F(Run_Control_Test, The_Lists_Of_Depths_And_Scalings_Are_Those_Of_The_Forms)
{
    EXPECT_EQ(Tillage_List(Focus()).size(), 40u);
    EXPECT_EQ(Tillage_List(Focus()).at(static_cast<std::size_t>(Focus().Tillage_Index)), "22");
    EXPECT_EQ(Tillage_List(Tier_4()).size(), 41u);
    EXPECT_EQ(Tillage_List(Tier_4()).front(), "");
    EXPECT_EQ(Scaling_List().size(), 101u);
    EXPECT_EQ(Scaling_List().front(), "-5");
    EXPECT_EQ(Scaling_List().at(Scaling_Index), "0");
    EXPECT_EQ(Scaling_List().at(51), "0.1");
    EXPECT_EQ(Tillage_List_Index(Focus(), 0), -1);
    EXPECT_EQ(Tillage_List_Index(Focus(), 41), -1);
}

TEST_F(Run_Control_Test, A_Name_That_Would_Break_A_Line_Is_Not_Fit_For_A_Run)
{
    EXPECT_TRUE(Fits_A_Line("my,file 1;&%$'\"\xE4.psm"));
    EXPECT_FALSE(Fits_A_Line("two\nlines.psm"));
    EXPECT_FALSE(Fits_A_Line("back\\slash.psm"));
    EXPECT_FALSE(Fits_A_Line(".psm"));
}

TEST(Run_End_Test, Is_The_Fourth_And_Fifth_Number_Of_The_First_Line)
{
    const Temporary_Directory home;
    EXPECT_FALSE(Read_Run_End(home.Path()));
    const auto end_of = [&](const std::string& text) {
        Write_Whole(home / "orvel.inp", text);
        const auto end = Read_Run_End(home.Path());
        return end ? std::to_string(end->Day) + "." + std::to_string(end->Month) : "";
    };

    EXPECT_EQ(end_of("026 01 01 31 12 Version 5.5          SOIL 0 \r\n..\\H_maize.sze\r\n"), "31.12");
    EXPECT_EQ(end_of("002 15 03 30 02"), "30.2"); // February has no such day: the reader of the series minds that
    EXPECT_EQ(end_of("002 15 03 77 06"), "31.6");
    EXPECT_EQ(end_of("002 15 03 00 06"), "");
    EXPECT_EQ(end_of("002 15 03 30 13"), "");
    EXPECT_EQ(end_of("002 15 03"), "");
    EXPECT_EQ(end_of(""), "");
}

TEST(Run_Control, A_Depth_Too_Wide_For_Its_Column_Does_Not_Shift_The_Substance)
{
    const auto read = Parse_Single_Run("001 01 01 31 12\r\ns.sze\r\np.psm\r\nc.cli\r\n00000001\r\n"
                                       "    LEAC    TSER 9999.0  1.0E09 00000003\r\n");

    const auto again = Parse_Single_Run(Format_Single_Run(read.Settings, read.Output));

    EXPECT_EQ(read.Output[0].Out_Depth, 999);
    EXPECT_EQ(again.Output[0].Out_Depth, 999);
    EXPECT_EQ(again.Output[0].Out_Depth2, 2);
}

} // namespace orvel
