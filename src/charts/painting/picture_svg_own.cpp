// Where Qt was built without its module for SVG.
#include "charts/painting/picture_svg.h"
#include "charts/painting/svg_engine.h"

namespace orvel {

QByteArray Picture_Svg(const Picture& picture)
{
    Svg_Device device(picture.Drawing_Size);
    Paint_On(device, picture.Drawing_Size, picture);
    return device.Document(Title_Of(picture));
}

} // namespace orvel
