#include "charts/painting/chart_files.h"

#include "charts/painting/chart_painter.h"
#include "charts/painting/pdf_fonts.h"
#include "charts/painting/picture_svg.h"
#include "core/files.h"
#include "core/text.h"

#include <QBuffer>
#include <QPageLayout>
#include <QPdfWriter>

namespace orvel {

namespace {

constexpr int Picture_Dpi = 144;
constexpr QSizeF Chart_Drawing_Size(800, 500);

QByteArray As_Png(const Picture& picture)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    Picture_Image(picture).save(&buffer, "PNG");
    return bytes;
}

QByteArray As_Pdf(const Picture& picture)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        writer.setPdfVersion(QPagedPaintDevice::PdfVersion_A1b);
        writer.setPageSize(QPageSize(QPageSize::A4));
        writer.setPageOrientation(QPageLayout::Landscape);
        writer.setTitle(QString::fromUtf8(Title_Of(picture)));
        Paint_On(writer, writer.pageLayout().paintRectPixels(writer.resolution()).size(), picture);
    }
    return With_Tagged_Fonts(bytes);
}

} // namespace

Picture Picture_Of(const Chart& chart)
{
    return {chart.Title, Chart_Drawing_Size,
            [chart](QPainter& painter, const QRectF& area) { Paint_Chart(painter, area, chart, Paper_Palette()); }};
}

QImage Picture_Image(const Picture& picture)
{
    return Picture_Image(picture, (picture.Drawing_Size * 2).toSize());
}

QImage Picture_Image(const Picture& picture, QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    constexpr double inches_per_metre = 1 / 0.0254;
    image.setDotsPerMeterX(static_cast<int>(Picture_Dpi * inches_per_metre));
    image.setDotsPerMeterY(static_cast<int>(Picture_Dpi * inches_per_metre));
    Paint_On(image, size, picture);
    return image;
}

QImage Chart_Image(const Chart& chart)
{
    return Picture_Image(Picture_Of(chart));
}

QImage Chart_Image(const Chart& chart, QSize size)
{
    return Picture_Image(Picture_Of(chart), size);
}

void Save_Picture(const Picture& picture, const std::filesystem::path& file)
{
    const std::string ending = Lower(file.extension().string());
    QByteArray bytes;
    if (ending == ".png")
        bytes = As_Png(picture);
    else if (ending == ".svg")
        bytes = Picture_Svg(picture);
    else if (ending == ".pdf")
        bytes = As_Pdf(picture);
    else
        throw File_Error("A picture is saved as .png, .svg or .pdf, not as " + file.filename().string() + ".");
    if (bytes.isEmpty())
        throw File_Error("The picture " + file.filename().string() + " could not be made.");
    Write_Whole(file, std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
}

void Save_Chart(const Chart& chart, const std::filesystem::path& file)
{
    Save_Picture(Picture_Of(chart), file);
}

} // namespace orvel
