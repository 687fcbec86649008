#include "desktop/forms/windows.h"

#include "evaluation/forms/analyse.h"
#include "evaluation/forms/inout_sel.h"
#include "evaluation/forms/overview_window.h"

#include <QApplication>
#include <QPointer>

namespace orvel {

// One window, which is brought to the front when it is open already. Its thread ends before the program does.
void Open_Overview(const Session& session, Mode_Kind mode)
{
    static QPointer<Overview_Window> open;
    if (!open) {
        open = new Overview_Window(session, mode);
        open->setAttribute(Qt::WA_DeleteOnClose);
        QObject::connect(qApp, &QCoreApplication::aboutToQuit, open, [] { delete open; });
    }
    open->Show_Mode(mode);
    open->show();
    open->raise();
    open->activateWindow();
}

Run_Windows Windows_Of_Runs(Session& session)
{
    return {.Open_Evaluation = [&session](const Mode& mode, QWidget* parent) { Analyse(session, mode, parent).exec(); },
            .Open_Overview = [&session](const Mode& mode) { Open_Overview(session, mode.Kind); },
            .Open_Run_Files = [&session](QWidget* parent) { inout_sel(session, parent).exec(); }};
}

} // namespace orvel
