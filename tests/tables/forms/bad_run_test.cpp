#include "core/files.h"
#include "core/text.h"
#include "evaluation/forms/analyse.h"
#include "evaluation/forms/simulationsliste.h"
#include "report/forms/zusammenfassung_orv.h"
#include "tables/balance_tables.h"
#include "tables/forms/jahr_orv.h"
#include "tables/forms/jahresbilanz.h"
#include "tables/forms/jahresdiagramm.h"
#include "tables/forms/mass_balance.h"
#include "tables/leachate_run.h"
#include "tables/leachate_tables.h"
#include "window_test.h"

#include <array>
#include <QApplication>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableView>
#include <QTimer>

namespace orvel {

// Runs whose files are not what they should be: caches that somebody changed, directories that go away while they are
// shown.

namespace fs = std::filesystem;

namespace {

constexpr std::array<const char*, 4> Caches = {"year.orv", "period.orv", "MBalance.orv", "PBalance.orv"};

class Bad_Run : public Window_Test {
protected:
    Bad_Run()
    {
        Closer.callOnTimeout([] {
            if (auto* window = QApplication::activeModalWidget())
                window->close();
        });
        Closer.start(20);
    }

    // Shows a window until what it builds is built.
    template <class Form> void Show(Form& form)
    {
        form.show();
        if (auto* done = form.template findChild<QPushButton*>("Ende")) {
            EXPECT_TRUE(QTest::qWaitFor([&] { return done->isEnabled(); }));
        }
        EXPECT_TRUE(form.isVisible());
        form.grab(); // paints it
        form.close();
    }

    QTimer Closer; // closes each modal window that a click opens
};

class Tampered_Cache : public Bad_Run, public testing::WithParamInterface<std::string> {
protected:
    Tampered_Cache()
    {
        Run.Write_Water(26);
        Run.Write_Chem(".orv", Rising(26), Rising(26));
        Build_Or_Load(Run.Path());
        Build_Or_Load_Balance(Run.Path(), Balance_View::Annual);
    }

    // What somebody made of a cache.
    static std::string Tampered(std::string bytes, const std::string& how)
    {
        if (how == "Empty")
            return {};
        if (how == "Cut_In_The_Middle")
            return bytes.substr(0, bytes.size() / 2);
        if (how == "Without_Ends_Of_Lines")
            return Replace_All(bytes, "\r\n", " ");
        if (how == "With_Huge_Numbers")
            return Replace_All(Replace_All(bytes, "\t1", "\t1E+999"), "(", "(-99999999999999999999");
        std::string noise(200000, '\0');
        unsigned seed = 1;
        for (char& c : noise)
            c = static_cast<char>((seed = seed * 1664525U + 1013904223U) >> 24U);
        return noise;
    }

    Leachate_Run Run{{.Names = {"Parent"}}};
};

class Gone_Directory : public Bad_Run {
protected:
    Gone_Directory()
    {
        The_Session.Program.App_Path = Place.Path();
        fs::create_directories(Run);
        Write_File(Run / "echo.orv", Echo_File());
        Write_File(Run / "plot.orv", Plot_Head_Of(1, 0));
    }

    Temporary_Directory Place;
    fs::path Run = Place / "focus/demo.run/Maize.run/Hamburg_-_(H).run";
};

} // namespace

TEST_P(Tampered_Cache, Is_Built_Anew_And_Nothing_Of_It_Is_Shown)
{
    std::array<std::string, 4> whole;
    for (std::size_t i = 0; i < Caches.size(); ++i) {
        whole[i] = Read_Whole(Run / Caches[i]);
        Write_Whole(Run / Caches[i], Tampered(whole[i], GetParam()));
    }

    Jahr_ORV years(The_Session, Run.Path());
    Show(years);
    EXPECT_EQ(Find<QPlainTextEdit>(years, "Ergebnis_0")->toPlainText().count("Perc.(23/22)"), 2);
    Mass_Balance balance(The_Session, Run.Path());
    Show(balance);
    EXPECT_TRUE(Find<QPlainTextEdit>(balance, "Ergebnis_0")->toPlainText().contains("\n\t26  "));
    Jahresdiagramm diagram(Build_Or_Load(Run.Path()), The_Session.Ask);
    Show(diagram);
    Jahresbilanz chart(Build_Or_Load_Balance(Run.Path(), Balance_View::Annual), The_Session.Ask);
    Show(chart);

    for (std::size_t i = 0; i < Caches.size(); ++i)
        EXPECT_EQ(Read_Whole(Run / Caches[i]), whole[i]) << Caches[i];
}

TEST_P(Tampered_Cache, Gives_The_Report_Its_True_Figures)
{
    for (const char* name : Caches)
        Write_Whole(Run / name, Tampered(Read_Whole(Run / name), GetParam()));

    Zusammenfassung_orv report(
        The_Session,
        Summary_Request{"ORVEL 4.01", "2026-01-02 03:04", "demo_A", "Maize", {{"Hamburg (H)", Run.Path()}}}, {});
    Show(report);

    EXPECT_TRUE(Find<QPlainTextEdit>(report, "Ergebnis")->toPlainText().contains("(17/16)\t45.0000"))
        << Find<QPlainTextEdit>(report, "Ergebnis")->toPlainText().toStdString();
}

INSTANTIATE_TEST_SUITE_P(Each, Tampered_Cache,
                         testing::Values("Empty", "Cut_In_The_Middle", "Without_Ends_Of_Lines", "With_Huge_Numbers",
                                         "Noise"),
                         [](const auto& tampered) { return tampered.param; });

TEST_F(Gone_Directory, Every_Button_Of_The_Browser_Is_Safe_And_Makes_Nothing_Anew)
{
    Analyse form(The_Session, Mode_Of(Mode_Kind::Focus));
    form.show();
    fs::remove_all(Place / "focus/demo.run");

    for (const char* button : {"Konzentration", "Balance", "Echo", "Zusammenfassung", "Grafik"}) {
        SCOPED_TRACE(button);
        Click<QPushButton>(form, button);
        EXPECT_TRUE(form.isVisible());
        EXPECT_FALSE(fs::exists(Place / "focus/demo.run"));
    }
    Click<QPushButton>(form, "Liste"); // the lists are filled anew
    EXPECT_FALSE(Find<QPushButton>(form, "Konzentration")->isEnabled());
    EXPECT_TRUE(fs::is_directory(Place / "focus"));
}

TEST_F(Gone_Directory, A_Table_That_Is_Shown_Stays_Readable)
{
    Mass_Balance form(The_Session, Run);
    form.show();
    ASSERT_TRUE(QTest::qWaitFor([&] { return Find<QPushButton>(form, "Ende")->isEnabled(); }));
    const QString before = Find<QPlainTextEdit>(form, "Ergebnis_0")->toPlainText();
    fs::remove_all(Run);

    for (const char* button : {"Umschalter", "Umschalter", "Kopieren", "Diagramm"})
        Click<QPushButton>(form, button);

    EXPECT_EQ(Find<QPlainTextEdit>(form, "Ergebnis_0")->toPlainText(), before);
    EXPECT_FALSE(before.isEmpty());
    EXPECT_FALSE(fs::exists(Run));
}

TEST_F(Gone_Directory, Its_Row_In_The_List_Goes_When_It_Is_Deleted)
{
    fs::create_directories(Place / "focus/other.run/Maize.run/Thiva_-_(T).run");
    Write_File(Place / "focus/other.run/Maize.run/Thiva_-_(T).run/echo.orv", Echo_File());
    Simulationsliste form(The_Session, Mode_Of(Mode_Kind::Focus));
    form.show();
    auto* grid = Find<QTableView>(form, "Grid1");
    ASSERT_EQ(grid->model()->rowCount(), 2);
    fs::remove_all(Place / "focus/demo.run");
    The_User.Answers = {Button::Yes};

    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, grid->visualRect(grid->model()->index(0, 2)).center());
    Click<QPushButton>(form, "Loeschen");

    EXPECT_EQ(The_User.Messages.size(), 1U); // the question alone
    ASSERT_EQ(grid->model()->rowCount(), 1);
    EXPECT_EQ(grid->model()->index(0, 1).data().toString(), "other");
    EXPECT_TRUE(fs::exists(Place / "focus/other.run/Maize.run/Thiva_-_(T).run/echo.orv"));
}

} // namespace orvel
