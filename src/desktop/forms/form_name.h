#pragma once

#include "core/session.h"

#include <QDialog>

namespace orvel {

// The About box: versions, engine file and installation directory, for quoting in a report.
class Form_name : public QDialog {
    Q_OBJECT

public:
    explicit Form_name(const Session& session, QWidget* parent = nullptr);

private:
    void Check(const Session& session);
};

} // namespace orvel
