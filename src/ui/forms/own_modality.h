#pragma once

class QApplication;

namespace orvel {

// From now on a dialog blocks the windows that it was opened from, and no others: one that watches runs stays usable
// beside them.
void Block_Own_Windows_Alone(QApplication& application);

} // namespace orvel
