#include "core/code_page.h"
#include "desktop/forms/start.h"
#include "evaluation/forms/analyse.h"
#include "evaluation/forms/simulationsliste.h"
#include "installation/installation_files.h"
#include "jobs/forms/focus.h"
#include "small_installation.h"
#include "ui/help_texts.h"
#include "window_test.h"

#include <QApplication>
#include <QLabel>
#include <QToolButton>

namespace orvel {

// Every text of the help assistant, brought up by the mouse over its control.

namespace {

enum class Opened { Start, Run_Form, Browser, List };

struct Shown_Text {
    Opened Form;
    const char* Control;
    int Number;
    Mode_Kind Mode = Mode_Kind::Focus;
};

std::vector<Shown_Text> All_Texts()
{
    std::vector<Shown_Text> all = {{Opened::Start, "Image1", 1}, {Opened::Start, "Image2", 2}};
    for (const auto mode : {Mode_Kind::Focus, Mode_Kind::Efsa, Mode_Kind::Efsa_T4}) {
        for (const auto& [control, number] : std::initializer_list<std::pair<const char*, int>>{{"Crop", 3},
                                                                                                {"Location", 4},
                                                                                                {"Pesticide", 7},
                                                                                                {"App_Modus", 8},
                                                                                                {"app_Date", 9},
                                                                                                {"s_run", 11},
                                                                                                {"Batchdatei", 13},
                                                                                                {"Command1", 14}})
            all.push_back({Opened::Run_Form, control, number, mode});
        for (const auto& [control, number] : std::initializer_list<std::pair<const char*, int>>{{"Label1", 15},
                                                                                                {"Label4", 16},
                                                                                                {"Label6", 17},
                                                                                                {"Datum", 18},
                                                                                                {"Liste", 19},
                                                                                                {"Echo", 20},
                                                                                                {"Konzentration", 21},
                                                                                                {"Balance", 22},
                                                                                                {"Frame4", 23},
                                                                                                {"Parameter", 23},
                                                                                                {"Cumulative", 24},
                                                                                                {"Frame2", 25},
                                                                                                {"Zeitintervall_0", 25},
                                                                                                {"Grafik", 26}})
            all.push_back({Opened::Browser, control, number, mode});
        for (const auto& [control, number] :
             std::initializer_list<std::pair<const char*, int>>{{"Grid1", 27}, {"Auswaehlen", 28}, {"Loeschen", 29}})
            all.push_back({Opened::List, control, number, mode});
    }
    return all;
}

class Help_Shown : public Window_Test, public testing::WithParamInterface<Shown_Text> {
protected:
    Help_Shown()
    {
        The_Session.Program.App_Path = Home.Path();
        The_Session.Program.Help_Text = Texts_Of_An_Installation();
        The_Session.Program.Online_Help = true;
    }

    static const std::vector<std::string>& Texts_Of_An_Installation()
    {
        static const auto Texts = [] {
            std::vector<std::string> texts;
            Make_Data_Files([&](const std::string& path, std::string_view bytes) {
                if (path == "Assystant.txt")
                    texts = Parse_Help_Texts(bytes);
            });
            return texts;
        }();
        return Texts;
    }

    std::unique_ptr<QWidget> Open()
    {
        const Mode& mode = Mode_Of(GetParam().Mode);
        std::unique_ptr<QWidget> form;
        switch (GetParam().Form) {
        case Opened::Start:
            form = std::make_unique<Start>(The_Session);
            break;
        case Opened::Run_Form:
            form = std::make_unique<FOCUS>(The_Session, mode, Run_Windows());
            break;
        case Opened::Browser:
            form = std::make_unique<Analyse>(The_Session, mode);
            break;
        case Opened::List:
            form = std::make_unique<Simulationsliste>(The_Session, mode);
            break;
        }
        form->show();
        return form;
    }

    Small_Installation Home;
};

std::string Name_Of_Case(const testing::TestParamInfo<Shown_Text>& info)
{
    const std::string mode(Mode_Of(info.param.Mode).Directory);
    return "Text_" + std::to_string(info.param.Number) + "_On_" + info.param.Control +
           (info.param.Form == Opened::Start ? "" : "_" + mode);
}

} // namespace

TEST_P(Help_Shown, When_The_Mouse_Comes_Over_The_Control)
{
    const auto form = Open();
    auto* control = Find<QWidget>(*form, GetParam().Control);
    const auto* box = Find<QLabel>(*form, "Kurzinfo");
    ASSERT_FALSE(box->isVisible());

    QTest::mouseMove(control, QPoint(5, std::min(5, control->height() / 2)));

    ASSERT_TRUE(QTest::qWaitFor([&] { return box->isVisible(); }, 1000));
    const QString expected =
        QString::fromStdString(To_Utf8(Help_Text_Of(The_Session, GetParam().Number))).remove('\r').trimmed();
    EXPECT_FALSE(expected.isEmpty());
    EXPECT_EQ(box->text().toStdString(), expected.toStdString());
    EXPECT_TRUE(form->rect().contains(box->geometry()));
}

class Help_Switched : public Help_Shown {};

TEST_P(Help_Switched, Off_On_The_Start_Form_Is_Off_Here)
{
    Start start(The_Session);
    start.show();
    Click<QToolButton>(start, "Fragen_1");
    start.hide();
    const auto form = Open();

    EXPECT_FALSE(The_Session.Program.Online_Help);
    EXPECT_TRUE(Find<QToolButton>(*form, "Fragen_0")->isVisible());
    EXPECT_FALSE(Find<QToolButton>(*form, "Fragen_1")->isVisible());
    auto* control = Find<QWidget>(*form, GetParam().Control);
    QTest::mouseMove(control, QPoint(5, std::min(5, control->height() / 2)));
    QTest::qWait(100);
    EXPECT_FALSE(Find<QLabel>(*form, "Kurzinfo")->isVisible());
}

INSTANTIATE_TEST_SUITE_P(Each_Form, Help_Switched,
                         testing::Values(Shown_Text{Opened::Run_Form, "s_run", 11},
                                         Shown_Text{Opened::Browser, "Liste", 19},
                                         Shown_Text{Opened::List, "Loeschen", 29}),
                         Name_Of_Case);
INSTANTIATE_TEST_SUITE_P(Every_Text, Help_Shown, testing::ValuesIn(All_Texts()), Name_Of_Case);

} // namespace orvel
