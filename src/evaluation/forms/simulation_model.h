#pragma once

#include "jobs/job_status.h"

#include <array>
#include <filesystem>
#include <map>
#include <QAbstractTableModel>
#include <QIcon>
#include <string>
#include <vector>

namespace orvel {

// The list of simulations as a table; a row is marked while it is selected.
class Simulation_Model : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { Marker, Pesticide, Crop, Location, Date, Status, Result, Changes, Columns };

    // The inputs that have changed since a run, by its directory.
    using Changed_Inputs = std::map<std::filesystem::path, std::vector<std::string>>;

    explicit Simulation_Model(QObject* parent = nullptr);

    // Shows a new list. True: its rows differ from the previous ones, so that the selection is lost.
    bool Show(std::vector<Simulation> simulations);
    void Show_Changes(Changed_Inputs changed);
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;
    void Filter(const QString& part) { Part = part; } // what follows is shown if one of its texts has the part

    void Mark(const std::vector<int>& rows); // unmarks all others
    const std::vector<Simulation>& Simulations() const { return Rows; }

    QString Longest_Text(int column) const; // of the heading and all rows

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QString Text(const Simulation& simulation, int column) const;
    const std::vector<std::string>& Changes_Of(const Simulation& simulation) const;
    QString Changes_Text(const Simulation& simulation) const;
    bool Same_Runs(const std::vector<Simulation>& simulations) const;
    bool Matches(const Simulation& simulation) const;
    void Arrange(std::vector<Simulation>& simulations) const;

    QString Part;
    int Sorted_By = -1; // column; -1: as the directories come
    Qt::SortOrder Order = Qt::AscendingOrder;
    std::vector<Simulation> Rows;
    std::vector<bool> Marked;
    Changed_Inputs Changed;
    std::array<QIcon, 2> Markers;    // Nicht_Markiert, Markiert
    std::array<QIcon, 3> Status_Dot; // by Run_Status: rot, gelb, gruen
};

} // namespace orvel
