#include "charts/forms/diagram_form.h"

#include "charts/forms/chart_view.h"
#include "charts/painting/chart_files.h"
#include "charts/painting/chart_painter.h"
#include "core/error.h"
#include "core/forms/widgets.h"

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>

Diagram_Form::Diagram_Form(const QString& name, Ask_Function ask, QWidget* parent) : QDialog(parent), Ask(std::move(ask))
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
    done->setDefault(true);
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
    Copy_Chart(Shown_Chart());
}

void Diagram_Form::Drucken()
{
    Print_Chart(*this, Shown_Chart());
}

void Copy_Chart(const Chart& chart)
{
    QApplication::clipboard()->setImage(Chart_Image(chart));
}

void Print_Chart(QWidget& parent, const Chart& chart)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageOrientation(QPageLayout::Landscape);
    printer.setDocName(Shown(chart.Title));
    if (QPrintDialog(&printer, &parent).exec() != QDialog::Accepted)
        return;
    QPainter painter(&printer);
    const QRect page = printer.pageLayout().paintRectPixels(printer.resolution());
    Paint_Chart(painter, page.translated(-page.topLeft()), chart, Paper_Palette());
}

void Diagram_Form::Speichern()
try {
    const QString file = QFileDialog::getSaveFileName(this, "Save Graph", "diagram.png", "Pictures (*.png *.svg *.pdf)");
    if (!file.isEmpty())
        Save_Chart(Shown_Chart(), file.toStdString());
} catch (const File_Error& error) {
    Ask({"Save Graph", error.what()});
}
