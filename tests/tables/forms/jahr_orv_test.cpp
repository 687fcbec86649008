#include "tables/forms/jahr_orv.h"

#include "core/files.h"
#include "temporary_directory.h"
#include "window_test.h"

#include <QApplication>
#include <QClipboard>
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
        Write_Whole(Place / "echo.orv", "*** PARAMETERS OF Demo***\r\n");
        Write_Whole(Place / "year.orv", "Kremsm\xFCnster by year\r\n\t80 Perc.(10/11)\t0\t0\t0.000\r\n");
        Write_Whole(Place / "period.orv", "by period\r\n");
        Form = std::make_unique<Jahr_ORV>(The_Session, Place.Path());
    }

    void Open()
    {
        Form->show();
        ASSERT_TRUE(QTest::qWaitFor([&] { return Find<QPushButton>(*Form, "Ende")->isEnabled(); }));
    }

    QString Text(int index) { return Find<QPlainTextEdit>(*Form, QString("Ergebnis_%1").arg(index))->toPlainText(); }
    bool In_Front(int index) { return Find<QPlainTextEdit>(*Form, QString("Ergebnis_%1").arg(index))->isVisible(); }
    QString Button_Caption() { return Find<QPushButton>(*Form, "Umschalter")->text(); }

    Temporary_Directory Place;
    std::unique_ptr<Jahr_ORV> Form;
};

} // namespace

TEST_F(Jahr_ORV_Test, Shows_The_Year_Table_First)
{
    Open();

    EXPECT_TRUE(In_Front(0));
    EXPECT_FALSE(In_Front(1));
    EXPECT_TRUE(Text(0).startsWith("Kremsmünster by year")) << Text(0).toStdString();
    EXPECT_TRUE(Text(1).startsWith("by period"));
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
    EXPECT_TRUE(QApplication::clipboard()->text().contains("\t80 Perc.(10/11)\t0"));
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
