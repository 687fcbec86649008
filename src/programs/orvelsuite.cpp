// The desktop program, started in its installation directory; it takes no arguments.
#include "core/system/program_path.h"
#include "core/system/standard_channels.h"
#include "desktop/first_start.h"
#include "desktop/forms/start.h"
#include "installation/lay_out.h"
#include "runs/start_up.h"
#include "ui/forms/dark_outlines.h"
#include "ui/forms/guarded_application.h"
#include "ui/forms/own_modality.h"
#include "ui/forms/widgets.h"

#include <iostream>
#include <memory>
#include <QDir>
#include <QFileDialog>

int main(int argc, char** argv)
try {
    using namespace orvel;
    Open_Standard_Channels();
    Guarded_Application application(argc, argv);
    QApplication::setApplicationName("ORVELSUITE");
    Show_Outlines_In_The_Dark();
    Block_Own_Windows_Alone(application);

    const auto session = std::make_unique<Session>();
    session->Ask = application.Ask = Ask_In_Box;
    const auto choose = [] {
        return std::filesystem::path(
            QFileDialog::getExistingDirectory(nullptr, "Directory of the new installation", QDir::homePath())
                .toStdString());
    };
    const auto place =
        Find_Installation(std::filesystem::current_path(), Parts_Beside(Own_Path()), session->Ask, choose);
    if (!place)
        return 1;
    std::filesystem::current_path(*place);
    session->Program.App_Path = *place;
    if (!Start_Up(*session)) {
        std::cerr << "ORVELSUITE cannot write in " << session->Program.App_Path.string() << ".\n";
        return 1;
    }
    const auto sign_of_life = Sign_Of_Shell(session->Program);
    Check_Decimal_Separator(session->Ask, General_Text(3.5)); // numbers are printed without regard to the locale
    Start start(*session);
    start.show();
    return QApplication::exec();
} catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
}
