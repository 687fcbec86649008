// A table that is printed, when the printer fails.
#include "full_disk.h"
#include "tables/forms/text_viewer.h"
#include "temporary_directory.h"
#include "ui/forms/widgets.h"
#include "window_test.h"

namespace orvel {

// The printer is a PDF file on a disk that is full.
TEST_F(Window_Test, A_Print_That_Fails_Is_Told)
{
    const Temporary_Directory place;
    const QString file = QString::fromStdString((place / "echo.pdf").string());
    Echo_ORV form(std::string(3000, 'x'), The_Session.Ask);
    form.show();
    const Full_Disk full(1000);
    In_Modal([&](QWidget& dialog) {
        dialog.findChild<QLineEdit*>("filename")->setText(file);
        dynamic_cast<QDialog&>(dialog).accept();
    });

    Click<QPushButton>(form, "Drucken");

    ASSERT_EQ(The_User.Messages.size(), 1U);
    EXPECT_EQ(
        The_User.Messages[0],
        (Message{"Print", Bytes_Of("\"" + file + "\" could not be written. Nothing, or not all, has been printed.")}));
}

} // namespace orvel
