#include "report/forms/zusammenfassung_orv.h"

#include "charts/forms/chart_view.h"
#include "charts/forms/picture_actions.h"
#include "core/error.h"
#include "report/painting/report_files.h"
#include "report/report_chart.h"
#include "report/report_formats.h"
#include "ui/forms/text_output.h"
#include "ui/forms/widgets.h"

#include <QFileDialog>
#include <QPlainTextEdit>

namespace orvel {

namespace {

constexpr std::size_t Text_Page = 0;
constexpr std::size_t Diagram_Page = 1;
constexpr const char* To_Diagram = "Diagram";
constexpr const char* To_Text = "Tablular output";

} // namespace

Zusammenfassung_orv::Zusammenfassung_orv(Session& session, Summary_Request request, Archive_Opener archive,
                                         QWidget* parent)
    : Building_Form("Zusammenfassung_orv", parent),
      The_Session(session),
      Request(std::move(request)),
      Open_Archive(std::move(archive))
{
    setWindowTitle("FOCUS Summary Output File");
    Ergebnis = Fixed_Pitch_Text("Ergebnis", "Summary report");
    Diagramm = Named(new Chart_View, "Diagramm");
    Diagramm->setFocusPolicy(Qt::StrongFocus);
    Add_Page(Ergebnis);
    Add_Page(Diagramm);
    connect(Diagramm, &Chart_View::Clicked, this, &Zusammenfassung_orv::Next_Substance);

    S_Diagramm = Add_Button("S_Diagramm", To_Diagram, [this] { S_Diagramm_Click(); });
    Add_Button("Kopieren", "&Copy", [this] { Copy(); });
    Add_Button("Drucken", "&Print", [this] { Print(); });
    Add_Button("Speichern", "&Save report", [this] { Speichern(); });
    Add_Button("Archivieren", "&Archive ...", [this] {
        Open_Archive(Request, this);
    })->setToolTip("Puts the simulations with inputs, records, outputs and report into one file");
    Add_Done();
}

void Zusammenfassung_orv::Build(const Progress& progress)
{
    Built_Summary = Build_Summary(Request, progress);
}

void Zusammenfassung_orv::Show_Built()
{
    Show_Page(Text_Page);
    S_Diagramm->setEnabled(!Built_Summary.Substances.empty());
    if (Built_Summary.Failure.empty())
        Ergebnis->setPlainText(Shown(Summary_Text(Built_Summary)));
    else
        The_Session.Ask({"File check", Built_Summary.Failure});
}

// The caption names the view that a click leads to.
bool Zusammenfassung_orv::Shows_Diagram() const
{
    return S_Diagramm->text() == To_Text;
}

void Zusammenfassung_orv::S_Diagramm_Click()
{
    const bool to_diagram = !Shows_Diagram();
    S_Diagramm->setText(to_diagram ? To_Text : To_Diagram);
    Show_Page(to_diagram ? Diagram_Page : Text_Page);
    Substance = 0;
    if (to_diagram)
        Draw();
}

void Zusammenfassung_orv::Next_Substance()
{
    Substance = (Substance + 1) % Built_Summary.Substances.size();
    Draw();
}

void Zusammenfassung_orv::Draw()
{
    Diagramm->Show(Report_Chart(Built_Summary, Substance));
    Diagramm->setToolTip(Built_Summary.Substances.size() > 1 ? "Click for the next substance" : "");
}

void Zusammenfassung_orv::Copy()
{
    if (Shows_Diagram())
        Copy_Picture(Picture_Of(Diagramm->Shown_Chart()));
    else
        Copy_Text(Ergebnis->toPlainText());
}

// The format goes by the ending, which the chosen filter completes.
void Zusammenfassung_orv::Speichern()
try {
    QFileDialog dialog(this, "Save report", {}, Shown(Report_Filters()));
    dialog.setObjectName("Save_Report");
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    const auto complete = [&dialog](const QString& filter) {
        dialog.setDefaultSuffix(filter.section("*.", 1).chopped(1));
    };
    connect(&dialog, &QFileDialog::filterSelected, complete);
    complete(dialog.selectedNameFilter());
    dialog.selectFile(Shown(Request.Pesticide + " " + Request.Crop));
    if (dialog.exec() != QDialog::Accepted)
        return;
    const Hourglass waiting;
    Save_Report(The_Session, {Request}, dialog.selectedFiles().value(0).toStdString());
} catch (const File_Error& error) {
    The_Session.Ask({"Save report", Bytes_Of(QString::fromUtf8(error.what()))});
}

void Zusammenfassung_orv::Print()
{
    if (Shows_Diagram())
        Print_Picture(*this, The_Session.Ask, Picture_Of(Diagramm->Shown_Chart()));
    else
        Print_Text(*this, The_Session.Ask, windowTitle(), Ergebnis->toPlainText());
}

} // namespace orvel
