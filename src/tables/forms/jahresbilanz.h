#pragma once

#include "charts/forms/diagram_form.h"
#include "tables/balance_tables.h"

class QComboBox;
class QLabel;

namespace orvel {

// The annual balances of water and of each substance.
class Jahresbilanz : public Diagram_Form {
    Q_OBJECT

public:
    Jahresbilanz(Balance_Tables tables, Ask_Function ask, QWidget* parent = nullptr);

private:
    void Draw();

    const Balance_Tables Tables;
    QComboBox* Substanz = nullptr;
    QLabel *Wasserlegende = nullptr, *Pestizidlegende = nullptr;
};

} // namespace orvel
