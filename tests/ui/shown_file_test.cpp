#include "ui/shown_file.h"

#include "core/files.h"
#include "temporary_directory.h"
#include "told.h"

#include <gtest/gtest.h>

namespace orvel {

namespace {

class Shown_File_Test : public testing::Test {
protected:
    Shown_File_Test()
    {
        Shared->Ask = [this](const Message& message) { return The_User(message); };
    }

    Temporary_Directory Place;
    Told The_User;
    std::unique_ptr<Session> Shared = std::make_unique<Session>();
};

} // namespace

TEST_F(Shown_File_Test, Lines_End_In_Cr_Lf_And_The_Old_Letters_Become_The_Present_Ones)
{
    Write_Whole(Place / "Echo.orv", "Kremsm\x81nster\nlast");

    EXPECT_EQ(Shown_Echo(*Shared, Place.Path()), "Kremsm\xFCnster\r\nlast\r\n");
    EXPECT_EQ(Shown_File(*Shared, Place / "Echo.orv"), "Kremsm\xFCnster\r\nlast\r\n");
}

TEST_F(Shown_File_Test, A_File_Of_Exactly_The_Limit_Causes_No_Message)
{
    Write_Whole(Place / "full.orv", std::string(32767, 'x'));

    EXPECT_EQ(Shown_File(*Shared, Place / "full.orv"), std::string(32767, 'x') + "\r\n");
    EXPECT_TRUE(The_User.Messages.empty());
}

TEST_F(Shown_File_Test, Of_A_Larger_File_The_First_Part_Is_Shown_And_The_User_Is_Told)
{
    Write_Whole(Place / "big.orv", std::string(32767, 'x') + "y");

    EXPECT_EQ(Shown_File(*Shared, Place / "big.orv"), std::string(32767, 'x') + "\r\n");
    EXPECT_EQ(The_User.Messages, std::vector{(Message{"Size limit exceeded!", "The file big.orv is too big! Only the first part is presented."})});
}

TEST_F(Shown_File_Test, The_Echo_Has_No_Limit_For_Its_Errors_Stand_Last)
{
    Write_Whole(Place / "echo.orv", std::string(100000, 'x') + "\r\nERROR\r\n");

    EXPECT_EQ(Shown_Echo(*Shared, Place.Path())->substr(100000), "\r\nERROR\r\n");
}

TEST_F(Shown_File_Test, A_File_That_Cannot_Be_Read_Is_Told)
{
    EXPECT_FALSE(Shown_File(*Shared, Place / "none.orv"));
    EXPECT_FALSE(Shown_Echo(*Shared, Place.Path()));
    EXPECT_EQ(The_User.Messages.size(), 2U);
}

} // namespace orvel
