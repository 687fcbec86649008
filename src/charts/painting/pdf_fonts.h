#pragma once

#include <QByteArray>

namespace orvel {

// A PDF document in which every part of a font is named as a part wherever it is named, as PDF/A asks: the library tags
// the name in the font's descriptor alone. A document that is built in another way comes back as it is.
QByteArray With_Tagged_Fonts(const QByteArray& pdf);

} // namespace orvel
