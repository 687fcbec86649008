#pragma once

#include "core/session.h"
#include "ui/forms/grid_model.h"

#include <QTableView>
#include <QUndoStack>

namespace orvel {

// A grid whose cells are edited by keys, as its rule lays down: the first key replaces the text of a marked cell, F2 or
// a double click goes on behind it. Also: arrow keys, Return for the cell below, a block
// copied to a spreadsheet (Ctrl+C), cut (Ctrl+X) and pasted from one (Ctrl+V), the first row of a selection or the cell
// above copied down (Ctrl+D), undo and redo (Ctrl+Z, Ctrl+Y). Every change can be undone until the model is reset.
class Number_Grid : public QTableView {
    Q_OBJECT

public:
    // Reports through `ask` what cannot be pasted. `purpose` is the accessible name.
    Number_Grid(Grid_Model* model, const Grid_Rule& rule, const Ask_Function& ask, const QString& purpose,
                QWidget* parent = nullptr);

    // Makes each column wide enough for its heading and for `characters` characters.
    void Fit_Columns(int characters);
    QSize sizeHint() const override; // all columns, and up to twelve rows

    void Go_To(int row, int column);

    // Stores a text in a cell as a change that can be undone.
    void Change_Cell(int row, int column, const std::string& text);

    // The same for the block of cells whose upper left corner is given, with the rows that it needs: one change.
    void Change_Block(int row, int column, const Grid_Block& cells);

    // Whether every cell can be read as the number that it should hold; the first that cannot is told and gone to.
    bool Is_Readable();

    void Undo() { Changes.undo(); }
    void Redo() { Changes.redo(); }
    void Copy();
    void Cut();
    void Paste();
    void Fill_Down();

signals:
    void Cell_Changed(int row, int column); // by hand, undo or redo
    void Cell_Left(int row, int column);    // for another cell or control; Go_To returns to it
    void Cell_Entered(int row, int column);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    struct Change {
        int Row = 0, Column = 0;
        std::string Before, After;
    };
    class Change_Command;

    QRect Selected() const; // bounding block of the selected cells, in columns and rows
    void Press(int key_code, const QString& typed);
    void Choose_By_Letter(const QModelIndex& cell, const QString& typed);
    void Apply(std::vector<Change> changes, bool typed, int new_rows = 0);
    void Put(const std::vector<Change>& changes, std::string Change::*text);
    void Add_Change(std::vector<Change>& changes, int row, int column, const std::string& text) const;

    Grid_Model& Model;
    Grid_Rule Rule;
    const Ask_Function& Ask;
    QUndoStack Changes;
    int Fitted = 0;    // width of all columns, as Fit_Columns made them
    bool Fresh = true; // the next key replaces the text of the cell
};

} // namespace orvel
