#include "runs/calendar_file.h"

#include "core/files.h"
#include "temporary_directory.h"

#include <gtest/gtest.h>
#include <memory>

namespace orvel {

TEST(Calendar_File, Is_That_Of_The_Mode_And_For_A_Single_Run_That_Of_The_Installation)
{
    const Temporary_Directory directory;
    const auto session = std::make_unique<Session>();
    session->Program.App_Path = directory.Path();
    for (const auto* mode : {"FOCUS", "EFSA", "EFSA_T4"})
        std::filesystem::create_directories(directory / mode);
    for (const auto* name : {"datum.dat", "FOCUS/Datum.dat", "EFSA/datum.dat", "EFSA_T4/datum.dat"})
        Write_Whole(directory / name, "");

    EXPECT_EQ(Calendar_File(*session, directory / "focus/a.run/b.run/c.run", false), directory / "FOCUS/Datum.dat");
    EXPECT_EQ(Calendar_File(*session, directory / "efsa/a.run/b.run/c.run", false), directory / "EFSA/datum.dat");
    EXPECT_EQ(Calendar_File(*session, directory / "EFSA_T4/a.run/b.run/c.run", false), directory / "EFSA_T4/datum.dat");
    EXPECT_EQ(Calendar_File(*session, directory.Path(), true), directory / "datum.dat");
}

} // namespace orvel
