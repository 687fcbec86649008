#pragma once

#include "evaluation/overview_rows.h"
#include "report/overview.h"

#include <memory>
#include <QAbstractItemModel>

namespace orvel {

// The overview as a tree: a row a substance, metabolites below their parent.
class Overview_Model : public QAbstractItemModel {
    Q_OBJECT

public:
    explicit Overview_Model(QObject* parent = nullptr) : QAbstractItemModel(parent) {}

    // Shows an overview, or the same one in another order. True: its rows or columns differ from those before, so that
    // the selection is lost.
    bool Show(std::shared_ptr<const Overview> overview, const Row_Filter& filter, std::vector<double> bounds);
    void sort(int column, Qt::SortOrder order) override;

    Overview As_Shown() const { return With_Rows(*Source, Groups); }
    const Overview* Shown_Overview() const { return Source.get(); }
    const Overview_Row* Row_At(const QModelIndex& index) const; // nullptr: none
    // The place of a location's column among the overview's, or nothing for another column.
    std::optional<std::size_t> Location_At(const QModelIndex& index) const;
    const Overview_Run* Run_At(const QModelIndex& index) const;
    int Location_Column() const { return First_Location; }

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QVariant Figure_Data(const Overview_Row& row, std::size_t column, int role) const;
    QString Text_Of(const Overview_Row& row, int column) const;

    std::shared_ptr<const Overview> Source;
    std::vector<Row_Group> Groups; // as they are shown
    Row_Filter Filter;
    std::vector<double> Bounds;
    int First_Location = 3;
    int Sorted_By = -1;
    Qt::SortOrder Order = Qt::AscendingOrder;
};

} // namespace orvel
