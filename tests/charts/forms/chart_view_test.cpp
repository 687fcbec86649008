#include "charts/forms/chart_view.h"

#include "charts/painting/chart_files.h"
#include "charts/painting/chart_painter.h"
#include "charts/scale.h"
#include "core/files.h"
#include "temporary_directory.h"

#include <gtest/gtest.h>
#include <QApplication>
#include <QHelpEvent>
#include <QImage>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>

namespace orvel {

namespace {

Chart Sample(std::size_t points = 50)
{
    Chart chart;
    chart.Title = "Percolate (cm/d)";
    chart.X = Position_Axis(10);
    chart.X.Title = "Year ";
    chart.Y = Value_Axis(0, 8);
    chart.Frame = Frame_Around(chart.X, chart.Y);
    chart.Lines.push_back({Colour::Series, {}});
    for (std::size_t i = 0; i < points; ++i)
        chart.Lines[0].Points.push_back(
            {10.0 * static_cast<double>(i) / static_cast<double>(points), i % 2 == 0 ? 1.0 : 7.0});
    chart.Boxes.push_back({Colour::Marked, 4, 5, 6});
    return chart;
}

// The share of pixels of about a colour.
double Share(const QImage& image, const QColor& colour)
{
    int found = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            found += std::abs(pixel.red() - colour.red()) + std::abs(pixel.green() - colour.green()) +
                         std::abs(pixel.blue() - colour.blue()) <
                     30;
        }
    }
    return found / static_cast<double>(image.width() * image.height());
}

} // namespace

TEST(Paint_Chart, Draws_A_Box_From_The_Axis_To_Its_Height)
{
    const QImage image = Chart_Image(Sample(), {800, 500});
    const QColor marked = Colour_Of(Colour::Marked, Paper_Palette());
    const Chart_Plane plane(Sample(), QRectF(0, 0, 800, 500), QFont(), &image);

    EXPECT_EQ(image.pixelColor(plane.At(4.5, 3).toPoint()), marked);
    EXPECT_NE(image.pixelColor(plane.At(5.5, 7.5).toPoint()), marked);
    EXPECT_GT(Share(image, marked), 0.02);
}

TEST(Paint_Chart, The_Name_Of_A_Line_Stands_Behind_Its_End_Where_No_Box_Is)
{
    Chart chart = Sample();
    chart.Lines = {{Colour::Marked, {{0, 3}, {10, 3}}, {}, "limit: 0.1 \xB5g/L"}};
    const QImage image = Chart_Image(chart, {800, 500});
    const double end = Chart_Plane(chart, QRectF(0, 0, 800, 500), QFont(), &image).At(10, 3).x();
    const QColor marked = Colour_Of(Colour::Marked, Paper_Palette());

    const int behind = static_cast<int>(end) + 3;
    EXPECT_GT(Share(image.copy(behind, 0, 800 - behind, 500), marked), 0);
    EXPECT_EQ(Share(image.copy(797, 0, 3, 500), marked), 0); // the name is not cut
}

// A PDF document for the archive draws what is transparent in full strength.
TEST(Paint_Chart, Has_No_Transparent_Line)
{
    const Temporary_Directory place;
    Save_Chart(Sample(), place / "chart.svg");

    const QString svg = QString::fromStdString(Read_Whole(place / "chart.svg"));
    EXPECT_TRUE(svg.contains("stroke-opacity=\"1\""));
    EXPECT_FALSE(svg.contains("opacity=\"0"));
}

TEST(Paint_Chart, Takes_Its_Ground_From_The_Palette)
{
    QImage image(400, 300, QImage::Format_RGB32);
    QPalette dark;
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    dark.setColor(QPalette::Text, Qt::white);
    QPainter painter(&image);

    Paint_Chart(painter, QRectF(0, 0, 400, 300), Sample(), dark);
    painter.end();

    EXPECT_EQ(image.pixelColor(2, 2), QColor(30, 30, 30));
    EXPECT_GT(Colour_Of(Colour::Series, dark).lightness(), Colour_Of(Colour::Series, Paper_Palette()).lightness());
}

TEST(Paint_Chart, Fifty_Thousand_Points_Look_Like_Their_Extent)
{
    // In every column of pixels the line goes from 1 to 7: the area between is filled.
    const QImage image = Chart_Image(Sample(50000), {800, 500});

    EXPECT_GT(Share(image, Colour_Of(Colour::Series, Paper_Palette())), 0.2);
}

TEST(Paint_Chart, A_Line_Of_One_Point_Is_A_Dot)
{
    Chart chart = Sample(0);
    chart.Boxes.clear();
    chart.Lines[0].Points = {{5, 4}};

    const QImage image = Chart_Image(chart, {800, 500});

    const Chart_Plane plane(chart, QRectF(0, 0, 800, 500), QFont(), &image);
    EXPECT_NE(image.pixelColor(plane.At(5, 4).toPoint()), QColor(Qt::white));
}

TEST(Paint_Chart, Nothing_Is_Cut_At_The_Edges_Of_A_Small_Picture)
{
    for (const auto& [low, high] :
         {std::pair(0.0, 2e14), std::pair(-3e-13, 1e-12), std::pair(0.0, 0.0123), std::pair(-5.0, 0.0)}) {
        Chart chart = Sample();
        chart.Title = "Dissolved concentration in soil water at 100 cm  for a substance with a long name (mg/L)";
        chart.Legend = {"Here stands more: " + chart.Title};
        chart.X.Ticks = Position_Axis(10, 99990).Ticks;
        chart.Y = Value_Axis(low, high);
        chart.Frame = Frame_Around(chart.X, chart.Y);
        QImage image(430, 270, QImage::Format_RGB32);
        QPainter painter(&image);
        Paint_Chart(painter, image.rect(), chart, Paper_Palette());
        painter.end();

        for (int x = 0; x < image.width(); ++x)
            EXPECT_TRUE(image.pixelColor(x, 0) == Qt::white && image.pixelColor(x, image.height() - 1) == Qt::white)
                << x << ", to " << high;
        for (int y = 0; y < image.height(); ++y)
            EXPECT_TRUE(image.pixelColor(0, y) == Qt::white && image.pixelColor(image.width() - 1, y) == Qt::white)
                << y << ", to " << high;
    }
}

TEST(Paint_Chart, In_A_Low_Picture_The_Figure_Of_A_Box_Stands_Below_The_Key)
{
    Chart chart = Sample();
    chart.Lines.clear();
    chart.Boxes = {{Colour::Series, 1, 3, 8}};
    chart.Key = {{Colour::Series, "concentration of the percentile"}};
    const auto painted = [&](const char* label) {
        chart.Boxes[0].Label = label;
        QImage image(430, 110, QImage::Format_RGB32);
        QPainter painter(&image);
        Paint_Chart(painter, image.rect(), chart, Paper_Palette());
        return image;
    };
    const QImage without = painted(""), with = painted("3.095");
    const Chart_Plane plane(chart, without.rect(), QFont(), &without);
    const int key = static_cast<int>(plane.Area().top() + 0.6 * QFontMetrics(QFont(), &without).lineSpacing());

    EXPECT_NE(with, without);
    EXPECT_EQ(with.copy(0, 0, 430, key), without.copy(0, 0, 430, key));
}

TEST(Shown_Labels_Rule, Leaves_Out_Every_Second_Or_Third_Where_All_Would_Touch)
{
    const auto axis = Position_Axis(12); // a label at every 1, since the step of 12 is 1
    const auto shown = [&](double needed) {
        std::string labels;
        for (const Chart_Tick* tick : Shown_Labels(axis, needed, 20))
            labels += tick->Label + " ";
        return labels;
    };

    EXPECT_EQ(shown(20), "0 1 2 3 4 5 6 7 8 9 10 11 12 ");
    EXPECT_EQ(shown(21), "0 2 4 6 8 10 12 ");
    EXPECT_EQ(shown(60), "0 3 6 9 12 ");
}

TEST(Shown_Labels_Rule, Zero_Stays_On_A_Value_Axis_With_Both_Signs)
{
    const auto axis = Value_Axis(-30, 20); // steps of 5

    const auto shown = Shown_Labels(axis, 15, 1);

    ASSERT_FALSE(shown.empty());
    EXPECT_EQ(shown.front()->Label, "-30");
    EXPECT_EQ(shown[2]->Label, "0");
}

TEST(Save_Chart, Writes_A_Picture_By_The_Ending)
{
    Temporary_Directory place;
    for (const char* name : {"a.png", "a.SVG", "a.pdf"})
        Save_Chart(Sample(), place / name);

    EXPECT_TRUE(Read_Whole(place / "a.png").starts_with("\x89PNG"));
    EXPECT_NE(Read_Whole(place / "a.SVG").find("<svg"), std::string::npos);
    EXPECT_TRUE(Read_Whole(place / "a.pdf").starts_with("%PDF"));
}

TEST(Save_Chart, Refuses_Another_Ending_And_Tells_A_Failure)
{
    Temporary_Directory place;

    EXPECT_THROW(Save_Chart(Sample(), place / "a.bmp"), File_Error);
    EXPECT_THROW(Save_Chart(Sample(), place / "missing" / "a.png"), File_Error);
}

TEST(A_Chart_View, Tells_The_Span_That_Was_Dragged_Over)
{
    Chart_View view;
    view.resize(800, 500);
    view.Show(Sample());
    view.Allow_Zoom(true);
    view.show();
    QSignalSpy spans(&view, &Chart_View::Span_Chosen), clicks(&view, &Chart_View::Clicked);
    const Chart_Plane plane(Sample(), view.rect(), view.font());

    QTest::mousePress(&view, Qt::LeftButton, {}, plane.At(7, 2).toPoint());
    QTest::mouseMove(&view, plane.At(3, 2).toPoint());
    QTest::mouseRelease(&view, Qt::LeftButton, {}, plane.At(3, 2).toPoint());

    ASSERT_EQ(spans.count(), 1);
    EXPECT_NEAR(spans[0][0].toDouble(), 3, 0.05);
    EXPECT_NEAR(spans[0][1].toDouble(), 7, 0.05);
    EXPECT_EQ(clicks.count(), 0);
}

TEST(A_Chart_View, The_Space_Bar_Is_A_Click)
{
    Chart_View view;
    view.Show(Sample());
    QSignalSpy clicks(&view, &Chart_View::Clicked);

    QTest::keyClick(&view, Qt::Key_Space);
    QTest::keyClick(&view, Qt::Key_A);

    EXPECT_EQ(clicks.count(), 1);
}

TEST(A_Chart_View, A_Click_Is_No_Span)
{
    Chart_View view;
    view.Show(Sample());
    view.Allow_Zoom(true);
    view.show();
    QSignalSpy spans(&view, &Chart_View::Span_Chosen), clicks(&view, &Chart_View::Clicked);

    QTest::mouseClick(&view, Qt::LeftButton);

    EXPECT_EQ(spans.count(), 0);
    EXPECT_EQ(clicks.count(), 1);
}

TEST(Chart_View, The_Tip_Of_A_Value_Is_Not_Replaced_By_That_Of_The_View)
{
    Chart_View view;
    view.resize(800, 500);
    view.Show(Sample());
    view.setToolTip("Click for the next substance");
    view.show();
    const QPoint box = Chart_Plane(Sample(), view.rect(), view.font()).At(4.5, 3).toPoint();

    QTest::mouseMove(&view, box);
    ASSERT_TRUE(QTest::qWaitFor([] { return !QToolTip::text().isEmpty(); }));
    QHelpEvent rest(QEvent::ToolTip, box, view.mapToGlobal(box));
    QApplication::sendEvent(&view, &rest);

    EXPECT_EQ(QToolTip::text(), "4.5: 6");
}

TEST(Chart_View, Goes_Through_Its_Values_By_The_Keyboard_And_Says_Them)
{
    Chart chart = Sample(10);
    chart.Boxes.clear();
    Chart_View view;
    view.Show(chart);
    view.show();
    view.setFocus();

    QTest::keyClick(&view, Qt::Key_Right);
    EXPECT_EQ(view.accessibleDescription().toStdString(), "0: 1");
    QTest::keyClick(&view, Qt::Key_Right);
    EXPECT_EQ(view.accessibleDescription().toStdString(), "1: 7");
    QTest::keyClick(&view, Qt::Key_End);
    QTest::keyClick(&view, Qt::Key_Right); // there is nothing behind it
    EXPECT_EQ(view.accessibleDescription().toStdString(), "9: 7");
    QTest::keyClick(&view, Qt::Key_Home);
    QTest::keyClick(&view, Qt::Key_PageDown);
    EXPECT_EQ(view.accessibleDescription().toStdString(), "2: 1");
    QTest::keyClick(&view, Qt::Key_Left);
    EXPECT_EQ(view.accessibleDescription().toStdString(), "1: 7");
}

TEST(Chart_View, Chooses_The_Span_Around_A_Value_By_The_Keyboard)
{
    Chart chart = Sample(10);
    chart.Boxes.clear();
    Chart_View view;
    view.Show(chart);
    QSignalSpy spans(&view, &Chart_View::Span_Chosen);

    QTest::keyClick(&view, Qt::Key_End);
    QTest::keyClick(&view, Qt::Key_Plus); // only where it is allowed
    EXPECT_EQ(spans.count(), 0);
    view.Allow_Zoom(true);
    QTest::keyClick(&view, Qt::Key_Plus);

    ASSERT_EQ(spans.count(), 1);
    EXPECT_DOUBLE_EQ(spans[0][0].toDouble(), 6.5); // of an axis from 0 to 10, around 9
    EXPECT_DOUBLE_EQ(spans[0][1].toDouble(), 10);
}

} // namespace orvel
