#include "charts/forms/chart_view.h"
#include "core/files.h"
#include "tables/forms/jahresbilanz.h"
#include "tables/forms/jahresdiagramm.h"
#include "tables/forms/taegliches_diagramm_neu.h"
#include "tables/leachate_text.h"
#include "temporary_directory.h"
#include "window_test.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

namespace orvel {

namespace {

class Diagrams_Test : public Window_Test {
protected:
    const Chart& Drawn(const QWidget& form) { return Find<Chart_View>(form, "Diagramm")->Shown_Chart(); }

    // A run of two days of percolate, 1 and 3 cm, and the calendar of its installation.
    void Put_Plot()
    {
        std::filesystem::create_directories(Place / "focus");
        Write_Whole(Place / "focus/datum.dat", "1 1 1 1\r\n2 2 1 1\r\n3 3 1 1\r\n");
        std::string plot = "engine\r\n\r\nscenario\r\npesticide\r\n\r\nSoil\r\n    12     1     0\r\n            "
                           "INFL\r\n               100.0\r\n           1.0\r\n";
        plot += "     1 01        0.0\r\n     1 24        1.0\r\n     2 24        3.0\r\n";
        Write_Whole(Place / "focus/plot.orv", plot);
    }

    Daily_Choice Choice(bool cumulative)
    {
        return {.Run_Directory = Place / "focus",
                .Calendar = Place / "focus/datum.dat",
                .Column = 1,
                .Item = "Percolate at 100.0 cm ",
                .Request = {.Variable = 3, .Cumulative = cumulative, .From = {1, 1}, .To = {12, 1}}};
    }

    Temporary_Directory Place;
};

// Two tables of 20 periods, as a cache holds them.
Leachate_Tables Periods()
{
    std::string text = "engine\r\nscenario\r\npesticide\r\nSoil\r\n";
    for (const char* depth :
         {" in the percolate at 1 m soil depth", " in the percolate at the bottom of the simulated soil core"}) {
        text += " \r\n \r\n\tResults for Demo" + std::string(depth) +
                "\r\n \r\n\t     Period \tPesticide Flux\t   Percolate\tPesticide "
                "Conc.\r\n\t\t(g/ha)\t(L/m)\t(ug/L)\r\n\t-----\r\n";
        for (int p = 1; p <= 20; ++p)
            text +=
                "\t" + std::to_string(p) + "       \t1.0000000   \t100.000     \t0." + std::to_string(100 + p) + "\r\n";
        text += "\t-----\r\n\tTotal    \t20.0000     \t2000.00     \t1.000\r\n\t80 Perc.(17/16)\t2.0000000   \t200.000 "
                "    \t0.117\r\n";
    }
    Leachate_Tables tables;
    tables.Period = Parse_Leachate(text).Set;
    return tables;
}

} // namespace

TEST_F(Diagrams_Test, The_Daily_Diagram_Draws_A_Rate_Or_Its_Sum)
{
    Put_Plot();
    taegliches_Diagramm_neu rate(The_Session.Ask, Choice(false)), sum(The_Session.Ask, Choice(true));

    ASSERT_FALSE(Drawn(rate).Lines.empty());
    EXPECT_EQ(Drawn(rate).Lines[0].Points.back().Y, 3);
    EXPECT_EQ(Drawn(sum).Lines[0].Points.back().Y, 4);
    EXPECT_EQ(Drawn(rate).Title, "Percolate at 100.0 cm (cm/d)");
    EXPECT_EQ(Drawn(sum).Title, "Cumulative Percolate at 100.0 cm (cm)");
}

TEST_F(Diagrams_Test, The_Unit_Of_The_X_Axis_Moves_Positions_Only)
{
    Put_Plot();
    taegliches_Diagramm_neu form(The_Session.Ask, Choice(false));
    form.show();
    const auto in_years = Drawn(form).Lines[0].Points;
    EXPECT_EQ(Drawn(form).X.Title, "Year ");

    auto* days = Find<QRadioButton>(form, "Option1_2");
    QTest::mouseClick(days, Qt::LeftButton, {}, QPoint(days->height() / 2, days->height() / 2));

    EXPECT_EQ(Drawn(form).X.Title, "Day ");
    EXPECT_NEAR(Drawn(form).Lines[0].Points.back().X, in_years.back().X * 365.25, 1e-9);
    EXPECT_EQ(Drawn(form).Lines[0].Points.back().Y, in_years.back().Y);
}

TEST_F(Diagrams_Test, The_Unit_Of_The_X_Axis_Keeps_The_Span_Shown)
{
    Put_Plot();
    taegliches_Diagramm_neu form(The_Session.Ask, Choice(false));
    form.show();
    emit Find<Chart_View>(form, "Diagramm")->Span_Chosen(0, 2 / 365.25);
    ASSERT_NEAR(Drawn(form).X.High, 2 / 365.25, 1e-9);

    Choose_Option(form, "Option1_2");

    EXPECT_NEAR(Drawn(form).X.High, 2, 1e-9);
    EXPECT_TRUE(Find<QPushButton>(form, "Whole_Span")->isEnabled());
    Click<QPushButton>(form, "Whole_Span");
    EXPECT_GT(Drawn(form).X.High, 300);
}

TEST_F(Diagrams_Test, Its_Texts_Are_Labels_And_The_Picture_Has_Them_Too)
{
    Jahresdiagramm form(Periods(), The_Session.Ask);
    form.show();

    EXPECT_EQ(Find<QLabel>(form, "Diagrammtitel")->text(),
              QString::fromUtf8("Average Demo concentration in leachate (1m depth) [µg/L]"));
    EXPECT_EQ(Find<QLabel>(form, "Name_x_Achse")->text(), "Period");
    EXPECT_EQ(Drawn(form).X.Title, "Period"); // what paper and clipboard show
}

TEST_F(Diagrams_Test, Save_Graph_Proposes_A_Name_Of_Run_And_Series)
{
    Jahresdiagramm form(Periods(), The_Session.Ask);
    form.Name_Run("/home/focus/demo_D.run/Winter_-_cereals.run/Hamburg_-_(H).run");
    form.show();
    QString proposed;
    In_Modal([&](QWidget& dialog) { proposed = Find<QLineEdit>(dialog, "fileNameEdit")->text(); });

    Click<QPushButton>(form, "Speichern");

    EXPECT_EQ(proposed,
              QString::fromUtf8("demo_D, Winter cereals, Hamburg (H) - Average Demo concentration in leachate "
                                "(1m depth) µgL.png"));
}

TEST_F(Diagrams_Test, Copy_Data_Puts_Two_Columns_On_The_Clipboard)
{
    Put_Plot();
    taegliches_Diagramm_neu form(The_Session.Ask, Choice(false));
    form.show();

    Click<QPushButton>(form, "Daten_Kopieren");

    const QString text = QApplication::clipboard()->text();
    EXPECT_TRUE(text.startsWith("Year \tPercolate at 100.0 cm (cm/d)")) << text.toStdString();
    EXPECT_TRUE(text.trimmed().endsWith("\t3"));
}

TEST_F(Diagrams_Test, A_Run_Without_A_Plot_File_Gives_An_Empty_Diagram)
{
    taegliches_Diagramm_neu form(The_Session.Ask, Choice(false));

    EXPECT_TRUE(Drawn(form).Lines.empty() || Drawn(form).Lines[0].Points.empty());
    EXPECT_TRUE(The_User.Messages.empty());
}

TEST_F(Diagrams_Test, The_Annual_Diagram_Follows_Substance_And_Depth)
{
    Jahresdiagramm form(Periods(), The_Session.Ask);
    form.show();
    EXPECT_EQ(Drawn(form).Boxes.size(), 20U);
    EXPECT_EQ(Drawn(form).Title, "Average Demo concentration in leachate (1m depth) [\xB5g/L]");

    QTest::keyClick(Find<QComboBox>(form, "Tiefe"), Qt::Key_Down);

    EXPECT_EQ(Drawn(form).Title, "Average Demo concentration in leachate (soil bottom) [\xB5g/L]");
}

TEST_F(Diagrams_Test, Copy_Graph_Puts_The_Picture_On_The_Clipboard)
{
    Jahresdiagramm form(Periods(), The_Session.Ask);
    form.show();

    Click<QPushButton>(form, "Kopieren");

    EXPECT_GT(QApplication::clipboard()->image().width(), 1000);
}

TEST_F(Diagrams_Test, A_Run_Without_Balances_Leaves_The_Balance_Chart_Empty)
{
    Jahresbilanz form({}, The_Session.Ask);
    form.show();

    EXPECT_EQ(Find<QComboBox>(form, "Substanz")->count(), 1);
    EXPECT_TRUE(Drawn(form).Boxes.empty());
}

} // namespace orvel
