#include "engine/output/figures.h"

#include "engine/input/findings.h"
#include "temporary_directory.h"

#include "full_disk.h"
#include "temporary_directory.h"
#include <cmath>
#include <cstdio>

#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace orvel::engine {

namespace {

std::string Fixed(double value, int width, int decimals)
{
    std::string text;
    Put_Fixed(text, value, width, decimals);
    return text;
}

std::string Exponent(double value, int width, int decimals)
{
    std::string text;
    Put_Exponent(text, value, width, decimals);
    return text;
}

std::string Series_Text(double value)
{
    std::string text(Series_Width, '?');
    Put_Series(text.data(), value);
    return text;
}

} // namespace

TEST(Figures, Fixed_Figures_Stand_Right_In_Their_Field)
{
    EXPECT_EQ(Fixed(64.31024, 9, 4), "  64.3102");
    EXPECT_EQ(Fixed(0, 9, 4), "   0.0000");
    EXPECT_EQ(Fixed(-0.00001, 9, 4), "   0.0000"); // no negative zero
    EXPECT_EQ(Fixed(-1.5, 8, 2), "   -1.50");
}

TEST(Figures, A_Figure_Too_Wide_Loses_Decimals_Instead_Of_Shifting_The_Line)
{
    EXPECT_EQ(Fixed(123456.78912, 9, 4), "123456.79");
    EXPECT_EQ(Fixed(123456789, 9, 4), "123456789");
    EXPECT_EQ(Fixed(1234567890123.0, 9, 4), " 1.23E+12");
}

TEST(Figures, Exponent_Figures_Have_Two_Digits_In_Their_Exponent)
{
    EXPECT_EQ(Exponent(0.45, 12, 5), " 4.50000E-01");
    EXPECT_EQ(Exponent(-1.2345e-6, 11, 4), "-1.2345E-06");
    EXPECT_EQ(Exponent(0, 12, 5), " 0.00000E+00");
    EXPECT_EQ(Exponent(9.999996, 12, 5), " 1.00000E+01");
    EXPECT_EQ(Exponent(1e-31, 12, 5), " 0.00000E+00"); // smaller than 1E-30
}

TEST(Figures, A_Series_Value_Leaves_A_Blank_Before_It)
{
    EXPECT_EQ(Series_Text(0), "       0.0");
    EXPECT_EQ(Series_Text(0.31), "      0.31");
    EXPECT_EQ(Series_Text(5.94151), "    5.9415");
    EXPECT_EQ(Series_Text(12345), "     12345");
    EXPECT_EQ(Series_Text(99999.6), " 1.000E+05");
    EXPECT_EQ(Series_Text(1.2345678e-7), " 1.235E-07");
    EXPECT_EQ(Series_Text(0.000123456), " 1.235E-04");
    EXPECT_EQ(Series_Text(0.00123456), " 0.0012346");
    EXPECT_EQ(Series_Text(-0.0012345), " -1.23E-03");
    EXPECT_EQ(Series_Text(-3.08e-10), " -3.08E-10");
}

// The C library rounds the exact binary value, so it is the judge of the short way, ties and neighbours of ties
// included.
TEST(Figures, Every_Figure_Is_The_C_Librarys)
{
    std::mt19937_64 random(7);
    std::uniform_real_distribution<double> exponent(-29, 25);
    for (int i = 0; i < 300000; ++i) {
        double value = std::pow(10.0, exponent(random));
        if (i % 3 == 0)
            value = std::round(value * 2e5) / 2e5 + 0.5e-5; // near a half of the fifth digit
        if (std::fabs(value) < 1e-30)
            continue;
        char buffer[80];
        std::snprintf(buffer, sizeof buffer, "%12.5E", value);
        ASSERT_EQ(Exponent(value, 12, 5), buffer);
        std::snprintf(buffer, sizeof buffer, "%12.5f", value);
        if (std::string_view(buffer).size() == 12) {
            ASSERT_EQ(Fixed(value, 12, 5), buffer);
        }
    }
}

// Five significant digits in plain notation where they leave a blank, without zeros at the end; else four with an
// exponent.
TEST(Figures, Every_Series_Value_Is_The_C_Librarys)
{
    std::mt19937_64 random(11);
    std::uniform_real_distribution<double> exponent(-29.5, 5.2);
    for (int i = 0; i < 300000; ++i) {
        double value = std::pow(10.0, exponent(random));
        if (i % 3 == 0)
            value = std::round(value * 2e5) / 2e5 + (i % 2 == 0 ? 0.5e-5 : 0); // near a half, or with zeros at the end
        if (i % 1000 == 0)
            value = std::pow(10.0, std::round(std::log10(value)));
        if (value < 1e-28)
            continue;
        char buffer[80];
        std::snprintf(buffer, sizeof buffer, "%.4E", value);
        const int power = std::atoi(std::string_view(buffer).substr(7).data());
        std::string expected;
        if (power >= -4 && power <= 4) {
            std::snprintf(buffer, sizeof buffer, "%.*f", 4 - power, value);
            expected = buffer;
            while (power < 4 && expected.back() == '0')
                expected.pop_back();
            if (expected.back() == '.')
                expected.pop_back();
        }
        if (expected.empty() || expected.size() > 9) {
            std::snprintf(buffer, sizeof buffer, "%.3E", value);
            expected = buffer;
        }
        ASSERT_EQ(Series_Text(value), std::string(10 - expected.size(), ' ') + expected);
    }
}

TEST(Figures, Halves_Go_As_The_Binary_Value_Lies)
{
    EXPECT_EQ(Fixed(0.125, 6, 2), "  0.12"); // an exact half goes to the even digit
    EXPECT_EQ(Fixed(0.375, 6, 2), "  0.38");
    EXPECT_EQ(Fixed(2.675, 6, 2), "  2.67"); // its binary value lies below the half
}

TEST(Figures, What_Is_No_Number_Reaches_No_File)
{
    EXPECT_THROW(Fixed(std::nan(""), 9, 4), Engine_Failure);
    EXPECT_THROW(Exponent(std::numeric_limits<double>::infinity(), 12, 5), Engine_Failure);
    EXPECT_THROW(Series_Text(-std::numeric_limits<double>::infinity()), Engine_Failure);
}

TEST(Figures, A_Full_Disk_Is_A_Failure_93_With_Exit_Code_3)
{
    const Temporary_Directory place;
    const Full_Disk full(2);
    try {
        Out_File file(place / "chem.orv");
        file.Buffer = "text";
        file.Flush();
        FAIL() << "nothing thrown";
    } catch (const Engine_Failure& failure) {
        EXPECT_EQ(failure.Number, 93);
        EXPECT_EQ(failure.Exit_Code, 3);
    }
}

} // namespace orvel::engine
