#pragma once

#include <QPalette>

namespace orvel {

// A palette in which every text, also a selected one and a hint, can be read on its ground; colours that can stay.
QPalette Readable(const QPalette& palette);

// Gives the program such a palette. Call once, after the application object exists.
void Make_Text_Readable();

} // namespace orvel
