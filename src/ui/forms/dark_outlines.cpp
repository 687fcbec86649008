#include "ui/forms/dark_outlines.h"

#include <QApplication>
#include <QProxyStyle>
#include <QStyle>
#include <QStyleOption>

namespace orvel {

namespace {

// Styles draw outlines in a darker shade of the window colour; with this one they come out medium grey.
constexpr QRgb Ground_Of_Outlines = 0xFFC0C4C8;

template <class Option> Option Outlined(const Option& option)
{
    Option outlined = option;
    outlined.palette.setColor(QPalette::Window, QColor(Ground_Of_Outlines));
    return outlined;
}

// Windows' own style stays light in the dark, and cuts the text of a number box that stands for a number.
QString Style_To_Draw_With()
{
    const QString own = QApplication::style()->name();
    return own == "windowsvista" ? "fusion" : own;
}

class Outlined_Style : public QProxyStyle {
public:
    Outlined_Style() : QProxyStyle(Style_To_Draw_With()) {}

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override
    {
        if (option->palette.color(QPalette::Window).lightness() < 128) {
            const bool is_indicator = element == PE_IndicatorCheckBox || element == PE_IndicatorRadioButton;
            if (const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option); button && is_indicator) {
                const auto outlined = Outlined(*button);
                return QProxyStyle::drawPrimitive(element, &outlined, painter, widget);
            }
            if (const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
                frame && (element == PE_FrameLineEdit || element == PE_Frame)) {
                const auto outlined = Outlined(*frame);
                return QProxyStyle::drawPrimitive(element, &outlined, painter, widget);
            }
        }
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
};

} // namespace

void Show_Outlines_In_The_Dark()
{
    QApplication::setStyle(new Outlined_Style);
}

} // namespace orvel
