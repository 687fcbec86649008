#include "desktop/forms/start.h"

#include "core/files.h"
#include "core/sha256.h"
#include "documents/unsaved_copy.h"
#include "runs/acceptance.h"
#include "runs/batch.h"
#include "runs/start_up.h"
#include "temporary_directory.h"
#include "window_test.h"

#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>

namespace orvel {

namespace {

class Start_Test : public Window_Test {
protected:
    Start_Test()
    {
        std::filesystem::create_directories(Place / "focus");
        for (const char* name : {"orvel401.exe", "focus/c_apples.sze", "focus/C_indiv.sze", "focus/C_01.cli"})
            Write_Whole(Place / name, "DEM 3 demonstration data\r\n");
        The_Session.Program.App_Path = Place.Path();
    }

    void Open()
    {
        ASSERT_TRUE(Start_Up(The_Session));
        Form = std::make_unique<Start>(The_Session);
        Form->show();
        QApplication::processEvents();
    }

    std::string Caption(const QString& name) { return Find<QLabel>(*Form, name)->text().toStdString(); }

    Temporary_Directory Place;
    std::unique_ptr<Start> Form;
};

} // namespace

TEST_F(Start_Test, Shows_The_Versions_Of_Engine_And_Suite)
{
    Open();

    EXPECT_EQ(Form->windowTitle(), "ORVEL 4.01");
    EXPECT_EQ(Caption("Aktuelle_ORVEL_Version"), "ORVEL 4.01");
    auto* suite = Find<QLabel>(*Form, "Aktuelle_ORVELSUITE_Version");
    EXPECT_EQ(suite->text(), "ORVELSUITE 5.5.3");
    EXPECT_EQ(suite->toolTip(), "ORVELSUITE " + QString::fromLatin1(Program_Version.data()) +
                                    ": the last number of the label is that of the scenario data\n"
                                    "Double click for details");
}

TEST_F(Start_Test, Says_That_A_Pending_Batch_Was_Dropped_And_Puts_It_Back)
{
    Open();
    EXPECT_EQ(Form->findChild<QLabel*>("Dropped_Note"), nullptr);
    Form.reset();
    Write_Whole(Place / "Haude.dat", "monthly factors\r\n");
    Write_Whole(Place / "focus/Focuscheck.dat", "checked\r\n");
    Add_To_Batch(Place / "focus", "a.run\\Maize.run\\Hamburg_-_(H).run", "orvel401.exe", true);

    Start form(The_Session, Drop_Pending_Batch(The_Session.Program));
    form.show();
    auto* note = Find<QLabel>(form, "Dropped_Note");
    EXPECT_TRUE(note->text().startsWith("1 simulation that was marked but not started went to the bin"));
    EXPECT_FALSE(Batch_Pending(Place / "focus"));
    Click<QPushButton>(form, "Put_Back_Batch");
    EXPECT_TRUE(Batch_Pending(Place / "focus"));
    EXPECT_EQ(note->text(), "The batch is pending again: \"Start Batch\" in FOCUS groundwater starts it.");
    EXPECT_FALSE(Find<QPushButton>(form, "Put_Back_Batch")->isVisible());
    EXPECT_TRUE(The_User.Messages.empty());
}

TEST_F(Start_Test, Lists_Unsaved_Changes_Only_While_There_Are_Some)
{
    const auto copies = Place_Of_Unsaved_Copies();
    Open();
    EXPECT_FALSE(Find<QPushButton>(*Form, "Unsaved_Button")->isVisible());
    {
        Unsaved_Copy copy(copies, Document_Kind::Scenario, Place / "focus/gone.sze");
        copy.Begin(The_Session);
        The_Session.Scenario.SZE_Title = "Mine";
        ASSERT_TRUE(copy.Keep(The_Session));
    }
    Open();
    auto* button = Find<QPushButton>(*Form, "Unsaved_Button");
    EXPECT_EQ(button->text(), "1 &document has changes that were not saved ...");
    In_Modal([&](QWidget& list) {
        EXPECT_EQ(list.objectName(), "Unsaved_List");
        The_User.Answers = {Button::Yes};
        Click<QPushButton>(list, "Unsaved_Delete");
    });
    button->click();
    EXPECT_FALSE(button->isVisible());
}

TEST_F(Start_Test, Says_Whether_The_Engine_Was_Accepted_Here)
{
    Open();
    EXPECT_EQ(Caption("Acceptance"), "not accepted here");

    Keep_Acceptance(Place.Path(), {.Engine = "orvel401.exe",
                                   .Engine_Sha256 = Sha256_Of_File(Place / "orvel401.exe"),
                                   .Expected = "expected.csv",
                                   .Expected_Sha256 = "e",
                                   .Date = "2026-05-31"});
    Open();
    EXPECT_EQ(Caption("Acceptance"), "accepted on 2026-05-31 against expected.csv");
}

TEST_F(Start_Test, Protects_The_Shipped_Files_Behind_The_First_Paint)
{
    Open();

    EXPECT_TRUE(Is_Read_Only(Place / "focus" / "c_apples.sze"));
    EXPECT_TRUE(Is_Read_Only(Place / "focus" / "C_01.cli"));
    EXPECT_FALSE(Is_Read_Only(Place / "focus" / "C_indiv.sze"));
    EXPECT_FALSE(Find<QGroupBox>(*Form, "Nachricht")->isVisible());
}

TEST_F(Start_Test, Has_Its_Size_Again_When_The_Message_Is_Gone)
{
    Open();
    Start next(The_Session); // shows no message: the files are protected now
    next.show();

    EXPECT_EQ(Form->size(), next.size());
}

TEST_F(Start_Test, Protects_The_Shipped_Files_Again_When_It_Comes_To_The_Front)
{
    Open();
    Set_Read_Only(Place / "focus" / "c_apples.sze", false);
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));

    Form->activateWindow();

    EXPECT_TRUE(QTest::qWaitFor([&] { return Is_Read_Only(Place / "focus" / "c_apples.sze"); }));
}

TEST_F(Start_Test, Tells_That_The_Data_Of_A_Soil_Mode_Are_Not_Installed)
{
    Open();

    Click<QToolButton>(*Form, "Image3");
    Click<QToolButton>(*Form, "Image4");

    ASSERT_EQ(The_User.Messages.size(), 2U);
    EXPECT_EQ(The_User.Messages[0].Title, "Data error!");
    EXPECT_EQ(The_User.Messages[0].Text, "EFSA Tier 2 scenario data not available in this installation!\r\n");
    EXPECT_EQ(The_User.Messages[1].Text, "EFSA Tier 4 scenario data not available in this installation!\r\n");
}

TEST_F(Start_Test, Every_Button_Opens_Its_Form_Over_Itself)
{
    for (const char* name : {"EFSA/T_N_wcerea.sze", "EFSA_T4/C_wcerea.sze"}) {
        std::filesystem::create_directories((Place / name).parent_path());
        Write_Whole(Place / name, "DEM 3 demonstration data\r\n");
    }
    for (const char* name : {"a.psm", "a.sze", "a.cli", "focus/a.psm", "focus/a.sze", "focus/a.cli"})
        Write_Whole(Place / name, "Title\r\n");
    Open();
    struct Way {
        QString Control, Form, Caption;
        QString Ending; // of the files listed
    };
    for (const auto& way :
         {Way{"Command1", "Form_PSM_Open", "Open PSM file", ".psm"},
          Way{"Command2", "Form_PSM_Open", "Open Scenario File", ".sze"},
          Way{"Command6", "Form_PSM_Open", "Open Climate File", ".cli"},
          Way{"Command3", "Versionsinfo", "Release info", ""},
          Way{"Image1", "form_end", "Parameters for Simulation", ""}, Way{"Image2", "FOCUS", "Focus Scenarios", ""},
          Way{"Image3", "EFSA", "EFSA Scenarios", ""}, Way{"Image4", "EFSA_T4", "EFSA Scenarios", ""}}) {
        QString form, caption, listed;
        In_Modal([&](const QWidget& opened) {
            form = opened.objectName();
            caption = opened.windowTitle();
            const auto* files = opened.findChild<QListWidget*>("File1");
            listed = files ? files->item(0)->text().right(4).toLower() : QString();
        });

        Click<QAbstractButton>(*Form, way.Control);

        EXPECT_EQ(form, way.Form) << way.Control.toStdString();
        EXPECT_EQ(caption, way.Caption) << way.Control.toStdString();
        EXPECT_EQ(listed, way.Ending) << way.Control.toStdString();
    }
}

TEST_F(Start_Test, The_Run_Forms_Open_The_Windows_Of_The_Evaluation)
{
    Open();
    struct Way {
        QString Picture, Button, Form;
    };
    for (const auto& way : {Way{"Image1", "Command6", "inout_sel"}, Way{"Image2", "Command1", "Analyse"}}) {
        QString form;
        In_Modal([&](const QWidget& run_form) {
            In_Modal([&](const QWidget& opened) { form = opened.objectName(); });
            Click<QPushButton>(run_form, way.Button);
        });

        Click<QAbstractButton>(*Form, way.Picture);

        EXPECT_EQ(form, way.Form);
    }
}

TEST_F(Start_Test, A_Double_Click_On_A_Version_Shows_The_Details)
{
    Open();
    QString details;
    QTimer::singleShot(0, [&] {
        QWidget* form = QApplication::activeModalWidget();
        for (const auto* label : form->findChildren<QLabel*>())
            details += label->text() + "|";
        form->close();
    });

    QTest::mouseDClick(Find<QLabel>(*Form, "Aktuelle_ORVEL_Version"), Qt::LeftButton);

    EXPECT_TRUE(details.contains("orvel401.exe")) << details.toStdString();
}

TEST_F(Start_Test, Offers_The_Update_Check_Only_With_The_Address_Of_A_Distributor)
{
    const auto usable = [this](const char* line) {
        Write_Whole(Place / "update.txt", line);
        Open();
        return Find<QPushButton>(*Form, "Suche_nach_Update")->isEnabled();
    };

    Open();
    EXPECT_FALSE(Find<QPushButton>(*Form, "Suche_nach_Update")->isEnabled());
    EXPECT_TRUE(Find<QPushButton>(*Form, "Suche_nach_Update")->toolTip().contains("update.txt"));
    EXPECT_TRUE(usable("https://updates.example/download/\r\n"));
    EXPECT_FALSE(usable("http://updates.example/download/\r\n"));
    EXPECT_FALSE(usable("\r\n"));
}

TEST_F(Start_Test, Exit_Closes_The_Window)
{
    Open();

    Click<QPushButton>(*Form, "Command4");

    EXPECT_FALSE(Form->isVisible());
}

TEST_F(Start_Test, Archives_And_Comparisons_Open_By_Their_Button)
{
    Start form(The_Session);
    form.show();
    QString opened;
    In_Modal([&](const QWidget& window) { opened = window.objectName(); });

    Click<QPushButton>(form, "Open_Archives");

    EXPECT_EQ(opened, "Archives");
}

} // namespace orvel
