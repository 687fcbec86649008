#pragma once

#include "charts/forms/diagram_form.h"
#include "tables/leachate_tables.h"

class QComboBox;

namespace orvel {

// The concentrations of the application periods of one substance at one depth.
class Jahresdiagramm : public Diagram_Form {
    Q_OBJECT

public:
    Jahresdiagramm(Leachate_Tables tables, Ask_Function ask, QWidget* parent = nullptr);

private:
    void Draw();

    const Leachate_Tables Tables;
    QComboBox *Substanz = nullptr, *Tiefe = nullptr;
};

} // namespace orvel
