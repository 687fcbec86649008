#include "output/quick_val.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>
#include <string>

namespace orvel {

namespace {

// Zeros of both signs differ here: there is no negative zero anywhere.
void Expect_Same(const std::string& text)
{
    EXPECT_EQ(Quick_Val(text), Val(text)) << text;
    EXPECT_EQ(std::signbit(Quick_Val(text)), std::signbit(Val(text))) << text;
}

} // namespace

TEST(Quick_Val, Gives_The_Value_Of_Val_For_Every_Shape_Of_Text)
{
    for (const char* text : {"",
                             " ",
                             "\t 7",
                             "1 2",
                             "1D2",
                             "+4",
                             "-4",
                             ".5",
                             "-.5",
                             "5.",
                             "1e-3",
                             "1E+3",
                             "nan",
                             "inf",
                             "-inf",
                             "--5",
                             "+-5",
                             "E5",
                             ".",
                             "-.",
                             "+",
                             "0x10",
                             "1E",
                             "1E+",
                             "1E-",
                             "-0",
                             "-0.000",
                             "0.0E+99",
                             "1.2.3",
                             "12,5",
                             "9007199254740993",
                             "9007199254740992",
                             "18446744073709551617",
                             "1E22",
                             "1E23",
                             "1E-22",
                             "1E-23",
                             "123456789012345E22",
                             "1E400",
                             "-1E400",
                             "1E-400",
                             "1E99999",
                             "0E99999",
                             "1E00000000001",
                             "0.000000000000000000000000000001",
                             "123456789012345678901234567890",
                             " 1.234E-07",
                             "    5.9415",
                             "-1.234E-10",
                             "3.14159265358979"})
        Expect_Same(text);
}

TEST(Quick_Val, Gives_The_Value_Of_Val_For_Numbers_Of_All_Lengths)
{
    std::mt19937_64 random(20240531);
    const auto digits = [&](std::size_t count) {
        std::string text;
        for (std::size_t i = 0; i < count; ++i)
            text += static_cast<char>('0' + random() % 10);
        return text;
    };
    for (int i = 0; i < 200000; ++i) {
        std::string text = std::string(random() % 3, ' ') + (random() % 4 == 0 ? "-" : "") + digits(random() % 8);
        if (random() % 2 == 0)
            text += "." + digits(random() % 14);
        if (random() % 2 == 0)
            text += std::string(random() % 2 == 0 ? "E-" : "E+") + digits(random() % 3);
        ASSERT_EQ(Quick_Val(text), Val(text)) << text;
    }
}

} // namespace orvel
