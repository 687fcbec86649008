#pragma once

#include "substance/depth_grid.h"
#include "ui/forms/entries_under_edit.h"
#include "ui/grid_block.h"

#include <QDialog>

class QLabel;

namespace orvel {

class Number_Grid;
class Text_Grid_Model;

// The depth-dependent values of a substance: one row per horizon.
class Form_hor : public QDialog, public Entries_Under_Edit {
    Q_OBJECT

public:
    // Substance i, 1 to 9, with as many rows as the substance form asks for.
    Form_hor(Session& session, int i, int rows, QWidget* parent = nullptr);

    void Take_Over_Entries(Session& session) const override;

protected:
    bool event(QEvent* event) override;

private:
    void Lay_Out();
    QWidget* Headings();
    void Place_Headings();
    void Show_Grid(const Depth_Grid& grid);
    Depth_Grid Grid() const;
    void Take_Default();
    void Follow_Undo();
    void Show_Default(bool taken);
    void Done();

    Session& The_Session;
    int Substance;
    const Depth_Grid At_First;
    std::vector<std::string> Default_Factors; // of the first target, until the default is undone
    Grid_Block Before_Default, After_Default; // cells of the grid
    bool Default_Taken = false;
    QLabel *Kf_Heading = nullptr, *Factor_Heading = nullptr, *Default_Note = nullptr;
    Text_Grid_Model* Model = nullptr;
    Number_Grid* GridHor = nullptr;
};

} // namespace orvel
