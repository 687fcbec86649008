#include "report/forms/zusammenfassung_orv.h"

#include "charts/forms/chart_view.h"
#include "files/document_notes.h"
#include "small_installation.h"
#include "tables/leachate_run.h"
#include "window_test.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableWidget>

namespace orvel {

namespace {

// Two locations of a run with an active substance and a metabolite.
class Zusammenfassung_Test : public Window_Test {
protected:
    Zusammenfassung_Test()
    {
        for (auto* run : {&Hamburg, &Thiva}) {
            run->Write_Water(26);
            run->Write_Chem(".orv", Rising(26), Rising(26));
            run->Write_Chem("_A1.orv", std::vector<int>(26, 0), std::vector<int>(26, 0));
        }
    }

    void Open()
    {
        Form = std::make_unique<Zusammenfassung_orv>(
            The_Session,
            Summary_Request{"ORVEL 4.01",
                            "2026-01-02 03:04",
                            "demo_A",
                            "Maize",
                            {{"Hamburg (H)", Hamburg.Path()}, {"Thiva (T)", Thiva.Path()}}},
            [this](const Summary_Request& request, QWidget*) { Archived = request.Pesticide + " " + request.Crop; });
        Form->show();
        ASSERT_TRUE(QTest::qWaitFor([&] { return Find<QPushButton>(*Form, "Ende")->isEnabled(); }));
    }

    std::string Archived; // by the opener that the form is handed

    QString Text() { return Find<QPlainTextEdit>(*Form, "Ergebnis")->toPlainText(); }
    QString Caption() { return Find<QPushButton>(*Form, "S_Diagramm")->text(); }
    Chart_View& Diagram() { return *Find<Chart_View>(*Form, "Diagramm"); }
    std::string Title() { return Diagram().Shown_Chart().Title; }

    Leachate_Run Hamburg{{.Names = {"Parent", "Metabolite"}}}, Thiva{{.Names = {"Parent", "Metabolite"}}};
    std::unique_ptr<Zusammenfassung_orv> Form;
};

} // namespace

TEST_F(Zusammenfassung_Test, Builds_The_Tables_Of_All_Locations_And_Shows_The_Text)
{
    Open();

    EXPECT_TRUE(std::filesystem::exists(Hamburg / "period.orv"));
    EXPECT_TRUE(std::filesystem::exists(Thiva / "period.orv"));
    EXPECT_EQ(Form->windowTitle(), "FOCUS Summary Output File");
    EXPECT_TRUE(Text().startsWith("FOCUS Summary Output File\n\nModel Version:          \tORVEL 4.01\n"))
        << Text().toStdString();
    EXPECT_TRUE(Text().contains("Results for Metabolite"));
    EXPECT_EQ(Caption(), "Diagram");
}

TEST_F(Zusammenfassung_Test, The_Switch_Shows_The_Diagram_And_Names_The_Way_Back)
{
    Open();

    Click<QPushButton>(*Form, "S_Diagramm");
    EXPECT_EQ(Caption(), "Tablular output");
    EXPECT_TRUE(Diagram().isVisible());
    EXPECT_EQ(Title(), "80th Percentile Conc. of Parent in leachate [\xB5g/L]");
    EXPECT_EQ(Diagram().Shown_Chart().Boxes.size(), 2U);

    Click<QPushButton>(*Form, "S_Diagramm");
    EXPECT_EQ(Caption(), "Diagram");
    EXPECT_FALSE(Diagram().isVisible());
}

TEST_F(Zusammenfassung_Test, A_Click_On_The_Diagram_Cycles_Through_The_Substances_From_The_First_One)
{
    Open();
    Click<QPushButton>(*Form, "S_Diagramm");

    QTest::mouseClick(&Diagram(), Qt::LeftButton);
    EXPECT_EQ(Title(), "80th Percentile Conc. of Metabolite in leachate [\xB5g/L]");
    EXPECT_EQ(Diagram().Shown_Chart().Y.High, 1);
    QTest::mouseClick(&Diagram(), Qt::LeftButton);
    EXPECT_EQ(Title(), "80th Percentile Conc. of Parent in leachate [\xB5g/L]");

    QTest::mouseClick(&Diagram(), Qt::LeftButton);
    Click<QPushButton>(*Form, "S_Diagramm");
    Click<QPushButton>(*Form, "S_Diagramm");
    EXPECT_EQ(Title(), "80th Percentile Conc. of Parent in leachate [\xB5g/L]");
}

TEST_F(Zusammenfassung_Test, Copies_The_Text_Or_The_Picture_By_The_View)
{
    Open();

    Click<QPushButton>(*Form, "Kopieren");
    EXPECT_EQ(QApplication::clipboard()->text(), Text());

    Click<QPushButton>(*Form, "S_Diagramm");
    Click<QPushButton>(*Form, "Kopieren");
    EXPECT_GT(QApplication::clipboard()->image().width(), 1000);
}

TEST_F(Zusammenfassung_Test, Saves_The_Report_In_The_Kind_That_The_Filter_Names)
{
    Open();
    const Temporary_Directory place;
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);

    In_Modal([&](QWidget& window) {
        auto* dialog = qobject_cast<QFileDialog*>(&window);
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(dialog->windowTitle(), "Save report");
        EXPECT_EQ(dialog->nameFilters(), (QStringList{"Document (*.pdf)", "Page (*.html)", "Workbook (*.xlsx)",
                                                      "Table (*.csv)", "Text (*.txt)"}));
        dialog->setDirectory(QString::fromStdString(place.Path().string()));
        QTest::keyClick(dialog->findChild<QComboBox*>("fileTypeCombo"), Qt::Key_Down);
        auto* name = dialog->findChild<QLineEdit*>("fileNameEdit");
        name->selectAll();
        QTest::keyClicks(name, "dossier");
        QTest::keyClick(name, Qt::Key_Return);
    });
    Click<QPushButton>(*Form, "Speichern");

    EXPECT_TRUE(The_User.Messages.empty());
    EXPECT_TRUE(Read_File(place / "dossier.html").starts_with("<!DOCTYPE html>"));
}

TEST_F(Zusammenfassung_Test, A_Report_Of_An_Unknown_Kind_Is_Refused)
{
    Open();
    const Temporary_Directory place;
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);

    In_Modal([&](QWidget& window) {
        qobject_cast<QFileDialog*>(&window)->setDirectory(QString::fromStdString(place.Path().string()));
        auto* name = window.findChild<QLineEdit*>("fileNameEdit");
        name->selectAll();
        QTest::keyClicks(name, "report.doc");
        QTest::keyClick(name, Qt::Key_Return);
    });
    Click<QPushButton>(*Form, "Speichern");

    EXPECT_EQ(The_User.Messages,
              std::vector{(Message{"Save report",
                                   "A report is saved as .txt, .csv, .xlsx, .html or .pdf, not as report.doc."})});
}

TEST_F(Zusammenfassung_Test, A_Failed_Location_Is_Told_And_Nothing_Is_Shown)
{
    std::filesystem::remove(Thiva / "plot.orv");
    std::filesystem::remove(Thiva / "Wasser.orv");

    Open();

    ASSERT_EQ(The_User.Messages.size(), 1U);
    EXPECT_TRUE(
        The_User.Messages[0].Text.starts_with("Problem with output files. Probably, one of the simulations failed!\n"))
        << The_User.Messages[0].Text;
    EXPECT_EQ(Text(), "");
    EXPECT_FALSE(Find<QPushButton>(*Form, "S_Diagramm")->isEnabled());
}

TEST_F(Zusammenfassung_Test, Its_Simulations_Are_Archived_By_A_Button)
{
    Open();

    Click<QPushButton>(*Form, "Archivieren");

    EXPECT_EQ(Archived, "demo_A Maize");
}

TEST_F(Zusammenfassung_Test, A_Finding_Of_The_Guidance_Is_Answered_Into_The_Notes_At_Once)
{
    Small_Installation place;
    place.Put_Pesticide("demo_A.psm", {"H", "C"});
    Write_Whole(place / "guidance.json", R"({"schema": "orvel-guidance 1", "rules": [
        {"id": "OWN", "severity": "warning", "text": "t", "source": "s", "compare": "Location", "one_of": ["K"]}]})");
    The_Session.Program.App_Path = place.Path();
    Open();

    In_Modal([&](QWidget& window) {
        const auto* grid = Find<QTableWidget>(window, "Guidance_Grid");
        ASSERT_EQ(grid->rowCount(), 1); // Thiva has no scenario here
        EXPECT_EQ(grid->item(0, 2)->text(), "Location = H at Hamburg (H)");
        QTest::keyClicks(Find<QLineEdit>(window, "Guidance_Answer"), "for comparison");
        Click<QPushButton>(window, "Guidance_Keep");
        EXPECT_TRUE(grid->item(0, 3)->text().startsWith("for comparison"));
    });
    Click<QPushButton>(*Form, "Guidance");

    const auto notes = Read_Notes(place / "demo_A.psm");
    ASSERT_NE(Answer_Of(notes, "OWN", "Location"), nullptr);
    EXPECT_EQ(Answer_Of(notes, "OWN", "Location")->Text, "for comparison");
}

TEST_F(Zusammenfassung_Test, A_Guidance_Check_Without_The_Pesticide_File_Is_Told)
{
    Small_Installation place;
    The_Session.Program.App_Path = place.Path();
    Open();

    Click<QPushButton>(*Form, "Guidance");

    ASSERT_EQ(The_User.Messages.size(), 1U);
    EXPECT_EQ(The_User.Messages[0].Title, "Guidance check");
    EXPECT_NE(The_User.Messages[0].Text.find("demo_A.psm"), std::string::npos);
}

} // namespace orvel
