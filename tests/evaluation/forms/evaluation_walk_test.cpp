// From a batch of three locations on the engine's output through list, browser, all tables and diagrams to the report,
// by the windows as a hand uses them. Every figure is counted anew out of the engine's files, by words and not by the
// columns that the program reads.
#include "charts/forms/chart_view.h"
#include "evaluation/forms/analyse.h"
#include "orvelctl_program.h"
#include "runs/start_up.h"
#include "temporary_directory.h"
#include "window_test.h"

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <map>
#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTableView>
#include <sstream>

namespace orvel {

namespace fs = std::filesystem;

namespace {

using Words = std::vector<std::string>;

std::vector<std::string> Lines_Of(const fs::path& file)
{
    std::ifstream in(file);
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

Words Words_Of(const std::string& line)
{
    std::istringstream in(line);
    Words words;
    for (std::string word; in >> word;)
        words.push_back(word);
    return words;
}

double Number(const std::string& word)
{
    return std::strtod(word.c_str(), nullptr);
}

bool Has(const std::string& text, const std::string& part)
{
    return text.find(part) != std::string::npos;
}

// What one year's blocks of the engine say, in the units of the tables: L/m2 and g/ha.
struct Counted_Year {
    double Rain = 0, Irrigation = 0, Canopy = 0, Snow = 0, Runoff = 0, Transpiration = 0, Percolate = 0,
           Percolate_1m = 0;
    double Application = 0, Uptake = 0, Decay = 0, Volatilised = 0, Washed = 0, Leached = 0, Leached_1m = 0;
};

constexpr double Litres = 10, Grams = 1000; // of a cm, of a kg/ha
constexpr const char* Layer_At_1m = "40";   // 2.5 cm each

std::vector<Counted_Year> Count_Years(const fs::path& run, const std::string& chem)
{
    std::vector<Counted_Year> years;
    std::string part;
    for (const std::string& line : Lines_Of(run / "Wasser.orv")) {
        const Words words = Words_Of(line);
        if (Has(line, "ANNUAL"))
            years.emplace_back();
        if (years.empty() || words.empty())
            continue;
        Counted_Year& year = years.back();
        for (const char* head : {"WATER SUPPLY", "SNOWPACK", "SURFACE", "HORIZON   COMPARTMENT", "SUMMARY FLUXES"})
            part = Has(line, head) ? head : part;
        if (words[0] == "SUM" && part == "WATER SUPPLY")
            year.Rain = Litres * Number(words[4]), year.Irrigation = Litres * Number(words[5]),
            year.Canopy = Litres * Number(words[6]);
        else if (words[0] == "SUM" && part == "SNOWPACK")
            year.Snow = Litres * Number(words[4]);
        else if (words[0] == "SUM" && part == "SURFACE")
            year.Runoff = Litres * Number(words[4]);
        else if (part == "HORIZON   COMPARTMENT" && words.size() >= 8 && Number(words[0]) > 0) {
            year.Transpiration += Litres * Number(words[6]);
            if (words[1] == Layer_At_1m)
                year.Percolate_1m = Litres * Number(words[7]);
        } else if (Has(line, "RECHARGE BELOW CORE"))
            year.Percolate = Litres * Number(words.back());
    }
    std::size_t at = 0;
    bool rows = false;
    for (const std::string& line : Lines_Of(run / chem)) {
        const Words words = Words_Of(line);
        at += Has(line, "ANNUAL") ? 1 : 0;
        if (at == 0 || at > years.size() || words.empty())
            continue;
        Counted_Year& year = years[at - 1];
        rows = Has(line, "RIZON PARTMENT") || (rows && !Has(line, "DECAY FOR COMPARTMENT"));
        if (rows && words.size() == 9 && (words[0] == "PL" || Number(words[0]) > 0)) {
            year.Application += Grams * Number(words[2]);
            if (words[1] == Layer_At_1m)
                year.Leached_1m = Grams * Number(words.back());
        }
        for (const auto& [begin, sum] :
             std::map<std::string, double*>{{"TOTAL PLANT UPTAKE", &year.Uptake},
                                            {"TOTAL DECAY", &year.Decay},
                                            {"TOTAL VOLATILIZATION", &year.Volatilised},
                                            {"TOTAL RUNOFF", &year.Washed},
                                            {"PESTICIDE LEACHED BELOW CORE", &year.Leached}}) {
            if (Has(line, begin))
                *sum = Grams * Number(words.back());
        }
    }
    return years;
}

// The mean of the fourth and fifth highest of the twenty evaluated years.
double Percentile(const std::vector<Counted_Year>& years)
{
    std::vector<double> concentrations;
    for (std::size_t y = 6; y < years.size(); ++y)
        concentrations.push_back(years[y].Percolate_1m > 0 ? years[y].Leached_1m * 100 / years[y].Percolate_1m : 0);
    std::sort(concentrations.rbegin(), concentrations.rend());
    return (concentrations[3] + concentrations[4]) / 2;
}

// The cells of the rows that begin with a number, behind a title.
std::vector<std::vector<double>> Rows_Behind(const QString& text, const QString& title)
{
    std::vector<std::vector<double>> rows;
    const auto from = text.indexOf(title);
    for (const QString& line : text.mid(std::max<qsizetype>(from, 0)).split('\n')) {
        const QStringList cells = line.split('\t');
        if (from >= 0 && cells.size() > 2 && cells[1].trimmed().toInt() == static_cast<int>(rows.size()) + 1) {
            rows.emplace_back();
            for (const QString& cell : cells.mid(2))
                rows.back().push_back(cell.trimmed().toDouble());
        } else if (!rows.empty() && line.contains("Balance")) {
            break;
        } else if (!rows.empty() && line.contains("Perc")) {
            break;
        }
    }
    return rows;
}

// A table prints three decimals, or more digits than the engine's files have.
void Expect_Printed(double printed, double counted, const char* what)
{
    EXPECT_NEAR(printed, counted, 1e-5 * std::fabs(counted) + 6e-4) << what;
}

class Evaluation_Walk : public Window_Test {
protected:
    static void SetUpTestSuite()
    {
        Place = new Temporary_Directory;
        const std::string at = " -C " + Installation().string();
        ASSERT_EQ(Orvelctl("init " + Installation().string()), 0);
        for (const char* location : {"Hamburg (H)", "Jokioinen (J)", "Kremsm\xC3\xBCnster (K)"})
            ASSERT_EQ(Orvelctl(at + " mark --mode focus --pesticide demo_D.psm --crop 'Winter cereals' --location '" +
                               location + "'"),
                      0);
        ASSERT_EQ(Orvelctl(at + " start --mode focus --wait"), 0);
    }
    static void TearDownTestSuite() { delete Place; }

    Evaluation_Walk()
    {
        The_Session.Program.App_Path = Installation();
        Start_Up(The_Session);
    }

    static fs::path Installation() { return Place->Path() / "installation"; }
    static fs::path Run(const std::string& location)
    {
        return Installation() / "focus/demo_D.run/Winter_-_cereals.run" / (location + ".run");
    }
    static Words Locations() { return {"Hamburg_-_(H)", "Jokioinen_-_(J)", "Kremsm\xC3\xBCnster_-_(K)"}; }

    void Open(Mode_Kind mode = Mode_Kind::Focus)
    {
        Browser = std::make_unique<Analyse>(The_Session, Mode_Of(mode));
        Browser->show();
    }

    void Choose_Location(int index) { Find<QComboBox>(*Browser, "Szenarioverzeichnis")->setCurrentIndex(index); }

    // Uses the window that a button opens, as soon as its work is done.
    void In_Window(const QWidget& window, const QString& button, const std::function<void(QWidget&)>& use)
    {
        bool used = false;
        In_Modal([&](QWidget& opened) {
            if (auto* done = opened.findChild<QPushButton*>("Ende")) {
                ASSERT_TRUE(QTest::qWaitFor([&] { return done->isEnabled(); }, 20000));
            }
            use(opened);
            used = true;
        });
        Click<QPushButton>(window, button);
        EXPECT_TRUE(used) << button.toStdString();
    }

    static QString Text_Of(QWidget& window, const QString& name)
    {
        return Find<QPlainTextEdit>(window, name)->toPlainText();
    }
    static const Chart& Chart_Of(QWidget& window) { return Find<Chart_View>(window, "Diagramm")->Shown_Chart(); }

    std::unique_ptr<Analyse> Browser;
    static Temporary_Directory* Place;
};
Temporary_Directory* Evaluation_Walk::Place = nullptr;

} // namespace

TEST_F(Evaluation_Walk, The_List_Shows_The_Batch_As_Finished_And_Picks_A_Simulation_For_The_Browser)
{
    Open();

    In_Window(*Browser, "Liste", [](QWidget& list) {
        auto& grid = *Find<QTableView>(list, "Grid1");
        const auto cell = [&](int row, int column) { return grid.model()->index(row, column).data().toString(); };
        ASSERT_EQ(grid.model()->rowCount(), 3);
        for (int row = 0; row < 3; ++row) {
            EXPECT_EQ(cell(row, 1), "demo_D");
            EXPECT_EQ(cell(row, 5), "Data available");
            EXPECT_EQ(cell(row, 6), "complete");
        }
        EXPECT_EQ(cell(2, 3), QString::fromUtf8("Kremsm\xC3\xBCnster (K)"));
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, grid.visualRect(grid.model()->index(2, 2)).center());
        Click<QPushButton>(list, "Auswaehlen");
    });

    EXPECT_EQ(Find<QComboBox>(*Browser, "Pestizidverzeichnis")->currentText(), "demo_D");
    EXPECT_EQ(Find<QComboBox>(*Browser, "Kulturverzeichnis")->currentText(), "Winter cereals");
    EXPECT_EQ(Find<QComboBox>(*Browser, "Szenarioverzeichnis")->currentText(),
              QString::fromUtf8("Kremsm\xC3\xBCnster (K)"));
}

TEST_F(Evaluation_Walk, The_Leachate_Tables_And_Their_Diagram_Agree_With_The_Engines_Files_At_All_Locations)
{
    Open();
    for (int location = 0; location < 3; ++location) {
        const auto years = Count_Years(Run(Locations()[static_cast<std::size_t>(location)]), "chem.orv");
        ASSERT_EQ(years.size(), 26U);
        Choose_Location(location);
        In_Window(*Browser, "Konzentration", [&](QWidget& tables) {
            for (const bool at_1m : {true, false}) {
                const auto rows = Rows_Behind(Text_Of(tables, "Ergebnis_0"),
                                              at_1m ? "in the percolate at 1 m" : "in the percolate at the bottom");
                ASSERT_EQ(rows.size(), 26U);
                for (std::size_t y = 0; y < 26; ++y) {
                    const double flux = at_1m ? years[y].Leached_1m : years[y].Leached,
                                 percolate = at_1m ? years[y].Percolate_1m : years[y].Percolate;
                    Expect_Printed(rows[y][0], flux, "flux");
                    Expect_Printed(rows[y][1], percolate, "percolate");
                    Expect_Printed(rows[y][2], flux > 0 && percolate > 0 ? flux * 100 / percolate : 0, "concentration");
                }
            }
            In_Window(tables, "Diagramm", [&](QWidget& diagram) {
                const auto& boxes = Chart_Of(diagram).Boxes;
                ASSERT_EQ(boxes.size(), 20U);
                for (std::size_t p = 0; p < 20; ++p)
                    Expect_Printed(boxes[p].Y, years[6 + p].Leached_1m * 100 / years[6 + p].Percolate_1m, "box");
                EXPECT_EQ(std::count_if(boxes.begin(), boxes.end(),
                                        [](const Chart_Box& box) { return box.Drawn_In == Colour::Marked; }),
                          2);
            });
        });
    }
}

TEST_F(Evaluation_Walk, The_Balances_And_Their_Chart_Agree_With_The_Engines_Files_At_All_Locations)
{
    Open();
    for (int location = 0; location < 3; ++location) {
        const auto years = Count_Years(Run(Locations()[static_cast<std::size_t>(location)]), "chem.orv");
        Choose_Location(location);
        In_Window(*Browser, "Balance", [&](QWidget& tables) {
            const auto water = Rows_Behind(Text_Of(tables, "Ergebnis_0"), "Annual Water Balance");
            const auto pesticide = Rows_Behind(Text_Of(tables, "Ergebnis_1"), "Annual Pesticide Balance");
            ASSERT_EQ(water.size(), 26U);
            ASSERT_EQ(pesticide.size(), 26U);
            for (std::size_t y = 0; y < 26; ++y) {
                const auto& year = years[y];
                const double supply = year.Rain + year.Snow + year.Irrigation, loss = year.Canopy + year.Transpiration;
                const std::vector<double> expected_water = {
                    year.Rain + year.Snow, year.Irrigation,
                    year.Runoff,           loss,
                    year.Percolate,        supply - loss - year.Runoff - year.Percolate};
                const double lost = year.Volatilised + year.Washed + year.Uptake + year.Decay + year.Leached;
                const std::vector<double> expected = {
                    year.Application, year.Volatilised,       year.Washed, year.Uptake, year.Decay,
                    year.Leached,     year.Application - lost};
                ASSERT_EQ(water[y].size(), expected_water.size());
                ASSERT_EQ(pesticide[y].size(), expected.size());
                for (std::size_t i = 0; i < expected_water.size(); ++i)
                    Expect_Printed(water[y][i], expected_water[i], "water");
                for (std::size_t i = 0; i < expected.size(); ++i)
                    Expect_Printed(pesticide[y][i], expected[i], "pesticide");
            }
            In_Window(tables, "Diagramm", [&](QWidget& diagram) {
                const auto& boxes = Chart_Of(diagram).Boxes;
                ASSERT_EQ(boxes.size(), 26U * 6U);
                for (std::size_t y = 0; y < 26; ++y)
                    Expect_Printed(boxes[6 * y].Y, years[y].Rain + years[y].Snow, "box of the precipitation");
            });
        });
    }
}

TEST_F(Evaluation_Walk, The_Daily_Diagram_Sums_Up_To_The_Yearly_Percolate_At_All_Locations)
{
    Open();
    for (int location = 0; location < 3; ++location) {
        const auto years = Count_Years(Run(Locations()[static_cast<std::size_t>(location)]), "chem.orv");
        Choose_Location(location);
        auto* series = Find<QComboBox>(*Browser, "Parameter");
        series->setCurrentIndex(series->findText("Percolate at 100", Qt::MatchStartsWith));
        ASSERT_GE(series->currentIndex(), 0);
        Find<QCheckBox>(*Browser, "Cumulative")->setChecked(true);

        In_Window(*Browser, "Grafik", [&](QWidget& diagram) {
            const auto& lines = Chart_Of(diagram).Lines;
            ASSERT_EQ(lines.size(), 1U);
            double sum = 0;
            for (const auto& year : years)
                sum += year.Percolate_1m / Litres;
            EXPECT_EQ(lines[0].Points.size(), 26U * 365 + 6); // leap years 4 to 24
            EXPECT_NEAR(lines[0].Points.back().Y, sum, 0.005 * sum);
        });
    }
}

TEST_F(Evaluation_Walk, The_Report_Holds_The_Percentile_Of_Every_Location_And_Saves_It)
{
    Open();
    const fs::path saved = Place->Path() / "dossier.csv";
    In_Window(*Browser, "Zusammenfassung", [&](QWidget& report) {
        const QStringList rows = Text_Of(report, "Ergebnis").split('\n').filter("\t(");
        ASSERT_EQ(rows.size(), 4); // the head of the units and three locations
        for (int i = 0; i < 3; ++i) {
            const QString row = rows[i + 1];
            Expect_Printed(row.section('\t', -1).trimmed().toDouble(),
                           Percentile(Count_Years(Run(Locations()[static_cast<std::size_t>(i)]), "chem.orv")),
                           row.toUtf8().constData());
        }
        QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        In_Modal([&](QWidget& dialog) {
            qobject_cast<QFileDialog*>(&dialog)->setDirectory(QString::fromStdString(Place->Path().string()));
            auto* name = Find<QLineEdit>(dialog, "fileNameEdit");
            name->selectAll();
            QTest::keyClicks(name, "dossier.csv");
            QTest::keyClick(name, Qt::Key_Return);
        });
        Click<QPushButton>(report, "Speichern");
    });

    const auto lines = Lines_Of(saved);
    ASSERT_EQ(lines.size(), 4U);
    for (std::size_t i = 0; i < 3; ++i) {
        std::istringstream line(lines[i + 1]);
        std::string field;
        for (int skipped = 0; skipped < 4; ++skipped)
            std::getline(line, field, ',');
        Expect_Printed(Number(field), Percentile(Count_Years(Run(Locations()[i]), "chem.orv")), lines[i + 1].c_str());
        EXPECT_TRUE(Has(lines[i + 1], "1 kg/ha, 1 November, every year, 1 to 26, soil surface")) << lines[i + 1];
    }
}

TEST_F(Evaluation_Walk, The_Concentrations_In_Soil_Agree_With_The_Profile_Rows_Of_The_Engine)
{
    const std::string at = " -C " + Installation().string();
    ASSERT_EQ(Orvelctl(at + " mark --mode efsa --pesticide demo_S.psm --crop 'Winter cereals' --location "
                            "'Total content - North (T_N)'"),
              0);
    ASSERT_EQ(Orvelctl(at + " start --mode efsa --wait"), 0);
    Open(Mode_Kind::Efsa);
    Find<QComboBox>(*Browser, "ERC")->setCurrentText("5");

    // The mean of the top five rows, of every line and of the days' ends, behind the warm-up.
    const fs::path run =
        Installation() / "EFSA/demo_S.run/Winter_-_cereals.run/Total_-_content_-_-_-_North_-_(T_N).run";
    const auto lines = Lines_Of(run / "plot.orv");
    const Words counts = Words_Of(lines[6]);
    const auto first = static_cast<std::size_t>(2 + Number(counts[1]) - Number(counts[2]));
    double actual = 0;
    std::vector<double> days(7, 0.0); // of the warm-up, which count as zeros
    bool evaluated = false;
    for (std::size_t i = 11; i < lines.size(); ++i) {
        const Words words = Words_Of(lines[i]);
        if (words.size() < first + 20)
            continue;
        if (evaluated) {
            double mean = 0;
            for (std::size_t layer = 0; layer < 5; ++layer)
                mean += Number(words[first + layer]) / 5;
            actual = std::max(actual, mean);
            if (words[1] == "24")
                days.push_back(mean);
        }
        evaluated = evaluated || (words[0] == "2190" && words[1] == "24");
    }
    double week = 0;
    for (std::size_t d = 0; d + 7 <= days.size(); ++d) {
        double sum = 0;
        for (std::size_t i = d; i < d + 7; ++i)
            sum += days[i];
        week = std::max(week, sum / 7);
    }
    ASSERT_GT(actual, 0);

    In_Window(*Browser, "Konzentration", [&](QWidget& soil) {
        const QStringList rows =
            Text_Of(soil, "Ergebnis_1").split('\n').filter(QRegularExpression("^ *[0-9]* *\t[0-9.E+-]+ *\t"));
        ASSERT_GE(rows.size(), 11);
        Expect_Printed(rows[0].section('\t', 1, 1).trimmed().toDouble(), actual, "actual");
        EXPECT_EQ(rows[4].section('\t', 0, 0).trimmed(), "7");
        Expect_Printed(rows[4].section('\t', 1, 1).trimmed().toDouble(), week, "a week's average");
    });
}

} // namespace orvel
