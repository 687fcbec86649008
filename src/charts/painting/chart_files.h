#pragma once

#include "charts/chart.h"
#include "charts/painting/picture.h"

#include <filesystem>
#include <QImage>

namespace orvel {

// Pictures for files and printers, painted as on the screen.

Picture Picture_Of(const Chart& chart);

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
