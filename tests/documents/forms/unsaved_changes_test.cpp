// Changes that a killed program, or somebody else, would have lost.
#include "core/files.h"
#include "documents/forms/edit_document.h"
#include "documents/forms/unsaved_list.h"
#include "documents/unsaved_copy.h"
#include "files/climate_file.h"
#include "small_installation.h"
#include "window_test.h"

#include <QAbstractButton>
#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QStandardPaths>
#include <QTableWidget>
#include <QTimer>
#include <QToolButton>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr const char* Edited_File = "ORVEL_TEST_EDITED_FILE";

class Unsaved_Changes : public Window_Test {
protected:
    fs::path Copies() const { return fs::path(qgetenv("XDG_STATE_HOME").toStdString()) / "orvelsuite/unsaved"; }

    // A program that edits a file until it is killed, which is when its copy is there.
    void Edit_And_Be_Killed(const fs::path& file)
    {
        QProcess program;
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(Edited_File, QString::fromStdString(file.string()));
        program.setProcessEnvironment(environment);
        program.start(QCoreApplication::applicationFilePath(),
                      {"--gtest_filter=Unsaved_Changes.Are_Given_Up_With_Their_Copy"});
        ASSERT_TRUE(program.waitForStarted());
        std::error_code missing;
        ASSERT_TRUE(QTest::qWaitFor([&] { return fs::exists(Copies(), missing) && !fs::is_empty(Copies()); }, 30'000));
        QTest::qWait(200); // the copy is written whole
        program.kill();
        program.waitForFinished();
    }

    // What is copied of a document under edit, when its time has come; nothing if there is no copy.
    std::string Copied(QWidget& editor) const
    {
        editor.findChild<QTimer*>("Copy_Clock")->start(0);
        QTest::qWait(50);
        if (!fs::is_directory(Copies()))
            return {};
        for (const auto& entry : fs::recursive_directory_iterator(Copies())) {
            if (entry.is_regular_file() && Kind_Of(entry.path()))
                return Read_Whole(entry);
        }
        return {};
    }

    Small_Installation Place;
};

} // namespace

// This test by itself; or the program that the next test kills.
TEST_F(Unsaved_Changes, Are_Given_Up_With_Their_Copy)
{
    const bool lives_on = qEnvironmentVariableIsSet(Edited_File);
    const fs::path file = lives_on ? fs::path(qgetenv(Edited_File).toStdString()) : Place / "focus/H_maize.sze";
    const std::string original = Read_Whole(file);
    In_Modal([&](QWidget& editor) {
        QApplication::setActiveWindow(&editor);
        Retype(editor, "Text_tit", "Another title");
        if (lives_on)
            QTest::qWait(60'000);
        The_User.Answers = {Button::Yes};
    });
    Open_And_Edit(The_Session, file, nullptr);

    EXPECT_EQ(Read_Whole(file), original);
    EXPECT_FALSE(fs::exists(Copies()) && !fs::is_empty(Copies()));
}

TEST_F(Unsaved_Changes, Are_Copied_A_Second_After_The_First_One)
{
    In_Modal([&](QWidget& editor) {
        QApplication::setActiveWindow(&editor);
        Retype(editor, "Text_tit", "Another title");
        EXPECT_TRUE(QTest::qWaitFor([&] { return fs::exists(Copies()) && !fs::is_empty(Copies()); }, 4'000));
        EXPECT_EQ(Find<QTimer>(editor, "Copy_Clock")->intervalAsDuration(), std::chrono::minutes(1));
        The_User.Answers = {Button::Yes};
    });
    Open_And_Edit(The_Session, Place / "focus/H_maize.sze", nullptr);
}

TEST_F(Unsaved_Changes, Of_A_Killed_Program_Are_Offered_And_Can_Be_Undone)
{
    const fs::path file = Place / "focus/H_maize.sze";
    const std::string original = Read_Whole(file);
    Edit_And_Be_Killed(file);
    ASSERT_EQ(Read_Whole(file), original);

    The_User.Answers = {Button::Yes};
    In_Modal([&](QWidget& editor) {
        EXPECT_EQ(Find<QLineEdit>(editor, "Text_tit")->text(), "Another title");
        EXPECT_TRUE(The_Session.Program.SZE_Changed);
        EXPECT_EQ(Find<QToolButton>(editor, "Undo")->accessibleName(), "Undo: Unsaved changes");
        Click<QToolButton>(editor, "Undo");
        EXPECT_NE(Find<QLineEdit>(editor, "Text_tit")->text(), "Another title");
        The_User.Answers = {Button::Yes}; // the changes are given up
    });
    Open_And_Edit(The_Session, file, nullptr);
    ASSERT_FALSE(The_User.Messages.empty());
    EXPECT_NE(The_User.Messages.front().Text.find("SZE_Title: "), std::string::npos) << The_User.Messages.front().Text;
    EXPECT_TRUE(fs::is_empty(Copies()));
}

// The grid shows fewer decimals than the file has, and its rows gain blanks by being written.
TEST_F(Unsaved_Changes, Of_A_Climate_File_Are_Those_Of_Its_Cells)
{
    Climate_Table table{"Demo",
                        {{.Cli_Day = "01", .Cli_Month = "02", .Cli_Year = "81", .Cli_Rain = 1.256, .Cli_Hour = "14"}}};
    const fs::path file = Place / "focus/C_01.cli";
    Write_Whole(file, Format_CLI(table));
    fs::path left;
    In_Modal([&](QWidget& editor) {
        EXPECT_EQ(Copied(editor), "");
        Find<QPushButton>(editor, "Append_Day")->click();
        EXPECT_NE(Copied(editor), "");
        left = *fs::directory_iterator(Copies());
        fs::copy(left, Place / "left");
        The_User.Answers = {Button::Yes};
    });
    Open_And_Edit(The_Session, file, nullptr);
    fs::rename(Place / "left", left); // as if the program had been killed

    The_User.Messages.clear();
    The_User.Answers = {Button::No};
    In_Modal([&](QWidget&) {});
    Open_And_Edit(The_Session, file, nullptr);
    ASSERT_FALSE(The_User.Messages.empty());
    const auto& text = The_User.Messages.front().Text;
    EXPECT_NE(text.find("Rows[1].Cli_Day"), std::string::npos) << text;
    EXPECT_EQ(text.find("Rows[0]"), std::string::npos) << text;
}

TEST_F(Unsaved_Changes, Are_Also_Those_Of_A_Box_That_Was_Not_Left)
{
    In_Modal([&](QWidget& editor) {
        QApplication::setActiveWindow(&editor);
        auto* title = Find<QLineEdit>(editor, "Text_tit");
        title->setFocus();
        title->selectAll();
        QTest::keyClicks(title, "Half a ti");
        EXPECT_NE(Copied(editor).find("Half a ti"), std::string::npos);
        EXPECT_EQ(The_Session.Scenario.SZE_Title, "DEM 3 H_maize.sze") << "watching changes nothing";
        The_User.Answers = {Button::Yes};
    });
    Open_And_Edit(The_Session, Place / "focus/H_maize.sze", nullptr);
}

TEST_F(Unsaved_Changes, Are_Also_Those_Of_The_Form_Of_A_Substance)
{
    In_Modal([&](QWidget& editor) {
        In_Modal([&](QWidget& form) {
            EXPECT_EQ(Copied(editor), "");
            auto* name = Find<QLineEdit>(form, "Text_comment");
            name->setFocus();
            name->selectAll();
            QTest::keyClicks(name, "Typed for an hour");
            EXPECT_NE(Copied(editor).find("Typed for an hour"), std::string::npos);
            EXPECT_EQ(The_Session.Pesticide.PSM_Title, "Demonstration");
        });
        Find<QAbstractButton>(editor, "Label_AS")->click();
        The_User.Answers = {Button::Yes};
    });
    Open_And_Edit(The_Session, Place / "test.psm", nullptr);
}

TEST_F(Unsaved_Changes, Of_Somebody_Else_Are_Told_Before_They_Are_Replaced)
{
    const fs::path file = Place / "test.psm";
    const std::string others = Read_Whole(file) + "\r\n";
    In_Modal([&](QWidget& editor) {
        Write_Whole(file, others);
        The_User.Answers = {Button::No};
        In_Modal([](QWidget& saving) { Click<QPushButton>(saving, "SaveNow"); });
        Click<QPushButton>(editor, "ComSave");
        EXPECT_EQ(Read_Whole(file), others);
        In_Modal([](QWidget& saving) { Click<QPushButton>(saving, "SaveNow"); });
        The_User.Answers = {Button::Yes};
        Click<QPushButton>(editor, "ComSave");
        In_Modal([](QWidget& saving) { Click<QPushButton>(saving, "SaveNow"); });
        Click<QPushButton>(editor, "ComSave");
    });
    Open_And_Edit(The_Session, file, nullptr);

    ASSERT_EQ(The_User.Messages.size(), 3u);
    for (const int told : {0, 1})
        EXPECT_EQ(The_User.Messages[static_cast<std::size_t>(told)].Text,
                  "test.psm was changed by someone else since it was opened here. Replace it, so that their change is "
                  "lost?");
    EXPECT_EQ(The_User.Messages[2].Text, "File already exists. Replace?"); // what was saved here is no other's
    EXPECT_NE(Read_Whole(file), others);
}

TEST_F(Unsaved_Changes, Of_A_File_That_Somebody_Deleted_Or_Moved_Are_Asked_About_Before_It_Is_Written_Again)
{
    const fs::path file = Place / "test.psm";
    In_Modal([&](QWidget& editor) {
        fs::rename(file, Place / "moved.psm");
        The_User.Answers = {Button::No};
        In_Modal([](QWidget& saving) { Click<QPushButton>(saving, "SaveNow"); });
        Click<QPushButton>(editor, "ComSave");
        EXPECT_FALSE(fs::exists(file));
        The_User.Answers = {Button::Yes};
        In_Modal([](QWidget& saving) { Click<QPushButton>(saving, "SaveNow"); });
        Click<QPushButton>(editor, "ComSave");
        EXPECT_TRUE(fs::exists(file));
    });
    Open_And_Edit(The_Session, file, nullptr);

    ASSERT_EQ(The_User.Messages.size(), 2u);
    for (const auto& message : The_User.Messages) {
        EXPECT_EQ(message.Text,
                  "test.psm was deleted or moved by someone else since it was opened here. Write it again?");
        EXPECT_EQ(message.Default, Button::No);
    }
}

TEST_F(Unsaved_Changes, Of_Notes_Are_Copied_While_Their_Window_Is_Open_And_Offered)
{
    const fs::path file = Place / "test.psm";
    fs::path left;
    In_Modal([&](QWidget& editor) {
        In_Modal([&](QWidget& form) {
            In_Modal([&](QWidget& note) {
                auto* source = Find<QLineEdit>(note, "Note_Source");
                source->setFocus();
                QTest::keyClicks(source, "Report 12");
                EXPECT_NE(Copied(editor), "");
                left = *fs::directory_iterator(Copies());
                EXPECT_NE(Read_Whole(left / "test.notes.json").find("Report 12"), std::string::npos);
                fs::copy(left, Place / "left");
            });
            Find<QAction>(*Find<QLineEdit>(form, "Text_mol"), "Source")->trigger();
        });
        Find<QAbstractButton>(editor, "Label_AS")->click();
        The_User.Answers = {Button::Yes};
    });
    Open_And_Edit(The_Session, file, nullptr);
    ASSERT_FALSE(left.empty());
    fs::rename(Place / "left", left); // as if the program had been killed

    The_User.Messages.clear();
    The_User.Answers = {Button::Yes};
    In_Modal([&](QWidget& editor) {
        In_Modal([](QWidget& saving) { Click<QPushButton>(saving, "SaveNow"); });
        The_User.Answers = {Button::Yes};
        Click<QPushButton>(editor, "ComSave");
    });
    Open_And_Edit(The_Session, file, nullptr);
    ASSERT_FALSE(The_User.Messages.empty());
    EXPECT_NE(The_User.Messages.front().Text.find("Molmass[1], source:  in the file, Report 12 in the copy"),
              std::string::npos)
        << The_User.Messages.front().Text;
    EXPECT_NE(Read_Whole(Place / "test.notes.json").find("Report 12"), std::string::npos);
}

TEST_F(Unsaved_Changes, That_No_Copy_Can_Be_Kept_Of_Are_Told_In_The_Window_Until_One_Can)
{
    fs::create_directories(Copies().parent_path());
    fs::remove_all(Copies());
    Write_Whole(Copies(), "a file");
    In_Modal([&](QWidget& editor) {
        EXPECT_EQ(Copied(editor), "");
        Retype(editor, "Text_tit", "Another title");
        EXPECT_EQ(Copied(editor), "");
        auto* note = Find<QLabel>(editor, "Copy_Note");
        EXPECT_TRUE(note->isVisible());
        EXPECT_TRUE(note->text().startsWith("No copy of unsaved changes can be kept, so save often. "))
            << note->text().toStdString();
        EXPECT_TRUE(note->text().contains("Not a directory")) << note->text().toStdString();

        fs::remove(Copies());
        EXPECT_NE(Copied(editor), "");
        EXPECT_FALSE(note->isVisible());
        EXPECT_TRUE(The_User.Messages.empty()) << "nobody was stopped";
        The_User.Answers = {Button::Yes};
    });
    Open_And_Edit(The_Session, Place / "focus/H_maize.sze", nullptr);
}

TEST_F(Unsaved_Changes, Of_A_Document_That_Is_Gone_Are_Listed_And_Opened_As_A_New_One)
{
    const fs::path file = Place / "test.psm";
    {
        Unsaved_Copy copy(Copies(), Document_Kind::Pesticide, file);
        ASSERT_TRUE(Open_Document(The_Session, file));
        copy.Begin(The_Session);
        The_Session.Pesticide.Molmass[1] = 512;
        Document_Notes notes;
        Set_Note(notes, "Molmass[1]", {.Source = "Report 12"});
        ASSERT_TRUE(copy.Keep(The_Session, notes));
    }
    fs::remove(file);

    Unsaved_List list(The_Session);
    list.show();
    auto* grid = Find<QTableWidget>(list, "Unsaved_Grid");
    ASSERT_EQ(grid->rowCount(), 1);
    EXPECT_EQ(grid->item(0, 0)->text(), "test.psm");
    EXPECT_EQ(grid->item(0, 2)->text(), "deleted or moved");
    auto* open = Find<QPushButton>(list, "Unsaved_Open");
    EXPECT_EQ(open->text(), "&Open as new document");
    In_Modal([&](QWidget& editor) {
        EXPECT_TRUE(The_Session.Program.PSM_Changed);
        EXPECT_EQ(The_Session.Pesticide.Molmass[1].Number(), 512);
        In_Modal([](QWidget& saving) {
            EXPECT_EQ(Find<QLineEdit>(saving, "TextSave")->text(), "test.psm");
            Click<QPushButton>(saving, "SaveNow");
        });
        Click<QPushButton>(editor, "Command1");
    });
    open->click();
    EXPECT_TRUE(The_User.Messages.empty()) << The_User.Messages.front().Text;
    EXPECT_TRUE(fs::exists(file));
    EXPECT_NE(Read_Whole(Place / "test.notes.json").find("Report 12"), std::string::npos);
    EXPECT_EQ(grid->rowCount(), 0);
    EXPECT_FALSE(open->isEnabled());
    EXPECT_TRUE(fs::is_empty(Copies()));
}

TEST_F(Unsaved_Changes, That_Are_Listed_Can_Be_Deleted_After_A_Question)
{
    {
        Unsaved_Copy copy(Copies(), Document_Kind::Scenario, Place / "focus/gone.sze");
        copy.Begin(The_Session);
        The_Session.Scenario.SZE_Title = "Mine";
        ASSERT_TRUE(copy.Keep(The_Session));
    }
    Unsaved_List list(The_Session);
    list.show();
    The_User.Answers = {Button::No};
    Click<QPushButton>(list, "Unsaved_Delete");
    EXPECT_EQ(Find<QTableWidget>(list, "Unsaved_Grid")->rowCount(), 1);
    The_User.Answers = {Button::Yes};
    Click<QPushButton>(list, "Unsaved_Delete");
    EXPECT_EQ(Find<QTableWidget>(list, "Unsaved_Grid")->rowCount(), 0);
    EXPECT_TRUE(fs::is_empty(Copies()));
    EXPECT_TRUE(The_User.Messages.front().Text.starts_with("Delete the unsaved changes of gone.sze of 20"));
}

TEST_F(Unsaved_Changes, That_Cannot_Be_Searched_Are_Told_In_The_Editor)
{
    fs::create_directories(Copies().parent_path());
    fs::remove_all(Copies());
    fs::create_symlink(Copies(), Copies()); // a loop
    bool opened = false;
    In_Modal([&](QWidget& editor) {
        opened = true;
        EXPECT_TRUE(Find<QLabel>(editor, "Copy_Note")->isVisible());
    });
    Open_And_Edit(The_Session, Place / "focus/H_maize.sze", nullptr);
    fs::remove(Copies());

    EXPECT_TRUE(opened);
    EXPECT_TRUE(The_User.Messages.empty()) << "no box stops the work";
}

} // namespace orvel
