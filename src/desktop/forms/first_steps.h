#pragma once

#include <cstddef>
#include <QObject>
#include <QPointer>

class QFrame;
class QWidget;

namespace orvel {

// Leads through a first assessment: a note beside the control that comes next, in the windows themselves. It goes on
// when that control is used, and ends with the last one, or when the user closes it.
class First_Steps : public QObject {
    Q_OBJECT

public:
    explicit First_Steps(QObject* parent);

    std::size_t Step() const { return At; } // from 0; the number of steps at the end

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Look_At(QWidget* window);
    void Show_Beside(QWidget& control);
    void Place(const QWidget& control);
    void Go_On();
    void End();

    std::size_t At = 0;
    QPointer<QFrame> Note;
    QPointer<QWidget> Control;
};

} // namespace orvel
