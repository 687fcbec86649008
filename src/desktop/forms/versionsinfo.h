#pragma once

#include "core/session.h"

#include <QDialog>

namespace orvel {

// The release notes.
class Versionsinfo : public QDialog {
    Q_OBJECT

public:
    explicit Versionsinfo(const Session& session, QWidget* parent = nullptr);
};

} // namespace orvel
