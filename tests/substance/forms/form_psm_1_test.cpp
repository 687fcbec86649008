#include "substance/forms/form_psm_1.h"

#include "core/files.h"
#include "small_installation.h"
#include "substance/forms/pathway_geometry.h"
#include "substance/forms/pathway_view.h"
#include "substance/pathway_picture.h"
#include "ui/forms/widgets.h"
#include "window_test.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>

namespace orvel {

namespace {

class Form_PSM_1_Test : public Window_Test {
protected:
    Form_PSM_1_Test() { Reset_PSM(The_Session.Pesticide); }

    void Open()
    {
        Form = std::make_unique<Form_PSM_1>(The_Session, Place.Path());
        Form->show();
    }

    void Rate(int i, int row, double rate)
    {
        The_Session.Pesticide.Degradation[static_cast<std::size_t>(i)][static_cast<std::size_t>(row)].Deg_Rate = rate;
    }

    QString Caption(const QString& name) { return Find<QAbstractButton>(*Form, name)->text(); }
    QString Tip(const QString& name) { return Find<QAbstractButton>(*Form, name)->toolTip(); }

    Small_Installation Place;
    std::unique_ptr<Form_PSM_1> Form;
};

} // namespace

TEST(Pathway_Geometry, Boxes_And_Sinks_Lie_Apart_In_The_Drawing)
{
    const QRectF drawing(QPointF(), Drawing_Size);
    std::vector<QRectF> parts;
    for (int i = 1; i <= Substances; ++i) {
        parts.push_back(Box_Of_Substance(i));
        parts.push_back(Sink_Of_Substance(i));
    }
    for (std::size_t a = 0; a < parts.size(); ++a) {
        EXPECT_TRUE(drawing.contains(parts[a])) << a;
        for (std::size_t b = a + 1; b < parts.size(); ++b)
            EXPECT_FALSE(parts[a].intersects(parts[b])) << a << " " << b;
    }
}

TEST(Pathway_Geometry, Each_Arrow_Is_Hit_Along_Its_Line_And_At_A_Head_Of_Its_Own)
{
    for (int t = 1; t <= Last_Transformation; ++t) {
        if (!Arrow_Is_Clickable(t))
            continue;
        EXPECT_EQ(Arrow_At(Line_Of_Arrow(t).pointAt(0.3)), t);
        for (int other = t + 1; other <= Last_Transformation; ++other) {
            if (Arrow_Is_Clickable(other)) {
                EXPECT_FALSE(Head_Of_Arrow(t).intersects(Head_Of_Arrow(other))) << t << " " << other;
            }
        }
    }
    EXPECT_EQ(Arrow_At({5, 5}), 0);
}

TEST_F(Form_PSM_1_Test, Shows_The_Names_And_The_Designed_Captions_With_Their_Blank)
{
    The_Session.Pesticide.Substance_Name[1] = "Compound";
    The_Session.Pesticide.Substance_Name[2] = "";
    Open();

    EXPECT_EQ(Form->windowTitle(), "Metabolization Scheme");
    EXPECT_EQ(Caption("Label_AS"), "Compound");
    EXPECT_EQ(Caption("Label_1_1"), " Metabolite A1");
}

TEST_F(Form_PSM_1_Test, Has_An_Arrow_Head_For_Each_Arrow_But_The_Reserved_Ones)
{
    Open();

    int heads = 0;
    for (int t = 1; t <= Last_Transformation; ++t)
        heads += Form->findChild<QAbstractButton*>(QString("Image2_%1").arg(t)) ? 1 : 0;
    EXPECT_EQ(heads, 26);
    for (const char* name : {"Image2_18", "Image2_20", "Image2_28"})
        EXPECT_FALSE(Form->findChild<QAbstractButton*>(name)) << name;
}

TEST_F(Form_PSM_1_Test, The_Scheme_Is_One_Tab_Stop_With_Arrow_Keys_And_Return_Opens_A_Box)
{
    Rate(1, 1, 0.1);
    Open();
    Form->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(Form.get()));
    const auto press = [this](Qt::Key key) {
        QTest::keyClick(Form->focusWidget(), key);
        return Form->focusWidget()->objectName();
    };
    Find<QAbstractButton>(*Form, "Label_AS")->setFocus();

    EXPECT_EQ(press(Qt::Key_Tab), "Command1");
    EXPECT_EQ(press(Qt::Key_Backtab), "Label_AS");
    QString met;
    for (int step = 0; step < 4 && met != "Label_1_2"; ++step)
        met = press(Qt::Key_Down);
    EXPECT_TRUE(met.startsWith("Label_1_") || met.startsWith("Image2_") || met.startsWith("Label_2_"));
    Find<QAbstractButton>(*Form, "Label_1_1")->setFocus();
    QString opened;
    In_Modal([&](QWidget& form) { opened = form.windowTitle(); });
    press(Qt::Key_Return);
    EXPECT_EQ(opened, "Metabolite A1");
    EXPECT_EQ(press(Qt::Key_Tab), "Command1");
    EXPECT_EQ(press(Qt::Key_Backtab), "Label_1_1");
}

TEST_F(Form_PSM_1_Test, A_Click_On_An_Absent_Metabolite_Does_Nothing)
{
    Rate(1, 1, 0);
    Open();

    Click<QAbstractButton>(*Form, "Label_1_1");

    EXPECT_TRUE(The_User.Messages.empty());
    EXPECT_EQ(Tip("Label_1_1"), Caption("Label_1_1").trimmed() + ": nothing forms it");
}

TEST_F(Form_PSM_1_Test, A_Metabolite_Opens_And_Its_New_Name_Shows_In_Its_Box)
{
    Rate(1, 1, 0.1);
    Open();

    In_Modal([](QWidget& form) {
        EXPECT_EQ(form.windowTitle(), "Metabolite A1");
        Retype(form, "metcom", "Acid");
        Click<QPushButton>(form, "Command_ok1");
    });
    Click<QAbstractButton>(*Form, "Label_1_1");

    EXPECT_EQ(Caption("Label_1_1"), "Acid");
    EXPECT_TRUE(The_Session.Program.PSM_Changed);
}

TEST_F(Form_PSM_1_Test, The_Active_Substance_Opens_And_Its_New_Name_Shows_In_Its_Box)
{
    The_Session.Pesticide.Molmass[1] = 300;
    Open();
    const auto rename = [this](const QString& name) {
        In_Modal([name](QWidget& form) {
            EXPECT_EQ(form.windowTitle(), "Active Substance");
            Retype(form, "Text_AS", name);
            Click<QPushButton>(form, "Command_ok1");
        });
        Click<QAbstractButton>(*Form, "Label_AS");
        return Caption("Label_AS");
    };

    EXPECT_EQ(rename("Compound"), "Compound");
    EXPECT_EQ(rename(""), "Active Substance");
    EXPECT_TRUE(The_Session.Program.PSM_Changed);
}

TEST_F(Form_PSM_1_Test, A_Name_That_Was_Emptied_Gives_Way_To_The_Default_Name_In_The_Boxes)
{
    Rate(1, 1, 0.1);
    The_Session.Pesticide.Substance_Name[6] = "";
    Open();
    EXPECT_EQ(Caption("Label_2_1"), " Metabolite A2");

    In_Modal([](QWidget& form) {
        Retype(form, "metcom", "");
        Click<QPushButton>(form, "Command_ok1");
    });
    Click<QAbstractButton>(*Form, "Label_1_1");

    EXPECT_EQ(Caption("Label_1_1"), "Metabolite A1");
    EXPECT_EQ(Caption("Label_2_1"), "Metabolite A2"); // all metabolites' boxes are written anew
}

TEST_F(Form_PSM_1_Test, A_Tip_Tells_Rate_And_Half_Life_Of_An_Arrow)
{
    Rate(1, 1, 0.0693);
    Rate(1, 2, 0);
    The_Session.Pesticide.Photo_Rate[2] = 0.5;
    Open();

    EXPECT_EQ(Tip("Image2_1"), "AS to MET A1: 0.0693 1/d, DT 50 10.0 d");
    EXPECT_EQ(Tip("Image2_2"), "AS to MET B1: no transformation in soil; soil photolysis 0.5 1/d");
}

TEST_F(Form_PSM_1_Test, An_Arrow_Opens_By_Its_Line_And_By_The_Keyboard)
{
    Open();
    auto* view = Form->findChild<Pathway_View*>();
    view->resize(Drawing_Size.toSize()); // one unit a pixel

    QStringList captions;
    In_Modal([&captions](QWidget& form) { captions << form.windowTitle(); });
    QTest::mouseClick(view, Qt::LeftButton, {}, Line_Of_Arrow(8).pointAt(0.5).toPoint());
    In_Modal([&captions](QWidget& form) { captions << form.windowTitle(); });
    QTest::keyClick(Find<QAbstractButton>(*Form, "Image2_29"), Qt::Key_Space);

    EXPECT_EQ(captions, (QStringList{Shown(Transformation_Caption(8)), Shown(Transformation_Caption(29))}));
}

TEST_F(Form_PSM_1_Test, A_Transformation_That_Was_Accepted_Shows_At_Once_In_The_Scheme)
{
    Rate(1, 2, 0);
    Open();
    ASSERT_EQ(Tip("Image2_2"), "AS to MET B1: no transformation in soil");

    In_Modal([](QWidget& form) {
        Retype(form, "Text1", "0.0693");
        Click<QPushButton>(form, "Command1");
    });
    Click<QAbstractButton>(*Form, "Image2_2");

    EXPECT_EQ(Tip("Image2_2"), "AS to MET B1: 0.0693 1/d, DT 50 10.0 d");
    EXPECT_TRUE(The_Session.Pesticide.Met_Present[3]);
    EXPECT_TRUE(The_Session.Program.PSM_Changed);
}

TEST_F(Form_PSM_1_Test, The_Window_Of_An_Arrow_Opens_Within_The_Screen)
{
    Open();
    for (int t = 1; t <= Last_Transformation; ++t) {
        if (!Arrow_Is_Clickable(t))
            continue;
        bool inside = false;
        In_Modal([&inside](QWidget& form) { inside = form.screen()->availableGeometry().contains(form.geometry()); });
        Click<QAbstractButton>(*Form, QString("Image2_%1").arg(t));
        EXPECT_TRUE(inside) << t;
    }
}

TEST_F(Form_PSM_1_Test, Cancel_Asks_Before_Changes_Are_Given_Up)
{
    Open();
    The_Session.Program.PSM_Changed = true;

    Click<QPushButton>(*Form, "Com_Exit1");

    ASSERT_EQ(The_User.Messages.size(), 1U);
    EXPECT_EQ(The_User.Messages[0].Text, "Parameters were changed. Do you want to exit without saving ?");
    EXPECT_EQ(The_User.Messages[0].Title, "Saving Input File");
    EXPECT_TRUE(Form->isVisible());

    The_User.Answers = {Button::Yes};
    Click<QPushButton>(*Form, "Com_Exit1");
    EXPECT_FALSE(Form->isVisible());
}

// Cancel of the substance form clears the mark of the change, not the change.
TEST_F(Form_PSM_1_Test, Cancel_Asks_For_A_Change_Made_Before_A_Detail_Form_Was_Cancelled)
{
    Rate(1, 5, 0.02);
    Open();
    In_Modal([](QWidget& arrow) {
        Retype(arrow, "Text1", "0.5");
        Click<QAbstractButton>(arrow, "Command1");
    });
    Click<QAbstractButton>(*Form, "Image2_5");
    In_Modal([](QWidget& substance) { Click<QAbstractButton>(substance, "Command_cancel"); });
    Click<QAbstractButton>(*Form, "Label_AS");
    ASSERT_FALSE(The_Session.Program.PSM_Changed);

    The_User.Answers = {Button::No};
    Click<QAbstractButton>(*Form, "Com_Exit1");

    ASSERT_EQ(The_User.Messages.size(), 1U);
    EXPECT_EQ(The_User.Messages[0].Text, "Parameters were changed. Do you want to exit without saving ?");
    EXPECT_TRUE(Form->isVisible());
}

TEST_F(Form_PSM_1_Test, An_Editor_Without_Changes_Closes_Without_A_Question)
{
    Open();

    QTest::keyClick(Form.get(), Qt::Key_Escape);

    EXPECT_TRUE(The_User.Messages.empty());
    EXPECT_FALSE(Form->isVisible());
}

TEST_F(Form_PSM_1_Test, Copies_The_Scheme_As_A_Picture_On_Paper_In_A_Dark_Window_Too)
{
    const QPalette palette = QApplication::palette();
    QApplication::setPalette(QPalette(QColor(45, 48, 52), QColor(35, 38, 41)));
    Rate(1, 1, 0.1);
    Open();

    Click<QPushButton>(*Form, "Kopieren");
    QApplication::setPalette(palette);

    const QImage image = QApplication::clipboard()->image();
    const auto at = [&image](QPointF of_drawing) { return image.pixelColor((of_drawing * 2).toPoint()); };
    EXPECT_EQ(image.size(), (Drawing_Size * 2).toSize());
    EXPECT_EQ(at({2, 2}), QColor(Qt::white));
    const auto present = Look_Of_Box(The_Session.Pesticide, 1).Back,
               absent = Look_Of_Box(The_Session.Pesticide, 9).Back;
    EXPECT_EQ(at(Box_Of_Substance(1).topLeft() + QPointF(15, 10)), QColor(present.Red, present.Green, present.Blue));
    EXPECT_EQ(at(Box_Of_Substance(9).topLeft() + QPointF(15, 10)), QColor(absent.Red, absent.Green, absent.Blue));
    const auto active = Look_Of_Arrow(The_Session.Pesticide, 1).Pen;
    EXPECT_EQ(at(Line_Of_Arrow(1).pointAt(0.5)), QColor(active.Red, active.Green, active.Blue));
    EXPECT_LT(at(Line_Of_Arrow(29).pointAt(0.3)).lightness(),
              128); // a thin line is black, not the light text of the window
}

TEST_F(Form_PSM_1_Test, Saves_The_Scheme_As_A_Picture_By_The_Ending_Of_The_File)
{
    Open();
    const std::pair<const char*, const char*> kinds[] = {
        {"a.png", "\x89PNG"}, {"a.svg", "<?xml"}, {"a.pdf", "%PDF"}, {"plain", "\x89PNG"}};
    for (const auto& [name, begin] : kinds) {
        In_Modal([file = Place.Path() / name](QWidget& dialog) {
            auto* field = Find<QLineEdit>(dialog, "fileNameEdit");
            field->setText(QString::fromStdString(file.string()));
            QTest::keyClick(field, Qt::Key_Return);
        });
        Click<QPushButton>(*Form, "Speichern");
        const auto file = Place.Path() / (std::string(name) == "plain" ? "plain.png" : name);
        EXPECT_TRUE(Read_Whole(file).starts_with(begin)) << name;
    }
    EXPECT_TRUE(The_User.Messages.empty());
}

TEST_F(Form_PSM_1_Test, Tells_A_Picture_That_Cannot_Be_Saved)
{
    Open();

    In_Modal([file = Place.Path() / "a.bmp"](QWidget& dialog) {
        auto* field = Find<QLineEdit>(dialog, "fileNameEdit");
        field->setText(QString::fromStdString(file.string()));
        QTest::keyClick(field, Qt::Key_Return);
    });
    Click<QPushButton>(*Form, "Speichern");

    EXPECT_EQ(The_User.Messages,
              std::vector{(Message{"Save Picture", "A picture is saved as .png, .svg or .pdf, not as a.bmp."})});
}

TEST_F(Form_PSM_1_Test, What_A_Form_Of_The_Scheme_Changed_Is_Taken_Back_And_Made_Again)
{
    Rate(1, 1, 0.1);
    The_Session.Pesticide.Substance_Name[1] = "Compound";
    The_Session.Pesticide.Molmass[1] = 300;
    Open();
    const auto before = std::make_unique<Pesticide_Document>(The_Session.Pesticide);
    In_Modal([](QWidget& form) {
        Retype(form, "Text_AS", "Another");
        Click<QAbstractButton>(form, "Command_ok1");
    });
    Click<QAbstractButton>(*Form, "Label_AS");
    ASSERT_EQ(Caption("Label_AS"), "Another");
    const auto after = std::make_unique<Pesticide_Document>(The_Session.Pesticide);
    EXPECT_EQ(Tip("Undo"), "Undo: Another (Ctrl+Z)");

    QTest::keyClick(Form.get(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Caption("Label_AS"), "Compound");
    EXPECT_TRUE(The_Session.Pesticide == *before);
    QTest::keyClick(Form.get(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Caption("Label_AS"), "Another");
    EXPECT_TRUE(The_Session.Pesticide == *after);
}

} // namespace orvel
