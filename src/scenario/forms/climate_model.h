#pragma once

#include "scenario/climate_grid.h"
#include "ui/forms/grid_model.h"

namespace orvel {

// The climate grid for a table view: cell texts are created when they come into view.
class Climate_Model : public Grid_Model {
    Q_OBJECT

public:
    Climate_Model(const Climate_Table& table, QObject* parent);

    void Show(const Climate_Table& table);
    Climate_Grid& Grid() { return Shown_Grid; }

    int rowCount(const QModelIndex& parent = {}) const override;
    std::string Cell(int row, int column) const override;
    void Set_Cell(int row, int column, const std::string& text) override;
    int Most_Rows() const override;
    void Append_Rows(int rows) override;
    void Remove_Rows(int rows) override;
    std::optional<std::string> Hint(int row, int column) const override; // of edited cells

private:
    Climate_Grid Shown_Grid;
};

} // namespace orvel
