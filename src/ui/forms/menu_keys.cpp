#include "ui/forms/menu_keys.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QWidget>

namespace orvel {

namespace {

bool Asks_For_Menu(const QKeyEvent& key)
{
    return (key.key() == Qt::Key_Menu && key.modifiers() == Qt::NoModifier) ||
           (key.key() == Qt::Key_F10 && key.modifiers() == Qt::ShiftModifier);
}

class Menu_Keys : public QObject {
public:
    using QObject::QObject;

protected:
    // Some window systems open the menu before they tell of the key: then it is open already.
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        auto* control = event->type() == QEvent::KeyPress ? qobject_cast<QWidget*>(watched) : nullptr;
        if (!control || !Asks_For_Menu(*static_cast<QKeyEvent*>(event)) || QApplication::activePopupWidget())
            return false;
        const QPoint place = control->inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
        QContextMenuEvent menu(QContextMenuEvent::Keyboard, place, control->mapToGlobal(place));
        QApplication::sendEvent(control, &menu);
        return true;
    }
};

} // namespace

QObject* Answer_Menu_Keys(QApplication& application)
{
    auto* keys = new Menu_Keys(&application);
    application.installEventFilter(keys);
    return keys;
}

} // namespace orvel
