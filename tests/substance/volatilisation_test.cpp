#include "substance/volatilisation.h"

#include "pesticide_session.h"

namespace orvel {

namespace {

constexpr bool Direct = true, Calculated = false;

Volatilisation Filled(Volatilisation pairs, bool henry_direct)
{
    Fill_Second_Point(pairs, henry_direct);
    return pairs;
}

using Volatilisation_Pairs = Pesticide_Session;

} // namespace

TEST_F(Volatilisation_Pairs, A_Direct_Henry_Constant_Doubles_10_Degrees_Higher)
{
    EXPECT_EQ(Filled({.Volat_Temp = {20, 20}, .Henry = {1E-4, 0}}, Direct),
              (Volatilisation{.Volat_Temp = {20, 30}, .Henry = {1E-4, 2E-4}}));
}

TEST_F(Volatilisation_Pairs, A_Calculated_One_Gets_4_Times_The_Vapour_Pressure_And_2_Times_The_Solubility)
{
    const auto filled = Filled({.Volat_Temp = {20, 25}, .Vap_Press = {1E-3, 0}, .Solubility = {10, 0}}, Calculated);

    EXPECT_EQ(filled, (Volatilisation{.Volat_Temp = {20, 30}, .Vap_Press = {1E-3, 4E-3}, .Solubility = {10, 20}}));
}

TEST_F(Volatilisation_Pairs, The_Solubility_Alone_Decides_Whether_A_Second_Point_Is_Missing)
{
    EXPECT_EQ(Filled({.Volat_Temp = {20, 30}, .Vap_Press = {0, 0}, .Solubility = {10, 0}}, Calculated),
              (Volatilisation{.Volat_Temp = {20, 30}, .Vap_Press = {0, 0}, .Solubility = {10, 20}}));
    EXPECT_EQ(Filled({.Volat_Temp = {20, 25}, .Vap_Press = {1E-3, 0}, .Solubility = {10, 12}}, Calculated),
              (Volatilisation{.Volat_Temp = {20, 25}, .Vap_Press = {1E-3, 0}, .Solubility = {10, 12}}));
}

TEST_F(Volatilisation_Pairs, Equal_Temperatures_Part_By_10_Degrees_And_The_Values_Stay)
{
    EXPECT_EQ(Filled({.Volat_Temp = {20, 20}, .Vap_Press = {1, 2}, .Solubility = {10, 12}}, Calculated),
              (Volatilisation{.Volat_Temp = {20, 30}, .Vap_Press = {1, 2}, .Solubility = {10, 12}}));
}

TEST_F(Volatilisation_Pairs, A_Missing_Henry_Constant_Is_Calculated_From_Molar_Mass_Vapour_Pressure_And_Solubility)
{
    Volatilisation pairs = {.Henry = {0, 7}, .Vap_Press = {1E-3, 4E-3}, .Solubility = {10, 20}};

    Calculate_Henry(pairs, 300, Direct);
    EXPECT_EQ(pairs.Henry[0], 0);

    Calculate_Henry(pairs, 300, Calculated);
    EXPECT_DOUBLE_EQ(pairs.Henry[0], 0.03);
    EXPECT_EQ(pairs.Henry[1], 7);
}

TEST_F(Volatilisation_Pairs, Without_A_Solubility_No_Henry_Constant_Is_Calculated)
{
    Volatilisation pairs = {.Vap_Press = {1E-3, 4E-3}, .Solubility = {10, 0}};

    Calculate_Henry(pairs, 300, Calculated);

    EXPECT_EQ(pairs.Henry[1], 0);
    EXPECT_TRUE(Needs_Direct_Henry(pairs));
    pairs.Solubility[1] = 20;
    EXPECT_FALSE(Needs_Direct_Henry(pairs));
}

TEST_F(Volatilisation_Pairs, Go_To_The_Document_And_Back_With_All_Their_Digits)
{
    const Volatilisation pairs = {{20, 25}, {1.23456E-4, 2}, {3.4567, 4}, {5, 6}};

    Store_Volatilisation(Document, pairs);

    EXPECT_EQ(Load_Volatilisation(Document), pairs);
    EXPECT_EQ(Document.Henry[0], 1.23456E-4);
    EXPECT_EQ(Scientific_Text(1.23456E-4), "1.23E-04");
    EXPECT_EQ(Scientific_Text(0), "0.00E+00");
}

} // namespace orvel
