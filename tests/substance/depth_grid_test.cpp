#include "substance/depth_grid.h"

#include "pesticide_session.h"
#include "substance/horizon_table.h"

namespace orvel {

namespace {

std::vector<int> Factors_Of(int i)
{
    std::vector<int> factors;
    for (const auto& target : Target_Columns(i))
        factors.push_back(target.Factor);
    return factors;
}

class Depth_Dependence : public Pesticide_Session {
protected:
    // Two horizons whose factors tell horizon and index: 11 to 15, 21 to 25.
    void Two_Horizons(int i)
    {
        Document.N_Horizons = 2;
        Reset_Horizon_Table(Document, 2);
        for (int h = 1; h <= 2; ++h) {
            Document.Horizons[h].Hor_Kd[i] = h;
            for (int k = 1; k <= 5; ++k)
                Document.Horizons[h].Hor_Deg[i][k] = 10 * h + k;
        }
    }
};

} // namespace

TEST_F(Depth_Dependence, A_Reset_Table_Has_The_Defaults_For_All_Substances_And_Erases_What_Was_There)
{
    Two_Horizons(1);

    Reset_Horizon_Table(Document, 2);

    ASSERT_EQ(Document.Horizons.size(), 4U);
    for (int i = 1; i <= 9; ++i) {
        EXPECT_EQ(Document.Horizons[2].Hor_Kd[i], Variant(0));
        EXPECT_EQ(Document.Horizons[2].Hor_FrExp[i], Variant(0.9));
        for (int k = 1; k <= 5; ++k)
            EXPECT_EQ(Document.Horizons[2].Hor_Deg[i][k], Variant(1));
    }
}

TEST_F(Depth_Dependence, A_Table_Grows_With_Its_Values_Kept_And_Defaults_In_New_Rows)
{
    Two_Horizons(1);

    Grow_Horizon_Table(Document, 4);
    Grow_Horizon_Table(Document, 1);

    ASSERT_EQ(Document.Horizons.size(), 6U);
    EXPECT_EQ(Document.Horizons[2].Hor_Deg[1][3], Variant(23));
    EXPECT_EQ(Document.Horizons[4].Hor_FrExp[9], Variant(0.9));
    EXPECT_EQ(Document.Horizons[4].Hor_Deg[9][2], Variant(1));
}

TEST_F(Depth_Dependence, A_Number_Of_Horizons_Never_Leads_Out_Of_The_Table)
{
    Two_Horizons(1);
    Document.N_Horizons = "1E9";
    EXPECT_EQ(Load_Depth_Grid(Document, 1, 2000000000).Rows.size(), 400U);

    Document.Horizons.clear();
    EXPECT_EQ(Load_Depth_Grid(Document, 1, 1).Rows[0][0], "");
    Reset_Horizon_Table(Document, -5);
    EXPECT_EQ(Document.Horizons.size(), 2U);
}

TEST_F(Depth_Dependence, The_Targets_Follow_The_Arrow_Table)
{
    EXPECT_EQ(Depth_Grid_Headers(1), (std::vector<std::string>{"Hor. Number", "   [mL/g]", "  Fr-Exponent", "MET. A1",
                                                               "MET. B1", "MET. C1", "MET. D1", "CO2/B.RES."}));
    EXPECT_EQ(Depth_Grid_Headers(2), (std::vector<std::string>{"Hor. Number", "   [mL/g]", "Fr-Exponent", "MET. B1",
                                                               "MET. A2", "MET. B2", "CO2/BRes"}));
    EXPECT_EQ(Depth_Grid_Headers(4), (std::vector<std::string>{"Hor. Number", "   [mL/g]", "Fr-Exponent", "MET. D1",
                                                               "MET. C2", "MET. D2", "CO2/BRes"}));
    EXPECT_EQ(Depth_Grid_Headers(8),
              (std::vector<std::string>{"Hor. Number", "   [mL/g]", "Fr-Exponent", "MET. D2", "CO2/BRes"}));
    EXPECT_EQ(Factors_Of(1), (std::vector{1, 2, 3, 4, 5}));
    EXPECT_EQ(Factors_Of(3), (std::vector{1, 2, 3, 4}));
    EXPECT_EQ(Factors_Of(7), (std::vector{1, 2}));
}

TEST_F(Depth_Dependence, D1_Opens_With_Two_Targets_That_Show_And_Take_The_Factors_2_And_4)
{
    Two_Horizons(5);
    EXPECT_EQ(Factors_Of(5), (std::vector{2, 4}));

    auto grid = Load_Depth_Grid(Document, 5, 2);
    EXPECT_EQ(grid.Rows, (std::vector<std::vector<std::string>>{{"1", "0.9", "12", "14"}, {"2", "0.9", "22", "24"}}));

    grid.Rows[1][3] = "0.5";
    Accept_Depth_Grid(Document, 5, grid);
    EXPECT_EQ(Document.Horizons[2].Hor_Deg[5][4], Variant("0.5"));
    EXPECT_EQ(Document.Horizons[2].Hor_Deg[5][2].Number(), 22);
    EXPECT_EQ(Document.Horizons[2].Hor_Deg[5][3], Variant(23));
}

TEST_F(Depth_Dependence, D2_Has_The_Factor_2_Alone)
{
    EXPECT_EQ(Factors_Of(9), (std::vector{2}));
    EXPECT_EQ(Depth_Grid_Headers(9).back(), "CO2/BRes");
}

TEST_F(Depth_Dependence, Rows_Beyond_The_Table_Stay_Empty_And_Become_No_Zeros)
{
    Two_Horizons(6);

    const auto grid = Load_Depth_Grid(Document, 6, 3);
    EXPECT_EQ(grid.Rows[2], (std::vector<std::string>{"", "", "", ""}));
    EXPECT_EQ(Horizon_Title(2), "Horizon 3");

    Accept_Depth_Grid(Document, 6, grid);
    EXPECT_EQ(Document.N_Horizons, Variant(3));
    EXPECT_EQ(Document.Horizons[3].Hor_FrExp[6], Variant(0.9));
    EXPECT_EQ(Document.Horizons[3].Hor_Deg[6][1], Variant(1));
    EXPECT_EQ(Document.Horizons[3].Hor_FrExp[1], Variant(0.9)); // another substance
    EXPECT_EQ(Document.Horizons[2].Hor_Deg[6][2].Number(), 22);
}

TEST_F(Depth_Dependence, A_Table_Just_Reset_Shows_Its_Defaults_Before_The_Document_Knows_Its_Number)
{
    Two_Horizons(1);
    Reset_Horizon_Table(Document, 3); // Text_nhor was left with 3; N_Horizons is still 2

    const auto grid = Load_Depth_Grid(Document, 2, 3);

    EXPECT_EQ(grid.Rows, std::vector<std::vector<std::string>>(3, {"0", "0.9", "1", "1", "1", "1"}));
}

TEST_F(Depth_Dependence, A_Cell_That_Was_Emptied_Has_The_Default_Of_Its_Column)
{
    Two_Horizons(1);
    auto grid = Load_Depth_Grid(Document, 1, 2);
    grid.Rows[0] = {"", " ", "", "2", "2", "2", "2"};

    Accept_Depth_Grid(Document, 1, grid);

    EXPECT_EQ(Document.Horizons[1].Hor_Kd[1].Number(), 0);
    EXPECT_EQ(Document.Horizons[1].Hor_FrExp[1].Number(), 0.9);
    EXPECT_EQ(Document.Horizons[1].Hor_Deg[1][1].Number(), 1);
}

TEST_F(Depth_Dependence, The_Form_Itself_Never_Resets_The_Table)
{
    Two_Horizons(1);

    Accept_Depth_Grid(Document, 1, Load_Depth_Grid(Document, 1, 2));

    EXPECT_EQ(Document.Horizons[1].Hor_Deg[1][5].Number(), 15);
    EXPECT_EQ(Document.Horizons[2].Hor_Deg[1][1].Number(), 21);
}

TEST_F(Depth_Dependence, The_First_Targets_Factors_Become_The_Default_Of_All_Substances_On_Acceptance)
{
    Two_Horizons(1);
    auto grid = Load_Depth_Grid(Document, 1, 2);

    Default_From_First_Target(grid);
    EXPECT_EQ(grid.Rows[1], (std::vector<std::string>{"2", "0.9", "21", "21", "21", "21", "21"}));
    EXPECT_EQ(Document.Horizons[2].Hor_Deg[4][1], Variant(1));

    Accept_Depth_Grid(Document, 1, grid);
    EXPECT_EQ(Document.Horizons[1].Hor_Deg[4][1].Number(), 11);
    EXPECT_EQ(Document.Horizons[2].Hor_Deg[9][2].Number(), 21);
    EXPECT_EQ(Document.Horizons[2].Hor_Kd[4], Variant(0));
}

TEST_F(Depth_Dependence, A_Factor_Edited_After_The_Default_Was_Taken_Stays)
{
    Two_Horizons(1);
    auto grid = Load_Depth_Grid(Document, 1, 2);
    Default_From_First_Target(grid);
    grid.Rows[0][3] = "7";

    Accept_Depth_Grid(Document, 1, grid);

    EXPECT_EQ(Document.Horizons[1].Hor_Deg[1][2].Number(), 7);
    EXPECT_EQ(Document.Horizons[1].Hor_Deg[2][2].Number(), 11);
}

} // namespace orvel
