#pragma once

#include "charts/chart.h"

#include <filesystem>
#include <functional>
#include <QImage>
#include <QPainter>

namespace orvel {

// Pictures on paper: the same painting as on the screen.

// What can be painted into an area of any device.
struct Picture {
    std::string Title;   // bytes of Windows-1252
    QSizeF Drawing_Size; // the size at which text and lines are made to look well
    std::function<void(QPainter& painter, const QRectF& area)> Paint;
};

Picture Picture_Of(const Chart& chart);

// For a fine screen or a printed page: twice the drawing's size.
QImage Picture_Image(const Picture& picture);
QImage Picture_Image(const Picture& picture, QSize size);
QImage Chart_Image(const Chart& chart);
QImage Chart_Image(const Chart& chart, QSize size);

// Writes a picture by the ending of the file: .png, .svg or .pdf (PDF/A). Throws File_Error for another ending or a
// failure; then the old file is as it was.
void Save_Picture(const Picture& picture, const std::filesystem::path& file);
void Save_Chart(const Chart& chart, const std::filesystem::path& file);

} // namespace orvel
