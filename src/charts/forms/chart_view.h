#pragma once

#include "charts/chart.h"
#include "charts/value_at.h"

#include <optional>
#include <QWidget>
#include <vector>

namespace orvel {

// Shows a chart in the window's colours, and marks the value under the mouse; dragging selects a span of the x axis.
// The arrow keys, Home, End and the page keys go through the values, + selects the span around one. A screen reader
// hears title and figures.
class Chart_View : public QWidget {
    Q_OBJECT

public:
    explicit Chart_View(QWidget* parent = nullptr);

    void Show(Chart chart);
    const Chart& Shown_Chart() const { return Source; }
    void Allow_Zoom(bool allowed) { Zooms = allowed; }

    // Leaves title, legend, key and the title of the x axis to labels of the form around it.
    void Leave_Texts_Out() { Texts_Elsewhere = true; }

    QSize sizeHint() const override;

signals:
    void Clicked(); // or the space bar was pressed
    // The span of the x axis that was dragged over; `from` is the left end.
    void Span_Chosen(double from, double to);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool event(QEvent* event) override;

private:
    double X_Under(const QPointF& position) const;
    void Show_Value(const QPointF& position, const QPoint& global);
    void Mark(std::optional<Chart_Point> point);
    void Step_To(std::ptrdiff_t place);
    void Zoom_In();

    Chart Source;
    Chart Painted;   // Source, without the texts that stand elsewhere
    QPixmap Picture; // the chart alone, cached so that following the mouse is fast
    std::vector<Chart_Hit> Values;
    std::optional<std::size_t> At;     // of the values, by the keyboard
    std::optional<Chart_Point> Marked; // under the mouse or by the keyboard
    std::optional<QPointF> Pressed_At;
    QPointF Dragged_To;
    bool Zooms = false, Texts_Elsewhere = false;
};

} // namespace orvel
