#include "tables/forms/text_viewer.h"

#include "core/files.h"
#include "temporary_directory.h"
#include "ui/forms/widgets.h"
#include "ui/shown_file.h"
#include "window_test.h"

#include <QApplication>
#include <QClipboard>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextBlock>

namespace orvel {

namespace {

class Text_Viewer_Test : public Window_Test {
protected:
    Form_filetext& Open(const std::string& bytes)
    {
        Write_Whole(File, bytes);
        Form = std::make_unique<Form_filetext>(The_Session, File, *Shown_File(The_Session, File));
        Form->show();
        return *Form;
    }

    bool Can_Save() { return Find<QPushButton>(*Form, "Save")->isEnabled(); }

    // Types at the begin of the text.
    void Type(const QString& text)
    {
        Text(*Form).moveCursor(QTextCursor::Start);
        QTest::keyClicks(&Text(*Form), text);
    }

    void Save_As(const std::filesystem::path& target)
    {
        In_Modal([&target](QWidget& dialog) {
            auto* name = Find<QLineEdit>(dialog, "fileNameEdit");
            name->setText(QString::fromStdString(target.string()));
            QTest::keyClick(name, Qt::Key_Return);
        });
        Click<QPushButton>(*Form, "Save_As");
    }

    Temporary_Directory Place;
    const std::filesystem::path File = Place / "a.cli";
    std::unique_ptr<Form_filetext> Form;

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
    Echo_ORV form("Kremsm\xFCnster\r\n" + Many_Lines, The_Session.Ask);
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
    Fehler_in_Simulation form(Many_Lines + "ERROR 21\r\n", The_Session.Ask);
    form.show();

    EXPECT_EQ(form.windowTitle(), "Echo of Input Data");
    EXPECT_TRUE(Text(form).textCursor().atEnd());
}

TEST_F(Text_Viewer_Test, The_Lines_Of_The_Errors_Stand_Out_In_A_Failure_Report)
{
    Fehler_in_Simulation form(Many_Lines + "E R R O R\r\nno mark\r\nERROR 21\r\n", The_Session.Ask);

    const auto marked = Find<QPlainTextEdit>(form, "Ergebnis")->extraSelections();

    ASSERT_EQ(marked.size(), 2);
    EXPECT_EQ(marked[0].cursor.block().text(), "E R R O R");
    EXPECT_EQ(marked[1].cursor.block().text(), "ERROR 21");
    for (const auto& line : marked) {
        EXPECT_EQ(line.format.background().color(), form.palette().color(QPalette::Highlight));
        EXPECT_EQ(line.format.foreground().color(), form.palette().color(QPalette::HighlightedText));
        EXPECT_TRUE(line.format.boolProperty(QTextFormat::FullWidthSelection));
    }
}

TEST_F(Text_Viewer_Test, A_Failure_Report_Without_The_Plain_Word_Error_Stays_At_Its_Begin)
{
    Fehler_in_Simulation form(Many_Lines + "E R R O R\r\n", The_Session.Ask);
    form.show();

    EXPECT_EQ(Text(form).textCursor().position(), 0);
}

TEST_F(Text_Viewer_Test, A_File_Is_Shown_Under_Its_Name_And_Escape_Closes_It)
{
    Open("text\r\n");

    EXPECT_EQ(Form->windowTitle(), "a.cli[*]"); // the mark of an edited text, which shows while there is one
    EXPECT_EQ(Text(*Form).toPlainText(), "text\n");
    EXPECT_FALSE(Can_Save());
    QTest::keyClick(Form.get(), Qt::Key_Escape);
    EXPECT_FALSE(Form->isVisible());
    EXPECT_TRUE(The_User.Messages.empty());
}

TEST_F(Text_Viewer_Test, An_Edited_Text_Is_Saved_With_The_Ends_Of_Lines_And_The_Letters_Of_The_File)
{
    Open("M\xFCnchen\nlast");
    Type("1 ");
    EXPECT_TRUE(Can_Save());
    EXPECT_TRUE(Form->isWindowModified());

    Click<QPushButton>(*Form, "Save");

    EXPECT_EQ(Read_Whole(File), "1 M\xFCnchen\r\nlast\r\n");
    EXPECT_FALSE(Can_Save());
    Type("2");
    Click<QPushButton>(*Form, "Save");
    EXPECT_EQ(Read_Whole(File), "21 M\xFCnchen\r\nlast\r\n");
    Click<QPushButton>(*Form, "Done");
    EXPECT_FALSE(Form->isVisible());
    EXPECT_TRUE(The_User.Messages.empty());
}

TEST_F(Text_Viewer_Test, What_Is_Not_Shown_As_It_Stands_In_The_File_Cannot_Be_Edited)
{
    const std::string old_letters = "Kremsm\x81nster", no_break_space = "a\xA0z", too_big(40000, 'x');
    for (const auto& bytes : {old_letters, no_break_space, too_big}) {
        Open(bytes);
        EXPECT_TRUE(Text(*Form).isReadOnly());
        Type("1");
        EXPECT_FALSE(Can_Save());
        EXPECT_EQ(Read_Whole(File), bytes);
    }
}

TEST_F(Text_Viewer_Test, Characters_That_The_File_Cannot_Hold_Are_Told_And_The_First_Is_Marked)
{
    Open("text\r\n");
    Text(*Form).moveCursor(QTextCursor::Start);
    Text(*Form).insertPlainText(QString::fromUtf8("aΩb\U0001F600Ω"));

    Click<QPushButton>(*Form, "Save");

    EXPECT_EQ(The_User.Messages,
              std::vector{(Message{"Saving Input File",
                                   "The file cannot hold U+03A9, U+1F600. The first of these characters is "
                                   "marked."})});
    EXPECT_EQ(Text(*Form).textCursor().selectedText(), QString::fromUtf8("Ω"));
    EXPECT_EQ(Read_Whole(File), "text\r\n");
}

TEST_F(Text_Viewer_Test, A_Read_Only_File_Stays_As_It_Is_And_The_User_Is_Told)
{
    Open("text\r\n");
    std::filesystem::permissions(File, std::filesystem::perms::owner_read);
    Type("1");

    Click<QPushButton>(*Form, "Save");

    ASSERT_EQ(The_User.Messages.size(), 1U);
    EXPECT_EQ(The_User.Messages[0].Title, "Saving Input File");
    EXPECT_EQ(Read_Whole(File), "text\r\n");
    EXPECT_TRUE(Can_Save());
}

TEST_F(Text_Viewer_Test, A_File_That_Was_Changed_Meanwhile_Is_Replaced_Only_If_The_User_Says_So)
{
    Open("text\r\n");
    Type("1");
    Write_Whole(File, "other\r\n");

    Click<QPushButton>(*Form, "Save");
    EXPECT_EQ(Read_Whole(File), "other\r\n");
    EXPECT_EQ(The_User.Messages,
              std::vector{(Message{"Saving Input File",
                                   "The file was changed by another program since it was opened. Replace?",
                                   Icon::Question,
                                   {Button::Yes, Button::No},
                                   Button::No})});

    The_User.Answers = {Button::Yes};
    Click<QPushButton>(*Form, "Save");
    EXPECT_EQ(Read_Whole(File), "1text\r\n");
}

TEST_F(Text_Viewer_Test, An_Edited_Text_Is_Not_Given_Up_Without_A_Question)
{
    Open("text\r\n");
    Type("1");

    Click<QPushButton>(*Form, "Done");
    EXPECT_TRUE(Form->isVisible());
    EXPECT_EQ(The_User.Messages, std::vector{(Message{"Saving Input File",
                                                      "The text was changed. Do you want to exit without saving ?",
                                                      Icon::Question,
                                                      {Button::Yes, Button::No},
                                                      Button::No})});

    The_User.Answers = {Button::Yes};
    QTest::keyClick(Form.get(), Qt::Key_Escape);
    EXPECT_FALSE(Form->isVisible());
    EXPECT_EQ(Read_Whole(File), "text\r\n");
}

TEST_F(Text_Viewer_Test, A_Copy_Of_A_File_That_Is_Not_Edited_Is_The_Whole_File)
{
    const std::string big(40000, 'x');
    Open(big);

    Save_As(Place / "copy.cli");

    EXPECT_EQ(Read_Whole(Place / "copy.cli"), big);
}

TEST_F(Text_Viewer_Test, An_Edited_Text_Saved_Elsewhere_Leaves_The_File_And_Goes_On_With_The_Other)
{
    Open("text\r\n");
    Type("1");

    Save_As(Place / "other.cli");

    EXPECT_EQ(Read_Whole(File), "text\r\n");
    EXPECT_EQ(Read_Whole(Place / "other.cli"), "1text\r\n");
    EXPECT_EQ(Form->windowTitle(), "other.cli[*]");
    EXPECT_FALSE(Form->isWindowModified());
}

} // namespace orvel
