#include "substance/forms/form_hor.h"

#include "substance/horizon_table.h"
#include "ui/forms/number_grid.h"
#include "window_test.h"

#include <QHeaderView>
#include <QLabel>
#include <QPushButton>

namespace orvel {

namespace {

class Form_hor_Test : public Window_Test {
protected:
    Form_hor_Test()
    {
        Reset_PSM(The_Session.Pesticide);
        The_Session.Pesticide.N_Horizons = 2;
        Reset_Horizon_Table(The_Session.Pesticide, 2);
    }

    void Open(int i, int rows = 2)
    {
        Form = std::make_unique<Form_hor>(The_Session, i, rows);
        Form->show();
        QApplication::setActiveWindow(Form.get());
        QApplication::processEvents();
    }

    Number_Grid& Grid() { return *Find<Number_Grid>(*Form, "GridHor"); }
    const QAbstractItemModel& Model() { return *Grid().model(); }
    QStringList Headers()
    {
        QStringList headers;
        for (int column = 0; column < Model().columnCount(); ++column)
            headers << Model().headerData(column, Qt::Horizontal).toString();
        return headers;
    }
    QStringList Row(int row)
    {
        QStringList cells;
        for (int column = 0; column < Model().columnCount(); ++column)
            cells << Model().index(row, column).data().toString();
        return cells;
    }
    void Click_Cell(int row, int column)
    {
        QTest::mouseClick(Grid().viewport(), Qt::LeftButton, {},
                          Grid().visualRect(Model().index(row, column)).center());
    }
    // Clears a cell by the delete key and types into it.
    void Type(int row, int column, const QString& text)
    {
        Click_Cell(row, column);
        while (!Model().index(row, column).data().toString().isEmpty())
            QTest::keyClick(&Grid(), Qt::Key_Delete);
        QTest::keyClicks(&Grid(), text);
    }
    Pesticide_Horizon& Horizon(std::size_t h) { return The_Session.Pesticide.Horizons[h]; }

    std::unique_ptr<Form_hor> Form;
};

TEST_F(Form_hor_Test, Shows_A_Row_A_Horizon_With_The_Targets_Of_The_Active_Substance)
{
    Horizon(2).Hor_Kd[1] = 1.25;
    Horizon(2).Hor_Deg[1][5] = 0.3;
    Open(1);

    EXPECT_EQ(Form->windowTitle(), "Depth Dependend Data");
    EXPECT_EQ(Headers(), (QStringList{"Hor. Number", "[mL/g]", "Fr-Exponent", "MET. A1", "MET. B1", "MET. C1",
                                      "MET. D1", "CO2/B.RES."}));
    EXPECT_EQ(Row(0), (QStringList{"Horizon 1", "0", "0.9", "1", "1", "1", "1", "1"}));
    EXPECT_EQ(Row(1), (QStringList{"Horizon 2", "1.25", "0.9", "1", "1", "1", "1", "0.3"}));
}

TEST_F(Form_hor_Test, D1_Shows_And_Takes_The_Factors_2_And_4)
{
    Horizon(1).Hor_Deg[5][2] = 0.2;
    Horizon(1).Hor_Deg[5][4] = 0.4;
    Open(5);
    EXPECT_EQ(Headers(), (QStringList{"Hor. Number", "[mL/g]", "Fr-Exponent", "MET. D2", "CO2/BRes"}));
    EXPECT_EQ(Row(0), (QStringList{"Horizon 1", "0", "0.9", "0.2", "0.4"}));

    Type(0, 4, "0.5");
    Click<QPushButton>(*Form, "Command_OK");

    EXPECT_EQ(Horizon(1).Hor_Deg[5][2].Number(), 0.2);
    EXPECT_EQ(Horizon(1).Hor_Deg[5][4].Number(), 0.5);
}

TEST_F(Form_hor_Test, The_Headings_Stand_Over_Their_Columns)
{
    Open(1);

    const auto* columns = Grid().horizontalHeader();
    const auto left = [&](int column) {
        return columns->mapToGlobal(QPoint(columns->sectionViewportPosition(column), 0)).x();
    };
    EXPECT_EQ(Find<QLabel>(*Form, "Label_Kf")->mapToGlobal(QPoint()).x(), left(1));
    EXPECT_EQ(Find<QLabel>(*Form, "Label_Factors")->mapToGlobal(QPoint()).x(), left(3));
    EXPECT_EQ(Find<QLabel>(*Form, "Label_Factors")->text(), "Transformation Factors for Degradation to");
}

TEST_F(Form_hor_Test, The_Default_Button_Belongs_To_The_Active_Substance_Alone)
{
    for (int i = 1; i <= Substances; ++i) {
        Open(i);
        EXPECT_EQ(Find<QPushButton>(*Form, "Command1")->isVisible(), i == 1) << i;
    }
}

TEST_F(Form_hor_Test, The_First_Targets_Factors_Become_The_Default_Of_All_Substances_On_Acceptance)
{
    Open(1);
    Type(0, 3, "0.5");
    EXPECT_FALSE(Find<QLabel>(*Form, "Default_Note")->isVisible());

    Click<QPushButton>(*Form, "Command1");
    EXPECT_EQ(Row(0), (QStringList{"Horizon 1", "0", "0.9", "0.5", "0.5", "0.5", "0.5", "0.5"}));
    EXPECT_TRUE(Find<QLabel>(*Form, "Default_Note")->isVisible());
    EXPECT_EQ(Horizon(1).Hor_Deg[4][1].Number(), 1);
    Click<QPushButton>(*Form, "Command_OK");

    EXPECT_EQ(Horizon(1).Hor_Deg[1][5].Number(), 0.5);
    EXPECT_EQ(Horizon(1).Hor_Deg[4][1].Number(), 0.5);
    EXPECT_EQ(Horizon(2).Hor_Deg[4][1].Number(), 1);
}

TEST_F(Form_hor_Test, A_Default_That_Was_Undone_Leaves_The_Other_Substances_Alone)
{
    Open(1);
    Type(0, 3, "0.5");
    Click<QPushButton>(*Form, "Command1");
    auto* note = Find<QLabel>(*Form, "Default_Note");

    QTest::keyClick(&Grid(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Row(0), (QStringList{"Horizon 1", "0", "0.9", "0.5", "1", "1", "1", "1"}));
    EXPECT_FALSE(note->isVisible());
    QTest::keyClick(&Grid(), Qt::Key_Y, Qt::ControlModifier);
    EXPECT_TRUE(note->isVisible());
    QTest::keyClick(&Grid(), Qt::Key_Z, Qt::ControlModifier);
    Click<QPushButton>(*Form, "Command_OK");

    EXPECT_EQ(Horizon(1).Hor_Deg[1][1].Number(), 0.5);
    EXPECT_EQ(Horizon(1).Hor_Deg[4][1].Number(), 1);
}

TEST_F(Form_hor_Test, A_Cell_Takes_Digits_Minus_Point_And_E_And_The_Delete_Key_Takes_The_Last_One)
{
    Open(2);
    Type(0, 1, "x12,5e-3");
    EXPECT_EQ(Row(0)[1], "12.5E-3");

    QTest::keyClick(&Grid(), Qt::Key_Delete);
    EXPECT_EQ(Row(0)[1], "12.5E-");
    Click_Cell(0, 0);
    QTest::keyClicks(&Grid(), "7");
    EXPECT_EQ(Row(0)[0], "Horizon 1");
}

TEST_F(Form_hor_Test, A_Cell_That_Cannot_Be_Read_Holds_OK_Back)
{
    Open(2);
    Type(1, 1, "0.90.85");

    Click<QPushButton>(*Form, "Command_OK");

    EXPECT_EQ(The_User.Messages,
              std::vector{(Message{"Data Check", "Horizon 2, [mL/g]: \"0.90.85\" cannot be read as a number."})});
    EXPECT_TRUE(Form->isVisible());
    EXPECT_EQ(Grid().currentIndex(), Model().index(1, 1));
}

TEST_F(Form_hor_Test, OK_Stores_The_Grid_And_An_Empty_Cell_Becomes_No_Zero)
{
    Open(2, 3);
    EXPECT_EQ(Row(2), (QStringList{"Horizon 3", "", "", "", "", "", ""}));
    Type(0, 1, "2.5");
    Type(1, 2, "");
    Type(2, 3, "0.7");

    Click<QPushButton>(*Form, "Command_OK");

    EXPECT_EQ(The_Session.Pesticide.N_Horizons.Number(), 3);
    EXPECT_EQ(Horizon(1).Hor_Kd[2].Number(), 2.5);
    EXPECT_EQ(Horizon(2).Hor_FrExp[2].Number(), 0.9);
    EXPECT_EQ(Horizon(3).Hor_Deg[2][1].Number(), 0.7);
    EXPECT_EQ(Horizon(3).Hor_Deg[2][2].Number(), 1);
    EXPECT_TRUE(The_Session.Program.PSM_Changed);
    EXPECT_FALSE(Form->isVisible());
}

TEST_F(Form_hor_Test, Cancel_Closes_Without_A_Change)
{
    Open(1);
    const auto before = The_Session.Pesticide;
    Type(0, 1, "2.5");
    Click<QPushButton>(*Form, "Command1");

    Click<QPushButton>(*Form, "Command2");

    EXPECT_EQ(The_Session.Pesticide, before);
    EXPECT_FALSE(The_Session.Program.PSM_Changed);
    EXPECT_FALSE(Form->isVisible());
}

} // namespace

} // namespace orvel
