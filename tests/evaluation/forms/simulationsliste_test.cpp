#include "evaluation/forms/simulationsliste.h"

#include "core/sha256.h"
#include "core/system/lock.h"
#include "evaluation/forms/put_back_list.h"
#include "output/engine_files.h"
#include "temporary_directory.h"
#include "window_test.h"

#include <chrono>
#include <QFileDialog>
#include <QProgressDialog>
#include <QPushButton>
#include <QScreen>
#include <QSpinBox>
#include <QTableView>
#include <QTableWidget>

namespace orvel {

namespace fs = std::filesystem;

namespace {

class Simulationsliste_Test : public Window_Test {
protected:
    Simulationsliste_Test()
    {
        The_Session.Program.App_Path = Place.Path();
        fs::create_directories(Place / "focus");
    }

    fs::path Put_Run(const fs::path& run, const std::string& echo = "done\r\n")
    {
        fs::create_directories(Place / "focus" / run);
        if (!echo.empty())
            Write_File(Place / "focus" / run / "echo.orv", echo);
        return Place / "focus" / run;
    }

    void Open()
    {
        Form = std::make_unique<Simulationsliste>(The_Session, Mode_Of(Mode_Kind::Focus));
        Form->show();
    }

    QTableView& Grid() { return *Find<QTableView>(*Form, "Grid1"); }
    QString Cell(int row, int column) { return Grid().model()->index(row, column).data().toString(); }
    bool Marked(int row) { return Grid().model()->index(row, 0).data(Qt::AccessibleTextRole) == "selected"; }
    bool Enabled(const QString& name) { return Find<QPushButton>(*Form, name)->isEnabled(); }
    void Click_Row(int row, Qt::KeyboardModifiers keys = {})
    {
        QTest::mouseClick(Grid().viewport(), Qt::LeftButton, keys,
                          Grid().visualRect(Grid().model()->index(row, 2)).center());
    }

    Temporary_Directory Place;
    std::unique_ptr<Simulationsliste> Form;
};

} // namespace

TEST_F(Simulationsliste_Test, An_Empty_Tree_Gives_The_Headings_Only_And_The_Buttons_Off)
{
    Open();

    EXPECT_EQ(Form->windowTitle(), "Table of all FOCUS-Simulations");
    EXPECT_EQ(Grid().model()->rowCount(), 0);
    QStringList headings;
    for (int column = 0; column < Grid().model()->columnCount(); ++column)
        headings << Grid().model()->headerData(column, Qt::Horizontal).toString();
    EXPECT_EQ(headings,
              (QStringList{"", "Pesticide File", "Crop", "Location", "Date", "Status", "Result", "Changed since"}));
    EXPECT_FALSE(Enabled("Auswaehlen"));
    EXPECT_FALSE(Enabled("Loeschen"));
    EXPECT_FALSE(Enabled("Nochmals"));
    EXPECT_TRUE(Enabled("Ende"));
}

TEST_F(Simulationsliste_Test, Tells_The_Three_States_And_The_Result)
{
    Write_File(Place / "focus" / "orveljob.bat", "echo off\r\n");
    Put_Run("a.run/Maize.run/Hamburg_-_(H).run", "");
    const auto busy = Put_Run("b--c.run/Winter_-_cereals.run/Hamburg_-_(H).run");
    Put_Run("d.run/Maize.run/Hamburg_-_(H).run");
    Put_Run("e.run/Maize.run/Hamburg_-_(H).run", "ERROR 21\r\n");
    const auto engine = Lock::Take(busy);
    Open();

    EXPECT_EQ(Cell(0, 5), "Scheduled");
    EXPECT_EQ(Cell(1, 1), "b,c");
    EXPECT_EQ(Cell(1, 2), "Winter cereals");
    EXPECT_EQ(Cell(1, 3), "Hamburg (H)");
    EXPECT_EQ(Cell(1, 5), "Running");
    EXPECT_EQ(Cell(2, 5), "Data available");
    EXPECT_EQ(Cell(2, 6), "unrecorded");
    EXPECT_EQ(Cell(3, 5), "Data available");
    EXPECT_EQ(Cell(3, 6), "unrecorded: ERROR");
    EXPECT_EQ(Cell(0, 6), "");
    EXPECT_FALSE(Cell(0, 4).isEmpty());
    EXPECT_TRUE(Enabled("Nochmals"));
}

TEST_F(Simulationsliste_Test, Tells_The_Verdict_The_Reason_And_What_Has_Changed_Since)
{
    const auto run = Put_Run("a.run/Maize.run/Hamburg_-_(H).run");
    Write_File(run / "a.psm", "before");
    Run_Record record{.Inputs = {{"a.psm", 6, Sha256("before")}},
                      .Years_Expected = 26,
                      .Years_Found = 12,
                      .Verdict = Verdict::Incomplete,
                      .Reason = "The output chem.orv holds 12 of 26 years."};
    Write_File(run / "run.json", Format_Run_Record(record));
    Open();
    EXPECT_EQ(Cell(0, 6), "incomplete: 12 of 26 years");
    EXPECT_EQ(Grid().model()->index(0, 6).data(Qt::ToolTipRole).toString(),
              "The output chem.orv holds 12 of 26 years.");
    EXPECT_EQ(Cell(0, 7), "");
    EXPECT_TRUE(Enabled("Nochmals"));

    Write_File(run / "a.psm", "edited since");
    Open();

    EXPECT_EQ(Cell(0, 7), "a.psm");
}

TEST_F(Simulationsliste_Test, Stop_Asks_The_Job_To_End_And_Resume_Is_For_What_It_Left)
{
    const auto run = Put_Run("a.run/Maize.run/Hamburg_-_(H).run");
    Write_File(Place / "focus" / "orveljob.bat", "echo off\r\n");
    Write_File(run / "run.json", Format_Run_Record({.Verdict = Verdict::Stopped, .Reason = "It was stopped."}));
    {
        const auto job = Lock::Take(Place / "focus");
        Open();
        EXPECT_FALSE(Enabled("Weiter"));
        Click<QPushButton>(*Form, "Anhalten");
        EXPECT_TRUE(fs::exists(Place / "focus" / "orveljob.stop"));
    }
    Open();

    EXPECT_EQ(Cell(0, 6), "stopped");
    EXPECT_TRUE(Enabled("Weiter"));
    EXPECT_FALSE(Enabled("Anhalten"));
}

TEST_F(Simulationsliste_Test, What_Was_Deleted_Is_Put_Back)
{
    const auto run = Put_Run("a.run/Maize.run/Hamburg_-_(H).run");
    Open();
    Click_Row(0);
    The_User.Answers = {Button::Yes};
    Click<QPushButton>(*Form, "Loeschen");
    ASSERT_FALSE(fs::exists(run));

    Put_Back_List bin(The_Session, Mode_Of(Mode_Kind::Focus));
    bin.show();
    EXPECT_EQ(Find<QTableWidget>(bin, "Bin_Grid")->item(0, 2)->text(), "Hamburg (H)");
    Click<QPushButton>(bin, "Zurueck");

    EXPECT_TRUE(fs::exists(run / "echo.orv"));
    EXPECT_EQ(Find<QTableWidget>(bin, "Bin_Grid")->rowCount(), 0);
    EXPECT_FALSE(Find<QPushButton>(bin, "Zurueck")->isEnabled());
}

TEST_F(Simulationsliste_Test, How_Much_The_Bin_Keeps_Is_Set_And_Holds_When_The_Next_One_Is_Deleted)
{
    const auto delete_run = [&](const char* name) {
        const auto run = Put_Run(name);
        Write_File(run / "chem.orv", std::string(700'000, 'x'));
        Open();
        Click_Row(0);
        The_User.Answers = {Button::Yes};
        Click<QPushButton>(*Form, "Loeschen");
    };
    delete_run("a.run/Maize.run/Hamburg_-_(H).run");
    {
        Put_Back_List bin(The_Session, Mode_Of(Mode_Kind::Focus));
        bin.show();
        EXPECT_EQ(Find<QSpinBox>(bin, "Megabytes")->text(), "any number of MB");
        Find<QSpinBox>(bin, "Megabytes")->setValue(1);
        Click<QPushButton>(bin, "Regel");
        EXPECT_EQ(Find<QTableWidget>(bin, "Bin_Grid")->rowCount(), 1);
    }

    delete_run("b.run/Maize.run/Hamburg_-_(H).run");

    Put_Back_List bin(The_Session, Mode_Of(Mode_Kind::Focus));
    EXPECT_EQ(Find<QSpinBox>(bin, "Megabytes")->value(), 1);
    ASSERT_EQ(Find<QTableWidget>(bin, "Bin_Grid")->rowCount(), 1);
    EXPECT_EQ(Find<QTableWidget>(bin, "Bin_Grid")->item(0, 0)->text(), "b");
}

TEST_F(Simulationsliste_Test, Opens_Wide_Enough_For_All_Columns)
{
    Write_File(Place / "focus" / "orveljob.bat", "echo off\r\n");
    Put_Run("a_-_pesticide_-_file_-_with_-_a_-_long_-_name.run/Oil_-_seed_-_rape_-_(summer).run/"
            "Ch\xC3\xA2teaudun_-_(C)--_-_no_-_irrigation.run",
            "ERROR\r\n");
    Open();

    const int last = Grid().model()->columnCount() - 1;
    const int needed = Grid().columnViewportPosition(last) + Grid().fontMetrics().horizontalAdvance("3 inputs");
    EXPECT_TRUE(needed <= Grid().viewport()->width() || Form->width() >= Form->screen()->availableSize().width())
        << needed << " " << Form->width();
}

TEST_F(Simulationsliste_Test, A_Deleted_Row_Of_The_Pending_Batch_Is_Taken_Out_Of_It)
{
    const std::string run = "a.run\\Maize.run\\Hamburg_-_(H).run";
    Put_Run("a.run/Maize.run/Hamburg_-_(H).run", "");
    Write_File(Place / "focus" / "batch.bat",
               "cd " + run +
                   "\r\nif exist *.orv del *.orv\r\norvel401.exe\r\nif exist orvel401.exe del orvel401.exe\r\n");
    Open();
    ASSERT_EQ(Cell(0, 5), "Scheduled");
    Click_Row(0);
    The_User.Answers = {Button::Yes};

    Click<QPushButton>(*Form, "Loeschen");

    EXPECT_EQ(Grid().model()->rowCount(), 0);
    EXPECT_FALSE(fs::exists(Place / "focus" / "batch.bat"));
}

TEST_F(Simulationsliste_Test, The_Marker_Follows_The_Selection_And_Exactly_One_Row_Can_Be_Picked)
{
    Put_Run("a.run/Maize.run/Hamburg_-_(H).run");
    Put_Run("b.run/Maize.run/Hamburg_-_(H).run");
    Open();
    EXPECT_FALSE(Enabled("Auswaehlen"));

    Click_Row(0);
    EXPECT_TRUE(Marked(0));
    EXPECT_TRUE(Enabled("Auswaehlen"));

    Click_Row(1);
    EXPECT_FALSE(Marked(0));
    EXPECT_TRUE(Marked(1));

    Click_Row(0, Qt::ControlModifier);
    EXPECT_TRUE(Marked(0));
    EXPECT_TRUE(Marked(1));
    EXPECT_FALSE(Enabled("Auswaehlen"));
    EXPECT_TRUE(Enabled("Loeschen"));
}

TEST_F(Simulationsliste_Test, Select_Hands_The_Three_Columns_On_And_Closes)
{
    const auto run = Put_Run("my--file.run/Winter_-_cereals.run/Hamburg_-_(H).run");
    Open();

    Click_Row(0);
    Click<QPushButton>(*Form, "Auswaehlen");

    EXPECT_FALSE(Form->isVisible());
    EXPECT_EQ(The_Session.Run.Last_Simulation, (Simulation_Choice{"my,file", "Winter cereals", "Hamburg (H)"}));
    EXPECT_EQ(Form->Chosen(), run);
}

TEST_F(Simulationsliste_Test, Delete_Asks_And_Removes_All_Selected_Rows)
{
    Put_Run("a.run/Maize.run/Hamburg_-_(H).run");
    Put_Run("b.run/Maize.run/Hamburg_-_(H).run");
    Put_Run("c.run/Maize.run/Hamburg_-_(H).run");
    Open();
    Click_Row(0);
    Click_Row(1, Qt::ShiftModifier);
    The_User.Answers = {Button::Yes};

    Click<QPushButton>(*Form, "Loeschen");

    EXPECT_EQ(The_User.Messages.at(0).Title, "Deleting simulations");
    EXPECT_EQ(The_User.Messages.at(0).Text, "Do you really want to remove these simulations?");
    ASSERT_EQ(Grid().model()->rowCount(), 1);
    EXPECT_EQ(Cell(0, 1), "c");
    EXPECT_FALSE(fs::exists(Place / "focus" / "a.run"));
}

// Whoever thinks longer over the question must not be shown a bar as if the work had begun.
TEST_F(Simulationsliste_Test, The_Bar_Of_A_Deletion_Comes_After_The_Question_And_Stops_It)
{
    constexpr int All = 2000, Crops = 20;
    for (int run = 0; run < All; ++run)
        Put_Run("a.run/Crop" + std::to_string(run % Crops) + ".run/Place" + std::to_string(run / Crops) + ".run");
    Open();
    Grid().selectAll();
    bool bar_at_question = false;
    The_Session.Ask = [&](const Message& message) {
        bar_at_question = Form->findChild<QProgressDialog*>() != nullptr;
        The_User(message);
        return Button::Yes;
    };
    QTimer hand;
    QObject::connect(&hand, &QTimer::timeout, [&] {
        auto* bar = Form->findChild<QProgressDialog*>("Work_Bar");
        if (bar && bar->isVisible() && !bar->wasCanceled())
            QTest::mouseClick(bar->findChild<QPushButton*>(), Qt::LeftButton);
    });
    hand.start(5);

    Click<QPushButton>(*Form, "Loeschen");

    EXPECT_FALSE(bar_at_question);
    EXPECT_EQ(The_User.Messages.size(), 1U);
    EXPECT_GT(Grid().model()->rowCount(), 0);
    EXPECT_LT(Grid().model()->rowCount(), All);
    EXPECT_EQ(Form->findChild<QProgressDialog*>(), nullptr);
}

TEST_F(Simulationsliste_Test, A_Run_Without_An_Echo_And_Without_A_Job_Is_Gone_On_Opening)
{
    Put_Run("a.run/Maize.run/Hamburg_-_(H).run", "");

    Open();

    EXPECT_EQ(Grid().model()->rowCount(), 0);
    EXPECT_FALSE(fs::exists(Place / "focus" / "a.run" / "Maize.run"));
}

TEST_F(Simulationsliste_Test, Refreshes_By_Itself_While_There_Is_A_Job_File_And_Keeps_The_Selection)
{
    Write_File(Place / "focus" / "orveljob.bat", "echo off\r\n");
    const auto run = Put_Run("a.run/Maize.run/Hamburg_-_(H).run", "");
    Open();
    Click_Row(0);

    Write_File(run / "echo.orv", "done\r\n");

    EXPECT_TRUE(QTest::qWaitFor([&] { return Cell(0, 5) == "Data available"; }));
    EXPECT_TRUE(Marked(0));
}

TEST_F(Simulationsliste_Test, A_Click_On_A_Heading_Sorts_And_The_Field_Filters)
{
    for (const char* run : {"b.run/Maize.run/x.run", "a.run/Vines.run/y.run", "c.run/Maize.run/z.run"})
        Put_Run(run);
    Open();
    const auto pesticides = [this] {
        QString names;
        for (int row = 0; row < Grid().model()->rowCount(); ++row)
            names += Cell(row, 1);
        return names;
    };
    EXPECT_EQ(pesticides(), "abc");

    Grid().sortByColumn(1, Qt::DescendingOrder);
    EXPECT_EQ(pesticides(), "cba");
    QTest::keyClicks(Find<QLineEdit>(*Form, "Filter"), "maize");
    EXPECT_EQ(pesticides(), "cb");
    Click_Row(0);
    Click<QPushButton>(*Form, "Auswaehlen");
    EXPECT_EQ(Form->Chosen().filename(), "z.run"); // the row that is seen
}

TEST_F(Simulationsliste_Test, The_Delete_Key_Deletes_And_Return_Selects)
{
    Put_Run("a.run/Maize.run/x.run");
    const auto kept = Put_Run("b.run/Maize.run/x.run");
    Open();
    Form->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(Form.get()));
    The_User.Answers = {Button::Yes};
    Click_Row(0);

    QTest::keyClick(&Grid(), Qt::Key_Delete);
    EXPECT_EQ(Grid().model()->rowCount(), 1);
    Click_Row(0);
    QTest::keyClick(&Grid(), Qt::Key_Return);

    EXPECT_FALSE(Form->isVisible());
    EXPECT_EQ(Form->Chosen(), kept);
}

TEST_F(Simulationsliste_Test, Five_Thousand_Runs_Are_Shown_At_Once)
{
    for (int pesticide = 0; pesticide < 50; ++pesticide) {
        for (int crop = 0; crop < 10; ++crop) {
            for (int location = 0; location < 10; ++location)
                Put_Run("p" + std::to_string(pesticide) + ".run/c" + std::to_string(crop) + ".run/l" +
                        std::to_string(location) + ".run");
        }
    }
    const auto begin = std::chrono::steady_clock::now();

    Open();

    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin;
    EXPECT_EQ(Grid().model()->rowCount(), 5000);
    RecordProperty("seconds", std::to_string(taken.count()));
    EXPECT_LT(taken.count(), 10);
}

TEST_F(Simulationsliste_Test, One_Simulation_Is_Archived_With_The_Others_Of_Its_Pesticide_And_Crop)
{
    Put_Run("a.run/Maize.run/Hamburg_-_(H).run");
    Put_Run("a.run/Maize.run/Porto_-_(O).run");
    Put_Run("a.run/Apples.run/Porto_-_(O).run");
    Open();
    EXPECT_FALSE(Enabled("Archivieren"));
    Click_Row(1);
    EXPECT_TRUE(Enabled("Archivieren"));

    In_Modal([this](QWidget& window) {
        auto& dialog = dynamic_cast<QFileDialog&>(window);
        EXPECT_EQ(dialog.selectedFiles().value(0).section('/', -1), "a Maize.zip");
        dialog.selectFile(QString::fromStdString((Place / "archive.zip").string()));
        QMetaObject::invokeMethod(&dialog, "accept");
    });
    Click<QPushButton>(*Form, "Archivieren");

    EXPECT_TRUE(fs::exists(Place / "archive.zip"));
    ASSERT_EQ(The_User.Messages.size(), 1U);
    EXPECT_TRUE(The_User.Messages[0].Text.starts_with("2 simulations with ")) << The_User.Messages[0].Text;
}

} // namespace orvel
