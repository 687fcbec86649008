#include "files/forms/form_saving.h"

#include "small_installation.h"
#include "window_test.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

namespace orvel {

namespace {

class Form_Saving_Test : public Window_Test {
protected:
    Form_Saving_Test()
    {
        The_Session.Program.App_Path = Place.Path();
        Reset_PSM(The_Session.Pesticide);
        The_Session.Pesticide.PSM_Title = "Saved here";
        The_Session.Program.PSM_File = "test.psm";
        The_Session.Program.PSM_Changed = true;
    }

    void Open()
    {
        Form = std::make_unique<Form_Saving>(The_Session, Document_Kind::Pesticide, Place.Path());
        Form->show();
    }

    void Save_As(const QString& name)
    {
        Find<QLineEdit>(*Form, "TextSave")->setText(name);
        Click<QPushButton>(*Form, "SaveNow");
    }

    bool Holds_The_Document(const std::string& name)
    {
        return Read_Whole(Place / name).find("Saved here") != std::string::npos;
    }

    Small_Installation Place;
    std::unique_ptr<Form_Saving> Form;
};

} // namespace

TEST_F(Form_Saving_Test, Offers_The_Name_Of_The_Document)
{
    Open();

    EXPECT_EQ(Form->windowTitle(), "Save ORVEL 3.20 Input File");
    EXPECT_EQ(Find<QLineEdit>(*Form, "TextSave")->text(), "test.psm");
    EXPECT_EQ(Find<QListWidget>(*Form, "File1")->count(), 1);
}

TEST_F(Form_Saving_Test, Writes_A_New_File_Without_A_Question)
{
    Open();

    Save_As("fresh.psm");

    EXPECT_TRUE(The_User.Messages.empty());
    EXPECT_TRUE(Holds_The_Document("fresh.psm"));
    EXPECT_FALSE(The_Session.Program.PSM_Changed);
    EXPECT_EQ(The_Session.Program.PSM_File, "fresh.psm");
    EXPECT_EQ(Form->result(), QDialog::Accepted);
}

TEST_F(Form_Saving_Test, Asks_Before_A_File_Is_Replaced_And_Leaves_It_On_Any_Answer_But_Yes)
{
    Open();

    Save_As("TEST.PSM"); // the same file, whatever the case

    ASSERT_EQ(The_User.Messages.size(), 1U);
    EXPECT_EQ(The_User.Messages[0].Title, "Saving Input File");
    EXPECT_EQ(The_User.Messages[0].Text, "File already exists. Replace?");
    EXPECT_FALSE(Holds_The_Document("test.psm"));
    EXPECT_TRUE(Form->isVisible());
    EXPECT_TRUE(The_Session.Program.PSM_Changed);

    The_User.Answers = {Button::Yes};
    Save_As("TEST.PSM");
    EXPECT_TRUE(Holds_The_Document("test.psm"));
}

TEST_F(Form_Saving_Test, A_Read_Only_File_Is_Told_And_The_Dialog_Stays)
{
    Set_Read_Only(Place / "test.psm", true);
    The_User.Answers = {Button::Yes};
    Open();

    Click<QPushButton>(*Form, "SaveNow");

    ASSERT_EQ(The_User.Messages.size(), 2U);
    EXPECT_EQ(The_User.Messages[1].Title, "Saving Input File");
    EXPECT_EQ(
        The_User.Messages[1].Text,
        "All FOCUS-Scenario files are read protected!     Please select a new directory for saving your changes.");
    EXPECT_TRUE(Form->isVisible());
    EXPECT_TRUE(The_Session.Program.PSM_Changed);
}

TEST_F(Form_Saving_Test, A_Value_That_The_File_Would_Lose_Is_Told_First)
{
    The_Session.Pesticide.Molmass[1] = "";
    Open();

    Save_As("fresh.psm");

    ASSERT_EQ(The_User.Messages.size(), 1U);
    EXPECT_NE(The_User.Messages[0].Text.find("Do you want to save it all the same?"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(Place / "fresh.psm"));
}

TEST_F(Form_Saving_Test, A_Number_That_No_File_Can_Hold_Is_Told_And_The_Program_Goes_On)
{
    The_Session.Pesticide.Henry[1] = std::numeric_limits<double>::infinity();
    Open();

    Save_As("fresh.psm");

    EXPECT_EQ(The_User.Messages,
              std::vector{(Message{"Saving Input File", "A value that is not a number cannot be printed."})});
    EXPECT_FALSE(std::filesystem::exists(Place / "fresh.psm"));
    EXPECT_TRUE(Form->isVisible());
}

TEST_F(Form_Saving_Test, A_Name_Of_Another_Kind_And_The_Mask_Are_No_Names)
{
    Open();

    for (const char* name : {"*.psm", "test.sze", "test", ".psm", "", "focus/test.psm"})
        Save_As(name);

    ASSERT_EQ(The_User.Messages.size(), 6U);
    EXPECT_EQ(The_User.Messages[0].Text,
              "\"*.psm\" cannot be the name of this file. Please enter a name that ends in .psm.");
    EXPECT_TRUE(Form->isVisible());
}

TEST_F(Form_Saving_Test, A_Click_Takes_The_Name_Of_A_File_And_A_Double_Click_Saves_Over_It)
{
    The_User.Answers = {Button::Yes};
    The_Session.Program.PSM_File = "*.psm";
    Open();
    auto* list = Find<QListWidget>(*Form, "File1");
    const QPoint first = list->visualItemRect(list->item(0)).center();

    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, first);
    EXPECT_EQ(Find<QLineEdit>(*Form, "TextSave")->text(), "test.psm");
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, first);

    EXPECT_TRUE(Holds_The_Document("test.psm"));
    EXPECT_FALSE(Form->isVisible());
}

} // namespace orvel
