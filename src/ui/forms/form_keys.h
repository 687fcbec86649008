#pragma once

class QDialog;

namespace orvel {

// How keys act in every form. Enter in a field leaves it for the next control, and in a list does what the list says;
// it presses the button that has the focus, and no other: none that runs or closes by surprise. Of options that exclude
// each other Tab meets the chosen one. Call after the controls have been laid out.
void Use_Form_Keys(QDialog& form);

} // namespace orvel
