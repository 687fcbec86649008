#include "ui/forms/enter_key.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QPushButton>

namespace orvel {

namespace {

// Sees the keys that no control of the dialog has taken.
class Enter_Key : public QObject {
public:
    explicit Enter_Key(QDialog& form) : QObject(&form), Form(form) {}

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Show)
            Show_No_Default();
        if (event->type() != QEvent::KeyPress)
            return QObject::eventFilter(watched, event);
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key != Qt::Key_Return && key != Qt::Key_Enter)
            return QObject::eventFilter(watched, event);
        Press();
        return true;
    }

private:
    void Press()
    {
        auto* here = Form.focusWidget();
        if (auto* button = qobject_cast<QAbstractButton*>(here); button && !button->isCheckable())
            button->click();
        else if (here && !qobject_cast<QAbstractScrollArea*>(here))
            Leave(*here);
    }

    // A row of buttons makes its first one the default when it is shown.
    void Show_No_Default()
    {
        for (auto* button : Form.findChildren<QPushButton*>())
            button->setDefault(false);
    }

    static void Leave(QWidget& field)
    {
        QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier);
        QApplication::sendEvent(&field, &tab);
    }

    QDialog& Form;
};

} // namespace

void Enter_Leaves_Fields(QDialog& form)
{
    form.installEventFilter(new Enter_Key(form));
}

} // namespace orvel
