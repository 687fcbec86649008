#pragma once

#include "charts/chart.h"

#include <filesystem>
#include <QImage>
#include <QSize>

// A chart as a picture on paper: the same painting as on the screen.

constexpr QSize Chart_Picture_Size(1600, 1000);

QImage Chart_Image(const Chart& chart, QSize size = Chart_Picture_Size);

// Writes a picture by the ending of the file: .png, .svg or .pdf (PDF/A). Throws File_Error for another ending or a failure; then the old
// file is as it was.
void Save_Chart(const Chart& chart, const std::filesystem::path& file);
