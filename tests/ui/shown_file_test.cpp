#include "ui/shown_file.h"

#include "core/files.h"
#include "recording_user.h"
#include "temporary_directory.h"

#include <gtest/gtest.h>

namespace orvel {

namespace {

class Shown_File_Test : public testing::Test {
protected:
    Shown_File_Test()
    {
        The_Session->Ask = [this](const Message& message) { return The_User(message); };
    }

    Temporary_Directory Place;
    Recording_User The_User;
    std::unique_ptr<Session> The_Session = std::make_unique<Session>();
};

} // namespace

TEST_F(Shown_File_Test, Lines_End_In_Cr_Lf_And_The_Old_Letters_Become_The_Present_Ones)
{
    Write_Whole(Place / "Echo.orv", "Kremsm\x81nster\nlast");

    EXPECT_EQ(Shown_Echo(*The_Session, Place.Path()), "Kremsm\xFCnster\r\nlast\r\n");
    EXPECT_EQ(Shown_File(*The_Session, Place / "Echo.orv"), "Kremsm\xFCnster\r\nlast\r\n");
}

TEST_F(Shown_File_Test, A_File_Of_Exactly_The_Limit_Causes_No_Message)
{
    Write_Whole(Place / "full.orv", std::string(32767, 'x'));

    EXPECT_EQ(Shown_File(*The_Session, Place / "full.orv"), std::string(32767, 'x') + "\r\n");
    EXPECT_TRUE(The_User.Messages.empty());
}

TEST_F(Shown_File_Test, Of_A_Larger_File_The_First_Part_Is_Shown_And_The_User_Is_Told)
{
    Write_Whole(Place / "big.orv", std::string(32767, 'x') + "y");

    EXPECT_EQ(Shown_File(*The_Session, Place / "big.orv"), std::string(32767, 'x') + "\r\n");
    EXPECT_EQ(The_User.Messages,
              std::vector{
                  (Message{"Size limit exceeded!", "The file big.orv is too big! Only the first part is presented."})});
}

TEST_F(Shown_File_Test, The_Echo_Has_No_Limit_For_Its_Errors_Stand_Last)
{
    Write_Whole(Place / "echo.orv", std::string(100000, 'x') + "\r\nERROR\r\n");

    EXPECT_EQ(Shown_Echo(*The_Session, Place.Path())->substr(100000), "\r\nERROR\r\n");
}

TEST_F(Shown_File_Test, A_File_That_Cannot_Be_Read_Is_Told)
{
    EXPECT_FALSE(Shown_File(*The_Session, Place / "none.orv"));
    EXPECT_FALSE(Shown_Echo(*The_Session, Place.Path()));
    EXPECT_EQ(The_User.Messages.size(), 2U);
}

} // namespace orvel
