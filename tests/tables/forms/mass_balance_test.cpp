#include "tables/forms/mass_balance.h"

#include "output/engine_files.h"
#include "tables/leachate_run.h"
#include "window_test.h"

#include <QApplication>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>

namespace orvel {

namespace {

class Mass_Balance_Test : public Window_Test {
protected:
    void Open(const Leachate_Run& run, Balance_View view = Balance_View::Annual)
    {
        Form = std::make_unique<Mass_Balance>(The_Session, run.Path(), nullptr, view);
        Form->show();
        ASSERT_TRUE(QTest::qWaitFor([&] { return Find<QPushButton>(*Form, "Ende")->isEnabled(); }));
    }

    QString Text(int index) { return Find<QPlainTextEdit>(*Form, QString("Ergebnis_%1").arg(index))->toPlainText(); }
    bool Opens_Months() { return Form->findChild<QPushButton*>("By_Month"); }

    std::unique_ptr<Mass_Balance> Form;
};

Echo_Text With_Output(const std::string& frequency)
{
    return {.Frequency_Water = frequency, .Frequency_Pest = frequency};
}

} // namespace

TEST_F(Mass_Balance_Test, The_Switch_Names_The_Table_That_It_Leads_To)
{
    Leachate_Run run;
    run.Write_Water(2);
    run.Write_Chem(".orv", {1, 2}, {1, 2});
    Open(run);
    EXPECT_EQ(Form->windowTitle(), "Table of Annual Water Balance");
    EXPECT_EQ(Find<QPushButton>(*Form, "Umschalter")->text(), "Pesticide Balance");
    EXPECT_TRUE(Text(0).contains("\tAnnual Water Balance (L/m²)"));
    EXPECT_TRUE(Text(1).contains("\tAnnual Pesticide Balance (g/ha)"));

    Click<QPushButton>(*Form, "Umschalter");
    EXPECT_EQ(Form->windowTitle(), "Table of Annual Pesticide Mass Balance");
    EXPECT_EQ(Find<QPushButton>(*Form, "Umschalter")->text(), "Water Balance");
    EXPECT_TRUE(Find<QPlainTextEdit>(*Form, "Ergebnis_1")->isVisible());

    Click<QPushButton>(*Form, "Umschalter");
    EXPECT_TRUE(Find<QPlainTextEdit>(*Form, "Ergebnis_0")->isVisible());
}

TEST_F(Mass_Balance_Test, The_Months_Can_Be_Opened_Only_Where_The_Echo_Tells_Of_Them)
{
    const Leachate_Run years(With_Output("YEAR")), months(With_Output("MNTH")), days(With_Output("DAY"));

    Open(years);
    EXPECT_FALSE(Opens_Months());
    Open(months);
    EXPECT_TRUE(Opens_Months());
    Open(days);
    EXPECT_TRUE(Opens_Months());
}

TEST_F(Mass_Balance_Test, By_Month_Opens_The_Monthly_Tables_Of_The_Same_Run)
{
    const Leachate_Run run(With_Output("MNTH"));
    Write_File(
        run / "Wasser.orv",
        Water_Block({.Kind = "MONTHLY", .Precipitation = "7.5000", .Irrigation = "0.5000", .Recharge = "2.00000"}) +
            Water_Block({.Kind = "MONTHLY", .Precipitation = "4.0000", .Recharge = "1.50000"}) +
            Water_Block({.Precipitation = "99.0000"}) + End_Of_Output());
    Write_File(run / "chem.orv", Chem_Block({.Kind = "MONTHLY",
                                             .Application = {{1, "5.00000E-01"}},
                                             .Decay = "2.00000E-01",
                                             .Volatilization = "0.00000E+00",
                                             .Bottom = "1.00000E-01"}) +
                                     Chem_Block({.Kind = "MONTHLY", .Decay = "1.00000E-01"}) +
                                     Chem_Block({.Application = {{1, "9.90000E+01"}}}) + End_Of_Output());
    Open(run);
    QString name, caption, water, pesticide;
    QTimer::singleShot(0, [&] {
        QWidget* form = QApplication::activeModalWidget();
        (void)QTest::qWaitFor([&] { return Find<QPushButton>(*form, "Ende")->isEnabled(); });
        name = form->objectName();
        caption = form->windowTitle();
        water = Find<QPlainTextEdit>(*form, "Ergebnis_0")->toPlainText();
        pesticide = Find<QPlainTextEdit>(*form, "Ergebnis_1")->toPlainText();
        form->close();
    });

    Click<QPushButton>(*Form, "By_Month");

    EXPECT_EQ(name, "Mass_Balance_USER");
    EXPECT_EQ(caption, "Table of Monthly Water Balance");
    // The rows of the two months and nothing of the year: storage is what is left of 75 + 5 - 20 and of 40 - 15 L/m2.
    EXPECT_TRUE(
        water.endsWith("\tMonthly Water Balance (L/m²)\n\n"
                       "\tMonth  \tPrecipitation\tIrrigation\t  Runoff\tEvapotransp.\t Percolate\tDiff. Storage\n"
                       "\t1       \t75.0000  \t5.0000000\t0.00E+00 \t0.00E+00 \t20.0000  \t60.0000  \n"
                       "\t2       \t40.0000  \t0.00E+00 \t0.00E+00 \t0.00E+00 \t15.0000  \t25.0000  \n"))
        << water.toStdString();
    EXPECT_TRUE(pesticide.contains("\tMonthly Pesticide Balance (g/ha)\n")) << pesticide.toStdString();
    EXPECT_TRUE(pesticide.contains(
        "\t1       \t500.000  \t0.00E+00 \t0.00E+00 \t0.00E+00 \t200.000  \t100.000  \t200.000   \n"))
        << pesticide.toStdString();
    EXPECT_TRUE(pesticide.contains(
        "\t2       \t0.00E+00 \t0.00E+00 \t0.00E+00 \t0.00E+00 \t100.000  \t0.00E+00 \t-100.000  \n"))
        << pesticide.toStdString();
    EXPECT_FALSE(pesticide.contains("\t3   ")) << pesticide.toStdString();
    EXPECT_TRUE(std::filesystem::exists(run / "MBalance_M.orv"));
    EXPECT_TRUE(std::filesystem::exists(run / "PBalance_M.orv"));
}

TEST_F(Mass_Balance_Test, Months_Of_A_Run_Without_Its_Water_File_Are_Shown_And_Not_Kept)
{
    const Leachate_Run run(With_Output("MNTH"));
    Open(run, Balance_View::Monthly);

    EXPECT_EQ(Form->windowTitle(), "Table of Monthly Water Balance");
    EXPECT_TRUE(Text(0).contains("\tMonthly Water Balance (L/m²)\n")) << Text(0).toStdString();
    EXPECT_TRUE(Find<QWidget>(*Form, "Nachricht")->isVisible());
    EXPECT_FALSE(std::filesystem::exists(run / "MBalance_M.orv"));
    EXPECT_FALSE(std::filesystem::exists(run / "PBalance_M.orv"));
}

TEST_F(Mass_Balance_Test, A_Run_Without_Output_Says_Why_Its_Table_Ends_Early)
{
    const Leachate_Run run;
    std::filesystem::remove(run / "Wasser.orv");
    std::filesystem::remove(run / "plot.orv");
    Open(run);

    EXPECT_TRUE(Find<QWidget>(*Form, "Nachricht")->isVisible());
    EXPECT_TRUE(The_User.Messages.empty());
}

} // namespace orvel
