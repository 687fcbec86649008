#include "core/system/directory_watch.h"

#include "temporary_directory.h"

#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <thread>

namespace orvel {

namespace fs = std::filesystem;

namespace {

using namespace std::chrono_literals;

void Write(const fs::path& file, const char* text)
{
    std::ofstream(file) << text;
}

// Whether a change is told of, in good time.
bool Tells(Directory_Watch& watch, const fs::path& directory, const std::string& name)
{
    for (const auto until = std::chrono::steady_clock::now() + 10s; std::chrono::steady_clock::now() < until;) {
        const auto is_it = [&](const Directory_Watch::Event& event) {
            return event.Directory == directory && event.Name == name;
        };
        if (std::ranges::any_of(watch.Wait(100ms), is_it))
            return true;
    }
    return false;
}

void Pass_Over(Directory_Watch& watch)
{
    while (!watch.Wait(200ms).empty()) {
    }
}

class Directory_Watch_Test : public testing::Test {
protected:
    Directory_Watch_Test() { fs::create_directories(Root); }

    // A pesticide and a crop that come while their tree is watched.
    void Make_Levels()
    {
        ASSERT_TRUE(Watch.Add_In_Tree(Root, Root));
        fs::create_directory(Level);
        Pass_Over(Watch);
        Watch.Add_In_Tree(Root, Level);
        fs::create_directory(Inner);
        Pass_Over(Watch);
        Watch.Add_In_Tree(Root, Inner);
    }

    Temporary_Directory Home;
    const fs::path Root = Home / "focus", Level = Root / "Gr\u00FCn.run", Inner = Level / "Maize.run";
    Directory_Watch Watch;
};

} // namespace

TEST_F(Directory_Watch_Test, Tells_What_Is_Made_Written_And_Removed_In_A_Directory)
{
    ASSERT_TRUE(Watch.Add(Root));

    Write(Root / "a.psm", "1");
    EXPECT_TRUE(Tells(Watch, Root, "a.psm"));
    Pass_Over(Watch);
    Write(Root / "a.psm", "12");
    EXPECT_TRUE(Tells(Watch, Root, "a.psm"));
    Pass_Over(Watch);
    fs::remove(Root / "a.psm");
    EXPECT_TRUE(Tells(Watch, Root, "a.psm"));
}

TEST_F(Directory_Watch_Test, Tells_Of_One_Directory_And_Not_Of_What_Lies_Deeper)
{
    fs::create_directory(Level);
    ASSERT_TRUE(Watch.Add(Root));

    Write(Level / "deep.orv", "1");

    EXPECT_TRUE(Watch.Wait(500ms).empty());
}

TEST_F(Directory_Watch_Test, Tells_In_Which_Directory_Of_A_Tree_Something_Has_Changed)
{
    Make_Levels();

    Write(Inner / "chem.orv", "1");
    EXPECT_TRUE(Tells(Watch, Inner, "chem.orv"));
    Write(Level / "notes", "1");
    EXPECT_TRUE(Tells(Watch, Level, "notes"));
    Write(Root / "notes", "1");
    EXPECT_TRUE(Tells(Watch, Root, "notes"));
}

TEST_F(Directory_Watch_Test, Tells_Of_Directories_That_Were_There_Before)
{
    fs::create_directories(Inner);
    for (const auto& directory : {Root, Level, Inner})
        ASSERT_TRUE(Watch.Add_In_Tree(Root, directory));

    Write(Inner / "chem.orv", "1");

    EXPECT_TRUE(Tells(Watch, Inner, "chem.orv"));
}

TEST_F(Directory_Watch_Test, Tells_That_A_Directory_Has_Gone_And_Follows_The_One_That_Takes_Its_Place)
{
    Make_Levels();

    fs::remove_all(Level);
    EXPECT_TRUE(Tells(Watch, Level, ""));
    Pass_Over(Watch);
    Make_Levels();
    Write(Inner / "chem.orv", "1");

    EXPECT_TRUE(Tells(Watch, Inner, "chem.orv"));
}

TEST_F(Directory_Watch_Test, Tells_That_A_Directory_Was_Renamed)
{
    Make_Levels();

    fs::rename(Level, Root / "other.run");

    EXPECT_TRUE(Tells(Watch, Level, ""));
}

TEST_F(Directory_Watch_Test, Adds_No_Directory_That_Is_Missing)
{
    EXPECT_FALSE(Watch.Add(Root / "none"));
    EXPECT_FALSE(Watch.Add_In_Tree(Root, Root / "none"));
    EXPECT_FALSE(Watch.Add_In_Tree(Home / "none", Home / "none"));
}

TEST_F(Directory_Watch_Test, Is_Woken_By_Another_Thread)
{
    ASSERT_TRUE(Watch.Add(Root));
    const auto begun = std::chrono::steady_clock::now();

    std::thread other([this] { Watch.Wake(); });
    EXPECT_TRUE(Watch.Wait(60s).empty());
    other.join();

    EXPECT_LT(std::chrono::steady_clock::now() - begun, 30s);
}

} // namespace orvel
