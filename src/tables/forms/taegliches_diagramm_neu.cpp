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
    Name_Run(Choice.Run_Directory);
    Lay_Out();
    const Hourglass waiting;
    Series = Read_Daily_Series(Choice.Calendar, Choice.Run_Directory, Choice.Column, Choice.Request);
    Draw();
}

void taegliches_Diagramm_neu::Lay_Out()
{
    auto* units = Named(new QGroupBox("X-Axis"), "Frame1");
    auto* row = new QHBoxLayout(units);
    const std::array<const char*, 3> texts = {"&Years", "&Months", "D&ays"};
    for (std::size_t i = 0; i < texts.size(); ++i) {
        Option1[i] = Named(new QRadioButton(texts[i]), QString("Option1_%1").arg(i));
        connect(Option1[i], &QRadioButton::clicked, this, &taegliches_Diagramm_neu::Draw);
        row->addWidget(Option1[i]);
    }
    row->addStretch(1);
    Whole_Span = Push_Button("Whole_Span", "&Whole span", this, [this] {
        Span.reset();
        Draw();
    });
    Whole_Span->setToolTip(
        "Drag over the diagram to see a part of it, or go to a value with the arrow keys and press +");
    row->addWidget(Whole_Span);
    Option1[0]->setChecked(true);
    Choices().addWidget(units);

    Add_Button(
        Push_Button("Daten_Kopieren", "Copy Da&ta", this, [this] { Copy_Text(Shown(Data_Text(Shown_Chart()))); }));
    View().Allow_Zoom(true);
    connect(&View(), &Chart_View::Span_Chosen, this, &taegliches_Diagramm_neu::Zoom);
}

X_Unit taegliches_Diagramm_neu::Unit() const
{
    return Option1[0]->isChecked() ? X_Unit::Years : Option1[1]->isChecked() ? X_Unit::Months : X_Unit::Days;
}

void taegliches_Diagramm_neu::Draw()
{
    Chart chart = Daily_Diagram(Series, Choice.Request, Choice.Item, Unit());
    if (Span)
        chart = Zoomed(chart, Span->first / Days_Of(Unit()), Span->second / Days_Of(Unit()));
    Show_Chart(std::move(chart));
    Whole_Span->setEnabled(Span.has_value());
}

// The span is kept in days, so that another unit shows the same days.
void taegliches_Diagramm_neu::Zoom(double from, double to)
{
    const double first = Shown_Chart().X.First;
    Span = {(first + from) * Days_Of(Unit()), (first + to) * Days_Of(Unit())};
    Draw();
}

} // namespace orvel
