#pragma once

#include "core/message.h"

#include <functional>
#include <QObject>

class QWidget;

namespace orvel {

// Watches the boxes of a window and reports each that is left, while the window is visible. A box is not left when its
// own list opens, when another window comes to the front, or when a refusal leads back to a control.
class Leave_Guard : public QObject {
public:
    // The window owns the guard.
    Leave_Guard(QWidget& window, std::function<void(QWidget& box)> leave);

    void Watch(QWidget& box);

    // Tells what is wrong and goes back to the control that it is about.
    void Refuse(const Ask_Function& ask, const Refusal& refusal);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget& Window;
    std::function<void(QWidget& box)> Leave;
    bool Going_Back = false;
};

} // namespace orvel
