#pragma once

#include <QComboBox>

namespace orvel {

// The days 1 to 31, or any other number typed.
QComboBox* Day_Box(const QString& name, const QString& purpose);

// "JAN" to "DEC": a month is its index + 1.
QComboBox* Month_Box(const QString& name, const QString& purpose);

} // namespace orvel
