#include "ui/forms/guarded_application.h"

#include "core/code_page.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>

namespace orvel {

namespace {

// To a screen reader a drop-down list is named by its labels, whatever else it is called: what none of them says gets
// one that is heard and not seen. A list of entries or a table has its own name alone.
void Name_For_Readers(QWidget& list)
{
    const bool drops_down = qobject_cast<QComboBox*>(&list);
    if (!list.parentWidget() || (!drops_down && !qobject_cast<QAbstractItemView*>(&list)))
        return;
    bool is_said = list.accessibleName().isEmpty();
    for (const auto* label : list.parentWidget()->findChildren<QLabel*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (label->buddy() != &list)
            continue;
        const QString text = label->text().remove('&').remove(':');
        is_said = is_said || text == list.accessibleName();
        if (!drops_down && list.accessibleName().isEmpty())
            list.setAccessibleName(text);
    }
    if (!drops_down || is_said)
        return;
    auto* label = new QLabel(list.accessibleName().remove('&'), list.parentWidget());
    label->hide();
    label->setBuddy(&list);
}

} // namespace

bool Guarded_Application::notify(QObject* receiver, QEvent* event)
{
    if (auto* widget = event->type() == QEvent::Show ? qobject_cast<QWidget*>(receiver) : nullptr)
        Name_For_Readers(*widget);
    if (!Ask)
        return QApplication::notify(receiver, event);
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception& error) {
        Show(error.what());
        return true;
    }
}

void Guarded_Application::Show(const std::string& error)
{
    constexpr std::chrono::minutes Pause(1);
    const auto now = std::chrono::steady_clock::now();
    if (error == Last && now - Last_Shown < Pause)
        return;
    Last = error;
    Last_Shown = now;
    Tell(Ask, "File check", To_Code_Page(error));
    Last_Shown = std::chrono::steady_clock::now();
}

} // namespace orvel
