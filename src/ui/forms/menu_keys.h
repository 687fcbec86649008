#pragma once

class QApplication;
class QObject;

namespace orvel {

// From now on the Menu key and Shift+F10 open the context menu of the control that has the focus, also where the window
// system tells only of the key. Returns what watches the keys.
QObject* Answer_Menu_Keys(QApplication& application);

} // namespace orvel
