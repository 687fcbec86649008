#include "report/report_formats.h"

#include "core/code_page.h"
#include "core/csv.h"
#include "core/error.h"
#include "report/overview_chart.h"
#include "report/report_meaning.h"
#include "report_session.h"

namespace orvel {

namespace {

// A report with everything in it that a form could stumble over: names with < & " ; and umlauts, a value of exactly the
// limit, a run without result.
Report Small_Report()
{
    Report report{.Title = "Report",
                  .Program = "ORVELSUITE 5.5",
                  .Engine = "ORVEL 4.01",
                  .Pesticide = "d\xF6mo; \"x\"",
                  .Made = "2026-01-02 03:04"};
    report.Engine_File = {"orvel401.exe", "e1"};
    report.Notes = {"A note & <more>."};
    report.Guidance = {
        {.Rule = "P1",
         .Severity = Severity::Warning,
         .Name = "Koc[1]",
         .Value = "5",
         .Text = "Koc < 6 & more.",
         .Source = "paper",
         .Answer = "kept",
         .Answered_By = "M\xFCller"},
        {.Rule = "P2", .Name = "Hv", .Value = "1", .Text = "Too low.", .Source = "book", .Confirmed = true}};
    Report_Crop crop{.Name = "Maize"};
    crop.Runs.push_back(
        {.Location = "Kremsm\xFCnster (K)", .Date = "2026-01-01 00:00", .Years = 26, .Pesticide = {"d.psm", "p1"}});
    crop.Runs.back().Uses = {{"1 kg/ha", "1 May", "every year, 1 to 26", "soil surface"}};
    crop.Runs.push_back({.Location = "Porto (O)", .Problem = "It failed; \"really\"."});
    Report_Table table{.Substance = "P & <Q>"};
    table.Results.push_back({0, {0.2, 200, 0.1}, {17, "23", 0.12}, {16, "22", 0.08}, false});
    crop.Tables = {table};
    table.Substance = "M";
    table.Results[0] = {0, {0.202, 200, 0.101}, {3, "9", 0.122}, {4, "10", 0.08}, true};
    crop.Tables.push_back(table);
    report.Crops = {crop};
    return report;
}

bool Has(const std::string& text, const std::string& part)
{
    return text.find(part) != std::string::npos;
}

} // namespace

TEST(Report_As_Csv, A_Line_For_Each_Substance_And_Location_With_Fields_In_Quotes_Where_Needed)
{
    const Report report = Small_Report();
    std::string told;
    for (const auto& text : {Meaning_Of_A_Figure(report), Limit_Meaning(report), Acceptance_Sentence(report),
                             Verification_Sentence(), Reproduce_Line(report)})
        told += "," + Csv_Field(To_Utf8(text));
    const std::string engine =
        ",orvel401.exe,e1,ORVELSUITE 5.5,\"P1 Koc[1] = 5: kept (M\xC3\xBCller); P2 Hv = 1: open\"" + told + "\r\n";
    const std::string run =
        ",,\"1 kg/ha, 1 May, every year, 1 to 26, soil surface\",2026-01-01 00:00,26,d.psm,p1" + engine;
    const std::string failed = ",,,,,,,,,,,\"It failed; \"\"really\"\".\",,,,," + engine;

    EXPECT_EQ(Report_Csv(Small_Report()),
              "\xEF\xBB\xBF"
              "Crop,Substance,Location,80th percentile (\xC2\xB5g/L),Above 0.1 \xC2\xB5g/L,Period A,Years of "
              "A,Concentration of A (\xC2\xB5g/L),Period B,Years of B,"
              "Concentration of B (\xC2\xB5g/L),Flux (g/ha),Percolate (L/m\xC2\xB2),Problem,Uses,Simulated "
              "on,Years,Pesticide file,SHA-256 of the pesticide file,"
              "Engine,SHA-256 of the engine,Program,Guidance check,What the percentile is,Limit,Acceptance of the "
              "engine,Verification of the engine,Command that makes it again\r\n"
              "Maize,P & <Q>,Kremsm\xC3\xBCnster (K),0.100,no,17,23,0.120,16,22,0.080,0.2000000,200.000" +
                  run + "Maize,P & <Q>,Porto (O)" + failed +
                  "Maize,M,Kremsm\xC3\xBCnster (K),0.101,yes,3,9,0.122,4,10,0.080,0.2020000,200.000" + run +
                  "Maize,M,Porto (O)" + failed);
}

TEST(Report_As_Csv, A_Crop_Without_Any_Result_Still_Tells_The_Problems_Of_Its_Locations)
{
    Report report = Small_Report();
    report.Crops[0].Tables.clear();

    const std::string csv = Report_Csv(report);

    EXPECT_TRUE(Has(csv, "Maize,,Porto (O),,,,,,,,,,,\"It failed; \"\"really\"\".\"")) << csv;
}

TEST(Report_As_Html, Names_Are_Text_And_Never_Markup)
{
    const std::string html = Report_Html(Small_Report());

    EXPECT_TRUE(Has(html, "Results for P &amp; &lt;Q&gt;"));
    EXPECT_TRUE(Has(html, "<li>A note &amp; &lt;more&gt;.</li>"));
    EXPECT_TRUE(Has(html, "<title>Report: d\xC3\xB6mo; &quot;x&quot;</title>"));
    EXPECT_FALSE(Has(html, "<Q>"));
}

TEST(Report_As_Html, Findings_Of_The_Guidance_Have_A_Table_With_Their_Answers)
{
    Report report = Small_Report();
    const std::string html = Report_Html(report);

    EXPECT_TRUE(Has(html, "<td>P1</td><td>warning</td><td>Koc[1] = 5</td><td>Koc &lt; 6 &amp; more.</td><td>paper "
                          "(source not confirmed)</td><td>kept (M\xC3\xBCller)</td></tr>"))
        << html;
    EXPECT_TRUE(Has(html, "<tr><td>P2</td><td>warning</td><td>Hv = 1</td><td>Too low.</td><td>book</td>"
                          "<td>open</td></tr>"));
    report.Guidance.clear();
    EXPECT_FALSE(Has(Report_Html(report), "Guidance check"));
}

TEST(Report_As_Html, Endpoints_Have_A_Column_With_Their_Sources_Where_There_Are_Any)
{
    Report report = Small_Report();
    report.Endpoints = {{.Substance = "A", .Koc = "12"}};
    EXPECT_FALSE(Has(Report_Html(report), ">Source</th>"));

    report.Endpoints.push_back({.Substance = "M", .Source = "Koc: study 4"});
    EXPECT_TRUE(Has(Report_Html(report), "<th scope=\"col\">Source</th>"));
    EXPECT_TRUE(Has(Report_Html(report), "<td>Koc: study 4</td></tr>"));
}

TEST(Report_As_Html, The_Mark_Of_The_Limit_Stands_In_Words_And_Exactly_The_Limit_Keeps_It)
{
    const std::string html = Report_Html(Small_Report());

    EXPECT_TRUE(Has(html, "<tr><td>Kremsm\xC3\xBCnster (K)</td><td class=\"number\">0.100</td><td>kept</td><td>17 "
                          "(23)</td><td class=\"number\">0.120</td>"
                          "<td>16 (22)</td><td class=\"number\">0.080</td><td class=\"number\">0.2000000</td><td "
                          "class=\"number\">200.000</td></tr>"));
    EXPECT_TRUE(Has(
        html, "<tr class=\"above\"><td>Kremsm\xC3\xBCnster (K)</td><td class=\"number\">0.101</td><td>exceeded</td>"));
}

TEST(Report_As_Html, A_Run_Without_Result_Has_Its_Problem_In_Place_Of_Figures)
{
    EXPECT_TRUE(
        Has(Report_Html(Small_Report()),
            "<tr><td>Porto (O)</td><td class=\"problem\" colspan=\"8\">It failed; &quot;really&quot;.</td></tr>"));
}

TEST(Report_As_Html, Nothing_Is_Fetched_From_Elsewhere_And_The_Diagrams_Stand_In_The_Page)
{
    Report report = Small_Report();
    report.Crops[0].Tables[0].Diagram =
        Location_Chart("P", {{.Location = "H", .Figure = 1, .Figure_Text = "1"}}, Conc_Values::Periods, "mg/L", true);
    const std::string html = Report_Html(report);

    for (const std::string outside : {"src=", "href=", "@import", "url("})
        EXPECT_FALSE(Has(html, outside)) << outside;
    EXPECT_TRUE(Has(html, "<svg xmlns"));
    EXPECT_TRUE(Has(html, "@media print"));
    EXPECT_TRUE(Has(html, "prefers-color-scheme: dark"));
}

TEST(Location_Chart, Has_A_Title_Without_The_Name_Of_A_Substance_That_Is_Not_Known_Yet)
{
    EXPECT_EQ(Location_Chart("P", {}, Conc_Values::Periods, "mg/L", true).Title, "P: 80th percentile at 1 m [mg/L]");
    EXPECT_EQ(Location_Chart("", {}, Conc_Values::Periods, "mg/L", true).Title, "80th percentile at 1 m [mg/L]");
    EXPECT_EQ(Soil_Chart("", {}, "mg/kg", "Maximum").Title, "concentration in soil [mg/kg]");
}

TEST(Report_As_Html, An_Empty_Diagram_Is_Left_Out)
{
    Report report = Small_Report();
    report.Crops[0].Tables[0].Diagram = Location_Chart("P", {{.Location = "H", .Figure = 0, .Figure_Text = "0.000"}},
                                                       Conc_Values::Periods, "mg/L", true);

    EXPECT_FALSE(Has(Report_Html(report), "<svg"));
}

TEST(Report_Formats_Test, The_Ending_Decides_And_Others_Are_Refused)
{
    const Report report = Small_Report();

    EXPECT_EQ(Report_Format_Of("a.CSV").Write(report), Report_Csv(report));
    EXPECT_EQ(Report_Format_Of("a.html").Write(report), Report_Html(report));
    EXPECT_TRUE(Report_Format_Of("a.TXT").Is_Text);
    EXPECT_TRUE(Report_Format_Of("a.pdf").Is_Painted);
    EXPECT_THROW(Report_Format_Of("a.doc"), File_Error);
    EXPECT_THROW(Report_Format_Of("csv"), File_Error);
}

TEST(Report_Formats_Test, Every_Format_Has_One_Way_To_Be_Made)
{
    for (const auto& format : Report_Formats)
        EXPECT_EQ((format.Write ? 1 : 0) + (format.Is_Text ? 1 : 0) + (format.Is_Painted ? 1 : 0), 1) << format.Ending;
}

TEST(Report_Formats_Test, Help_And_Dialog_Name_All_Of_Them)
{
    EXPECT_EQ(Report_Endings(), ".txt, .csv, .xlsx, .html or .pdf");
    EXPECT_EQ(Report_Filters(), "Document (*.pdf);;Page (*.html);;Workbook (*.xlsx);;Table (*.csv);;Text (*.txt)");
}

TEST_F(Report_Session, The_Text_Is_That_Of_The_Summaries_In_Utf_8_One_Crop_Behind_The_Other)
{
    Add_Run("Maize", "Kremsm\xC3\xBCnster_-_(K)", 1);
    Add_Run("Winter_-_cereals", "Hamburg_-_(H)", 1);

    const auto [text, failure, notes] = Report_Text(Requests());
    EXPECT_TRUE(notes.empty());

    EXPECT_EQ(failure, "");
    EXPECT_TRUE(text.starts_with("FOCUS Summary Output File\r\n\r\nModel Version:          \tORVEL 4.01\r\n"));
    EXPECT_LT(text.find("Simulated crop:         \tMaize\r\n"),
              text.find("Simulated crop:         \tWinter cereals\r\n"));
    EXPECT_TRUE(Has(text, "\r\nKremsm\xC3\xBCnster (K) \t(17/16)\t45.0000     \t200.000     \t22.500\r\n")) << text;
}

TEST_F(Report_Session, The_Text_Refuses_A_Location_That_Was_Asked_For_And_Not_Run)
{
    Add_Run("Maize", "Hamburg_-_(H)", 1);

    EXPECT_EQ(Report_Text(Requests("Maize", {"H"})).Failure, "");
    EXPECT_THROW(Report_Text(Requests("Maize", {"H", "C"})), File_Error);
}

} // namespace orvel
