#include "core/shell_line.h"

#include <gtest/gtest.h>

namespace orvel {

TEST(Shell_Line, A_Word_Is_In_Quotes_Unless_It_Is_Plain)
{
    EXPECT_EQ(Shell_Word("demo_D.psm"), "demo_D.psm");
    EXPECT_EQ(Shell_Word("Winter cereals"), "'Winter cereals'");
    EXPECT_EQ(Shell_Word(""), "''");
    EXPECT_EQ(Shell_Word("it's $HOME; `x`"), R"('it'\''s $HOME; `x`')");
    EXPECT_EQ(Orvelctl_Line("/my runs", {"status", "--mode", "focus"}), "orvelctl -C '/my runs' status --mode focus");
}

} // namespace orvel
