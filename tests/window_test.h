#pragma once

#include "core/session.h"
#include "told.h"

#include <gtest/gtest.h>
#include <memory>
#include <QListWidget>
#include <QTest>
#include <QWidget>

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

// A test with a session of its own whose user keeps every message.
class Window_Test : public testing::Test {
protected:
    Window_Test()
    {
        Shared.Ask = [this](const Message& message) { return The_User(message); };
    }

    std::unique_ptr<Session> Owned = std::make_unique<Session>();
    Session& Shared = *Owned;
    Told The_User;
};
