#include "evaluation/forms/put_back_list.h"

#include "jobs/simulations.h"
#include "ui/forms/widgets.h"
#include "ui/forms/work_bar.h"

#include <algorithm>
#include <functional>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>

namespace orvel {

namespace {

constexpr int Columns_Shown = 100;
constexpr int Lines_Shown = 20;

} // namespace

Put_Back_List::Put_Back_List(Session& session, const Mode& mode, QWidget* parent)
    : QDialog(parent),
      The_Session(session),
      The_Mode(mode)
{
    setObjectName("Put_Back_List");
    setWindowTitle("Put back simulations");
    Lay_Out();
    Refresh();
    resize(fontMetrics().averageCharWidth() * Columns_Shown, fontMetrics().lineSpacing() * Lines_Shown);
}

void Put_Back_List::Lay_Out()
{
    Bin_Grid = Named(new QTableWidget(0, 5), "Bin_Grid");
    Bin_Grid->setAccessibleName("Simulations in the bin");
    Bin_Grid->setHorizontalHeaderLabels({"Pesticide File", "Crop", "Location", "Date", "Result"});
    Bin_Grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    Bin_Grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    Bin_Grid->setTabKeyNavigation(false);
    Bin_Grid->setShowGrid(false);
    Bin_Grid->setAlternatingRowColors(true);
    Bin_Grid->verticalHeader()->hide();
    Bin_Grid->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    Bin_Grid->horizontalHeader()->setStretchLastSection(true);
    Bin_Grid->horizontalHeader()->setHighlightSections(false);
    connect(Bin_Grid, &QTableWidget::itemSelectionChanged, this, &Put_Back_List::Selection_Changed);

    auto* note =
        new QLabel("Results that were replaced or deleted, the last 20 times between two starts. One that is put "
                   "back changes places with the present one.");
    note->setWordWrap(true);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(Zurueck = Push_Button("Zurueck", "&Put back", this, &Put_Back_List::Put_Back_Click));
    buttons->addStretch(1);
    buttons->addWidget(Push_Button("Ende", "&Done", this, &QDialog::reject));
    Zurueck->setDefault(true);

    auto* all = new QVBoxLayout(this);
    all->addWidget(note);
    all->addWidget(Bin_Grid, 1);
    all->addLayout(buttons);
}

void Put_Back_List::Refresh()
{
    Runs = Runs_In_Bin(Mode_Directory(The_Session.Program, The_Mode));
    Bin_Grid->setRowCount(static_cast<int>(Runs.size()));
    for (int row = 0; row < Bin_Grid->rowCount(); ++row) {
        const Simulation simulation = Simulation_In_Bin(Runs[static_cast<std::size_t>(row)]);
        int column = 0;
        for (const auto& text : {simulation.Pesticide, simulation.Crop, simulation.Location, Date_Text(simulation.Date),
                                 Result_Text(simulation)})
            Bin_Grid->setItem(row, column++, new QTableWidgetItem(Shown(text)));
    }
    Bin_Grid->resizeColumnsToContents();
    for (int column = 0; column + 1 < Bin_Grid->columnCount(); ++column) // the last one takes the rest
        Bin_Grid->setColumnWidth(column, Bin_Grid->columnWidth(column) + fontMetrics().averageCharWidth() * 2);
    if (!Runs.empty())
        Bin_Grid->selectRow(0);
    Selection_Changed();
}

void Put_Back_List::Selection_Changed()
{
    Zurueck->setEnabled(!Bin_Grid->selectionModel()->selectedRows().isEmpty());
}

void Put_Back_List::Put_Back_Click()
{
    std::vector<Binned_Run> chosen;
    for (const QModelIndex& index : Bin_Grid->selectionModel()->selectedRows())
        chosen.push_back(Runs[static_cast<std::size_t>(index.row())]);
    {
        Work_Bar bar(*this, windowTitle());
        Put_Back_Simulations(The_Session.Program, The_Session.Ask, The_Mode, chosen,
                             std::bind_front(&Work_Bar::Step, &bar));
    }
    Refresh();
}

} // namespace orvel
