#include "substance/forms/form_as.h"

#include "substance/horizon_table.h"
#include "substance/pesticide_editor.h"
#include "ui/forms/widgets.h"
#include "window_test.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

namespace orvel {

namespace {

class Form_AS_Test : public Window_Test {
protected:
    Form_AS_Test()
    {
        Reset_PSM(Document);
        Document.App_Mode = 0;
        Document.Molmass[1] = 300;
    }

    void Open()
    {
        Open_Active_Substance(The_Session);
        Form = std::make_unique<Form_AS>(The_Session);
        Form->show();
        QApplication::setActiveWindow(Form.get());
    }

    QString Text(const QString& name) { return Find<QLineEdit>(*Form, name)->text(); }
    QStringList Texts(const QStringList& names)
    {
        QStringList texts;
        for (const auto& name : names)
            texts << Text(name);
        return texts;
    }
    QStringList Hidden(const QStringList& names)
    {
        QStringList hidden;
        for (const auto& name : names) {
            if (!Find<QWidget>(*Form, name)->isVisible())
                hidden << name;
        }
        return hidden;
    }
    bool Visible(const QString& name) { return Find<QWidget>(*Form, name)->isVisible(); }
    bool Chosen(const QString& name) { return Find<QRadioButton>(*Form, name)->isChecked(); }
    QString Focused() { return Form->focusWidget() ? Form->focusWidget()->objectName() : QString(); }
    void Done() { Click<QPushButton>(*Form, "Command_ok1"); }

    const QStringList Henry = {"Label_vol_0", "Text_vol0_0", "Text_vol0_1"};
    const QStringList Vapour = {"Label_vol_1", "Text_vol1_0", "Text_vol1_1"};
    const QStringList Solubility = {"Label_vol_2", "Text_vol2_0", "Text_vol2_1"};
    const QStringList All_Volatility = Henry + Vapour + Solubility;
    Pesticide_Document& Document = The_Session.Pesticide;
    std::unique_ptr<Form_AS> Form;
};

TEST_F(Form_AS_Test, Shows_The_Fields_Of_The_Document)
{
    Document.Substance_Name[1] = "Compound";
    Document.PSM_Title = "A study";
    Document.Plant_Uptake[1] = 0.4;
    Document.Koc[1] = 60;
    Document.App_Method = 2;
    Document.Henry_Flag = 1;
    Document.Volat_Temp = {20, 25};
    Document.Vap_Press = {1E-4, 2.3456E-4};
    Document.Solubility = {90, 180};
    Open();

    EXPECT_EQ(Form->windowTitle(), "Active Substance");
    EXPECT_EQ(Texts({"Text_AS", "Text_comment", "Text_mol", "text_uptkf", "Text_koc0", "Text_vol3", "Text_vol4"}),
              (QStringList{"Compound", "A study", "300", "0.4", "60", "0.05", "0.1"}));
    EXPECT_EQ(Texts({"S_Temperatur_0", "S_Temperatur_1", "Text_vol1_0", "Text_vol1_1", "Text_vol2_0", "Text_vol2_1"}),
              (QStringList{"20", "25", "1.00E-04", "2.35E-04", "90", "180"}));
    EXPECT_TRUE(Chosen("App_Flag2"));
    EXPECT_TRUE(Chosen("Option_hen2"));
}

TEST_F(Form_AS_Test, Done_Stores_What_Was_Typed)
{
    Open();
    Retype(*Form, "Text_AS", "Compound");
    Retype(*Form, "Text_comment", "A study");
    Retype(*Form, "Text_mol", "211.50");
    Retype(*Form, "text_uptkf", "0.4");
    Retype(*Form, "Text_koc0", "60");
    Retype(*Form, "Text_koc1", "0.85");
    Retype(*Form, "Text_KOC_MOI", "2");
    Choose_Option(*Form, "Check_Hydrolysis");
    Choose_Option(*Form, "tiefenabhaengig_1");
    Choose_Option(*Form, "App_Flag4");
    Choose_Option(*Form, "Option_hen2");
    Retype(*Form, "S_Temperatur_0", "10");
    Retype(*Form, "S_Temperatur_1", "25");
    Retype(*Form, "Text_vol1_0", "1e-4");
    Retype(*Form, "Text_vol1_1", "3e-4");
    Retype(*Form, "Text_vol2_0", "90");
    Retype(*Form, "Text_vol2_1", "120");
    Click<QPushButton>(*Form, "Command4");
    Retype(*Form, "Text_koc4", "0.02");
    Retype(*Form, "Text_koc5", "3");
    Retype(*Form, "text_kdoc", "4");
    Retype(*Form, "Text_vol3", "0.06");
    Retype(*Form, "Text_vol4", "0.2");

    Done();

    EXPECT_FALSE(Form->isVisible());
    EXPECT_TRUE(The_User.Messages.empty());
    EXPECT_TRUE(The_Session.Program.PSM_Changed);
    EXPECT_EQ(Document.Substance_Name[1], "Compound");
    EXPECT_EQ(Document.PSM_Title, "A study");
    EXPECT_EQ(Document.Molmass[1].Text(), "211.50");
    EXPECT_EQ(Document.Plant_Uptake[1].Number(), 0.4);
    EXPECT_EQ(Document.Koc[1].Number(), 60);
    EXPECT_EQ(Document.Fr_Exp[1].Number(), 0.85);
    EXPECT_EQ(Document.Freundl_Limit[1].Number(), 0.02);
    EXPECT_EQ(Document.Ann_Incr[1], 3);
    EXPECT_EQ(Document.K_doc[1], 4);
    EXPECT_EQ(Document.Koc_Change[1], 2);
    EXPECT_EQ(Document.Deg_Liquid_Only[1], 1);
    EXPECT_EQ(Document.Deg_Depth_Mode[1], 1);
    EXPECT_EQ(Document.App_Method.Number(), 4);
    EXPECT_EQ(Document.Henry_Flag.Number(), 1);
    EXPECT_EQ(Document.Volat_Temp, (std::array<double, 2>{10, 25}));
    EXPECT_EQ(Document.Vap_Press, (std::array<double, 2>{1e-4, 3e-4}));
    EXPECT_EQ(Document.Solubility, (std::array<double, 2>{90, 120}));
    EXPECT_EQ(Document.Diff_Air, 0.06);
    EXPECT_EQ(Document.Depth_Volat, 0.2);
}

TEST_F(Form_AS_Test, The_Tab_Key_Goes_From_The_Name_To_The_Comment_And_On)
{
    Open();
    EXPECT_EQ(Focused(), "Text_AS");
    QTest::keyClick(Form.get(), Qt::Key_Tab);
    EXPECT_EQ(Focused(), "Text_comment");
    QTest::keyClick(Form.get(), Qt::Key_Tab);
    EXPECT_EQ(Focused(), "Text_mol");
}

TEST_F(Form_AS_Test, Refuses_A_Molar_Mass_Of_Zero_And_Goes_Back_To_The_Field)
{
    Open();
    Retype(*Form, "Text_mol", "0");

    Done();

    EXPECT_EQ(The_User.Messages, std::vector{(Message{"Data check", "Molmass must be greater than 0"})});
    EXPECT_EQ(Focused(), "Text_mol");
    EXPECT_TRUE(Form->isVisible());
    EXPECT_EQ(Document.Molmass[1].Number(), 300);
}

TEST_F(Form_AS_Test, Refuses_A_Negative_Number_Of_Horizons_And_Goes_Back_To_The_Field)
{
    Open();
    Choose_Option(*Form, "tiefenabhaengig_2");
    Retype(*Form, "Text_nhor", "-1");

    Done();

    EXPECT_EQ(The_User.Messages, std::vector{(Message{"Data check", "Number of horizons must be greater than 0"})});
    EXPECT_EQ(Focused(), "Text_nhor");
    EXPECT_TRUE(Form->isVisible());
}

TEST_F(Form_AS_Test, A_Direct_Henry_Constant_Known_At_One_Temperature_Gets_A_Second_Point)
{
    Open();
    Retype(*Form, "Text_vol0_0", "1E-4");
    Retype(*Form, "Text_vol0_1", "0");

    Done();

    EXPECT_EQ(Document.Henry, (std::array<double, 2>{1E-4, 2E-4}));
    EXPECT_EQ(Document.Volat_Temp, (std::array<double, 2>{20, 30}));
}

TEST_F(Form_AS_Test, Temperatures_That_Are_Equal_Part_By_Ten_Degrees_And_Show_So_When_The_Form_Stays)
{
    Document.Henry_Flag = 1;
    Document.Solubility = {10, 12};
    Open();
    Retype(*Form, "S_Temperatur_1", "20");
    Retype(*Form, "Text_mol", "0");

    Done();

    EXPECT_TRUE(Form->isVisible());
    EXPECT_EQ(Texts({"S_Temperatur_0", "S_Temperatur_1", "Text_vol2_0", "Text_vol2_1"}),
              (QStringList{"20", "30", "10", "12"}));
}

TEST_F(Form_AS_Test, A_Value_That_Was_Not_Typed_Keeps_The_Digits_That_Its_Scientific_Text_Lacks)
{
    Document.Henry_Flag = 1;
    Document.Solubility = {10, 20};
    Document.Vap_Press = {1.23456789E-4, 4.9382715E-4};
    Document.Henry = {0.001234567, 0.004938};
    Open();

    Done();

    EXPECT_EQ(Document.Vap_Press, (std::array<double, 2>{1.23456789E-4, 4.9382715E-4}));
    EXPECT_EQ(Document.Henry, (std::array<double, 2>{0.001234567, 0.004938}));
}

TEST_F(Form_AS_Test, A_Direct_Henry_Constant_Of_A_Soil_Application_Needs_No_Vapour_Pressure)
{
    Document.Henry_Flag = 1;
    Document.Solubility = {10, 20};
    Open();
    EXPECT_EQ(Hidden(All_Volatility), Henry);

    Choose_Option(*Form, "Option_hen1");
    EXPECT_EQ(Hidden(All_Volatility), Vapour + Solubility);
    for (const char* foliar : {"App_Flag2", "App_Flag3", "App_Flag4"}) {
        Choose_Option(*Form, foliar);
        EXPECT_EQ(Hidden(All_Volatility), Solubility) << foliar;
    }
    Choose_Option(*Form, "App_Flag1");
    EXPECT_EQ(Hidden(All_Volatility), Vapour + Solubility);

    Choose_Option(*Form, "Option_hen2");
    EXPECT_EQ(Hidden(All_Volatility), Henry);
}

TEST_F(Form_AS_Test, A_Substance_Without_A_Solubility_Opens_With_A_Direct_Henry_Constant)
{
    Document.Henry_Flag = 1;
    Document.Solubility = {10, 0};
    Open();

    EXPECT_TRUE(Chosen("Option_hen1"));
}

TEST_F(Form_AS_Test, The_Kind_Of_Application_Shows_Depth_Or_Interception_And_The_Way_To_The_Plant_Surface)
{
    const QStringList fields = {"Command1", "Tiefe", "Interception"};
    Open();
    EXPECT_EQ(Hidden(fields), (QStringList{"Command1", "Interception"}));

    Choose_Option(*Form, "App_Flag2");
    EXPECT_EQ(Hidden(fields), (QStringList{"Tiefe", "Interception"}));
    Choose_Option(*Form, "App_Flag3");
    EXPECT_EQ(Hidden(fields), (QStringList{"Tiefe", "Interception"}));
    Choose_Option(*Form, "App_Flag4");
    EXPECT_EQ(Hidden(fields), QStringList{"Tiefe"});
}

TEST_F(Form_AS_Test, The_Plant_Surface_Opens_For_The_Kind_That_Is_Chosen_And_Cancel_Puts_Its_Values_Back)
{
    Open();
    Choose_Option(*Form, "App_Flag3");

    In_Modal([](QWidget& form) {
        EXPECT_TRUE(Find<QLineEdit>(form, "S_plt_filtr")->isVisible());
        Retype(form, "S_plt_filtr", "0.3");
        Click<QPushButton>(form, "Command1");
    });
    Click<QPushButton>(*Form, "Command1");
    EXPECT_EQ(Document.Plant_Filtration, 0.3);

    Click<QPushButton>(*Form, "Command_cancel");
    EXPECT_EQ(Document.Plant_Filtration, 0);
}

TEST_F(Form_AS_Test, The_Minor_Parameters_Come_And_Go_With_A_Button_That_Names_What_It_Shows)
{
    const QStringList minor = {"Label_vol_3", "Label_vol_4", "Label_koc_4", "Label_koc_5", "Label_koc_6",
                               "Text_vol3",   "Text_vol4",   "Text_koc4",   "Text_koc5",   "text_kdoc"};
    Open();
    EXPECT_EQ(Hidden(minor), minor);
    EXPECT_EQ(Find<QPushButton>(*Form, "Command4")->text(), "Show all input parameters");

    Click<QPushButton>(*Form, "Command4");
    EXPECT_EQ(Hidden(minor), QStringList());
    EXPECT_EQ(Find<QPushButton>(*Form, "Command4")->text(), "Show major input parameters");

    Click<QPushButton>(*Form, "Command4");
    EXPECT_EQ(Hidden(minor), minor);
}

TEST_F(Form_AS_Test, Notes_Tell_Of_Sorption_That_Depends_On_PH_And_Time_But_Not_On_Moisture)
{
    Document.Sorp_pKa[1] = 4;
    Document.F_neq[1] = 0.5;
    Document.Koc_Change[1] = 2;
    Open();

    EXPECT_TRUE(Visible("label_pH"));
    EXPECT_TRUE(Visible("Label_kinSorp"));
    EXPECT_FALSE(Visible("Label_Sorption"));
}

TEST_F(Form_AS_Test, Cancel_And_Escape_Put_Everything_Back)
{
    Reset_Horizon_Table(Document, 3);
    Document.N_Horizons = 3;
    Document.Deg_Depth_Mode[1] = 2;
    Document.Horizons[1].Hor_Kd[1] = 7;
    const auto before = Document;

    Open();
    Retype(*Form, "Text_AS", "Compound");
    Retype(*Form, "Text_nhor", "5");
    Retype(*Form, "Rate", "2");
    Click<QAbstractButton>(*Form, "mehr_Applikationen_im_Jahr");
    Click<QPushButton>(*Form, "Command_cancel");
    EXPECT_FALSE(Form->isVisible());
    EXPECT_TRUE(Document == before);

    Open();
    Retype(*Form, "Rate", "2");
    QTest::keyClick(Form.get(), Qt::Key_Escape);
    EXPECT_TRUE(Document == before);
}

TEST_F(Form_AS_Test, Cancel_Forgets_Changes_Made_Before_The_Form_Opened_Too)
{
    The_Session.Program.PSM_Changed = true;
    Open();

    Click<QPushButton>(*Form, "Command_cancel");

    EXPECT_FALSE(The_Session.Program.PSM_Changed);
}

TEST_F(Form_AS_Test, Takes_Texts_Of_Ten_Thousand_Characters_Without_Growing)
{
    Open();
    const auto size = Form->size();
    const QString text(10000, 'x');
    for (const char* name : {"Text_AS", "Text_comment", "Text_mol", "Rate"}) {
        auto* field = Find<QLineEdit>(*Form, name);
        field->selectAll();
        field->insert(text);
        EXPECT_EQ(Form->size(), size) << name;
    }
    Retype(*Form, "Text_mol", "300");
    Done();

    EXPECT_FALSE(Form->isVisible());
    EXPECT_EQ(Document.Substance_Name[1], text.toStdString());
    EXPECT_EQ(Document.PSM_Title, text.toStdString());
    Open();
    EXPECT_EQ(Form->size(), size);
}

TEST_F(Form_AS_Test, A_Value_Whose_Double_Overflows_Is_Refused_Where_It_Is_Entered)
{
    Document.Henry_Flag = 1;
    Document.Vap_Press = {1e-4, 4e-4};
    Document.Solubility = {90, 180};
    Open();
    for (const char* box : {"Text_vol1_0", "Text_vol2_0"}) {
        Retype(*Form, box, "1e308");

        Done();

        EXPECT_TRUE(Form->isVisible());
        EXPECT_EQ(Form->focusWidget()->objectName(), box);
        EXPECT_EQ(The_User.Messages.back().Text, "\"1e308\" is too large a number.");
        Retype(*Form, box, "1");
    }
    EXPECT_EQ(The_User.Messages.size(), 2U);
}

TEST_F(Form_AS_Test, A_Character_That_The_Code_Page_Lacks_Is_Left_Out_Of_The_Comment_And_Told)
{
    Open();
    auto* field = Find<QLineEdit>(*Form, "Text_comment");
    field->setFocus();
    field->selectAll();
    field->insert(QString::fromUtf8("Düngung 水"));
    QCoreApplication::processEvents();

    EXPECT_EQ(field->toolTip(), QString::fromUtf8("The file cannot hold \"水\": left out."));
    Done();
    EXPECT_EQ(Shown(Document.PSM_Title), QString::fromUtf8("Düngung "));
}

} // namespace

TEST_F(Form_AS_Test, An_Undo_Puts_Back_The_Document_With_Its_Applications_And_Cancel_Still_Drops_All)
{
    Document.App_Count[1] = 1;
    Open();
    const auto opened = std::make_unique<Pesticide_Document>(Document);
    Retype(*Form, "Rate", "2.5");
    Retype(*Form, "Text_koc0", "99");
    QTest::qWait(1);
    const auto changed = std::make_unique<Pesticide_Document>(Document);
    ASSERT_FALSE(*changed == *opened);

    QTest::keyClick(Form.get(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_NE(Text("Text_koc0"), "99");
    EXPECT_TRUE(Document == *changed); // the boxes are stored with Done
    QTest::keyClick(Form.get(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_NE(Text("Rate"), "2.5");
    EXPECT_TRUE(Document == *opened);
    QTest::keyClick(Form.get(), Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(Text("Rate"), "2.5");
    EXPECT_TRUE(Document == *changed);
    Click<QPushButton>(*Form, "Command_cancel");
    EXPECT_TRUE(Document == *opened);
}

} // namespace orvel
