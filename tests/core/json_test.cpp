#include "core/json.h"

#include <gtest/gtest.h>

namespace orvel {

namespace {

template <class T> std::string Written(const T& value)
{
    Json_Writer out;
    out.Value(value);
    return out.Written();
}

} // namespace

TEST(Json_Writer, Writes_Numbers_In_The_General_Form)
{
    EXPECT_EQ(Written(0.30000000000000004), "0.3\n");
    EXPECT_EQ(Written(1e15), "1E+15\n");
    EXPECT_EQ(Written(-7), "-7\n");
    EXPECT_EQ(Written(std::uint8_t{65}), "65\n");
}

TEST(Json_Writer, Writes_A_Variant_As_What_It_Holds)
{
    EXPECT_EQ(Written(Variant(2.5)), "2.5\n");
    EXPECT_EQ(Written(Variant("2.50")), "\"2.50\"\n");
}

TEST(Json_Writer, Writes_Texts_In_Utf8_With_What_Must_Be_Escaped)
{
    EXPECT_EQ(Written("Kremsm\xFCnster"), "\"Kremsm\xC3\xBCnster\"\n");
    EXPECT_EQ(Written("a\"b\\c\x01\n"), "\"a\\\"b\\\\c\\u0001\\u000a\"\n");
    EXPECT_EQ(Written(std::string("\0", 1)), "\"\\u0000\"\n");
}

TEST(Json_Writer, Lays_Out_Members_On_Lines_And_Values_Of_An_Array_On_One)
{
    Json_Writer out;

    out.Object([&] {
        out.Member("yes", true);
        out.Member("three", std::array{1, 2, 3});
        out.Key("none");
        out.Array([] {});
        out.Key("rows");
        out.Array([&] {
            out.Null();
            out.Object([&] { out.Member("x", 1); });
            out.Object([] {});
        });
        out.Member("last", "z");
    });

    EXPECT_EQ(out.Written(), "{\n"
                             "  \"yes\": true,\n"
                             "  \"three\": [1, 2, 3],\n"
                             "  \"none\": [],\n"
                             "  \"rows\": [null,\n"
                             "    {\n"
                             "      \"x\": 1\n"
                             "    },\n"
                             "    {}\n"
                             "  ],\n"
                             "  \"last\": \"z\"\n"
                             "}\n");
}

} // namespace orvel
