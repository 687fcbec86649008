#pragma once

#include "substance/pathway_picture.h"

#include <QAbstractButton>
#include <QLineF>

namespace orvel {

// A clickable part of the degradation scheme, for mouse and keyboard.
class Scheme_Button : public QAbstractButton {
public:
    using QAbstractButton::QAbstractButton;

protected:
    bool Is_Marked() const { return hasFocus() || underMouse(); }
};

// The box of a substance.
class Substance_Box : public Scheme_Button {
public:
    using Scheme_Button::Scheme_Button;
    void Show(const Box_Look& look);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Box_Look Look;
};

// The head of an arrow, pointing along its line.
class Arrow_Head : public Scheme_Button {
public:
    using Scheme_Button::Scheme_Button;
    void Show(const Arrow_Look& look);
    void Point_Along(const QLineF& line);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Arrow_Look Look;
    double Angle = 0; // degrees, counter-clockwise
};

} // namespace orvel
