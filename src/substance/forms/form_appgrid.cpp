#include "substance/forms/form_appgrid.h"

#include "ui/forms/done_cancel.h"
#include "ui/forms/number_grid.h"
#include "ui/forms/widgets.h"

#include <algorithm>
#include <QScreen>
#include <QVBoxLayout>

namespace orvel {

namespace {

constexpr int Application_Characters = 9; // width of a column
constexpr Grid_Rule Application_Grid_Rule = {Application_Cell_After_Key, Application_Cell_Takes};

Grid_Block Cells_Of(const Application_Grid& grid)
{
    Grid_Block cells;
    for (const auto& row : grid)
        cells.emplace_back(row.begin(), row.end());
    return cells;
}

} // namespace

Form_appgrid::Form_appgrid(Session& session, const std::string& text_naps, Application_Method method, QWidget* parent)
    : QDialog(parent),
      The_Session(session),
      Method(method)
{
    setObjectName("Form_appgrid");
    setWindowTitle("Application Data");
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    Lay_Out();
    Show_Grid(Load_Application_Grid(The_Session.Pesticide, The_Session.Editor, text_naps, Method));
    AppGrid->Fit_Columns(Application_Characters);
    AppGrid->Go_To(0, Grid_Column::Day);
    resize(sizeHint().boundedTo(screen()->availableSize())); // show all columns, if the screen allows
}

void Form_appgrid::Lay_Out()
{
    Model = new Text_Grid_Model(this);
    AppGrid = Named(new Number_Grid(Model, Application_Grid_Rule, The_Session.Ask, "Applications"), "AppGrid");
    auto* below = new QHBoxLayout;
    below->addWidget(
        Push_Button("Command1", "&Same Fractions for all applications", this, &Form_appgrid::Take_Same_Fractions));
    below->addStretch(1);
    auto* all = new QVBoxLayout(this);
    all->addWidget(AppGrid, 1);
    all->addLayout(below);
    all->addWidget(Done_And_Cancel(*this, The_Session.Ask, &Form_appgrid::Done, "CommandOK", "&OK"));
}

void Form_appgrid::Show_Grid(const Application_Grid& grid)
{
    std::vector<Number_Column> columns;
    for (const auto header : Application_Grid_Headers(Method))
        columns.push_back({std::string(header), !columns.empty()});
    Model->Show(std::move(columns), Cells_Of(grid));
}

Application_Grid Form_appgrid::Grid() const
{
    Application_Grid grid;
    for (const auto& cells : Model->Cells())
        std::copy_n(cells.begin(), Grid_Columns, grid.emplace_back().begin());
    return grid;
}

void Form_appgrid::Take_Same_Fractions()
{
    auto grid = Grid();
    Same_Fractions(grid);
    AppGrid->Change_Block(0, 0, Cells_Of(grid));
}

void Form_appgrid::Done()
{
    if (!AppGrid->Is_Readable())
        return;
    if (const auto question = Impossible_Date(Grid()); question && The_Session.Ask(*question) != Button::Yes)
        return;
    const auto refusal = Accept_Application_Grid(The_Session, Grid(), Method);
    if (!refusal)
        return accept();
    The_Session.Ask(refusal->Text);
    AppGrid->Go_To(refusal->Row, refusal->Column);
}

} // namespace orvel
