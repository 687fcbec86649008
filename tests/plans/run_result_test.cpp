#include "plans/run_result.h"

#include <gtest/gtest.h>

namespace orvel {

TEST(Run_Result_Test, What_Is_Printed_Is_Read_Back)
{
    const Plan_Result result{
        .Rows = {{.Substance = "Demo, \xFC",
                  .Unit = "\xB5g/L",
                  .Found = Result_Row::Figures{.Percentile = 0.125, .Flux = 3.5, .Percolate = 210},
                  .Years = 26},
                 {.Substance = "M1", .Unit = "mg/kg", .Found = Result_Row::Figures{.Percentile = 0.5}, .Years = 26}},
        .Verdict = Verdict::Complete,
        .Seconds = 2};

    const std::string text = Format_Result(result);

    EXPECT_EQ(text, "\"Demo, \xC3\xBC\",0.125,\xC2\xB5g/L,26,3.5,210,complete,2\nM1,0.5,mg/kg,26,,,complete,2\n");
    const auto lines = Parse_Result(text);
    ASSERT_TRUE(lines && lines->size() == 2);
    const auto first = Parse_Figures(lines->front().Figures), second = Parse_Figures(lines->back().Figures);
    ASSERT_TRUE(first && second);
    EXPECT_EQ(first->Substance, "Demo, \xFC");
    EXPECT_EQ(first->Unit, "\xB5g/L");
    EXPECT_EQ(first->Found->Percentile, 0.125);
    EXPECT_EQ(first->Found->Percolate, 210);
    EXPECT_EQ(second->Unit, "mg/kg");
    EXPECT_EQ(second->Found->Percentile, 0.5);
    EXPECT_FALSE(second->Found->Flux);
}

TEST(Run_Result_Test, A_Line_Without_Figures_Has_None)
{
    EXPECT_FALSE(Parse_Figures(",,,12,,"));
    EXPECT_FALSE(Parse_Figures(""));
    EXPECT_FALSE(Parse_Figures("a,1,b"));
    EXPECT_FALSE(Parse_Figures("\"a,1,b,2,3,4"));
}

TEST(Run_Result_Test, More_Years_Than_There_Can_Be_Are_Those_That_There_Can)
{
    EXPECT_EQ(Parse_Figures("a,1,b,1e30,3,4")->Years, 66);
    EXPECT_EQ(Parse_Figures("a,1,b,-5,3,4")->Years, 0);
}

} // namespace orvel
