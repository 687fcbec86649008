// The single-run form's controls and layout.
#include "jobs/forms/form_end.h"
#include "ui/forms/date_boxes.h"
#include "ui/forms/form_keys.h"
#include "ui/forms/leave_guard.h"
#include "ui/forms/number_edit.h"
#include "ui/forms/path_label.h"
#include "ui/forms/widgets.h"

#include <QComboBox>
#include <QFormLayout>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>

namespace orvel {

namespace {

constexpr int List_Columns = 24, List_Rows = 9;

QListWidget* File_List(const QString& name, const QString& purpose)
{
    auto* list = Named(new QListWidget, name);
    list->setAccessibleName(purpose);
    list->setUniformItemSizes(true);
    list->setMinimumSize(list->fontMetrics().averageCharWidth() * List_Columns,
                         list->fontMetrics().lineSpacing() * List_Rows);
    return list;
}

} // namespace

void form_end::Lay_Out()
{
    auto* right = new QVBoxLayout;
    right->addLayout(Period());
    right->addLayout(Output());
    right->addStretch(1);
    auto* top = new QHBoxLayout;
    top->addLayout(Files(), 2);
    top->addLayout(Climate_List(), 1);
    top->addLayout(right);

    Run_Bar = Named(new QProgressBar, "Run_Bar");
    Run_Bar->setAccessibleName("Progress of the simulation");
    Run_Text = Named(new QLabel, "Run_Text");
    auto* state = new QHBoxLayout;
    state->addWidget(Run_Bar, 1);
    state->addWidget(Run_Text, 1);
    state->addWidget(Anhalten = Push_Button("Anhalten", "Sto&p", this, &form_end::Stop));

    auto* all = new QVBoxLayout(this);
    all->addLayout(Directory_Row());
    all->addLayout(top, 1);
    all->addWidget(Archive());
    all->addLayout(state);
    all->addLayout(Buttons());
    Use_Form_Keys(*this);
}

QLayout* form_end::Directory_Row()
{
    Dir1 = Named(new Path_Label("Directory"), "Dir1");
    auto* choose = Push_Button("Choose_Directory", "Director&y ...", this, &form_end::Choose_Directory);
    Missing = Named(new QLabel, "Missing");
    Missing->setWordWrap(true);
    Missing->hide();
    auto* row = new QHBoxLayout;
    row->addWidget(choose);
    row->addWidget(Dir1, 1);
    auto* rows = new QVBoxLayout;
    rows->addLayout(row);
    rows->addWidget(Missing);
    return rows;
}

QLayout* form_end::Files()
{
    auto* files = new QGridLayout;
    const auto add = [&](int column, const QString& caption, QListWidget*& list, const QString& name,
                         std::size_t label) {
        list = File_List(name, QString(caption).remove('&'));
        auto* title = new QLabel(caption);
        title->setBuddy(list);
        Label2[label] = Named(new QLabel, QString("Label2_%1").arg(label));
        Label2[label]->setFrameShape(QFrame::StyledPanel);
        Label2[label]->setCursor(Qt::PointingHandCursor);
        Label2[label]->setToolTip("A double click opens the file for editing.");
        Label2[label]->installEventFilter(this);
        files->addWidget(title, 0, column);
        files->addWidget(Label2[label], 1, column);
        files->addWidget(list, 2, column);
        connect(list, &QListWidget::itemClicked, this,
                [this, label](QListWidgetItem* item) { Label2[label]->setText(item->text()); });
        connect(list, &QListWidget::itemSelectionChanged, this, [this, label, list] {
            if (!list->selectedItems().isEmpty())
                Label2[label]->setText(list->selectedItems().front()->text());
        });
    };
    add(0, "&Pesticide file", File_psm, "File_psm", 0);
    add(1, "&Scenario file", File_sce, "File_sce", 1);
    files->setRowStretch(2, 1);
    return files;
}

QLayout* form_end::Climate_List()
{
    File_cli = File_List("File_cli", "Climate files of the directory");
    List_cli = File_List("List_cli", "Climate files of the run, one a year");
    List_cli->setToolTip("A double click opens the file for editing.");
    connect(List_cli, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* item) { Edit(item->text()); });
    auto* title = new QLabel("C&limate files");
    title->setBuddy(File_cli);
    auto* buttons = new QHBoxLayout;
    const auto add = [&](const QString& name, const QString& text, auto handler) {
        buttons->addWidget(Push_Button(name, text, this, handler));
    };
    add("Command1", "&Insert", &form_end::Insert_Climate);
    add("Command2", "&Append", &form_end::Append_Climate);
    add("Command3", "&Remove", &form_end::Remove_Climate);
    auto* column = new QVBoxLayout;
    column->addWidget(title);
    column->addWidget(File_cli, 1);
    column->addLayout(buttons);
    column->addWidget(new QLabel("Files of the run"));
    column->addWidget(List_cli, 1);
    return column;
}

QLayout* form_end::Period()
{
    Combo_stad = Day_Box("Combo_stad", "First day");
    Combo_endd = Day_Box("Combo_endd", "Last day");
    Combo_stam = Month_Box("Combo_stam", "First month");
    Combo_endm = Month_Box("Combo_endm", "Last month");
    Text_years = Named(new Number_Edit, "Text_years");
    for (QWidget* left : std::initializer_list<QWidget*>{Combo_stad, Combo_endd, Text_years})
        Guard->Watch(*left);

    Datum_Hinweis = Named(new QLabel, "Datum_Hinweis");
    for (const auto* part : {Combo_stad, Combo_endd, Combo_stam, Combo_endm})
        connect(part, &QComboBox::currentTextChanged, this, &form_end::Show_Date_Hint);

    auto* period = new QFormLayout;
    period->addRow(new QLabel("Start Simulation on:"));
    period->addRow("&Day:", Combo_stad);
    period->addRow("&Month:", Combo_stam);
    period->addRow(new QLabel("Terminate Simulation on:"));
    period->addRow("Day:", Combo_endd);
    period->addRow("Month:", Combo_endm);
    period->addRow(Datum_Hinweis);
    period->addRow("End Simulation in Year:", Text_years);
    return period;
}

QLayout* form_end::Output()
{
    auto* output = Named(new QGroupBox("Graph. Output Control"), "Frame5");
    auto* choices = new QVBoxLayout(output);
    const std::array<const char*, 3> texts = {"Mi&nimum", "R&ecommended", "&User Specific"};
    for (int i = 0; i < 3; ++i) {
        auto* choice = Named(new QRadioButton(texts[static_cast<std::size_t>(i)]), QString("Ausgabe_%1").arg(i));
        connect(choice, &QRadioButton::clicked, this, [this, i] { Ausgabe_Click(i); });
        choices->addWidget(choice);
        Ausgabe[static_cast<std::size_t>(i)] = choice;
    }
    auto* column = new QVBoxLayout;
    column->addWidget(output);
    column->addWidget(Named(new QLabel(Shown(The_Session.Program.Aktuelle_ORVEL_Version)), "Version_Modell"));
    return column;
}

QWidget* form_end::Archive()
{
    Frame1 = Named(new QGroupBox("Archive"), "Frame1");
    Text1 = Named(new QLineEdit("Run_1"), "Text1");
    auto* label = Named(new QLabel("Name of the &backup folder:"), "Label3");
    label->setBuddy(Text1);
    Command8 = Push_Button("Command8", "Mo&ve now", this, &form_end::Move_To_Archive);
    auto* cancel = Push_Button("Command9", "&Cancel", this, &form_end::Close_Archive);
    auto* row = new QHBoxLayout(Frame1);
    row->addWidget(label);
    row->addWidget(Text1, 1);
    row->addWidget(Command8);
    row->addWidget(cancel);
    Close_Archive();
    return Frame1;
}

QLayout* form_end::Buttons()
{
    auto* buttons = new QHBoxLayout;
    auto* start = Push_Button("Command4", "S&tart ORVEL Simulation", this, &form_end::Start);
    auto* move = Push_Button("Command7", "Move &Output to Archive", this, &form_end::Open_Archive);
    auto* browse = Push_Button("Command6", "Input/Output &files", this, [this] { Windows.Open_Run_Files(this); });
    auto* exit = Push_Button("Command5", "E&xit", this, &QDialog::accept);
    auto* command = Push_Button("Befehl", "Copy as command", this, &form_end::Command);
    auto* overview =
        Push_Button("Overview_Button", "Overvie&w", this, [this] { Windows.Open_Overview(Mode_Of(Mode_Kind::Focus)); });
    for (auto* button : {start, move, browse, command, overview})
        buttons->addWidget(button);
    buttons->addStretch(1);
    buttons->addWidget(exit);
    return buttons;
}

} // namespace orvel
