#include "results/forms/text_viewer.h"

#include "core/files.h"
#include "temporary_directory.h"
#include "window_test.h"

#include <QApplication>
#include <QClipboard>
#include <QPlainTextEdit>
#include <QPushButton>

namespace {

class Text_Viewer_Test : public Window_Test {
protected:
    static QPlainTextEdit& Text(const QWidget& form) { return *Find<QPlainTextEdit>(form, "Ergebnis"); }
};

const std::string Many_Lines = [] {
    std::string lines;
    for (int i = 0; i < 300; ++i)
        lines += "line\r\n";
    return lines;
}();

} // namespace

TEST_F(Text_Viewer_Test, The_Echo_Is_Shown_From_Its_Begin_And_Can_Be_Copied)
{
    Echo_ORV form("Kremsm\xFCnster\r\n" + Many_Lines);
    form.show();

    EXPECT_EQ(form.windowTitle(), "Echo of Input Data");
    EXPECT_EQ(Text(form).textCursor().position(), 0);
    Click<QPushButton>(form, "Kopieren");
    EXPECT_TRUE(QApplication::clipboard()->text().startsWith("Kremsmünster\nline"));
    Click<QPushButton>(form, "OK");
    EXPECT_FALSE(form.isVisible());
}

TEST_F(Text_Viewer_Test, A_Failure_Report_Shows_The_End_Where_The_Engine_Writes_Its_Errors)
{
    Fehler_in_Simulation form(Many_Lines + "ERROR 21\r\n");
    form.show();

    EXPECT_EQ(form.windowTitle(), "Echo of Input Data");
    EXPECT_TRUE(Text(form).textCursor().atEnd());
}

TEST_F(Text_Viewer_Test, A_Failure_Report_Without_The_Plain_Word_Error_Stays_At_Its_Begin)
{
    Fehler_in_Simulation form(Many_Lines + "E R R O R\r\n");
    form.show();

    EXPECT_EQ(Text(form).textCursor().position(), 0);
}

TEST_F(Text_Viewer_Test, A_File_Is_Shown_Under_Its_Name_And_Escape_Closes_It)
{
    Form_filetext form(Shared, "C_01.cli", "text\r\n");
    form.show();

    EXPECT_EQ(form.windowTitle(), "C_01.cli");
    EXPECT_EQ(Text(form).toPlainText(), "text\n");
    EXPECT_TRUE(Text(form).isReadOnly());
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
}
