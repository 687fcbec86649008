#include "scenario/forms/klima.h"

#include "core/forms/text_output.h"
#include "core/forms/widgets.h"
#include "core/grid_keys.h"
#include "scenario/forms/climate_model.h"
#include "scenario/forms/klimagrafik.h"
#include "scenario/forms/save_as.h"
#include "scenario/saving.h"

#include <QApplication>
#include <QClipboard>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>

namespace {

constexpr int Date_Width = 6, Number_Width = 11; // in characters
constexpr int Rows_Shown = 24;

// The code of a key of the grid; 0 for any other.
int Code_Of(const QKeyEvent& key)
{
    if (key.key() == Qt::Key_Backspace)
        return Key_Backspace;
    const std::string typed = Bytes_Of(key.text());
    return typed.size() == 1 ? Key_Code(typed[0]) : 0;
}

bool Is_Typed(const QKeyEvent& key)
{
    const bool command = key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    return key.key() == Qt::Key_Backspace || (!command && !key.text().isEmpty() && key.text().at(0).isPrint());
}

} // namespace

Klima::Klima(Session& session, std::filesystem::path directory, QWidget* parent) : QDialog(parent), Shared(session), Directory(std::move(directory))
{
    setObjectName("Klima");
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    Lay_Out();
    Shared.Program.CLI_Changed = false;
    lade_klimadatei();
}

void Klima::Lay_Out()
{
    Cli_Title = Named(new QLineEdit, "Cli_Title");
    Text1 = Named(new QLineEdit, "Text1");
    Text1->setReadOnly(true);
    Text1->setFocusPolicy(Qt::NoFocus);
    auto* texts = new QFormLayout;
    texts->addRow("&Title:", Cli_Title);
    texts->addRow("Cell:", Text1);
    connect(Cli_Title, &QLineEdit::textEdited, this, [this](const QString& text) {
        Model->Grid().Set_Title(Bytes_Of(text));
        Shared.Program.CLI_Changed = true;
    });

    Model = new Climate_Model(Shared, this);
    Grid1 = Named(new QTableView, "Grid1");
    Grid1->setAccessibleName("Days of the climate file");
    Grid1->setModel(Model);
    Grid1->setEditTriggers(QAbstractItemView::NoEditTriggers);
    Grid1->setTabKeyNavigation(false);
    Grid1->verticalHeader()->hide();
    const int character = fontMetrics().averageCharWidth();
    int width = style()->pixelMetric(QStyle::PM_ScrollBarExtent) + 2 * character;
    for (int c = 0; c < Model->columnCount(); ++c) {
        const int wanted = character * (c < static_cast<int>(Climate_Grid::Text_Columns) ? Date_Width : Number_Width);
        Grid1->setColumnWidth(c, std::max(wanted, Grid1->horizontalHeader()->sectionSizeHint(c)));
        width += Grid1->columnWidth(c);
    }
    Grid1->installEventFilter(this);
    connect(Grid1->selectionModel(), &QItemSelectionModel::currentChanged, this, &Klima::Show_Cell);
    connect(Model, &QAbstractItemModel::dataChanged, this, &Klima::Show_Cell);

    auto* buttons = new QHBoxLayout;
    const auto add = [&](const QString& name, const QString& text, auto handler) { buttons->addWidget(Push_Button(name, text, this, handler)); };
    add("Grafik", "D&iagram", &Klima::Grafik_Click);
    add("Command1", "&Save", &Klima::Save);
    buttons->addStretch(1);
    add("Fertig", "&Done", &QDialog::accept);

    auto* all = new QVBoxLayout(this);
    all->addLayout(texts);
    all->addWidget(Grid1, 1);
    all->addLayout(buttons);
    resize(width + 4 * character, fontMetrics().lineSpacing() * Rows_Shown * 3 / 2);
}

void Klima::lade_klimadatei()
{
    const auto& name = Shared.Program.PSM_File;
    setWindowTitle(name.empty() || name.starts_with('*') ? "Climatic Data Files" : "Climatic Data Files - " + Shown(name));
    Model->Load();
    Cli_Title->setText(Shown(Model->Grid().Title()));
    Grid1->setCurrentIndex(Model->index(0, 0));
    Grid1->setFocus();
    Show_Cell();
}

void Klima::Show_Cell()
{
    Text1->setText(Model->data(Grid1->currentIndex()).toString());
}

bool Klima::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QDialog::eventFilter(watched, event);
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (key.matches(QKeySequence::Copy))
        Copy();
    else if (key.matches(QKeySequence::Paste))
        Paste();
    else if (Is_Typed(key))
        Model->Press_Key(Grid1->currentIndex(), Code_Of(key));
    else
        return QDialog::eventFilter(watched, event);
    return true;
}

// The block around all cells selected.
void Klima::Copy()
{
    const auto selection = Grid1->selectionModel()->selection();
    if (selection.isEmpty())
        return;
    QRect block;
    for (const auto& range : selection)
        block |= QRect(QPoint(range.left(), range.top()), QPoint(range.right(), range.bottom()));
    QString text;
    for (int row = block.top(); row <= block.bottom(); ++row) {
        for (int column = block.left(); column <= block.right(); ++column)
            text += Model->data(Model->index(row, column)).toString() + (column < block.right() ? "\t" : "\n");
    }
    Copy_Text(text);
}

// Into the cells from the upper left one of those selected on.
void Klima::Paste()
{
    QModelIndex first = Grid1->currentIndex();
    for (const auto& range : Grid1->selectionModel()->selection())
        first = Model->index(std::min(first.row(), range.top()), std::min(first.column(), range.left()));
    Model->Paste(first, QApplication::clipboard()->text());
}

void Klima::Save()
{
    Take_Over_Climate(Shared, Model->Grid());
    if (Save_As(Shared, Document_Kind::Climate, Shown(Climate_Save_Caption), Directory, this))
        setWindowTitle("Climatic Data Files - " + Shown(Shared.Program.PSM_File));
}

void Klima::Grafik_Click()
{
    Klimagrafik(Model->Grid(), Series_Of_Column(Grid1->currentIndex().column()), Shared.Ask, this).exec();
}

void Klima::done(int result)
{
    if (!May_Close(Shared, Shared.Program.CLI_Changed))
        return;
    Shared.Program.CLI_Changed = false;
    QDialog::done(result);
}
