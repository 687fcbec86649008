// What another program keeps open can neither be replaced nor read on this system until it lets go.
#include "core/error.h"
#include "core/files.h"
#include "core/system/handle_windows.h"
#include "core/system/lock.h"
#include "core/system/rename.h"
#include "temporary_directory.h"

#include <chrono>
#include <functional>
#include <gtest/gtest.h>
#include <thread>

namespace orvel {

namespace fs = std::filesystem;

namespace {

using Clock = std::chrono::steady_clock;

// As a program opens a file that shares it with nobody, or for reading alone.
Held_Handle Keep_Open(const fs::path& file, DWORD shared)
{
    Held_Handle kept(::CreateFileW(file.c_str(), GENERIC_READ, shared, nullptr, OPEN_EXISTING, 0, nullptr));
    EXPECT_TRUE(kept);
    return kept;
}

constexpr DWORD With_Nobody = 0, With_Readers = FILE_SHARE_READ;

std::size_t Entries(const fs::path& directory)
{
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(directory), fs::directory_iterator()));
}

// The sentence that a failure is told with; empty if there was none.
std::string Failure_Of(const std::function<void()>& action)
{
    try {
        action();
    } catch (const File_Error& error) {
        return error.what();
    }
    return {};
}

} // namespace

TEST(Held_File, Is_Replaced_When_The_Other_Program_Lets_Go)
{
    const Temporary_Directory place;
    for (const DWORD shared : {With_Nobody, With_Readers}) {
        Write_Whole(place / "file", "old");
        auto kept = Keep_Open(place / "file", shared);
        std::thread other([&] {
            std::this_thread::sleep_for(std::chrono::milliseconds(300));
            kept = Held_Handle();
        });

        const auto failure = Failure_Of([&] { Write_Whole(place / "file", "new"); });
        other.join();

        EXPECT_EQ(failure, "");
        EXPECT_EQ(Read_Whole(place / "file"), "new");
        EXPECT_EQ(Entries(place.Path()), 1u);
    }
}

TEST(Held_File, Is_Told_By_Its_Name_After_A_While_And_Stays_As_It_Was)
{
    const Temporary_Directory place;
    for (const DWORD shared : {With_Nobody, With_Readers}) {
        Write_Whole(place / "file", "old");
        auto kept = Keep_Open(place / "file", shared);
        const auto begin = Clock::now();

        const auto failure = Failure_Of([&] { Write_Whole(place / "file", "new"); });
        const auto took = Clock::now() - begin;
        kept = Held_Handle();

        EXPECT_EQ(failure, "Cannot write " + (place / "file").string() + ": Another program has it open.");
        EXPECT_GE(took, std::chrono::seconds(1));
        EXPECT_LE(took, std::chrono::seconds(10));
        EXPECT_EQ(Read_Whole(place / "file"), "old");
        EXPECT_EQ(Entries(place.Path()), 1u);
    }
}

TEST(Held_File, Is_Read_When_The_Other_Program_Lets_Go_Else_Told)
{
    const Temporary_Directory place;
    Write_Whole(place / "file", "bytes");
    auto kept = Keep_Open(place / "file", With_Nobody);

    EXPECT_EQ(Failure_Of([&] { Read_Whole(place / "file"); }),
              "Cannot read " + (place / "file").string() + ": Another program has it open.");
    std::thread other([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(60));
        kept = Held_Handle();
    });
    const auto failure = Failure_Of([&] { EXPECT_EQ(Read_Whole(place / "file"), "bytes"); });
    other.join();

    EXPECT_EQ(failure, "");
}

TEST(Held_File, Does_Not_Count_As_Free)
{
    const Temporary_Directory place;
    Write_Whole(place / "echo.orv", "");
    const auto kept = Keep_Open(place / "echo.orv", With_Nobody);

    EXPECT_TRUE(Is_Locked(place / "echo.orv"));
    EXPECT_FALSE(Lock::Take(place / "echo.orv"));
}

TEST(Read_Only_File, Is_That_With_The_Attribute_Of_The_System)
{
    const Temporary_Directory place;
    Write_Whole(place / "file", "old");

    Set_Read_Only(place / "file", true);
    EXPECT_NE(::GetFileAttributesW((place / "file").c_str()) & FILE_ATTRIBUTE_READONLY, 0u);
    EXPECT_TRUE(Is_Read_Only(place / "file"));
    const auto begin = Clock::now();
    EXPECT_EQ(Failure_Of([&] { Write_Whole(place / "file", "new"); }),
              "The file " + (place / "file").string() + " is read protected.");
    EXPECT_LT(Clock::now() - begin, std::chrono::seconds(1)); // nobody will let go of it
    Set_Read_Only(place / "file", false);

    EXPECT_EQ(::GetFileAttributesW((place / "file").c_str()) & FILE_ATTRIBUTE_READONLY, 0u);
    EXPECT_EQ(Failure_Of([&] { Write_Whole(place / "file", "new"); }), "");
}

TEST(Read_Only_File, Goes_With_The_Directory_That_Is_Removed)
{
    const Temporary_Directory place;
    fs::create_directory(place / "run");
    Write_Whole(place / "run" / "orvel.inp", "");
    Set_Read_Only(place / "run" / "orvel.inp", true);
    std::error_code error;

    fs::remove_all(place / "run", error);

    EXPECT_FALSE(error) << error.message();
    EXPECT_FALSE(fs::exists(place / "run"));
}

} // namespace orvel
