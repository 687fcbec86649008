#include "charts/painting/chart_files.h"

#include "charts/painting/chart_painter.h"
#include "core/files.h"
#include "core/text.h"

#include <QBuffer>
#include <QPageLayout>
#include <QPdfWriter>
#include <QSvgGenerator>

namespace {

constexpr int Picture_Dpi = 144;
constexpr QSize Drawing_Size(800, 500);

void Paint_On(QPaintDevice& device, const QRectF& area, const Chart& chart)
{
    QPainter painter(&device);
    Paint_Chart(painter, area, chart, Paper_Palette());
}

QByteArray As_Png(const Chart& chart)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    Chart_Image(chart).save(&buffer, "PNG");
    return bytes;
}

QByteArray As_Svg(const Chart& chart)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setSize(Drawing_Size);
    generator.setViewBox(QRect(QPoint(0, 0), Drawing_Size));
    generator.setTitle(QString::fromLatin1(chart.Title.c_str()));
    Paint_On(generator, QRectF(QPointF(0, 0), Drawing_Size), chart);
    return bytes;
}

QByteArray As_Pdf(const Chart& chart)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setPdfVersion(QPagedPaintDevice::PdfVersion_A1b);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageOrientation(QPageLayout::Landscape);
    writer.setTitle(QString::fromLatin1(chart.Title.c_str()));
    Paint_On(writer, QRectF(QPointF(0, 0), writer.pageLayout().paintRectPixels(writer.resolution()).size()), chart);
    return bytes;
}

} // namespace

QImage Chart_Image(const Chart& chart, QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    constexpr double inches_per_metre = 1 / 0.0254;
    image.setDotsPerMeterX(static_cast<int>(Picture_Dpi * inches_per_metre));
    image.setDotsPerMeterY(static_cast<int>(Picture_Dpi * inches_per_metre));
    Paint_On(image, QRectF(QPointF(0, 0), size), chart);
    return image;
}

void Save_Chart(const Chart& chart, const std::filesystem::path& file)
{
    const std::string ending = Lower(file.extension().string());
    QByteArray bytes;
    if (ending == ".png")
        bytes = As_Png(chart);
    else if (ending == ".svg")
        bytes = As_Svg(chart);
    else if (ending == ".pdf")
        bytes = As_Pdf(chart);
    else
        throw File_Error("A picture is saved as .png, .svg or .pdf, not as " + file.filename().string() + ".");
    if (bytes.isEmpty())
        throw File_Error("The picture " + file.filename().string() + " could not be made.");
    Write_Whole(file, std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
}
