#include "core/files.h"
#include "scenario/forms/form_difcrop.h"
#include "scenario/forms/form_rot.h"
#include "scenario/forms/szenario.h"
#include "temporary_directory.h"
#include "ui/forms/widgets.h"
#include "window_test.h"

#include <QComboBox>
#include <QPushButton>
#include <QRadioButton>

namespace orvel {

namespace {

// A summer crop without tillage, one with it, and a winter crop without.
constexpr std::string_view Three_Crops = "3  crops\r\n"
                                         "name          root storage ...\r\n"
                                         "Maize            80  0.15   90  3  1.80   5  5  1  30  7  1  20  9  1   1  9 "
                                         " 1  30  4  1  0.2 0.3 0.4 0.5  0 0 0  1.20 0.60\r\n"
                                         "Potatoes         60  0.15   80  1  0.80  10  5  1  20  7  1  15  9  1  31  8 "
                                         " 1   5  5  1  0.2 0.2 0.2 0.2  0 0 1  1.15 0.75\r\n"
                                         "Winter cereals  100  0.15   90  3  1.40   1 11  1   1  6  2  10  8  2  15  7 "
                                         " 2  27 10  1  0.2 0.2 0.2 0.2  0 0 0  1.15 0.35\r\n";

class Crop_Forms_Test : public Window_Test {
protected:
    Crop_Forms_Test()
    {
        Reset_SZE(The_Session.Scenario);
        The_Session.Program.SZE_Changed = false;
        Write_Whole(Place / "input.dat", Three_Crops);
        The_Session.Program.App_Path = Place.Path();
    }

    void Open()
    {
        Form = std::make_unique<Form_rot>(The_Session, Place.Path());
        Form->show();
        QApplication::setActiveWindow(Form.get());
        QApplication::processEvents();
    }

    void Append(const QString& crop)
    {
        Choose(*Form, "List_dat", crop);
        Click<QPushButton>(*Form, "Command3");
    }

    QStringList Rotation() const
    {
        const auto* list = Find<QListWidget>(*Form, "List_rot");
        QStringList names;
        for (int row = 0; row < list->count(); ++row)
            names += list->item(row)->text();
        return names;
    }

    void Select(int row)
    {
        auto* list = Find<QListWidget>(*Form, "List_rot");
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(row)).center());
    }

    // "day MONTH year" as its three controls show it.
    QString Date(const QString& stage) const
    {
        return Find<QComboBox>(*Form, "Combo1_" + stage)->currentText() + " " +
               Find<QComboBox>(*Form, "Combo2_" + stage)->currentText() + " " +
               Find<QLineEdit>(*Form, "Text_" + stage)->text();
    }

    void Type_Day(const QString& stage, const QString& day)
    {
        auto* box = Find<QComboBox>(*Form, "Combo1_" + stage);
        box->setFocus();
        box->lineEdit()->selectAll();
        QTest::keyClicks(box, day);
        QTest::keyClick(box, Qt::Key_Tab);
    }

    Temporary_Directory Place;
    std::unique_ptr<Form_rot> Form;
};

TEST_F(Crop_Forms_Test, The_Crops_Of_The_Data_Base_Are_Listed_And_An_Empty_Rotation_Has_No_Dates)
{
    Open();

    EXPECT_EQ(Form->windowTitle(), "Crop Rotation Information");
    EXPECT_EQ(Find<QListWidget>(*Form, "List_dat")->count(), 3);
    EXPECT_EQ(Rotation(), QStringList());
    EXPECT_EQ(Date("eme"), "  ");
    EXPECT_FALSE(Find<QComboBox>(*Form, "Combo1_eme")->isEnabled());
}

TEST_F(Crop_Forms_Test, A_Crop_Is_Appended_With_Its_Dates_And_A_Crop_Without_Tillage_Has_None)
{
    Open();

    Append("Maize");

    EXPECT_EQ(Rotation(), QStringList({"Maize"}));
    EXPECT_EQ(Date("eme"), "5 MAY 1");
    EXPECT_EQ(Date("mat"), "30 JUL 1");
    EXPECT_EQ(Date("har"), "20 SEP 1");
    EXPECT_EQ(Date("sen"), "1 SEP 1");
    EXPECT_EQ(Date("til"), "  ");
    EXPECT_FALSE(Find<QLineEdit>(*Form, "Text_til")->isEnabled());
}

TEST_F(Crop_Forms_Test, A_Crop_Appended_Behind_Another_Moves_To_The_Next_Free_Year)
{
    Open();
    Append("Maize");

    Append("Potatoes");

    EXPECT_EQ(Date("til"), "5 MAY 2");
    EXPECT_EQ(Date("eme"), "10 MAY 2");
    EXPECT_EQ(Date("har"), "15 SEP 2");
}

TEST_F(Crop_Forms_Test, A_Crop_Is_Inserted_Before_The_Selected_Row_Which_Moves_On)
{
    Open();
    Append("Maize");
    Choose(*Form, "List_dat", "Potatoes");

    Click<QPushButton>(*Form, "Command1");

    EXPECT_EQ(Rotation(), QStringList({"Potatoes", "Maize"}));
    EXPECT_EQ(Find<QListWidget>(*Form, "List_rot")->currentRow(), 0);
    EXPECT_EQ(Date("eme"), "10 MAY 1");
    Select(1);
    EXPECT_EQ(Date("eme"), "5 MAY 2");
}

TEST_F(Crop_Forms_Test, Insert_Into_An_Empty_Rotation_Appends)
{
    Open();
    Choose(*Form, "List_dat", "Potatoes");

    Click<QPushButton>(*Form, "Command1");

    EXPECT_EQ(Rotation(), QStringList({"Potatoes"}));
}

TEST_F(Crop_Forms_Test, Leaving_A_Date_Moves_The_Years_Behind_It)
{
    Open();
    Append("Maize");
    Append("Maize");
    Select(0);
    auto* month = Find<QComboBox>(*Form, "Combo2_eme");
    month->setFocus();

    QTest::keyClick(month, Qt::Key_End); // DEC
    EXPECT_EQ(Date("mat"), "30 JUL 1");
    QTest::keyClick(month, Qt::Key_Tab);

    EXPECT_EQ(Date("eme"), "5 DEC 1");
    EXPECT_EQ(Date("mat"), "30 JUL 2");
    EXPECT_EQ(Date("har"), "20 SEP 2");
    Select(1);
    EXPECT_EQ(Date("eme"), "5 MAY 3");
}

TEST_F(Crop_Forms_Test, A_Day_And_A_Year_Are_Typed)
{
    Open();
    Append("Maize");

    Type_Day("eme", "17");
    Retype(*Form, "Text_eme", "4");

    EXPECT_EQ(Date("eme"), "17 MAY 4");
    EXPECT_EQ(Date("har"), "20 SEP 4");
}

TEST_F(Crop_Forms_Test, Removing_A_Row_Closes_The_Gap_And_The_Last_One_Empties_The_Form)
{
    Open();
    for (int i = 0; i < 3; ++i)
        Append("Potatoes");
    Select(1);

    Click<QPushButton>(*Form, "Command2");
    EXPECT_EQ(Find<QListWidget>(*Form, "List_rot")->currentRow(), 1);
    EXPECT_EQ(Date("eme"), "10 MAY 2");
    Click<QPushButton>(*Form, "Command2");
    Click<QPushButton>(*Form, "Command2");

    EXPECT_EQ(Rotation(), QStringList());
    EXPECT_EQ(Date("eme"), "  ");
    EXPECT_FALSE(Find<QPushButton>(*Form, "Command2")->isEnabled());
}

TEST_F(Crop_Forms_Test, OK_Takes_The_Rotation_And_The_Whole_Crop_Table_Into_The_Scenario)
{
    Open();
    Append("Winter cereals");

    Click<QPushButton>(*Form, "Command5");

    EXPECT_FALSE(Form->isVisible());
    EXPECT_TRUE(The_Session.Program.SZE_Changed);
    ASSERT_EQ(The_Session.Scenario.SZE_Rot_Count, 1);
    EXPECT_EQ(The_Session.Scenario.SZE_Crop_Count, 3);
    EXPECT_EQ(The_Session.Scenario.Rotation[0].SZE_Rot_Crop_Index, 3);
    EXPECT_EQ(The_Session.Scenario.Rotation[0].SZE_Har_Year, 2);
}

TEST_F(Crop_Forms_Test, Return_Leaves_The_Date_Under_Edit_And_The_Form_Stays)
{
    Open();
    Append("Maize");
    auto* year = Find<QLineEdit>(*Form, "Text_eme");
    year->setFocus();
    year->selectAll();
    QTest::keyClicks(year, "6");

    QTest::keyClick(year, Qt::Key_Return);

    EXPECT_TRUE(Form->isVisible());
    EXPECT_FALSE(year->hasFocus());
    EXPECT_EQ(Find<QLineEdit>(*Form, "Text_har")->text(), "6");
    Click<QPushButton>(*Form, "Command5");
    ASSERT_EQ(The_Session.Scenario.SZE_Rot_Count, 1);
    EXPECT_EQ(The_Session.Scenario.Rotation[0].SZE_Har_Year, 6);
}

TEST_F(Crop_Forms_Test, Cancel_Takes_Nothing)
{
    const auto before = The_Session.Scenario;
    Open();
    Append("Maize");

    Click<QPushButton>(*Form, "Command4");

    EXPECT_EQ(The_Session.Scenario, before);
    EXPECT_FALSE(The_Session.Program.SZE_Changed);
}

TEST_F(Crop_Forms_Test, A_Year_Beyond_99_Is_Refused_And_Nothing_Is_Lost)
{
    Open();
    Append("Maize");
    Retype(*Form, "Text_eme", "100");

    Click<QPushButton>(*Form, "Command5");

    ASSERT_EQ(The_User.Messages.size(), 1U);
    EXPECT_EQ(The_User.Messages[0].Title, "Data Check");
    EXPECT_TRUE(Form->isVisible());
    EXPECT_EQ(Rotation(), QStringList({"Maize"}));
}

TEST_F(Crop_Forms_Test, A_Missing_Data_Base_Is_Told_And_The_Form_Opens_Empty)
{
    std::filesystem::remove(Place / "input.dat");

    Open();

    EXPECT_EQ(The_User.Messages, std::vector{(Message{"File check", "Cannot open INPUT.DAT"})});
    EXPECT_EQ(Find<QListWidget>(*Form, "List_dat")->count(), 0);
}

TEST_F(Crop_Forms_Test, The_Scenario_Editor_Opens_The_Rotation_With_Its_First_Row_Selected)
{
    Open();
    Append("Maize");
    Append("Potatoes");
    Click<QPushButton>(*Form, "Command5");
    Szenario editor(The_Session, Place.Path());
    editor.show();
    In_Modal([this](QWidget& form) {
        EXPECT_EQ(Find<QListWidget>(form, "List_rot")->count(), 2);
        EXPECT_EQ(Find<QListWidget>(form, "List_rot")->currentRow(), 0);
        EXPECT_EQ(Find<QLineEdit>(form, "Text_eme")->text(), "1");
    });

    Click<QPushButton>(editor, "Command3");
}

TEST_F(Crop_Forms_Test, Properties_Of_A_Crop_Are_Edited_For_All_Its_Rows)
{
    Open();
    Append("Maize");
    Append("Potatoes");
    Append("Maize");
    In_Modal([](QWidget& form) {
        QApplication::processEvents();
        EXPECT_EQ(form.windowTitle(), "Different Crops in Simulation");
        EXPECT_EQ(Find<QListWidget>(form, "List_crop")->count(), 2);
        EXPECT_EQ(Find<QLineEdit>(form, "Text1")->text(), "80");
        EXPECT_EQ(Find<QLineEdit>(form, "Text_cn1")->text(), "78");
        EXPECT_EQ(Find<QLineEdit>(form, "text_rrrpex")->text(), "0.3");
        EXPECT_EQ(Find<QComboBox>(form, "Combo1")->currentText(), "Residues");
        Retype(form, "Text1", "95");
        Choose_Option(form, "Option_irr_1");
        Choose(form, "List_crop", "Potatoes");
        EXPECT_EQ(Find<QLineEdit>(form, "Text1")->text(), "60");
        Click<QPushButton>(form, "Command1");
    });

    Click<QPushButton>(*Form, "Command6");
    Click<QPushButton>(*Form, "Command5");

    EXPECT_EQ(The_Session.Scenario.Crops[0].SZE_Rot_Text1.Number(), 95);
    EXPECT_EQ(The_Session.Scenario.Crops[0].SZE_Rot_Irrigated, 1);
    EXPECT_EQ(The_Session.Scenario.Crops[1].SZE_Rot_Text1.Number(), 60);
    EXPECT_EQ(The_Session.Scenario.SZE_Rot_Count, 3);
}

TEST_F(Crop_Forms_Test, A_Number_Too_Large_Holds_OK_Back_Also_From_Behind_Another_Crop)
{
    Open();
    Append("Maize");
    Append("Potatoes");
    In_Modal([&](QWidget& form) {
        form.activateWindow();
        (void)QTest::qWaitForWindowActive(&form);
        Retype(form, "Text1", "1e307");
        Choose(form, "List_crop", "Potatoes");
        Click<QPushButton>(form, "Command1");
        EXPECT_TRUE(form.isVisible());
        EXPECT_EQ(Find<QListWidget>(form, "List_crop")->currentRow(), 0);
        ASSERT_FALSE(The_User.Messages.empty());
        EXPECT_EQ(The_User.Messages.back().Text, "\"1e307\" is too large a number.");
    });

    Click<QPushButton>(*Form, "Command6");
}

TEST_F(Crop_Forms_Test, Default_Values_Come_Back_But_For_The_Tillage_Flag)
{
    Open();
    Append("Potatoes");
    In_Modal([](QWidget& form) {
        Retype(form, "Text1", "95");
        Click<QPushButton>(form, "Command3");
        EXPECT_EQ(Find<QLineEdit>(form, "Text1")->text(), "60");
        EXPECT_TRUE(Find<QRadioButton>(form, "Option_til_1")->isChecked());
        Click<QPushButton>(form, "Command1");
    });

    Click<QPushButton>(*Form, "Command6");

    EXPECT_TRUE(The_User.Messages.empty());
    EXPECT_EQ(Rotation(), QStringList({"Potatoes"}));
}

TEST_F(Crop_Forms_Test, A_Modified_Tillage_Flag_Costs_The_Rotation_If_The_User_Agrees)
{
    Open();
    Append("Maize");
    The_User.Answers = {Button::No, Button::Yes};
    In_Modal([](QWidget& form) {
        Choose_Option(form, "Option_til_1");
        Click<QPushButton>(form, "Command1");
        EXPECT_TRUE(form.isVisible());
        Click<QPushButton>(form, "Command1");
        EXPECT_FALSE(form.isVisible());
    });

    Click<QPushButton>(*Form, "Command6");

    ASSERT_EQ(The_User.Messages.size(), 2U);
    EXPECT_EQ(The_User.Messages[0].Text,
              "You modified the tillage flag. The crop rotation will be removed. Do you agree?");
    EXPECT_EQ(Rotation(), QStringList());
    Append("Maize");
    EXPECT_EQ(Date("til"), "30 APR 1");
}

TEST_F(Crop_Forms_Test, A_Property_Out_Of_Its_Range_Is_Told_Once_And_Kept)
{
    Open();
    Append("Maize");
    In_Modal([](QWidget& form) {
        QApplication::setActiveWindow(&form);
        Retype(form, "Text3", "120");
        EXPECT_EQ(form.focusWidget(), Find<QLineEdit>(form, "Text3"));
        Click<QPushButton>(form, "Command1");
    });

    Click<QPushButton>(*Form, "Command6");
    Click<QPushButton>(*Form, "Command5");

    EXPECT_EQ(The_User.Messages, std::vector{(Message{"DATA CHECK", "Value must not exceed 100%"})});
    EXPECT_EQ(The_Session.Scenario.Crops[0].SZE_Rot_Interception.Number(), 120);
}

TEST_F(Crop_Forms_Test, Cancel_Of_The_Properties_Keeps_The_Confirmed_Ones)
{
    Open();
    Append("Maize");
    In_Modal([](QWidget& form) {
        Retype(form, "Text1", "95");
        Click<QPushButton>(form, "Command2");
    });

    Click<QPushButton>(*Form, "Command6");
    Click<QPushButton>(*Form, "Command5");

    EXPECT_EQ(The_Session.Scenario.Crops[0].SZE_Rot_Text1.Number(), 80);
}

} // namespace

} // namespace orvel
