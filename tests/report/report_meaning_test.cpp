#include "report/report_meaning.h"

#include "core/files.h"
#include "core/text.h"
#include "core/version.h"
#include "report/report_sections.h"

#include <gtest/gtest.h>
#include <sstream>

namespace orvel {

namespace {

Report Two_Runs()
{
    Report report{.Title = "Report", .Program = "ORVELSUITE 5.5", .Engine = "ORVEL 4.01", .Pesticide = "my demo"};
    report.Engine_File = {"orvel401.exe", "e1"};
    Report_Crop crop{.Name = "Winter cereals"};
    crop.Runs = {{.Location = "Hamburg (H)"}, {.Location = "Porto (O)", .Problem = "It failed."}};
    report.Crops = {crop};
    return report;
}

std::string Told(const Report& report, std::string_view topic)
{
    for (const auto& fact : Meaning_Of(report)) {
        if (fact.Topic == topic)
            return fact.Sentences;
    }
    return "not told";
}

} // namespace

TEST(Meaning_Of_A_Report, Says_What_Was_Computed_And_By_Which_Engine)
{
    EXPECT_EQ(
        Told(Two_Runs(), "What was computed"),
        "2 simulations of the pesticide file my demo.psm: 1 crop, 2 locations. 1 of them have a result; the others "
        "say why not. Substances and applications are listed under \"Endpoints\" and \"Uses\".");
    EXPECT_TRUE(Contains(Told(Two_Runs(), "The engine"), "ORVEL 4.01 (orvel401.exe, SHA-256 e1)"));
}

TEST(Meaning_Of_A_Report, Says_Whether_The_Engine_Is_Accepted)
{
    Report report = Two_Runs();
    EXPECT_TRUE(Contains(Acceptance_Sentence(report), "not known"));
    report.Acceptance = "not accepted here";
    EXPECT_TRUE(Contains(Acceptance_Sentence(report), "not tried in this installation"));
    report.Acceptance = "accepted on 2026-05-31 against expected.csv";
    EXPECT_TRUE(Contains(Acceptance_Sentence(report), "is accepted on 2026-05-31 against expected.csv: tried"));
}

// Counted in the page itself: rows that passed and do not compare the engine with itself.
TEST(Meaning_Of_A_Report, Has_As_Many_Verified_Figures_As_The_Page)
{
    std::istringstream page(Read_Whole(VERIFICATION_PAGE));
    int figures = 0, cases = 0;
    for (std::string line; std::getline(page, line);) {
        figures += line.ends_with("| passed |  |") ? 1 : 0;
        cases += line.starts_with("## ") ? 1 : 0;
    }

    EXPECT_EQ(Verified_Figures, figures);
    EXPECT_EQ(Verified_Cases, cases);
    EXPECT_TRUE(Contains(Verification_Sentence(), std::to_string(figures) + " figures in"));
}

TEST(Meaning_Of_A_Report, Has_A_Command_That_A_Shell_Takes)
{
    Report report = Two_Runs();

    EXPECT_EQ(Reproduce_Line(report), "orvelctl archive --mode focus --pesticide \"my demo\" --crop \"Winter cereals\" "
                                      "--to \"my demo.zip\" && orvelctl "
                                      "reproduce \"my demo.zip\"");

    report.Crops.push_back({.Name = "Maize"});
    report.Overview.Mode = Mode_Kind::Efsa;
    EXPECT_EQ(Reproduce_Line(report), "orvelctl archive --mode efsa --pesticide \"my demo\" --to \"my demo.zip\" && "
                                      "orvelctl reproduce \"my demo.zip\"");
}

TEST(Meaning_Of_A_Report, Stands_Before_The_First_Crop)
{
    std::vector<std::string> headings;
    for (const auto& section : Sections_Of(Two_Runs()))
        headings.push_back(section.Heading);

    ASSERT_GE(headings.size(), 3U);
    EXPECT_EQ(headings[0], "Report");
    EXPECT_EQ(headings[1], "How to read this report");
    EXPECT_EQ(headings[2], "Winter cereals");
}

} // namespace orvel
