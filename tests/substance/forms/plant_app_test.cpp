#include "substance/forms/plant_app.h"

#include "window_test.h"

#include <QLabel>
#include <QPushButton>

namespace orvel {

namespace {

class Plant_App_Test : public Window_Test {
protected:
    Plant_App_Test() { Reset_PSM(The_Session.Pesticide); }

    void Open(Application_Method method = Application_Method::Linear)
    {
        Form = std::make_unique<Plant_App>(The_Session, method);
        Form->show();
        QApplication::setActiveWindow(Form.get());
    }

    std::unique_ptr<Plant_App> Form;
};

TEST_F(Plant_App_Test, Shows_The_Defaults_Of_A_New_Document)
{
    Open();

    EXPECT_EQ(Form->windowTitle(), "Pesticide Fate on Crops");
    const std::pair<const char*, const char*> fields[] = {
        {"S_plt_dk", "0.0693"}, {"S_plt_washoff", "0.5"}, {"S_plt_filtr", "0"}, {"S_plt_penet", "0.0693"},
        {"S_plt_photo", "0"},   {"S_RefRad", "500"},      {"S_dlam", "0.03"},   {"S_Hv", "98400"}};
    for (const auto& [name, text] : fields)
        EXPECT_EQ(Find<QLineEdit>(*Form, name)->text().toStdString(), text) << name;
}

TEST_F(Plant_App_Test, The_Filtration_Parameter_Shows_For_Exponential_Interception_Only)
{
    for (const auto method : {Application_Method::Soil, Application_Method::Linear, Application_Method::Exponential,
                              Application_Method::Manually}) {
        Open(method);
        const bool exponential = method == Application_Method::Exponential;
        EXPECT_EQ(Find<QLineEdit>(*Form, "S_plt_filtr")->isVisible(), exponential);
        EXPECT_EQ(Find<QLabel>(*Form, "Label_plt_filtr")->isVisible(), exponential);
    }
}

TEST_F(Plant_App_Test, OK_Stores_Each_Field_And_Marks_The_Document)
{
    Open(Application_Method::Exponential);
    const char* names[] = {"S_plt_dk",    "S_plt_washoff", "S_plt_filtr", "S_plt_penet",
                           "S_plt_photo", "S_RefRad",      "S_dlam",      "S_Hv"};
    for (int i = 0; i < 8; ++i)
        Retype(*Form, names[i], QString::number(i + 1));

    Click<QPushButton>(*Form, "Command1");

    const auto& document = The_Session.Pesticide;
    EXPECT_EQ(document.Plant_Decay.Number(), 1);
    EXPECT_EQ(document.Plant_Washoff.Number(), 2);
    EXPECT_EQ(document.Plant_Filtration, 3);
    EXPECT_EQ(document.Plant_Penetration, 4);
    EXPECT_EQ(document.Plant_Photodeg, 5);
    EXPECT_EQ(document.Plant_Ref_Rad, 6);
    EXPECT_EQ(document.Plant_Laminar, 7);
    EXPECT_EQ(document.Hv, 8);
    EXPECT_TRUE(The_Session.Program.PSM_Changed);
    EXPECT_FALSE(Form->isVisible());
}

TEST_F(Plant_App_Test, Cancel_Stores_Nothing)
{
    const auto before = The_Session.Pesticide;
    Open();
    Retype(*Form, "S_plt_dk", "1");

    Click<QPushButton>(*Form, "Command2");

    EXPECT_EQ(The_Session.Pesticide, before);
    EXPECT_FALSE(The_Session.Program.PSM_Changed);
}

} // namespace

} // namespace orvel
