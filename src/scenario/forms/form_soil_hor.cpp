#include "scenario/forms/form_soil_hor.h"

#include "scenario/forms/soil_profile.h"
#include "ui/forms/done_cancel.h"
#include "ui/forms/number_grid.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>

namespace orvel {

namespace {

constexpr int Column_Width = 10; // in characters

std::vector<Number_Column> Columns_Of(const Horizon_Grid& grid)
{
    std::vector<Number_Column> columns;
    for (const auto& heading : grid.Headings)
        columns.push_back({heading, !columns.empty()}); // the first column has the titles
    return columns;
}

Grid_Block Cells_Of(const Horizon_Grid& grid)
{
    auto cells = grid.Cells;
    for (std::size_t h = 0; h < cells.size(); ++h)
        cells[h].insert(cells[h].begin(), grid.Row_Titles[h]);
    return cells;
}

} // namespace

form_soil_hor::form_soil_hor(Session& session, QWidget* parent)
    : QDialog(parent),
      The_Session(session),
      Loaded(Show_Horizons(session.Scenario))
{
    setObjectName("form_soil_hor");
    setWindowTitle("Soil Horizon Parameters");
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    Lay_Out();
    resize(sizeHint().boundedTo(screen()->availableSize() * 9 / 10));
    Grid_nhor->Go_To(0, 1);
    Show_Profile();
}

void form_soil_hor::Lay_Out()
{
    Model = new Text_Grid_Model(this);
    Model->Show(Columns_Of(Loaded), Cells_Of(Loaded));
    Grid_nhor = Named(new Number_Grid(Model, Number_Grid_Rule, The_Session.Ask, "Soil horizons"), "Grid_nhor");
    Grid_nhor->Fit_Columns(Column_Width);
    Profile = new Profile_View;
    Caption = Named(new QLabel, "Sum_of_Thickness");
    Caption->setWordWrap(true);
    connect(Model, &QAbstractItemModel::dataChanged, this, &form_soil_hor::Show_Profile);
    connect(Grid_nhor, &Number_Grid::Cell_Entered, Profile, &Profile_View::Mark);
    connect(Profile, &Profile_View::Horizon_Clicked, this,
            [this](int horizon) { Grid_nhor->Go_To(horizon, std::max(1, Grid_nhor->currentIndex().column())); });

    auto* picture = new QVBoxLayout;
    picture->addWidget(Profile, 1);
    picture->addWidget(Caption);
    auto* columns = new QHBoxLayout;
    columns->addWidget(Grid_nhor, 1);
    columns->addLayout(picture);
    auto* all = new QVBoxLayout(this);
    all->addLayout(columns, 1);
    all->addWidget(Done_And_Cancel(*this, The_Session.Ask, &form_soil_hor::Done, "Command2", "&OK", "Command1"));
}

Horizon_Grid form_soil_hor::Entered() const
{
    auto grid = Loaded;
    grid.Cells = Model->Cells();
    for (auto& row : grid.Cells)
        row.erase(row.begin());
    return grid;
}

void form_soil_hor::Show_Profile()
{
    const auto grid = Entered();
    Profile->Show(Soil_Profile(grid));
    Caption->setText(QString::fromStdString(Profile_Caption(The_Session.Scenario, grid)));
}

void form_soil_hor::Take_Over_Entries(Session& session) const
{
    if (const auto grid = Entered(); grid != Loaded)
        Take_Over_Horizons(session, grid);
}

void form_soil_hor::Done()
{
    if (!Grid_nhor->Is_Readable())
        return;
    const auto grid = Entered();
    if (const auto refusal = Check_Horizon_Cells(The_Session.Scenario, grid)) {
        The_Session.Ask(refusal->Text);
        return Grid_nhor->setFocus();
    }
    Sum = Take_Over_Horizons(The_Session, grid);
    accept();
}

} // namespace orvel
