#include "output/balance_rows.h"

#include "core/numbers.h"
#include "engine_files.h"

#include <gtest/gtest.h>

namespace orvel {

namespace {

std::vector<Water_Balance_Row> Water(const std::string& bytes, Balance_View view = Balance_View::Annual,
                                     std::size_t window = Scan_Window)
{
    std::vector<Water_Balance_Row> rows;
    auto wasser = Line_Scanner::Of_Bytes(bytes, window);
    Scan_Water_Balance(wasser, view, [&](const auto& row) { rows.push_back(row); });
    return rows;
}

std::vector<Pesticide_Balance_Row> Pesticide(const std::string& bytes, bool active = true,
                                             Balance_View view = Balance_View::Annual)
{
    std::vector<Pesticide_Balance_Row> rows;
    auto chem = Line_Scanner::Of_Bytes(bytes);
    Scan_Pesticide_Balance(chem, view, active, [&](const auto& row) { rows.push_back(row); });
    return rows;
}

// Terms in cm that are exact in binary, so that sums are.
Water_Year Plain_Year()
{
    return {.Precipitation = "64.0000",
            .Irrigation = "2.0000",
            .Loss = "6.0000",
            .Runoff = "1.0000",
            .Transpiration = {{1, "16.00000"}, {2, "8.00000"}},
            .Recharge = "24.00000"};
}

Chem_Year Plain_Mass()
{
    return {.Application = {{0, "5.00000E-01"}, {1, "2.50000E-01"}},
            .Uptake = "1.25000E-01",
            .Decay = "2.50000E-01",
            .Volatilization = "6.25000E-02",
            .Runoff = "3.12500E-02",
            .Bottom = "1.56250E-02"};
}

} // namespace

// 889.822 + 287.53 - 80.305 - 576.33005 - 397.4817 - 64.272 is 58.96325; summed in binary it falls just below.
TEST(Balance_Rows, A_Difference_Ends_Where_Its_Decimal_Figures_End)
{
    const auto rows = Water(Water_Block({.Precipitation = "88.9822",
                                         .Irrigation = "28.7530",
                                         .Loss = "8.0305",
                                         .Runoff = "6.4272",
                                         .Transpiration = {{1, "57.633005"}},
                                         .Recharge = "39.74817"}));

    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(Number_Text('F', rows[0].Diff_Storage, 0), "58.9633");
}

TEST(Balance_Rows, The_Terms_Of_The_Water_Balance_Are_In_Litres)
{
    const auto rows = Water(Water_Block(Plain_Year()));

    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].Precipitation, 640);
    EXPECT_EQ(rows[0].Irrigation, 20);
    EXPECT_EQ(rows[0].Runoff, 10);
    EXPECT_EQ(rows[0].Evapotranspiration, 160 + 80 + 60);
    EXPECT_EQ(rows[0].Percolate, 240);
    EXPECT_EQ(rows[0].Diff_Storage, 640 + 20 - 60 - 240 - 240 - 10);
}

TEST(Balance_Rows, A_Snow_Year_Adds_Its_Snow_Term_To_The_Precipitation_Of_That_Year)
{
    auto snow = Plain_Year();
    snow.Snow = "4.0000";

    const auto rows = Water(Water_Block(snow) + Water_Block(Plain_Year()));

    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].Precipitation, 680);
    EXPECT_EQ(rows[0].Runoff, 10);
    EXPECT_EQ(rows[0].Diff_Storage, rows[1].Diff_Storage + 40);
    EXPECT_EQ(rows[1].Precipitation, 640);
}

TEST(Balance_Rows, Evapotranspiration_Is_Summed_From_The_Third_Line_Below_Its_Anchor)
{
    const auto with_rows = [](const std::vector<std::string>& below) {
        return Water("ANNUAL\r\nPRECIPITATION\r\n\r\n\r\nRUNOFF\r\n\r\n\r\nTRANSPIRATION\r\n" + Lines(below) +
                     "SUMMARY FLUXES\r\nRECHARGE BELOW CORE\r\n")[0]
            .Evapotranspiration;
    };
    const std::string one = Line_At({{58, "             1.0"}});

    EXPECT_EQ(with_rows({one, one, one, one}), 20); // the first two lines are heads
    EXPECT_EQ(with_rows({"", "", "", one}), 10);    // a row without a number adds nothing
    EXPECT_EQ(with_rows({"", "", "no number", one}), 10);
    EXPECT_EQ(with_rows({"", ""}), 0);
}

TEST(Balance_Rows, Application_Is_Summed_From_The_Second_Line_Below_Its_Anchor)
{
    const auto with_rows = [](const std::vector<std::string>& below) {
        return Pesticide("ANNUAL\r\nRIZON PARTMENT\r\n" + Lines(below) + "* DECAY FOR COMPARTMENT 1\r\n\r\n")[0]
            .Application;
    };
    const std::string one = Line_At({{19, " 1.00000E+00"}});

    EXPECT_EQ(with_rows({one, one, one}), 2000); // the first line is a head
    EXPECT_EQ(with_rows({"", "no number", one}), 1000);
    EXPECT_EQ(with_rows({""}), 0);
}

TEST(Balance_Rows, Columns_End_Where_They_End)
{
    const std::string line = Line_At({{40, "123456789"}, {49, "1"}, {50, "9"}});

    EXPECT_EQ(Water("ANNUAL\r\nPRECIPITATION\r\n\r\n\r\nRUNOFF\r\n\r\n\r\nTRANSPIRATION\r\n\r\n\r\nSUMMARY FLUXES\r\n" +
                    line + " RECHARGE BELOW CORE\r\n")[0]
                  .Percolate,
              12345678910);
}

TEST(Balance_Rows, The_Terms_Of_The_Pesticide_Balance_Are_In_Grams)
{
    const auto rows = Pesticide(Chem_Block(Plain_Mass()));

    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].Application, 750);
    EXPECT_EQ(rows[0].Plant_Uptake, 125);
    EXPECT_EQ(rows[0].Degradation, 250);
    EXPECT_EQ(rows[0].Volatilisation, 62.5);
    EXPECT_EQ(rows[0].Runoff, 31.25);
    EXPECT_EQ(rows[0].Percolate, 15.625);
    EXPECT_EQ(rows[0].Diff_Storage, 750 - 62.5 - 125 - 15.625 - 31.25 - 250);
}

TEST(Balance_Rows, A_Metabolite_Has_No_Volatilisation_And_The_Residual_Holds_It)
{
    const auto rows = Pesticide(Chem_Block(Plain_Mass()), false);

    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].Volatilisation, 0);
    EXPECT_EQ(rows[0].Diff_Storage, 750 - 125 - 15.625 - 31.25 - 250);
}

TEST(Balance_Rows, A_Metabolite_File_Without_Volatilisation_Line_Is_Read_Year_By_Year)
{
    auto year = Plain_Mass();
    year.Volatilization.clear();

    EXPECT_EQ(Pesticide(Chem_Block(year) + Chem_Block(year), false).size(), 2U);
}

TEST(Balance_Rows, Runoff_Is_0_When_The_Macropore_Line_Comes_Before_The_Runoff_Line)
{
    auto year = Plain_Mass();
    year.Macropore_First = true;

    const auto rows = Pesticide(Chem_Block(year) + Chem_Block(Plain_Mass()));

    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].Runoff, 0);
    EXPECT_EQ(rows[0].Percolate, 15.625);
    EXPECT_EQ(rows[1].Runoff, 31.25);
}

TEST(Balance_Rows, A_Monthly_View_Takes_The_Monthly_Blocks_Alone)
{
    auto month = Plain_Year();
    month.Kind = "MONTHLY";
    month.Precipitation = "5.0000";
    auto mass = Plain_Mass();
    mass.Kind = "MONTHLY";
    mass.Decay = "1.00000E+00";
    const std::string water = Water_Block(month) + Water_Block(month) + Water_Block(Plain_Year());
    const std::string chem = Chem_Block(mass) + Chem_Block(mass) + Chem_Block(Plain_Mass());

    ASSERT_EQ(Water(water, Balance_View::Monthly).size(), 2U);
    EXPECT_EQ(Water(water, Balance_View::Monthly)[1].Precipitation, 50);
    ASSERT_EQ(Water(water).size(), 1U);
    EXPECT_EQ(Water(water)[0].Precipitation, 640);
    ASSERT_EQ(Pesticide(chem, true, Balance_View::Monthly).size(), 2U);
    EXPECT_EQ(Pesticide(chem, true, Balance_View::Monthly)[1].Degradation, 1000);
    EXPECT_EQ(Pesticide(chem).size(), 1U);
}

TEST(Balance_Rows, A_Year_That_The_End_Of_The_File_Cuts_Short_Has_Zeros_For_What_Is_Missing)
{
    const std::string block = Water_Block(Plain_Year());

    const auto rows = Water(block + block.substr(0, block.find(" SUMMARY")));

    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[1].Precipitation, 640);
    EXPECT_EQ(rows[1].Evapotranspiration, 300);
    EXPECT_EQ(rows[1].Percolate, 0);
    EXPECT_EQ(Water(block + block.substr(0, block.find("PRECIPITATION"))).size(), 1U);
}

TEST(Balance_Rows, A_Mass_Year_That_The_End_Of_The_File_Cuts_Short_Has_Zeros_For_What_Is_Missing)
{
    const std::string block = Chem_Block(Plain_Mass());

    const auto rows = Pesticide(block + block.substr(0, block.find(" TOTAL RUNOFF")));

    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[1].Volatilisation, 62.5);
    EXPECT_EQ(rows[1].Runoff, 0);
    EXPECT_EQ(rows[1].Percolate, 0);
}

TEST(Balance_Rows, Behind_The_Last_Block_The_End_Of_The_File_Is_No_Row)
{
    EXPECT_EQ(Water(Water_Block(Plain_Year()) + End_Of_Output()).size(), 1U);
    EXPECT_EQ(Pesticide(Chem_Block(Plain_Mass()) + End_Of_Output()).size(), 1U);
    EXPECT_TRUE(Water("").empty());
    EXPECT_TRUE(Pesticide("").empty());
    EXPECT_TRUE(Pesticide("ANNUAL").empty());
}

TEST(Balance_Rows, A_Text_That_One_Year_Lacks_Is_Found_In_The_Next)
{
    std::string first = Water_Block(Plain_Year());
    first.replace(first.find("RECHARGE"), 8, "recharge");

    EXPECT_EQ(Water(first + Water_Block(Plain_Year()) + Water_Block(Plain_Year())).size(), 2U);
}

TEST(Balance_Rows, Borders_Of_The_Window_Make_No_Difference)
{
    auto snow = Plain_Year();
    snow.Snow = "4.0000";
    const std::string bytes = Water_Block(snow) + Water_Block(Plain_Year());
    for (std::size_t window = 1; window < 300; window += 3) {
        const auto rows = Water(bytes, Balance_View::Annual, window);
        ASSERT_EQ(rows.size(), 2U) << window;
        EXPECT_EQ(rows[0].Diff_Storage, 150) << window;
        EXPECT_EQ(rows[1].Diff_Storage, 110) << window;
    }
}

} // namespace orvel
