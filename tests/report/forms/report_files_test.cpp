#include "report/painting/report_files.h"

#include "core/error.h"
#include "pdf_text.h"
#include "report/report_formats.h"
#include "report/report_session.h"

#include <QTextDocument>
#include <QXmlStreamReader>

namespace orvel {

namespace {

// What a reader of XML finds wrong with a text; nothing if it is well-formed.
QString Xml_Error(const std::string& text)
{
    QXmlStreamReader reader(QByteArray::fromStdString(text));
    while (!reader.atEnd())
        reader.readNext();
    return reader.hasError() ? reader.errorString() : QString();
}

} // namespace

TEST_F(Report_Session, The_Html_Is_Well_Formed_Whatever_The_Names_Hold)
{
    Add_Run("Maize", "Kremsm\xC3\xBCnster_-_(K)", 1, {"P & <Q> \"r\" '\x01\x80", "]]> --"});
    Add_Run("Winter_-_cereals", "Hamburg_-_(H)", 1);

    const std::string html = Report_Html(Gather("all", {"K", "H"}));

    EXPECT_EQ(Xml_Error(html), "");
    EXPECT_NE(html.find("P &amp; &lt;Q&gt; &quot;r&quot; &#39; \xE2\x82\xAC"), std::string::npos);
}

TEST_F(Report_Session, The_Pdf_Is_An_Archive_Document_With_Its_Title_And_A_Page_For_Each_Substance)
{
    Add_Run("Maize", "Hamburg_-_(H)", 1);

    const QByteArray pdf = Report_Pdf(Gather());

    EXPECT_TRUE(pdf.startsWith("%PDF-1.4"));
    EXPECT_TRUE(pdf.contains("pdfaid:part=\"1\" pdfaid:conformance=\"B\""));
    EXPECT_TRUE(pdf.contains("GTS_PDFA1"));
    EXPECT_TRUE(pdf.contains("Leaching to groundwater: summary report: demo"));
    const auto pages = pdf.indexOf("/Type /Pages");
    ASSERT_GE(pages, 0);
    const auto count = pdf.indexOf("/Count ", pages);
    EXPECT_LE(pdf.mid(count + 7, 2).trimmed().toInt(), 3); // no page is left half empty for a heading
}

// Every location makes the tables before the diagrams longer, so that they meet the page's end at all heights.
TEST_F(Report_Session, A_Diagram_That_Does_Not_Fit_Goes_To_The_Next_Page_Whole)
{
    for (const char* location :
         {"Hamburg_-_(H)", "Jokioinen_-_(J)", "Okehampton_-_(N)", "Piacenza_-_(P)", "Porto_-_(O)", "Sevilla_-_(S)",
          "Thiva_-_(T)", "Ch\xC3\xA2teaudun_-_(C)", "Kremsm\xC3\xBCnster_-_(K)"}) {
        SCOPED_TRACE(location);
        Add_Run("Maize", location, 1, {"Parent", "Metabolite"});
        Write_Whole(Installation / "report.pdf", Report_Pdf(Gather()).toStdString());

        int diagrams = 0;
        for (const QString& page : Text_Of_Pdf(Installation / "report.pdf").split(u'\f')) {
            const auto titles = page.count(": 80th percentile at 1 m [");
            qsizetype axes = 0;
            for (const QString& line : page.split(u'\n'))
                axes += line.trimmed() == "Location" ? 1 : 0;
            EXPECT_EQ(titles, axes);
            diagrams += static_cast<int>(titles);
        }
        EXPECT_EQ(diagrams, 1); // the metabolite has nothing to show
    }
}

// The demands of the level that the document claims (PDF/A-1b), as far as they can be seen in its objects.
TEST_F(Report_Session, The_Pdf_Keeps_The_Demands_Of_Its_Level)
{
    Add_Run("Maize", "Hamburg_-_(H)", 1);
    const QByteArray pdf = Report_Pdf(Gather());

    EXPECT_TRUE(pdf.contains("/OutputIntents")); // colours are defined
    EXPECT_TRUE(pdf.contains("/DestOutputProfile"));
    EXPECT_TRUE(pdf.contains("/Metadata"));
    EXPECT_TRUE(pdf.contains("/ID [")); // in the trailer
    for (const char* forbidden : {"/Encrypt", "/JavaScript", "/JS ", "/Launch", "/EmbeddedFiles", "/LZWDecode",
                                  "/Group <<", "/OCProperties", "/AA ", "/Movie", "/Sound"})
        EXPECT_FALSE(pdf.contains(forbidden)) << forbidden;
    EXPECT_EQ(pdf.count("/SMask"), pdf.count("/SMask /None")); // no transparency
    // Every font is embedded, and nothing is painted through anything else.
    EXPECT_EQ(pdf.count("/FontDescriptor /"), 0); // a reference, never a name
    EXPECT_EQ(pdf.count("/Type /FontDescriptor"), pdf.count("/FontFile2 "));
    EXPECT_GT(pdf.count("/FontFile2 "), 0);
    for (qsizetype at = pdf.indexOf("/ca "); at >= 0; at = pdf.indexOf("/ca ", at + 1))
        EXPECT_EQ(pdf.mid(at + 4, 3).trimmed().toDouble(), 1) << at;
}

// One crop's tables and pictures are one page; what has nothing to show has no picture.
TEST_F(Report_Session, Ten_Crops_Need_A_Page_Each)
{
    for (const char* crop :
         {"Apples", "Cabbage", "Carrots", "Grass", "Maize", "Onions", "Peas", "Potatoes", "Soybean", "Vines"}) {
        for (const char* location : {"Hamburg_-_(H)", "Kremsm\xC3\xBCnster_-_(K)", "Porto_-_(O)"})
            Add_Run(crop, location, 1, {"P"});
    }

    const QByteArray pdf = Report_Pdf(Gather("all"));

    const auto count = pdf.indexOf("/Count ", pdf.indexOf("/Type /Pages"));
    EXPECT_LE(pdf.mid(count + 7, 3).trimmed().toInt(), 10 + 6) << pdf.mid(count, 12).toStdString();
}

TEST_F(Report_Session, The_Ending_Of_The_File_Decides_What_Is_Saved)
{
    Add_Run("Maize", "Hamburg_-_(H)", 1);
    const auto at = [this](const char* name) { return Installation / name; };

    for (const char* name : {"r.txt", "r.csv", "r.html", "r.xlsx", "r.PDF"})
        EXPECT_TRUE(Save_Report(The_Session, Requests(), at(name))) << name;

    EXPECT_TRUE(Read_File(at("r.txt")).starts_with("FOCUS Summary Output File\r\n"));
    EXPECT_TRUE(Read_File(at("r.csv"))
                    .starts_with("\xEF\xBB\xBF"
                                 "Crop,"));
    EXPECT_TRUE(Read_File(at("r.html")).starts_with("<!DOCTYPE html>"));
    EXPECT_TRUE(Read_File(at("r.xlsx")).starts_with("PK"));
    EXPECT_TRUE(Read_File(at("r.PDF")).starts_with("%PDF-"));
    EXPECT_THROW(Save_Report(The_Session, Requests(), at("r.doc")), File_Error);
    EXPECT_FALSE(std::filesystem::exists(at("r.doc")));
}

TEST_F(Report_Session, A_Text_With_A_Failed_Simulation_Is_Told_And_Nothing_Is_Saved_While_The_Page_Tells_Of_It)
{
    Add_Run("Maize", "Hamburg_-_(H)", 1);
    std::filesystem::remove(Add_Run("Maize", "Thiva_-_(T)", 1) / "Wasser.orv");
    Write_Whole(Installation / "r.txt", "old");

    EXPECT_FALSE(Save_Report(The_Session, Requests(), Installation / "r.txt"));
    EXPECT_TRUE(Save_Report(The_Session, Requests(), Installation / "r.html"));

    EXPECT_EQ(Read_File(Installation / "r.txt"), "old");
    ASSERT_EQ(The_User.Messages.size(), 1U);
    EXPECT_TRUE(The_User.Messages[0].Text.starts_with(
        "Problem with output files. Probably, one of the simulations failed!\nThiva (T): "))
        << The_User.Messages[0].Text;
    EXPECT_NE(Read_File(Installation / "r.html").find("class=\"problem\""), std::string::npos);
}

} // namespace orvel
