#include "ui/forms/number_grid.h"

#include "ui/forms/widgets.h"
#include "window_test.h"

#include <QClipboard>
#include <QComboBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QVBoxLayout>

namespace orvel {

namespace {

class Number_Grid_Test : public Window_Test {
protected:
    Number_Grid_Test()
    {
        Model = new Text_Grid_Model(&Window);
        Model->Show(
            {{"Horizon", false}, {"Thickness      [cm]"}, {"pH"}, {"Soil", true, {"clay", "sand", "silt"}}},
            {{"Horizon 1", "30", "7.5", "sand"}, {"Horizon 2", "40", "", "clay"}, {"Horizon 3", "50", "6", "clay"}});
        Grid = new Number_Grid(Model, Number_Grid_Rule, The_Session.Ask, "Horizons");
        auto* all = new QVBoxLayout(&Window);
        all->addWidget(Grid);
        all->addWidget(Push_Button("Other", "Other"));
        Window.show();
        QApplication::setActiveWindow(&Window);
        Grid->Go_To(0, 1);
        QApplication::processEvents();
    }

    void Go_To(int row, int column) { QTest::mouseClick(Grid->viewport(), Qt::LeftButton, {}, Center(row, column)); }
    QPoint Center(int row, int column) { return Grid->visualRect(Model->index(row, column)).center(); }

    // Marks a block with the arrow keys from its first cell on.
    void Mark(int rows, int columns)
    {
        for (int i = 1; i < rows; ++i)
            QTest::keyClick(Grid, Qt::Key_Down, Qt::ShiftModifier);
        for (int i = 1; i < columns; ++i)
            QTest::keyClick(Grid, Qt::Key_Right, Qt::ShiftModifier);
    }

    void Command(Qt::Key key) { QTest::keyClick(Grid, key, Qt::ControlModifier); }
    std::string Cell(int row, int column) { return Model->Cell(row, column); }

    QWidget Window;
    Text_Grid_Model* Model = nullptr;
    Number_Grid* Grid = nullptr;
};

TEST_F(Number_Grid_Test, Takes_Digits_Minus_Point_Comma_And_E_And_Ignores_Others)
{
    Go_To(1, 2);

    QTest::keyClicks(Grid, "x-1,5e-3x +");

    EXPECT_EQ(Cell(1, 2), "-1.5E-3");
}

TEST_F(Number_Grid_Test, The_First_Key_Replaces_The_Text_Of_A_Marked_Cell)
{
    QTest::keyClicks(Grid, "0.85");
    EXPECT_EQ(Cell(0, 1), "0.85");

    Go_To(1, 1);
    QTest::keyClicks(Grid, "x"); // no key of a number
    EXPECT_EQ(Cell(1, 1), "40");
    Go_To(0, 1);
    QTest::keyClicks(Grid, "7");
    EXPECT_EQ(Cell(0, 1), "7");
}

TEST_F(Number_Grid_Test, F2_Or_A_Double_Click_Goes_On_Behind_The_Text)
{
    QTest::keyClick(Grid, Qt::Key_F2);
    QTest::keyClicks(Grid, ".5");
    EXPECT_EQ(Cell(0, 1), "30.5");

    Go_To(1, 1);
    QTest::mouseDClick(Grid->viewport(), Qt::LeftButton, {}, Center(1, 1));
    QTest::keyClicks(Grid, "5");
    EXPECT_EQ(Cell(1, 1), "405");
}

TEST_F(Number_Grid_Test, A_Cell_That_Cannot_Be_Read_Is_Told_And_Gone_To)
{
    EXPECT_TRUE(Grid->Is_Readable());
    QTest::keyClicks(Grid, "30-1");
    Go_To(2, 2);

    EXPECT_FALSE(Grid->Is_Readable());

    EXPECT_EQ(The_User.Messages,
              std::vector{(Message{"Data Check", "Horizon 1, Thickness [cm]: \"30-1\" cannot be read as a number."})});
    EXPECT_EQ(Grid->currentIndex(), Model->index(0, 1));
}

TEST_F(Number_Grid_Test, Delete_Takes_The_Last_Character_And_Backspace_None)
{
    QTest::keyClick(Grid, Qt::Key_Backspace);
    EXPECT_EQ(Cell(0, 1), "30");

    QTest::keyClick(Grid, Qt::Key_Delete);
    EXPECT_EQ(Cell(0, 1), "3");
}

TEST_F(Number_Grid_Test, Arrow_Keys_And_Return_Move_Between_Cells)
{
    QTest::keyClick(Grid, Qt::Key_Right);
    QTest::keyClick(Grid, Qt::Key_Return);
    QTest::keyClicks(Grid, "8");

    EXPECT_EQ(Cell(1, 2), "8");
}

TEST_F(Number_Grid_Test, A_Title_Is_Not_Edited)
{
    Go_To(0, 0);

    QTest::keyClicks(Grid, "8");
    Command(Qt::Key_X);

    EXPECT_EQ(Cell(0, 0), "Horizon 1");
}

TEST_F(Number_Grid_Test, Undo_Takes_The_Keys_Of_A_Cell_Back_As_One_Step_And_Redo_Brings_Them_Again)
{
    QTest::keyClicks(Grid, "0.25");
    Go_To(1, 1);
    QTest::keyClicks(Grid, "9");

    Command(Qt::Key_Z);
    EXPECT_EQ(Cell(1, 1), "40");
    EXPECT_EQ(Cell(0, 1), "0.25");
    Command(Qt::Key_Z);
    EXPECT_EQ(Cell(0, 1), "30");
    Command(Qt::Key_Y);

    EXPECT_EQ(Cell(0, 1), "0.25");
    EXPECT_EQ(Grid->currentIndex(), Model->index(0, 1)); // where it happened
}

TEST_F(Number_Grid_Test, A_Block_Goes_To_A_Spreadsheet)
{
    Mark(2, 2);

    Command(Qt::Key_C);

    EXPECT_EQ(QApplication::clipboard()->text(), "30\t7.5\n40\t\n");
}

TEST_F(Number_Grid_Test, A_Block_From_A_Spreadsheet_Is_One_Step_Of_Undo)
{
    QApplication::clipboard()->setText("1\t2\r\n3\t4\r\n");

    Command(Qt::Key_V);
    EXPECT_EQ(Model->Cells()[1], (std::vector<std::string>{"Horizon 2", "3", "4", "clay"}));
    Command(Qt::Key_Z);

    EXPECT_EQ(Model->Cells()[0], (std::vector<std::string>{"Horizon 1", "30", "7.5", "sand"}));
    EXPECT_EQ(Model->Cells()[1], (std::vector<std::string>{"Horizon 2", "40", "", "clay"}));
}

TEST_F(Number_Grid_Test, A_Block_That_Cannot_Be_Pasted_Is_Told_And_Changes_Nothing)
{
    QApplication::clipboard()->setText("1\tloam");

    Command(Qt::Key_V);

    EXPECT_EQ(The_User.Messages,
              std::vector{(Message{"Data Check", "\"loam\" cannot stand in this column. Nothing was pasted."})});
    EXPECT_EQ(Cell(0, 1), "30");
}

TEST_F(Number_Grid_Test, A_Single_Text_Goes_Into_All_Marked_Cells_Of_A_Column)
{
    QApplication::clipboard()->setText("25");
    Mark(3, 1);

    Command(Qt::Key_V);

    EXPECT_EQ(Cell(0, 1) + Cell(1, 1) + Cell(2, 1), "252525");
}

TEST_F(Number_Grid_Test, A_Whole_Table_Comes_Back_From_A_Spreadsheet_With_Its_Titles)
{
    Grid->selectAll();
    Command(Qt::Key_C);
    QApplication::clipboard()->setText(
        QApplication::clipboard()->text().replace("40", "45").replace("Horizon", "Layer"));

    Command(Qt::Key_V);

    EXPECT_EQ(Model->Cells()[1], (std::vector<std::string>{"Horizon 2", "45", "", "clay"}));
}

TEST_F(Number_Grid_Test, Cut_Clears_What_Was_Copied)
{
    Command(Qt::Key_X);

    EXPECT_EQ(Cell(0, 1), "");
    EXPECT_EQ(QApplication::clipboard()->text(), "30\n");
}

TEST_F(Number_Grid_Test, The_Cell_Above_Or_The_First_Marked_Row_Is_Copied_Down)
{
    Go_To(1, 2);
    Command(Qt::Key_D);
    EXPECT_EQ(Cell(1, 2), "7.5");

    Go_To(0, 1);
    Mark(3, 2);
    Command(Qt::Key_D);

    EXPECT_EQ(Cell(2, 1), "30");
    EXPECT_EQ(Cell(2, 2), "7.5");
    EXPECT_EQ(Cell(2, 3), "clay");
}

TEST_F(Number_Grid_Test, Copying_Down_From_Above_The_First_Row_Does_Nothing)
{
    Command(Qt::Key_D);

    EXPECT_EQ(Cell(0, 1), "30");
}

TEST_F(Number_Grid_Test, A_Choice_Is_Taken_By_Its_First_Letter)
{
    Go_To(0, 3);

    QTest::keyClicks(Grid, "s");
    EXPECT_EQ(Cell(0, 3), "silt");
    QTest::keyClicks(Grid, "s");
    EXPECT_EQ(Cell(0, 3), "sand");
    QTest::keyClicks(Grid, "7");
    EXPECT_EQ(Cell(0, 3), "sand");
}

TEST_F(Number_Grid_Test, A_Double_Click_Opens_The_List_Of_A_Choice)
{
    Go_To(0, 3);
    QTest::mouseDClick(Grid->viewport(), Qt::LeftButton, {}, Center(0, 3));
    auto* list = Grid->findChild<QComboBox*>();
    ASSERT_TRUE(list);

    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Return);

    EXPECT_EQ(Cell(0, 3), "silt");
}

TEST_F(Number_Grid_Test, Tells_A_Cell_That_Is_Changed_And_One_That_Is_Left)
{
    QSignalSpy changed(Grid, &Number_Grid::Cell_Changed), left(Grid, &Number_Grid::Cell_Left);

    QTest::keyClicks(Grid, "5");
    EXPECT_EQ(changed, (QList<QVariantList>{{0, 1}}));
    EXPECT_EQ(left.count(), 0);
    Go_To(2, 2);
    EXPECT_EQ(left, (QList<QVariantList>{{0, 1}}));
    Find<QPushButton>(Window, "Other")->setFocus();

    EXPECT_EQ(left.last(), (QVariantList{2, 2}));
}

TEST_F(Number_Grid_Test, A_Form_Can_Go_Back_To_The_Cell_That_Is_Left)
{
    QObject::connect(Grid, &Number_Grid::Cell_Left, Grid, [this](int row, int column) {
        if (Cell(row, column) == "99")
            Grid->Go_To(row, column);
    });
    QTest::keyClicks(Grid, "99");

    Go_To(2, 2);
    QApplication::processEvents();

    EXPECT_EQ(Grid->currentIndex(), Model->index(0, 1));
    EXPECT_EQ(Grid->selectionModel()->selectedIndexes(), (QModelIndexList{Model->index(0, 1)}));
}

TEST_F(Number_Grid_Test, A_Cell_That_Is_Read_As_Something_Else_Tells_The_Number)
{
    QTest::keyClicks(Grid, "30-1");

    EXPECT_EQ(Model->index(0, 1).data(Qt::ToolTipRole), "\"30-1\" is read as 30.");
    EXPECT_FALSE(Model->index(0, 1).data(Qt::DecorationRole).isNull());
    EXPECT_TRUE(Model->index(1, 2).data(Qt::DecorationRole).isNull()); // empty
    EXPECT_TRUE(Model->index(0, 3).data(Qt::DecorationRole).isNull()); // a choice
}

TEST_F(Number_Grid_Test, A_Table_That_Is_Shown_Anew_Has_Nothing_To_Undo)
{
    QTest::keyClicks(Grid, "1");

    Model->Show(Model->Columns(), {{"Horizon 1", "7", "", "clay"}});
    Command(Qt::Key_Z);

    EXPECT_EQ(Cell(0, 1), "7");
}

} // namespace

} // namespace orvel
