#include "core/contrast.h"

#include <gtest/gtest.h>

namespace orvel {

TEST(Contrast, Is_21_Of_Black_And_White_And_1_Of_A_Colour_And_Itself)
{
    EXPECT_NEAR(Contrast(0x000000, 0xFFFFFF), 21, 1e-9);
    EXPECT_NEAR(Contrast(0xFFFFFF, 0x000000), 21, 1e-9);
    EXPECT_DOUBLE_EQ(Contrast(0x2F6FB5, 0x2F6FB5), 1);
    EXPECT_NEAR(Contrast(0x767676, 0xFFFFFF), 4.54, 0.005); // the palest grey that is text on white
}

TEST(Readable_On, Leaves_What_Can_Be_Read_And_Shades_What_Cannot)
{
    EXPECT_EQ(Readable_On(0xFFFFFF, 0x767676), 0x767676U);

    const auto darker = Readable_On(0xFFFFFF, 0x999999), lighter = Readable_On(0x1B1E20, 0x606060);

    EXPECT_GE(Contrast(darker, 0xFFFFFF), 4.5);
    EXPECT_LT(Contrast(darker, 0xFFFFFF), 5); // no more than is needed
    EXPECT_GE(Contrast(lighter, 0x1B1E20), 4.5);
    EXPECT_GT(lighter, 0x606060U);
}

} // namespace orvel
