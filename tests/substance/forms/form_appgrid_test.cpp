#include "substance/forms/form_appgrid.h"

#include "ui/forms/number_grid.h"
#include "window_test.h"

#include <QClipboard>
#include <QPushButton>

namespace orvel {

namespace {

class Form_appgrid_Test : public Window_Test {
protected:
    Form_appgrid_Test()
    {
        Reset_PSM(The_Session.Pesticide);
        The_Session.Editor.App_Current_Location = 3;
        Yearly(0);
    }

    // One application in each of so many years, on the first of May.
    void Yearly(int years)
    {
        The_Session.Pesticide.App_Count[3] = years;
        for (int a = 1; a <= years; ++a)
            At(a) = {1, 5, static_cast<std::int16_t>(a), 0.5, 2, 30, 0, 9};
    }

    void Open(const std::string& text_naps, Application_Method method = Application_Method::Soil)
    {
        Form = std::make_unique<Form_appgrid>(The_Session, text_naps, method);
        Form->show();
        QApplication::setActiveWindow(Form.get());
        QApplication::processEvents();
    }

    Application& At(int a) { return The_Session.Pesticide.Applications[3][static_cast<std::size_t>(a)]; }
    Number_Grid& Grid() { return *Find<Number_Grid>(*Form, "AppGrid"); }
    const QAbstractItemModel& Model() { return *Grid().model(); }
    QString Cell(int row, int column) { return Model().index(row, column).data().toString(); }
    QStringList Row(int row)
    {
        QStringList cells;
        for (int column = 0; column < Model().columnCount(); ++column)
            cells << Cell(row, column);
        return cells;
    }
    void Type(int row, int column, const QString& text)
    {
        Grid().Go_To(row, column);
        QTest::keyClick(&Grid(), Qt::Key_Delete);
        QTest::keyClicks(&Grid(), text);
    }
    std::pair<int, int> Current() { return {Grid().currentIndex().row(), Grid().currentIndex().column()}; }

    std::unique_ptr<Form_appgrid> Form;
};

TEST_F(Form_appgrid_Test, Shows_A_Row_An_Application_With_The_Depth_Of_A_Soil_Application)
{
    Yearly(2);
    Open("3");

    EXPECT_EQ(Form->windowTitle(), "Application Data");
    EXPECT_EQ(Model().rowCount(), 3);
    EXPECT_EQ(Row(1), (QStringList{"Application 2", "1", "5", "2", "9", "0.5", "2", "0"}));
    EXPECT_EQ(Row(2), (QStringList{"Application 3", "", "", "", "", "", "", ""}));
    EXPECT_EQ(Model().headerData(0, Qt::Horizontal), "App. Number");
    EXPECT_EQ(Model().headerData(6, Qt::Horizontal), "App. Depth\n[cm]");
}

TEST_F(Form_appgrid_Test, Shows_The_Interception_Of_Any_Other_Application)
{
    Yearly(1);
    Open("1", Application_Method::Manually);

    EXPECT_EQ(Model().headerData(6, Qt::Horizontal), "Interception\n[%]");
    EXPECT_EQ(Cell(0, 6), "30");
}

TEST_F(Form_appgrid_Test, A_Key_That_Makes_A_Date_Too_Large_Is_Not_Taken)
{
    Open("1");

    Type(0, 1, "32");
    Type(0, 2, "13");
    Type(0, 3, "99991");
    Type(0, 5, "-1,5e-3x");

    EXPECT_EQ(Row(0), (QStringList{"Application 1", "3", "1", "9999", "", "-1.5E-3", "", ""}));
}

TEST_F(Form_appgrid_Test, A_Day_That_No_Year_Has_Is_Asked_About)
{
    Open("1");
    for (const auto& [column, text] : {std::pair(1, "30"), {2, "2"}, {3, "1"}, {5, "0.5"}})
        Type(0, column, text);
    The_User.Answers = {Button::No, Button::Yes};

    Click<QPushButton>(*Form, "CommandOK");
    EXPECT_TRUE(Form->isVisible());
    Click<QPushButton>(*Form, "CommandOK");

    ASSERT_EQ(The_User.Messages.size(), 2U);
    EXPECT_EQ(The_User.Messages[0].Text, "Application 1: February has no day 30. Do you want to keep it?");
    EXPECT_FALSE(Form->isVisible());
}

TEST_F(Form_appgrid_Test, The_Delete_Key_Clears_A_Cell)
{
    Yearly(1);
    Open("1");

    Grid().Go_To(0, 5);
    QTest::keyClick(&Grid(), Qt::Key_Delete);

    EXPECT_EQ(Cell(0, 5), "");
}

TEST_F(Form_appgrid_Test, The_First_Fraction_Becomes_That_Of_All_And_One_Undo_Takes_It_Back)
{
    Yearly(3);
    Open("3");
    Type(0, 7, "0.25");

    Click<QPushButton>(*Form, "Command1");
    EXPECT_EQ(Cell(1, 7) + " " + Cell(2, 7), "0.25 0.25");

    Grid().Undo();
    EXPECT_EQ(Cell(1, 7) + " " + Cell(2, 7), "0 0");
}

TEST_F(Form_appgrid_Test, A_Missing_Value_Is_Refused_And_Its_Cell_Gets_The_Focus)
{
    Yearly(3);
    const std::pair<int, const char*> needed[] = {{1, "Day"}, {2, "Month"}, {3, "Year"}, {5, "App. rate"}};
    for (const auto& [column, name] : needed) {
        The_User.Messages.clear();
        Open("3");
        Type(1, column, "0");

        Click<QPushButton>(*Form, "CommandOK");

        EXPECT_EQ(The_User.Messages,
                  std::vector{(Message{"Application Value Check",
                                       "Application 2 - " + std::string(name) + " -  has no value."})});
        EXPECT_TRUE(Form->isVisible());
        EXPECT_EQ(Current(), std::pair(1, column));
        EXPECT_EQ(Form->focusWidget(), &Grid());
    }
    EXPECT_FALSE(The_Session.Program.PSM_Changed);
}

TEST_F(Form_appgrid_Test, Two_Applications_On_The_Same_Day_Are_Refused)
{
    Yearly(3);
    Open("3");
    Type(2, 3, "2");

    Click<QPushButton>(*Form, "CommandOK");

    EXPECT_EQ(
        The_User.Messages,
        std::vector{(Message{"Application Date Check",
                             "Application dates must be in chronological order.\r\n     Check Application 2 and 3."})});
    EXPECT_EQ(Current(), std::pair(2, 1));
    EXPECT_EQ(At(3).App_Year, 3);
}

TEST_F(Form_appgrid_Test, OK_Stores_All_Rows_In_The_Location_Under_Edit_And_Finds_Its_Pattern)
{
    Yearly(25);
    Open("26");
    const char* last[] = {"", "1", "5", "26", "9", "0.5", "2", "0"};
    for (int column = 1; column < 8; ++column)
        Type(25, column, last[column]);

    Click<QPushButton>(*Form, "CommandOK");

    EXPECT_FALSE(Form->isVisible());
    EXPECT_EQ(The_Session.Pesticide.App_Count[3].Number(), 26);
    EXPECT_EQ(At(26), (Application{1, 5, 26, 0.5, 2, 0, 0, 9}));
    EXPECT_EQ(The_Session.Editor.App_Pattern, 1);
    EXPECT_TRUE(The_Session.Program.PSM_Changed);
}

TEST_F(Form_appgrid_Test, A_Block_Of_A_Spreadsheet_Is_Taken_Whole_Or_Not_At_All)
{
    Open("2");
    Grid().Go_To(0, 1);
    QApplication::clipboard()->setText("1\t5\t1\t0\t0.5\t2\t0\n32\t5\t2\t0\t0.5\t2\t0\n");
    QTest::keyClick(&Grid(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(The_User.Messages.size(), 1U);
    EXPECT_EQ(Cell(0, 1), "");

    QApplication::clipboard()->setText("1\t5\t1\t0\t0.5\t2\t0\n31\t5\t2\t0\t0.5\t2\t0\n");
    QTest::keyClick(&Grid(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Row(1), (QStringList{"Application 2", "31", "5", "2", "0", "0.5", "2", "0"}));
}

TEST_F(Form_appgrid_Test, Cancel_Stores_Nothing)
{
    Yearly(2);
    const auto before = The_Session.Pesticide;
    Open("2");
    Type(0, 5, "1");

    Click<QPushButton>(*Form, "Command2");

    EXPECT_EQ(The_Session.Pesticide, before);
    EXPECT_FALSE(The_Session.Program.PSM_Changed);
}

} // namespace

} // namespace orvel
