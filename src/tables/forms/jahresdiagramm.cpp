#include "tables/forms/jahresdiagramm.h"

#include "core/files.h"
#include "tables/annual_diagram.h"
#include "ui/forms/widgets.h"

#include <QComboBox>
#include <QFormLayout>

namespace orvel {

Jahresdiagramm::Jahresdiagramm(const std::filesystem::path& run_directory, Ask_Function ask, QWidget* parent)
    : Diagram_Form("Jahresdiagramm", std::move(ask), parent),
      Period_File(Read_If_There(run_directory, "period.orv"))
{
    setWindowTitle("Annual Diagram");
    Substanz = Named(new QComboBox, "Substanz");
    Tiefe = Named(new QComboBox, "Tiefe");
    for (const std::string& substance : Period_Substances(Period_File))
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
    if (const auto table = Read_Period_Table(Period_File, depth, substance))
        Show_Chart(Annual_Diagram(*table, depth, Bytes_Of(Substanz->currentText())));
}

} // namespace orvel
