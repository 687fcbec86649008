#include "ui/forms/readable_palette.h"

#include "core/contrast.h"

#include <QApplication>

namespace orvel {

namespace {

struct Text_On_Ground {
    QPalette::ColorRole Ink, Ground;
};

// The ground of a selection gives way to its text: dark text on it would look as if it were not selected.
constexpr std::array<Text_On_Ground, 9> Pairs = {{
    {QPalette::WindowText, QPalette::Window},
    {QPalette::Text, QPalette::Base},
    {QPalette::ButtonText, QPalette::Button},
    {QPalette::Highlight, QPalette::HighlightedText},
    {QPalette::Link, QPalette::Base},
    {QPalette::Link, QPalette::Window},
    {QPalette::PlaceholderText, QPalette::Base},
    {QPalette::PlaceholderText, QPalette::Window},
    {QPalette::ToolTipText, QPalette::ToolTipBase},
}};

std::uint32_t Rgb(const QColor& colour)
{
    return colour.rgb() & 0xFFFFFFU;
}

// Hints are half transparent: what is seen of them.
QColor On(const QColor& ground, const QColor& ink)
{
    const float share = ink.alphaF();
    return QColor::fromRgbF(ink.redF() * share + ground.redF() * (1 - share),
                            ink.greenF() * share + ground.greenF() * (1 - share),
                            ink.blueF() * share + ground.blueF() * (1 - share));
}

} // namespace

QPalette Readable(const QPalette& palette)
{
    QPalette readable = palette;
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        for (const auto& [ink, ground] : Pairs) {
            const QColor below = readable.color(group, ground), seen = On(below, readable.color(group, ink));
            if (const auto shade = Readable_On(Rgb(below), Rgb(seen)); shade != Rgb(seen))
                readable.setColor(group, ink, QColor(QRgb(shade)));
        }
    }
    return readable;
}

void Make_Text_Readable()
{
    QApplication::setPalette(Readable(QApplication::palette()));
}

} // namespace orvel
