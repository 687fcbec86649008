#include "substance/forms/kin_sorption.h"

#include "window_test.h"

#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

namespace orvel {

namespace {

class kin_Sorption_Test : public Window_Test {
protected:
    kin_Sorption_Test() { Reset_PSM(The_Session.Pesticide); }

    void Open(double f_ne, double kd)
    {
        The_Session.Pesticide.F_neq[3] = f_ne;
        The_Session.Pesticide.K_des[3] = kd;
        Form = std::make_unique<kin_Sorption>(The_Session, 3);
        Form->show();
        QApplication::setActiveWindow(Form.get());
    }

    QStringList Texts() const
    {
        return {Find<QLineEdit>(*Form, "s_f_neq")->text(), Find<QLineEdit>(*Form, "s_kdes")->text()};
    }
    QStringList Captions() const
    {
        return {Find<QLabel>(*Form, "Bezeichnung_Anteil")->text(),
                Find<QLabel>(*Form, "Bezeichnung_Sorptionsrate")->text()};
    }
    bool Chosen(const QString& name) const { return Find<QRadioButton>(*Form, name)->isChecked(); }
    QString Focused() const { return Form->focusWidget()->objectName(); }
    static Message Warning(const char* text) { return {"Wrong input parameter selection", text}; }

    const Message Not_Zero = Warning("This fraction must be greater than 0."),
                  Not_Negative = Warning("This fraction cannot be smaller than 0.");
    std::unique_ptr<kin_Sorption> Form;
};

TEST_F(kin_Sorption_Test, Opens_In_The_PEARL_Notation_With_Captions_Of_Its_Own)
{
    Open(0.5, 0.02);

    EXPECT_EQ(Texts(), (QStringList{"0.5", "0.02"}));
    EXPECT_EQ(Captions(), (QStringList{"Fraction  of non-eq sites to eq-sites", "Desorption rate (1/d):"}));
    EXPECT_TRUE(Chosen("kin_Modell_0"));
}

TEST_F(kin_Sorption_Test, Turns_Both_Texts_Into_The_Other_Notation_And_Back)
{
    Open(1, 0.1);

    Choose_Option(*Form, "kin_Modell_1");
    EXPECT_EQ(Texts(), (QStringList{"0.5", "0.05"}));
    EXPECT_EQ(Captions(), (QStringList{"STRECK fraction of eq.-sites to all-sites (f_eq):",
                                       "STRECK sorption rate 'alpha' (1/d):"}));

    Choose_Option(*Form, "kin_Modell_0");
    EXPECT_EQ(Texts(), (QStringList{"1", "0.1"}));
    EXPECT_EQ(Captions(), (QStringList{"PEARL fraction of non-eq.-sites to eq.-sites (f_ne):",
                                       "PEARL desorption rate 'kd' (1/d):"}));
}

TEST_F(kin_Sorption_Test, A_STRECK_Fraction_Of_1_Does_Not_Turn_Back_And_Changes_Its_Meaning)
{
    Open(0, 0.5);

    Choose_Option(*Form, "kin_Modell_1");
    EXPECT_EQ(Texts(), (QStringList{"1", "0"}));
    Choose_Option(*Form, "kin_Modell_0");
    EXPECT_EQ(Texts(), (QStringList{"1", "0"}));
    Click<QPushButton>(*Form, "Command1");

    EXPECT_EQ(The_Session.Pesticide.F_neq[3], 1);
    EXPECT_EQ(The_Session.Pesticide.K_des[3], 0);
}

TEST_F(kin_Sorption_Test, A_Negative_Fraction_Is_Refused_On_Leaving)
{
    Open(0.5, 0.02);

    Retype(*Form, "s_f_neq", "-0.1");

    EXPECT_EQ(The_User.Messages, std::vector{Not_Negative});
    EXPECT_EQ(Focused(), "s_f_neq");
    EXPECT_EQ(Texts()[0], "-0.1");
}

TEST_F(kin_Sorption_Test, A_STRECK_Fraction_Of_Zero_Is_Refused_On_Leaving)
{
    Open(1, 0.1);
    Retype(*Form, "s_f_neq", "0");
    EXPECT_TRUE(The_User.Messages.empty()); // a PEARL fraction of 0 is a value

    Choose_Option(*Form, "kin_Modell_1");
    Retype(*Form, "s_f_neq", "0");

    EXPECT_EQ(The_User.Messages, std::vector{Not_Zero});
    EXPECT_EQ(Focused(), "s_f_neq");
}

TEST_F(kin_Sorption_Test, A_Negative_Rate_Is_Refused_On_Leaving_In_The_Words_Of_A_Fraction)
{
    Open(0.5, 0.02);
    auto* rate = Find<QLineEdit>(*Form, "s_kdes");
    rate->setFocus();
    rate->selectAll();
    QTest::keyClicks(rate, "-1");
    QTest::keyClick(rate, Qt::Key_Backtab); // to the fraction

    EXPECT_EQ(The_User.Messages, std::vector{Not_Negative});
    EXPECT_EQ(Focused(), "s_kdes");
}

TEST_F(kin_Sorption_Test, A_Refused_Value_Keeps_Its_Notation_And_Is_Told_Once)
{
    Open(0.5, 0.02);
    auto* fraction = Find<QLineEdit>(*Form, "s_f_neq");
    fraction->setFocus();
    fraction->selectAll();
    QTest::keyClicks(fraction, "-1");

    Choose_Option(*Form, "kin_Modell_1");

    EXPECT_EQ(The_User.Messages, std::vector{Not_Negative});
    EXPECT_TRUE(Chosen("kin_Modell_0"));
    EXPECT_EQ(Texts(), (QStringList{"-1", "0.02"}));
    EXPECT_EQ(Focused(), "s_f_neq");
}

TEST_F(kin_Sorption_Test, The_Enter_Key_Leaves_The_Field_And_Tells_A_Refusal_Once)
{
    Open(0.5, 0.02);
    auto* fraction = Find<QLineEdit>(*Form, "s_f_neq");
    fraction->selectAll();
    QTest::keyClicks(fraction, "-1");
    QTest::keyClick(fraction, Qt::Key_Enter);
    EXPECT_EQ(The_User.Messages, std::vector{Not_Negative});
    EXPECT_EQ(Focused(), "s_f_neq");

    fraction->selectAll();
    QTest::keyClicks(fraction, "0.25");
    QTest::keyClick(fraction, Qt::Key_Enter);
    EXPECT_TRUE(Form->isVisible());
    EXPECT_EQ(Focused(), "s_kdes");
}

TEST_F(kin_Sorption_Test, A_Negative_Rate_Is_Refused_When_It_Is_Left_For_The_Buttons)
{
    Open(0.5, 0.02);

    Retype(*Form, "s_kdes", "-1");

    EXPECT_EQ(The_User.Messages, std::vector{Not_Negative});
    EXPECT_EQ(Focused(), "s_kdes");
    Click<QPushButton>(*Form, "Command1");
    EXPECT_EQ(The_User.Messages.size(), 2U); // one complaint for the click, too
    EXPECT_TRUE(Form->isVisible());
}

TEST_F(kin_Sorption_Test, A_Number_Too_Large_To_Be_Held_Keeps_The_Form_Open)
{
    Open(0.5, 0.02);
    Retype(*Form, "s_kdes", "1e308");

    Click<QPushButton>(*Form, "Command1");

    EXPECT_EQ(The_User.Messages, std::vector{(Message{"Data check", "\"1e308\" is too large a number."})});
    EXPECT_EQ(Focused(), "s_kdes");
    EXPECT_TRUE(Form->isVisible());
}

TEST_F(kin_Sorption_Test, Done_Stores_The_PEARL_Values_Of_A_STRECK_Entry)
{
    Open(0, 0);
    Choose_Option(*Form, "kin_Modell_1");
    Retype(*Form, "s_f_neq", "0.5");
    Retype(*Form, "s_kdes", "0.05");

    Click<QPushButton>(*Form, "Command1");

    EXPECT_EQ(The_Session.Pesticide.F_neq[3], 1);
    EXPECT_EQ(The_Session.Pesticide.K_des[3], 0.1);
}

TEST_F(kin_Sorption_Test, Cancel_Is_Free_With_A_Value_That_Would_Be_Refused)
{
    Open(0.5, 0.02);
    const auto before = The_Session.Pesticide;
    auto* fraction = Find<QLineEdit>(*Form, "s_f_neq");
    fraction->selectAll();
    QTest::keyClicks(fraction, "-1");

    Click<QPushButton>(*Form, "Command2");

    EXPECT_TRUE(The_User.Messages.empty());
    EXPECT_FALSE(Form->isVisible());
    EXPECT_EQ(The_Session.Pesticide, before);
    EXPECT_FALSE(The_Session.Program.PSM_Changed);
}

} // namespace

} // namespace orvel
