#pragma once

#include "charts/forms/diagram_form.h"
#include "tables/daily_diagram.h"

#include <array>
#include <filesystem>
#include <optional>
#include <utility>

class QPushButton;
class QRadioButton;

namespace orvel {

// What the daily diagram draws: a column of a run's plot.orv over a span of months.
struct Daily_Choice {
    std::filesystem::path Run_Directory, Calendar;
    int Column = 1;   // value column of plot.orv, from 1
    std::string Item; // its text in the list that it was chosen from
    Daily_Request Request;
};

// One series in daily resolution, as a rate or cumulated.
class taegliches_Diagramm_neu : public Diagram_Form {
    Q_OBJECT

public:
    taegliches_Diagramm_neu(Ask_Function ask, Daily_Choice choice, QWidget* parent = nullptr);

private:
    void Lay_Out();
    X_Unit Unit() const;
    void Draw();
    void Zoom(double from, double to);

    Daily_Choice Choice;
    Daily_Series Series;
    std::array<QRadioButton*, 3> Option1{};
    QPushButton* Whole_Span = nullptr;
    std::optional<std::pair<double, double>> Span; // the days shown; empty: all
};

} // namespace orvel
