// The desktop program: orvelsuite [DIRECTORY | DOCUMENT].
#include "core/code_page.h"
#include "core/error.h"
#include "core/system/program_path.h"
#include "core/system/standard_channels.h"
#include "core/system/system_box.h"
#include "core/system/terminal.h"
#include "core/system/user_directories.h"
#include "desktop/early_text.h"
#include "desktop/forms/first_steps.h"
#include "desktop/forms/start.h"
#include "desktop/forms/welcome.h"
#include "desktop/places.h"
#include "documents/forms/edit_document.h"
#include "installation/lay_out.h"
#include "runs/start_up.h"
#include "ui/forms/dark_outlines.h"
#include "ui/forms/guarded_application.h"
#include "ui/forms/guide_opening.h"
#include "ui/forms/menu_keys.h"
#include "ui/forms/own_modality.h"
#include "ui/forms/readable_palette.h"
#include "ui/forms/widgets.h"

#include <iostream>
#include <memory>
#include <QLocale>
#include <QTimer>

namespace {

using namespace orvel;

constexpr const char* Usage = "usage: orvelsuite [DIRECTORY | FILE.psm | FILE.sze | FILE.cli]\n";

int End(int code, const std::string& text)
{
    const bool failed = code != 0;
    Tell_Early({text, failed}, failed ? std::cerr : std::cout, failed ? Error_Is_Seen() : Output_Is_Seen(),
               [](const Early_Text& told) { Show_System_Box("ORVELSUITE", told.Text, told.Is_Failure); });
    return code;
}

struct Place {
    Start_Request Request;
    bool Guided = false; // through a first assessment
};

// Nothing: the user ended the program, or was told why it cannot go on.
std::optional<Place> Choose_Place(const std::optional<std::filesystem::path>& argument, const Ask_Function& ask)
try {
    Place place{Request_Of(argument, std::filesystem::current_path(), Recent_Installations(User_State_Directory()))};
    if (Is_Installation(place.Request.Installation))
        return place;
    const auto asked = place.Request.Installation;
    Welcome welcome(Parts_Beside(Own_Path()), ask, asked.empty() ? User_Directory() / "ORVELSUITE" : asked);
    welcome.exec();
    if (welcome.Installation().empty())
        return std::nullopt;
    place.Request.Installation = welcome.Installation();
    place.Guided = welcome.Shows_The_Way();
    return place;
} catch (const File_Error& error) {
    ask({"ORVELSUITE", To_Code_Page(error.what())});
    return std::nullopt;
}

} // namespace

int main(int argc, char** argv)
try {
    Open_Standard_Channels();
    Guarded_Application application(argc, argv);
    QApplication::setApplicationName("ORVELSUITE");
    Show_Outlines_In_The_Dark();
    Make_Text_Readable();
    Block_Own_Windows_Alone(application);

    const auto session = std::make_unique<Session>();
    session->Ask = application.Ask = Ask_In_Box;
    Answer_F1(application, Ask_In_Box);
    Answer_Menu_Keys(application);
    const auto arguments = QApplication::arguments();
    if (arguments.size() > 2 || (arguments.size() == 2 && arguments[1].startsWith("--"))) {
        const bool asked = arguments.size() == 2 && arguments[1] == "--help";
        return End(asked ? 0 : 2, Usage);
    }
    const auto place = Choose_Place(
        arguments.size() == 2 ? std::optional<std::filesystem::path>(arguments[1].toStdString()) : std::nullopt,
        session->Ask);
    if (!place)
        return 1;
    std::filesystem::current_path(place->Request.Installation);
    session->Program.App_Path = place->Request.Installation;
    if (!Start_Up(*session))
        return End(1, "ORVELSUITE cannot write in " + session->Program.App_Path.string() + ".");
    auto dropped = Drop_Pending_Batch(session->Program);
    const auto sign_of_life = Sign_Of_Shell(session->Program);
    Check_Decimal_Separator(session->Ask, QLocale::system().toString(3.5).toStdString());
    Remember_Installation(User_State_Directory(), session->Program.App_Path);
    Start start(*session, std::move(dropped));
    if (place->Guided)
        new First_Steps(&start);
    start.show();
    if (!place->Request.Document.empty())
        QTimer::singleShot(0, &start, [&] { Open_And_Edit(*session, place->Request.Document, &start); });
    return QApplication::exec();
} catch (const std::exception& error) {
    return End(1, error.what());
}
