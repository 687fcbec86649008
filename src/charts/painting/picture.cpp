#include "charts/painting/picture.h"

#include "core/code_page.h"

namespace orvel {

QByteArray Title_Of(const Picture& picture)
{
    return QByteArray::fromStdString(To_Utf8(picture.Title));
}

void Paint_On(QPaintDevice& device, const QSizeF& size, const Picture& picture)
{
    QPainter painter(&device);
    picture.Paint(painter, QRectF(QPointF(0, 0), size));
}

} // namespace orvel
