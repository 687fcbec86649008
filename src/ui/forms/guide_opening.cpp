#include "ui/forms/guide_opening.h"

#include "core/system/program_path.h"
#include "ui/guide.h"

#include <QApplication>
#include <QDesktopServices>
#include <QKeyEvent>
#include <QUrl>
#include <QWidget>

namespace orvel {

namespace {

// The names of a window and of those that it was opened from.
std::vector<std::string> Windows_Around(const QWidget* control)
{
    std::vector<std::string> names;
    while (control) {
        const auto* window = control->window();
        names.push_back(window->objectName().toStdString());
        control = window->parentWidget();
    }
    return names;
}

class Guide_Key : public QObject {
public:
    Guide_Key(QApplication& application, Ask_Function ask) : QObject(&application), Ask(std::move(ask)) {}

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const auto* control = event->type() == QEvent::KeyPress ? qobject_cast<QWidget*>(watched) : nullptr;
        const auto* key = control ? static_cast<QKeyEvent*>(event) : nullptr;
        if (!key || key->key() != Qt::Key_F1 || key->modifiers() != Qt::NoModifier)
            return false;
        Open_Guide(Ask, control);
        return true;
    }

private:
    Ask_Function Ask;
};

} // namespace

void Open_Guide(const Ask_Function& ask, const QWidget* window)
{
    const auto guide = Guide_Directory(Own_Path());
    const auto page = Guide_Page(guide, Windows_Around(window));
    std::error_code ignored;
    if (!std::filesystem::exists(page, ignored))
        ask(Guide_Not_Installed(guide));
    else if (!QDesktopServices::openUrl(QUrl::fromLocalFile(QString::fromStdString(page.string()))))
        ask(Guide_Not_Shown(page));
}

QObject* Answer_F1(QApplication& application, const Ask_Function& ask)
{
    auto* key = new Guide_Key(application, ask);
    application.installEventFilter(key);
    return key;
}

} // namespace orvel
