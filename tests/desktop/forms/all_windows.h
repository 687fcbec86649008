// The list of all windows as they open in an installation with one finished run, for the tests that go through them.
#pragma once

#include "temporary_directory.h"
#include "window_test.h"

#include <functional>
#include <memory>
#include <QPalette>
#include <QString>
#include <vector>

namespace orvel {

constexpr int Patience = 60'000; // ms, until a window has read its files

struct Opened_Window {
    QString Name; // of the picture
    std::function<std::unique_ptr<QWidget>(Session&)> Open;
};

class Windows_Test : public Window_Test {
public:
    // With ORVEL_WHOLE_ASSESSMENT=DIR the runs of a whole assessment lie there, else one run in a directory that goes.
    static bool Is_Whole();

protected:
    static void SetUpTestSuite();
    static void TearDownTestSuite();
    Windows_Test();

    static std::filesystem::path Installation();
    static std::filesystem::path Run();
    static std::filesystem::path Base();
    static std::filesystem::path Soil_Run();
    static std::filesystem::path Single();
    static std::vector<Opened_Window> All();
    // A window of the list as it stands when its work is done.
    std::unique_ptr<QWidget> Shown_Window(const Opened_Window& opened);

    static Temporary_Directory* Place;
};

// A control's name and caption, for a message.
QString Place_Of(const QWidget& control);
bool Is_At_Work(const QWidget& window);
QPalette Dark();

} // namespace orvel
