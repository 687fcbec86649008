#include "ui/forms/own_modality.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QWindow>

namespace orvel {

namespace {

class Modality : public QObject {
public:
    using QObject::QObject;

protected:
    // The event comes before the window is shown.
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        auto* dialog = event->type() == QEvent::Show ? qobject_cast<QDialog*>(watched) : nullptr;
        if (dialog && dialog->parentWidget() && dialog->windowModality() == Qt::ApplicationModal) {
            dialog->setWindowModality(Qt::WindowModal);
            if (auto* window = dialog->windowHandle())
                window->setModality(Qt::WindowModal);
        }
        return QObject::eventFilter(watched, event);
    }
};

} // namespace

void Block_Own_Windows_Alone(QApplication& application)
{
    application.installEventFilter(new Modality(&application));
}

} // namespace orvel
