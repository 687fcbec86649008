#include "evaluation/forms/simulationsliste.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/shell_line.h"
#include "evaluation/forms/put_back_list.h"
#include "jobs/run_again.h"
#include "jobs/simulations.h"
#include "jobs/start_batch.h"
#include "records/forms/archive_dialog.h"
#include "ui/forms/command_box.h"
#include "ui/forms/form_keys.h"
#include "ui/forms/help_assistant.h"
#include "ui/forms/widgets.h"
#include "ui/forms/work_bar.h"

#include <algorithm>
#include <functional>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QStyle>
#include <QTableView>

namespace orvel {

namespace {

constexpr int Refresh_Interval = 2000; // ms
constexpr int Runs_Columns = 110;      // at least
constexpr int Runs_Lines = 24;
constexpr int Ticks_Between_Changes = 10; // between looks at the inputs, of which a run has many

} // namespace

Simulationsliste::Simulationsliste(Session& session, const Mode& mode, QWidget* parent)
    : QDialog(parent),
      The_Session(session),
      The_Mode(mode),
      Changes_Of_Inputs(session.Program.App_Path)
{
    setObjectName("Simulationsliste");
    setWindowTitle(mode.Kind == Mode_Kind::Focus ? "Table of all FOCUS-Simulations" : "Table of all EFSA-Simulations");
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    Assistant = new Help_Assistant(The_Session, *this);
    Lay_Out();
    Clean_Leftovers(Mode_Directory(The_Session.Program, The_Mode));
    Refresh();
    resize(sizeHint());
    connect(&Timer1, &QTimer::timeout, this, &Simulationsliste::Tick);
    Timer1.start(Refresh_Interval);
}

void Simulationsliste::Lay_Out()
{
    Grid1 = Named(new QTableView, "Grid1");
    Grid1->setAccessibleName("Simulations");
    Grid1->setModel(&Simulations);
    Grid1->setSelectionBehavior(QAbstractItemView::SelectRows);
    Grid1->setSelectionMode(QAbstractItemView::ExtendedSelection);
    Grid1->setTabKeyNavigation(false);
    Grid1->setShowGrid(false);
    Grid1->setAlternatingRowColors(true);
    Grid1->setWordWrap(false);
    Grid1->verticalHeader()->hide();
    Grid1->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    Grid1->verticalHeader()->setDefaultSectionSize(Grid1->fontMetrics().height() * 3 / 2);
    Grid1->horizontalHeader()->setHighlightSections(false);
    Grid1->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    Grid1->horizontalHeader()->setStretchLastSection(true);
    connect(Grid1->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &Simulationsliste::Selection_Changed);
    connect(Grid1, &QTableView::activated, this, &Simulationsliste::Auswaehlen_Click); // Return, or a double click

    Grid1->setSortingEnabled(true);
    Grid1->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    auto* deletes = new QShortcut(Qt::Key_Delete, Grid1);
    deletes->setContext(Qt::WidgetShortcut);
    connect(deletes, &QShortcut::activated, this, &Simulationsliste::Loeschen_Click);

    auto* filter = Named(new QLineEdit, "Filter");
    filter->setPlaceholderText("Part of a text");
    filter->setClearButtonEnabled(true);
    connect(filter, &QLineEdit::textChanged, this, [this](const QString& part) {
        Simulations.Filter(part);
        Refresh();
    });
    auto* label = new QLabel("&Find:");
    label->setBuddy(filter);
    auto* find = new QHBoxLayout;
    find->addWidget(label);
    find->addWidget(filter, 1);

    auto* all = new QVBoxLayout(this);
    all->addLayout(find);
    all->addWidget(Grid1, 1);
    all->addLayout(Buttons());
    Use_Form_Keys(*this);
    Assistant->Attach(Grid1, 27);
    Assistant->Attach(Auswaehlen, 28);
    Assistant->Attach(Loeschen, 29);
}

// Wide enough for all columns, but no wider than the screen.
QSize Simulationsliste::sizeHint() const
{
    const auto margins = layout()->contentsMargins();
    const int around =
        margins.left() + margins.right() + 2 * Grid1->frameWidth() + style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    int columns = 0;
    for (int column = 0; column < Simulation_Model::Columns; ++column)
        columns += Column_Width(column);
    const int width = std::max(fontMetrics().averageCharWidth() * Runs_Columns, columns + around);
    return {std::min(width, screen()->availableSize().width()), fontMetrics().lineSpacing() * Runs_Lines};
}

QLayout* Simulationsliste::Buttons()
{
    auto* row = new QHBoxLayout;
    const auto add = [&](const QString& name, const QString& text, auto handler) {
        auto* button = Push_Button(name, text, this, handler);
        row->addWidget(button);
        return button;
    };
    Auswaehlen = add("Auswaehlen", "&Select", &Simulationsliste::Auswaehlen_Click);
    Loeschen = add("Loeschen", "D&elete", &Simulationsliste::Loeschen_Click);
    Nochmals = add("Nochmals", "&Run failed ones again", &Simulationsliste::Nochmals_Click);
    Weiter = add("Weiter", "Res&ume", &Simulationsliste::Weiter_Click);
    Weiter->setToolTip("Runs what the last job did not begin, or was cut off or stopped in");
    Anhalten = add("Anhalten", "S&top", &Simulationsliste::Anhalten_Click);
    Anhalten->setToolTip("Ends the job and the simulations that are running");
    Zurueckholen = add("Zurueckholen", "&Put back ...", &Simulationsliste::Zurueckholen_Click);
    Zurueckholen->setToolTip("Results that were replaced or deleted");
    Archivieren = add("Archivieren", "&Archive ...", &Simulationsliste::Archivieren_Click);
    Archivieren->setToolTip("Puts the simulations of the selected one's pesticide and crop into one file");
    auto* command = add("Befehl", "Comma&nd", [this] {
        const std::string mode(The_Mode.Name);
        const auto line = [&](const std::vector<std::string>& words) {
            return Orvelctl_Line(The_Session.Program.App_Path, words);
        };
        Show_Command(this, {line({"status", "--mode", mode}), line({"start", "--mode", mode, "--failed", "--wait"}),
                            line({"start", "--mode", mode, "--resume", "--wait"}), line({"stop", "--mode", mode})});
    });
    command->setToolTip("Copy as command: the lines that do the same on a command line");
    row->addWidget(Assistant->Switch());
    row->addStretch(1);
    Ende = add("Ende", "&Done", &QDialog::reject);
    return row;
}

void Simulationsliste::Refresh()
{
    std::vector<std::filesystem::path> selected;
    for (const Simulation& simulation : Selected())
        selected.push_back(simulation.Directory);
    if (Simulations.Show(Simulation_List(Mode_Directory(The_Session.Program, The_Mode)))) {
        Show_Changes();
        Size_Columns();
        Select_Again(selected);
    }
    Enable_Buttons();
    Selection_Changed();
}

void Simulationsliste::Show_Changes()
{
    Simulation_Model::Changed_Inputs changed;
    for (const Simulation& simulation : Simulations.Simulations()) {
        Changes_Of_Inputs.Begin_Pass();
        auto& entries = changed[simulation.Directory] = Changes_Of_Inputs.Of(simulation);
        const auto& unreadable = Changes_Of_Inputs.Unreadable();
        entries.insert(entries.end(), unreadable.begin(), unreadable.end());
    }
    Simulations.Show_Changes(std::move(changed));
}

void Simulationsliste::Enable_Buttons()
{
    const auto& simulations = Simulations.Simulations();
    const auto can_resume = [](const Simulation& simulation) {
        return Is_Selected(Job_Selection::Resume, simulation.State);
    };
    const auto directory = Mode_Directory(The_Session.Program, The_Mode);
    const bool running = Is_Job_At_Work(The_Session.Program, The_Mode);
    Loeschen->setEnabled(!simulations.empty());
    Nochmals->setEnabled(std::ranges::any_of(simulations, Has_Failed));
    Weiter->setEnabled(!running && Find_File(directory, "orveljob.bat") &&
                       std::ranges::any_of(simulations, can_resume));
    Anhalten->setEnabled(running);
}

void Simulationsliste::Size_Columns()
{
    for (int column = 0; column < Simulation_Model::Columns; ++column)
        Grid1->setColumnWidth(column, Column_Width(column));
}

int Simulationsliste::Column_Width(int column) const
{
    const int picture = Grid1->verticalHeader()->defaultSectionSize();
    const bool has_picture = column == Simulation_Model::Marker || column == Simulation_Model::Status;
    const int text = QFontMetrics(Grid1->font()).horizontalAdvance(Simulations.Longest_Text(column)) +
                     picture * (has_picture ? 2 : 1);
    return std::max(text, Grid1->horizontalHeader()->sectionSizeHint(column)); // which has the arrow of the order
}

void Simulationsliste::Select_Again(const std::vector<std::filesystem::path>& runs)
{
    if (runs.empty())
        return;
    QItemSelection rows;
    for (int row = 0; row < Simulations.rowCount(); ++row) {
        if (std::ranges::find(runs, Simulations.Simulations()[static_cast<std::size_t>(row)].Directory) != runs.end())
            rows.select(Simulations.index(row, 0), Simulations.index(row, Simulation_Model::Columns - 1));
    }
    Grid1->selectionModel()->select(rows, QItemSelectionModel::ClearAndSelect);
}

// Markers follow the selection.
void Simulationsliste::Selection_Changed()
{
    std::vector<int> rows;
    for (const QModelIndex& index : Grid1->selectionModel()->selectedRows())
        rows.push_back(index.row());
    Simulations.Mark(rows);
    Auswaehlen->setEnabled(rows.size() == 1);
    Archivieren->setEnabled(rows.size() == 1);
}

std::vector<Simulation> Simulationsliste::Selected() const
{
    auto rows = Grid1->selectionModel()->selectedRows();
    std::ranges::sort(rows, {}, &QModelIndex::row);
    std::vector<Simulation> selected;
    for (const QModelIndex& index : rows)
        selected.push_back(Simulations.Simulations()[static_cast<std::size_t>(index.row())]);
    return selected;
}

// States change only if a job has been started.
void Simulationsliste::Tick()
{
    if (!Find_File(Mode_Directory(The_Session.Program, The_Mode), "orveljob.bat"))
        return;
    Refresh();
    if (++Ticks % Ticks_Between_Changes == 0)
        Show_Changes();
}

void Simulationsliste::Auswaehlen_Click()
{
    const auto selected = Selected();
    if (selected.size() != 1)
        return;
    The_Session.Run.Last_Simulation = {selected[0].Pesticide, selected[0].Crop, selected[0].Location};
    Picked = selected[0].Directory;
    accept();
}

void Simulationsliste::Loeschen_Click()
{
    Timer1.stop();
    {
        Work_Bar bar(*this, "Deleting simulations");
        Delete_Simulations(The_Session.Program, The_Session.Ask, The_Mode, Selected(),
                           std::bind_front(&Work_Bar::Step, &bar));
    }
    Refresh();
    Timer1.start(Refresh_Interval);
}

void Simulationsliste::Weiter_Click()
{
    Start_Batch(The_Session.Program, The_Session.Ask, The_Mode, {.Selection = Job_Selection::Resume});
    Refresh();
}

void Simulationsliste::Anhalten_Click()
{
    Stop_Job(The_Session.Program, The_Session.Ask, The_Mode);
    Refresh();
}

void Simulationsliste::Zurueckholen_Click()
{
    Timer1.stop();
    Put_Back_List(The_Session, The_Mode, this).exec();
    Refresh();
    Show_Changes();
    Timer1.start(Refresh_Interval);
}

void Simulationsliste::Archivieren_Click()
{
    const auto selected = Selected();
    if (selected.size() != 1)
        return;
    Timer1.stop();
    Archive_In_Window(The_Session, The_Mode, selected[0].Pesticide, selected[0].Crop, this);
    Timer1.start(Refresh_Interval);
}

void Simulationsliste::Nochmals_Click()
{
    Timer1.stop();
    const int marked = Mark_Failed_Again(The_Session.Program, The_Session.Ask, The_Mode, Simulations.Simulations());
    if (marked > 0) {
        The_Session.Ask({"Starting ORVEL Simulations",
                         std::to_string(marked) + (marked == 1 ? " simulation is" : " simulations are") +
                             " marked. \"Start Batch\" starts them.",
                         Icon::Information});
    }
    Refresh();
    Timer1.start(Refresh_Interval);
}

} // namespace orvel
