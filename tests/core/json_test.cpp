#include "core/json.h"

#include "core/error.h"
#include "core/json_reader.h"

#include <functional>
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

// The error's place and reason, or the text that the value was read as.
static std::string Refusal(const std::function<void(const Json_Value&)>& use, std::string_view text)
{
    try {
        use(Parse_Json(text));
        return "taken";
    } catch (const File_Error& error) {
        return error.what();
    }
}

TEST(Json_Reader, A_Value_That_Is_Not_What_Was_Expected_Is_Told_With_Its_Place)
{
    const std::string text = "{\n  \"a\": \"x\\\"y\",\r\n  \"b\": -12.5 ,\n  \"c\": [true,\n null, {\"d\":7}]\n}";
    const auto of = [&](auto use) { return Refusal(use, text); };

    EXPECT_EQ(of([](const Json_Value& v) { v.At("a").Number(); }), "Line 2, column 8: It is not a number.");
    EXPECT_EQ(of([](const Json_Value& v) { v.At("b").Text(); }), "Line 3, column 8: It is not a text.");
    EXPECT_EQ(of([](const Json_Value& v) { v.At("b").Whole_Number(); }), "Line 3, column 8: It is not a whole number.");
    EXPECT_EQ(of([](const Json_Value& v) { v.At("c").Members(); }), "Line 4, column 8: It is not an object.");
    EXPECT_EQ(of([](const Json_Value& v) { v.At("c").Elements()[0].Number(); }),
              "Line 4, column 9: It is not a number.");
    EXPECT_EQ(of([](const Json_Value& v) { v.At("c").Elements()[1].Number(); }),
              "Line 5, column 2: It is not a number.");
    EXPECT_EQ(of([](const Json_Value& v) { v.At("c").Elements()[2].At("e"); }),
              "Line 5, column 8: The member \"e\" is missing.");
    EXPECT_EQ(of([](const Json_Value& v) { v.At("c").Elements()[2].At("d").Truth(); }),
              "Line 5, column 13: It is not true or false.");
    EXPECT_EQ(Refusal([](const Json_Value& v) { v.Text(); }, "12"), "Line 1, column 1: It is not a text.");
    EXPECT_EQ(Refusal([](const Json_Value&) {}, "{\"a\": 1,\n \"a\": 2}"),
              "Line 2, column 2: The member \"a\" stands twice.");
}

TEST(Json_Reader, What_Was_Read_Is_Written_Again)
{
    const std::string text = "{\n"
                             "  \"\u20AC \u0107\": [1.5, \"a\\\"\", true, null],\n"
                             "  \"o\": {\n"
                             "    \"x\": false\n"
                             "  }\n"
                             "}\n";
    Json_Writer json;

    Parse_Json(text).Write(json);

    EXPECT_EQ(json.Written(), text);
}

} // namespace orvel
