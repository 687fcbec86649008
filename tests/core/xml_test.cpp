#include "core/xml.h"

#include <gtest/gtest.h>

namespace orvel {

TEST(Xml_Text_Of_Bytes, Markup_Quotes_And_Umlauts_Come_Out_As_Text)
{
    EXPECT_EQ(Xml_Text("a<b>&\"c'\xFC"), "a&lt;b&gt;&amp;&quot;c&#39;\xC3\xBC");
}

TEST(Xml_Text_Of_Bytes, Control_Characters_Become_Blanks)
{
    EXPECT_EQ(Xml_Text(std::string_view("a\0b\x01\x1F\t\x7F", 7)), "a b    ");
}

} // namespace orvel
