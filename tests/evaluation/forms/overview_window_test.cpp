// The whole assessment at a glance, as an assessor goes: nine runs are marked and started by hand, followed in the
// window to their percentiles, and one of their files is broken.
#include "charts/forms/chart_view.h"
#include "core/files.h"
#include "core/shell_line.h"
#include "core/text.h"
#include "desktop/forms/windows.h"
#include "evaluation/forms/overview_window.h"
#include "jobs/forms/focus.h"
#include "orvelctl_program.h"
#include "pdf_text.h"
#include "runs/start_up.h"
#include "temporary_directory.h"
#include "ui/forms/own_modality.h"
#include "window_test.h"

#include <cstdlib>
#include <fstream>
#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>
#include <QTreeView>
#include <sstream>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr int First_Location = 3; // column
constexpr int Patience = 180'000; // ms, for nine runs on a busy machine or under sanitizers

class Overview_Window_Test : public Window_Test {
protected:
    static void SetUpTestSuite()
    {
        Place = new Temporary_Directory;
        ASSERT_EQ(Orvelctl("init " + Installation().string()), 0);
    }
    static void TearDownTestSuite() { delete Place; }

    Overview_Window_Test()
    {
        The_Session.Program.App_Path = Installation();
        Start_Up(The_Session);
    }

    static fs::path Installation() { return Place->Path() / "installation"; }
    static fs::path Run(const std::string& location)
    {
        return Installation() / "focus/demo_D.run/Winter_-_cereals.run" / (location + ".run");
    }

    static QString Cell(const QWidget& window, int row, int column, const QModelIndex& parent = {})
    {
        const auto* model = Find<QTreeView>(window, "Table")->model();
        return model->index(row, column, parent).data().toString();
    }

    // The texts of a row's location cells.
    static QStringList Cells(const QWidget& window, int row)
    {
        QStringList cells;
        for (int column = 0; column < 9; ++column)
            cells << Cell(window, row, First_Location + column);
        return cells;
    }

    static bool All_Are_Figures(const QStringList& cells)
    {
        return std::ranges::all_of(cells, [](const QString& cell) { return cell.contains('.'); });
    }

    // Nine finished runs, once for all tests that need them.
    static void Nine_Runs()
    {
        if (fs::exists(Run("Hamburg_-_(H)") / "run.json"))
            return;
        const std::string at = "-C " + Installation().string();
        ASSERT_EQ(Orvelctl(at + " mark --mode focus --pesticide demo_D.psm --crop 'Winter cereals' --all"), 0);
        ASSERT_EQ(Orvelctl(at + " start --mode focus --wait"), 0);
    }

    // Shows a window and waits for what it finds.
    static void Settle(Overview_Window& window)
    {
        window.show();
        const auto* status = Find<QLabel>(window, "Status");
        ASSERT_TRUE(
            QTest::qWaitFor([&] { return !status->text().isEmpty() && !status->text().endsWith("..."); }, Patience));
    }

    static Temporary_Directory* Place;
};
Temporary_Directory* Overview_Window_Test::Place = nullptr;

// The concentration of the percentile row at 1 m of the stored period table, by words.
QString Stored_Percentile(const fs::path& run)
{
    std::istringstream lines(Read_Whole(run / "period.orv"));
    for (std::string line; std::getline(lines, line);) {
        if (line.find("80 Perc.(") != std::string::npos)
            return QString::fromStdString(line).trimmed().section('\t', -1).trimmed();
    }
    return {};
}

void Leave_Picture(QWidget& window, const QString& name)
{
    if (const char* place = std::getenv("ORVEL_PICTURES"))
        window.grab().save(QString(place) + "/" + name + ".png");
}

} // namespace

TEST_F(Overview_Window_Test, Nine_Runs_Are_Marked_Started_And_Followed_To_Their_Percentiles)
{
    FOCUS form(The_Session, Mode_Of(Mode_Kind::Focus), {}, nullptr);
    form.show();
    Overview_Window window(The_Session, Mode_Kind::Focus);
    Settle(window);
    EXPECT_TRUE(Find<QLabel>(window, "Status")->text().startsWith("0 simulations"));

    Choose(form, "Pesticide", "demo_D.psm");
    Choose(form, "Crop", "Winter cereals");
    Click<QPushButton>(form, "Multi_batch");
    const auto* table = Find<QTreeView>(window, "Table");
    ASSERT_TRUE(QTest::qWaitFor([&] { return table->model()->rowCount() == 1; }, Patience));
    ASSERT_TRUE(QTest::qWaitFor(
        [&] {
            return std::ranges::all_of(Cells(window, 0),
                                       [](const QString& cell) { return cell.contains("scheduled"); });
        },
        5000))
        << Cells(window, 0).join(" | ").toStdString();

    Click<QPushButton>(form, "s_run");
    bool running = false;
    ASSERT_TRUE(QTest::qWaitFor(
        [&] {
            const auto cells = Cells(window, 0);
            running =
                running || std::ranges::any_of(cells, [](const QString& cell) { return cell.contains("running "); });
            return All_Are_Figures(cells);
        },
        Patience))
        << Cells(window, 0).join(" | ").toStdString();

    EXPECT_TRUE(running);
    EXPECT_EQ(Cell(window, 0, 2), "Demo substance D");
    const QStringList codes = {"Châteaudun_-_(C)--_-_no_-_irrigation", "Hamburg_-_(H)", "Jokioinen_-_(J)"};
    for (int i = 0; i < codes.size(); ++i) {
        const auto figure = Stored_Percentile(Run(codes[i].toStdString()));
        ASSERT_FALSE(figure.isEmpty());
        EXPECT_TRUE(Cell(window, 0, First_Location + i).endsWith(" " + figure))
            << Cell(window, 0, First_Location + i).toStdString() << " " << figure.toStdString();
    }
    Leave_Picture(window, "overview");

    // One byte, with the old size: within a second or so, and no other cell changes.
    const auto before = Cells(window, 0);
    {
        std::fstream file(Run("Hamburg_-_(H)") / "chem.orv", std::ios::in | std::ios::out | std::ios::binary);
        file.seekg(1000);
        const int byte = file.get();
        file.seekp(1000);
        file.put(static_cast<char>(byte ^ 1));
    }
    ASSERT_TRUE(QTest::qWaitFor([&] { return Cells(window, 0)[1].contains("changed since"); }, Patience))
        << Cells(window, 0)[1].toStdString();
    auto after = Cells(window, 0);
    after[1] = before[1];
    EXPECT_EQ(after, before);
    EXPECT_TRUE(Cell(window, 0, First_Location + 10).contains("1 without a figure"));

    fs::remove_all(Run("Hamburg_-_(H)")); // a directory that vanishes
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return table->model()->headerData(First_Location + 1, Qt::Horizontal) == "Jokioinen\n(J)"; }, Patience));
    fs::remove_all(Run("Hamburg_-_(H)").parent_path().parent_path());
    EXPECT_TRUE(QTest::qWaitFor([&] { return table->model()->rowCount() == 0; }, Patience));
}

TEST_F(Overview_Window_Test, While_Nothing_Changes_No_Run_Is_Looked_At)
{
    Nine_Runs();
    Overview_Window window(The_Session, Mode_Kind::Focus);
    Settle(window);
    QTest::qWait(500); // what the tables that were just stored brought about
    const auto looks = window.Looks();

    QTest::qWait(2000);

    EXPECT_EQ(window.Looks(), looks);
}

TEST_F(Overview_Window_Test, Filters_Sorting_And_Chosen_Locations)
{
    Nine_Runs();
    Overview_Window window(The_Session, Mode_Kind::Focus);
    Settle(window);
    const auto* model = Find<QTreeView>(window, "Table")->model();
    ASSERT_EQ(model->rowCount(), 1);
    ASSERT_EQ(model->columnCount(), First_Location + 9 + 2);

    QTest::keyClicks(Find<QLineEdit>(window, "Find"), "nothing like it");
    EXPECT_EQ(model->rowCount(), 0);
    Find<QLineEdit>(window, "Find")->clear();
    EXPECT_EQ(model->rowCount(), 1);
    Choose_Option(window, "Above_Limit");
    EXPECT_EQ(model->rowCount(), 1);
    Pick(window, "States", "Failed");
    EXPECT_EQ(model->rowCount(), 0);
    Pick(window, "States", "All states");

    // A choice of locations is made, kept with the installation, and counted.
    In_Modal([](QWidget& choices) {
        Find<QComboBox>(choices, "Choice_Name")->setEditText("Great Britain");
        auto* list = Find<QListWidget>(choices, "Choice_Locations");
        for (const int row : {0, 1, 3, 4})
            list->item(row)->setCheckState(Qt::Checked);
        Click<QPushButton>(choices, "Keep");
        Click<QPushButton>(choices, "Done");
    });
    Pick(window, "Locations", "Edit ...");
    EXPECT_TRUE(QTest::qWaitFor([&] { return model->columnCount() == First_Location + 4 + 2; }, Patience));
    EXPECT_EQ(Cell(window, 0, First_Location + 5), "4 of 4");
    Overview_Window another(The_Session, Mode_Kind::Focus);
    EXPECT_EQ(Find<QComboBox>(another, "Locations")->currentText(), "Great Britain");
    Pick(window, "Locations", "All locations");
    EXPECT_TRUE(QTest::qWaitFor([&] { return model->columnCount() == First_Location + 9 + 2; }, Patience));
}

namespace {

// Whether a column of the table shows all of a text of a row.
bool Is_Wide_Enough(const QTreeView& table, const QModelIndex& index)
{
    QFont font = table.font();
    if (const auto own = index.data(Qt::FontRole); own.isValid())
        font = own.value<QFont>().resolve(font);
    return QFontMetrics(font).horizontalAdvance(index.data().toString()) <= table.columnWidth(index.column());
}

} // namespace

TEST_F(Overview_Window_Test, Sorting_Leaves_The_Marked_Row_And_The_Open_Ones_And_An_Open_Row_Has_Its_Whole_Figures)
{
    Nine_Runs();
    const std::string at = "-C " + Installation().string();
    ASSERT_EQ(
        Orvelctl(at + " mark --mode focus --pesticide demo_C.psm --crop 'Winter cereals' --location 'Hamburg (H)'"), 0);
    ASSERT_EQ(
        Orvelctl(at + " mark --mode focus --pesticide demo_A.psm --crop 'Winter cereals' --location 'Hamburg (H)'"), 0);
    {
        Overview_Window window(The_Session, Mode_Kind::Focus);
        Settle(window);
        auto* table = Find<QTreeView>(window, "Table");
        ASSERT_EQ(Cell(window, 1, 0), "demo_C");
        table->setCurrentIndex(table->model()->index(1, First_Location + 1));

        // The row gets the name of its substance when its run has ended.
        ASSERT_EQ(Orvelctl(at + " start --mode focus --wait"), 0);
        ASSERT_TRUE(
            QTest::qWaitFor([&] { return table->model()->rowCount(table->model()->index(1, 0)) == 1; }, Patience));
        EXPECT_EQ(table->currentIndex(), table->model()->index(1, First_Location + 1));

        table->expand(table->model()->index(1, 0));
        const auto metabolite = [&] {
            return table->model()->index(0, First_Location + 1, table->model()->index(1, 0));
        };
        EXPECT_TRUE(Is_Wide_Enough(*table, metabolite())) << metabolite().data().toString().toStdString();
        table->setCurrentIndex(metabolite());
        table->sortByColumn(0, Qt::DescendingOrder);
        table->sortByColumn(First_Location + 1, Qt::AscendingOrder);
        table->sortByColumn(0, Qt::AscendingOrder);

        EXPECT_TRUE(table->isExpanded(table->model()->index(1, 0)));
        EXPECT_FALSE(table->isExpanded(table->model()->index(0, 0)));
        EXPECT_EQ(table->currentIndex(), metabolite());
        EXPECT_TRUE(Is_Wide_Enough(*table, metabolite()));
    }
    for (const char* pesticide : {"demo_A.run", "demo_C.run"})
        fs::remove_all(Installation() / "focus" / pesticide);
}

TEST_F(Overview_Window_Test, Fits_Half_Of_A_Wide_Screen_Whatever_It_Tells)
{
    Nine_Runs();
    Overview_Window window(The_Session, Mode_Kind::Focus);
    Settle(window);
    Find<QLabel>(window, "Status")
        ->setText("5009 simulations: 3112 with figures, 888 changed since, 1009 being read ...");

    constexpr int Letters = 160; // 960 pixels of a screen at 200 %
    EXPECT_LE(window.minimumSizeHint().width(), Letters * window.fontMetrics().averageCharWidth());
}

TEST_F(Overview_Window_Test, Opens_As_Wide_As_Its_Table_As_Far_As_The_Screen_Goes)
{
    Nine_Runs();
    Overview_Window window(The_Session, Mode_Kind::Focus);
    window.resize(window.minimumSizeHint());
    Settle(window);

    const auto* table = Find<QTreeView>(window, "Table");
    const int beside = window.width() - table->viewport()->width();
    const int frame = window.frameGeometry().width() - window.width();
    EXPECT_GE(window.width(),
              std::min(table->header()->length() + beside, window.screen()->availableSize().width() - frame));

    const QFontMetrics letters = window.fontMetrics(); // what stood there while it was read makes no column wider
    EXPECT_LE(table->columnWidth(First_Location + 1), letters.horizontalAdvance("\u25D5 0.000") + letters.height() * 3);

    window.resize(window.minimumSizeHint()); // by hand
    emit Find<QComboBox>(window, "States")->activated(0);
    EXPECT_EQ(window.width(), window.minimumSizeHint().width());
}

TEST_F(Overview_Window_Test, Classes_Are_The_Users_And_A_Wrong_One_Is_Told)
{
    Nine_Runs();
    Overview_Window window(The_Session, Mode_Kind::Focus);
    Settle(window);
    const auto sign = [&] { return Cell(window, 0, First_Location + 1).left(1); };
    const QString before = sign();

    Retype(window, "Classes", "0.001; 0.1; 1; 2");
    EXPECT_NE(sign(), before);
    EXPECT_EQ(Read_Overview_Settings(Installation()).Bounds, (std::vector<double>{0.001, 0.1, 1, 2}));

    Retype(window, "Classes", "2; 1");
    ASSERT_EQ(The_User.Messages.size(), 1U);
    EXPECT_EQ(Find<QLineEdit>(window, "Classes")->text(), "0.001; 0.1; 1; 2");
    Retype(window, "Classes", "0.001; 0.1; 1; 10");
}

TEST_F(Overview_Window_Test, The_Pictures_Show_The_Marked_Row_With_The_Two_Values_That_Make_The_Percentile)
{
    Nine_Runs();
    Overview_Window window(The_Session, Mode_Kind::Focus);
    Settle(window);
    auto* table = Find<QTreeView>(window, "Table");
    table->setCurrentIndex(table->model()->index(0, First_Location + 1));

    const Chart& bars = Find<Chart_View>(window, "Picture")->Shown_Chart();
    EXPECT_EQ(bars.Boxes.size(), 9U);
    EXPECT_EQ(bars.Dots.size(), 9U * 20);
    EXPECT_EQ(std::ranges::count_if(bars.Dots, &Chart_Dot::Marked), 9 * 2);
    ASSERT_EQ(bars.Lines.size(), 1U);
    EXPECT_EQ(bars.Lines[0].Points[0].Y, 0.1);
    double sum = 0;
    for (const auto& dot : bars.Dots) {
        if (dot.Marked && dot.Name.starts_with("Hamburg"))
            sum += dot.Y;
    }
    EXPECT_NEAR(sum / 2, bars.Boxes[1].Y, 0.0005); // the bar is the printed mean of both

    const Chart& ranks = Find<Chart_View>(window, "Ranks")->Shown_Chart();
    EXPECT_TRUE(ranks.Title.starts_with("Hamburg (H)"));
    ASSERT_EQ(ranks.Lines[0].Points.size(), 20U);
    EXPECT_TRUE(std::ranges::is_sorted(ranks.Lines[0].Points, {}, &Chart_Point::Y));
    std::vector<double> at;
    for (const auto& dot : ranks.Dots) {
        if (dot.Marked)
            at.push_back(dot.X);
    }
    EXPECT_EQ(at, (std::vector<double>{16, 17}));
}

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

// Whether a window of another mode shows its figures: Tier 2.
TEST_F(Overview_Window_Test, Soil_Modes_Show_A_Concentration_By_Depth_And_Average)
{
    const std::string at = "-C " + Installation().string();
    ASSERT_EQ(Orvelctl(at + " mark --mode efsa --pesticide demo_S.psm --crop Potatoes --all"), 0);
    ASSERT_EQ(Orvelctl(at + " start --mode efsa --wait"), 0);
    Overview_Window window(The_Session, Mode_Kind::Efsa);
    Settle(window);
    const auto* model = Find<QTreeView>(window, "Table")->model();
    ASSERT_EQ(model->rowCount(), 2); // pore water and total content
    QString first = Cell(window, 1, First_Location);
    EXPECT_TRUE(first.contains('.')) << first.toStdString();
    EXPECT_TRUE(Find<QComboBox>(window, "Depth")->isVisible());
    // Bars of the three soils of the row alone, and the averages of the marked one.
    auto* table = Find<QTreeView>(window, "Table");
    table->setCurrentIndex(table->model()->index(1, First_Location));
    const Chart& bars = Find<Chart_View>(window, "Picture")->Shown_Chart();
    EXPECT_EQ(bars.Boxes.size(), 3U);
    EXPECT_EQ(bars.X.Ticks.size(), 3U);
    EXPECT_EQ(bars.Boxes.at(0).Label, first.toStdString());
    EXPECT_TRUE(bars.Lines.empty()); // the limit is that of water
    const Chart& averages = Find<Chart_View>(window, "Ranks")->Shown_Chart();
    ASSERT_EQ(averages.Dots.size(), 11U);
    EXPECT_TRUE(std::ranges::is_sorted(averages.Lines.at(0).Points, std::greater<>(), &Chart_Point::Y));
    EXPECT_EQ(averages.Lines[0].Points[0].Y, bars.Boxes[0].Y);
    EXPECT_TRUE(averages.Dots[0].Marked);
    Leave_Picture(window, "overview_efsa");

    Pick(window, "Average", "100 d");

    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            const QString now = Cell(window, 1, First_Location);
            return now.contains('.') && now != first;
        },
        Patience));
    const Chart& longest = Find<Chart_View>(window, "Ranks")->Shown_Chart();
    EXPECT_TRUE(longest.Dots.back().Marked);
    EXPECT_EQ(Find<Chart_View>(window, "Picture")->Shown_Chart().Boxes.at(0).Y, longest.Lines.at(0).Points.back().Y);
}

} // namespace orvel
