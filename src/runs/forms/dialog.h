#pragma once

#include <QDialog>

namespace orvel {

// Asks how many years a run with an irregular application pattern simulates.
class Dialog : public QDialog {
    Q_OBJECT

public:
    explicit Dialog(QWidget* parent = nullptr);

    // The number of years chosen; 0 if none was.
    int Years() const { return Chosen; }

private:
    int Chosen = 0;
};

} // namespace orvel
