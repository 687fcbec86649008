#pragma once

#include "plans/plan_grid.h"

#include <memory>
#include <QAbstractTableModel>

namespace orvel {

// The grid of a plan: a row a run.
class Plan_Model : public QAbstractTableModel {
    Q_OBJECT

public:
    explicit Plan_Model(QObject* parent = nullptr) : QAbstractTableModel(parent) {}

    // True: rows or columns differ from those before, so that the selection is lost.
    bool Show(std::shared_ptr<const Plan_View> view, std::optional<Verdict> state);

    const Plan_Grid& Grid() const { return Shown_Grid; }
    std::optional<std::size_t> Row_At(const QModelIndex& index) const; // of the plan

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    std::shared_ptr<const Plan_View> View;
    Plan_Grid Shown_Grid;
};

} // namespace orvel
