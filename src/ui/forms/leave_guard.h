#pragma once

#include "core/message.h"

#include <functional>
#include <QObject>
#include <QStringList>

class QWidget;

namespace orvel {

// Watches the boxes of a visible window and calls `leave` for each one that loses the focus, but not when its own list
// opens, when another window comes to the front, or when a refusal returns the focus to a control.
class Leave_Guard : public QObject {
public:
    // The window owns the guard.
    Leave_Guard(QWidget& window, std::function<void(QWidget& box)> leave);

    void Watch(QWidget& box);

    // The names of controls that check what they need themselves, or need nothing: a box left for one of them by the
    // mouse is not checked.
    void Let_Pass(const QStringList& controls) { Passing = controls; }

    // Shows the refusal and returns the focus to its control.
    void Refuse(const Ask_Function& ask, const Refusal& refusal);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget& Window;
    std::function<void(QWidget& box)> Leave;
    QStringList Passing;
    bool Going_Back = false;
};

} // namespace orvel
