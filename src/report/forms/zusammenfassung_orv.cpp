#include "report/forms/zusammenfassung_orv.h"

#include "charts/forms/chart_view.h"
#include "charts/forms/picture_actions.h"
#include "core/code_page.h"
#include "core/files.h"
#include "core/shell_line.h"
#include "report/forms/report_saving.h"
#include "report/report_chart.h"
#include "runs/guidance_of_run.h"
#include "substance/forms/guidance_window.h"
#include "ui/forms/command_box.h"
#include "ui/forms/text_output.h"
#include "ui/forms/widgets.h"

#include <algorithm>
#include <QPlainTextEdit>

namespace orvel {

namespace {

constexpr std::size_t Text_Page = 0;
constexpr std::size_t Diagram_Page = 1;
constexpr const char* To_Diagram = "Diagram";
constexpr const char* To_Text = "Tablular output";

// False: it could not be written, and the user has been told.
bool Keep_Answer(const Ask_Function& ask, const std::filesystem::path& file, Document_Notes& notes,
                 const Guidance_Answer& answer)
try {
    auto changed = notes;
    Set_Answer(changed, answer);
    Write_Notes(file, changed);
    notes = std::move(changed);
    return true;
} catch (const File_Error& error) {
    Tell(ask, Guidance_Title, To_Code_Page(error.what()));
    return false;
}

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
    Add_Button("Guidance", "&Guidance check ...", [this] { Check_Guidance_Rules(); });
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

// An answer is kept at once: nothing else here is saved.
void Zusammenfassung_orv::Check_Guidance_Rules()
try {
    const auto file = Found_Or_New(The_Session.Program.App_Path, Path_Of(Request.Pesticide + ".psm"));
    const auto document = Read_Whole_Pesticide(file);
    auto notes = Read_Notes(file);
    std::vector<std::string> locations;
    std::ranges::transform(Request.Locations, std::back_inserter(locations), &Summary_Location::Text);
    const auto check = [&] {
        return Check_Runs(The_Session.Program, Mode_Of(Request.Mode), {*document, notes, Request.Pesticide + ".psm"},
                          Crop_Named(Request.Crop), locations);
    };
    Guidance_Window(
        {check, [&](const Guidance_Answer& answer) { return Keep_Answer(The_Session.Ask, file, notes, answer); }}, this)
        .exec();
} catch (const File_Error& error) {
    Tell(The_Session.Ask, Guidance_Title, To_Code_Page(error.what()));
}

void Zusammenfassung_orv::Print()
{
    if (Shows_Diagram())
        Print_Picture(*this, The_Session.Ask, Picture_Of(Diagramm->Shown_Chart()));
    else
        Print_Text(*this, The_Session.Ask, windowTitle(), Ergebnis->toPlainText());
}

} // namespace orvel
