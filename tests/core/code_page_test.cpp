#include "core/code_page.h"

#include <gtest/gtest.h>

namespace orvel {

TEST(Code_Page, Every_Byte_Survives_The_Way_To_Unicode_And_Back)
{
    std::string all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);

    EXPECT_EQ(From_Utf8(To_Utf8(all)), all);
}

TEST(Code_Page, Holds_The_Characters_Of_Windows_1252)
{
    EXPECT_EQ(To_Utf8("Ch\xE2teaudun, 1 \xB5g/L, \x80"), "Châteaudun, 1 µg/L, €");
    EXPECT_EQ(From_Utf8("Kremsmünster – ß"), "Kremsm\xFCnster \x96 \xDF");
}

TEST(Code_Page, Refuses_A_Character_That_It_Lacks)
{
    EXPECT_EQ(From_Utf8("α"), std::nullopt);
    EXPECT_EQ(From_Utf8("😀"), std::nullopt);
}

TEST(Code_Page, Refuses_Text_That_Is_No_UTF8)
{
    for (const char* text : {"\x80", "\xC3", "\xC3(", "\xC0\x80", "\xE0\x80\x80", "\xE2\x82"})
        EXPECT_EQ(From_Utf8(text), std::nullopt);
}

TEST(Umlauts_Of_The_Dos_Form, Are_Mapped_Both_Ways)
{
    EXPECT_EQ(Dos_To_Ansi("Ch\x83teaudun Kremsm\x81nster \xE1"), "Ch\xE2teaudun Kremsm\xFCnster \xDF");
    EXPECT_EQ(Ansi_To_Dos("Ch\xE2teaudun Kremsm\xFCnster \xDF"), "Ch\x83teaudun Kremsm\x81nster \xE1");
}

} // namespace orvel
