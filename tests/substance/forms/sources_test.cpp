// Notes on the fields of the pesticide editor, and its guidance check, as a user works with them.
#include "core/files.h"
#include "files/document_notes.h"
#include "small_installation.h"
#include "substance/forms/form_psm_1.h"
#include "substance/pesticide_editor.h"
#include "window_test.h"

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTableWidget>

namespace orvel {

namespace {

class Sources_Test : public Window_Test {
protected:
    Sources_Test()
    {
        Place.Put_Pesticide("demo.psm", {"H"});
        The_Session.Program.App_Path = Place.Path();
        The_Session.Program.PSM_File = "demo.psm";
        Read_PSM(The_Session, Place / "demo.psm");
        The_Session.Pesticide.Molmass[1] = 300;
    }

    void Open()
    {
        Form = std::make_unique<Form_PSM_1>(The_Session, Place.Path());
        Form->show();
    }

    // The form of the active substance; closed afterwards.
    void In_Substance(const std::function<void(QWidget&)>& use)
    {
        In_Modal(use);
        Click<QAbstractButton>(*Form, "Label_AS");
    }

    // The window of a field's note, opened by its key.
    static void In_Note(QWidget& form, const QString& field, const std::function<void(QWidget&)>& use)
    {
        auto* box = Find<QLineEdit>(form, field);
        box->setFocus();
        QApplication::processEvents();
        In_Modal(use);
        QTest::keyClick(box, Qt::Key_F2, Qt::ShiftModifier);
    }

    static bool Is_Marked(const QWidget& form, const QString& field)
    {
        return Find<QAction>(*Find<QLineEdit>(form, field), "Note_Mark")->isVisible();
    }

    template <class T> static T* Find(const QWidget& window, const QString& name)
    {
        T* found = window.findChild<T*>(name);
        if (!found)
            throw std::runtime_error("no control " + name.toStdString());
        return found;
    }

    void Save(const QString& name)
    {
        The_User.Answers = {Button::Yes};
        In_Modal([name](QWidget& dialog) {
            Retype(dialog, "TextSave", name);
            Click<QPushButton>(dialog, "SaveNow");
        });
        Click<QPushButton>(*Form, "ComSave");
        The_User.Answers.clear();
    }

    Small_Installation Place;
    std::unique_ptr<Form_PSM_1> Form;
};

} // namespace

TEST_F(Sources_Test, A_Note_Is_Entered_By_The_Keyboard_Marked_At_Its_Field_And_Saved_Beside_The_Document)
{
    Open();
    const std::string before = Read_Whole(Place / "demo.psm");
    In_Substance([&](QWidget& form) {
        EXPECT_FALSE(Is_Marked(form, "Text_koc0"));
        In_Note(form, "Text_koc0", [&](QWidget& window) {
            EXPECT_EQ(Find<QLabel>(window, "Note_Field")->text(), "Koc[1] = 0 L/kg");
            QTest::keyClicks(Find<QLineEdit>(window, "Note_Source"), "study 12");
            QTest::keyClicks(Find<QLineEdit>(window, "Note_Checked_By"), "M");
            Click<QPushButton>(window, "Note_Today");
            Click<QPushButton>(window, "Note_Done");
        });
        EXPECT_TRUE(Is_Marked(form, "Text_koc0"));
        EXPECT_FALSE(Is_Marked(form, "Text_koc1"));
        EXPECT_TRUE(Find<QAction>(*Find<QLineEdit>(form, "Text_koc0"), "Note_Mark")
                        ->toolTip()
                        .startsWith("Source: study 12\nChecked by: M\nDate: 2"));
    });
    EXPECT_FALSE(std::filesystem::exists(Place / "demo.notes.json"));

    Save("demo.psm");
    EXPECT_EQ(Note_Of(Read_Notes(Place / "demo.psm"), "Koc[1]")->Source, "study 12");
    Save("copy.psm");
    EXPECT_EQ(Note_Of(Read_Notes(Place / "copy.psm"), "Koc[1]")->Source, "study 12");

    Open(); // again
    In_Substance([&](QWidget& form) { EXPECT_TRUE(Is_Marked(form, "Text_koc0")); });
}

TEST_F(Sources_Test, The_Context_Menu_Of_A_Field_Offers_The_Source_Beside_Its_Own_Entries)
{
    Open();
    In_Substance([&](QWidget& form) {
        auto* box = Find<QLineEdit>(form, "Text_koc0");
        emit box->customContextMenuRequested({1, 1});
        const auto* menu = box->findChild<QMenu*>();
        ASSERT_NE(menu, nullptr);
        EXPECT_GT(menu->actions().size(), 5); // cut, copy, paste ...
        EXPECT_EQ(menu->actions().last()->text(), "&Source ...");
        EXPECT_EQ(menu->actions().last()->shortcut(), QKeySequence(Qt::SHIFT | Qt::Key_F2));
        QApplication::activePopupWidget()->close();
    });
}

TEST_F(Sources_Test, Leaving_With_A_New_Note_Asks_As_For_A_Changed_Value)
{
    Open();
    In_Substance([&](QWidget& form) {
        In_Note(form, "Text_koc0", [&](QWidget& window) {
            QTest::keyClicks(Find<QLineEdit>(window, "Note_Source"), "study 12");
            Click<QPushButton>(window, "Note_Done");
        });
    });
    The_User.Messages.clear();
    The_User.Answers = {Button::No};

    Click<QPushButton>(*Form, "Com_Exit1");

    ASSERT_EQ(The_User.Messages.size(), 1U);
    EXPECT_EQ(The_User.Messages[0].Text, "Parameters were changed. Do you want to exit without saving ?");
    EXPECT_TRUE(Form->isVisible());
}

TEST_F(Sources_Test, Notes_That_Cannot_Be_Read_Are_Told_And_Left_Alone)
{
    Write_Whole(Place / "demo.notes.json", "{\n]");
    Open();
    ASSERT_EQ(The_User.Messages.size(), 1U);
    EXPECT_EQ(The_User.Messages[0].Text,
              (Place / "demo.notes.json").string() + ", line 2, column 1: This is not JSON.");

    Save("demo.psm");

    EXPECT_EQ(Read_Whole(Place / "demo.notes.json"), "{\n]");
}

TEST_F(Sources_Test, A_Note_That_Cannot_Be_Saved_Is_Told_And_Stays)
{
    Write_Whole(Place / "demo.notes.json", "{\n]");
    Open();
    In_Substance([&](QWidget& form) {
        In_Note(form, "Text_koc0", [&](QWidget& window) {
            QTest::keyClicks(Find<QLineEdit>(window, "Note_Source"), "study 12");
            Click<QPushButton>(window, "Note_Done");
        });
    });
    The_User.Messages.clear();

    Save("demo.psm");
    EXPECT_EQ(Read_Whole(Place / "demo.notes.json"), "{\n]");
    ASSERT_FALSE(The_User.Messages.empty());
    EXPECT_NE(The_User.Messages.back().Text.find("demo.notes.json"), std::string::npos);
    std::filesystem::remove(Place / "demo.notes.json");
    std::filesystem::create_directory(Place / "demo.notes.json");
    Save("demo.psm");
    EXPECT_EQ(The_User.Messages.back().Text, "The document is saved, but not its notes. Cannot read " +
                                                 (Place / "demo.notes.json").string() + ": Is a directory.");
    std::filesystem::remove(Place / "demo.notes.json");

    Write_Whole(Place / "demo.notes.json",
                R"({"schema": "orvel-notes 1", "fields": {"Molmass[1]": {"source": "theirs"}}})");
    Save("demo.psm");
    const auto notes = Read_Notes(Place / "demo.psm");
    ASSERT_EQ(notes.Fields.size(), 2U) << "what was mended meanwhile, and the new one";
    EXPECT_EQ(Note_Of(notes, "Molmass[1]")->Source, "theirs");
    EXPECT_EQ(Note_Of(notes, "Koc[1]")->Source, "study 12");
}

TEST_F(Sources_Test, A_Finding_Of_The_Guidance_Is_Answered_And_The_Answer_Saved)
{
    Write_Whole(Place / "guidance.json",
                R"({"schema": "orvel-guidance 1", "rules": [{"id": "OWN", "severity": "warning", "text": "Too light.",
                    "source": "book", "compare": "Molmass[*]", "least": 400}]})");
    Open();
    In_Modal([&](QWidget& window) {
        auto* grid = Find<QTableWidget>(window, "Guidance_Grid");
        ASSERT_EQ(grid->rowCount(), 1);
        EXPECT_EQ(grid->item(0, 2)->text(), "Molmass[1] = 300");
        EXPECT_EQ(grid->item(0, 4)->text(), "Too light.");
        EXPECT_EQ(grid->item(0, 5)->text(), "book (source not confirmed)");
        EXPECT_EQ(grid->item(0, 3)->text(), "open");
        EXPECT_EQ(Find<QLabel>(window, "Guidance_Text")->text(), "Too light.\nSource: book (source not confirmed)");
        QTest::keyClicks(Find<QLineEdit>(window, "Guidance_Answer"), "it is light");
        QTest::keyClicks(Find<QLineEdit>(window, "Guidance_By"), "M");
        Click<QPushButton>(window, "Guidance_Keep");
        EXPECT_TRUE(grid->item(0, 3)->text().startsWith("it is light (M, 2")) << grid->item(0, 3)->text().toStdString();
        EXPECT_EQ(Find<QLabel>(window, "Guidance_Summary")->text(),
                  "1 finding, 0 of severity warning or above without an answer.");
        Click<QPushButton>(window, "Guidance_Done");
    });
    Click<QPushButton>(*Form, "Guidance");

    Save("demo.psm");
    const auto notes = Read_Notes(Place / "demo.psm");
    ASSERT_NE(Answer_Of(notes, "OWN", "Molmass[1]"), nullptr);
    EXPECT_EQ(Answer_Of(notes, "OWN", "Molmass[1]")->Value, "300");
}

TEST_F(Sources_Test, Rules_That_Cannot_Be_Read_Are_Told_And_No_Window_Opens)
{
    Write_Whole(Place / "guidance.json", "[]");
    Open();

    Click<QPushButton>(*Form, "Guidance");

    ASSERT_EQ(The_User.Messages.size(), 1U);
    EXPECT_EQ(The_User.Messages[0].Text,
              (Place / "guidance.json").string() + ", line 1, column 1: It is not an object.");
}

} // namespace orvel
