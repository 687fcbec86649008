#include "desktop/forms/all_windows.h"

#include "core/files.h"
#include "desktop/forms/form_name.h"
#include "desktop/forms/installation_check.h"
#include "desktop/forms/start.h"
#include "desktop/forms/versionsinfo.h"
#include "desktop/forms/welcome.h"
#include "desktop/forms/windows.h"
#include "documents/forms/form_psm_open.h"
#include "documents/forms/unsaved_list.h"
#include "documents/unsaved_copy.h"
#include "evaluation/forms/analyse.h"
#include "evaluation/forms/inout_sel.h"
#include "evaluation/forms/overview_window.h"
#include "evaluation/forms/put_back_list.h"
#include "evaluation/forms/simulationsliste.h"
#include "files/climate_file.h"
#include "files/forms/form_saving.h"
#include "files/pesticide_file.h"
#include "files/scenario_file.h"
#include "jobs/forms/focus.h"
#include "jobs/forms/form_end.h"
#include "pdf_text.h"
#include "plans/forms/plans_window.h"
#include "plans/forms/sweep_form.h"
#include "records/forms/archives.h"
#include "report/forms/zusammenfassung_orv.h"
#include "runs/forms/ausgabe_festlegen.h"
#include "runs/forms/dialog.h"
#include "runs/start_up.h"
#include "scenario/forms/form_difcrop.h"
#include "scenario/forms/form_eros.h"
#include "scenario/forms/form_rot.h"
#include "scenario/forms/form_soil_hor.h"
#include "scenario/forms/klima.h"
#include "scenario/forms/klimagrafik.h"
#include "scenario/forms/macro.h"
#include "scenario/forms/szenario.h"
#include "substance/forms/andere_standorte.h"
#include "substance/forms/deg_dat.h"
#include "substance/forms/form_appgrid.h"
#include "substance/forms/form_as.h"
#include "substance/forms/form_hor.h"
#include "substance/forms/form_met.h"
#include "substance/forms/form_psm_1.h"
#include "substance/forms/guidance_window.h"
#include "substance/forms/kin_sorption.h"
#include "substance/forms/koc_ph.h"
#include "substance/forms/plant_app.h"
#include "substance/forms/source_window.h"
#include "substance/horizon_table.h"
#include "substance/pesticide_editor.h"
#include "tables/forms/jahr_orv.h"
#include "tables/forms/jahresbilanz.h"
#include "tables/forms/jahresdiagramm.h"
#include "tables/forms/mass_balance.h"
#include "tables/forms/pecsoil.h"
#include "tables/forms/taegliches_diagramm_neu.h"
#include "tables/forms/text_viewer.h"
#include "temporary_directory.h"
#include "ui/forms/dark_outlines.h"
#include "ui/forms/undo_history.h"
#include "ui/forms/widgets.h"
#include "window_test.h"

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <map>
#include <QAbstractButton>
#include <QApplication>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QProcess>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QToolButton>

namespace orvel {

namespace fs = std::filesystem;

namespace {

template <class Window, class... Rest> Opened_Window Plain(const QString& name, Rest... rest)
{
    return {name,
            [=](Session& session) -> std::unique_ptr<QWidget> { return std::make_unique<Window>(session, rest...); }};
}

Opened_Window Plain_Transformation(const QString& name, int t)
{
    return {name, [t](Session& session) -> std::unique_ptr<QWidget> {
                Open_Transformation(session, t);
                return std::make_unique<deg_dat>(session);
            }};
}

void Orvelctl(const std::string& arguments, const fs::path& directory = fs::current_path())
{
    QProcess program;
    program.setStandardOutputFile(QProcess::nullDevice());
    program.setStandardErrorFile(QProcess::nullDevice());
    program.setWorkingDirectory(QString::fromStdString(directory.string()));
    program.start(ORVELCTL, QProcess::splitCommand(QString::fromStdString(arguments)));
    constexpr int A_Long_Time = 600'000; // milliseconds
    ASSERT_TRUE(program.waitForFinished(A_Long_Time) && program.exitCode() == 0) << arguments;
}

using Names = std::vector<std::string>;

std::unique_ptr<QWidget> Opened_Substance(Session& session)
{
    Open_Active_Substance(session);
    return std::make_unique<Form_AS>(session);
}

std::unique_ptr<QWidget> Pressed(std::unique_ptr<QWidget> window, const QStringList& buttons)
{
    for (const auto& button : buttons)
        Find<QAbstractButton>(*window, button)->click();
    return window;
}

// With a document that is gone and a new one.
std::unique_ptr<QWidget> Opened_Unsaved_List(Session& session)
{
    const fs::path place = Place_Of_Unsaved_Copies(), directory = session.Program.App_Path;
    Unsaved_Copy(place, Document_Kind::Pesticide, directory / "gone.psm").Keep(session);
    Unsaved_Copy(place, Document_Kind::Scenario, directory / "focus" / "*.sze").Keep(session);
    return std::make_unique<Unsaved_List>(session);
}

void Run_Whole_Assessment(const std::string& at, const fs::path& installation, const fs::path& single)
{
    for (const auto* pesticide : {"demo_A", "demo_B", "demo_C", "demo_D"})
        Orvelctl(at + " mark --mode focus --all --crop \"Winter cereals\" --replace --pesticide " + pesticide + ".psm");
    Orvelctl(at + " start --mode focus --wait");
    Orvelctl(at + " mark --mode efsa --all --crop \"Winter cereals\" --pesticide demo_S.psm");
    Orvelctl(at + " start --mode efsa --wait");
    fs::create_directory(single);
    fs::copy_file(installation / "demo_C.psm", single / "demo_C.psm");
    for (const auto* name : {"H_wcerea.sze", "H_01.cli", "H_02.cli", "H_03.cli"})
        fs::copy_file(installation / "focus" / name, single / name);
    Orvelctl("-C " + installation.string() +
                 " single --pesticide demo_C.psm --scenario H_wcerea.sze --climate H_01.cli --climate H_02.cli" +
                 " --climate H_03.cli --years 3 --from 01.01 --to 31.12 --wait",
             single);
}

// A session in a directory of its own where there is one, which outlives its window.
Session& Session_In(const fs::path& directory, Session& session)
{
    static std::unique_ptr<Session> own;
    if (!fs::exists(directory))
        return session;
    own = std::make_unique<Session>(session);
    own->Program.App_Path = directory;
    return *own;
}

} // namespace

Temporary_Directory* Windows_Test::Place = nullptr;

void Windows_Test::SetUpTestSuite()
{
    Place = new Temporary_Directory;
    const std::string at = " -C " + Installation().string();
    Orvelctl("init " + Installation().string());
    Orvelctl(at + " mark --mode focus --pesticide demo_D.psm --crop \"Winter cereals\" --location \"Hamburg (H)\"");
    Orvelctl(at + " start --mode focus --wait");
    const std::string plan = (Base() / "window.csv").string();
    Orvelctl(at +
             " plan sweep --mode focus --pesticide demo_D.psm --crop \"Winter cereals\" --location \"Hamburg (H)\"" +
             " --shift -7:7:7 --factor psm.Koc[1]=0.5,1 --to " + plan);
    Orvelctl(at + " plan run " + plan + " --to " + (Base() / "window").string() + " --wait");
    if (Is_Whole())
        Run_Whole_Assessment(at, Installation(), Single());
}

bool Windows_Test::Is_Whole()
{
    return std::getenv("ORVEL_WHOLE_ASSESSMENT") != nullptr;
}

fs::path Windows_Test::Base()
{
    return Is_Whole() ? fs::path(std::getenv("ORVEL_WHOLE_ASSESSMENT")) : Place->Path();
}

fs::path Windows_Test::Soil_Run()
{
    return Is_Whole() ? Installation() / "EFSA/demo_S.run/Winter_-_cereals.run/Total_-_content_-_-_-_North_-_(T_N).run"
                      : Run();
}

fs::path Windows_Test::Single()
{
    return Base() / "single";
}

void Windows_Test::TearDownTestSuite()
{
    delete Place;
}

Windows_Test::Windows_Test()
{
    The_Session.Program.App_Path = Installation();
    Start_Up(The_Session);
    Parse_PSM(Read_Whole(Installation() / (Is_Whole() ? "demo_C.psm" : "demo_D.psm")), The_Session.Pesticide);
    Reset_SZE(The_Session.Scenario);
    Parse_SZE(Read_Whole(Installation() / "focus/H_wcerea.sze"), The_Session.Scenario);
    The_Session.Climate = Parse_CLI(Read_Whole(Installation() / "focus/H_01.cli"));
}

fs::path Windows_Test::Installation()
{
    return Base() / "installation";
}

fs::path Windows_Test::Run()
{
    return Installation() / "focus/demo_D.run/Winter_-_cereals.run/Hamburg_-_(H).run";
}

std::vector<Opened_Window> Windows_Test::All()
{
    const auto& focus = Mode_Of(Mode_Kind::Focus);
    const std::string echo = Read_Whole(Run() / "echo.orv");
    return {
        {"welcome",
         [](Session& session) -> std::unique_ptr<QWidget> {
             return std::make_unique<Welcome>(std::vector<std::filesystem::path>(), session.Ask, "/home/me/ORVELSUITE");
         }},
        Plain<Start>("start"),
        Plain<Form_name>("form_name"),
        {"installation_check",
         [](Session& session) -> std::unique_ptr<QWidget> {
             Find_Engine(session.Program);
             return std::make_unique<Installation_Check>(Examine(session.Program));
         }},
        {"versionsinfo", [](Session&) -> std::unique_ptr<QWidget> { return std::make_unique<Versionsinfo>(); }},
        {"unsaved_list", Opened_Unsaved_List},
        Plain<FOCUS>("focus", std::cref(focus), Run_Windows()),
        Plain<FOCUS>("efsa", std::cref(Mode_Of(Mode_Kind::Efsa)), Run_Windows()),
        Plain<FOCUS>("efsa_t4", std::cref(Mode_Of(Mode_Kind::Efsa_T4)), Run_Windows()),
        {"form_end",
         [](Session& session) -> std::unique_ptr<QWidget> {
             session.Run.Single = {.Sim_Years = "3", .Start_Day = "1", .End_Day = "31"};
             return std::make_unique<form_end>(Session_In(Single(), session), Run_Windows());
         }},
        {"ausgabe_festlegen",
         [](Session& session) -> std::unique_ptr<QWidget> {
             return std::make_unique<Ausgabe_festlegen>(session.Output);
         }},
        {"dialog", [](Session&) -> std::unique_ptr<QWidget> { return std::make_unique<Dialog>(); }},
        Plain<Analyse>("analyse", std::cref(focus)),
        Plain<Simulationsliste>("simulationsliste", std::cref(focus)),
        Plain<Overview_Window>("overview", Mode_Kind::Focus),
        Plain<Jahr_ORV>("jahr_orv", Run()),
        Plain<Mass_Balance>("mass_balance", Run()),
        Plain<PECsoil>("pecsoil", Soil_Run(), 5),
        {"zusammenfassung",
         [&focus](Session& session) -> std::unique_ptr<QWidget> {
             return std::make_unique<Zusammenfassung_orv>(session,
                                                          Request_Summary(session, focus, "demo_D", "Winter cereals"),
                                                          Zusammenfassung_orv::Archive_Opener());
         }},
        Plain<Archives>("archives"),
        Plain<Plans_Window>("plans"),
        {"plans_window",
         [](Session& session) -> std::unique_ptr<QWidget> {
             auto window = std::make_unique<Plans_Window>(session);
             window->Open(Base() / "window");
             auto* table = Find<QTableView>(*window, "Table");
             if (!QTest::qWaitFor([&] { return table->model()->rowCount() == 6 && table->model()->columnCount() > 6; }))
                 throw std::runtime_error("the plan is not shown");
             auto* kinds = Find<QComboBox>(*window, "Kind");
             kinds->setCurrentIndex(2);
             emit kinds->activated(2);
             return window;
         }},
        {"sweep",
         [](Session& session) -> std::unique_ptr<QWidget> {
             return std::make_unique<Sweep_Form>(session.Program, session.Ask, nullptr);
         }},
        {"inout_sel",
         [](Session& session) -> std::unique_ptr<QWidget> {
             return std::make_unique<inout_sel>(Session_In(Single(), session));
         }},
        {"form_filetext",
         [echo](Session& session) -> std::unique_ptr<QWidget> {
             return std::make_unique<Form_filetext>(session, Run() / "echo.orv", echo);
         }},
        {"echo_orv",
         [echo](Session& session) -> std::unique_ptr<QWidget> {
             return std::make_unique<Echo_ORV>(echo, session.Ask);
         }},
        {"jahresbilanz",
         [](Session& session) -> std::unique_ptr<QWidget> {
             return std::make_unique<Jahresbilanz>(Build_Or_Load_Balance(Run(), Balance_View::Annual), session.Ask);
         }},
        {"jahresdiagramm",
         [](Session& session) -> std::unique_ptr<QWidget> {
             return std::make_unique<Jahresdiagramm>(Build_Or_Load(Run()), session.Ask);
         }},
        {"taegliches_diagramm",
         [](Session& session) -> std::unique_ptr<QWidget> {
             return std::make_unique<taegliches_Diagramm_neu>(
                 session.Ask,
                 Daily_Choice{.Run_Directory = Run(),
                              .Calendar = Installation() / "focus" / "datum.dat",
                              .Column = 1,
                              .Item = "Percolate at 100.0 cm ",
                              .Request = {.Variable = 3, .Cumulative = true, .From = {1, 1}, .To = {12, 3}}});
         }},
        Plain<Form_PSM_Open>("form_psm_open", "*.psm", Installation()),
        Plain<Form_PSM_1>("form_psm_1", Installation()),
        Plain_Transformation("deg_dat_active_substance", 1),
        Plain_Transformation("deg_dat_metabolite", 6),
        {"form_hor",
         [](Session& session) -> std::unique_ptr<QWidget> {
             Reset_Horizon_Table(session.Pesticide, 5);
             session.Pesticide.N_Horizons = 5;
             return std::make_unique<Form_hor>(session, 1, 5);
         }},
        Plain<Form_hor>("form_hor_d2", 9, 3),
        {"form_appgrid",
         [](Session& session) -> std::unique_ptr<QWidget> {
             session.Editor.App_Current_Location = 1;
             return std::make_unique<Form_appgrid>(session, "26", Application_Method::Soil);
         }},
        Plain<KOC_PH>("koc_ph", 1, "120"),
        Plain<kin_Sorption>("kin_sorption", 1),
        Plain<Plant_App>("plant_app", Application_Method::Exponential),
        {"form_as", [](Session& session) -> std::unique_ptr<QWidget> { return Opened_Substance(session); }},
        {"form_as_relative",
         [](Session& session) -> std::unique_ptr<QWidget> {
             session.Pesticide.App_Mode = App_Mode_Relative;
             session.Pesticide.App_Method = 4;
             return Opened_Substance(session);
         }},
        {"form_as_notes",
         [](Session& session) -> std::unique_ptr<QWidget> {
             const auto directory = Base() / "notes";
             fs::create_directories(directory);
             Document_Notes notes;
             for (const auto* field : {"Koc[1]", "Molmass[1]", "Vap_Press[0]"})
                 Set_Note(notes, field, {.Source = "study 12, p. 4", .Checked_By = "M"});
             Write_Notes(directory / "demo_D.psm", notes);
             session.Program.PSM_File = "demo_D.psm";
             static std::unique_ptr<Form_PSM_1> scheme; // holds the notes
             scheme = std::make_unique<Form_PSM_1>(session, directory);
             Open_Active_Substance(session);
             auto form = std::make_unique<Form_AS>(session, scheme.get());
             scheme->setAttribute(Qt::WA_DontShowOnScreen);
             return form;
         }},
        {"source_window",
         [](Session&) -> std::unique_ptr<QWidget> {
             return std::make_unique<Source_Window>(
                 "Degradation[1][5].Deg_Rate", "0.0346574 1/d",
                 Field_Note{.Source = "study 12, geometric mean of 4 soils, normalised to 20 \xB0"
                                      "C and pF 2",
                            .Checked_By = "M"});
         }},
        {"guidance_window",
         [](Session& session) -> std::unique_ptr<QWidget> {
             session.Pesticide.Plant_Uptake[1] = 0.5;
             session.Pesticide.Photo_Rate[1] = 0.1;
             return std::make_unique<Guidance_Window>(Guidance_Window::Access{
                 [&session] {
                     Document_Notes notes;
                     Set_Answer(notes, {.Rule = "P1.1",
                                        .Field = "Plant_Uptake[1]",
                                        .Value = "0.5",
                                        .Text = "measured in maize, study 14",
                                        .By = "M",
                                        .Date = "2026-11-22"});
                     return Check_Guidance(Parse_Guidance(Shipped_Guidance()), Facts_Of(session.Pesticide), notes);
                 },
                 [](const Guidance_Answer&) { return true; }});
         }},
        {"andere_standorte",
         [](Session&) -> std::unique_ptr<QWidget> {
             return std::make_unique<andere_Standorte>(Location_Kind::Leaching, Names{"Hamburg (H)"});
         }},
        {"andere_standorte_soil",
         [](Session&) -> std::unique_ptr<QWidget> {
             return std::make_unique<andere_Standorte>(Location_Kind::Soil, Names{"Total content - North (T_N)"});
         }},
        {"form_met",
         [](Session& session) -> std::unique_ptr<QWidget> {
             session.Editor.Substance_Index = 2;
             return std::make_unique<Form_MET>(session);
         }},
        Plain<Form_Saving>("form_saving", Document_Kind::Pesticide, Installation()),
        Plain<Szenario>("szenario", Installation() / "focus"),
        {"klimagrafik",
         [](Session& session) -> std::unique_ptr<QWidget> {
             static const Climate_Grid grid(session.Climate);
             return std::make_unique<Klimagrafik>(grid, 3, session.Ask);
         }},
        Plain<Klima>("klima", Installation() / "focus"),
        Plain<form_soil_hor>("form_soil_hor"),
        Plain<Form_eros>("form_eros"),
        Plain<Macro>("macro"),
        Plain<Form_rot>("form_rot", Installation()),
        {"form_difcrop",
         [](Session& session) -> std::unique_ptr<QWidget> {
             static Rotation_Work work; // outlives its form
             work = Load_Rotation(session.Scenario, Read_Crop_Data(session, Installation()));
             return std::make_unique<Form_DifCrop>(session, work);
         }},
        {"fehler_in_simulation",
         [echo](Session& session) -> std::unique_ptr<QWidget> {
             return std::make_unique<Fehler_in_Simulation>(echo + "ERROR 21\r\n", session.Ask);
         }},
        Plain<Put_Back_List>("put_back_list", std::cref(focus)),
        Plain<Analyse>("analyse_efsa", std::cref(Mode_Of(Mode_Kind::Efsa))),
        Plain<Mass_Balance>("mass_balance_user", Run(), nullptr, Balance_View::Monthly),
        // The same forms with all that they can show.
        {"form_end_archive",
         [](Session& session) -> std::unique_ptr<QWidget> {
             return Pressed(std::make_unique<form_end>(session, Run_Windows()), {"Command7"});
         }},
        {"form_as_all",
         [](Session& session) -> std::unique_ptr<QWidget> {
             return Pressed(Opened_Substance(session), {"Command4", "tiefenabhaengig_2", "App_Flag4"});
         }},
        {"koc_ph_dissociating",
         [](Session& session) -> std::unique_ptr<QWidget> {
             session.Pesticide.Sorp_pKa[1] = 4.5;
             session.Pesticide.Sorp_pH2[1] = 7;
             return std::make_unique<KOC_PH>(session, 1, "120");
         }},
        {"szenario_all",
         [](Session& session) -> std::unique_ptr<QWidget> {
             return Pressed(std::make_unique<Szenario>(session, fs::path()),
                            {"schnelle_Prozesse_0", "schnelle_Prozesse_1", "doc_check", "Check_er"});
         }},
        {"deg_dat_individual",
         [](Session& session) -> std::unique_ptr<QWidget> {
             Open_Transformation(session, 2);
             return Pressed(std::make_unique<deg_dat>(session), {"Korrektur_2"});
         }},
        {"klima_empty",
         [](Session& session) -> std::unique_ptr<QWidget> {
             session.Climate = {};
             return std::make_unique<Klima>(session, fs::path());
         }},
    };
}

std::unique_ptr<QWidget> Windows_Test::Shown_Window(const Opened_Window& opened)
{
    auto window = opened.Open(The_Session);
    window->show();
    window->activateWindow();
    if (!QTest::qWaitForWindowActive(window.get()) || !QTest::qWaitFor([&] { return !Is_At_Work(*window); }, Patience))
        throw std::runtime_error(opened.Name.toStdString() + " does not come to rest");
    return window;
}

QString Place_Of(const QWidget& control)
{
    QString text;
    if (const auto* button = qobject_cast<const QAbstractButton*>(&control))
        text = button->text();
    if (const auto* label = qobject_cast<const QLabel*>(&control))
        text = label->text();
    return QString("%1 \"%2\"").arg(control.objectName(), text);
}

bool Is_At_Work(const QWidget& window)
{
    if (dynamic_cast<const Overview_Window*>(&window)) { // until its survey has told all
        const QString status = Find<QLabel>(window, "Status")->text();
        if (status.isEmpty() || status.endsWith("..."))
            return true;
    }
    for (const auto* bar : window.findChildren<QProgressBar*>())
        if (bar->isVisible() && !bar->objectName().isEmpty() && bar->maximum() == 0)
            return true;
    return false;
}

QPalette Dark()
{
    QPalette dark(QColor(45, 48, 52), QColor(35, 38, 41));
    dark.setColor(QPalette::Base, QColor(27, 30, 32));
    dark.setColor(QPalette::AlternateBase, QColor(35, 38, 41));
    dark.setColor(QPalette::Highlight, QColor(61, 174, 233));
    dark.setColor(QPalette::Link, QColor(29, 153, 243));
    dark.setColor(QPalette::PlaceholderText, QColor(160, 165, 170));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        dark.setColor(QPalette::Disabled, role, QColor(110, 115, 120));
    return dark;
}

} // namespace orvel
