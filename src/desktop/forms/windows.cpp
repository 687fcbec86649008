#include "desktop/forms/windows.h"

#include "evaluation/forms/analyse.h"
#include "evaluation/forms/inout_sel.h"
#include "evaluation/forms/overview_window.h"
#include "plans/forms/plans_window.h"
#include "records/forms/archive_dialog.h"
#include "records/forms/archives.h"

#include <QApplication>
#include <QPointer>

#include <memory>

namespace orvel {

namespace {

// They have a session of their own, as the window has.
std::vector<Overview_Action> Actions_On_Records(const Session& session)
{
    const auto own = std::make_shared<Session>(session);
    return {{"A_Archive", "Archi&ve ...",
             [own](const Mode& mode, const Overview_Row& row, const Overview_Run*, QWidget* parent) {
                 Archive_In_Window(*own, mode, row.Pesticide, row.Crop, parent);
             }},
            {"A_Archives", "Archives and compar&isons ...",
             [own](const Mode&, const Overview_Row&, const Overview_Run*, QWidget* parent) {
                 Archives(*own, parent).exec();
             }}};
}

// One window, which is brought to the front when it is open already. Its thread ends before the program does.
template <class Window, class Make> void Bring_To_Front(QPointer<Window>& open, Make make)
{
    if (!open) {
        open = make();
        open->setAttribute(Qt::WA_DeleteOnClose);
        QObject::connect(qApp, &QCoreApplication::aboutToQuit, open, [&open] { delete open; });
    }
    open->show();
    open->raise();
    open->activateWindow();
}

} // namespace

void Open_Overview(const Session& session, Mode_Kind mode)
{
    static QPointer<Overview_Window> open;
    Bring_To_Front(open, [&] { return new Overview_Window(session, mode, Actions_On_Records(session)); });
    open->Show_Mode(mode);
}

void Open_Plans(const Session& session)
{
    static QPointer<Plans_Window> open;
    Bring_To_Front(open, [&] { return new Plans_Window(session); });
}

Run_Windows Windows_Of_Runs(Session& session)
{
    return {.Open_Evaluation = [&session](const Mode& mode, QWidget* parent) { Analyse(session, mode, parent).exec(); },
            .Open_Overview = [&session](const Mode& mode) { Open_Overview(session, mode.Kind); },
            .Open_Run_Files = [&session](QWidget* parent) { inout_sel(session, parent).exec(); }};
}

} // namespace orvel
