#include "substance/forms/koc_ph.h"

#include "window_test.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>

namespace orvel {

namespace {

class KOC_PH_Test : public Window_Test {
protected:
    KOC_PH_Test() { Reset_PSM(The_Session.Pesticide); }

    void Open(double pka, double second_ph)
    {
        The_Session.Pesticide.Sorp_pKa[2] = pka;
        The_Session.Pesticide.Sorp_pH2[2] = second_ph;
        Form = std::make_unique<KOC_PH>(The_Session, 2, "120");
        Form->show();
        QApplication::setActiveWindow(Form.get());
    }

    QStringList Visible() const
    {
        QStringList visible;
        for (const auto* name :
             {"s_KOC", "s_pH", "Label3", "s_Dataset", "s_KOC2", "Label2", "s_pH2", "Label4", "s_pKa"}) {
            if (Find<QWidget>(*Form, name)->isVisible())
                visible << name;
        }
        return visible;
    }

    QString Text(const QString& name) const { return Find<QLineEdit>(*Form, name)->text(); }

    const QStringList No_pH = {"s_KOC", "s_pKa"};
    const QStringList One_pH = {"s_KOC", "s_pH", "Label3", "s_Dataset", "s_pKa"};
    const QStringList Two_pH = {"s_KOC", "s_pH", "Label3", "s_Dataset", "s_KOC2", "Label2", "s_pH2", "Label4", "s_pKa"};
    std::unique_ptr<KOC_PH> Form;
};

TEST_F(KOC_PH_Test, Shows_The_Koc_Of_The_Substance_Form_And_The_Values_Of_The_Substance)
{
    The_Session.Pesticide.Koc[2] = 7; // the form's field has been typed in since
    The_Session.Pesticide.Koc2[2] = 40;
    The_Session.Pesticide.Sorp_pH[2] = 5.5;
    Open(4.2, 8);

    EXPECT_EQ(Text("s_KOC"), "120");
    EXPECT_EQ(Text("s_KOC2"), "40");
    EXPECT_EQ(Text("s_pH"), "5.5");
    EXPECT_EQ(Text("s_pH2"), "8");
    EXPECT_EQ(Text("s_pKa"), "4.2");
}

TEST_F(KOC_PH_Test, A_pKa_Of_20_Or_0_Leaves_Only_Koc_And_pKa)
{
    Open(20, 8);
    EXPECT_EQ(Visible(), No_pH);
    Open(0, 8);
    EXPECT_EQ(Visible(), No_pH);
}

TEST_F(KOC_PH_Test, No_Second_pH_Opens_With_The_Box_Checked_And_One_Pair)
{
    Open(4.2, -99);
    EXPECT_TRUE(Find<QCheckBox>(*Form, "s_Dataset")->isChecked());
    EXPECT_EQ(Visible(), One_pH);

    Open(4.2, 8);
    EXPECT_FALSE(Find<QCheckBox>(*Form, "s_Dataset")->isChecked());
    EXPECT_EQ(Visible(), Two_pH);
}

TEST_F(KOC_PH_Test, The_Box_Hides_And_Shows_The_Second_Pair)
{
    Open(4.2, 8);
    Choose_Option(*Form, "s_Dataset");
    EXPECT_EQ(Visible(), One_pH);
    Choose_Option(*Form, "s_Dataset");
    EXPECT_EQ(Visible(), Two_pH);
}

TEST_F(KOC_PH_Test, The_pKa_Counts_While_It_Is_Typed)
{
    Open(20, 8);
    auto* pka = Find<QLineEdit>(*Form, "s_pKa");

    QTest::keyClick(pka, Qt::Key_End);
    QTest::keyClick(pka, Qt::Key_Backspace);
    EXPECT_EQ(Visible(), Two_pH);
    QTest::keyClicks(pka, "0");
    EXPECT_EQ(Visible(), No_pH);
}

TEST_F(KOC_PH_Test, Done_Stores_All_Five_And_Gives_The_Koc_Back)
{
    Open(20, -99);
    Retype(*Form, "s_pKa", "4.2");
    Retype(*Form, "s_KOC", "90");
    Retype(*Form, "s_pH", "5");
    Choose_Option(*Form, "s_Dataset");
    Retype(*Form, "s_KOC2", "30");
    Retype(*Form, "s_pH2", "8");

    Click<QPushButton>(*Form, "Command1");

    const auto& document = The_Session.Pesticide;
    EXPECT_EQ(document.Koc[2].Number(), 90);
    EXPECT_EQ(document.Sorp_pH[2].Number(), 5);
    EXPECT_EQ(document.Koc2[2].Number(), 30);
    EXPECT_EQ(document.Sorp_pH2[2].Number(), 8);
    EXPECT_EQ(document.Sorp_pKa[2].Number(), 4.2);
    EXPECT_EQ(Form->Text_koc0(), "90");
    EXPECT_EQ(Form->result(), QDialog::Accepted);
    EXPECT_TRUE(The_Session.Program.PSM_Changed);
}

TEST_F(KOC_PH_Test, A_Single_pH_Is_Stored_As_Minus_99)
{
    Open(4.2, 8);
    Choose_Option(*Form, "s_Dataset");

    Click<QPushButton>(*Form, "Command1");

    EXPECT_EQ(The_Session.Pesticide.Sorp_pH2[2].Number(), -99);
}

TEST_F(KOC_PH_Test, Cancel_Changes_Nothing)
{
    Open(4.2, 8);
    const auto before = The_Session.Pesticide;
    Retype(*Form, "s_KOC", "90");

    Click<QPushButton>(*Form, "Command2");

    EXPECT_EQ(The_Session.Pesticide, before);
    EXPECT_EQ(Form->Text_koc0(), "120");
    EXPECT_EQ(Form->result(), QDialog::Rejected);
    EXPECT_FALSE(The_Session.Program.PSM_Changed);
}

} // namespace

} // namespace orvel
