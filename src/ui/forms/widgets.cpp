#include "ui/forms/widgets.h"

#include "core/code_page.h"

#include <QApplication>
#include <QFontDatabase>
#include <QHeaderView>
#include <QMessageBox>

namespace orvel {

namespace {

QMessageBox::StandardButton Standard(Button button)
{
    switch (button) {
    case Button::Ok:
        return QMessageBox::Ok;
    case Button::Cancel:
        return QMessageBox::Cancel;
    case Button::Yes:
        return QMessageBox::Yes;
    case Button::No:
        return QMessageBox::No;
    }
    return QMessageBox::Ok;
}

QMessageBox::Icon Standard(Icon icon)
{
    switch (icon) {
    case Icon::None:
        return QMessageBox::NoIcon;
    case Icon::Information:
        return QMessageBox::Information;
    case Icon::Question:
        return QMessageBox::Question;
    case Icon::Warning:
        return QMessageBox::Warning;
    case Icon::Stop:
        return QMessageBox::Critical;
    }
    return QMessageBox::NoIcon;
}

} // namespace

QPushButton* Push_Button(const QString& name, const QString& text)
{
    auto* button = Named(new QPushButton(text), name);
    button->setAutoDefault(false);
    return button;
}

QLabel* Label_Of(QWidget* control, const QString& text)
{
    auto* label = new QLabel(text);
    label->setBuddy(control);
    return label;
}

QTableWidget* Row_Table(const QString& name, const QString& what, const QStringList& heads)
{
    auto* table = Named(new QTableWidget(0, static_cast<int>(heads.size())), name);
    table->setAccessibleName(what);
    table->setHorizontalHeaderLabels(heads);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setTabKeyNavigation(false);
    table->verticalHeader()->hide();
    table->horizontalHeader()->setStretchLastSection(true);
    return table;
}

QString Shown(std::string_view bytes)
{
    return QString::fromStdString(To_Utf8(bytes));
}

std::string Bytes_Of(const QString& text)
{
    std::string bytes;
    for (const QChar c : text) {
        if (const auto known = From_Utf8(QString(c).toStdString()))
            bytes += *known;
    }
    return bytes;
}

Button Ask_In_Box(const Message& message)
{
    QMessageBox box(QApplication::activeModalWidget() ? QApplication::activeModalWidget()
                                                      : QApplication::activeWindow());
    box.setWindowTitle(Shown(message.Title));
    box.setText(Shown(message.Text).trimmed());
    box.setTextFormat(Qt::PlainText);
    box.setIcon(Standard(message.Picture));
    for (const Button button : message.Buttons)
        box.addButton(Standard(button));
    box.setDefaultButton(Standard(message.Default));
    const int pressed = box.exec();
    for (const Button button : message.Buttons) {
        if (Standard(button) == pressed)
            return button;
    }
    return message.Buttons.back(); // closed without a button: the last one changes nothing
}

void Show_Refusal(const Ask_Function& ask, const QWidget& window, const Refusal& refusal)
{
    ask(refusal.Text);
    if (auto* control = window.findChild<QWidget*>(Shown(refusal.Control)))
        control->setFocus();
}

QFont Fixed_Pitch_Font()
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPointSizeF(QApplication::font().pointSizeF());
    return font;
}

Hourglass::Hourglass()
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
}

Hourglass::~Hourglass()
{
    QApplication::restoreOverrideCursor();
}

} // namespace orvel
