#include "substance/forms/form_met.h"

#include "substance/horizon_table.h"
#include "substance/pathway.h"
#include "ui/forms/widgets.h"
#include "window_test.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>

namespace orvel {

namespace {

class Form_MET_Test : public Window_Test {
protected:
    Form_MET_Test() { Reset_PSM(Document); }

    void Open(int i)
    {
        The_Session.Editor.Substance_Index = static_cast<std::int16_t>(i);
        Form = std::make_unique<Form_MET>(The_Session);
        Form->show();
        QApplication::setActiveWindow(Form.get());
    }

    QString Text(const QString& name) { return Find<QLineEdit>(*Form, name)->text(); }
    bool Visible(const QString& name) { return Find<QWidget>(*Form, name)->isVisible(); }
    bool Enabled(const QString& name) { return Find<QWidget>(*Form, name)->isEnabled(); }
    bool Chosen(const QString& name) { return Find<QRadioButton>(*Form, name)->isChecked(); }
    QString Focused() { return Form->focusWidget() ? Form->focusWidget()->objectName() : QString(); }
    void Done() { Click<QPushButton>(*Form, "Command_ok1"); }

    Pesticide_Document& Document = The_Session.Pesticide;
    std::unique_ptr<Form_MET> Form;
};

TEST_F(Form_MET_Test, Shows_The_Fields_Of_Its_Substance)
{
    Document.Substance_Name[4] = "Acid";
    Document.Molmass[4] = 211.5;
    Document.Plant_Uptake[4] = 0.4;
    Document.Koc[4] = 12;
    Document.Fr_Exp[4] = 0.85;
    Document.Freundl_Limit[4] = 0.02;
    Document.Ann_Incr[4] = 3;
    Document.K_doc[4] = 4;
    Document.Koc_Change[4] = 5;
    Document.Deg_Depth_Mode[4] = 1;
    Document.Deg_Liquid_Only[4] = 1;
    Document.Kd_Flag[4] = 1;
    Open(4);

    EXPECT_EQ(Form->windowTitle(), "Metabolite C1");
    QStringList texts;
    for (const char* name : {"metcom", "Text_mol", "text_uptkf", "Text_koc0", "Text_koc1", "Text_koc4", "Text_koc5",
                             "text_kdoc", "Text_KOC_MOI"})
        texts << Text(name);
    EXPECT_EQ(texts, (QStringList{"Acid", "211.5", "0.4", "12", "0.85", "0.02", "3", "4", "5"}));
    EXPECT_TRUE(Chosen("tiefenabhaengig_1"));
    EXPECT_TRUE(Chosen("Option_koc2"));
    EXPECT_TRUE(Find<QCheckBox>(*Form, "Check_Hydrolysis")->isChecked());
}

TEST_F(Form_MET_Test, Carries_The_Default_Name_Of_Each_Metabolite_In_Its_Caption)
{
    QStringList captions;
    for (int i = 2; i <= Substances; ++i) {
        Open(i);
        captions << Form->windowTitle();
    }
    EXPECT_EQ(captions, (QStringList{"Metabolite A1", "Metabolite B1", "Metabolite C1", "Metabolite D1",
                                     "Metabolite A2", "Metabolite B2", "Metabolite C2", "Metabolite D2"}));
}

TEST_F(Form_MET_Test, Done_Stores_What_Was_Typed_In_The_Fields_Of_Its_Substance_Alone)
{
    const auto before = Document;
    Open(9);
    Retype(*Form, "metcom", "Acid");
    Retype(*Form, "Text_mol", "211.50");
    Retype(*Form, "text_uptkf", "0.4");
    Retype(*Form, "Text_koc0", "12");
    Retype(*Form, "Text_koc1", "0.85");
    Retype(*Form, "Text_koc4", "0.02");
    Retype(*Form, "Text_koc5", "3");
    Retype(*Form, "text_kdoc", "4");
    Retype(*Form, "Text_KOC_MOI", "5");
    Choose_Option(*Form, "Check_Hydrolysis");
    Choose_Option(*Form, "tiefenabhaengig_1");

    Done();

    EXPECT_FALSE(Form->isVisible());
    EXPECT_TRUE(The_Session.Program.PSM_Changed);
    EXPECT_EQ(Document.Substance_Name[9], "Acid");
    EXPECT_EQ(Document.Molmass[9].Text(), "211.50");
    EXPECT_EQ(Document.Plant_Uptake[9].Number(), 0.4);
    EXPECT_EQ(Document.Koc[9].Number(), 12);
    EXPECT_EQ(Document.Fr_Exp[9].Number(), 0.85);
    EXPECT_EQ(Document.Freundl_Limit[9].Number(), 0.02);
    EXPECT_EQ(Document.Ann_Incr[9], 3);
    EXPECT_EQ(Document.K_doc[9], 4);
    EXPECT_EQ(Document.Koc_Change[9], 5);
    EXPECT_EQ(Document.Deg_Liquid_Only[9], 1);
    EXPECT_EQ(Document.Deg_Depth_Mode[9], 1);
    for (std::size_t i = 1; i < 9; ++i) {
        EXPECT_EQ(Document.Substance_Name[i], before.Substance_Name[i]);
        EXPECT_EQ(Document.Koc[i], before.Koc[i]);
        EXPECT_EQ(Document.Deg_Depth_Mode[i], before.Deg_Depth_Mode[i]);
    }
}

TEST_F(Form_MET_Test, A_Molar_Mass_Of_Zero_Passes_And_A_Text_That_Is_No_Number_Is_Zero)
{
    Open(2);
    Retype(*Form, "Text_mol", "abc");

    Done();

    EXPECT_TRUE(The_User.Messages.empty());
    EXPECT_EQ(Document.Molmass[2].Number(), 0);
    EXPECT_FALSE(Form->isVisible());
}

TEST_F(Form_MET_Test, A_Field_Tells_At_Once_That_It_Is_Read_As_Another_Number)
{
    Open(2);
    Retype(*Form, "Text_koc0", "1.5.2");

    EXPECT_EQ(Find<QLineEdit>(*Form, "Text_koc0")->toolTip(),
              Find<QLineEdit>(*Form, "Text_koc0")->accessibleDescription());
    EXPECT_FALSE(Find<QLineEdit>(*Form, "Text_koc0")->toolTip().isEmpty());
    Done();
    EXPECT_EQ(Document.Koc[2].Number(), 1.5);
}

TEST_F(Form_MET_Test, A_Direct_Kf_Hides_Koc_And_Exponent_Which_Are_Then_Given_Per_Horizon)
{
    Open(2);
    Choose_Option(*Form, "tiefenabhaengig_2");
    Retype(*Form, "Text_nhor", "2");
    EXPECT_TRUE(Visible("Text_koc0"));

    Choose_Option(*Form, "Option_koc1");

    for (const char* name : {"Text_koc0", "Label_koc", "Text_koc1", "Label_koc_1"})
        EXPECT_FALSE(Visible(name)) << name;
    Choose_Option(*Form, "Option_koc2");
    for (const char* name : {"Text_koc0", "Label_koc", "Text_koc1", "Label_koc_1"})
        EXPECT_TRUE(Visible(name)) << name;
}

TEST_F(Form_MET_Test, A_Depth_Mode_Of_A_File_That_No_Option_Has_Shows_As_Individual)
{
    Document.Deg_Depth_Mode[2] = 200;
    Open(2);

    EXPECT_TRUE(Chosen("tiefenabhaengig_2"));
}

TEST_F(Form_MET_Test, Only_Individual_Values_Have_Horizons)
{
    Open(2);
    EXPECT_FALSE(Visible("Text_nhor"));
    EXPECT_FALSE(Visible("Command_hor"));
    EXPECT_FALSE(Enabled("Option_koc1"));

    Choose_Option(*Form, "tiefenabhaengig_2");
    EXPECT_TRUE(Visible("Label1_4"));
    EXPECT_TRUE(Visible("Text_nhor"));
    EXPECT_FALSE(Visible("Command_hor"));
    Retype(*Form, "Text_nhor", "3");
    EXPECT_TRUE(Visible("Command_hor"));
    EXPECT_TRUE(Enabled("Option_koc1"));
    Choose_Option(*Form, "Option_koc1");

    Choose_Option(*Form, "tiefenabhaengig_0");
    EXPECT_EQ(Text("Text_nhor"), "0");
    for (const char* name : {"Text_nhor", "Command_hor"})
        EXPECT_FALSE(Visible(name)) << name;
    EXPECT_FALSE(Enabled("Option_koc1"));
    EXPECT_FALSE(Enabled("Option_koc2"));
    EXPECT_TRUE(Chosen("Option_koc2"));
}

TEST_F(Form_MET_Test, The_Table_Of_Depth_Dependent_Values_Opens_With_The_Number_Of_Horizons_Typed)
{
    Open(3);
    Choose_Option(*Form, "tiefenabhaengig_2");
    Retype(*Form, "Text_nhor", "4");

    int rows = 0;
    In_Modal([&rows](QWidget& form) {
        rows = Find<QTableView>(form, "GridHor")->model()->rowCount();
        Click<QPushButton>(form, "Command_OK");
    });
    Click<QPushButton>(*Form, "Command_hor");

    EXPECT_EQ(rows, 4);
    EXPECT_EQ(Document.N_Horizons.Number(), 4);
}

TEST_F(Form_MET_Test, A_Number_Of_Horizons_Typed_Anew_Resets_The_Table_Even_For_The_Same_Number)
{
    Reset_Horizon_Table(Document, 3);
    Document.N_Horizons = 3;
    Document.Deg_Depth_Mode[2] = 2;
    Document.Horizons[1].Hor_Kd[2] = 7;
    Open(2);
    Find<QLineEdit>(*Form, "Text_nhor")->setFocus();
    Find<QLineEdit>(*Form, "Text_mol")->setFocus();
    EXPECT_EQ(Document.Horizons[1].Hor_Kd[2], 7); // passing over the field is no edit

    Retype(*Form, "Text_nhor", "3");

    EXPECT_EQ(Document.Horizons[1].Hor_Kd[2], 0);
}

TEST_F(Form_MET_Test, More_Horizons_Than_A_Table_Can_Have_Are_Refused_And_The_Form_Stays)
{
    Document.Deg_Depth_Mode[2] = 2;
    Open(2);

    Retype(*Form, "Text_nhor", "999999");

    ASSERT_EQ(The_User.Messages.size(), 1U);
    EXPECT_EQ(The_User.Messages[0].Title, "Data check");
    EXPECT_EQ(Focused(), "Text_nhor");
    Done();
    EXPECT_EQ(The_User.Messages.size(), 2U);
    EXPECT_TRUE(Form->isVisible());
}

TEST_F(Form_MET_Test, The_Return_Key_In_A_Number_Of_Horizons_Leaves_It_Or_Refuses_It_Once)
{
    Document.Deg_Depth_Mode[2] = 2;
    const auto type = [this](const QString& text) {
        auto* field = Find<QLineEdit>(*Form, "Text_nhor");
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, text);
        QTest::keyClick(field, Qt::Key_Return);
    };
    Open(2);
    type("401");
    EXPECT_EQ(The_User.Messages.size(), 1U);
    EXPECT_EQ(Form->focusWidget()->objectName(), "Text_nhor");

    type("4");
    EXPECT_EQ(The_User.Messages.size(), 1U);
    EXPECT_NE(Form->focusWidget()->objectName(), "Text_nhor");
    Click<QPushButton>(*Form, "Command_ok1");
    EXPECT_EQ(Document.N_Horizons.Number(), 4);
    EXPECT_EQ(Document.Horizons.size(), 6U);
}

TEST_F(Form_MET_Test, Done_Asks_Before_It_Takes_The_Horizons_Of_The_Active_Substance_Away)
{
    Document.N_Horizons = 3;
    Document.Deg_Depth_Mode[1] = 2;
    Document.Deg_Depth_Mode[2] = 2;
    Open(2);
    Choose_Option(*Form, "tiefenabhaengig_0");
    The_User.Answers = {Button::No, Button::Yes};

    Done();
    EXPECT_TRUE(Form->isVisible());
    EXPECT_EQ(Document.N_Horizons.Number(), 3);
    Done();

    EXPECT_EQ(The_User.Messages.size(), 2U);
    EXPECT_EQ(Document.N_Horizons.Number(), 0);
}

TEST_F(Form_MET_Test, Notes_Tell_Of_Sorption_That_Depends_On_Moisture_PH_And_Time)
{
    Open(3);
    for (const char* name : {"Label_Sorption", "label_pH", "Label_kinSorp"})
        EXPECT_FALSE(Visible(name)) << name;

    Document.Koc_Change[3] = 2;
    Document.Sorp_pKa[3] = 4;
    Document.F_neq[3] = 0.5;
    Open(3);

    for (const char* name : {"Label_Sorption", "label_pH", "Label_kinSorp"})
        EXPECT_TRUE(Visible(name)) << name;
    EXPECT_EQ(Find<QLabel>(*Form, "Label_Sorption")->text(), "Moisture dependent Sorption considered!");
    EXPECT_EQ(Find<QLabel>(*Form, "label_pH")->text(), "pH dependent Sorption considered!");
    EXPECT_EQ(Find<QLabel>(*Form, "Label_kinSorp")->text(), "kin. Sorption");
}

TEST_F(Form_MET_Test, The_Forms_Of_Sorption_Show_Their_Notes_And_The_Koc_At_Once)
{
    Open(5);
    Retype(*Form, "Text_koc0", "50");

    In_Modal([](QWidget& form) {
        EXPECT_EQ(Find<QLineEdit>(form, "s_KOC")->text(), "50");
        Retype(form, "s_KOC", "60");
        Retype(form, "s_pKa", "4");
        Click<QPushButton>(form, "Command1");
    });
    Click<QPushButton>(*Form, "Command2");
    In_Modal([](QWidget& form) {
        Retype(form, "s_f_neq", "0.3");
        Click<QPushButton>(form, "Command1");
    });
    Click<QPushButton>(*Form, "Command3");

    EXPECT_EQ(Text("Text_koc0"), "60");
    EXPECT_TRUE(Visible("label_pH"));
    EXPECT_TRUE(Visible("Label_kinSorp"));
    EXPECT_EQ(Document.Sorp_pKa[5].Number(), 4);
    EXPECT_EQ(Document.F_neq[5], 0.3);
    Done();
    EXPECT_EQ(Document.Koc[5].Number(), 60);
}

TEST_F(Form_MET_Test, Cancel_Brings_Back_What_A_Form_Of_Sorption_Stored)
{
    const auto before = Document;
    Open(5);
    In_Modal([](QWidget& form) {
        Retype(form, "s_pKa", "4");
        Click<QPushButton>(form, "Command1");
    });
    Click<QPushButton>(*Form, "Command2");

    Click<QPushButton>(*Form, "Command_cancel");

    EXPECT_EQ(Document, before);
    EXPECT_FALSE(The_Session.Program.PSM_Changed);
}

TEST_F(Form_MET_Test, Cancel_And_Escape_Bring_Back_The_Table_That_A_Number_Of_Horizons_Erased)
{
    Reset_Horizon_Table(Document, 3);
    Document.N_Horizons = 3;
    Document.Deg_Depth_Mode[2] = 2;
    Document.Horizons[1].Hor_Kd[2] = 7;
    const auto before = Document;

    Open(2);
    Retype(*Form, "metcom", "Acid");
    Retype(*Form, "Text_nhor", "5");
    Click<QPushButton>(*Form, "Command_cancel");
    EXPECT_FALSE(Form->isVisible());
    EXPECT_EQ(Document, before);

    Open(2);
    Retype(*Form, "Text_nhor", "5");
    QTest::keyClick(Form.get(), Qt::Key_Escape);
    EXPECT_EQ(Document, before);
    EXPECT_FALSE(The_Session.Program.PSM_Changed);
}

TEST_F(Form_MET_Test, A_Name_Of_Ten_Thousand_Characters_Is_Taken_And_Leaves_The_Window_As_It_Is)
{
    Open(2);
    const auto size = Form->size();
    const QString name(10000, 'x');
    auto* field = Find<QLineEdit>(*Form, "metcom");
    field->selectAll();
    field->insert(name);

    EXPECT_EQ(Form->size(), size);
    Done();
    EXPECT_EQ(Document.Substance_Name[2], name.toStdString());
    Open(2);
    EXPECT_EQ(Form->size(), size);
    EXPECT_EQ(Text("metcom"), name);
}

TEST_F(Form_MET_Test, A_Character_That_The_Code_Page_Lacks_Is_Left_Out_Of_A_Name_And_Told)
{
    Open(2);
    auto* field = Find<QLineEdit>(*Form, "metcom");
    field->setFocus();
    field->selectAll();
    field->insert(QString::fromUtf8("α-Säure"));
    QCoreApplication::processEvents();

    EXPECT_EQ(Text("metcom"), QString::fromUtf8("-Säure"));
    EXPECT_EQ(field->toolTip(), QString::fromUtf8("The file cannot hold \"α\": left out."));
    Done();
    EXPECT_EQ(Shown(Document.Substance_Name[2]), QString::fromUtf8("-Säure"));
}

} // namespace

} // namespace orvel
