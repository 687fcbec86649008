#pragma once

#include "core/error.h"
#include "core/message.h"
#include "core/progress.h"

#include <functional>
#include <QString>
#include <string>

class QWidget;

namespace orvel {

// Does long work beside the window: a dialog shows how far it is and stops it, and nothing freezes. `work` runs in a
// thread of its own while nothing else can be done in the program, and touches no document. Its File_Error is told
// under `title`, one of a stop is not. Whether it was done.
bool Do_In_Window(QWidget* parent, const Ask_Function& ask, const QString& title,
                  const std::function<void(const Progress&)>& work);

} // namespace orvel
