#include "core/system/lock.h"

#include "core/system/companion.h"

#include <fstream>
#include <gtest/gtest.h>

namespace orvel {

namespace {

bool Is_Held(const Temporary_Directory& place, const char* printed = "output")
{
    return Comes_True([&] { return Read_Head(place / printed, 10) == "held"; });
}

} // namespace

TEST(Lock, Is_Seen_While_It_Is_Held_And_Not_After)
{
    const Temporary_Directory place;
    Write_Whole(place / "file", "");

    for (const auto& path : {place.Path(), place / "file"}) {
        EXPECT_FALSE(Is_Locked(path));
        {
            const auto lock = Lock::Take(path);
            ASSERT_TRUE(lock);
            EXPECT_TRUE(Is_Locked(path));
            EXPECT_FALSE(Lock::Take(path));
        }
        EXPECT_FALSE(Is_Locked(path));
    }
    EXPECT_FALSE(Is_Locked(place / "missing"));
    EXPECT_FALSE(Lock::Take(place / "missing"));
}

TEST(Lock, May_Be_Shared_By_Many_But_Not_With_One_That_Is_Alone)
{
    const Temporary_Directory place;
    auto first = Lock::Take_Shared(place.Path()), second = Lock::Take_Shared(place.Path());
    EXPECT_TRUE(first && second);
    EXPECT_FALSE(Lock::Take(place.Path()));
    first.reset();
    second.reset();

    const auto alone = Lock::Take(place.Path());
    EXPECT_TRUE(alone);
    EXPECT_FALSE(Lock::Take_Shared(place.Path()));
}

TEST(Lock, Of_Another_Program_Is_Seen_And_Vanishes_When_It_Is_Killed)
{
    const Temporary_Directory place;
    const Companion_At_Work holder(Companion(place, {"hold", place.Path().string()}));
    ASSERT_TRUE(Is_Held(place));

    EXPECT_TRUE(Is_Locked(place.Path()));
    EXPECT_FALSE(Lock::Take(place.Path()));
    EXPECT_FALSE(Lock::Take_Shared(place.Path()));
    EXPECT_EQ(holder.Kill(), Killed);

    EXPECT_FALSE(Is_Locked(place.Path()));
    EXPECT_TRUE(Lock::Take(place.Path()));
}

TEST(Lock, Is_The_Same_By_Whatever_Path_Its_File_Is_Reached)
{
    const Temporary_Directory place;
    std::filesystem::create_directory(place / "Winter cereals");

    const auto lock = Lock::Take(place / "Winter cereals");

    EXPECT_TRUE(Is_Locked(place / "Winter cereals" / ".." / "Winter cereals"));
    EXPECT_FALSE(Is_Locked(place.Path()));
}

TEST(Lock, Stays_With_The_Directory_When_That_Gets_Another_Name)
{
    const Temporary_Directory place;
    std::filesystem::create_directory(place / "before");
    const auto lock = Lock::Take(place / "before");

    std::filesystem::rename(place / "before", place / "after");

    EXPECT_TRUE(Is_Locked(place / "after"));
}

TEST(Lock, That_Is_Passed_On_Is_Held_Until_The_Last_Holder_Ends)
{
    const Temporary_Directory place;
    auto lock = Lock::Take(place.Path());
    ASSERT_TRUE(lock);
    auto start = Companion(place, {"keep", std::to_string(Kept_As(lock->Descriptor()))});
    start.Kept_Descriptor = lock->Descriptor();
    const Companion_At_Work holder(start);
    ASSERT_TRUE(Is_Held(place));

    lock.reset();
    EXPECT_TRUE(Is_Locked(place.Path()));
    EXPECT_EQ(holder.Kill(), Killed);

    EXPECT_FALSE(Is_Locked(place.Path()));
}

TEST(Lock, Is_Not_Inherited_By_A_Program_That_Was_Not_Given_It)
{
    const Temporary_Directory place;
    auto own = Lock::Take(place.Path());
    const Companion_At_Work other(Companion(place, {"await", "never"}));
    auto start = Companion(place, {"exit", "0"});
    start.Kept_Descriptor = own.value().Descriptor();
    Wait_For_Program(Start_Program(start));
    start.Kept_Descriptor = -1;
    start.Arguments = {"await", "never"};
    const Companion_At_Work later(start); // after the lock was passed on to another one

    own.reset();

    EXPECT_FALSE(Is_Locked(place.Path()));
}

TEST(Lock, Can_Be_Waited_For)
{
    const Temporary_Directory place;
    auto lock = Lock::Take(place.Path());
    EXPECT_FALSE(Lock::Take_Within(place.Path(), std::chrono::milliseconds(30)));

    std::thread other([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        lock.reset();
    });
    const auto got = Lock::Take_Within(place.Path(), std::chrono::seconds(30));
    other.join();

    EXPECT_TRUE(got);
}

TEST(End_Holders, Ends_A_Program_Whose_Starter_Has_Gone)
{
    const Temporary_Directory place, run;
    const int starter = Start_Program(Companion(place, {"start", "apart", "keep-in", run.Path().string()}));
    ASSERT_TRUE(Comes_True([&] { return Read_Head(run / "output of child", 10) == "held"; }));
    End_Group(starter, true);
    Wait_For_Program(starter);
    EXPECT_TRUE(Is_Locked(run.Path()));

    EXPECT_TRUE(End_Holders(run.Path()));

    EXPECT_TRUE(Comes_True([&] { return !Is_Locked(run.Path()); }));
    EXPECT_TRUE(Comes_True([&] { return !End_Holders(run.Path()); }));
    EXPECT_FALSE(End_Holders(run / "missing"));
}

} // namespace orvel
