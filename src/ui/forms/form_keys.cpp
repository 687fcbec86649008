#include "ui/forms/form_keys.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QPushButton>
#include <QRadioButton>

namespace orvel {

namespace {

// Sees the keys that no control of the dialog has taken.
class Form_Keys : public QObject {
public:
    explicit Form_Keys(QDialog& form) : QObject(&form), Form(form) {}

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Show)
            Set_Up();
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

    // A row of buttons makes its first one the default when it is shown, and options take the Tab key whether chosen or
    // not.
    void Set_Up()
    {
        for (auto* button : Form.findChildren<QPushButton*>())
            button->setDefault(false);
        for (auto* option : Form.findChildren<QRadioButton*>()) {
            Take_Tab(*option, option->isChecked());
            connect(option, &QRadioButton::toggled, this, &Form_Keys::Option_Toggled, Qt::UniqueConnection);
        }
    }

    void Option_Toggled(bool chosen) { Take_Tab(*static_cast<QRadioButton*>(sender()), chosen); }

    static void Take_Tab(QRadioButton& option, bool takes)
    {
        option.setFocusPolicy(takes ? Qt::StrongFocus : Qt::ClickFocus);
    }

    static void Leave(QWidget& field)
    {
        QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier);
        QApplication::sendEvent(&field, &tab);
    }

    QDialog& Form;
};

} // namespace

void Use_Form_Keys(QDialog& form)
{
    form.installEventFilter(new Form_Keys(form));
}

} // namespace orvel
