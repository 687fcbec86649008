#include "charts/forms/chart_view.h"

#include "charts/painting/chart_painter.h"
#include "charts/scale.h"
#include "ui/forms/accessible_picture.h"
#include "ui/forms/widgets.h"

#include <cmath>
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

namespace orvel {

namespace {

constexpr double Mark_Radius = 4;
constexpr double Reach = 8; // pixels, of the mouse to a dot

} // namespace

Chart_View::Chart_View(QWidget* parent) : QWidget(parent)
{
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    Read_As_Picture(*this, QAccessible::Chart);
    setAccessibleName("Diagram");
    setAccessibleDescription(Shown(Summary_Of(Source)));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setMinimumSize(fontMetrics().averageCharWidth() * 60, fontMetrics().lineSpacing() * 16);
}

QSize Chart_View::sizeHint() const
{
    return {fontMetrics().averageCharWidth() * 130, fontMetrics().lineSpacing() * 32};
}

void Chart_View::Show(Chart chart)
{
    Source = std::move(chart);
    Painted = Source;
    if (Texts_Elsewhere) {
        Painted.Title.clear();
        Painted.Legend.clear();
        Painted.Key.clear();
        Painted.X.Title.clear();
    }
    Picture = {};
    Marked.reset();
    Values = Values_Of(Source);
    At.reset();
    if (!Source.Title.empty())
        setAccessibleName(Shown(Source.Title));
    setAccessibleDescription(Shown(Summary_Of(Source)));
    update();
}

void Chart_View::paintEvent(QPaintEvent*)
{
    if (Picture.isNull()) {
        Picture = QPixmap(size() * devicePixelRatioF());
        Picture.setDevicePixelRatio(devicePixelRatioF());
        QPainter painter(&Picture);
        painter.setFont(font());
        Paint_Chart(painter, rect(), Painted, palette());
    }
    QPainter painter(this);
    painter.drawPixmap(0, 0, Picture);
    if (Marked) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
        painter.drawEllipse(Chart_Plane(Painted, rect(), font()).At(Marked->X, Marked->Y), Mark_Radius, Mark_Radius);
        painter.setRenderHint(QPainter::Antialiasing, false);
    }
    if (Pressed_At && Zooms) {
        QColor span = palette().color(QPalette::Highlight);
        span.setAlphaF(0.25F);
        painter.fillRect(QRectF(QPointF(Pressed_At->x(), 0), QPointF(Dragged_To.x(), height())).normalized(), span);
    }
    if (hasFocus()) {
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void Chart_View::resizeEvent(QResizeEvent* event)
{
    Picture = {};
    QWidget::resizeEvent(event);
}

void Chart_View::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)
        Picture = {};
    QWidget::changeEvent(event);
}

double Chart_View::X_Under(const QPointF& position) const
{
    return Chart_Plane(Painted, rect(), font()).X_Of(position.x());
}

void Chart_View::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        Pressed_At = Dragged_To = event->position();
}

void Chart_View::mouseMoveEvent(QMouseEvent* event)
{
    if (!Pressed_At)
        return Show_Value(event->position(), event->globalPosition().toPoint());
    Dragged_To = event->position();
    update();
}

void Chart_View::mouseReleaseEvent(QMouseEvent* event)
{
    if (!Pressed_At || event->button() != Qt::LeftButton)
        return;
    const QPointF from = *Pressed_At;
    Pressed_At.reset();
    update();
    if (Zooms && std::fabs(event->position().x() - from.x()) >= QApplication::startDragDistance())
        emit Span_Chosen(std::min(X_Under(from), X_Under(event->position())),
                         std::max(X_Under(from), X_Under(event->position())));
    else
        emit Clicked();
}

void Chart_View::keyPressEvent(QKeyEvent* event)
{
    const auto count = static_cast<std::ptrdiff_t>(Values.size());
    const std::ptrdiff_t at = At ? static_cast<std::ptrdiff_t>(*At) : -1,
                         page = std::max<std::ptrdiff_t>(2, count / 20);
    switch (event->key()) {
    case Qt::Key_Space:
        return emit Clicked();
    case Qt::Key_Right:
        return Step_To(at + 1);
    case Qt::Key_Left:
        return Step_To(At ? at - 1 : count - 1);
    case Qt::Key_PageDown:
        return Step_To(at + page);
    case Qt::Key_PageUp:
        return Step_To(at - page);
    case Qt::Key_Home:
        return Step_To(0);
    case Qt::Key_End:
        return Step_To(count - 1);
    case Qt::Key_Plus:
        return Zoom_In();
    default:
        QWidget::keyPressEvent(event);
    }
}

// Marks a value and tells it, as the mouse does over it; a screen reader hears it.
void Chart_View::Step_To(std::ptrdiff_t place)
{
    if (Values.empty())
        return;
    At = static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(place, 0, static_cast<std::ptrdiff_t>(Values.size()) - 1));
    const Chart_Hit& value = Values[*At];
    const QPointF position = Chart_Plane(Painted, rect(), font()).At(value.Point.X, value.Point.Y);
    Mark(value.Point);
    setAccessibleDescription(Shown(value.Text));
    QToolTip::showText(mapToGlobal(position.toPoint()), Shown(value.Text), this);
}

// Half of what is seen, around the marked value.
void Chart_View::Zoom_In()
{
    if (!Zooms || !Marked)
        return;
    const double quarter = (Source.X.High - Source.X.Low) / 4;
    emit Span_Chosen(std::max(Source.X.Low, Marked->X - quarter), std::min(Source.X.High, Marked->X + quarter));
}

void Chart_View::focusOutEvent(QFocusEvent* event)
{
    At.reset();
    Mark(std::nullopt);
    setAccessibleDescription(Shown(Summary_Of(Source)));
    QWidget::focusOutEvent(event);
}

void Chart_View::Show_Value(const QPointF& position, const QPoint& global)
{
    const Chart_Plane plane(Painted, rect(), font());
    const auto width = [&](double pixels) { return std::fabs(plane.X_Of(pixels) - plane.X_Of(0)); };
    const auto height = [&](double pixels) { return std::fabs(plane.Y_Of(pixels) - plane.Y_Of(0)); };
    auto hit = Dot_At(Painted, {plane.X_Of(position.x()), plane.Y_Of(position.y())}, width(Reach), height(Reach));
    if (!hit)
        hit = Bar_At(Painted, {plane.X_Of(position.x()), plane.Y_Of(position.y())});
    if (!hit)
        hit = Hit_At(Painted, plane.X_Of(position.x()));
    Mark(hit ? std::optional(hit->Point) : std::nullopt);
    if (hit)
        QToolTip::showText(global, Shown(hit->Text), this);
    else
        QToolTip::hideText();
}

void Chart_View::Mark(std::optional<Chart_Point> point)
{
    if (Marked == point)
        return;
    Marked = point;
    update();
}

// A value that is shown stays; the view's own tip comes where there is none.
bool Chart_View::event(QEvent* event)
{
    return event->type() == QEvent::ToolTip && Marked ? true : QWidget::event(event);
}

void Chart_View::leaveEvent(QEvent* event)
{
    Mark(std::nullopt);
    QWidget::leaveEvent(event);
}

} // namespace orvel
