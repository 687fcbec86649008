#include "jobs/single_run_start.h"

#include "complete_output.h"
#include "core/system/lock.h"
#include "full_disk.h"
#include "jobs/single_run_archive.h"
#include "output/run_state.h"
#include "runs/single_run_fixture.h"

#include <chrono>
#include <thread>

namespace orvel {

namespace fs = std::filesystem;

class Single_Run_Start_Test : public Single_Run_Fixture {
protected:
    void Engine(const std::string& script)
    {
        fs::remove(Place / "orvel401.exe");
        Write_Whole(Place / "orvel401.exe", "#!/bin/sh\n" + script + "\n");
        fs::permissions(Place / "orvel401.exe", fs::perms::owner_all);
    }
    void Wait_For_The_End()
    {
        while (State_Of_Single_Run(Place.Path(), 3).Running)
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
};

TEST_F(Single_Run_Start_Test, A_Run_Gets_Its_Record)
{
    Put_Complete_Output(Place / "model", 3);
    Engine("cp model/*.orv .");

    ASSERT_TRUE(Start_Single_Run(The_Session, Place.Path(), Entry(), ORVELJOB));
    Wait_For_The_End();

    const auto record = Read_Run_Record(Place.Path()).value();
    EXPECT_EQ(record.Verdict, Verdict::Complete) << record.Reason;
    EXPECT_EQ(record.Years_Expected, 3);
    EXPECT_EQ(record.Inputs.at(1).Name, "H_maize.sze");
    EXPECT_EQ(record.Inputs.at(3).Name, "one.cli");
    EXPECT_TRUE(fs::exists(Place / "orvel401.exe")); // that of the installation is no copy
}

TEST_F(Single_Run_Start_Test, A_Run_That_Fails_Says_So_In_Its_Record_And_Not_Only_By_What_It_Left)
{
    Put_Complete_Output(Place / "model", 3);
    Engine("cp model/*.orv .; exit 7");

    ASSERT_TRUE(Start_Single_Run(The_Session, Place.Path(), Entry(), ORVELJOB));
    Wait_For_The_End();

    EXPECT_EQ(State_Of_Run(Place.Path()).Verdict, Verdict::Failed);
    EXPECT_EQ(State_Of_Run(Place.Path()).Reason, "The engine ended with exit code 7.");
}

TEST_F(Single_Run_Start_Test, A_Run_At_Work_Can_Be_Stopped)
{
    Engine("echo > echo.orv; while true; do sleep 0.02; done");
    ASSERT_TRUE(Start_Single_Run(The_Session, Place.Path(), Entry(), ORVELJOB));

    EXPECT_TRUE(Stop_Single_Run(The_Session.Ask, Place.Path()));
    Wait_For_The_End();

    EXPECT_EQ(State_Of_Run(Place.Path()).Verdict, Verdict::Stopped);
    EXPECT_FALSE(Stop_Single_Run(The_Session.Ask, Place.Path()));
}

TEST_F(Single_Run_Start_Test, An_Engine_That_Everyone_May_Change_Is_Refused_And_Old_Output_Stays)
{
    Write_Whole(Place / "old.orv", "old");
    fs::permissions(Place / "orvel401.exe", fs::perms::others_write, fs::perm_options::add);

    EXPECT_FALSE(Start_Single_Run(The_Session, Place.Path(), Entry(), ORVELJOB));

    EXPECT_EQ(The_User.Messages.back().Text, "Every user of this computer may change " +
                                                 (Place / "orvel401.exe").string() +
                                                 ": no engine is started there until others may not write it.");
    EXPECT_TRUE(fs::exists(Place / "old.orv"));
}

TEST_F(Single_Run_Start_Test, Starting_Writes_The_Run_Control_And_Deletes_Old_Output)
{
    Write_Whole(Place / "old.orv", "old");
    ASSERT_TRUE(Has_Output(Place.Path()));

    EXPECT_TRUE(Start_Single_Run(The_Session, Place.Path(), Entry(), ORVELJOB));
    Wait_For_The_End();

    const std::string control = Read_Whole(Place / "orvel.inp");
    EXPECT_TRUE(control.starts_with("003 01 01 31 12\r\nH_maize.sze\r\ntest.psm\r\none.cli\r\none.cli\r\none.cli\r\n"))
        << control;
    EXPECT_FALSE(fs::exists(Place / "old.orv"));
}

TEST_F(Single_Run_Start_Test, While_The_Engine_Is_At_Work_Starting_Tells_And_Touches_Nothing)
{
    Write_Whole(Place / "orvel401.exe", "#!/bin/sh\ntouch begun\nsleep 5\n");
    fs::permissions(Place / "orvel401.exe", fs::perms::owner_all);
    ASSERT_TRUE(Start_Single_Run(The_Session, Place.Path(), Entry(), ORVELJOB));
    for (int i = 0; i < 1000 && !fs::exists(Place / "begun"); ++i) // old output goes just before
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    EXPECT_TRUE(State_Of_Single_Run(Place.Path(), 3).Running);
    Write_Whole(Place / "kept.orv", "output");

    EXPECT_FALSE(Start_Single_Run(The_Session, Place.Path(), Entry(), ORVELJOB));

    EXPECT_EQ(The_User.Messages.back().Text,
              "An engine is still at work in this directory. Please wait until it has finished.");
    EXPECT_TRUE(fs::exists(Place / "kept.orv"));
}

TEST_F(Single_Run_Start_Test, A_Missing_Engine_Is_Told)
{
    Write_Whole(Place / "old.orv", "old");
    fs::remove(Place / "orvel401.exe");
    EXPECT_FALSE(Start_Single_Run(The_Session, Place.Path(), Entry(), ORVELJOB));
    EXPECT_EQ(The_User.Messages.back(), (Message{"File check", "Orvel not found"}));
    EXPECT_TRUE(fs::exists(Place / "old.orv")); // for a run that cannot be, nothing is given up
    The_Session.Program.Engine_Exe.clear();
    EXPECT_FALSE(Start_Single_Run(The_Session, Place.Path(), Entry(), ORVELJOB));

    EXPECT_EQ(The_User.Messages.back(), (Message{"File check", "Orvel not found"}));
}

TEST_F(Single_Run_Start_Test, The_Proposed_Archive_Is_The_First_Free_One)
{
    EXPECT_EQ(Free_Archive_Name(Place.Path()), "Run_1");
    fs::create_directory(Place / "Run_1");
    fs::create_directory(Place / "Run_2");
    EXPECT_EQ(Free_Archive_Name(Place.Path()), "Run_3");
}

TEST_F(Single_Run_Start_Test, An_Archive_Takes_The_Output_And_Copies_The_Input)
{
    ASSERT_TRUE(Start_Single_Run(The_Session, Place.Path(), Entry(), ORVELJOB));
    Wait_For_The_End();
    Write_Whole(Place / "echo.orv", "echo");
    Write_Whole(Place / "chem.orv", "chem");

    EXPECT_TRUE(Archive_Run(The_Session.Ask, Place.Path(), "Run_1"));

    for (const char* name : {"echo.orv", "chem.orv", "run.json", "orvel.inp", "test.psm", "H_maize.sze", "one.cli"})
        EXPECT_TRUE(fs::exists(Place / "Run_1" / name)) << name;
    EXPECT_FALSE(Has_Output(Place.Path()));
    EXPECT_FALSE(fs::exists(Place / "run.json"));
    for (const char* name : {"orvel.inp", "test.psm", "H_maize.sze", "one.cli"})
        EXPECT_TRUE(fs::exists(Place / name)) << name;
}

TEST_F(Single_Run_Start_Test, An_Archive_That_Fails_Takes_Nothing_And_Leaves_Nothing)
{
    Write_Whole(Place / "echo.orv", "echo");
    Write_Whole(Place / "orvel.inp", "001 01 01 31 12\r\nH_maize.sze\r\ntest.psm\r\none.cli\r\n");
    fs::create_directory(Place / "one.cli.d");
    fs::remove(Place / "one.cli");
    fs::rename(Place / "one.cli.d", Place / "one.cli");

    EXPECT_FALSE(Archive_Run(The_Session.Ask, Place.Path(), "Run_1"));

    EXPECT_TRUE(fs::exists(Place / "echo.orv"));
    EXPECT_FALSE(fs::exists(Place / "Run_1"));
    EXPECT_EQ(The_User.Messages.back(),
              (Message{"File check", "Cannot open " + (Place / "Run_1").string() + "\r\nCannot read " +
                                         (Place / "one.cli").string() + ": Is a directory."}));
}

TEST_F(Single_Run_Start_Test, An_Archive_Is_Made_Without_Input_That_Is_Gone_And_Names_It)
{
    Write_Whole(Place / "echo.orv", "echo");
    Write_Whole(Place / "orvel.inp", "001 01 01 31 12\r\ngone.sze\r\ntest.psm\r\ngone.cli\r\n");

    EXPECT_TRUE(Archive_Run(The_Session.Ask, Place.Path(), "Run_1"));

    EXPECT_TRUE(fs::exists(Place / "Run_1/echo.orv"));
    EXPECT_TRUE(fs::exists(Place / "Run_1/test.psm"));
    EXPECT_EQ(The_User.Messages.back(),
              (Message{"File check", "The archive Run_1 lacks input that is not there any more: gone.sze, gone.cli."}));
}

TEST_F(Single_Run_Start_Test, An_Archive_Takes_Output_Of_More_Than_64_Megabytes)
{
    constexpr std::size_t Size = (64U << 20U) + 1;
    Write_Whole(Place / "orvel.inp", "001 01 01 31 12\r\nH_maize.sze\r\ntest.psm\r\none.cli\r\n");
    Write_Whole(Place / "plot.orv", std::string(Size, 'x'));

    EXPECT_TRUE(Archive_Run(The_Session.Ask, Place.Path(), "Run_1"));

    EXPECT_EQ(fs::file_size(Place / "Run_1/plot.orv"), Size);
}

TEST_F(Single_Run_Start_Test, An_Archive_Never_Goes_Over_An_Existing_Folder)
{
    Write_Whole(Place / "echo.orv", "echo");
    fs::create_directory(Place / "Run_1");
    Write_Whole(Place / "Run_1/echo.orv", "earlier");

    EXPECT_FALSE(Archive_Run(The_Session.Ask, Place.Path(), "Run_1"));
    EXPECT_FALSE(Archive_Run(The_Session.Ask, Place.Path(), "../elsewhere"));

    EXPECT_EQ(Read_Whole(Place / "Run_1/echo.orv"), "earlier");
    EXPECT_TRUE(fs::exists(Place / "echo.orv"));
}

TEST_F(Single_Run_Start_Test, An_Archive_On_A_Full_Disk_Is_Told_And_Takes_Nothing)
{
    Write_Whole(Place / "orvel.inp", "001 01 01 31 12\r\nH_maize.sze\r\ntest.psm\r\none.cli\r\n");
    Write_Whole(Place / "chem.orv", "small");
    Write_Whole(Place / "plot.orv", std::string(300000, 'x'));
    bool archived = true;
    {
        const Full_Disk full(100000);
        archived = Archive_Run(The_Session.Ask, Place.Path(), "Run_1");
    }

    EXPECT_FALSE(archived);
    EXPECT_TRUE(The_User.Messages.back().Text.starts_with("Cannot open " + (Place / "Run_1").string()));
    EXPECT_FALSE(fs::exists(Place / "Run_1"));
    EXPECT_EQ(Read_Whole(Place / "chem.orv"), "small");
    EXPECT_EQ(fs::file_size(Place / "plot.orv"), 300000U);
}

TEST_F(Single_Run_Start_Test, Nothing_Is_Archived_While_The_Engine_Is_At_Work)
{
    Write_Whole(Place / "echo.orv", "echo");
    const auto engine = Lock::Take(Place.Path());

    EXPECT_FALSE(Archive_Run(The_Session.Ask, Place.Path(), "Run_1"));

    EXPECT_EQ(
        The_User.Messages.back(),
        (Message{"File check", "An engine is still at work in this directory. Please wait until it has finished."}));
    EXPECT_TRUE(fs::exists(Place / "echo.orv"));
    EXPECT_FALSE(fs::exists(Place / "Run_1"));
}

TEST_F(Single_Run_Start_Test, Without_Output_There_Is_Nothing_To_Archive)
{
    EXPECT_FALSE(Archive_Run(The_Session.Ask, Place.Path(), "Run_1"));

    EXPECT_EQ(The_User.Messages.back(), (Message{"File check", "No output files in the current dirctory"}));
    EXPECT_FALSE(fs::exists(Place / "Run_1"));
}

} // namespace orvel
