// What is done with the overview of nine runs: copied, printed, opened, run again and compared with earlier results.
#include "core/files.h"
#include "core/shell_line.h"
#include "core/text.h"
#include "desktop/forms/windows.h"
#include "jobs/forms/focus.h"
#include "overview_window_fixture.h"
#include "pdf_text.h"
#include "ui/forms/own_modality.h"

#include <QAction>
#include <QClipboard>
#include <QListWidget>
#include <QMenu>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>

namespace orvel {

namespace {

// What its paper says. Where pictures are kept, the paper is one of them.
QString Printed_Text(const Overview_Window& window, const std::string& name)
{
    Click<QPushButton>(window, "Kopieren");
    const Temporary_Directory place;
    const char* pictures = std::getenv("ORVEL_PICTURES");
    const fs::path paper = (pictures ? fs::path(pictures) : place.Path()) / name;
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setPageOrientation(QPageLayout::Landscape);
    printer.setOutputFileName(QString::fromStdString(paper.string()));
    Print_Page_On(printer, QApplication::clipboard()->mimeData()->html());
    return Text_Of_Pdf(paper);
}

} // namespace

TEST_F(Overview_Window_Test, Copy_Gives_A_Table_As_Text_And_As_Html)
{
    Nine_Runs();
    Overview_Window window(The_Session, Mode_Kind::Focus);
    Settle(window);

    Click<QPushButton>(window, "Kopieren");

    const auto* copied = QApplication::clipboard()->mimeData();
    const auto lines = copied->text().split('\n');
    EXPECT_TRUE(lines[0].startsWith("Pesticide file\tCrop\tSubstance\tChâteaudun (C)\tHamburg (H)\t"));
    EXPECT_EQ(lines[1].split('\t')[4], Stored_Percentile(Run("Hamburg_-_(H)")));
    EXPECT_TRUE(copied->html().contains("background"));
}

TEST_F(Overview_Window_Test, What_Is_Printed_Has_Every_Figure)
{
    Nine_Runs();
    Overview_Window window(The_Session, Mode_Kind::Focus);
    Settle(window);

    const QString printed = Printed_Text(window, "overview.pdf");

    for (const QString& cell : Cells(window, 0))
        EXPECT_TRUE(printed.contains(cell.section(' ', 1, 1))) << cell.toStdString();
    EXPECT_TRUE(printed.contains("8 of 9")) << printed.toStdString();
    for (const char* word : {"Kremsm\u00FCnster", "Pesticide", "percolate:"}) // not broken
        EXPECT_TRUE(printed.contains(word)) << word << " in " << printed.toStdString();
}

// The lines that the run form shows do what its buttons do.
TEST_F(Overview_Window_Test, A_Line_That_Is_Copied_As_Command_Does_The_Same)
{
    FOCUS form(The_Session, Mode_Of(Mode_Kind::Focus), {}, nullptr);
    form.show();
    Choose(form, "Pesticide", "demo_A.psm");
    Choose(form, "Crop", "Winter cereals");
    Choose(form, "Location", "Jokioinen (J)");
    QStringList lines;
    In_Modal([&](QWidget& box) { lines = Find<QPlainTextEdit>(box, "Commands")->toPlainText().split('\n'); });
    Click<QPushButton>(form, "Befehl");
    ASSERT_EQ(lines.size(), 3);
    ASSERT_TRUE(lines[0].startsWith("orvelctl -C ")) << lines[0].toStdString();

    EXPECT_EQ(Orvelctl(lines[0].mid(9).toStdString()), 0) << lines[0].toStdString();

    const fs::path run = Installation() / "focus/demo_A.run/Winter_-_cereals.run/Jokioinen_-_(J).run";
    EXPECT_TRUE(fs::exists(run / "orvel.inp"));
    EXPECT_EQ(Orvelctl("-C " + Installation().string() + " start --mode focus --wait"), 0);
    fs::remove_all(run.parent_path().parent_path());
}

TEST_F(Overview_Window_Test, A_Cell_Opens_What_Belongs_To_It_And_A_Row_Runs_What_Is_Missing)
{
    Nine_Runs();
    Overview_Window window(The_Session, Mode_Kind::Focus);
    Settle(window);
    auto* table = Find<QTreeView>(window, "Table");
    table->setCurrentIndex(table->model()->index(0, First_Location + 1));
    const std::map<QString, QString> opened = {{"A_Leachate", "Jahr_ORV"},    {"A_Daily", "Series_Window"},
                                               {"A_Balance", "Mass_Balance"}, {"A_Echo", "Echo_ORV"},
                                               {"A_Pesticide", "Form_PSM_1"}, {"A_Scenario", "Szenario"}};
    for (const auto& [action, form] : opened) {
        QString name;
        In_Modal([&](QWidget& shown) { name = shown.objectName(); });
        Find<QAction>(window, action)->trigger();
        EXPECT_EQ(name, form) << action.toStdString();
    }
    Find<QAction>(window, "A_Changed")->trigger();
    ASSERT_FALSE(The_User.Messages.empty());
    EXPECT_NE(The_User.Messages.back().Text.find("is the one that was recorded"), std::string::npos);

    QString line;
    In_Modal([&](QWidget& box) { line = Find<QPlainTextEdit>(box, "Commands")->toPlainText(); });
    Click<QPushButton>(window, "Befehl");
    EXPECT_EQ(line.toStdString(), "orvelctl -C " + Shell_Word(Installation().string()) + " overview --mode focus");

    auto* menu = Find<QMenu>(window, "Menu");
    emit menu->aboutToShow();
    EXPECT_FALSE(Find<QAction>(window, "A_Missing")->isEnabled()) << "nothing is missing";

    // Deleted into the bin, the cell is empty; then what is missing is run, and its figure is the same.
    const QString figure = Cell(window, 0, First_Location + 1);
    The_User.Answers = {Button::Yes};
    Find<QAction>(window, "A_Delete")->trigger();
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return table->model()->headerData(First_Location + 1, Qt::Horizontal) == "Jokioinen\n(J)"; }, Patience));
    emit menu->aboutToShow();
    ASSERT_TRUE(Find<QAction>(window, "A_Missing")->isEnabled());
    Find<QAction>(window, "A_Missing")->trigger();
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return table->model()->columnCount() == 14 && Cell(window, 0, First_Location + 1) == figure; },
        Patience));
}

// With earlier results in the bin, as nine runs that are run again leave them, and with an archive that is gone.
TEST_F(Overview_Window_Test, Is_Compared_With_Earlier_Results_And_Comes_Back)
{
    Nine_Runs();
    const std::string at = "-C " + Installation().string();
    ASSERT_EQ(Orvelctl(at + " archive --mode focus --pesticide demo_D --to " + (Place->Path() / "a.zip").string()), 0);
    // Twice the rate at Hamburg; the pesticide file is put back then.
    const fs::path file = Installation() / "demo_D.psm";
    const std::string document = Read_Whole(file);
    Write_Whole(file, Replace_All(document, "   1    0    0    0    0   <day", "   2    0    0    0    0   <day"));
    ASSERT_EQ(Orvelctl(at + " mark --mode focus --pesticide demo_D.psm --crop 'Winter cereals' --location "
                            "'Hamburg (H)' --replace"),
              0);
    ASSERT_EQ(Orvelctl(at + " start --mode focus --wait"), 0);
    Write_Whole(file, document);
    Overview_Window window(The_Session, Mode_Kind::Focus);
    Settle(window);
    const QStringList alone = Cells(window, 0);
    const auto compared = [&] { return Cell(window, 0, First_Location + 1).contains('|'); };

    In_Modal([](QWidget& choice) {
        auto* list = Find<QListWidget>(choice, "Earlier");
        ASSERT_GE(list->count(), 1);
        list->setCurrentRow(0);
        Click<QPushButton>(choice, "Do_Compare");
    });
    Find<QAction>(window, "A_Compare")->trigger();

    ASSERT_TRUE(QTest::qWaitFor(compared, Patience)) << The_User.Messages.size();
    const auto cells = Cells(window, 0);
    EXPECT_EQ(cells[0], alone[0] + " | not simulated"); // the others were not run again
    const QStringList parts = cells[1].split(" | ");
    ASSERT_EQ(parts.size(), 3) << cells[1].toStdString();
    EXPECT_EQ(parts[0], alone[1]);
    EXPECT_TRUE(parts[0].endsWith(" (inputs changed since)"));
    const double here = parts[0].section(' ', 1, 1).toDouble(), there = parts[1].toDouble();
    EXPECT_GT(here, 1.5 * there);
    EXPECT_NEAR(parts[2].mid(1).toDouble(), there / here, 0.006);
    EXPECT_TRUE(Find<QLabel>(window, "Comparison")->isVisible());
    Leave_Picture(window, "overview_compared");
    const QString printed = Printed_Text(window, "overview_compared.pdf").simplified();
    for (const auto& figure : {parts[0].section(' ', 1, 1), parts[1], parts[2], alone[0].section(' ', 1, 1)})
        EXPECT_TRUE(printed.contains(figure)) << figure.toStdString() << " in " << printed.toStdString();
    QString line;
    In_Modal([&](QWidget& box) { line = Find<QPlainTextEdit>(box, "Commands")->toPlainText(); });
    Click<QPushButton>(window, "Befehl");
    EXPECT_TRUE(line.contains(" --compare " + QString::fromStdString((Installation() / "focus/bin/").string())))
        << line.toStdString();
    EXPECT_EQ(Orvelctl(line.mid(9).toStdString()), 0) << line.toStdString();

    Click<QPushButton>(window, "Vergleich_Ende");
    EXPECT_TRUE(QTest::qWaitFor([&] { return Cells(window, 0) == alone; }, Patience));
    EXPECT_FALSE(Find<QLabel>(window, "Comparison")->isVisible());

    const auto compare_with = [&](const std::string& name) {
        In_Modal([&](QWidget& choice) {
            Find<QLineEdit>(choice, "Other")->setText(QString::fromStdString((Place->Path() / name).string()));
            Click<QPushButton>(choice, "Do_Compare");
        });
        Find<QAction>(window, "A_Compare")->trigger();
    };
    compare_with("a.zip");
    EXPECT_TRUE(QTest::qWaitFor(compared, Patience));
    EXPECT_TRUE(The_User.Messages.empty());
    compare_with("gone.zip");
    ASSERT_EQ(The_User.Messages.size(), 1U);
    EXPECT_TRUE(Contains(The_User.Messages[0].Text, "gone.zip holds no simulations of focus"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return Cells(window, 0) == alone; }, Patience));
    fs::remove_all(Run("Hamburg_-_(H)").parent_path().parent_path()); // for the tests that follow
}

TEST_F(Overview_Window_Test, A_Dialog_Of_Another_Window_Does_Not_Block_It)
{
    Nine_Runs();
    Block_Own_Windows_Alone(*qApp);
    QWidget start;
    start.show();
    Overview_Window window(The_Session, Mode_Kind::Focus);
    Settle(window);
    bool clicked = false;
    In_Modal([&](QWidget& form) {
        EXPECT_EQ(form.objectName(), "FOCUS");
        QTest::keyClicks(Find<QLineEdit>(window, "Find"), "x");
        clicked = Find<QLineEdit>(window, "Find")->text() == "x";
        EXPECT_EQ(form.windowModality(), Qt::WindowModal);
    });
    FOCUS(The_Session, Mode_Of(Mode_Kind::Focus), {}, &start).exec();

    EXPECT_TRUE(clicked);
}

} // namespace orvel
