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

} // namespace orvel
