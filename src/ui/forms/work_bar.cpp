#include "ui/forms/work_bar.h"

#include "ui/forms/widgets.h"

#include <QProgressDialog>

namespace orvel {

namespace {

constexpr int Steps = 1000;
constexpr int Delay = 300;  // ms before it shows
constexpr int Columns = 50; // for the name of a location

} // namespace

Work_Bar::Work_Bar(QWidget& parent, QString title) : Parent(parent), Title(std::move(title)) {}

Work_Bar::~Work_Bar() = default;

bool Work_Bar::Step(const std::string& what, double share)
{
    if (!Bar) {
        Bar = std::make_unique<QProgressDialog>("", "&Stop", 0, Steps, &Parent);
        Named(Bar.get(), "Work_Bar");
        Bar->setWindowTitle(Title);
        Bar->setMinimumWidth(Bar->fontMetrics().averageCharWidth() * Columns);
        Bar->setMinimumDuration(Delay);
        Bar->setWindowModality(Qt::WindowModal);
    }
    Bar->setLabelText(Shown(what));
    Bar->setValue(static_cast<int>(share * Steps)); // lets the window take a click on "Stop"
    return !Bar->wasCanceled();
}

} // namespace orvel
