#include "charts/forms/diagram_form.h"

#include "charts/forms/chart_view.h"
#include "charts/forms/picture_actions.h"
#include "charts/painting/chart_painter.h"
#include "core/run_name.h"
#include "ui/forms/command_box.h"
#include "ui/forms/form_keys.h"
#include "ui/forms/widgets.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <vector>

namespace orvel {

Diagram_Form::Diagram_Form(const QString& name, Ask_Function ask, QWidget* parent)
    : QDialog(parent),
      Ask(std::move(ask))
{
    setObjectName(name);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    Diagramm = Named(new Chart_View, "Diagramm");
    Diagramm->Leave_Texts_Out();
    Diagrammtitel = Named(new QLabel, "Diagrammtitel");
    Legende = Named(new QLabel, "Legende");
    Name_x_Achse = Named(new QLabel, "Name_x_Achse");
    for (auto* text : {Diagrammtitel, Legende, Name_x_Achse}) {
        text->setAlignment(Qt::AlignCenter);
        text->setWordWrap(true);
    }
    QFont bold = Diagrammtitel->font();
    bold.setBold(true);
    Diagrammtitel->setFont(bold);
    Above = new QVBoxLayout;
    Buttons = new QHBoxLayout;
    auto* all = new QVBoxLayout(this);
    all->addLayout(Above);
    all->addWidget(Diagrammtitel);
    all->addWidget(Legende);
    all->addWidget(Diagramm, 1);
    all->addWidget(Name_x_Achse);
    all->addLayout(Buttons);

    auto* print = Push_Button("Drucken", "&Print Graph", this, &Diagram_Form::Drucken);
    auto* copy = Push_Button("Kopieren", "&Copy Graph", this, &Diagram_Form::Kopieren);
    auto* save = Push_Button("Speichern", "&Save Graph", this, &Diagram_Form::Speichern);
    auto* done = Push_Button("Done", "&Done", this, &QDialog::accept);
    for (auto* button : {print, copy, save})
        Buttons->addWidget(button);
    Buttons->addStretch(1);
    Buttons->addWidget(done);
    Use_Form_Keys(*this);
}

void Diagram_Form::Add_Button(QPushButton* button)
{
    button->setAutoDefault(false);
    Buttons->insertWidget(Buttons->count() - 2, button);
}

void Diagram_Form::Name_Run(const std::filesystem::path& run_directory)
{
    Run = Run_Title(run_directory);
}

void Diagram_Form::Offer_Command(const std::string& line)
{
    Add_Button(Command_Button(this, [line] { return std::vector{line}; }));
}

// What is chosen comes before the buttons, which were laid out first.
void Diagram_Form::showEvent(QShowEvent* event)
{
    std::vector<QWidget*> order;
    for (auto* at = nextInFocusChain(); at != this; at = at->nextInFocusChain()) {
        if (at->window() == this && Buttons->indexOf(at) < 0 && at->focusPolicy() != Qt::NoFocus)
            order.push_back(at);
    }
    const auto choices = order.size();
    for (int i = 0; i < Buttons->count(); ++i) {
        if (auto* button = Buttons->itemAt(i)->widget())
            order.push_back(button);
    }
    for (std::size_t i = 1; i < order.size(); ++i)
        setTabOrder(order[i - 1], order[i]);
    if (choices > 0)
        order.front()->setFocus();
    QDialog::showEvent(event);
}

// Texts that are broken into lines need the more height the narrower the window is; a layout alone does not hold that
// against the chart.
void Diagram_Form::Keep_Texts_Apart()
{
    setMinimumHeight(layout()->minimumHeightForWidth(width()));
}

void Diagram_Form::resizeEvent(QResizeEvent* event)
{
    QDialog::resizeEvent(event);
    Keep_Texts_Apart();
}

void Diagram_Form::Show_Texts(const Chart& chart)
{
    QStringList legend;
    for (const auto& line : chart.Legend)
        legend << Shown(line);
    Diagrammtitel->setText(Shown(chart.Title));
    Legende->setText(legend.join('\n'));
    Legende->setVisible(!legend.isEmpty());
    Name_x_Achse->setText(Shown(chart.X.Title));
    if (!Key)
        return;
    QString key;
    for (const auto& [colour, text] : chart.Key)
        key += QString("<span style=\"color:%1\">\u25A0</span>&nbsp;%2&nbsp;&nbsp; ")
                   .arg(Colour_Of(colour, palette()).name(), Shown(text).toHtmlEscaped().replace(" ", "&nbsp;"));
    Key->setTextFormat(Qt::RichText);
    Key->setText(key);
}

void Diagram_Form::Show_Chart(Chart chart)
{
    Show_Texts(chart);
    Diagramm->Show(std::move(chart));
    Keep_Texts_Apart();
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
    Print_Picture(*this, Ask, Picture_Of(Shown_Chart()));
}

void Diagram_Form::Speichern()
{
    Save_Picture_As(*this, Ask, Picture_Of(Shown_Chart()), "Save Graph", Shown(Picture_Name(Run, Shown_Chart().Title)));
}

} // namespace orvel
