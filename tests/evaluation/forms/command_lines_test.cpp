// "Copy as command": what every window that runs or evaluates shows is given to the shell, and the program that ships
// understands it and gives the window's figures.
#include "charts/forms/chart_view.h"
#include "core/files.h"
#include "core/shell_line.h"
#include "core/text.h"
#include "evaluation/forms/analyse.h"
#include "evaluation/forms/inout_sel.h"
#include "evaluation/forms/overview_window.h"
#include "evaluation/forms/series_window.h"
#include "evaluation/forms/simulationsliste.h"
#include "jobs/forms/focus.h"
#include "jobs/forms/form_end.h"
#include "programs/shell.h"
#include "records/forms/archives.h"
#include "report/forms/zusammenfassung_orv.h"
#include "runs/start_up.h"
#include "tables/forms/jahr_orv.h"
#include "tables/forms/mass_balance.h"
#include "tables/forms/pecsoil.h"
#include "tables/forms/text_viewer.h"
#include "window_test.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTreeView>

namespace orvel {

namespace fs = std::filesystem;

namespace {

class Command_Lines : public Window_Test {
protected:
    static void SetUpTestSuite()
    {
        Place = new Temporary_Directory;
        const std::string at = std::string(ORVELCTL) + " -C " + Shell_Word(Installation().string()) + " ";
        ASSERT_EQ(Shell(std::string(ORVELCTL) + " init " + Shell_Word(Installation().string())).Code, 0);
        ASSERT_EQ(Shell(at + "mark --mode focus --pesticide demo_D.psm --crop 'Winter cereals' --location "
                             "'Hamburg (H)'")
                      .Code,
                  0);
        ASSERT_EQ(Shell(at + "start --mode focus --wait").Code, 0);
        ASSERT_EQ(Shell(at + "mark --mode efsa --pesticide demo_S.psm --crop Potatoes --location "
                             "'Total content - North (T_N)'")
                      .Code,
                  0);
        ASSERT_EQ(Shell(at + "start --mode efsa --wait").Code, 0);
    }
    static void TearDownTestSuite() { delete Place; }

    Command_Lines()
    {
        The_Session.Program.App_Path = Installation();
        Start_Up(The_Session);
    }

    // With a blank and a quote, as a user's directory may have.
    static fs::path Installation() { return Place->Path() / "it's here"; }
    static fs::path Run() { return Installation() / "focus/demo_D.run/Winter_-_cereals.run/Hamburg_-_(H).run"; }
    static fs::path Soil_Run()
    {
        return Installation() / "EFSA/demo_S.run/Potatoes.run/Total_-_content_-_-_-_North_-_(T_N).run";
    }

    // What the window's button shows.
    static std::vector<std::string> Lines_Of(const QWidget& window)
    {
        std::vector<std::string> lines;
        In_Modal([&](QWidget& box) {
            for (const auto& line : Find<QPlainTextEdit>(box, "Commands")->toPlainText().split('\n'))
                lines.push_back(line.toStdString());
        });
        Find<QPushButton>(window, "Befehl")->click();
        return lines;
    }

    static Outcome Do(const std::string& line)
    {
        constexpr std::string_view name = "orvelctl ";
        EXPECT_TRUE(line.starts_with(name) || line.starts_with("cd ")) << line;
        if (!line.starts_with(name))
            return Shell(line);
        return Shell("cd '" + Place->Path().string() + "' && " + ORVELCTL + " " + line.substr(name.size()));
    }

    // A window whose table is built beside it.
    template <class Window> static void Wait_For(Window& window, const QString& text)
    {
        window.show();
        ASSERT_TRUE(
            QTest::qWaitFor([&] { return !Find<QPlainTextEdit>(window, text)->toPlainText().isEmpty(); }, 30'000));
    }

    static std::string Texts_Of(const QWidget& window, const QStringList& names)
    {
        std::string texts;
        for (const auto& name : names)
            texts += Find<QPlainTextEdit>(window, name)->toPlainText().toStdString();
        return texts;
    }

    static Temporary_Directory* Place;
};
Temporary_Directory* Command_Lines::Place = nullptr;

// The figures and words of a text, whatever stands between them: a window has no end of line at its end.
std::string Words_Of(const std::string& text)
{
    std::istringstream in(text);
    std::string words;
    for (std::string word; in >> word;)
        words += word + " ";
    return words;
}

} // namespace

TEST_F(Command_Lines, Of_Every_Window_That_Runs_Or_Evaluates_Are_Understood)
{
    FOCUS focus(The_Session, Mode_Of(Mode_Kind::Focus), {}, nullptr);
    focus.show();
    Choose(focus, "Pesticide", "demo_A.psm");
    Choose(focus, "Crop", "Winter cereals");
    Choose(focus, "Location", "Jokioinen (J)");
    The_Session.Run.Single = {.Sim_Years = "3", .Start_Day = "1", .End_Day = "31"};
    form_end single(The_Session, {});
    Simulationsliste list(The_Session, Mode_Of(Mode_Kind::Focus));
    Analyse browser(The_Session, Mode_Of(Mode_Kind::Focus));
    browser.show();
    inout_sel files(The_Session);
    files.show();
    Overview_Window overview(The_Session, Mode_Kind::Focus);
    Archives archives(The_Session);
    Find<QLineEdit>(archives, "First")->setText(QString::fromStdString(Run().string()));
    Find<QLineEdit>(archives, "Second")->setText(QString::fromStdString(Run().string()));
    Find<QLineEdit>(archives, "Archive_File")->setText("a.zip");
    Find<QLineEdit>(archives, "Target")->setText("laid out");
    Series_Window series(The_Session, Run());

    for (const auto& [window, count] : std::map<QWidget*, std::size_t>{{&focus, 3U},
                                                                       {&single, 2U},
                                                                       {&list, 4U},
                                                                       {&browser, 4U},
                                                                       {&overview, 1U},
                                                                       {&archives, 4U},
                                                                       {&series, 1U}}) {
        const auto lines = Lines_Of(*window);
        EXPECT_EQ(lines.size(), count) << window->objectName().toStdString();
        for (const auto& line : lines) {
            const auto outcome = Do(line);
            EXPECT_NE(outcome.Code, 2) << line << "\n" << outcome.Told;
            EXPECT_LT(outcome.Code, 126) << line << "\n" << outcome.Told; // the shell found it
        }
    }
    EXPECT_FALSE(Find<QPushButton>(files, "Befehl")->isEnabled()); // the installation is no run
}

TEST_F(Command_Lines, Of_A_Table_Print_What_The_Window_Shows)
{
    { // the percentile of a table lacks its "80 " on the screen as long as it was not stored
        Jahr_ORV built(The_Session, Run());
        Wait_For(built, "Ergebnis_1");
    }
    Jahr_ORV leachate(The_Session, Run());
    Wait_For(leachate, "Ergebnis_0");
    Wait_For(leachate, "Ergebnis_1");
    EXPECT_EQ(Words_Of(Do(Lines_Of(leachate).at(0)).Printed),
              Words_Of(Texts_Of(leachate, {"Ergebnis_0"})) + Words_Of(Texts_Of(leachate, {"Ergebnis_1"})));
    for (const auto view : {Balance_View::Annual, Balance_View::Monthly}) {
        Mass_Balance balance(The_Session, Run(), nullptr, view);
        Wait_For(balance, "Ergebnis_0");
        EXPECT_EQ(Words_Of(Do(Lines_Of(balance).at(0)).Printed),
                  Words_Of(Texts_Of(balance, {"Ergebnis_0"})) + Words_Of(Texts_Of(balance, {"Ergebnis_1"})));
    }
    PECsoil soil(The_Session, Soil_Run(), 5);
    Wait_For(soil, "Ergebnis_1");
    EXPECT_EQ(Words_Of(Do(Lines_Of(soil).at(0)).Printed), Words_Of(Texts_Of(soil, {"Ergebnis_1"})));
}

TEST_F(Command_Lines, Of_The_Report_Prints_What_The_Window_Shows)
{
    Zusammenfassung_orv report(
        The_Session,
        Summary_Request{"ORVEL 4.01", "2026-01-02 03:04", "demo_D", "Winter cereals", {{"Hamburg (H)", Run()}}}, {});
    Wait_For(report, "Ergebnis");
    const auto figures = [](const std::string& text) { return Words_Of(text.substr(text.find("Hamburg"))); };

    EXPECT_EQ(figures(Do(Lines_Of(report).at(0)).Printed), figures(Texts_Of(report, {"Ergebnis"})));
}

TEST_F(Command_Lines, Of_The_Overview_Prints_Its_Figures)
{
    Overview_Window overview(The_Session, Mode_Kind::Focus);
    overview.show();
    const auto* model = Find<QTreeView>(overview, "Table")->model();
    ASSERT_TRUE(QTest::qWaitFor([&] { return model->index(0, 3).data().toString().contains('.'); }, 30'000));

    const auto printed = Do(Lines_Of(overview).at(0));

    EXPECT_EQ(printed.Code, 0) << printed.Told;
    EXPECT_TRUE(
        Contains(printed.Printed, "\t" + model->index(0, 3).data().toString().section(' ', 1).toStdString() + "\t"))
        << printed.Printed;
}

// The diagrams that windows open have a line of their own.
TEST_F(Command_Lines, Of_Diagrams_And_The_Echo_Print_Their_Figures)
{
    std::string line;
    std::size_t points = 0;
    double last = 0;
    const auto look = [&](QWidget& shown) {
        line = Lines_Of(shown).at(0);
        const auto* view = shown.findChild<Chart_View*>("Diagramm");
        if (view && !view->Shown_Chart().Lines.empty()) {
            points = view->Shown_Chart().Lines[0].Points.size();
            last = view->Shown_Chart().Lines[0].Points.back().Y;
        }
    };
    Series_Window series(The_Session, Run());
    series.show();
    In_Modal(look);
    Click<QPushButton>(series, "Grafik");
    const auto printed = Do(line);
    EXPECT_EQ(printed.Code, 0) << line << printed.Told;
    EXPECT_EQ(static_cast<std::size_t>(std::ranges::count(printed.Printed, '\n')), points + 1); // below its head
    EXPECT_NEAR(std::stod(printed.Printed.substr(printed.Printed.rfind(',') + 1)), last, 1e-9);

    Jahr_ORV leachate(The_Session, Run());
    Wait_For(leachate, "Ergebnis_0");
    Wait_For(leachate, "Ergebnis_1");
    In_Modal(look);
    Click<QPushButton>(leachate, "Diagramm");
    EXPECT_EQ(line, Lines_Of(leachate).at(0));
    Mass_Balance balance(The_Session, Run());
    Wait_For(balance, "Ergebnis_0");
    In_Modal(look);
    Click<QPushButton>(balance, "Diagramm");
    EXPECT_EQ(line, Lines_Of(balance).at(0));

    std::string echo;
    In_Modal([&](QWidget& shown) {
        line = Lines_Of(shown).at(0);
        echo = Texts_Of(shown, {"Ergebnis"});
    });
    Show_Echo(The_Session, Run(), nullptr);
    EXPECT_FALSE(echo.empty());
    EXPECT_EQ(Words_Of(Do(line).Printed), Words_Of(echo));
}

} // namespace orvel
