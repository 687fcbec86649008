#include "single_run_fixture.h"

#include "runs/run_control.h"

namespace orvel {

namespace fs = std::filesystem;

namespace {

class Single_Run_Test : public Single_Run_Fixture {
protected:
    std::string Told_Of(const Single_Run_Entry& entry)
    {
        const auto refusal = Check_Single_Run(Place.Path(), entry, Scenario_Horizons);
        return refusal ? refusal->Text.Title + ": " + refusal->Text.Text + " -> " + refusal->Control : "";
    }

    double Scenario_Horizons = 1;
};

} // namespace

TEST_F(Single_Run_Test, A_Whole_Entry_Passes)
{
    EXPECT_EQ(Told_Of(Entry()), "");
}

TEST_F(Single_Run_Test, Each_Check_Names_What_Is_Missing_And_Where_To_Go_Back_To)
{
    const auto with = [&](auto change) {
        Single_Run_Entry entry = Entry();
        change(entry);
        return Told_Of(entry);
    };
    EXPECT_EQ(with([](auto& e) { e.Start_Day = ""; }), "File check: Insert value for starting day -> Combo_stad");
    EXPECT_EQ(with([](auto& e) { e.End_Day = "0"; }), "File check: Insert value for ending day -> Combo_endd");
    EXPECT_EQ(with([](auto& e) { e.Years = "x"; }), "File check: Insert value for simulation years -> Text_years");
    EXPECT_EQ(with([](auto& e) { e.Start_Month_Index = -1; }), "File check: Select starting month -> Combo_stam");
    EXPECT_EQ(with([](auto& e) { e.End_Month_Index = -1; }), "File check: Select ending month -> Combo_endm");
    EXPECT_EQ(with([](auto& e) { e.Climates.clear(); }), "File check: No climatic files available -> File_cli");
}

TEST_F(Single_Run_Test, A_File_That_Cannot_Be_Read_Is_Told_With_The_Reason)
{
    auto entry = Entry();
    entry.Pesticide = "gone.psm";
    const std::string gone = Told_Of(entry);
    EXPECT_TRUE(gone.starts_with("File check: gone.psm not found\ngone.psm: Cannot ")) << gone;
    EXPECT_TRUE(gone.ends_with("No such file or directory. -> File_psm")) << gone;

    entry = Entry();
    entry.Scenario = "short.sze";
    Write_Whole(Place / "short.sze", "title\r\nsettings\r\n");
    EXPECT_EQ(Told_Of(entry), "File check: short.sze not found\n"
                              "short.sze, line 2: The file ends behind this line. -> File_sce");
}

TEST_F(Single_Run_Test, A_File_That_Is_No_Pesticide_File_Is_Refused)
{
    Write_Whole(Place / "test.psm", "one\r\ntwo\r\nthree\r\nfour\r\nfive\r\n");

    EXPECT_EQ(Told_Of(Entry()), "Readin check: test.psm is not a valid ORVEL 3.20 PSM file -> File_psm");
}

TEST_F(Single_Run_Test, Horizons_Are_Compared_With_The_Open_Scenario_Document)
{
    std::string bytes = Read_Whole(Place / "test.psm");
    bytes.replace(bytes.find("<NUMBER OF SOIL HORIZONS>\r\n") + 27, 3, " 2 ");
    Write_Whole(Place / "test.psm", bytes);
    Scenario_Horizons = 3;
    EXPECT_EQ(Told_Of(Entry()),
              "Data check: Number of horizons in PSM file and scenariofile should be the same -> File_sce");

    Scenario_Horizons = 2; // not the count of the file named
    EXPECT_EQ(Told_Of(Entry()), "");
}

TEST_F(Single_Run_Test, A_Scenario_Without_Crops_Still_Passes)
{
    Place.Put_Scenario("bare.sze", false, 0);
    fs::copy_file(Place / "focus/bare.sze", Place / "bare.sze");
    Single_Run_Entry entry = Entry();
    entry.Scenario = "bare.sze";

    EXPECT_EQ(Told_Of(entry), "");
}

TEST_F(Single_Run_Test, One_Year_May_End_On_The_Day_It_Begins_But_Not_Before)
{
    Single_Run_Entry entry = Entry();
    entry.Years = "1";
    entry.Start_Month_Index = entry.End_Month_Index = 2;
    entry.Start_Day = entry.End_Day = "1";
    EXPECT_EQ(Told_Of(entry), "");

    entry.Start_Day = "2";
    EXPECT_EQ(Told_Of(entry), "Data check: Simulation time must be at least 1 day -> Text_years");
}

TEST_F(Single_Run_Test, Days_Are_Checked_By_Their_Range_Alone)
{
    EXPECT_EQ(Check_Day("31", "Combo_endd"), std::nullopt); // also in a month of 30 days
    EXPECT_EQ(Check_Day("32", "Combo_endd")->Text, (Message{"Data check", "Value must be betwen 0 and 31"}));
    EXPECT_EQ(Check_Day("0", "Combo_stad")->Control, "Combo_stad");
    EXPECT_EQ(Check_Years("0")->Text, (Message{"Data check", "Value must be greater than 0"}));
}

// The engine runs 66 years at most.
TEST_F(Single_Run_Test, Days_And_Years_Beyond_All_Measure_Are_Refused_On_Start_Too)
{
    for (const char* number : {"67", "1e308", "1e999"}) {
        auto entry = Entry();
        entry.Years = number;
        EXPECT_EQ(Told_Of(entry), "Data check: Value must be smaller than 67 -> Text_years") << number;
        entry = Entry();
        entry.End_Day = number;
        EXPECT_EQ(Told_Of(entry), "Data check: Value must be betwen 0 and 31 -> Combo_endd") << number;
    }
    EXPECT_EQ(Check_Years("66"), std::nullopt);
}

TEST_F(Single_Run_Test, A_Run_Control_With_An_Impossible_Month_Leaves_It_Open)
{
    Write_Whole(Place / "orvel.inp", "001 01 1e308 31 99\r\nH_maize.sze\r\ntest.psm\r\none.cli\r\n");
    Single_Run_Settings run;
    Output_Selection output{};

    Restore_Single_Run(Place.Path(), run, output);

    EXPECT_EQ(Entry_Of_Settings(run).Start_Month_Index, -1);
    EXPECT_EQ(Entry_Of_Settings(run).End_Month_Index, -1);
}

TEST_F(Single_Run_Test, A_Day_That_No_Year_Has_Is_Hinted_At)
{
    auto entry = Entry();
    EXPECT_EQ(Period_Hints(entry), "");

    entry.Start_Day = "30";
    entry.Start_Month_Index = 1;
    entry.End_Day = "31";
    entry.End_Month_Index = 3;
    EXPECT_EQ(Period_Hints(entry), "Start: February has no day 30.\nEnd: April has no day 31.");
    EXPECT_EQ(Told_Of(entry), "");

    entry.Start_Day = entry.End_Day = "1e308"; // told where it is left
    EXPECT_EQ(Period_Hints(entry), "");
}

TEST_F(Single_Run_Test, The_Form_Opens_With_What_The_Last_Run_Control_Says)
{
    Write_Whole(Place / "orvel.inp", Format_Single_Run(Settings_Of_Entry(Entry()), {{{23, 100}}}));
    Single_Run_Settings run;
    Output_Selection output{};

    Restore_Single_Run(Place.Path(), run, output);

    const Single_Run_Entry entry = Entry_Of_Settings(run);
    EXPECT_EQ(entry.Pesticide, "test.psm");
    EXPECT_EQ(entry.Scenario, "H_maize.sze");
    EXPECT_EQ(entry.Climates, (std::vector<std::string>{"one.cli", "one.cli", "one.cli"}));
    EXPECT_EQ(entry.End_Month_Index, 11);
    EXPECT_EQ(Val(entry.Years), 3);
    EXPECT_EQ(output[0], (Output_Slot{23, 100, 0}));
}

TEST_F(Single_Run_Test, Without_A_Run_Control_What_Was_Set_Before_Stays)
{
    Single_Run_Settings run = Settings_Of_Entry(Entry());
    Output_Selection output{{{23, 100}}};

    Restore_Single_Run(Place.Path(), run, output);

    EXPECT_EQ(Entry_Of_Settings(run).Years, "3");
    EXPECT_EQ(output[0], (Output_Slot{23, 100, 0}));
}

} // namespace orvel
