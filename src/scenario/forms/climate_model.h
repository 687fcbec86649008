#pragma once

#include "scenario/climate_grid.h"

#include <QAbstractTableModel>

// The climate grid for a table view: a cell's text is made when it comes into view.
class Climate_Model : public QAbstractTableModel {
    Q_OBJECT

public:
    explicit Climate_Model(Session& session, QObject* parent = nullptr);

    // Shows the session's climate table.
    void Load();

    // Does what a key of the climate grid does to a cell.
    void Press_Key(const QModelIndex& cell, int code);

    // Puts a block of texts into the grid, its first one into `cell`. Tells the user of a block that cannot be pasted.
    void Paste(const QModelIndex& cell, const QString& block);

    Climate_Grid& Grid() { return Shown_Grid; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& cell, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    Session& Shared;
    Climate_Grid Shown_Grid;
};
