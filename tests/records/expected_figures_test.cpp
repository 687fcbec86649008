#include "records/expected_figures.h"

#include "core/error.h"

#include <gtest/gtest.h>

namespace orvel {

namespace {

const std::string Head = "pesticide,crop,location,substance,percentile,unit,tolerance\n";

std::string Told_Of(const std::string& text)
try {
    Parse_Expected(text);
    return "nothing";
} catch (const File_Error& error) {
    return error.what();
}

} // namespace

TEST(Expected_Figures, Are_Read_And_Written_As_A_Table)
{
    const std::vector<Expected_Figure> figures = {
        {{"focus", "a.psm", "Maize", "Sevilla (S), irrigated"}, "Gr\xFCn", 15.5, 0.01},
        {{"focus", "a.psm", "Maize", "Hamburg (H)"}, "M", 0, 0.001}};
    const std::string text = Head + "a.psm,Maize,\"Sevilla (S), irrigated\",Gr\u00FCn,15.5,\u00B5g/L,0.01\n"
                                    "a.psm,Maize,Hamburg (H),M,0,\u00B5g/L,0.001\n";

    EXPECT_EQ(Format_Expected(figures), text);
    EXPECT_EQ(Parse_Expected(text), figures);
    EXPECT_EQ(Parse_Expected("\xEF\xBB\xBF" + text + ",,,,,,\r\n"), figures);
}

TEST(Expected_Figures, A_Table_That_Is_None_Is_Told_With_Line_And_Column)
{
    EXPECT_TRUE(Told_Of("a,b\n").starts_with("Line 1: It is no table of expected figures: "));
    EXPECT_EQ(Told_Of(Head), "It has no rows.");
    EXPECT_EQ(Told_Of(Head + "a,b,c,d,1,\u00B5g/L\n"), "Line 2: The row has 6 fields, not 7.");
    EXPECT_EQ(Told_Of(Head + "a,,c,d,1,\u00B5g/L,0.1\n"), "Line 2, column 2: The crop is missing.");
    EXPECT_EQ(Told_Of(Head + "a,b,c,d,one,\u00B5g/L,0.1\n"), "Line 2, column 5: 'one' is no number from 0 on.");
    EXPECT_EQ(Told_Of(Head + "a,b,c,d,-1,\u00B5g/L,0.1\n"), "Line 2, column 5: '-1' is no number from 0 on.");
    EXPECT_EQ(Told_Of(Head + "a,b,c,d,1,mg/L,0.1\n"), "Line 2, column 6: The unit must be \u00B5g/L.");
}

TEST(Expected_Figures, The_Tolerance_Is_A_Share_But_Never_Less_Than_The_Last_Place)
{
    const Expected_Figure large{{}, "A", 100, 0.01}, small{{}, "A", 0.003, 0.01}, none{{}, "A", 0, 0.01};

    EXPECT_TRUE(Is_As_Expected(large, 101));
    EXPECT_TRUE(Is_As_Expected(large, 99));
    EXPECT_FALSE(Is_As_Expected(large, 101.001));
    EXPECT_TRUE(Is_As_Expected(small, 0.004));
    EXPECT_FALSE(Is_As_Expected(small, 0.005));
    EXPECT_TRUE(Is_As_Expected(none, 0.001));
    EXPECT_FALSE(Is_As_Expected(none, 0.002));
}

} // namespace orvel
