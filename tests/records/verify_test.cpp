#include "records/verify.h"

#include "core/files.h"
#include "core/system/lock.h"
#include "jobs/job.h"
#include "output/run_state.h"
#include "runs/job_file.h"
#include "runs/run_fixture.h"

namespace orvel {

namespace fs = std::filesystem;

// A run of a mode that an engine has completed.
class Verify_Test : public Run_Test {
protected:
    Verify_Test()
    {
        Good_Engine(2);
        fs::create_directories(Run);
        Copy_Whole(Home / "orvel401.exe", Run / "orvel401.exe");
        Put(Run / "orvel.inp", "002 01 01 31 12\r\n..\\..\\..\\H.sze\r\np.psm\r\n..\\..\\..\\H_01.cli\r\n"
                               "..\\..\\..\\H_01.cli\r\n00000001 00.\r\n");
        for (const auto& input : {Run / "p.psm", Home / "focus" / "H.sze", Home / "focus" / "H_01.cli"})
            Put(input, "an input\r\n");
        Put(Home / "focus" / "orveljob.bat", Format_Job(Format_Job_Run("p.run\\c.run\\l.run", "orvel401.exe", true)));
        Run_Job(Home / "focus", {.Jobs = 1});
    }

    Check Verified() { return Verifier(Home.Path()).Verify(Run).Result; }
    std::string Detail() { return Verifier(Home.Path()).Verify(Run).Detail; }

    const fs::path Run = Home / "focus" / "p.run" / "c.run" / "l.run";
};

TEST_F(Verify_Test, A_Run_That_Is_What_Its_Record_Says_Is_Ok)
{
    EXPECT_EQ(Verified(), Check::Ok) << Detail();
    EXPECT_EQ(Detail(), "");
}

TEST_F(Verify_Test, Any_Byte_Of_An_Input_An_Output_Or_The_Engine_Counts)
{
    const std::pair<fs::path, std::string> files[] = {{Run / "p.psm", "p.psm has changed."},
                                                      {Home / "focus" / "H_01.cli", "../../../H_01.cli has changed."},
                                                      {Run / "chem.orv", "chem.orv has changed."},
                                                      {Home / "orvel401.exe", "orvel401.exe has changed."}};
    for (const auto& [file, detail] : files) {
        const std::string before = Read_Whole(file);
        std::string other = before;
        other.back() ^= 1;
        Put(file, other);
        EXPECT_EQ(Verified(), Check::Changed) << file;
        EXPECT_EQ(Detail(), detail);
        Put(file, before);
    }
    EXPECT_EQ(Verified(), Check::Ok);
}

TEST_F(Verify_Test, A_Missing_Or_An_Added_Output_Is_A_Change)
{
    Put(Run / "chem_A1.orv", "more");
    EXPECT_EQ(Detail(), "The output chem_A1.orv was added.");
    fs::remove(Run / "chem_A1.orv");

    fs::remove(Run / "plot.orv");
    EXPECT_EQ(Verified(), Check::Changed);
    EXPECT_NE(Detail().find("plot.orv"), std::string::npos);
}

TEST_F(Verify_Test, Stored_Tables_Are_No_Change)
{
    Put(Run / "year.orv", "a table");

    EXPECT_EQ(Verified(), Check::Ok);
}

TEST_F(Verify_Test, What_Is_Not_Complete_Is_Told_With_Its_Reason)
{
    Run_Record record = Read_Run_Record(Run).value();
    record.Verdict = Verdict::Stopped;
    record.Reason = "It was stopped.";
    Put(Run / "run.json", Format_Run_Record(record));
    EXPECT_EQ(Verified(), Check::Incomplete);
    EXPECT_EQ(Detail(), "It was stopped.");

    record.Verdict = Verdict::Failed;
    Put(Run / "run.json", Format_Run_Record(record));
    EXPECT_EQ(Verified(), Check::Failed);

    fs::remove(Run / "run.json");
    EXPECT_EQ(Verified(), Check::Unrecorded);
    Put(Run / "orvel401.exe", "engine");
    EXPECT_EQ(Verified(), Check::Incomplete); // cut off
    const auto lock = Lock::Take(Run);
    EXPECT_EQ(Detail(), "The run is running.");
}

TEST_F(Verify_Test, A_Damaged_Record_Is_A_Change_And_Told_With_Its_Place)
{
    Put(Run / "run.json", "{");

    EXPECT_EQ(Verified(), Check::Changed);
    EXPECT_EQ(Detail(), (Run / "run.json").string() + ", line 1, column 1: This is not JSON.");
}

TEST_F(Verify_Test, An_Output_Changed_Behind_Its_Record_Is_Noticed_Though_Its_Size_Is_The_Same)
{
    EXPECT_EQ(State_Of_Run(Run).Verdict, Verdict::Complete);
    const std::string before = Read_Whole(Run / "chem.orv");
    Put(Run / "chem.orv", before); // written again, the same
    EXPECT_EQ(State_Of_Run(Run).Verdict, Verdict::Complete);

    std::string other = before;
    other.back() ^= 1;
    Put(Run / "chem.orv", other);

    EXPECT_EQ(State_Of_Run(Run).Verdict, Verdict::Incomplete);
    EXPECT_EQ(State_Of_Run(Run).Reason, "The output chem.orv is not the one that was recorded.");
}

TEST_F(Verify_Test, A_Run_Copied_To_The_Place_Of_Another_Is_Not_Taken_For_That)
{
    const fs::path place = Home / "focus" / "p.run" / "c.run" / "other.run";
    fs::copy(Run, place, fs::copy_options::recursive);

    const Run_State state = State_Of_Run(place);
    EXPECT_EQ(state.Verdict, Verdict::Incomplete);
    EXPECT_EQ(state.Reason, "Its record is that of another run, p.run\\c.run\\l.run.");
    EXPECT_EQ(Verifier(Home.Path()).Verify(place).Result, Check::Changed);
    EXPECT_EQ(Verifier(Home.Path()).Verify(place).Detail, state.Reason);

    fs::rename(Home / "focus" / "p.run", Home / "focus" / "q.run");
    EXPECT_EQ(State_Of_Run(Home / "focus" / "q.run" / "c.run" / "l.run").Verdict, Verdict::Incomplete);
}

TEST_F(Verify_Test, A_Directory_That_Is_No_Run_Is_Called_So)
{
    for (const fs::path& none : {Home.Path(), Home / "nowhere"}) {
        EXPECT_EQ(Verifier(Home.Path()).Verify(none).Result, Check::Unrecorded);
        EXPECT_EQ(Verifier(Home.Path()).Verify(none).Detail, "This is not the directory of a run.");
    }
}

} // namespace orvel
