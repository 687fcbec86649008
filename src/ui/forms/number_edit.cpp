#include "ui/forms/number_edit.h"

#include "ui/forms/widgets.h"
#include "ui/number_field.h"

#include <QEvent>
#include <QPainter>
#include <QStyle>

namespace orvel {

namespace {

constexpr int Gap = 4;
constexpr int Fewest_Digits = 9, Most_Digits = 22; // of the widest and of any number
constexpr int Unit_Digits = 5;                     // room for a unit; without one too, so that fields align

int Sign_Size(const QWidget& field)
{
    return field.fontMetrics().height() - 2;
}

} // namespace

Number_Edit::Number_Edit(QString unit, QWidget* parent) : Byte_Edit(parent), The_Unit(std::move(unit))
{
    connect(this, &QLineEdit::textChanged, this, &Number_Edit::Show_Hint);
    Show_Hint();
}

void Number_Edit::Set_Unit(const QString& unit)
{
    The_Unit = unit;
    Make_Room();
    update();
}

void Number_Edit::Show_Value(const Variant& value)
{
    setText(Shown(value.Text()));
}

Variant Number_Edit::Value() const
{
    return Typed_Number(Typed());
}

// No hint for an empty field that nobody has typed in.
QString Number_Edit::Hint() const
{
    if (!Byte_Edit::Hint().isEmpty())
        return Byte_Edit::Hint();
    if (text().trimmed().isEmpty() && !isModified())
        return {};
    const auto hint = Reading_Hint(Typed());
    return hint ? Shown(*hint) : QString();
}

QSize Number_Edit::minimumSizeHint() const
{
    return Byte_Edit::minimumSizeHint() + QSize(fontMetrics().horizontalAdvance(u'0') * Fewest_Digits, 0);
}

void Number_Edit::Show_Hint()
{
    Make_Room();
    Tell(Hint());
    update();
}

// Keeps the text clear of the unit and the warning icon.
void Number_Edit::Make_Room()
{
    const int unit = The_Unit.isEmpty() ? 0 : fontMetrics().horizontalAdvance(The_Unit) + Gap;
    const int sign = Hint().isEmpty() ? 0 : Sign_Size(*this) + Gap;
    setTextMargins(0, 0, unit + sign, 0);
    setMaximumWidth(Byte_Edit::minimumSizeHint().width() - unit - sign +
                    fontMetrics().horizontalAdvance(u'0') * (Most_Digits + Unit_Digits));
}

void Number_Edit::paintEvent(QPaintEvent* event)
{
    QLineEdit::paintEvent(event);
    QPainter painter(this);
    const int frame = hasFrame() ? style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, this) : 0;
    QRect room = rect().adjusted(0, 0, -frame - Gap, 0);
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(room, Qt::AlignRight | Qt::AlignVCenter, The_Unit);
    if (Hint().isEmpty())
        return;
    if (!The_Unit.isEmpty())
        room.setRight(room.right() - fontMetrics().horizontalAdvance(The_Unit) - Gap);
    const int size = Sign_Size(*this);
    const QRect sign(room.right() - size + 1, room.center().y() - size / 2, size, size);
    style()->standardIcon(QStyle::SP_MessageBoxWarning, nullptr, this).paint(&painter, sign);
}

void Number_Edit::Adapt(QString& typed) const
{
    typed.replace(u',', u'.');
}

void Number_Edit::changeEvent(QEvent* event)
{
    Byte_Edit::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        Make_Room();
}

bool Numbers_Are_Held(const QWidget& window, const Ask_Function& ask)
{
    for (const auto* box : window.findChildren<Number_Edit*>()) {
        const auto refusal = Check_Size(box->Typed(), Bytes_Of(box->objectName()));
        if (refusal && box->isVisible() && box->isEnabled()) {
            Show_Refusal(ask, window, *refusal);
            return false;
        }
    }
    return true;
}

} // namespace orvel
