#include "tables/forms/taegliches_diagramm_neu.h"

#include "charts/forms/chart_view.h"
#include "charts/value_at.h"
#include "tables/series.h"
#include "ui/forms/text_output.h"
#include "ui/forms/widgets.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>

namespace orvel {

taegliches_Diagramm_neu::taegliches_Diagramm_neu(Ask_Function ask, Daily_Choice choice, QWidget* parent)
    : Diagram_Form("taegliches_Diagramm_neu", std::move(ask), parent),
      Choice(std::move(choice))
{
    setWindowTitle("Result of ORVEL Simulation (Daily Resolution)");
    Lay_Out();
    const Hourglass waiting;
    Series = Read_Daily_Series(Choice.Calendar, Choice.Run_Directory, Choice.Column, Choice.Request);
    Draw();
}

void taegliches_Diagramm_neu::Lay_Out()
{
    auto* units = Named(new QGroupBox("X-Axis"), "Frame1");
    auto* row = new QHBoxLayout(units);
    const std::array<const char*, 3> texts = {"&Years", "&Months", "Da&ys"};
    for (std::size_t i = 0; i < texts.size(); ++i) {
        Option1[i] = Named(new QRadioButton(texts[i]), QString("Option1_%1").arg(i));
        connect(Option1[i], &QRadioButton::clicked, this, &taegliches_Diagramm_neu::Draw);
        row->addWidget(Option1[i]);
    }
    row->addStretch(1);
    Whole_Span = Push_Button("Whole_Span", "&Whole span", this, &taegliches_Diagramm_neu::Draw);
    Whole_Span->setToolTip("Drag over the diagram to see a part of it");
    row->addWidget(Whole_Span);
    Option1[0]->setChecked(true);
    Choices().addWidget(units);

    auto* copy_data = Named(new QPushButton("Copy Da&ta"), "Daten_Kopieren");
    connect(copy_data, &QPushButton::clicked, this, [this] { Copy_Text(Shown(Data_Text(Shown_Chart()))); });
    Add_Button(copy_data);
    View().Allow_Zoom(true);
    connect(&View(), &Chart_View::Span_Chosen, this, &taegliches_Diagramm_neu::Zoom);
}

void taegliches_Diagramm_neu::Draw()
{
    const X_Unit unit = Option1[0]->isChecked()   ? X_Unit::Years
                        : Option1[1]->isChecked() ? X_Unit::Months
                                                  : X_Unit::Days;
    Show_Chart(Daily_Diagram(Series, Choice.Request, Choice.Item, unit));
    Whole_Span->setEnabled(false);
}

void taegliches_Diagramm_neu::Zoom(double from, double to)
{
    Show_Chart(Zoomed(Shown_Chart(), from, to));
    Whole_Span->setEnabled(true);
}

} // namespace orvel
