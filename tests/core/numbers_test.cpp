#include "core/numbers.h"

#include "core/error.h"
#include "core/variant.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace orvel {

TEST(Val, Reads_The_Longest_Number_At_The_Start)
{
    EXPECT_EQ(Val("12.5 mm"), 12.5);
    EXPECT_EQ(Val("+4"), 4);
    EXPECT_EQ(Val(".5"), .5);
    EXPECT_EQ(Val("5."), 5);
    EXPECT_EQ(Val("1e-3"), 0.001);
    EXPECT_EQ(Val("-2.5E+02x"), -250);
}

TEST(Val, Skips_Blanks_And_Tabs_Before_The_Number_And_Stops_At_The_First_Behind)
{
    EXPECT_EQ(Val(" \t 7"), 7);
    EXPECT_EQ(Val("1 2"), 1);
    EXPECT_EQ(Val("1D2"), 1);
    EXPECT_EQ(Val("1,5"), 1);
    EXPECT_EQ(Val("0x10"), 0);
}

TEST(Val, Gives_Zero_For_What_Is_No_Number)
{
    for (const char* text : {"", "  ", "nan", "inf", "-inf", "--5", "+-5", "E5", ".", "-", "abc", "infinity"})
        EXPECT_EQ(Val(text), 0) << text;
}

TEST(Whole_Part, Is_Cut_To_Its_Range_Whatever_The_Text_Holds)
{
    EXPECT_EQ(Whole_Part(" 12.9 x", 0, 99), 12);
    EXPECT_EQ(Whole_Part("2E24", 0, 9999), 9999);
    EXPECT_EQ(Whole_Part("-1E999", -1, 99), -1);
    EXPECT_EQ(Whole_Part("none", 0, 99), 0);
}

TEST(Val, Takes_An_Exponent_Without_Digits_As_None)
{
    EXPECT_EQ(Val("1E"), 1);
    EXPECT_EQ(Val("1E+"), 1);
}

TEST(Val, Never_Gives_A_Negative_Zero)
{
    EXPECT_FALSE(std::signbit(Val("-0")));
    EXPECT_FALSE(std::signbit(Val("-1E-999")));
}

TEST(Val, Stays_Finite_Beyond_The_Range_Of_A_Double)
{
    EXPECT_EQ(Val("1E999"), std::numeric_limits<double>::max());
    EXPECT_EQ(Val("-1E999"), -std::numeric_limits<double>::max());
    EXPECT_EQ(Val("1E-999"), 0);
    EXPECT_EQ(Val("0.5E-999"), 0);
    EXPECT_EQ(Val("0.5E999"), std::numeric_limits<double>::max());
    EXPECT_EQ(Val("00." + std::string(400, '0') + "1"), 0);
    EXPECT_EQ(Val(std::string(400, '9') + ".5"), std::numeric_limits<double>::max());
}

TEST(General_Text, Holds_At_Most_Fifteen_Significant_Digits)
{
    EXPECT_EQ(General_Text(0.30000000000000004), "0.3");
    EXPECT_EQ(General_Text(1.0 / 3), "0.333333333333333");
    EXPECT_EQ(General_Text(2.0 / 3 * 100), "66.6666666666667");
    EXPECT_EQ(General_Text(0), "0");
    EXPECT_EQ(General_Text(-0.0), "0");
    EXPECT_EQ(General_Text(98400), "98400");
    EXPECT_EQ(General_Text(-2.5), "-2.5");
}

// The C library prints fifteen digits exactly, halves to even, in its own layout; read back they are the same number.
TEST(General_Text, Is_Rounded_Exactly_For_Values_Of_Every_Size)
{
    std::mt19937_64 random(7);
    const auto check = [](double value) {
        char expected[64];
        std::snprintf(expected, sizeof expected, "%.14e", value);
        const std::string text = General_Text(value);
        EXPECT_EQ(std::strtod(text.c_str(), nullptr), std::strtod(expected, nullptr)) << text << " for " << expected;
    };
    for (int i = 0; i < 200000; ++i) {
        const double size = std::pow(10.0, static_cast<double>(random() % 40) - 20);
        check(static_cast<double>(random() >> 11U) * 0x1p-53 * size);
        check(static_cast<double>(random() % 2000000) / 24);
    }
    for (const double value : {1234567890123.125, 1234567890123.375, 999999999999999.5, 999999999999999.4,
                               99999999999999.95, 1.0, 9.9999999999999991, 0.3, 1e15, 1e-5, 0.1 + 0.2})
        check(value);
}

TEST(General_Text, Takes_A_Half_Behind_The_Fifteenth_Digit_To_The_Even_One)
{
    EXPECT_EQ(General_Text(1234567890123.125), "1234567890123.12");
    EXPECT_EQ(General_Text(1234567890123.375), "1234567890123.38");
    EXPECT_EQ(General_Text(999999999999999.5), "1E+15");
}

TEST(General_Text, Is_Fixed_Up_To_Fifteen_Decimals_And_Fifteen_Digits_Before_The_Point)
{
    EXPECT_EQ(General_Text(0.00001), "0.00001");
    EXPECT_EQ(General_Text(1E-15), "0.000000000000001");
    EXPECT_EQ(General_Text(123456789012345), "123456789012345");
    EXPECT_EQ(General_Text(100000000000000), "100000000000000");
}

TEST(General_Text, Has_An_Exponent_Of_A_Sign_And_At_Least_Two_Digits_Beyond_That)
{
    EXPECT_EQ(General_Text(1.23456789012345E-16), "1.23456789012345E-16");
    EXPECT_EQ(General_Text(1E15), "1E+15");
    EXPECT_EQ(General_Text(-1.5E120), "-1.5E+120");
    EXPECT_EQ(General_Text(1.23456789012345E-5), "1.23456789012345E-05");
}

TEST(General_Text, Refuses_A_Value_That_Is_Not_Finite)
{
    EXPECT_THROW(General_Text(std::numeric_limits<double>::quiet_NaN()), std::domain_error);
    EXPECT_THROW(General_Text(std::numeric_limits<double>::infinity()), std::domain_error);
}

TEST(Print_Form, Has_A_Leading_Blank_Or_A_Minus_Sign_And_A_Trailing_Blank)
{
    EXPECT_EQ(Print_Form(0.00001), " 0.00001 ");
    EXPECT_EQ(Print_Form(-99), "-99 ");
    EXPECT_EQ(Print_Form(0.1 + 0.2), " 0.3 ");
}

TEST(Format_Pattern, Pads_With_Zeros_And_Keeps_Leading_Blanks)
{
    EXPECT_EQ(Format_Pattern(5, "000"), "005");
    EXPECT_EQ(Format_Pattern(26, "00"), "26");
    EXPECT_EQ(Format_Pattern(5, "  000"), "  005");
    EXPECT_EQ(Format_Pattern(5, "    0.0"), "    5.0");
    EXPECT_EQ(Format_Pattern(1234, "000"), "1234");
    EXPECT_EQ(Format_Pattern(15, "00000000"), "00000015");
    EXPECT_EQ(Format_Pattern(0, "00"), "00");
}

TEST(Format_Pattern, Rounds_Fifteen_Significant_Digits_With_Halves_Away_From_Zero)
{
    EXPECT_EQ(Format_Pattern(0.125, "0.00"), "0.13");
    EXPECT_EQ(Format_Pattern(-0.125, "0.00"), "-0.13");
    EXPECT_EQ(Format_Pattern(1.005, "0.00"), "1.01"); // 1.00499999999999989 in binary, 1.005 in fifteen digits
    EXPECT_EQ(Format_Pattern(2.5, "00"), "03");
    EXPECT_EQ(Format_Pattern(9.995, "0.00"), "10.00");
    EXPECT_EQ(Format_Pattern(0.004, "0.00"), "0.00");
    EXPECT_EQ(Format_Pattern(-0.004, "0.00"), "0.00");
    EXPECT_EQ(Format_Pattern(0.05, "0.0"), "0.1");
}

TEST(Format_Pattern, Writes_An_Exponent_With_One_Digit_Before_The_Point)
{
    EXPECT_EQ(Format_Pattern(0, "0.00E+00"), "0.00E+00");
    EXPECT_EQ(Format_Pattern(0.00099, "0.00E+00"), "9.90E-04");
    EXPECT_EQ(Format_Pattern(123456, "0.00E+00"), "1.23E+05");
    EXPECT_EQ(Format_Pattern(9.999E5, "0.00E+00"), "1.00E+06");
    EXPECT_EQ(Format_Pattern(-1E120, "0.0E+00"), "-1.0E+120");
}

TEST(Number_Text, Goes_By_The_Absolute_Value)
{
    EXPECT_EQ(Number_Text('G', 0, 10), "0.00E+00  ");
    EXPECT_EQ(Number_Text('G', 0.00099, 10), "9.90E-04  ");
    EXPECT_EQ(Number_Text('G', 0.001, 10), "0.0010000 ");
    EXPECT_EQ(Number_Text('G', 1.25, 10), "1.2500000 ");
    EXPECT_EQ(Number_Text('G', -1.25, 10), "-1.2500000");
    EXPECT_EQ(Number_Text('G', 12.5, 10), "12.5000   ");
    EXPECT_EQ(Number_Text('G', 125, 10), "125.000   ");
    EXPECT_EQ(Number_Text('G', 1250, 10), "1250.00   ");
    EXPECT_EQ(Number_Text('G', 12500, 10), "12500.0   ");
    EXPECT_EQ(Number_Text('G', 125000, 10), "1.25E+05  ");
}

TEST(Number_Text, Picks_Its_Pattern_By_The_Value_Before_Rounding)
{
    EXPECT_EQ(Number_Text('G', 9.99999999, 10), "10.0000000");
}

TEST(Number_Text, Of_Kind_I_Is_The_General_Form)
{
    EXPECT_EQ(Number_Text('I', 7, 4), "7   ");
    EXPECT_EQ(Number_Text('I', 26, 4), "26  ");
    EXPECT_EQ(Number_Text('I', 0, 4), "    "); // the zero that stands before no point becomes a blank
}

TEST(Number_Text, Makes_No_Difference_Between_E_F_And_G)
{
    for (const double value : {0.0, 0.5, 77.25, -3e7})
        EXPECT_EQ(Number_Text('E', value, 12), Number_Text('F', value, 12));
}

TEST(Number_Text, Leaves_A_Longer_Text_As_It_Is)
{
    EXPECT_EQ(Number_Text('F', -1234.5, 4), "-1234.50");
}

TEST(Number_Text, Of_A_Typed_Text_Takes_Its_Comma_As_A_Point)
{
    EXPECT_EQ(Number_Text('G', Variant("1,5"), 10), "1.5000000 ");
    EXPECT_EQ(Number_Text('G', Variant(" 2.5 cm"), 10), "2.5000000 ");
    EXPECT_EQ(Number_Text('G', Variant("abc"), 10), "0.00E+00  ");
}

TEST(Fixed_Text, Has_The_Decimals_Asked_For)
{
    EXPECT_EQ(Fixed_Text(0.1234, 3), "0.123");
    EXPECT_EQ(Fixed_Text(0, 3), "0.000");
    EXPECT_EQ(Fixed_Text(12.3456, 3), "12.346");
    EXPECT_EQ(Fixed_Text(-0.5, 1), "-0.5");
}

TEST(To_I16, Rounds_Halves_To_The_Even_Number)
{
    EXPECT_EQ(To_I16(0.5), 0);
    EXPECT_EQ(To_I16(1.5), 2);
    EXPECT_EQ(To_I16(-2.5), -2);
    EXPECT_EQ(To_I16(32767.4), 32767);
}

TEST(To_I16, Fails_Outside_Its_Range)
{
    EXPECT_THROW(To_I16(32767.5), File_Error);
    EXPECT_THROW(To_I16(-32769), File_Error);
    EXPECT_THROW(To_I16(1e300), File_Error);
}

TEST(Rows_Counted, Are_Those_That_There_Are_Whatever_The_Count_Is)
{
    EXPECT_EQ(Rows_Counted(2, 3), 2U);
    EXPECT_EQ(Rows_Counted(2.9, 3), 2U);
    EXPECT_EQ(Rows_Counted(-1, 3), 0U);
    EXPECT_EQ(Rows_Counted(2.22e24, 3), 3U);
}

TEST(A_Variant, Prints_A_Number_In_Print_Form_And_A_Text_As_It_Was_Typed)
{
    EXPECT_EQ(Variant(20).Print(), " 20 ");
    EXPECT_EQ(Variant("20").Print(), "20");
    EXPECT_EQ(Variant("  20 ").Print(), "20");
    EXPECT_EQ(Variant("1,5").Number(), 1);
    EXPECT_EQ(Variant(0.5).Text(), "0.5");
    EXPECT_NE(Variant(20), Variant("20"));
}

TEST(A_Variant, Keeps_Blanks_Around_A_Verbatim_Text_Alone)
{
    EXPECT_EQ(Variant(" DAY").Print(), "DAY");
    EXPECT_EQ(Variant::Verbatim(" DAY").Print(), " DAY");
    EXPECT_EQ(Variant::Verbatim(" DAY").Text(), " DAY");
    EXPECT_EQ(Variant::Verbatim(" 5 ").Number(), 5);
}

TEST(Power_Of_Ten_Routine, Gives_The_Number_That_The_Same_Digits_Have_In_A_Source)
{
    EXPECT_EQ(Power_Of_Ten(-2), 0.01);
    EXPECT_EQ(Power_Of_Ten(0), 1.0);
    EXPECT_EQ(Power_Of_Ten(22), 1E22);
    EXPECT_EQ(Power_Of_Ten(-307), 1E-307);
    EXPECT_TRUE(std::isinf(Power_Of_Ten(309)));
}

} // namespace orvel
