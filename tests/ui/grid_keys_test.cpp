#include "ui/grid_keys.h"

#include <gtest/gtest.h>

#include <set>

namespace orvel {

namespace {

std::string Typed(Key_Action (*rule)(int), std::initializer_list<int> codes, std::string cell = "")
{
    for (const int code : codes)
        cell = After_Key(cell, rule(code));
    return cell;
}

TEST(Number_Grid, Takes_Digits_Minus_Point_And_E)
{
    EXPECT_EQ(Typed(Number_Grid_Key, {189, 49, 190, 53, 110, 69, 57, 48}), "-1.5.E90");
}

TEST(Number_Grid, The_Comma_Key_Writes_A_Point)
{
    EXPECT_EQ(Typed(Number_Grid_Key, {49, 188, 53}), "1.5");
}

TEST(Number_Grid, The_Number_Pad_Writes_Digits)
{
    EXPECT_EQ(Typed(Number_Grid_Key, {96, 97, 98, 99, 100, 101, 102, 103, 104, 105}), "0123456789");
}

TEST(Number_Grid, Delete_Takes_The_Last_Character)
{
    EXPECT_EQ(Typed(Number_Grid_Key, {46}, "12.5"), "12.");
    EXPECT_EQ(Typed(Number_Grid_Key, {46}, ""), "");
}

TEST(Number_Grid, Every_Other_Key_Is_Ignored)
{
    const std::set<int> taken = {46, 69, 110, 188, 189, 190};
    for (int code = 0; code < 256; ++code) {
        if (!taken.contains(code) && !(code >= 48 && code <= 57) && !(code >= 96 && code <= 105)) {
            EXPECT_EQ(Number_Grid_Key(code), Key_Action{}) << code;
        }
    }
}

TEST(Climate_Grid_Keys, Take_Digits_E_Point_Plus_And_Minus)
{
    EXPECT_EQ(Typed(Climate_Grid_Key, {189, 49, 190, 48, 69, 187, 57}), "-1.0E+9");
    EXPECT_EQ(Typed(Climate_Grid_Key, {109, 110, 107}), "-.+");
}

TEST(Climate_Grid_Keys, The_Comma_Key_Writes_A_Point)
{
    EXPECT_EQ(Typed(Climate_Grid_Key, {49, 188, 53}), "1.5");
}

TEST(Climate_Grid_Keys, The_Slash_Goes_Into_The_Cell_As_The_Lower_End_Of_The_Digits)
{
    EXPECT_EQ(Typed(Climate_Grid_Key, {49, 47, 50}), "1/2");
}

TEST(Climate_Grid_Keys, Backspace_On_An_Empty_Cell_Does_Nothing)
{
    EXPECT_EQ(Typed(Climate_Grid_Key, {8}), "");
    EXPECT_EQ(Typed(Climate_Grid_Key, {8}, "1.5"), "1.");
}

TEST(Climate_Grid_Keys, Every_Other_Key_Is_Ignored)
{
    const std::set<int> taken = {8, 69, 107, 109, 110, 187, 188, 189, 190};
    for (int code = 0; code < 256; ++code) {
        if (!taken.contains(code) && !(code >= 47 && code <= 57)) {
            EXPECT_EQ(Climate_Grid_Key(code), Key_Action{}) << code;
        }
    }
}

TEST(Key_Codes, A_Typed_Character_Has_The_Code_That_Writes_It)
{
    for (const char typed : std::string("0123456789E.-"))
        EXPECT_EQ(After_Key("", Number_Grid_Key(Key_Code(typed))), std::string(1, typed));
    for (const char typed : std::string("0123456789E.-+/"))
        EXPECT_EQ(After_Key("", Climate_Grid_Key(Key_Code(typed))), std::string(1, typed));
    EXPECT_EQ(After_Key("", Climate_Grid_Key(Key_Code('e'))), "E");
    EXPECT_EQ(Key_Code('x'), 0);
    EXPECT_EQ(Key_Code('\0'), 0);
}

} // namespace

} // namespace orvel
