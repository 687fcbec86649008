#include "scenario/forms/szenario.h"

#include "temporary_directory.h"
#include "window_test.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>

namespace orvel {

namespace {

class Szenario_Test : public Window_Test {
protected:
    Szenario_Test()
    {
        Reset_SZE(The_Session.Scenario);
        auto& document = The_Session.Scenario;
        document.SZE_Title = " Demo soil";
        document.SZE_Core_Depth = 100;
        document.SZE_Layers = 40;
        document.SZE_Delxflg = 1;
        document.SZE_Horizons = 3;
        document.Horizons.resize(3);
        for (int h = 0; h < 3; ++h)
            document.Horizons[static_cast<std::size_t>(h)].SZE_Hor_Thickness = h == 2 ? 40 : 30;
        document.SZE_Out_Every_Water = document.SZE_Out_Every_Solute = document.SZE_Out_Every_Conc = 1;
        document.SZE_Erosion = document.SZE_Runoff = document.SZE_Macropore = document.SZE_ET_Method = 0;
        document.SZE_Water_Flag = 0;
        The_Session.Program.PSM_File = "mine.sze";
        The_Session.Program.SZE_Changed = false;
    }

    void Open()
    {
        Form = std::make_unique<Szenario>(The_Session, Place.Path());
        Form->show();
        QApplication::processEvents();
    }

    template <class T> T* Control(const QString& name) { return Find<T>(*Form, name); }

    // Types into a box and leaves it.
    void Retype(const QString& name, const QString& text)
    {
        auto* box = Control<QLineEdit>(name);
        box->setFocus();
        box->selectAll();
        QTest::keyClicks(box, text);
        QTest::keyClick(box, Qt::Key_Tab);
    }

    // A click on the square of a check box, whose row is wider than its text.
    void Tick(const QString& name)
    {
        auto* box = Control<QCheckBox>(name);
        QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(box->height() / 2, box->height() / 2));
    }

    std::string Told_Once()
    {
        return The_User.Messages.size() == 1 ? The_User.Messages[0].Title + ": " + The_User.Messages[0].Text
                                             : std::to_string(The_User.Messages.size()) + " messages";
    }

    Temporary_Directory Place;
    std::unique_ptr<Szenario> Form;
};

} // namespace

TEST_F(Szenario_Test, Shows_The_Document)
{
    Open();

    EXPECT_EQ(Form->windowTitle(), "Scenariofile");
    EXPECT_EQ(Control<QLineEdit>("Text_tit")->text(), "Demo soil");
    EXPECT_EQ(Control<QLineEdit>("Text_cor")->text().trimmed(), "100");
    EXPECT_EQ(Control<QLabel>("Label2")->text(), "2.50");
    EXPECT_EQ(Control<QComboBox>("Combo_et")->itemText(3), "Haude equation");
    EXPECT_FALSE(The_Session.Program.SZE_Changed);
}

TEST_F(Szenario_Test, Leaving_The_Number_Of_Layers_Shows_Their_Thickness)
{
    Open();

    Retype("Text_num", "50");

    EXPECT_EQ(The_Session.Scenario.SZE_Layers, 50);
    EXPECT_EQ(Control<QLabel>("Label2")->text(), "2.00");
    EXPECT_TRUE(The_Session.Program.SZE_Changed);
}

TEST_F(Szenario_Test, A_Core_Depth_Of_Zero_Is_Refused_And_The_Focus_Goes_Back)
{
    Open();

    Retype("Text_cor", "0");

    EXPECT_EQ(Told_Once(), "Data Check: Value must be greater than 0");
    EXPECT_EQ(Form->focusWidget(), Control<QLineEdit>("Text_cor"));
}

TEST_F(Szenario_Test, A_Number_Too_Large_To_Be_Held_Is_Refused)
{
    Open();

    Retype("Text_geo", "1e308");

    EXPECT_EQ(Told_Once(), "Data check: \"1e308\" is too large a number.");
    EXPECT_EQ(Form->focusWidget(), Control<QLineEdit>("Text_geo"));
}

TEST_F(Szenario_Test, More_Horizons_Than_Layers_Send_The_Focus_To_The_Layers)
{
    Open();

    Retype("Text_nhor", "41");

    EXPECT_EQ(Told_Once().substr(0, 46), "Data Check: Number of layers must be at least ");
    EXPECT_EQ(Form->focusWidget(), Control<QLineEdit>("Text_num"));
}

TEST_F(Szenario_Test, Four_Hundred_And_One_Layers_Are_Refused)
{
    Open();

    Retype("Text_num", "401");

    EXPECT_EQ(Told_Once(), "Data Check: Value must be smaller than 401");
}

TEST_F(Szenario_Test, A_Frequency_Of_Zero_Is_Refused_By_A_Text_That_Names_Zero)
{
    Open();

    Retype("Text2_freq", "0");

    EXPECT_EQ(Told_Once().substr(0, 39), "Data Check: Value must be between 0 and");
    EXPECT_EQ(Form->focusWidget(), Control<QLineEdit>("Text2_freq"));
}

TEST_F(Szenario_Test, Compartments_By_Depth_Hide_The_Layers)
{
    Open();

    Click<QRadioButton>(*Form, "Button_Delxflg_0");

    EXPECT_EQ(The_Session.Scenario.SZE_Delxflg, 0);
    EXPECT_FALSE(Control<QLineEdit>("Text_num")->isVisible());
    EXPECT_FALSE(Control<QLabel>("Label2")->isVisible());
}

TEST_F(Szenario_Test, Haude_Hides_The_Kc_Factors_And_The_Minimum_Depth)
{
    The_Session.Scenario.SZE_ET_Method = 3;

    Open();

    EXPECT_EQ(Control<QComboBox>("Combo_et")->currentIndex(), 3);
    EXPECT_FALSE(Control<QLineEdit>("Text_et_fac_0")->isVisible());
    EXPECT_FALSE(Control<QLineEdit>("Text_et_depth")->isVisible());
}

TEST_F(Szenario_Test, Water_Flag_Three_Shows_Restricted_Drainage_And_Macropores_Which_Cleared_Leave_One)
{
    The_Session.Scenario.SZE_Water_Flag = 3;
    The_Session.Scenario.SZE_Macropore = 1;
    Open();
    EXPECT_TRUE(Control<QRadioButton>("Wasserfluss_1")->isChecked());
    EXPECT_TRUE(Control<QPushButton>("Command_macro")->isVisible());

    Tick("schnelle_Prozesse_1");

    EXPECT_EQ(The_Session.Scenario.SZE_Water_Flag.Number(), 1);
    EXPECT_FALSE(Control<QPushButton>("Command_macro")->isVisible());
    EXPECT_FALSE(Control<QLineEdit>("schnelle_Prozesse_Tiefe_1")->isVisible());
}

TEST_F(Szenario_Test, Erosion_Forces_Runoff_On_And_Cleared_Leaves_It_On)
{
    Open();

    Tick("Check_er");
    EXPECT_EQ(Control<QCheckBox>("schnelle_Prozesse_0")->checkState(), Qt::PartiallyChecked);
    EXPECT_TRUE(Control<QPushButton>("Command_er")->isVisible());
    Tick("Check_er");

    EXPECT_EQ(Control<QCheckBox>("schnelle_Prozesse_0")->checkState(), Qt::Checked);
    EXPECT_FALSE(Control<QPushButton>("Command_er")->isVisible());
    EXPECT_EQ(The_Session.Scenario.SZE_Runoff, 1);
}

TEST_F(Szenario_Test, A_Click_On_A_Frequency_Switches_It_Round)
{
    The_Session.Scenario.SZE_Freq_Water = std::string("MNTH");
    Open();

    Click<QPushButton>(*Form, "Label_wat");
    EXPECT_EQ(Control<QPushButton>("Label_wat")->text(), "Yearly");
    Click<QPushButton>(*Form, "Label_wat");

    EXPECT_EQ(Control<QPushButton>("Label_wat")->text(), "Daily");
    EXPECT_EQ(The_Session.Scenario.SZE_Freq_Water.Text(), " DAY");
}

TEST_F(Szenario_Test, The_Uptake_Factor_Only_Marks_The_Document_Changed)
{
    Open();
    const auto before = The_Session.Scenario;

    QTest::keyClicks(Control<QLineEdit>("Text_peup"), "1");

    EXPECT_TRUE(The_Session.Program.SZE_Changed);
    EXPECT_EQ(The_Session.Scenario, before);
}

TEST_F(Szenario_Test, Horizons_That_Do_Not_Reach_The_Core_Depth_Are_Not_Saved)
{
    The_Session.Scenario.Horizons[2].SZE_Hor_Thickness = 39.99;
    Open();

    Click<QPushButton>(*Form, "Command1");

    EXPECT_EQ(Told_Once(), "Data Check: Core depth and horizon thickness are not consistent");
    EXPECT_TRUE(Form->isVisible());
}

TEST_F(Szenario_Test, Saves_Through_The_Dialog_And_Closes)
{
    Open();
    QString caption;
    In_Modal([&caption](QWidget& dialog) {
        caption = dialog.windowTitle();
        EXPECT_EQ(Find<QLineEdit>(dialog, "TextSave")->text(), "mine.sze");
        Click<QPushButton>(dialog, "SaveNow");
    });

    Click<QPushButton>(*Form, "Command1");

    EXPECT_EQ(caption, "Save ORVEL 3.20 Input File");
    EXPECT_TRUE(std::filesystem::exists(Place / "mine.sze"));
    EXPECT_FALSE(Form->isVisible());
}

TEST_F(Szenario_Test, Done_After_A_Change_Asks_And_Stays_Open_On_No)
{
    Open();
    Click<QRadioButton>(*Form, "Option2_th");

    Click<QPushButton>(*Form, "Command2");

    EXPECT_EQ(Told_Once(), "Saving Input File: Parameters were changed. Do you want to exit without saving ?");
    EXPECT_TRUE(Form->isVisible());
}

TEST_F(Szenario_Test, Done_Without_A_Change_Closes_At_Once)
{
    Open();

    Click<QPushButton>(*Form, "Command2");

    EXPECT_FALSE(Form->isVisible());
    EXPECT_TRUE(The_User.Messages.empty());
}

TEST_F(Szenario_Test, The_Undo_Button_Takes_Back_What_Is_Being_Typed_And_Not_An_Older_Change_With_It)
{
    Open();
    QApplication::setActiveWindow(Form.get());
    Retype("Text_tit", "Another title");
    QTest::qWait(5);
    auto* depth = Control<QLineEdit>("Text_et_depth");
    const QString before = depth->text();
    depth->setFocus();
    depth->selectAll();
    QTest::keyClicks(depth, "35");

    Click<QToolButton>(*Form, "Undo");
    EXPECT_EQ(Control<QLineEdit>("Text_tit")->text(), "Another title");
    EXPECT_EQ(depth->text(), before);
    Click<QToolButton>(*Form, "Undo");
    EXPECT_NE(Control<QLineEdit>("Text_tit")->text(), "Another title");

    depth->setFocus();
    depth->selectAll();
    QTest::keyClicks(depth, "36");
    Click<QToolButton>(*Form, "Redo");
    EXPECT_EQ(depth->text(), "36") << "a redo does not type over it";
}

} // namespace orvel
