#include "desktop/forms/places_menu.h"

#include "core/files.h"
#include "core/system/program_path.h"
#include "core/system/spawn.h"
#include "core/system/user_directories.h"
#include "desktop/places.h"
#include "installation/lay_out.h"
#include "ui/forms/widgets.h"

#include <QDir>
#include <QFileDialog>
#include <QMenu>
#include <QToolButton>

namespace orvel {

namespace fs = std::filesystem;

namespace {

void Open_Place(const Session& session, const fs::path& place)
try {
    Start_Program(
        {.Program = Own_Path(), .Arguments = {place.string()}, .Directory = place, .Output = {}, .Own_Session = true});
} catch (const File_Error& error) {
    session.Ask({"ORVELSUITE", Bytes_Of(QString::fromStdString(error.what()))});
}

fs::path Choose(QWidget& window, const QString& title)
{
    return QFileDialog::getExistingDirectory(&window, title, QDir::homePath()).toStdString();
}

void Open_Chosen(const Session& session, QWidget& window)
{
    const fs::path place = Choose(window, "Directory of an installation");
    if (place.empty())
        return;
    if (Is_Installation(place))
        return Open_Place(session, place);
    session.Ask({"ORVELSUITE", Bytes_Of(QString::fromStdString(place.string())) +
                                   " is no installation of ORVELSUITE: it has no focus/c_apples.sze."});
}

void Open_New(const Session& session, QWidget& window, const fs::path& scenarios_of)
{
    const fs::path directory = Choose(window, "Directory of the new installation");
    if (directory.empty())
        return;
    const Hourglass waiting;
    if (const auto place = Installation_In(directory, Parts_Beside(Own_Path()), session.Ask, scenarios_of))
        Open_Place(session, *place);
}

void Fill(QMenu& menu, const Session& session, QWidget& window)
{
    menu.clear();
    const auto& here = session.Program.App_Path;
    for (const auto& place : Recent_Installations(User_State_Directory())) {
        auto* action = menu.addAction(QString::fromStdString(place.string()).replace("&", "&&"),
                                      [&session, place] { Open_Place(session, place); });
        action->setEnabled(place != here);
    }
    menu.addSeparator();
    menu.addAction("&Open installation ...", [&] { Open_Chosen(session, window); });
    menu.addAction("&New installation with demonstration data ...", [&] { Open_New(session, window, {}); });
    menu.addAction("New installation with the &scenarios of this one ...",
                   [&] { Open_New(session, window, session.Program.App_Path); });
}

} // namespace

QToolButton* Places_Button(const Session& session, QWidget& window)
{
    const auto path = QString::fromStdString(session.Program.App_Path.string());
    auto* button = Named(new QToolButton, "Places");
    button->setText("&Installation " +
                    QString::fromStdString(session.Program.App_Path.filename().string()).replace("&", "&&"));
    button->setToolTip(path);
    button->setAccessibleDescription(path);
    button->setPopupMode(QToolButton::InstantPopup);
    button->setFocusPolicy(Qt::StrongFocus);
    auto* menu = new QMenu(button);
    QObject::connect(menu, &QMenu::aboutToShow, &window, [menu, &session, &window] { Fill(*menu, session, window); });
    button->setMenu(menu);
    return button;
}

} // namespace orvel
