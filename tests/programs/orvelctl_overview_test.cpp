// The overview of an assessment by the command line, over runs of the real engine.
#include "core/files.h"
#include "core/json_reader.h"
#include "core/text.h"
#include "programs/shell.h"

#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <sstream>
#include <sys/stat.h>

namespace orvel {

namespace fs = std::filesystem;

namespace {

class Orvelctl_Overview : public testing::Test {
protected:
    static void SetUpTestSuite()
    {
        Place = new Temporary_Directory;
        ASSERT_EQ(Shell(std::string(ORVELCTL) + " init " + Installation().string()).Code, 0);
        for (const char* location : {"Hamburg (H)", "Jokioinen (J)", "Sevilla (S), no irrigation"})
            Mark("demo_C.psm", location);
        ASSERT_EQ(Orvelctl("start --mode focus --wait").Code, 0);
        fs::copy_file(Installation() / "demo_C.psm", Installation() / "=C.psm");
        Mark("=C.psm", "Hamburg (H)");
    }
    static void TearDownTestSuite() { delete Place; }

    static void Mark(const std::string& pesticide, const std::string& location)
    {
        const auto marked = Orvelctl("mark --mode focus --pesticide '" + pesticide +
                                     "' --crop 'Winter cereals' --location '" + location + "' 2>&1");
        ASSERT_EQ(marked.Code, 0) << marked.Printed;
    }
    static Outcome Orvelctl(const std::string& arguments)
    {
        return Shell(std::string(ORVELCTL) + " -C " + Installation().string() + " " + arguments);
    }
    static fs::path Installation() { return Place->Path() / "installation"; }
    static fs::path Run(const std::string& location)
    {
        return Installation() / "focus/demo_C.run/Winter_-_cereals.run" / (location + ".run");
    }

    // The objects of --json with a pesticide and the beginning of a location.
    static std::vector<Json_Value> Cells(const std::string& location, const std::string& pesticide = "demo_C")
    {
        std::vector<Json_Value> cells;
        const auto all = Parse_Json(Orvelctl("overview --mode focus --json").Printed);
        for (const auto& cell : all.Elements()) {
            if (cell.At("location").Text().starts_with(location) && cell.At("pesticide").Text() == pesticide)
                cells.push_back(cell);
        }
        return cells;
    }

    static Temporary_Directory* Place;
};
Temporary_Directory* Orvelctl_Overview::Place = nullptr;

// The concentrations of the percentile rows at 1 m of the period table, by words of the printed text.
std::vector<std::string> Printed_Percentiles(const std::string& tables)
{
    std::vector<std::string> found;
    const auto periods = tables.substr(tables.find("Period \t") == std::string::npos ? tables.find("Period ")
                                                                                     : tables.find("Period \t"));
    std::istringstream lines(periods.substr(0, periods.find("at the bottom of the simulated soil core")));
    for (std::string line; std::getline(lines, line);) {
        if (line.find("80 Perc.(") != std::string::npos) {
            const auto begin = line.find_last_of(" \t");
            found.push_back(line.substr(begin + 1));
        }
    }
    return found;
}

} // namespace

TEST_F(Orvelctl_Overview, Figures_Are_Those_Of_Tables_And_Report_To_The_Last_Byte)
{
    const auto report = Installation() / "report.csv";
    ASSERT_EQ(Orvelctl("report --mode focus --pesticide demo_C --crop 'Winter cereals' --to " + report.string() +
                       " 2>/dev/null")
                  .Code,
              0);
    const std::string reported = Read_Whole(report);
    const std::string csv = Orvelctl("overview --mode focus --pesticide demo_C").Printed;

    for (const std::string location : {"Hamburg_-_(H)", "Jokioinen_-_(J)", "Sevilla_-_(S)--_-_no_-_irrigation"}) {
        const auto printed =
            Printed_Percentiles(Orvelctl("tables '" + Run(location).string() + "' 2>/dev/null").Printed);
        const auto cells = Cells(location.substr(0, location.find('_')));
        ASSERT_EQ(printed.size(), cells.size()) << location;
        ASSERT_GT(cells.size(), 1U); // the pesticide has a metabolite
        for (std::size_t s = 0; s < cells.size(); ++s) {
            EXPECT_EQ(std::strtod(printed[s].c_str(), nullptr), cells[s].At("value").Number());
            EXPECT_NE(csv.find(printed[s]), std::string::npos) << csv;
            EXPECT_NE(reported.find("," + printed[s] + ","), std::string::npos);
            EXPECT_EQ(cells[s].At("verdict").Text(), "complete");
            EXPECT_EQ(cells[s].At("state").Text(), "");
            EXPECT_EQ(cells[s].At("years").Number(), 26);
        }
    }
}

TEST_F(Orvelctl_Overview, A_Run_That_Waits_Has_Its_State_In_Place_Of_A_Figure)
{
    const auto cells = Cells("Hamburg", "=C");

    ASSERT_EQ(cells.size(), 1U);
    EXPECT_TRUE(cells[0].At("value").Is_Null());
    EXPECT_EQ(cells[0].At("verdict").Text(), "scheduled");
    const auto printed = Orvelctl("overview --mode focus --pesticide =C").Printed;
    EXPECT_NE(printed.find("=C\tWinter cereals\t\tscheduled\t\t\t0 of 0; 1 without a figure\t\n"), std::string::npos)
        << printed;
}

TEST_F(Orvelctl_Overview, One_Byte_That_Changed_Takes_The_Figure_Away_Even_With_The_Old_Size_And_Time)
{
    const auto chem = Run("Hamburg_-_(H)") / "chem.orv";
    const std::string before = Read_Whole(chem);
    const auto written = fs::last_write_time(chem);
    std::string other = before;
    other[other.size() / 2] ^= 1;
    Write_Whole(chem, other);
    fs::last_write_time(chem, written);

    const auto cells = Cells("Hamburg");
    ASSERT_FALSE(cells.empty());
    EXPECT_TRUE(cells[0].At("value").Is_Null());
    EXPECT_EQ(cells[0].At("verdict").Text(), "changed");
    EXPECT_EQ(cells[0].At("state").Text(), "changed since");

    Write_Whole(chem, before); // touched, but with its digest again
    fs::last_write_time(chem, written);
    EXPECT_EQ(Cells("Hamburg").at(0).At("verdict").Text(), "complete");
    EXPECT_EQ(Cells("Hamburg").at(0).At("state").Text(), "");
}

TEST_F(Orvelctl_Overview, A_Pesticide_File_That_Was_Edited_Since_Is_Told_Beside_The_Figure)
{
    const auto file = Installation() / "demo_C.psm";
    const std::string before = Read_Whole(file);
    Write_Whole(file, before + " ");

    const auto cells = Cells("Jokioinen");
    EXPECT_FALSE(cells.at(0).At("value").Is_Null());
    EXPECT_EQ(cells.at(0).At("state").Text(), "inputs changed since");

    fs::remove(file);
    fs::create_directory(file); // what lies there cannot be read, and nobody knows whether it was changed
    EXPECT_EQ(Cells("Jokioinen").at(0).At("state").Text(), "inputs unreadable");

    fs::remove(file);
    Write_Whole(file, before);
}

TEST_F(Orvelctl_Overview, An_Unrecorded_Run_Says_So_In_Its_Cell)
{
    const auto run = Installation() / "focus/copied.run/Winter_-_cereals.run/Hamburg_-_(H).run";
    fs::create_directories(run.parent_path());
    fs::copy(Run("Hamburg_-_(H)"), run);
    fs::remove(run / "run.json");

    const auto printed = Orvelctl("overview --mode focus --pesticide copied").Printed;
    EXPECT_NE(printed.find(" (unrecorded)\t"), std::string::npos) << printed;

    fs::remove_all(run.parent_path().parent_path());
}

TEST_F(Orvelctl_Overview, A_Damaged_Record_Is_Told_And_The_Others_Are_Shown)
{
    const auto record = Run("Sevilla_-_(S)--_-_no_-_irrigation") / "run.json";
    const std::string before = Read_Whole(record);
    Write_Whole(record, "{");

    const auto outcome = Orvelctl("overview --mode focus --pesticide demo_C 2>&1");
    EXPECT_EQ(outcome.Code, 1);
    EXPECT_NE(outcome.Printed.find("\tunreadable\t"), std::string::npos) << outcome.Printed;
    EXPECT_NE(outcome.Printed.find("run.json, line 1, column 1: This is not JSON."), std::string::npos);

    Write_Whole(record, before);
}

// Another installation, an archive and a generation of the bin are compared alike.
TEST_F(Orvelctl_Overview, Is_Compared_With_Another_Assessment_An_Archive_And_Earlier_Results)
{
    const auto other = Place->Path() / "other", archive = Place->Path() / "a.zip",
               run = other / "focus/demo_C.run/Winter_-_cereals.run/Hamburg_-_(H).run";
    const std::string at_other = std::string(ORVELCTL) + " -C " + other.string() + " ";
    fs::copy(Installation(), other, fs::copy_options::recursive);
    ASSERT_EQ(Orvelctl("archive --mode focus --pesticide demo_C --to " + archive.string()).Code, 0);
    const auto seen = [&](const std::string& path) {
        const auto all = Orvelctl("overview --mode focus --pesticide demo_C --compare " + path + " --json");
        EXPECT_EQ(all.Code, 0) << all.Told << all.Printed;
        return Parse_Json(all.Printed).Elements();
    };
    // The other installation has no run at Jokioinen any more.
    fs::remove_all(run.parent_path() / "Jokioinen_-_(J).run");

    for (const auto& cell : seen(other.string())) {
        const std::string location = cell.At("location").Text();
        if (location.starts_with("Jokioinen")) {
            EXPECT_TRUE(cell.At("other_value").Is_Null());
            EXPECT_EQ(cell.At("other_state").Text(), "not simulated");
            EXPECT_TRUE(cell.At("ratio").Is_Null());
        } else {
            EXPECT_EQ(cell.At("other_value").Number(), cell.At("value").Number()) << location;
            EXPECT_EQ(cell.At("ratio").Number(), 1);
        }
    }
    for (const auto& cell : seen(archive.string()))
        EXPECT_EQ(cell.At("ratio").Number(), 1) << cell.At("other_state").Text();

    // Twice the rate: what was there goes to the bin, and is compared with what is there now.
    const std::string document = Read_Whole(other / "demo_C.psm");
    Write_Whole(other / "demo_C.psm",
                Replace_All(document, "   1    0    0    0    0   <day", "   2    0    0    0    0   <day"));
    ASSERT_EQ(Shell(at_other + "mark --mode focus --pesticide demo_C.psm --crop 'Winter cereals' --location 'Hamburg "
                               "(H)' --replace")
                  .Code,
              0);
    ASSERT_EQ(Shell(at_other + "start --mode focus --wait").Code, 0);
    const auto now = Shell(at_other + "overview --mode focus --pesticide demo_C --json --compare " +
                           (other / "focus/bin/0001").string());
    ASSERT_EQ(now.Code, 0) << now.Told;
    const auto cells = Parse_Json(now.Printed).Elements();
    const auto cell = std::ranges::find_if(cells, [](const Json_Value& one) {
        return one.At("substance").Text() == "Demo metabolite M" && one.At("location").Text() == "Hamburg (H)";
    });
    ASSERT_NE(cell, cells.end());
    const double before = Cells("Hamburg").at(1).At("value").Number(), after = cell->At("value").Number();
    EXPECT_EQ(cell->At("other_value").Number(), before);
    EXPECT_GT(after, 1.5 * before);
    EXPECT_NEAR(cell->At("ratio").Number(), before / after, 1e-12);
    EXPECT_EQ(cells.back().At("other_state").Text(), "not simulated");

    const auto book = Place->Path() / "compared.xlsx";
    EXPECT_EQ(Orvelctl("overview --mode focus --compare " + archive.string() + " --to " + book.string()).Code, 0);
    EXPECT_TRUE(Read_Whole(book).starts_with("PK"));
    const auto nothing = Orvelctl("overview --mode efsa --compare " + other.string());
    EXPECT_EQ(nothing.Code, 1);
    EXPECT_NE(nothing.Told.find("holds no simulations of efsa"), std::string::npos) << nothing.Told;
    const auto none = Orvelctl("overview --mode focus --compare " + (Place->Path() / "gone").string());
    EXPECT_EQ(none.Code, 1);
}

TEST_F(Orvelctl_Overview, Formats_Go_By_The_Ending_Of_The_File)
{
    for (const char* name : {"o.csv", "o.html", "o.xlsx"}) {
        const auto outcome = Orvelctl("overview --mode focus --to " + (Installation() / name).string() + " 2>&1");
        EXPECT_EQ(outcome.Code, 0) << outcome.Printed;
    }
    EXPECT_TRUE(Read_Whole(Installation() / "o.csv")
                    .starts_with("\xEF\xBB\xBFPesticide file,Crop,Substance,Hamburg (H),Jokioinen (J),Sevilla (S),"
                                 "Highest (\xC2\xB5g/L),Highest at,Above 0.1 \xC2\xB5g/L,Notes\r\n"));
    const std::string page = Read_Whole(Installation() / "o.html");
    EXPECT_NE(page.find("<b>"), std::string::npos);
    for (const char* outside : {"<script", "src=", "<link", "url("})
        EXPECT_EQ(page.find(outside), std::string::npos) << outside;

    EXPECT_EQ(Orvelctl("overview --mode focus --to o.doc 2>&1").Code, 1);
    EXPECT_EQ(Orvelctl("overview --mode focus --pesticide nothing 2>/dev/null").Code, 1);
    EXPECT_EQ(Orvelctl("overview --mode focus --json --to x.csv 2>/dev/null").Code, 2);
}

// Looks into the workbook with another program's reader of the container and of XML.
TEST_F(Orvelctl_Overview, The_Workbook_Has_Numbers_As_Numbers_And_Names_As_Texts)
{
    const auto book = Installation() / "w.xlsx";
    ASSERT_EQ(Orvelctl("overview --mode focus --to " + book.string()).Code, 0);
    const std::string script = R"(
import sys, zipfile, xml.etree.ElementTree as tree
book = zipfile.ZipFile(sys.argv[1])
space = "{http://schemas.openxmlformats.org/spreadsheetml/2006/main}"
print([sheet.get("name") for sheet in tree.fromstring(book.read("xl/workbook.xml")).iter(space + "sheet")])
shared = ["".join(t.text or "" for t in item.iter(space + "t")) for item in tree.fromstring(book.read("xl/sharedStrings.xml"))]
sheet = tree.fromstring(book.read("xl/worksheets/sheet1.xml"))
print(len(list(sheet.iter(space + "f"))), sheet.find(".//" + space + "pane").get("state"))
for cell in sheet.iter(space + "c"):
    value = cell.find(space + "v")
    if value is not None:
        print(cell.get("r"), shared[int(value.text)] if cell.get("t") == "s" else float(value.text))
)";
    Write_Whole(Installation() / "look.py", script);

    const auto seen = Shell("python3 " + (Installation() / "look.py").string() + " " + book.string());

    EXPECT_TRUE(seen.Printed.starts_with("['Results', 'Inputs', 'Records']\n0 frozen\n")) << seen.Printed;
    EXPECT_NE(seen.Printed.find("A2 =C\n"), std::string::npos) << seen.Printed;
    std::ostringstream figure;
    figure << "D4 " << Cells("Hamburg").at(1).At("value").Number() << "\n";
    EXPECT_NE(seen.Printed.find(figure.str()), std::string::npos) << figure.str() << seen.Printed;
    const std::string first = Read_Whole(book);
    ASSERT_EQ(Orvelctl("overview --mode focus --to " + book.string()).Code, 0);
    EXPECT_EQ(Read_Whole(book), first); // the same content gives the same bytes
}

// The page as a browser lays it out: on paper every figure can be read, on a wide screen and on a phone it is painted.
TEST_F(Orvelctl_Overview, The_Page_Is_Laid_Out_By_A_Browser)
{
    if (Shell("command -v chromium").Code != 0 || Shell("command -v pdftotext").Code != 0)
        GTEST_SKIP() << "There is no chromium or no pdftotext: the page was not tried in a browser.";
    const std::string long_name(190, 'n'); // pushes no figure off the paper
    fs::copy_file(Installation() / "demo_C.psm", Installation() / (long_name + ".psm"));
    Mark(long_name + ".psm", "Hamburg (H)");
    const auto page = Installation() / "page.html", paper = Installation() / "page.pdf";
    ASSERT_EQ(Orvelctl("overview --mode focus --to " + page.string()).Code, 0);
    const std::string browser = "timeout 120 chromium --headless --no-sandbox --disable-gpu --user-data-dir=" +
                                (Installation() / "browser").string() + " ";

    Shell(browser + "--print-to-pdf=" + paper.string() + " file://" + page.string() + " 2>/dev/null");

    const std::string text = Shell("pdftotext -layout " + paper.string() + " -").Printed;
    for (const auto& cell : Cells("")) {
        if (cell.At("value").Is_Null())
            continue;
        EXPECT_NE(text.find(Shell("printf %.3f " + std::to_string(cell.At("value").Number())).Printed),
                  std::string::npos)
            << text;
    }
    EXPECT_NE(text.find("scheduled"), std::string::npos);
    for (const char* size : {"1280,720", "390,844"}) {
        const auto picture = Installation() / "page.png";
        fs::remove(picture);
        Shell(browser + "--window-size=" + size + " --screenshot=" + picture.string() + " file://" + page.string() +
              " 2>/dev/null");
        EXPECT_TRUE(fs::exists(picture) && fs::file_size(picture) > 5000) << size;
    }
    fs::remove_all(Installation() / "focus" / (long_name + ".run"));
}

} // namespace orvel
