#include "parsed.h"
#include "scenario_example.h"

#include <gtest/gtest.h>

namespace orvel {

namespace {

constexpr std::string_view Crop_Without_Tillage = "    0.1    0.3    0.4    0.5    0    1    0    1.05    0.75 \r\n";
constexpr std::string_view Crop_With_Tillage = "    0.1    0.3    0.4    0.5    0    1    1    1.05    0.75 \r\n";

// The older form: crop rows end with the dry mass, rotation rows with the crop.
std::string Old_Form(std::string_view marker)
{
    auto text =
        Scenario_File(marker, "    2 \r\n  120401  030601  090801      01\r\n  011001  150502  010802      02\r\n");
    text = With(text, "    0.2    0.2    0.2    0.2    1    0    0    1    1 \r\n", "\r\n");
    return With(text, Crop_With_Tillage, "\r\n");
}

} // namespace

TEST(Scenario_Writer, Writes_The_Example_Byte_For_Byte)
{
    auto document = Example_Scenario();

    EXPECT_EQ(Format_SZE(document), Scenario_File());
    EXPECT_EQ(document.SZE_First_Crop, 3);
}

TEST(Scenario_Writer, Writes_No_Date_Of_Tillage_And_The_Other_Marker_Without_A_Crop_With_Tillage)
{
    auto document = Example_Scenario();
    document.Crops[1].SZE_Rot_Tillage = 0;

    EXPECT_EQ(
        Format_SZE(document),
        With(Scenario_File(
                 "ORVEL401",
                 "    2 \r\n  120401  030601  090801      01  200701\r\n  011001  150502  010802      02  020702\r\n"),
             Crop_With_Tillage, Crop_Without_Tillage));
}

TEST(Scenario_Writer, Sums_Tillage_Over_As_Many_Crop_Rows_As_There_Are_Rotation_Rows)
{
    auto document = Example_Scenario();
    document.SZE_Rot_Count = 1; // the crop with tillage is the second

    EXPECT_NE(Format_SZE(document).find("ORVEL401\r\n"), std::string::npos);

    document.SZE_Rot_Count = 3;
    document.Rotation.resize(3);
    EXPECT_NE(Format_SZE(document).find("ORVEL400TILLAGE\r\n"), std::string::npos);
}

TEST(Scenario_Writer, Writes_No_Rows_For_No_Rotation)
{
    auto document = Example_Scenario();
    document.SZE_Rot_Count = 0;
    document.Rotation.clear();

    const auto text = Format_SZE(document);

    EXPECT_EQ(Line_Of(text, 8), "    0 ");
    EXPECT_EQ(Line_Of(text, 9), Line_Of(Scenario_Soil, 1));
    EXPECT_EQ(Parsed_SZE(text).SZE_Rot_Count, 0);
}

TEST(Scenario_Writer, Without_Erosion_There_Is_No_Erosion_Line_And_The_Lines_Shift_By_One)
{
    for (const std::int16_t erosion : {std::int16_t{0}, std::int16_t{2}}) {
        auto document = Example_Scenario();
        document.SZE_Erosion = erosion;

        const auto text = Format_SZE(document);

        EXPECT_EQ(Line_Of(text, 3), Print_Form(erosion));
        EXPECT_EQ(Line_Of(text, 4), " 2 ");
        EXPECT_EQ(Parsed_SZE(text).SZE_Crop_Count, 2);
    }
}

TEST(Scenario_Writer, Writes_The_First_Crop_Number_As_0_Without_Crops)
{
    auto document = Example_Scenario();
    document.SZE_Crop_Count = 0;
    document.SZE_First_Crop = 5;

    EXPECT_EQ(Line_Of(Format_SZE(document), 2), " 1    0.46    3    15.5    0    1    1    1   ORVEL401");
    EXPECT_EQ(document.SZE_First_Crop, 0);
}

TEST(Scenario_Writer, Writes_Field_Capacity_And_Wilting_Point_With_Hydraulic_Flag_0)
{
    auto document = Example_Scenario();
    document.SZE_Hydraulic_Flag = 0;
    document.Horizons[0].SZE_Hor_FC = 0.292;
    document.Horizons[0].SZE_Hor_WP = "0.064";

    const auto text = Format_SZE(document);

    EXPECT_EQ(Line_Behind(text, "    1   30 "), "        0.292  0.064    1.5     6.4     1 ");
    const auto read = Parsed_SZE(text);
    EXPECT_EQ(read.Horizons[0].SZE_Hor_FC, Variant(0.292));
    EXPECT_EQ(read.Horizons[0].SZE_Hor_WP, Variant(0.064));
    EXPECT_EQ(read.Horizons[0].SZE_Hor_Sand, Variant(0));
    EXPECT_EQ(read.Horizons[0].SZE_Hor_Clay, 0);
}

TEST(Scenario_Writer, Writes_Drainage_As_A_Number_Even_Where_It_Was_Typed)
{
    auto document = Example_Scenario();
    document.Horizons[0].SZE_Hor_Drainage = "0.250";
    document.Horizons[0].SZE_Hor_Soil_Water = "0.250";

    EXPECT_EQ(Line_Behind(Format_SZE(document), " 2             1 "), "    1   30      1.35    5      0.250    0.25 ");
}

TEST(Scenario_Writer, An_Empty_Frequency_Becomes_Daily_With_Its_Leading_Blank)
{
    auto document = Example_Scenario();
    document.SZE_Freq_Conc = "";

    const auto text = Format_SZE(document);

    EXPECT_NE(text.find("    WATR     DAY    0001    PEST    MNTH    0001    CONC     DAY    0010\r\n"),
              std::string::npos);
    EXPECT_EQ(document.SZE_Freq_Water, Variant::Verbatim(" DAY"));
    EXPECT_EQ(document.SZE_Freq_Solute, Variant("MNTH"));
    EXPECT_EQ(Format_SZE(document), text); // the blank is kept as long as the document is open
}

TEST(Scenario_Writer, Refuses_Counts_Beyond_What_The_Document_Holds)
{
    for (const auto change :
         {+[](Scenario_Document& d) { d.SZE_Crop_Count = 3; }, +[](Scenario_Document& d) { d.SZE_Rot_Count = 3; },
          +[](Scenario_Document& d) { d.SZE_Horizons = 3; }, +[](Scenario_Document& d) { d.SZE_Rot_Count = -1; }}) {
        auto document = Example_Scenario();
        change(document);
        EXPECT_THROW(Format_SZE(document), File_Error);
    }
}

TEST(Scenario_Reader, Reads_The_Example)
{
    auto expected = Example_Scenario();
    expected.SZE_First_Crop = 3;
    expected.SZE_Freq_Water = "DAY";

    EXPECT_EQ(Parsed_SZE(Scenario_File()), expected);
}

TEST(Scenario_Reader, Reads_Lines_That_End_In_LF_Alone)
{
    EXPECT_EQ(Parsed_SZE(Replace_All(Scenario_File(), "\r\n", "\n")), Parsed_SZE(Scenario_File()));
}

TEST(Scenario_Reader, Sets_Senescence_To_Harvest_And_Derives_Tillage_Without_Tillage_In_The_Marker)
{
    const auto document = Parsed_SZE(Scenario_File("ORVEL401"));

    EXPECT_EQ(document.Rotation[0].SZE_Sen_Day, Variant(9)); // 20 July is dropped though it stands in the line
    EXPECT_EQ(document.Rotation[0].SZE_Sen_Month, Variant(8));
    EXPECT_EQ(document.Rotation[0].SZE_Sen_Year, 1);
    EXPECT_EQ(document.Rotation[0].SZE_Til_Day, 11);
    EXPECT_EQ(document.Rotation[0].SZE_Til_Month, 4);
    EXPECT_EQ(document.Rotation[0].SZE_Til_Year, 1);
}

TEST(Scenario_Reader, Derives_Tillage_On_The_15th_Of_The_Month_Before_For_Emergence_On_The_1st)
{
    const auto document = Parsed_SZE(Scenario_File("ORVEL401"));

    EXPECT_EQ(document.Rotation[1].SZE_Til_Day, 15);
    EXPECT_EQ(document.Rotation[1].SZE_Til_Month, 9);
}

TEST(Scenario_Reader, Does_Not_Wrap_The_Month_Of_A_Tillage_Before_The_1st_Of_January)
{
    const auto document = Parsed_SZE(With(Scenario_File("ORVEL401"), "  120401 ", "  010103 "));

    EXPECT_EQ(document.Rotation[0].SZE_Til_Day, 15);
    EXPECT_EQ(document.Rotation[0].SZE_Til_Month, 0);
    EXPECT_EQ(document.Rotation[0].SZE_Til_Year, 3);
}

TEST(Scenario_Reader, The_Plain_Marker_Keeps_Senescence_And_Replaces_Tillage)
{
    const auto document = Parsed_SZE(With(Scenario_File("ORVEL400"), "110401\r\n", "250301\r\n"));

    EXPECT_EQ(document.Rotation[0].SZE_Sen_Day, Variant(20));
    EXPECT_EQ(document.Rotation[0].SZE_Til_Day, 11);
    EXPECT_EQ(document.Rotation[0].SZE_Til_Month, 4);
}

TEST(Scenario_Reader, A_File_Read_And_Written_Can_Change_Its_Marker)
{
    auto document = Parsed_SZE(With(Scenario_File("ORVEL400"), Crop_With_Tillage, Crop_Without_Tillage));

    EXPECT_NE(Format_SZE(document).find("ORVEL401\r\n"), std::string::npos);
}

TEST(Scenario_Reader, Reads_The_Older_Form_With_The_Defaults_Of_The_Extended_Fields)
{
    for (const auto marker : {"", "ORVEL3", "orvel401"}) {
        const auto document = Parsed_SZE(Old_Form(marker));

        const auto& crop = document.Crops.at(1);
        EXPECT_EQ(crop.SZE_Rot_Text1, Variant(60)) << marker;
        EXPECT_EQ(crop.SZE_Rot_RR_Photo, 0.2);
        EXPECT_EQ(crop.SZE_Rot_RR_Pen, 0.2);
        EXPECT_EQ(crop.SZE_Rot_RR_Vol, 0.2);
        EXPECT_EQ(crop.SZE_Rot_RR_Wash, 0.2);
        EXPECT_EQ(crop.SZE_Rot_Irrigated, 1);
        EXPECT_EQ(crop.SZE_Rot_Perennial, 0);
        EXPECT_EQ(crop.SZE_Rot_Tillage, 0);
        EXPECT_EQ(crop.SZE_Rot_Kc_Mid, 1);
        EXPECT_EQ(crop.SZE_Rot_Kc_Late, 1);
        EXPECT_EQ(document.Rotation.at(1).SZE_Sen_Day, Variant(1));
        EXPECT_EQ(document.Rotation[1].SZE_Til_Day, 15);
        EXPECT_EQ(document.SZE_Latitude, 52.5);
    }
}

TEST(Scenario_Reader, Takes_A_Dispersion_Flag_With_A_Fraction_As_0)
{
    const auto flag = [](std::string_view text) {
        return Parsed_SZE(With(Scenario_File(), " 100    1 ", " 100    " + std::string(text) + " "))
            .SZE_Dispersion_Flag;
    };

    EXPECT_EQ(flag("1"), 1);
    EXPECT_EQ(flag("1.005"), 1);
    EXPECT_EQ(flag("2.5"), 0);
    EXPECT_EQ(flag("0.999"), 0);
    EXPECT_EQ(flag("-1"), -1);
}

TEST(Scenario_Reader, Takes_Runoff_From_The_Water_Flag)
{
    EXPECT_EQ(Parsed_SZE(Scenario_File()).SZE_Runoff, 1);
    EXPECT_EQ(Parsed_SZE(With(Scenario_File(), "1       2 \r\n", "1       1 \r\n")).SZE_Runoff, 0);
}

TEST(Scenario_Reader, Drops_The_Tags_Of_The_Output_Line)
{
    const auto document =
        Parsed_SZE(With(Scenario_File(), "    WATR     DAY    0001    PEST    MNTH    0001    CONC    MNTH    0010",
                        "x YEAR 3 y MNTH 4 z DAY 5"));

    EXPECT_EQ(document.SZE_Freq_Water, Variant("YEAR"));
    EXPECT_EQ(document.SZE_Out_Every_Solute, Variant(4));
    EXPECT_EQ(document.SZE_Freq_Conc, Variant("DAY"));
    EXPECT_EQ(document.SZE_Out_Every_Conc, Variant(5));
}

TEST(Scenario_Reader, Refuses_A_File_Cut_Behind_Any_Line_And_Keeps_What_It_Has_Read)
{
    const auto whole = Scenario_File();
    for (auto end = whole.find("\r\n"); end + 2 < whole.size(); end = whole.find("\r\n", end + 2))
        EXPECT_THROW(Parsed_SZE(whole.substr(0, end + 2)), File_Error) << end;

    Scenario_Document document;
    Reset_SZE(document);
    EXPECT_THROW(Parse_SZE(whole.substr(0, whole.find("  120401")), document), File_Error);
    EXPECT_EQ(document.Crops.size(), 2U);
}

TEST(Scenario_Reader, Refuses_Counts_Below_0_Or_Without_Their_Lines)
{
    const auto count = [](std::string_view before, std::string_view text) {
        return With(Scenario_File(), before, text);
    };

    EXPECT_THROW(Parsed_SZE(count("    2 \r\n  12", "   -1 \r\n  12")), File_Error);
    EXPECT_THROW(Parsed_SZE(count("    2 \r\n  12", "    32767 \r\n  12")), File_Error);
    EXPECT_THROW(Parsed_SZE(count("    2 \r\n  12", "    32768 \r\n  12")), File_Error);
    EXPECT_THROW(Parsed_SZE(count(" 2 \r\n 3 ", "-1 \r\n 3 ")), File_Error);
    EXPECT_THROW(Parsed_SZE(count(" 2             1 ", " 1E+12             1 ")), File_Error);
    EXPECT_THROW(Parsed_SZE(count(" 2             1 ", "-2             1 ")), File_Error);
}

} // namespace orvel
