#pragma once

#include <QDialog>

namespace orvel {

// The release notes.
class Versionsinfo : public QDialog {
    Q_OBJECT

public:
    explicit Versionsinfo(QWidget* parent = nullptr);
};

} // namespace orvel
