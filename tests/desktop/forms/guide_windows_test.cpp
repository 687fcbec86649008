// What the guide says of every window.
#include "core/files.h"
#include "core/numbers.h"
#include "desktop/forms/all_windows.h"
#include "desktop/forms/start.h"
#include "files/pesticide_file.h"
#include "files/scenario_file.h"
#include "guide_of_windows.h"
#include "temporary_directory.h"
#include "ui/forms/guide_opening.h"
#include "ui/forms/number_edit.h"
#include "ui/forms/widgets.h"
#include "ui/guide.h"

#include <algorithm>
#include <QApplication>
#include <QDesktopServices>
#include <QPushButton>
#include <QTextBrowser>
#include <QToolButton>

namespace orvel {

namespace fs = std::filesystem;

// A window that is not described in docs/guide, with its picture and all that one can press or fill in, fails here.
TEST_F(Windows_Test, Are_Described_In_The_Guide_With_Picture_And_Every_Control)
{
    const fs::path guide = GUIDE;
    const auto places = Read_Places(guide / "windows.txt");
    const auto common = Read_Guide(guide, {"common.md"});
    for (const auto& opened : All()) {
        SCOPED_TRACE(opened.Name.toStdString());
        const auto window = opened.Open(The_Session);
        window->show();
        ASSERT_TRUE(QTest::qWaitFor([&] { return !Is_At_Work(*window); }));
        ASSERT_TRUE(places.contains(window->objectName())) << window->objectName().toStdString();

        const auto page = Read_Guide(guide, places.at(window->objectName()));

        EXPECT_TRUE(page.Text.contains("(pictures/" + opened.Name + ".png)"));
        QStringList missing;
        for (const auto& control : Controls_Of(*window)) {
            if (!Is_Described(control, common) && !Is_Described(control, page))
                missing << control.Caption + " [" + control.Unit + "] " + control.Control;
        }
        EXPECT_EQ(missing.join("\n").toStdString(), "");
    }
}

// The editors of a new document: what stands in a box is the default that the guide names.
TEST_F(Windows_Test, Begin_With_The_Defaults_Of_The_Guide)
{
    const auto places = Read_Places(fs::path(GUIDE) / "windows.txt");
    int boxes = 0;
    for (const auto& opened : All()) {
        if (!QStringList{"form_as_all", "form_met", "deg_dat_individual", "plant_app", "kin_sorption",
                         "koc_ph_dissociating", "szenario_all", "form_eros", "macro"}
                 .contains(opened.Name))
            continue;
        SCOPED_TRACE(opened.Name.toStdString());
        Reset_PSM(The_Session.Pesticide);
        The_Session.Pesticide.App_Mode = App_Mode_Relative;
        Reset_SZE(The_Session.Scenario);
        const auto window = opened.Open(The_Session);
        window->show();
        const auto guide = Read_Guide(GUIDE, places.at(window->objectName()));
        for (const auto& control : Controls_Of(*window)) {
            const auto* box = window->findChild<Number_Edit*>(control.Control);
            const QString value = box ? QString::fromStdString(General_Text(Val(Bytes_Of(box->text())))) : QString();
            if (!box || QStringList{"", "Text_peup", "s_KOC", "s_KOC2", "s_pH2", "s_pKa"}.contains(control.Control))
                continue;
            EXPECT_TRUE(Is_Default(control, value, guide))
                << control.Caption.toStdString() << ": " << value.toStdString();
            ++boxes;
        }
    }
    EXPECT_GT(boxes, 50);
}

TEST_F(Windows_Test, Open_The_Guide_At_Their_Place_By_F1)
{
    const Temporary_Directory guide;
    fs::create_directory(guide / "windows");
    for (const auto& [window, place] : Read_Places(fs::path(GUIDE) / "windows.txt"))
        Write_Whole(guide / "windows" / (window.toStdString() + ".html"), "a page");
    qputenv("ORVELSUITE_GUIDE", QByteArray::fromStdString(guide.Path().string()));
    const std::unique_ptr<QObject> key(Answer_F1(*qApp, The_Session.Ask));
    for (const auto& opened : All()) {
        SCOPED_TRACE(opened.Name.toStdString());
        const auto window = opened.Open(The_Session);
        window->show();
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
        QTextBrowser browser; // in place of the desktop's
        QDesktopServices::setUrlHandler("file", &browser, "setSource");

        QTest::keyClick(window->focusWidget() ? window->focusWidget() : window.get(), Qt::Key_F1);

        EXPECT_EQ(browser.source().toLocalFile().toStdString(),
                  (guide / "windows" / (window->objectName().toStdString() + ".html")).generic_string());
        QDesktopServices::unsetUrlHandler("file");
    }
    EXPECT_EQ(std::ranges::count(The_User.Messages, "Guide", &Message::Title), 0);
    qunsetenv("ORVELSUITE_GUIDE");
}

TEST_F(Windows_Test, Say_Where_The_Guide_Would_Be)
{
    const Temporary_Directory guide;
    qputenv("ORVELSUITE_GUIDE", QByteArray::fromStdString(guide.Path().string()));
    Start start(The_Session);
    start.show();

    Click<QPushButton>(start, "Guide_Button");
    Click<QToolButton>(start, "Open_Guide");

    const Message told = Guide_Not_Installed(guide.Path());
    EXPECT_EQ(The_User.Messages, (std::vector{told, told}));
    qunsetenv("ORVELSUITE_GUIDE");
}

TEST(Guide_Pages, Lie_Where_The_Variable_Says)
{
    qputenv("ORVELSUITE_GUIDE", "/srv/guide");
    EXPECT_EQ(Guide_Directory("/usr/bin/orvelsuite"), "/srv/guide");
    qputenv("ORVELSUITE_GUIDE", "");
    EXPECT_EQ(Guide_Directory("/nowhere/bin/orvelsuite"), "/nowhere/share/orvelsuite/guide");
    qunsetenv("ORVELSUITE_GUIDE");
}

} // namespace orvel
