#include "ui/forms/dark_outlines.h"

#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <QApplication>
#include <QCheckBox>
#include <QImage>
#include <QRadioButton>

namespace orvel {

namespace {

// How far the picture of a control without text stands out from its ground.
template <class Control> int Contrast(const QPalette& palette)
{
    Control control;
    control.setPalette(palette);
    control.resize(control.sizeHint());
    const QImage picture = control.grab().toImage();
    const int ground = palette.color(QPalette::Window).lightness();
    int contrast = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            contrast = std::max(contrast, picture.pixelColor(x, y).lightness() - ground);
    }
    return contrast;
}

} // namespace

TEST(Dark_Outlines, Boxes_And_Round_Buttons_Without_A_Mark_Are_Seen_On_A_Dark_Ground)
{
    Show_Outlines_In_The_Dark();
    QPalette dark(QColor(45, 48, 52), QColor(35, 38, 41));
    dark.setColor(QPalette::Base, QColor(27, 30, 32));

    EXPECT_GT(Contrast<QCheckBox>(dark), 40);
    EXPECT_GT(Contrast<QRadioButton>(dark), 40);
}

} // namespace orvel
