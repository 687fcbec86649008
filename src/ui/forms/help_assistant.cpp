#include "ui/forms/help_assistant.h"

#include "ui/forms/guide_opening.h"
#include "ui/forms/widgets.h"
#include "ui/help_texts.h"

#include <algorithm>
#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>
#include <QSinglePointEvent>

namespace orvel {

namespace {

constexpr int Hide_After = 500; // ms after the mouse stopped moving over a control
constexpr const char* On_Hint = "Click to swith off the online help.";
constexpr const char* Off_Hint = "Click to swith on the online help.";

// A question mark in a circle, which is filled while the help is on.
QIcon Question_Mark(const QWidget& form, bool on)
{
    constexpr int Size = 64;
    QPixmap picture(Size, Size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const auto& palette = form.palette();
    painter.setPen(QPen(palette.color(QPalette::Highlight), Size / 16.0));
    painter.setBrush(on ? palette.highlight() : QBrush(Qt::NoBrush));
    painter.drawEllipse(QRectF(picture.rect()).adjusted(4, 4, -4, -4));
    QFont font = form.font();
    font.setPixelSize(Size * 5 / 8);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(palette.color(on ? QPalette::HighlightedText : QPalette::WindowText));
    painter.drawText(picture.rect(), Qt::AlignCenter, "?");
    return QIcon(picture);
}

} // namespace

Help_Assistant::Help_Assistant(Session& session, QWidget& form) : QObject(&form), The_Session(session), Form(form)
{
    Switches = new QWidget;
    auto* row = new QHBoxLayout(Switches);
    row->setContentsMargins(0, 0, 0, 0);
    for (std::size_t i = 0; i < Fragen.size(); ++i) {
        Fragen[i] = Named(new QToolButton, QString("Fragen_%1").arg(i));
        Fragen[i]->setIcon(Question_Mark(form, i == 1));
        Fragen[i]->setAccessibleName(i == 0 ? "Switch the online help on" : "Switch the online help off");
        Fragen[i]->setAutoRaise(true);
        Watch(*Fragen[i]);
        connect(Fragen[i], &QToolButton::clicked, this, &Help_Assistant::Flip);
        row->addWidget(Fragen[i]);
    }
    auto* guide = Named(new QToolButton, "Open_Guide");
    guide->setText("F1");
    guide->setAccessibleName("Open the guide at this window's place");
    guide->setToolTip(guide->accessibleName());
    guide->setAutoRaise(true);
    connect(guide, &QToolButton::clicked, this, [this] { Open_Guide(The_Session.Ask, &Form); });
    row->addWidget(guide);
    Kurzinfo = Named(new QLabel(&form), "Kurzinfo");
    Kurzinfo->setFrameShape(QFrame::Box);
    Kurzinfo->setAutoFillBackground(true);
    Kurzinfo->setBackgroundRole(QPalette::ToolTipBase);
    Kurzinfo->setForegroundRole(QPalette::ToolTipText);
    Kurzinfo->setTextFormat(Qt::PlainText);
    Kurzinfo->setMargin(form.fontMetrics().averageCharWidth());
    Kurzinfo->setAttribute(Qt::WA_TransparentForMouseEvents);
    Kurzinfo->hide();
    form.installEventFilter(this);
    Hilfeuhr.setSingleShot(true);
    connect(&Hilfeuhr, &QTimer::timeout, Kurzinfo, &QWidget::hide);
    Show_Switches();
}

void Help_Assistant::Attach(QWidget* control, int number)
{
    Numbers[control] = number;
    Watch(*control);
    // The viewport of a list and the controls in a frame receive the mouse in its place.
    for (auto* inside : control->findChildren<QWidget*>()) {
        if (Numbers.try_emplace(inside, number).second)
            Watch(*inside);
    }
}

void Help_Assistant::Watch(QWidget& widget)
{
    widget.setMouseTracking(true);
    widget.installEventFilter(this);
}

bool Help_Assistant::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == &Form && event->type() == QEvent::WindowActivate)
        Show_Switches(); // another form may have switched the help on or off
    if (watched == &Form && !Numbers.contains(watched))
        return false;
    if (event->type() == QEvent::ToolTip && The_Session.Program.Online_Help && Numbers.contains(watched))
        return true; // the help box is enough
    if (event->type() != QEvent::MouseMove && event->type() != QEvent::Enter)
        return false;
    const auto* control = static_cast<const QWidget*>(watched);
    // A mouse move that a control ignores, being disabled or a label, also reaches its frame.
    const auto* inside = control->childAt(static_cast<QSinglePointEvent*>(event)->position().toPoint());
    if (inside && Numbers.contains(inside))
        return false;
    if (const auto found = Numbers.find(watched); found != Numbers.end()) {
        if (The_Session.Program.Online_Help)
            Show_Help(*control, Shown(Help_Text_Of(The_Session, found->second)).remove('\r').trimmed());
    } else {
        Show_Help(*control,
                  The_Session.Program.Online_Help ? On_Hint
                                                  : Off_Hint); // needs no help file and works with the help off
    }
    return false;
}

// Switches the help for all forms.
void Help_Assistant::Flip()
{
    The_Session.Program.Online_Help = !The_Session.Program.Online_Help;
    Kurzinfo->hide();
    Show_Switches();
}

void Help_Assistant::Show_Switches()
{
    Fragen[0]->setVisible(!The_Session.Program.Online_Help);
    Fragen[1]->setVisible(The_Session.Program.Online_Help);
}

// Below the control where there is room, and always inside the form.
void Help_Assistant::Show_Help(const QWidget& control, const QString& text)
{
    if (text.isEmpty())
        return;
    Kurzinfo->setText(text);
    Kurzinfo->adjustSize();
    QPoint place = control.mapTo(&Form, QPoint(0, control.height()));
    if (place.y() + Kurzinfo->height() > Form.height())
        place = control.mapTo(
            &Form, QPoint(control.width() / 2, std::min(control.height() / 2, control.fontMetrics().height() * 2)));
    place.setX(std::clamp(place.x(), 0, std::max(0, Form.width() - Kurzinfo->width())));
    place.setY(std::clamp(place.y(), 0, std::max(0, Form.height() - Kurzinfo->height())));
    Kurzinfo->move(place);
    Kurzinfo->raise();
    Kurzinfo->show();
    Hilfeuhr.start(Hide_After);
}

} // namespace orvel
