#include "evaluation/forms/inout_sel.h"

#include "core/files.h"
#include "core/shell_line.h"
#include "evaluation/forms/series_choice.h"
#include "jobs/start_batch.h"
#include "output/echo_file.h"
#include "tables/forms/text_viewer.h"
#include "ui/forms/command_box.h"
#include "ui/forms/form_keys.h"
#include "ui/forms/path_label.h"
#include "ui/forms/widgets.h"
#include "ui/shown_file.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QStorageInfo>

namespace orvel {

namespace {

constexpr std::array<const char*, 4> File_Kinds = {"psm", "sze", "cli", "orv"};
constexpr int Poll_Interval = 300; // ms

Echo_Layers Layers_Of(const std::filesystem::path& directory)
try {
    return Read_Echo(directory).Layers();
} catch (const File_Error& error) {
    Pass_On_If_Unreadable(error);
    return {};
}

QShortcut* On_Return(QWidget& list)
{
    auto* shortcut = new QShortcut(&list);
    shortcut->setKeys(QList<QKeySequence>{QKeySequence(Qt::Key_Return), QKeySequence(Qt::Key_Enter)});
    shortcut->setContext(Qt::WidgetShortcut);
    return shortcut;
}

} // namespace

inout_sel::inout_sel(Session& session, QWidget* parent) : QDialog(parent), The_Session(session)
{
    setObjectName("inout_sel");
    setWindowTitle("Input and Output Files");
    Lay_Out();
    connect(&Timer1, &QTimer::timeout, this, &inout_sel::Tick);
    Go_To(The_Session.Program.App_Path);
}

void inout_sel::Lay_Out()
{
    Series = new Series_Choice;
    Nachricht = Named(new QLabel, "Nachricht");
    auto* all = new QGridLayout(this);
    all->addLayout(Directory_Lists(), 0, 0);
    all->addLayout(File_Lists(), 0, 1);
    all->addWidget(Series, 1, 0, 1, 2);
    all->addWidget(Nachricht, 2, 0, 1, 2);
    all->addLayout(Buttons(), 3, 0, 1, 2);
    Use_Form_Keys(*this);
    all->setColumnStretch(0, 1);
    all->setColumnStretch(1, 2);
}

QListWidget* inout_sel::List(const QString& name, const QString& purpose)
{
    auto* list = Named(new QListWidget, name);
    list->setAccessibleName(purpose);
    return list;
}

QLayout* inout_sel::Directory_Lists()
{
    Laufwerk = Named(new QComboBox, "Laufwerk");
    Laufwerk->setAccessibleName("Drive");
    for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
        if (volume.isReady() && (volume.isRoot() || !volume.rootPath().startsWith("/run")))
            Laufwerk->addItem(volume.rootPath());
    }
    if (Laufwerk->count() == 0)
        Laufwerk->addItem("/");
    connect(Laufwerk, &QComboBox::activated, this, [this] { Go_To(Laufwerk->currentText().toStdString()); });
    Pfad = Named(new Path_Label("Directory"), "Pfad");
    Verzeichnisliste = List("Verzeichnisliste", "Directories");
    connect(Verzeichnisliste, &QListWidget::itemDoubleClicked, this, &inout_sel::Step_Into);
    connect(On_Return(*Verzeichnisliste), &QShortcut::activated, this, &inout_sel::Step_Into);

    auto* rows = new QVBoxLayout;
    rows->addWidget(Laufwerk);
    rows->addWidget(Pfad);
    rows->addWidget(Verzeichnisliste, 1);
    return rows;
}

// A click or Return shows a file.
QLayout* inout_sel::File_Lists()
{
    auto* cells = new QGridLayout;
    for (std::size_t i = 0; i < Files.size(); ++i) {
        const QString kind = File_Kinds[i];
        auto* list = List("File_" + kind, "Files *." + kind);
        auto* label = new QLabel("*." + kind);
        label->setBuddy(list);
        connect(list, &QListWidget::itemClicked, this, [this, list] { Show_Chosen(*list); });
        connect(On_Return(*list), &QShortcut::activated, this, [this, list] { Show_Chosen(*list); });
        const int row = static_cast<int>(i) / 2 * 2, column = static_cast<int>(i) % 2;
        cells->addWidget(label, row, column);
        cells->addWidget(list, row + 1, column);
        Files[i] = list;
    }
    return cells;
}

QLayout* inout_sel::Buttons()
{
    auto* row = new QHBoxLayout;
    const auto add = [&](const QString& name, const QString& text, auto handler) {
        auto* button = Push_Button(name, text, this, handler);
        row->addWidget(button);
        return button;
    };
    S_Jaehrlich = add("S_Jaehrlich", "&Yearly", [this] { Show_Utility_Table(Utility::Year); });
    S_Monatlich = add("S_Monatlich", "&Monthly", [this] { Show_Utility_Table(Utility::Month); });
    S_Taeglich = add("S_Taeglich", "&Daily", [this] { Show_Utility_Table(Utility::Day); });
    s_Echo = add("s_Echo", "&Echo of Input data", &inout_sel::Echo_Click);
    Grafik = add("Grafik", "S&how Diagram", &inout_sel::Grafik_Click);
    row->addWidget(Befehl = Command_Button(this, [this] { return Commands(); }));
    row->addStretch(1);
    add("Command4", "D&one", &QDialog::accept);
    return row;
}

void inout_sel::Go_To(const std::filesystem::path& directory)
{
    Directory = directory.lexically_normal();
    Pfad->Show(Directory);
    Verzeichnisliste->clear();
    Verzeichnisliste->addItem("..");
    for (const std::string& name : List_Directories(Directory, "*"))
        Verzeichnisliste->addItem(QString::fromStdString(name));
    List_Files_Of_Directory();

    const bool has_series = Find_File(Directory, "plot.orv").has_value();
    Grafik->setEnabled(Series->Show_Columns(Directory));
    const Echo_Layers layers = Layers_Of(Directory);
    S_Jaehrlich->setEnabled(has_series);
    S_Monatlich->setEnabled(has_series && layers.Has_Monthly_Output);
    S_Taeglich->setEnabled(has_series && layers.Has_Daily_Output);
    s_Echo->setEnabled(Find_File(Directory, "echo.orv").has_value());
    Befehl->setEnabled(s_Echo->isEnabled() || Grafik->isEnabled());
    Nachricht->clear();
}

void inout_sel::List_Files_Of_Directory()
{
    for (std::size_t i = 0; i < Files.size(); ++i) {
        Files[i]->clear();
        for (const std::string& name : List_Files(Directory, std::string("*.") + File_Kinds[i]))
            Files[i]->addItem(QString::fromStdString(name));
    }
}

void inout_sel::Step_Into()
{
    const auto* item = Verzeichnisliste->currentItem();
    if (!item)
        return;
    const std::string name = item->text().toStdString();
    Go_To(name == ".." ? Directory.parent_path() : Directory / name);
}

void inout_sel::Show_Chosen(const QListWidget& list)
{
    if (!list.currentItem())
        return;
    const auto file = Directory / list.currentItem()->text().toStdString();
    if (const auto text = Shown_File(The_Session, file))
        Form_filetext(The_Session, file, *text, this).exec();
}

// A missing table is made by the utility in the background; the next click shows it.
void inout_sel::Show_Utility_Table(Utility utility)
{
    if (Utility_At_Work)
        return;
    if (Is_Due(utility, Directory)) {
        Utility_At_Work = Start_Utility(The_Session, utility, Directory);
        if (Utility_At_Work) {
            Utility_Place = Directory;
            Nachricht->setText(
                Shown("Please wait! " + std::string(Names_Of(utility).Program) + " is making the table."));
            Timer1.start(Poll_Interval);
        }
        return;
    }
    if (const auto text = Utility_Table(The_Session, utility, Directory))
        Form_filetext(The_Session, Found_Or_New(Directory, Names_Of(utility).Output), *text, this).exec();
}

void inout_sel::Tick()
{
    const auto code = Utility_At_Work ? Job_Exit_Code(*Utility_At_Work) : std::optional(0);
    if (!code)
        return;
    Timer1.stop();
    Utility_At_Work.reset();
    const std::string log = Take_Utility_Log(Utility_Place);
    if (Utility_Place != Directory)
        return;
    Nachricht->setText(*code == 0 ? "The table is ready. Please click again to see it."
                                  : Shown("The table could not be made. " + log));
    List_Files_Of_Directory();
}

void inout_sel::Echo_Click()
{
    Show_Echo(The_Session, Directory, this);
}

std::vector<std::string> inout_sel::Commands() const
{
    std::vector<std::string> lines;
    if (s_Echo->isEnabled())
        lines.push_back(Orvelctl_Line(The_Session.Program.App_Path, {"echo", Directory.string()}));
    if (Grafik->isEnabled())
        lines.push_back(Series->Command(The_Session, Directory));
    return lines;
}

void inout_sel::Grafik_Click()
{
    Series->Show_Diagram(The_Session, Directory, true, this);
}

} // namespace orvel
