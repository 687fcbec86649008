#include "runs/acceptance.h"

#include "core/files.h"
#include "temporary_directory.h"

#include <gtest/gtest.h>

namespace orvel {

class Acceptance_Test : public testing::Test {
protected:
    Temporary_Directory Home;
    const Acceptance First{"orvel401.exe", "aa", "expected.csv", "ee", "2026-05-31"};
    const Acceptance Second{"orvel500.exe", "bb", "gr\xFCn.csv", "ff", "2026-06-01"};
};

TEST_F(Acceptance_Test, An_Engine_Is_Known_By_Its_Digest)
{
    EXPECT_EQ(Acceptance_Text(Home.Path(), "aa"), "not accepted here");

    Keep_Acceptance(Home.Path(), First);
    Keep_Acceptance(Home.Path(), Second);

    EXPECT_EQ(Acceptance_Of(Home.Path(), "aa"), First);
    EXPECT_EQ(Acceptance_Text(Home.Path(), "bb"), "accepted on 2026-06-01 against gr\xFCn.csv");
    EXPECT_EQ(Acceptance_Text(Home.Path(), "cc"), "not accepted here");
    EXPECT_TRUE(
        Read_Whole(Home / "acceptance.json")
            .starts_with("{\n  \"schema\": 1,\n  \"acceptances\": [\n    {\n      \"date\": \"2026-05-31\",\n"
                         "      \"engine\": {\n        \"name\": \"orvel401.exe\",\n        \"sha256\": \"aa\"\n"));
}

TEST_F(Acceptance_Test, A_Later_One_Takes_The_Place_Of_The_One_Before_And_Can_Be_Withdrawn)
{
    Keep_Acceptance(Home.Path(), First);
    Keep_Acceptance(Home.Path(), Second);
    Acceptance later = First;
    later.Date = "2026-07-01";
    Keep_Acceptance(Home.Path(), later);
    EXPECT_EQ(Read_Acceptances(Home.Path()), (std::vector{Second, later}));

    Withdraw_Acceptance(Home.Path(), "aa");
    EXPECT_EQ(Read_Acceptances(Home.Path()), std::vector{Second});
    Withdraw_Acceptance(Home.Path(), "never there");
    EXPECT_EQ(Read_Acceptances(Home.Path()), std::vector{Second});
}

TEST_F(Acceptance_Test, A_Damaged_File_Is_Told_And_Never_Replaced)
{
    Write_Whole(Home / "acceptance.json", "{\"schema\": 1}");

    EXPECT_THROW(Keep_Acceptance(Home.Path(), First), File_Error);
    EXPECT_EQ(Read_Whole(Home / "acceptance.json"), "{\"schema\": 1}");
    EXPECT_TRUE(Acceptance_Text(Home.Path(), "aa").starts_with("not known to be accepted here: "))
        << Acceptance_Text(Home.Path(), "aa");
}

} // namespace orvel
