#include "ui/forms/grid_model.h"

#include "ui/forms/widgets.h"

#include <QApplication>
#include <QStyle>

namespace orvel {

namespace {

bool Holds_Numbers(const Number_Column& column)
{
    return column.Editable && column.Choices.empty();
}

} // namespace

Grid_Model::Grid_Model(std::vector<Number_Column> columns, QObject* parent)
    : QAbstractTableModel(parent),
      All_Columns(std::move(columns))
{}

int Grid_Model::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(All_Columns.size());
}

QVariant Grid_Model::data(const QModelIndex& cell, int role) const
{
    if (!cell.isValid())
        return {};
    const auto& column = Column(cell.column());
    switch (role) {
    case Qt::DisplayRole:
        return Shown(Cell(cell.row(), cell.column()));
    case Qt::TextAlignmentRole:
        return QVariant((Holds_Numbers(column) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    case Qt::BackgroundRole:
        return column.Editable ? QVariant() : QApplication::palette().button();
    case Qt::ForegroundRole:
        return column.Editable ? QVariant() : QApplication::palette().buttonText();
    case Qt::DecorationRole:
        if (Hint(cell.row(), cell.column()))
            return QApplication::style()->standardIcon(QStyle::SP_MessageBoxWarning);
        return {};
    case Qt::ToolTipRole:
        if (const auto hint = Hint(cell.row(), cell.column()))
            return Shown(*hint);
        return {};
    default:
        return {};
    }
}

QVariant Grid_Model::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal)
        return {};
    if (role == Qt::TextAlignmentRole && Holds_Numbers(Column(section)))
        return QVariant(Qt::AlignRight | Qt::AlignVCenter); // over its numbers
    if (role != Qt::DisplayRole)
        return {};
    return Shown(Heading_Lines(Column(section).Heading));
}

Qt::ItemFlags Grid_Model::flags(const QModelIndex& cell) const
{
    const auto flags = QAbstractTableModel::flags(cell);
    return cell.isValid() && !Column(cell.column()).Choices.empty() ? flags | Qt::ItemIsEditable : flags;
}

void Text_Grid_Model::Show(std::vector<Number_Column> columns, Grid_Block cells)
{
    beginResetModel();
    Set_Columns(std::move(columns));
    All_Cells = std::move(cells);
    for (auto& row : All_Cells)
        row.resize(Columns().size());
    endResetModel();
}

int Text_Grid_Model::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(All_Cells.size());
}

std::string Text_Grid_Model::Cell(int row, int column) const
{
    return All_Cells[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
}

void Text_Grid_Model::Set_Cell(int row, int column, const std::string& text)
{
    All_Cells[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)] = text;
}

} // namespace orvel
