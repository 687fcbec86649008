#include "ui/forms/leave_guard.h"

#include "ui/forms/widgets.h"

#include <QApplication>
#include <QFocusEvent>

namespace orvel {

Leave_Guard::Leave_Guard(QWidget& window, std::function<void(QWidget& box)> leave)
    : QObject(&window),
      Window(window),
      Leave(std::move(leave))
{}

void Leave_Guard::Watch(QWidget& box)
{
    box.installEventFilter(this);
}

void Leave_Guard::Refuse(const Ask_Function& ask, const Refusal& refusal)
{
    Going_Back = true;
    Show_Refusal(ask, Window, refusal);
    Going_Back = false;
}

bool Leave_Guard::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::FocusOut || Going_Back || !Window.isVisible())
        return QObject::eventFilter(watched, event);
    const auto reason = static_cast<QFocusEvent*>(event)->reason();
    const auto* next = QApplication::focusWidget();
    const bool passes = reason == Qt::MouseFocusReason && next && Passing.contains(next->objectName());
    const bool elsewhere = next && next->window() != Window.window(); // a list that opens is a window of its own
    if (!passes && !elsewhere && reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
        Leave(*static_cast<QWidget*>(watched));
    return QObject::eventFilter(watched, event);
}

} // namespace orvel
