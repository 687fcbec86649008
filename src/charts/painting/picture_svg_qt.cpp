// By the module of Qt.
#include "charts/painting/picture_svg.h"

#include <QBuffer>
#include <QSvgGenerator>

namespace orvel {

QByteArray Picture_Svg(const Picture& picture)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setSize(picture.Drawing_Size.toSize());
    generator.setViewBox(QRectF(QPointF(0, 0), picture.Drawing_Size));
    generator.setTitle(QString::fromUtf8(Title_Of(picture)));
    Paint_On(generator, picture.Drawing_Size, picture);
    return bytes;
}

} // namespace orvel
