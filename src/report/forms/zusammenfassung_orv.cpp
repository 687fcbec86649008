#include "report/forms/zusammenfassung_orv.h"

#include "charts/forms/chart_view.h"
#include "charts/forms/picture_actions.h"
#include "core/code_page.h"
#include "core/shell_line.h"
#include "report/forms/report_saving.h"
#include "report/report_chart.h"
#include "ui/forms/command_box.h"
#include "ui/forms/text_output.h"
#include "ui/forms/widgets.h"

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
    Add_Button("Befehl", "Copy as comma&nd", [this] {
        Show_Command(this, {Orvelctl_Line(The_Session.Program.App_Path,
                                          {"report", "--mode", std::string(Mode_Of(Request.Mode).Name), "--pesticide",
                                           To_Utf8(Request.Pesticide), "--crop", To_Utf8(Request.Crop)})});
    });
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

void Zusammenfassung_orv::Speichern()
{
    Save_Report_As(*this, The_Session, {Request});
}

void Zusammenfassung_orv::Print()
{
    if (Shows_Diagram())
        Print_Picture(*this, The_Session.Ask, Picture_Of(Diagramm->Shown_Chart()));
    else
        Print_Text(*this, The_Session.Ask, windowTitle(), Ergebnis->toPlainText());
}

} // namespace orvel
