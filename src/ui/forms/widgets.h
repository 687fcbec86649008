#pragma once

#include "core/message.h"

#include <QLabel>
#include <QPushButton>
#include <QString>
#include <QTableWidget>
#include <QWidget>
#include <string>
#include <string_view>

namespace orvel {

// What all forms share: names of controls, conversion between Unicode and the documents' code page, message boxes, a
// wait cursor.

// Sets the object's name: code and tests find a control by that and by nothing else.
template <class T> T* Named(T* object, const QString& name)
{
    object->setObjectName(name);
    return object;
}

// A button that Return presses only if it has the focus or is made the default one.
QPushButton* Push_Button(const QString& name, const QString& text);

template <class Receiver, class Handler>
QPushButton* Push_Button(const QString& name, const QString& text, Receiver* receiver, Handler handler)
{
    auto* button = Push_Button(name, text);
    QObject::connect(button, &QPushButton::clicked, receiver, handler);
    return button;
}

// A label whose mnemonic leads to the control, and which a screen reader takes for the control's name.
QLabel* Label_Of(QWidget* control, const QString& text);

// A table of whole rows to choose from, which nobody edits; `what` tells a screen reader what its rows are.
QTableWidget* Row_Table(const QString& name, const QString& what, const QStringList& heads);

// Bytes of the documents' code page as text for the window.
QString Shown(std::string_view bytes);

// A text of the window as bytes; characters that the code page lacks do not occur, since fields drop them.
std::string Bytes_Of(const QString& text);

// Shows a message as a modal box over the active window and returns the button pressed.
Button Ask_In_Box(const Message& message);

// Shows what is wrong with an entry and returns the focus to its control.
void Show_Refusal(const Ask_Function& ask, const QWidget& window, const Refusal& refusal);

// A fixed-pitch font of the system in the size of the window's font.
QFont Fixed_Pitch_Font();

// Shows the wait cursor over the whole program during its lifetime.
class Hourglass {
public:
    Hourglass();
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;
    ~Hourglass();
};

} // namespace orvel
