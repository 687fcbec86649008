#pragma once

#include "desktop/doctor.h"

#include <QDialog>

namespace orvel {

// What the doctor found, a row each.
class Installation_Check : public QDialog {
    Q_OBJECT

public:
    explicit Installation_Check(const std::vector<Finding>& findings, QWidget* parent = nullptr);
};

} // namespace orvel
