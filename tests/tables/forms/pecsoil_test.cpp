#include "tables/forms/pecsoil.h"

#include "output/engine_files.h"
#include "temporary_directory.h"
#include "window_test.h"

#include <QApplication>
#include <QClipboard>
#include <QPlainTextEdit>
#include <QPushButton>

namespace orvel {

namespace {

// A run of one substance whose profile is layer number / 10 in all lines of two days behind the warm-up.
class PECsoil_Test : public Window_Test {
protected:
    PECsoil_Test()
    {
        std::vector<std::string> values;
        for (int layer = 1; layer <= 20; ++layer)
            values.push_back(layer < 10 ? "0." + std::to_string(layer)
                                        : std::to_string(layer / 10) + "." + std::to_string(layer % 10));
        Write_File(Place / "echo.orv", Echo_File());
        Write_File(Place / "plot.orv", Plot_Head_Of(20, 20) + Plot_Line(2190, 24, values) +
                                           Plot_Line(2191, 24, values) + Plot_Line(2192, 24, values));
    }

    void Open(int depth)
    {
        Form = std::make_unique<PECsoil>(The_Session, Place.Path(), depth);
        Form->show();
        ASSERT_TRUE(QTest::qWaitFor([&] { return Find<QPushButton>(*Form, "Ende")->isEnabled(); }));
    }

    QString Text() { return Find<QPlainTextEdit>(*Form, "Ergebnis_1")->toPlainText(); }

    Temporary_Directory Place;
    std::unique_ptr<PECsoil> Form;
};

} // namespace

TEST_F(PECsoil_Test, Shows_The_Mean_Of_The_Chosen_Layers_And_Keeps_It_By_The_Depth)
{
    Open(3);

    EXPECT_EQ(Form->windowTitle(), "Table of actual and time weighted average concentrations in soil");
    EXPECT_TRUE(Text().contains("PEC(mg/kg)"));
    // The layers are 0.1, 0.2, 0.3 on both days. A longer window begins in the warm-up, whose days count as zeros: 0.4
    // over its days.
    EXPECT_TRUE(Text().endsWith("            \t0.2000000   \t0 January 7\n"
                                "1           \t0.2000000   \t0 January 7\n"
                                "2           \t0.2000000   \t0 January 7\n"
                                "4           \t0.1000000   \t29 December 6\n"
                                "7           \t0.0571429   \t26 December 6\n"
                                "14          \t0.0285714   \t19 December 6\n"
                                "21          \t0.0190476   \t12 December 6\n"
                                "28          \t0.0142857   \t5 December 6\n"
                                "42          \t0.0095238   \t21 November 6\n"
                                "56          \t0.0071429   \t7 November 6\n"
                                "100         \t0.0040000   \t24 September 6\n"))
        << Text().toStdString();
    EXPECT_TRUE(std::filesystem::exists(Place / "PECsoil_3.orv"));
}

TEST_F(PECsoil_Test, Each_Depth_Has_Its_Own_Table_And_File)
{
    Open(20); // the mean of 0.1 to 2.0

    EXPECT_TRUE(Text().contains("\n            \t1.0500000   \t")) << Text().toStdString();
    EXPECT_TRUE(std::filesystem::exists(Place / "PECsoil_20.orv"));
    EXPECT_FALSE(std::filesystem::exists(Place / "PECsoil_3.orv"));
}

TEST_F(PECsoil_Test, A_Run_Without_Series_Says_Why_There_Is_No_Table)
{
    std::filesystem::remove(Place / "plot.orv");
    Open(3);

    EXPECT_TRUE(Find<QWidget>(*Form, "Nachricht")->isVisible());
    EXPECT_FALSE(Text().contains("TWA(d)"));
    EXPECT_FALSE(std::filesystem::exists(Place / "PECsoil_3.orv"));
}

TEST_F(PECsoil_Test, Has_One_Table_And_So_No_Switch)
{
    Open(1);

    EXPECT_FALSE(Find<QPushButton>(*Form, "Umschalter")->isVisible());
    Click<QPushButton>(*Form, "Kopieren");
    EXPECT_EQ(QApplication::clipboard()->text(), Text());
}

} // namespace orvel
