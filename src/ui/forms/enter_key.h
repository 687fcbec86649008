#pragma once

class QDialog;

namespace orvel {

// Enter in a field of the dialog leaves it for the next control, and in a list does what the list says. It presses the
// button that has the focus, and no other: none that runs or closes by surprise.
void Enter_Leaves_Fields(QDialog& form);

} // namespace orvel
