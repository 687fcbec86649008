#include "records/forms/work_in_window.h"

#include "ui/forms/widgets.h"

#include <atomic>
#include <memory>
#include <optional>
#include <QEventLoop>
#include <QProgressDialog>
#include <QThread>

namespace orvel {

namespace {

constexpr int Steps = 1000;

} // namespace

bool Do_In_Window(QWidget* parent, const Ask_Function& ask, const QString& title,
                  const std::function<void(const Progress&)>& work)
{
    QProgressDialog bar(title + " ...", "&Stop", 0, Steps, parent);
    bar.setObjectName("Working");
    bar.setWindowTitle(title);
    bar.setWindowModality(Qt::ApplicationModal);
    bar.setAutoReset(false);
    bar.setAutoClose(false);
    bar.setMinimumDuration(0);
    bar.setMinimumWidth(bar.fontMetrics().averageCharWidth() * 70);

    std::atomic<bool> stopped = false;
    std::optional<std::string> failure;
    const Progress progress = [&](const std::string& message, double share) {
        QMetaObject::invokeMethod(
            &bar,
            [&bar, text = QString::fromStdString(message), step = static_cast<int>(share * Steps)] {
                bar.setLabelText(bar.fontMetrics().elidedText(text, Qt::ElideMiddle, bar.width() * 9 / 10));
                bar.setValue(std::min(step, Steps - 1));
            },
            Qt::QueuedConnection);
        return !stopped.load();
    };
    const std::unique_ptr<QThread> thread(QThread::create([&] {
        try {
            work(progress);
        } catch (const std::exception& error) {
            failure = error.what();
        }
    }));
    QEventLoop loop;
    QObject::connect(thread.get(), &QThread::finished, &loop, &QEventLoop::quit);
    QObject::connect(&bar, &QProgressDialog::canceled, &bar, [&] {
        stopped = true;
        bar.setLabelText("Stopping ...");
        bar.show();
    });
    thread->start();
    bar.show();
    loop.exec();
    thread->wait();
    bar.hide();
    if (failure && !stopped)
        ask({Bytes_Of(title), Bytes_Of(QString::fromStdString(*failure))});
    return !failure;
}

} // namespace orvel
