#pragma once

#include <QAccessible>

class QWidget;

namespace orvel {

// Makes a drawn widget a picture to a screen reader, which reads its accessible name and description. Comes before
// these are set: what a widget is to the reader is settled then.
void Read_As_Picture(QWidget& picture, QAccessible::Role role = QAccessible::Graphic);

} // namespace orvel
