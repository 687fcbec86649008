#pragma once

#include "ui/grid_block.h"

#include <QAbstractTableModel>
#include <QRect>

namespace orvel {

// The texts of a grid's cells for a Number_Grid, as bytes of the documents' code page. A cell whose text is read as
// another number than it shows has a warning icon and states the number read.
class Grid_Model : public QAbstractTableModel {
    Q_OBJECT

public:
    Grid_Model(std::vector<Number_Column> columns, QObject* parent);

    virtual std::string Cell(int row, int column) const = 0;

    // Stores a text; the caller then notifies the views with Tell_Changed.
    virtual void Set_Cell(int row, int column, const std::string& text) = 0;
    // How many rows a paste may lead to, the empty ones that it needs, and the last ones when it is undone.
    virtual int Most_Rows() const { return rowCount(); }
    virtual void Append_Rows(int /*rows*/) {}
    virtual void Remove_Rows(int /*rows*/) {}

    // What is wrong with a cell's text; nothing for one that can be read or that nobody has edited.
    virtual std::optional<std::string> Hint(int row, int column) const
    {
        return Cell_Hint(Cell(row, column), Column(column));
    }

    void Tell_Changed(const QRect& cells)
    {
        emit dataChanged(index(cells.top(), cells.left()), index(cells.bottom(), cells.right()));
    }

    const std::vector<Number_Column>& Columns() const { return All_Columns; }
    const Number_Column& Column(int column) const { return All_Columns[static_cast<std::size_t>(column)]; }

    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& cell, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& cell) const override;

protected:
    void Set_Columns(std::vector<Number_Column> columns) { All_Columns = std::move(columns); }

private:
    std::vector<Number_Column> All_Columns;
};

// A grid model that holds its own texts.
class Text_Grid_Model : public Grid_Model {
    Q_OBJECT

public:
    explicit Text_Grid_Model(QObject* parent) : Grid_Model({}, parent) {}

    void Show(std::vector<Number_Column> columns, Grid_Block cells);
    const Grid_Block& Cells() const { return All_Cells; }

    int rowCount(const QModelIndex& parent = {}) const override;
    std::string Cell(int row, int column) const override;
    void Set_Cell(int row, int column, const std::string& text) override;

private:
    Grid_Block All_Cells;
};

} // namespace orvel
