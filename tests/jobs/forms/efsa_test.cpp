#include "jobs/forms/focus.h"
#include "runs/start_up.h"
#include "small_installation.h"
#include "window_test.h"

#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

namespace orvel {

namespace {

// The run form over the two soil modes: the same code with other data.
class EFSA_Test : public Window_Test {
protected:
    EFSA_Test()
    {
        The_Session.Program.App_Path = Place.Path();
        for (const char* mode : {"EFSA", "EFSA_T4"}) {
            Write_Whole(Place / mode / "focuscheck.dat", "checked\r\n");
            Write_Whole(Place / mode / "run.bat", "run\r\n");
            for (const char* name : {"T_N_wcerea.sze", "P_S_wcerea.sze", "C_wcerea.sze", "H_wcerea.sze"})
                Copy_Whole(Place / "focus/H_wcerea.sze", Place / mode / name);
        }
        Place.Put_Pesticide("soil.psm", {"T_N", "P_S"});
        std::filesystem::remove(Place / "test.psm");
    }

    void Open(Mode_Kind kind)
    {
        ASSERT_TRUE(Start_Up(The_Session));
        Form = std::make_unique<FOCUS>(The_Session, Mode_Of(kind), Run_Windows());
        Form->show();
        Choose(*Form, "Crop", "Winter cereals");
        Choose(*Form, "Location", "Total content - North (T_N)");
    }

    Small_Installation Place;
    std::unique_ptr<FOCUS> Form;
};

} // namespace

TEST_F(EFSA_Test, Offers_The_Six_Soil_Zones_First_And_Then_The_Locations_Of_The_Crop)
{
    Open(Mode_Kind::Efsa);
    auto* locations = Find<QListWidget>(*Form, "Location");

    EXPECT_EQ(Form->windowTitle(), "EFSA Scenarios");
    EXPECT_EQ(locations->count(), 6 + 9);
    EXPECT_EQ(locations->item(0)->text(), "Total content - North (T_N)");
    EXPECT_EQ(locations->item(5)->text(), "Porewater concentration - South (P_S)");
    EXPECT_EQ(locations->item(6)->text(), "Châteaudun (C), no irrigation");
    EXPECT_EQ(Form->findChild<QComboBox*>("Scaling"), nullptr);
}

TEST_F(EFSA_Test, Marks_Into_Its_Own_Directory_With_The_Profile_Of_The_Top_20_cm)
{
    Open(Mode_Kind::Efsa);

    Click<QPushButton>(*Form, "Batchdatei");

    const auto run = Place / "EFSA/soil.run/Winter_-_cereals.run/Total_-_content_-_-_-_North_-_(T_N).run";
    ASSERT_TRUE(std::filesystem::exists(run / "orvel.inp"));
    EXPECT_TRUE(std::filesystem::exists(run / "run.bat"));
    EXPECT_FALSE(std::filesystem::exists(run / "T_N_wcerea.sze"));
    EXPECT_NE(Read_Whole(run / "orvel.inp").find("    TPSC    TSER  020.0  1.0E06 00000001"), std::string::npos);
}

TEST_F(EFSA_Test, The_Scaling_Of_Tier_4_Reaches_The_Header)
{
    Open(Mode_Kind::Efsa_T4);
    auto* scaling = Find<QComboBox>(*Form, "Scaling");
    EXPECT_EQ(scaling->count(), 101);
    EXPECT_EQ(scaling->currentText(), "0");
    QTest::keyClick(scaling, Qt::Key_Down);
    EXPECT_EQ(scaling->currentText(), "0.1");

    Click<QPushButton>(*Form, "Batchdatei");

    const std::string control = Read_Whole(Place / "EFSA_T4/orvel.inp");
    EXPECT_EQ(control.substr(0, control.find('\r')), "026 01 01 31 12 Version 5          SOIL0.1");
    EXPECT_EQ(Find<QLabel>(*Form, "Version_Szenarien")->text(), "Scenario version number: 3");
}

TEST_F(EFSA_Test, Tier_4_Alone_Shows_The_Shell_And_The_Name_Of_Its_Engine)
{
    Open(Mode_Kind::Efsa_T4);
    EXPECT_EQ(Find<QLabel>(*Form, "Version_Shell")->text(),
              "Shell version number: " + QString::fromLatin1(Program_Version.data()));
    EXPECT_EQ(Find<QLabel>(*Form, "Label6")->text(), "EFSA ORVEL");

    Open(Mode_Kind::Efsa);
    EXPECT_EQ(Form->findChild<QLabel*>("Version_Shell"), nullptr);
    EXPECT_EQ(Form->findChild<QLabel*>("Label6"), nullptr);
}

} // namespace orvel
