#include "core/text.h"
#include "evaluation/forms/analyse.h"

#include "core/files.h"
#include "files/pesticide_file.h"
#include "temporary_directory.h"
#include "window_test.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QTimer>

namespace orvel {

namespace {

class Analyse_Test : public Window_Test {
protected:
    Analyse_Test() { The_Session.Program.App_Path = Place.Path(); }

    void Put_Run(const std::filesystem::path& run)
    {
        std::filesystem::create_directories(Place / "focus" / run);
        for (const char* name : {"echo.orv", "year.orv", "period.orv"})
            Write_Whole(Place / "focus" / run / name, "text\r\n");
    }

    void Open(Mode_Kind mode = Mode_Kind::Focus)
    {
        std::filesystem::create_directories(Place / "focus");
        Form = std::make_unique<Analyse>(The_Session, Mode_Of(mode));
        Form->show();
    }

    // A plot file of two years with percolate and leachate at 1 m, and the run's control file.
    void Put_Plot(const std::filesystem::path& run)
    {
        Write_Whole(Place / "focus" / run / "orvel.inp",
                    "001 01 01 31 12\r\ns.sze\r\nnone.psm\r\nc.cli\r\n00000002 00.\r\n"
                    "    INFL    TSER  100.0  1.0    00000001\r\n    LEAC    TSER  100.0  1.0E09 00000001\r\n");
        Write_Whole(
            Place / "focus" / run / "plot.orv",
            "engine\r\n\r\nscenario\r\npesticide\r\n\r\nSoil\r\n    24     2     0\r\n"
            "            INFL      LEAC\r\n               100.0     100.0\r\n           1.0       1.0E09\r\n\r\n");
    }

    // What the window that a click opens is called; it is closed at once.
    QString Opened_By(const QString& button)
    {
        QString name;
        QTimer::singleShot(0, [&] {
            QWidget* form = QApplication::activeModalWidget();
            name = form->objectName();
            if (auto* done = form->findChild<QPushButton*>("Ende"))
                (void)QTest::qWaitFor([&] { return done->isEnabled(); });
            form->close();
        });
        Click<QPushButton>(*Form, button);
        return name;
    }

    QString Caption(const QString& name) { return Find<QPushButton>(*Form, name)->text().remove('&'); }
    // Chooses an entry of a list as a hand does.
    void Choose(const QString& list, int index)
    {
        auto* combo = Find<QComboBox>(*Form, list);
        const int steps = index - combo->currentIndex();
        for (int i = 0; i < std::abs(steps); ++i)
            QTest::keyClick(combo, steps > 0 ? Qt::Key_Down : Qt::Key_Up);
    }

    QString Chosen(const QString& name) { return Find<QComboBox>(*Form, name)->currentText(); }
    bool Enabled(const QString& name) { return Find<QPushButton>(*Form, name)->isEnabled(); }

    Temporary_Directory Place;
    std::unique_ptr<Analyse> Form;
};

} // namespace

TEST_F(Analyse_Test, An_Empty_Tree_Leaves_The_Lists_Empty_And_The_Buttons_Off_But_Not_The_List_Of_Simulations)
{
    Open();

    EXPECT_EQ(Find<QComboBox>(*Form, "Pestizidverzeichnis")->count(), 0);
    for (const char* name : {"Grafik", "Konzentration", "Balance", "Echo", "Zusammenfassung"})
        EXPECT_FALSE(Enabled(name)) << name;
    EXPECT_TRUE(Enabled("Liste"));
}

TEST_F(Analyse_Test, Shows_The_Decoded_Names_And_Selects_The_Last_Simulation)
{
    Put_Run("demo_A.run/Apples.run/Hamburg_-_(H).run");
    Put_Run("my--file_-_1.run/Winter_-_cereals.run/Châteaudun_-_(C)--_-_no_-_irrigation.run");
    The_Session.Run.Last_Simulation = {"my,file 1", "Winter cereals", "Ch\xE2teaudun (C), no irrigation"};

    Open();

    EXPECT_EQ(Chosen("Pestizidverzeichnis"), "my,file 1");
    EXPECT_EQ(Chosen("Kulturverzeichnis"), "Winter cereals");
    EXPECT_EQ(Chosen("Szenarioverzeichnis"), "Châteaudun (C), no irrigation");
    EXPECT_FALSE(Find<QLabel>(*Form, "Datum")->text().isEmpty());
    EXPECT_TRUE(Enabled("Konzentration"));
}

TEST_F(Analyse_Test, Two_Directories_That_Decode_To_One_Name_Stay_Two_Entries)
{
    Put_Run("a--b.run/Maize.run/Hamburg_-_(H).run");
    Put_Run("a,b.run/Apples.run/Hamburg_-_(H).run");
    Open();

    auto* pesticides = Find<QComboBox>(*Form, "Pestizidverzeichnis");
    ASSERT_EQ(pesticides->count(), 2);
    EXPECT_EQ(pesticides->itemText(0), pesticides->itemText(1));
    EXPECT_EQ(Chosen("Kulturverzeichnis"), "Apples");
    QTest::keyClick(pesticides, Qt::Key_Down);
    EXPECT_EQ(Chosen("Kulturverzeichnis"), "Maize");
}

TEST_F(Analyse_Test, Opens_Tables_Echo_And_Report_Of_The_Chosen_Run)
{
    Put_Run("demo_A.run/Apples.run/Hamburg_-_(H).run");
    Open();

    EXPECT_EQ(Opened_By("Konzentration"), "Jahr_ORV");
    EXPECT_EQ(Opened_By("Balance"), "Mass_Balance");
    EXPECT_EQ(Opened_By("Echo"), "Echo_ORV");
    EXPECT_EQ(Opened_By("Zusammenfassung"), "Zusammenfassung_orv");
    EXPECT_EQ(Opened_By("Liste"), "Simulationsliste");
}

TEST_F(Analyse_Test, Captions_And_The_Soil_Depth_Go_By_The_Mode)
{
    Open();
    EXPECT_EQ(Form->objectName(), "Analyse");
    EXPECT_EQ(Caption("Konzentration"), "Ann.  Av. Conc. in Leachate");
    EXPECT_EQ(Caption("Zusammenfassung"), "FOCUS Summary Report");
    EXPECT_FALSE(Form->findChild<QComboBox*>("ERC"));

    Open(Mode_Kind::Efsa);
    EXPECT_EQ(Form->objectName(), "Analyse_EFSA");
    EXPECT_EQ(Caption("Konzentration"), "PEC soil");
    EXPECT_EQ(Caption("Zusammenfassung"), "Write Summary Report");
    auto* depths = Find<QComboBox>(*Form, "ERC");
    EXPECT_EQ(depths->count(), 20);
    EXPECT_EQ(depths->itemText(0), "1");
    EXPECT_EQ(depths->itemText(19), "20");

    Open(Mode_Kind::Efsa_T4);
    EXPECT_EQ(Form->objectName(), "Analyse_EFSA_T4");
    EXPECT_EQ(Caption("Konzentration"), "PEC soil");
}

TEST_F(Analyse_Test, A_Soil_Mode_Walks_Its_Own_Tree_And_Opens_The_Soil_Table)
{
    Put_Run("../EFSA/demo_S.run/Maize.run/Total_-_content_-_-_-_North_-_(T_N).run");
    Put_Run("demo_A.run/Apples.run/Hamburg_-_(H).run");
    Open(Mode_Kind::Efsa);

    EXPECT_EQ(Find<QComboBox>(*Form, "Pestizidverzeichnis")->count(), 1);
    EXPECT_EQ(Chosen("Pestizidverzeichnis"), "demo_S");
    EXPECT_EQ(Opened_By("Konzentration"), "PECsoil");
}

TEST_F(Analyse_Test, The_Parameters_Come_From_The_Run_And_The_Whole_Simulation_Is_Chosen)
{
    Put_Run("demo_A.run/Apples.run/Hamburg_-_(H).run");
    Put_Plot("demo_A.run/Apples.run/Hamburg_-_(H).run");
    Open();

    auto* parameters = Find<QComboBox>(*Form, "Parameter");
    ASSERT_EQ(parameters->count(), 2);
    EXPECT_EQ(Chosen("Parameter"), "Percolate at 100 cm ");
    EXPECT_EQ(Chosen("Zeitintervall_0"), "January");
    EXPECT_EQ(Chosen("Zeitintervall_1"), "December");
    EXPECT_EQ(Chosen("Zeitintervall_2"), "1");
    EXPECT_EQ(Chosen("Zeitintervall_3"), "2");
}

TEST_F(Analyse_Test, Another_Location_Keeps_Parameter_And_Period_Where_Its_Run_Has_Them)
{
    for (const char* place : {"Hamburg_-_(H)", "Porto_-_(O)", "Thiva_-_(T)"})
        Put_Run(std::string("demo_A.run/Apples.run/") + place + ".run");
    Put_Plot("demo_A.run/Apples.run/Hamburg_-_(H).run");
    Put_Plot("demo_A.run/Apples.run/Porto_-_(O).run");
    Open();
    Choose("Parameter", 1);
    Choose("Zeitintervall_0", 2); // March of year 1
    Choose("Zeitintervall_3", 0); // to December of year 1
    const QString parameter = Chosen("Parameter");
    ASSERT_TRUE(parameter.startsWith("Percolate concentration")) << parameter.toStdString();

    Choose("Szenarioverzeichnis", 1);

    EXPECT_EQ(Chosen("Szenarioverzeichnis"), "Porto (O)");
    EXPECT_EQ(Chosen("Parameter"), parameter);
    EXPECT_EQ(Chosen("Zeitintervall_0"), "March");
    EXPECT_EQ(Chosen("Zeitintervall_3"), "1");

    Choose("Szenarioverzeichnis", 2); // it has no plot file, and so another list
    EXPECT_EQ(Chosen("Parameter"), "Actual evapotranspiration");
}

TEST_F(Analyse_Test, A_Run_Without_A_Plot_File_Has_The_Fixed_List_And_Its_Diagram_Opens_All_The_Same)
{
    Put_Run("demo_A.run/Apples.run/Hamburg_-_(H).run");
    Open();

    EXPECT_EQ(Find<QComboBox>(*Form, "Parameter")->count(), 26);
    EXPECT_EQ(Chosen("Parameter"), "Actual evapotranspiration");
    EXPECT_TRUE(Enabled("Grafik"));
    EXPECT_EQ(Opened_By("Grafik"), "taegliches_Diagramm_neu");
}

TEST_F(Analyse_Test, A_Begin_Behind_The_End_Moves_The_End)
{
    Put_Run("demo_A.run/Apples.run/Hamburg_-_(H).run");
    Put_Plot("demo_A.run/Apples.run/Hamburg_-_(H).run");
    Open();
    Choose("Zeitintervall_3", 0); // December of year 1
    Choose("Zeitintervall_1", 4); // May
    EXPECT_EQ(Chosen("Zeitintervall_1"), "May");

    Choose("Zeitintervall_0", 5); // June

    EXPECT_EQ(Chosen("Zeitintervall_0"), "June");
    EXPECT_EQ(Chosen("Zeitintervall_1"), "July");
    EXPECT_EQ(Chosen("Zeitintervall_3"), "1");
}

TEST_F(Analyse_Test, A_Failed_Simulation_In_Either_Spelling_Brings_Up_Its_Report_Each_Time_It_Is_Selected)
{
    Put_Run("demo_A.run/Apples.run/Hamburg_-_(H).run");
    Put_Run("demo_A.run/Apples.run/Thiva_-_(T).run");
    const auto echo = Place / "focus/demo_A.run/Apples.run/Thiva_-_(T).run/echo.orv";
    Open();
    QApplication::processEvents();
    ASSERT_FALSE(QApplication::activeModalWidget());

    for (const char* text : {"a\r\n E R R O R\r\n", "a\r\n E R R O R\r\n", "a\r\n ERROR 21\r\n"}) {
        Write_Whole(echo, text);
        Choose("Szenarioverzeichnis", 0);
        QString report;
        Choose("Szenarioverzeichnis", 1);
        QTimer::singleShot(0, [&] {
            report = QApplication::activeModalWidget()->objectName();
            QApplication::activeModalWidget()->close();
        });
        EXPECT_TRUE(QTest::qWaitFor([&] { return !report.isEmpty(); }));
        EXPECT_EQ(report, "Fehler_in_Simulation");
    }
    EXPECT_TRUE(Enabled("Konzentration"));
}

TEST_F(Analyse_Test, The_List_Of_Simulations_Hands_Its_Choice_Back_By_The_Directory)
{
    Put_Run("a--b.run/Maize.run/Hamburg_-_(H).run"); // shown as the next one is
    Put_Run("a,b.run/Apples.run/Hamburg_-_(H).run");
    Open();
    EXPECT_EQ(Chosen("Kulturverzeichnis"), "Apples");
    QTimer::singleShot(0, [] {
        QWidget* list = QApplication::activeModalWidget();
        auto* grid = Find<QTableView>(*list, "Grid1");
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, grid->visualRect(grid->model()->index(1, 2)).center());
        Click<QPushButton>(*list, "Auswaehlen");
    });

    Click<QPushButton>(*Form, "Liste");

    EXPECT_EQ(Chosen("Kulturverzeichnis"), "Maize");
}

TEST_F(Analyse_Test, The_Pesticide_File_Of_The_Selected_Entry_Leaves_The_Document_Under_Edit_Alone)
{
    const auto document = std::make_unique<Pesticide_Document>();
    Reset_PSM(*document);
    document->PSM_Title = "Title of A";
    Write_Whole(Place / "demo_A.psm", Format_PSM(*document));
    Put_Run("demo_A.run/Apples.run/Hamburg_-_(H).run");
    The_Session.Pesticide.PSM_Title = "Under edit";
    The_Session.Program.PSM_File = "mine.psm";
    The_Session.Program.PSM_Changed = true;

    Open();

    EXPECT_EQ(The_Session.Pesticide.PSM_Title, "Under edit");
    EXPECT_EQ(The_Session.Program.PSM_File, "mine.psm");
    EXPECT_TRUE(The_Session.Program.PSM_Changed);
    EXPECT_TRUE(The_User.Messages.empty());
}

TEST_F(Analyse_Test, A_Pesticide_File_That_Cannot_Be_Read_Is_Told)
{
    Write_Whole(Place / "demo_A.psm", "no document\r\n");
    Put_Run("demo_A.run/Apples.run/Hamburg_-_(H).run");

    Open();

    ASSERT_EQ(The_User.Messages.size(), 1U);
    EXPECT_EQ(The_User.Messages[0].Title, "Readin check");
    EXPECT_TRUE(Contains(The_User.Messages[0].Text, "demo_A.psm is not a ORVEL 4.01 PSM file"))
        << The_User.Messages[0].Text;
}

} // namespace orvel
