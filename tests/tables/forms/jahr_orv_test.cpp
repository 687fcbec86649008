#include "tables/forms/jahr_orv.h"

#include "tables/leachate_run.h"
#include "tables/leachate_tables.h"
#include "window_test.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>

namespace orvel {

namespace {

// A run whose two tables were built before: the caches alone are shown.
class Jahr_ORV_Test : public Window_Test {
protected:
    Jahr_ORV_Test()
    {
        std::string plot = Plot_Head_Of(1, 0);
        Write_File(Run / "plot.orv", plot.replace(plot.find("Engine"), 6, "Kremsm\xFCnster"));
        Run.Write_Water(8);
        Run.Write_Chem(".orv", Rising(8), Rising(8));
        Build_Or_Load(Run.Path());
        for (const char* name : {"Wasser.orv", "chem.orv", "plot.orv"})
            std::filesystem::remove(Run / name);
        Form = std::make_unique<Jahr_ORV>(The_Session, Run.Path());
    }

    void Open()
    {
        Form->show();
        ASSERT_TRUE(QTest::qWaitFor([&] { return Find<QPushButton>(*Form, "Ende")->isEnabled(); }));
    }

    QString Text(int index) { return Find<QPlainTextEdit>(*Form, QString("Ergebnis_%1").arg(index))->toPlainText(); }
    bool In_Front(int index) { return Find<QPlainTextEdit>(*Form, QString("Ergebnis_%1").arg(index))->isVisible(); }
    QString Button_Caption() { return Find<QPushButton>(*Form, "Umschalter")->text(); }

    Leachate_Run Run;
    std::unique_ptr<Jahr_ORV> Form;
};

} // namespace

TEST_F(Jahr_ORV_Test, Shows_The_Year_Table_First)
{
    Open();

    EXPECT_TRUE(In_Front(0));
    EXPECT_FALSE(In_Front(1));
    EXPECT_TRUE(Text(0).startsWith("Kremsmünster\nScenario")) << Text(0).toStdString();
    EXPECT_TRUE(Text(0).contains("\t  Year  \t"));
    EXPECT_TRUE(Text(1).contains("\t     Period \t"));
}

TEST_F(Jahr_ORV_Test, Captions_Name_The_Table_In_View_And_The_Word_Annual_Stands_On_The_Period_Table)
{
    EXPECT_EQ(Button_Caption(), "Water Balance");
    Open();
    EXPECT_EQ(Button_Caption(), "Year");
    EXPECT_EQ(Form->windowTitle(), "Table of Average Concentrations in Leachate");

    Click<QPushButton>(*Form, "Umschalter");
    EXPECT_EQ(Button_Caption(), "Period");
    EXPECT_EQ(Form->windowTitle(), "Table of Annual Average Concentrations in Leachate");
    EXPECT_TRUE(In_Front(1));

    Click<QPushButton>(*Form, "Umschalter");
    EXPECT_EQ(Button_Caption(), "Year");
    EXPECT_TRUE(In_Front(0));
}

TEST_F(Jahr_ORV_Test, Copies_Both_Tables_One_Behind_The_Other)
{
    Open();

    Click<QPushButton>(*Form, "Kopieren");

    EXPECT_EQ(QApplication::clipboard()->text(), Text(0) + Text(1));
    EXPECT_TRUE(QApplication::clipboard()->text().contains("\t80 Perc.(8/7)\t15.0000"));
}

TEST_F(Jahr_ORV_Test, Says_When_The_Simulation_Was_Run_Again_Behind_It)
{
    Open();
    EXPECT_FALSE(Find<QWidget>(*Form, "Nachricht")->isVisible());
    std::filesystem::last_write_time(Run / "echo.orv",
                                     std::filesystem::file_time_type::clock::now() + std::chrono::seconds(1));

    QEvent back(QEvent::WindowActivate); // another window was in front, and was closed
    QApplication::sendEvent(Form.get(), &back);

    EXPECT_TRUE(Find<QWidget>(*Form, "Nachricht")->isVisible());
    EXPECT_EQ(Find<QLabel>(*Form, "Nachricht")->text(),
              "The simulation was run again after this table was made: it shows the run before.");
}

TEST_F(Jahr_ORV_Test, Says_That_A_Damaged_Table_Was_Built_Anew)
{
    Run.Write_Water(8);
    Run.Write_Chem(".orv", Rising(8), Rising(8));
    Write_File(Run / "plot.orv", Plot_Head_Of(1, 0));
    Write_File(Run / "period.orv", "");
    Write_File(Run / "year.orv", "");

    Open();

    EXPECT_EQ(Find<QLabel>(*Form, "Nachricht")->text(), "The stored table was damaged: it has been built anew.");
    EXPECT_TRUE(Text(0).contains("\t80 Perc.(8/7)") || Text(0).contains("\tPerc.(8/7)"));
}

TEST_F(Jahr_ORV_Test, Disables_Its_Buttons_While_It_Builds)
{
    Form->show(); // the building itself begins in the next turn of the event loop

    for (const char* name : {"Umschalter", "Kopieren", "Drucken", "Diagramm", "Ende"})
        EXPECT_FALSE(Find<QPushButton>(*Form, name)->isEnabled()) << name;
    EXPECT_TRUE(Find<QWidget>(*Form, "Nachricht")->isVisible());
}

TEST_F(Jahr_ORV_Test, Done_And_Escape_Close_It)
{
    Open();

    Click<QPushButton>(*Form, "Ende");
    EXPECT_FALSE(Form->isVisible());

    Form->show();
    QTest::keyClick(Form.get(), Qt::Key_Escape);
    EXPECT_FALSE(Form->isVisible());
}

} // namespace orvel
