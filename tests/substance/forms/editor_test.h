#pragma once

#include "documents/forms/form_psm_open.h"
#include "orvelctl_program.h"
#include "temporary_directory.h"
#include "window_test.h"

namespace orvel {

inline void Press(const QWidget& form, const QString& name)
{
    Click<QAbstractButton>(form, name);
}

inline void Save(const QWidget& scheme, const QString& button, const QString& name)
{
    In_Modal([name](QWidget& dialog) {
        Retype(dialog, "TextSave", name);
        Press(dialog, "SaveNow");
    });
    Press(scheme, button);
}

// The pesticide editor in an installation with the demonstration files, opened by the open dialog as a hand does.
class Editor_Test : public testing::Test {
protected:
    static void SetUpTestSuite()
    {
        Place = std::make_unique<Temporary_Directory>();
        ASSERT_EQ(Orvelctl("init " + Installation().string()), 0);
    }
    static void TearDownTestSuite() { Place.reset(); }

    static std::filesystem::path Installation() { return Place->Path() / "installation"; }

    // Opens a file by the open dialog, or a new document, and uses the editor.
    static void In_Editor(const QString& file, const std::function<void(QWidget&)>& use)
    {
        auto session = std::make_unique<Session>();
        Recording_User user;
        session->Ask = [&user](const Message& message) { return user(message); };
        session->Program.App_Path = Installation();
        Form_PSM_Open dialog(*session, "*.psm", Installation());
        dialog.show();
        In_Modal(use);
        if (file.isEmpty()) {
            Press(dialog, "New_file");
        } else {
            Choose(dialog, "File1", file);
            Press(dialog, "Comm_2");
        }
        EXPECT_TRUE(user.Messages.empty()) << user.Messages.front().Text;
    }

    // The detail form behind a control of the scheme.
    static void In_Form(const QWidget& scheme, const QString& control, const std::function<void(QWidget&)>& use)
    {
        bool opened = false;
        In_Modal([&](QWidget& form) {
            opened = true;
            use(form);
        });
        Press(scheme, control);
        EXPECT_TRUE(opened) << control.toStdString();
    }

private:
    static inline std::unique_ptr<Temporary_Directory> Place;
};

} // namespace orvel
