#include "charts/forms/chart_view.h"

#include "charts/painting/chart_painter.h"
#include "charts/scale.h"
#include "charts/value_at.h"
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
    setAccessibleName(Shown(Source.Title));
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
    if (event->key() == Qt::Key_Space)
        emit Clicked();
    else
        QWidget::keyPressEvent(event);
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
