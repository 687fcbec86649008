#include "evaluation/forms/compared_choice.h"

#include "ui/forms/form_keys.h"
#include "ui/forms/widgets.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>

namespace orvel {

namespace {

constexpr int Choice_Columns = 90, Choice_Lines = 8;

} // namespace

Compared_Choice::Compared_Choice(const std::vector<Earlier_Results>& earlier, QWidget* parent) : QDialog(parent)
{
    setObjectName("Compared_Choice");
    setWindowTitle("Compare the overview");
    Lay_Out(earlier);
}

void Compared_Choice::Lay_Out(const std::vector<Earlier_Results>& earlier)
{
    Other = Named(new QLineEdit, "Other");
    Other->setMinimumWidth(fontMetrics().averageCharWidth() * Choice_Columns);
    auto* label = new QLabel("&Installation or archive:");
    label->setBuddy(Other);
    auto* directory = Push_Button("Other_Directory", "D&irectory ...", this, [this] {
        const QString chosen = QFileDialog::getExistingDirectory(this, "Choose an installation", Other->text());
        if (!chosen.isEmpty())
            Other->setText(chosen);
    });
    auto* file = Push_Button("Other_File", "&File ...", this, [this] {
        const QString chosen =
            QFileDialog::getOpenFileName(this, "Choose an archive", Other->text(), "Archives (*.zip)");
        if (!chosen.isEmpty())
            Other->setText(chosen);
    });
    auto* row = new QHBoxLayout;
    row->addWidget(Other, 1);
    row->addWidget(directory);
    row->addWidget(file);
    Do_Compare = Push_Button("Do_Compare", "&Compare", this, &QDialog::accept);
    Do_Compare->setEnabled(false);
    connect(Other, &QLineEdit::textChanged, this,
            [this](const QString& text) { Do_Compare->setEnabled(!text.trimmed().isEmpty()); });
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(Do_Compare);
    buttons->addWidget(Push_Button("Cancel", "Cancel", this, &QDialog::reject));
    auto* all = new QVBoxLayout(this);
    all->addWidget(label);
    all->addLayout(row);
    all->addWidget(Earlier_List(earlier));
    all->addLayout(buttons);
    Use_Form_Keys(*this);
}

QWidget* Compared_Choice::Earlier_List(const std::vector<Earlier_Results>& earlier)
{
    auto* list = Named(new QListWidget, "Earlier");
    for (const auto& results : earlier) {
        auto* item = new QListWidgetItem(Shown(results.Text), list);
        item->setData(Qt::UserRole, QString::fromStdString(results.Directory.string()));
    }
    list->setMinimumHeight(fontMetrics().lineSpacing() * Choice_Lines);
    connect(list, &QListWidget::currentItemChanged, this,
            [this](const QListWidgetItem* item) { Other->setText(item ? item->data(Qt::UserRole).toString() : ""); });
    auto* label =
        new QLabel(earlier.empty() ? "There are no earlier results in the bin." : "or &earlier results in the bin:");
    label->setBuddy(list);
    auto* box = new QWidget;
    auto* rows = new QVBoxLayout(box);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addWidget(label);
    rows->addWidget(list);
    list->setVisible(!earlier.empty());
    return box;
}

std::filesystem::path Compared_Choice::Chosen() const
{
    return Other->text().trimmed().toStdString();
}

} // namespace orvel
