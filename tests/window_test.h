#pragma once

#include "core/session.h"
#include "recording_user.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDeadlineTimer>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <QWidget>

namespace orvel {

// The control of a name below a window. A name that is not there ends the test with a message.
template <class T> T* Find(const QWidget& window, const QString& name)
{
    T* found = window.findChild<T*>(name);
    if (!found)
        throw std::runtime_error("no control " + name.toStdString());
    return found;
}

template <class T> void Click(const QWidget& window, const QString& name)
{
    QTest::mouseClick(Find<T>(window, name), Qt::LeftButton);
}

// Clicks an entry of a list, as a hand does.
inline void Choose(const QWidget& window, const QString& list_name, const QString& text)
{
    auto* list = Find<QListWidget>(window, list_name);
    const auto found = list->findItems(text, Qt::MatchExactly);
    if (found.isEmpty())
        throw std::runtime_error("no entry " + text.toStdString());
    list->scrollToItem(found[0]);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(found[0]).center());
}

// Clicks an option at its sign: the rest of a stretched one takes no click.
inline void Choose_Option(const QWidget& window, const QString& name)
{
    auto* option = Find<QAbstractButton>(window, name);
    QTest::mouseClick(option, Qt::LeftButton, {}, QPoint(option->height() / 2, option->height() / 2));
}

// Opens a drop-down list and chooses an entry by the keyboard.
inline void Pick(const QWidget& window, const QString& name, const QString& text)
{
    auto* combo = Find<QComboBox>(window, name);
    const int row = combo->findText(text);
    if (row < 0 || !combo->isVisible() || !combo->isEnabled())
        throw std::runtime_error(name.toStdString() + " does not offer " + text.toStdString());
    QTest::keyClick(combo, Qt::Key_F4);
    QTest::keyClick(combo->view(), Qt::Key_Home);
    for (int step = 0; step < row; ++step)
        QTest::keyClick(combo->view(), Qt::Key_Down);
    QTest::keyClick(combo->view(), Qt::Key_Return);
    if (combo->currentIndex() != row)
        throw std::runtime_error(name.toStdString() + " did not take " + text.toStdString());
}

// Replaces the text of a field by typing, and leaves the field.
inline void Retype(const QWidget& window, const QString& name, const QString& text)
{
    auto* field = Find<QLineEdit>(window, name);
    field->setFocus();
    field->selectAll();
    QTest::keyClick(field, Qt::Key_Delete);
    QTest::keyClicks(field, text);
    QTest::keyClick(field, Qt::Key_Tab);
}

// What a hand does in the modal window that opens next, which a display may show a while later; one that it leaves open
// is closed.
inline void In_Modal(std::function<void(QWidget&)> use, QDeadlineTimer until = QDeadlineTimer(5000),
                     const QWidget* before = QApplication::activeModalWidget())
{
    QTimer::singleShot(0, [use = std::move(use), until, before] {
        QPointer<QWidget> form = QApplication::activeModalWidget();
        if (form == before && !until.hasExpired())
            return In_Modal(use, until, before);
        if (!form || form == before)
            return ADD_FAILURE() << "no modal window";
        try { // no exception may leave a handler of Qt
            use(*form);
        } catch (const std::exception& error) {
            ADD_FAILURE() << error.what();
        }
        if (form)
            form->close();
    });
}

// A test with a session of its own whose user keeps every message.
class Window_Test : public testing::Test {
protected:
    Window_Test()
    {
        The_Session.Ask = [this](const Message& message) { return The_User(message); };
    }

    std::unique_ptr<Session> Owned = std::make_unique<Session>();
    Session& The_Session = *Owned;
    Recording_User The_User;
};

} // namespace orvel
