#pragma once

#include "runs/mode.h"

#include <functional>

class QWidget;

namespace orvel {

// The windows of higher rooms that the run forms open; whoever opens a run form hands them in.
struct Run_Windows {
    std::function<void(const Mode&, QWidget* parent)> Open_Evaluation = [](const Mode&, QWidget*) {};
    std::function<void(QWidget* parent)> Open_Run_Files = [](QWidget*) {};
};

} // namespace orvel
