#include "ui/forms/guarded_application.h"

#include "core/error.h"
#include "window_test.h"

#include <QPushButton>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
using Leaks_Of_Qt = __lsan::ScopedDisabler;
#else
struct Leaks_Of_Qt {
    Leaks_Of_Qt() {}
};
#endif

namespace orvel {

namespace {

class Guarded_Application_Test : public testing::Test {
protected:
    Guarded_Application_Test() { The_Application().Ask = std::ref(The_User); }
    ~Guarded_Application_Test() override { The_Application().Ask = nullptr; }
    static Guarded_Application& The_Application() { return dynamic_cast<Guarded_Application&>(*qApp); }

    Recording_User The_User;
};

} // namespace

TEST_F(Guarded_Application_Test, An_Error_Of_A_Click_Is_Told_In_A_Box_And_The_Window_Stays)
{
    const Leaks_Of_Qt expected; // an error that passes through it takes its events away
    QPushButton button("Read");
    QObject::connect(&button, &QPushButton::clicked, [] { throw File_Error("Cannot read demo.psm: No such file."); });
    button.show();

    QTest::mouseClick(&button, Qt::LeftButton);

    EXPECT_EQ(The_User.Messages, std::vector{(Message{"File check", "Cannot read demo.psm: No such file."})});
    EXPECT_TRUE(button.isVisible());
}

TEST_F(Guarded_Application_Test, An_Error_That_A_Timer_Repeats_Is_Told_Once)
{
    QTimer timer;
    int ticks = 0;
    timer.callOnTimeout([&] {
        ++ticks;
        throw File_Error("Cannot read the directory focus: Input/output error.");
    });
    timer.start(1);

    EXPECT_TRUE(QTest::qWaitFor([&] { return ticks > 3; }));

    EXPECT_EQ(The_User.Messages.size(), 1U);
}

} // namespace orvel
