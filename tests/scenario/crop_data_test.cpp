#include "scenario/crop_data.h"

#include "core/error.h"
#include "recording_user.h"
#include "scenario/crop_rotation.h"
#include "temporary_directory.h"

#include <gtest/gtest.h>

#include <fstream>

namespace orvel {

namespace {

constexpr std::string_view Two_Crops =
    "2\r\n"
    "name          root storage ...\r\n"
    "Apples          100  0.25   80  2  1.00  15  4  1   1  7  1  30 10  1   1 11  2  10  3  1  0.2 0.3 0.4 0.5  0 1 0 "
    " 1.20 0.85\r\n"
    "Beans, in rows60 0.15 80 1 0.8 10 5 1 20 7 1 15 9 1 31 8 1 5 5 1 0.2 0.2 0.2 0.2 1 0 1 1.15 0.75\r\n";

TEST(Crop_Data_Base, A_Crop_Has_Its_Properties_In_The_Order_Of_The_Line)
{
    const auto crops = Parse_Crop_Data(Two_Crops);

    ASSERT_EQ(crops.size(), 2U);
    EXPECT_EQ(crops[0].DB_Crop_Name, "Apples");
    Crop_Row expected;
    expected.SZE_Rot_Crop_No = 1;
    expected.SZE_Rot_Text1 = 100;
    expected.SZE_Rot_Text2 = 0.25;
    expected.SZE_Rot_Interception = 80;
    expected.SZE_Rot_Residue = 2;
    expected.SZE_Rot_Dry_Mass = 1;
    expected.SZE_Rot_RR_Photo = 0.2;
    expected.SZE_Rot_RR_Pen = 0.3;
    expected.SZE_Rot_RR_Vol = 0.4;
    expected.SZE_Rot_RR_Wash = 0.5;
    expected.SZE_Rot_Irrigated = 0;
    expected.SZE_Rot_Perennial = 1;
    expected.SZE_Rot_Tillage = 0;
    expected.SZE_Rot_Kc_Mid = 1.2;
    expected.SZE_Rot_Kc_Late = 0.85;
    EXPECT_EQ(crops[0].Defaults, expected);
}

TEST(Crop_Data_Base, Harvest_Stands_Before_Senescence_In_The_Line)
{
    const auto dates = Parse_Crop_Data(Two_Crops)[0].Default_Dates;

    EXPECT_EQ(dates.SZE_Eme_Day, 15);
    EXPECT_EQ(dates.SZE_Eme_Month, 4);
    EXPECT_EQ(dates.SZE_Mat_Month, 7);
    EXPECT_EQ(dates.SZE_Har_Day, 30);
    EXPECT_EQ(dates.SZE_Har_Month, 10);
    EXPECT_EQ(dates.SZE_Sen_Day.Number(), 1);
    EXPECT_EQ(dates.SZE_Sen_Month.Number(), 11);
    EXPECT_EQ(dates.SZE_Sen_Year, 2);
    EXPECT_EQ(dates.SZE_Til_Day, 10);
    EXPECT_EQ(dates.SZE_Til_Month, 3);
    EXPECT_EQ(dates.SZE_Rot_Crop_Index, 1);
}

TEST(Crop_Data_Base, A_Name_Fills_Fourteen_Columns_Without_A_Blank_Behind_It)
{
    const auto crop = Parse_Crop_Data(Two_Crops)[1];

    EXPECT_EQ(crop.DB_Crop_Name, "Beans, in rows");
    EXPECT_EQ(crop.Defaults.SZE_Rot_Text1.Number(), 60);
    EXPECT_EQ(crop.Defaults.SZE_Rot_Crop_No, 2);
    EXPECT_EQ(crop.DB_Tillage, 1);
}

TEST(Crop_Data_Base, The_First_Word_Alone_Is_The_Count)
{
    EXPECT_EQ(Parse_Crop_Data("1 crops, for demonstration\nhead\nMaize          80\n").size(), 1U);
}

TEST(Crop_Data_Base, A_File_Shorter_Than_Its_Count_Is_Refused)
{
    EXPECT_THROW(Parse_Crop_Data("3\nhead\nMaize 80\n"), File_Error);
    EXPECT_THROW(Parse_Crop_Data(""), File_Error);
}

TEST(Crop_Data_Base, A_Count_Beyond_All_Reason_Is_Refused_Before_Anything_Is_Read)
{
    EXPECT_THROW(Parse_Crop_Data("1E9\nhead\n"), File_Error);
    EXPECT_THROW(Parse_Crop_Data("-1\nhead\n"), File_Error);
}

} // namespace

TEST(Crop_Data_Base, A_Number_That_No_Field_Holds_Is_Told_With_Its_Line_And_Column)
{
    try {
        Parse_Crop_Data("1\r\nhead\r\nMaize         80  0.2  90  40000\r\n"); // the name takes columns 1 to 14
        FAIL();
    } catch (const File_Error& error) {
        EXPECT_STREQ(error.what(), "Line 3, column 28: A number is outside the range of -32768 to 32767.");
    }
}

struct Crop_Data_Reader : testing::Test {
    Crop_Data_Reader() { The_Session.Ask = std::ref(The_User); }
    void Write(const char* name, std::string_view bytes) { std::ofstream(Directory / name, std::ios::binary) << bytes; }

    Temporary_Directory Directory;
    Session The_Session;
    Recording_User The_User;
};

TEST_F(Crop_Data_Reader, A_Missing_File_Is_Told_And_Gives_An_Empty_Data_Base)
{
    EXPECT_TRUE(Read_Crop_Data(The_Session, Directory.Path()).empty());
    EXPECT_EQ(The_User.Messages, std::vector{(Message{"File check", "Cannot open INPUT.DAT"})});
}

TEST_F(Crop_Data_Reader, A_File_That_Is_Cut_Short_Is_Told_With_The_Line_Where_It_Ends)
{
    Write("input.dat", "2\r\nhead\r\nApples          100  0.25\r\n");

    EXPECT_TRUE(Read_Crop_Data(The_Session, Directory.Path()).empty());
    EXPECT_EQ(The_User.Messages,
              std::vector{(Message{"File check", "Cannot read INPUT.DAT.\n"
                                                 "input.dat, line 3: The file ends behind this line."})});
}

TEST_F(Crop_Data_Reader, The_Case_Of_The_Name_Does_Not_Matter)
{
    Write("INPUT.DAT", "1\r\nhead\r\nApples          100  0.25\r\n");

    EXPECT_EQ(Read_Crop_Data(The_Session, Directory.Path()).size(), 1U);
    EXPECT_TRUE(The_User.Messages.empty());
}

} // namespace orvel
