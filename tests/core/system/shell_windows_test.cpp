// The lines that a user copies are taken by the shell of Windows as they were meant.
#include "core/shell_line.h"
#include "core/system/companion.h"
#include "core/system/handle_windows.h"

#include <gtest/gtest.h>

namespace orvel {

TEST(Shell_Line, Is_Taken_By_The_Shell_Of_Windows_As_It_Was_Meant)
{
    const Temporary_Directory place;
    const std::vector<std::string> words = {
        "plain", "Winter cereals", "C,H,K",          R"(C:\my runs\)", "Größe α",   "a&b | c<d> e^f (g)",
        "it's",  "100% of it",     "$HOME `x` @; #", R"(say "so")",    R"(a b\"c)", "",
        "*.psm", "!x! {y}"};
    std::string line = ">" + Shell_Word((place / "output").string()) + " companion arguments", expected;
    for (const auto& word : words) {
        line += " " + Shell_Word(word);
        expected += std::to_string(word.size()) + ":" + word + "\n";
    }
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(Own_Path().parent_path());

    const int code = ::_wsystem(From_Utf8_Text(line).c_str());
    std::filesystem::current_path(before);

    EXPECT_EQ(code, 0);
    EXPECT_EQ(Read_Whole(place / "output"), expected);
}

} // namespace orvel
