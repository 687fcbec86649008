#include "plans/forms/plan_model.h"

#include <QFont>

namespace orvel {

namespace {

// A sign that tells a state without its word or any colour.
QString Sign_Of(Verdict verdict)
{
    switch (verdict) {
    case Verdict::Running:
        return QString::fromUtf8("\u25B6 ");
    case Verdict::Failed:
        return QString::fromUtf8("\u2715 ");
    case Verdict::Stopped:
        return QString::fromUtf8("\u25A0 ");
    case Verdict::Incomplete:
        return QString::fromUtf8("\u2026 ");
    case Verdict::Scheduled:
        return QString::fromUtf8("\u22EF ");
    default:
        return {};
    }
}

} // namespace

bool Plan_Model::Show(std::shared_ptr<const Plan_View> view, std::optional<Verdict> state)
{
    auto grid = Grid_Of(*view, state);
    const bool same =
        View && View->Rows == view->Rows && grid.Columns == Shown_Grid.Columns && grid.Rows == Shown_Grid.Rows;
    if (!same)
        beginResetModel();
    View = std::move(view);
    Shown_Grid = std::move(grid);
    if (!same)
        endResetModel();
    else if (rowCount() > 0) // a view asks for what is visible alone
        emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
    return !same;
}

std::optional<std::size_t> Plan_Model::Row_At(const QModelIndex& index) const
{
    const auto row = static_cast<std::size_t>(index.row());
    return index.isValid() && row < Shown_Grid.Rows.size() ? std::optional(Shown_Grid.Rows[row]) : std::nullopt;
}

int Plan_Model::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(Shown_Grid.Rows.size());
}

int Plan_Model::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(Shown_Grid.Columns.size());
}

QVariant Plan_Model::data(const QModelIndex& index, int role) const
{
    const auto row = Row_At(index);
    if (!row || index.column() >= columnCount())
        return {};
    const auto& column = Shown_Grid.Columns[static_cast<std::size_t>(index.column())];
    const bool is_state = column.Kind == Plan_Grid_Column::Holds::State;
    const Verdict verdict = View->Verdict_Of(*row);
    if (role == Qt::DisplayRole || role == Qt::AccessibleTextRole) {
        const QString sign = is_state && role == Qt::DisplayRole ? Sign_Of(verdict) : QString();
        return sign + QString::fromStdString(Cell_Text(*View, column, *row));
    }
    if (role == Qt::TextAlignmentRole)
        return QVariant((column.Kind == Plan_Grid_Column::Holds::Figure ? Qt::AlignRight : Qt::AlignLeft) |
                        Qt::AlignVCenter);
    if (role == Qt::ToolTipRole && is_state)
        return QString::fromStdString(Reason_Of_Row(*View, *row));
    if (role == Qt::FontRole && is_state && verdict != Verdict::Complete) {
        QFont italic;
        italic.setItalic(true);
        return italic;
    }
    return {};
}

QVariant Plan_Model::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (section >= (orientation == Qt::Horizontal ? columnCount() : rowCount()))
        return {};
    const auto place = static_cast<std::size_t>(section);
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
        return {};
    if (orientation == Qt::Vertical)
        return QString::number(Shown_Grid.Rows[place] + 1);
    return QString::fromStdString(Shown_Grid.Columns[place].Head);
}

} // namespace orvel
