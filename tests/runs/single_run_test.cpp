#include "runs/single_run.h"

#include "core/system/lock.h"
#include "full_disk.h"
#include "recording_user.h"
#include "small_installation.h"

#include <gtest/gtest.h>

namespace orvel {

namespace fs = std::filesystem;

namespace {

class Single_Run_Test : public testing::Test {
protected:
    Single_Run_Test()
    {
        The_Session.Ask = [this](const Message& message) { return The_User(message); };
        The_Session.Program.App_Path = Place.Path();
        The_Session.Program.Engine_Exe = "orvel401.exe";
        fs::copy_file(Place / "focus/H_maize.sze", Place / "H_maize.sze");
        Write_Whole(Place / "one.cli", "Title\r\n");
        Write_Whole(Place / "two.cli", "Title\r\n");
    }

    Single_Run_Entry Entry()
    {
        return {.Pesticide = "test.psm",
                .Scenario = "H_maize.sze",
                .Climates = {"one.cli"},
                .Start_Day = "1",
                .End_Day = "31",
                .Years = "3",
                .Start_Month_Index = 0,
                .End_Month_Index = 11};
    }

    std::string Told_Of(const Single_Run_Entry& entry)
    {
        const auto refusal = Check_Single_Run(The_Session, Place.Path(), entry);
        return refusal ? refusal->Text.Title + ": " + refusal->Text.Text + " -> " + refusal->Control : "";
    }

    Small_Installation Place;
    Recording_User The_User;
    std::unique_ptr<Session> Owned = std::make_unique<Session>();
    Session& The_Session = *Owned;
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

TEST_F(Single_Run_Test, Horizons_Are_Compared_With_The_Scenario_Document_Of_The_Session)
{
    std::string bytes = Read_Whole(Place / "test.psm");
    bytes.replace(bytes.find("<NUMBER OF SOIL HORIZONS>\r\n") + 27, 3, " 2 ");
    Write_Whole(Place / "test.psm", bytes);
    The_Session.Scenario.SZE_Horizons = 3;
    EXPECT_EQ(Told_Of(Entry()),
              "Data check: Number of horizons in PSM file and scenariofile should be the same -> File_sce");

    The_Session.Scenario.SZE_Horizons = 2; // not the count of the file named
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

TEST_F(Single_Run_Test, Starting_Writes_The_Run_Control_And_Deletes_Old_Output)
{
    Write_Whole(Place / "old.orv", "old");
    ASSERT_TRUE(Has_Output(Place.Path()));

    EXPECT_TRUE(Start_Single_Run(The_Session, Place.Path(), Entry()));

    const std::string control = Read_Whole(Place / "orvel.inp");
    EXPECT_TRUE(control.starts_with("003 01 01 31 12\r\nH_maize.sze\r\ntest.psm\r\none.cli\r\none.cli\r\none.cli\r\n"))
        << control;
    EXPECT_FALSE(fs::exists(Place / "old.orv"));
}

TEST_F(Single_Run_Test, While_The_Engine_Is_At_Work_Starting_Tells_And_Touches_Nothing)
{
    Write_Whole(Place / "orvel401.exe", "#!/bin/sh\nsleep 5\n");
    fs::permissions(Place / "orvel401.exe", fs::perms::owner_all);
    ASSERT_TRUE(Start_Single_Run(The_Session, Place.Path(), Entry()));
    EXPECT_TRUE(State_Of_Single_Run(Place.Path(), 3).Running);
    Write_Whole(Place / "kept.orv", "output");

    EXPECT_FALSE(Start_Single_Run(The_Session, Place.Path(), Entry()));

    EXPECT_EQ(The_User.Messages.back().Text,
              "An engine is still at work in this directory. Please wait until it has finished.");
    EXPECT_TRUE(fs::exists(Place / "kept.orv"));
}

TEST_F(Single_Run_Test, A_Missing_Engine_Is_Told)
{
    Write_Whole(Place / "old.orv", "old");
    fs::remove(Place / "orvel401.exe");
    EXPECT_FALSE(Start_Single_Run(The_Session, Place.Path(), Entry()));
    EXPECT_EQ(The_User.Messages.back(), (Message{"File check", "Orvel not found"}));
    EXPECT_TRUE(fs::exists(Place / "old.orv")); // for a run that cannot be, nothing is given up
    The_Session.Program.Engine_Exe.clear();
    EXPECT_FALSE(Start_Single_Run(The_Session, Place.Path(), Entry()));

    EXPECT_EQ(The_User.Messages.back(), (Message{"File check", "Orvel not found"}));
}

TEST_F(Single_Run_Test, The_Proposed_Archive_Is_The_First_Free_One)
{
    EXPECT_EQ(Free_Archive_Name(Place.Path()), "Run_1");
    fs::create_directory(Place / "Run_1");
    fs::create_directory(Place / "Run_2");
    EXPECT_EQ(Free_Archive_Name(Place.Path()), "Run_3");
}

TEST_F(Single_Run_Test, An_Archive_Takes_The_Output_And_Copies_The_Input)
{
    ASSERT_TRUE(Start_Single_Run(The_Session, Place.Path(), Entry()));
    Write_Whole(Place / "echo.orv", "echo");
    Write_Whole(Place / "chem.orv", "chem");

    EXPECT_TRUE(Archive_Run(The_Session, Place.Path(), "Run_1"));

    for (const char* name : {"echo.orv", "chem.orv", "orvel.inp", "test.psm", "H_maize.sze", "one.cli"})
        EXPECT_TRUE(fs::exists(Place / "Run_1" / name)) << name;
    EXPECT_FALSE(Has_Output(Place.Path()));
    for (const char* name : {"orvel.inp", "test.psm", "H_maize.sze", "one.cli"})
        EXPECT_TRUE(fs::exists(Place / name)) << name;
}

TEST_F(Single_Run_Test, An_Archive_That_Fails_Takes_Nothing_And_Leaves_Nothing)
{
    Write_Whole(Place / "echo.orv", "echo");
    Write_Whole(Place / "orvel.inp", "001 01 01 31 12\r\ngone.sze\r\ntest.psm\r\none.cli\r\n");

    EXPECT_FALSE(Archive_Run(The_Session, Place.Path(), "Run_1"));

    EXPECT_TRUE(fs::exists(Place / "echo.orv"));
    EXPECT_FALSE(fs::exists(Place / "Run_1"));
    EXPECT_EQ(The_User.Messages.back(), (Message{"File check", "Cannot open " + (Place / "Run_1").string()}));
}

TEST_F(Single_Run_Test, An_Archive_Never_Goes_Over_An_Existing_Folder)
{
    Write_Whole(Place / "echo.orv", "echo");
    fs::create_directory(Place / "Run_1");
    Write_Whole(Place / "Run_1/echo.orv", "earlier");

    EXPECT_FALSE(Archive_Run(The_Session, Place.Path(), "Run_1"));
    EXPECT_FALSE(Archive_Run(The_Session, Place.Path(), "../elsewhere"));

    EXPECT_EQ(Read_Whole(Place / "Run_1/echo.orv"), "earlier");
    EXPECT_TRUE(fs::exists(Place / "echo.orv"));
}

TEST_F(Single_Run_Test, An_Archive_On_A_Full_Disk_Is_Told_And_Takes_Nothing)
{
    Write_Whole(Place / "orvel.inp", "001 01 01 31 12\r\nH_maize.sze\r\ntest.psm\r\none.cli\r\n");
    Write_Whole(Place / "chem.orv", "small");
    Write_Whole(Place / "plot.orv", std::string(300000, 'x'));
    bool archived = true;
    {
        const Full_Disk full(100000);
        archived = Archive_Run(The_Session, Place.Path(), "Run_1");
    }

    EXPECT_FALSE(archived);
    EXPECT_EQ(The_User.Messages.back(), (Message{"File check", "Cannot open " + (Place / "Run_1").string()}));
    EXPECT_FALSE(fs::exists(Place / "Run_1"));
    EXPECT_EQ(Read_Whole(Place / "chem.orv"), "small");
    EXPECT_EQ(fs::file_size(Place / "plot.orv"), 300000U);
}

TEST_F(Single_Run_Test, Nothing_Is_Archived_While_The_Engine_Is_At_Work)
{
    Write_Whole(Place / "echo.orv", "echo");
    const auto engine = Lock::Take(Place.Path());

    EXPECT_FALSE(Archive_Run(The_Session, Place.Path(), "Run_1"));

    EXPECT_EQ(
        The_User.Messages.back(),
        (Message{"File check", "An engine is still at work in this directory. Please wait until it has finished."}));
    EXPECT_TRUE(fs::exists(Place / "echo.orv"));
    EXPECT_FALSE(fs::exists(Place / "Run_1"));
}

TEST_F(Single_Run_Test, Without_Output_There_Is_Nothing_To_Archive)
{
    EXPECT_FALSE(Archive_Run(The_Session, Place.Path(), "Run_1"));

    EXPECT_EQ(The_User.Messages.back(), (Message{"File check", "No output files in the current dirctory"}));
    EXPECT_FALSE(fs::exists(Place / "Run_1"));
}

TEST_F(Single_Run_Test, The_Form_Opens_With_What_The_Last_Run_Control_Says)
{
    ASSERT_TRUE(Start_Single_Run(The_Session, Place.Path(), Entry()));
    auto fresh = std::make_unique<Session>();

    const Single_Run_Entry entry = Restore_Single_Run(*fresh, Place.Path());

    EXPECT_EQ(entry.Pesticide, "test.psm");
    EXPECT_EQ(entry.Scenario, "H_maize.sze");
    EXPECT_EQ(entry.Climates, (std::vector<std::string>{"one.cli", "one.cli", "one.cli"}));
    EXPECT_EQ(entry.End_Month_Index, 11);
    EXPECT_EQ(Val(entry.Years), 3);
}

} // namespace orvel
