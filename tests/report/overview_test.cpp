#include "report/overview.h"

#include "core/csv.h"
#include "core/files.h"
#include "core/json_reader.h"
#include "report/overview_formats.h"
#include "report/overview_settings.h"
#include "temporary_directory.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace orvel {

namespace {

using Texts = std::vector<std::string>;

Overview_Run Done(const std::string& location, std::vector<Overview_Figure> figures)
{
    return {.Pesticide = "p",
            .Crop = "Maize",
            .Location = location,
            .Kind = Cell_Kind::Figure,
            .Verdict = Verdict::Complete,
            .Checked = true,
            .Years = 26,
            .Figures = std::move(figures)};
}

Overview_Run Waiting(const std::string& location, Cell_Kind kind, Verdict verdict)
{
    return {.Pesticide = "p", .Crop = "Maize", .Location = location, .Kind = kind, .Verdict = verdict};
}

Overview_Figure Conc(const std::string& substance, double value, const std::string& text)
{
    return {substance, value, text, value > 0.1};
}

Overview Arranged(std::vector<Overview_Run> runs, const Texts& codes = {})
{
    return Arrange_Overview(Mode_Kind::Focus, "What they are", std::move(runs), codes);
}

Texts Cells_Of(const Overview& overview, std::size_t row)
{
    Texts texts;
    for (std::size_t column = 0; column < overview.Columns.size(); ++column)
        texts.push_back(Cell_Text(overview, overview.Rows.at(row), column));
    return texts;
}

} // namespace

TEST(Overview, Has_A_Row_A_Substance_With_Metabolites_Under_Their_Parent_And_A_Column_A_Location)
{
    const auto overview = Arranged({Done("Sevilla (S), irrigated", {Conc("A", 0.05, "0.050"), Conc("M1", 2, "2.000")}),
                                    Done("Hamburg (H)", {Conc("A", 0.2, "0.200"), Conc("M1", 1, "1.000")})});

    EXPECT_EQ(overview.Columns, (Texts{"Hamburg (H)", "Sevilla (S)"})); // in the order of all locations
    ASSERT_EQ(overview.Rows.size(), 2U);
    EXPECT_EQ(overview.Rows[0].Substance, "A");
    EXPECT_FALSE(overview.Rows[0].Is_Metabolite);
    EXPECT_TRUE(overview.Rows[1].Is_Metabolite);
    EXPECT_EQ(Cells_Of(overview, 0), (Texts{"0.200", "0.050"}));
    EXPECT_EQ(Cells_Of(overview, 1), (Texts{"1.000", "2.000"}));
    EXPECT_EQ(Highest_Text(overview, overview.Rows[0]), "0.200");
    EXPECT_EQ(overview.Columns[static_cast<std::size_t>(overview.Rows[1].Highest)], "Sevilla (S)");
    EXPECT_EQ(Above_Text(overview.Rows[0]), "1 of 2");
    EXPECT_EQ(Above_Text(overview.Rows[1]), "2 of 2");
}

TEST(Overview, A_Run_Without_A_Figure_Tells_Its_State)
{
    auto running = Waiting("Hamburg (H)", Cell_Kind::Running, Verdict::Running);
    running.Percent = 41;
    auto short_one = Waiting("Jokioinen (J)", Cell_Kind::Incomplete, Verdict::Incomplete);
    short_one.Years = 12;
    short_one.Years_Expected = 26;

    const auto overview = Arranged({Waiting("Ch\xE2teaudun (C)", Cell_Kind::Scheduled, Verdict::Scheduled), running,
                                    short_one, Waiting("Porto (O)", Cell_Kind::Failed, Verdict::Failed),
                                    Waiting("Piacenza (P)", Cell_Kind::Changed, Verdict::Complete),
                                    Done("Thiva (T)", {Conc("A", 0, "0.000")})});

    EXPECT_EQ(Cells_Of(overview, 0),
              (Texts{"scheduled", "running 41 %", "incomplete: 12 of 26 years", "changed since", "failed", "0.000"}));
    EXPECT_EQ(Above_Text(overview.Rows[0]), "0 of 1; 5 without a figure");
    EXPECT_EQ(Verdict_Word(overview.Runs[4]), "changed");
}

TEST(Overview, A_Figure_That_Is_Not_Proven_Says_So_In_Its_Cell)
{
    auto unrecorded = Done("Hamburg (H)", {Conc("A", 1, "1.000")});
    unrecorded.Verdict = Verdict::Unrecorded;
    auto copied = Done("Porto (O)", {Conc("A", 2, "2.000")});
    copied.Checked = false;
    auto older = Done("Thiva (T)", {Conc("A", 3, "3.000")});
    older.Changed_Inputs = {{"q.cli", "Cannot read q.cli."}, {"p.psm", ""}};
    auto unread = Done("Piacenza (P)", {Conc("A", 4, "4.000")});
    unread.Changed_Inputs = {{"p.psm", "Cannot read p.psm."}};

    EXPECT_EQ(Cells_Of(Arranged({unrecorded, copied, older, unread}), 0),
              (Texts{"1.000 (unrecorded)", "4.000 (inputs unreadable)", "2.000 (not checked)",
                     "3.000 (inputs changed since)"}));
    EXPECT_EQ(Explanation_Of(unread).back(), "Cannot read p.psm.");
}

TEST(Overview, Chosen_Locations_Alone_Count)
{
    const auto overview =
        Arranged({Done("Hamburg (H)", {Conc("A", 5, "5.000")}), Done("Okehampton (N)", {Conc("A", 0.3, "0.300")}),
                  Done("Porto (O)", {Conc("A", 9, "9.000")})},
                 {"n", "H"});

    EXPECT_EQ(overview.Columns, (Texts{"Hamburg (H)", "Okehampton (N)"}));
    EXPECT_EQ(Highest_Text(overview, overview.Rows[0]), "5.000");
    EXPECT_EQ(Above_Text(overview.Rows[0]), "2 of 2");
}

TEST(Overview, A_Crop_That_Was_Run_Twice_At_A_Location_Has_Two_Columns)
{
    const auto overview = Arranged({Done("Sevilla (S), irrigated", {Conc("A", 1, "1.000")}),
                                    Done("Sevilla (S), no irrigation", {Conc("A", 2, "2.000")})});

    EXPECT_EQ(overview.Columns, (Texts{"Sevilla (S)", "Sevilla (S), no irrigation"}));
    EXPECT_EQ(Cells_Of(overview, 0), (Texts{"1.000", "2.000"}));
}

TEST(Overview, Total_Content_And_Pore_Water_Are_Never_Compared)
{
    auto total = Done("Total content - North (T_N)", {{"A", 3, "3.0000000", false}});
    auto pore = Done("Porewater concentration - North (P_N)", {{"A", 4, "4.0000000", false}});
    const auto overview = Arrange_Overview(Mode_Kind::Efsa, "", {total, pore});

    ASSERT_EQ(overview.Rows.size(), 2U);
    EXPECT_EQ(overview.Rows[0].Unit, "mg/kg");
    EXPECT_EQ(overview.Rows[1].Unit, "mg/L");
    EXPECT_EQ(Cells_Of(overview, 0), (Texts{"3.0000000", ""}));
    EXPECT_EQ(Overview_Csv(overview).find("Above"), std::string::npos); // the limit is that of water
}

namespace {

Overview Compared(std::vector<Overview_Run> runs, std::vector<Overview_Run> others)
{
    Compare_With(runs, {"older", std::move(others)});
    auto overview = Arranged(std::move(runs));
    overview.Compared_With = "older";
    return overview;
}

Texts Compared_Cells(const Overview& overview, std::size_t row)
{
    Texts texts;
    for (std::size_t column = 0; column < overview.Columns.size(); ++column)
        texts.push_back(Compared_Cell_Text(overview, overview.Rows.at(row), column));
    return texts;
}

} // namespace

TEST(Overview, One_That_Is_Compared_Shows_Both_Figures_And_Their_Ratio_In_Each_Cell)
{
    auto unrecorded = Done("Porto (O)", {Conc("A", 0.5, "0.500")});
    unrecorded.Verdict = Verdict::Unrecorded;
    const auto overview =
        Compared({Done("Hamburg (H)", {Conc("A", 0.2, "0.200"), Conc("M1", 0, "0.000")}),
                  Done("Porto (O)", {Conc("A", 0.5, "0.500"), Conc("M1", 2, "2.000")})},
                 {unrecorded, Done("Hamburg (H)", {Conc("A", 0.3, "0.300"), Conc("M1", 1, "1.000")})});

    EXPECT_EQ(Compared_Cells(overview, 0), (Texts{"0.200 | 0.300 | \xD7"
                                                  "1.50",
                                                  "0.500 | 0.500 (unrecorded) | \xD7"
                                                  "1"}));
    EXPECT_EQ(Compared_Cells(overview, 1), (Texts{"0.000 | 1.000", "2.000 | not simulated"})); // no ratio to nothing
    EXPECT_EQ(Highest_Text(overview, overview.Rows[0]), "0.500");                              // of this assessment
    EXPECT_EQ(Compared_Cells(Arranged({Done("Porto (O)", {Conc("A", 0.5, "0.500")})}), 0), Texts{"0.500"});
}

TEST(Overview, What_Only_One_Of_The_Two_Has_Is_Said_And_Counts_In_None)
{
    const auto overview = Compared({Waiting("Hamburg (H)", Cell_Kind::Scheduled, Verdict::Scheduled),
                                    Done("Thiva (T)", {Conc("A", 0.2, "0.200")})},
                                   {Done("Hamburg (H)", {Conc("A", 0.3, "0.300")}),
                                    Done("Porto (O)", {Conc("A", 5, "5.000"), Conc("Other", 1, "1.000")}),
                                    Waiting("Thiva (T)", Cell_Kind::Failed, Verdict::Failed)});

    EXPECT_EQ(overview.Columns, (Texts{"Hamburg (H)", "Porto (O)", "Thiva (T)"}));
    EXPECT_EQ(Compared_Cells(overview, 0), (Texts{"scheduled | 0.300", "not simulated | 5.000", "0.200 | failed"}));
    EXPECT_EQ(overview.Rows.at(1).Substance, "Other");
    EXPECT_EQ(Above_Text(overview.Rows[0]), "1 of 1; 1 without a figure");
    EXPECT_EQ(Highest_Text(overview, overview.Rows[0]), "0.200");
    EXPECT_EQ(Verdict_Word(*Run_At(overview, overview.Rows[0], 1)), "");
}

TEST(Overview, Formats_That_Are_Read_Cell_By_Cell_Have_Columns_For_The_Other_Figure_And_The_Ratio)
{
    const auto overview =
        Compared({Done("Hamburg (H)", {Conc("A", 0.2, "0.200")})}, {Done("Hamburg (H)", {Conc("A", 0.3, "0.300")})});

    const auto csv = Overview_Csv(overview);
    EXPECT_NE(csv.find("Substance,Hamburg (H),\"Hamburg (H), the other one\",\"Hamburg (H), ratio\",Highest"),
              std::string::npos)
        << csv;
    EXPECT_NE(csv.find("\r\np,Maize,A,0.200,0.300,1.50,0.200,"), std::string::npos) << csv;
    EXPECT_NE(Overview_Lines(overview).find("A\t0.200\t0.300\t1.50\t0.200"), std::string::npos);
    const auto sheet = Overview_Sheet(overview, {0.1});
    EXPECT_EQ(sheet.Rows.at(1).at(4).Number, 0.3);
    ASSERT_TRUE(sheet.Rows.at(1).at(5).Number);
    EXPECT_NEAR(*sheet.Rows.at(1).at(5).Number, 1.5, 1e-12);
    const auto json = Parse_Json(Overview_Json(overview));
    EXPECT_EQ(json.Elements().at(0).At("value").Number(), 0.2);
    EXPECT_EQ(json.Elements().at(0).At("other_value").Number(), 0.3);
    EXPECT_EQ(json.Elements().at(0).At("other_state").Text(), "");
    EXPECT_NEAR(json.Elements().at(0).At("ratio").Number(), 1.5, 1e-12);
    const auto page = Overview_Html(overview, {0.1});
    EXPECT_NE(page.find("> | 0.300 | \u00D7"
                        "1.50<"),
              std::string::npos)
        << page;
    EXPECT_NE(page.find("Compared with older: "), std::string::npos);
}

namespace {

// Of a colour 0xRRGGBB, as the guidelines for readable text define it.
double Luminance(std::uint32_t colour)
{
    const auto part = [&](unsigned shift) {
        const double value = ((colour >> shift) & 0xFFU) / 255.0;
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(16) + 0.7152 * part(8) + 0.0722 * part(0);
}

double Contrast(std::uint32_t one, std::uint32_t other)
{
    const double first = Luminance(one), second = Luminance(other);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

} // namespace

TEST(Overview, Every_Class_Can_Be_Read_And_Is_Darker_Than_The_One_Before)
{
    for (std::size_t i = 0; i < Most_Classes; ++i) {
        EXPECT_GE(Contrast(Class_Fills[i], Class_Inks[i]), 4.5) << i;
        // Told apart by any colour vision, and without colour.
        EXPECT_TRUE(i == 0 || Luminance(Class_Fills[i]) < Luminance(Class_Fills[i - 1])) << i;
    }
}

TEST(Overview, Two_Hundred_Letters_And_Formulas_Are_Texts)
{
    auto run = Done("Hamburg (H)", {Conc(std::string(200, 'x'), 1, "1.000")});
    run.Pesticide = "=1+1";
    const auto csv = Overview_Csv(Arranged({run}));

    EXPECT_NE(csv.find("'=1+1,Maize," + std::string(200, 'x') + ",1.000,"), std::string::npos) << csv;
}

TEST(Overview, Five_Thousand_Runs_Are_Laid_Out)
{
    std::vector<Overview_Run> runs;
    for (int p = 0; p < 556; ++p) {
        for (const char* location : {"C", "H", "J", "K", "N", "P", "O", "S", "T"}) {
            runs.push_back(Done(std::string("(") + location + ")", {Conc("A", p, "1.000")}));
            runs.back().Pesticide = "p" + std::to_string(p);
        }
    }

    const auto overview = Arranged(std::move(runs));

    EXPECT_EQ(overview.Rows.size(), 556U);
    EXPECT_EQ(overview.Rows.back().Figures, 9);
}

TEST(Overview, Classes_Begin_At_Their_Bounds)
{
    const std::vector<double> bounds = {0.001, 0.1, 1, 10};

    for (const auto& [value, expected] : std::vector<std::pair<double, std::size_t>>{
             {0, 0}, {0.0009, 0}, {0.001, 1}, {0.1, 2}, {0.999, 2}, {1, 3}, {10, 4}, {1e9, 4}})
        EXPECT_EQ(Class_Of(value, bounds), expected) << value;
    EXPECT_EQ(Class_Place(1, 1), 4U); // two classes are empty and full
    EXPECT_EQ(Class_Texts({0.1, 1}), (Texts{"below 0.1", "0.1 to 1", "1 and more"}));
}

TEST(Overview, Colours_Differ_In_Lightness_So_That_Any_Colour_Vision_Tells_Them_Apart)
{
    const auto luminance = [](std::uint32_t colour) {
        return 0.2126 * (colour >> 16U) + 0.7152 * ((colour >> 8U) & 255U) + 0.0722 * (colour & 255U);
    };
    for (std::size_t i = 1; i < Most_Classes; ++i)
        EXPECT_LT(luminance(Class_Fills[i]), luminance(Class_Fills[i - 1]) - 8) << i;
}

TEST(Overview_Settings, Come_Back_As_They_Were_Kept)
{
    const Temporary_Directory home;
    EXPECT_EQ(Read_Overview_Settings(home.Path()), Overview_Settings());
    const Overview_Settings settings{.Bounds = {0.5, 2},
                                     .Choices = {{"Gro\xDF"
                                                  "britannien",
                                                  {"C", "H", "K", "N"}}},
                                     .Chosen = "Gro\xDF"
                                               "britannien"};

    Write_Overview_Settings(home.Path(), settings);

    EXPECT_EQ(Read_Overview_Settings(home.Path()), settings);
    EXPECT_EQ(Chosen_Codes(settings), (Texts{"C", "H", "K", "N"}));
}

TEST(Overview_Settings, Damaged_Ones_Are_Told_With_Their_Place)
{
    const Temporary_Directory home;
    for (const char* damaged : {"{", "[]", R"({"bounds": [1, 1], "choices": [], "chosen": ""})",
                                R"({"bounds": ["x"], "choices": [], "chosen": ""})"}) {
        Write_Whole(home / "overview.json", damaged);
        EXPECT_THROW(Read_Overview_Settings(home.Path()), File_Error) << damaged;
    }
}

TEST(Overview_Settings, Bounds_Are_Rising_Positive_Numbers)
{
    EXPECT_EQ(Parse_Bounds("0,001; 0.1;1"), (std::vector<double>{0.001, 0.1, 1}));
    EXPECT_EQ(Bounds_Text({0.001, 10}), "0.001; 10");
    for (const char* wrong : {"", "0", "2; 1", "1; 1", "a", "1; 2; 3; 4; 5", "-1; 1", "nan"})
        EXPECT_THROW(Parse_Bounds(wrong), File_Error) << wrong;
}

} // namespace orvel
