#include "temporary_directory.h"
#include "ui/forms/guarded_application.h"

#include <gtest/gtest.h>

#ifndef TEST_PLATFORM // Qt's, if it is another one
#define TEST_PLATFORM "offscreen"
#endif

// Windows are tested without a display, also where the tests are only listed.
int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", TEST_PLATFORM);
    const orvel::Temporary_Directory state; // of this user, who may have unsaved changes of their own
    if (!qEnvironmentVariableIsSet("ORVEL_TEST_EDITED_FILE"))
        qputenv("XDG_STATE_HOME", QByteArray::fromStdString(state.Path().string()));
    ::testing::InitGoogleTest(&argc, argv);
    orvel::Guarded_Application::setAttribute(Qt::AA_DontUseNativeDialogs); // no hand reaches into those of the system
    orvel::Guarded_Application application(argc, argv);
    orvel::Guarded_Application::setStyle("fusion"); // whichever style the system has
    return RUN_ALL_TESTS();
}
