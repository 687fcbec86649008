// Every window as it opens in an installation with one finished run. With ORVEL_PICTURES=DIR it leaves a picture of
// each there, light and dark; QT_SCALE_FACTOR=2 draws them for a fine screen. ORVEL_WHOLE_ASSESSMENT=DIR fills them,
// for the pictures of the guide.
#include "core/files.h"
#include "core/numbers.h"
#include "desktop/forms/form_name.h"
#include "desktop/forms/installation_check.h"
#include "desktop/forms/start.h"
#include "desktop/forms/versionsinfo.h"
#include "desktop/forms/welcome.h"
#include "desktop/forms/windows.h"
#include "documents/forms/form_psm_open.h"
#include "evaluation/forms/analyse.h"
#include "evaluation/forms/inout_sel.h"
#include "evaluation/forms/overview_window.h"
#include "evaluation/forms/put_back_list.h"
#include "evaluation/forms/simulationsliste.h"
#include "files/climate_file.h"
#include "files/forms/form_saving.h"
#include "files/pesticide_file.h"
#include "files/scenario_file.h"
#include "guide_of_windows.h"
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
#include "ui/forms/guide_opening.h"
#include "ui/forms/number_edit.h"
#include "ui/forms/undo_history.h"
#include "ui/forms/widgets.h"
#include "ui/guide.h"
#include "window_test.h"

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <map>
#include <QAbstractButton>
#include <QApplication>
#include <QDesktopServices>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTextBrowser>
#include <QToolButton>

namespace orvel {

namespace fs = std::filesystem;

namespace {

struct Opened_Window {
    QString Name; // of the picture
    std::function<std::unique_ptr<QWidget>(Session&)> Open;
};

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

class Windows_Test : public Window_Test {
protected:
    static void SetUpTestSuite()
    {
        Place = new Temporary_Directory;
        const std::string at = " -C " + Installation().string();
        Orvelctl("init " + Installation().string());
        Orvelctl(at + " mark --mode focus --pesticide demo_D.psm --crop 'Winter cereals' --location 'Hamburg (H)'");
        Orvelctl(at + " start --mode focus --wait");
        const std::string plan = (Base() / "window.csv").string();
        Orvelctl(at +
                 " plan sweep --mode focus --pesticide demo_D.psm --crop 'Winter cereals' --location 'Hamburg (H)'" +
                 " --shift -7:7:7 --factor 'psm.Koc[1]=0.5,1' --to " + plan);
        Orvelctl(at + " plan run " + plan + " --to " + (Base() / "window").string() + " --wait 2>&1");
        if (Is_Whole())
            Run_Whole_Assessment(at);
    }
    static bool Is_Whole() { return std::getenv("ORVEL_WHOLE_ASSESSMENT") != nullptr; }
    static fs::path Base() { return Is_Whole() ? fs::path(std::getenv("ORVEL_WHOLE_ASSESSMENT")) : Place->Path(); }
    static void Run_Whole_Assessment(const std::string& at)
    {
        for (const auto* pesticide : {"demo_A", "demo_B", "demo_C", "demo_D"})
            Orvelctl(at + " mark --mode focus --all --crop 'Winter cereals' --replace --pesticide " + pesticide +
                     ".psm");
        Orvelctl(at + " start --mode focus --wait 2>&1");
        Orvelctl(at + " mark --mode efsa --all --crop 'Winter cereals' --pesticide demo_S.psm");
        Orvelctl(at + " start --mode efsa --wait 2>&1");
        fs::create_directory(Single());
        fs::copy_file(Installation() / "demo_C.psm", Single() / "demo_C.psm");
        for (const auto* name : {"H_wcerea.sze", "H_01.cli", "H_02.cli", "H_03.cli"})
            fs::copy_file(Installation() / "focus" / name, Single() / name);
        const std::string in = "cd " + Single().string() + " && " + ORVELCTL + " -C " + Installation().string();
        ASSERT_EQ(
            std::system(
                (in + " single --pesticide demo_C.psm --scenario H_wcerea.sze --climate H_01.cli" +
                 " --climate H_02.cli --climate H_03.cli --years 3 --from 01.01 --to 31.12 --wait >/dev/null 2>&1")
                    .c_str()),
            0);
    }
    static void TearDownTestSuite() { delete Place; }

    Windows_Test()
    {
        The_Session.Program.App_Path = Installation();
        Start_Up(The_Session);
        Parse_PSM(Read_Whole(Installation() / (Is_Whole() ? "demo_C.psm" : "demo_D.psm")), The_Session.Pesticide);
        Reset_SZE(The_Session.Scenario);
        Parse_SZE(Read_Whole(Installation() / "focus/H_wcerea.sze"), The_Session.Scenario);
        The_Session.Climate = Parse_CLI(Read_Whole(Installation() / "focus/H_01.cli"));
    }

    static void Orvelctl(const std::string& arguments)
    {
        ASSERT_EQ(std::system((std::string(ORVELCTL) + " " + arguments + " >/dev/null").c_str()), 0) << arguments;
    }

    static fs::path Installation() { return Base() / "installation"; }
    static fs::path Run() { return Installation() / "focus/demo_D.run/Winter_-_cereals.run/Hamburg_-_(H).run"; }

    static fs::path Soil_Run()
    {
        return Is_Whole()
                   ? Installation() / "EFSA/demo_S.run/Winter_-_cereals.run/Total_-_content_-_-_-_North_-_(T_N).run"
                   : Run();
    }
    static fs::path Single() { return Base() / "single"; }

    std::vector<Opened_Window> All() const;
    void Look_At_All(const QString& picture_suffix);

    static Temporary_Directory* Place;
};
Temporary_Directory* Windows_Test::Place = nullptr;

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

std::vector<Opened_Window> Windows_Test::All() const
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
        Plain<Versionsinfo>("versionsinfo"),
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

QString Place_Of(const QWidget& control)
{
    QString text;
    if (const auto* button = qobject_cast<const QAbstractButton*>(&control))
        text = button->text();
    if (const auto* label = qobject_cast<const QLabel*>(&control))
        text = label->text();
    return QString("%1 \"%2\"").arg(control.objectName(), text);
}

// Whether a text lies on or below another control of its window.
bool Overlaps(const QLabel& label)
{
    if (label.text().isEmpty() && label.pixmap().isNull())
        return false;
    const auto siblings = label.parentWidget()->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    return std::ranges::any_of(siblings, [&](const QWidget* other) {
        return other != &label && other->isVisible() && !other->isWindow() &&
               other->geometry().intersects(label.geometry());
    });
}

// Labels and buttons that have less room than their text needs or lie on others, and table columns narrower than their
// headings.
QStringList Cut_In(const QWidget& window)
{
    QStringList cut;
    for (const auto* control : window.findChildren<QWidget*>()) {
        if (!control->isVisible() || qobject_cast<const QLineEdit*>(control->parentWidget())) // a mark in a field
            continue;
        const auto* label = qobject_cast<const QLabel*>(control);
        if ((label && !label->wordWrap()) || qobject_cast<const QAbstractButton*>(control)) {
            const QSize needed = control->minimumSizeHint().expandedTo(label ? control->sizeHint() : QSize());
            if (control->width() < needed.width() || control->height() < needed.height())
                cut << Place_Of(*control);
        }
        if (label &&
            ((label->wordWrap() && label->height() < label->heightForWidth(label->width())) || Overlaps(*label)))
            cut << Place_Of(*control);
        if (const auto* table = qobject_cast<const QTableView*>(control); table && table->model()) {
            const auto* heads = table->horizontalHeader();
            for (int column = 0; column < table->model()->columnCount(); ++column)
                if (heads->isVisible() && !heads->isSectionHidden(column) &&
                    heads->sectionSize(column) < heads->sectionSizeHint(column))
                    cut << table->objectName() + ": " + table->model()->headerData(column, Qt::Horizontal).toString();
        }
    }
    return cut;
}

// The least screen that every window is made for, without the title of the window.
constexpr QSize Least_Screen(1280, 690);

bool Can_Be_Tabbed_To(const QWidget& control)
{
    const auto* option = qobject_cast<const QRadioButton*>(&control);
    return control.isVisible() && control.isEnabled() && !control.focusProxy() &&
           (option ? option->isChecked() : (control.focusPolicy() & Qt::TabFocus) != 0);
}

// A control for a hand that Tab passes over.
bool Is_Passed_Over(const QWidget& control)
{
    const auto* box = qobject_cast<const QLineEdit*>(&control);
    const bool is_for_a_hand = (box && !box->isReadOnly()) || qobject_cast<const QComboBox*>(&control) ||
                               qobject_cast<const QListWidget*>(&control) || qobject_cast<const QPushButton*>(&control);
    return is_for_a_hand && control.isVisible() && control.isEnabled() && !control.focusProxy() &&
           (control.focusPolicy() & Qt::TabFocus) == 0;
}

// The key that a caption underlines: of a button, or of a label that leads to a control.
QKeySequence Mnemonic_Of(const QWidget& control)
{
    if (const auto* button = qobject_cast<const QAbstractButton*>(&control))
        return QKeySequence::mnemonic(button->text());
    if (const auto* label = qobject_cast<const QLabel*>(&control); label && label->buddy())
        return QKeySequence::mnemonic(label->text());
    if (const auto* group = qobject_cast<const QGroupBox*>(&control))
        return QKeySequence::mnemonic(group->title());
    return {};
}

QStringList Doubled_Mnemonics(const QWidget& window)
{
    std::map<QString, QStringList> places;
    for (const auto* control : window.findChildren<QWidget*>()) {
        if (const auto key = Mnemonic_Of(*control); control->isVisible() && !key.isEmpty())
            places[key.toString()] << Place_Of(*control);
    }
    QStringList doubled;
    for (const auto& [key, controls] : places) {
        if (controls.size() > 1)
            doubled << key + ": " + controls.join(", ");
    }
    return doubled;
}

// Controls in the order in which the Tab key meets them.
std::vector<QWidget*> Tabbed(QWidget& window)
{
    std::vector<QWidget*> met;
    for (auto* at = window.focusWidget(); at && std::ranges::find(met, at) == met.end() && met.size() < 300U;
         at = window.focusWidget()) {
        met.push_back(at);
        QTest::keyClick(at, Qt::Key_Tab);
    }
    return met;
}

int Middle_Of(const QWidget& window, const QWidget& control)
{
    return control.mapTo(&window, control.rect().center()).y();
}

// The buttons of the lowest row: those that save, run and close.
std::vector<QWidget*> Foot_Of(const QWidget& window)
{
    std::vector<QWidget*> foot;
    int lowest = 0;
    for (auto* button : window.findChildren<QPushButton*>()) {
        if (button->isVisible())
            lowest = std::max(lowest, Middle_Of(window, *button));
    }
    for (auto* button : window.findChildren<QAbstractButton*>()) {
        if (button->isVisible() && lowest - Middle_Of(window, *button) < button->height())
            foot.push_back(button);
    }
    return foot;
}

// What the Tab key does not reach, the first focus on a button of the foot, and what it reaches only behind the foot.
QStringList Wrong_In_The_Tab_Order(QWidget& window)
{
    QStringList wrong;
    const auto met = Tabbed(window);
    const auto foot = Foot_Of(window);
    const auto is_met = [&](const QWidget* control) { return std::ranges::find(met, control) != met.end(); };
    const auto in_foot = [&](const QWidget* control) { return std::ranges::find(foot, control) != foot.end(); };
    int others = 0;
    for (auto* control : window.findChildren<QWidget*>()) {
        if (Is_Passed_Over(*control))
            wrong << "passed over: " + Place_Of(*control);
        if (!Can_Be_Tabbed_To(*control))
            continue;
        others += in_foot(control) ? 0 : 1;
        if (!is_met(control))
            wrong << "not met: " + Place_Of(*control) + " " + control->metaObject()->className();
    }
    if (!met.empty() && others > 0 && in_foot(met.front()))
        wrong << "first: " + Place_Of(*met.front());
    const auto first_of_foot = std::ranges::find_if(met, in_foot);
    for (auto at = first_of_foot; at != met.end(); ++at) {
        if (!in_foot(*at) && std::find_if(at, met.end(), in_foot) != met.end())
            wrong << "behind the foot: " + Place_Of(**at);
    }
    return wrong;
}

// Controls in which Enter closes the window, opens another one or brings a message.
QStringList Surprised_By_Enter(QWidget& window, const Recording_User& user)
{
    QStringList surprised;
    for (auto* control : window.findChildren<QWidget*>()) {
        if (!Can_Be_Tabbed_To(*control) || qobject_cast<QPushButton*>(control) || qobject_cast<QToolButton*>(control))
            continue;
        const auto told = user.Messages.size();
        control->setFocus();
        QTest::keyClick(control, Qt::Key_Return);
        if (!window.isVisible() || user.Messages.size() > told) {
            surprised << Place_Of(*control);
            window.show();
        }
    }
    return surprised;
}

// Types into every box and the first row of every grid; returns how many there were.
int Type_Everywhere(QWidget& window, const char* number)
{
    int typed = 0;
    for (auto* box : window.findChildren<QLineEdit*>()) {
        if (!box->isVisible() || !box->isEnabled() || box->isReadOnly())
            continue;
        box->setFocus();
        box->selectAll();
        QTest::keyClicks(box, number);
        QTest::keyClick(box, Qt::Key_Tab);
        ++typed;
    }
    for (auto* grid : window.findChildren<QTableView*>()) {
        for (int column = 0; grid->isVisible() && grid->model() && column < grid->model()->columnCount(); ++column) {
            grid->setCurrentIndex(grid->model()->index(0, column));
            QTest::keyClicks(grid, number);
            ++typed;
        }
    }
    return typed;
}

// What the controls of an editor show, each with its name, and whether it can be used.
QStringList Shown_Values(const QWidget& window)
{
    QStringList values;
    for (const auto* control : window.findChildren<QWidget*>()) {
        QString value;
        if (const auto* box = qobject_cast<const QLineEdit*>(control))
            value = box->text();
        else if (const auto* list = qobject_cast<const QComboBox*>(control))
            value = list->currentText();
        else if (const auto* option = qobject_cast<const QAbstractButton*>(control); option && option->isCheckable())
            value = option->isChecked() ? "set" : "not set";
        else
            continue;
        values << control->objectName() + " = " + value + (control->isVisible() ? "" : ", hidden") +
                      (control->isEnabled() ? "" : ", grey");
    }
    return values;
}

// A number that is shown anew may be written otherwise: 2 as 2.00E+00.
bool Same_Value(const QString& one, const QString& other)
{
    bool is_number = false, both = false;
    const double first = one.section(" = ", 1).toDouble(&is_number), second = other.section(" = ", 1).toDouble(&both);
    return one == other ||
           (is_number && both && first == second && one.section(" = ", 0, 0) == other.section(" = ", 0, 0));
}

QString Changed_Values(const QStringList& wanted, const QStringList& found)
{
    QStringList different;
    for (qsizetype i = 0; i < wanted.size(); ++i) {
        if (!Same_Value(found.value(i), wanted[i]))
            different << wanted[i] + " became " + found.value(i);
    }
    return different.join("; ");
}

// By hand: types into the boxes, chooses another entry of the lists and clicks the options.
void Change_Everything(QWidget& window)
{
    for (auto* control : window.findChildren<QWidget*>()) {
        if (!control->isVisible() || !control->isEnabled())
            continue;
        auto* box = qobject_cast<QLineEdit*>(control);
        auto* list = qobject_cast<QComboBox*>(control);
        auto* option = qobject_cast<QAbstractButton*>(control);
        if (box && !box->isReadOnly() && box->objectName() != "Text_peup") { // it belongs to no record
            box->setFocus();
            box->selectAll();
            QTest::keyClicks(box, "2");
            QTest::keyClick(box, Qt::Key_Tab);
        } else if (list && list->count() > 1) {
            list->setFocus();
            QTest::keyClick(list, list->currentIndex() > 0 ? Qt::Key_Up : Qt::Key_Down);
        } else if (option && option->isCheckable()) {
            QTest::mouseClick(option, Qt::LeftButton, {}, QPoint(5, option->height() / 2));
        }
        QTest::qWait(1);
    }
}

// They run an engine or a browser, or take the run away that every window shows.
bool Is_Left_Alone(const QWidget& button)
{
    return QStringList{"s_run", "Command4", "Loeschen", "Guide_Button", "Open_Guide"}.contains(button.objectName());
}

bool Is_At_Work(const QWidget& window)
{
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

void Keep_Picture(QWidget& window, const QString& name)
{
    if (const char* directory = std::getenv("ORVEL_PICTURES"))
        window.grab().save(QString::fromUtf8(directory) + "/" + name + ".png");
}

void Windows_Test::Look_At_All(const QString& picture_suffix)
{
    for (const auto& opened : All()) {
        SCOPED_TRACE(opened.Name.toStdString());
        const auto window = opened.Open(The_Session);
        window->show();
        QTest::qWait(Is_Whole() ? 2000 : 50); // until its threads have read the runs
        ASSERT_TRUE(QTest::qWaitFor([&] { return !Is_At_Work(*window); }));
        Keep_Picture(*window, opened.Name + picture_suffix);
        EXPECT_EQ(Cut_In(*window).join("; ").toStdString(), "");
    }
}

} // namespace

// A file dialog does what its list or name says: it opens or saves the file. A page of buttons has nothing but buttons.
TEST_F(Windows_Test, Can_Be_Used_By_The_Keyboard_Alone_On_A_Small_Screen)
{
    const QStringList enter_does_what_it_says = {"form_saving", "form_psm_open", "simulationsliste", "form_psm_1",
                                                 "focus",       "efsa",          "efsa_t4"};
    for (const auto& opened : All()) {
        SCOPED_TRACE(opened.Name.toStdString());
        const auto window = opened.Open(The_Session);
        window->show();
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
        ASSERT_TRUE(QTest::qWaitFor([&] { return !Is_At_Work(*window); }));
        window->resize(window->size().boundedTo(Least_Screen));
        QTest::qWait(20);

        EXPECT_LE(window->minimumSizeHint().width(), Least_Screen.width());
        EXPECT_LE(window->height(), Least_Screen.height());
        EXPECT_EQ(Cut_In(*window).join("; ").toStdString(), "");
        EXPECT_EQ(Doubled_Mnemonics(*window).join("; ").toStdString(), "");
        EXPECT_EQ(Wrong_In_The_Tab_Order(*window).join("; ").toStdString(), "");
        if (!enter_does_what_it_says.contains(opened.Name)) {
            EXPECT_EQ(Surprised_By_Enter(*window, The_User).join("; ").toStdString(), "");
        }
    }
}

// Every box, list and option of every editor is changed once, as far as its rules let it, and all is taken back.
TEST_F(Windows_Test, Take_Back_Every_Change_And_Make_It_Again)
{
    int editors = 0, changes = 0;
    for (const auto& opened : All()) {
        SCOPED_TRACE(opened.Name.toStdString());
        const auto window = opened.Open(The_Session);
        auto* undo = window->findChild<QToolButton*>("Undo");
        auto* redo = window->findChild<QToolButton*>("Redo");
        if (!undo || opened.Name == "form_psm_1") // which has only a picture
            continue;
        ++editors;
        window->show();
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
        const auto undo_all = [&] {
            int steps = 0;
            for (; undo->isEnabled() && steps <= Most_Changes_Kept; ++steps)
                QTest::keyClick(window.get(), Qt::Key_Z, Qt::ControlModifier);
            return steps;
        };
        QTest::qWait(1);
        undo_all(); // what opened further parts of the window
        const QStringList before = Shown_Values(*window);
        Change_Everything(*window);
        const QStringList after = Shown_Values(*window);
        EXPECT_NE(before.join('\n').toStdString(), after.join('\n').toStdString());
        const int steps = undo_all();
        EXPECT_FALSE(undo->isEnabled());
        EXPECT_GT(steps, 0);
        EXPECT_EQ(Changed_Values(before, Shown_Values(*window)).toStdString(), "");
        for (int step = 0; step < steps; ++step)
            QTest::keyClick(window.get(), Qt::Key_Y, Qt::ControlModifier);
        EXPECT_FALSE(redo->isEnabled());
        EXPECT_EQ(Changed_Values(after, Shown_Values(*window)).toStdString(), "");
        changes += steps;
    }
    EXPECT_GE(editors, 17);
    EXPECT_GT(changes, 100);
}

// Every table and the report, printed and read back.
TEST_F(Windows_Test, A_Printed_Table_Has_All_That_Its_Window_Shows)
{
    const Temporary_Directory place;
    int tables = 0;
    for (const auto& opened : All()) {
        if (!QStringList{"jahr_orv", "mass_balance", "pecsoil", "zusammenfassung", "echo_orv"}.contains(opened.Name))
            continue;
        SCOPED_TRACE(opened.Name.toStdString());
        const auto window = opened.Open(The_Session);
        window->show();
        ASSERT_TRUE(QTest::qWaitFor([&] { return !window->findChild<QPlainTextEdit*>()->toPlainText().isEmpty(); }));
        for (const auto* text : window->findChildren<QPlainTextEdit*>()) {
            const auto words = text->toPlainText().simplified().split(' ');
            const QString read = Text_Of_Pdf(Printed(place / "table.pdf", text->toPlainText())).simplified() + " ";
            qsizetype at = 0;
            for (const auto& word : words) {
                at = read.indexOf(word + " ", at);
                ASSERT_GE(at, 0) << word.toStdString() << " is not on the pages";
            }
            tables += words.size() > 20 ? 1 : 0;
        }
    }
    EXPECT_GE(tables, 6);
}

TEST_F(Windows_Test, Show_Every_Caption_Whole)
{
    Look_At_All("");
}

TEST_F(Windows_Test, Show_Every_Caption_Whole_In_A_Large_Font_And_Dark)
{
    const QFont font = QApplication::font();
    const QPalette palette = QApplication::palette();
    QFont large = font;
    large.setPointSizeF(font.pointSizeF() * 1.25);
    QApplication::setFont(large);
    Show_Outlines_In_The_Dark();
    QApplication::setPalette(Dark());
    Look_At_All("_dark");
    QApplication::setPalette(palette);
    QApplication::setFont(font);
}

TEST_F(Windows_Test, The_Overview_Of_The_Program_Archives_And_Compares)
{
    Open_Overview(The_Session, Mode_Kind::Focus);
    Overview_Window* overview = nullptr;
    for (auto* window : QApplication::topLevelWidgets())
        overview = overview ? overview : qobject_cast<Overview_Window*>(window);
    ASSERT_NE(overview, nullptr);
    const auto actions = overview->findChild<QMenu*>("Menu")->actions();
    QStringList keys;
    for (const auto* action : actions) {
        const auto key = action->text().indexOf('&');
        if (!action->isSeparator())
            keys << action->text().mid(key + 1, 1).toLower();
    }
    EXPECT_EQ(keys.removeDuplicates(), 0) << keys.join(' ').toStdString();
    for (const char* name : {"A_Archive", "A_Archives", "A_Compare"})
        EXPECT_TRUE(actions.contains(overview->findChild<QAction*>(name))) << name;
    overview->close();
}

// One window of plans, which stays open beside the others.
TEST_F(Windows_Test, The_Start_Form_Opens_The_Plans_Once)
{
    Start start(The_Session);
    start.show();
    const auto plans = [] {
        std::vector<Plans_Window*> open;
        for (auto* window : QApplication::topLevelWidgets()) {
            if (auto* found = qobject_cast<Plans_Window*>(window); found && found->isVisible())
                open.push_back(found);
        }
        return open;
    };

    Click<QPushButton>(start, "Plans_Button");
    Click<QPushButton>(start, "Plans_Button");

    ASSERT_EQ(plans().size(), 1U);
    EXPECT_FALSE(plans().front()->isModal());
    Click<QPushButton>(*plans().front(), "Done");
    EXPECT_TRUE(plans().empty());
}

// Whatever is typed, no box ends the program: numbers beyond the range of a double, and those whose sums are.
TEST_F(Windows_Test, Outlive_Any_Number_In_Any_Box_And_A_Press_Of_Every_Button)
{
    QTimer closer; // of what a button opens
    QObject::connect(&closer, &QTimer::timeout, [] {
        if (auto* menu = QApplication::activePopupWidget())
            menu->close();
        else if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
            dialog->reject();
    });
    closer.start(1);
    std::map<QString, int> boxes; // filled, by form
    for (const char* number : {"1e308", "-1e308", "1e999", "99999999999999999999"}) {
        for (const auto& opened : All()) {
            SCOPED_TRACE(opened.Name.toStdString() + " " + number);
            const auto session = std::make_unique<Session>(The_Session);
            const auto window = opened.Open(*session);
            window->show();
            ASSERT_TRUE(QTest::qWaitFor([&] { return !Is_At_Work(*window); }));

            int typed = Type_Everywhere(*window, number);
            for (auto* button : window->findChildren<QAbstractButton*>()) {
                if (!window->isVisible() || !button->isVisible() || !button->isEnabled() || Is_Left_Alone(*button))
                    continue;
                button->click();
                typed += Type_Everywhere(*window, number); // what it brought into view
            }
            boxes[opened.Name] += typed;
        }
    }
    for (const char* form :
         {"form_as", "form_as_relative", "form_end", "klima", "szenario", "form_hor", "form_appgrid"})
        EXPECT_GT(boxes[form], 0) << form;
}

// A window that is not described in docs/guide, with its picture and all that one can press or fill in, fails here.
TEST_F(Windows_Test, Are_Described_In_The_Guide_With_Picture_And_Every_Control)
{
    const fs::path guide = GUIDE;
    const auto places = Read_Places(guide / "windows.txt");
    const auto common = Read_Guide(guide, {"common.md"});
    for (const auto& opened : All()) {
        SCOPED_TRACE(opened.Name.toStdString());
        const auto window = opened.Open(The_Session);
        window->show();
        ASSERT_TRUE(QTest::qWaitFor([&] { return !Is_At_Work(*window); }));
        ASSERT_TRUE(places.contains(window->objectName())) << window->objectName().toStdString();

        const auto page = Read_Guide(guide, places.at(window->objectName()));

        EXPECT_TRUE(page.Text.contains("(pictures/" + opened.Name + ".png)"));
        QStringList missing;
        for (const auto& control : Controls_Of(*window)) {
            if (!Is_Described(control, common) && !Is_Described(control, page))
                missing << control.Caption + " [" + control.Unit + "] " + control.Control;
        }
        EXPECT_EQ(missing.join("\n").toStdString(), "");
    }
}

// The editors of a new document: what stands in a box is the default that the guide names.
TEST_F(Windows_Test, Begin_With_The_Defaults_Of_The_Guide)
{
    const auto places = Read_Places(fs::path(GUIDE) / "windows.txt");
    int boxes = 0;
    for (const auto& opened : All()) {
        if (!QStringList{"form_as_all", "form_met", "deg_dat_individual", "plant_app", "kin_sorption",
                         "koc_ph_dissociating", "szenario_all", "form_eros", "macro"}
                 .contains(opened.Name))
            continue;
        SCOPED_TRACE(opened.Name.toStdString());
        Reset_PSM(The_Session.Pesticide);
        The_Session.Pesticide.App_Mode = App_Mode_Relative;
        Reset_SZE(The_Session.Scenario);
        const auto window = opened.Open(The_Session);
        window->show();
        const auto guide = Read_Guide(GUIDE, places.at(window->objectName()));
        for (const auto& control : Controls_Of(*window)) {
            const auto* box = window->findChild<Number_Edit*>(control.Control);
            const QString value = box ? QString::fromStdString(General_Text(Val(Bytes_Of(box->text())))) : QString();
            if (!box || QStringList{"", "Text_peup", "s_KOC", "s_KOC2", "s_pH2", "s_pKa"}.contains(control.Control))
                continue;
            EXPECT_TRUE(Is_Default(control, value, guide))
                << control.Caption.toStdString() << ": " << value.toStdString();
            ++boxes;
        }
    }
    EXPECT_GT(boxes, 50);
}

TEST_F(Windows_Test, Open_The_Guide_At_Their_Place_By_F1)
{
    const Temporary_Directory guide;
    fs::create_directory(guide / "windows");
    for (const auto& [window, place] : Read_Places(fs::path(GUIDE) / "windows.txt"))
        Write_Whole(guide / "windows" / (window.toStdString() + ".html"), "a page");
    qputenv("ORVELSUITE_GUIDE", QByteArray::fromStdString(guide.Path().string()));
    const std::unique_ptr<QObject> key(Answer_F1(*qApp, The_Session.Ask));
    for (const auto& opened : All()) {
        SCOPED_TRACE(opened.Name.toStdString());
        const auto window = opened.Open(The_Session);
        window->show();
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
        QTextBrowser browser; // in place of the desktop's
        QDesktopServices::setUrlHandler("file", &browser, "setSource");

        QTest::keyClick(window->focusWidget() ? window->focusWidget() : window.get(), Qt::Key_F1);

        EXPECT_EQ(browser.source().toLocalFile().toStdString(),
                  (guide / "windows" / (window->objectName().toStdString() + ".html")).string());
        QDesktopServices::unsetUrlHandler("file");
    }
    EXPECT_EQ(std::ranges::count(The_User.Messages, "Guide", &Message::Title), 0);
    qunsetenv("ORVELSUITE_GUIDE");
}

TEST_F(Windows_Test, Say_Where_The_Guide_Would_Be)
{
    const Temporary_Directory guide;
    qputenv("ORVELSUITE_GUIDE", QByteArray::fromStdString(guide.Path().string()));
    Start start(The_Session);
    start.show();

    Click<QPushButton>(start, "Guide_Button");
    Click<QToolButton>(start, "Open_Guide");

    const Message told = Guide_Not_Installed(guide.Path());
    EXPECT_EQ(The_User.Messages, (std::vector{told, told}));
    qunsetenv("ORVELSUITE_GUIDE");
}

} // namespace orvel
