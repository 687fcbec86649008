#include "tables/forms/jahresbilanz.h"

#include "core/files.h"
#include "ui/forms/widgets.h"

#include <QComboBox>
#include <QFormLayout>

namespace orvel {

Jahresbilanz::Jahresbilanz(const std::filesystem::path& run_directory, const std::vector<std::string>& substances,
                           Ask_Function ask, QWidget* parent)
    : Diagram_Form("Jahresbilanz", std::move(ask), parent),
      Water(Read_Balances(Read_If_There(run_directory, "MBalance.orv"))),
      Pesticides(Read_Balances(Read_If_There(run_directory, "PBalance.orv")))
{
    setWindowTitle("Annual Balance");
    Substanz = Named(new QComboBox, "Substanz");
    Substanz->addItem("Water");
    for (std::size_t s = 0; s < Pesticides.size(); ++s) {
        Names.push_back(s < substances.size() ? substances[s] : Pesticides[s].Label);
        Substanz->addItem(Shown(Names.back()));
    }
    auto* choices = new QFormLayout;
    choices->addRow("Su&bstance:", Substanz);
    Choices().addLayout(choices);
    connect(Substanz, &QComboBox::currentIndexChanged, this, &Jahresbilanz::Draw);
    Draw();
}

void Jahresbilanz::Draw()
{
    const int chosen = std::max(0, Substanz->currentIndex());
    const auto substance = static_cast<std::size_t>(chosen) - 1;
    if (chosen == 0 && !Water.empty())
        Show_Chart(Water_Balance_Chart(Water.front()));
    else if (chosen > 0)
        Show_Chart(Substance_Balance_Chart(Pesticides[substance], Names[substance]));
}

} // namespace orvel
