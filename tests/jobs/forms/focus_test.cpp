#include "jobs/forms/focus.h"

#include "core/system/lock.h"
#include "documents/documents.h"
#include "runs/batch.h"
#include "runs/job_file.h"
#include "runs/output_selection.h"
#include "runs/start_up.h"
#include "small_installation.h"
#include "window_test.h"

#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

namespace orvel {

namespace {

class FOCUS_Test : public Window_Test {
protected:
    FOCUS_Test() { The_Session.Program.App_Path = Place.Path(); }

    void Open()
    {
        ASSERT_TRUE(Start_Up(The_Session));
        const Run_Windows windows{.Open_Evaluation = [this](const Mode& mode, QWidget* parent) {
            Opened << QString::fromLatin1(mode.Form.data()) + " from " + parent->objectName();
        }};
        Form = std::make_unique<FOCUS>(The_Session, Mode_Of(Mode_Kind::Focus), windows);
        Form->show();
        Choose(*Form, "Crop", "Maize");
    }

    QStringList Entries(const QString& list_name)
    {
        QStringList entries;
        const auto* list = Find<QListWidget>(*Form, list_name);
        for (int row = 0; row < list->count(); ++row)
            entries << list->item(row)->text();
        return entries;
    }

    QString Chosen(const QString& list_name) { return Find<QListWidget>(*Form, list_name)->currentItem()->text(); }
    QString Caption(const QString& name) { return Find<QLabel>(*Form, name)->text(); }
    bool Enabled(const QString& name) { return Find<QPushButton>(*Form, name)->isEnabled(); }
    bool Warns() { return Find<QWidget>(*Form, "Warning_Box")->isVisible(); }

    Small_Installation Place;
    std::unique_ptr<FOCUS> Form;
    QStringList Opened; // windows of higher rooms
};

} // namespace

TEST_F(FOCUS_Test, Offers_The_Pesticide_Files_And_The_Locations_That_Have_A_Scenario)
{
    Open();

    EXPECT_EQ(Entries("Pesticide"), QStringList{"test.psm"});
    EXPECT_EQ(Entries("Location"), (QStringList{"Châteaudun (C), irrigated", "Hamburg (H)", "Sevilla (S), irrigated"}));
}

TEST_F(FOCUS_Test, Shows_The_Application_Pattern_Of_The_Location)
{
    Open();
    Choose(*Form, "Location", "Hamburg (H)");

    EXPECT_EQ(Caption("App_Modus"), "Every year");
    EXPECT_EQ(Caption("app_Date"), "1 kg/ha on November 1");
    EXPECT_FALSE(Warns());
    EXPECT_TRUE(Enabled("s_run"));
}

TEST_F(FOCUS_Test, Warns_Of_A_Location_Without_Applications_And_Lifts_It_With_Another)
{
    Open();
    Choose(*Form, "Location", "Sevilla (S), irrigated");

    EXPECT_EQ(Caption("Warnung"), "No application pattern for Sevilla (S) defined in the selected pesticide file");
    EXPECT_TRUE(Warns());
    for (const char* name : {"s_run", "Batchdatei", "Multi_batch"})
        EXPECT_FALSE(Enabled(name)) << name;

    Choose(*Form, "Location", "Hamburg (H)");
    EXPECT_FALSE(Warns());
    EXPECT_TRUE(Enabled("Multi_batch"));
}

TEST_F(FOCUS_Test, A_Warning_Has_Room_For_All_Its_Lines_And_The_Form_Keeps_Its_Size)
{
    Open();
    Choose(*Form, "Location", "Hamburg (H)");
    Form->resize(1240, 680);
    QApplication::processEvents();
    const QSize before = Form->size();

    Choose(*Form, "Location", "Sevilla (S), irrigated");
    QApplication::processEvents();

    const auto* warning = Find<QLabel>(*Form, "Warnung");
    EXPECT_GE(warning->height(), warning->heightForWidth(warning->width()));
    EXPECT_EQ(Form->size(), before);
}

TEST_F(FOCUS_Test, Enter_In_A_List_Runs_Nothing)
{
    Open();
    Choose(*Form, "Location", "Hamburg (H)");

    for (const char* name : {"Crop", "Location"}) {
        Find<QListWidget>(*Form, name)->setFocus();
        QTest::keyClick(Find<QListWidget>(*Form, name), Qt::Key_Return);
    }

    EXPECT_FALSE(std::filesystem::exists(Place / "focus/test.run"));
    EXPECT_TRUE(Form->isVisible());
}

TEST_F(FOCUS_Test, Says_What_Marking_Did)
{
    Open();
    Choose(*Form, "Location", "Hamburg (H)");

    Click<QPushButton>(*Form, "Batchdatei");
    EXPECT_EQ(Caption("Marked"), "1 combination marked");
    Choose(*Form, "Crop", "Winter cereals");
    EXPECT_EQ(Caption("Marked"), "");
    Choose(*Form, "Location", "Hamburg (H)");
    Click<QPushButton>(*Form, "Multi_batch");
    EXPECT_EQ(Caption("Marked"), "1 combination marked, 1 without valid application data");
}

TEST_F(FOCUS_Test, No_Longer_Tells_Of_A_Batch_That_Was_Started)
{
    Open();
    Choose(*Form, "Location", "Hamburg (H)");
    Click<QPushButton>(*Form, "Multi_batch");
    ASSERT_EQ(Caption("Marked"), "2 combinations marked, 1 without valid application data");

    std::filesystem::remove(Place / "focus/batch.bat"); // a start makes it the job file

    EXPECT_TRUE(QTest::qWaitFor([&] { return Caption("Marked").isEmpty(); }));
    EXPECT_EQ(Caption("Start_Text"), "Run starts the selected simulation alone.");
}

TEST_F(FOCUS_Test, What_The_Guidance_Says_Against_A_Marked_Run_Is_Behind_A_Button)
{
    Write_Whole(Place / "guidance-own.json", R"({"schema": "orvel-guidance 1", "stands_alone": true, "rules": [
        {"id": "OWN", "severity": "error", "text": "Kremsmuenster counts.", "source": "authority", "confirmed": true,
         "compare": "Location", "one_of": ["K"]}]})");
    Open();
    Choose(*Form, "Location", "Hamburg (H)");

    Click<QPushButton>(*Form, "Batchdatei");

    EXPECT_TRUE(The_User.Messages.empty());
    EXPECT_EQ(Caption("Marked"), "1 combination marked; see the guidance");
    Click<QPushButton>(*Form, "Guidance");
    ASSERT_EQ(The_User.Messages.size(), 1U);
    EXPECT_EQ(The_User.Messages[0].Text,
              "Hamburg (H): error OWN: Kremsmuenster counts. Location = H. Source: authority");
    Choose(*Form, "Crop", "Winter cereals");
    EXPECT_FALSE(Find<QPushButton>(*Form, "Guidance")->isVisible());
}

TEST_F(FOCUS_Test, Says_Why_Nothing_Can_Be_Run_When_A_File_Is_Missing)
{
    std::filesystem::remove(Place / "test.psm");
    Open();
    EXPECT_EQ(Caption("Warnung"), "There is no pesticide file in the installation directory.");
    EXPECT_TRUE(Warns());

    Place.Put_Pesticide("test.psm", {"H"});
    Open();
    Choose(*Form, "Crop", "Tobacco");
    EXPECT_EQ(Caption("Warnung"), "There is no scenario file for Tobacco in the directory focus.");
    EXPECT_FALSE(Enabled("s_run"));
}

TEST_F(FOCUS_Test, Does_Not_Keep_An_Irrigated_Location_In_An_Unirrigated_List)
{
    Open();
    Choose(*Form, "Location", "Sevilla (S), irrigated");
    Choose(*Form, "Crop", "Winter cereals");

    EXPECT_EQ(Entries("Location"), (QStringList{"Hamburg (H)", "Sevilla (S), no irrigation"}));
    EXPECT_EQ(Chosen("Location"), "Hamburg (H)");
}

TEST_F(FOCUS_Test, Keeps_The_Location_That_The_Next_Crop_Offers_Too)
{
    Open();
    Choose(*Form, "Location", "Hamburg (H)");
    Choose(*Form, "Crop", "Beans (field)");

    EXPECT_EQ(Chosen("Location"), "Hamburg (H)");
}

TEST_F(FOCUS_Test, Steps_Over_The_Separator_In_The_Direction_Of_Travel)
{
    Open();
    Choose(*Form, "Crop", "Winter cereals");
    auto* crops = Find<QListWidget>(*Form, "Crop");

    QTest::keyClick(crops, Qt::Key_Down);
    EXPECT_EQ(Chosen("Crop"), "Beans (field)");
    QTest::keyClick(crops, Qt::Key_Up);
    EXPECT_EQ(Chosen("Crop"), "Winter cereals");
}

TEST_F(FOCUS_Test, Leaves_The_Documents_Under_Edit_Alone_Whatever_Is_Clicked_Or_Marked)
{
    Place.Put_Pesticide("another.psm", {"H"});
    ASSERT_TRUE(Open_Document(The_Session, Place / "another.psm"));
    ASSERT_TRUE(Open_Document(The_Session, Place / "focus/H_beans.sze"));
    The_Session.Pesticide.PSM_Title = "not saved yet";
    The_Session.Scenario.SZE_Title = "not saved yet either";
    The_Session.Program.PSM_Changed = true;
    The_Session.Editor.App_Pattern = 2;
    The_Session.Editor.App_Current_Location = 1;
    const auto pesticide = std::make_unique<Pesticide_Document>(The_Session.Pesticide);
    const Scenario_Document scenario = The_Session.Scenario;
    const std::string file = The_Session.Program.PSM_File;

    Open();
    for (const char* name : {"test.psm", "another.psm"})
        Choose(*Form, "Pesticide", name);
    Choose(*Form, "Crop", "Winter cereals");
    Choose(*Form, "Crop", "Maize");
    for (const char* name : {"Sevilla (S), irrigated", "Châteaudun (C), irrigated", "Hamburg (H)"})
        Choose(*Form, "Location", name);
    Click<QPushButton>(*Form, "Batchdatei");
    Click<QPushButton>(*Form, "Multi_batch");

    ASSERT_EQ(Read_Batch(Place / "focus").size(), 1U);
    EXPECT_TRUE(The_Session.Pesticide == *pesticide);
    EXPECT_TRUE(The_Session.Scenario == scenario);
    EXPECT_TRUE(The_Session.Program.PSM_Changed);
    EXPECT_FALSE(The_Session.Program.SZE_Changed);
    EXPECT_EQ(The_Session.Program.PSM_File, file);
    EXPECT_EQ(The_Session.Editor.App_Pattern, 2);
    EXPECT_EQ(The_Session.Editor.App_Current_Location, 1);
}

TEST_F(FOCUS_Test, A_Crop_Without_Scenario_Files_Has_No_Location)
{
    Open();
    Choose(*Form, "Crop", "Citrus");

    EXPECT_TRUE(Entries("Location").isEmpty());
    EXPECT_FALSE(Enabled("s_run"));
}

TEST_F(FOCUS_Test, Asks_For_The_Tillage_Depth_Only_With_A_Scenario_That_Tills)
{
    Place.Put_Scenario("C_maize.sze", true);
    Open();

    Choose(*Form, "Location", "Hamburg (H)");
    EXPECT_FALSE(Find<QGroupBox>(*Form, "Frame4")->isVisible());
    Choose(*Form, "Location", "Châteaudun (C), irrigated");
    EXPECT_TRUE(Find<QGroupBox>(*Form, "Frame4")->isVisible());
}

TEST_F(FOCUS_Test, Mark_For_Batch_Turns_Run_Into_Start_Batch)
{
    Open();
    Choose(*Form, "Location", "Hamburg (H)");
    EXPECT_EQ(Find<QPushButton>(*Form, "s_run")->text(), "&Run");

    Click<QPushButton>(*Form, "Batchdatei");

    EXPECT_EQ(Find<QPushButton>(*Form, "s_run")->text(), "&Start Batch");
    EXPECT_TRUE(std::filesystem::exists(Place / "focus/batch.bat"));
    EXPECT_TRUE(std::filesystem::exists(Place / "focus/test.run/Maize.run/Hamburg_-_(H).run/orvel.inp"));
}

TEST_F(FOCUS_Test, Marking_The_Same_Combination_Twice_Is_Told)
{
    Open();
    Choose(*Form, "Location", "Hamburg (H)");

    Click<QPushButton>(*Form, "Batchdatei");
    Click<QPushButton>(*Form, "Batchdatei");

    ASSERT_EQ(The_User.Messages.size(), 1U);
    EXPECT_EQ(The_User.Messages[0],
              (Message{"Starting ORVEL Simulations", "You already selected this combination in your batch job!"}));
}

TEST_F(FOCUS_Test, Mark_All_Passes_Over_Locations_Without_Applications)
{
    Open();
    Choose(*Form, "Location", "Hamburg (H)");

    Click<QPushButton>(*Form, "Multi_batch");

    EXPECT_EQ(Read_Batch(Place / "focus").size(), 2U); // Sevilla has none
    EXPECT_TRUE(The_User.Messages.empty());
    EXPECT_EQ(Chosen("Location"), "Hamburg (H)");
    EXPECT_TRUE(Enabled("s_run"));
}

TEST_F(FOCUS_Test, The_Key_R_Is_The_Only_Way_To_Run_An_Irregular_Pattern)
{
    Place.Put_Pesticide("test.psm", {"H"}, 5);
    Open();
    Choose(*Form, "Location", "Hamburg (H)");
    EXPECT_EQ(Caption("Warnung"), "No regular application pattern defined for this location!");
    EXPECT_FALSE(Enabled("s_run"));
    QString asked;
    QTimer::singleShot(0, [&] {
        QWidget* form = QApplication::activeModalWidget();
        asked = form ? form->objectName() : QString();
        if (form)
            form->close();
    });

    QTest::keyClick(Find<QListWidget>(*Form, "Location"), Qt::Key_R);

    EXPECT_EQ(asked, "Dialog");
    EXPECT_FALSE(std::filesystem::exists(Place / "focus/batch.bat")); // closed without an answer
}

TEST_F(FOCUS_Test, An_Irregular_Pattern_Runs_The_Years_That_Were_Asked_For)
{
    Place.Put_Pesticide("test.psm", {"H"}, 5);
    Open();
    Choose(*Form, "Location", "Hamburg (H)");
    QTimer::singleShot(0, [] { Click<QPushButton>(*QApplication::activeModalWidget(), "Years_46"); });

    QTest::keyClick(Find<QListWidget>(*Form, "Location"), Qt::Key_R);

    const std::string control = Read_Whole(Place / "focus/orvel.inp");
    EXPECT_EQ(control.substr(0, control.find('\r')), "046 01 01 31 12 Version 5");
    EXPECT_NE(control.find("H_46.cli"), std::string::npos);
    EXPECT_EQ(control.find("H_47.cli"), std::string::npos);
}

TEST_F(FOCUS_Test, The_Key_R_Does_Nothing_Without_That_Warning)
{
    Open();
    Choose(*Form, "Location", "Hamburg (H)");

    QTest::keyClick(Find<QListWidget>(*Form, "Location"), Qt::Key_R);

    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_FALSE(std::filesystem::exists(Place / "focus/batch.bat"));
}

TEST_F(FOCUS_Test, Delete_Asks_Before_It_Removes_The_Pesticide_File)
{
    Open();
    The_User.Answers = {Button::Cancel, Button::Ok};

    QTest::keyClick(Find<QListWidget>(*Form, "Crop"), Qt::Key_Delete);
    EXPECT_TRUE(std::filesystem::exists(Place / "test.psm"));
    QTest::keyClick(Find<QListWidget>(*Form, "Pesticide"), Qt::Key_Delete);
    EXPECT_FALSE(std::filesystem::exists(Place / "test.psm"));

    ASSERT_EQ(The_User.Messages.size(), 2U);
    EXPECT_EQ(The_User.Messages[0].Title, "Deleting pesticide input files");
    EXPECT_EQ(The_User.Messages[0].Text, "Are you sure that you want to delete the file 'test.psm'!");
    EXPECT_TRUE(Entries("Pesticide").isEmpty());
}

TEST_F(FOCUS_Test, Starts_With_The_Users_Own_Output_And_Takes_The_Choice_Over)
{
    Open();
    EXPECT_TRUE(Find<QRadioButton>(*Form, "Ausgabe_2")->isChecked()); // the start values are not the recommended table

    auto* minimum = Find<QRadioButton>(*Form, "Ausgabe_0");
    QTest::mouseClick(minimum, Qt::LeftButton, {}, QPoint(minimum->height() / 2, minimum->height() / 2));

    EXPECT_EQ(The_Session.Output[0], (Output_Slot{23, 100, 0}));
    EXPECT_EQ(The_Session.Output[1], Output_Slot());
}

TEST_F(FOCUS_Test, Cancel_In_The_Output_Dialog_Keeps_The_Slots_And_Goes_Back_To_Their_Option)
{
    Open();
    Choose_Option(*Form, "Ausgabe_0");
    In_Modal([](QWidget& dialog) { Click<QPushButton>(dialog, "Abbrechen"); });

    Choose_Option(*Form, "Ausgabe_2");

    EXPECT_EQ(The_Session.Output[0], (Output_Slot{23, 100, 0}));
    EXPECT_TRUE(Find<QRadioButton>(*Form, "Ausgabe_0")->isChecked());
}

TEST_F(FOCUS_Test, Takes_The_Output_Of_The_Last_Run_Only_When_It_Opens_And_The_Tillage_Depth_Each_Time)
{
    Place.Put_Pesticide("another.psm", {"H"});
    Write_Whole(Place / "focus/orvel.inp",
                "001 01 01 31 12 Version 5\r\n..\\..\\..\\H_maize.sze\r\ntest.psm\r\n..\\..\\..\\H_01.cli\r\n"
                "00000001 07.\r\n    LEAC    TSER  100.0  1.0E09 00000001\r\n");
    Open();
    EXPECT_EQ(The_Session.Output, Minimum_Output());
    EXPECT_EQ(Find<QComboBox>(*Form, "L_tildepth")->currentText(), "7");

    Choose_Option(*Form, "Ausgabe_1");
    Find<QComboBox>(*Form, "L_tildepth")->setCurrentIndex(20);
    The_User.Answers = {Button::Ok};
    QTest::keyClick(Find<QListWidget>(*Form, "Pesticide"), Qt::Key_Delete); // restores the form anew

    EXPECT_EQ(Entries("Pesticide").size(), 1);
    EXPECT_EQ(The_Session.Output, Recommended_Output());
    EXPECT_EQ(Find<QComboBox>(*Form, "L_tildepth")->currentText(), "7");
}

TEST_F(FOCUS_Test, Tells_What_A_Start_Will_Do)
{
    Open();
    Choose(*Form, "Location", "Hamburg (H)");
    EXPECT_EQ(Caption("Start_Text"), "Run starts the selected simulation alone.");

    Click<QPushButton>(*Form, "Batchdatei");

    EXPECT_EQ(Caption("Start_Text"), "Start Batch runs 1 marked simulation.");
}

TEST_F(FOCUS_Test, A_Job_At_Work_Disables_Run_And_Its_Progress_Is_Followed)
{
    const std::string run = "test.run/Maize.run/Hamburg_-_(H).run";
    std::filesystem::create_directories(Place / "focus" / run);
    Write_Whole(Place / "focus/orveljob.bat",
                Format_Job(Format_Job_Run("test.run\\Maize.run\\Hamburg_-_(H).run", "orvel401.exe", true)));
    Write_Whole(Place / "focus/orveljob.log", "2024-05-31 14:05:00\tstarted\t" + run + "\t\n");
    Write_Whole(Place / "focus" / run / "orvel.inp", "026 01 01 31 12 Version 5\r\n");
    Write_Whole(Place / "focus" / run / "progress.orv", "YEAR 3 OF 26\n");
    auto engine = Lock::Take(Place / "focus" / run);

    Open();
    Choose(*Form, "Location", "Hamburg (H)");

    EXPECT_FALSE(Enabled("s_run"));
    EXPECT_EQ(Find<QProgressBar>(*Form, "Job_Bar")->value(), 3);
    EXPECT_EQ(Caption("Job_Text"), "0 of 1 runs, 1 running, 11 %");

    Write_Whole(Place / "focus" / run / "progress.orv", "YEAR 13 OF 26\n");
    EXPECT_TRUE(QTest::qWaitFor([&] { return Caption("Job_Text").startsWith("0 of 1 runs, 1 running, 50 %"); }));

    EXPECT_TRUE(Enabled("Anhalten"));
    engine.reset();
    EXPECT_TRUE(QTest::qWaitFor([&] { return Enabled("s_run") && !Find<QWidget>(*Form, "Job_Box")->isVisible(); }));
}

TEST_F(FOCUS_Test, Restores_The_Last_Selection_When_It_Opens_Again)
{
    Place.Put_Pesticide("another.psm", {"H"});
    Open();
    Choose(*Form, "Pesticide", "test.psm");
    Choose(*Form, "Location", "Châteaudun (C), irrigated");
    Click<QPushButton>(*Form, "Batchdatei");

    Form = std::make_unique<FOCUS>(The_Session, Mode_Of(Mode_Kind::Focus), Run_Windows());

    EXPECT_EQ(Chosen("Pesticide"), "test.psm");
    EXPECT_EQ(Chosen("Crop"), "Maize");
    EXPECT_EQ(Chosen("Location"), "Châteaudun (C), irrigated");
}

TEST_F(FOCUS_Test, Opens_The_Evaluation_Of_Its_Mode_With_What_Is_Chosen)
{
    Open();
    Choose(*Form, "Location", "Hamburg (H)");

    Click<QPushButton>(*Form, "Command1");

    EXPECT_EQ(Opened, QStringList{"FOCUS from FOCUS"});
    EXPECT_EQ(The_Session.Run.Last_Simulation.Location, "Hamburg (H)");
}

TEST_F(FOCUS_Test, A_Double_Click_On_A_Location_Opens_Its_Scenario)
{
    Open();
    Choose(*Form, "Location", "Hamburg (H)");
    QString opened;
    QTimer::singleShot(0, [&] {
        QWidget* form = QApplication::activeModalWidget();
        opened = form ? form->objectName() : QString();
        if (form)
            form->close();
    });

    auto* list = Find<QListWidget>(*Form, "Location");
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->currentItem()).center());

    EXPECT_EQ(opened, "Szenario");
    EXPECT_TRUE(The_User.Messages.empty());
}

} // namespace orvel
