#include "desktop/first_start.h"

#include "core/files.h"
#include "recording_user.h"
#include "temporary_directory.h"

#include <gtest/gtest.h>

namespace orvel {

namespace {

namespace fs = std::filesystem;

struct First_Start : testing::Test {
    First_Start()
    {
        fs::create_directories(Place / "parts");
        fs::create_directories(Place / "elsewhere");
        Write_Whole(Place / "parts/orvel401.exe", "#!/bin/sh\n");
        Ask = [this](const Message& message) { return The_User(message); };
    }

    std::optional<fs::path> Find(const fs::path& chosen)
    {
        return Find_Installation(Place / "elsewhere", {Place / "parts"}, Ask, [&] { return chosen; });
    }

    bool Elsewhere_Is_Clean() { return fs::is_empty(Place / "elsewhere"); }

    Temporary_Directory Place;
    Recording_User The_User;
    Ask_Function Ask;
};

TEST_F(First_Start, Lays_An_Installation_Out_Where_The_User_Says_And_Leaves_Nothing_Where_It_Was_Started)
{
    The_User.Answers = {Button::Yes};

    EXPECT_EQ(Find(Place / "new"), Place / "new");

    EXPECT_TRUE(Is_Installation(Place / "new"));
    EXPECT_TRUE(Elsewhere_Is_Clean());
    ASSERT_EQ(The_User.Messages.size(), 1U);
    EXPECT_EQ(The_User.Messages[0].Picture, Icon::Question);
}

TEST_F(First_Start, Takes_A_Directory_That_Is_An_Installation_Without_A_Question)
{
    The_User.Answers = {Button::Yes};
    Find(Place / "new");

    EXPECT_EQ(Find_Installation(Place / "new", {}, Ask, [] { return fs::path(); }), Place / "new");
    EXPECT_EQ(The_User.Messages.size(), 1U);
}

TEST_F(First_Start, Makes_It_Below_A_Directory_With_Other_Files)
{
    The_User.Answers = {Button::Yes};

    EXPECT_EQ(Find(Place.Path()), Place / "ORVELSUITE");
}

TEST_F(First_Start, Ends_After_One_Box_That_Says_What_To_Do)
{
    The_User.Answers = {Button::No};

    EXPECT_EQ(Find(Place / "new"), std::nullopt);

    ASSERT_EQ(The_User.Messages.size(), 1U);
    EXPECT_NE(The_User.Messages[0].Text.find("has no focus/c_apples.sze"), std::string::npos);
    EXPECT_NE(The_User.Messages[0].Text.find("start it again in the directory of an installation"), std::string::npos);
    EXPECT_TRUE(Elsewhere_Is_Clean());
    EXPECT_FALSE(fs::exists(Place / "new"));
}

TEST_F(First_Start, Tells_That_It_Cannot_Be_Laid_Out)
{
    The_User.Answers = {Button::Yes, Button::Ok};
    fs::remove(Place / "parts/orvel401.exe");

    EXPECT_EQ(Find(Place / "new"), std::nullopt);

    ASSERT_EQ(The_User.Messages.size(), 2U);
    EXPECT_NE(The_User.Messages[1].Text.find("orvel401.exe"), std::string::npos);
}

} // namespace

} // namespace orvel
