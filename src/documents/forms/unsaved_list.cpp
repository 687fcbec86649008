#include "documents/forms/unsaved_list.h"

#include "core/code_page.h"
#include "core/error.h"
#include "core/time_text.h"
#include "documents/forms/edit_document.h"
#include "documents/unsaved_copy.h"
#include "ui/forms/form_keys.h"
#include "ui/forms/widgets.h"

#include <algorithm>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QScreen>
#include <QTableWidget>

namespace orvel {

namespace {

constexpr std::array<const char*, 4> Heads = {"Document", "Last copied", "State", "Directory"};
constexpr int Columns_Shown = 110, Rows_Shown = 14; // characters and lines of the window as it opens

} // namespace

Unsaved_List::Unsaved_List(Session& session, QWidget* parent) : QDialog(parent), The_Session(session)
{
    setObjectName("Unsaved_List");
    setWindowTitle("Unsaved changes");
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    Lay_Out();
    Show_Copies();
    const QSize opened(fontMetrics().averageCharWidth() * Columns_Shown, fontMetrics().lineSpacing() * Rows_Shown);
    resize(opened.expandedTo(sizeHint()).boundedTo(screen()->availableSize()));
}

void Unsaved_List::Lay_Out()
{
    Grid = Row_Table("Unsaved_Grid", "Copies of unsaved changes", QStringList(Heads.begin(), Heads.end()));
    Grid->setSelectionMode(QAbstractItemView::SingleSelection);
    connect(Grid, &QTableWidget::itemSelectionChanged, this, &Unsaved_List::Enable_Buttons);
    connect(Grid, &QTableWidget::cellDoubleClicked, this, &Unsaved_List::Open_Copy);

    Open_Button = Push_Button("Unsaved_Open", "&Open", this, &Unsaved_List::Open_Copy);
    Delete_Button = Push_Button("Unsaved_Delete", "De&lete copy", this, &Unsaved_List::Delete);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(Open_Button);
    buttons->addWidget(Delete_Button);
    buttons->addStretch(1);
    buttons->addWidget(Push_Button("Unsaved_Done", "&Done", this, &QDialog::accept));
    auto* all = new QVBoxLayout(this);
    all->addWidget(Grid, 1);
    all->addLayout(buttons);
    Use_Form_Keys(*this);
}

void Unsaved_List::Show_Copies()
{
    try {
        Copies = Left_Copies(Place_Of_Unsaved_Copies());
    } catch (const File_Error& error) {
        Copies.clear();
        Tell(The_Session.Ask, "Unsaved changes", To_Code_Page(error.what()));
    }
    const int row = std::max(0, Grid->currentRow());
    Grid->setRowCount(static_cast<int>(Copies.size()));
    for (int i = 0; i < Grid->rowCount(); ++i) {
        const auto& copy = Copies[static_cast<std::size_t>(i)];
        const std::array<QString, Heads.size()> texts = {Shown(Shown_Name(copy.Copy)), Shown(Date_Text(copy.Date)),
                                                         Shown(State_Text(copy)),
                                                         QString::fromStdString(copy.Document.parent_path().string())};
        for (int column = 0; column < Grid->columnCount(); ++column) {
            auto* item = new QTableWidgetItem(texts[static_cast<std::size_t>(column)]);
            item->setToolTip(item->text());
            Grid->setItem(i, column, item);
        }
    }
    Grid->resizeColumnsToContents();
    if (Grid->rowCount() > 0)
        Grid->selectRow(std::min(row, Grid->rowCount() - 1));
    Enable_Buttons();
}

const Left_Copy* Unsaved_List::Selected() const
{
    const auto rows = Grid->selectionModel()->selectedRows();
    return rows.isEmpty() ? nullptr : &Copies.at(static_cast<std::size_t>(rows.front().row()));
}

void Unsaved_List::Enable_Buttons()
{
    const auto* copy = Selected();
    Open_Button->setText(copy && !Has_Document(*copy) ? "&Open as new document" : "&Open");
    Open_Button->setEnabled(copy);
    Delete_Button->setEnabled(copy);
}

void Unsaved_List::Open_Copy()
{
    if (const auto* copy = Selected())
        Edit_Left_Copy(The_Session, Left_Copy(*copy), this);
    Show_Copies();
}

void Unsaved_List::Delete()
{
    const auto* copy = Selected();
    if (copy && The_Session.Ask({"Unsaved changes",
                                 "Delete the unsaved changes of " + Shown_Name(copy->Copy) + " of " +
                                     Date_Text(copy->Date) + " for good?",
                                 Icon::Question,
                                 {Button::Yes, Button::No},
                                 Button::No}) == Button::Yes)
        Delete_Left(*copy);
    Show_Copies();
}

} // namespace orvel
