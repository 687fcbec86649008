#include "ui/forms/menu_keys.h"

#include "desktop/forms/all_windows.h"

#include <QAbstractScrollArea>
#include <QContextMenuEvent>
#include <QLabel>
#include <QMenu>

namespace orvel {

namespace {

// Whether a context menu opens, which is closed again.
bool Opens_A_Menu(const std::function<void()>& act)
{
    bool opened = false;
    const auto look = [&] {
        if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
            opened = true;
            menu->close();
        }
    };
    QTimer clock; // for a menu with a loop of its own
    QObject::connect(&clock, &QTimer::timeout, look);
    clock.start(0);
    act();
    look();
    return opened;
}

bool Right_Button_Opens(QWidget& control)
{
    auto* area = qobject_cast<QAbstractScrollArea*>(&control);
    QWidget& under_mouse = area ? *area->viewport() : control;
    return Opens_A_Menu([&] {
        const QPoint place = under_mouse.rect().center();
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, under_mouse.mapToGlobal(place));
        QApplication::sendEvent(&under_mouse, &event);
    });
}

bool Key_Opens(QWidget& control, Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    return Opens_A_Menu([&] {
        control.setFocus();
        QTest::keyClick(&control, key, modifiers);
    });
}

// A control with a menu of its own that keys do not reach.
bool Has_A_Menu_Without_Focus(const QWidget& control)
{
    const auto* label = qobject_cast<const QLabel*>(&control);
    const bool has_menu = control.contextMenuPolicy() == Qt::CustomContextMenu ||
                          (label && (label->textInteractionFlags() & Qt::TextSelectableByMouse) != 0);
    return has_menu && control.focusPolicy() == Qt::NoFocus;
}

} // namespace

TEST_F(Windows_Test, Open_Each_Context_Menu_By_Key_Too)
{
    const std::unique_ptr<QObject> keys(Answer_Menu_Keys(*qApp));
    int menus = 0;
    for (const auto& opened : All()) {
        SCOPED_TRACE(opened.Name.toStdString());
        const auto window = Shown_Window(opened);
        for (auto* control : window->findChildren<QWidget*>()) {
            if (!control->isVisible() || !control->isEnabled() || control->focusProxy())
                continue;
            SCOPED_TRACE(Place_Of(*control).toStdString());
            EXPECT_FALSE(Has_A_Menu_Without_Focus(*control));
            if (control->focusPolicy() == Qt::NoFocus || !Right_Button_Opens(*control))
                continue;
            EXPECT_TRUE(Key_Opens(*control, Qt::Key_Menu, Qt::NoModifier));
            EXPECT_TRUE(Key_Opens(*control, Qt::Key_F10, Qt::ShiftModifier));
            ++menus;
        }
    }
    EXPECT_GT(menus, 100);
}

} // namespace orvel
