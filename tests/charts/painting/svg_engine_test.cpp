#include "charts/painting/svg_engine.h"

#include <gtest/gtest.h>
#include <QPainter>
#include <QXmlStreamReader>

namespace orvel {

namespace {

template <typename Paint> QString Drawn(Paint paint)
{
    Svg_Device device(QSizeF(80, 50));
    QPainter painter(&device);
    paint(painter);
    painter.end();
    return QString::fromUtf8(device.Document("a < b"));
}

} // namespace

TEST(Svg_Engine, Writes_A_Document_Of_The_Size_With_The_Title)
{
    const QString svg = Drawn([](QPainter&) {});

    EXPECT_EQ(svg, "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                   "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"80\" height=\"50\" viewBox=\"0 0 80 50\">\n"
                   "<title>a &lt; b</title>\n</svg>\n");
}

TEST(Svg_Engine, Draws_A_Moved_And_Enlarged_Line_At_Its_Place_And_Width)
{
    const QString svg = Drawn([](QPainter& painter) {
        painter.translate(10, 20);
        painter.scale(2, 2);
        painter.setPen(QPen(Qt::red, 1.5));
        painter.drawLine(QPointF(1, 2), QPointF(3, 4));
    });

    EXPECT_TRUE(svg.contains("<path d=\"M12,24L16,28\" fill=\"none\" stroke=\"#ff0000\" stroke-opacity=\"1\" "
                             "stroke-width=\"3\""))
        << svg.toStdString();
}

TEST(Svg_Engine, Fills_An_Area_To_Its_Edge_And_Draws_No_Line_Without_A_Pen)
{
    const QString svg = Drawn([](QPainter& painter) { painter.fillRect(QRectF(1, 2, 30, 40), QColor(0, 0, 255)); });

    EXPECT_TRUE(svg.contains("d=\"M1,2L31,2L31,42L1,42L1,2\" fill=\"#0000ff\"")) << svg.toStdString();
    EXPECT_TRUE(svg.contains("stroke=\"none\""));
}

TEST(Svg_Engine, Writes_A_Text_That_Can_Be_Read_As_One)
{
    const QString svg = Drawn([](QPainter& painter) {
        QFont font;
        font.setPixelSize(11);
        font.setBold(true);
        painter.setFont(font);
        painter.drawText(QPointF(5, 6), "x < 80 % \u00b5g");
    });

    EXPECT_TRUE(svg.contains("<text x=\"5\" y=\"6\"")) << svg.toStdString();
    EXPECT_TRUE(svg.contains("font-size=\"11\" font-weight=\"700\" font-style=\"normal\""));
    EXPECT_TRUE(svg.contains(">x &lt; 80 % \u00b5g</text>"));
}

TEST(Svg_Engine, Keeps_What_Is_Drawn_Within_A_Clip_Until_It_Ends)
{
    const QString svg = Drawn([](QPainter& painter) {
        painter.save();
        painter.setClipRect(QRectF(0, 0, 10, 10));
        painter.drawLine(QPointF(0, 0), QPointF(50, 50));
        painter.drawLine(QPointF(0, 50), QPointF(50, 0));
        painter.restore();
        painter.drawLine(QPointF(0, 1), QPointF(2, 3));
    });

    EXPECT_EQ(svg.count("<clipPath id=\"clip1\">"), 1) << svg.toStdString();
    EXPECT_EQ(svg.count("clip-path=\"url(#clip1)\""), 2);
    EXPECT_EQ(svg.count("<path"), 4);
    QXmlStreamReader xml(svg);
    while (!xml.atEnd())
        xml.readNext();
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
}

} // namespace orvel
