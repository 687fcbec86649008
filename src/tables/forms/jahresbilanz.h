#pragma once

#include "charts/forms/diagram_form.h"
#include "tables/balance_chart.h"

#include <filesystem>

class QComboBox;

namespace orvel {

// The annual balances of water and of each substance, out of the cached balance tables.
class Jahresbilanz : public Diagram_Form {
    Q_OBJECT

public:
    Jahresbilanz(const std::filesystem::path& run_directory, const std::vector<std::string>& substances,
                 Ask_Function ask, QWidget* parent = nullptr);

private:
    void Draw();

    std::vector<Balance_Table> Water, Pesticides;
    std::vector<std::string> Names; // of the substances, in the order of their tables
    QComboBox* Substanz = nullptr;
};

} // namespace orvel
