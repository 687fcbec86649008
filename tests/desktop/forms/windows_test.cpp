// Every window as it opens in an installation with one finished run. With ORVEL_PICTURES=DIR it leaves a picture of
// each there, light and dark; QT_SCALE_FACTOR=2 draws them for a fine screen. ORVEL_WHOLE_ASSESSMENT=DIR fills them,
// for the pictures of the guide.
#include "core/files.h"
#include "desktop/forms/all_windows.h"
#include "desktop/forms/start.h"
#include "desktop/forms/windows.h"
#include "evaluation/forms/overview_window.h"
#include "pdf_text.h"
#include "plans/forms/plans_window.h"
#include "ui/forms/dark_outlines.h"
#include "ui/forms/undo_history.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <QAbstractButton>
#include <QApplication>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QToolButton>

namespace orvel {

namespace {

// Whether a text lies on or below another control of its window.
bool Overlaps(const QLabel& label)
{
    if (label.text().isEmpty() && label.pixmap().isNull())
        return false;
    const auto siblings = label.parentWidget()->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    return std::ranges::any_of(siblings, [&](const QWidget* other) {
        return other != &label && other->isVisible() && !other->isWindow() &&
               other->geometry().intersects(label.geometry());
    });
}

// Labels and buttons that have less room than their text needs or lie on others, and table columns narrower than their
// headings.
QStringList Cut_In(const QWidget& window)
{
    QStringList cut;
    for (const auto* control : window.findChildren<QWidget*>()) {
        if (!control->isVisible() || qobject_cast<const QLineEdit*>(control->parentWidget())) // a mark in a field
            continue;
        const auto* label = qobject_cast<const QLabel*>(control);
        if ((label && !label->wordWrap()) || qobject_cast<const QAbstractButton*>(control)) {
            const QSize needed = control->minimumSizeHint().expandedTo(label ? control->sizeHint() : QSize());
            if (control->width() < needed.width() || control->height() < needed.height())
                cut << Place_Of(*control);
        }
        if (label &&
            ((label->wordWrap() && label->height() < label->heightForWidth(label->width())) || Overlaps(*label)))
            cut << Place_Of(*control);
        if (const auto* table = qobject_cast<const QTableView*>(control); table && table->model()) {
            const auto* heads = table->horizontalHeader();
            for (int column = 0; column < table->model()->columnCount(); ++column)
                if (heads->isVisible() && !heads->isSectionHidden(column) &&
                    heads->sectionSize(column) < heads->sectionSizeHint(column))
                    cut << table->objectName() + ": " + table->model()->headerData(column, Qt::Horizontal).toString();
        }
    }
    return cut;
}

// The least screen that every window is made for, without the title of the window.
constexpr QSize Least_Screen(1280, 690);

bool Can_Be_Tabbed_To(const QWidget& control)
{
    const auto* option = qobject_cast<const QRadioButton*>(&control);
    return control.isVisible() && control.isEnabled() && !control.focusProxy() &&
           (option ? option->isChecked() : (control.focusPolicy() & Qt::TabFocus) != 0);
}

// A control for a hand that Tab passes over.
bool Is_Passed_Over(const QWidget& control)
{
    const auto* box = qobject_cast<const QLineEdit*>(&control);
    const bool is_for_a_hand = (box && !box->isReadOnly()) || qobject_cast<const QComboBox*>(&control) ||
                               qobject_cast<const QListWidget*>(&control) || qobject_cast<const QPushButton*>(&control);
    return is_for_a_hand && control.isVisible() && control.isEnabled() && !control.focusProxy() &&
           (control.focusPolicy() & Qt::TabFocus) == 0;
}

// The key that a caption underlines: of a button, or of a label that leads to a control.
QKeySequence Mnemonic_Of(const QWidget& control)
{
    if (const auto* button = qobject_cast<const QAbstractButton*>(&control))
        return QKeySequence::mnemonic(button->text());
    if (const auto* label = qobject_cast<const QLabel*>(&control); label && label->buddy())
        return QKeySequence::mnemonic(label->text());
    if (const auto* group = qobject_cast<const QGroupBox*>(&control))
        return QKeySequence::mnemonic(group->title());
    return {};
}

QStringList Doubled_Mnemonics(const QWidget& window)
{
    std::map<QString, QStringList> places;
    for (const auto* control : window.findChildren<QWidget*>()) {
        if (const auto key = Mnemonic_Of(*control); control->isVisible() && !key.isEmpty())
            places[key.toString()] << Place_Of(*control);
    }
    QStringList doubled;
    for (const auto& [key, controls] : places) {
        if (controls.size() > 1)
            doubled << key + ": " + controls.join(", ");
    }
    return doubled;
}

// Controls in the order in which the Tab key meets them.
std::vector<QWidget*> Tabbed(QWidget& window)
{
    std::vector<QWidget*> met;
    for (auto* at = window.focusWidget(); at && std::ranges::find(met, at) == met.end() && met.size() < 300U;
         at = window.focusWidget()) {
        met.push_back(at);
        QTest::keyClick(at, Qt::Key_Tab);
    }
    return met;
}

int Middle_Of(const QWidget& window, const QWidget& control)
{
    return control.mapTo(&window, control.rect().center()).y();
}

// The buttons of the lowest row: those that save, run and close.
std::vector<QWidget*> Foot_Of(const QWidget& window)
{
    std::vector<QWidget*> foot;
    int lowest = 0;
    for (auto* button : window.findChildren<QPushButton*>()) {
        if (button->isVisible())
            lowest = std::max(lowest, Middle_Of(window, *button));
    }
    for (auto* button : window.findChildren<QAbstractButton*>()) {
        if (button->isVisible() && lowest - Middle_Of(window, *button) < button->height())
            foot.push_back(button);
    }
    return foot;
}

// What the Tab key does not reach, the first focus on a button of the foot, and what it reaches only behind the foot.
QStringList Wrong_In_The_Tab_Order(QWidget& window)
{
    QStringList wrong;
    const auto met = Tabbed(window);
    const auto foot = Foot_Of(window);
    const auto is_met = [&](const QWidget* control) { return std::ranges::find(met, control) != met.end(); };
    const auto in_foot = [&](const QWidget* control) { return std::ranges::find(foot, control) != foot.end(); };
    int others = 0;
    for (auto* control : window.findChildren<QWidget*>()) {
        if (Is_Passed_Over(*control))
            wrong << "passed over: " + Place_Of(*control);
        if (!Can_Be_Tabbed_To(*control))
            continue;
        others += in_foot(control) ? 0 : 1;
        if (!is_met(control))
            wrong << "not met: " + Place_Of(*control) + " " + control->metaObject()->className();
    }
    if (!met.empty() && others > 0 && in_foot(met.front()))
        wrong << "first: " + Place_Of(*met.front());
    const auto first_of_foot = std::ranges::find_if(met, in_foot);
    for (auto at = first_of_foot; at != met.end(); ++at) {
        if (!in_foot(*at) && std::find_if(at, met.end(), in_foot) != met.end())
            wrong << "behind the foot: " + Place_Of(**at);
    }
    return wrong;
}

// Controls in which Enter closes the window, opens another one or brings a message.
QStringList Surprised_By_Enter(QWidget& window, const Recording_User& user)
{
    QStringList surprised;
    for (auto* control : window.findChildren<QWidget*>()) {
        if (!Can_Be_Tabbed_To(*control) || qobject_cast<QPushButton*>(control) || qobject_cast<QToolButton*>(control))
            continue;
        const auto told = user.Messages.size();
        control->setFocus();
        QTest::keyClick(control, Qt::Key_Return);
        if (!window.isVisible() || user.Messages.size() > told) {
            surprised << Place_Of(*control);
            window.show();
        }
    }
    return surprised;
}

// Types into every box and the first row of every grid; returns how many there were.
int Type_Everywhere(QWidget& window, const char* number)
{
    int typed = 0;
    for (auto* box : window.findChildren<QLineEdit*>()) {
        if (!box->isVisible() || !box->isEnabled() || box->isReadOnly())
            continue;
        box->setFocus();
        box->selectAll();
        QTest::keyClicks(box, number);
        QTest::keyClick(box, Qt::Key_Tab);
        ++typed;
    }
    for (auto* grid : window.findChildren<QTableView*>()) {
        for (int column = 0; grid->isVisible() && grid->model() && column < grid->model()->columnCount(); ++column) {
            grid->setCurrentIndex(grid->model()->index(0, column));
            QTest::keyClicks(grid, number);
            ++typed;
        }
    }
    return typed;
}

// What the controls of an editor show, each with its name, and whether it can be used.
QStringList Shown_Values(const QWidget& window)
{
    QStringList values;
    for (const auto* control : window.findChildren<QWidget*>()) {
        QString value;
        if (const auto* box = qobject_cast<const QLineEdit*>(control))
            value = box->text();
        else if (const auto* list = qobject_cast<const QComboBox*>(control))
            value = list->currentText();
        else if (const auto* option = qobject_cast<const QAbstractButton*>(control); option && option->isCheckable())
            value = option->isChecked() ? "set" : "not set";
        else
            continue;
        values << control->objectName() + " = " + value + (control->isVisible() ? "" : ", hidden") +
                      (control->isEnabled() ? "" : ", grey");
    }
    return values;
}

// A number that is shown anew may be written otherwise: 2 as 2.00E+00.
bool Same_Value(const QString& one, const QString& other)
{
    bool is_number = false, both = false;
    const double first = one.section(" = ", 1).toDouble(&is_number), second = other.section(" = ", 1).toDouble(&both);
    return one == other ||
           (is_number && both && first == second && one.section(" = ", 0, 0) == other.section(" = ", 0, 0));
}

QString Changed_Values(const QStringList& wanted, const QStringList& found)
{
    QStringList different;
    for (qsizetype i = 0; i < wanted.size(); ++i) {
        if (!Same_Value(found.value(i), wanted[i]))
            different << wanted[i] + " became " + found.value(i);
    }
    return different.join("; ");
}

// By hand: types into the boxes, chooses another entry of the lists and clicks the options.
void Change_Everything(QWidget& window)
{
    for (auto* control : window.findChildren<QWidget*>()) {
        if (!control->isVisible() || !control->isEnabled())
            continue;
        auto* box = qobject_cast<QLineEdit*>(control);
        auto* list = qobject_cast<QComboBox*>(control);
        auto* option = qobject_cast<QAbstractButton*>(control);
        if (box && !box->isReadOnly() && box->objectName() != "Text_peup") { // it belongs to no record
            box->setFocus();
            box->selectAll();
            QTest::keyClicks(box, "2");
            QTest::keyClick(box, Qt::Key_Tab);
        } else if (list && list->count() > 1) {
            list->setFocus();
            QTest::keyClick(list, list->currentIndex() > 0 ? Qt::Key_Up : Qt::Key_Down);
        } else if (option && option->isCheckable()) {
            QTest::mouseClick(option, Qt::LeftButton, {}, QPoint(5, option->height() / 2));
        }
        QTest::qWait(1);
    }
}

// They run an engine or a browser, take the run away that every window shows, or open an editor with changes, which
// asks to stay.
bool Is_Left_Alone(const QWidget& button)
{
    return QStringList{"s_run", "Command4", "Loeschen", "Unsaved_Open", "Guide_Button", "Open_Guide"}.contains(
        button.objectName());
}

void Keep_Picture(QWidget& window, const QString& name)
{
    if (const char* directory = std::getenv("ORVEL_PICTURES"))
        window.grab().save(QString::fromUtf8(directory) + "/" + name + ".png");
}

void Look_At_All(const std::vector<Opened_Window>& windows, Session& session, const QString& picture_suffix)
{
    for (const auto& opened : windows) {
        SCOPED_TRACE(opened.Name.toStdString());
        const auto window = opened.Open(session);
        window->show();
        QTest::qWait(Windows_Test::Is_Whole() ? 2000 : 50); // until its threads have read the runs
        ASSERT_TRUE(QTest::qWaitFor([&] { return !Is_At_Work(*window); }, Patience));
        Keep_Picture(*window, opened.Name + picture_suffix);
        EXPECT_EQ(Cut_In(*window).join("; ").toStdString(), "");
    }
}

} // namespace

// A file dialog does what its list or name says: it opens or saves the file. A page of buttons has nothing but buttons.
TEST_F(Windows_Test, Can_Be_Used_By_The_Keyboard_Alone_On_A_Small_Screen)
{
    const QStringList enter_does_what_it_says = {"form_saving", "form_psm_open", "simulationsliste", "form_psm_1",
                                                 "focus",       "efsa",          "efsa_t4"};
    for (const auto& opened : All()) {
        SCOPED_TRACE(opened.Name.toStdString());
        const auto window = Shown_Window(opened);
        window->resize(window->size().boundedTo(Least_Screen));
        QTest::qWait(20);

        EXPECT_LE(window->minimumSizeHint().width(), Least_Screen.width());
        EXPECT_LE(window->height(), Least_Screen.height());
        EXPECT_EQ(Cut_In(*window).join("; ").toStdString(), "");
        EXPECT_EQ(Doubled_Mnemonics(*window).join("; ").toStdString(), "");
        EXPECT_EQ(Wrong_In_The_Tab_Order(*window).join("; ").toStdString(), "");
        if (!enter_does_what_it_says.contains(opened.Name)) {
            EXPECT_EQ(Surprised_By_Enter(*window, The_User).join("; ").toStdString(), "");
        }
    }
}

// Every box, list and option of every editor is changed once, as far as its rules let it, and all is taken back.
TEST_F(Windows_Test, Take_Back_Every_Change_And_Make_It_Again)
{
    int editors = 0, changes = 0;
    for (const auto& opened : All()) {
        SCOPED_TRACE(opened.Name.toStdString());
        const auto window = opened.Open(The_Session);
        auto* undo = window->findChild<QToolButton*>("Undo");
        auto* redo = window->findChild<QToolButton*>("Redo");
        if (!undo || opened.Name == "form_psm_1") // which has only a picture
            continue;
        ++editors;
        window->show();
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
        const auto undo_all = [&] {
            int steps = 0;
            for (; undo->isEnabled() && steps <= Most_Changes_Kept; ++steps)
                QTest::keyClick(window.get(), Qt::Key_Z, Qt::ControlModifier);
            return steps;
        };
        QTest::qWait(1);
        undo_all(); // what opened further parts of the window
        const QStringList before = Shown_Values(*window);
        Change_Everything(*window);
        const QStringList after = Shown_Values(*window);
        EXPECT_NE(before.join('\n').toStdString(), after.join('\n').toStdString());
        const int steps = undo_all();
        EXPECT_FALSE(undo->isEnabled());
        EXPECT_GT(steps, 0);
        EXPECT_EQ(Changed_Values(before, Shown_Values(*window)).toStdString(), "");
        for (int step = 0; step < steps; ++step)
            QTest::keyClick(window.get(), Qt::Key_Y, Qt::ControlModifier);
        EXPECT_FALSE(redo->isEnabled());
        EXPECT_EQ(Changed_Values(after, Shown_Values(*window)).toStdString(), "");
        changes += steps;
    }
    EXPECT_GE(editors, 17);
    EXPECT_GT(changes, 100);
}

// Every table and the report, printed and read back.
TEST_F(Windows_Test, A_Printed_Table_Has_All_That_Its_Window_Shows)
{
    const Temporary_Directory place;
    int tables = 0;
    for (const auto& opened : All()) {
        if (!QStringList{"jahr_orv", "mass_balance", "pecsoil", "zusammenfassung", "echo_orv"}.contains(opened.Name))
            continue;
        SCOPED_TRACE(opened.Name.toStdString());
        const auto window = opened.Open(The_Session);
        window->show();
        ASSERT_TRUE(QTest::qWaitFor([&] { return !window->findChild<QPlainTextEdit*>()->toPlainText().isEmpty(); }));
        for (const auto* text : window->findChildren<QPlainTextEdit*>()) {
            const auto words = text->toPlainText().simplified().split(' ');
            const QString read = Text_Of_Pdf(Printed(place / "table.pdf", text->toPlainText())).simplified() + " ";
            qsizetype at = 0;
            for (const auto& word : words) {
                at = read.indexOf(word + " ", at);
                ASSERT_GE(at, 0) << word.toStdString() << " is not on the pages";
            }
            tables += words.size() > 20 ? 1 : 0;
        }
    }
    EXPECT_GE(tables, 6);
}

TEST_F(Windows_Test, Show_Every_Caption_Whole)
{
    Look_At_All(All(), The_Session, "");
}

TEST_F(Windows_Test, Show_Every_Caption_Whole_In_A_Large_Font_And_Dark)
{
    const QFont font = QApplication::font();
    const QPalette palette = QApplication::palette();
    QFont large = font;
    large.setPointSizeF(font.pointSizeF() * 1.25);
    QApplication::setFont(large);
    Show_Outlines_In_The_Dark();
    QApplication::setPalette(Dark());
    Look_At_All(All(), The_Session, "_dark");
    QApplication::setPalette(palette);
    QApplication::setFont(font);
}

TEST_F(Windows_Test, The_Overview_Of_The_Program_Archives_And_Compares)
{
    Open_Overview(The_Session, Mode_Kind::Focus);
    Overview_Window* overview = nullptr;
    for (auto* window : QApplication::topLevelWidgets())
        overview = overview ? overview : qobject_cast<Overview_Window*>(window);
    ASSERT_NE(overview, nullptr);
    const auto actions = overview->findChild<QMenu*>("Menu")->actions();
    QStringList keys;
    for (const auto* action : actions) {
        const auto key = action->text().indexOf('&');
        if (!action->isSeparator())
            keys << action->text().mid(key + 1, 1).toLower();
    }
    EXPECT_EQ(keys.removeDuplicates(), 0) << keys.join(' ').toStdString();
    for (const char* name : {"A_Archive", "A_Archives", "A_Compare"})
        EXPECT_TRUE(actions.contains(overview->findChild<QAction*>(name))) << name;
    overview->close();
}

// One window of plans, which stays open beside the others.
TEST_F(Windows_Test, The_Start_Form_Opens_The_Plans_Once)
{
    Start start(The_Session);
    start.show();
    const auto plans = [] {
        std::vector<Plans_Window*> open;
        for (auto* window : QApplication::topLevelWidgets()) {
            if (auto* found = qobject_cast<Plans_Window*>(window); found && found->isVisible())
                open.push_back(found);
        }
        return open;
    };

    Click<QPushButton>(start, "Plans_Button");
    Click<QPushButton>(start, "Plans_Button");

    ASSERT_EQ(plans().size(), 1U);
    EXPECT_FALSE(plans().front()->isModal());
    Click<QPushButton>(*plans().front(), "Done");
    EXPECT_TRUE(plans().empty());
}

// Whatever is typed, no box ends the program: numbers beyond the range of a double, and those whose sums are.
TEST_F(Windows_Test, Outlive_Any_Number_In_Any_Box_And_A_Press_Of_Every_Button)
{
    QTimer closer; // of what a button opens
    QObject::connect(&closer, &QTimer::timeout, [] {
        if (auto* menu = QApplication::activePopupWidget())
            menu->close();
        else if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
            dialog->reject();
    });
    closer.start(1);
    std::map<QString, int> boxes; // filled, by form
    for (const char* number : {"1e308", "-1e308", "1e999", "99999999999999999999"}) {
        for (const auto& opened : All()) {
            SCOPED_TRACE(opened.Name.toStdString() + " " + number);
            const auto session = std::make_unique<Session>(The_Session);
            const auto window = opened.Open(*session);
            window->show();
            ASSERT_TRUE(QTest::qWaitFor([&] { return !Is_At_Work(*window); }));

            int typed = Type_Everywhere(*window, number);
            for (auto* button : window->findChildren<QAbstractButton*>()) {
                if (!window->isVisible() || !button->isVisible() || !button->isEnabled() || Is_Left_Alone(*button))
                    continue;
                button->click();
                typed += Type_Everywhere(*window, number); // what it brought into view
            }
            boxes[opened.Name] += typed;
        }
    }
    for (const char* form :
         {"form_as", "form_as_relative", "form_end", "klima", "szenario", "form_hor", "form_appgrid"})
        EXPECT_GT(boxes[form], 0) << form;
}

} // namespace orvel
