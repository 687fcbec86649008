#pragma once

#include "scenario/horizon_grid.h"

#include <QWidget>

namespace orvel {

// The soil profile to scale: darker horizons have more organic carbon, as their bars show.
class Profile_View : public QWidget {
    Q_OBJECT

public:
    explicit Profile_View(QWidget* parent = nullptr);

    void Show(std::vector<Profile_Layer> layers);
    void Mark(int horizon); // draws a frame around it; -1 for none
    QSize sizeHint() const override;

signals:
    void Horizon_Clicked(int horizon);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    QRect Place_Of(const Profile_Layer& layer) const;

    std::vector<Profile_Layer> Layers;
    int Marked = -1;
};

} // namespace orvel
