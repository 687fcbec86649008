#pragma once

#include "runs/mode.h"

#include <functional>

class QWidget;

namespace orvel {

// Opens the windows of higher rooms for the run forms; whoever opens a run form passes them in.
struct Run_Windows {
    std::function<void(const Mode&, QWidget* parent)> Open_Evaluation = [](const Mode&, QWidget*) {};
    std::function<void(const Mode&)> Open_Overview = [](const Mode&) {}; // stays open beside the run form
    std::function<void(QWidget* parent)> Open_Run_Files = [](QWidget*) {};
};

} // namespace orvel
