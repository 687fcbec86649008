#include "desktop/forms/start.h"

#include "core/error.h"
#include "desktop/forms/form_name.h"
#include "desktop/forms/own_picture.h"
#include "desktop/forms/places_menu.h"
#include "desktop/forms/versionsinfo.h"
#include "desktop/forms/windows.h"
#include "desktop/update_check.h"
#include "documents/forms/form_psm_open.h"
#include "documents/forms/unsaved_list.h"
#include "documents/unsaved_copy.h"
#include "jobs/forms/focus.h"
#include "jobs/forms/form_end.h"
#include "records/forms/archives.h"
#include "runs/acceptance.h"
#include "runs/start_up.h"
#include "ui/forms/guide_opening.h"
#include "ui/forms/help_assistant.h"
#include "ui/forms/widgets.h"

#include <QApplication>
#include <QCloseEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>

namespace orvel {

namespace {

constexpr QSize Picture_Size(144, 108);

QToolButton* Picture_Button(const QString& name, const QString& picture, const QString& text, const QString& tip)
{
    auto* button = Named(new QToolButton, name);
    button->setIcon(Own_Picture(picture));
    button->setIconSize(Picture_Size);
    button->setText(text);
    button->setToolTip(tip);
    button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    button->setCursor(Qt::PointingHandCursor);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    button->setMaximumSize(button->sizeHint() + Picture_Size / 2); // on a maximised form, too
    return button;
}

QFont Scaled(QFont font, double factor, bool bold)
{
    font.setPointSizeF(font.pointSizeF() * factor);
    font.setBold(bold);
    return font;
}

} // namespace

Start::Start(Session& session, std::optional<Dropped_Batch> dropped) : The_Session(session), Dropped(std::move(dropped))
{
    setObjectName("start");
    setWindowTitle(Shown(session.Program.Aktuelle_ORVEL_Version));
    setWindowIcon(Own_Picture("orvelsuite"));
    Assistant = new Help_Assistant(The_Session, *this);
    Lay_Out();
    Assistant->Attach(Image1, 1);
    Assistant->Attach(Image2, 2);
    connect(&Update, &Update_Fetch::Finished, this, [this](const Message& message) { The_Session.Ask(message); });
}

void Start::Lay_Out()
{
    Nachricht = Named(new QGroupBox("Message"), "Nachricht");
    auto* label = Named(new QLabel("Please wait! File attributes have to be set."), "Label3");
    auto* message = new QHBoxLayout(Nachricht);
    message->addWidget(label);
    Nachricht->hide();

    auto* all = new QVBoxLayout(this);
    all->setSpacing(all->spacing() * 2);
    all->addLayout(Banner());
    all->addLayout(Pictures(), 1);
    all->addLayout(Documents());
    all->addWidget(Unsaved());
    if (Dropped)
        all->addWidget(Dropped_Row());
    all->addStretch(1);
    all->addWidget(Nachricht);
    all->addLayout(Foot());
}

QLayout* Start::Banner()
{
    auto* sign = new QLabel;
    sign->setPixmap(Own_Picture("orvelsuite").pixmap(QSize(48, 48)));
    auto* name = Named(new QLabel("ORVELSUITE"), "Label1");
    name->setFont(Scaled(font(), 2.0, true));
    auto* purpose = new QLabel("Leaching of plant protection products and their metabolites through soil");
    purpose->setForegroundRole(QPalette::PlaceholderText);

    auto* texts = new QVBoxLayout;
    texts->setSpacing(0);
    texts->addWidget(name);
    texts->addWidget(purpose);
    auto* banner = new QHBoxLayout;
    banner->addWidget(sign);
    banner->addLayout(texts, 1);
    banner->addWidget(Assistant->Switch(), 0, Qt::AlignTop);
    return banner;
}

QLayout* Start::Pictures()
{
    Image1 = Picture_Button("Image1", "single_run", "&Single run", "One simulation with files of your choice");
    Image2 = Picture_Button("Image2", "focus", "&FOCUS groundwater",
                            "Batches over the nine FOCUS groundwater locations and their crops");
    Image3 = Picture_Button("Image3", "efsa", "&EFSA soil, Tier 2", "Batches over the EFSA soil scenarios of Tier 2");
    Image4 =
        Picture_Button("Image4", "efsa_t4", "EFSA soil, Tier &4", "Batches over the EFSA soil scenarios of Tier 4");
    connect(Image1, &QToolButton::clicked, this, &Start::Open_Single_Run);
    connect(Image2, &QToolButton::clicked, this, &Start::Open_FOCUS);
    connect(Image3, &QToolButton::clicked, this, &Start::Open_EFSA);
    connect(Image4, &QToolButton::clicked, this, &Start::Open_EFSA_T4);

    auto* pictures = new QHBoxLayout;
    for (auto* picture : {Image1, Image2, Image3, Image4})
        pictures->addWidget(picture);
    return pictures;
}

QLayout* Start::Documents()
{
    Command1 = Named(new QPushButton("Create / Modify  &Pesticide file"), "Command1");
    Command2 = Named(new QPushButton("Create / Modify S&cenario File"), "Command2");
    Command6 = Named(new QPushButton("Create / Modify C&limate File"), "Command6");
    auto* overview = Named(new QPushButton("&Overview"), "Overview_Button");
    overview->setToolTip("The whole assessment at a glance: every simulation with its result or its state");
    connect(overview, &QPushButton::clicked, this, [this] { Open_Overview(The_Session, Mode_Kind::Focus); });
    connect(Command1, &QPushButton::clicked, this, &Start::Open_Pesticide);
    connect(Command2, &QPushButton::clicked, this, &Start::Open_Scenario);
    connect(Command6, &QPushButton::clicked, this, &Start::Open_Climate);

    auto* documents = new QHBoxLayout;
    for (auto* command : {Command1, Command2, Command6})
        documents->addWidget(command, 1);
    documents->addWidget(overview, 1);
    auto* plans = Named(new QPushButton("Pla&ns"), "Plans_Button");
    plans->setToolTip("Tables of many runs: open or make one, run it, see what the runs come to");
    connect(plans, &QPushButton::clicked, this, [this] { Open_Plans(The_Session); });
    documents->addWidget(plans, 1);
    auto* archives = Named(new QPushButton("&Archives and comparisons"), "Open_Archives");
    archives->setToolTip("Archive simulations, restore or run again what was archived, compare two assessments");
    connect(archives, &QPushButton::clicked, this, &Start::Open_Archives);
    documents->addWidget(archives, 1);
    return documents;
}

QWidget* Start::Dropped_Row()
{
    Dropped_Note = Named(new QLabel(Shown(Dropped ? Dropped_Text(*Dropped) : std::string())), "Dropped_Note");
    Dropped_Note->setWordWrap(true);
    Put_Back_Button = Push_Button("Put_Back_Batch", "Put &back", this, &Start::Put_Back);
    auto* place = new QWidget;
    auto* row = new QHBoxLayout(place);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(Dropped_Note, 1);
    row->addWidget(Put_Back_Button);
    return place;
}

void Start::Put_Back()
{
    if (!Dropped || !Put_Back_Batch(The_Session.Program, The_Session.Ask, *Dropped))
        return;
    Dropped_Note->setText("The batch is pending again: \"Start Batch\" in FOCUS groundwater starts it.");
    Put_Back_Button->hide();
}

QPushButton* Start::Unsaved()
{
    Unsaved_Button = Push_Button("Unsaved_Button", {}, this, [this] {
        Unsaved_List(The_Session, this).exec();
        Show_Unsaved();
    });
    Unsaved_Button->setToolTip("Changes of documents that were under edit when the program ended");
    Show_Unsaved();
    return Unsaved_Button;
}

// Is there only while something waits; what cannot be searched is told by the editors and by the doctor.
void Start::Show_Unsaved()
try {
    const auto count = Left_Copies(Place_Of_Unsaved_Copies()).size();
    Unsaved_Button->setText(count == 1 ? QString("1 &document has changes that were not saved ...")
                                       : QString("%1 &documents have changes that were not saved ...").arg(count));
    Unsaved_Button->setVisible(count > 0);
} catch (const File_Error&) {
    Unsaved_Button->hide();
}

QLabel* Start::Version_Label(const QString& name, const std::string& caption)
{
    auto* label = Named(new QLabel(Shown(caption)), name);
    label->setToolTip("Double click for details");
    label->installEventFilter(this);
    return label;
}

QLayout* Start::Foot()
{
    auto* version = Named(new QGroupBox("Version"), "Frame1");
    Aktuelle_ORVEL_Version = Version_Label("Aktuelle_ORVEL_Version", The_Session.Program.Aktuelle_ORVEL_Version);
    Aktuelle_ORVELSUITE_Version =
        Version_Label("Aktuelle_ORVELSUITE_Version", The_Session.Program.Aktuelle_ORVELSUITE_Version);
    Aktuelle_ORVELSUITE_Version->setToolTip(Shown(Suite_Label_Hint()) + "\n" + Aktuelle_ORVELSUITE_Version->toolTip());
    auto* labels = new QHBoxLayout(version);
    auto* acceptance = Named(new QLabel(Shown(Acceptance_Of_Installed(The_Session.Program))), "Acceptance");
    acceptance->setToolTip("What the engine came to on the reference substances: orvelctl accept");
    labels->addWidget(Aktuelle_ORVEL_Version);
    labels->addWidget(acceptance);
    labels->addSpacing(fontMetrics().averageCharWidth() * 4);
    labels->addWidget(Aktuelle_ORVELSUITE_Version);

    Command3 = Named(new QPushButton("&Release notes"), "Command3");
    Command4 = Named(new QPushButton("E&xit"), "Command4");
    connect(Command3, &QPushButton::clicked, this, &Start::Release_Notes);
    connect(Command4, &QPushButton::clicked, this, &Start::close);

    auto* update = Named(new QPushButton("Check for &update"), "Suche_nach_Update");
    const QUrl address = QUrl(QString::fromStdString(Update_Address(The_Session.Program.App_Path)), QUrl::StrictMode);
    update->setEnabled(address.isValid());
    if (!address.isValid())
        update->setToolTip("The distributor has left no address: " + Shown(Update_File) + " of the installation.");
    connect(update, &QPushButton::clicked, this, [this, address] { Update.Start(address); });

    auto* guide = Named(new QPushButton("&Guide"), "Guide_Button");
    guide->setToolTip("The guide to the program, in the browser; F1 opens it at any window's place");
    connect(guide, &QPushButton::clicked, this, [this] { Open_Guide(The_Session.Ask); });

    auto* foot = new QHBoxLayout;
    foot->addWidget(version);
    foot->addStretch(1);
    foot->addWidget(Places_Button(The_Session, *this), 0, Qt::AlignBottom);
    foot->addWidget(guide, 0, Qt::AlignBottom);
    foot->addWidget(update, 0, Qt::AlignBottom);
    foot->addWidget(Command3, 0, Qt::AlignBottom);
    foot->addWidget(Command4, 0, Qt::AlignBottom);
    return foot;
}

void Start::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    QTimer::singleShot(0, this, &Start::Activate); // after the first paint
}

void Start::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::ActivationChange || !isActiveWindow())
        return;
    QTimer::singleShot(0, this, &Start::Activate);
    QTimer::singleShot(0, this, &Start::Show_Unsaved);
}

// Makes the shipped scenario and climate files read-only, unless the file of the version (c_apples.sze) already is.
void Start::Activate()
{
    if (Protected_In_Vain || Files_Protected(The_Session.Program))
        return;
    const Hourglass waiting;
    const QSize before = size();
    Nachricht->show();
    Protected_In_Vain = !Protect_Files(The_Session.Program, The_Session.Ask, [](int, int) {
        QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    }) || !Files_Protected(The_Session.Program);
    Nachricht->hide();
    layout()->activate();
    resize(before);
}

void Start::closeEvent(QCloseEvent* event)
{
    event->accept();
    QApplication::quit();
}

bool Start::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonDblClick) {
        Form_name(The_Session, this).exec();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void Start::Open_Documents(const std::string& mask, const QString& caption, const std::filesystem::path& directory)
{
    Form_PSM_Open open(The_Session, mask, directory, this);
    open.setWindowTitle(caption);
    open.exec();
}

void Start::Open_Pesticide()
{
    Open_Documents("*.psm", "Open PSM file", The_Session.Program.App_Path);
}

void Start::Open_Scenario()
{
    Open_Documents("*.sze", "Open Scenario File", The_Session.Program.App_Path / "focus");
}

void Start::Open_Climate()
{
    Open_Documents("*.cli", "Open Climate File", The_Session.Program.App_Path / "focus");
}

void Start::Open_Single_Run()
{
    form_end(The_Session, Windows_Of_Runs(The_Session), this).exec();
}

void Start::Open_Runs(Mode_Kind kind)
{
    FOCUS(The_Session, Mode_Of(kind), Windows_Of_Runs(The_Session), this).exec();
}

void Start::Open_FOCUS()
{
    Open_Runs(Mode_Kind::Focus);
}

void Start::Open_EFSA()
{
    if (Mode_Available(The_Session.Program, The_Session.Ask, Mode_Of(Mode_Kind::Efsa)))
        Open_Runs(Mode_Kind::Efsa);
}

void Start::Open_EFSA_T4()
{
    if (Mode_Available(The_Session.Program, The_Session.Ask, Mode_Of(Mode_Kind::Efsa_T4)))
        Open_Runs(Mode_Kind::Efsa_T4);
}

void Start::Open_Archives()
{
    Archives(The_Session, this).exec();
}

void Start::Release_Notes()
{
    Versionsinfo(this).exec();
}

} // namespace orvel
