#include "scenario/forms/climate_model.h"

namespace orvel {

namespace {

std::vector<Number_Column> Headings()
{
    std::vector<Number_Column> columns;
    for (std::size_t c = 0; c < Climate_Grid::Columns; ++c)
        columns.push_back({Climate_Heading(c)});
    return columns;
}

} // namespace

Climate_Model::Climate_Model(const Climate_Table& table, QObject* parent)
    : Grid_Model(Headings(), parent),
      Shown_Grid(table)
{}

void Climate_Model::Show(const Climate_Table& table)
{
    beginResetModel();
    Shown_Grid = Climate_Grid(table);
    endResetModel();
}

int Climate_Model::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(Shown_Grid.Rows());
}

std::string Climate_Model::Cell(int row, int column) const
{
    return Shown_Grid.Cell(static_cast<std::size_t>(row), static_cast<std::size_t>(column));
}

void Climate_Model::Set_Cell(int row, int column, const std::string& text)
{
    Shown_Grid.Set_Cell(static_cast<std::size_t>(row), static_cast<std::size_t>(column), text);
}

int Climate_Model::Most_Rows() const
{
    return static_cast<int>(Most_Climate_Rows);
}

void Climate_Model::Append_Rows(int rows)
{
    beginInsertRows({}, rowCount(), rowCount() + rows - 1);
    Shown_Grid.Append_Rows(static_cast<std::size_t>(rows));
    endInsertRows();
}

void Climate_Model::Remove_Rows(int rows)
{
    beginRemoveRows({}, rowCount() - rows, rowCount() - 1);
    Shown_Grid.Remove_Rows(static_cast<std::size_t>(rows));
    endRemoveRows();
}

std::optional<std::string> Climate_Model::Hint(int row, int column) const
{
    return Shown_Grid.Is_Edited(static_cast<std::size_t>(row), static_cast<std::size_t>(column))
               ? Grid_Model::Hint(row, column)
               : std::nullopt;
}

} // namespace orvel
