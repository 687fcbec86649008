#include "substance/forms/deg_dat.h"

#include "window_test.h"

#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>

namespace orvel {

namespace {

class deg_dat_Test : public Window_Test {
protected:
    deg_dat_Test() { Reset_PSM(The_Session.Pesticide); }

    void Open(int t)
    {
        The_Session.Editor.Transformation_Index = static_cast<std::int16_t>(t);
        Form = std::make_unique<deg_dat>(The_Session);
        Form->show();
        QApplication::setActiveWindow(Form.get());
    }

    Degradation_Row& Row(int i, int j)
    {
        return The_Session.Pesticide.Degradation[static_cast<std::size_t>(i)][static_cast<std::size_t>(j)];
    }
    QString Text(const QString& name) { return Find<QLineEdit>(*Form, name)->text(); }
    bool Enabled(const QString& name) { return Find<QWidget>(*Form, name)->isEnabled(); }
    bool Chosen(const QString& name) { return Find<QRadioButton>(*Form, name)->isChecked(); }
    QStringList Texts(const QStringList& names)
    {
        QStringList texts;
        for (const auto& name : names)
            texts << Text(name);
        return texts;
    }
    QStringList Locked(const QStringList& names)
    {
        QStringList locked;
        for (const auto& name : names) {
            if (!Enabled(name))
                locked << name;
        }
        return locked;
    }

    const QStringList Soil = {"Text1", "Text2", "Text3"}, Light = {"Text10", "Text11", "Text12"};
    const QStringList Conditions = {"Text4", "Text8", "Text5", "Text6", "Text7", "Text9"};
    const QStringList Locked_By_A_Preset = {"Text4", "Text8", "Text5", "Text6", "Text7", "Option4", "Option5"};
    const QStringList All_Of_Correction = Locked_By_A_Preset + QStringList{"Text9"};
    std::unique_ptr<deg_dat> Form;
};

TEST_F(deg_dat_Test, Shows_The_Arrow_With_Its_Half_Lives_And_The_Rate_As_The_Field_To_Type_In)
{
    Row(3, 2) = {0.0693, 25, 2.2, 30, 0, 0.5, 0.1}; // the arrow from B1 to B2
    Open(11);

    EXPECT_EQ(Form->windowTitle(), "Transformation MET B1 to MET B2");
    EXPECT_EQ(Texts(Soil), (QStringList{"0.0693", "10.0", "33.2"}));
    EXPECT_EQ(Texts(Conditions), (QStringList{"25", "2.2", "30", "0", "0.5", "0.1"}));
    EXPECT_TRUE(Chosen("Option1"));
    EXPECT_EQ(Locked(Soil), (QStringList{"Text2", "Text3"}));
}

TEST_F(deg_dat_Test, Opens_With_The_Rate_Selected_For_Typing)
{
    Row(1, 1).Deg_Rate = 0.1;
    Open(1);

    EXPECT_EQ(Form->focusWidget(), Find<QLineEdit>(*Form, "Text1"));
    EXPECT_EQ(Find<QLineEdit>(*Form, "Text1")->selectedText(), "0.1");
}

TEST_F(deg_dat_Test, Soil_Photolysis_Shows_For_The_Arrows_Of_The_Active_Substance_Only)
{
    for (int t : {1, 5}) {
        Open(t);
        EXPECT_TRUE(Find<QLineEdit>(*Form, "Text10")->isVisible()) << t;
        EXPECT_TRUE(Find<QLineEdit>(*Form, "Text13")->isVisible()) << t;
    }
    for (int t : {6, 29}) {
        Open(t);
        EXPECT_FALSE(Find<QLineEdit>(*Form, "Text10")->isVisible()) << t;
        EXPECT_FALSE(Find<QLineEdit>(*Form, "Text13")->isVisible()) << t;
    }
}

TEST_F(deg_dat_Test, A_Rate_That_Was_Typed_Gives_Both_Half_Lives_On_Leaving)
{
    Open(1);

    Retype(*Form, "Text1", "0.0693");
    EXPECT_EQ(Texts(Soil), (QStringList{"0.0693", "10.0", "33.2"}));

    Retype(*Form, "Text1", "0");
    EXPECT_EQ(Texts(Soil), (QStringList{"0", "0", "0"}));
}

TEST_F(deg_dat_Test, A_Half_Life_That_Was_Typed_Gives_The_Rate_And_The_Other_Half_Life)
{
    Open(1);

    Choose_Option(*Form, "Option2");
    EXPECT_EQ(Locked(Soil), (QStringList{"Text1", "Text3"}));
    Retype(*Form, "Text2", "10"); // ln 2 / 10 = 0.0693147, ln 10 / 0.0693147 = 33.219
    EXPECT_EQ(Texts(Soil), (QStringList{"0.069315", "10", "33.2"}));

    Choose_Option(*Form, "Option3");
    EXPECT_EQ(Locked(Soil), (QStringList{"Text1", "Text2"}));
    Retype(*Form, "Text3", "0");
    EXPECT_EQ(Texts(Soil), (QStringList{"0", "0", "0"}));
}

TEST_F(deg_dat_Test, Passing_Over_A_Rounded_Half_Life_Does_Not_Change_The_Rate)
{
    Row(1, 1).Deg_Rate = 20; // DT 50 = 0.035 d shows as 0.0
    Open(1);
    Choose_Option(*Form, "Option2");
    Find<QLineEdit>(*Form, "Text2")->setFocus();
    QTest::keyClick(Find<QLineEdit>(*Form, "Text2"), Qt::Key_Tab);

    Click<QPushButton>(*Form, "Command1");

    EXPECT_EQ(Row(1, 1).Deg_Rate.Number(), 20);
}

TEST_F(deg_dat_Test, Photolysis_Has_Its_Own_Rate_And_Half_Lives)
{
    Open(3);

    Retype(*Form, "Text10", "0.0693");
    EXPECT_EQ(Texts(Light), (QStringList{"0.0693", "10.0", "33.2"}));
    EXPECT_EQ(Locked(Light), (QStringList{"Text11", "Text12"}));
    Choose_Option(*Form, "Option7");
    EXPECT_EQ(Locked(Light), (QStringList{"Text10", "Text12"}));
    Choose_Option(*Form, "Option6");
    EXPECT_EQ(Locked(Light), (QStringList{"Text10", "Text11"}));
    Choose_Option(*Form, "Option8");
    EXPECT_EQ(Locked(Light), (QStringList{"Text11", "Text12"}));
    EXPECT_EQ(Locked(Soil), (QStringList{"Text2", "Text3"}));
    Click<QPushButton>(*Form, "Command1");

    EXPECT_EQ(The_Session.Pesticide.Photo_Rate[3], 0.0693);
}

TEST_F(deg_dat_Test, Recognises_The_Recommended_Correction_Whatever_The_Non_Equilibrium_Sites_Say)
{
    Row(1, 1) = {0.1, 20, 2.58, 0, 100, 0.7, 0.1};
    Open(1);

    EXPECT_TRUE(Chosen("Korrektur_0"));
    EXPECT_TRUE(Chosen("Option4"));
    EXPECT_EQ(Locked(All_Of_Correction), Locked_By_A_Preset);
}

TEST_F(deg_dat_Test, Recognises_No_Correction)
{
    Row(1, 1) = {0.1, 25, 1.0, 0, 100, 0, 0};
    Open(1);

    EXPECT_TRUE(Chosen("Korrektur_1"));
    EXPECT_EQ(Locked(All_Of_Correction), Locked_By_A_Preset);
}

TEST_F(deg_dat_Test, An_Individual_Correction_Opens_With_The_Moisture_In_Use)
{
    Row(1, 1) = {0.1, 25, 2.2, 30, 0, 0.7, 0};
    Open(1);
    EXPECT_TRUE(Chosen("Korrektur_2"));
    EXPECT_TRUE(Chosen("Option5"));
    EXPECT_EQ(Locked(All_Of_Correction), QStringList{"Text6"});

    Row(1, 1).Deg_Moist_Rel = 50;
    Open(1);
    EXPECT_TRUE(Chosen("Option4"));
    EXPECT_EQ(Locked(All_Of_Correction), QStringList{"Text5"});
}

TEST_F(deg_dat_Test, A_Preset_Puts_Its_Values_And_Locks_The_Fields)
{
    Row(1, 1) = {0.1, 25, 2.2, 30, 0, 0.5, 0.1};
    Open(1);

    Choose_Option(*Form, "Korrektur_0");
    EXPECT_EQ(Texts(Conditions), (QStringList{"20", "2.58", "0", "100", "0.7", "0.0"}));
    EXPECT_TRUE(Chosen("Option4"));
    EXPECT_EQ(Locked(All_Of_Correction), Locked_By_A_Preset);

    Choose_Option(*Form, "Korrektur_1");
    EXPECT_EQ(Texts(Conditions), (QStringList{"20", "1.0", "0", "100", "0.0", "0.0"}));
    EXPECT_EQ(Locked(All_Of_Correction), Locked_By_A_Preset);

    Choose_Option(*Form, "Korrektur_2");
    EXPECT_EQ(Texts(Conditions), (QStringList{"20", "1.0", "0", "100", "0.0", "0.0"}));
    EXPECT_EQ(Locked(All_Of_Correction), QStringList());
}

TEST_F(deg_dat_Test, The_Moisture_Options_Lock_The_Field_That_Is_Not_In_Use)
{
    Open(1);
    Choose_Option(*Form, "Korrektur_2");

    Choose_Option(*Form, "Option5");
    EXPECT_EQ(Locked(All_Of_Correction), QStringList{"Text6"});
    Choose_Option(*Form, "Option4");
    EXPECT_EQ(Locked(All_Of_Correction), QStringList{"Text5"});
}

TEST_F(deg_dat_Test, At_Most_One_Of_The_Two_Moistures_Is_Not_Zero)
{
    Open(1);
    Choose_Option(*Form, "Korrektur_2");

    Retype(*Form, "Text5", "30");
    EXPECT_EQ(Text("Text6"), "0");
    Retype(*Form, "Text6", "60");
    EXPECT_EQ(Text("Text5"), "0");
}

TEST_F(deg_dat_Test, Accepting_Stores_All_Fields_And_Marks_The_Document)
{
    Open(11);
    Retype(*Form, "Text1", "0.05");
    Choose_Option(*Form, "Korrektur_2");
    Retype(*Form, "Text4", "25");
    Retype(*Form, "Text8", "2.2");
    Choose_Option(*Form, "Option5");
    Retype(*Form, "Text5", "30");
    Retype(*Form, "Text7", "0.5");
    Retype(*Form, "Text9", "0.1");

    Click<QPushButton>(*Form, "Command1");

    EXPECT_EQ(Row(3, 2), (Degradation_Row{"0.05", "25", "2.2", "30", "0", "0.5", 0.1}));
    EXPECT_TRUE(The_Session.Program.PSM_Changed);
    EXPECT_FALSE(Form->isVisible());
}

TEST_F(deg_dat_Test, The_Enter_Key_Leaves_The_Field_And_Shows_What_Follows_From_It)
{
    Open(1);
    Choose_Option(*Form, "Option2");
    auto* field = Find<QLineEdit>(*Form, "Text2");
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, "10");
    QTest::keyClick(field, Qt::Key_Enter);

    EXPECT_TRUE(Form->isVisible());
    EXPECT_FALSE(field->hasFocus());
    EXPECT_EQ(Find<QLineEdit>(*Form, "Text1")->text(), "0.069315");
}

TEST_F(deg_dat_Test, Half_Lives_Of_Zero_Remove_The_Arrow_And_The_Substance_That_Only_It_Forms)
{
    Row(1, 1).Deg_Rate = 0.1;
    Open(1);
    Choose_Option(*Form, "Option2");
    Retype(*Form, "Text2", "0");

    Click<QPushButton>(*Form, "Command1");

    EXPECT_FALSE(The_Session.Pesticide.Trans_Active[1]);
    EXPECT_FALSE(The_Session.Pesticide.Met_Present[2]);
}

TEST_F(deg_dat_Test, Nothing_Is_Refused_And_A_Text_That_Is_No_Number_Is_Zero)
{
    Open(1);
    Retype(*Form, "Text1", "abc");
    EXPECT_EQ(Texts(Soil), (QStringList{"abc", "0", "0"}));

    Click<QPushButton>(*Form, "Command1");

    EXPECT_TRUE(The_User.Messages.empty());
    EXPECT_EQ(Row(1, 1).Deg_Rate, Variant(0));
}

TEST_F(deg_dat_Test, Cancel_And_Escape_Write_Nothing)
{
    const auto before = The_Session.Pesticide;
    Open(1);
    Retype(*Form, "Text1", "0.5");
    Click<QPushButton>(*Form, "Command2");
    EXPECT_FALSE(Form->isVisible());

    Open(1);
    Retype(*Form, "Text1", "0.5");
    QTest::keyClick(Form.get(), Qt::Key_Escape);
    EXPECT_FALSE(Form->isVisible());

    EXPECT_EQ(The_Session.Pesticide, before);
    EXPECT_FALSE(The_Session.Program.PSM_Changed);
}

} // namespace

} // namespace orvel
