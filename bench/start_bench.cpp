//  The start form's time from main to its first paint and its memory use then, for comparison with floors/qt_floor
// start.   start_bench DIR    DIR is an installation
#include "desktop/forms/start.h"
#include "runs/start_up.h"
#include "ui/forms/widgets.h"

#include <chrono>
#include <cstdio>
#include <fstream>
#include <memory>
#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <string>

namespace orvel {

namespace {

using Clock = std::chrono::steady_clock;

std::string Memory(const std::string& field)
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with(field))
            return line.substr(field.size());
    }
    return {};
}

class First_Paint : public QObject {
public:
    explicit First_Paint(Clock::time_point started) : Started(started) {}

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && !Painted) {
            Painted = true;
            const double paint = Since();
            QTimer::singleShot(0, this, [this, paint] {
                std::printf("main to paint %.1f ms, to idle %.1f ms, VmRSS %s, VmHWM %s\n", paint, Since(),
                            Memory("VmRSS:").c_str(), Memory("VmHWM:").c_str());
                QCoreApplication::quit();
            });
        }
        return false;
    }

private:
    double Since() const { return std::chrono::duration<double, std::milli>(Clock::now() - Started).count(); }

    Clock::time_point Started;
    bool Painted = false;
};

} // namespace

} // namespace orvel

int main(int argc, char** argv)
{
    using namespace orvel;
    const auto started = Clock::now();
    QApplication application(argc, argv);
    if (argc < 2)
        return 2;
    const auto session = std::make_unique<Session>();
    session->Program.App_Path = argv[1];
    session->Ask = Ask_In_Box;
    if (!Start_Up(*session))
        return 1;
    Start start(*session);
    First_Paint filter(started);
    start.installEventFilter(&filter);
    start.show();
    return QApplication::exec();
}
