#pragma once

#include "charts/chart.h"

#include <filesystem>
#include <functional>
#include <QByteArray>
#include <QImage>
#include <QPainter>

namespace orvel {

// Pictures for files and printers, painted as on the screen.

// Something that can be painted into an area of any device.
struct Picture {
    std::string Title;   // bytes of Windows-1252
    QSizeF Drawing_Size; // the size for which text and lines are proportioned
    std::function<void(QPainter& painter, const QRectF& area)> Paint;
};

Picture Picture_Of(const Chart& chart);
QByteArray Title_Of(const Picture& picture); // in UTF-8
void Paint_On(QPaintDevice& device, const QSizeF& size, const Picture& picture);

// The picture at twice its drawing size, for a high-resolution screen or a printed page.
QImage Picture_Image(const Picture& picture);
QImage Picture_Image(const Picture& picture, QSize size);
QImage Chart_Image(const Chart& chart);
QImage Chart_Image(const Chart& chart, QSize size);

// Writes a picture in the format of the file's extension: .png, .svg or .pdf (PDF/A). Throws File_Error for any other
// extension or on failure; an existing file is then unchanged.
void Save_Picture(const Picture& picture, const std::filesystem::path& file);
void Save_Chart(const Chart& chart, const std::filesystem::path& file);

} // namespace orvel
