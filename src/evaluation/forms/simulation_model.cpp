#include "evaluation/forms/simulation_model.h"

#include "jobs/run_again.h"
#include "ui/forms/widgets.h"

#include <algorithm>
#include <QApplication>
#include <QPainter>
#include <QPalette>

namespace orvel {

namespace {

constexpr int Picture_Pixels = 64; // scaled down to the size of the text
constexpr double Margin = 10;
constexpr double Pen_Width = 5;

const QColor Rot(205, 60, 50), Gelb(225, 165, 20), Gruen(50, 150, 75);

// A dot outlined in the text colour, so that it is visible on light and dark backgrounds.
QIcon Dot(const QBrush& fill)
{
    QPixmap picture(Picture_Pixels, Picture_Pixels);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor rim = QApplication::palette().color(QPalette::Text);
    rim.setAlphaF(0.6F);
    painter.setPen(QPen(rim, Pen_Width));
    painter.setBrush(fill);
    painter.drawEllipse(QRectF(picture.rect()).adjusted(Margin, Margin, -Margin, -Margin));
    return QIcon(picture);
}

} // namespace

Simulation_Model::Simulation_Model(QObject* parent)
    : QAbstractTableModel(parent),
      Markers{Dot(Qt::NoBrush), Dot(QApplication::palette().color(QPalette::Text))},
      Status_Dot{Dot(Rot), Dot(Gelb), Dot(Gruen)}
{}

bool Simulation_Model::Matches(const Simulation& simulation) const
{
    for (int column = Pesticide; column < Columns; ++column) {
        if (Text(simulation, column).contains(Part, Qt::CaseInsensitive))
            return true;
    }
    return false;
}

void Simulation_Model::Arrange(std::vector<Simulation>& simulations) const
{
    if (Sorted_By < 0)
        return;
    const bool down = Order == Qt::DescendingOrder;
    std::ranges::stable_sort(simulations, [&](const Simulation& a, const Simulation& b) {
        const auto& first = down ? b : a;
        const auto& second = down ? a : b;
        if (Sorted_By == Date)
            return first.Date < second.Date;
        return QString::compare(Text(first, Sorted_By), Text(second, Sorted_By), Qt::CaseInsensitive) < 0;
    });
}

void Simulation_Model::sort(int column, Qt::SortOrder order)
{
    Sorted_By = column == Marker ? -1 : column;
    Order = order;
    Show(Rows);
}

bool Simulation_Model::Show(std::vector<Simulation> simulations)
{
    std::erase_if(simulations, [this](const Simulation& simulation) { return !Matches(simulation); });
    Arrange(simulations);
    if (Same_Runs(simulations)) {
        Rows = std::move(simulations);
        if (!Rows.empty())
            emit dataChanged(index(0, Date), index(rowCount() - 1, Changes));
        return false;
    }
    beginResetModel();
    Rows = std::move(simulations);
    Marked.assign(Rows.size(), false);
    endResetModel();
    return true;
}

bool Simulation_Model::Same_Runs(const std::vector<Simulation>& simulations) const
{
    return std::ranges::equal(Rows, simulations, {}, &Simulation::Directory, &Simulation::Directory);
}

void Simulation_Model::Mark(const std::vector<int>& rows)
{
    Marked.assign(Rows.size(), false);
    for (const int row : rows)
        Marked[static_cast<std::size_t>(row)] = true;
    if (!Rows.empty())
        emit dataChanged(index(0, Marker), index(rowCount() - 1, Marker), {Qt::DecorationRole, Qt::AccessibleTextRole});
}

QString Simulation_Model::Longest_Text(int column) const
{
    QString longest = headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
    for (const Simulation& simulation : Rows) {
        QString text = Text(simulation, column);
        if (text.size() > longest.size())
            longest = std::move(text);
    }
    return longest;
}

int Simulation_Model::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(Rows.size());
}

int Simulation_Model::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : Columns;
}

void Simulation_Model::Show_Changes(Changed_Inputs changed)
{
    Changed = std::move(changed);
    if (!Rows.empty())
        emit dataChanged(index(0, Changes), index(rowCount() - 1, Changes));
}

const std::vector<std::string>& Simulation_Model::Changes_Of(const Simulation& simulation) const
{
    static const std::vector<std::string> none;
    const auto changed = Changed.find(simulation.Directory);
    return changed == Changed.end() ? none : changed->second;
}

// One input by its name, several by their number.
QString Simulation_Model::Changes_Text(const Simulation& simulation) const
{
    const auto& changed = Changes_Of(simulation);
    if (changed.size() > 1)
        return QString("%1 inputs").arg(changed.size());
    return changed.empty() ? QString() : Shown(changed.front());
}

QString Simulation_Model::Text(const Simulation& simulation, int column) const
{
    switch (column) {
    case Pesticide:
        return Shown(simulation.Pesticide);
    case Crop:
        return Shown(simulation.Crop);
    case Location:
        return Shown(simulation.Location);
    case Date:
        return Shown(Date_Text(simulation.Date));
    case Status:
        return Shown(Status_Text(simulation.Status));
    case Result:
        return Shown(Result_Text(simulation));
    case Changes:
        return Changes_Text(simulation);
    default:
        return {};
    }
}

QVariant Simulation_Model::data(const QModelIndex& index, int role) const
{
    const auto row = static_cast<std::size_t>(index.row());
    if (!index.isValid() || row >= Rows.size())
        return {};
    const Simulation& simulation = Rows[row];
    if (role == Qt::DisplayRole)
        return Text(simulation, index.column());
    if (role == Qt::DecorationRole && index.column() == Marker)
        return Markers[Marked[row] ? 1 : 0];
    if (role == Qt::DecorationRole && index.column() == Status)
        return Status_Dot[static_cast<std::size_t>(simulation.Status)];
    if (role == Qt::AccessibleTextRole && index.column() == Marker)
        return Marked[row] ? "selected" : "not selected";
    if (role == Qt::ToolTipRole && index.column() == Result)
        return Shown(Explanation(simulation));
    if (role == Qt::ToolTipRole && index.column() == Changes) {
        QStringList names;
        for (const auto& name : Changes_Of(simulation))
            names << Shown(name);
        return names.join("\n");
    }
    return {};
}

QVariant Simulation_Model::headerData(int section, Qt::Orientation orientation, int role) const
{
    constexpr std::array<const char*, Columns> Headings = {"",     "Pesticide File", "Crop",   "Location",
                                                           "Date", "Status",         "Result", "Changed since"};
    if (orientation == Qt::Horizontal && role == Qt::AccessibleTextRole && section == Marker)
        return "Selected";
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
        return {};
    return Headings[static_cast<std::size_t>(section)];
}

} // namespace orvel
