#include "records/forms/archives.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/numbers.h"
#include "core/shell_line.h"
#include "jobs/run_tree.h"
#include "records/archive.h"
#include "records/compare.h"
#include "records/forms/archive_dialog.h"
#include "records/forms/work_in_window.h"
#include "records/reproduce.h"
#include "records/restore.h"
#include "ui/forms/command_box.h"
#include "ui/forms/form_keys.h"
#include "ui/forms/number_edit.h"
#include "ui/forms/text_output.h"
#include "ui/forms/widgets.h"

#include <QComboBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr int Archives_Columns = 110;
constexpr int Archives_Lines = 40;
constexpr const char* All_Crops_Entry = "All crops";
constexpr std::array<Mode_Kind, 3> Modes = {Mode_Kind::Focus, Mode_Kind::Efsa, Mode_Kind::Efsa_T4};

fs::path Path_In(const QLineEdit* field)
{
    return field->text().trimmed().toStdString();
}

// The entries of a level of the run tree; one that cannot be read is told and has none.
void Show_Entries(QComboBox* list, const Ask_Function& ask, const fs::path& parent)
try {
    for (const auto& entry : Run_Entries(parent))
        list->addItem(Shown(entry.Name), QString::fromStdString(entry.Directory.string()));
} catch (const File_Error& error) {
    ask({"File check", To_Code_Page(error.what())});
}

} // namespace

Archives::Archives(Session& session, QWidget* parent) : QDialog(parent), The_Session(session)
{
    setObjectName("Archives");
    setWindowTitle("Archives and comparisons");
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    Lay_Out();
    Load_Pesticides();
    Enable_Buttons();
    resize(fontMetrics().averageCharWidth() * Archives_Columns, fontMetrics().lineSpacing() * Archives_Lines);
}

void Archives::Lay_Out()
{
    Result = Fixed_Pitch_Text("Result", "Result");
    auto* foot = new QHBoxLayout;
    foot->addWidget(Push_Button("Copy_Result", "Cop&y", this, [this] { Copy_Text(Result->toPlainText()); }));
    foot->addWidget(Command_Button(this, [this] { return Commands(); }));
    foot->addStretch(1);
    foot->addWidget(Push_Button("Ende", "D&one", this, &QDialog::reject));

    auto* all = new QVBoxLayout(this);
    all->addWidget(Archive_Box());
    all->addWidget(Restore_Box());
    all->addWidget(Compare_Box());
    all->addWidget(Result, 1);
    all->addLayout(foot);
    Use_Form_Keys(*this);
}

QWidget* Archives::Archive_Box()
{
    Mode_List = Named(new QComboBox, "Mode_List");
    for (const auto kind : Modes)
        Mode_List->addItem(Shown(Mode_Of(kind).Caption));
    Pesticide_List = Named(new QComboBox, "Pesticide_List");
    Crop_List = Named(new QComboBox, "Crop_List");
    for (auto* list : {Mode_List, Pesticide_List, Crop_List})
        list->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    connect(Mode_List, &QComboBox::activated, this, &Archives::Load_Pesticides);
    connect(Pesticide_List, &QComboBox::activated, this, &Archives::Load_Crops);
    Do_Archive = Push_Button("Do_Archive", "&Archive ...", this, &Archives::Do_Archive_Click);
    Do_Archive->setToolTip("Inputs, records, outputs, engine and report of these simulations in one file");

    auto* lists = new QFormLayout;
    lists->addRow("&Mode:", Mode_List);
    lists->addRow("&Pesticide:", Pesticide_List);
    lists->addRow("&Crop:", Crop_List);
    auto* box = Named(new QGroupBox("Archive simulations"), "Archive_Box");
    auto* row = new QHBoxLayout(box);
    row->addLayout(lists, 1);
    row->addWidget(Do_Archive, 0, Qt::AlignBottom);
    return box;
}

QWidget* Archives::Restore_Box()
{
    Do_Restore = Push_Button("Do_Restore", "&Restore", this, &Archives::Do_Restore_Click);
    Do_Restore->setToolTip("Lays the archive out in a new or empty directory or an installation; replaces nothing");
    Do_Reproduce = Push_Button("Do_Reproduce", "Run a&gain", this, &Archives::Do_Reproduce_Click);
    Do_Reproduce->setToolTip("Runs its inputs with the engine of this installation and compares what comes out");

    auto* box = Named(new QGroupBox("Use an archive"), "Restore_Box");
    auto* rows = new QFormLayout(box);
    Add_Path(*rows, "Arc&hive file:", Archive_File, "Archive_File", Takes::File);
    Add_Path(*rows, "Restore &to:", Target, "Target", Takes::Directory);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(Do_Restore);
    buttons->addWidget(Do_Reproduce);
    rows->addRow(buttons);
    return box;
}

QWidget* Archives::Compare_Box()
{
    Tolerance_Field = Named(new Number_Edit, "Tolerance_Field");
    Tolerance_Field->setText("0");
    auto* label = new QLabel("To&lerance, as a share:");
    label->setBuddy(Tolerance_Field);
    Tolerance_Field->setToolTip("0.01: numbers that differ by one per cent are the same");
    Do_Compare = Push_Button("Do_Compare", "Compar&e", this, &Archives::Do_Compare_Click);

    auto* box =
        Named(new QGroupBox("Compare two documents, run directories, archives or installations"), "Compare_Box");
    auto* rows = new QFormLayout(box);
    Add_Path(*rows, "&First:", First, "First", Takes::Both);
    Add_Path(*rows, "&Second:", Second, "Second", Takes::Both);
    auto* row = new QHBoxLayout;
    row->addWidget(Tolerance_Field);
    row->addStretch(1);
    row->addWidget(Do_Compare);
    rows->addRow(label, row);
    return box;
}

// Adds a field for a path, with a button that looks for a file or one that looks for a directory, or both.
void Archives::Add_Path(QFormLayout& rows, const QString& caption, QLineEdit*& field, const QString& name, Takes takes)
{
    auto* shown = field = Named(new QLineEdit, name);
    connect(shown, &QLineEdit::textChanged, this, &Archives::Enable_Buttons);
    auto* label = new QLabel(caption);
    label->setBuddy(shown);
    auto* row = new QHBoxLayout;
    row->addWidget(shown, 1);
    const auto add = [&](const QString& kind, auto ask) {
        const QString title = "Choose a " + kind.toLower();
        auto* button = Push_Button(name + "_" + kind, kind + " ...", this, [this, shown, title, ask] {
            const QString chosen = ask(this, title, shown->text());
            if (!chosen.isEmpty())
                shown->setText(chosen);
        });
        button->setAccessibleName(title + ": " + QString(caption).remove('&').remove(':'));
        row->addWidget(button);
    };
    if (takes != Takes::Directory)
        add("File", [](QWidget* parent, const QString& title, const QString& now) {
            return QFileDialog::getOpenFileName(parent, title, now);
        });
    if (takes != Takes::File)
        add("Directory", [](QWidget* parent, const QString& title, const QString& now) {
            return QFileDialog::getExistingDirectory(parent, title, now);
        });
    rows.addRow(label, row);
}

const Mode& Archives::Chosen_Mode() const
{
    return Mode_Of(Modes.at(static_cast<std::size_t>(Mode_List->currentIndex())));
}

void Archives::Load_Pesticides()
{
    Pesticide_List->clear();
    Show_Entries(Pesticide_List, The_Session.Ask, Mode_Directory(The_Session.Program, Chosen_Mode()));
    Load_Crops();
}

void Archives::Load_Crops()
{
    Crop_List->clear();
    Crop_List->addItem(All_Crops_Entry);
    if (Pesticide_List->currentIndex() >= 0)
        Show_Entries(Crop_List, The_Session.Ask, Pesticide_List->currentData().toString().toStdString());
    Enable_Buttons();
}

void Archives::Enable_Buttons()
{
    const auto filled = [](const QLineEdit* field) { return !field->text().trimmed().isEmpty(); };
    Do_Archive->setEnabled(Pesticide_List->currentIndex() >= 0);
    Do_Restore->setEnabled(filled(Archive_File) && filled(Target));
    Do_Reproduce->setEnabled(filled(Archive_File));
    Do_Compare->setEnabled(filled(First) && filled(Second));
}

double Archives::Tolerance() const
{
    return std::max(0.0, Tolerance_Field->Value().Number());
}

// Those that can be done with what is entered.
std::vector<std::string> Archives::Commands() const
{
    std::vector<std::string> lines;
    const auto add = [&](const QPushButton* button, const std::vector<std::string>& words) {
        if (button->isEnabled())
            lines.push_back(Orvelctl_Line(The_Session.Program.App_Path, words));
    };
    const std::string pesticide = Pesticide_List->currentText().toStdString(),
                      crop = Crop_List->currentIndex() == 0 ? "" : Crop_List->currentText().toStdString(),
                      tolerance = General_Text(Tolerance());
    std::vector<std::string> archive = {"archive", "--mode", std::string(Chosen_Mode().Name), "--pesticide", pesticide};
    if (!crop.empty())
        archive.insert(archive.end(), {"--crop", crop});
    archive.insert(archive.end(), {"--to", To_Utf8(Archive_File_Name(Bytes_Of(Pesticide_List->currentText()),
                                                                     From_Utf8(crop).value_or("")))});
    add(Do_Archive, archive);
    const std::string file = Path_In(Archive_File).string();
    add(Do_Restore, {"restore", file, Path_In(Target).string()});
    add(Do_Reproduce, {"reproduce", file, "--tolerance", tolerance});
    add(Do_Compare, {"compare", Path_In(First).string(), Path_In(Second).string(), "--tolerance", tolerance});
    return lines;
}

void Archives::Do_Archive_Click()
{
    const std::string crop = Crop_List->currentIndex() == 0 ? "" : Bytes_Of(Crop_List->currentText());
    Archive_In_Window(The_Session, Chosen_Mode(), Bytes_Of(Pesticide_List->currentText()), crop, this);
}

void Archives::Do_Restore_Click()
{
    Restored_Assessment restored;
    const bool done = Do_In_Window(this, The_Session.Ask, "Restore", [&](const Progress& progress) {
        restored = Restore(Path_In(Archive_File), Path_In(Target), progress);
    });
    if (!done)
        return;
    Result->setPlainText(QString::fromStdString(Restored_Lines(restored)));
    if (!restored.Is_Ok())
        The_Session.Ask({"Restore", std::string(Not_All_Ok_Text)});
}

void Archives::Do_Reproduce_Click()
{
    Reproduction reproduction;
    const Reproduction_Order order{.Archive = Path_In(Archive_File),
                                   .Engine = {},
                                   .App_Path = The_Session.Program.App_Path,
                                   .Tolerance = Tolerance()};
    const bool done = Do_In_Window(this, The_Session.Ask, "Run again",
                                   [&](const Progress& progress) { reproduction = Reproduce(order, progress); });
    if (done)
        Result->setPlainText(Shown(Reproduction_Lines(reproduction)));
}

void Archives::Do_Compare_Click()
{
    Comparison comparison;
    const fs::path first = Path_In(First), second = Path_In(Second);
    const double tolerance = Tolerance();
    const bool done = Do_In_Window(this, The_Session.Ask, "Compare", [&](const Progress& progress) {
        comparison = Compare(first, second, tolerance, progress);
    });
    if (!done)
        return;
    const std::string lines = Comparison_Lines(comparison);
    Result->setPlainText(lines.empty() ? "They are the same." : Shown(lines));
}

} // namespace orvel
