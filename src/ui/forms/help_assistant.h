#pragma once

#include "core/session.h"

#include <array>
#include <map>
#include <QLabel>
#include <QTimer>
#include <QToolButton>

namespace orvel {

// The online help of a form: a box of text beside the control that the mouse moves over, and a pair of pictures that
// switches it on and off for all forms. Controls are attached with the numbers of their texts.
class Help_Assistant : public QObject {
    Q_OBJECT

public:
    Help_Assistant(Session& session, QWidget& form);

    // Controls inside a frame have the frame's text unless they are attached themselves.
    void Attach(QWidget* control, int number);
    QWidget* Switch() { return Switches; } // to be laid out by the form

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Watch(QWidget& widget);
    void Flip();
    void Show_Switches();
    void Show_Help(const QWidget& control, const QString& text);

    Session& The_Session;
    QWidget& Form;
    QWidget* Switches = nullptr;
    std::array<QToolButton*, 2> Fragen{}; // 0 is shown while the help is off, 1 while it is on
    QLabel* Kurzinfo = nullptr;
    QTimer Hilfeuhr;
    std::map<const QObject*, int> Numbers;
};

} // namespace orvel
