#include "ui/forms/guarded_application.h"

#include "core/code_page.h"

namespace orvel {

bool Guarded_Application::notify(QObject* receiver, QEvent* event)
{
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
