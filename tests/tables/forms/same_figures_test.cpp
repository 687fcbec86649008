#include "charts/forms/chart_view.h"
#include "core/files.h"
#include "core/numbers.h"
#include "core/system/lock.h"
#include "core/text.h"
#include "output/table_lines.h"
#include "report/report.h"
#include "tables/forms/jahr_orv.h"
#include "tables/forms/mass_balance.h"
#include "tables/forms/pecsoil.h"
#include "tables/leachate_run.h"
#include "ui/forms/widgets.h"
#include "window_test.h"

#include <map>
#include <QApplication>
#include <QComboBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>

namespace orvel {

// Every window that shows a table has its diagram, and window, diagram, report and command line show the same figures:
// also over a run whose tables cannot be kept, because it has no plot.orv or is at work.

namespace {

namespace fs = std::filesystem;

enum class Run_Kind { Kept, Without_Plot, At_Work };

// A run of 26 years, flux of year y at 1 m: 1.23457 y g/ha in 100 L/m2, so that what is printed is rounded.
class Same_Figures : public Window_Test, public testing::WithParamInterface<Run_Kind> {
protected:
    Same_Figures()
    {
        The_Session.Program.App_Path = Place.Path();
        fs::create_directories(Run);
        Leachate_Run files({.Frequency_Water = "MNTH", .Frequency_Pest = "MNTH", .Names = {"Parent"}});
        std::string water, chem;
        for (int year = 1; year <= 26; ++year) {
            const auto leached = Format_Pattern(0.00123457 * year, "0.000000000"); // kg/ha
            for (const std::string kind : {"MONTHLY", "ANNUAL"}) {
                water += Water_Block({.Kind = kind,
                                      .Precipitation = "64.3102",
                                      .Transpiration = {{1, "20.11873"}, {40, "9.55310"}},
                                      .Percolate = {"11.00000", "10.00000"},
                                      .Recharge = "5.00000"});
                chem += Chem_Block({.Kind = kind,
                                    .Application = {{1, "1.00000E+00"}, {40, "0.00000E+00"}},
                                    .Leached = {"0.00000E+00", leached},
                                    .Decay = "7.65123E-01",
                                    .Volatilization = "2.10000E-03",
                                    .Bottom = "1.00000E-03"});
            }
        }
        Write_File(files / "Wasser.orv", water + End_Of_Output());
        Write_File(files / "chem.orv", chem + End_Of_Output());
        Write_File(files / "plot.orv", Plot_Head_Of(20, 20) + Plot_Line(2190, 24, {}) +
                                           Plot_Line(2191, 24, std::vector<std::string>(20, "2.0")));
        for (const auto& entry : fs::directory_iterator(files.Path()))
            fs::copy_file(entry.path(), Run / entry.path().filename());
        if (GetParam() == Run_Kind::Without_Plot)
            fs::remove(Run / "plot.orv");
        if (GetParam() == Run_Kind::At_Work)
            Engine = Lock::Take(Run / "echo.orv");
    }

    // Opens a window, waits for its tables and takes the texts; then its diagram, and takes its charts by substance.
    template <class Form> void Open(Form& form)
    {
        form.show();
        ASSERT_TRUE(QTest::qWaitFor([&] { return Find<QPushButton>(form, "Ende")->isEnabled(); }));
        Texts.clear();
        for (auto* text : form.template findChildren<QPlainTextEdit*>())
            Texts[text->objectName()] = Replace_All(Bytes_Of(text->toPlainText()), "\n", "\r\n");
        Charts.clear();
        QTimer reader; // the tables of the diagram may be built first
        reader.callOnTimeout([&] {
            QWidget* diagram = QApplication::activeModalWidget();
            if (diagram == nullptr)
                return;
            reader.stop();
            auto* substances = Find<QComboBox>(*diagram, "Substanz");
            for (int i = 0; i < substances->count(); ++i) {
                substances->setCurrentIndex(i);
                Charts.push_back(Find<Chart_View>(*diagram, "Diagramm")->Shown_Chart());
            }
            diagram->close();
        });
        reader.start(10);
        Click<QPushButton>(form, "Diagramm");
    }

    // The figures of the rows of a text's first table, behind their numbers.
    static std::vector<std::vector<double>> Rows_Of(std::string_view text, std::string_view title)
    {
        std::vector<std::vector<double>> rows;
        text = text.substr(std::min(text.find(title), text.size()));
        for (const auto line : Split_Lines(text)) {
            const auto numbers = Line_Numbers(line);
            if (line.size() > 1 && line[1] >= '1' && line[1] <= '9' && !line.starts_with("\t80 ") && numbers.size() > 1)
                rows.emplace_back(numbers.begin() + 1, numbers.end());
            else if (!rows.empty() && !line.starts_with("\t---"))
                break;
        }
        return rows;
    }

    void Expect_Leachate_Diagram(const std::vector<std::vector<double>>& periods)
    {
        ASSERT_EQ(Charts.size(), 1U);
        EXPECT_EQ(Charts[0].Title, "Average Parent concentration in leachate (1m depth) [\xB5g/L]");
        ASSERT_EQ(Charts[0].Boxes.size(), 20U);
        ASSERT_EQ(periods.size(), 20U);
        for (std::size_t p = 0; p < periods.size(); ++p)
            EXPECT_EQ(Charts[0].Boxes[p].Y, periods[p][2]) << p;
    }

    Temporary_Directory Place;
    const fs::path Run = Place / "focus/demo.run/Maize.run/Hamburg_-_(H).run";
    std::optional<Lock> Engine;
    std::map<QString, std::string> Texts;
    std::vector<Chart> Charts;
};

} // namespace

TEST_P(Same_Figures, The_Leachate_Window_Has_Its_Diagram)
{
    for (int visit = 0; visit < 2; ++visit) { // the second one may find the cache
        Jahr_ORV form(The_Session, Run);
        Open(form);

        // Period 1 is year 7: 7 x 1.23457 g/ha in 100 L/m2.
        const auto periods = Rows_Of(Texts["Ergebnis_1"], "Results for Parent in the percolate at 1 m");
        ASSERT_FALSE(periods.empty());
        EXPECT_EQ(periods[0], (std::vector{8.64199, 100.0, 8.642}));
        Expect_Leachate_Diagram(periods);
        // Of the rising concentrations the fourth and fifth highest are the periods 17 and 16, the years 23 and 22.
        EXPECT_EQ(Charts[0].Boxes[16].Drawn_In, Colour::Marked);
        EXPECT_EQ(Charts[0].Lines[0].Points[0].Y, 27.778);
    }
    EXPECT_EQ(fs::exists(Run / "period.orv"), GetParam() == Run_Kind::Kept);
}

TEST_P(Same_Figures, The_Balance_Windows_Have_Their_Diagram)
{
    for (const auto view : {Balance_View::Annual, Balance_View::Annual, Balance_View::Monthly}) {
        Mass_Balance years(The_Session, Run, nullptr, Balance_View::Annual);
        Open(years);
        const auto water = Rows_Of(Texts["Ergebnis_0"], "Annual Water Balance"),
                   pesticide = Rows_Of(Texts["Ergebnis_1"], "Annual Pesticide Balance");
        if (view == Balance_View::Monthly) { // its diagram is that of the years, too
            Mass_Balance months(The_Session, Run, nullptr, view);
            Open(months);
        }

        ASSERT_EQ(Charts.size(), 2U);
        ASSERT_EQ(water.size(), 26U);
        ASSERT_EQ(pesticide.size(), 26U);
        ASSERT_EQ(Charts[0].Boxes.size(), 26U * 6);
        ASSERT_EQ(Charts[1].Boxes.size(), 26U * 7);
        EXPECT_EQ(Charts[1].Title, "Annual Parent Balance (g/ha)");
        EXPECT_EQ(water[0], (std::vector{643.102, 0.0, 0.0, 296.718, 50.0, 296.384})); // 643.102 - 296.7183 - 50
        for (std::size_t y = 0; y < 26; ++y) {
            for (std::size_t t = 0; t < 6; ++t)
                EXPECT_EQ(Charts[0].Boxes[6 * y + t].Y, water[y][t]);
            for (std::size_t t = 0; t < 7; ++t)
                EXPECT_EQ(Charts[1].Boxes[7 * y + t].Y, pesticide[y][t]);
        }
    }
}

TEST_P(Same_Figures, The_Soil_Window_Has_The_Diagram_Of_The_Leachate)
{
    PECsoil form(The_Session, Run, 5);
    Open(form);

    Expect_Leachate_Diagram(
        Rows_Of(Build_Or_Load(Run).Period_Text, "Results for Parent in the percolate at 1 m soil depth"));
}

TEST_P(Same_Figures, The_Report_Has_Those_Of_The_Window_And_Of_The_Records)
{
    const auto built = Build_Or_Load(Run), again = Build_Or_Load(Run);
    EXPECT_EQ(again.From_Cache, GetParam() == Run_Kind::Kept);
    ASSERT_EQ(again.Period[0].size(), 1U);
    for (const std::size_t depth : {0, 1}) {
        EXPECT_EQ(again.Year[depth][0].Rows, built.Year[depth][0].Rows);
        EXPECT_EQ(again.Year[depth][0].Result, built.Year[depth][0].Result);
        EXPECT_EQ(again.Period[depth][0].Rows, built.Period[depth][0].Rows);
        EXPECT_EQ(again.Period[depth][0].Result, built.Period[depth][0].Result);
        EXPECT_EQ(again.Period[depth][0].P80_Text, built.Period[depth][0].P80_Text);
        EXPECT_EQ(again.Period[depth][0].Result_Name, built.Period[depth][0].Result_Name);
        EXPECT_EQ(again.Period[depth][0].Label, built.Period[depth][0].Label);
    }
    EXPECT_EQ(again.Titles, built.Titles);

    if (GetParam() == Run_Kind::At_Work)
        return; // the report says that it is, in place of its figures
    const auto report =
        Gather_Report(The_Session, Request_Summaries(The_Session, Mode_Of(Mode_Kind::Focus), "demo", "Maize", {}), 0);
    ASSERT_EQ(report.Crops[0].Tables.size(), 1U);
    const auto& result = report.Crops[0].Tables[0].Results[0];
    EXPECT_EQ(result.P80, built.Period[0][0].Result.P80);
    EXPECT_EQ(result.A.Conc, built.Period[0][0].Rows[16].Conc);
    EXPECT_EQ(report.Crops[0].Tables[0].Diagram.Boxes[0].Y, result.P80.Conc);
}

INSTANTIATE_TEST_SUITE_P(Of_A_Run, Same_Figures,
                         testing::Values(Run_Kind::Kept, Run_Kind::Without_Plot, Run_Kind::At_Work),
                         [](const auto& kind) {
                             return kind.param == Run_Kind::Kept           ? "Whose_Tables_Are_Kept"
                                    : kind.param == Run_Kind::Without_Plot ? "Without_Plot_File"
                                                                           : "At_Work";
                         });

} // namespace orvel
