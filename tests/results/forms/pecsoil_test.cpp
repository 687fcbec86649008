#include "results/forms/pecsoil.h"

#include "results/engine_files.h"
#include "temporary_directory.h"
#include "window_test.h"

#include <QApplication>
#include <QClipboard>
#include <QPlainTextEdit>
#include <QPushButton>

namespace {

// A run of one substance whose profile is layer number / 10 in all lines of two days behind the warm-up.
class PECsoil_Test : public Window_Test {
protected:
    PECsoil_Test()
    {
        std::vector<std::string> values;
        for (int layer = 1; layer <= 20; ++layer)
            values.push_back(layer < 10 ? "0." + std::to_string(layer) : std::to_string(layer / 10) + "." + std::to_string(layer % 10));
        Write_File(Place / "echo.orv", Echo_File());
        Write_File(Place / "plot.orv", Plot_Head_Of(20, 20) + Plot_Line(2190, 24, values) + Plot_Line(2191, 24, values) + Plot_Line(2192, 24, values));
    }

    void Open(int depth)
    {
        Form = std::make_unique<PECsoil>(Shared, Place.Path(), depth);
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
    EXPECT_TRUE(Text().contains("            \t0.2000000")) << Text().toStdString(); // layers 0.1, 0.2, 0.3
    EXPECT_TRUE(std::filesystem::exists(Place / "PECsoil_3.orv"));
}

TEST_F(PECsoil_Test, Has_One_Table_And_So_No_Switch)
{
    Open(1);

    EXPECT_FALSE(Find<QPushButton>(*Form, "Umschalter")->isVisible());
    Click<QPushButton>(*Form, "Kopieren");
    EXPECT_EQ(QApplication::clipboard()->text(), Text());
}
