#include "charts/forms/diagram_form.h"

#include "charts/forms/chart_view.h"
#include "charts/forms/picture_actions.h"
#include "ui/forms/enter_key.h"
#include "ui/forms/widgets.h"

#include <QHBoxLayout>
#include <QPushButton>

namespace orvel {

Diagram_Form::Diagram_Form(const QString& name, Ask_Function ask, QWidget* parent)
    : QDialog(parent),
      Ask(std::move(ask))
{
    setObjectName(name);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    Diagramm = Named(new Chart_View, "Diagramm");
    Above = new QVBoxLayout;
    Buttons = new QHBoxLayout;
    auto* all = new QVBoxLayout(this);
    all->addLayout(Above);
    all->addWidget(Diagramm, 1);
    all->addLayout(Buttons);

    auto* print = Push_Button("Drucken", "&Print Graph", this, &Diagram_Form::Drucken);
    auto* copy = Push_Button("Kopieren", "&Copy Graph", this, &Diagram_Form::Kopieren);
    auto* save = Push_Button("Speichern", "&Save Graph", this, &Diagram_Form::Speichern);
    auto* done = Push_Button("Done", "&Done", this, &QDialog::accept);
    for (auto* button : {print, copy, save})
        Buttons->addWidget(button);
    Buttons->addStretch(1);
    Buttons->addWidget(done);
    Enter_Leaves_Fields(*this);
}

void Diagram_Form::Add_Button(QPushButton* button)
{
    button->setAutoDefault(false);
    Buttons->insertWidget(Buttons->count() - 2, button);
}

void Diagram_Form::Show_Chart(Chart chart)
{
    Diagramm->Show(std::move(chart));
}

const Chart& Diagram_Form::Shown_Chart() const
{
    return Diagramm->Shown_Chart();
}

void Diagram_Form::Kopieren()
{
    Copy_Picture(Picture_Of(Shown_Chart()));
}

void Diagram_Form::Drucken()
{
    Print_Picture(*this, Picture_Of(Shown_Chart()));
}

void Diagram_Form::Speichern()
{
    Save_Picture_As(*this, Ask, Picture_Of(Shown_Chart()), "Save Graph", "diagram.png");
}

} // namespace orvel
