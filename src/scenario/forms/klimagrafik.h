#pragma once

#include "charts/forms/diagram_form.h"
#include "scenario/climate_grid.h"

class QComboBox;

namespace orvel {

// A line chart of one series of the climate grid over its days.
class Klimagrafik : public Diagram_Form {
    Q_OBJECT

public:
    // The grid must outlive the form; `series` is shown first.
    Klimagrafik(const Climate_Grid& grid, std::size_t series, Ask_Function ask, QWidget* parent = nullptr);

private:
    void Draw();

    const Climate_Grid& Grid;
    QComboBox* Reihe = nullptr;
};

// The series of a grid column; that of rainfall for a column without one.
std::size_t Series_Of_Column(int column);

} // namespace orvel
