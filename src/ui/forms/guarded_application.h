#pragma once

#include "core/message.h"

#include <chrono>
#include <QApplication>
#include <string>

namespace orvel {

// A program with windows. An error that no form has told, such as a directory that could not be read, is shown in a box
// in place of ending the program; one that a timer repeats is shown once a minute. Lists get the name that a
// screen reader knows them by.
class Guarded_Application : public QApplication {
public:
    using QApplication::QApplication;
    bool notify(QObject* receiver, QEvent* event) override;

    Ask_Function Ask; // empty: errors pass on

private:
    void Show(const std::string& error);

    std::string Last;
    std::chrono::steady_clock::time_point Last_Shown;
};

} // namespace orvel
