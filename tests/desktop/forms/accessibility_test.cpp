// What a screen reader meets in every window: names, roles, labels and the summaries of pictures.
#include "charts/forms/chart_view.h"
#include "core/files.h"
#include "desktop/forms/all_windows.h"
#include "scenario/forms/soil_profile.h"

#include <cstdlib>
#include <map>
#include <QAbstractItemView>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRegularExpression>
#include <QTableView>
#include <set>

namespace orvel {

namespace {

// A control that the keyboard or the mouse uses, or that shows a picture; the parts that Qt makes of one are its own.
bool Is_Met(const QWidget& control)
{
    const auto* parent = control.parentWidget();
    const bool is_part = control.objectName().startsWith("qt_") || qobject_cast<const QComboBox*>(parent) ||
                         qobject_cast<const QLineEdit*>(parent) ||
                         (parent && qobject_cast<const QAbstractScrollArea*>(parent->parentWidget()));
    const bool is_picture = qobject_cast<const Chart_View*>(&control);
    return control.isVisible() && !control.isWindow() && !is_part && !control.focusProxy() &&
           (is_picture || control.focusPolicy() != Qt::NoFocus);
}

// What a control is to a reader, beside the mere "something".
bool Has_Role(QAccessibleInterface& control)
{
    constexpr std::array none = {QAccessible::NoRole, QAccessible::Client, QAccessible::Window, QAccessible::Pane};
    return std::ranges::find(none, control.role()) == none.end();
}

bool Is_Labelled(const QWidget& control)
{
    return qobject_cast<const QLineEdit*>(&control) || qobject_cast<const QComboBox*>(&control) ||
           qobject_cast<const QListWidget*>(&control);
}

QRect Place_In(const QWidget& window, const QWidget& control)
{
    return {control.mapTo(&window, QPoint(0, 0)), control.size()};
}

// The text that stands beside a control, in its row and with nothing but air between them, and ends with a colon.
const QLabel* Label_Beside(const QWidget& window, const QWidget& control)
{
    const QRect place = Place_In(window, control);
    const QLabel* nearest = nullptr;
    int right = -1;
    for (const auto* label : window.findChildren<QLabel*>()) {
        const QRect other = Place_In(window, *label);
        const bool is_beside = label->isVisible() && label->parentWidget() == control.parentWidget() &&
                               label->text().trimmed().endsWith(':') && other.right() < place.left() &&
                               other.center().y() >= place.top() && other.center().y() <= place.bottom();
        if (is_beside && other.right() > right) {
            nearest = label;
            right = other.right();
        }
    }
    if (!nearest)
        return nullptr;
    const bool is_taken = std::ranges::any_of(window.findChildren<QWidget*>(), [&](const QWidget* other) {
        const QRect between = Place_In(window, *other);
        return other->isVisible() && other != &control && Is_Labelled(*other) && between.left() > right &&
               between.right() < place.left() && between.top() <= place.bottom() && between.bottom() >= place.top();
    });
    return is_taken ? nullptr : nearest;
}

bool Has_Label(QAccessibleInterface& control, const QLabel& label)
{
    const auto relations = control.relations(QAccessible::Label);
    return std::ranges::any_of(relations, [&](const auto& relation) { return relation.first->object() == &label; });
}

// A drop-down list says its choice in place of a name: its labels name it.
QString Name_Of(QWidget& control)
{
    auto* met = QAccessible::queryAccessibleInterface(&control);
    if (!qobject_cast<const QComboBox*>(&control))
        return met->text(QAccessible::Name).trimmed();
    QStringList names;
    for (const auto& [label, relation] : met->relations(QAccessible::Label)) {
        if (qobject_cast<QLabel*>(label->object()))
            names << label->text(QAccessible::Name).trimmed();
    }
    return names.join(' ');
}

// The box around a control, which a reader hears when it comes in.
QString Group_Of(const QWidget& control)
{
    for (const auto* at = control.parentWidget(); at; at = at->parentWidget()) {
        if (const auto* group = qobject_cast<const QGroupBox*>(at))
            return group->title();
    }
    return {};
}

QStringList Nameless(const QWidget& window)
{
    QStringList wrong;
    if (auto* whole = QAccessible::queryAccessibleInterface(const_cast<QWidget*>(&window));
        whole->text(QAccessible::Name).isEmpty())
        wrong << "the window has no name";
    for (auto* control : window.findChildren<QWidget*>()) {
        if (!Is_Met(*control))
            continue;
        auto* met = QAccessible::queryAccessibleInterface(control);
        const QString place = Place_Of(*control) + " " + control->metaObject()->className();
        static const QRegularExpression letter("\\p{L}");
        if (!Name_Of(*control).contains(letter))
            wrong << place + " has no name";
        if (!Has_Role(*met))
            wrong << place + " has no role";
        if (met->state().disabled == control->isEnabled() || (control->isEnabled() && met->state().invisible))
            wrong << place + " has another state than it shows";
    }
    return wrong;
}

// Controls of one kind that a reader could not tell apart.
QStringList Alike(const QWidget& window)
{
    std::map<QString, QStringList> named;
    for (auto* control : window.findChildren<QWidget*>()) {
        if (!Is_Met(*control))
            continue;
        auto* met = QAccessible::queryAccessibleInterface(control);
        named[QString("%1 %2 in \"%3\"").arg(met->role()).arg(Name_Of(*control), Group_Of(*control))]
            << control->objectName();
    }
    QStringList alike;
    for (const auto& [name, controls] : named) {
        if (controls.size() > 1)
            alike << name + ": " + controls.join(", ");
    }
    return alike;
}

QStringList Without_Label(const QWidget& window)
{
    QStringList wrong;
    for (auto* control : window.findChildren<QWidget*>()) {
        if (!Is_Met(*control) || !Is_Labelled(*control))
            continue;
        const auto* label = Label_Beside(window, *control);
        if (label && !Has_Label(*QAccessible::queryAccessibleInterface(control), *label))
            wrong << Place_Of(*control) + " is not tied to " + Place_Of(*label);
    }
    return wrong;
}

QString Head_Of(const QAbstractItemModel& model, int column)
{
    const QString spoken = model.headerData(column, Qt::Horizontal, Qt::AccessibleTextRole).toString();
    return spoken.isEmpty() ? model.headerData(column, Qt::Horizontal).toString() : spoken;
}

QStringList Headless_Columns(const QWidget& window)
{
    QStringList wrong;
    for (const auto* table : window.findChildren<QTableView*>()) {
        for (int column = 0; table->isVisible() && table->model() && column < table->model()->columnCount(); ++column) {
            if (!table->isColumnHidden(column) && Head_Of(*table->model(), column).trimmed().isEmpty())
                wrong << table->objectName() + QString(": column %1 has no head").arg(column);
        }
    }
    return wrong;
}

QStringList Untold_Pictures(const QWidget& window)
{
    QStringList wrong;
    for (auto* picture : window.findChildren<QWidget*>()) {
        const bool is_chart = qobject_cast<Chart_View*>(picture);
        if (!is_chart && !qobject_cast<Profile_View*>(picture))
            continue;
        auto* met = QAccessible::queryAccessibleInterface(picture);
        if (met->role() != (is_chart ? QAccessible::Chart : QAccessible::Graphic))
            wrong << Place_Of(*picture) + " is no picture to a reader";
        if (met->text(QAccessible::Description).isEmpty())
            wrong << Place_Of(*picture) + " has no summary";
    }
    return wrong;
}

} // namespace

TEST_F(Windows_Test, Tell_A_Screen_Reader_What_Every_Control_Is)
{
    int controls = 0, labels = 0;
    for (const auto& opened : All()) {
        SCOPED_TRACE(opened.Name.toStdString());
        const auto window = Shown_Window(opened);

        EXPECT_EQ(Nameless(*window).join("\n").toStdString(), "");
        EXPECT_EQ(Alike(*window).join("\n").toStdString(), "");
        EXPECT_EQ(Without_Label(*window).join("\n").toStdString(), "");
        EXPECT_EQ(Headless_Columns(*window).join("\n").toStdString(), "");
        EXPECT_EQ(Untold_Pictures(*window).join("\n").toStdString(), "");
        for (const auto* control : window->findChildren<QWidget*>()) {
            controls += Is_Met(*control) ? 1 : 0;
            labels += Is_Met(*control) && Is_Labelled(*control) && Label_Beside(*window, *control) ? 1 : 0;
        }
    }
    EXPECT_GT(controls, 500); // so that a filter that meets nothing is no success
    EXPECT_GT(labels, 100);
}

// The program that ships, met over the bus of assistive technology.
TEST_F(Windows_Test, Are_Told_To_A_Screen_Reader_On_Its_Bus)
{
    const std::string tools = "command -v dbus-run-session xvfb-run xauth >/dev/null && test -x /usr/bin/python3";
    if (std::system(tools.c_str()) != 0)
        GTEST_SKIP() << "dbus-run-session, xvfb-run or Python is missing: there is no bus of assistive technology";
    const auto report = Place->Path() / "screen_reader.txt";
    const std::string command = "dbus-run-session -- xvfb-run -a -s '-screen 0 1920x1200x24 -noreset' " SCREEN_READER
                                " " ORVELSUITE " '" +
                                Installation().string() + "' >'" + report.string() + "' 2>&1";

    const int status = std::system(command.c_str());

    constexpr int skipped = 77;
    if (WIFEXITED(status) && WEXITSTATUS(status) == skipped)
        GTEST_SKIP() << Read_Whole(report);
    EXPECT_EQ(status, 0) << Read_Whole(report);
}

} // namespace orvel
