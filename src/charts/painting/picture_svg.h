#pragma once

#include "charts/painting/picture.h"

namespace orvel {

// A picture as an SVG document: by Qt's writer where that was built, else by Svg_Engine.
QByteArray Picture_Svg(const Picture& picture);

} // namespace orvel
