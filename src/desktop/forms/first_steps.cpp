#include "desktop/forms/first_steps.h"

#include "ui/forms/widgets.h"

#include <algorithm>
#include <array>
#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace orvel {

namespace {

struct Guided_Step {
    const char *Window, *Control; // object names
    const char* Text;
};
constexpr std::array<Guided_Step, 4> Steps = {{
    {"start", "Image2", "Open the groundwater runs."},
    {"FOCUS", "Multi_batch",
     "A pesticide file and a crop are chosen on the left: keep them, or choose others. Mark all locations of the "
     "crop."},
    {"FOCUS", "s_run", "Run what was marked. Nine simulations of 26 years take less than a minute."},
    {"FOCUS", "Overview_Button",
     "Watch the results come: the 80th percentile at every location, beside the limit of 0.1 µg/L."},
}};
constexpr int Note_Width = 44; // in characters
constexpr int Gap = 6;

} // namespace

First_Steps::First_Steps(QObject* parent) : QObject(parent)
{
    qApp->installEventFilter(this);
}

bool First_Steps::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show || event->type() == QEvent::WindowActivate) {
        if (auto* window = qobject_cast<QWidget*>(watched); window && window->isWindow())
            QTimer::singleShot(0, window, [this, window] { Look_At(window); });
    } else if (event->type() == QEvent::Resize && Control && watched == Control->window()) {
        QTimer::singleShot(0, this, [this] {
            if (Control)
                Place(*Control);
        });
    }
    return QObject::eventFilter(watched, event);
}

void First_Steps::Look_At(QWidget* window)
{
    if (At == Steps.size() || window->objectName() != Steps[At].Window || (Note && Note->isVisible()))
        return;
    if (auto* control = window->findChild<QAbstractButton*>(Steps[At].Control))
        Show_Beside(*control);
}

void First_Steps::Show_Beside(QWidget& control)
{
    Control = &control;
    Note = Named(new QFrame(control.window()), "First_Step");
    Note->setFrameStyle(QFrame::Box | QFrame::Plain);
    Note->setAutoFillBackground(true);
    Note->setBackgroundRole(QPalette::ToolTipBase);
    Note->setForegroundRole(QPalette::ToolTipText);
    auto* text = Named(new QLabel(QString("<b>%1 of %2</b>&nbsp; %3")
                                      .arg(At + 1)
                                      .arg(Steps.size())
                                      .arg(QString::fromUtf8(Steps[At].Text).toHtmlEscaped())),
                       "First_Step_Text");
    text->setWordWrap(true);
    text->setForegroundRole(QPalette::ToolTipText);
    text->setFixedWidth(text->fontMetrics().averageCharWidth() * Note_Width);
    auto* end = Push_Button("First_Steps_End", "End the tour", this, &First_Steps::End);
    end->setFocusPolicy(Qt::NoFocus);
    auto* rows = new QVBoxLayout(Note);
    rows->addWidget(text);
    rows->addWidget(end, 0, Qt::AlignRight);
    Note->adjustSize();
    Place(control);
    Note->show();
    Note->raise();
    // Not when it was clicked: a modal window that it opens ends only with the work in it.
    connect(static_cast<QAbstractButton*>(&control), &QAbstractButton::pressed, Note, [this] { Go_On(); });
}

// Below the control, or above it where there is no room, within the window.
void First_Steps::Place(const QWidget& control)
{
    if (!Note)
        return;
    const auto* window = control.window();
    const QPoint corner = control.mapTo(window, QPoint(0, 0));
    const bool fits = corner.y() + control.height() + Gap + Note->height() <= window->height();
    const int top = fits ? corner.y() + control.height() + Gap : corner.y() - Gap - Note->height();
    Note->move(std::clamp(corner.x(), 0, std::max(0, window->width() - Note->width())), std::max(0, top));
}

void First_Steps::Go_On()
{
    auto* window = Control ? Control->window() : nullptr;
    Note->deleteLater();
    Note->hide();
    ++At;
    if (At == Steps.size())
        return End();
    if (window)
        QTimer::singleShot(0, window, [this, window] { Look_At(window); });
}

void First_Steps::End()
{
    At = Steps.size();
    if (Note)
        Note->deleteLater();
    deleteLater();
}

} // namespace orvel
