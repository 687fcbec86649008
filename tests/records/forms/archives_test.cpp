#include "records/forms/archives.h"

#include "records/archived_run.h"
#include "records/forms/archive_dialog.h"
#include "records/forms/work_in_window.h"
#include "window_test.h"

#include <atomic>
#include <QFileDialog>
#include <QPlainTextEdit>
#include <QProgressDialog>
#include <QPushButton>
#include <QThread>

namespace orvel {

namespace fs = std::filesystem;

class Archives_Test : public Archived_Run_Test {
protected:
    void Open()
    {
        Form = std::make_unique<Archives>(The_Session);
        Form->show();
    }

    // What a hand does in the file dialog that opens next.
    static void In_File_Dialog(const fs::path& file)
    {
        In_Modal([file](QWidget& window) {
            auto& dialog = dynamic_cast<QFileDialog&>(window);
            EXPECT_EQ(dialog.objectName(), "Save_Archive");
            dialog.selectFile(QString::fromStdString(file.string()));
            QMetaObject::invokeMethod(&dialog, "accept");
        });
    }

    void Type(const QString& field, const fs::path& path)
    {
        Retype(*Form, field, QString::fromStdString(path.string()));
    }
    bool Enabled(const QString& name) { return Find<QPushButton>(*Form, name)->isEnabled(); }
    std::string Text() { return Find<QPlainTextEdit>(*Form, "Result")->toPlainText().toStdString(); }

    std::unique_ptr<Archives> Form;
};

TEST_F(Archives_Test, The_Chosen_Simulations_Are_Archived_And_The_User_Is_Told)
{
    fs::copy(Pesticide_Place() / "Maize.run", Pesticide_Place() / "Apples.run", fs::copy_options::recursive);
    Open();
    EXPECT_EQ(Find<QComboBox>(*Form, "Pesticide_List")->currentText(), "gr\u00FCn test");
    EXPECT_EQ(Find<QComboBox>(*Form, "Crop_List")->count(), 3); // all of them, apples, maize
    Pick(*Form, "Crop_List", "Maize");

    In_File_Dialog(Home / "a.zip");
    Click<QPushButton>(*Form, "Do_Archive");

    ASSERT_EQ(The_User.Messages.size(), 1U);
    EXPECT_TRUE(The_User.Messages[0].Text.starts_with("2 simulations with ")) << The_User.Messages[0].Text;
    EXPECT_EQ(The_User.Messages[0].Picture, Icon::Information);
    EXPECT_TRUE(fs::exists(Home / "a.zip"));
}

TEST_F(Archives_Test, What_Is_Not_As_It_Should_Be_Is_Told_As_A_Warning)
{
    Put(Hamburg() / "chem.orv", "another");
    Open();

    In_File_Dialog(Home / "a.zip");
    Click<QPushButton>(*Form, "Do_Archive");

    ASSERT_EQ(The_User.Messages.size(), 1U);
    EXPECT_EQ(The_User.Messages[0].Picture, Icon::Warning);
    EXPECT_NE(The_User.Messages[0].Text.find("chem.orv has changed."), std::string::npos);
}

TEST_F(Archives_Test, An_Archive_Is_Restored_Run_Again_And_Compared)
{
    Archive(Home / "a.zip");
    Open();
    EXPECT_FALSE(Enabled("Do_Restore"));
    EXPECT_FALSE(Enabled("Do_Reproduce"));
    EXPECT_FALSE(Enabled("Do_Compare"));

    Type("Archive_File", Home / "a.zip");
    Type("Target", Home / "new");
    Click<QPushButton>(*Form, "Do_Restore");
    EXPECT_TRUE(Text().starts_with("ok\t" + (Home / "new" / "focus").string())) << Text();
    EXPECT_TRUE(fs::exists(Home / "new" / "orvel401.exe"));

    Click<QPushButton>(*Form, "Do_Reproduce");
    EXPECT_TRUE(Text().starts_with("same\tfocus/gr\u00FCn_-_test.run/Maize.run/Hamburg_-_(H).run")) << Text();

    Type("First", Home / "a.zip");
    Type("Second", Home / "new");
    Click<QPushButton>(*Form, "Do_Compare");
    EXPECT_EQ(Text(), "They are the same.");
    EXPECT_EQ(The_User.Messages.size(), 0U);
}

TEST_F(Archives_Test, The_Tolerance_Counts_And_Differences_Are_Shown)
{
    Pesticide("a.psm", [](auto& document) { document.Koc[1] = 100; });
    Pesticide("b.psm", [](auto& document) { document.Koc[1] = 110; });
    Open();
    Type("First", Home / "a.psm");
    Type("Second", Home / "b.psm");

    Click<QPushButton>(*Form, "Do_Compare");
    EXPECT_EQ(Text(), "field\ta.psm\tKoc[1]\tL/kg\t100\t110\n");
    Retype(*Form, "Tolerance_Field", "0.2");
    Click<QPushButton>(*Form, "Do_Compare");
    EXPECT_EQ(Text(), "They are the same.");
}

TEST_F(Archives_Test, What_Cannot_Be_Done_Is_Told_In_A_Box)
{
    Put(Home / "cut.zip", "PK");
    Open();
    Type("Archive_File", Home / "cut.zip");
    Type("Target", Home / "new");

    Click<QPushButton>(*Form, "Do_Restore");

    ASSERT_EQ(The_User.Messages.size(), 1U);
    EXPECT_EQ(The_User.Messages[0].Title, "Restore");
    EXPECT_NE(The_User.Messages[0].Text.find("is no whole archive"), std::string::npos);
}

TEST_F(Archives_Test, Long_Work_Is_Stopped_By_Its_Button_And_Nothing_Is_Told)
{
    QWidget window;
    QTimer::singleShot(200, [] {
        auto* bar = qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(bar, nullptr);
        Click<QPushButton>(*bar, "");
    });

    const bool done = Do_In_Window(&window, The_Session.Ask, "Working", [](const Progress& progress) {
        while (progress("at work", 0.5))
            QThread::msleep(5);
        throw File_Error("The work was stopped.");
    });

    EXPECT_FALSE(done);
    EXPECT_EQ(The_User.Messages.size(), 0U);
}

TEST_F(Archives_Test, The_Window_Goes_On_While_The_Work_Is_Done)
{
    QWidget window;
    constexpr int Enough = 5;
    std::atomic<int> ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { ++ticks; });
    timer.start(10);

    Do_In_Window(&window, The_Session.Ask, "Working", [&](const Progress&) {
        for (int waited = 0; ticks < Enough && waited < 3000; ++waited)
            QThread::msleep(10);
    });

    EXPECT_GE(ticks, Enough);
}

} // namespace orvel
