#include "ui/forms/undo_history.h"

#include "ui/forms/widgets.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <QTimer>
#include <QToolButton>

namespace orvel {

namespace {

QToolButton* Small_Button(const QString& name, const QString& sign)
{
    auto* button = Named(new QToolButton, name);
    button->setText(sign);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus); // the keys do the same, and the control under edit is not left
    return button;
}

// What a control is called in its form: by its accessible name, its own caption, or that of its label.
QString Caption_Of(const QWidget& control)
{
    if (!control.accessibleName().isEmpty())
        return control.accessibleName();
    const auto* button = qobject_cast<const QAbstractButton*>(&control);
    QString caption = button ? button->text() : QString();
    for (const auto* label : control.window()->findChildren<QLabel*>()) {
        if (label->buddy() == &control)
            caption = label->text();
    }
    return caption.remove('&').remove(':').trimmed();
}

void Tell(QToolButton& button, const QString& what, const QString& caption, const QKeySequence& key)
{
    const QString text = caption.isEmpty() ? what : what + ": " + caption;
    button.setAccessibleName(text);
    button.setToolTip(text + " (" + key.toString(QKeySequence::NativeText) + ")");
}

bool Is_Undo(const QKeyEvent& key)
{
    return key.matches(QKeySequence::Undo);
}

bool Is_Redo(const QKeyEvent& key)
{
    return key.matches(QKeySequence::Redo) || key.keyCombination() == (Qt::ControlModifier | Qt::Key_Y) ||
           key.keyCombination() == (Qt::ControlModifier | Qt::ShiftModifier | Qt::Key_Z);
}

} // namespace

Undo_Keys::Undo_Keys(QDialog& form) : QObject(&form), Form(form)
{
    Changes.setUndoLimit(Most_Changes_Kept);
    Back = Small_Button("Undo", QString::fromUtf8("↶"));
    Forth = Small_Button("Redo", QString::fromUtf8("↷"));
    connect(Back, &QToolButton::clicked, this, &Undo_Keys::Undo);
    connect(Forth, &QToolButton::clicked, this, &Undo_Keys::Redo);
    const auto show = [this] {
        Back->setEnabled(Changes.canUndo());
        Forth->setEnabled(Changes.canRedo());
        Tell(*Back, "Undo", Changes.undoText(), QKeySequence::Undo);
        Tell(*Forth, "Redo", Changes.redoText(), Qt::CTRL | Qt::Key_Y);
    };
    connect(&Changes, &QUndoStack::indexChanged, this, show);
    show();
    if (auto* row = form.findChild<QDialogButtonBox*>()) {
        row->addButton(Back, QDialogButtonBox::ResetRole);
        row->addButton(Forth, QDialogButtonBox::ResetRole);
    }
    form.installEventFilter(this);
    Watch();
}

void Undo_Keys::Watch()
{
    for (auto* control : Form.findChildren<QWidget*>()) {
        if (control == Back || control == Forth || control->window() != &Form)
            continue;
        control->installEventFilter(this);
        const auto used = [this, control] { Look_Later(*control); };
        if (auto* button = qobject_cast<QAbstractButton*>(control))
            connect(button, &QAbstractButton::clicked, this, used);
        else if (auto* list = qobject_cast<QComboBox*>(control))
            connect(list, &QComboBox::activated, this, used);
    }
}

// When the form has done what it does for the control.
void Undo_Keys::Look_Later(const QWidget& control)
{
    QTimer::singleShot(0, this, [this, caption = Caption_Of(control)] { Look(caption); });
}

// A button leaves no box: what is typed there goes first, also if the editor takes it only when the box is left.
void Undo_Keys::Undo()
{
    const int known = Changes.index();
    Look(Last_Used);
    auto* box = qobject_cast<QLineEdit*>(Form.focusWidget());
    if (Changes.index() == known && Has_Own_Undo(box))
        return box->undo();
    Changes.undo();
}

void Undo_Keys::Redo()
{
    Look(Last_Used);
    if (!Has_Own_Undo(qobject_cast<QLineEdit*>(Form.focusWidget()))) // which forgets what was undone
        Changes.redo();
}

bool Undo_Keys::Has_Own_Undo(const QLineEdit* box) const
{
    return box && box->isUndoAvailable() && box->text() != Text_When_Entered;
}

// Whether a key was one of ours: a box with text of its own to undo, and a grid, have it first.
bool Undo_Keys::Takes_Key(QObject* watched, QEvent* event)
{
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (!Is_Undo(key) && !Is_Redo(key))
        return false;
    const auto* box = qobject_cast<QLineEdit*>(watched);
    const bool has_its_own = Is_Undo(key) ? Has_Own_Undo(box) : box && box->isRedoAvailable();
    if (has_its_own || qobject_cast<QTableView*>(watched))
        return false;
    if (event->type() == QEvent::KeyPress)
        Is_Undo(key) ? Undo() : Redo();
    event->accept();
    return true;
}

bool Undo_Keys::eventFilter(QObject* watched, QEvent* event)
{
    auto* control = qobject_cast<QWidget*>(watched);
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::ShortcutOverride:
        if (Takes_Key(watched, event))
            return true;
        break;
    case QEvent::MouseButtonRelease: // the control under edit was left before what a click does
        if (watched != &Form && !qobject_cast<QLineEdit*>(watched))
            Look(Last_Used);
        break;
    case QEvent::FocusIn:
        if (static_cast<QFocusEvent*>(event)->reason() != Qt::ActiveWindowFocusReason) // back from another window
            Look(Last_Used);
        Last_Used = Caption_Of(*control);
        if (const auto* box = qobject_cast<QLineEdit*>(watched))
            Text_When_Entered = box->text();
        break;
    case QEvent::FocusOut:
        if (Form.isVisible() && control != &Form)
            Look_Later(*control);
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace orvel
