#include "evaluation/forms/put_back_list.h"

#include "core/code_page.h"
#include "jobs/simulations.h"
#include "runs/bin_rule.h"
#include "ui/forms/widgets.h"
#include "ui/forms/work_bar.h"

#include <algorithm>
#include <functional>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QTableWidget>

namespace orvel {

namespace {

constexpr int Bin_Columns = 100;
constexpr int Bin_Lines = 20;

QSpinBox* Limit(const QString& name, const QString& purpose, int most, const QString& unit)
{
    auto* limit = Named(new QSpinBox, name);
    limit->setAccessibleName(purpose);
    limit->setRange(0, most);
    limit->setSuffix(unit);
    limit->setSpecialValueText("any number of" + unit);
    return limit;
}

} // namespace

Put_Back_List::Put_Back_List(Session& session, const Mode& mode, QWidget* parent)
    : QDialog(parent),
      The_Session(session),
      The_Mode(mode)
{
    setObjectName("Put_Back_List");
    setWindowTitle("Put back simulations");
    Lay_Out();
    Show_Rule();
    Refresh();
    resize(fontMetrics().averageCharWidth() * Bin_Columns, fontMetrics().lineSpacing() * Bin_Lines);
}

void Put_Back_List::Lay_Out()
{
    Bin_Grid =
        Row_Table("Bin_Grid", "Simulations in the bin", {"Pesticide File", "Crop", "Location", "Date", "Result"});
    Bin_Grid->setShowGrid(false);
    Bin_Grid->setAlternatingRowColors(true);
    Bin_Grid->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
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
    all->addLayout(Rule_Row());
    all->addLayout(buttons);
}

QLayout* Put_Back_List::Rule_Row()
{
    Megabytes = Limit("Megabytes", "Most megabytes in the bin", Most_Megabytes, " MB");
    Days = Limit("Days", "Most days in the bin", Most_Days, " days");
    auto* label = new QLabel("&Keep at most");
    label->setBuddy(Megabytes);
    auto* row = new QHBoxLayout;
    row->addWidget(label);
    row->addWidget(Megabytes);
    row->addWidget(Days);
    auto* set = Push_Button("Regel", "&Set", this, &Put_Back_List::Keep_Rule);
    set->setToolTip("For all bins of this installation, from the next time that something is put there; the last one "
                    "put there always stays");
    row->addWidget(set);
    row->addStretch(1);
    return row;
}

void Put_Back_List::Show_Rule()
try {
    const Bin_Rule rule = Read_Bin_Rule(The_Session.Program.App_Path);
    Megabytes->setValue(rule.Megabytes);
    Days->setValue(rule.Days);
} catch (const File_Error& error) {
    The_Session.Ask({Bytes_Of(windowTitle()), To_Code_Page(error.what())});
}

void Put_Back_List::Keep_Rule()
try {
    Write_Bin_Rule(The_Session.Program.App_Path, {.Megabytes = Megabytes->value(), .Days = Days->value()});
} catch (const File_Error& error) {
    The_Session.Ask({Bytes_Of(windowTitle()), To_Code_Page(error.what())});
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
