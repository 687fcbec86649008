#include "jobs/forms/form_end.h"

#include "jobs/single_run_start.h"
#include "small_installation.h"
#include "window_test.h"

#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>

namespace orvel {

namespace {

class form_end_Test : public Window_Test {
protected:
    form_end_Test()
    {
        The_Session.Program.App_Path = Place.Path();
        The_Session.Program.Engine_Exe = "orvel401.exe";
        std::filesystem::copy_file(Place / "focus/H_maize.sze", Place / "H_maize.sze");
        for (const char* name : {"a.cli", "b.cli"})
            Write_Whole(Place / name, "Title\r\n");
    }

    void Open()
    {
        const Run_Windows windows{.Open_Run_Files = [this](QWidget* parent) { Opened << parent->objectName(); }};
        Form = std::make_unique<form_end>(The_Session, windows);
        Form->show();
    }

    void Fill_In()
    {
        Choose(*Form, "File_psm", "test.psm");
        Choose(*Form, "File_sce", "H_maize.sze");
        Choose(*Form, "File_cli", "a.cli");
        Click<QPushButton>(*Form, "Command2");
        Type("Combo_stad", "1");
        Type("Combo_endd", "31");
        Find<QComboBox>(*Form, "Combo_stam")->setCurrentIndex(0);
        Find<QComboBox>(*Form, "Combo_endm")->setCurrentIndex(11);
        auto* years = Find<QLineEdit>(*Form, "Text_years");
        years->selectAll();
        QTest::keyClicks(years, "3");
    }

    void Type(const QString& name, const QString& text)
    {
        auto* edit = Find<QComboBox>(*Form, name)->lineEdit();
        edit->selectAll();
        QTest::keyClicks(edit, text);
    }

    // The name of the window that a double click opens; it is closed at once.
    QString Opened_By_Double_Click(QWidget* control, const QPoint& place = {})
    {
        QString name = "none";
        QTimer::singleShot(0, [&] {
            if (QWidget* form = QApplication::activeModalWidget()) {
                name = form->objectName();
                form->close();
            }
        });
        QTest::mouseDClick(control, Qt::LeftButton, {}, place);
        QCoreApplication::processEvents();
        return name;
    }

    QStringList Climates()
    {
        QStringList names;
        const auto* list = Find<QListWidget>(*Form, "List_cli");
        for (int row = 0; row < list->count(); ++row)
            names << list->item(row)->text();
        return names;
    }

    Small_Installation Place;
    std::unique_ptr<form_end> Form;
    QStringList Opened; // from where the files of a run were opened
};

} // namespace

TEST_F(form_end_Test, Shows_The_Files_Of_The_Directory_And_What_Was_Chosen)
{
    Open();
    Choose(*Form, "File_psm", "test.psm");
    Choose(*Form, "File_sce", "H_maize.sze");

    EXPECT_EQ(Find<QLabel>(*Form, "Label2_0")->text(), "test.psm");
    EXPECT_EQ(Find<QLabel>(*Form, "Label2_1")->text(), "H_maize.sze");
}

TEST_F(form_end_Test, A_Double_Click_On_A_Chosen_File_Opens_Its_Editor)
{
    Write_Whole(Place / "a.cli",
                "Demo\r\n 0101811.2500000 0.00E+00  0.00E+00  0.00E+00  0.00E+00  0.00E+00  0.00E+00        \r\n\r\n");
    Open();
    Fill_In();
    auto* climates = Find<QListWidget>(*Form, "List_cli");

    EXPECT_EQ(Opened_By_Double_Click(Find<QLabel>(*Form, "Label2_0")), "Form_PSM_1");
    EXPECT_EQ(The_Session.Program.PSM_File, "test.psm");
    EXPECT_EQ(The_Session.Pesticide.PSM_Title, "Demonstration");
    EXPECT_EQ(Opened_By_Double_Click(Find<QLabel>(*Form, "Label2_1")), "Szenario");
    EXPECT_EQ(The_Session.Scenario.SZE_Title, "DEM 3 H_maize.sze");
    const QPoint entry = climates->visualItemRect(climates->item(0)).center();
    QTest::mouseClick(climates->viewport(), Qt::LeftButton, {}, entry);
    EXPECT_EQ(Opened_By_Double_Click(climates->viewport(), entry), "Klima");
    EXPECT_EQ(The_Session.Climate.Cli_Title, "Demo");
    EXPECT_TRUE(The_User.Messages.empty());
}

TEST_F(form_end_Test, A_Double_Click_On_A_Blank_Name_Does_Nothing_And_A_Missing_File_Is_Told)
{
    Open();
    for (const char* name : {"Label2_0", "Label2_1"})
        QTest::mouseDClick(Find<QLabel>(*Form, name), Qt::LeftButton);
    EXPECT_TRUE(The_User.Messages.empty());
    EXPECT_FALSE(QApplication::activeModalWidget());

    Choose(*Form, "File_psm", "test.psm");
    std::filesystem::remove(Place / "test.psm");
    QTest::mouseDClick(Find<QLabel>(*Form, "Label2_0"), Qt::LeftButton);

    EXPECT_EQ(The_User.Messages.size(), 1U);
    EXPECT_FALSE(QApplication::activeModalWidget());
}

TEST_F(form_end_Test, New_Files_Show_When_The_User_Comes_Back)
{
    Open();
    Write_Whole(Place / "new.cli", "Title\r\n");
    ASSERT_TRUE(Find<QListWidget>(*Form, "File_cli")->findItems("new.cli", Qt::MatchExactly).isEmpty());

    QEvent back(QEvent::WindowActivate);
    QApplication::sendEvent(Form.get(), &back);

    EXPECT_FALSE(Find<QListWidget>(*Form, "File_cli")->findItems("new.cli", Qt::MatchExactly).isEmpty());
}

TEST_F(form_end_Test, Without_Output_The_Archive_Panel_Tells_And_Stays)
{
    Open();
    Click<QPushButton>(*Form, "Command7");

    Click<QPushButton>(*Form, "Command8");

    EXPECT_EQ(The_User.Messages, std::vector{(Message{"File check", "No output files in the current dirctory"})});
    EXPECT_TRUE(Find<QGroupBox>(*Form, "Frame1")->isVisible());
    Click<QPushButton>(*Form, "Command9");
    EXPECT_FALSE(Find<QGroupBox>(*Form, "Frame1")->isVisible());
}

TEST_F(form_end_Test, Without_A_Run_Control_File_It_Opens_Empty)
{
    Open();

    EXPECT_EQ(Find<QLabel>(*Form, "Label2_0")->text(), "");
    EXPECT_EQ(Find<QLineEdit>(*Form, "Text_years")->text(), "");
    EXPECT_EQ(Find<QComboBox>(*Form, "Combo_stad")->currentText(), "");
}

TEST_F(form_end_Test, The_Climate_List_Is_Filled_Inserted_Into_And_Emptied)
{
    Open();
    Choose(*Form, "File_cli", "a.cli");
    Click<QPushButton>(*Form, "Command2");
    Choose(*Form, "File_cli", "b.cli");
    Click<QPushButton>(*Form, "Command1");
    EXPECT_EQ(Climates(), (QStringList{"b.cli", "a.cli"}));

    Choose(*Form, "List_cli", "a.cli");
    Click<QPushButton>(*Form, "Command3");
    EXPECT_EQ(Climates(), QStringList{"b.cli"});
    EXPECT_EQ(Find<QListWidget>(*Form, "List_cli")->currentRow(), 0); // the new last entry
}

TEST_F(form_end_Test, A_Directory_Without_Climate_Files_Is_Told)
{
    std::filesystem::remove(Place / "a.cli");
    std::filesystem::remove(Place / "b.cli");
    Open();

    Click<QPushButton>(*Form, "Command1");

    EXPECT_EQ(The_User.Messages, std::vector{(Message{"File check", "No climatic files available"})});
}

TEST_F(form_end_Test, Starts_The_Engine_With_What_Is_On_The_Form)
{
    Open();
    Fill_In();

    Click<QPushButton>(*Form, "Command4");

    EXPECT_TRUE(The_User.Messages.empty());
    EXPECT_TRUE(Read_Whole(Place / "orvel.inp")
                    .starts_with("003 01 01 31 12\r\nH_maize.sze\r\ntest.psm\r\na.cli\r\na.cli\r\na.cli\r\n"));
}

TEST_F(form_end_Test, A_Refused_Start_Goes_Back_To_Its_Control)
{
    Open();
    Fill_In();
    Find<QComboBox>(*Form, "Combo_stam")->setCurrentIndex(-1);

    Click<QPushButton>(*Form, "Command4");

    EXPECT_EQ(The_User.Messages, std::vector{(Message{"File check", "Select starting month"})});
    EXPECT_EQ(Form->focusWidget(), Find<QComboBox>(*Form, "Combo_stam"));
}

TEST_F(form_end_Test, Old_Output_May_Go_To_The_Archive_Before_The_Run)
{
    Open();
    Fill_In();
    Click<QPushButton>(*Form, "Command4");
    ASSERT_TRUE(QTest::qWaitFor([&] { return !State_Of_Single_Run(Place.Path(), 3).Running; }));
    Write_Whole(Place / "echo.orv", "echo");
    The_User.Answers = {Button::Yes};

    Click<QPushButton>(*Form, "Command4");
    EXPECT_TRUE(Find<QGroupBox>(*Form, "Frame1")->isVisible());
    EXPECT_EQ(Find<QLineEdit>(*Form, "Text1")->text(), "Run_1");
    Click<QPushButton>(*Form, "Command8");

    EXPECT_TRUE(std::filesystem::exists(Place / "Run_1/echo.orv"));
    EXPECT_FALSE(std::filesystem::exists(Place / "echo.orv"));
    EXPECT_FALSE(Find<QGroupBox>(*Form, "Frame1")->isVisible());
}

TEST_F(form_end_Test, Answering_No_Deletes_Old_Output_Without_Further_Asking)
{
    Open();
    Fill_In();
    Write_Whole(Place / "echo.orv", "echo");
    The_User.Answers = {Button::No};

    Click<QPushButton>(*Form, "Command4");

    EXPECT_EQ(The_User.Messages.size(), 1U);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Read_If_There(Place.Path(), "echo.orv") != "echo"; }));
}

TEST_F(form_end_Test, A_Day_Out_Of_Range_Is_Told_When_Its_Box_Is_Left)
{
    Open();
    Form->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(Form.get()));
    Find<QComboBox>(*Form, "Combo_stad")->setFocus();
    Type("Combo_stad", "32");

    Find<QListWidget>(*Form, "File_psm")->setFocus();

    ASSERT_EQ(The_User.Messages.size(), 1U);
    EXPECT_EQ(The_User.Messages[0].Text, "Value must be betwen 0 and 31");
}

TEST_F(form_end_Test, A_Day_That_No_Year_Has_Shows_A_Hint)
{
    Open();
    Fill_In();
    auto* hint = Find<QLabel>(*Form, "Datum_Hinweis");
    EXPECT_FALSE(hint->isVisible());

    Find<QComboBox>(*Form, "Combo_endd")->setEditText("31");
    Pick(*Form, "Combo_endm", "FEB");
    EXPECT_EQ(hint->text(), "End: February has no day 31.");
    EXPECT_TRUE(hint->isVisible());

    Pick(*Form, "Combo_endm", "MAR");
    EXPECT_FALSE(hint->isVisible());
}

TEST_F(form_end_Test, The_List_Of_An_Empty_Day_Opens_Without_A_Complaint)
{
    Open();
    Form->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(Form.get()));
    auto* day = Find<QComboBox>(*Form, "Combo_stad");
    day->setFocus();

    day->showPopup();
    QTest::keyClick(day->view(), Qt::Key_Down);
    QTest::keyClick(day->view(), Qt::Key_Return);

    EXPECT_EQ(The_User.Messages, std::vector<Message>());
    EXPECT_FALSE(day->currentText().isEmpty());
}

TEST_F(form_end_Test, The_Chosen_File_Follows_The_Arrow_Keys)
{
    Place.Put_Pesticide("other.psm", {"H"});
    Open();
    Choose(*Form, "File_psm", "other.psm");

    QTest::keyClick(Find<QListWidget>(*Form, "File_psm"), Qt::Key_Down);

    EXPECT_EQ(Find<QListWidget>(*Form, "File_psm")->currentItem()->text(), "test.psm");
    EXPECT_EQ(Find<QLabel>(*Form, "Label2_0")->text(), "test.psm");
}

TEST_F(form_end_Test, Enter_In_A_List_Starts_Nothing)
{
    Open();
    Fill_In();

    for (const char* name : {"File_psm", "File_sce", "File_cli", "List_cli"}) {
        Find<QListWidget>(*Form, name)->setFocus();
        QTest::keyClick(Find<QListWidget>(*Form, name), Qt::Key_Return);
    }

    EXPECT_FALSE(std::filesystem::exists(Place / "orvel.inp"));
    EXPECT_TRUE(Form->isVisible());
}

TEST_F(form_end_Test, Exit_Does_Not_Complain_Of_An_Empty_Field_And_Tab_Complains_Once)
{
    Open();
    Form->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(Form.get()));
    auto* years = Find<QLineEdit>(*Form, "Text_years");
    years->setFocus();
    QTest::keyClick(years, Qt::Key_Tab);
    EXPECT_EQ(The_User.Messages.size(), 1U);
    EXPECT_TRUE(years->hasFocus());

    QTest::mouseClick(Find<QPushButton>(*Form, "Command5"), Qt::LeftButton);

    EXPECT_EQ(The_User.Messages.size(), 1U);
    EXPECT_FALSE(Form->isVisible());
}

TEST_F(form_end_Test, Opens_The_Files_Of_A_Run_Over_Itself)
{
    Open();

    Click<QPushButton>(*Form, "Command6");

    EXPECT_EQ(Opened, QStringList{"form_end"});
}

TEST_F(form_end_Test, Shows_That_The_Engine_Is_At_Work_And_Start_Tells_Instead_Of_Failing)
{
    Write_Whole(Place / "orvel401.exe", "#!/bin/sh\necho 'YEAR 2 OF 3'\nexec sleep 5\n");
    std::filesystem::permissions(Place / "orvel401.exe", std::filesystem::perms::owner_all);
    Open();
    Fill_In();
    Click<QPushButton>(*Form, "Command4");
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return Find<QLabel>(*Form, "Run_Text")->text() == "The engine is at work: 2 of 3 years."; }));
    EXPECT_TRUE(Find<QProgressBar>(*Form, "Run_Bar")->isVisible());

    Click<QPushButton>(*Form, "Command4");

    EXPECT_EQ(The_User.Messages.back().Text,
              "An engine is still at work in this directory. Please wait until it has finished.");
}

} // namespace orvel
