#include "desktop/places.h"

#include "core/files.h"
#include "recording_user.h"
#include "temporary_directory.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace orvel {

namespace {

namespace fs = std::filesystem;

struct Places_Test : testing::Test {
    Places_Test()
    {
        fs::create_directories(Place / "parts");
        fs::create_directories(Place / "elsewhere");
        Write_Whole(Place / "parts/orvel401.exe", "#!/bin/sh\n");
        Ask = [this](const Message& message) { return The_User(message); };
    }

    std::optional<fs::path> Find(const fs::path& chosen) { return Installation_In(chosen, {Place / "parts"}, Ask); }

    Temporary_Directory Place;
    Recording_User The_User;
    Ask_Function Ask;
};

TEST_F(Places_Test, Lays_An_Installation_Out_Where_The_User_Says)
{
    EXPECT_EQ(Find(Place / "new"), Place / "new");

    EXPECT_TRUE(Is_Installation(Place / "new"));
    EXPECT_TRUE(The_User.Messages.empty());
}

TEST_F(Places_Test, Takes_A_Directory_That_Is_An_Installation)
{
    Find(Place / "new");
    Write_Whole(Place / "new/mine.psm", "mine");

    EXPECT_EQ(Find(Place / "new"), Place / "new");
    EXPECT_EQ(Read_Whole(Place / "new/mine.psm"), "mine");
}

TEST_F(Places_Test, Makes_It_Below_A_Directory_With_Other_Files)
{
    EXPECT_EQ(Find(Place.Path()), Place / "ORVELSUITE");
}

TEST_F(Places_Test, Tells_That_It_Cannot_Be_Laid_Out)
{
    fs::remove(Place / "parts/orvel401.exe");

    EXPECT_EQ(Find(Place / "new"), std::nullopt);

    ASSERT_EQ(The_User.Messages.size(), 1U);
    EXPECT_NE(The_User.Messages[0].Text.find("orvel401.exe"), std::string::npos);
    EXPECT_FALSE(fs::exists(Place / "new"));
}

TEST_F(Places_Test, Takes_The_Scenarios_Of_Another_Installation)
{
    Find(Place / "old");
    for (const char* name : {"H_maize.sze", "H_01.cli"})
        fs::permissions(Place / "old/focus" / name, fs::perms::owner_write, fs::perm_options::add);
    Write_Whole(Place / "old/focus/mine.sze", "my soil");
    fs::remove(Place / "old/focus/H_maize.sze");

    EXPECT_EQ(Installation_In(Place / "new", {Place / "parts"}, Ask, Place / "old"), Place / "new");

    EXPECT_EQ(Read_Whole(Place / "new/focus/mine.sze"), "my soil");
    EXPECT_FALSE(fs::exists(Place / "new/focus/H_maize.sze"));
    EXPECT_TRUE(fs::exists(Place / "new/focus/C_maize.sze"));
    EXPECT_TRUE(Is_Installation(Place / "new"));
}

TEST_F(Places_Test, A_Directory_Is_Meant_As_It_Is_Typed)
{
    const auto before = fs::current_path();
    fs::current_path(Place / "elsewhere");
    EXPECT_EQ(Find("here"), Place / "elsewhere/here") << "the program goes into it afterwards";
    fs::current_path(before);

    const std::string home = std::getenv("HOME") ? std::getenv("HOME") : "";
    ::setenv("HOME", (Place / "elsewhere").c_str(), 1);
    EXPECT_EQ(Find("~/mine/"), Place / "elsewhere/mine");
    ::setenv("HOME", home.c_str(), 1);

    EXPECT_EQ(Find(""), std::nullopt);
    ASSERT_EQ(The_User.Messages.size(), 1U);
    EXPECT_EQ(The_User.Messages[0].Text, "Please enter a directory.");
}

TEST_F(Places_Test, A_Layout_That_Was_Killed_Begins_Again)
{
    fs::create_directories(Place / "new/.orvel-init/focus");

    EXPECT_EQ(Find(Place / "new"), Place / "new");
    EXPECT_TRUE(Is_Installation(Place / "new"));
    EXPECT_FALSE(fs::exists(Place / "new/.orvel-init"));
}

TEST_F(Places_Test, Nothing_Stays_Of_An_Installation_Without_The_Scenarios_It_Was_To_Take)
{
    Find(Place / "old");
    fs::remove_all(Place / "old/EFSA");
    fs::create_symlink("EFSA", Place / "old/EFSA"); // cannot be listed

    EXPECT_EQ(Installation_In(Place / "new", {Place / "parts"}, Ask, Place / "old"), std::nullopt);
    EXPECT_FALSE(fs::exists(Place / "new"));
    ASSERT_EQ(The_User.Messages.size(), 1U);
    EXPECT_NE(The_User.Messages[0].Text.find("cannot be copied"), std::string::npos) << The_User.Messages[0].Text;
}

TEST_F(Places_Test, A_Start_Goes_Where_It_Was_Asked_To_Or_Was_Last)
{
    Find(Place / "one");
    Find(Place / "two");
    const fs::path state = Place / "state", document = Place / "one/demo_A.psm", loose = Place / "elsewhere/x.psm";
    Write_Whole(loose, "x");

    EXPECT_TRUE(Request_Of({}, Place / "elsewhere", Recent_Installations(state)).Installation.empty());
    Remember_Installation(state, Place / "one");
    Remember_Installation(state, Place / "two");
    Remember_Installation(state, Place / "one");
    EXPECT_EQ(Recent_Installations(state), (std::vector<fs::path>{Place / "one", Place / "two"}));
    const auto recent = Recent_Installations(state);
    EXPECT_EQ(Request_Of({}, Place / "elsewhere", recent).Installation, Place / "one");
    EXPECT_EQ(Request_Of({}, Place / "two", recent).Installation, Place / "two");
    EXPECT_EQ(Request_Of(Place / "two", Place / "elsewhere", recent).Installation, Place / "two");
    EXPECT_EQ(Request_Of(document, Place / "two", recent).Installation, Place / "one");
    EXPECT_EQ(Request_Of(document, Place / "two", recent).Document, document);
    EXPECT_EQ(Request_Of(loose, Place / "two", recent).Installation, Place / "two");
    EXPECT_THROW(Request_Of(Place / "one/README.md", Place / "two", recent), File_Error);
    try {
        Request_Of(Place / "nothing.psm", Place / "two", recent);
        ADD_FAILURE();
    } catch (const File_Error& error) {
        EXPECT_EQ(std::string(error.what()), (Place / "nothing.psm").string() + " does not exist.");
    }

    fs::remove_all(Place / "one");
    EXPECT_EQ(Recent_Installations(state), std::vector<fs::path>{Place / "two"});
}

TEST_F(Places_Test, The_List_Of_Recent_Installations_Survives_Deleted_Ones_Damage_And_No_Place_For_It)
{
    const fs::path state = Place / "state";
    for (const char* name : {"one", "two", "three"}) {
        Find(Place / name);
        Remember_Installation(state, Place / name);
    }
    fs::remove_all(Place / "two");
    EXPECT_EQ(Recent_Installations(state), (std::vector<fs::path>{Place / "three", Place / "one"}));
    fs::remove_all(Place / "three"); // the last one: a start goes to the one before
    EXPECT_EQ(Request_Of({}, Place / "elsewhere", Recent_Installations(state)).Installation, Place / "one");

    Remember_Installation(state, Place / "one");
    EXPECT_EQ(Read_Whole(state / "installations"), (Place / "one").string() + "\n");
    Write_Whole(state / "installations", "\n\xff\xfe\n/nowhere\n" + (Place / "one").string() + "\r\n\n");
    EXPECT_EQ(Recent_Installations(state), std::vector<fs::path>{Place / "one"});

    for (const auto& bad : {fs::path(), Place / "state/installations", Place / "state/installations/below"}) {
        Remember_Installation(bad, Place / "one"); // no word, and no other file
        EXPECT_TRUE(Recent_Installations(bad).empty());
    }
    EXPECT_EQ(Recent_Installations(state), std::vector<fs::path>{Place / "one"});
}

} // namespace

} // namespace orvel
