#pragma once

#include <functional>
#include <QByteArray>
#include <QPainter>
#include <string>

namespace orvel {

// Something that can be painted into an area of any device.
struct Picture {
    std::string Title;   // bytes of Windows-1252
    QSizeF Drawing_Size; // the size for which text and lines are proportioned
    std::function<void(QPainter& painter, const QRectF& area)> Paint;
};

QByteArray Title_Of(const Picture& picture); // in UTF-8
void Paint_On(QPaintDevice& device, const QSizeF& size, const Picture& picture);

} // namespace orvel
