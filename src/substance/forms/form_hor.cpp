#include "substance/forms/form_hor.h"

#include "ui/forms/done_cancel.h"
#include "ui/forms/number_grid.h"
#include "ui/forms/widgets.h"

#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QScreen>
#include <QScrollBar>
#include <QVBoxLayout>

namespace orvel {

namespace {

constexpr int Horizon_Characters = 11; // width of a column
constexpr int Kf_Column = 1, First_Factor_Column = 3;

} // namespace

Form_hor::Form_hor(Session& session, int i, int rows, QWidget* parent)
    : QDialog(parent),
      The_Session(session),
      Substance(i)
{
    setObjectName("Form_hor");
    setWindowTitle("Depth Dependend Data");
    Lay_Out();
    Show_Grid(Load_Depth_Grid(The_Session.Pesticide, Substance, rows));
    GridHor->Fit_Columns(Horizon_Characters);
    GridHor->Go_To(0, Kf_Column);
    resize(sizeHint().boundedTo(screen()->availableSize())); // show all columns, if the screen allows
}

void Form_hor::Lay_Out()
{
    Model = new Text_Grid_Model(this);
    GridHor = Named(new Number_Grid(Model, Number_Grid_Rule, The_Session.Ask, "Depth dependent values"), "GridHor");
    auto* defaults =
        Push_Button("Command1", "&Trans.Factors from AS to MET A1 as Default", this, &Form_hor::Take_Default);
    defaults->setVisible(Substance == 1);
    Default_Note = Named(new QLabel("On OK all transformations of all substances take these factors."), "Default_Note");
    Default_Note->hide();
    connect(GridHor, &Number_Grid::Cell_Changed, this, &Form_hor::Follow_Undo);

    auto* grid = new QVBoxLayout;
    grid->setSpacing(0);
    grid->addWidget(Headings());
    grid->addWidget(GridHor, 1);
    auto* below = new QHBoxLayout;
    below->addWidget(defaults);
    below->addWidget(Default_Note);
    below->addStretch(1);
    auto* all = new QVBoxLayout(this);
    all->addLayout(grid, 1);
    all->addLayout(below);
    all->addWidget(Done_And_Cancel(*this, The_Session.Ask, &Form_hor::Done, "Command_OK", "&OK"));
}

// Headings above groups of columns; they follow the column widths.
QWidget* Form_hor::Headings()
{
    auto* headings = new QWidget;
    Kf_Heading = Named(new QLabel("Kf-Value", headings), "Label_Kf");
    Factor_Heading = Named(new QLabel("Transformation Factors for Degradation to", headings), "Label_Factors");
    for (auto* heading : {Kf_Heading, Factor_Heading})
        heading->resize(heading->sizeHint());
    headings->setFixedHeight(Kf_Heading->sizeHint().height());
    connect(GridHor->horizontalHeader(), &QHeaderView::sectionResized, this, &Form_hor::Place_Headings);
    connect(GridHor->horizontalScrollBar(), &QScrollBar::valueChanged, this, &Form_hor::Place_Headings);
    return headings;
}

void Form_hor::Place_Headings()
{
    const auto* columns = GridHor->horizontalHeader();
    const auto left = [&](int column) { return columns->x() + columns->sectionViewportPosition(column); };
    Kf_Heading->move(left(Kf_Column), 0);
    Factor_Heading->move(left(First_Factor_Column), 0);
    Kf_Heading->parentWidget()->setMinimumWidth(left(First_Factor_Column) + columns->offset() +
                                                Factor_Heading->width());
}

bool Form_hor::event(QEvent* event)
{
    const bool done = QDialog::event(event);
    if (event->type() == QEvent::Show || event->type() == QEvent::LayoutRequest)
        Place_Headings();
    return done;
}

void Form_hor::Show_Grid(const Depth_Grid& grid)
{
    std::vector<Number_Column> columns;
    for (auto& header : Depth_Grid_Headers(Substance))
        columns.push_back({std::move(header), !columns.empty()});
    Grid_Block cells;
    for (const auto& row : grid.Rows) {
        auto& shown = cells.emplace_back(row);
        shown.insert(shown.begin(), Horizon_Title(cells.size() - 1));
    }
    Model->Show(std::move(columns), std::move(cells));
}

Depth_Grid Form_hor::Grid() const
{
    Depth_Grid grid{Model->Cells(), Default_Taken ? Default_Factors : std::vector<std::string>()};
    for (auto& row : grid.Rows)
        row.erase(row.begin());
    return grid;
}

void Form_hor::Take_Default()
{
    auto grid = Grid();
    Before_Default = Model->Cells();
    Default_From_First_Target(grid);
    Default_Factors = grid.Default_Factors;
    GridHor->Change_Block(0, Kf_Column, grid.Rows);
    After_Default = Model->Cells();
    Show_Default(true);
}

// Undoing the default also withdraws it from the other substances, and redoing applies it again.
void Form_hor::Follow_Undo()
{
    if (Before_Default == After_Default)
        return;
    if (Model->Cells() == Before_Default)
        Show_Default(false);
    else if (Model->Cells() == After_Default)
        Show_Default(true);
}

void Form_hor::Show_Default(bool taken)
{
    Default_Taken = taken;
    Default_Note->setVisible(taken);
}

void Form_hor::Done()
{
    if (!GridHor->Is_Readable())
        return;
    Accept_Depth_Grid(The_Session.Pesticide, Substance, Grid());
    The_Session.Program.PSM_Changed = true;
    accept();
}

} // namespace orvel
