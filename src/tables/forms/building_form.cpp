#include "tables/forms/building_form.h"

#include "ui/forms/form_keys.h"
#include "ui/forms/widgets.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QStackedWidget>
#include <QTimer>

namespace orvel {

namespace {

constexpr int Table_Lines = 36;

} // namespace

bool Stay_Painted(const std::string& /*message*/, double /*share*/)
{
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    return true;
}

Building_Form::Building_Form(const QString& name, QWidget* parent, int columns_shown) : QDialog(parent)
{
    setObjectName(name);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    Pages = new QStackedWidget;
    Nachricht = Named(new QLabel, "Nachricht");
    Nachricht->setWordWrap(true);
    Waiting = Named(new QProgressBar, "Waiting");
    Waiting->setRange(0, 100);
    auto* message = new QHBoxLayout;
    message->addWidget(Nachricht, 1);
    message->addWidget(Waiting);
    Row = new QHBoxLayout;

    auto* all = new QVBoxLayout(this);
    all->addWidget(Pages, 1);
    all->addLayout(message);
    all->addLayout(Row);
    Use_Form_Keys(*this);
    const QFontMetrics metrics(Fixed_Pitch_Font());
    resize(metrics.averageCharWidth() * columns_shown, metrics.lineSpacing() * Table_Lines);
}

void Building_Form::Add_Page(QWidget* page)
{
    Pages->addWidget(page);
}

void Building_Form::Show_Page(std::size_t page)
{
    Pages->setCurrentIndex(static_cast<int>(page));
}

QPushButton* Building_Form::New_Button(const QString& name, const QString& caption)
{
    auto* button = Push_Button(name, caption);
    Row->addWidget(button);
    Buttons.push_back(button);
    return button;
}

void Building_Form::Add_Done()
{
    Row->addStretch(1);
    Add_Button("Ende", "&Done", [this] { accept(); });
}

void Building_Form::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (!Built) {
        Built = true;
        Set_Busy(true);
        QTimer::singleShot(0, this, &Building_Form::Run_Build);
    }
}

void Building_Form::Run_Build()
{
    Build([this](const std::string& text, double share) { return Show_Progress(text, share); });
    Set_Busy(false);
    if (Stopped)
        return QDialog::done(Rejected);
    Show_Built();
    Pages->currentWidget()->setFocus();
}

// Gives the event loop a turn after each year; false once the window was closed.
bool Building_Form::Show_Progress(const std::string& text, double share)
{
    Nachricht->setText(Shown(text));
    Waiting->setValue(static_cast<int>(share * Waiting->maximum()));
    QApplication::processEvents();
    return !Stopped;
}

void Building_Form::Set_Busy(bool busy)
{
    Busy = busy;
    for (auto* button : Buttons)
        button->setEnabled(!busy);
    Nachricht->setVisible(busy);
    Waiting->setVisible(busy);
}

void Building_Form::Note(const std::string& sentence)
{
    Nachricht->setText(Shown(sentence));
    Nachricht->setVisible(!sentence.empty());
}

// Closing the form while it works first stops the work.
void Building_Form::done(int result)
{
    if (Busy) {
        Stopped = true;
        return;
    }
    QDialog::done(result);
}

} // namespace orvel
