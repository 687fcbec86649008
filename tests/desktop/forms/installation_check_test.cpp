#include "desktop/forms/installation_check.h"

#include "core/files.h"
#include "core/version.h"
#include "desktop/forms/form_name.h"
#include "runs/start_up.h"
#include "temporary_directory.h"
#include "window_test.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QTimer>

namespace orvel {

namespace {

class Installation_Check_Test : public Window_Test {};

} // namespace

TEST_F(Installation_Check_Test, Shows_A_Row_A_Finding_And_Whether_A_Run_Would_Be_Spoiled)
{
    Installation_Check good(
        {{"locks", Health::Good, "They work.", ""}, {"engine", Health::Warning, "Old.", "Try it."}});
    Installation_Check bad({{"locks", Health::Fault, "They do not work.", "Use a disk."}});

    const auto* table = Find<QTableWidget>(good, "Findings");
    ASSERT_EQ(table->rowCount(), 2);
    EXPECT_EQ(table->item(1, 0)->text(), "warning");
    EXPECT_EQ(table->item(1, 1)->text(), "engine");
    EXPECT_EQ(table->item(1, 2)->text(), "Old.");
    EXPECT_EQ(table->item(1, 3)->text(), "Try it.");
    EXPECT_EQ(Find<QLabel>(good, "Verdict")->text(), "Nothing was found that would spoil a run.");
    EXPECT_EQ(Find<QLabel>(bad, "Verdict")->text(), "A fault was found that would spoil a run.");
}

TEST_F(Installation_Check_Test, About_Tells_The_Version_Of_The_Program_And_That_Of_The_Scenario_Data_Apart)
{
    const Temporary_Directory place;
    std::filesystem::create_directory(place / "focus");
    Write_Whole(place / "focus/c_apples.sze", "***3 scenario\r\n");
    The_Session.Program.App_Path = place.Path();
    Find_Engine(The_Session.Program);
    const Form_name about(The_Session);

    QStringList texts;
    for (const auto* label : about.findChildren<QLabel*>())
        texts.append(label->text());
    EXPECT_TRUE(texts.contains("ORVELSUITE " + QString::fromLatin1(Program_Version.data())));
    EXPECT_TRUE(texts.contains("version 3"));
}

TEST_F(Installation_Check_Test, Is_Reached_By_A_Button_Of_About_And_Finds_That_There_Is_No_Engine)
{
    const Temporary_Directory place;
    The_Session.Program.App_Path = place.Path();
    Find_Engine(The_Session.Program);
    Form_name about(The_Session);
    about.show();
    QStringList found;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, [&] {
        auto* window = dynamic_cast<Installation_Check*>(QApplication::activeModalWidget());
        if (window == nullptr)
            return;
        look.stop();
        const auto* table = Find<QTableWidget>(*window, "Findings");
        for (int row = 0; row < table->rowCount(); ++row) {
            if (table->item(row, 0)->text() == "fault")
                found.append(table->item(row, 2)->text());
        }
        QTest::mouseClick(Find<QPushButton>(*window, "Done"), Qt::LeftButton);
    });
    look.start(10);

    QTest::mouseClick(Find<QPushButton>(about, "Check_Installation"), Qt::LeftButton);

    EXPECT_TRUE(
        found.contains("There is no engine (orvel*.exe) in " + QString::fromStdString(place.Path().string()) + "."))
        << found.join("\n").toStdString();
}

} // namespace orvel
