#pragma once

#include "charts/chart.h"
#include "core/message.h"

#include <QWidget>

namespace orvel {

class Chart_View;

// A chart within a window, with buttons that copy, print and save it.
class Picture_Panel : public QWidget {
    Q_OBJECT

public:
    // `name` is that of the chart's view; the buttons have it with Copy_, Print_ and Save_ in front.
    Picture_Panel(const QString& name, Ask_Function ask, QWidget* parent = nullptr);

    void Name_Picture(std::string of) { Of = std::move(of); } // begins the name proposed for its file
    void Show(Chart chart);
    const Chart& Shown_Chart() const;

private:
    Ask_Function Ask;
    std::string Of = "Overview";
    Chart_View* View = nullptr;
};

} // namespace orvel
