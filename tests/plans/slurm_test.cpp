#include "plans/slurm.h"

#include <gtest/gtest.h>

namespace orvel {

TEST(Slurm, The_Script_Runs_The_Part_Of_Its_Task_And_Keeps_Every_Word_As_It_Is)
{
    EXPECT_EQ(Slurm_Script("/my runs/it's $HOME", {"/opt/bin/orvelctl", "plan", "run", "`x` \"y\\.csv", "--wait"}, 4),
              "#!/bin/sh\n"
              "# Runs one part of a plan. It goes on with what is missing, so that a task may be killed and\n"
              "# put into the queue again at any moment.\n"
              "exec >>'/my runs/it'\\''s $HOME/slurm-'\"$SLURM_ARRAY_TASK_ID.log\" 2>&1\n"
              "exec /opt/bin/orvelctl plan run '`x` \"y\\.csv' --wait"
              " --part \"$SLURM_ARRAY_TASK_ID/4\" --patience 180\n");
}

TEST(Slurm, The_Parts_Are_One_Array_Whose_Tasks_May_Begin_Again)
{
    const std::vector<std::string> plain = {
        "--parsable", "--job-name=orvel-plan", "--array=1-40", "--ntasks=1", "--cpus-per-task=2",
        "--requeue",  "--output=/dev/null",    "slurm.sh"};
    EXPECT_EQ(Sbatch_Arguments({.Tasks = 40, .Jobs = 2, .Minutes = std::nullopt}), plain);

    const auto limited = Sbatch_Arguments({.Tasks = 40, .Jobs = 2, .Minutes = 90});
    ASSERT_EQ(limited.size(), plain.size() + 1);
    EXPECT_EQ(limited[limited.size() - 2], "--time=90");
    EXPECT_EQ(limited.back(), "slurm.sh"); // what stands behind the script would be its own
}

TEST(Slurm, The_Number_Of_The_Job_Is_Found_Between_Warnings)
{
    EXPECT_EQ(Parse_Sbatch("1234\n"), (Slurm_Job{"1234", ""}));
    EXPECT_EQ(Parse_Sbatch("1234;north\n"), (Slurm_Job{"1234", "north"}));
    EXPECT_EQ(Parse_Sbatch("sbatch: warning: 2 is old\n77\nsbatch: info: bye\n"), (Slurm_Job{"77", ""}));
    EXPECT_EQ(Parse_Sbatch("sbatch: error: Batch job submission failed: Invalid partition\n"), std::nullopt);
    EXPECT_EQ(Parse_Sbatch(";north\n\n"), std::nullopt);
    EXPECT_EQ(Parse_Sbatch(""), std::nullopt);
}

TEST(Slurm, A_Job_Is_Listed_By_Its_Whole_Number)
{
    EXPECT_TRUE(Is_Listed({"12", ""}, "7\n12\n"));
    EXPECT_TRUE(Is_Listed({"12", "north"}, "CLUSTER: north\n12\n12\n"));
    EXPECT_FALSE(Is_Listed({"12", ""}, "112\n123\n"));
    EXPECT_FALSE(Is_Listed({"12", ""}, ""));
}

} // namespace orvel
