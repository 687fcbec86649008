#include "plans/pasted_plan.h"

#include <gtest/gtest.h>

namespace orvel {

TEST(Pasted_Plan_Test, Numbers_With_A_Decimal_Comma_Get_A_Point_And_Nothing_Else_Is_Changed)
{
    const std::string text =
        "id\tpsm.Koc[1]\t#note\r\na\t0,5\tone, two\r\nb\t-1,25E-3\t3,4,5\r\n\"c\"\t\",5\"\t1,x\r\n";

    EXPECT_TRUE(Has_Decimal_Commas(text));
    EXPECT_EQ(With_Decimal_Points(text),
              "id\tpsm.Koc[1]\t#note\r\na\t0.5\tone, two\r\nb\t-1.25E-3\t3,4,5\r\n\"c\"\t\".5\"\t1,x\r\n");
    EXPECT_TRUE(Has_Decimal_Commas("id;psm.Koc[1]\na;1,5"));
}

TEST(Pasted_Plan_Test, Commas_That_Separate_Are_No_Decimal_Commas)
{
    EXPECT_FALSE(Has_Decimal_Commas("id,psm.Koc[1]\n1,5\n2,6\n"));
    EXPECT_FALSE(Has_Decimal_Commas("id\t#note\na\tone, two\nb\t1,\nc\t5\n"));
    EXPECT_FALSE(Has_Decimal_Commas(""));
    EXPECT_FALSE(Has_Decimal_Commas("\xFF\xFE\tx\n1,5\t2"));
    EXPECT_EQ(With_Decimal_Points("id,psm.Koc[1]\n1,5\n"), "id,psm.Koc[1]\n1,5\n");
}

} // namespace orvel
