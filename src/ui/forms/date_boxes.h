#pragma once

#include <QComboBox>

namespace orvel {

// Offers the days 1 to 31; any other text can be typed.
QComboBox* Day_Box(const QString& name, const QString& purpose);

// "JAN" to "DEC": the month is the index + 1.
QComboBox* Month_Box(const QString& name, const QString& purpose);

} // namespace orvel
