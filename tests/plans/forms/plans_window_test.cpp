// Plans in their window, as a modeller goes: pasted from a spreadsheet or made by the small form, run by the shipped
// programs with the real engine, and looked at.
#include "charts/forms/chart_view.h"
#include "core/csv_reader.h"
#include "core/files.h"
#include "core/shell_line.h"
#include "orvelctl_program.h"
#include "plans/forms/plans_window.h"
#include "plans/plan_directory.h"
#include "runs/start_up.h"
#include "temporary_directory.h"
#include "ui/forms/path_label.h"
#include "window_test.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <QCheckBox>
#include <QClipboard>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTableView>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr int Patience = 60'000; // ms, for a few runs on a busy machine

class Plans_Window_Test : public Window_Test {
protected:
    static void SetUpTestSuite()
    {
        Home = new Temporary_Directory;
        ASSERT_EQ(Orvelctl("init " + Installation().string()), 0);
    }
    static void TearDownTestSuite() { delete Home; }

    Plans_Window_Test()
    {
        The_Session.Program.App_Path = Installation();
        Start_Up(The_Session);
    }

    static fs::path Installation() { return Home->Path() / "installation"; }

    // What the command line prints of a plan's results: the figures by id.
    std::map<std::string, std::string> Results_Of(const fs::path& directory)
    {
        const auto file = Place / "printed.csv";
        EXPECT_EQ(Orvelctl("plan results '" + directory.string() + "'", file), 0);
        const std::string text = Read_Whole(file);
        Csv_Reader rows(Source_Of(text));
        Csv_Row row;
        rows.Next(row);
        const auto percentile =
            static_cast<std::size_t>(std::ranges::find(row.Fields, "percentile") - row.Fields.begin());
        std::map<std::string, std::string> figures;
        while (rows.Next(row))
            figures[row.Fields[0]] = row.Fields[percentile];
        return figures;
    }

    // A plan of so many runs, ready to be opened.
    fs::path Plan_Of(int runs, const std::string& name = "plan.csv")
    {
        std::string text = "id,mode,pesticide,crop,location,psm.Koc[1],#row\n";
        for (int run = 1; run <= runs; ++run)
            text += std::to_string(run) + ",focus,demo_D.psm,Winter cereals,Hamburg (H)," + std::to_string(20 + run) +
                    "," + std::to_string(run % 2) + "\n";
        Write_Whole(Place / name, text);
        return Place / name;
    }

    static QAbstractItemModel& Model(const QWidget& window) { return *Find<QTableView>(window, "Table")->model(); }
    static QString Cell(const QWidget& window, int row, int column)
    {
        return Model(window).index(row, column).data().toString();
    }
    static int Column(const QWidget& window, const QString& head)
    {
        for (int column = 0; column < Model(window).columnCount(); ++column) {
            if (Model(window).headerData(column, Qt::Horizontal).toString() == head)
                return column;
        }
        return -1;
    }

    static bool Is_Complete(const QWidget& window)
    {
        const int state = Column(window, "state");
        for (int row = 0; row < Model(window).rowCount(); ++row) {
            if (Cell(window, row, state) != "complete")
                return false;
        }
        return state > 0 && Model(window).rowCount() > 0;
    }

    // Opens a plan and waits for its rows.
    static void Open(Plans_Window& window, const fs::path& plan, int rows)
    {
        window.show();
        window.Open(plan);
        ASSERT_TRUE(QTest::qWaitFor([&] { return Model(window).rowCount() == rows; }, Patience));
        ASSERT_TRUE(QTest::qWaitFor([&] { return !Find<QLabel>(window, "Status")->text().isEmpty(); }, Patience));
    }

    // Presses a button that opens a file dialog, and chooses a file there.
    static void Choose_File(const QWidget& window, const QString& button, const fs::path& file)
    {
        In_Modal([&](QWidget& dialog) {
            Find<QLineEdit>(dialog, "fileNameEdit")->setText(QString::fromStdString(file.string()));
            static_cast<QFileDialog&>(dialog).selectFile(QString::fromStdString(file.string()));
            QMetaObject::invokeMethod(&dialog, "accept");
        });
        Click<QPushButton>(window, button);
    }

    const Chart& Picture(const QWidget& window) { return Find<Chart_View>(window, "Picture")->Shown_Chart(); }

    static inline Temporary_Directory* Home = nullptr;
    Temporary_Directory Place;
};

void Leave_Picture(QWidget& window, const QString& name)
{
    if (const char* place = std::getenv("ORVEL_PICTURES"))
        window.grab().save(QString(place) + "/" + name + ".png");
}

} // namespace

TEST_F(Plans_Window_Test, Pasted_Rows_Are_Run_And_Their_Figures_Are_Those_Of_The_Command_Line)
{
    Plans_Window window(The_Session);
    window.show();
    QApplication::clipboard()->setText("id\tmode\tpesticide\tcrop\tlocation\tpsm.Koc[1]\t#factor psm.Koc[1]\t#note\r\n"
                                       "low\tfocus\tdemo_A.psm\tWinter cereals\tHamburg (H)\t30,5\t0,5\tone, two\r\n"
                                       "is\tfocus\tdemo_A.psm\tWinter cereals\tHamburg (H)\t61,0\t1\tthree\r\n"
                                       "high\tfocus\tdemo_A.psm\tWinter cereals\tHamburg (H)\t122,0\t2\tthree\r\n");
    The_User.Answers = {Button::Yes};
    Choose_File(window, "Paste_Plan", Place / "pasted.csv");
    ASSERT_EQ(The_User.Messages.size(), 1U); // about the commas, once
    ASSERT_TRUE(QTest::qWaitFor([&] { return Model(window).rowCount() == 3; }, Patience));
    EXPECT_EQ(Cell(window, 0, Column(window, "psm.Koc[1]")), "30.5");
    EXPECT_EQ(Cell(window, 0, Column(window, "#note")), "one, two");
    EXPECT_TRUE(Cell(window, 0, Column(window, "state")).endsWith("scheduled"));
    EXPECT_EQ(Find<Path_Label>(window, "Directory_Path")->Path().toStdString(), (Place / "pasted").string());

    Click<QPushButton>(window, "Run_Plan");
    ASSERT_TRUE(QTest::qWaitFor([&] { return Is_Complete(window); }, Patience))
        << Find<QLabel>(window, "Note")->text().toStdString();

    const auto figures = Results_Of(Place / "pasted");
    ASSERT_EQ(figures.size(), 3U);
    const int column = Column(window, QString::fromUtf8("Demo substance A [µg/L]"));
    ASSERT_GT(column, 0);
    for (int row = 0; row < 3; ++row)
        EXPECT_EQ(Cell(window, row, column).toStdString(), figures.at(Cell(window, row, 0).toStdString()));
    EXPECT_FALSE(Find<QPushButton>(window, "Run_Plan")->isEnabled());
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return Find<QLabel>(window, "Status")->text() == "3 runs, 3 complete"; }, Patience));

    std::vector<double> sorted;
    for (const auto& [id, figure] : figures)
        sorted.push_back(std::stod(figure));
    std::ranges::sort(sorted);
    const auto& steps = Picture(window).Lines.front().Points;
    ASSERT_EQ(steps.size(), 8U);
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_EQ(steps[2 * i + 1].X, sorted[i]);
    Pick(window, "Labels", "#note");
    EXPECT_EQ(Picture(window).Key[1].Text, "three");
    Leave_Picture(window, "plans_distribution");
    Pick(window, "Kind", "Effect of each factor");
    ASSERT_EQ(Picture(window).Bars.size(), 2U);
    const auto changed = [&](std::size_t bar) { return Picture(window).Bars[bar].To + Picture(window).X.First; };
    EXPECT_NEAR(changed(0), sorted[2], 1e-9);
    EXPECT_NEAR(changed(1), sorted[0], 1e-9);
}

TEST_F(Plans_Window_Test, A_Sweep_Is_Made_By_The_Form_As_By_The_Command_Line)
{
    Plans_Window window(The_Session);
    window.show();
    const auto run = " --mode focus --pesticide demo_D.psm --crop 'Winter cereals' --location 'Hamburg (H)'";
    ASSERT_EQ(Orvelctl("-C " + Installation().string() + " plan sweep" + run +
                       " --shift -7:7:7 --factor 'psm.Koc[1]=0.5,1' --to " + (Place / "expected.csv").string()),
              0);

    QTimer::singleShot(0, [&] {
        auto* form = QApplication::activeModalWidget();
        ASSERT_NE(form, nullptr);
        Pick(*form, "Pesticide", "demo_D.psm");
        Pick(*form, "Crop", "Winter cereals");
        Pick(*form, "Location", "Hamburg (H)");
        Retype(*form, "Shift", "nonsense");
        Click<QPushButton>(*form, "Make");
        EXPECT_TRUE(The_User.Messages.back().Text.starts_with("'nonsense' is no range of shifts"));
        Retype(*form, "Shift", "-7:7:7");
        Pick(*form, "Field", "psm.Koc[1]");
        Retype(*form, "Factors", "0.5,1");
        Click<QPushButton>(*form, "Add");
        Leave_Picture(*form, "sweep");
        In_Modal([&](QWidget& dialog) {
            static_cast<QFileDialog&>(dialog).selectFile(QString::fromStdString((Place / "made.csv").string()));
            QMetaObject::invokeMethod(&dialog, "accept");
        });
        Click<QPushButton>(*form, "Make");
    });
    Click<QPushButton>(window, "Make_Sweep");

    EXPECT_EQ(Read_Whole(Place / "made.csv"), Read_Whole(Place / "expected.csv"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return Model(window).rowCount() == 6; }, Patience));
    Click<QPushButton>(window, "Run_Plan");
    ASSERT_TRUE(QTest::qWaitFor([&] { return Is_Complete(window); }, Patience));

    Pick(window, "Kind", "By date of application");
    const auto figures = Results_Of(Place / "made");
    const auto& points = Picture(window).Lines.front().Points;
    ASSERT_EQ(points.size(), 3U);
    for (std::size_t day = 0; day < 3; ++day) // the second of each two has the factor 1
        EXPECT_EQ(points[day].Y, std::stod(figures.at(std::to_string(2 * day + 2))));
    EXPECT_TRUE(Picture(window).X.Ticks.front().Label.ends_with('.'));
    Leave_Picture(window, "plans_by_date");
    Pick(window, "Kind", "Effect of each factor");
    const auto& effects = Picture(window);
    ASSERT_EQ(effects.Y.Ticks.size(), 2U);
    EXPECT_EQ(effects.Y.Ticks.back().Label, "psm.Koc[1]"); // it moves the figure farther than a week does
    EXPECT_NEAR(effects.Bars.front().From + effects.X.First, std::stod(figures.at("4")), 1e-9);
    EXPECT_NEAR(effects.Bars.front().To + effects.X.First, std::stod(figures.at("3")), 1e-9);
    Leave_Picture(window, "plans_effects");
}

// The runs are those of another program: they go on when the window has gone.
TEST_F(Plans_Window_Test, A_Plan_Is_Stopped_Goes_On_And_Outlives_The_Window)
{
    constexpr int Runs = 12;
    const auto plan = Plan_Of(Runs);
    auto window = std::make_unique<Plans_Window>(The_Session);
    Open(*window, plan, Runs);
    Find<QSpinBox>(*window, "Jobs")->setValue(1);
    Click<QPushButton>(*window, "Run_Plan");
    auto* stop = Find<QPushButton>(*window, "Stop_Plan");
    ASSERT_TRUE(QTest::qWaitFor([&] { return stop->isEnabled(); }, Patience));
    EXPECT_FALSE(Find<QPushButton>(*window, "Run_Plan")->isEnabled());
    const int state = Column(*window, "state");
    ASSERT_TRUE(QTest::qWaitFor([&] { return Cell(*window, 0, state) == "complete"; }, Patience));
    Click<QPushButton>(*window, "Stop_Plan");
    auto* run = Find<QPushButton>(*window, "Run_Plan");
    ASSERT_TRUE(QTest::qWaitFor([&] { return run->isEnabled(); }, Patience));
    EXPECT_EQ(run->text(), "&Resume");
    EXPECT_FALSE(Is_Complete(*window));
    Pick(*window, "States", "complete");
    EXPECT_LT(Model(*window).rowCount(), Runs);
    Pick(*window, "States", "all runs");

    Click<QPushButton>(*window, "Run_Plan");
    ASSERT_TRUE(QTest::qWaitFor([&] { return stop->isEnabled(); }, Patience));
    window.reset();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !At_Work_Since(Place / "plan"); }, Patience));

    Plans_Window another(The_Session);
    Open(another, Place / "plan", Runs); // by the directory of its runs
    EXPECT_TRUE(QTest::qWaitFor([&] { return Is_Complete(another); }, Patience));
}

// Parts may be at work at once, each begun from a window or a command line of its own.
TEST_F(Plans_Window_Test, A_Part_Is_Run_With_Its_Limit)
{
    Plans_Window window(The_Session);
    Open(window, Plan_Of(4), 4);
    EXPECT_EQ(Find<QSpinBox>(window, "Part")->maximum(), 1);
    Find<QSpinBox>(window, "Parts")->setValue(2);
    Find<QSpinBox>(window, "Part")->setValue(2);
    Find<QSpinBox>(window, "Limit")->setValue(600);

    QTimer::singleShot(0, [&] {
        QWidget* box = QApplication::activeModalWidget();
        ASSERT_NE(box, nullptr);
        EXPECT_TRUE(Find<QPlainTextEdit>(*box, "Commands")->toPlainText().contains("--part 2/2 --limit 600"));
        box->close();
    });
    Click<QPushButton>(window, "Befehl");
    Click<QPushButton>(window, "Run_Plan");

    const auto status = [&] { return Find<QLabel>(window, "Status")->text(); };
    ASSERT_TRUE(QTest::qWaitFor([&] { return status() == "4 runs, 2 complete, 2 scheduled"; }, Patience))
        << status().toStdString() << Find<QLabel>(window, "Note")->text().toStdString();
    const int state = Column(window, "state");
    EXPECT_EQ(Cell(window, 1, state), "complete");
    EXPECT_NE(Cell(window, 0, state), "complete");
    EXPECT_NE(Read_Whole(Place / "plan" / "runs" / "0000" / "0000002" / "run.json").find("\"limit\": 600"),
              std::string::npos);

    Find<QSpinBox>(window, "Part")->setValue(1);
    Click<QPushButton>(window, "Run_Plan");
    EXPECT_TRUE(QTest::qWaitFor([&] { return Is_Complete(window); }, Patience)) << status().toStdString();
}

TEST_F(Plans_Window_Test, A_Cluster_Is_Given_The_Plan_With_Tasks_And_Time)
{
    fs::create_directory(Place / "bin");
    Write_Whole(Place / "bin" / "sbatch", "#!/bin/sh\necho \"$*\" > '" + (Place / "asked").string() + "'\necho 4711\n");
    fs::permissions(Place / "bin" / "sbatch", fs::perms::owner_all);
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", QByteArray::fromStdString((Place / "bin").string()) + ":" + path);
    Plans_Window window(The_Session);
    Open(window, Plan_Of(2), 2);
    EXPECT_FALSE(Find<QSpinBox>(window, "Tasks")->isEnabled());
    Click<QCheckBox>(window, "By_Slurm");
    EXPECT_TRUE(Find<QSpinBox>(window, "Tasks")->isEnabled());
    EXPECT_FALSE(Find<QSpinBox>(window, "Part")->isEnabled());
    Find<QSpinBox>(window, "Tasks")->setValue(2);
    Find<QSpinBox>(window, "Minutes")->setValue(30);

    Click<QPushButton>(window, "Run_Plan");
    qputenv("PATH", path);

    EXPECT_EQ(
        The_User.Messages,
        std::vector{(Message{"Plan", "Job 4711, 2 tasks. They go on when this window is closed.", Icon::Information})});
    const std::string asked = Read_Whole(Place / "asked");
    EXPECT_NE(asked.find("--array=1-2 "), std::string::npos) << asked;
    EXPECT_NE(asked.find("--time=30 "), std::string::npos) << asked;
    EXPECT_TRUE(fs::exists(Place / "plan" / "plan.json"));

    // Without a cluster there is a sentence.
    The_User.Messages.clear();
    qputenv("PATH", "/nowhere");
    Click<QPushButton>(window, "Run_Plan");
    qputenv("PATH", path);
    ASSERT_EQ(The_User.Messages.size(), 1U);
    EXPECT_TRUE(The_User.Messages[0].Text.starts_with("There is no sbatch on this machine"))
        << The_User.Messages[0].Text;
}

TEST_F(Plans_Window_Test, What_Others_Do_With_The_Plan_Is_Followed)
{
    const auto plan = Plan_Of(1);
    Plans_Window window(The_Session);
    Open(window, plan, 1);
    EXPECT_FALSE(Find<QPushButton>(window, "Speichern")->isEnabled());

    Plan_Of(2); // it is saved anew
    ASSERT_TRUE(QTest::qWaitFor([&] { return Model(window).rowCount() == 2; }, Patience));
    const std::string run = "-C " + Installation().string() + " plan run " + plan.string() + " --to ";
    ASSERT_EQ(Orvelctl(run + (Place / "plan").string()), 0);
    ASSERT_TRUE(QTest::qWaitFor([&] { return Is_Complete(window); }, Patience));
    EXPECT_TRUE(Find<QPushButton>(window, "Speichern")->isEnabled());

    ASSERT_TRUE(QTest::qWaitFor([&] { return !At_Work_Since(Place / "plan"); }, Patience));
    fs::remove_all(Place / "plan");
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return Cell(window, 0, Column(window, "state")).endsWith("scheduled"); }, Patience));
    EXPECT_TRUE(The_User.Messages.empty());
}

TEST_F(Plans_Window_Test, Results_Are_Copied_And_Saved_As_Table_And_Workbook)
{
    const auto plan = Plan_Of(2);
    ASSERT_EQ(Orvelctl("-C " + Installation().string() + " plan run " + plan.string() + " --to " +
                       (Place / "plan").string() + " --wait"),
              0);
    Plans_Window window(The_Session);
    Open(window, plan, 2);
    ASSERT_TRUE(QTest::qWaitFor([&] { return Is_Complete(window); }, Patience));

    Click<QPushButton>(window, "Kopieren");
    const auto lines = QApplication::clipboard()->text().split('\n');
    EXPECT_EQ(lines[0], QString::fromUtf8("id\t#row\tstate\tDemo substance D [µg/L]\tmode\tpesticide\tcrop\tlocation\t"
                                          "psm.Koc[1]"));
    EXPECT_EQ(lines[1].section('\t', 3, 3).toStdString(), Results_Of(Place / "plan").at("1"));

    Choose_File(window, "Speichern", Place / "saved.csv");
    ASSERT_EQ(Orvelctl("plan results " + (Place / "plan").string() + " --to " + (Place / "printed.csv").string()), 0);
    EXPECT_EQ(Read_Whole(Place / "saved.csv"), Read_Whole(Place / "printed.csv"));
    Choose_File(window, "Speichern", Place / "saved.xlsx");
    EXPECT_TRUE(Read_Whole(Place / "saved.xlsx").starts_with("PK"));
    Choose_File(window, "Speichern", Place / "saved.doc");
    EXPECT_EQ(The_User.Messages.back().Text, "The table of results is written as .csv or .xlsx.");

    In_Modal([&](QWidget& box) {
        const auto commands = Find<QPlainTextEdit>(box, "Commands")->toPlainText();
        EXPECT_TRUE(commands.contains("plan run " + QString::fromStdString(Shell_Word(plan.string())) + " --to "))
            << commands.toStdString();
        EXPECT_TRUE(commands.contains("plan results "));
    });
    Click<QPushButton>(window, "Befehl");
}

TEST_F(Plans_Window_Test, What_Is_Wrong_With_A_Plan_Is_Told_In_A_Sentence)
{
    Plans_Window window(The_Session);
    window.show();
    const std::string good = ",focus,demo_D.psm,Winter cereals,Hamburg (H)\n", head = "id,mode,pesticide,crop,location";
    const auto told_at_opening = [&](const std::string& text) {
        The_User.Messages.clear();
        Write_Whole(Place / "wrong.csv", text);
        window.Open(Place / "wrong.csv");
        EXPECT_TRUE(QTest::qWaitFor([&] { return !The_User.Messages.empty(); }, Patience)) << text;
        EXPECT_FALSE(Find<QPushButton>(window, "Run_Plan")->isEnabled());
        return The_User.Messages.empty() ? std::string() : The_User.Messages.back().Text;
    };
    const auto told_when_run = [&](const std::string& text, int rows) {
        The_User.Messages.clear();
        Write_Whole(Place / "run.csv", text);
        Open(window, Place / "run.csv", rows);
        Click<QPushButton>(window, "Run_Plan");
        EXPECT_FALSE(fs::exists(Place / "run"));
        return The_User.Messages.empty() ? std::string() : The_User.Messages.back().Text;
    };

    EXPECT_EQ(told_at_opening(head + ",colour\na,b,c,d,e,f\n"),
              "Line 1, column 6: There is no column 'colour': a label begins with #, a field to replace with psm. or "
              "sze.");
    EXPECT_EQ(told_at_opening(""), "The plan is empty.");
    EXPECT_EQ(told_at_opening("\xFF\xFE\n"), "Line 1: The text is not UTF-8.");
    EXPECT_EQ(told_when_run(head + "\na" + good + "a" + good, 2),
              "1 row of the plan is wrong.\nLine 3, column 1: The id 'a' is there twice.");
    EXPECT_EQ(told_when_run(head + "\na,focus,gone.psm,Winter cereals,Hamburg (H)\n", 1),
              "1 row of the plan is wrong.\nLine 2, column 3: There is no file gone.psm in " + Installation().string() +
                  ".");

    The_User.Messages.clear();
    window.Open(Place / "nowhere.csv");
    ASSERT_TRUE(QTest::qWaitFor([&] { return !The_User.Messages.empty(); }, Patience));
    EXPECT_NE(The_User.Messages.back().Text.find("nowhere.csv"), std::string::npos);
    window.Open(Installation());
    EXPECT_EQ(The_User.Messages.back().Text, "The directory " + Installation().string() + " holds no plan.");

    QApplication::clipboard()->setText("  \n");
    Click<QPushButton>(window, "Paste_Plan");
    EXPECT_EQ(The_User.Messages.back().Text, "The clipboard holds no text.");
}

// A mark of its encoding and lines of another system are no fault; a row that is too short is shown, and told.
TEST_F(Plans_Window_Test, A_Plan_Of_A_Spreadsheet_Is_Read_As_It_Is)
{
    Plans_Window window(The_Session);
    Write_Whole(Place / "bom.csv", "\xEF\xBB\xBFid;mode;pesticide;crop;location\r\n"
                                   "a;focus;demo_D.psm;Winter cereals;Hamburg (H)\r\nb;focus\r\n;;;;\r\n");
    Open(window, Place / "bom.csv", 2);

    EXPECT_EQ(Cell(window, 0, Column(window, "location")), "Hamburg (H)");
    EXPECT_EQ(Find<QLabel>(window, "Note")->text(), "Line 3, column 3: The row ends before the column 'pesticide'.");
    EXPECT_TRUE(Find<QLabel>(window, "Note")->isVisible());
}

TEST_F(Plans_Window_Test, A_Directory_That_Is_Of_Another_Plan_Or_Takes_Nothing_Is_Told)
{
    const auto first = Plan_Of(1, "first.csv"), second = Plan_Of(2, "second.csv");
    ASSERT_EQ(Orvelctl("-C " + Installation().string() + " plan run " + first.string() + " --to " +
                       (Place / "second").string() + " --wait"),
              0);
    Plans_Window window(The_Session);
    Open(window, second, 2);
    const std::string other = "The directory " + (Place / "second").string() + " holds the runs of another plan.";
    EXPECT_EQ(Find<QLabel>(window, "Note")->text().toStdString(), other);
    Click<QPushButton>(window, "Run_Plan");
    EXPECT_EQ(The_User.Messages.back().Text, other);

    fs::create_directory(Place / "taken");
    Write_Whole(Place / "taken" / "notes.txt", "");
    fs::rename(Place / "second", Place / "kept");
    fs::rename(Place / "taken", Place / "second");
    Click<QPushButton>(window, "Run_Plan");
    EXPECT_EQ(The_User.Messages.back().Text,
              "The directory " + (Place / "second").string() + " is not empty and holds no plan: it has notes.txt.");
    fs::remove_all(Place / "second");
    Write_Whole(Place / "second", ""); // no directory can be made there
    Click<QPushButton>(window, "Run_Plan");
    EXPECT_TRUE(The_User.Messages.back().Text.find((Place / "second").string()) != std::string::npos)
        << The_User.Messages.back().Text;
}

// A plan of a hundred thousand rows: the window is never busy for long, and shows them all.
TEST_F(Plans_Window_Test, A_Long_Plan_Does_Not_Hold_The_Window_Up)
{
    constexpr int Rows = 100'000, Longest = 500; // ms, with room for a busy machine
    const auto plan = Plan_Of(Rows);
    Plans_Window window(The_Session);
    window.show();
    QElapsedTimer since_last;
    qint64 longest = 0;
    QTimer beat;
    QObject::connect(&beat, &QTimer::timeout, [&] { longest = std::max(longest, since_last.restart()); });
    since_last.start();
    beat.start(5);

    Open(window, plan, Rows);
    QTest::qWait(500);

    EXPECT_LT(longest, Longest);
}

} // namespace orvel
