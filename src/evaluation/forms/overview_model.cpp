#include "evaluation/forms/overview_model.h"

#include "report/overview_formats.h"
#include "report/run_results.h"
#include "ui/forms/widgets.h"

#include <QBrush>
#include <QFont>

namespace orvel {

namespace {

enum Overview_Column { Pesticide_Column, Crop_Column, Substance_Column, Before_Locations };
constexpr int Behind_Locations = 2; // Highest, Above

constexpr quintptr Top = 0; // of rows that are below none; others hold the place of their group, from 1

// A sign that tells a state without its word or any colour.
QString Sign_Of(Cell_Kind kind)
{
    switch (kind) {
    case Cell_Kind::Scheduled:
        return QString::fromUtf8("\u22EF ");
    case Cell_Kind::Running:
        return QString::fromUtf8("\u25B6 ");
    case Cell_Kind::Failed:
        return QString::fromUtf8("\u2715 ");
    case Cell_Kind::Stopped:
        return QString::fromUtf8("\u25A0 ");
    case Cell_Kind::Incomplete:
        return QString::fromUtf8("\u2026 ");
    case Cell_Kind::Changed:
        return QString::fromUtf8("\u2260 ");
    case Cell_Kind::Reading:
        return QString::fromUtf8("\u231B ");
    case Cell_Kind::No_Figure:
    case Cell_Kind::Unreadable:
        return "! ";
    case Cell_Kind::Absent:
        return QString::fromUtf8("\u2205 ");
    case Cell_Kind::Figure:
        break;
    }
    return {};
}

} // namespace

bool Overview_Model::Show(std::shared_ptr<const Overview> overview, const Row_Filter& filter,
                          std::vector<double> bounds)
{
    auto groups = Groups_Of(*overview, filter);
    if (Sorted_By >= 0) {
        const int behind = Before_Locations + static_cast<int>(overview->Columns.size());
        const Row_Key key = Sorted_By < Before_Locations ? static_cast<Row_Key>(Sorted_By)
                            : Sorted_By < behind         ? Row_Key::Location
                            : Sorted_By == behind        ? Row_Key::Highest
                                                         : Row_Key::Above;
        const auto location = static_cast<std::size_t>(std::max(0, Sorted_By - Before_Locations));
        Sort_Groups(*overview, groups, key, location, Order == Qt::DescendingOrder);
    }
    const auto same_names = [&](const Overview_Row& a, const Overview_Row& b) {
        return a.Pesticide == b.Pesticide && a.Crop == b.Crop && a.Substance == b.Substance && a.Unit == b.Unit;
    };
    const bool same = Source && Groups == groups && Source->Columns == overview->Columns &&
                      Source->Mode == overview->Mode && Source->Compared_With == overview->Compared_With &&
                      std::ranges::equal(Source->Rows, overview->Rows, same_names);
    if (!same)
        beginResetModel();
    Source = std::move(overview);
    Groups = std::move(groups);
    Filter = filter;
    Bounds = std::move(bounds);
    if (!same) {
        endResetModel();
        return true;
    }
    for (int row = 0; row < rowCount(); ++row) {
        const auto parent = index(row, 0);
        emit dataChanged(parent, index(row, columnCount() - 1));
        if (const int below = rowCount(parent); below > 0)
            emit dataChanged(index(0, 0, parent), index(below - 1, columnCount() - 1, parent));
    }
    return false;
}

void Overview_Model::sort(int column, Qt::SortOrder order)
{
    Sorted_By = column;
    Order = order;
    if (Source)
        Show(Source, Filter, Bounds);
}

QModelIndex Overview_Model::index(int row, int column, const QModelIndex& parent) const
{
    if (row < 0 || column < 0 || row >= rowCount(parent) || column >= columnCount())
        return {};
    return createIndex(row, column, parent.isValid() ? static_cast<quintptr>(parent.row() + 1) : Top);
}

QModelIndex Overview_Model::parent(const QModelIndex& index) const
{
    if (!index.isValid() || index.internalId() == Top)
        return {};
    return createIndex(static_cast<int>(index.internalId()) - 1, 0, Top);
}

int Overview_Model::rowCount(const QModelIndex& parent) const
{
    if (!parent.isValid())
        return static_cast<int>(Groups.size());
    if (parent.internalId() != Top || parent.column() != 0)
        return 0;
    return static_cast<int>(Groups[static_cast<std::size_t>(parent.row())].Metabolites.size());
}

int Overview_Model::columnCount(const QModelIndex&) const
{
    const int locations = Source ? static_cast<int>(Source->Columns.size()) : 0;
    return Before_Locations + locations + (Source && !Source->Has_Limit ? 1 : Behind_Locations);
}

const Overview_Row* Overview_Model::Row_At(const QModelIndex& index) const
{
    if (!index.isValid() || !Source)
        return nullptr;
    if (index.internalId() == Top) {
        const auto row = static_cast<std::size_t>(index.row());
        return row < Groups.size() ? &Source->Rows[Groups[row].Parent] : nullptr;
    }
    const auto& group = Groups.at(static_cast<std::size_t>(index.internalId()) - 1);
    return &Source->Rows[group.Metabolites.at(static_cast<std::size_t>(index.row()))];
}

std::optional<std::size_t> Overview_Model::Location_At(const QModelIndex& index) const
{
    const int column = index.column() - Before_Locations;
    if (!index.isValid() || !Source || column < 0 || column >= static_cast<int>(Source->Columns.size()))
        return std::nullopt;
    return static_cast<std::size_t>(column);
}

const Overview_Run* Overview_Model::Run_At(const QModelIndex& index) const
{
    const auto* row = Row_At(index);
    const auto location = Location_At(index);
    return row && location ? orvel::Run_At(*Source, *row, *location) : nullptr;
}

QString Overview_Model::Text_Of(const Overview_Row& row, int column) const
{
    const int behind = Before_Locations + static_cast<int>(Source->Columns.size());
    if (column == Pesticide_Column || column == Crop_Column) // a metabolite stands below its parent's
        return row.Is_Metabolite ? QString() : Shown(column == Pesticide_Column ? row.Pesticide : row.Crop);
    if (column == Substance_Column)
        return row.Substance.empty() ? QString("(no result yet)")
                                     : Shown(row.Substance) + (Source->Has_Limit ? "" : " [" + Shown(row.Unit) + "]");
    if (column == behind)
        return Shown(Highest_Text(*Source, row));
    if (column == behind + 1)
        return Shown(Above_Text(row));
    const auto location = static_cast<std::size_t>(column - Before_Locations);
    const auto* run = orvel::Run_At(*Source, row, location);
    return (run ? Sign_Of(run->Kind) : QString()) + Shown(Compared_Cell_Text(*Source, row, location));
}

QVariant Overview_Model::Figure_Data(const Overview_Row& row, std::size_t column, int role) const
{
    const auto* figure = Figure_At(*Source, row, column);
    if (!figure)
        return {};
    const auto place = Class_Place(Class_Of(figure->Value, Bounds), Bounds.size());
    const bool coloured = Source->Has_Limit && place > 0; // the lowest class has the ground of the table
    if (role == Qt::BackgroundRole && coloured)
        return QBrush(QColor(QRgb(Class_Fills[place])));
    if (role == Qt::ForegroundRole && coloured)
        return QBrush(QColor(QRgb(Class_Inks[place])));
    if (role == Qt::FontRole && figure->Above_Limit) {
        QFont bold;
        bold.setBold(true);
        return bold;
    }
    if (role == Qt::UserRole && Source->Has_Limit)
        return QString::fromUtf8(Class_Signs[place].data());
    return {};
}

QVariant Overview_Model::data(const QModelIndex& index, int role) const
{
    const auto* row = Row_At(index);
    if (!row)
        return {};
    const int behind = Before_Locations + static_cast<int>(Source->Columns.size());
    const bool is_highest = index.column() == behind && row->Highest >= 0;
    const auto column = is_highest ? std::optional(static_cast<std::size_t>(row->Highest)) : Location_At(index);
    const auto* run = Run_At(index);
    if (role == Qt::DisplayRole) {
        const QString sign = column ? Figure_Data(*row, *column, Qt::UserRole).toString() : QString();
        return (sign.isEmpty() ? QString() : sign + " ") + Text_Of(*row, index.column());
    }
    if (role == Qt::TextAlignmentRole && index.column() >= Before_Locations)
        return QVariant((run && run->Kind != Cell_Kind::Figure ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
    if (role == Qt::ToolTipRole && run) {
        QStringList told = {Shown(run->Location)};
        for (const auto& sentence : Explanation_Of(*run))
            told << Shown(sentence);
        if (const auto other = column ? Other_Text(*Source, *row, *column) : std::string(); !other.empty())
            told << Shown(Source->Compared_With + ": " + other);
        return told.join("\n");
    }
    if (role == Qt::AccessibleTextRole) {
        const auto* figure = column ? Figure_At(*Source, *row, *column) : nullptr;
        return Text_Of(*row, index.column()) +
               (figure && figure->Above_Limit ? ", above " + Shown(Limit_Text()) : QString());
    }
    if (role == Qt::FontRole && run && run->Kind != Cell_Kind::Figure) {
        QFont italic;
        italic.setItalic(true);
        return italic;
    }
    return column ? Figure_Data(*row, *column, role) : QVariant();
}

QVariant Overview_Model::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || !Source)
        return {};
    const int behind = Before_Locations + static_cast<int>(Source->Columns.size());
    const bool is_location = section >= Before_Locations && section < behind;
    if (role == Qt::TextAlignmentRole)
        return QVariant((section < Before_Locations ? Qt::AlignLeft : Qt::AlignHCenter) | Qt::AlignVCenter);
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
        return {};
    if (section < Before_Locations)
        return QStringList{"Pesticide file", "Crop", "Substance"}[section];
    if (is_location)
        return Shown(Source->Columns[static_cast<std::size_t>(section - Before_Locations)])
            .replace(" (", role == Qt::DisplayRole ? "\n(" : " (");
    return section == behind ? Source->Has_Limit ? QString::fromUtf8("Highest\n(µg/L)") : QString("Highest")
                             : "Above\n" + Shown(Limit_Text());
}

} // namespace orvel
