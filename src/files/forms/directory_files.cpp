#include "files/forms/directory_files.h"

#include "core/files.h"
#include "core/text.h"
#include "ui/forms/widgets.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

namespace orvel {

namespace {

constexpr int Files_Columns = 60, Files_Rows = 14;

} // namespace

Directory_Files::Directory_Files(const std::filesystem::path& directory, const std::string& mask, QWidget* parent)
    : QWidget(parent),
      Place(directory),
      Mask(mask)
{
    Dir1 = Named(new QLineEdit(QString::fromStdString(Place.string())), "Dir1");
    auto* title = new QLabel("D&irectory:");
    title->setBuddy(Dir1);
    auto* choose = Push_Button("Choose_Directory", "C&hoose ...", this, &Directory_Files::Choose_Directory);
    File1 = Named(new QListWidget, "File1");
    File1->setAccessibleName("Files of the directory");
    File1->setUniformItemSizes(true);
    File1->setMinimumSize(fontMetrics().averageCharWidth() * Files_Columns, fontMetrics().lineSpacing() * Files_Rows);
    connect(Dir1, &QLineEdit::editingFinished, this, &Directory_Files::Directory_Typed);
    connect(File1, &QListWidget::itemClicked, this, &Directory_Files::File_Clicked);
    connect(File1, &QListWidget::itemDoubleClicked, this, &Directory_Files::File_Double_Clicked);

    auto* line = new QHBoxLayout;
    line->addWidget(title);
    line->addWidget(Dir1, 1);
    line->addWidget(choose);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins({});
    all->addLayout(line);
    all->addWidget(File1, 1);
}

std::string Directory_Files::Selected_Name() const
{
    return File1->currentItem() ? Bytes_Of(File1->currentItem()->text()) : std::string();
}

bool Directory_Files::Is_Empty() const
{
    return File1->count() == 0;
}

void Directory_Files::Select_First()
{
    if (!File1->currentItem())
        File1->setCurrentRow(0);
}

void Directory_Files::Focus_List()
{
    File1->setFocus();
}

void Directory_Files::Refresh(const std::string& name)
{
    const Hourglass waiting;
    File1->clear();
    int selected = 0;
    for (const std::string& file : List_Files(Place, Mask)) {
        const auto bytes = Name_Of(file);
        if (!bytes || !Shown(*bytes).contains(Part, Qt::CaseInsensitive))
            continue;
        if (Same_Text(*bytes, name))
            selected = File1->count();
        File1->addItem(Shown(*bytes));
    }
    File1->setCurrentRow(selected);
}

void Directory_Files::Search(const QString& part)
{
    Part = part.trimmed();
    Refresh(Selected_Name());
}

void Directory_Files::Choose_Directory()
{
    const QString chosen = QFileDialog::getExistingDirectory(this, "Directory of the files", Dir1->text());
    if (!chosen.isEmpty())
        Go_To(chosen.toStdString());
}

// A text that is no directory gives way to the one that is shown.
void Directory_Files::Directory_Typed()
{
    const std::filesystem::path typed = Dir1->text().toStdString();
    std::error_code ignored;
    if (typed != Place)
        Go_To(std::filesystem::is_directory(typed, ignored) ? typed : Place);
}

void Directory_Files::Go_To(const std::filesystem::path& directory)
{
    Place = directory;
    Dir1->setText(QString::fromStdString(Place.string()));
    Refresh(Selected_Name());
}

void Directory_Files::keyPressEvent(QKeyEvent* event)
{
    const bool is_enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!is_enter || File1->hasFocus())
        QWidget::keyPressEvent(event);
}

} // namespace orvel
