#include "tables/forms/jahresbilanz.h"

#include "tables/balance_chart.h"
#include "ui/forms/widgets.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>

namespace orvel {

Jahresbilanz::Jahresbilanz(Balance_Tables tables, Ask_Function ask, QWidget* parent)
    : Diagram_Form("Jahresbilanz", std::move(ask), parent),
      Tables(std::move(tables))
{
    setWindowTitle("Annual Balance");
    Substanz = Named(new QComboBox, "Substanz");
    Substanz->addItem("Water");
    for (const std::string& name : Tables.Substance_Name)
        Substanz->addItem(Shown(name));
    auto* choices = new QFormLayout;
    choices->addRow("Su&bstance:", Substanz);
    Choices().addLayout(choices);
    Wasserlegende = Named(new QLabel, "Wasserlegende");
    Pestizidlegende = Named(new QLabel, "Pestizidlegende");
    for (auto* key : {Wasserlegende, Pestizidlegende}) {
        key->setAlignment(Qt::AlignCenter);
        key->setWordWrap(true);
        Choices().addWidget(key);
    }
    connect(Substanz, &QComboBox::currentIndexChanged, this, &Jahresbilanz::Draw);
    Draw();
}

void Jahresbilanz::Draw()
{
    const int chosen = std::max(0, Substanz->currentIndex());
    Key = chosen == 0 ? Wasserlegende : Pestizidlegende;
    Wasserlegende->setVisible(chosen == 0);
    Pestizidlegende->setVisible(chosen != 0);
    Show_Chart(chosen == 0 ? Water_Balance_Chart(Tables)
                           : Substance_Balance_Chart(Tables, static_cast<std::size_t>(chosen) - 1));
}

} // namespace orvel
