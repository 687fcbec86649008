// Acceptance of an engine, with the bundled one and the figures that are shipped for it.
#include "core/files.h"
#include "core/sha256.h"
#include "temporary_directory.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

namespace orvel {

namespace fs = std::filesystem;

class Orvelctl_Accept : public testing::Test {
protected:
    struct Outcome {
        int Code;
        std::string Printed, Told;
    };

    void SetUp() override { ASSERT_EQ(Do("init '" + Home.string() + "'").Code, 0); }

    Outcome Do(const std::string& words)
    {
        const std::string out = (Place / "printed").string(), told = (Place / "told").string();
        const int status = std::system((std::string(ORVELCTL) + " " + words + " >" + out + " 2>" + told).c_str());
        return {WEXITSTATUS(status), Read_Whole(out), Read_Whole(told)};
    }
    Outcome In_Home(const std::string& words) { return Do("-C '" + Home.string() + "' " + words); }

    // The lines of the shipped table that hold a text, below its head.
    std::string Shipped(const std::string& text)
    {
        const std::string all = Read_Whole(Home / "expected.csv");
        std::string lines = all.substr(0, all.find('\n') + 1);
        for (std::size_t at = lines.size(); at < all.size();) {
            const auto end = all.find('\n', at) + 1;
            if (all.substr(at, end - at).find(text) != std::string::npos)
                lines += all.substr(at, end - at);
            at = end;
        }
        return lines;
    }

    Temporary_Directory Place;
    fs::path Home = Place / "my home";
};

TEST_F(Orvelctl_Accept, The_Bundled_Engine_Gives_What_Is_Expected_At_One_Location)
{
    const std::string table = (Place / "hamburg.csv").string(), saved = (Place / "saved.csv").string();
    Write_Whole(table, Shipped(",Hamburg (H),"));
    fs::remove(Home / "demo_A.psm"); // the reference is not the user's file
    const std::string digest = Sha256_Of_File(Home / "orvel401.exe");

    const auto accepted = In_Home("accept --expected " + table + " --save " + saved);

    EXPECT_EQ(accepted.Code, 0) << accepted.Printed << accepted.Told;
    EXPECT_TRUE(accepted.Printed.starts_with(
        "result\tpesticide\tcrop\tlocation\tsubstance\texpected\tobtained\tratio\ttolerance\n"
        "ok\tdemo_A.psm\tWinter cereals\tHamburg (H)\tDemo substance A\t"))
        << accepted.Printed;
    EXPECT_TRUE(accepted.Printed.ends_with("\nAll 5 figures are as hamburg.csv expects them.\n")) << accepted.Printed;
    EXPECT_EQ(In_Home("accept --expected " + saved).Code, 0);
    EXPECT_NE(Read_Whole(Home / "acceptance.json").find(digest), std::string::npos);
    const auto doctor = In_Home("doctor");
    EXPECT_NE(doctor.Printed.find("good\tengine\torvel401.exe with the digest " + digest + " is accepted on 20"),
              std::string::npos)
        << doctor.Printed;
    EXPECT_NE(doctor.Printed.find(" against saved.csv.\n"), std::string::npos) << doctor.Printed;
}

// The figure that the table holds is the one that the ways of every other simulation give.
TEST_F(Orvelctl_Accept, A_File_That_Cannot_Be_Saved_Is_Told_Before_Anything_Runs)
{
    const std::string nowhere = (Place / "nowhere/saved.csv").string(), locked = (Place / "locked.csv").string();
    Write_Whole(locked, "old");
    fs::permissions(locked, fs::perms::owner_read);

    for (const auto& [file, reason] :
         {std::pair{nowhere, "Cannot write " + nowhere + ": No such file or directory."},
          std::pair{locked, "The file " + locked + " is read protected."},
          std::pair{Place.Path().string(), "Cannot write " + Place.Path().string() + ": Is a directory."}}) {
        const auto refused = In_Home("accept --save " + file);
        EXPECT_EQ(refused.Code, 1);
        EXPECT_EQ(refused.Printed, "");
        EXPECT_EQ(refused.Told, "File check: " + reason + "\n");
    }
    EXPECT_EQ(Read_Whole(locked), "old");
    EXPECT_FALSE(fs::exists(Home / "acceptance.json"));
}

TEST_F(Orvelctl_Accept, What_Is_Expected_Is_What_A_Batch_Computes)
{
    const std::string line = Shipped("demo_D.psm,Winter cereals,Hamburg (H)"), unit = ",\u00B5g/L,";
    const auto end = line.find(unit);
    ASSERT_NE(end, std::string::npos) << line;
    const auto begin = line.rfind(',', end - 1) + 1;
    const std::string figure = line.substr(begin, end - begin);
    ASSERT_EQ(In_Home("mark --mode focus --pesticide demo_D.psm --crop 'Winter cereals' --location 'Hamburg (H)' "
                      "--output minimum")
                  .Code,
              0);
    ASSERT_EQ(In_Home("start --mode focus --wait").Code, 0);

    const auto overview = In_Home("overview --mode focus --json");
    const auto report = In_Home("report --mode focus --pesticide demo_D --crop 'Winter cereals' --to " +
                                (Place / "report.html").string());

    EXPECT_NE(overview.Printed.find("\"value\": " + figure + ","), std::string::npos) << figure << overview.Printed;
    ASSERT_EQ(report.Code, 0) << report.Told;
    EXPECT_NE(Read_Whole(Place / "report.html").find("not accepted here"), std::string::npos);
}

TEST_F(Orvelctl_Accept, Another_Figure_Or_Engine_Is_Not_Accepted_And_Takes_The_Acceptance_Away)
{
    const std::string table = (Place / "e.csv").string();
    std::string expected = Shipped("demo_D.psm,Winter cereals,Hamburg (H)");
    Write_Whole(table, expected);
    ASSERT_EQ(In_Home("accept --expected " + table).Code, 0);

    expected.insert(expected.find(",\u00B5g/L,") - 1, "9"); // another digit before the last
    Write_Whole(table, expected);
    const auto other = In_Home("accept --expected " + table);
    EXPECT_EQ(other.Code, 1);
    EXPECT_NE(other.Printed.find("\noutside\tdemo_D.psm\t"), std::string::npos) << other.Printed;
    EXPECT_TRUE(other.Printed.ends_with("\n1 of 1 figures are not as e.csv expects them.\n")) << other.Printed;
    EXPECT_EQ(other.Told, "Acceptance: The engine is not accepted.\n");
    EXPECT_NE(In_Home("doctor").Printed.find("is not accepted here."), std::string::npos);

    Write_Whole(Place / "orvel500.exe", "#!/bin/sh\nexit 3\n");
    fs::permissions(Place / "orvel500.exe", fs::perms::owner_all);
    const auto broken = In_Home("accept --expected " + table + " --engine " + (Place / "orvel500.exe").string());
    EXPECT_EQ(broken.Code, 1);
    EXPECT_NE(broken.Printed.find("\tThe engine ended with exit code 3.\t"), std::string::npos) << broken.Printed;
    EXPECT_EQ(In_Home("accept --expected none.csv").Told,
              "File check: Cannot read none.csv: No such file or directory.\n");
}

} // namespace orvel
