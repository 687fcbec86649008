#include "files/broken_line.h"
#include "files/climate_file.h"
#include "parsed.h"
#include "pesticide_example.h"
#include "recording_user.h"
#include "scenario_example.h"

#include <gtest/gtest.h>

namespace orvel {

namespace {

std::optional<std::string> Name_Of_Lost(const std::optional<Lost_Field>& lost)
{
    return lost ? std::optional(lost->Name) : std::nullopt;
}

template <class Change> std::optional<std::string> Lost_In_PSM(Change change)
{
    auto document = Example_Document();
    change(*document);
    return Name_Of_Lost(Broken_By_Layout(*document));
}

template <class Change> std::optional<std::string> Lost_In_SZE(Change change)
{
    auto document = Example_Scenario();
    change(document);
    return Name_Of_Lost(Broken_By_Layout(document));
}

constexpr std::optional<std::string> Nothing = std::nullopt;

} // namespace

TEST(Broken_Line, Nothing_Is_Lost_From_The_Examples)
{
    EXPECT_EQ(Broken_By_Layout(*Example_Document()), std::nullopt);
    EXPECT_EQ(Broken_By_Layout(Example_Scenario()), std::nullopt);
    EXPECT_EQ(Broken_By_Layout(Parse_CLI("T\r\n 0101811.5\r\n\r\n")), std::nullopt);
}

TEST(Broken_Line, Leaves_The_Document_As_It_Is)
{
    const auto document = Example_Document();
    document->Solubility[0] = 0;

    Broken_By_Layout(*document);

    EXPECT_EQ(document->Henry_Flag, Variant(1));
}

TEST(Broken_Line, What_The_Layout_Itself_Changes_Is_Not_Lost)
{
    EXPECT_EQ(Lost_In_PSM([](auto& d) { d.Degradation[1][1].Deg_Rate = 0.02310490604; }), Nothing);
    EXPECT_EQ(Lost_In_PSM([](auto& d) { d.Molmass[1] = 1.0 / 3; }), Nothing);
    EXPECT_EQ(Lost_In_PSM([](auto& d) { d.Koc_Change[1] = 0; }), Nothing);
    EXPECT_EQ(Lost_In_PSM([](auto& d) { d.Sorp_pH[1] = 6; }), Nothing); // a pKa of 20 takes it
    EXPECT_EQ(Lost_In_PSM([](auto& d) { d.PSM_Title = "  blanks around "; }), Nothing);
    EXPECT_EQ(Lost_In_PSM([](auto& d) { d.Met_Present[2] = false; }), Nothing);
    EXPECT_EQ(Lost_In_SZE([](auto& d) { d.Crops[1].SZE_Rot_Tillage = 0; }),
              Nothing); // then no date of senescence is read
}

TEST(Broken_Line, Relative_Applications_Share_A_Reference_Point)
{
    EXPECT_EQ(Lost_In_PSM([](auto& d) {
                  d.App_Mode = 9;
                  d.App_Count[1] = 2;
                  d.Relative[2].Abs9_Month = 5;
              }),
              Nothing);
}

TEST(Broken_Line, Names_A_Value_Too_Wide_For_Its_Column)
{
    EXPECT_EQ(Lost_In_PSM([](auto& d) { d.Koc[1] = "1234567890123"; }), "Koc of Active Substance");
    EXPECT_EQ(Lost_In_PSM([](auto& d) { d.Koc[2] = "123456789012.5"; }), "Koc of Metabolite A1");
    EXPECT_EQ(Lost_In_PSM([](auto& d) { d.Applications[1][1].App_Day = 12345; }), "Day of application 1, location 1");
    EXPECT_EQ(Lost_In_SZE([](auto& d) { d.SZE_Core_Depth = 1234.567; }), "Core depth");
    EXPECT_EQ(Lost_In_SZE([](auto& d) { d.Rotation[1].SZE_Eme_Year = 100; }), "Emergence year of rotation row 2");
    EXPECT_EQ(Lost_In_SZE([](auto& d) { d.Horizons[1].SZE_Hor_OC = 0.123456; }), "Organic carbon of horizon 2");
}

TEST(Broken_Line, Names_A_Value_That_Runs_Into_Its_Neighbour)
{
    EXPECT_EQ(Lost_In_PSM([](auto& d) {
                  d.Koc[1] = "123456789012";
                  d.Fr_Exp[1] = "0.9";
              }),
              "Koc of Active Substance");
}

TEST(Broken_Line, Names_An_Empty_Field_And_A_Comma)
{
    EXPECT_EQ(Lost_In_PSM([](auto& d) { d.Koc[1] = ""; }), "Koc of Active Substance");
    EXPECT_EQ(Lost_In_PSM([](auto& d) { d.Koc[1] = "0,5"; }), "Koc of Active Substance");
}

TEST(Broken_Line, Names_A_Title_With_A_Bracket_And_A_Text_With_A_Line_End)
{
    EXPECT_EQ(Lost_In_PSM([](auto& d) { d.PSM_Title = "Rate < 5"; }), "Title");
    EXPECT_EQ(Lost_In_PSM([](auto& d) { d.Substance_Name[2] = "Be\r\nta"; }), "Name of Metabolite A1");
    EXPECT_EQ(Lost_In_SZE([](auto& d) { d.SZE_Title = "a\nb"; }), "Title");
    EXPECT_EQ(Name_Of_Lost(Broken_By_Layout(Climate_Table{"a\nb", {}})), "Title");
}

TEST(Broken_Line, Names_A_Climate_Number_Wider_Than_Ten_Characters)
{
    Climate_Table table{
        "T",
        {{.Cli_Day = "00"},
         {.Cli_Day = "01", .Cli_Month = "01", .Cli_Year = "81", .Cli_Temp_14 = -9.99999999, .Cli_Temp_Mean = -1.5}}};

    EXPECT_EQ(Name_Of_Lost(Broken_By_Layout(table)), "Temperature at 14.00 of day 1");
}

TEST(Broken_Line, Names_The_Cause)
{
    const auto cause = [](auto change) {
        auto document = Example_Document();
        change(*document);
        return Broken_By_Layout(*document).value_or(Lost_Field{}).Cause;
    };

    EXPECT_EQ(cause([](auto& d) { d.PSM_Title = "Rate < 5"; }), "holds a \"<\", which ends a text in the file");
    EXPECT_EQ(cause([](auto& d) { d.Substance_Name[2] = "Be\r\nta"; }), "holds a line break");
    EXPECT_EQ(cause([](auto& d) { d.Koc[1] = ""; }), "is empty");
    EXPECT_EQ(cause([](auto& d) { d.Koc[1] = "1234567890123"; }), "is too long for its column");
}

TEST(Broken_Line, A_Document_That_Cannot_Be_Printed_Is_Broken)
{
    EXPECT_TRUE(Lost_In_PSM([](auto& d) { d.N_Horizons = 5; }).has_value());
    EXPECT_TRUE(Lost_In_SZE([](auto& d) { d.SZE_Horizons = 5; }).has_value());
    EXPECT_TRUE(Lost_In_SZE([](auto& d) { d.SZE_Horizons = 2.22e24; }).has_value());
}

TEST(May_Save, Asks_Only_Where_A_Field_Is_Lost_And_Takes_No_For_The_Default)
{
    Session session;
    Recording_User user;
    session.Ask = std::ref(user);

    EXPECT_TRUE(May_Save(session, Example_Scenario()));
    EXPECT_TRUE(user.Messages.empty());

    auto broken = Example_Scenario();
    broken.SZE_Core_Depth = 1234.567;
    EXPECT_FALSE(May_Save(session, broken));
    user.Answers = {Button::Yes};
    EXPECT_TRUE(May_Save(session, broken));
    ASSERT_EQ(user.Messages.size(), 2U);
    EXPECT_EQ(user.Messages[0].Title, "Saving Input File");
    EXPECT_NE(user.Messages[0].Text.find("\"Core depth\""), std::string::npos);
}

} // namespace orvel
