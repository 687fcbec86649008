#include "scenario/forms/klima.h"

#include "core/files.h"
#include "scenario/forms/klimagrafik.h"
#include "temporary_directory.h"
#include "ui/forms/widgets.h"
#include "window_test.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTimer>

namespace orvel {

namespace {

constexpr int Rain = 4, Temp_14 = 6;

class Klima_Test : public Window_Test {
protected:
    Klima_Test()
    {
        The_Session.Climate = {
            "Demo",
            {{.Cli_Day = "01", .Cli_Month = "02", .Cli_Year = "81", .Cli_Rain = 1.256, .Cli_Temp_14 = -3},
             {.Cli_Day = "02", .Cli_Month = "02", .Cli_Year = "81", .Cli_Temp_14 = 4},
             {.Cli_Day = "  ", .Cli_Month = "  ", .Cli_Year = "  "}}};
        The_Session.Program.PSM_File = "C_01.cli";
    }

    void Open()
    {
        Form = std::make_unique<Klima>(The_Session, Place.Path());
        Form->show();
        QApplication::processEvents();
        Grid = Find<QTableView>(*Form, "Grid1");
    }

    std::string Cell(int row, int column) { return Bytes_Of(Grid->model()->index(row, column).data().toString()); }

    void Go_To(int row, int column)
    {
        Grid->scrollTo(Grid->model()->index(row, column));
        QTest::mouseClick(Grid->viewport(), Qt::LeftButton, {},
                          Grid->visualRect(Grid->model()->index(row, column)).center());
    }

    Temporary_Directory Place;
    std::unique_ptr<Klima> Form;
    QTableView* Grid = nullptr;
};

const Message Exit_Question{"Saving Input File",
                            "Parameters were changed. Do you want to exit without saving ?",
                            Icon::Question,
                            {Button::Yes, Button::No},
                            Button::No};

// Saves under a name in the dialog that opens next.
void Save_In_Dialog(const QString& file, QString& caption)
{
    In_Modal([file, &caption](QWidget& dialog) {
        caption = dialog.windowTitle();
        Find<QLineEdit>(dialog, "TextSave")->setText(file);
        Click<QPushButton>(dialog, "SaveNow");
    });
}

} // namespace

TEST_F(Klima_Test, Shows_A_Row_A_Day_And_None_For_A_Row_Without_A_Day)
{
    Open();

    EXPECT_EQ(Form->windowTitle(), "Climatic Data Files - C_01.cli");
    EXPECT_EQ(Find<QLineEdit>(*Form, "Cli_Title")->text(), "Demo");
    EXPECT_EQ(Grid->model()->rowCount(), 2);
    EXPECT_EQ(Cell(0, Rain), "1.26");
    EXPECT_EQ(Cell(0, Temp_14), "-3.0");
}

TEST_F(Klima_Test, Heads_Its_Columns_In_Two_Lines)
{
    Open();

    EXPECT_EQ(Grid->model()->columnCount(), 11);
    EXPECT_EQ(Grid->model()->headerData(Rain, Qt::Horizontal), "Rainfall\n[cm]");
    EXPECT_EQ(Grid->model()->headerData(Rain + 1, Qt::Horizontal), "Evap\n[cm]");
    EXPECT_EQ(Grid->model()->headerData(10, Qt::Horizontal), QString::fromUtf8("Radiation\n[kJ/m²]"));
}

TEST_F(Klima_Test, Keys_Change_The_Cell_And_The_Comma_Writes_A_Point)
{
    Open();
    Go_To(1, Rain);

    QTest::keyClicks(Grid, "3,5e-2x/");

    EXPECT_EQ(Cell(1, Rain), "3.5E-2/");
    EXPECT_EQ(Find<QLineEdit>(*Form, "Text1")->text(), "3.5E-2/");
    EXPECT_TRUE(The_Session.Program.CLI_Changed);
}

TEST_F(Klima_Test, Append_Day_Adds_The_Day_After_The_Last_One)
{
    The_Session.Climate.Rows[1] = {.Cli_Day = "31", .Cli_Month = "12", .Cli_Year = "99", .Cli_Hour = "14"};
    Open();

    Click<QPushButton>(*Form, "Append_Day");
    QTest::keyClicks(Grid, "2.5");

    ASSERT_EQ(Grid->model()->rowCount(), 3);
    EXPECT_EQ(Cell(2, 0) + Cell(2, 1) + Cell(2, 2) + Cell(2, 3), "01010014");
    EXPECT_EQ(Cell(2, Rain), "2.5");
    EXPECT_TRUE(The_Session.Program.CLI_Changed);
}

TEST_F(Klima_Test, An_Appended_Day_And_Pasted_Rows_Go_By_An_Undo_And_Come_Back_By_A_Redo)
{
    Open();
    Click<QPushButton>(*Form, "Append_Day");
    QTest::keyClicks(Grid, "2.5");
    ASSERT_EQ(Grid->model()->rowCount(), 3);

    QTest::keyClick(Grid, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Cell(2, Rain), "0.00");
    QTest::keyClick(Grid, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Grid->model()->rowCount(), 2);
    Form->Take_Over_Entries(The_Session);
    EXPECT_EQ(The_Session.Climate.Rows.size(), 2U);

    QTest::keyClick(Grid, Qt::Key_Y, Qt::ControlModifier);
    ASSERT_EQ(Grid->model()->rowCount(), 3);
    EXPECT_EQ(Cell(2, 0) + Cell(2, 1) + Cell(2, 2), "030281");
    QTest::keyClick(Grid, Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(Cell(2, Rain), "2.5");

    Go_To(2, 0);
    QApplication::clipboard()->setText("01\t02\t03\n02\t02\t03\n03\t02\t03\n");
    QTest::keyClick(Grid, Qt::Key_V, Qt::ControlModifier);
    ASSERT_EQ(Grid->model()->rowCount(), 5);
    QTest::keyClick(Grid, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Grid->model()->rowCount(), 3);
    EXPECT_EQ(Cell(2, 0) + Cell(2, 1) + Cell(2, 2), "030281");
}

TEST_F(Klima_Test, An_Empty_File_Is_Filled_By_Days_Or_By_A_Paste_That_Grows_It)
{
    The_Session.Climate = {};
    Open();

    QApplication::clipboard()->setText("01\t02\t03\t\t1.5\n02\t02\t03\t\t0\n");
    QTest::keyClick(Grid, Qt::Key_V, Qt::ControlModifier);
    ASSERT_EQ(Grid->model()->rowCount(), 2);
    EXPECT_EQ(Cell(0, Rain), "1.5");

    Click<QPushButton>(*Form, "Append_Day");
    EXPECT_EQ(Cell(2, 0), "03");
    Go_To(2, 0);
    QTest::keyClick(Grid, Qt::Key_V, Qt::ControlModifier); // one row below the last
    EXPECT_EQ(Grid->model()->rowCount(), 4);
    EXPECT_EQ(Cell(3, 0), "02");
}

TEST_F(Klima_Test, A_Cell_That_Cannot_Be_Read_Holds_The_Save_Back)
{
    Open();
    Go_To(1, Rain);
    QTest::keyClicks(Grid, "1.2.3");

    Click<QPushButton>(*Form, "Command1");

    EXPECT_EQ(The_User.Messages,
              std::vector{(Message{"Data Check", "Row 2, Rainfall [cm]: \"1.2.3\" cannot be read as a number."})});
}

TEST_F(Klima_Test, Done_Without_Edits_Closes_At_Once)
{
    Open();

    Click<QPushButton>(*Form, "Fertig");

    EXPECT_FALSE(Form->isVisible());
    EXPECT_TRUE(The_User.Messages.empty());
}

TEST_F(Klima_Test, Done_After_Edits_Asks_And_Stays_Open_On_No)
{
    Open();
    QTest::keyClicks(Grid, "1");
    The_User.Answers = {Button::No, Button::Yes};

    Click<QPushButton>(*Form, "Fertig");
    EXPECT_TRUE(Form->isVisible());
    Click<QPushButton>(*Form, "Fertig");

    EXPECT_FALSE(Form->isVisible());
    EXPECT_EQ(The_User.Messages, (std::vector{Exit_Question, Exit_Question}));
    EXPECT_EQ(The_Session.Climate.Rows[0].Cli_Day, "01");
}

TEST_F(Klima_Test, Escape_Asks_Like_Done)
{
    Open();
    QTest::keyClicks(Grid, "1");

    QTest::keyClick(Form.get(), Qt::Key_Escape);

    EXPECT_TRUE(Form->isVisible());
    EXPECT_EQ(The_User.Messages, std::vector{Exit_Question});
}

TEST_F(Klima_Test, Saves_What_The_Grid_Shows)
{
    Open();
    Go_To(0, Rain);
    QTest::keyClicks(Grid, "5");
    QString caption;
    Save_In_Dialog("mine.cli", caption);

    Click<QPushButton>(*Form, "Command1");

    EXPECT_EQ(caption, "Save ORVEL 3.22 Climate File");
    EXPECT_EQ(Read_Whole(Place / "mine.cli").substr(0, 27), "Demo\r\n 0102815.0000000 0.00");
    EXPECT_FALSE(The_Session.Program.CLI_Changed);
    EXPECT_EQ(Form->windowTitle(), "Climatic Data Files - mine.cli");
}

TEST_F(Klima_Test, An_Existing_File_Is_Not_Replaced_Without_A_Yes)
{
    Write_Whole(Place / "mine.cli", "before");
    Open();
    QTest::keyClicks(Grid, "1");
    QString caption;
    Save_In_Dialog("mine.cli", caption);

    Click<QPushButton>(*Form, "Command1");

    ASSERT_EQ(The_User.Messages.size(), 1U);
    EXPECT_EQ(The_User.Messages[0].Text, "File already exists. Replace?");
    EXPECT_EQ(Read_Whole(Place / "mine.cli"), "before");
    EXPECT_TRUE(The_Session.Program.CLI_Changed);
}

TEST_F(Klima_Test, Copies_And_Pastes_A_Block)
{
    Open();
    Go_To(0, Rain);
    Grid->selectionModel()->select(QItemSelection(Grid->model()->index(0, Rain), Grid->model()->index(1, Rain + 1)),
                                   QItemSelectionModel::ClearAndSelect);

    QTest::keyClick(Grid, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "1.26\t0.00\n0.00\t0.00\n");
    QApplication::clipboard()->setText("7,5\t2\r\n8\t-1\r\n");
    QTest::keyClick(Grid, Qt::Key_V, Qt::ControlModifier);

    EXPECT_EQ(Cell(0, Rain), "7.5");
    EXPECT_EQ(Cell(1, Rain + 1), "-1");
    EXPECT_TRUE(The_Session.Program.CLI_Changed);
}

TEST_F(Klima_Test, A_Block_That_Does_Not_Fit_Or_Is_No_Number_Is_Refused_As_A_Whole)
{
    Open();
    Go_To(1, Rain);

    QApplication::clipboard()->setText("1\t2\t3\t4\t5\t6\t7\t8");
    QTest::keyClick(Grid, Qt::Key_V, Qt::ControlModifier);
    QApplication::clipboard()->setText("7\twarm");
    QTest::keyClick(Grid, Qt::Key_V, Qt::ControlModifier);

    ASSERT_EQ(The_User.Messages.size(), 2U);
    EXPECT_EQ(The_User.Messages[0].Text, "The block does not fit into the grid from this cell on. Nothing was pasted.");
    EXPECT_EQ(The_User.Messages[1].Text, "\"warm\" cannot stand in this column. Nothing was pasted.");
    EXPECT_EQ(Cell(1, Rain), "0.00");
    EXPECT_FALSE(The_Session.Program.CLI_Changed);
}

TEST_F(Klima_Test, A_Backspace_On_An_Empty_Cell_Changes_Nothing)
{
    Open();
    Go_To(0, 3); // no hour

    QTest::keyClick(Grid, Qt::Key_Backspace);

    EXPECT_FALSE(The_Session.Program.CLI_Changed);
}

TEST_F(Klima_Test, Undo_Takes_A_Cell_Back_And_The_File_Counts_As_Changed)
{
    Open();
    Go_To(1, Rain);
    QTest::keyClicks(Grid, "25");

    QTest::keyClick(Grid, Qt::Key_Z, Qt::ControlModifier);

    EXPECT_EQ(Cell(1, Rain), "0.00");
    EXPECT_TRUE(The_Session.Program.CLI_Changed);
}

TEST_F(Klima_Test, The_Title_Is_Edited_And_Marks_The_File_Changed)
{
    Open();

    QTest::keyClicks(Find<QLineEdit>(*Form, "Cli_Title"), "!");

    EXPECT_TRUE(The_Session.Program.CLI_Changed);
}

TEST_F(Klima_Test, The_Diagram_Shows_The_Series_Of_The_Current_Column)
{
    Open();
    Go_To(0, Temp_14);
    QString title;
    QTimer::singleShot(0, [&] {
        auto* diagram = QApplication::activeModalWidget();
        title = diagram->windowTitle();
        Click<QPushButton>(*diagram, "Ende");
    });

    Click<QPushButton>(*Form, "Grafik");

    EXPECT_EQ(title, QString::fromUtf8("Temperature at 14.00[°C]"));
}

TEST(Klimagrafik_Test, Radiation_And_The_Dates_Have_No_Series_Of_Their_Own)
{
    EXPECT_EQ(Series_Of_Column(Rain), 0U);
    EXPECT_EQ(Series_Of_Column(9), 5U);
    EXPECT_EQ(Series_Of_Column(10), 0U);
    EXPECT_EQ(Series_Of_Column(0), 0U);
    EXPECT_EQ(Series_Of_Column(-1), 0U);
}

TEST_F(Klima_Test, Twenty_Five_Thousand_Days_Open_Without_A_Widget_For_Each_Cell)
{
    The_Session.Climate.Rows.assign(25000, The_Session.Climate.Rows[0]);

    Open();

    EXPECT_EQ(Grid->model()->rowCount(), 25000);
    EXPECT_LT(Form->findChildren<QWidget*>().size(), 100);
}

} // namespace orvel
