#include "parsed.h"
#include "pesticide_example.h"

#include <gtest/gtest.h>

namespace orvel {

namespace {

constexpr std::string_view Horizons_Tag = "<DEPTH DEPENDENT SORPTION AND TRANSFORMATION VALUES>";
constexpr std::string_view Plant_Labels =
    "<plant decay rate;washoff parameter;penetration;photdegradation;reference radiation;laminar layer>";

std::string Plant_Line_Of(double method)
{
    auto document = Example_Document();
    document->App_Method = method;
    document->Plant_Filtration = 2;
    return Line_Behind(Format_PSM(*document), Print_Form(method) + "   <pesticide");
}

} // namespace

TEST(Pesticide_Writer, Writes_The_Example_Byte_For_Byte)
{
    EXPECT_EQ(Format_PSM(*Example_Document()), Example_File());
}

TEST(Pesticide_Writer, Writes_No_Horizon_Lines_For_No_Horizons)
{
    auto document = Example_Document();
    document->N_Horizons = 0;
    document->Horizons.assign(2, {});

    const auto text = Format_PSM(*document);

    EXPECT_EQ(Line_Of(text, 5), " 0 ");
    EXPECT_EQ(Line_Behind(text, "<Kd "), "<END DEPTH DEPENDENT>");
    EXPECT_EQ(text.find("<horizon"), std::string::npos);
    EXPECT_EQ(Format_PSM(*Parsed_PSM(text)), text);
}

TEST(Pesticide_Writer, Writes_No_Plant_Line_For_Soil_Applications)
{
    EXPECT_EQ(Plant_Line_Of(1), "<END APPLICATION>");
}

TEST(Pesticide_Writer, Writes_The_Plant_Line_Of_A_Linear_Or_Manual_Method_In_Print_Zones)
{
    // " 0.0693 ", 2 blanks, " 0.5 ", then " 0.0693 ", 2, " 0 ", 2, " 500 ", 2, " 0.03 ", 2 are 45 characters: the next
    // zone begins at 57.
    const std::string values = " 0.0693    0.5  0.0693    0    500    0.03   ";
    ASSERT_EQ(values.size(), 45U);

    EXPECT_EQ(Plant_Line_Of(2), values + std::string(11, ' ') + std::string(Plant_Labels));
    EXPECT_EQ(Plant_Line_Of(4), Plant_Line_Of(2));
}

TEST(Pesticide_Writer, Writes_The_Filtration_Parameter_For_The_Exponential_Method_Alone)
{
    EXPECT_EQ(Plant_Line_Of(3), " 0.0693    0.5     2    0.0693    0    500    0.03     <plant decay rate;washoff "
                                "parameter;filtration parameter;penetration;"
                                "photdegradation;reference radiation;laminar layer>");
}

TEST(Pesticide_Writer, Writes_A_Location_Without_Applications_As_Its_Line_Alone)
{
    auto document = Example_Document();
    document->App_Count[1] = 0;

    EXPECT_EQ(Line_Behind(Format_PSM(*document), "000         H"), Line_Of(Example_Method, 1));
}

TEST(Pesticide_Writer, Writes_The_Count_Lines_Second_Field_As_0_Whatever_Was_Read)
{
    const auto document = Parsed_PSM(With(Example_File(), " 2    0    1    <", " 2    7    1    <"));

    EXPECT_EQ(document->App_Rel_Flag, 7);
    EXPECT_EQ(Format_PSM(*document), Example_File());
}

TEST(Pesticide_Writer, Writes_The_First_Reference_Point_In_All_Lines_Of_Relative_Applications)
{
    auto document = Example_Document();
    document->App_Mode = 9;
    document->App_Loc_Count = 1;
    document->App_Count[0] = 10;
    for (std::int16_t a = 1; a <= 10; ++a)
        document->Relative[static_cast<std::size_t>(a)] = {
            .Abs9_Day = a, .Abs9_Month = static_cast<std::int16_t>(a % 6), .Abs9_Year = 2, .Abs9_Rate = 1.5};
    document->Applications[0][10].App_Crop_Flag = 6;

    const auto text = Format_PSM(*document);
    const auto read = Parsed_PSM(text);

    EXPECT_EQ(Line_Of(text, 8), " 1    0    9    <number of locations absolute app/relative app>");
    EXPECT_EQ(Line_Of(text, 10),
              "01  01  02   1.5    0    0    0    0   <day month year app_rate app_depth frpex time>");
    EXPECT_EQ(Line_Of(text, 19),
              "10  01  02   1.5    0    0    0    6   <day month year app_rate app_depth frpex time>");
    for (std::size_t a = 1; a <= 10; ++a)
        EXPECT_EQ(read->Relative[a].Abs9_Month, 1);
    EXPECT_EQ(read->Relative[10].Abs9_Day, 10);
    EXPECT_EQ(read->Applications[0][10].App_Crop_Flag, 6);
}

TEST(Pesticide_Writer, A_pKa_Of_20_Takes_The_Second_Point_Out_Of_File_And_Document)
{
    auto document = Example_Document();
    document->Sorp_pKa[1] = "20";
    document->Koc2[1] = 50;
    document->Sorp_pH[1] = 6;
    document->Sorp_pH2[1] = 8;

    const auto text = Format_PSM(*document);

    EXPECT_EQ(document->Koc2[1], Variant(-99));
    EXPECT_EQ(document->Sorp_pH[1], Variant(-99));
    EXPECT_EQ(document->Sorp_pH2[1], Variant(-99));
    EXPECT_EQ(document->Koc2[2], Variant(60)); // A1 has a pKa of 4.5
    EXPECT_EQ(
        Line_Behind(text, "<Koc-value"),
        " 120.5       0.9        -99         20           0.01             0      0     1    -99    -99     0     0 ");
}

TEST(Pesticide_Writer, Clears_The_Henry_Flag_Without_A_Solubility)
{
    for (const std::size_t k : {0U, 1U}) {
        auto document = Example_Document();
        document->Solubility[k] = 0;

        const auto text = Format_PSM(*document);

        EXPECT_EQ(Line_Behind(text, "<FLAGS>"), " 0   1   <henry(0=direct 1=calc.)  kd_flag(0=direct 1=calc.)>");
        EXPECT_EQ(document->Henry_Flag, Variant(0));
    }
}

TEST(Pesticide_Writer, Prints_A_Typed_Field_As_It_Was_Typed_Without_Blanks)
{
    auto document = Example_Document();
    document->Koc[1] = "120.50";
    document->Fr_Exp[1] = " .9";
    document->Degradation[1][2].Deg_Rate = "0,05";

    const auto text = Format_PSM(*document);

    EXPECT_EQ(Line_Behind(text, "<Koc-value").substr(0, 28), "120.50      .9          -99 ");
    EXPECT_EQ(Line_Behind(text, "0.0231049 "),
              "0.0500000    20          2.58        0           100         0.7       0        <Met B1>");
}

TEST(Pesticide_Writer, A_Value_Wider_Than_Its_Column_Breaks_The_Line)
{
    auto document = Example_Document();
    document->Koc[1] = "123456789012";
    EXPECT_EQ(Line_Behind(Format_PSM(*document), "<Koc-value").substr(0, 16), "123456789012 0.9");

    document->Koc[1] = "1234567890123";
    EXPECT_EQ(Line_Behind(Format_PSM(*document), "<Koc-value"), "1234567890123");
    EXPECT_EQ(Line_Behind(Format_PSM(*document), "1234567890123").substr(0, 16), "             0.9");
}

TEST(Pesticide_Writer, Writes_Metabolites_Of_The_Second_Generation_With_Two_Rows_And_Factors)
{
    auto document = Example_Document();
    document->Met_Present[9] = true;
    document->Horizons[1].Hor_Kd[9] = 3;
    document->Horizons[1].Hor_FrExp[9] = 0.7;
    document->Horizons[1].Hor_Deg[9] = {0, 0.25, 0.125};

    const auto text = Format_PSM(*document);
    const auto section = text.substr(text.find("METABOLITE D2"));

    EXPECT_EQ(Line_Of(section, 1), "METABOLITE D2     Metabolite D2");
    EXPECT_EQ(Line_Of(section, 14),
              "0.00E+00     20          2.58        0           100         0.7       0        <BR/CO2>");
    EXPECT_EQ(Line_Of(section, 15), Line_Of(section, 14));
    EXPECT_EQ(Line_Of(section, 16).substr(0, 24), " 0                 <0 = ");
    EXPECT_EQ(Line_Behind(section, Horizons_Tag), "<Kd          Fr.exp.     BR/CO2   BR/CO2 >");
    EXPECT_EQ(Line_Behind(section, "<Kd "), " 3           0.7         0.25     0.125    <horizon 1 >");
    EXPECT_EQ(Format_PSM(*Parsed_PSM(text)), text);
}

TEST(Pesticide_Writer, Labels_The_Rows_Of_Every_Metabolite_By_Where_They_Lead)
{
    auto document = Example_Document();
    document->Met_Present.fill(true);

    const auto text = Format_PSM(*document);
    const auto header = [&](const std::string& name) {
        return Line_Behind(text.substr(text.find("METABOLITE " + name)), Horizons_Tag);
    };

    EXPECT_EQ(header("A1"), "<Kd          Fr.exp.     Met B1   Met A2   Met B2   BR/CO2 >");
    EXPECT_EQ(header("B1"), "<Kd          Fr.exp.     Met C1   Met B2   Met C2   BR/CO2 >");
    EXPECT_EQ(header("C1"), "<Kd          Fr.exp.     Met D1   Met C2   Met D2   BR/CO2 >");
    EXPECT_EQ(header("D1"), "<Kd          Fr.exp.     BR/CO2   Met D2   BR/CO2   BR/CO2 >");
    EXPECT_EQ(header("A2"), "<Kd          Fr.exp.     Met B2   BR/CO2 >");
    EXPECT_EQ(header("B2"), "<Kd          Fr.exp.     Met C2   BR/CO2 >");
    EXPECT_EQ(header("C2"), "<Kd          Fr.exp.     Met D2   BR/CO2 >");
    EXPECT_EQ(header("D2"), "<Kd          Fr.exp.     BR/CO2   BR/CO2 >");
}

TEST(Pesticide_Writer, Refuses_Counts_Beyond_What_The_Document_Holds)
{
    auto horizons = Example_Document();
    horizons->N_Horizons = 3;
    EXPECT_THROW(Format_PSM(*horizons), File_Error);

    auto applications = Example_Document();
    applications->App_Count[1] = 522;
    EXPECT_THROW(Format_PSM(*applications), File_Error);

    auto locations = Example_Document();
    locations->App_Loc_Count = 11;
    EXPECT_THROW(Format_PSM(*locations), File_Error);
}

} // namespace orvel
