#include "evaluation/forms/inout_sel.h"

#include "output/engine_files.h"
#include "temporary_directory.h"
#include "window_test.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>

namespace orvel {

namespace fs = std::filesystem;

namespace {

class inout_sel_Test : public Window_Test {
protected:
    inout_sel_Test() { The_Session.Program.App_Path = Place.Path(); }

    void Put_Run(const std::string& frequency)
    {
        Write_File(Place / "echo.orv", Echo_File({.Frequency_Water = frequency, .Frequency_Pest = frequency}));
        Write_File(Place / "plot.orv", Plot_Head_Of(1, 0));
    }

    void Open()
    {
        Form = std::make_unique<inout_sel>(The_Session);
        Form->show();
    }

    QStringList Entries(const QString& name)
    {
        QStringList entries;
        const auto* list = Find<QListWidget>(*Form, name);
        for (int row = 0; row < list->count(); ++row)
            entries << list->item(row)->text();
        return entries;
    }

    void Click_Entry(const QString& name, int row)
    {
        auto* list = Find<QListWidget>(*Form, name);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(row)).center());
    }

    // Runs what opens a window; its name and text.
    template <class Act> std::pair<QString, QString> Opened_By(Act act)
    {
        std::pair<QString, QString> opened;
        QTimer::singleShot(0, [&] {
            QWidget* form = QApplication::activeModalWidget();
            const auto* text = form->findChild<QPlainTextEdit*>("Ergebnis");
            opened = {form->objectName(), text ? text->toPlainText() : QString()};
            form->close();
        });
        act();
        return opened;
    }

    bool Enabled(const QString& name) { return Find<QPushButton>(*Form, name)->isEnabled(); }

    Temporary_Directory Place;
    std::unique_ptr<inout_sel> Form;
};

} // namespace

TEST_F(inout_sel_Test, Lists_The_Files_Of_The_Installation_By_Their_Kinds)
{
    for (const char* name : {"b.psm", "A.PSM", "x.sze", "y.cli", "echo.orv", "other.txt"})
        Write_File(Place / name, "text\r\n");
    Open();

    EXPECT_EQ(Entries("File_psm"), (QStringList{"A.PSM", "b.psm"}));
    EXPECT_EQ(Entries("File_sze"), QStringList{"x.sze"});
    EXPECT_EQ(Entries("File_cli"), QStringList{"y.cli"});
    EXPECT_EQ(Entries("File_orv"), QStringList{"echo.orv"});
}

TEST_F(inout_sel_Test, A_Click_On_A_File_Shows_Its_Text)
{
    Write_File(Place / "a.psm", "pesticide\r\n");
    Open();

    const auto [name, text] = Opened_By([&] { Click_Entry("File_psm", 0); });

    EXPECT_EQ(name, "Form_filetext");
    EXPECT_EQ(text, "pesticide\n");
}

TEST_F(inout_sel_Test, A_Run_Without_Columns_Has_No_Parameters_And_No_Diagram)
{
    Put_Run("MNTH");
    Write_File(Place / "plot.orv", Plot_Head_Of(0, 0));
    Open();

    EXPECT_EQ(Find<QComboBox>(*Form, "Parameter")->count(), 0);
    EXPECT_FALSE(Find<QPushButton>(*Form, "Grafik")->isEnabled());
}

TEST_F(inout_sel_Test, A_Directory_Without_Series_Leaves_The_Tables_And_The_Parameters_Empty)
{
    Open();

    EXPECT_EQ(Find<QComboBox>(*Form, "Parameter")->count(), 0);
    for (const char* name : {"S_Jaehrlich", "S_Monatlich", "S_Taeglich", "s_Echo", "Grafik"})
        EXPECT_FALSE(Enabled(name)) << name;
    for (const char* name : {"Parameter", "Cumulative", "Zeitintervall_0"})
        EXPECT_FALSE(Find<QWidget>(*Form, name)->isEnabled()) << name;
}

TEST_F(inout_sel_Test, The_Tables_By_Month_And_Day_Go_By_The_Output_Of_The_Run)
{
    Put_Run("YEAR");
    Open();
    EXPECT_TRUE(Enabled("S_Jaehrlich"));
    EXPECT_FALSE(Enabled("S_Monatlich"));

    Put_Run("MNTH");
    Open();
    EXPECT_TRUE(Enabled("S_Monatlich"));
    EXPECT_FALSE(Enabled("S_Taeglich"));

    Put_Run("DAY");
    Open();
    EXPECT_TRUE(Enabled("S_Monatlich"));
    EXPECT_TRUE(Enabled("S_Taeglich"));
    EXPECT_GT(Find<QComboBox>(*Form, "Parameter")->count(), 0);
}

TEST_F(inout_sel_Test, A_Double_Click_Goes_Into_A_Directory_And_Back)
{
    fs::create_directories(Place / "Run_1");
    Write_File(Place / "Run_1" / "old.psm", "text\r\n");
    Open();
    ASSERT_EQ(Entries("Verzeichnisliste"), (QStringList{"..", "Run_1"}));

    auto* directories = Find<QListWidget>(*Form, "Verzeichnisliste");
    const auto double_click = [&](int row) {
        const QPoint place = directories->visualItemRect(directories->item(row)).center();
        QTest::mouseClick(directories->viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(directories->viewport(), Qt::LeftButton, {}, place);
    };
    double_click(1);
    EXPECT_EQ(Entries("File_psm"), QStringList{"old.psm"});

    double_click(0);
    EXPECT_EQ(Entries("File_psm"), QStringList{});
    EXPECT_EQ(Find<QLabel>(*Form, "Pfad")->toolTip().toStdString(), Place.Path().string());
}

TEST_F(inout_sel_Test, Return_And_Enter_Act_As_A_Double_Click_On_The_Entry_At_Hand)
{
    fs::create_directories(Place / "Run_1");
    Write_File(Place / "Run_1" / "old.psm", "old pesticide\r\n");
    Open();
    auto* directories = Find<QListWidget>(*Form, "Verzeichnisliste");
    // Keys go to the active window.
    const auto go_to = [&](QListWidget* list, int row) {
        Form->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(Form.get()));
        list->setFocus();
        list->setCurrentRow(row);
    };

    go_to(directories, 1);
    QTest::keyClick(directories, Qt::Key_Return);
    EXPECT_EQ(Entries("File_psm"), QStringList{"old.psm"});

    auto* files = Find<QListWidget>(*Form, "File_psm");
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        go_to(files, 0);
        const auto [name, text] = Opened_By([&] { QTest::keyClick(files, key); });
        EXPECT_EQ(name, "Form_filetext");
        EXPECT_EQ(text, "old pesticide\n");
    }

    go_to(directories, 0);
    QTest::keyClick(directories, Qt::Key_Enter);
    EXPECT_EQ(Entries("Verzeichnisliste"), (QStringList{"..", "Run_1"}));
}

TEST_F(inout_sel_Test, Return_Without_An_Entry_At_Hand_Does_Nothing)
{
    Open();
    auto* files = Find<QListWidget>(*Form, "File_cli");
    ASSERT_TRUE(QTest::qWaitForWindowActive(Form.get()));
    files->setFocus();

    QTest::keyClick(files, Qt::Key_Return);

    EXPECT_FALSE(QApplication::activeModalWidget());
    EXPECT_TRUE(Form->isVisible());
}

TEST_F(inout_sel_Test, A_Table_That_Cannot_Be_Made_Is_Told_With_The_Utilitys_Sentence)
{
    Put_Run("YEAR");
    Write_File(Place / "wyear.exe", "#!/bin/sh\necho The file plot.orv is damaged. >&2\nexit 1\n");
    fs::permissions(Place / "wyear.exe", fs::perms::owner_all);
    Open();

    Click<QPushButton>(*Form, "S_Jaehrlich");

    const auto* told = Find<QLabel>(*Form, "Nachricht");
    ASSERT_TRUE(QTest::qWaitFor([&] { return !told->text().startsWith("Please wait"); }));
    EXPECT_EQ(told->text(), "The table could not be made. The file plot.orv is damaged.");
    EXPECT_FALSE(fs::exists(Place / "utility.log"));
}

TEST_F(inout_sel_Test, Yearly_Makes_The_Table_First_And_Shows_It_At_The_Next_Click)
{
    Put_Run("YEAR");
    Write_File(Place / "wyear.exe", "#!/bin/sh\necho table by year > year.orv\n");
    fs::permissions(Place / "wyear.exe", fs::perms::owner_all);
    Open();

    Click<QPushButton>(*Form, "S_Jaehrlich");
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return Find<QLabel>(*Form, "Nachricht")->text().startsWith("The table is ready"); }));
    const auto [name, text] = Opened_By([&] { Click<QPushButton>(*Form, "S_Jaehrlich"); });

    EXPECT_EQ(name, "Form_filetext");
    EXPECT_EQ(text, "table by year");
    EXPECT_TRUE(Entries("File_orv").contains("year.orv"));
}

TEST_F(inout_sel_Test, Opens_The_Echo_And_The_Diagram_Of_The_Directory)
{
    Put_Run("YEAR");
    Open();

    EXPECT_EQ(Opened_By([&] { Click<QPushButton>(*Form, "s_Echo"); }).first, "Echo_ORV");
    EXPECT_EQ(Opened_By([&] { Click<QPushButton>(*Form, "Grafik"); }).first, "taegliches_Diagramm_neu");
}

} // namespace orvel
