#include "evaluation/forms/analyse.h"

#include "core/shell_line.h"
#include "evaluation/forms/series_choice.h"
#include "evaluation/forms/simulationsliste.h"
#include "output/echo_file.h"
#include "records/forms/archive_dialog.h"
#include "report/evaluated_pesticide.h"
#include "report/forms/zusammenfassung_orv.h"
#include "tables/forms/jahr_orv.h"
#include "tables/forms/mass_balance.h"
#include "tables/forms/pecsoil.h"
#include "tables/forms/text_viewer.h"
#include "ui/forms/command_box.h"
#include "ui/forms/widgets.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTimer>

namespace orvel {

namespace {

std::filesystem::path Directory_Of(const QComboBox& combo)
{
    return combo.currentData().toString().toStdString();
}

// Fills a list with the entries below a directory and selects `wanted`, or the first.
void Fill(QComboBox& combo, const std::filesystem::path& parent, const std::string& wanted)
{
    const QSignalBlocker quiet(combo);
    combo.clear();
    int selected = 0;
    for (const Run_Entry& entry : Run_Entries(parent)) {
        if (entry.Name == wanted)
            selected = combo.count();
        combo.addItem(Shown(entry.Name), QString::fromStdString(entry.Directory.string()));
    }
    if (combo.count() > 0)
        combo.setCurrentIndex(selected);
}

QString Name_Of(const Mode& mode)
{
    switch (mode.Kind) {
    case Mode_Kind::Efsa:
        return "Analyse_EFSA";
    case Mode_Kind::Efsa_T4:
        return "Analyse_EFSA_T4";
    default:
        return "Analyse";
    }
}

} // namespace

Analyse::Analyse(Session& session, const Mode& mode, QWidget* parent)
    : QDialog(parent),
      The_Session(session),
      The_Mode(mode)
{
    setObjectName(Name_Of(mode));
    setWindowTitle("Evaluation of Simulation");
    Lay_Out();
    Fill(*Pestizidverzeichnis, Mode_Directory(The_Session.Program, The_Mode),
         The_Session.Run.Last_Simulation.Pesticide);
    Pestizidverzeichnis_Click();
}

void Analyse::Pestizidverzeichnis_Click()
{
    if (Pestizidverzeichnis->count() > 0)
        Check_Evaluated_Pesticide(The_Session.Program, The_Session.Ask, Bytes_Of(Pestizidverzeichnis->currentText()));
    Fill(*Kulturverzeichnis, Directory_Of(*Pestizidverzeichnis), The_Session.Run.Last_Simulation.Crop);
    Kulturverzeichnis_Click();
}

void Analyse::Kulturverzeichnis_Click()
{
    Fill(*Szenarioverzeichnis, Directory_Of(*Kulturverzeichnis), The_Session.Run.Last_Simulation.Location);
    Szenarioverzeichnis_Click();
}

void Analyse::Szenarioverzeichnis_Click()
{
    const auto run = Run_Directory();
    for (auto* button : {Konzentration, Balance, Echo, Zusammenfassung, Grafik})
        button->setEnabled(!run.empty());
    Datum->setText(run.empty() ? QString() : Shown(Date_Of_Simulation(run)));
    Failed = false;
    if (run.empty())
        return Series->Clear();
    The_Session.Run.Last_Simulation = {Bytes_Of(Pestizidverzeichnis->currentText()),
                                       Bytes_Of(Kulturverzeichnis->currentText()),
                                       Bytes_Of(Szenarioverzeichnis->currentText())};
    Series->Show_Run(run);
    Look_For_Failure();
}

// The report is deferred to the event loop, so that the lists have closed and the form is visible behind it.
void Analyse::Look_For_Failure()
{
    Failed = Simulation_Failed(Run_Directory());
    if (Failed && isVisible())
        QTimer::singleShot(0, this, &Analyse::Report_Failure);
}

void Analyse::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (Failed)
        QTimer::singleShot(0, this, &Analyse::Report_Failure);
}

void Analyse::Report_Failure()
{
    if (!Failed)
        return;
    Failed = false;
    Show_Failed_Echo(The_Session, Run_Directory(), this);
}

std::filesystem::path Analyse::Run_Directory() const
{
    return Szenarioverzeichnis->count() > 0 ? Directory_Of(*Szenarioverzeichnis) : std::filesystem::path();
}

// Refills the lists, since simulations may have been deleted, and selects the one picked.
void Analyse::Liste_Click()
{
    Simulationsliste list(The_Session, The_Mode, this);
    list.exec();
    Fill(*Pestizidverzeichnis, Mode_Directory(The_Session.Program, The_Mode),
         The_Session.Run.Last_Simulation.Pesticide);
    if (list.Chosen().empty())
        return Pestizidverzeichnis_Click();
    Select(list.Chosen());
}

// Compares directories, since two of them may have the same name.
void Analyse::Select(const std::filesystem::path& run)
{
    const auto set = [](QComboBox& combo, const std::filesystem::path& directory) {
        const QSignalBlocker quiet(combo);
        combo.setCurrentIndex(std::max(0, combo.findData(QString::fromStdString(directory.string()))));
    };
    set(*Pestizidverzeichnis, run.parent_path().parent_path());
    Check_Evaluated_Pesticide(The_Session.Program, The_Session.Ask, Bytes_Of(Pestizidverzeichnis->currentText()));
    Fill(*Kulturverzeichnis, Directory_Of(*Pestizidverzeichnis), {});
    set(*Kulturverzeichnis, run.parent_path());
    Fill(*Szenarioverzeichnis, Directory_Of(*Kulturverzeichnis), {});
    set(*Szenarioverzeichnis, run);
    Szenarioverzeichnis_Click();
}

void Analyse::Konzentration_Click()
{
    if (The_Mode.Kind == Mode_Kind::Focus)
        Jahr_ORV(The_Session, Run_Directory(), this).exec();
    else
        PECsoil(The_Session, Run_Directory(), ERC->currentText().toInt(), this).exec();
}

void Analyse::Balance_Click()
{
    Mass_Balance(The_Session, Run_Directory(), this).exec();
}

void Analyse::Echo_Click()
{
    Show_Echo(The_Session, Run_Directory(), this);
}

void Analyse::Zusammenfassung_Click()
{
    Summary_Request request{The_Session.Program.Aktuelle_ORVEL_Version,
                            Bytes_Of(Datum->text()),
                            Bytes_Of(Pestizidverzeichnis->currentText()),
                            Bytes_Of(Kulturverzeichnis->currentText()),
                            {},
                            {},
                            {},
                            The_Mode.Kind};
    for (int i = 0; i < Szenarioverzeichnis->count(); ++i)
        request.Locations.push_back(
            {Bytes_Of(Szenarioverzeichnis->itemText(i)), Szenarioverzeichnis->itemData(i).toString().toStdString()});
    request.Absent = Absent_Locations(The_Session, The_Mode, request.Crop, request.Locations);
    const auto archive = [this](const Summary_Request& reported, QWidget* parent) {
        Archive_In_Window(The_Session, The_Mode, reported.Pesticide, reported.Crop, parent);
    };
    Zusammenfassung_orv(The_Session, std::move(request), archive, this).exec();
}

void Analyse::Grafik_Click()
{
    Series->Show_Diagram(The_Session, Run_Directory(), false, this);
}

void Analyse::Command()
{
    const std::string run = Run_Directory().string();
    if (run.empty())
        return;
    const auto line = [&](const std::vector<std::string>& words) {
        return Orvelctl_Line(The_Session.Program.App_Path, words);
    };
    Show_Command(this,
                 {line(The_Mode.Kind == Mode_Kind::Focus
                           ? std::vector<std::string>{"tables", run}
                           : std::vector<std::string>{"pecsoil", run, "--depth", ERC->currentText().toStdString()}),
                  line({"balance", run}), Series->Command(The_Session, Run_Directory()),
                  line({"report", "--mode", std::string(The_Mode.Name), "--pesticide",
                        Pestizidverzeichnis->currentText().toStdString(), "--crop",
                        Kulturverzeichnis->currentText().toStdString()})});
}

} // namespace orvel
