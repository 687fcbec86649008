// The time to repaint the daily diagram, as after a resize, and to make it from a series. Exits with 1 if 50,000 points
// take 50 ms or more.
#include "charts/painting/chart_painter.h"
#include "tables/daily_diagram.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <QGuiApplication>
#include <QPixmap>
#include <random>
#include <vector>

namespace orvel {

namespace {

constexpr int Rounds = 9;
constexpr QSize Window(1600, 900);
constexpr std::size_t Days_And_Hours = 50000, Sixty_Years_Of_Hours = 60 * 365 * 24;
constexpr double Most_Milliseconds = 50;

// A rate that jumps at every point, so that thinning cannot be lucky.
Daily_Series Noise(std::size_t points)
{
    std::mt19937 random(1);
    std::uniform_real_distribution<double> value(0, 3);
    Daily_Series series;
    series.Days = static_cast<double>(points) / 24;
    for (std::size_t i = 0; i < points; ++i)
        series.Points.push_back({static_cast<double>(i + 1) / 24, value(random)});
    return series;
}

template <class Work> double Milliseconds(Work work)
{
    std::vector<double> times;
    for (int i = 0; i < Rounds; ++i) {
        const auto begin = std::chrono::steady_clock::now();
        work();
        times.push_back(std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count());
    }
    std::nth_element(times.begin(), times.begin() + Rounds / 2, times.end());
    return times[Rounds / 2];
}

double Measure(std::size_t points)
{
    const Daily_Series series = Noise(points);
    const Daily_Request request{.Variable = 3, .From = {1, 1}, .To = {12, static_cast<int>(points / 24 / 365) + 1}};
    Chart chart;
    const double made = Milliseconds([&] { chart = Daily_Diagram(series, request, "Percolate", X_Unit::Years); });
    const double painted = Milliseconds([&] {
        QPixmap picture(Window);
        QPainter painter(&picture);
        Paint_Chart(painter, QRectF(QPointF(0, 0), Window), chart, Paper_Palette());
    });
    std::printf("%7zu points  made %6.1f ms  painted %6.1f ms\n", points, made, painted);
    return painted;
}

} // namespace

} // namespace orvel

int main(int argc, char** argv)
{
    using namespace orvel;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const double repaint = Measure(Days_And_Hours);
    Measure(Sixty_Years_Of_Hours);
    return repaint < Most_Milliseconds ? 0 : 1;
}
