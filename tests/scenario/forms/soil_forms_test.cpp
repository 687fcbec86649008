#include "scenario/forms/form_eros.h"
#include "scenario/forms/form_soil_hor.h"
#include "scenario/forms/macro.h"
#include "scenario/forms/soil_profile.h"
#include "scenario/forms/szenario.h"
#include "ui/forms/number_grid.h"
#include "ui/forms/widgets.h"
#include "window_test.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>

namespace orvel {

namespace {

constexpr int Thickness = 1, Capacity = 5, Wilting = 6, Carbon = 7;

class Soil_Forms_Test : public Window_Test {
protected:
    Soil_Forms_Test()
    {
        Reset_SZE(The_Session.Scenario);
        auto& document = The_Session.Scenario;
        document.SZE_Core_Depth = 100;
        document.SZE_Layers = 20;
        document.SZE_Horizons = 2;
        document.Horizons.resize(2);
        for (auto& horizon : document.Horizons) {
            horizon.SZE_Hor_Thickness = 50;
            horizon.SZE_Hor_FC = 0.3;
            horizon.SZE_Hor_WP = 0.1;
            horizon.SZE_Hor_OC = 1.2;
        }
        document.SZE_ET_Method = 0;
        The_Session.Program.SZE_Changed = false;
    }

    Number_Grid* Grid(const QWidget& form) { return Find<Number_Grid>(form, "Grid_nhor"); }

    std::string Cell(const QWidget& form, int row, int column)
    {
        return Bytes_Of(Grid(form)->model()->index(row, column).data().toString());
    }

    // Goes to a cell by a click and types another text over it.
    void Type(const QWidget& form, int row, int column, const QString& text)
    {
        auto* grid = Grid(form);
        const auto cell = grid->model()->index(row, column);
        grid->scrollTo(cell);
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, grid->visualRect(cell).center());
        for (auto left = cell.data().toString().size(); left > 0; --left)
            QTest::keyClick(grid, Qt::Key_Delete);
        QTest::keyClicks(grid, text);
    }
};

TEST_F(Soil_Forms_Test, Horizons_Are_Edited_By_Keys_And_Taken_Over)
{
    form_soil_hor form(The_Session);
    form.show();
    EXPECT_EQ(form.windowTitle(), "Soil Horizon Parameters");
    EXPECT_EQ(Cell(form, 1, 0), "Horizon 2");
    EXPECT_EQ(Grid(form)->model()->headerData(Thickness, Qt::Horizontal), "Thickness\n[cm]");

    Type(form, 0, Thickness, "30");
    Type(form, 1, Thickness, "70");
    Type(form, 1, Carbon, "0.5");
    Click<QPushButton>(form, "Command2");

    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(The_Session.Scenario.Horizons[0].SZE_Hor_Thickness.Number(), 30);
    EXPECT_EQ(The_Session.Scenario.Horizons[1].SZE_Hor_OC.Number(), 0.5);
    EXPECT_TRUE(The_Session.Program.SZE_Changed);
    EXPECT_FALSE(form.New_Depth());
}

TEST_F(Soil_Forms_Test, Cancel_Leaves_The_Horizons_As_They_Were)
{
    const auto before = The_Session.Scenario;
    form_soil_hor form(The_Session);
    form.show();

    Type(form, 0, Thickness, "30");
    Click<QPushButton>(form, "Command1");

    EXPECT_EQ(The_Session.Scenario, before);
    EXPECT_FALSE(The_Session.Program.SZE_Changed);
}

TEST_F(Soil_Forms_Test, A_Wilting_Point_Above_Field_Capacity_Is_Refused_And_An_Equal_One_Passes)
{
    form_soil_hor form(The_Session);
    form.show();
    Type(form, 1, Wilting, "0.4");

    Click<QPushButton>(form, "Command2");
    EXPECT_EQ(The_User.Messages,
              std::vector{(Message{"Data Check", "Horizon 2: Wilting point must not exceed field capacity"})});
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(Grid(form)->currentIndex(), Grid(form)->model()->index(1, Wilting));
    EXPECT_EQ(The_Session.Scenario.Horizons[1].SZE_Hor_WP.Number(), 0.1);
    Type(form, 1, Capacity, "0.4");
    Click<QPushButton>(form, "Command2");

    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(The_Session.Scenario.Horizons[1].SZE_Hor_WP.Number(), 0.4);
}

TEST_F(Soil_Forms_Test, The_Profile_And_Its_Sum_Follow_The_Thickness_While_It_Is_Typed)
{
    form_soil_hor form(The_Session);
    form.show();
    EXPECT_EQ(Find<QLabel>(form, "Sum_of_Thickness")->text(), "Sum of thickness: 100 cm");

    Type(form, 1, Thickness, "60");

    EXPECT_EQ(Find<QLabel>(form, "Sum_of_Thickness")->text(), "Sum of thickness: 110 cm, core depth: 100 cm");
}

TEST_F(Soil_Forms_Test, A_Click_Into_The_Profile_Goes_To_The_Horizon)
{
    form_soil_hor form(The_Session);
    form.show();
    auto* profile = Find<Profile_View>(form, "Profile");

    QTest::mouseClick(profile, Qt::LeftButton, {},
                      QPoint(profile->width() / 2, profile->height() * 3 / 4)); // the lower half

    EXPECT_EQ(Grid(form)->currentIndex().row(), 1);
}

TEST_F(Soil_Forms_Test, A_Horizon_Is_Copied_From_The_One_Above)
{
    form_soil_hor form(The_Session);
    form.show();
    Type(form, 0, Carbon, "2.5");
    QTest::keyClick(Grid(form), Qt::Key_Down);

    QTest::keyClick(Grid(form), Qt::Key_D, Qt::ControlModifier);

    EXPECT_EQ(Cell(form, 1, Carbon), "2.5");
}

TEST_F(Soil_Forms_Test, The_Core_Depth_Follows_Another_Sum_Of_Thickness)
{
    Szenario editor(The_Session, ".");
    editor.show();
    QApplication::processEvents();
    In_Modal([this](QWidget& form) {
        Type(form, 1, Thickness, "70");
        Click<QPushButton>(form, "Command2");
    });

    Click<QPushButton>(editor, "Command4");

    EXPECT_EQ(Find<QLineEdit>(editor, "Text_cor")->text(), "120");
    EXPECT_EQ(The_Session.Scenario.SZE_Core_Depth, 120);
    EXPECT_EQ(Find<QLabel>(editor, "Label2")->text(), "6.00");
}

TEST_F(Soil_Forms_Test, More_Horizons_In_The_Editor_Are_More_Rows_Of_The_Table)
{
    Szenario editor(The_Session, ".");
    editor.show();
    QApplication::processEvents();
    Retype(editor, "Text_nhor", "3");
    std::string title;
    In_Modal([&](QWidget& form) { title = Cell(form, 2, 0); });

    Click<QPushButton>(editor, "Command4");

    EXPECT_EQ(title, "Horizon 3");
}

TEST_F(Soil_Forms_Test, Erosion_Factors_Are_Stored_By_OK_And_A_Factor_Of_Zero_Is_An_Empty_Box)
{
    The_Session.Scenario.SZE_Eros_2 = 0;
    Szenario editor(The_Session, ".");
    editor.show();
    Choose_Option(editor, "Check_er");
    In_Modal([](QWidget& form) {
        EXPECT_EQ(form.windowTitle(), "Erosion parameters");
        EXPECT_EQ(Find<QLineEdit>(form, "Text1_er")->text(), "1");
        EXPECT_EQ(Find<QLineEdit>(form, "Text2_er")->text(), "");
        Retype(form, "Text1_er", "0.3");
        Retype(form, "Text5_er", "2");
        Click<QPushButton>(form, "Command1");
    });

    Click<QPushButton>(editor, "Command_er");

    EXPECT_EQ(The_Session.Scenario.SZE_Eros_K.Number(), 0.3);
    EXPECT_EQ(The_Session.Scenario.SZE_Eros_2.Number(), 0);
    EXPECT_EQ(The_Session.Scenario.SZE_Eros_5, 2);
}

TEST_F(Soil_Forms_Test, Macropore_Limits_Correct_Silently_And_The_Editor_Shows_The_Depth)
{
    Szenario editor(The_Session, ".");
    editor.show();
    Choose_Option(editor, "schnelle_Prozesse_1");
    In_Modal([](QWidget& form) {
        Retype(form, "S_Ic", "-1");
        Retype(form, "S_fmac", "1.5");
        Retype(form, "S_depma", "200");
        Click<QPushButton>(form, "Command1");
    });

    Click<QPushButton>(editor, "Command_macro");

    EXPECT_TRUE(The_User.Messages.empty());
    EXPECT_EQ(The_Session.Scenario.SZE_Macro_Threshold, 100);
    EXPECT_EQ(The_Session.Scenario.SZE_Macro_Fraction, 1);
    EXPECT_EQ(Find<QLineEdit>(editor, "schnelle_Prozesse_Tiefe_1")->text(), "95");
}

TEST_F(Soil_Forms_Test, The_Reset_Of_The_Macropores_Fills_The_Boxes_And_Cancel_Stores_Nothing)
{
    The_Session.Scenario.SZE_Macro_Fraction = 0.5;
    Macro form(The_Session);
    form.show();

    Click<QPushButton>(form, "Reset");
    EXPECT_EQ(Find<QLineEdit>(form, "S_Ic")->text(), "100.0");
    EXPECT_EQ(Find<QLineEdit>(form, "S_fmac")->text(), "0.0");
    Click<QPushButton>(form, "Command2");

    EXPECT_EQ(The_Session.Scenario.SZE_Macro_Fraction, 0.5);
}

} // namespace

} // namespace orvel
