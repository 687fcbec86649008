#pragma once

#include "jobs/job_status.h"

#include <array>
#include <QAbstractTableModel>
#include <QIcon>
#include <vector>

namespace orvel {

// The list of simulations as a table; a row is marked while it is selected.
class Simulation_Model : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { Marker, Pesticide, Crop, Location, Date, Status, Result, Changes, Columns };

    explicit Simulation_Model(QObject* parent = nullptr);

    // Shows a new list. True: its rows differ from the previous ones, so that the selection is lost.
    bool Show(std::vector<Simulation> simulations);
    void Show_Changes(std::vector<std::vector<std::string>> changed_inputs); // by row
    void Mark(const std::vector<int>& rows);                                 // unmarks all others
    const std::vector<Simulation>& Simulations() const { return Rows; }

    QString Longest_Text(int column) const; // of the heading and all rows

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QString Text(std::size_t row, int column) const;
    QString Changes_Text(std::size_t row) const;
    bool Same_Runs(const std::vector<Simulation>& simulations) const;

    std::vector<Simulation> Rows;
    std::vector<bool> Marked;
    std::vector<std::vector<std::string>> Changed; // inputs that have changed since the run
    std::array<QIcon, 2> Markers;                  // Nicht_Markiert, Markiert
    std::array<QIcon, 3> Status_Dot;               // by Run_Status: rot, gelb, gruen
};

} // namespace orvel
