#include "scenario/forms/klimagrafik.h"

#include "scenario/climate_chart.h"
#include "ui/forms/widgets.h"

#include <QComboBox>
#include <QFormLayout>
#include <QPushButton>

namespace orvel {

Klimagrafik::Klimagrafik(const Climate_Grid& grid, std::size_t series, Ask_Function ask, QWidget* parent)
    : Diagram_Form("Klimagrafik", std::move(ask), parent),
      Grid(grid)
{
    findChild<QPushButton*>("Done")->setObjectName("Ende");
    Reihe = Named(new QComboBox, "Reihe");
    for (std::size_t i = 0; i < Climate_Series; ++i)
        Reihe->addItem(Shown(Climate_Columns[i].Chart_Title));
    Reihe->setCurrentIndex(static_cast<int>(series));
    auto* choices = new QFormLayout;
    choices->addRow("Se&ries:", Reihe);
    Choices().addLayout(choices);
    connect(Reihe, &QComboBox::currentIndexChanged, this, &Klimagrafik::Draw);
    Draw();
}

void Klimagrafik::Draw()
{
    const auto series = static_cast<std::size_t>(std::max(0, Reihe->currentIndex()));
    setWindowTitle(Shown(Climate_Columns[series].Chart_Title));
    Show_Chart(Climate_Chart(series, Grid.Values(series), Grid.Dates()));
}

std::size_t Series_Of_Column(int column)
{
    const auto series = static_cast<std::size_t>(std::max(0, column)) - Climate_Grid::Text_Columns;
    return series < Climate_Series ? series : 0;
}

} // namespace orvel
