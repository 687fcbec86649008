// The controls and the layout of the window of plans.
#include "charts/forms/picture_panel.h"
#include "core/system/processors.h"
#include "plans/forms/plans_window.h"
#include "ui/forms/form_keys.h"
#include "ui/forms/path_label.h"
#include "ui/forms/widgets.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QSpinBox>
#include <QSplitter>
#include <QTableView>

namespace orvel {

namespace {

QComboBox* Combo(const QString& name, const QString& purpose, const QStringList& items)
{
    auto* combo = Named(new QComboBox, name);
    combo->setAccessibleName(purpose);
    combo->addItems(items);
    combo->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    return combo;
}

QSpinBox* Number(const QString& name, const QString& purpose, int least, int most)
{
    auto* box = Named(new QSpinBox, name);
    box->setRange(least, most);
    box->setAccessibleName(purpose);
    return box;
}

} // namespace

void Plans_Window::Lay_Out()
{
    Note = Named(new QLabel("Open a plan, paste its rows from a spreadsheet, or make a sweep of one run."), "Note");
    Note->setWordWrap(true);
    auto* all = new QVBoxLayout(this);
    all->addLayout(Sources());
    all->addLayout(Running());
    all->addLayout(Ways_To_Run());
    all->addWidget(Note);
    all->addWidget(Table_And_Picture(), 1);
    all->addLayout(Foot());
    Use_Form_Keys(*this);
}

QLayout* Plans_Window::Sources()
{
    Plan_Path = Named(new Path_Label("Plan"), "Plan_Path");
    Directory_Path = Named(new Path_Label("Runs in"), "Directory_Path");
    Directory_Button = Push_Button("Directory", "D&irectory ...", this, &Plans_Window::Choose_Directory);
    Directory_Button->setToolTip("Where the runs of the plan lie: a new or empty directory, or that of this plan");
    auto* open = Push_Button("Open_Plan", "&Open plan ...", this, &Plans_Window::Open_File);
    open->setToolTip("A plan, or the copy of it in the directory of its runs");
    auto* paste = Push_Button("Paste_Plan", "P&aste plan ...", this, &Plans_Window::Paste);
    paste->setToolTip("Rows that were copied from a spreadsheet, with their headings");
    auto* sweep = Push_Button("Make_Sweep", "S&weep ...", this, &Plans_Window::Sweep);
    sweep->setToolTip("Makes a plan that varies one run: shifted applications, fields times factors");

    auto* row = new QHBoxLayout;
    for (auto* button : {open, paste, sweep})
        row->addWidget(button);
    row->addSpacing(fontMetrics().averageCharWidth());
    row->addWidget(new QLabel("Plan:"));
    row->addWidget(Plan_Path, 1);
    row->addWidget(new QLabel("Runs in:"));
    row->addWidget(Directory_Path, 1);
    row->addWidget(Directory_Button);
    return row;
}

QLayout* Plans_Window::Running()
{
    constexpr int Most_Jobs = 1000;
    Run_Button = Push_Button("Run_Plan", "&Run", this, &Plans_Window::Run);
    Run_Button->setToolTip("Runs what has no complete run yet; it goes on when this window is closed");
    Stop_Button = Push_Button("Stop_Plan", "S&top", this, &Plans_Window::Stop);
    Stop_Button->setToolTip("Ends the runs at work; what is complete stays");
    Jobs = Named(new QSpinBox, "Jobs");
    Jobs->setRange(0, Most_Jobs);
    Jobs->setSpecialValueText(QString("all %1 processors").arg(Processors()));
    Jobs->setAccessibleName("Runs at a time");
    Keep = Combo("Keep", "What stays of a run", {"records", "tables", "all files"});
    Keep->setCurrentIndex(static_cast<int>(Plan_Keep::Tables));
    Keep->setToolTip("What stays of a run: its record and its results, its tables too, or all files");
    Bar = Named(new QProgressBar, "Bar");
    Bar->setAccessibleName("Complete runs");
    Bar->setMaximumWidth(fontMetrics().averageCharWidth() * 40);
    Bar->setValue(0);
    Status = Named(new QLabel, "Status");

    auto* row = new QHBoxLayout;
    row->addWidget(Run_Button);
    row->addWidget(Stop_Button);
    row->addWidget(Label_Of(Jobs, "Runs at a ti&me:"));
    row->addWidget(Jobs);
    row->addWidget(Label_Of(Keep, "&Keep:"));
    row->addWidget(Keep);
    row->addSpacing(fontMetrics().averageCharWidth());
    row->addWidget(Bar, 1);
    row->addWidget(Status, 2);
    return row;
}

QLayout* Plans_Window::Ways_To_Run()
{
    constexpr int Most = 100'000'000, Most_Parts = 100'000;
    Limit = Number("Limit", "Seconds that a run may take", 0, Most);
    Limit->setSpecialValueText("none");
    Limit->setSuffix(" s");
    Limit->setToolTip("Ends a run that takes longer; it has failed then");
    Part = Number("Part", "Part of the plan", 1, 1);
    Parts = Number("Parts", "Number of parts", 1, Most_Parts);
    for (auto* box : {Part, Parts})
        box->setToolTip("Runs only this part; the parts may be at work at once, on machines that share the directory");
    By_Slurm = Named(new QCheckBox("On a Slurm c&luster"), "By_Slurm");
    By_Slurm->setToolTip("Hands the whole plan to a cluster, as one array of tasks");
    Tasks = Number("Tasks", "Tasks on the cluster", 1, Most_Slurm_Tasks);
    Minutes = Number("Minutes", "Minutes that a task may take", 0, Most);
    Minutes->setSpecialValueText("as the cluster says");
    Minutes->setSuffix(" min");
    connect(Parts, &QSpinBox::valueChanged, Part, &QSpinBox::setMaximum);
    connect(Parts, &QSpinBox::valueChanged, this, &Plans_Window::Enable);
    connect(By_Slurm, &QCheckBox::clicked, this, &Plans_Window::Enable);

    auto* row = new QHBoxLayout;
    row->addWidget(Label_Of(Limit, "Limit of &each run:"));
    row->addWidget(Limit);
    row->addSpacing(fontMetrics().averageCharWidth());
    row->addWidget(Label_Of(Part, "Part:"));
    row->addWidget(Part);
    row->addWidget(Label_Of(Parts, "o&f"));
    row->addWidget(Parts);
    row->addSpacing(fontMetrics().averageCharWidth());
    row->addWidget(By_Slurm);
    row->addWidget(Label_Of(Tasks, "tasks:"));
    row->addWidget(Tasks);
    row->addWidget(Label_Of(Minutes, "time of a task:"));
    row->addWidget(Minutes);
    row->addStretch(1);
    return row;
}

QWidget* Plans_Window::Table_And_Picture()
{
    Table = Named(new QTableView, "Table");
    Table->setAccessibleName("Runs of the plan");
    Table->setModel(&Table_Model);
    Table->setSelectionBehavior(QAbstractItemView::SelectRows);
    Table->setWordWrap(false);
    Table->setTabKeyNavigation(false);
    Table->horizontalHeader()->setResizeContentsPrecision(100);
    Table->verticalHeader()->setDefaultSectionSize(fontMetrics().lineSpacing() * 3 / 2);
    Table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);

    Picture = new Picture_Panel("Picture", Ask);
    auto* lower = new QWidget;
    auto* picture = new QVBoxLayout(lower);
    picture->setContentsMargins(0, 0, 0, 0);
    picture->addLayout(Picture_Choices());
    picture->addWidget(Picture, 1);
    auto* both = new QSplitter(Qt::Vertical);
    both->addWidget(Table);
    both->addWidget(lower);
    both->setStretchFactor(0, 1);
    both->setStretchFactor(1, 1);
    both->setChildrenCollapsible(false);
    both->setSizes({1000, 1000}); // as shares of what there is
    return both;
}

QLayout* Plans_Window::Picture_Choices()
{
    States = Combo("States", "Runs that the table shows", {"all runs"});
    for (const auto verdict : {Verdict::Complete, Verdict::Incomplete, Verdict::Failed, Verdict::Stopped,
                               Verdict::Running, Verdict::Scheduled})
        States->addItem(Shown(Verdict_Text(verdict)), static_cast<int>(verdict));
    Kind = Combo("Kind", "Picture", {"Distribution", "Effect of each factor", "By date of application"});
    Substances = Combo("Substances", "Substance", {});
    Substances->setMinimumContentsLength(16);
    Labels = Combo("Labels", "A curve for each value of a label", {});
    Labels->setMinimumContentsLength(12);
    connect(States, &QComboBox::activated, this, &Plans_Window::Show_Rows);
    for (auto* list : {Kind, Substances, Labels})
        connect(list, &QComboBox::activated, this, &Plans_Window::Show_Picture);

    auto* row = new QHBoxLayout;
    row->addWidget(Label_Of(States, "S&how:"));
    row->addWidget(States);
    row->addStretch(1);
    row->addWidget(Label_Of(Kind, "Pict&ure:"));
    row->addWidget(Kind);
    row->addWidget(Label_Of(Substances, "Su&bstance:"));
    row->addWidget(Substances);
    row->addWidget(Label_Of(Labels, "Cur&ve for each:"));
    row->addWidget(Labels);
    return row;
}

QLayout* Plans_Window::Foot()
{
    auto* foot = new QHBoxLayout;
    foot->addWidget(Push_Button("Kopieren", "&Copy", this, &Plans_Window::Copy));
    foot->addWidget(Push_Button("Speichern", "&Save ...", this, &Plans_Window::Save));
    foot->addWidget(Push_Button("Drucken", "&Print", this, &Plans_Window::Print));
    foot->addWidget(Push_Button("Befehl", "Copy as comma&nd", this, &Plans_Window::Command));
    foot->addStretch(1);
    foot->addWidget(Push_Button("Done", "&Done", this, &QDialog::accept));
    return foot;
}

} // namespace orvel
