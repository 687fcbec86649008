#include "runs/forms/ausgabe_festlegen.h"

#include "runs/output_selection.h"
#include "window_test.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>

namespace orvel {

namespace {

class Ausgabe_festlegen_Test : public Window_Test {
protected:
    Ausgabe_festlegen_Test()
    {
        The_Session.Output = Recommended_Output();
        Form = std::make_unique<Ausgabe_festlegen>(The_Session.Output);
        Form->show();
    }

    // Chooses an entry as a hand does with the keyboard.
    void Choose(const QString& name, int index)
    {
        auto* combo = Find<QComboBox>(*Form, name);
        combo->setFocus();
        QTest::keyClick(combo, Qt::Key_Home);
        for (int i = 0; i < index; ++i)
            QTest::keyClick(combo, Qt::Key_Down);
        ASSERT_EQ(combo->currentIndex(), index);
    }

    std::unique_ptr<Ausgabe_festlegen> Form;
};

} // namespace

TEST_F(Ausgabe_festlegen_Test, Shows_The_Slots)
{
    EXPECT_EQ(Find<QComboBox>(*Form, "Parameter_14")->currentText(), "Percolate concentration");
    EXPECT_EQ(Find<QComboBox>(*Form, "Tiefe_14")->currentText(), "100");
    EXPECT_EQ(Find<QComboBox>(*Form, "Substanz_14")->currentText(), "Active compound");
    EXPECT_TRUE(Find<QComboBox>(*Form, "Parameter_15")->currentText().contains("Please select"));
}

TEST_F(Ausgabe_festlegen_Test, Asks_For_Depth_And_Substance_Only_Where_A_Series_Has_Them)
{
    EXPECT_FALSE(Find<QComboBox>(*Form, "Tiefe_0")->isVisible()); // precipitation
    EXPECT_FALSE(Find<QComboBox>(*Form, "Substanz_0")->isVisible());
    EXPECT_TRUE(Find<QComboBox>(*Form, "Tiefe_2")->isVisible()); // percolate
    EXPECT_FALSE(Find<QComboBox>(*Form, "Substanz_2")->isVisible());
    EXPECT_TRUE(Find<QComboBox>(*Form, "Tiefe_11")->isVisible()); // total concentration in soil
    EXPECT_TRUE(Find<QComboBox>(*Form, "Substanz_11")->isVisible());

    Choose("Parameter_11", 9); // total degradation: summed over the profile
    EXPECT_FALSE(Find<QComboBox>(*Form, "Tiefe_11")->isVisible());
    EXPECT_TRUE(Find<QComboBox>(*Form, "Substanz_11")->isVisible());
}

TEST_F(Ausgabe_festlegen_Test, Done_Takes_All_Rows_Over_With_Their_Gaps)
{
    Choose("Parameter_1", 0);
    Choose("Tiefe_2", 30);
    Choose("Parameter_19", 23);
    Choose("Substanz_19", 8);
    Click<QPushButton>(*Form, "OK");

    EXPECT_EQ(The_Session.Output[1].Out_Var, 0);
    EXPECT_EQ(The_Session.Output[2], (Output_Slot{3, 30, 0}));
    EXPECT_EQ(The_Session.Output[19], (Output_Slot{23, 0, 8}));
    EXPECT_FALSE(Form->isVisible());
}

TEST_F(Ausgabe_festlegen_Test, Offers_Depths_To_200_And_Keeps_A_Deeper_One_Of_A_Run_Control_File)
{
    EXPECT_EQ(Find<QComboBox>(*Form, "Tiefe_0")->count(), 201);
    The_Session.Output[14].Out_Depth = 250;
    Form = std::make_unique<Ausgabe_festlegen>(The_Session.Output);

    Click<QPushButton>(*Form, "OK");

    EXPECT_EQ(The_Session.Output[14], (Output_Slot{23, 250, 0}));
}

TEST_F(Ausgabe_festlegen_Test, Cancel_Leaves_The_Slots_As_They_Were)
{
    Choose("Parameter_0", 5);
    Click<QPushButton>(*Form, "Abbrechen");

    EXPECT_EQ(The_Session.Output, Recommended_Output());
    EXPECT_FALSE(Form->isVisible());
}

} // namespace orvel
