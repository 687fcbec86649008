#include "report/painting/report_files.h"

#include "core/error.h"
#include "pdf_text.h"
#include "report/forms/pdf_objects.h"
#include "report/report_formats.h"
#include "report/report_session.h"

#include <cmath>
#include <cstring>
#include <map>
#include <memory>
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

// The demands of the level that the document claims, PDF/A-1b (ISO 19005-1), each by what the file's objects hold.
class Pdf_A_Test : public Report_Session {
protected:
    // Long enough for several pages, with letters beyond ASCII and pictures.
    void SetUp() override
    {
        for (const char* crop :
             {"Apples", "Beans", "Cabbage", "Carrots", "Grass", "Linseed", "Maize", "Onions", "Peas", "Vines"}) {
            for (const char* location : {"Hamburg_-_(H)", "Kremsm\xC3\xBCnster_-_(K)", "Porto_-_(O)"})
                Add_Run(crop, location, 1, {"P & \xC4", "M (1)", "M 2", "M 3"});
        }
        Pdf = Report_Pdf(Gather("all"));
        Objects = std::make_unique<Pdf_Objects>(Pdf);
    }

    std::vector<const Pdf_Object*> Contents() const
    {
        std::vector<const Pdf_Object*> contents;
        for (const auto* page : Objects->With("/Type /Page\n"))
            contents.push_back(&Objects->Referred(*page, "/Contents"));
        return contents;
    }

    // What is written for a dictionary's text entry, which is in UTF-16.
    QString Info(const QByteArray& key) const
    {
        const auto& info = Objects->Referred({.Text = Objects->Trailer}, "/Info").Text;
        const auto begin = info.indexOf(key + " (") + key.size() + 2;
        QByteArray bytes;
        for (auto at = begin; info[at] != ')'; ++at) {
            at += info[at] == '\\' ? 1 : 0;
            bytes += info[at];
        }
        if (!bytes.startsWith("\xFE\xFF"))
            return QString::fromLatin1(bytes);
        QString text;
        for (qsizetype at = 2; at + 1 < bytes.size(); at += 2)
            text += QChar((static_cast<unsigned char>(bytes[at]) << 8) | static_cast<unsigned char>(bytes[at + 1]));
        return text;
    }

    QByteArray Pdf;
    std::unique_ptr<Pdf_Objects> Objects;
};

TEST_F(Pdf_A_Test, The_File_Is_Built_As_Asked)
{
    EXPECT_TRUE(Pdf.startsWith("%PDF-1.4\n%"));
    for (qsizetype at = 10; at < 14; ++at) // a comment that shows that the file is binary
        EXPECT_GT(static_cast<unsigned char>(Pdf[at]), 127) << at;
    EXPECT_TRUE(Pdf.endsWith("%%EOF\n"));
    EXPECT_EQ(Pdf.count("%%EOF"), 1);
    EXPECT_TRUE(Objects->Trailer.contains("/ID [ <"));
    EXPECT_FALSE(Objects->Trailer.contains("/Encrypt"));
    for (const auto& [number, object] : Objects->All) {
        EXPECT_TRUE(object.Is_Whole) << number << " " << object.Text.left(200).toStdString();
        EXPECT_FALSE(object.Is_Stream && object.Decoded.isEmpty() && !object.Stream.isEmpty()) << number;
    }
}

TEST_F(Pdf_A_Test, Nothing_Forbidden_Is_In_Any_Object)
{
    for (const auto& [number, object] : Objects->All) {
        for (const char* forbidden :
             {"/LZWDecode", "/Crypt",      "/JavaScript",   "/JS",         "/Launch",       "/ImportData",
              "/ResetForm", "/SubmitForm", "/EmbeddedFile", "/EF",         "/OCProperties", "/AA",
              "/Movie",     "/Sound",      "/GoToR",        "/URI",        "/AcroForm",     "/OpenAction",
              "/Group",     "/TR",         "/HT",           "/OPI",        "/Alternates",   "/PS",
              "/Ref",       "/FFilter",    "/FDecodeParms", "/DeviceCMYK", "/Lang(",        "/XFA"}) {
            const auto at = object.Text.indexOf(forbidden);
            EXPECT_TRUE(at < 0 || QChar(object.Text[at + qsizetype(strlen(forbidden))]).isLetter())
                << number << " " << forbidden << " in " << object.Text.left(300).toStdString();
        }
        EXPECT_FALSE(object.Is_Stream && object.Text.contains("/F ")) << number; // no bytes elsewhere
    }
    for (const auto* page : Objects->With("/Type /Page\n")) // no annotation: links are none here
        EXPECT_EQ(Objects->Referred(*page, "/Annots").Text.simplified(), "[ ]");
}

TEST_F(Pdf_A_Test, Nothing_Is_Transparent)
{
    int states = 0;
    for (const auto* state : Objects->With("/Type /ExtGState")) {
        ++states;
        const QString text = QString::fromLatin1(state->Text);
        static const QRegularExpression alpha("/(?:ca|CA) ([0-9.]+)"), mask("/SMask\\s*(\\S+?)(?:>|\\s)"),
            blend("/BM\\s*/(\\w+)");
        for (auto found = alpha.globalMatch(text); found.hasNext();)
            EXPECT_EQ(found.next().captured(1).toDouble(), 1) << text.toStdString();
        for (auto found = mask.globalMatch(text); found.hasNext();)
            EXPECT_EQ(found.next().captured(1), "/None");
        for (auto found = blend.globalMatch(text); found.hasNext();)
            EXPECT_EQ(found.next().captured(1), "Normal");
    }
    EXPECT_GT(states, 0);
    for (const auto* image : Objects->With("/Subtype /Image"))
        EXPECT_FALSE(image->Text.contains("/SMask") || image->Text.contains("/Interpolate true"));
}

TEST_F(Pdf_A_Test, Colours_Are_Those_Of_The_Output_Intent)
{
    const auto& catalog = Objects->Referred({.Text = Objects->Trailer}, "/Root");
    const auto& intent = Objects->Referred(catalog, "/OutputIntents");
    EXPECT_TRUE(intent.Text.contains("/S/GTS_PDFA1"));
    EXPECT_TRUE(intent.Text.contains("/OutputConditionIdentifier (sRGB"));
    const auto& profile = Objects->Referred(intent, "/DestOutputProfile");
    EXPECT_TRUE(profile.Text.contains("/N 3"));
    ASSERT_GT(profile.Decoded.size(), 128);
    EXPECT_EQ(profile.Decoded[8], 2); // the version of profiles that belongs to this level
    EXPECT_EQ(profile.Decoded.mid(12, 8), "mntrRGB ");
    EXPECT_EQ(profile.Decoded.mid(36, 4), "acsp");
    // Colours are set by components of RGB or grey, or by a pattern of them; never of CMYK.
    static const QRegularExpression cmyk("(?:^|\\s)[kK](?:\\s|$)");
    for (const auto* content : Contents())
        EXPECT_FALSE(QString::fromLatin1(content->Decoded).contains(cmyk));
}

TEST_F(Pdf_A_Test, Every_Font_Is_Embedded_Whole_Enough)
{
    std::size_t fonts = 0;
    for (const auto* font : Objects->With("/Subtype /Type0")) {
        ++fonts;
        EXPECT_TRUE(font->Text.contains("/Encoding /Identity-H"));
        const auto& unicode = Objects->Referred(*font, "/ToUnicode");
        EXPECT_TRUE(unicode.Decoded.contains("begincmap")); // the text can be searched
        const auto& descendant = Objects->Referred(*font, "/DescendantFonts");
        EXPECT_TRUE(descendant.Text.contains("/Subtype /CIDFontType2"));
        EXPECT_TRUE(descendant.Text.contains("/CIDToGIDMap /Identity"));
        EXPECT_TRUE(descendant.Text.contains("/Registry (Adobe)") && descendant.Text.contains("/Ordering (Identity)"));
        EXPECT_TRUE(descendant.Text.contains("/W "));
        const auto& descriptor = Objects->Referred(descendant, "/FontDescriptor");
        static const QRegularExpression name("/FontName /([A-Z]{6}\\+[^\\s/]+)"); // that of a subset
        const auto named = name.match(QString::fromLatin1(descriptor.Text)).captured(1);
        EXPECT_FALSE(named.isEmpty()) << descriptor.Text.toStdString();
        EXPECT_TRUE(descendant.Text.contains("/BaseFont /" + named.toLatin1()));
        EXPECT_TRUE(font->Text.contains("/BaseFont /" + named.toLatin1()));
        const auto& file = Objects->Referred(descriptor, "/FontFile2");
        EXPECT_EQ(file.Decoded.size(),
                  QString::fromLatin1(file.Text).section("/Length1 ", 1).section(' ', 0, 0).simplified().toInt());
        EXPECT_EQ(file.Decoded.left(4), QByteArray("\x00\x01\x00\x00", 4));
        EXPECT_FALSE(Objects->Referred(descriptor, "/CIDSet").Decoded.isEmpty());
    }
    EXPECT_GT(fonts, 0U);
    EXPECT_EQ(Objects->With("/Type /FontDescriptor").size(), fonts);
    EXPECT_EQ(Objects->With("/FontFile2 ").size(), fonts);
    for (const char* unembedded : {"/Subtype /Type1", "/Subtype /TrueType", "/Subtype /Type3"})
        EXPECT_TRUE(Objects->With(unembedded).empty()) << unembedded;
}

TEST_F(Pdf_A_Test, The_Metadata_Are_There_And_Say_What_The_File_Says)
{
    const auto& catalog = Objects->Referred({.Text = Objects->Trailer}, "/Root");
    const auto& metadata = Objects->Referred(catalog, "/Metadata");
    EXPECT_TRUE(metadata.Text.contains("/Type /Metadata") && metadata.Text.contains("/Subtype /XML"));
    EXPECT_FALSE(metadata.Text.contains("/Filter"));
    const QByteArray& xmp = metadata.Stream;
    EXPECT_TRUE(xmp.startsWith("<?xpacket begin='") && !xmp.left(80).contains("bytes=") &&
                !xmp.left(80).contains("encoding="));
    EXPECT_TRUE(xmp.trimmed().endsWith("<?xpacket end='w'?>"));
    EXPECT_EQ(Xml_Error(xmp.toStdString()), "");
    EXPECT_TRUE(xmp.contains("xmlns:pdfaid=\"http://www.aiim.org/pdfa/ns/id/\""));
    EXPECT_TRUE(xmp.contains("pdfaid:part=\"1\" pdfaid:conformance=\"B\""));

    std::map<QString, QString> said;
    QXmlStreamReader reader(xmp);
    for (bool in_title = false; !reader.atEnd(); reader.readNext()) {
        if (reader.isStartElement()) {
            in_title = in_title || reader.name() == u"title";
            for (const auto& attribute : reader.attributes())
                said[attribute.name().toString()] = attribute.value().toString();
        } else if (reader.isEndElement() && reader.name() == u"title") {
            in_title = false;
        } else if (in_title && reader.isCharacters() && !reader.isWhitespace()) {
            said["title"] = reader.text().toString();
        }
    }
    EXPECT_EQ(said["title"], Info("/Title"));
    EXPECT_EQ(said["CreatorTool"], Info("/Creator"));
    EXPECT_EQ(said["Producer"], Info("/Producer"));
    const auto digits = [](const QString& date) { return QString(date).remove(QRegularExpression("\\D")).left(14); };
    EXPECT_EQ(digits(said["CreateDate"]), digits(Info("/CreationDate")));
    const auto& info = Objects->Referred({.Text = Objects->Trailer}, "/Info").Text;
    for (const char* other : {"/Author", "/Subject", "/Keywords", "/ModDate"}) // none that the metadata would lack
        EXPECT_FALSE(info.contains(other)) << other;
}

// The limits of a reader of this version: numbers, strings, nesting; and no operator that it does not know.
TEST_F(Pdf_A_Test, Pages_Stay_Within_The_Limits_And_The_Operators)
{
    constexpr double Largest = 32767;
    constexpr int Deepest = 28;
    const QList<QByteArray> operators = QByteArray("b B b* B* BT c cm cs CS d Do ET f f* g G gs h i j J l m M n q Q re "
                                                   "rg RG ri s S sc SC scn SCN sh Td TD Tf Tj TJ Tm w W W* y v")
                                            .split(' ');
    ASSERT_GT(Contents().size(), 12U); // beyond the largest number, if they were one long sheet
    for (const auto* content : Contents()) {
        int depth = 0, deepest = 0;
        for (const auto& word : content->Decoded.simplified().split(' ')) {
            bool is_number = false;
            const double number = word.toDouble(&is_number);
            if (is_number) {
                EXPECT_LE(std::abs(number), Largest) << word.toStdString();
                continue;
            }
            if (word.startsWith('/') || word.startsWith('<') || word.startsWith('[') || word.startsWith(']'))
                continue;
            EXPECT_TRUE(operators.contains(word)) << word.toStdString();
            depth += word == "q" ? 1 : word == "Q" ? -1 : 0;
            deepest = std::max(deepest, depth);
        }
        EXPECT_EQ(depth, 0);
        EXPECT_LE(deepest, Deepest);
    }
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

// Two substances with a picture each, at nine locations, are still one page.
TEST_F(Report_Session, A_Crop_With_Two_Pictures_Is_A_Page_Too)
{
    for (const char* location :
         {"Hamburg_-_(H)", "Jokioinen_-_(J)", "Okehampton_-_(N)", "Piacenza_-_(P)", "Porto_-_(O)", "Sevilla_-_(S)",
          "Thiva_-_(T)", "Ch\xC3\xA2teaudun_-_(C)--_-_irrigated", "Kremsm\xC3\xBCnster_-_(K)"})
        Add_Run("Maize", location, 1, {"Parent", "Metabolite"});
    Report report = Gather();
    report.Crops.at(0).Tables.at(1) = report.Crops[0].Tables.at(0); // the metabolite had nothing to show

    Write_Whole(Installation / "report.pdf", Report_Pdf(report).toStdString());

    int pages = 0, pictures = 0;
    for (const QString& page : Text_Of_Pdf(Installation / "report.pdf").split(u'\f')) {
        const auto on_page = static_cast<int>(page.count(": 80th percentile at 1 m ["));
        pages += on_page > 0 ? 1 : 0;
        pictures += on_page;
    }
    EXPECT_EQ(pictures, 2);
    EXPECT_EQ(pages, 1);
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
