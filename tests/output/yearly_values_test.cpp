#include "output/yearly_values.h"

#include "engine_files.h"

#include <gtest/gtest.h>

namespace orvel {

namespace {

constexpr int Metre = 40;

struct Values {
    std::vector<double> Metre, Bottom;
    bool operator==(const Values&) const = default;
};

Values Read(const std::string& bytes, const Leachate_Layout& layout, std::size_t window = Scan_Window)
{
    Yearly_Values values(Line_Scanner::Of_Bytes(bytes, window), layout, Metre);
    values.Read_To(100);
    return {values.At(Depth::One_Metre), values.At(Depth::Core_Bottom)};
}

} // namespace

TEST(Yearly_Values, The_Percolate_In_Litres_Stands_In_The_Row_Of_The_Metre_And_At_The_Recharge)
{
    EXPECT_EQ(Read(Water_Block("1.5", "2.5") + Water_Block("3.5", "4.5") + End_Of_Output(), Water_Layout),
              (Values{{15, 35}, {25, 45}}));
}

TEST(Yearly_Values, The_Leached_Mass_In_Grams_Stands_In_The_Row_Of_The_Metre_And_In_The_Total)
{
    EXPECT_EQ(Read(Chem_Block("1.5000E+00", "2.50000E+00") + Chem_Block("3.5000E+00", "4.50000E+00") + End_Of_Output(),
                   Chem_Layout),
              (Values{{1500, 3500}, {2500, 4500}}));
}

TEST(Yearly_Values, Monthly_And_Daily_Blocks_Are_Passed_Over)
{
    const std::string other =
        Water_Block({.Kind = "MONTHLY", .Transpiration = {{40, "0"}}, .Percolate = {"9"}, .Recharge = "9"}) +
        Water_Block({.Kind = "DAILY", .Transpiration = {{40, "0"}}, .Percolate = {"9"}, .Recharge = "9"});

    EXPECT_EQ(Read(other + Water_Block("1", "2") + other + Water_Block("3", "4") + other, Water_Layout),
              (Values{{10, 30}, {20, 40}}));
}

TEST(Yearly_Values, A_Year_That_The_End_Of_The_File_Cuts_Short_Is_Dropped)
{
    const std::string whole = Water_Block("1", "2");
    const std::string second = Water_Block("3", "4");
    const auto behind_row = second.find("\r\n SUMMARY"), behind_recharge = second.find(" CHANGE");
    for (std::size_t cut = 0; cut <= second.size(); ++cut) {
        const auto values = Read(whole + second.substr(0, cut), Water_Layout);
        EXPECT_EQ(values.Metre.size(), cut > behind_row ? 2U : 1U) << cut;
        EXPECT_EQ(values.Bottom.size(), cut > behind_recharge ? 2U : 1U) << cut;
    }
}

TEST(Yearly_Values, A_Value_On_The_Last_Line_Of_The_File_Is_Dropped)
{
    const std::string block = Water_Block("1", "2");
    const std::string to_recharge = block.substr(0, block.find(" CHANGE"));

    EXPECT_EQ(Read(to_recharge, Water_Layout), (Values{{10}, {}}));
    EXPECT_EQ(Read(to_recharge + "\r\n", Water_Layout), (Values{{10}, {20}}));
}

TEST(Yearly_Values, A_Table_That_One_Year_Lacks_Is_Found_In_The_Next_At_That_Depth_Alone)
{
    std::string first = Water_Block("1", "2");
    first.replace(first.find("HORIZON"), 7, "horizon");

    EXPECT_EQ(Read(first + Water_Block("3", "4") + Water_Block("5", "6"), Water_Layout),
              (Values{{30, 50}, {20, 40, 60}}));
}

TEST(Yearly_Values, A_Row_That_One_Year_Lacks_Is_Found_In_The_Next_Block_Of_Any_Kind)
{
    const std::string without = Water_Block({.Transpiration = {{1, "0"}}, .Recharge = "2"});
    const std::string daily = Water_Block({.Kind = "DAILY", .Transpiration = {{40, "0"}}, .Percolate = {"7"}});

    EXPECT_EQ(Read(without + daily + Water_Block("3", "4"), Water_Layout), (Values{{70, 30}, {20, 40}}));
}

TEST(Yearly_Values, A_Value_May_Start_Anywhere_Inside_Its_Columns)
{
    std::string block = Water_Block("12345678.9012", "2");
    block.replace(block.find("    2\r\n"), 5, "2    ");

    EXPECT_EQ(Read(block, Water_Layout).Bottom, std::vector<double>{20});
}

TEST(Yearly_Values, One_Pass_Through_Any_Window_Gives_The_Same)
{
    const std::string bytes = Chem_Block("1.0000E+00", "2.00000E+00") + Chem_Block({.Kind = "DAILY"}) +
                              Chem_Block("3.0000E+00", "4.00000E+00");
    for (std::size_t window = 1; window < 300; window += 7)
        EXPECT_EQ(Read(bytes, Chem_Layout, window), (Values{{1000, 3000}, {2000, 4000}})) << window;
}

TEST(Yearly_Values, Reading_To_A_Year_Leaves_The_Rest_Of_The_File)
{
    const std::string bytes = Water_Block("1", "2") + Water_Block("3", "4");
    Yearly_Values values(Line_Scanner::Of_Bytes(bytes, 64), Water_Layout, Metre);

    values.Read_To(1);
    EXPECT_EQ(values.At(Depth::Core_Bottom), std::vector<double>{20});
    EXPECT_LT(values.Bytes_Read(), bytes.size());
    values.Read_To(2);
    EXPECT_EQ(values.At(Depth::Core_Bottom), (std::vector<double>{20, 40}));
}

} // namespace orvel
