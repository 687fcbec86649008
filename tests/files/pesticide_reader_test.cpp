#include "parsed.h"
#include "pesticide_example.h"
#include "substance/pathway.h"

#include <gtest/gtest.h>

namespace orvel {

namespace {

constexpr std::string_view Comment = "Demo compound     <Alpha>";
constexpr std::string_view Depth_Mode_Line =
    " 5                 <0 = degradation according to degradation factors, 1 = constant with depth,2 individual,3 = "
    "degradation "
    "according to degradation factors, 4 = constant with depth,5 individual, >2 deg in liquid phase only)\r\n";

std::string With_Comment(std::string_view comment)
{
    return With(Example_File(), Comment, comment);
}

std::string Name_Read_From(std::string_view comment)
{
    return Parsed_PSM(With_Comment(comment))->Substance_Name[1];
}

// The older form: one value line for volatilisation.
std::string Without_Temperature()
{
    auto text = With(Example_File(), "  Hv        Temperature>", ">");
    text = With(text, "0.00E+00     100    300   1.00E-05     0.05    0.1    98400    20 \r\n",
                "3.50E-02     100    300   1.00E-05     0.05    0.1 \r\n");
    return With(text, "0.00E+00     200    300   4.00E-05     0.05    0.1    98400    30 \r\n", "");
}

// The still older form: neither a depth mode nor photodegradation.
std::string Without_Depth_Mode()
{
    return With(
        With(Example_File(), Depth_Mode_Line, ""),
        "<PHOTODEGRADATION>\r\n<rate 1/n>  <I_Ref W/m\xB2>\r\n 0   500  0   500  0   500  0   500  0   500 \r\n", "");
}

} // namespace

TEST(Pesticide_Reader, Reads_The_Example_And_Writes_It_Unchanged)
{
    EXPECT_EQ(Format_PSM(*Parsed_PSM(Example_File())), Example_File());
}

TEST(Pesticide_Reader, Reads_Every_Field_Of_The_Example)
{
    auto expected = Example_Document();
    expected->App_Rel_Flag = 0; // the "0" of the count line
    expected->Sorp_pH[1] = -99; // a pKa of 20 took it
    Format_PSM(*expected);

    const auto read = Parsed_PSM(Example_File());

    EXPECT_EQ(read->Applications[1][1], expected->Applications[1][1]);
    EXPECT_EQ(read->App_Location, expected->App_Location);
    EXPECT_EQ(read->App_Count, expected->App_Count);
    EXPECT_EQ(read->Degradation, expected->Degradation);
    EXPECT_EQ(read->Deg_Depth_Mode, expected->Deg_Depth_Mode);
    EXPECT_EQ(read->Deg_Liquid_Only, expected->Deg_Liquid_Only);
    EXPECT_EQ(read->Henry, expected->Henry);
    EXPECT_EQ(read->Solubility, expected->Solubility);
    EXPECT_EQ(read->Vap_Press, expected->Vap_Press);
    EXPECT_EQ(read->Volat_Temp, expected->Volat_Temp);
    EXPECT_EQ(read->Molmass, expected->Molmass);
    EXPECT_EQ(read->Koc, expected->Koc);
    EXPECT_EQ(read->Koc2, expected->Koc2);
    EXPECT_EQ(read->Sorp_pH, expected->Sorp_pH);
    EXPECT_EQ(read->Sorp_pKa, expected->Sorp_pKa);
    EXPECT_EQ(read->Substance_Name, expected->Substance_Name);
    EXPECT_EQ(read->Met_Present, expected->Met_Present);
    EXPECT_EQ(read->Horizons.size(), 3U);
    EXPECT_EQ(read->Horizons[1].Hor_Deg[1], expected->Horizons[1].Hor_Deg[1]);
    EXPECT_EQ(read->Horizons[1].Hor_Deg[2][4], Variant(0.2));
    EXPECT_EQ(read->Horizons[1].Hor_Deg[3][4], Variant(1));
    EXPECT_EQ(read->Horizons[1].Hor_FrExp[3], Variant(0.9));
    EXPECT_FALSE(read->PSM_Legacy_Volat);
}

TEST(Pesticide_Reader, Reads_Lines_That_End_In_LF_Alone)
{
    EXPECT_EQ(*Parsed_PSM(Replace_All(Example_File(), "\r\n", "\n")), *Parsed_PSM(Example_File()));
}

TEST(Pesticide_Reader, Does_Not_Depend_On_Tags_Or_Columns)
{
    auto text = With(Example_File(), "<END PLANT UPTAKE>", "anything");
    text = With(text, "05  11  01   0.75    2    90    0.25    12   <day month year app_rate app_depth frpex time>",
                "5 11 1 .75 2 90 0.25 12");

    EXPECT_EQ(Format_PSM(*Parsed_PSM(text)), Example_File());
}

TEST(Pesticide_Reader, Cuts_A_Title_At_Its_Bracket_And_Takes_The_Rest_As_The_Name)
{
    const auto document = Parsed_PSM(With_Comment("Rate < 5     <Alpha>"));

    EXPECT_EQ(document->PSM_Title, "Rate");
    EXPECT_EQ(document->Substance_Name[1], "5     <Alpha");
}

TEST(Pesticide_Reader, Keeps_The_Default_Name_Without_A_Bracket)
{
    const auto document = Parsed_PSM(With_Comment("  Demo compound "));

    EXPECT_EQ(document->PSM_Title, "Demo compound");
    EXPECT_EQ(document->Substance_Name[1], "Active Substance");
}

TEST(Pesticide_Reader, Keeps_The_Default_Name_Where_The_Bracket_Is_The_Last_Character)
{
    EXPECT_EQ(Name_Read_From("Demo <"), "Active Substance");
}

TEST(Pesticide_Reader, Gives_An_Empty_Name_For_Blanks_Behind_The_Bracket)
{
    EXPECT_EQ(Name_Read_From("Demo <   "), "");
    EXPECT_EQ(Name_Read_From("Demo <>"), "");
}

TEST(Pesticide_Reader, Doubles_And_Quadruples_The_Second_Point_Of_A_File_Without_Temperatures)
{
    const auto document = Parsed_PSM(Without_Temperature());

    EXPECT_TRUE(document->PSM_Legacy_Volat);
    EXPECT_EQ(document->Henry, (std::array<double, 2>{0.035, 0.07}));
    EXPECT_EQ(document->Solubility, (std::array<double, 2>{100, 200}));
    EXPECT_EQ(document->Vap_Press, (std::array<double, 2>{0.00001, 0.00004}));
    EXPECT_EQ(document->Volat_Temp, (std::array<double, 2>{20, 30}));
    EXPECT_EQ(document->Hv, 98400);
    EXPECT_EQ(document->Degradation[1][1].Deg_Rate, Variant(0.0231049)); // the lines behind are not shifted

    const auto text = Format_PSM(*document);
    EXPECT_EQ(Line_Behind(text, "<henry "), "0.0350000    100    300   1.00E-05     0.05    0.1    98400    20 ");
    EXPECT_EQ(Line_Behind(text, "0.0350000 "), "0.0700000    200    300   4.00E-05     0.05    0.1    98400    30 ");
}

TEST(Pesticide_Reader, Reads_A_File_Without_Depth_Mode_And_Photodegradation)
{
    const auto document = Parsed_PSM(Without_Depth_Mode());

    EXPECT_EQ(document->Deg_Depth_Mode[1], 0);
    EXPECT_EQ(document->Deg_Liquid_Only[1], 0);
    EXPECT_EQ(document->Photo_I_Ref[1], 500);
    EXPECT_EQ(document->Koc[1], Variant(120.5));
    EXPECT_EQ(document->Substance_Name[2], "Beta");
}

TEST(Pesticide_Reader, Reads_A_Metabolite_Without_Depth_Mode)
{
    const auto section = Example_A1.find(" 0                 <0 = ");
    const auto a1 = std::string(Example_A1.substr(0, section)) +
                    std::string(Example_A1.substr(Example_A1.find("\r\n", section) + 2));

    const auto document = Parsed_PSM(With(Example_File(), Example_A1, a1));

    EXPECT_EQ(document->Sorp_pKa[2], Variant(4.5));
    EXPECT_EQ(document->Deg_Depth_Mode[2], 0);
}

TEST(Pesticide_Reader, Reads_A_Depth_Mode_Without_Photodegradation)
{
    const auto text = With(
        Example_File(),
        "<PHOTODEGRADATION>\r\n<rate 1/n>  <I_Ref W/m\xB2>\r\n 0   500  0   500  0   500  0   500  0   500 \r\n", "");

    EXPECT_EQ(Format_PSM(*Parsed_PSM(text)), Example_File());
}

TEST(Pesticide_Reader, Reads_Photodegradation)
{
    const auto document = Parsed_PSM(With(Example_File(), " 0   500  0   500 ", " 0.1   400  0.2   300 "));

    EXPECT_EQ(document->Photo_Rate[1], 0.1);
    EXPECT_EQ(document->Photo_I_Ref[2], 300);
    EXPECT_EQ(document->Photo_Rate[3], 0);
}

TEST(Pesticide_Reader, Splits_The_Depth_Mode_Into_Mode_And_Liquid_Flag)
{
    struct Case {
        std::string_view Text;
        int Mode, Liquid;
    };
    for (const auto& [text, mode, liquid] :
         {Case{" 0 ", 0, 0}, Case{" 2 ", 2, 0}, Case{" 3 ", 0, 1}, Case{" 4 ", 1, 1}}) {
        const auto document = Parsed_PSM(With(Example_File(), " 5                 <0 =", std::string(text) + "<0 ="));
        EXPECT_EQ(document->Deg_Depth_Mode[1], mode) << text;
        EXPECT_EQ(document->Deg_Liquid_Only[1], liquid) << text;
    }
}

TEST(Pesticide_Reader, Repairs_A_Change_Of_0_And_A_Second_pH_Of_0)
{
    const auto text = With(Example_File(), " 0.01             0      0     1    -99    -99     0     0 ",
                           " 0.01             0      0     0    -99    0     0     0 ");
    const auto document =
        Parsed_PSM(With(text, " 0.01             0      0     1     60     9     0     0 ", " 0.01 0 0 0 60"));

    EXPECT_EQ(document->Koc_Change[1], 1);
    EXPECT_EQ(document->Sorp_pH2[1], Variant(-99));
    EXPECT_EQ(document->Koc_Change[2], 1);
    EXPECT_EQ(document->Koc2[2], Variant(60));
    EXPECT_EQ(document->Sorp_pH2[2], Variant(-99));
}

TEST(Pesticide_Reader, Reads_Tokens_Missing_At_A_Lines_End_As_0_And_Not_As_The_Defaults)
{
    auto text = With(Example_File(), " 120.5       0.9 ", " 120.5 \r\n");
    text = text.substr(0, text.find(" 120.5 \r\n") + 9) + text.substr(text.find("<END ADSORPTION>"));

    const auto document = Parsed_PSM(text);

    EXPECT_EQ(document->Fr_Exp[1], Variant(0));
    EXPECT_EQ(document->Sorp_pKa[1], Variant(0));
    EXPECT_EQ(document->Freundl_Limit[1], Variant(0));
}

TEST(Pesticide_Reader, Takes_The_Filtration_Parameter_With_The_Exponential_Method_Alone)
{
    const auto foliar = [](std::string_view number) {
        return Parsed_PSM(With(Example_File(), Example_Method,
                               std::string(number) + " <method>\r\n 1  2  3  4  5  6  7 \r\n<END APPLICATION>\r\n"));
    };

    const auto linear = foliar("2");
    EXPECT_EQ(linear->Plant_Washoff, Variant(2));
    EXPECT_EQ(linear->Plant_Filtration, 0);
    EXPECT_EQ(linear->Plant_Penetration, 3);
    EXPECT_EQ(linear->Plant_Laminar, 6);

    const auto exponential = foliar("3");
    EXPECT_EQ(exponential->Plant_Filtration, 3);
    EXPECT_EQ(exponential->Plant_Penetration, 4);
    EXPECT_EQ(exponential->Plant_Photodeg, 5);
    EXPECT_EQ(exponential->Plant_Ref_Rad, 6);
    EXPECT_EQ(exponential->Plant_Laminar, 7);
}

TEST(Pesticide_Reader, Sorts_Metabolites_By_Name_And_Writes_Them_By_Index)
{
    const auto b1 = With(With(Example_A1, "METABOLITE A1     Beta", "METABOLITE B1     Gamma"), " 250 ", " 240 ");

    const auto document = Parsed_PSM(With(Example_File(), Example_A1, b1 + std::string(Example_A1)));

    EXPECT_EQ(document->Substance_Name[2], "Beta");
    EXPECT_EQ(document->Substance_Name[3], "Gamma");
    EXPECT_EQ(document->Molmass[3], Variant(240));
    const auto text = Format_PSM(*document);
    EXPECT_LT(text.find("METABOLITE A1"), text.find("METABOLITE B1"));
}

TEST(Pesticide_Reader, Marks_A_Section_Present_Even_Where_Nothing_Forms_The_Metabolite)
{
    const auto document = Parsed_PSM(With(Example_File(), "0.0231049 ", "0.00E+00  "));
    EXPECT_TRUE(document->Met_Present[2]);

    Update_Pathway(*document);
    EXPECT_EQ(Format_PSM(*document).find("METABOLITE"), std::string::npos); // it falls away
}

TEST(Pesticide_Reader, A_Formed_Metabolite_Without_A_Section_Is_Written_With_Defaults)
{
    const auto document = Parsed_PSM(With(Example_File(), Example_A1, ""));
    EXPECT_FALSE(document->Met_Present[2]);

    Update_Pathway(*document);
    const auto text = Format_PSM(*document);
    EXPECT_EQ(Line_Behind(text, "METABOLITE A1"), "<END COMMENT>");
    EXPECT_EQ(
        Line_Behind(text.substr(text.find("METABOLITE A1")), "<Koc-value"),
        " 0.7         0.9        -99          20          0.01             0      0     1    -99    -99     0     0 ");
}

TEST(Pesticide_Reader, Keeps_Nothing_Of_The_Document_Before)
{
    auto document = Example_Document();
    document->K_des[2] = 5;
    document->Applications[3][30].App_Rate = 5;
    document->Deg_Liquid_Only[3] = 1;

    Parse_PSM(Example_File(), *document);

    EXPECT_EQ(*document, *Parsed_PSM(Example_File()));
}

TEST(Pesticide_Reader, Keeps_Titles_As_Bytes_Without_Any_Umlaut_Mapping)
{
    const auto document = Parsed_PSM(With_Comment("\x81\xFC\xE1 <\x83\xDF>"));

    EXPECT_EQ(document->PSM_Title, "\x81\xFC\xE1");
    EXPECT_EQ(document->Substance_Name[1], "\x83\xDF");
}

TEST(Pesticide_Reader, Refuses_A_File_Cut_Behind_Any_Line_And_Keeps_What_It_Has_Read)
{
    const auto whole = Example_File();
    for (auto end = whole.find("\r\n"); end + 2 < whole.size(); end = whole.find("\r\n", end + 2))
        EXPECT_THROW(Parsed_PSM(whole.substr(0, end + 2)), File_Error) << end;

    auto document = std::make_unique<Pesticide_Document>();
    EXPECT_THROW(Parse_PSM(whole.substr(0, whole.find("<FLAGS>")), *document), File_Error);
    EXPECT_EQ(document->PSM_Title, "Demo compound");
    EXPECT_EQ(document->Applications[1][1].App_Rate, 0.75);
}

TEST(Pesticide_Reader, Refuses_Counts_Beyond_The_Arrays_With_All_Their_Lines_Present)
{
    std::string locations, applications;
    for (int i = 0; i < 11; ++i)
        locations += "000         H   <number of application location>\r\n";
    for (int i = 0; i < 522; ++i)
        applications += "01  01  01   1    0    0    0    0 \r\n";
    const auto file = [](std::string_view lines) { return With(Example_File(), Example_Applications, lines); };

    EXPECT_THROW(Parsed_PSM(file(" 11    0    1 \r\n" + locations)), File_Error);
    EXPECT_THROW(Parsed_PSM(file(" 1    0    1 \r\n522 \r\n" + applications)), File_Error);
    EXPECT_NO_THROW(Parsed_PSM(file(" 10    0    1 \r\n" + locations.substr(0, 10 * locations.size() / 11))));
    EXPECT_EQ(Parsed_PSM(file(" 1    0    1 \r\n521 \r\n" + applications.substr(0, 521 * applications.size() / 522)))
                  ->Applications[0][521]
                  .App_Rate,
              1);
    EXPECT_THROW(Parsed_PSM(file("-1    0    1 \r\n")), File_Error);
}

TEST(Pesticide_Reader, Refuses_An_Integer_Outside_16_Bits_And_A_Count_Without_Bounds)
{
    EXPECT_THROW(Parsed_PSM(With(Example_File(), "05  11  01 ", "05  11  32768 ")), File_Error);
    EXPECT_THROW(Parsed_PSM(With(Example_File(), "\r\n 1 \r\n", "\r\n 1E+99 \r\n")), File_Error);
    EXPECT_THROW(Parsed_PSM(With(Example_File(), "\r\n 1 \r\n", "\r\n-1 \r\n")), File_Error);
    EXPECT_THROW(Parsed_PSM(With(Example_File(), "\r\n 1 \r\n", "\r\n 401 \r\n")), File_Error);
    EXPECT_THROW(Parsed_PSM(With(Example_File(), " 5                 <0 =", "-1 <0 =")), File_Error);
}

TEST(Pesticide_Reader, Rounds_Integers_With_Halves_To_The_Even_Number)
{
    const auto document = Parsed_PSM(With(Example_File(), "05  11  01 ", "4.5  11.5  0.6 "));

    EXPECT_EQ(document->Applications[1][1].App_Day, 4);
    EXPECT_EQ(document->Applications[1][1].App_Month, 12);
    EXPECT_EQ(document->Applications[1][1].App_Year, 1);
}

TEST(Pesticide_Reader, Refuses_A_Ninth_Section_An_Unknown_One_And_A_Missing_End)
{
    std::string eight;
    for (int i = 0; i < 8; ++i)
        eight += Example_A1;

    EXPECT_NO_THROW(Parsed_PSM(With(Example_File(), Example_A1, eight)));
    EXPECT_THROW(Parsed_PSM(With(Example_File(), Example_A1, eight + std::string(Example_A1))), File_Error);
    EXPECT_THROW(Parsed_PSM(With(Example_File(), "METABOLITE A1", "METABOLITE A3")), File_Error);
    EXPECT_THROW(Parsed_PSM(With(Example_File(), "<END PSM>", "<end psm>")), File_Error);
}

TEST(Pesticide_Reader, Takes_The_End_With_Blanks_Around_It)
{
    EXPECT_NO_THROW(Parsed_PSM(With(Example_File(), "<END PSM>", "  <END PSM> ")));
}

} // namespace orvel
