#include "tables/forms/jahresdiagramm.h"

#include "tables/annual_diagram.h"
#include "ui/forms/widgets.h"

#include <QComboBox>
#include <QFormLayout>

namespace orvel {

Jahresdiagramm::Jahresdiagramm(Leachate_Tables tables, Ask_Function ask, QWidget* parent)
    : Diagram_Form("Jahresdiagramm", std::move(ask), parent),
      Tables(std::move(tables))
{
    setWindowTitle("Annual Diagram");
    Substanz = Named(new QComboBox, "Substanz");
    Tiefe = Named(new QComboBox, "Tiefe");
    for (const std::string& substance : Annual_Substances(Tables))
        Substanz->addItem(Shown(substance));
    for (const auto depth : Annual_Depths)
        Tiefe->addItem(Shown(depth));
    auto* choices = new QFormLayout;
    choices->addRow("Su&bstance:", Substanz);
    choices->addRow("D&epth:", Tiefe);
    Choices().addLayout(choices);
    connect(Substanz, &QComboBox::currentIndexChanged, this, &Jahresdiagramm::Draw);
    connect(Tiefe, &QComboBox::currentIndexChanged, this, &Jahresdiagramm::Draw);
    Draw();
}

void Jahresdiagramm::Draw()
{
    const auto depth = static_cast<std::size_t>(std::max(0, Tiefe->currentIndex()));
    const auto substance = static_cast<std::size_t>(std::max(0, Substanz->currentIndex()));
    if (auto chart = Annual_Diagram(Tables, depth, substance))
        Show_Chart(std::move(*chart));
}

} // namespace orvel
