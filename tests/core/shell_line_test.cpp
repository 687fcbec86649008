#include "core/shell_line.h"

#include <gtest/gtest.h>

namespace orvel {

TEST(Shell_Line, A_Word_Is_As_It_Is_If_It_Is_Plain_Else_In_Quotes_That_Every_Shell_Knows)
{
    for (const auto shell : {Users_Shell::Posix, Users_Shell::Windows}) {
        EXPECT_EQ(Shell_Word("demo_D.psm", shell), "demo_D.psm");
        EXPECT_EQ(Shell_Word("--to=1", shell), "\"--to=1\"");
        EXPECT_EQ(Shell_Word("Winter cereals", shell), "\"Winter cereals\"");
        EXPECT_EQ(Shell_Word("Hamburg (H), it's <wet> & 'so'; ^|*", shell), "\"Hamburg (H), it's <wet> & 'so'; ^|*\"");
        EXPECT_EQ(Shell_Word("C,H,K", shell), "\"C,H,K\""); // a list in one of them
        EXPECT_EQ(Shell_Word("Größe", shell), "\"Größe\"");
        EXPECT_EQ(Shell_Word("", shell), "\"\"");
    }
}

TEST(Shell_Line, A_Posix_Shell_Gets_In_Single_Quotes_What_It_Would_Expand)
{
    EXPECT_EQ(Shell_Word("it's $HOME; `x`", Users_Shell::Posix), R"('it'\''s $HOME; `x`')");
    EXPECT_EQ(Shell_Word(R"(say "so")", Users_Shell::Posix), R"('say "so"')");
    EXPECT_EQ(Shell_Word(R"(a\b)", Users_Shell::Posix), R"('a\b')");
    EXPECT_EQ(Shell_Word("100%!", Users_Shell::Posix), "'100%!'");
}

TEST(Shell_Line, A_Shell_Of_Windows_Gets_Backslashes_As_Programs_There_Read_Them)
{
    const auto word = [](const char* text) { return Shell_Word(text, Users_Shell::Windows); };

    EXPECT_EQ(word(R"(C:\runs\demo)"), R"(C:\runs\demo)");
    EXPECT_EQ(word(R"(C:\my runs\demo)"), R"("C:\my runs\demo")");
    EXPECT_EQ(word(R"(C:\my runs\)"), R"("C:\my runs\\")");
    EXPECT_EQ(word(R"(say "so")"), R"("say \"so\"")");
    EXPECT_EQ(word(R"(a\"b)"), R"("a\\\"b")");
    EXPECT_EQ(word("$5 `100%"), "\"$5 `100%\"");
}

TEST(Shell_Line, A_Line_Of_This_System_Names_The_Installation)
{
    EXPECT_EQ(Orvelctl_Line("/my runs", {"status", "--mode", "focus"}), "orvelctl -C \"/my runs\" status --mode focus");
    EXPECT_EQ(Directory_Line("/my runs"),
              Shell_Of_System() == Users_Shell::Windows ? "pushd \"/my runs\"" : "cd \"/my runs\"");
}

} // namespace orvel
