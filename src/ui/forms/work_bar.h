#pragma once

#include <memory>
#include <QString>
#include <string>

class QProgressDialog;
class QWidget;

namespace orvel {

// The bar of a work that the user can stop. It comes up soon after the first step, and so never over a question that is
// asked before the work.
class Work_Bar {
public:
    Work_Bar(QWidget& parent, QString title);
    ~Work_Bar();
    Work_Bar(const Work_Bar&) = delete;
    Work_Bar& operator=(const Work_Bar&) = delete;

    // Shows what is being done, and how much is done, 0 to 1; false if the user has stopped the work.
    bool Step(const std::string& what, double share);

private:
    QWidget& Parent;
    QString Title;
    std::unique_ptr<QProgressDialog> Bar;
};

} // namespace orvel
