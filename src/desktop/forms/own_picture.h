#pragma once

#include <QIcon>

namespace orvel {

// A picture of the program by its name, out of its drawing or of that in several sizes, whichever was built in.
QIcon Own_Picture(const QString& name);

} // namespace orvel
