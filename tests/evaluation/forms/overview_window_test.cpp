// The whole assessment at a glance, as an assessor goes: nine runs are marked and started by hand, followed in the
// window to their percentiles, and one of their files is broken.
#include "charts/forms/chart_view.h"
#include "jobs/forms/focus.h"
#include "overview_window_fixture.h"

#include <fstream>
#include <QCheckBox>
#include <QHeaderView>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>

namespace orvel {

TEST_F(Overview_Window_Test, Nine_Runs_Are_Marked_Started_And_Followed_To_Their_Percentiles)
{
    FOCUS form(The_Session, Mode_Of(Mode_Kind::Focus), {}, nullptr);
    form.show();
    Overview_Window window(The_Session, Mode_Kind::Focus);
    Settle(window);
    EXPECT_TRUE(Find<QLabel>(window, "Status")->text().startsWith("0 simulations"));

    Choose(form, "Pesticide", "demo_D.psm");
    Choose(form, "Crop", "Winter cereals");
    Click<QPushButton>(form, "Multi_batch");
    const auto* table = Find<QTreeView>(window, "Table");
    ASSERT_TRUE(QTest::qWaitFor([&] { return table->model()->rowCount() == 1; }, Patience));
    ASSERT_TRUE(QTest::qWaitFor(
        [&] {
            return std::ranges::all_of(Cells(window, 0),
                                       [](const QString& cell) { return cell.contains("scheduled"); });
        },
        5000))
        << Cells(window, 0).join(" | ").toStdString();

    Click<QPushButton>(form, "s_run");
    bool running = false;
    ASSERT_TRUE(QTest::qWaitFor(
        [&] {
            const auto cells = Cells(window, 0);
            running =
                running || std::ranges::any_of(cells, [](const QString& cell) { return cell.contains("running "); });
            return All_Are_Figures(cells);
        },
        Patience))
        << Cells(window, 0).join(" | ").toStdString();

    EXPECT_TRUE(running);
    EXPECT_EQ(Cell(window, 0, 2), "Demo substance D");
    const QStringList codes = {"Châteaudun_-_(C)--_-_no_-_irrigation", "Hamburg_-_(H)", "Jokioinen_-_(J)"};
    for (int i = 0; i < codes.size(); ++i) {
        const auto figure = Stored_Percentile(Run(codes[i].toStdString()));
        ASSERT_FALSE(figure.isEmpty());
        EXPECT_TRUE(Cell(window, 0, First_Location + i).endsWith(" " + figure))
            << Cell(window, 0, First_Location + i).toStdString() << " " << figure.toStdString();
    }
    Leave_Picture(window, "overview");

    // One byte, with the old size: within a second or so, and no other cell changes.
    const auto before = Cells(window, 0);
    {
        std::fstream file(Run("Hamburg_-_(H)") / "chem.orv", std::ios::in | std::ios::out | std::ios::binary);
        file.seekg(1000);
        const int byte = file.get();
        file.seekp(1000);
        file.put(static_cast<char>(byte ^ 1));
    }
    ASSERT_TRUE(QTest::qWaitFor([&] { return Cells(window, 0)[1].contains("changed since"); }, Patience))
        << Cells(window, 0)[1].toStdString();
    auto after = Cells(window, 0);
    after[1] = before[1];
    EXPECT_EQ(after, before);
    EXPECT_TRUE(Cell(window, 0, First_Location + 10).contains("1 without a figure"));

    fs::remove_all(Run("Hamburg_-_(H)")); // a directory that vanishes
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return table->model()->headerData(First_Location + 1, Qt::Horizontal) == "Jokioinen\n(J)"; }, Patience));
    fs::remove_all(Run("Hamburg_-_(H)").parent_path().parent_path());
    EXPECT_TRUE(QTest::qWaitFor([&] { return table->model()->rowCount() == 0; }, Patience));
}

TEST_F(Overview_Window_Test, While_Nothing_Changes_No_Run_Is_Looked_At)
{
    Nine_Runs();
    Overview_Window window(The_Session, Mode_Kind::Focus);
    Settle(window);
    QTest::qWait(500); // what the tables that were just stored brought about
    const auto looks = window.Looks();

    QTest::qWait(2000);

    EXPECT_EQ(window.Looks(), looks);
}

TEST_F(Overview_Window_Test, Filters_Sorting_And_Chosen_Locations)
{
    Nine_Runs();
    Overview_Window window(The_Session, Mode_Kind::Focus);
    Settle(window);
    const auto* model = Find<QTreeView>(window, "Table")->model();
    ASSERT_EQ(model->rowCount(), 1);
    ASSERT_EQ(model->columnCount(), First_Location + 9 + 2);

    QTest::keyClicks(Find<QLineEdit>(window, "Find"), "nothing like it");
    EXPECT_EQ(model->rowCount(), 0);
    Find<QLineEdit>(window, "Find")->clear();
    EXPECT_EQ(model->rowCount(), 1);
    Choose_Option(window, "Above_Limit");
    EXPECT_EQ(model->rowCount(), 1);
    Pick(window, "States", "Failed");
    EXPECT_EQ(model->rowCount(), 0);
    Pick(window, "States", "All states");

    // A choice of locations is made, kept with the installation, and counted.
    In_Modal([](QWidget& choices) {
        Find<QComboBox>(choices, "Choice_Name")->setEditText("Great Britain");
        auto* list = Find<QListWidget>(choices, "Choice_Locations");
        for (const int row : {0, 1, 3, 4})
            list->item(row)->setCheckState(Qt::Checked);
        Click<QPushButton>(choices, "Keep");
        Click<QPushButton>(choices, "Done");
    });
    Pick(window, "Locations", "Edit ...");
    EXPECT_TRUE(QTest::qWaitFor([&] { return model->columnCount() == First_Location + 4 + 2; }, Patience));
    EXPECT_EQ(Cell(window, 0, First_Location + 5), "4 of 4");
    Overview_Window another(The_Session, Mode_Kind::Focus);
    EXPECT_EQ(Find<QComboBox>(another, "Locations")->currentText(), "Great Britain");
    Pick(window, "Locations", "All locations");
    EXPECT_TRUE(QTest::qWaitFor([&] { return model->columnCount() == First_Location + 9 + 2; }, Patience));
}

namespace {

// Whether a column of the table shows all of a text of a row.
bool Is_Wide_Enough(const QTreeView& table, const QModelIndex& index)
{
    QFont font = table.font();
    if (const auto own = index.data(Qt::FontRole); own.isValid())
        font = own.value<QFont>().resolve(font);
    return QFontMetrics(font).horizontalAdvance(index.data().toString()) <= table.columnWidth(index.column());
}

} // namespace

TEST_F(Overview_Window_Test, Sorting_Leaves_The_Marked_Row_And_The_Open_Ones_And_An_Open_Row_Has_Its_Whole_Figures)
{
    Nine_Runs();
    const std::string at = "-C " + Installation().string();
    ASSERT_EQ(
        Orvelctl(at + " mark --mode focus --pesticide demo_C.psm --crop 'Winter cereals' --location 'Hamburg (H)'"), 0);
    ASSERT_EQ(
        Orvelctl(at + " mark --mode focus --pesticide demo_A.psm --crop 'Winter cereals' --location 'Hamburg (H)'"), 0);
    {
        Overview_Window window(The_Session, Mode_Kind::Focus);
        Settle(window);
        auto* table = Find<QTreeView>(window, "Table");
        ASSERT_EQ(Cell(window, 1, 0), "demo_C");
        table->setCurrentIndex(table->model()->index(1, First_Location + 1));

        // The row gets the name of its substance when its run has ended.
        ASSERT_EQ(Orvelctl(at + " start --mode focus --wait"), 0);
        ASSERT_TRUE(
            QTest::qWaitFor([&] { return table->model()->rowCount(table->model()->index(1, 0)) == 1; }, Patience));
        EXPECT_EQ(table->currentIndex(), table->model()->index(1, First_Location + 1));

        table->expand(table->model()->index(1, 0));
        const auto metabolite = [&] {
            return table->model()->index(0, First_Location + 1, table->model()->index(1, 0));
        };
        EXPECT_TRUE(Is_Wide_Enough(*table, metabolite())) << metabolite().data().toString().toStdString();
        table->setCurrentIndex(metabolite());
        table->sortByColumn(0, Qt::DescendingOrder);
        table->sortByColumn(First_Location + 1, Qt::AscendingOrder);
        table->sortByColumn(0, Qt::AscendingOrder);

        EXPECT_TRUE(table->isExpanded(table->model()->index(1, 0)));
        EXPECT_FALSE(table->isExpanded(table->model()->index(0, 0)));
        EXPECT_EQ(table->currentIndex(), metabolite());
        EXPECT_TRUE(Is_Wide_Enough(*table, metabolite()));
    }
    for (const char* pesticide : {"demo_A.run", "demo_C.run"})
        fs::remove_all(Installation() / "focus" / pesticide);
}

TEST_F(Overview_Window_Test, Fits_Half_Of_A_Wide_Screen_Whatever_It_Tells)
{
    Nine_Runs();
    Overview_Window window(The_Session, Mode_Kind::Focus);
    Settle(window);
    Find<QLabel>(window, "Status")
        ->setText("5009 simulations: 3112 with figures, 888 changed since, 1009 being read ...");

    constexpr int Letters = 160; // 960 pixels of a screen at 200 %
    EXPECT_LE(window.minimumSizeHint().width(), Letters * window.fontMetrics().averageCharWidth());
}

TEST_F(Overview_Window_Test, Opens_As_Wide_As_Its_Table_As_Far_As_The_Screen_Goes)
{
    Nine_Runs();
    Overview_Window window(The_Session, Mode_Kind::Focus);
    window.resize(window.minimumSizeHint());
    Settle(window);

    const auto* table = Find<QTreeView>(window, "Table");
    const int beside = window.width() - table->viewport()->width();
    const int frame = window.frameGeometry().width() - window.width();
    EXPECT_GE(window.width(),
              std::min(table->header()->length() + beside, window.screen()->availableSize().width() - frame));

    const QFontMetrics letters = window.fontMetrics(); // what stood there while it was read makes no column wider
    EXPECT_LE(table->columnWidth(First_Location + 1), letters.horizontalAdvance("\u25D5 0.000") + letters.height() * 3);

    window.resize(window.minimumSizeHint()); // by hand
    emit Find<QComboBox>(window, "States")->activated(0);
    EXPECT_EQ(window.width(), window.minimumSizeHint().width());
}

TEST_F(Overview_Window_Test, Classes_Are_The_Users_And_A_Wrong_One_Is_Told)
{
    Nine_Runs();
    Overview_Window window(The_Session, Mode_Kind::Focus);
    Settle(window);
    const auto sign = [&] { return Cell(window, 0, First_Location + 1).left(1); };
    const QString before = sign();

    Retype(window, "Classes", "0.001; 0.1; 1; 2");
    EXPECT_NE(sign(), before);
    EXPECT_EQ(Read_Overview_Settings(Installation()).Bounds, (std::vector<double>{0.001, 0.1, 1, 2}));

    Retype(window, "Classes", "2; 1");
    ASSERT_EQ(The_User.Messages.size(), 1U);
    EXPECT_EQ(Find<QLineEdit>(window, "Classes")->text(), "0.001; 0.1; 1; 2");
    Retype(window, "Classes", "0.001; 0.1; 1; 10");
}

TEST_F(Overview_Window_Test, The_Pictures_Show_The_Marked_Row_With_The_Two_Values_That_Make_The_Percentile)
{
    Nine_Runs();
    Overview_Window window(The_Session, Mode_Kind::Focus);
    Settle(window);
    auto* table = Find<QTreeView>(window, "Table");
    table->setCurrentIndex(table->model()->index(0, First_Location + 1));

    const Chart& bars = Find<Chart_View>(window, "Picture")->Shown_Chart();
    EXPECT_EQ(bars.Boxes.size(), 9U);
    EXPECT_EQ(bars.Dots.size(), 9U * 20);
    EXPECT_EQ(std::ranges::count_if(bars.Dots, &Chart_Dot::Marked), 9 * 2);
    ASSERT_EQ(bars.Lines.size(), 1U);
    EXPECT_EQ(bars.Lines[0].Points[0].Y, 0.1);
    double sum = 0;
    for (const auto& dot : bars.Dots) {
        if (dot.Marked && dot.Name.starts_with("Hamburg"))
            sum += dot.Y;
    }
    EXPECT_NEAR(sum / 2, bars.Boxes[1].Y, 0.0005); // the bar is the printed mean of both

    const Chart& ranks = Find<Chart_View>(window, "Ranks")->Shown_Chart();
    EXPECT_TRUE(ranks.Title.starts_with("Hamburg (H)"));
    ASSERT_EQ(ranks.Lines[0].Points.size(), 20U);
    EXPECT_TRUE(std::ranges::is_sorted(ranks.Lines[0].Points, {}, &Chart_Point::Y));
    std::vector<double> at;
    for (const auto& dot : ranks.Dots) {
        if (dot.Marked)
            at.push_back(dot.X);
    }
    EXPECT_EQ(at, (std::vector<double>{16, 17}));
}

// Whether a window of another mode shows its figures: Tier 2.
TEST_F(Overview_Window_Test, Soil_Modes_Show_A_Concentration_By_Depth_And_Average)
{
    const std::string at = "-C " + Installation().string();
    ASSERT_EQ(Orvelctl(at + " mark --mode efsa --pesticide demo_S.psm --crop Potatoes --all"), 0);
    ASSERT_EQ(Orvelctl(at + " start --mode efsa --wait"), 0);
    Overview_Window window(The_Session, Mode_Kind::Efsa);
    Settle(window);
    const auto* model = Find<QTreeView>(window, "Table")->model();
    ASSERT_EQ(model->rowCount(), 2); // pore water and total content
    QString first = Cell(window, 1, First_Location);
    EXPECT_TRUE(first.contains('.')) << first.toStdString();
    EXPECT_TRUE(Find<QComboBox>(window, "Depth")->isVisible());
    // Bars of the three soils of the row alone, and the averages of the marked one.
    auto* table = Find<QTreeView>(window, "Table");
    table->setCurrentIndex(table->model()->index(1, First_Location));
    const Chart& bars = Find<Chart_View>(window, "Picture")->Shown_Chart();
    EXPECT_EQ(bars.Boxes.size(), 3U);
    EXPECT_EQ(bars.X.Ticks.size(), 3U);
    EXPECT_EQ(bars.Boxes.at(0).Label, first.toStdString());
    EXPECT_TRUE(bars.Lines.empty()); // the limit is that of water
    const Chart& averages = Find<Chart_View>(window, "Ranks")->Shown_Chart();
    ASSERT_EQ(averages.Dots.size(), 11U);
    EXPECT_TRUE(std::ranges::is_sorted(averages.Lines.at(0).Points, std::greater<>(), &Chart_Point::Y));
    EXPECT_EQ(averages.Lines[0].Points[0].Y, bars.Boxes[0].Y);
    EXPECT_TRUE(averages.Dots[0].Marked);
    Leave_Picture(window, "overview_efsa");

    Pick(window, "Average", "100 d");

    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            const QString now = Cell(window, 1, First_Location);
            return now.contains('.') && now != first;
        },
        Patience));
    const Chart& longest = Find<Chart_View>(window, "Ranks")->Shown_Chart();
    EXPECT_TRUE(longest.Dots.back().Marked);
    EXPECT_EQ(Find<Chart_View>(window, "Picture")->Shown_Chart().Boxes.at(0).Y, longest.Lines.at(0).Points.back().Y);
}

} // namespace orvel
