#include "scenario/forms/climate_model.h"

#include "core/forms/widgets.h"

namespace {

std::size_t Row_Of(const QModelIndex& cell)
{
    return static_cast<std::size_t>(cell.row());
}

std::size_t Column_Of(const QModelIndex& cell)
{
    return static_cast<std::size_t>(cell.column());
}

} // namespace

Climate_Model::Climate_Model(Session& session, QObject* parent) : QAbstractTableModel(parent), Shared(session), Shown_Grid(session.Climate) {}

void Climate_Model::Load()
{
    beginResetModel();
    Shown_Grid = Climate_Grid(Shared.Climate);
    endResetModel();
}

void Climate_Model::Press_Key(const QModelIndex& cell, int code)
{
    if (!cell.isValid())
        return;
    Press_Climate_Key(Shared, Shown_Grid, Row_Of(cell), Column_Of(cell), code);
    emit dataChanged(cell, cell);
}

void Climate_Model::Paste(const QModelIndex& cell, const QString& block)
{
    if (!cell.isValid())
        return;
    if (const auto refused = Paste_Climate_Block(Shared, Shown_Grid, Row_Of(cell), Column_Of(cell), Bytes_Of(block)))
        Shared.Ask(*refused);
    emit dataChanged(cell, index(rowCount() - 1, columnCount() - 1));
}

int Climate_Model::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(Shown_Grid.Rows());
}

int Climate_Model::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(Climate_Grid::Columns);
}

QVariant Climate_Model::data(const QModelIndex& cell, int role) const
{
    if (role == Qt::TextAlignmentRole)
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    if (role != Qt::DisplayRole || !cell.isValid())
        return {};
    return Shown(Shown_Grid.Cell(Row_Of(cell), Column_Of(cell)));
}

QVariant Climate_Model::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
        return {};
    return Shown(Climate_Heading(static_cast<std::size_t>(section)));
}
