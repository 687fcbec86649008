#pragma once

#include "core/message.h"

class QApplication;
class QObject;
class QWidget;

namespace orvel {

// Shows the guide in the desktop's browser, at the place of a window or, without one, its contents. A guide that is not
// there is told.
void Open_Guide(const Ask_Function& ask, const QWidget* window = nullptr);

// F1 opens the guide at the place of the window that has the focus, as long as what is returned lives; the application
// owns it.
QObject* Answer_F1(QApplication& application, const Ask_Function& ask);

} // namespace orvel
