#include "core/locations.h"

#include <gtest/gtest.h>

namespace orvel {

TEST(Location_Name, Gives_The_Long_Name_Of_A_Code)
{
    EXPECT_EQ(Location_Name("C"), "Ch\xE2teaudun (C)");
    EXPECT_EQ(Location_Name("P_S"), "Porewater concentration - South (P_S)");
}

TEST(Location_Name, Of_An_Empty_Or_Unknown_Code_Is_Empty)
{
    EXPECT_EQ(Location_Name(""), "");
    EXPECT_EQ(Location_Name("c"), "");
    EXPECT_EQ(Location_Name("X"), "");
}

TEST(Bracket_Text, Is_The_Reverse_Of_The_Location_Name)
{
    for (const auto& location : Locations)
        EXPECT_EQ(Bracket_Text(Location_Name(location.Code)), location.Code);
    EXPECT_EQ(Bracket_Text("Piacenza (P), irrigated"), "P");
}

TEST(Bracket_Text, Is_Empty_Where_There_Is_No_Bracket)
{
    EXPECT_EQ(Bracket_Text(""), "");
    EXPECT_EQ(Bracket_Text("Hamburg"), "");
    EXPECT_EQ(Bracket_Text("Hamburg (H"), "");
}

TEST(Name_Encode, Writes_Blanks_And_Commas_In_Other_Characters)
{
    EXPECT_EQ(Name_Encode("my,file 1.run"), "my--file_-_1.run");
    EXPECT_EQ(Name_Encode("Ch\xE2teaudun (C), no irrigation"), "Ch\xE2teaudun_-_(C)--_-_no_-_irrigation");
    EXPECT_EQ(Name_Encode("Total content - North (T_N).run"), "Total_-_content_-_-_-_North_-_(T_N).run");
}

TEST(Name_Decode, Takes_The_Way_Back)
{
    EXPECT_EQ(Name_Decode("Ch\xE2teaudun_-_(C)--_-_no_-_irrigation"), "Ch\xE2teaudun (C), no irrigation");
    EXPECT_EQ(Name_Decode("Total_-_content_-_-_-_North_-_(T_N)"), "Total content - North (T_N)");
}

TEST(Name_Decode, Does_Not_Bring_Back_A_Name_That_Truly_Holds_Two_Dashes)
{
    EXPECT_EQ(Name_Decode(Name_Encode("a--b")), "a,b");
}

} // namespace orvel
