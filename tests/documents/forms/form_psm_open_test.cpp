#include "documents/forms/form_psm_open.h"

#include "small_installation.h"
#include "window_test.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

namespace orvel {

namespace {

class Form_PSM_Open_Test : public Window_Test {
protected:
    void Open(const std::string& mask = "*.psm", const std::string& directory = {})
    {
        The_Session.Program.App_Path = Place.Path();
        Form = std::make_unique<Form_PSM_Open>(The_Session, mask, Place.Path() / directory);
        Form->show();
    }

    QStringList Files()
    {
        QStringList files;
        const auto* list = Find<QListWidget>(*Form, "File1");
        for (int row = 0; row < list->count(); ++row)
            files << list->item(row)->text();
        return files;
    }

    Small_Installation Place;
    std::unique_ptr<Form_PSM_Open> Form;
};

} // namespace

TEST_F(Form_PSM_Open_Test, Lists_The_Files_Of_The_Mask_And_Selects_The_One_In_Use)
{
    Place.Put_Pesticide("second.PSM", {"H"});
    The_Session.Program.PSM_File = "TEST.psm";
    Open();

    EXPECT_EQ(Form->windowTitle(), "Open PSM file");
    EXPECT_EQ(Files(), (QStringList{"second.PSM", "test.psm"}));
    EXPECT_EQ(Find<QListWidget>(*Form, "File1")->currentItem()->text(), "test.psm");
    EXPECT_EQ(Form->focusWidget()->objectName(), "File1"); // arrow keys choose and Enter opens at once
}

TEST_F(Form_PSM_Open_Test, Selects_The_First_File_Where_None_Is_In_Use)
{
    Open("*.sze", "focus");

    EXPECT_EQ(Files().size(), 7);
    EXPECT_EQ(Find<QListWidget>(*Form, "File1")->currentRow(), 0);
}

TEST_F(Form_PSM_Open_Test, A_Part_Of_The_Name_Narrows_The_List)
{
    Open("*.sze", "focus");

    QTest::keyClicks(Find<QLineEdit>(*Form, "FileSearch"), "WCE");

    EXPECT_EQ(Files(), (QStringList{"H_wcerea.sze", "S_wcerea.sze"}));
}

TEST_F(Form_PSM_Open_Test, A_Typed_Directory_Is_Listed_And_One_That_Is_Not_There_Gives_Way)
{
    Open("*.sze");
    EXPECT_TRUE(Files().empty());
    auto* directory = Find<QLineEdit>(*Form, "Dir1");
    directory->setFocus();

    directory->setText(QString::fromStdString((Place / "focus").string()));
    QTest::keyClick(directory, Qt::Key_Return);
    EXPECT_EQ(Files().size(), 7);

    directory->setText("/no such directory");
    QTest::keyClick(directory, Qt::Key_Return);
    EXPECT_EQ(directory->text().toStdString(), (Place / "focus").string());
    EXPECT_EQ(Files().size(), 7);
    EXPECT_TRUE(The_User.Messages.empty()); // Enter in the line opens no file
}

TEST_F(Form_PSM_Open_Test, Open_With_An_Empty_List_Does_Nothing)
{
    Open("*.psm", "focus");

    Click<QPushButton>(*Form, "Comm_2");

    EXPECT_TRUE(The_User.Messages.empty());
}

TEST_F(Form_PSM_Open_Test, A_File_That_Cannot_Be_Read_Is_Told_And_Opens_No_Editor)
{
    Write_Whole(Place / "broken.psm", "no document\r\n");
    Open();
    Find<QListWidget>(*Form, "File1")->setCurrentRow(0);

    Click<QPushButton>(*Form, "Comm_2");

    ASSERT_EQ(The_User.Messages.size(), 1U);
    EXPECT_EQ(The_User.Messages[0].Title, "Readin check");
    EXPECT_EQ(The_User.Messages[0].Text,
              "broken.psm is not a ORVEL 4.01 PSM file\nbroken.psm, line 1: The file ends behind this line.");
}

TEST_F(Form_PSM_Open_Test, Done_Closes_The_Dialog)
{
    Open();

    Click<QPushButton>(*Form, "Done");

    EXPECT_FALSE(Form->isVisible());
}

} // namespace orvel
