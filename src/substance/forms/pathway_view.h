#pragma once

#include "charts/painting/chart_files.h"
#include "core/session.h"

#include <array>
#include <QWidget>
#include <vector>

namespace orvel {

class Arrow_Head;
class Substance_Box;

// The picture of the degradation scheme: boxes, arrows and sinks, scaled with the window. For the keyboard it is one
// tab stop; the arrow keys step through its parts, and Return opens one.
class Pathway_View : public QWidget {
    Q_OBJECT

public:
    explicit Pathway_View(QWidget* parent = nullptr);

    // Shows the document's flags and rates; the captions are those of the boxes, from index 1.
    void Show(const Pesticide_Document& document, const Per_Substance<std::string>& captions);

    QRect Head_On_Screen(int t) const; // of a clickable arrow

    Picture As_Picture() const; // the current view for paper

    QSize sizeHint() const override;

signals:
    void Substance_Clicked(int i);
    void Arrow_Clicked(int t);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::vector<QWidget*> Parts() const;
    void Make_Tab_Stop(const QWidget& part);
    void Step(const QWidget& from, int key);
    void Place();
    QRectF Scaled(const QRectF& of_drawing) const;
    QPointF In_Drawing(QPointF of_window) const;
    double Scale() const;

    Pesticide_Document Document; // what is shown
    Per_Substance<std::string> Captions;
    std::array<Substance_Box*, Substances + 1> Boxes{};
    std::array<Arrow_Head*, Last_Transformation + 1> Heads{};
};

} // namespace orvel
