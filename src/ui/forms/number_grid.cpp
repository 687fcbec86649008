#include "ui/forms/number_grid.h"

#include "ui/forms/text_output.h"
#include "ui/forms/widgets.h"
#include "ui/grid_keys.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTimer>

namespace orvel {

namespace {

constexpr int Most_Rows_Hinted = 12;

struct Grid_Command {
    QKeySequence Keys;
    QString Caption;
    void (Number_Grid::*Does)();
};

const std::vector<Grid_Command>& Commands()
{
    static const std::vector<Grid_Command> commands = {
        {QKeySequence("Ctrl+Z"), "&Undo", &Number_Grid::Undo},
        {QKeySequence("Ctrl+Y"), "&Redo", &Number_Grid::Redo},
        {QKeySequence("Ctrl+X"), "Cu&t", &Number_Grid::Cut},
        {QKeySequence("Ctrl+C"), "&Copy", &Number_Grid::Copy},
        {QKeySequence("Ctrl+V"), "&Paste", &Number_Grid::Paste},
        {QKeySequence("Ctrl+D"), "Copy &down", &Number_Grid::Fill_Down},
    };
    return commands;
}

// The key code that the grids' rules use; 0 for any other key.
int Code_Of(const QKeyEvent& key)
{
    if (key.key() == Qt::Key_Backspace)
        return Key_Backspace;
    if (key.key() == Qt::Key_Delete)
        return Key_Delete;
    const std::string typed = Bytes_Of(key.text());
    return typed.size() == 1 ? Key_Code(typed[0]) : 0;
}

bool Is_Typed(const QKeyEvent& key)
{
    const bool command = key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    const bool clears = key.key() == Qt::Key_Backspace || key.key() == Qt::Key_Delete;
    return clears || (!command && !key.text().isEmpty() && key.text().at(0).isPrint());
}

// The list of a cell with choices.
class Choice_Delegate : public QStyledItemDelegate {
public:
    explicit Choice_Delegate(Number_Grid& grid) : QStyledItemDelegate(&grid), Grid(grid) {}

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& cell) const override
    {
        auto* list = new QComboBox(parent);
        for (const auto& choice : static_cast<const Grid_Model*>(cell.model())->Column(cell.column()).Choices)
            list->addItem(Shown(choice));
        return list;
    }

    void setEditorData(QWidget* editor, const QModelIndex& cell) const override
    {
        auto* list = static_cast<QComboBox*>(editor);
        list->setCurrentText(cell.data().toString());
    }

    void setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex& cell) const override
    {
        Grid.Change_Cell(cell.row(), cell.column(), Bytes_Of(static_cast<QComboBox*>(editor)->currentText()));
    }

private:
    Number_Grid& Grid;
};

} // namespace

// Consecutive key presses in one cell are a single undo step; so are the rows that a block needs, and its cells.
class Number_Grid::Change_Command : public QUndoCommand {
public:
    Change_Command(Number_Grid& grid, std::vector<Change> changes, bool typed, int new_rows)
        : Grid(grid),
          Changes(std::move(changes)),
          Typed(typed),
          New_Rows(new_rows)
    {}

    void undo() override
    {
        Grid.Put(Changes, &Change::Before);
        if (New_Rows > 0)
            Grid.Model.Remove_Rows(New_Rows);
    }
    void redo() override
    {
        if (New_Rows > 0)
            Grid.Model.Append_Rows(New_Rows);
        Grid.Put(Changes, &Change::After);
    }
    int id() const override { return Typed ? 1 : -1; }

    bool mergeWith(const QUndoCommand* later) override
    {
        const auto& typed = static_cast<const Change_Command*>(later)->Changes.front();
        auto& here = Changes.front();
        if (typed.Row != here.Row || typed.Column != here.Column)
            return false;
        here.After = typed.After;
        return true;
    }

private:
    Number_Grid& Grid;
    std::vector<Change> Changes;
    bool Typed;
    int New_Rows;
};

Number_Grid::Number_Grid(Grid_Model* model, const Grid_Rule& rule, const Ask_Function& ask, const QString& purpose,
                         QWidget* parent)
    : QTableView(parent),
      Model(*model),
      Rule(rule),
      Ask(ask)
{
    setModel(model);
    setItemDelegate(new Choice_Delegate(*this));
    setAccessibleName(purpose);
    setEditTriggers(DoubleClicked | EditKeyPressed);
    setTabKeyNavigation(false);
    horizontalHeader()->setHighlightSections(false); // bold headings would not fit
    horizontalHeader()->setStretchLastSection(true); // no empty ground right of the cells
    verticalHeader()->hide();
    connect(model, &QAbstractItemModel::modelReset, &Changes, &QUndoStack::clear);
}

void Number_Grid::Fit_Columns(int characters)
{
    const int wanted = characters * fontMetrics().averageCharWidth();
    Fitted = 0;
    for (int c = 0; c < Model.columnCount(); ++c) {
        const int width = std::max(
            {wanted, horizontalHeader()->sectionSizeHint(c), Model.Column(c).Editable ? 0 : sizeHintForColumn(c)});
        setColumnWidth(c, width);
        Fitted += width;
    }
}

QSize Number_Grid::sizeHint() const
{
    const int rows = std::min(Model.rowCount(), Most_Rows_Hinted);
    const int frame = 2 * frameWidth() + 2;
    const bool scrolls = Model.rowCount() > rows;
    return {(Fitted > 0 ? Fitted : horizontalHeader()->length()) + frame +
                (scrolls ? verticalScrollBar()->sizeHint().width() : 0),
            horizontalHeader()->sizeHint().height() + rows * verticalHeader()->defaultSectionSize() + frame};
}

// If a click leaves the cell, the view selects the clicked cell after the handler returns, so the cell is selected once
// more after that.
void Number_Grid::Go_To(int row, int column)
{
    const auto go = [this, row, column] { setCurrentIndex(Model.index(row, column)); };
    setFocus();
    go();
    QTimer::singleShot(0, this, [this, row, column, go] {
        if (currentIndex() == Model.index(row, column))
            go();
    });
}

void Number_Grid::keyPressEvent(QKeyEvent* event)
{
    for (const auto& command : Commands()) {
        if (command.Keys.matches(QKeySequence(event->keyCombination())) == QKeySequence::ExactMatch)
            return (this->*command.Does)();
    }
    if (Is_Typed(*event))
        return Press(Code_Of(*event), event->text());
    if (event->key() == Qt::Key_F2)
        Fresh = false;
    const bool down = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!down)
        return QTableView::keyPressEvent(event);
    if (const auto below = currentIndex().siblingAtRow(currentIndex().row() + 1); below.isValid())
        setCurrentIndex(below);
}

void Number_Grid::Press(int key_code, const QString& typed)
{
    const auto cell = currentIndex();
    if (!cell.isValid() || !Model.Column(cell.column()).Editable)
        return;
    if (!Model.Column(cell.column()).Choices.empty())
        return Choose_By_Letter(cell, typed);
    const std::string before = Model.Cell(cell.row(), cell.column());
    const bool replaces = Fresh && key_code != Key_Delete && key_code != Key_Backspace;
    const auto after = Rule.Cell_After_Key(replaces ? std::string() : before, cell.column(), key_code);
    if (replaces && after.empty()) // no key of this cell
        return;
    std::vector<Change> changes;
    Add_Change(changes, cell.row(), cell.column(), after);
    Apply(std::move(changes), true);
    Fresh = false;
}

// Selects the next choice that begins with the letter, wrapping around from the present one.
void Number_Grid::Choose_By_Letter(const QModelIndex& cell, const QString& typed)
{
    const auto& choices = Model.Column(cell.column()).Choices;
    const auto at = std::find(choices.begin(), choices.end(), Model.Cell(cell.row(), cell.column())) - choices.begin();
    for (std::size_t step = 1; step <= choices.size(); ++step) {
        const auto& choice = choices[(static_cast<std::size_t>(at) + step) % choices.size()];
        if (Shown(choice).startsWith(typed, Qt::CaseInsensitive))
            return Change_Cell(cell.row(), cell.column(), choice);
    }
}

void Number_Grid::Change_Cell(int row, int column, const std::string& text)
{
    std::vector<Change> changes;
    Add_Change(changes, row, column, text);
    Apply(std::move(changes), false);
}

void Number_Grid::Change_Block(int row, int column, const Grid_Block& cells)
{
    std::vector<Change> changes;
    for (std::size_t r = 0; r < cells.size(); ++r) {
        for (std::size_t c = 0; c < cells[r].size(); ++c)
            Add_Change(changes, row + static_cast<int>(r), column + static_cast<int>(c), cells[r][c]);
    }
    Apply(std::move(changes), false, std::max(0, row + static_cast<int>(cells.size()) - Model.rowCount()));
}

void Number_Grid::Add_Change(std::vector<Change>& changes, int row, int column, const std::string& text) const
{
    auto before = row < Model.rowCount() ? Model.Cell(row, column) : std::string();
    if (Model.Column(column).Editable && before != text)
        changes.push_back({row, column, std::move(before), text});
}

void Number_Grid::Apply(std::vector<Change> changes, bool typed, int new_rows)
{
    if (!changes.empty())
        Changes.push(new Change_Command(*this, std::move(changes), typed, new_rows));
}

void Number_Grid::Put(const std::vector<Change>& changes, std::string Change::*text)
{
    Fresh = true;
    QRect changed;
    for (const auto& change : changes) {
        Model.Set_Cell(change.Row, change.Column, change.*text);
        changed |= QRect(change.Column, change.Row, 1, 1);
    }
    Model.Tell_Changed(changed);
    if (!changed.contains(currentIndex().column(), currentIndex().row()))
        setCurrentIndex(Model.index(changed.top(), changed.left()));
    for (const auto& change : changes)
        emit Cell_Changed(change.Row, change.Column);
}

bool Number_Grid::Is_Readable()
{
    for (int row = 0; row < Model.rowCount(); ++row) {
        for (int column = 0; column < Model.columnCount(); ++column) {
            if (!Model.Hint(row, column))
                continue;
            const std::string title = Model.Column(0).Editable ? "Row " + std::to_string(row + 1) : Model.Cell(row, 0);
            Ask(Unread_Cell(title, Model.Column(column), Model.Cell(row, column)));
            Go_To(row, column);
            return false;
        }
    }
    return true;
}

QRect Number_Grid::Selected() const
{
    QRect block;
    for (const auto& range : selectionModel()->selection())
        block |= QRect(QPoint(range.left(), range.top()), QPoint(range.right(), range.bottom()));
    if (block.isEmpty() && currentIndex().isValid())
        block = QRect(currentIndex().column(), currentIndex().row(), 1, 1);
    return block;
}

void Number_Grid::Copy()
{
    const QRect block = Selected();
    Grid_Block cells;
    for (int row = block.top(); row <= block.bottom(); ++row) {
        auto& line = cells.emplace_back();
        for (int column = block.left(); column <= block.right(); ++column)
            line.push_back(Model.Cell(row, column));
    }
    if (!cells.empty())
        Copy_Text(Shown(Print_Block(cells)));
}

void Number_Grid::Cut()
{
    Copy();
    const QRect block = Selected();
    std::vector<Change> changes;
    for (int row = block.top(); row <= block.bottom(); ++row) {
        for (int column = block.left(); column <= block.right(); ++column) {
            if (Model.Column(column).Choices.empty())
                Add_Change(changes, row, column, {});
        }
    }
    Apply(std::move(changes), false);
}

// Pastes from the upper left selected cell on, in an empty grid from its corner; a single text goes into all selected
// cells.
void Number_Grid::Paste()
{
    QRect block = Selected();
    if (block.isEmpty())
        block = QRect(0, 0, 1, 1);
    const auto rows = static_cast<std::size_t>(Model.Most_Rows() - block.top());
    const auto pasted = Read_Block(Bytes_Of(QApplication::clipboard()->text()), rows, Model.Columns(),
                                   static_cast<std::size_t>(block.left()), Rule);
    if (pasted.Refused) {
        Ask(*pasted.Refused);
        return;
    }
    const bool single = pasted.Cells.size() == 1 && pasted.Cells[0].size() == 1 && block.width() == 1;
    Change_Block(block.top(), block.left(),
                 single ? Grid_Block(static_cast<std::size_t>(block.height()), pasted.Cells[0]) : pasted.Cells);
}

void Number_Grid::Fill_Down()
{
    const QRect block = Selected();
    const int from = block.height() > 1 ? block.top() : block.top() - 1;
    std::vector<Change> changes;
    for (int row = from + 1; from >= 0 && row <= block.bottom(); ++row) {
        for (int column = block.left(); column <= block.right(); ++column)
            Add_Change(changes, row, column, Model.Cell(from, column));
    }
    Apply(std::move(changes), false);
}

void Number_Grid::mouseDoubleClickEvent(QMouseEvent* event)
{
    QTableView::mouseDoubleClickEvent(event);
    Fresh = false;
}

void Number_Grid::focusOutEvent(QFocusEvent* event)
{
    QTableView::focusOutEvent(event);
    const bool stays = event->reason() == Qt::ActiveWindowFocusReason || event->reason() == Qt::PopupFocusReason;
    if (!stays && currentIndex().isValid() && state() != EditingState)
        emit Cell_Left(currentIndex().row(), currentIndex().column());
}

void Number_Grid::contextMenuEvent(QContextMenuEvent* event)
{
    QMenu menu(this);
    for (const auto& command : Commands()) {
        auto* action = menu.addAction(command.Caption + "\t" + command.Keys.toString(QKeySequence::NativeText), this,
                                      command.Does);
        action->setEnabled(command.Does == &Number_Grid::Undo
                               ? Changes.canUndo()
                               : command.Does != &Number_Grid::Redo || Changes.canRedo());
    }
    menu.exec(event->globalPos());
}

void Number_Grid::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTableView::currentChanged(current, previous);
    Fresh = true;
    if (previous.isValid())
        emit Cell_Left(previous.row(), previous.column());
    if (current.isValid() && currentIndex() == current)
        emit Cell_Entered(current.row(), current.column());
}

} // namespace orvel
