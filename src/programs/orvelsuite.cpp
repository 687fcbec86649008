// The desktop program, started in its installation directory; it takes no arguments.
#include "core/system/standard_channels.h"
#include "desktop/forms/start.h"
#include "installation/lay_out.h"
#include "runs/start_up.h"
#include "ui/forms/guarded_application.h"
#include "ui/forms/dark_outlines.h"
#include "ui/forms/widgets.h"

#include <iostream>
#include <memory>

int main(int argc, char** argv)
try {
    using namespace orvel;
    Open_Standard_Channels();
    Guarded_Application application(argc, argv);
    QApplication::setApplicationName("ORVELSUITE");
    Show_Outlines_In_The_Dark();

    const auto session = std::make_unique<Session>();
    session->Program.App_Path = std::filesystem::current_path();
    session->Ask = application.Ask = Ask_In_Box;
    Refuse_Unfinished(session->Program.App_Path);
    if (!Start_Up(*session)) {
        std::cerr << "ORVELSUITE cannot write in " << session->Program.App_Path.string() << ".\n";
        return 1;
    }
    Check_Decimal_Separator(session->Ask, General_Text(3.5)); // numbers are printed without regard to the locale
    Start start(*session);
    start.show();
    return QApplication::exec();
} catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
}
