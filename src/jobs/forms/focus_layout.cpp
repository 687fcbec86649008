// The run form's controls and layout.
#include "jobs/forms/focus.h"
#include "runs/start_up.h"
#include "ui/forms/form_keys.h"
#include "ui/forms/help_assistant.h"
#include "ui/forms/widgets.h"

#include <QApplication>
#include <QComboBox>
#include <QFormLayout>
#include <QFrame>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>

namespace orvel {

namespace {

constexpr int Pesticide_Columns = 26, Crop_Columns = 28, Location_Columns = 46; // of their lists
constexpr int Chosen_Rows = 17;
constexpr int Notice_Lines = 5;
constexpr std::string_view Run_Button_Notice =
    "INFORMATION:\r\n"
    "The Run button is disabled as long as the current ORVEL simulation is running.\r\n"
    " If the Run button will not become active after the ORVEL simulation finished, please first close this form "
    "and then directly reopen it.";

} // namespace

void FOCUS::Lay_Out()
{
    Assistant = new Help_Assistant(The_Session, *this);
    auto* rows = new QVBoxLayout;
    rows->addLayout(Application_Data());
    rows->addLayout(Options());
    rows->addStretch(1);
    rows->addLayout(Versions());

    auto* top = new QHBoxLayout;
    top->addLayout(Lists(), 3);
    top->addLayout(rows, 1);

    auto* all = new QVBoxLayout(this);
    all->addLayout(top, 1);
    all->addLayout(Notices());
    all->addLayout(Job_State());
    all->addLayout(Buttons());
    Use_Form_Keys(*this);
    Pesticide->setFocus();
    Attach_Help();
}

void FOCUS::Attach_Help()
{
    const std::initializer_list<std::pair<QWidget*, int>> controls = {
        {Crop_List, 3}, {Location_List, 4}, {Pesticide, 7},   {App_Modus, 8},
        {app_Date, 9},  {s_run, 11},        {Batchdatei, 13}, {Command1, 14}};
    for (const auto& [control, number] : controls)
        Assistant->Attach(control, number);
}

QLayout* FOCUS::Lists()
{
    auto* lists = new QHBoxLayout;
    Pesticide = List("Pesticide", "&Pesticide file", "Label5", Pesticide_Columns, lists);
    Crop_List = List("Crop", "&Crop", "Label4", Crop_Columns, lists);
    Location_List = List("Location", "Recommended &Locations", "Label3", Location_Columns, lists);
    for (const Crop& crop : Crops)
        Crop_List->addItem(Shown(crop.Text));
    connect(Pesticide, &QListWidget::currentRowChanged, this, &FOCUS::Evaluate);
    connect(Crop_List, &QListWidget::currentRowChanged, this, &FOCUS::Crop_Click);
    connect(Location_List, &QListWidget::currentRowChanged, this, &FOCUS::Evaluate);
    connect(Pesticide, &QListWidget::itemDoubleClicked, this, &FOCUS::Edit_Pesticide);
    connect(Crop_List, &QListWidget::itemDoubleClicked, this, &FOCUS::Edit_Scenario);
    connect(Location_List, &QListWidget::itemDoubleClicked, this, &FOCUS::Edit_Scenario);
    return lists;
}

QListWidget* FOCUS::List(const QString& name, const QString& caption, const QString& label_name, int columns,
                         QHBoxLayout* into)
{
    auto* list = Named(new QListWidget, name);
    list->setAccessibleName(QString(caption).remove('&'));
    list->setMinimumSize(fontMetrics().averageCharWidth() * columns, fontMetrics().lineSpacing() * Chosen_Rows);
    list->setUniformItemSizes(true);
    list->installEventFilter(this);
    auto* column = new QVBoxLayout;
    column->addWidget(Named(Label_Of(list, caption), label_name));
    column->addWidget(list, 1);
    into->addLayout(column, columns);
    return list;
}

QLayout* FOCUS::Application_Data()
{
    App_Modus = Named(new QLabel, "App_Modus");
    app_Date = Named(new QLabel, "app_Date");
    for (auto* label : {App_Modus, app_Date}) {
        label->setWordWrap(true);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
        QFont bold = label->font();
        bold.setBold(true);
        label->setFont(bold);
    }
    app_Date->setMinimumHeight(fontMetrics().lineSpacing() * 2);
    app_Date->setAlignment(Qt::AlignTop);

    auto* rows = new QVBoxLayout;
    rows->addWidget(Named(Label_Of(nullptr, "Application Mode"), "Label2"));
    rows->addWidget(App_Modus);
    rows->addSpacing(fontMetrics().lineSpacing() / 2);
    rows->addWidget(Named(Label_Of(nullptr, "First Application"), "Label1"));
    rows->addWidget(app_Date);
    return rows;
}

// A warning and the notice of a running job, side by side in a place of their own, so that the form keeps its size.
QLayout* FOCUS::Notices()
{
    Warning_Box = Named(new QFrame, "Warning_Box");
    static_cast<QFrame*>(Warning_Box)->setFrameShape(QFrame::StyledPanel);
    auto* sign = new QLabel;
    const int size = style()->pixelMetric(QStyle::PM_LargeIconSize);
    sign->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(size));
    Warnung = Named(new QLabel("Application data for "), "Warnung");
    Warnung->setWordWrap(true);
    auto* warning = new QHBoxLayout(Warning_Box);
    warning->addWidget(sign, 0, Qt::AlignTop);
    warning->addWidget(Warnung, 1);
    Hinweis = Named(new QLabel(Shown(Run_Button_Notice)), "Hinweis");
    Hinweis->setWordWrap(true);
    Hinweis->hide();

    auto* notices = new QHBoxLayout;
    notices->addWidget(Warning_Box, 1);
    notices->addWidget(Hinweis, 1);
    notices->addStrut(fontMetrics().lineSpacing() * Notice_Lines);
    return notices;
}

QLayout* FOCUS::Options()
{
    Frame4 = Named(new QGroupBox("tillage depth (cm)"), "Frame4");
    L_tildepth = Named(new QComboBox, "L_tildepth");
    L_tildepth->setAccessibleName("tillage depth (cm)");
    for (const std::string& depth : Tillage_List(The_Mode))
        L_tildepth->addItem(Shown(depth));
    (new QHBoxLayout(Frame4))->addWidget(L_tildepth);

    auto* output = Named(new QGroupBox("Graph. Output Control"), "Frame2");
    auto* choices = new QVBoxLayout(output);
    const std::array<const char*, 3> texts = {"M&inimum", "R&ecommended", "&User Specific"};
    for (int i = 0; i < 3; ++i) {
        auto* choice = Named(new QRadioButton(texts[static_cast<std::size_t>(i)]), QString("Ausgabe_%1").arg(i));
        connect(choice, &QRadioButton::clicked, this, [this, i] { Ausgabe_Click(i); });
        choices->addWidget(choice);
        Ausgabe[static_cast<std::size_t>(i)] = choice;
    }

    auto* options = new QVBoxLayout;
    options->addWidget(Frame4);
    if (The_Mode.Tail == Header_Tail::Scaling)
        options->addWidget(Scaling_Choice());
    options->addWidget(output);
    return options;
}

QWidget* FOCUS::Scaling_Choice()
{
    auto* frame = Named(new QGroupBox(QString::fromUtf8("Scaling of temperatures (°C)")), "Frame5");
    Scaling = Named(new QComboBox, "Scaling");
    Scaling->setAccessibleName("Scaling of temperatures");
    for (const std::string& degrees : Scaling_List())
        Scaling->addItem(Shown(degrees));
    Scaling->setCurrentIndex(Scaling_Index);
    (new QHBoxLayout(frame))->addWidget(Scaling);
    return frame;
}

QLayout* FOCUS::Versions()
{
    auto* version = Named(new QGroupBox("Version"), "Frame3");
    auto* labels = new QVBoxLayout(version);
    auto* suite =
        Named(new QLabel(Shown(The_Session.Program.Aktuelle_ORVELSUITE_Version)), "Aktuelle_ORVELSUITE_Version");
    suite->setToolTip(Shown(Suite_Label_Hint()));
    labels->addWidget(suite);
    labels->addWidget(
        Named(new QLabel(Shown("ORVEL Version Number: " + General_Text(The_Session.Program.Engine_Version))),
              "Version_Model"));
    if (The_Mode.Tail == Header_Tail::Scaling)
        labels->addWidget(
            Named(new QLabel(Shown("Scenario version number: " + Scenario_Version(The_Session.Program, The_Mode))),
                  "Version_Szenarien"));
    if (The_Mode.Tail == Header_Tail::Scaling) {
        labels->addWidget(
            Named(new QLabel(Shown("Shell version number: " + std::string(Program_Version))), "Version_Shell"));
        labels->addWidget(Named(new QLabel("EFSA ORVEL"), "Label6"));
    }
    auto* versions = new QVBoxLayout;
    versions->addWidget(version);
    return versions;
}

QLayout* FOCUS::Job_State()
{
    Job_Box = Named(new QWidget, "Job_Box");
    Job_Bar = Named(new QProgressBar, "Job_Bar");
    Job_Bar->setAccessibleName("Progress of the running simulations");
    Job_Text = Named(new QLabel, "Job_Text");
    auto* row = new QHBoxLayout(Job_Box);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(Job_Bar, 1);
    row->addWidget(Job_Text, 1);
    row->addWidget(Anhalten = Push_Button("Anhalten", "S&top", this, &FOCUS::Stop));
    Anhalten->setToolTip("Ends the job and the simulations that are running");
    QSizePolicy keeps_its_place = Job_Box->sizePolicy();
    keeps_its_place.setRetainSizeWhenHidden(true);
    Job_Box->setSizePolicy(keeps_its_place);
    Job_Box->hide();

    auto* state = new QVBoxLayout;
    state->addWidget(Job_Box);
    Start_Text = Named(new QLabel, "Start_Text");
    Start_Text->setWordWrap(true);
    keeps_its_place = Start_Text->sizePolicy();
    keeps_its_place.setRetainSizeWhenHidden(true);
    Start_Text->setSizePolicy(keeps_its_place);
    state->addWidget(Start_Text);
    return state;
}

QLayout* FOCUS::Buttons()
{
    auto* buttons = new QHBoxLayout;
    const auto add = [&](const QString& name, const QString& text, auto handler) {
        auto* button = Push_Button(name, text, this, handler);
        buttons->addWidget(button);
        return button;
    };
    s_run = add("s_run", "&Run", &FOCUS::Run);
    Batchdatei = add("Batchdatei", "&Mark for Batch", &FOCUS::Mark);
    Multi_batch = add("Multi_batch", "Mark &all for Batch", &FOCUS::Mark_All_Locations);
    buttons->addWidget(Marked = Named(new QLabel, "Marked"));
    Guidance = add("Guidance", "&Guidance ...", &FOCUS::Show_Guidance);
    Guidance->setToolTip("What the guidance says against the simulations just marked");
    Guidance->hide();
    buttons->addStretch(1);
    buttons->addWidget(Assistant->Switch());
    add("Befehl", "Copy as comma&nd", &FOCUS::Command);
    add("Overview_Button", "&Overview", [this] { Windows.Open_Overview(The_Mode); });
    Command1 = add("Command1", "E&valuation", &FOCUS::Evaluation);
    Command2 = add("Command2", "&Done", &FOCUS::accept);
    return buttons;
}

} // namespace orvel
