// From the forms to the real engine's output: what a user enters by hand is what is simulated.
#include "core/files.h"
#include "documents/documents.h"
#include "files/climate_file.h"
#include "jobs/forms/focus.h"
#include "jobs/forms/form_end.h"
#include "jobs/job_status.h"
#include "jobs/single_run_start.h"
#include "orvelctl_program.h"
#include "runs/start_up.h"
#include "scenario/forms/klima.h"
#include "scenario/forms/szenario.h"
#include "temporary_directory.h"
#include "ui/forms/number_grid.h"
#include "ui/forms/widgets.h"
#include "window_test.h"

#include <cstdlib>
#include <QComboBox>
#include <QPushButton>
#include <sstream>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr int Rain_Column = 4;
constexpr int Most_Waiting = 60000; // ms

class Scenario_By_Hand : public Window_Test {
protected:
    Scenario_By_Hand()
    {
        if (Orvelctl("init " + Installation().string()) != 0)
            throw std::runtime_error("no installation");
        The_Session.Program.App_Path = Installation();
        Start_Up(The_Session);
    }

    fs::path Installation() const { return Place / "installation"; }

    static void Show(QWidget& form)
    {
        form.show();
        QApplication::setActiveWindow(&form);
        QApplication::processEvents();
    }

    static void Type_Over(Number_Grid& grid, int row, int column, const QString& text)
    {
        const auto cell = grid.model()->index(row, column);
        grid.scrollTo(cell);
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, grid.visualRect(cell).center());
        for (auto left = cell.data().toString().size(); left > 0; --left) {
            QTest::keyClick(&grid, Qt::Key_Delete); // one of the two takes the last character
            QTest::keyClick(&grid, Qt::Key_Backspace);
        }
        QTest::keyClicks(&grid, text);
    }

    static void Save_As(const QString& name)
    {
        In_Modal([name](QWidget& dialog) {
            Find<QLineEdit>(dialog, "TextSave")->setText(name);
            Click<QPushButton>(dialog, "SaveNow");
        });
    }

    // A new scenario with two horizons, and maize and potatoes in turn.
    void Make_Scenario(const fs::path& directory, const QString& name)
    {
        Reset_SZE(The_Session.Scenario); // "New File"
        The_Session.Program.PSM_File = "*.sze";
        Szenario editor(The_Session, directory);
        Show(editor);
        Choose_Option(editor, "Button_Delxflg_1");
        Click<QPushButton>(editor, "Label_wat"); // monthly becomes yearly
        QTest::keyClick(Find<QComboBox>(editor, "Combo_et"), Qt::Key_Home);
        for (const auto& [box, text] : std::map<QString, QString>{
                 {"Text_tit", "Made by hand"}, {"Text_cor", "120"}, {"Text_num", "48"}, {"Text_nhor", "2"}})
            Retype(editor, box, text);
        In_Modal([](QWidget& form) {
            auto* grid = Find<Number_Grid>(form, "Grid_nhor");
            const char* cells[2][6] = {{"30", "1.5", "5", "0.29", "0.29", "0.06"},
                                       {"90", "1.6", "5", "0.23", "0.23", "0.04"}};
            for (int row = 0; row < 2; ++row) {
                for (int column = 0; column < 6; ++column)
                    Type_Over(*grid, row, column + 1, cells[row][column]);
                Type_Over(*grid, row, 7, row == 0 ? "1.5" : "0.3"); // organic carbon
                Type_Over(*grid, row, 8, "6.5");
                Type_Over(*grid, row, 9, "1");
            }
            Click<QPushButton>(form, "Command2");
        });
        Click<QPushButton>(editor, "Command4");
        In_Modal([](QWidget& form) {
            for (const char* crop : {"Maize", "Potatoes"}) {
                Choose(form, "List_dat", crop);
                Click<QPushButton>(form, "Command3");
            }
            Click<QPushButton>(form, "Command5");
        });
        Click<QPushButton>(editor, "Command3");
        Save_As(name);
        Click<QPushButton>(editor, "Command1");
        ASSERT_TRUE(The_User.Messages.empty()) << The_User.Messages[0].Text;
        ASSERT_TRUE(fs::exists(directory / name.toStdString()));
    }

    // Opens a climate file, puts a title and the rain of its tenth day in, and saves it under another name.
    void Change_Climate(const fs::path& from, const fs::path& directory, const QString& name, const QString& rain)
    {
        ASSERT_TRUE(Open_Document(The_Session, from));
        Klima editor(The_Session, directory);
        Show(editor);
        Retype(editor, "Cli_Title", "Rain by hand");
        Type_Over(*Find<Number_Grid>(editor, "Grid1"), 9, Rain_Column, rain);
        Save_As(name);
        Click<QPushButton>(editor, "Command1");
        Click<QPushButton>(editor, "Fertig");
        ASSERT_TRUE(fs::exists(directory / name.toStdString()));
    }

    // Rain and snow of the first year: the first number of the balance's first table, the second of its second.
    static double Precipitation_Of_The_First_Year(const fs::path& water)
    {
        const std::string text = Read_Whole(water), label = "SUM OF THE PERIOD";
        const auto supply = text.find(label, text.find("WATER SUPPLY")) + label.size();
        std::istringstream rain(text.substr(supply)), snow(text.substr(text.find(label, supply) + label.size()));
        double fallen = 0, melted = 0, snowed = 0;
        rain >> fallen;
        snow >> melted >> snowed;
        return fallen + snowed;
    }

    Temporary_Directory Place;
};

TEST_F(Scenario_By_Hand, Two_Crops_Saved_As_An_Individual_File_Are_Simulated_As_Individual_Crop)
{
    Make_Scenario(Installation() / "focus", "H_indiv.sze");
    FOCUS form(The_Session, Mode_Of(Mode_Kind::Focus), Run_Windows());
    Show(form);
    Choose(form, "Pesticide", "demo_D.psm");
    Choose(form, "Crop", "Individual crop");
    Choose(form, "Location", "Hamburg (H)");

    Click<QPushButton>(form, "s_run");
    ASSERT_TRUE(The_User.Messages.empty()) << The_User.Messages[0].Text;
    const auto run = Installation() / "focus/demo_D.run/Individual_-_crop.run/Hamburg_-_(H).run";
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return !Job_Running(The_Session.Program, Mode_Of(Mode_Kind::Focus)) && fs::exists(run / "echo.orv"); },
        Most_Waiting));

    const std::string echo = Read_Whole(run / "echo.orv");
    EXPECT_NE(echo.find("*** SIMULATION COMPLETED ***"), std::string::npos);
    EXPECT_NE(echo.find(" Made by hand\r\n"), std::string::npos);
    // Emergence, maturation, senescence, harvest, crop row: the dates of input.dat, the second crop a year later, and
    // both again.
    EXPECT_NE(echo.find("\r\n  5.5.1  30.7.1  1.9.1  20.9.1  14\r\n  10.5.2  20.7.2  31.8.2  15.9.2  3\r\n  5.5.3  "
                        "30.7.3  1.9.3  20.9.3  14\r\n"),
              std::string::npos)
        << echo.substr(echo.find(" ROTATION"), 400);
}

TEST_F(Scenario_By_Hand, A_Climate_File_Edited_In_The_Grid_Reaches_The_Run)
{
    const auto original = Installation() / "focus/H_01.cli";
    const Climate_Table before = Parse_CLI(Read_Whole(original));
    double other_days = 0;
    for (std::size_t day = 0; day < before.Rows.size(); ++day)
        other_days += day == 9 || before.Rows[day].Cli_Day == "  " ? 0 : before.Rows[day].Cli_Rain.value();
    Change_Climate(original, Installation(), "wet.cli", "7.5");
    Make_Scenario(Installation(), "mine.sze");
    form_end form(The_Session, Run_Windows());
    Show(form);
    Choose(form, "File_psm", "demo_D.psm");
    Choose(form, "File_sce", "mine.sze");
    Choose(form, "File_cli", "wet.cli");
    Click<QPushButton>(form, "Command2");
    for (const char* day : {"Combo_stad", "Combo_endd"}) {
        auto* box = Find<QComboBox>(form, day)->lineEdit();
        box->selectAll();
        QTest::keyClicks(box, day == std::string("Combo_stad") ? "1" : "31");
    }
    Find<QComboBox>(form, "Combo_stam")->setCurrentIndex(0);
    Find<QComboBox>(form, "Combo_endm")->setCurrentIndex(11);
    Find<QLineEdit>(form, "Text_years")->selectAll();
    QTest::keyClicks(Find<QLineEdit>(form, "Text_years"), "1");

    Click<QPushButton>(form, "Command4");
    ASSERT_TRUE(The_User.Messages.empty()) << The_User.Messages[0].Text;
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return fs::exists(Installation() / "echo.orv") && !State_Of_Single_Run(Installation(), 1).Running; },
        Most_Waiting));

    const std::string echo = Read_Whole(Installation() / "echo.orv");
    EXPECT_NE(echo.find("wet.cli   Rain by hand\r\n"), std::string::npos);
    EXPECT_NEAR(Precipitation_Of_The_First_Year(*Find_File(Installation(), "Wasser.orv")), other_days + 7.5,
                0.005 * 365);                                                // the grid shows two decimals
    EXPECT_GT(std::abs(before.Rows[9].Cli_Rain.value() - 7.5), 0.005 * 365); // the change is more than that
}

} // namespace

} // namespace orvel
