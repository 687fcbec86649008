// The minimum cost of a Qt 6 Widgets program: time to its first paint, and resident memory then.
//
//   qt_floor empty    a window with a label
//   qt_floor start    a window as busy as a start form: a menu bar, 40 buttons, a table of 60 rows, two combo boxes, a
//                     multi-line text box
//
// Prints milliseconds from main to the first paint event and to the first idle turn after it, and VmRSS and VmHWM, then
// quits.

#include <chrono>
#include <cstdio>
#include <cstring>
#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QGridLayout>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QPaintEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTimer>

using Clock = std::chrono::steady_clock;
static Clock::time_point started;

static double since()
{
    return std::chrono::duration<double, std::milli>(Clock::now() - started).count();
}

static long memory(const char* field)
{
    QFile f("/proc/self/status");
    if (!f.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& line : f.readAll().split('\n'))
        if (line.startsWith(field))
            return line.mid(static_cast<int>(std::strlen(field)) + 1).trimmed().split(' ').first().toLong();
    return 0;
}

class First_Paint : public QObject {
public:
    double at = -1;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const bool result = QObject::eventFilter(watched, event);
        if (event->type() == QEvent::Paint && at < 0) {
            at = since();
            QTimer::singleShot(0, [this] {
                std::printf("main to paint %.1f ms, to idle %.1f ms, VmRSS %ld kB, VmHWM %ld kB\n", at, since(),
                            memory("VmRSS:"), memory("VmHWM:"));
                std::fflush(stdout);
                QCoreApplication::quit();
            });
        }
        return result;
    }
};

int main(int argc, char** argv)
{
    started = Clock::now();
    QApplication app(argc, argv);
    QMainWindow window;
    const bool busy = argc > 1 && std::strcmp(argv[1], "start") == 0;
    if (busy) {
        for (const char* m : {"&File", "&Edit", "&Run", "&Results", "&Help"}) {
            QMenu* menu = window.menuBar()->addMenu(m);
            for (int i = 0; i < 8; ++i)
                menu->addAction(QString("Entry %1").arg(i));
        }
        auto* centre = new QWidget;
        auto* grid = new QGridLayout(centre);
        for (int i = 0; i < 40; ++i)
            grid->addWidget(new QPushButton(QString("Button %1").arg(i)), i / 8, i % 8);
        auto* table = new QTableWidget(60, 8);
        for (int r = 0; r < 60; ++r)
            for (int c = 0; c < 8; ++c)
                table->setItem(r, c, new QTableWidgetItem(QString::number(r * c)));
        grid->addWidget(table, 5, 0, 1, 8);
        for (int i = 0; i < 2; ++i) {
            auto* box = new QComboBox;
            for (int k = 0; k < 30; ++k)
                box->addItem(QString("Choice %1").arg(k));
            grid->addWidget(box, 6, 4 * i, 1, 4);
        }
        grid->addWidget(new QPlainTextEdit("text"), 7, 0, 1, 8);
        window.setCentralWidget(centre);
        window.resize(900, 700);
    } else {
        window.setCentralWidget(new QLabel("A window."));
        window.resize(400, 300);
    }
    First_Paint filter;
    window.centralWidget()->installEventFilter(&filter);
    window.show();
    return app.exec();
}
