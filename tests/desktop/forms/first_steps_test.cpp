#include "desktop/forms/first_steps.h"

#include "desktop/forms/start.h"
#include "desktop/forms/welcome.h"
#include "desktop/places.h"
#include "runs/start_up.h"
#include "small_installation.h"
#include "window_test.h"

#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>

namespace orvel {

namespace {

namespace fs = std::filesystem;

class First_Steps_Test : public Window_Test {
protected:
    First_Steps_Test()
    {
        The_Session.Program.App_Path = Place.Path();
        Start_Up(The_Session);
    }

    static QString Note_In(const QWidget& window)
    {
        const auto* note = window.findChild<QFrame*>("First_Step");
        return note && note->isVisible() ? note->findChild<QLabel*>("First_Step_Text")->text() : QString();
    }

    Small_Installation Place;
};

} // namespace

TEST_F(First_Steps_Test, A_Note_Stands_Beside_The_Next_Control_In_Each_Window)
{
    Start start(The_Session);
    auto* steps = new First_Steps(&start);
    start.show();
    ASSERT_TRUE(QTest::qWaitFor([&] { return Note_In(start).startsWith("<b>1 of 4</b>"); }));
    In_Modal([&](QWidget& runs) {
        ASSERT_TRUE(QTest::qWaitFor([&] { return Note_In(runs).startsWith("<b>2 of 4</b>"); }));
        const auto* note = runs.findChild<QFrame*>("First_Step");
        EXPECT_TRUE(runs.rect().contains(note->geometry()));
        EXPECT_FALSE(note->geometry().intersects(Find<QPushButton>(runs, "Multi_batch")->geometry()));
        Choose(runs, "Pesticide", "test.psm");
        Choose(runs, "Crop", "Maize");
        Click<QPushButton>(runs, "Multi_batch");
        EXPECT_TRUE(QTest::qWaitFor([&] { return Note_In(runs).startsWith("<b>3 of 4</b>"); }));
        EXPECT_EQ(steps->Step(), 2U);
    });
    Click<QToolButton>(start, "Image2");
    EXPECT_EQ(Note_In(start), ""); // the third stands in the window that was closed
}

TEST_F(First_Steps_Test, The_Tour_Can_Be_Ended)
{
    Start start(The_Session);
    const QPointer<First_Steps> steps = new First_Steps(&start);
    start.show();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !Note_In(start).isEmpty(); }));
    Click<QPushButton>(start, "First_Steps_End");

    ASSERT_TRUE(QTest::qWaitFor([&] { return !steps; }));
    EXPECT_EQ(Note_In(start), "");
}

TEST_F(First_Steps_Test, The_Tour_Ended_Early_Stays_Ended_In_All_Windows)
{
    Start start(The_Session);
    const QPointer<First_Steps> steps = new First_Steps(&start);
    start.show();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !Note_In(start).isEmpty(); }));
    In_Modal([&](QWidget& runs) {
        ASSERT_TRUE(QTest::qWaitFor([&] { return Note_In(runs).startsWith("<b>2 of 4</b>"); }));
        Click<QPushButton>(runs, "First_Steps_End");
        ASSERT_TRUE(QTest::qWaitFor([&] { return !steps; }));
        EXPECT_EQ(Note_In(runs), "");
        runs.resize(runs.size() + QSize(40, 40));
        Click<QPushButton>(runs, "Multi_batch");
        QTest::qWait(20);
        EXPECT_EQ(Note_In(runs), "");
    });
    Click<QToolButton>(start, "Image2");
    In_Modal([](QWidget& runs) {
        QTest::qWait(20);
        EXPECT_EQ(Note_In(runs), "");
    });
    Click<QToolButton>(start, "Image2");
    EXPECT_EQ(Note_In(start), "");
}

TEST_F(First_Steps_Test, A_Note_Follows_Its_Control_When_The_Window_Changes_Its_Size)
{
    Start start(The_Session);
    new First_Steps(&start);
    start.show();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !Note_In(start).isEmpty(); }));
    const auto* note = start.findChild<QFrame*>("First_Step");
    const auto* control = Find<QToolButton>(start, "Image2");
    const QSize least = start.minimumSizeHint();
    for (const QSize& size : {least, least * 2, QSize(least.width() * 2, least.height()), least}) {
        start.resize(size);
        ASSERT_TRUE(QTest::qWaitFor([&] {
            const QRect place(control->mapTo(&start, QPoint(0, 0)), control->size());
            return start.rect().contains(note->geometry()) && note->x() <= place.right() &&
                   note->geometry().right() >= place.left() && !note->geometry().intersects(place);
        })) << size.width()
            << " x " << size.height();
    }
}

TEST_F(First_Steps_Test, A_Window_That_Is_Closed_And_Opened_Again_Has_Its_Note_Again)
{
    Start start(The_Session);
    new First_Steps(&start);
    start.show();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !Note_In(start).isEmpty(); }));
    for (int time = 0; time < 2; ++time) {
        In_Modal([&](QWidget& runs) {
            EXPECT_TRUE(QTest::qWaitFor([&] { return Note_In(runs).startsWith("<b>2 of 4</b>"); }));
        });
        Click<QToolButton>(start, "Image2");
    }
}

TEST_F(First_Steps_Test, The_First_Page_Stays_In_A_Home_That_Cannot_Be_Written_And_Takes_Another_Place)
{
    const fs::path home = Place / "home";
    Write_Whole(home, "no directory");
    Welcome page({Place.Path()}, The_Session.Ask, home / "ORVELSUITE");
    page.show();

    Click<QPushButton>(page, "Make");
    EXPECT_TRUE(page.isVisible());
    EXPECT_TRUE(page.Installation().empty());
    ASSERT_EQ(The_User.Messages.size(), 1U);
    EXPECT_NE(The_User.Messages[0].Text.find((home / "ORVELSUITE").string()), std::string::npos)
        << The_User.Messages[0].Text;
    EXPECT_NE(The_User.Messages[0].Text.find("Not a directory"), std::string::npos) << The_User.Messages[0].Text;

    Retype(page, "Place", QString::fromStdString((Place / "elsewhere").string()));
    Click<QPushButton>(page, "Make");
    EXPECT_EQ(page.Installation(), Place / "elsewhere");
    EXPECT_TRUE(Is_Installation(Place / "elsewhere"));
    EXPECT_FALSE(page.isVisible());
}

TEST_F(First_Steps_Test, The_First_Page_Makes_An_Installation_And_Shows_The_Way)
{
    Welcome page({Place.Path()}, The_Session.Ask, Place / "new");
    page.show();
    EXPECT_EQ(Find<QLineEdit>(page, "Place")->text().toStdString(), (Place / "new").string());

    Click<QPushButton>(page, "Make");

    EXPECT_EQ(page.Installation(), Place / "new");
    EXPECT_TRUE(Is_Installation(Place / "new"));
    EXPECT_TRUE(page.Shows_The_Way());
    EXPECT_TRUE(The_User.Messages.empty());
}

TEST_F(First_Steps_Test, The_First_Page_Stays_Where_None_Can_Be_Made)
{
    Welcome page({}, The_Session.Ask, Place / "new");
    page.show();

    Click<QPushButton>(page, "Make");

    EXPECT_TRUE(page.isVisible());
    ASSERT_EQ(The_User.Messages.size(), 1U);
    EXPECT_NE(The_User.Messages[0].Text.find("orvel401.exe"), std::string::npos) << The_User.Messages[0].Text;
    EXPECT_TRUE(page.Installation().empty());
}

} // namespace orvel
